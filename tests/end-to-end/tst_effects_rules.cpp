#include "race/CEndCondition.h"
#include "race/CRace.h"
#include "race/CRaceStart.h"
#include "support/RunningProgram.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"

#include <QTimer>

namespace {

/** @return the interval of the one timer that belongs to a procedure of the race, in milliseconds. */
int intervalOf(const QObject* procedure)
{
    const QList<QTimer*> timers = procedure->findChildren<QTimer*>();
    return timers.size() == 1 && timers.first()->isActive() ? timers.first()->interval() : -1;
}

/** Starts a race by lights. @return the milliseconds from the fifth red light to green */
int whileBeforeGreen(RunningProgram& program)
{
    program.startRace();
    for (int second = 0; second < 4; ++second)
        program.letStartSecondPass();
    const bool allRed = program.lights() == "RRRRR";
    const int interval = intervalOf(program.race().raceStart());
    program.stopRace();
    return allRed ? interval : -1;
}

/** Whoever may have won. */
bool isOver(const RunningProgram& program)
{
    return program.menuText(CMainMenu::QuickRace) == "&schnelles Rennen starten";
}

const QStringList running{"läuft", "läuft"};

} // namespace

/** What each control of the tab for start and end does to the next race of the running program. */
class tst_effects_rules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startIsFlyingOrByLights();
    void lightsComeFiveSecondsBeforeTheGo_data();
    void lightsComeFiveSecondsBeforeTheGo();
    void whileBeforeGreenIsTheMinimumAndByChanceUpToTheMaximumMore_data();
    void whileBeforeGreenIsTheMinimumAndByChanceUpToTheMaximumMore();
    void endIsThatOfTheRadio_data();
    void endIsThatOfTheRadio();
    void timeLimitCountsHoursMinutesAndSeconds_data();
    void timeLimitCountsHoursMinutesAndSeconds();
    void timeLimitEndsTheRaceByItself();
    void lapLimitIsTheNumberOfLaps_data();
    void lapLimitIsTheNumberOfLaps();
    void lapLimitWaitsForAllTracks_data();
    void lapLimitWaitsForAllTracks();
    void trackAtTheLapLimitStopsCounting_data();
    void trackAtTheLapLimitStopsCounting();
    void lapsAreCountedDown_data();
    void lapsAreCountedDown();
    void lightsAndPowerAtTheEnd_data();
    void lightsAndPowerAtTheEnd();
};

void tst_effects_rules::startIsFlyingOrByLights()
{
    StoredSetup().write();
    RunningProgram program;
    for (const bool byLights : {true, false, true}) {
        inRaceSettings(program, [byLights](const DialogUser& user) {
            user.enter(byLights ? "startTypeTimed" : "startTypeNone", true);
            user.enter("startDelay", QTime(0, 0, 5));
        });
        QCOMPARE(program.infoText("startCondition"),
                 QString(byLights ? "Start in 00:05 Minuten" : "fliegender Start"));
        QVERIFY(program.startRace());
        QCOMPARE(program.lights(), QString(byLights ? "Roooo" : "GGGGG"));
        program.cross(1);
        QCOMPARE(program.status(1), QString(byLights ? "frühstart" : "läuft"));
        if (!byLights)
            program.stopRace();
    }
}

void tst_effects_rules::lightsComeFiveSecondsBeforeTheGo_data()
{
    QTest::addColumn<QTime>("delay");
    QTest::addColumn<int>("silentSeconds");
    QTest::newRow("least") << QTime(0, 0, 5) << 0;
    QTest::newRow("seven seconds") << QTime(0, 0, 7) << 2;
    QTest::newRow("more than a minute") << QTime(0, 1, 10) << 65;
    QTest::newRow("most") << QTime(0, 10, 0) << 595;
}

void tst_effects_rules::lightsComeFiveSecondsBeforeTheGo()
{
    QFETCH(QTime, delay);
    QFETCH(int, silentSeconds);
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [delay](const DialogUser& user) {
        user.enter("startTypeTimed", true);
        user.enter("startDelay", delay);
    });
    QCOMPARE(program.infoText("startCondition"), "Start in " + delay.toString("mm:ss") + " Minuten");
    QVERIFY(program.startRace());
    int seconds = 0;
    for (; program.lights() == "ooooo" && seconds <= silentSeconds; ++seconds)
        program.letStartSecondPass();
    QCOMPARE(program.lights(), QString("Roooo"));
    QCOMPARE(seconds, silentSeconds);
    QCOMPARE(program.status(1), QString("warten"));
}

void tst_effects_rules::whileBeforeGreenIsTheMinimumAndByChanceUpToTheMaximumMore_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("starts"); // so many that chance leaves no doubt
    QTest::newRow("least") << 500 << 500 << 5;
    QTest::newRow("from least to most") << 500 << 5000 << 25;
    QTest::newRow("most") << 5000 << 5000 << 10;
}

void tst_effects_rules::whileBeforeGreenIsTheMinimumAndByChanceUpToTheMaximumMore()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, starts);
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [=](const DialogUser& user) {
        user.enter("startTypeTimed", true);
        user.enter("startLightsMaxDelay", 5000);
        user.enter("startLightsMinDelay", minimum);
        user.enter("startLightsMaxDelay", maximum);
    });
    int longest = 0;
    for (int start = 0; start < starts; ++start) {
        const int interval = whileBeforeGreen(program);
        QVERIFY2(interval >= minimum && interval <= minimum + maximum, qPrintable(QString::number(interval)));
        longest = qMax(longest, interval);
    }
    if (starts > 20)
        QVERIFY2(longest > minimum + maximum * 6 / 10, qPrintable(QString::number(longest)));
}

void tst_effects_rules::endIsThatOfTheRadio_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("endsAtItsTime");
    QTest::addColumn<bool>("endsAtItsLaps");
    QTest::newRow("endTypeNone") << int(CRaceSettings::LapLimit) << "keine Endebedingung" << false << false;
    QTest::newRow("endTypeTime") << int(CRaceSettings::NoEnd) << "Zeitlimit 01:00:00" << true << false;
    QTest::newRow("endTypeLaps") << int(CRaceSettings::TimeLimit) << "Ende nach 2 Runden" << false << true;
}

void tst_effects_rules::endIsThatOfTheRadio()
{
    QFETCH(int, before);
    QFETCH(QString, text);
    QFETCH(bool, endsAtItsTime);
    QFETCH(bool, endsAtItsLaps);
    StoredSetup setup;
    setup.rules.setEndType(before);
    setup.rules.setEndTime(QTime(1, 0, 0));
    setup.rules.setNumberOfLaps(2);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) { user.enter(QTest::currentDataTag(), true); });
    QCOMPARE(program.infoText("endCondition"), text);
    QVERIFY(program.startRace());
    QCOMPARE(intervalOf(program.race().endCondition()), endsAtItsTime ? 3600000 : -1);
    program.driveLaps({{5000, 5000}});
    QCOMPARE(isOver(program), endsAtItsLaps);
}

void tst_effects_rules::timeLimitCountsHoursMinutesAndSeconds_data()
{
    QTest::addColumn<QTime>("limit");
    QTest::addColumn<int>("seconds");
    QTest::newRow("seconds") << QTime(0, 0, 59) << 59;
    QTest::newRow("minutes") << QTime(0, 3, 0) << 180;
    QTest::newRow("all") << QTime(1, 2, 3) << 3723;
    QTest::newRow("most") << QTime(23, 59, 59) << 86399;
}

void tst_effects_rules::timeLimitCountsHoursMinutesAndSeconds()
{
    QFETCH(QTime, limit);
    QFETCH(int, seconds);
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [limit](const DialogUser& user) {
        user.enter("endTypeTime", true);
        user.enter("endTime", limit);
    });
    QCOMPARE(program.infoText("endCondition"), "Zeitlimit " + limit.toString("hh:mm:ss"));
    QVERIFY(program.startRace());
    QCOMPARE(intervalOf(program.race().endCondition()), seconds * 1000);
}

void tst_effects_rules::timeLimitEndsTheRaceByItself()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        user.enter("endTypeTime", true);
        user.enter("endTime", QTime(0, 0, 1));
    });
    QElapsedTimer sinceStart;
    sinceStart.start();
    QVERIFY(program.startRace());
    QTRY_VERIFY(isOver(program));
    QVERIFY(sinceStart.elapsed() >= 940); // the timer may be a little early
}

void tst_effects_rules::lapLimitIsTheNumberOfLaps_data()
{
    QTest::addColumn<int>("laps");
    QTest::newRow("least") << 1;
    QTest::newRow("three") << 3;
    QTest::newRow("more than are usual") << 120;
}

void tst_effects_rules::lapLimitIsTheNumberOfLaps()
{
    QFETCH(int, laps);
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [laps](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", laps);
    });
    QCOMPARE(program.infoText("endCondition"), QString("Ende nach %1 Runden").arg(laps));
    QVERIFY(program.startRace());
    program.driveLaps({QVector<int>(laps - 1, 5000), QVector<int>(laps - 1, 6000)});
    QCOMPARE(program.statuses(), running);
    program.driveLaps({{5000}});
    QVERIFY(isOver(program));
    QCOMPARE(program.laps(1).toInt(), laps);
}

void tst_effects_rules::lapLimitWaitsForAllTracks_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("off") << false;
    QTest::newRow("on") << true;
}

void tst_effects_rules::lapLimitWaitsForAllTracks()
{
    QFETCH(bool, on);
    StoredSetup setup;
    setup.rules.setAllMaxRounds(!on);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [on](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 2);
        user.enter("allMaxRounds", on);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{}, {5000, 5000}});
    QCOMPARE(isOver(program), !on);
    if (on) {
        program.driveLaps({{6000, 6000}});
        QVERIFY(isOver(program));
    }
}

void tst_effects_rules::trackAtTheLapLimitStopsCounting_data()
{
    lapLimitWaitsForAllTracks_data();
}

void tst_effects_rules::trackAtTheLapLimitStopsCounting()
{
    QFETCH(bool, on);
    StoredSetup setup;
    setup.rules.setMaxRoundsStopCounting(!on);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [on](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 2);
        user.enter("allMaxRounds", true);
        user.enter("maxRoundsStopCounting", on);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{5000, 5000, 5000, 5000}});
    QCOMPARE(program.laps(1), QString(on ? "002" : "004"));
    QCOMPARE(program.status(1), QString(on ? "beendet" : "läuft"));
}

void tst_effects_rules::lapsAreCountedDown_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("off") << false << QStringList{"000", "000", "001", "002"};
    QTest::newRow("on") << true << QStringList{"005", "005", "004", "003"};
}

void tst_effects_rules::lapsAreCountedDown()
{
    QFETCH(bool, on);
    QFETCH(QStringList, shown);
    StoredSetup setup;
    setup.rules.setLapsCountDown(!on);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [on](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 5);
        user.enter("lapsCountDown", on);
    });
    QVERIFY(program.startRace());
    QStringList laps{program.laps(1)};
    for (int crossing = 0; crossing < 3; ++crossing) {
        program.cross(1);
        laps.append(program.laps(1));
    }
    QCOMPARE(laps, shown);
}

void tst_effects_rules::lightsAndPowerAtTheEnd_data()
{
    QTest::addColumn<bool>("redLights");
    QTest::addColumn<bool>("power");
    QTest::newRow("neither") << false << false;
    QTest::newRow("red lights") << true << false;
    QTest::newRow("power") << false << true;
    QTest::newRow("both") << true << true;
}

void tst_effects_rules::lightsAndPowerAtTheEnd()
{
    QFETCH(bool, redLights);
    QFETCH(bool, power);
    StoredSetup setup;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.rules.setRedLightsOnRaceStopped(!redLights);
    setup.rules.setLeavePowerOnWhenRaceStopped(!power);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [=](const DialogUser& user) {
        user.enter("redLightsOnRaceStopped", redLights);
        user.enter("leavePowerOnWhenRaceStopped", power);
    });
    QVERIFY(program.startRace());
    QCOMPARE(program.lights(), QString("GGGGG"));
    QCOMPARE(program.powerText(1), QString("Spur &1 ausschalten"));
    program.stopRace();
    QCOMPARE(program.lights(), QString(redLights ? "RRRRR" : "ooooo"));
    for (const int track : {1, 2}) {
        const QString next = power ? "ausschalten" : "einschalten";
        QCOMPARE(program.powerText(track), QString("Spur &%1 ").arg(track) + next);
    }
}

QTEST_APPLESS_MAIN(tst_effects_rules)
#include "tst_effects_rules.moc"
