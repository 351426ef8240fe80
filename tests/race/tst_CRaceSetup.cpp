#include "race/RaceFixture.h"

#include <QtTest>

namespace {

using Pins = QList<int>;

Pins lapAndSectorPins(const CRaceMember& member)
{
    return {member.startSensorPin(), member.endSensorPin(), member.sector2Pin(), member.sector3Pin()};
}

} // namespace

/** How the race builds its members, its interface and the power of the tracks. */
class tst_CRaceSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void raceIsReadyBeforeAnyStart();
    void noRuleIsEverMissing();
    void memberOutsideTheListIsADefaultOne();
    void membersCarryTrackDriverCarAndMinimumTime();
    void membersAreCopies();
    void lapAndSectorSensorsFollowTheRaceway_data();
    void lapAndSectorSensorsFollowTheRaceway();
    void refuellingSensorsFollowTheSetup_data();
    void refuellingSensorsFollowTheSetup();
    void withoutFuelFunctionTheRefuellingPinsStay0();
    void fuelRulesReachTheMember();
    void fuelFunction0SwitchesConsumptionOffAndFillsTheTank();
    void fuelFunction1KeepsTheTankOfTheCarAndFillsIt();
    void fuelFunction2OverwritesTheTankAndFillsIt();
    void fuelFunction2CapsTheReserveToTheSize();
    void racewayWithNineTracksHasAMemberWithoutSensors();
    void racewayWithoutTracksHasNoMembers();

    void interfaceIsMadeFromTheRacewaysSettings();
    void interfaceIsMadeAnewAtEachStart();
    void at2560IsStartedAtOnce();
    void at2560IsKeptWhileItsSettingsAreTheSame();
    void at2560IsReplacedWhenItsSettingsDiffer();
    void otherInterfaceIsNotKeptForTheSameSettings();
    void adaptingToARacewayChangesMembersAndInterface();
    void runningInterfaceIsWaitedForBeforeItGoes();
    void raceOutlivesItsSettings();

    void setRaceSettingsTakesTheRules();
    void setRaceSettingsDuringARaceHasNoEffect();

    void startSwitchesAllTracksOn();
    void racewayWithoutPowerSwitchesSwitchesNothing();
    void powerOfATrackOutOfRangeIsIgnored();
    void powerOfAllTracksGoesInTrackOrder();
    void togglingSwitchesToTheOpposite();
    void afterAStopThePowerCanBeToggledOnByHand();
    void powerStaysOnAfterTheRaceIfTheSettingsSaySo();
};

void tst_CRaceSetup::raceIsReadyBeforeAnyStart()
{
    RaceFixture fixture(3);
    const CRace& race = fixture.make();
    QCOMPARE(race.numberOfMembers(), 3);
    QVERIFY(!race.isRaceActive());
    QVERIFY(!race.isPaused());
    QCOMPARE(race.raceTime(), QTime(0, 0));
    QCOMPARE(fixture.statuses(), QList<int>({1, 1, 1}));
    QCOMPARE(fixture.take(), QStringList({"create"}));
}

void tst_CRaceSetup::noRuleIsEverMissing()
{
    RaceFixture fixture;
    fixture.useTimedStart();
    fixture.useLapLimit(7);
    const CRace& race = fixture.make();
    QCOMPARE(race.raceStart()->description(), QStringLiteral("Start nach 00:05 Minuten"));
    QCOMPARE(race.endCondition()->description(), QStringLiteral("Ende nach 7 Runden"));
    QCOMPARE(race.winningCondition()->description(), QStringLiteral("Keine Siegbedingung"));
}

void tst_CRaceSetup::memberOutsideTheListIsADefaultOne()
{
    RaceFixture fixture(2);
    const CRace& race = fixture.make();
    for (const int index : {-1, 2, 100}) {
        QCOMPARE(race.raceMember(index).driver().name(), QStringLiteral("Default"));
        QCOMPARE(race.raceMember(index).startSensorPin(), 0);
    }
}

void tst_CRaceSetup::membersCarryTrackDriverCarAndMinimumTime()
{
    RaceFixture fixture(2);
    CCar car;
    car.setName(QStringLiteral("Red"));
    fixture.raceSettings.setCar(1, car);
    fixture.changeRaceway([](CRaceway& raceway) {
        raceway.minTime = 1234;
        raceway.tracks[1].length = 555;
    });
    const CRaceMember member = fixture.make().raceMember(1);
    QCOMPARE(member.trackIndex(), 1);
    QCOMPARE(member.driver().name(), QStringLiteral("Driver 2"));
    QCOMPARE(member.car().name(), QStringLiteral("Red"));
    QCOMPARE(member.track().length, 555);
    QCOMPARE(member.minTime(), 1234);
}

void tst_CRaceSetup::membersAreCopies()
{
    RaceFixture fixture;
    const CRace& race = fixture.make();
    CRaceMember copy = race.raceMember(0);
    copy.setStatus(CRaceMemberStatus::Winner);
    QCOMPARE(fixture.status(0), 1);
}

void tst_CRaceSetup::lapAndSectorSensorsFollowTheRaceway_data()
{
    QTest::addColumn<int>("sectors");
    QTest::addColumn<bool>("separate");
    QTest::addColumn<Pins>("first");
    QTest::addColumn<Pins>("last");
    QTest::newRow("1 sector") << 1 << false << Pins{1, 1, 0, 0} << Pins{8, 8, 0, 0};
    QTest::newRow("2 sectors") << 2 << false << Pins{1, 1, 41, 0} << Pins{8, 8, 48, 0};
    QTest::newRow("3 sectors") << 3 << false << Pins{1, 1, 41, 49} << Pins{8, 8, 48, 56};
    QTest::newRow("4 sectors, unknown") << 4 << false << Pins{1, 1, 0, 0} << Pins{8, 8, 0, 0};
    QTest::newRow("0 sectors, unknown") << 0 << false << Pins{1, 1, 0, 0} << Pins{8, 8, 0, 0};
    QTest::newRow("end sensor of its own") << 1 << true << Pins{1, 57, 0, 0} << Pins{8, 64, 0, 0};
}

void tst_CRaceSetup::lapAndSectorSensorsFollowTheRaceway()
{
    QFETCH(int, sectors);
    QFETCH(bool, separate);
    QFETCH(Pins, first);
    QFETCH(Pins, last);
    RaceFixture fixture(8);
    fixture.changeRaceway([sectors, separate](CRaceway& raceway) {
        raceway.numberOfSectors = sectors;
        raceway.startAndEndSensorSeparate = separate;
    });
    const CRace& race = fixture.make();
    QCOMPARE(lapAndSectorPins(race.raceMember(0)), first);
    QCOMPARE(lapAndSectorPins(race.raceMember(7)), last);
}

void tst_CRaceSetup::refuellingSensorsFollowTheSetup_data()
{
    QTest::addColumn<int>("setup");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::newRow("0, no sensors of their own") << 0 << 2 << 0;
    QTest::newRow("1, one sensor") << 1 << 26 << 0;
    QTest::newRow("2, zone from the lap sensor") << 2 << 2 << 34;
    QTest::newRow("3, zone to the lap sensor") << 3 << 26 << 2;
    QTest::newRow("4, zone with two sensors") << 4 << 26 << 34;
    QTest::newRow("5, unknown") << 5 << 2 << 0;
}

void tst_CRaceSetup::refuellingSensorsFollowTheSetup()
{
    QFETCH(int, setup);
    QFETCH(int, start);
    QFETCH(int, end);
    RaceFixture fixture;
    fixture.changeRaceway([setup](CRaceway& raceway) { raceway.fuelSensorSetup = setup; });
    for (const int function : {1, 2}) {
        fixture.changeFuel([function](CFuelSettings& fuel) { fuel.setFuelFunction(function); });
        const CRaceMember member = fixture.make().raceMember(1);
        QVERIFY(member.fuelEnabled());
        QCOMPARE(member.refuelStartPin(), start);
        QCOMPARE(member.refuelEndPin(), end);
    }
}

void tst_CRaceSetup::withoutFuelFunctionTheRefuellingPinsStay0()
{
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.fuelSensorSetup = 4; });
    const CRaceMember member = fixture.make().raceMember(1);
    QVERIFY(!member.fuelEnabled());
    QCOMPARE(member.refuelStartPin(), 0);
    QCOMPARE(member.refuelEndPin(), 0);
}

void tst_CRaceSetup::fuelRulesReachTheMember()
{
    RaceFixture fixture;
    fixture.changeFuel([](CFuelSettings& fuel) {
        fuel.setFuelFunction(CFuelSettings::FuelOfEachCar);
        fuel.setRefuelInterval(QTime(0, 0, 1, 250));
        fuel.setRefuelAmount(7.5);
        fuel.setEmptyFuelReaction(CRaceMember::PenaltyPerLap);
        fuel.setEmptyFuelPenaltyTime(QTime(0, 0, 9, 1));
    });
    const CRaceMember member = fixture.make().raceMember(0);
    QCOMPARE(member.refuelInterval(), 1250);
    QCOMPARE(member.refuelAmount(), 7.5);
    QCOMPARE(member.emptyReaction(), int(CRaceMember::PenaltyPerLap));
    QCOMPARE(member.emptyPenaltyTime(), 9001);
}

void tst_CRaceSetup::fuelFunction0SwitchesConsumptionOffAndFillsTheTank()
{
    RaceFixture fixture;
    CCar car;
    car.setFuelPercent(10);
    fixture.raceSettings.setCar(0, car);
    const CFuelTank tank = fixture.make().raceMember(0).car().fuelTank();
    QVERIFY(!tank.consumptionEnabled());
    QCOMPARE(tank.level(), 100.0);
}

void tst_CRaceSetup::fuelFunction1KeepsTheTankOfTheCarAndFillsIt()
{
    RaceFixture fixture;
    CFuelTank own;
    own.setTankSizeAndReserveLevel(40.0, 8.0);
    own.setMaxUsage(4.0, 3000);
    own.setMinUsage(2.0, 6000);
    own.setLevel(1.0);
    own.setConsumptionEnabled(false);
    CCar car;
    car.setFuelTank(own);
    fixture.raceSettings.setCar(0, car);
    fixture.changeFuel([](CFuelSettings& fuel) { fuel.setFuelFunction(CFuelSettings::FuelOfEachCar); });
    const CFuelTank tank = fixture.make().raceMember(0).car().fuelTank();
    QVERIFY(tank.consumptionEnabled());
    QCOMPARE(tank.level(), 40.0);
    QCOMPARE(tank.tankSize(), 40.0);
    QCOMPARE(tank.reserveLevel(), 8.0);
    QCOMPARE(tank.maxUsageAmount(), 4.0);
    QCOMPARE(tank.maxUsageTime(), 3000U);
    QCOMPARE(tank.minUsageAmount(), 2.0);
    QCOMPARE(tank.minUsageTime(), 6000U);
}

void tst_CRaceSetup::fuelFunction2OverwritesTheTankAndFillsIt()
{
    RaceFixture fixture;
    CFuelTank own;
    own.setConsumptionEnabled(false);
    CCar car;
    car.setFuelTank(own);
    fixture.raceSettings.setCar(1, car);
    fixture.changeFuel([](CFuelSettings& fuel) {
        fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
        fuel.setTankSize(250.0);
        fuel.setReserveLevel(30.0);
        fuel.setMaxFuelUsageAmount(6.0);
        fuel.setMaxFuelUsageTime(QTime(0, 0, 4, 500));
        fuel.setMinFuelUsageAmount(1.5);
        fuel.setMinFuelUsageTime(QTime(0, 1, 7, 250));
    });
    const CFuelTank tank = fixture.make().raceMember(1).car().fuelTank();
    QVERIFY(tank.consumptionEnabled());
    QCOMPARE(tank.tankSize(), 250.0);
    QCOMPARE(tank.level(), 250.0);
    QCOMPARE(tank.reserveLevel(), 30.0);
    QCOMPARE(tank.maxUsageAmount(), 6.0);
    QCOMPARE(tank.maxUsageTime(), 4500U);
    QCOMPARE(tank.minUsageAmount(), 1.5);
    QCOMPARE(tank.minUsageTime(), 67250U);
    // The car of the settings keeps its own tank.
    QCOMPARE(fixture.raceSettings.car(1).fuelTank().tankSize(), 100.0);
}

void tst_CRaceSetup::fuelFunction2CapsTheReserveToTheSize()
{
    RaceFixture fixture;
    fixture.changeFuel([](CFuelSettings& fuel) {
        fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
        fuel.setTankSize(20.0);
        fuel.setReserveLevel(30.0);
    });
    QCOMPARE(fixture.make().raceMember(0).car().fuelTank().reserveLevel(), 20.0);
}

void tst_CRaceSetup::racewayWithNineTracksHasAMemberWithoutSensors()
{
    RaceFixture fixture(9);
    fixture.usePowerSwitches();
    CRace& race = fixture.start();
    QCOMPARE(race.numberOfMembers(), 9);
    QCOMPARE(race.raceMember(8).startSensorPin(), 0);
    QCOMPARE(race.raceMember(8).driver().name(), QStringLiteral("Default"));
    race.trackPower(8, false);
    QCOMPARE(fixture.take(), QStringList({"power 8 off"}));
    race.vStop();
    QCOMPARE(fixture.status(8), 6);
}

void tst_CRaceSetup::racewayWithoutTracksHasNoMembers()
{
    RaceFixture fixture(0);
    CRace& race = fixture.start();
    QCOMPARE(race.numberOfMembers(), 0);
    fixture.sensorsAt(1000, {1});
    race.vStop();
    QVERIFY(!race.isRaceActive());
}

void tst_CRaceSetup::interfaceIsMadeFromTheRacewaysSettings()
{
    RaceFixture fixture;
    const CRace& race = fixture.make();
    QCOMPARE(fixture.ioBlob, QByteArray("blob"));
    const auto* io = static_cast<TestSupport::FakeRacewayIo*>(race.io());
    QCOMPARE(io->raceReceiver(), &race);
}

void tst_CRaceSetup::interfaceIsMadeAnewAtEachStart()
{
    RaceFixture fixture;
    CRace& race = fixture.make();
    fixture.take();
    race.vStartQuickRace();
    QCOMPARE(fixture.take(QStringLiteral("^(create|delete|start|stop|stopped)$")),
             QStringList({"stop", "delete", "create", "start"}));
    race.vStop();
    QCOMPARE(fixture.take(QStringLiteral("^(create|delete|start|stop|stopped)$")),
             QStringList({"stop", "stopped"}));
}

void tst_CRaceSetup::at2560IsStartedAtOnce()
{
    RaceFixture fixture;
    fixture.ioType = CRacewayIo::LtAt2560;
    fixture.make();
    QCOMPARE(fixture.take(), QStringList({"create", "start"}));
}

void tst_CRaceSetup::at2560IsKeptWhileItsSettingsAreTheSame()
{
    RaceFixture fixture;
    fixture.ioType = CRacewayIo::LtAt2560;
    CRace& race = fixture.make();
    const CRacewayIo* first = race.io();
    fixture.take();
    fixture.changeRaceway([](CRaceway& raceway) { raceway.pwrOffFeatureAvailable = true; });
    race.vStartQuickRace();
    QCOMPARE(fixture.take(QStringLiteral("^(create|delete|start|stop|stopped|10 on)$")),
             QStringList({"stop", "stopped", "start", "10 on", "start"}));
    QCOMPARE(race.io(), first);
}

void tst_CRaceSetup::at2560IsReplacedWhenItsSettingsDiffer()
{
    RaceFixture fixture;
    fixture.ioType = CRacewayIo::LtAt2560;
    CRace& race = fixture.make();
    fixture.take();
    fixture.changeRaceway([](CRaceway& raceway) { raceway.ioSettings = QByteArray("other"); });
    race.adaptToRaceway();
    QCOMPARE(fixture.take(), QStringList({"stop", "stopped", "delete", "create", "start"}));
    QCOMPARE(fixture.ioBlob, QByteArray("other"));
}

void tst_CRaceSetup::otherInterfaceIsNotKeptForTheSameSettings()
{
    RaceFixture fixture;
    fixture.ioType = CRacewayIo::CarreraCu;
    CRace& race = fixture.make();
    fixture.take();
    race.adaptToRaceway();
    QCOMPARE(fixture.take(), QStringList({"stop", "delete", "create"}));
}

void tst_CRaceSetup::adaptingToARacewayChangesMembersAndInterface()
{
    RaceFixture fixture(2);
    CRace& race = fixture.make();
    CRaceway other(5);
    other.ioSettings = QByteArray("other");
    other.externalLightsAvailable = true;
    fixture.raceSettings.setRaceway(other);
    fixture.take();
    race.adaptToRaceway();
    QCOMPARE(race.numberOfMembers(), 5);
    QCOMPARE(fixture.ioBlob, QByteArray("other"));
    QCOMPARE(fixture.take(), QStringList({"stop", "delete", "create"}));
    race.vStop();
    QVERIFY(fixture.take().contains(QStringLiteral("18 off")));
}

void tst_CRaceSetup::runningInterfaceIsWaitedForBeforeItGoes()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    race.adaptToRaceway();
    QCOMPARE(fixture.take(), QStringList({"stop", "stopped", "delete", "create"}));
    race.io()->start();
    fixture.take();
    fixture.destroyRace();
    QCOMPARE(fixture.take(), QStringList({"stop", "stopped", "delete"}));
}

void tst_CRaceSetup::raceOutlivesItsSettings()
{
    QStringList log;
    auto settings = std::make_unique<CSettings>();
    auto raceSettings = std::make_unique<CRaceSettings>();
    const auto createIo = [&log](const QByteArray&) {
        return std::make_unique<TestSupport::FakeRacewayIo>(&log);
    };
    auto race =
        std::make_unique<CRace>(settings.get(), raceSettings.get(), CRace::Surroundings{createIo, {}});
    settings.reset();
    raceSettings.reset();
    race.reset();
    QCOMPARE(log, QStringList({"stop", "delete"}));
}

void tst_CRaceSetup::setRaceSettingsTakesTheRules()
{
    RaceFixture fixture;
    CRace& race = fixture.make();
    CRaceSettings other = fixture.raceSettings;
    other.setNumberOfLaps(77);
    race.setRaceSettings(other);
    QCOMPARE(fixture.raceSettings.numberOfLaps(), 77);
    QCOMPARE(race.raceSettingsCopy().numberOfLaps(), 77);
}

void tst_CRaceSetup::setRaceSettingsDuringARaceHasNoEffect()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    CRaceSettings other = fixture.raceSettings;
    other.setNumberOfLaps(77);
    race.setRaceSettings(other);
    QCOMPARE(fixture.raceSettings.numberOfLaps(), 25);
    race.vStop();
    race.setRaceSettings(other);
    QCOMPARE(fixture.raceSettings.numberOfLaps(), 77);
}

void tst_CRaceSetup::startSwitchesAllTracksOn()
{
    RaceFixture fixture(2);
    fixture.usePowerSwitches();
    CRace& race = fixture.make();
    fixture.take();
    race.vStartQuickRace();
    QCOMPARE(fixture.take(QStringLiteral("^(1\\d o|power)")),
             QStringList({"10 on", "power 0 on", "11 on", "power 1 on"}));
    QVERIFY(race.raceMember(0).powerOn());
}

void tst_CRaceSetup::racewayWithoutPowerSwitchesSwitchesNothing()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    race.allTracksPower(true);
    race.trackPower(0, true);
    race.trackPowerToggle(0);
    QCOMPARE(fixture.take(), QStringList());
    QVERIFY(!race.raceMember(0).powerOn());
}

void tst_CRaceSetup::powerOfATrackOutOfRangeIsIgnored()
{
    RaceFixture fixture(2);
    fixture.usePowerSwitches();
    CRace& race = fixture.start();
    for (const int track : {-1, 2, 8}) {
        race.trackPower(track, true);
        race.trackPowerToggle(track);
    }
    QCOMPARE(fixture.take(), QStringList());
}

void tst_CRaceSetup::powerOfAllTracksGoesInTrackOrder()
{
    RaceFixture fixture(3);
    fixture.usePowerSwitches();
    CRace& race = fixture.start();
    race.allTracksPower(false);
    QCOMPARE(fixture.take(QStringLiteral("power")),
             QStringList({"power 0 off", "power 1 off", "power 2 off"}));
}

void tst_CRaceSetup::togglingSwitchesToTheOpposite()
{
    RaceFixture fixture;
    fixture.usePowerSwitches();
    CRace& race = fixture.start();
    race.trackPowerToggle(1);
    race.trackPowerToggle(1);
    QCOMPARE(fixture.take(), QStringList({"11 off", "power 1 off", "11 on", "power 1 on"}));
}

void tst_CRaceSetup::afterAStopThePowerCanBeToggledOnByHand()
{
    RaceFixture fixture;
    fixture.usePowerSwitches();
    CRace& race = fixture.start();
    race.vStop();
    QCOMPARE(fixture.take(QStringLiteral("power")), QStringList({"power 0 off", "power 1 off"}));
    race.trackPowerToggle(1);
    QCOMPARE(fixture.take(), QStringList({"11 on", "power 1 on"}));
    QVERIFY(race.raceMember(1).powerOn());
}

void tst_CRaceSetup::powerStaysOnAfterTheRaceIfTheSettingsSaySo()
{
    RaceFixture fixture;
    fixture.usePowerSwitches();
    fixture.raceSettings.setLeavePowerOnWhenRaceStopped(true);
    fixture.start().vStop();
    QCOMPARE(fixture.take(QStringLiteral("power")), QStringList({"power 0 on", "power 1 on"}));
}

QTEST_GUILESS_MAIN(tst_CRaceSetup)
#include "tst_CRaceSetup.moc"
