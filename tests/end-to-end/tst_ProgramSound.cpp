#include "io/CCarreraCuIo.h"
#include "sound/PulseServer.h"
#include "support/StoredSetup.h"
#include "support/TornikProcess.h"
#include "support/VirtualUnit.h"

#include <QTest>

#include <csignal>

/** The real program races and speaks on a sound server that fails: it races on, and ends in peace. */
class tst_ProgramSound : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theRaceGoesOnAndTheProgramEndsWithoutItsSoundServer_data();
    void theRaceGoesOnAndTheProgramEndsWithoutItsSoundServer();

private:
    static void storeSetup(const QString& port);
    static QString raceTime(const TornikProcess& program);
};

void tst_ProgramSound::storeSetup(const QString& port)
{
    CCarreraCuIo io;
    io.setPortName(port);
    StoredSetup setup;
    setup.raceway.ioSettings = io.writeSettings();
    setup.settings.setSoundEnhanced(true);
    setup.settings.setSoundVoiceOutputLaps(true);
    setup.settings.setSoundVoiceOutputLapTime(true);
    setup.write();
}

QString tst_ProgramSound::raceTime(const TornikProcess& program)
{
    return program.window().filter("label raceTime ").join(' ');
}

void tst_ProgramSound::theRaceGoesOnAndTheProgramEndsWithoutItsSoundServer_data()
{
    QTest::addColumn<bool>("hangs");
    QTest::addColumn<bool>("dies");
    QTest::newRow("it stays") << false << false;
    QTest::newRow("it dies") << false << true;
    QTest::newRow("it hangs") << true << false;
    QTest::newRow("it hangs and dies") << true << true;
}

void tst_ProgramSound::theRaceGoesOnAndTheProgramEndsWithoutItsSoundServer()
{
    QFETCH(bool, hangs);
    QFETCH(bool, dies);
    CPulseServer server;
    server.useIt();
    if (!server.start())
        QSKIP(qPrintable(QStringLiteral("no PulseAudio: ") + server.error()));
    QVERIFY(server.record());
    VirtualUnit unit;
    QVERIFY(unit.start({"--cars", "2", "--speed-up", "3", "--light-step", "0"}));
    storeSetup(unit.path());
    TornikProcess::forgetWindow();
    TornikProcess program({"--windowed", "--quickRace"});
    QTRY_VERIFY_WITH_TIMEOUT(program.hasWindow(), 30000);
    unit.command("start");
    QTRY_VERIFY_WITH_TIMEOUT(server.loudFrames() > 44100 / 2, 60000);

    if (hangs) {
        server.signal(SIGSTOP);
        QTRY_VERIFY_WITH_TIMEOUT(program.output().contains("the audio device takes nothing"), 60000);
    }
    if (dies)
        server.stop();
    const QString time = raceTime(program);
    const int polls = unit.polls();
    QTRY_VERIFY_WITH_TIMEOUT(raceTime(program) != time, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(unit.polls() > polls, 30000);
    const bool ended = program.end();
    QVERIFY2(ended, program.output().constData());
}

QTEST_GUILESS_MAIN(tst_ProgramSound)
#include "tst_ProgramSound.moc"
