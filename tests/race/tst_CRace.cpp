#include "race/RaceFixture.h"
#include "support/DebugLines.h"

#include <QtTest>

namespace {

constexpr int Chaos = PortId::ChaosButton;

/** Drives one lap of @p lapTime on each of the given tracks' sensors, from @p begin on. */
void driveLaps(RaceFixture& fixture, int portId, int begin, const std::vector<int>& lapTimes)
{
    int time = begin;
    fixture.sensorsAt(time, {portId});
    for (const int lapTime : lapTimes) {
        time += lapTime;
        fixture.sensorsAt(time, {portId});
    }
}

} // namespace

/** The course of a race: start, laps, pause, end, winner, and the order of what it says. */
class tst_CRace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flyingStartSaysEverythingInOrder();
    void timedStartSaysEverythingInOrder();
    void recordedRaceSaysItIsRecorded();
    void momentOfTheStartIsKept();
    void startThrowsTheLastRaceAway();
    void stoppedRaceKeepsMembersAndLaps();
    void resetClearsLapsTimeAndText();

    void carOnTheStartSensorDuringTheCountdownStopsTheRace();
    void twoFalseStartsInOneEventStopTheRaceTwice();
    void falseStartEndsNoRaceByItsLapLimit();
    void flyingStartCannotHaveAFalseStart();
    void carAfterTheGoOfATimedStartIsRunning();
    void stopDuringTheCountdownGivesNoGo();

    void lapIsPublishedInOrder();
    void newBestLapIsPublishedInOrder();
    void membersAreServedInTrackOrder();
    void eventThatChangesNothingPublishesNothing();
    void sectorSensorPublishesTheMember();
    void memberEventCarriesAllValues();
    void speedUnitFollowsTheSettings_data();
    void speedUnitFollowsTheSettings();
    void lapKindPassesUpTo3();
    void memberOutOfRangeIsNotPublished();

    void lapsCountDownFromTheLapLimit();
    void lapsCountUpWithAnyOtherEnd_data();
    void lapsCountUpWithAnyOtherEnd();

    void sensorEventWithoutARaceIsDropped();
    void sensorEventPostedBeforeTheStartIsDropped();
    void rawEventForAKeptInterfaceIsDroppedAtTheStart();
    void sensorEventReachesTheRaceByTheEventLoop();
    void sensorEventWithTooFewBitsIsDropped();
    void otherEventsAreLeftAlone();

    void raceTimeRunsOnceASecond();
    void raceTimeWrapsAfterADay();

    void chaosButtonPausesAndResumes();
    void pauseAndResumeSayEverythingInOrder();
    void chaosPressWithin199MillisecondsIsDropped_data();
    void chaosPressWithin199MillisecondsIsDropped();
    void chaosPressWhileTheStartLightsRunPausesTheRace();
    void chaosButtonOfARacewayWithoutOneIsIgnored();
    void chaosTimeIsForgottenAtTheNextStart();
    void pauseLosesTheFractionOfASecond();
    void pauseThrowsTheRunningLapAway();
    void lapBegunBeforeThePauseIsNotCountedAfterIt();
    void sensorEventsReachEndAndWinnerDuringAPause();
    void pauseThatRunsIntoTheGoKeepsMembersStopped();
    void pauseBeforeTheGoAddsNoTimeOfTheRaceBefore();
    void raceTimeBeginsAnewAtTheGo();
    void stopDuringAPauseEndsThePause();
    void timeLimitIsPausedWithTheRace();

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

    void controlUnitSetsTheTanksOfTheFirstMembers();
    void controlUnitOutsideARaceSetsNoTanks();
    void controlUnitMovesTheLights_data();
    void controlUnitMovesTheLights();

    void csvOfAFileThatCannotBeOpenedLeavesNoTrace();
};

void tst_CRace::flyingStartSaysEverythingInOrder()
{
    RaceFixture fixture(2);
    fixture.changeRaceway([](CRaceway& raceway) {
        raceway.pwrOffFeatureAvailable = true;
        raceway.chaosPhaseOutputAvailable = true;
        raceway.externalLightsAvailable = true;
    });
    CRace& race = fixture.make();
    fixture.take();
    race.vStartQuickRace();
    QCOMPARE(fixture.take(), QStringList({"member 0: kind 0, status 1, laps 0",
                                          "member 1: kind 0, status 1, laps 0",
                                          "time 00:00:00.000",
                                          "info ''",
                                          "stop",
                                          "delete",
                                          "create",
                                          "10 on",
                                          "power 0 on",
                                          "11 on",
                                          "power 1 on",
                                          "24 off",
                                          "member 0: kind 0, status 2, laps 0",
                                          "member 1: kind 0, status 2, laps 0",
                                          "18 off",
                                          "19 off",
                                          "20 off",
                                          "21 off",
                                          "22 off",
                                          "23 off",
                                          "lights 7",
                                          "member 0: kind 0, status 3, laps 0",
                                          "member 1: kind 0, status 3, laps 0",
                                          "18 off",
                                          "19 off",
                                          "20 off",
                                          "21 off",
                                          "22 off",
                                          "23 on",
                                          "lights 9",
                                          "start",
                                          "RaceStarted"}));
    QVERIFY(race.isRaceActive());
    QVERIFY(race.raceStart()->isGoGiven());
    QVERIFY(fixture.timer(QStringLiteral("oneSecondTimer")).isActive());
    QCOMPARE(fixture.timer(QStringLiteral("oneSecondTimer")).interval(), 1000);
    QCOMPARE(fixture.timer(QStringLiteral("oneSecondTimer")).timerType(), Qt::PreciseTimer);
}

void tst_CRace::timedStartSaysEverythingInOrder()
{
    RaceFixture fixture(1);
    fixture.useTimedStart();
    CRace& race = fixture.make();
    fixture.take();
    race.vStartQuickRace();
    QCOMPARE(fixture.take(),
             QStringList({"member 0: kind 0, status 1, laps 0", "time 00:00:00.000", "info ''", "stop",
                          "delete", "create", "member 0: kind 0, status 2, laps 0", "lights 7", "lights 8",
                          "start", "RaceStarted"}));
    QVERIFY(!fixture.timer(QStringLiteral("oneSecondTimer")).isActive());
    fixture.letStartSecondsPass(4);
    QCOMPARE(fixture.take(), QStringList({"lights 8", "lights 8", "lights 8", "lights 8"}));
    QCOMPARE(fixture.status(0), 2);
    fixture.letStartSecondsPass(1);
    QCOMPARE(fixture.take(), QStringList({"lights 7", "member 0: kind 0, status 3, laps 0", "lights 9"}));
    QVERIFY(fixture.timer(QStringLiteral("oneSecondTimer")).isActive());
}

void tst_CRace::recordedRaceSaysItIsRecorded()
{
    RaceFixture fixture;
    CRace& race = fixture.make();
    race.vStartRecordedRace(QStringLiteral("Final"));
    QCOMPARE(fixture.take(QStringLiteral("Started")), QStringList({"RecordedRaceStarted"}));
    QVERIFY(race.isRaceActive());
    race.vStop();
    race.vStartQuickRace();
    QCOMPARE(fixture.take(QStringLiteral("Started")), QStringList({"RaceStarted"}));
}

void tst_CRace::momentOfTheStartIsKept()
{
    RaceFixture fixture;
    const QDateTime before = QDateTime::currentDateTime();
    const CRace& race = fixture.start();
    QVERIFY(race.raceDateTime() >= before);
    QVERIFY(race.raceDateTime() <= QDateTime::currentDateTime());
}

void tst_CRace::startThrowsTheLastRaceAway()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    driveLaps(fixture, 1, 1000, {5000, 5000});
    race.vStop();
    QCOMPARE(fixture.laps(0), 2);
    race.vStartQuickRace();
    QCOMPARE(fixture.laps(0), 0);
    QCOMPARE(fixture.status(0), 3);
}

void tst_CRace::stoppedRaceKeepsMembersAndLaps()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    driveLaps(fixture, 1, 1000, {5000, 4000});
    race.vStop();
    QVERIFY(!race.isRaceActive());
    QCOMPARE(race.raceMember(0).numberOfLaps(), 2);
    QCOMPARE(race.raceMember(0).lap(1).lapTime, 4000);
}

void tst_CRace::resetClearsLapsTimeAndText()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    driveLaps(fixture, 1, 1000, {5000});
    fixture.advanceClock(7000);
    QVERIFY(fixture.fire("vOneSecondEvent"));
    fixture.take();
    race.vReset();
    QCOMPARE(fixture.take(),
             QStringList({"member 0: kind 0, status 4, laps 0", "time 00:00:00.000", "info ''"}));
    QCOMPARE(race.raceTime(), QTime(0, 0));
}

void tst_CRace::carOnTheStartSensorDuringTheCountdownStopsTheRace()
{
    RaceFixture fixture(3);
    fixture.useTimedStart();
    CRace& race = fixture.start();
    fixture.letStartSecondsPass(3);
    fixture.take();
    fixture.sensorsAt(3500, {2});
    QCOMPARE(fixture.take(),
             QStringList({"stop", "stopped", "lights 7", "member 0: kind 0, status 6, laps 0",
                          "member 1: kind 0, status 6, laps 0", "member 2: kind 0, status 6, laps 0",
                          "info 'Rennen wurde beendet'", "RaceStopped", "member 1: kind 0, status 5, laps 0",
                          "member 1: kind 0, status 5, laps 0"}));
    QCOMPARE(fixture.statuses(), QList<int>({6, 5, 6}));
    QVERIFY(!race.isRaceActive());
    QVERIFY(!race.raceStart()->findChild<QTimer*>()->isActive());
}

void tst_CRace::twoFalseStartsInOneEventStopTheRaceTwice()
{
    RaceFixture fixture(3);
    fixture.useTimedStart();
    fixture.start();
    fixture.sensorsAt(3500, {1, 3});
    QCOMPARE(fixture.statuses(), QList<int>({5, 6, 5}));
    QCOMPARE(fixture.take(QStringLiteral("RaceStopped|info")),
             QStringList({"info 'Rennen wurde beendet'", "RaceStopped", "RaceStopped"}));
}

void tst_CRace::falseStartEndsNoRaceByItsLapLimit()
{
    RaceFixture fixture(2);
    fixture.useTimedStart();
    fixture.useLapLimit(0);
    fixture.raceSettings.setWinningCondition(1);
    fixture.start();
    fixture.sensorsAt(3500, {1});
    QCOMPARE(fixture.statuses(), QList<int>({5, 6}));
    QCOMPARE(fixture.take(QStringLiteral("info")), QStringList({"info 'Rennen wurde beendet'"}));
}

void tst_CRace::flyingStartCannotHaveAFalseStart()
{
    RaceFixture fixture(2);
    CRace& race = fixture.make();
    bool goWasGivenBeforeTheInterface = false;
    connect(&race, &CRace::UpdateLights, this, [&](int action) {
        goWasGivenBeforeTheInterface =
            action == CLightAction::Go && race.raceStart()->isGoGiven() && !race.io()->isRunning();
    });
    race.vStartQuickRace();
    QVERIFY(goWasGivenBeforeTheInterface);
    fixture.sensorsAt(1, {1, 2});
    QCOMPARE(fixture.statuses(), QList<int>({4, 4}));
    QVERIFY(race.isRaceActive());
}

void tst_CRace::carAfterTheGoOfATimedStartIsRunning()
{
    RaceFixture fixture(2);
    fixture.useTimedStart();
    CRace& race = fixture.start();
    fixture.letStartSecondsPass(5);
    fixture.sensorsAt(6000, {1});
    QCOMPARE(fixture.statuses(), QList<int>({4, 3}));
    QVERIFY(race.isRaceActive());
}

void tst_CRace::stopDuringTheCountdownGivesNoGo()
{
    RaceFixture fixture;
    fixture.useTimedStart();
    CRace& race = fixture.start();
    fixture.letStartSecondsPass(2);
    race.vStop();
    QVERIFY(!race.raceStart()->isGoGiven());
    QVERIFY(!race.raceStart()->findChild<QTimer*>()->isActive());
    QVERIFY(!fixture.take().contains(QStringLiteral("lights 9")));
}

void tst_CRace::lapIsPublishedInOrder()
{
    RaceFixture fixture(2);
    fixture.start();
    fixture.sensorsAt(1000, {1});
    QCOMPARE(fixture.take(),
             QStringList({"member 0: kind 0, status 4, laps 0", "member 0: kind 0, status 4, laps 0"}));
    fixture.sensorsAt(6000, {1});
    QCOMPARE(fixture.take(), QStringList({"event 1.0", "member 0: kind 1, status 4, laps 1"}));
}

void tst_CRace::newBestLapIsPublishedInOrder()
{
    RaceFixture fixture(2);
    fixture.start();
    driveLaps(fixture, 1, 1000, {5000});
    fixture.take();
    fixture.sensorsAt(10999, {1});
    QCOMPARE(fixture.take(), QStringList({"event 2.0", "member 0: kind 2, status 4, laps 2"}));
    fixture.sensorsAt(15998, {1});
    QCOMPARE(fixture.take(), QStringList({"event 1.0", "member 0: kind 1, status 4, laps 3"}));
}

void tst_CRace::membersAreServedInTrackOrder()
{
    RaceFixture fixture(3);
    fixture.start();
    fixture.sensorsAt(1000, {1, 2, 3});
    fixture.take();
    fixture.sensorsAt(6000, {3, 1});
    QCOMPARE(fixture.take(), QStringList({"event 1.0", "member 0: kind 1, status 4, laps 1", "event 1.0",
                                          "member 2: kind 1, status 4, laps 1"}));
}

void tst_CRace::eventThatChangesNothingPublishesNothing()
{
    RaceFixture fixture(2);
    fixture.start();
    fixture.sensorsAt(1000, {1});
    fixture.take();
    fixture.sensorsAt(1100, {1});
    fixture.sensorsAt(1200, {});
    QCOMPARE(fixture.take(), QStringList());
}

void tst_CRace::sectorSensorPublishesTheMember()
{
    RaceFixture fixture(1);
    fixture.changeRaceway([](CRaceway& raceway) { raceway.numberOfSectors = 3; });
    fixture.start();
    fixture.sensorsAt(1000, {1});
    fixture.take();
    fixture.sensorsAt(2500, {41});
    fixture.sensorsAt(4500, {49});
    QCOMPARE(fixture.take(),
             QStringList({"member 0: kind 0, status 4, laps 0", "member 0: kind 0, status 4, laps 0"}));
    const CRaceEvent event = fixture.memberEvents.last();
    QCOMPARE(event.sector1Time, QTime(0, 0, 1, 500));
    QCOMPARE(event.sector2Time, QTime(0, 0, 2, 0));
    QCOMPARE(event.split2Time, QTime(0, 0, 3, 500));
}

void tst_CRace::memberEventCarriesAllValues()
{
    RaceFixture fixture(2);
    fixture.changeRaceway([](CRaceway& raceway) {
        raceway.numberOfSectors = 3;
        raceway.tracks[1].length = 1000;
    });
    fixture.settings.setSpeedDisplayType(CSettings::MetresPerSecond);
    fixture.start();
    for (const int begin : {1000, 6000}) {
        fixture.sensorsAt(begin, {2});
        fixture.sensorsAt(begin + 1000, {42});
        fixture.sensorsAt(begin + 3000, {50});
    }
    fixture.sensorsAt(10000, {2});
    const CRaceEvent event = fixture.memberEvents.last();
    QCOMPARE(event.type, 6);
    QCOMPARE(event.subType, 2);
    QCOMPARE(event.track, 1);
    QCOMPARE(event.laps, 2);
    QCOMPARE(event.lastLapTime, QTime(0, 0, 4));
    QCOMPARE(event.sector1Time, QTime(0, 0, 1));
    QCOMPARE(event.sector2Time, QTime(0, 0, 2));
    QCOMPARE(event.sector3Time, QTime(0, 0, 1));
    QCOMPARE(event.split1Time, QTime(0, 0, 1));
    QCOMPARE(event.split2Time, QTime(0, 0, 3));
    QCOMPARE(event.split3Time, QTime(0, 0, 4));
    QCOMPARE(event.bestLapTime, QTime(0, 0, 4));
    QCOMPARE(event.status, 4);
    QCOMPARE(event.averageLapTime, QTime(0, 0, 4, 500));
    QCOMPARE(event.speed, 2.5);
    QCOMPARE(event.fuelPercent, 100);
    QCOMPARE(event.raceRunning, true);
    fixture.race().vStop();
    QCOMPARE(fixture.memberEvents.last().raceRunning, false);
}

void tst_CRace::speedUnitFollowsTheSettings_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("speed");
    QTest::newRow("0, km/h") << 0 << 2.0 * 3.6 * 24;
    QTest::newRow("1, m/s") << 1 << 2.0;
    QTest::newRow("2, mph") << 2 << 2.0 * 2.23693629 * 24;
    QTest::newRow("3, unknown") << 3 << 2.0 * 3.6 * 24;
    QTest::newRow("-1, unknown") << -1 << 2.0 * 3.6 * 24;
}

void tst_CRace::speedUnitFollowsTheSettings()
{
    QFETCH(int, unit);
    QFETCH(double, speed);
    RaceFixture fixture(1);
    fixture.changeRaceway([](CRaceway& raceway) { raceway.tracks[0].length = 1000; });
    fixture.settings.setSpeedDisplayType(unit);
    fixture.start();
    driveLaps(fixture, 1, 1000, {5000});
    QCOMPARE(fixture.memberEvents.last().speed, speed);
}

void tst_CRace::lapKindPassesUpTo3()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    for (const int kind : {0, 1, 2, 3}) {
        QVERIFY(QMetaObject::invokeMethod(&race, "vUpdateRaceMember", Q_ARG(int, 0), Q_ARG(int, kind)));
        QCOMPARE(fixture.memberEvents.last().subType, kind);
    }
    for (const int kind : {4, -1, 100}) {
        QVERIFY(QMetaObject::invokeMethod(&race, "vUpdateRaceMember", Q_ARG(int, 0), Q_ARG(int, kind)));
        QCOMPARE(fixture.memberEvents.last().subType, 0);
    }
}

void tst_CRace::memberOutOfRangeIsNotPublished()
{
    RaceFixture fixture(2);
    CRace& race = fixture.start();
    for (const int track : {-1, 2}) {
        QVERIFY(QMetaObject::invokeMethod(&race, "vUpdateRaceMember", Q_ARG(int, track), Q_ARG(int, 0)));
    }
    QCOMPARE(fixture.take(), QStringList());
}

void tst_CRace::lapsCountDownFromTheLapLimit()
{
    RaceFixture fixture(1);
    fixture.useLapLimit(25);
    fixture.raceSettings.setLapsCountDown(true);
    fixture.start();
    driveLaps(fixture, 1, 1000, {5000, 5000, 5000});
    QCOMPARE(fixture.laps(0), 3);
    QCOMPARE(fixture.memberEvents.last().laps, 22);
}

void tst_CRace::lapsCountUpWithAnyOtherEnd_data()
{
    QTest::addColumn<int>("endType");
    QTest::newRow("none") << 0;
    QTest::newRow("time limit") << 1;
    QTest::newRow("unknown") << 3;
}

void tst_CRace::lapsCountUpWithAnyOtherEnd()
{
    QFETCH(int, endType);
    RaceFixture fixture(1);
    fixture.useLapLimit(25);
    fixture.raceSettings.setEndType(endType);
    fixture.raceSettings.setLapsCountDown(true);
    fixture.start();
    driveLaps(fixture, 1, 1000, {5000, 5000, 5000});
    QCOMPARE(fixture.memberEvents.last().laps, 3);
}

void tst_CRace::sensorEventWithoutARaceIsDropped()
{
    RaceFixture fixture(1);
    CRace& race = fixture.make();
    fixture.take();
    driveLaps(fixture, 1, 1000, {5000});
    QCOMPARE(fixture.take(), QStringList());
    QCOMPARE(fixture.laps(0), 0);
    race.vStartQuickRace();
    race.vStop();
    fixture.take();
    driveLaps(fixture, 1, 10000, {5000});
    QCOMPARE(fixture.take(), QStringList());
    QCOMPARE(fixture.laps(0), 0);
}

void tst_CRace::sensorEventPostedBeforeTheStartIsDropped()
{
    RaceFixture fixture(1);
    fixture.useTimedStart();
    CRace& race = fixture.make();
    QCoreApplication::postEvent(&race, new CDriveThroughEvent(TestSupport::closedSensors({1}), 500));
    race.vStartQuickRace();
    QCoreApplication::sendPostedEvents(&race);
    QCOMPARE(fixture.status(0), 2);
    QVERIFY(race.isRaceActive());
}

void tst_CRace::rawEventForAKeptInterfaceIsDroppedAtTheStart()
{
    RaceFixture fixture(1);
    fixture.useTimedStart();
    fixture.ioType = CRacewayIo::LtAt2560;
    CRace& race = fixture.make();
    CRacewayIo* io = race.io();
    io->setPortState(PortId::lapSensor(0), 126, false);
    io->setPortState(PortId::Open, 127, false);
    QCoreApplication::postEvent(io, new CRacewayIoEvent(126, 500));
    race.vStartQuickRace();
    QCOMPARE(race.io(), io);
    QCoreApplication::sendPostedEvents(io);
    QCoreApplication::sendPostedEvents(&race);
    QCOMPARE(fixture.status(0), 2);
    QVERIFY(race.isRaceActive());
}

void tst_CRace::sensorEventReachesTheRaceByTheEventLoop()
{
    RaceFixture fixture(2);
    CRace& race = fixture.make();
    race.io()->setPortState(PortId::Open, 127, false);
    for (int id = 1; id < PortId::Count; ++id) {
        race.io()->setPortState(id, 127, false);
    }
    race.vStartQuickRace();
    race.io()->setPortState(PortId::Open, 127, false);
    for (int id = 1; id < PortId::Count; ++id) {
        race.io()->setPortState(id, 127, false);
    }
    race.io()->setPortState(PortId::lapSensor(1), 125, false);
    for (const int time : {1000, 5000}) {
        QCoreApplication::postEvent(race.io(), new CRacewayIoEvent(125, time));
        QCoreApplication::postEvent(race.io(), new CRacewayIoEvent(127, time + 20));
    }
    QTRY_COMPARE(fixture.laps(1), 1);
    QCOMPARE(race.raceMember(1).lap(0).lapTime, 4000);
    QCOMPARE(fixture.laps(0), 0);
}

void tst_CRace::sensorEventWithTooFewBitsIsDropped()
{
    RaceFixture fixture(1);
    fixture.useChaosButton();
    CRace& race = fixture.start();
    CDriveThroughEvent event(QBitArray(5, true), 1000);
    QCoreApplication::sendEvent(&race, &event);
    QCOMPARE(fixture.take(), QStringList());
}

void tst_CRace::otherEventsAreLeftAlone()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    QEvent event(QEvent::Type(1200));
    QCoreApplication::sendEvent(&race, &event);
    QCOMPARE(fixture.take(), QStringList());
    QVERIFY(race.isRaceActive());
}

void tst_CRace::raceTimeRunsOnceASecond()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    fixture.advanceClock(1003);
    QVERIFY(fixture.fire("vOneSecondEvent"));
    fixture.advanceClock(3599000);
    QVERIFY(fixture.fire("vOneSecondEvent"));
    QCOMPARE(fixture.take(), QStringList({"time 00:00:01.003", "time 01:00:00.003"}));
    QCOMPARE(race.raceTime(), QTime(1, 0, 0, 3));
}

void tst_CRace::raceTimeWrapsAfterADay()
{
    RaceFixture fixture;
    fixture.start();
    fixture.advanceClock(qint64(40) * 24 * 3600 * 1000 + 5000);
    QVERIFY(fixture.fire("vOneSecondEvent"));
    QCOMPARE(fixture.take(), QStringList({"time 00:00:05.000"}));
}

void tst_CRace::chaosButtonPausesAndResumes()
{
    RaceFixture fixture(2);
    fixture.useChaosButton();
    CRace& race = fixture.start();
    fixture.sensorsAt(1000, {1, 2});
    fixture.sensorsAt(2000, {Chaos});
    QVERIFY(race.isPaused());
    QCOMPARE(fixture.statuses(), QList<int>({8, 8}));
    fixture.sensorsAt(4000, {Chaos});
    QVERIFY(!race.isPaused());
    QCOMPARE(fixture.statuses(), QList<int>({2, 2}));
    fixture.sensorsAt(5000, {1});
    QCOMPARE(fixture.statuses(), QList<int>({4, 2}));
    QVERIFY(race.isRaceActive());
}

void tst_CRace::pauseAndResumeSayEverythingInOrder()
{
    RaceFixture fixture(1);
    fixture.changeRaceway([](CRaceway& raceway) { raceway.chaosPhaseOutputAvailable = true; });
    CRace& race = fixture.start();
    race.vPause();
    QCOMPARE(fixture.take(), QStringList({"24 on", "member 0: kind 0, status 8, laps 0", "RacePaused"}));
    QVERIFY(!fixture.timer(QStringLiteral("oneSecondTimer")).isActive());
    race.vResume();
    QCOMPARE(fixture.take(), QStringList({"member 0: kind 0, status 2, laps 0", "24 off", "RaceResumed"}));
    QVERIFY(fixture.timer(QStringLiteral("oneSecondTimer")).isActive());
    QCOMPARE(fixture.timer(QStringLiteral("oneSecondTimer")).interval(), 1000);
}

void tst_CRace::chaosPressWithin199MillisecondsIsDropped_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<bool>("counts");
    QTest::newRow("150 ms") << 150 << false;
    QTest::newRow("199 ms") << 199 << false;
    QTest::newRow("200 ms") << 200 << true;
}

void tst_CRace::chaosPressWithin199MillisecondsIsDropped()
{
    QFETCH(int, distance);
    QFETCH(bool, counts);
    RaceFixture fixture;
    fixture.useChaosButton();
    const CRace& race = fixture.start();
    fixture.sensorsAt(1000, {Chaos});
    fixture.sensorsAt(1000 + distance, {Chaos});
    QCOMPARE(race.isPaused(), !counts);
}

void tst_CRace::chaosPressWhileTheStartLightsRunPausesTheRace()
{
    RaceFixture fixture(2);
    fixture.useChaosButton();
    fixture.useTimedStart();
    const CRace& race = fixture.start();
    fixture.letStartSecondsPass(2);
    fixture.sensorsAt(2000, {Chaos, 1});
    QVERIFY(race.isPaused());
    QVERIFY(race.isRaceActive());
    QCOMPARE(fixture.statuses(), QList<int>({8, 8}));
}

void tst_CRace::chaosButtonOfARacewayWithoutOneIsIgnored()
{
    RaceFixture fixture;
    const CRace& race = fixture.start();
    fixture.sensorsAt(2000, {Chaos});
    QVERIFY(!race.isPaused());
}

void tst_CRace::chaosTimeIsForgottenAtTheNextStart()
{
    RaceFixture fixture;
    fixture.useChaosButton();
    CRace& race = fixture.start();
    fixture.sensorsAt(1000, {Chaos});
    race.vStop();
    race.vStartQuickRace();
    QVERIFY(!race.isPaused());
    fixture.sensorsAt(1100, {Chaos});
    QVERIFY(race.isPaused());
}

void tst_CRace::pauseLosesTheFractionOfASecond()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    fixture.advanceClock(10900);
    race.vPause();
    fixture.advanceClock(60000);
    race.vResume();
    fixture.take();
    QVERIFY(fixture.fire("vOneSecondEvent"));
    fixture.advanceClock(2500);
    QVERIFY(fixture.fire("vOneSecondEvent"));
    race.vPause();
    race.vResume();
    QVERIFY(fixture.fire("vOneSecondEvent"));
    QCOMPARE(fixture.take(QStringLiteral("time")),
             QStringList({"time 00:00:10.000", "time 00:00:12.500", "time 00:00:12.000"}));
}

void tst_CRace::pauseThrowsTheRunningLapAway()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    fixture.sensorsAt(1000, {1});
    race.vPause();
    fixture.sensorsAt(6000, {1});
    QCOMPARE(fixture.laps(0), 0);
    QCOMPARE(fixture.status(0), 8);
}

void tst_CRace::lapBegunBeforeThePauseIsNotCountedAfterIt()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    fixture.sensorsAt(1000, {1});
    race.vPause();
    race.vResume();
    fixture.sensorsAt(6000, {1});
    QCOMPARE(fixture.laps(0), 0);
    QCOMPARE(fixture.status(0), 4);
    fixture.sensorsAt(11000, {1});
    QCOMPARE(fixture.laps(0), 1);
}

void tst_CRace::sensorEventsReachEndAndWinnerDuringAPause()
{
    // A limit of no laps is reached by the first event that is looked at.
    RaceFixture fixture(2);
    fixture.useLapLimit(0);
    fixture.raceSettings.setWinningCondition(1);
    CRace& race = fixture.start();
    race.vPause();
    fixture.sensorsAt(1000, {});
    QVERIFY(!race.isRaceActive());
    QCOMPARE(fixture.statuses(), QList<int>({7, 6}));
}

void tst_CRace::pauseThatRunsIntoTheGoKeepsMembersStopped()
{
    RaceFixture fixture(1);
    fixture.useTimedStart();
    CRace& race = fixture.start();
    race.vPause();
    fixture.take();
    fixture.letStartSecondsPass(5);
    QCOMPARE(fixture.take(QStringLiteral("lights (7|9)|member")),
             QStringList({"lights 7", "member 0: kind 0, status 3, laps 0", "lights 9"}));
    QVERIFY(race.isPaused());
    fixture.sensorsAt(6000, {1});
    QCOMPARE(fixture.status(0), 3);
    race.vResume();
    fixture.sensorsAt(7000, {1});
    QCOMPARE(fixture.status(0), 4);
    QVERIFY(race.isRaceActive());
}

void tst_CRace::pauseBeforeTheGoAddsNoTimeOfTheRaceBefore()
{
    RaceFixture fixture;
    fixture.useTimedStart();
    CRace& race = fixture.start();
    fixture.letStartSecondsPass(5);
    fixture.advanceClock(100000);
    race.vStop();
    race.vStartQuickRace();
    race.vPause();
    race.vResume();
    fixture.take();
    QVERIFY(fixture.fire("vOneSecondEvent"));
    QCOMPARE(fixture.take(), QStringList({"time 00:00:00.000"}));
}

void tst_CRace::raceTimeBeginsAnewAtTheGo()
{
    // A resume lets the clock run during the countdown, and a second pause gathers its time.
    RaceFixture fixture;
    fixture.useTimedStart();
    CRace& race = fixture.start();
    race.vPause();
    race.vResume();
    fixture.advanceClock(4000);
    race.vPause();
    race.vResume();
    fixture.letStartSecondsPass(5);
    fixture.take();
    fixture.advanceClock(1000);
    QVERIFY(fixture.fire("vOneSecondEvent"));
    QCOMPARE(fixture.take(), QStringList({"time 00:00:01.000"}));
}

void tst_CRace::stopDuringAPauseEndsThePause()
{
    RaceFixture fixture(1);
    fixture.changeRaceway([](CRaceway& raceway) { raceway.chaosPhaseOutputAvailable = true; });
    CRace& race = fixture.start();
    race.vPause();
    fixture.take();
    race.vStop();
    QVERIFY(!race.isPaused());
    QCOMPARE(fixture.take().mid(0, 3), QStringList({"stop", "stopped", "24 off"}));
    QCOMPARE(fixture.status(0), 6);
}

void tst_CRace::timeLimitIsPausedWithTheRace()
{
    RaceFixture fixture;
    fixture.raceSettings.setEndType(CRaceSettings::TimeLimit);
    fixture.raceSettings.setEndTime(QTime(0, 5, 0));
    CRace& race = fixture.start();
    const QTimer* limit = race.endCondition()->findChild<QTimer*>();
    QVERIFY(limit->isActive());
    race.vPause();
    QVERIFY(!limit->isActive());
    race.vResume();
    QVERIFY(limit->isActive());
    race.vStop();
    QVERIFY(!limit->isActive());
}

void tst_CRace::stopSaysEverythingInOrder()
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

void tst_CRace::stopOutsideARaceBringsTheOutputsToRest()
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

void tst_CRace::redLightsStayOnAfterTheRaceIfTheSettingsSaySo()
{
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.externalLightsAvailable = true; });
    fixture.raceSettings.setRedLightsOnRaceStopped(true);
    fixture.start().vStop();
    QCOMPARE(fixture.take(QStringLiteral("^(lights|\\d\\d o)")),
             QStringList({"18 on", "19 on", "20 on", "21 on", "22 on", "23 off", "lights 10"}));
}

void tst_CRace::stopWaitsUntilTheReaderHasLeftItsLoop()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    race.vStop();
    QVERIFY(!race.io()->isRunning());
    const QStringList log = fixture.take();
    QCOMPARE(log.indexOf(QStringLiteral("stopped")), 1);
}

void tst_CRace::stopByTheUserNamesNoWinner()
{
    RaceFixture fixture(1);
    fixture.raceSettings.setWinningCondition(1);
    CRace& race = fixture.start();
    driveLaps(fixture, 1, 1000, {5000});
    race.vStop();
    QCOMPARE(fixture.status(0), 6);
    QCOMPARE(fixture.take(QStringLiteral("info")), QStringList({"info 'Rennen wurde beendet'"}));
}

void tst_CRace::lapLimitEndsTheRaceWithTheFirstMember()
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

void tst_CRace::lapLimitOnAllTracksWaitsAndShowsFinishedMembers()
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

void tst_CRace::memberAtTheLimitStaysThereHoweverOftenItCrosses()
{
    RaceFixture fixture(2);
    fixture.useLapLimit(2);
    fixture.raceSettings.setAllMaxRounds(true);
    fixture.raceSettings.setMaxRoundsStopCounting(true);
    fixture.start();
    driveLaps(fixture, 1, 1000, {2000, 2000});
    QCOMPARE(fixture.take().mid(4), QStringList({"member 0: kind 0, status 6, laps 2", "event 1.0",
                                                 "member 0: kind 1, status 6, laps 2"}));
    for (int time = 10000; time < 100000; time += 5000) {
        fixture.sensorsAt(time, {1});
    }
    QCOMPARE(fixture.take(), QStringList());
    QCOMPARE(fixture.laps(0), 2);
    QCOMPARE(fixture.status(0), 6);
}

void tst_CRace::memberPastTheLimitCountsOnUnlessToldToStop()
{
    RaceFixture fixture(2);
    fixture.useLapLimit(2);
    fixture.raceSettings.setAllMaxRounds(true);
    fixture.start();
    driveLaps(fixture, 1, 1000, {2000, 2000, 2000});
    QCOMPARE(fixture.laps(0), 3);
    QCOMPARE(fixture.status(0), 4);
}

void tst_CRace::deadHeatStopsTheRaceForEachMemberAtTheLimit()
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

void tst_CRace::lapLimitOf0EndsTheRaceWithTheFirstEvent()
{
    RaceFixture fixture(1);
    fixture.useLapLimit(0);
    const CRace& race = fixture.start();
    QVERIFY(race.isRaceActive());
    fixture.sensorsAt(1000, {});
    QVERIFY(!race.isRaceActive());
}

void tst_CRace::timeLimitEndsTheRace()
{
    RaceFixture fixture(2);
    fixture.raceSettings.setEndType(CRaceSettings::TimeLimit);
    fixture.raceSettings.setEndTime(QTime(0, 0, 0));
    fixture.raceSettings.setWinningCondition(1);
    const CRace& race = fixture.start();
    driveLaps(fixture, 2, 1000, {4000});
    QVERIFY(race.isRaceActive());
    QTRY_VERIFY(!race.isRaceActive());
    QCOMPARE(fixture.statuses(), QList<int>({6, 7}));
}

void tst_CRace::wordsAtTheEndComeInOrder()
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

void tst_CRace::wordsForTheUserAreDebugLinesIfAFilterRuleAsksForThem_data()
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

void tst_CRace::wordsForTheUserAreDebugLinesIfAFilterRuleAsksForThem()
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
    driveLaps(fixture, 1, 1000, {4000});
    QCOMPARE(debug.lines(), lines);
}

void tst_CRace::everyWinningRuleDecidesAWholeRace_data()
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

void tst_CRace::everyWinningRuleDecidesAWholeRace()
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
    driveLaps(fixture, 1, 1000, {8000, 15000, 4000});
    driveLaps(fixture, 2, 30000, {5000, 5100, 4900, 5000});
    driveLaps(fixture, 3, 60000, {20000, 10000});
    fixture.take();
    QTRY_VERIFY(!race.isRaceActive());
    QCOMPARE(fixture.statuses(), statuses);
    QCOMPARE(fixture.take(QStringLiteral("info")),
             QStringList({"info 'Rennen wurde beendet'", QStringLiteral("info '%1'").arg(text)}));
}

void tst_CRace::rulesAreMadeAnewAtEachStart()
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

void tst_CRace::controlUnitSetsTheTanksOfTheFirstMembers()
{
    RaceFixture fixture(8);
    const CRace& race = fixture.start();
    fixture.controlUnitReports({0, 1, 7, 14, 15, 10}, 0);
    QList<int> levels;
    for (int track = 0; track < 8; ++track) {
        levels << race.raceMember(track).fuelPercent();
    }
    QCOMPARE(levels, QList<int>({0, 6, 46, 93, 100, 66, 100, 100}));
    RaceFixture small(2);
    small.start();
    small.controlUnitReports({3, 15, 0, 0, 0, 0}, 0);
    QCOMPARE(small.race().raceMember(0).fuelPercent(), 20);
}

void tst_CRace::controlUnitOutsideARaceSetsNoTanks()
{
    RaceFixture fixture(2);
    const CRace& race = fixture.make();
    fixture.controlUnitReports({3, 3, 3, 3, 3, 3}, 0);
    QCOMPARE(race.raceMember(0).fuelPercent(), 100);
}

void tst_CRace::controlUnitMovesTheLights_data()
{
    QTest::addColumn<bool>("inARace");
    QTest::addColumn<int>("light");
    QTest::addColumn<QStringList>("log");
    const QStringList off = {"18 off", "19 off", "20 off", "21 off", "22 off", "23 off", "lights 7"};
    for (const bool inARace : {false, true}) {
        const char* where = inARace ? "in a race" : "outside a race";
        QTest::addRow("0 %s", where) << inARace << 0 << QStringList();
        QTest::addRow("1 %s", where) << inARace << 1 << QStringList();
        for (int light = 2; light <= 6; ++light) {
            QTest::addRow("%d %s", light, where) << inARace << light << QStringList({"18 on", "lights 8"});
        }
        QTest::addRow("7 %s", where) << inARace << 7 << off;
        QTest::addRow("8 %s", where) << inARace << 8 << QStringList();
        QTest::addRow("15 %s", where) << inARace << 15 << QStringList();
    }
}

void tst_CRace::controlUnitMovesTheLights()
{
    QFETCH(bool, inARace);
    QFETCH(int, light);
    QFETCH(QStringList, log);
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.externalLightsAvailable = true; });
    CRace& race = fixture.start();
    if (!inARace) {
        race.vStop();
    }
    fixture.take();
    fixture.controlUnitReports({15, 15, 15, 15, 15, 15}, light);
    QCOMPARE(fixture.take(), log);
}

void tst_CRace::csvOfAFileThatCannotBeOpenedLeavesNoTrace()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    driveLaps(fixture, 1, 1000, {5000});
    race.vStop();
    fixture.take();
    race.saveToCsv(QStringLiteral("no/such/directory/race.csv"));
    QCOMPARE(fixture.take(), QStringList());
    QCOMPARE(fixture.laps(0), 1);
}

QTEST_GUILESS_MAIN(tst_CRace)
#include "tst_CRace.moc"
