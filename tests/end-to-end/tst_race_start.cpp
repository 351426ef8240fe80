#include "shell/CKelmoMainDialog.h"
#include "support/RecordingSounds.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QComboBox>
#include <QTest>

namespace {

/** A start by lights after a time, with a fixed while from the fifth red to green. */
StoredSetup setupWithLights(const QTime& delay, quint32 whileBeforeGreen)
{
    StoredSetup setup;
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.rules.setStartDelay(delay);
    setup.rules.setStartLightsMinDelay(whileBeforeGreen);
    setup.rules.setStartLightsMaxDelay(0);
    setup.rules.setWinningCondition(1);
    return setup;
}

} // namespace

/** How a race begins, in the running program. */
class tst_race_start : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lightsCountDownToGreenStepByStep();
    void longDelayIsSilentUntilItsLastFiveSeconds();
    void startByLightsInRealTime();
    void falseStartEndsTheRaceWithoutAWinner();
    void everyCarOfOneFalseStartIsNamed();
    void stopBeforeGreenGivesNoGo();
    void flyingStartRunsAtOnce();
    void startLocksTheBoxesAndClearsTheFigures();
};

void tst_race_start::lightsCountDownToGreenStepByStep()
{
    setupWithLights(QTime(0, 0, 5), 60000).write();
    RunningProgram program;
    QCOMPARE(program.infoText("startCondition"), QString("Start in 00:05 Minuten"));
    QCOMPARE(program.lights(), QString("ooooo"));
    QVERIFY(program.startRace());
    QStringList lights{program.lights()};
    for (int second = 0; second < 4; ++second) {
        QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
        program.letStartSecondPass();
        lights.append(program.lights());
    }
    QCOMPARE(lights, QStringList({"Roooo", "RRooo", "RRRoo", "RRRRo", "RRRRR"}));
    QCOMPARE(program.sounds().played, QStringList({"red", "red", "red", "red", "red"}));
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    program.letStartSecondPass();
    QCOMPARE(program.lights(), QString("GGGGG"));
    QCOMPARE(program.sounds().played.last(), QString("green"));
    QCOMPARE(program.statuses(), QStringList({"starten", "starten"}));
    program.cross(2);
    QCOMPARE(program.statuses(), QStringList({"starten", "läuft"}));
    program.cross(2);
    QCOMPARE(program.laps(2), QString("001"));
}

void tst_race_start::longDelayIsSilentUntilItsLastFiveSeconds()
{
    setupWithLights(QTime(0, 0, 8), 60000).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    QStringList lights{program.lights()};
    for (int second = 0; second < 4; ++second) {
        program.letStartSecondPass();
        lights.append(program.lights());
    }
    QCOMPARE(lights, QStringList({"ooooo", "ooooo", "ooooo", "Roooo", "RRooo"}));
}

void tst_race_start::startByLightsInRealTime()
{
    setupWithLights(QTime(0, 0, 0), 500).write(); // five seconds are the least
    RunningProgram program;
    QElapsedTimer sinceStart;
    sinceStart.start();
    QVERIFY(program.startRace());
    QString expected = "Roooo";
    QCOMPARE(program.lights(), expected);
    for (int light = 1; light < 5; ++light) {
        expected[light] = 'R';
        QTRY_COMPARE(program.lights(), expected);
        QVERIFY2(sinceStart.elapsed() >= 1000 * light - 10, qPrintable(expected));
        QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    }
    QTRY_COMPARE(program.lights(), QString("GGGGG"));
    QVERIFY(sinceStart.elapsed() >= 4490);
    QCOMPARE(program.statuses(), QStringList({"starten", "starten"}));
    QCOMPARE(program.infoText("raceTime"), QString("00:00:00")); // the clock begins at green
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.status(1), QString("läuft"));
    QCOMPARE(program.laps(1), QString("001"));
    QTRY_COMPARE(program.infoText("raceTime"), QString("00:00:01"));
    QVERIFY(sinceStart.elapsed() >= 5490);
}

void tst_race_start::falseStartEndsTheRaceWithoutAWinner()
{
    setupWithLights(QTime(0, 0, 5), 60000).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.letStartSecondPass();
    program.cross(2);
    QCOMPARE(program.statuses(), QStringList({"beendet", "frühstart"}));
    QCOMPARE(program.message(), QString("Rennen wurde beendet"));
    QCOMPARE(program.lights(), QString("ooooo"));
    QCOMPARE(program.menuText(CMainMenu::QuickRace), QString("&schnelles Rennen starten"));
    QVERIFY(!program.sounds().played.contains("green"));

    QVERIFY(program.startRace()); // and the next race begins from the first light
    QCOMPARE(program.lights(), QString("Roooo"));
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    QVERIFY(program.message().isEmpty());
}

void tst_race_start::everyCarOfOneFalseStartIsNamed()
{
    setupWithLights(QTime(0, 0, 5), 60000).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.crossAll();
    QCOMPARE(program.statuses(), QStringList({"frühstart", "frühstart"}));
    QCOMPARE(program.message(), QString("Rennen wurde beendet"));
}

void tst_race_start::stopBeforeGreenGivesNoGo()
{
    setupWithLights(QTime(0, 0, 5), 800).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (int second = 0; second < 4; ++second)
        program.letStartSecondPass();
    QCOMPARE(program.lights(), QString("RRRRR"));
    program.stopRace();
    QCOMPARE(program.lights(), QString("ooooo"));
    QCOMPARE(program.statuses(), QStringList({"beendet", "beendet"}));
    QVERIFY(!QTest::qWaitFor([&] { return program.lights() != "ooooo"; }, 1000));
    QVERIFY(!program.sounds().played.contains("green"));
}

void tst_race_start::flyingStartRunsAtOnce()
{
    StoredSetup().write();
    RunningProgram program;
    QCOMPARE(program.infoText("startCondition"), QString("fliegender Start"));
    QVERIFY(program.startRace());
    QCOMPARE(program.lights(), QString("GGGGG"));
    QVERIFY2(program.sounds().played.isEmpty(), "green without a red before it is silent");
    program.cross(1);
    QCOMPARE(program.statuses(), QStringList({"läuft", "starten"}));
    QCOMPARE(program.laps(1), QString("000"));
}

void tst_race_start::startLocksTheBoxesAndClearsTheFigures()
{
    StoredSetup().write();
    RunningProgram program;
    const auto* driverBox = program.dialog().findChild<QComboBox*>("driverBox");
    QCOMPARE(driverBox->currentText(), QString("Anna"));
    QVERIFY(driverBox->isEnabled());
    QVERIFY(program.startRace());
    QVERIFY(!driverBox->isEnabled());
    program.cross(1);
    program.cross(1);
    program.stopRace();
    QVERIFY(driverBox->isEnabled());
    QVERIFY(program.trackText(1, "lastLap") != "00:00:000");
    QVERIFY(program.startRace());
    QCOMPARE(program.trackText(1, "lastLap"), QString("00:00:000"));
    QCOMPARE(program.laps(1), QString("000"));
    QCOMPARE(program.infoText("raceTime"), QString("00:00:00"));
}

QTEST_APPLESS_MAIN(tst_race_start)
#include "tst_race_start.moc"
