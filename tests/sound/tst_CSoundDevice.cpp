#include "sound/CSoundDevice.h"
#include "sound/CSoundMixer.h"

#include <QTest>

/** Without a device: the surroundings of the tests have neither a sound daemon nor a sound card. */
class tst_CSoundDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutADeviceTheMixIsDropped();
    void withoutADeviceEveryMixIsDropped();
    void aDeviceThatIsNeverWokenStartsNothing();
    void theEndDoesNotWaitForTheMix();
};

namespace {

/** Adds an hour of sound. */
void addSound(CSoundMixer& mixer)
{
    static const SoundClip clip = makeSoundClip(QVector<qint16>(MixRate * 60, 1000), 1, MixRate);
    const auto ticket = std::make_shared<CSoundTicket>();
    for (int i = 0; i < 60; ++i)
        mixer.add(ticket, clip);
}

} // namespace

void tst_CSoundDevice::withoutADeviceTheMixIsDropped()
{
    const auto mixer = std::make_shared<CSoundMixer>();
    CSoundDevice device(mixer);
    addSound(*mixer);
    device.wake();
    QTRY_VERIFY(mixer->isIdle());
}

void tst_CSoundDevice::withoutADeviceEveryMixIsDropped()
{
    const auto mixer = std::make_shared<CSoundMixer>();
    CSoundDevice device(mixer);
    for (int i = 0; i < 20; ++i) {
        addSound(*mixer);
        device.wake();
        QTRY_VERIFY(mixer->isIdle());
    }
}

void tst_CSoundDevice::aDeviceThatIsNeverWokenStartsNothing()
{
    const auto mixer = std::make_shared<CSoundMixer>();
    {
        CSoundDevice device(mixer);
        addSound(*mixer);
    }
    QVERIFY(!mixer->isIdle());
}

void tst_CSoundDevice::theEndDoesNotWaitForTheMix()
{
    const auto mixer = std::make_shared<CSoundMixer>();
    {
        CSoundDevice device(mixer);
        addSound(*mixer);
        device.wake();
    }
    QCOMPARE(mixer.use_count(), 1L); // nobody is left who plays it
}

QTEST_GUILESS_MAIN(tst_CSoundDevice)
#include "tst_CSoundDevice.moc"
