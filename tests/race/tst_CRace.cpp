#include "race/RaceFixture.h"

#include <QtTest>

/** The course of a race from its start over its laps, and the order of what it says. */
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
    void raceTimeBeginsAnewAtTheGo();
    void raceTimeWrapsAfterADay();

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
    fixture.drive(0, {5000, 5000});
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
    fixture.drive(0, {5000, 4000});
    race.vStop();
    QVERIFY(!race.isRaceActive());
    QCOMPARE(race.raceMember(0).numberOfLaps(), 2);
    QCOMPARE(race.raceMember(0).lap(1).lapTime, 4000);
}

void tst_CRace::resetClearsLapsTimeAndText()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    fixture.drive(0, {5000});
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
    fixture.drive(0, {5000});
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
    fixture.drive(0, {5000});
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
    for (const int track : {-1, 2})
        QVERIFY(QMetaObject::invokeMethod(&race, "vUpdateRaceMember", Q_ARG(int, track), Q_ARG(int, 0)));
    QCOMPARE(fixture.take(), QStringList());
}

void tst_CRace::lapsCountDownFromTheLapLimit()
{
    RaceFixture fixture(1);
    fixture.useLapLimit(25);
    fixture.raceSettings.setLapsCountDown(true);
    fixture.start();
    fixture.drive(0, {5000, 5000, 5000});
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
    fixture.drive(0, {5000, 5000, 5000});
    QCOMPARE(fixture.memberEvents.last().laps, 3);
}

void tst_CRace::sensorEventWithoutARaceIsDropped()
{
    RaceFixture fixture(1);
    CRace& race = fixture.make();
    fixture.take();
    fixture.drive(0, {5000});
    QCOMPARE(fixture.take(), QStringList());
    QCOMPARE(fixture.laps(0), 0);
    race.vStartQuickRace();
    race.vStop();
    fixture.take();
    fixture.drive(0, {5000}, 10000);
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
    for (int id = 1; id < PortId::Count; ++id)
        race.io()->setPortState(id, 127, false);
    race.vStartQuickRace();
    race.io()->setPortState(PortId::Open, 127, false);
    for (int id = 1; id < PortId::Count; ++id)
        race.io()->setPortState(id, 127, false);
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

void tst_CRace::raceTimeWrapsAfterADay()
{
    RaceFixture fixture;
    fixture.start();
    fixture.advanceClock(qint64(40) * 24 * 3600 * 1000 + 5000);
    QVERIFY(fixture.fire("vOneSecondEvent"));
    QCOMPARE(fixture.take(), QStringList({"time 00:00:05.000"}));
}

void tst_CRace::controlUnitSetsTheTanksOfTheFirstMembers()
{
    RaceFixture fixture(8);
    const CRace& race = fixture.start();
    fixture.controlUnitReports({0, 1, 7, 14, 15, 10}, 0);
    QList<int> levels;
    for (int track = 0; track < 8; ++track)
        levels << race.raceMember(track).fuelPercent();
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
    if (!inARace)
        race.vStop();
    fixture.take();
    fixture.controlUnitReports({15, 15, 15, 15, 15, 15}, light);
    QCOMPARE(fixture.take(), log);
}

void tst_CRace::csvOfAFileThatCannotBeOpenedLeavesNoTrace()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    fixture.drive(0, {5000});
    race.vStop();
    fixture.take();
    race.saveToCsv(QStringLiteral("no/such/directory/race.csv"));
    QCOMPARE(fixture.take(), QStringList());
    QCOMPARE(fixture.laps(0), 1);
}

QTEST_GUILESS_MAIN(tst_CRace)
#include "tst_CRace.moc"
