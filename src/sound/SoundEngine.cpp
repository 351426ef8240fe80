#include "sound/SoundEngine.h"

#include "sound/CSampleStore.h"
#include "sound/CSoundDevice.h"
#include "sound/CSoundMixer.h"
#include "sound/CSoundWorker.h"
#include "sound/CSpeech.h"

#include <QCoreApplication>

namespace {

std::shared_ptr<CSoundWorker>& sharedWorker()
{
    static std::shared_ptr<CSoundWorker> worker;
    return worker;
}

/** Players that live on are silent. */
void finishSharedWorker()
{
    if (sharedWorker())
        sharedWorker()->finish();
    sharedWorker().reset();
}

std::shared_ptr<CSoundWorker> makeWorker()
{
    const auto mixer = std::make_shared<CSoundMixer>();
    const auto device = std::make_shared<CSoundDevice>(mixer);
    return std::make_shared<CSoundWorker>(
        [store = std::make_shared<CSampleStore>()](const QString& path) { return store->read(path); },
        &CSpeech::speak,
        [mixer, device](const SoundTicket& ticket, const SoundClip& clip) {
            mixer->add(ticket, clip);
            device->wake();
        });
}

} // namespace

std::shared_ptr<CSoundWorker> sharedSoundWorker()
{
    if (!sharedWorker()) {
        sharedWorker() = makeWorker();
        qAddPostRoutine(finishSharedWorker);
    }
    return sharedWorker();
}
