#include "race/RaceFixture.h"
#include "support/DebugLines.h"

#include <QtTest>

/** How a race ends, by the user or by its rules, and who wins then. */
class tst_CRaceEnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stopSaysEverythingInOrder();
    void stopOutsideARaceBringsTheOutputsToRest();
    void redLightsStayOnAfterTheRaceIfTheSettingsSaySo();
    void stopWaitsUntilTheReaderHasLeftItsLoop();
    void stopByTheUserNamesNoWinner();

    void lapLimitEndsTheRaceWithTheFirstMember();
    void lapLimitOnAllTracksWaitsAndShowsFinishedMembers();
    void memberAtTheLimitStaysThereHoweverOftenItCrosses();
    void memberPastTheLimitCountsOnUnlessToldToStop();
    void deadHeatStopsTheRaceForEachMemberAtTheLimit();
    void lapLimitOf0EndsTheRaceWithTheFirstEvent();
    void timeLimitEndsTheRace();
    void wordsAtTheEndComeInOrder();
    void wordsForTheUserAreDebugLinesIfAFilterRuleAsksForThem_data();
    void wordsForTheUserAreDebugLinesIfAFilterRuleAsksForThem();
    void everyWinningRuleDecidesAWholeRace_data();
    void everyWinningRuleDecidesAWholeRace();
    void rulesAreMadeAnewAtEachStart();
};

void tst_CRaceEnd::stopSaysEverythingInOrder()
{
    RaceFixture fixture(2);
    fixture.changeRaceway([](CRaceway& raceway) {
        raceway.pwrOffFeatureAvailable = true;
        raceway.chaosPhaseOutputAvailable = true;
        raceway.externalLightsAvailable = true;
    });
    CRace& race = fixture.start();
    race.vStop();
    QCOMPARE(fixture.take(),
             QStringList({"stop", "stopped", "24 off", "10 off", "power 0 off", "11 off", "power 1 off",
                          "18 off", "19 off", "20 off", "21 off", "22 off", "23 off", "lights 7",
                          "member 0: kind 0, status 6, laps 0", "member 1: kind 0, status 6, laps 0",
                          "info 'Rennen wurde beendet'", "RaceStopped"}));
    QVERIFY(!fixture.memberEvents.last().raceRunning);
    QVERIFY(!fixture.timer(QStringLiteral("oneSecondTimer")).isActive());
}

void tst_CRaceEnd::stopOutsideARaceBringsTheOutputsToRest()
{
    RaceFixture fixture(1);
    fixture.changeRaceway([](CRaceway& raceway) {
        raceway.pwrOffFeatureAvailable = true;
        raceway.chaosPhaseOutputAvailable = true;
    });
    CRace& race = fixture.make();
    fixture.take();
    race.vStop();
    QCOMPARE(fixture.take(),
             QStringList({"stop", "24 off", "10 off", "power 0 off", "lights 7", "RaceStopped"}));
    QCOMPARE(fixture.status(0), 1);
}

void tst_CRaceEnd::redLightsStayOnAfterTheRaceIfTheSettingsSaySo()
{
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.externalLightsAvailable = true; });
    fixture.raceSettings.setRedLightsOnRaceStopped(true);
    fixture.start().vStop();
    QCOMPARE(fixture.take(QStringLiteral("^(lights|\\d\\d o)")),
             QStringList({"18 on", "19 on", "20 on", "21 on", "22 on", "23 off", "lights 10"}));
}

void tst_CRaceEnd::stopWaitsUntilTheReaderHasLeftItsLoop()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    race.vStop();
    QVERIFY(!race.io()->isRunning());
    const QStringList log = fixture.take();
    QCOMPARE(log.indexOf(QStringLiteral("stopped")), 1);
}

void tst_CRaceEnd::stopByTheUserNamesNoWinner()
{
    RaceFixture fixture(1);
    fixture.raceSettings.setWinningCondition(1);
    CRace& race = fixture.start();
    fixture.drive(0, {5000});
    race.vStop();
    QCOMPARE(fixture.status(0), 6);
    QCOMPARE(fixture.take(QStringLiteral("info")), QStringList({"info 'Rennen wurde beendet'"}));
}

void tst_CRaceEnd::lapLimitEndsTheRaceWithTheFirstMember()
{
    RaceFixture fixture(2);
    fixture.useLapLimit(2);
    fixture.raceSettings.setWinningCondition(1);
    CRace& race = fixture.start();
    fixture.sensorsAt(1000, {1, 2});
    fixture.sensorsAt(5000, {2});
    fixture.sensorsAt(6000, {1});
    QVERIFY(race.isRaceActive());
    fixture.sensorsAt(9000, {2});
    QVERIFY(!race.isRaceActive());
    QCOMPARE(fixture.statuses(), QList<int>({6, 7}));
    QCOMPARE(fixture.laps(0), 1);
}

void tst_CRaceEnd::lapLimitOnAllTracksWaitsAndShowsFinishedMembers()
{
    RaceFixture fixture(2);
    fixture.useLapLimit(2);
    fixture.raceSettings.setAllMaxRounds(true);
    fixture.raceSettings.setMaxRoundsStopCounting(true);
    fixture.raceSettings.setWinningCondition(1);
    CRace& race = fixture.start();
    fixture.sensorsAt(1000, {1, 2});
    fixture.sensorsAt(3000, {1});
    fixture.sensorsAt(5000, {1, 2});
    QVERIFY(race.isRaceActive());
    QCOMPARE(fixture.statuses(), QList<int>({6, 4}));
    fixture.sensorsAt(7000, {1});
    QCOMPARE(fixture.laps(0), 2);
    fixture.sensorsAt(9000, {2});
    QVERIFY(!race.isRaceActive());
    QCOMPARE(fixture.statuses(), QList<int>({7, 6}));
}

void tst_CRaceEnd::memberAtTheLimitStaysThereHoweverOftenItCrosses()
{
    RaceFixture fixture(2);
    fixture.useLapLimit(2);
    fixture.raceSettings.setAllMaxRounds(true);
    fixture.raceSettings.setMaxRoundsStopCounting(true);
    fixture.start();
    fixture.drive(0, {2000, 2000});
    QCOMPARE(fixture.take().mid(4), QStringList({"member 0: kind 0, status 6, laps 2", "event 1.0",
                                                 "member 0: kind 1, status 6, laps 2"}));
    for (int time = 10000; time < 100000; time += 5000) {
        fixture.sensorsAt(time, {1});
    }
    QCOMPARE(fixture.take(), QStringList());
    QCOMPARE(fixture.laps(0), 2);
    QCOMPARE(fixture.status(0), 6);
}

void tst_CRaceEnd::memberPastTheLimitCountsOnUnlessToldToStop()
{
    RaceFixture fixture(2);
    fixture.useLapLimit(2);
    fixture.raceSettings.setAllMaxRounds(true);
    fixture.start();
    fixture.drive(0, {2000, 2000, 2000});
    QCOMPARE(fixture.laps(0), 3);
    QCOMPARE(fixture.status(0), 4);
}

void tst_CRaceEnd::deadHeatStopsTheRaceForEachMemberAtTheLimit()
{
    RaceFixture fixture(2);
    fixture.useLapLimit(1);
    fixture.raceSettings.setWinningCondition(1);
    fixture.start();
    fixture.sensorsAt(1000, {1, 2});
    fixture.sensorsAt(5000, {1, 2});
    const QString result = QStringLiteral("info 'Die meisten Runden gefahren hat Driver 1.'");
    QCOMPARE(fixture.take(QStringLiteral("RaceStopped|info")),
             QStringList({"info 'Rennen wurde beendet'", "RaceStopped", result, "RaceStopped", result}));
    QCOMPARE(fixture.statuses(), QList<int>({7, 6}));
}

void tst_CRaceEnd::lapLimitOf0EndsTheRaceWithTheFirstEvent()
{
    RaceFixture fixture(1);
    fixture.useLapLimit(0);
    const CRace& race = fixture.start();
    QVERIFY(race.isRaceActive());
    fixture.sensorsAt(1000, {});
    QVERIFY(!race.isRaceActive());
}

void tst_CRaceEnd::timeLimitEndsTheRace()
{
    RaceFixture fixture(2);
    fixture.raceSettings.setEndType(CRaceSettings::TimeLimit);
    fixture.raceSettings.setEndTime(QTime(0, 0, 0));
    fixture.raceSettings.setWinningCondition(1);
    const CRace& race = fixture.start();
    fixture.drive(1, {4000});
    QVERIFY(race.isRaceActive());
    QTRY_VERIFY(!race.isRaceActive());
    QCOMPARE(fixture.statuses(), QList<int>({6, 7}));
}

void tst_CRaceEnd::wordsAtTheEndComeInOrder()
{
    RaceFixture fixture(1);
    fixture.useLapLimit(1);
    fixture.start();
    fixture.sensorsAt(1000, {1});
    fixture.take();
    fixture.sensorsAt(5000, {1});
    QCOMPARE(fixture.take(),
             QStringList({"event 1.0", "member 0: kind 1, status 4, laps 1", "stop", "stopped", "lights 7",
                          "member 0: kind 0, status 6, laps 1", "info 'Rennen wurde beendet'", "RaceStopped",
                          "info 'Rennen beendet'"}));
}

void tst_CRaceEnd::wordsForTheUserAreDebugLinesIfAFilterRuleAsksForThem_data()
{
    QTest::addColumn<QString>("filterRules");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("no rule") << QString() << QStringList();
    QTest::newRow("a rule") << QStringLiteral("tornik.race.debug=true")
                            << QStringList(
                                   {"Rennen wurde beendet",
                                    "Die schnellste Runde war die 1. Runde von Jörg \"Öse\" mit einer "
                                    "Zeit von 00:04:000."});
}

void tst_CRaceEnd::wordsForTheUserAreDebugLinesIfAFilterRuleAsksForThem()
{
    QFETCH(QString, filterRules);
    QFETCH(QStringList, lines);
    RaceFixture fixture(1);
    fixture.useLapLimit(1);
    fixture.raceSettings.setWinningCondition(2);
    CDriver driver;
    driver.setName(QStringLiteral("Jörg \"Öse\""));
    fixture.raceSettings.setDriver(0, driver);
    const DebugLines debug("tornik.race", filterRules);
    fixture.start(); // clears the info line; an empty text is no line
    fixture.drive(0, {4000});
    QCOMPARE(debug.lines(), lines);
}

void tst_CRaceEnd::everyWinningRuleDecidesAWholeRace_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<bool>("useTargetTime");
    QTest::addColumn<QList<int>>("statuses");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << false << QList<int>({6, 6, 6}) << QStringLiteral("Rennen beendet");
    QTest::newRow("most laps") << 1 << false << QList<int>({6, 7, 6})
                               << QStringLiteral("Die meisten Runden gefahren hat Driver 2.");
    QTest::newRow("fastest lap") << 2 << false << QList<int>({7, 6, 6})
                                 << QStringLiteral("Die schnellste Runde war die 3. Runde von Driver 1 mit "
                                                   "einer Zeit von 00:04:000.");
    QTest::newRow("lowest average") << 3 << false << QList<int>({6, 7, 6})
                                    << QStringLiteral("Die beste Durchschnittszeit hatte Driver 2 mit einer "
                                                      "Zeit von 00:05:000.");
    QTest::newRow("lap closest to target")
        << 4 << false << QList<int>({6, 6, 7})
        << QStringLiteral("Die siegreiche Runde war die 2. Runde mit einer Zeit von 00:10:000.");
    QTest::newRow("average closest to target")
        << 5 << false << QList<int>({7, 6, 6})
        << QStringLiteral(
               "Fahrer 1 lag mit einer Durchschnittszeit von 00:09:000 am nächsten an der Zielzeit "
               "00:10:000.");
    QTest::newRow("constancy") << 6 << false << QList<int>({6, 7, 6})
                               << QStringLiteral("Fahrer 2 hat mit einer max. Abweichung von 00:00:200 "
                                                 "gewonnen. Die schnellste Rundenzeit war 00:04:900, die "
                                                 "langsamste 00:05:100.");
    QTest::newRow("constancy around target")
        << 6 << true << QList<int>({6, 7, 6})
        << QStringLiteral("Fahrer 2 hat mit einer max. Abweichung von 00:05:100 gewonnen. Die schnellste "
                          "Rundenzeit war 00:04:900, die langsamste 00:05:100.");
}

void tst_CRaceEnd::everyWinningRuleDecidesAWholeRace()
{
    QFETCH(int, rule);
    QFETCH(bool, useTargetTime);
    QFETCH(QList<int>, statuses);
    QFETCH(QString, text);
    RaceFixture fixture(3);
    fixture.raceSettings.setEndType(CRaceSettings::TimeLimit);
    fixture.raceSettings.setEndTime(QTime(0, 0, 0));
    fixture.raceSettings.setWinningCondition(rule);
    fixture.raceSettings.setUseTargetTime(useTargetTime);
    const CRace& race = fixture.start();
    fixture.drive(0, {8000, 15000, 4000});
    fixture.drive(1, {5000, 5100, 4900, 5000}, 30000);
    fixture.drive(2, {20000, 10000}, 60000);
    fixture.take();
    QTRY_VERIFY(!race.isRaceActive());
    QCOMPARE(fixture.statuses(), statuses);
    QCOMPARE(fixture.take(QStringLiteral("info")),
             QStringList({"info 'Rennen wurde beendet'", QStringLiteral("info '%1'").arg(text)}));
}

void tst_CRaceEnd::rulesAreMadeAnewAtEachStart()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    race.vStop();
    fixture.useTimedStart();
    fixture.useLapLimit(3);
    fixture.raceSettings.setWinningCondition(2);
    race.vStartQuickRace();
    QCOMPARE(race.raceStart()->description(), QStringLiteral("Start nach 00:05 Minuten"));
    QCOMPARE(race.endCondition()->description(), QStringLiteral("Ende nach 3 Runden"));
    QCOMPARE(race.winningCondition()->description(), QStringLiteral("schnellste Runde"));
}

QTEST_GUILESS_MAIN(tst_CRaceEnd)
#include "tst_CRaceEnd.moc"
