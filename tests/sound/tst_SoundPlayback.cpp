#include "sound/CSoundHandler.h"
#include "sound/CSoundOutput.h"
#include "sound/PulseServer.h"
#include "sound/WaveFile.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLocale>
#include <QTest>

#include <atomic>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <vector>

/** The whole way to a real device: a private sound daemon with a null sink, whose monitor is recorded. */
class tst_SoundPlayback : public QObject
{
    Q_OBJECT

public:
    void useServer() const { m_server.useIt(); }

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_server.stopRecord(); }

    void aSpokenLapTimeIsHeard();
    void aSampleIsHeard();
    void eightPanelsShareOneDevice();
    void aStopCutsTheOutputShort();
    void theNewBestLapEffectIsHeard()
    {
        onlyItsPlayIsHeard(&CSoundHandler::setNewBestLapSound, &CSoundHandler::playNewBestLap);
    }
    void theDriveThroughEffectIsHeard()
    {
        onlyItsPlayIsHeard(&CSoundHandler::setDriveThroughSound, &CSoundHandler::playDriveThrough);
    }
    void theRedLightEffectIsHeard()
    {
        onlyItsPlayIsHeard(&CSoundHandler::setRedLightSound, &CSoundHandler::playRedLightSound);
    }
    void theGreenLightEffectIsHeard()
    {
        onlyItsPlayIsHeard(&CSoundHandler::setGreenLightSound, &CSoundHandler::playGreenLightSound);
    }
    void theFuelOnReserveEffectIsHeard()
    {
        onlyItsPlayIsHeard(&CSoundHandler::setFuelOnReserveSound, &CSoundHandler::playFuelOnReserve);
    }
    void aSinkThatIsPulledOutAndComesBackIsHeardAgain();
    void aDaemonThatIsStuckDoesNotHang();
    // The last one: Qt's backend may not live on after it.
    void aDeviceThatIsLostAndComesBackIsHeardAgain();

private:
    using Setter = void (CSoundHandler::*)(const QString&);
    using Player = void (CSoundHandler::*)();

    void onlyItsPlayIsHeard(Setter setter, Player player);
    int loudFrames() { return m_server.loudFrames(); }
    bool isSilentAfter(int frames);
    bool lapIsHeard(CSoundOutput& voice);

    CPulseServer m_server;
};

namespace {

QtMessageHandler otherHandler = nullptr;
std::atomic<bool> backendIsDead{false};

/** Sees the one message with which Qt's PulseAudio backend leaves a failed write, its lock still held. */
void watchBackend(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.contains(QLatin1String("pa_stream_write, error")))
        backendIsDead = true;
    otherHandler(type, context, text);
}

void writeTone(const QString& path, int seconds)
{
    QVector<qint16> samples;
    for (int i = 0; i < seconds * 44100; ++i)
        samples << qint16(20000 * std::sin(i * 0.06));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(WaveFile::plain(samples));
}

} // namespace

/** Waits until so many frames more are recorded. @return whether nothing was to be heard in them. */
bool tst_SoundPlayback::isSilentAfter(int frames)
{
    const int loud = loudFrames();
    const int begin = m_server.frames();
    const bool recorded = QTest::qWaitFor([&] { return m_server.frames() > begin + frames; }, 20000);
    return recorded && loudFrames() == loud;
}

/** Plays the first sample of a voice anew, again and again. @return whether it is heard within a minute. */
bool tst_SoundPlayback::lapIsHeard(CSoundOutput& voice)
{
    const QDeadlineTimer patience(60000);
    while (!patience.hasExpired()) {
        const int before = loudFrames();
        voice.stop();
        voice.playSample1();
        voice.play();
        if (QTest::qWaitFor([this, before] { return loudFrames() > before + 1000; }, 2000))
            return true;
    }
    return false;
}

void tst_SoundPlayback::initTestCase()
{
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    writeTone(QStringLiteral("tone.wav"), 1);
    writeTone(QStringLiteral("long.wav"), 60);
    if (!m_server.start())
        QSKIP(qPrintable(QStringLiteral("no PulseAudio: ") + m_server.error()));
}

void tst_SoundPlayback::init()
{
    QVERIFY(m_server.record());
}

void tst_SoundPlayback::aSpokenLapTimeIsHeard()
{
    CSoundOutput voice;
    voice.enqueueText(QStringLiteral("B00:05:734"));
    voice.play();
    QTRY_VERIFY_WITH_TIMEOUT(loudFrames() > 44100 / 2, 20000);
}

void tst_SoundPlayback::aSampleIsHeard()
{
    CSoundOutput voice;
    voice.setSample1File(QStringLiteral("tone.wav"));
    voice.playSample1();
    voice.play();
    // A sine of 20000 is above the threshold nearly all the time.
    QTRY_VERIFY_WITH_TIMEOUT(loudFrames() > 40000, 20000);
    QVERIFY(loudFrames() <= 44100);
}

void tst_SoundPlayback::eightPanelsShareOneDevice()
{
    std::vector<std::unique_ptr<CSoundOutput>> panels;
    for (int i = 0; i < 8; ++i) {
        panels.push_back(std::make_unique<CSoundOutput>());
        panels.back()->setSample1File(QStringLiteral("tone.wav"));
    }
    for (const auto& panel : panels) {
        panel->playSample1();
        panel->play();
    }
    QTRY_VERIFY_WITH_TIMEOUT(loudFrames() > 10000, 20000);
    QCOMPARE(m_server.streams(), 1);
}

void tst_SoundPlayback::aStopCutsTheOutputShort()
{
    CSoundOutput voice;
    voice.setSample1File(QStringLiteral("long.wav"));
    voice.playSample1();
    voice.play();
    QTRY_VERIFY_WITH_TIMEOUT(loudFrames() > 1000, 20000);
    voice.stop();
    // What the device had fetched is heard yet; the minute that the sample takes isn't.
    QTRY_VERIFY_WITH_TIMEOUT(isSilentAfter(4410), 20000);
}

void tst_SoundPlayback::onlyItsPlayIsHeard(Setter setter, Player player)
{
    CSoundHandler handler;
    for (const Setter other : {&CSoundHandler::setNewBestLapSound, &CSoundHandler::setDriveThroughSound,
                               &CSoundHandler::setRedLightSound, &CSoundHandler::setGreenLightSound,
                               &CSoundHandler::setFuelOnReserveSound})
        (handler.*other)(QStringLiteral("missing.wav"));
    (handler.*setter)(QStringLiteral("tone.wav"));
    for (const Player other :
         {&CSoundHandler::playNewBestLap, &CSoundHandler::playDriveThrough, &CSoundHandler::playRedLightSound,
          &CSoundHandler::playGreenLightSound, &CSoundHandler::playFuelOnReserve}) {
        if (other != player)
            (handler.*other)();
    }
    QVERIFY(isSilentAfter(11025)); // neither the loading nor another effect makes a noise
    (handler.*player)();
    QTRY_VERIFY_WITH_TIMEOUT(loudFrames() > 10000, 20000);
    // An effect that is deleted while it plays leaves a few bytes of Qt's behind.
    QTRY_VERIFY_WITH_TIMEOUT(isSilentAfter(11025), 20000);
}

void tst_SoundPlayback::aDeviceThatIsLostAndComesBackIsHeardAgain()
{
    CSoundOutput voice;
    voice.setSample1File(QStringLiteral("long.wav"));
    voice.playSample1();
    voice.play();
    QTRY_VERIFY_WITH_TIMEOUT(loudFrames() > 1000, 20000);
    otherHandler = qInstallMessageHandler(watchBackend);
    m_server.stop();
    voice.stop();
    voice.enqueueText(QStringLiteral("012"));
    voice.play();
    QVERIFY2(m_server.start(), qPrintable(m_server.error()));
    QVERIFY(m_server.record());
    if (!lapIsHeard(voice) && backendIsDead)
        QSKIP("the daemon died within a write: Qt's backend kept its lock and is dead");
    QVERIFY(lapIsHeard(voice));
}

void tst_SoundPlayback::aSinkThatIsPulledOutAndComesBackIsHeardAgain()
{
    CSoundOutput voice;
    voice.setSample1File(QStringLiteral("long.wav"));
    voice.playSample1();
    voice.play();
    QTRY_VERIFY_WITH_TIMEOUT(loudFrames() > 1000, 20000);
    QVERIFY(m_server.unloadSink());
    m_server.stopRecord();
    voice.stop();
    voice.playSample1();
    voice.play();
    QVERIFY(m_server.loadSink());
    QVERIFY(m_server.record());
    QVERIFY(lapIsHeard(voice));
}

void tst_SoundPlayback::aDaemonThatIsStuckDoesNotHang()
{
    CSoundHandler handler;
    m_server.signal(SIGSTOP);
    {
        handler.setNewBestLapSound(QStringLiteral("tone.wav"));
        CSoundOutput voice;
        voice.setSample1File(QStringLiteral("tone.wav"));
        for (int i = 0; i < 10; ++i) {
            handler.playNewBestLap();
            voice.stop();
            voice.playSample1();
            voice.enqueueText(QStringLiteral("012"));
            voice.play();
            QCoreApplication::processEvents();
        }
    }
    m_server.signal(SIGCONT);
    CSoundOutput voice;
    voice.setSample1File(QStringLiteral("tone.wav"));
    QVERIFY(lapIsHeard(voice));
    QTRY_VERIFY_WITH_TIMEOUT(isSilentAfter(22050), 20000);
}

int main(int argc, char* argv[])
{
    tst_SoundPlayback test;
    test.useServer(); // before the first sound
    QCoreApplication application(argc, argv);
    const int failed = QTest::qExec(&test, argc, argv);
    if (backendIsDead)
        std::_Exit(failed); // its destructor would wait for the lock
    return failed;
}
#include "tst_SoundPlayback.moc"
