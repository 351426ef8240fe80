#include "data/CCarList.h"
#include "race/CRaceMember.h"
#include "shell/CTrackDisplay.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QAction>
#include <QProgressBar>
#include <QTest>

namespace {

constexpr int OneLap = 50; ///< percent of the tank that a lap takes, and that is enough for one
constexpr int Penalty = 5000;

/** A raceway of two tracks with a switchable power and tanks for two laps. */
StoredSetup setupWithFuel(int reaction, int fuelSensorSetup = 1)
{
    StoredSetup setup;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.raceway.fuelSensorSetup = fuelSensorSetup;
    setup.settings.setDisplayFuel(true);
    CFuelSettings fuel;
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    fuel.setTankSize(100);
    fuel.setReserveLevel(20);
    fuel.setMaxFuelUsageAmount(OneLap);
    fuel.setRefuelInterval(QTime(0, 0, 0, 20));
    fuel.setRefuelAmount(5);
    fuel.setEmptyFuelReaction(reaction);
    fuel.setEmptyFuelPenaltyTime(QTime::fromMSecsSinceStartOfDay(Penalty));
    fuel.setEmptyFuelStutterFrequency(8);
    setup.rules.setFuelSettings(fuel);
    return setup;
}

/** Drives until the tank of track 1 is empty; a zone that begins at the line is left at once. */
void driveTankEmpty(RunningProgram& program, int track, bool zoneBeginsAtTheLine = false)
{
    for (int crossing = 0; crossing < 20 && (crossing == 0 || program.fuel(track) > 0); ++crossing) {
        program.cross(track);
        if (zoneBeginsAtTheLine)
            program.tap(QStringLiteral("slot%1FuelEnd").arg(track));
    }
    QCOMPARE(program.fuel(track), 0);
}

void refuelForALap(RunningProgram& program, int track)
{
    const QString button = QStringLiteral("slot%1Fuel").arg(track);
    program.hold(button);
    QTRY_VERIFY(program.fuel(track) >= OneLap);
    program.release(button);
}

bool isOn(const RunningProgram& program, int track)
{
    return program.powerText(track) == QStringLiteral("Spur &%1 ausschalten").arg(track);
}

bool isOff(const RunningProgram& program, int track)
{
    return program.powerText(track) == QStringLiteral("Spur &%1 einschalten").arg(track);
}

} // namespace

/** Tanks run empty and are filled, in the running program. */
class tst_race_fuel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tankEmptiesLapByLapOnItsTrackAlone();
    void lapsOnAnEmptyTankDoNotCountUntilItIsRefuelled();
    void powerOfAnEmptyTankIsOffUntilItIsRefuelled();
    void lapsOnAnEmptyTankGetThePenaltyUntilItIsRefuelled();
    void emptyTanksStutterInStepUntilEachIsRefuelled();
    void racewayWithoutPowerSwitchingHasNoReactionOfPower_data();
    void racewayWithoutPowerSwitchingHasNoReactionOfPower();
    void refuellingFollowsTheSensorsOfTheRaceway_data();
    void refuellingFollowsTheSensorsOfTheRaceway();
    void pauseHoldsRefuellingUp();
    void tankOfTheCarInTheDatabaseCounts();
    void withoutFuelNothingIsConsumed();
    void newRaceBeginsWithAFullTankAndPower();
};

void tst_race_fuel::tankEmptiesLapByLapOnItsTrackAlone()
{
    setupWithFuel(CRaceMember::BlockLapCounting).write();
    RunningProgram program;
    QVERIFY(program.track(1)->findChild<QProgressBar*>("fuelBar")->isVisible());
    QVERIFY(program.startRace());
    QCOMPARE(program.fuel(1), 100);
    program.cross(1);
    QCOMPARE(program.fuel(1), 100);
    program.cross(1);
    QCOMPARE(program.fuel(1), 50);
    program.cross(1);
    QCOMPARE(program.fuel(1), 0);
    QCOMPARE(program.fuel(2), 100);
    QCOMPARE(program.laps(1), QString("002")); // the lap that empties the tank counts
}

void tst_race_fuel::lapsOnAnEmptyTankDoNotCountUntilItIsRefuelled()
{
    setupWithFuel(CRaceMember::BlockLapCounting).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveTankEmpty(program, 1);
    const QString lastLap = program.trackText(1, "lastLap");
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.laps(1), QString("002"));
    QCOMPARE(program.trackText(1, "lastLap"), lastLap);
    QCOMPARE(program.status(1), QString("läuft"));
    QVERIFY(isOn(program, 1));
    refuelForALap(program, 1);
    program.cross(1);
    QCOMPARE(program.laps(1), QString("003"));
}

void tst_race_fuel::powerOfAnEmptyTankIsOffUntilItIsRefuelled()
{
    setupWithFuel(CRaceMember::PowerOff).write();
    RunningProgram program;
    QVERIFY(isOff(program, 1));
    QVERIFY(program.startRace());
    QVERIFY(isOn(program, 1));
    driveTankEmpty(program, 1);
    QVERIFY(isOff(program, 1));
    QVERIFY(isOn(program, 2));
    program.cross(1); // it rolls on, and its laps count
    QCOMPARE(program.laps(1), QString("003"));
    QVERIFY(isOff(program, 1));
    refuelForALap(program, 1);
    QVERIFY(isOn(program, 1));
}

void tst_race_fuel::lapsOnAnEmptyTankGetThePenaltyUntilItIsRefuelled()
{
    setupWithFuel(CRaceMember::PenaltyPerLap).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveTankEmpty(program, 1);
    program.cross(1);
    program.cross(1);
    const QVector<int> laps = program.shownLaps(1);
    QCOMPARE(laps.size(), 4);
    QVERIFY2(laps[0] < Penalty && laps[1] < Penalty, "the lap that empties the tank is as long as it was");
    QVERIFY(laps[2] > Penalty);
    QVERIFY(laps[3] > Penalty);
    QVERIFY(laps[3] < 2 * Penalty); // the lap before it ended at its sensor, not with its penalty
    QCOMPARE(program.trackText(1, "bestLap"), RunningProgram::timeText(qMin(laps[0], laps[1])));
    refuelForALap(program, 1);
    program.cross(1);
    QVERIFY(program.shownLaps(1).last() < Penalty);
}

void tst_race_fuel::emptyTanksStutterInStepUntilEachIsRefuelled()
{
    setupWithFuel(CRaceMember::Stutter).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveTankEmpty(program, 1);
    QTRY_VERIFY(isOff(program, 1));
    QVERIFY(isOn(program, 2)); // a full tank doesn't stutter
    driveTankEmpty(program, 2);
    for (int change = 0; change < 2; ++change) {
        QTRY_VERIFY(isOff(program, 1) && isOff(program, 2));
        QTRY_VERIFY(isOn(program, 1) && isOn(program, 2));
    }
    refuelForALap(program, 1);
    for (int change = 0; change < 2; ++change) {
        QTRY_VERIFY(isOff(program, 2));
        QVERIFY(isOn(program, 1));
        QTRY_VERIFY(isOn(program, 2));
        QVERIFY(isOn(program, 1));
    }
    refuelForALap(program, 2);
    QVERIFY(!QTest::qWaitFor([&] { return isOff(program, 1) || isOff(program, 2); }, 200));
}

void tst_race_fuel::racewayWithoutPowerSwitchingHasNoReactionOfPower_data()
{
    QTest::addColumn<int>("reaction");
    QTest::newRow("power off") << int(CRaceMember::PowerOff);
    QTest::newRow("stutter") << int(CRaceMember::Stutter);
}

void tst_race_fuel::racewayWithoutPowerSwitchingHasNoReactionOfPower()
{
    QFETCH(int, reaction);
    StoredSetup setup = setupWithFuel(reaction);
    setup.raceway.pwrOffFeatureAvailable = false;
    setup.write();
    RunningProgram program;
    QVERIFY(!program.menu()->trackPowerActions()[0]->isVisible());
    QVERIFY(program.startRace());
    driveTankEmpty(program, 1);
    program.cross(1);
    QCOMPARE(program.laps(1), QString("003"));
    QVERIFY(!QTest::qWaitFor([&] { return program.powerText(1) != "Spur &1"; }, 100));
    refuelForALap(program, 1);
    QCOMPARE(program.powerText(1), QString("Spur &1"));
}

void tst_race_fuel::refuellingFollowsTheSensorsOfTheRaceway_data()
{
    QTest::addColumn<int>("fuelSensorSetup");
    QTest::addColumn<QString>("begin");
    QTest::addColumn<QString>("end");
    QTest::newRow("no separate sensors: as long as the car stands on the line") << 0 << "slot1"
                                                                                << "";
    QTest::newRow("one sensor: as long as the car stands on it") << 1 << "slot1Fuel"
                                                                 << "";
    QTest::newRow("zone from the line to an end sensor") << 2 << "slot1"
                                                         << "slot1FuelEnd";
    QTest::newRow("zone from a sensor to the line") << 3 << "slot1Fuel"
                                                    << "slot1";
    QTest::newRow("zone with two sensors") << 4 << "slot1Fuel"
                                           << "slot1FuelEnd";
}

void tst_race_fuel::refuellingFollowsTheSensorsOfTheRaceway()
{
    QFETCH(int, fuelSensorSetup);
    QFETCH(QString, begin);
    QFETCH(QString, end);
    setupWithFuel(CRaceMember::PowerOff, fuelSensorSetup).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveTankEmpty(program, 1, fuelSensorSetup == 2);
    QVERIFY(isOff(program, 1));

    program.hold(begin);
    if (!end.isEmpty())
        program.release(begin); // in a zone the filling goes on
    QTRY_VERIFY(program.fuel(1) >= OneLap);
    QVERIFY(isOn(program, 1));
    if (end.isEmpty())
        program.release(begin);
    else
        program.hold(end);
    const int filled = program.fuel(1);
    QVERIFY(!QTest::qWaitFor([&] { return program.fuel(1) > filled; }, 100));
    QCOMPARE(program.fuel(2), 100);
}

void tst_race_fuel::pauseHoldsRefuellingUp()
{
    StoredSetup setup = setupWithFuel(CRaceMember::BlockLapCounting, 4);
    CFuelSettings fuel = setup.rules.fuelSettings();
    fuel.setRefuelAmount(0.5); // so that the pause comes before the tank is full
    setup.rules.setFuelSettings(fuel);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveTankEmpty(program, 1);
    program.tap("slot1Fuel");
    QTRY_VERIFY(program.fuel(1) > 0);
    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    const int filled = program.fuel(1);
    QVERIFY(filled < 100);
    QVERIFY(!QTest::qWaitFor([&] { return program.fuel(1) != filled; }, 100));
    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    QTRY_VERIFY(program.fuel(1) > filled);
}

void tst_race_fuel::tankOfTheCarInTheDatabaseCounts()
{
    StoredSetup setup = setupWithFuel(CRaceMember::PowerOff);
    CFuelSettings fuel = setup.rules.fuelSettings();
    fuel.setFuelFunction(CFuelSettings::FuelOfEachCar);
    setup.rules.setFuelSettings(fuel);
    setup.write();
    {
        CCarList cars;
        CCar car = cars.carAt(0);
        CFuelTank tank = car.fuelTank();
        tank.setTankSizeAndReserveLevel(10, 2);
        tank.setMaxUsage(6, 4500);
        car.setFuelTank(tank);
        cars.updateCar(0, car);
    }
    RunningProgram program;
    QVERIFY(program.startRace());
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.fuel(1), 40);
    program.cross(1);
    QCOMPARE(program.fuel(1), 0);
    QVERIFY(isOff(program, 1));
}

void tst_race_fuel::withoutFuelNothingIsConsumed()
{
    StoredSetup setup = setupWithFuel(CRaceMember::BlockLapCounting);
    CFuelSettings fuel = setup.rules.fuelSettings();
    fuel.setFuelFunction(CFuelSettings::NoFuel);
    setup.rules.setFuelSettings(fuel);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 5; ++crossing)
        program.cross(1);
    QCOMPARE(program.laps(1), QString("004"));
    QCOMPARE(program.fuel(1), 100);
}

void tst_race_fuel::newRaceBeginsWithAFullTankAndPower()
{
    setupWithFuel(CRaceMember::PowerOff).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveTankEmpty(program, 1);
    program.stopRace();
    QVERIFY(isOff(program, 1) && isOff(program, 2));
    QVERIFY(program.startRace());
    QVERIFY(isOn(program, 1) && isOn(program, 2));
    QCOMPARE(program.fuel(1), 100);
    QCOMPARE(program.laps(1), QString("000"));
}

QTEST_APPLESS_MAIN(tst_race_fuel)
#include "tst_race_fuel.moc"
