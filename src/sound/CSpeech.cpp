#include "sound/CSpeech.h"

#include "sound/SoundLog.h"

#include <algorithm>
#include <clocale>
#include <espeak-ng/speak_lib.h>
#include <mutex>

namespace {

/** The one espeak-ng of the process. It is never terminated: once terminated, it hangs in its second life. */
struct CLibrary
{
    std::mutex mutex;
    int rate = 0; ///< frames a second; 0 while not loaded, negative when it can't be
    locale_t localeBefore = nullptr;

    bool load();
};

bool CLibrary::load()
{
    constexpr int BufferMs = 20; // decides how soon a stop is seen
    if (rate == 0) {
        // Loading switches the locale of the whole process (LC_CTYPE, to C.UTF-8): the one before
        // is kept alive for the threads that are using it right now.
        if (!localeBefore)
            localeBefore = duplocale(LC_GLOBAL_LOCALE);
        rate = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, BufferMs, nullptr, espeakINITIALIZE_DONT_EXIT);
        if (rate <= 0) {
            rate = -1;
            qCWarning(soundLog) << "no voice: espeak-ng finds no data";
        }
    }
    return rate > 0;
}

CLibrary& library()
{
    static CLibrary only;
    return only;
}

/** One text on its way through the library. */
struct CUtterance
{
    const CSoundTicket& ticket;
    QVector<qint16> samples;
};

/** @return 1 to end the synthesis. */
int takeSamples(short* samples, int count, espeak_EVENT* events)
{
    auto* utterance = static_cast<CUtterance*>(events->user_data);
    if (!utterance)
        return 0;
    if (samples && count > 0) {
        const int end = utterance->samples.size();
        utterance->samples.resize(end + count);
        std::copy(samples, samples + count, utterance->samples.begin() + end);
    }
    return utterance->ticket.stopped ? 1 : 0;
}

} // namespace

SoundClip CSpeech::speak(const QString& words, SpeechLanguage language, const CSoundTicket& ticket)
{
    const std::lock_guard<std::mutex> lock(library().mutex);
    if (words.trimmed().isEmpty() || ticket.stopped || !library().load())
        return nullptr;
    espeak_SetSynthCallback(takeSamples);
    if (espeak_SetVoiceByName(language == SpeechLanguage::English ? "en" : "de") != EE_OK)
        return nullptr;
    const QByteArray text = words.toUtf8();
    CUtterance utterance{ticket, {}};
    espeak_Synth(text.constData(), size_t(text.size()) + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8, nullptr,
                 &utterance);
    return ticket.stopped ? nullptr : makeSoundClip(utterance.samples, 1, library().rate);
}
