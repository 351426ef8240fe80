#include "io/CKelmoPortSimulator.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QTest>

namespace {

StoredSetup setupWithLapLimit(int laps)
{
    StoredSetup setup;
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(laps);
    return setup;
}

} // namespace

/** What ends a race by itself, in the running program. */
class tst_race_end : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timeLimitEndsTheRaceAndAPauseHoldsItUp();
    void lapLimitEndsTheRaceAtTheFirstCar();
    void lapLimitOnAllTracksWaitsForTheSlowest();
    void trackAtItsLimitStandsThereUntilTheSlowestIsThrough();
    void withoutTheStopATrackGoesOnBeyondTheLimit();
    void lapsAreCountedDown();
    void withoutALapLimitLapsAreCountedUp();
    void limitOfNoLapsEndsTheRaceAtTheFirstEvent();
    void withoutAnEndConditionTheRaceGoesOnUntilItIsStopped();
    void redLightsShowTheEndWhereTheyAreAskedFor();
    void powerStaysOnWhereItIsAskedFor_data();
    void powerStaysOnWhereItIsAskedFor();
};

/** For real: two seconds, the first of which is over before a pause. */
void tst_race_end::timeLimitEndsTheRaceAndAPauseHoldsItUp()
{
    StoredSetup setup;
    setup.rules.setEndType(CRaceSettings::TimeLimit);
    setup.rules.setEndTime(QTime(0, 0, 2));
    setup.write();
    RunningProgram program;
    QCOMPARE(program.infoText("endCondition"), QString("Zeitlimit 00:00:02"));
    QVERIFY(program.startRace());
    QCOMPARE(program.infoText("raceTime"), QString("00:00:00"));
    QTRY_COMPARE(program.infoText("raceTime"), QString("00:00:01"));
    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    // Without the pause the race would be over now.
    QVERIFY(!QTest::qWaitFor([&] { return program.statuses().contains("beendet"); }, 1200));
    QCOMPARE(program.infoText("raceTime"), QString("00:00:01"));

    QElapsedTimer sinceResume;
    sinceResume.start();
    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    QTRY_COMPARE(program.statuses(), QStringList({"beendet", "beendet"}));
    QVERIFY2(sinceResume.elapsed() >= 990, "a second of the race was left");
    QCOMPARE(program.message(), QString("Rennen beendet"));
    QVERIFY(!program.simulator().isVisible());
}

void tst_race_end::lapLimitEndsTheRaceAtTheFirstCar()
{
    setupWithLapLimit(2).write();
    RunningProgram program;
    QCOMPARE(program.infoText("endCondition"), QString("Ende nach 2 Runden"));
    QVERIFY(program.startRace());
    for (const int track : {1, 2, 1, 2})
        program.cross(track);
    QCOMPARE(program.statuses(), QStringList({"läuft", "läuft"}));
    program.cross(2);
    QCOMPARE(program.statuses(), QStringList({"beendet", "beendet"}));
    QCOMPARE(program.laps(1), QString("001"));
    QCOMPARE(program.laps(2), QString("002"));
    QCOMPARE(program.message(), QString("Rennen beendet"));
}

void tst_race_end::lapLimitOnAllTracksWaitsForTheSlowest()
{
    StoredSetup setup = setupWithLapLimit(2);
    setup.rules.setAllMaxRounds(true);
    setup.rules.setWinningCondition(1);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (const int track : {2, 2, 2, 1, 1})
        program.cross(track);
    QCOMPARE(program.statuses(), QStringList({"läuft", "läuft"}));
    program.cross(1);
    QCOMPARE(program.statuses(), QStringList({"beendet", "sieger"})); // he was at the limit first
    QCOMPARE(program.message(), QString("Die meisten Runden gefahren hat Ben."));
}

void tst_race_end::trackAtItsLimitStandsThereUntilTheSlowestIsThrough()
{
    StoredSetup setup = setupWithLapLimit(2);
    setup.rules.setAllMaxRounds(true);
    setup.rules.setMaxRoundsStopCounting(true);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (const int track : {1, 1, 1, 2})
        program.cross(track);
    QCOMPARE(program.statuses(), QStringList({"beendet", "läuft"}));
    const QString lastLap = program.trackText(1, "lastLap");
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.laps(1), QString("002"));
    QCOMPARE(program.trackText(1, "lastLap"), lastLap);
    program.cross(2);
    QCOMPARE(program.statuses(), QStringList({"beendet", "läuft"}));
    program.cross(2);
    QCOMPARE(program.statuses(), QStringList({"beendet", "beendet"}));
    QCOMPARE(program.message(), QString("Rennen beendet"));
}

void tst_race_end::withoutTheStopATrackGoesOnBeyondTheLimit()
{
    StoredSetup setup = setupWithLapLimit(1);
    setup.rules.setAllMaxRounds(true);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 4; ++crossing)
        program.cross(1);
    QCOMPARE(program.laps(1), QString("003"));
    QCOMPARE(program.status(1), QString("läuft"));
}

void tst_race_end::lapsAreCountedDown()
{
    StoredSetup setup = setupWithLapLimit(3);
    setup.rules.setLapsCountDown(true);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    QStringList shown{program.laps(1)};
    for (int crossing = 0; crossing < 4; ++crossing) {
        program.cross(1);
        shown.append(program.laps(1));
    }
    QCOMPARE(shown, QStringList({"003", "003", "002", "001", "000"}));
    QCOMPARE(program.laps(2), QString("003"));
    QCOMPARE(program.statuses(), QStringList({"beendet", "beendet"}));
}

void tst_race_end::withoutALapLimitLapsAreCountedUp()
{
    StoredSetup setup = setupWithLapLimit(3);
    setup.rules.setEndType(CRaceSettings::NoEnd);
    setup.rules.setLapsCountDown(true);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.laps(1), QString("001"));
}

void tst_race_end::limitOfNoLapsEndsTheRaceAtTheFirstEvent()
{
    StoredSetup setup = setupWithLapLimit(0);
    setup.rules.setWinningCondition(1);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.cross(2);
    // Nobody had to drive a lap, so track 1 was there first.
    QCOMPARE(program.statuses(), QStringList({"sieger", "beendet"}));
    QCOMPARE(program.message(), QString("Die meisten Runden gefahren hat Anna."));
    QCOMPARE(program.menuText(CMainMenu::QuickRace), QString("&schnelles Rennen starten"));
}

void tst_race_end::withoutAnEndConditionTheRaceGoesOnUntilItIsStopped()
{
    StoredSetup().write();
    RunningProgram program;
    QCOMPARE(program.infoText("endCondition"), QString("keine Endebedingung"));
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 12; ++crossing) // beyond the lap limit that is stored
        program.cross(1);
    QCOMPARE(program.laps(1), QString("011"));
    QCOMPARE(program.status(1), QString("läuft"));
    program.stopRace();
    QCOMPARE(program.message(), QString("Rennen wurde beendet"));
    QCOMPARE(program.statuses(), QStringList({"beendet", "beendet"}));
    QCOMPARE(program.laps(1), QString("011")); // the figures stay
}

void tst_race_end::redLightsShowTheEndWhereTheyAreAskedFor()
{
    StoredSetup setup;
    setup.rules.setRedLightsOnRaceStopped(true);
    setup.write();
    RunningProgram program;
    QCOMPARE(program.lights(), QString("RRRRR"));
    QVERIFY(program.startRace());
    QCOMPARE(program.lights(), QString("GGGGG"));
    program.stopRace();
    QCOMPARE(program.lights(), QString("RRRRR"));
}

void tst_race_end::powerStaysOnWhereItIsAskedFor_data()
{
    QTest::addColumn<bool>("staysOn");
    QTest::addColumn<QString>("power");
    QTest::newRow("off") << false << "Spur &1 einschalten";
    QTest::newRow("on") << true << "Spur &1 ausschalten";
}

void tst_race_end::powerStaysOnWhereItIsAskedFor()
{
    QFETCH(bool, staysOn);
    QFETCH(QString, power);
    StoredSetup setup;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.rules.setLeavePowerOnWhenRaceStopped(staysOn);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    QCOMPARE(program.powerText(1), QString("Spur &1 ausschalten"));
    program.stopRace();
    QCOMPARE(program.powerText(1), power);
    program.pressKey(Qt::Key_F1); // by hand it can be switched all the same
    QCOMPARE(program.powerText(1), QString(staysOn ? "Spur &1 einschalten" : "Spur &1 ausschalten"));
}

QTEST_APPLESS_MAIN(tst_race_end)
#include "tst_race_end.moc"
