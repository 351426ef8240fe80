#include "race/RaceFixture.h"

#include <QtTest>

namespace {

/** A raceway with power switches and a tank that the first lap empties. */
class FuelRace : public RaceFixture
{
public:
    explicit FuelRace(CRaceMember::EmptyReaction reaction, int tracks = 2) : RaceFixture(tracks)
    {
        usePowerSwitches();
        changeRaceway([](CRaceway& raceway) { raceway.fuelSensorSetup = 1; });
        changeFuel([reaction](CFuelSettings& fuel) {
            fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
            fuel.setTankSize(100.0);
            fuel.setReserveLevel(20.0);
            fuel.setMaxFuelUsageAmount(100.0);
            fuel.setMaxFuelUsageTime(QTime(0, 0, 4));
            fuel.setMinFuelUsageAmount(100.0);
            fuel.setMinFuelUsageTime(QTime(0, 0, 6));
            fuel.setEmptyFuelReaction(reaction);
            fuel.setEmptyFuelPenaltyTime(QTime(0, 0, 5));
            fuel.setEmptyFuelStutterFrequency(5);
            fuel.setRefuelInterval(QTime(0, 0, 0, 1));
        });
    }

    /** A lap of @p amount, whatever its time. */
    void useConsumption(double amount)
    {
        changeFuel([amount](CFuelSettings& fuel) {
            fuel.setMaxFuelUsageAmount(amount);
            fuel.setMinFuelUsageAmount(amount);
        });
    }
    void useRefuelAmount(double amount)
    {
        changeFuel([amount](CFuelSettings& fuel) { fuel.setRefuelAmount(amount); });
    }

    /** Empties the tanks of the tracks of these lap sensors by one lap of 5 s, ending at 6000. */
    void emptyTanks(std::initializer_list<int> lapSensors)
    {
        sensorsAt(1000, lapSensors);
        sensorsAt(6000, lapSensors);
    }
    int fuelPercent(int track) { return race().raceMember(track).fuelPercent(); }
    QTimer& stutterTimer() { return timer(QStringLiteral("stutterTimer")); }
    bool stutter() { return fire("stutterFrequencyTimerTimeout"); }
    QStringList takePower() { return take(QStringLiteral("power")); }
};

} // namespace

/** What fuel does to a race: events, reactions to an empty tank, refuelling. */
class tst_CRaceFuel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lapOnReserveIsPublishedInOrder();
    void tankAsLargeAsItsReserveIsOnReserveFromTheFirstLapOn();
    void lapThatEmptiesTheTankCountsAndIsPublishedInOrder();
    void levelBelowOneLapBecomesEmptyAndTheLapCounts();
    void bestLapThatEmptiesTheTankIsPublishedAsBoth();
    void withoutFuelFunctionLapsNeverChangeTheLevel();
    void withoutFuelFunctionReserveComesFromTheControlUnitAlone();
    void tankEmptiedByTheControlUnitHasNoReaction_data();
    void tankEmptiedByTheControlUnitHasNoReaction();

    void reaction0LapsDoNotCountUntilRefuelled();
    void reaction1SwitchesTheTrackOffUntilRefuelled();
    void reaction1AtTheLapLimitLeavesThePowerOn();
    void reaction2AddsThePenaltyToTheLapsAfterTheEmptyOne();
    void reaction2EndsWithRefuelling();
    void reaction3StuttersTheTrack();
    void reaction3StuttersAllEmptyTracksInStep();
    void reaction3ASecondEmptyTankJoinsTheRunningStutter();
    void reaction3StopsWhenNoTankIsEmpty();
    void reaction3RefuelledTrackHasPowerAndDropsOut();
    void reaction3FrequencySetsThePeriod_data();
    void reaction3FrequencySetsThePeriod();
    void stutterEndsWithTheRace();
    void stutterIsOffAtTheNextStart();
    void reactionIsTakenFromTheSettingsAtEachStart_data();
    void reactionIsTakenFromTheSettingsAtEachStart();
    void racewayWithoutPowerSwitchesHasNoReaction1And3_data();
    void racewayWithoutPowerSwitchesHasNoReaction1And3();

    void tankOf4PercentIsNotRefuelledAndOf8PercentIs();
    void emptyTankIsFullAfterTenTicksOfATenth();
    void refuellingPublishesTheMemberAtEachTick();
    void refuellingOnARacewayThatCannotSwitchPowerSwitchesNothing();
    void refuellingByOneSensorEndsWhenItOpens();
    void refuellingInAZoneGoesOnUntilTheEndSensor();
    void refuellingRestsDuringAPause();
    void memberAtTheLapLimitDoesNotRefuel();
    void refuellingBegunAtTheLapLimitEnds();
    void refuellingAfterTheRaceLeavesThePowerOff();
    void tanksAreFullAtTheNextStart();
};

void tst_CRaceFuel::lapOnReserveIsPublishedInOrder()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useConsumption(81.0);
    race.start();
    race.sensorsAt(1000, {1});
    race.take();
    race.sensorsAt(6000, {1});
    QCOMPARE(race.take(), QStringList({"event 1.0", "event 12.3", "member 0: kind 1, status 4, laps 1"}));
    QCOMPARE(race.memberEvents.last().fuelPercent, 19);
}

void tst_CRaceFuel::tankAsLargeAsItsReserveIsOnReserveFromTheFirstLapOn()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.changeFuel([](CFuelSettings& fuel) {
        fuel.setTankSize(20.0);
        fuel.setReserveLevel(20.0);
    });
    race.useConsumption(1.0);
    race.start();
    QCOMPARE(race.fuelPercent(0), 100);
    race.sensorsAt(1000, {1});
    race.take();
    race.sensorsAt(6000, {1});
    QCOMPARE(race.take(QStringLiteral("event")), QStringList({"event 1.0", "event 12.3"}));
}

void tst_CRaceFuel::lapThatEmptiesTheTankCountsAndIsPublishedInOrder()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.start();
    race.sensorsAt(1000, {1});
    race.take();
    race.sensorsAt(6000, {1});
    QCOMPARE(race.take(), QStringList({"event 1.0", "event 11.0", "member 0: kind 1, status 4, laps 1"}));
    QCOMPARE(race.fuelPercent(0), 0);
}

void tst_CRaceFuel::levelBelowOneLapBecomesEmptyAndTheLapCounts()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useConsumption(66.5);
    race.start();
    race.sensorsAt(1000, {1});
    race.sensorsAt(6000, {1});
    QCOMPARE(race.fuelPercent(0), 33);
    race.take();
    race.sensorsAt(11000, {1});
    QCOMPARE(race.take(), QStringList({"event 1.0", "event 11.0", "member 0: kind 1, status 4, laps 2"}));
    QCOMPARE(race.race().raceMember(0).car().fuelTank().level(), 0.0);
}

void tst_CRaceFuel::bestLapThatEmptiesTheTankIsPublishedAsBoth()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useConsumption(60.0);
    race.start();
    race.sensorsAt(1000, {1});
    race.sensorsAt(6000, {1});
    race.take();
    race.sensorsAt(10000, {1});
    QCOMPARE(race.take(), QStringList({"event 2.0", "event 11.0", "member 0: kind 2, status 4, laps 2"}));
}

void tst_CRaceFuel::withoutFuelFunctionLapsNeverChangeTheLevel()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.changeFuel([](CFuelSettings& fuel) { fuel.setFuelFunction(CFuelSettings::NoFuel); });
    race.start();
    for (int time = 1000; time < 500000; time += 1000) {
        race.sensorsAt(time, {1});
    }
    QCOMPARE(race.fuelPercent(0), 100);
    QCOMPARE(race.take(QStringLiteral("event 1[12]")), QStringList());
}

void tst_CRaceFuel::withoutFuelFunctionReserveComesFromTheControlUnitAlone()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.changeFuel([](CFuelSettings& fuel) { fuel.setFuelFunction(CFuelSettings::NoFuel); });
    race.start();
    race.sensorsAt(1000, {1});
    race.controlUnitReports({2, 15, 15, 15, 15, 15}, 0);
    race.take();
    race.sensorsAt(6000, {1});
    QCOMPARE(race.take(), QStringList({"event 1.0", "event 12.3", "member 0: kind 1, status 4, laps 1"}));
    QCOMPARE(race.fuelPercent(0), 13);
}

void tst_CRaceFuel::tankEmptiedByTheControlUnitHasNoReaction_data()
{
    QTest::addColumn<int>("reaction");
    for (int reaction = 0; reaction <= 3; ++reaction)
        QTest::addRow("%d", reaction) << reaction;
}

void tst_CRaceFuel::tankEmptiedByTheControlUnitHasNoReaction()
{
    QFETCH(int, reaction);
    FuelRace race(static_cast<CRaceMember::EmptyReaction>(reaction));
    race.changeFuel([](CFuelSettings& fuel) { fuel.setFuelFunction(CFuelSettings::NoFuel); });
    race.start();
    race.sensorsAt(1000, {1});
    race.controlUnitReports({0, 15, 15, 15, 15, 15}, 0);
    race.take();
    race.sensorsAt(6000, {1});
    QCOMPARE(race.take(), QStringList({"event 1.0", "event 11.0", "member 0: kind 1, status 4, laps 1"}));
    QVERIFY(!race.stutterTimer().isActive());
    race.sensorsAt(11000, {1});
    QCOMPARE(race.laps(0), 2);
    QCOMPARE(race.race().raceMember(0).lap(1).lapTime, 5000);
}

void tst_CRaceFuel::reaction0LapsDoNotCountUntilRefuelled()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useRefuelAmount(100.0);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(11000, {1});
    race.sensorsAt(16000, {1});
    QCOMPARE(race.laps(0), 1);
    race.sensorsAt(17000, {25});
    QTRY_COMPARE(race.fuelPercent(0), 100);
    race.sensorsAt(21000, {1});
    QCOMPARE(race.laps(0), 2);
    QCOMPARE(race.race().raceMember(0).lap(1).lapTime, 5000);
}

void tst_CRaceFuel::reaction1SwitchesTheTrackOffUntilRefuelled()
{
    FuelRace race(CRaceMember::PowerOff);
    race.useRefuelAmount(100.0);
    race.start();
    race.sensorsAt(1000, {1, 2});
    race.take();
    race.sensorsAt(6000, {1});
    QCOMPARE(race.take(), QStringList({"10 off", "power 0 off", "event 1.0", "event 11.0",
                                       "member 0: kind 1, status 4, laps 1"}));
    QVERIFY(!race.race().raceMember(0).powerOn());
    QVERIFY(race.race().raceMember(1).powerOn());
    race.sensorsAt(7000, {25});
    QTRY_VERIFY(race.race().raceMember(0).powerOn());
    QCOMPARE(race.takePower().first(), QStringLiteral("power 0 on"));
}

void tst_CRaceFuel::reaction1AtTheLapLimitLeavesThePowerOn()
{
    FuelRace race(CRaceMember::PowerOff);
    race.useLapLimit(1);
    race.raceSettings.setAllMaxRounds(true);
    race.raceSettings.setMaxRoundsStopCounting(true);
    race.start();
    race.emptyTanks({1});
    QCOMPARE(race.status(0), 6);
    QCOMPARE(race.takePower(), QStringList());
}

void tst_CRaceFuel::reaction2AddsThePenaltyToTheLapsAfterTheEmptyOne()
{
    FuelRace race(CRaceMember::PenaltyPerLap);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(10000, {1});
    race.sensorsAt(14000, {1});
    const CRaceMember member = race.race().raceMember(0);
    QCOMPARE(member.numberOfLaps(), 3);
    QCOMPARE(member.lap(0).lapTime, 5000);
    QCOMPARE(member.lap(1).lapTime, 9000);
    QCOMPARE(member.lap(2).lapStartTime, 10000);
    QCOMPARE(member.lap(2).lapTime, 9000);
    QCOMPARE(race.takePower(), QStringList());
}

void tst_CRaceFuel::reaction2EndsWithRefuelling()
{
    FuelRace race(CRaceMember::PenaltyPerLap);
    race.useRefuelAmount(100.0);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(8000, {25});
    QTRY_COMPARE(race.fuelPercent(0), 100);
    race.sensorsAt(10000, {1});
    QCOMPARE(race.race().raceMember(0).lap(1).lapTime, 4000);
}

void tst_CRaceFuel::reaction3StuttersTheTrack()
{
    FuelRace race(CRaceMember::Stutter);
    race.start();
    QVERIFY(!race.stutterTimer().isActive());
    race.emptyTanks({1});
    QVERIFY(race.stutterTimer().isActive());
    QCOMPARE(race.stutterTimer().timerType(), Qt::CoarseTimer);
    QCOMPARE(race.takePower(), QStringList());
    for (int i = 0; i < 3; ++i)
        QVERIFY(race.stutter());
    QCOMPARE(race.takePower(), QStringList({"power 0 on", "power 0 off", "power 0 on"}));
}

void tst_CRaceFuel::reaction3StuttersAllEmptyTracksInStep()
{
    FuelRace race(CRaceMember::Stutter, 3);
    race.start();
    race.emptyTanks({1, 3});
    race.take();
    QVERIFY(race.stutter());
    QVERIFY(race.stutter());
    QCOMPARE(race.takePower(), QStringList({"power 0 on", "power 2 on", "power 0 off", "power 2 off"}));
}

void tst_CRaceFuel::reaction3ASecondEmptyTankJoinsTheRunningStutter()
{
    FuelRace race(CRaceMember::Stutter);
    race.start();
    race.sensorsAt(1000, {1, 2});
    race.sensorsAt(6000, {1});
    QVERIFY(race.stutter());
    race.sensorsAt(7000, {2});
    race.take();
    QVERIFY(race.stutter());
    QCOMPARE(race.takePower(), QStringList({"power 0 off", "power 1 off"}));
}

void tst_CRaceFuel::reaction3StopsWhenNoTankIsEmpty()
{
    FuelRace race(CRaceMember::Stutter);
    race.start();
    race.emptyTanks({1});
    QVERIFY(race.stutter());
    race.controlUnitReports({15, 15, 15, 15, 15, 15}, 0);
    race.take();
    QVERIFY(race.stutter());
    QVERIFY(!race.stutterTimer().isActive());
    QCOMPARE(race.takePower(), QStringList());
    // The next stutter begins like the first one.
    race.controlUnitReports({0, 15, 15, 15, 15, 15}, 0);
    race.sensorsAt(11000, {1});
    QVERIFY(race.stutterTimer().isActive());
    QVERIFY(race.stutter());
    QCOMPARE(race.takePower(), QStringList({"power 0 on"}));
}

void tst_CRaceFuel::reaction3RefuelledTrackHasPowerAndDropsOut()
{
    FuelRace race(CRaceMember::Stutter);
    race.useRefuelAmount(100.0);
    race.start();
    race.emptyTanks({1, 2});
    QVERIFY(race.stutter());
    QVERIFY(race.stutter());
    QVERIFY(!race.race().raceMember(0).powerOn());
    race.sensorsAt(7000, {25});
    QTRY_VERIFY(race.race().raceMember(0).powerOn());
    race.sensorsAt(8000, {});
    race.take();
    QVERIFY(race.stutter());
    QCOMPARE(race.takePower(), QStringList({"power 1 on"}));
    QVERIFY(race.stutterTimer().isActive());
}

void tst_CRaceFuel::reaction3FrequencySetsThePeriod_data()
{
    QTest::addColumn<int>("frequency");
    QTest::addColumn<int>("interval");
    QTest::newRow("5") << 5 << 200;
    QTest::newRow("3, cut") << 3 << 333;
    QTest::newRow("0, from a damaged file") << 0 << 1000;
    QTest::newRow("-4, from a damaged file") << -4 << 1000;
}

void tst_CRaceFuel::reaction3FrequencySetsThePeriod()
{
    QFETCH(int, frequency);
    QFETCH(int, interval);
    FuelRace race(CRaceMember::Stutter);
    race.changeFuel([frequency](CFuelSettings& fuel) { fuel.setEmptyFuelStutterFrequency(frequency); });
    race.start();
    race.emptyTanks({1});
    QCOMPARE(race.stutterTimer().interval(), interval);
}

void tst_CRaceFuel::stutterEndsWithTheRace()
{
    FuelRace race(CRaceMember::Stutter);
    race.start();
    race.emptyTanks({1});
    race.race().vStop();
    QVERIFY(!race.stutterTimer().isActive());
}

void tst_CRaceFuel::stutterIsOffAtTheNextStart()
{
    FuelRace race(CRaceMember::Stutter);
    race.start();
    race.emptyTanks({1});
    race.race().vStartQuickRace();
    QVERIFY(!race.stutterTimer().isActive());
    QVERIFY(race.race().raceMember(0).powerOn());
}

void tst_CRaceFuel::reactionIsTakenFromTheSettingsAtEachStart_data()
{
    QTest::addColumn<int>("reaction");
    QTest::newRow("1") << int(CRaceMember::PowerOff);
    QTest::newRow("3") << int(CRaceMember::Stutter);
}

void tst_CRaceFuel::reactionIsTakenFromTheSettingsAtEachStart()
{
    QFETCH(int, reaction);
    FuelRace race(static_cast<CRaceMember::EmptyReaction>(reaction));
    race.start();
    race.race().vStop();
    race.changeFuel([](CFuelSettings& fuel) { fuel.setEmptyFuelReaction(CRaceMember::PenaltyPerLap); });
    race.race().vStartQuickRace();
    race.take();
    race.emptyTanks({1});
    QCOMPARE(race.takePower(), QStringList());
    QVERIFY(!race.stutterTimer().isActive());
}

void tst_CRaceFuel::racewayWithoutPowerSwitchesHasNoReaction1And3_data()
{
    QTest::addColumn<int>("reaction");
    QTest::newRow("1") << int(CRaceMember::PowerOff);
    QTest::newRow("3") << int(CRaceMember::Stutter);
}

void tst_CRaceFuel::racewayWithoutPowerSwitchesHasNoReaction1And3()
{
    QFETCH(int, reaction);
    FuelRace race(static_cast<CRaceMember::EmptyReaction>(reaction));
    race.changeRaceway([](CRaceway& raceway) { raceway.pwrOffFeatureAvailable = false; });
    race.start();
    race.emptyTanks({1});
    QVERIFY(!race.stutterTimer().isActive());
    QCOMPARE(race.takePower(), QStringList());
    race.sensorsAt(11000, {1});
    QCOMPARE(race.laps(0), 2);
}

void tst_CRaceFuel::tankOf4PercentIsNotRefuelledAndOf8PercentIs()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useRefuelAmount(4.0);
    race.changeFuel([](CFuelSettings& fuel) {
        fuel.setTankSize(100.0);
        fuel.setMaxFuelUsageAmount(5.0);
        fuel.setMinFuelUsageAmount(5.0);
    });
    race.start();
    race.sensorsAt(1000, {1});
    race.controlUnitReports({0, 15, 15, 15, 15, 15}, 0);
    race.sensorsAt(6000, {1});
    race.take();
    race.memberEvents.clear();
    race.sensorsAt(7000, {25});
    QTRY_VERIFY(race.memberEvents.size() >= 2);
    const QStringList log = race.take();
    QCOMPARE(race.memberEvents.at(0).fuelPercent, 4);
    QCOMPARE(race.memberEvents.at(1).fuelPercent, 8);
    QCOMPARE(log.mid(0, 4), QStringList({"member 0: kind 0, status 4, laps 1", "10 on", "power 0 on",
                                         "member 0: kind 0, status 4, laps 1"}));
}

void tst_CRaceFuel::emptyTankIsFullAfterTenTicksOfATenth()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useRefuelAmount(10.0);
    race.start();
    race.emptyTanks({1});
    race.memberEvents.clear();
    race.sensorsAt(7000, {25});
    QTRY_VERIFY(race.memberEvents.size() >= 11);
    QList<int> levels;
    for (int tick = 0; tick < 11; ++tick)
        levels << race.memberEvents.at(tick).fuelPercent;
    QCOMPARE(levels, QList<int>({10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 100}));
}

void tst_CRaceFuel::refuellingPublishesTheMemberAtEachTick()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useRefuelAmount(1.0);
    race.start();
    race.emptyTanks({2});
    race.take();
    race.sensorsAt(7000, {26});
    QTRY_VERIFY(race.log.size() >= 3);
    QCOMPARE(race.take().mid(0, 3),
             QStringList({"member 1: kind 0, status 4, laps 1", "member 1: kind 0, status 4, laps 1",
                          "member 1: kind 0, status 4, laps 1"}));
}

void tst_CRaceFuel::refuellingOnARacewayThatCannotSwitchPowerSwitchesNothing()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.changeRaceway([](CRaceway& raceway) { raceway.pwrOffFeatureAvailable = false; });
    race.useRefuelAmount(100.0);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(7000, {25});
    QTRY_COMPARE(race.fuelPercent(0), 100);
    QCOMPARE(race.takePower(), QStringList());
}

void tst_CRaceFuel::refuellingByOneSensorEndsWhenItOpens()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useRefuelAmount(1.0);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(7000, {25});
    QTRY_VERIFY(race.fuelPercent(0) >= 2);
    race.sensorsAt(8000, {});
    const int level = race.fuelPercent(0);
    race.take();
    // Track 2 goes on filling; so the timers had their time.
    race.sensorsAt(8100, {26});
    QTRY_VERIFY(race.log.filter(QStringLiteral("member 1")).size() >= 5);
    QCOMPARE(race.fuelPercent(0), level);
}

void tst_CRaceFuel::refuellingInAZoneGoesOnUntilTheEndSensor()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.changeRaceway([](CRaceway& raceway) { raceway.fuelSensorSetup = 4; });
    race.useRefuelAmount(1.0);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(7000, {25});
    race.sensorsAt(7100, {});
    QTRY_VERIFY(race.fuelPercent(0) >= 3);
    race.sensorsAt(9000, {33});
    const int level = race.fuelPercent(0);
    race.take();
    race.sensorsAt(9100, {26});
    QTRY_VERIFY(race.log.filter(QStringLiteral("member 1")).size() >= 5);
    QCOMPARE(race.fuelPercent(0), level);
}

void tst_CRaceFuel::refuellingRestsDuringAPause()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useRefuelAmount(1.0);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(7000, {25});
    QTRY_VERIFY(race.fuelPercent(0) >= 1);
    race.race().vPause();
    const int level = race.fuelPercent(0);
    race.sensorsAt(8000, {25});
    bool timePassed = false;
    QTimer::singleShot(20, &race.race(), [&timePassed] { timePassed = true; });
    QTRY_VERIFY(timePassed);
    QCOMPARE(race.fuelPercent(0), level);
    race.race().vResume();
    QTRY_VERIFY(race.fuelPercent(0) > level);
}

void tst_CRaceFuel::memberAtTheLapLimitDoesNotRefuel()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.useLapLimit(1);
    race.raceSettings.setAllMaxRounds(true);
    race.raceSettings.setMaxRoundsStopCounting(true);
    race.useRefuelAmount(50.0);
    race.start();
    race.emptyTanks({1});
    race.sensorsAt(7000, {25, 26});
    race.sensorsAt(7500, {25, 26, 1});
    race.take();
    QTRY_VERIFY(race.log.filter(QStringLiteral("member 1")).size() >= 5);
    QCOMPARE(race.fuelPercent(0), 0);
}

void tst_CRaceFuel::refuellingBegunAtTheLapLimitEnds()
{
    // With the lap sensor for refuelling, the crossing that reaches the limit begins it.
    FuelRace race(CRaceMember::BlockLapCounting);
    race.changeRaceway([](CRaceway& raceway) { raceway.fuelSensorSetup = 0; });
    race.useLapLimit(1);
    race.raceSettings.setAllMaxRounds(true);
    race.raceSettings.setMaxRoundsStopCounting(true);
    race.start();
    race.emptyTanks({1});
    // Track 2 goes on filling; so the timers had their time.
    race.sensorsAt(6020, {2});
    race.take();
    QTRY_VERIFY(race.log.filter(QStringLiteral("member 1")).size() >= 5);
    QCOMPARE(race.fuelPercent(0), 0);
}

void tst_CRaceFuel::refuellingAfterTheRaceLeavesThePowerOff()
{
    FuelRace race(CRaceMember::PowerOff);
    race.start();
    race.sensorsAt(1000, {25});
    race.race().vStop();
    QVERIFY(!race.race().raceMember(0).powerOn());
    race.take();
    // The car still stands at its sensor, and the tank goes on filling.
    QTRY_VERIFY(race.log.filter(QStringLiteral("member 0")).size() >= 3);
    QCOMPARE(race.takePower(), QStringList());
}

void tst_CRaceFuel::tanksAreFullAtTheNextStart()
{
    FuelRace race(CRaceMember::BlockLapCounting);
    race.start();
    race.emptyTanks({1});
    race.race().vStop();
    QCOMPARE(race.fuelPercent(0), 0);
    race.race().vStartQuickRace();
    QCOMPARE(race.fuelPercent(0), 100);
    race.emptyTanks({1});
    QCOMPARE(race.laps(0), 1);
}

QTEST_GUILESS_MAIN(tst_CRaceFuel)
#include "tst_CRaceFuel.moc"
