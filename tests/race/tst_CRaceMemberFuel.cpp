#include "race/CRaceMember.h"
#include "support/MemberSensors.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr int Began = CRaceMember::LapBegan;
constexpr int Ended = CRaceMember::LapEnded;
constexpr int Reserve = CRaceMember::TankOnReserve;
constexpr int Empty = CRaceMember::TankEmpty;

/** Each lap takes @p usage; reserve below 15. */
CCar carWith(double level, double usage)
{
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(100.0, 15.0);
    tank.setMaxUsage(usage, 1000);
    tank.setMinUsage(usage, 5000);
    tank.setLevel(level);
    CCar car;
    car.setFuelTank(tank);
    return car;
}

void prepare(CRaceMember& member, double level, double usage, int reaction)
{
    useOneSensor(member);
    member.setFuelEnabled(true);
    member.setRefuelInterval(100);
    member.setRefuelAmount(10.0);
    member.setEmptyReaction(reaction);
    member.setEmptyPenaltyTime(5000);
    member.setCar(carWith(level, usage));
}

double levelOf(const CRaceMember& member)
{
    return member.car().fuelTank().level();
}

/** One tick of the refuelling timer. */
void tick(CRaceMember& member)
{
    QVERIFY(QMetaObject::invokeMethod(&member, "refuel", Qt::DirectConnection));
}

} // namespace

/** Consumption, the reactions to an empty tank, and refuelling. */
class tst_CRaceMemberFuel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lessFuelThanALapNeedsEmptiesTheTankAndTheLapCounts();
    void anIntervalOf100MsAndAnAmountOf10FillATankOf100InOneSecond();
    void aPercentageAtOrAboveTheMaximumUsageCountsAsRefuelled_data();
    void aPercentageAtOrAboveTheMaximumUsageCountsAsRefuelled();
    void aPenaltyLengthensTheLapAndNotTheStartOfTheNext();
    void withoutConsumptionLapsNeverChangeTheLevel();

    void aLapOnReserveIsReported();
    void theLapTimeDecidesTheConsumption();
    void emptyReactions_data();
    void emptyReactions();
    void onReserveAndEnoughKeepBlockAndPenalty();
    void aCopyOfABlockedMemberIsBlocked();
    void blockedLapsLeaveNoTrace();
    void aBlockedMemberCountsAgainAfterRefuelling();
    void thePenaltyComesWithEveryLapUntilRefuelling();
    void aPenaltyCountsForTheBestLapAndTheSectors();

    void aSingleSensorRefuelsWhileItIsActive();
    void aZoneRefuelsFromItsFirstSensorToItsSecond();
    void bothSensorsOfAZoneAtOnceRefuel();
    void theTimerIsNotRestartedByFurtherEvents();
    void withoutFuelNothingRefuels();
    void aPausedMemberDoesNotRefuel();
    void aTickStopsAtTheSizeAndUpdatesTheDisplay();
    void everyTickAboveTheThresholdIsReported();
    void resetStopsRefuellingAndClearsBlockAndPenalty();
    void aCopyHasAStoppedTimerOfItsOwn();
    void theTimerRefuels();
    void fuelPercentGoesToTheTank();
};

void tst_CRaceMemberFuel::lessFuelThanALapNeedsEmptiesTheTankAndTheLapCounts()
{
    CRaceMember member;
    prepare(member, 0.5, 1.0, CRaceMember::BlockLapCounting);
    cross(member, 1000);
    QCOMPARE(cross(member, 3000), Ended | Began | Empty);
    QCOMPARE(levelOf(member), 0.0);
    QCOMPARE(member.numberOfLaps(), 1);
    QVERIFY(member.isTankEmpty());
}

void tst_CRaceMemberFuel::anIntervalOf100MsAndAnAmountOf10FillATankOf100InOneSecond()
{
    CRaceMember member;
    prepare(member, 0.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    QVector<int> percents;
    connect(&member, &CRaceMember::update, this, [&] { percents.append(member.fuelPercent()); });
    QElapsedTimer clock;
    clock.start();
    member.processRefuelSensors(active({Pin::Fuel}), 1000);
    QTRY_VERIFY_WITH_TIMEOUT(percents.contains(100), 20000);
    QVERIFY(clock.elapsed() >= 900); // ten ticks can't come sooner
    QCOMPARE(percents.mid(0, 10), QVector<int>({10, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
}

void tst_CRaceMemberFuel::aPercentageAtOrAboveTheMaximumUsageCountsAsRefuelled_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("level");
    QTest::addColumn<bool>("enough");
    QTest::newRow("6 percent") << 100.0 << 6.0 << true;
    QTest::newRow("5 percent") << 100.0 << 5.0 << true;
    QTest::newRow("4 percent") << 100.0 << 4.0 << false;
    QTest::newRow("4.9 percent, cut") << 100.0 << 4.9 << false;
    QTest::newRow("3 of 50 are 6 percent, less than a lap") << 50.0 << 3.0 << true;
    QTest::newRow("8 of 200 are 4 percent, more than a lap") << 200.0 << 8.0 << false;
}

void tst_CRaceMemberFuel::aPercentageAtOrAboveTheMaximumUsageCountsAsRefuelled()
{
    QFETCH(double, size);
    QFETCH(double, level);
    QFETCH(bool, enough);
    CRaceMember member(CRacewayTrack(), 6);
    prepare(member, 0.0, 5.0, CRaceMember::BlockLapCounting);
    cross(member, 1000);
    cross(member, 3000);
    QVERIFY(member.lapCountingBlocked());
    CFuelTank tank = member.car().fuelTank();
    tank.setTankSizeAndReserveLevel(size, 15.0);
    CCar car;
    car.setFuelTank(tank);
    member.setCar(car);
    member.setRefuelAmount(level);
    QSignalSpy refuelled(&member, &CRaceMember::refuelEnoughForAtLeastOneLap);
    tick(member);
    QCOMPARE(levelOf(member), level);
    QCOMPARE(refuelled.size(), enough ? 1 : 0);
    QCOMPARE(member.lapCountingBlocked(), !enough);
    if (enough)
        QCOMPARE(refuelled.at(0).at(0).toInt(), 6);
}

void tst_CRaceMemberFuel::aPenaltyLengthensTheLapAndNotTheStartOfTheNext()
{
    CRaceMember member;
    prepare(member, 0.5, 1.0, CRaceMember::PenaltyPerLap);
    cross(member, 1000);
    QCOMPARE(cross(member, 3000), Ended | Began | Empty);
    QCOMPARE(member.lap(0).lapTime, 2000);
    cross(member, 7000);
    QCOMPARE(member.lap(1).lapTime, 9000);
    QCOMPARE(member.lap(1).lapEndTime, 12000);
    QCOMPARE(member.currentLap().lapStartTime, 7000);
    // The end filter knows the sensor's time, not the end with the penalty.
    QCOMPARE(cross(member, 7200), Ended | Began | Empty);
    QCOMPARE(member.lap(2).lapTime, 5200);
}

void tst_CRaceMemberFuel::withoutConsumptionLapsNeverChangeTheLevel()
{
    CRaceMember member;
    prepare(member, 100.0, 50.0, CRaceMember::BlockLapCounting);
    member.setFuelEnabled(false);
    CFuelTank tank = member.car().fuelTank();
    tank.setConsumptionEnabled(false);
    CCar car;
    car.setFuelTank(tank);
    member.setCar(car);
    cross(member, 1000);
    for (quint32 lap = 1; lap <= 20; ++lap)
        QCOMPARE(cross(member, 1000 + lap * 2000), Ended | Began);
    QCOMPARE(levelOf(member), 100.0);

    // A control unit moves the level: reported, but without a reaction.
    member.setFuelPercent(10);
    QCOMPARE(cross(member, 43000), Ended | Began | Reserve);
    member.setFuelPercent(0);
    QCOMPARE(cross(member, 45000), Ended | Began | Empty);
    QVERIFY(!member.lapCountingBlocked());
    QCOMPARE(cross(member, 47000), Ended | Began | Empty);
}

void tst_CRaceMemberFuel::aLapOnReserveIsReported()
{
    CRaceMember member;
    prepare(member, 20.0, 5.0, CRaceMember::BlockLapCounting);
    cross(member, 1000);
    QCOMPARE(cross(member, 3000), Ended | Began);
    QCOMPARE(levelOf(member), 15.0);
    QCOMPARE(cross(member, 5000), Ended | Began | Reserve);
    QCOMPARE(cross(member, 6000), Ended | Began | Reserve | CRaceMember::NewBestLap);
}

void tst_CRaceMemberFuel::theLapTimeDecidesTheConsumption()
{
    CRaceMember member;
    prepare(member, 100.0, 5.0, CRaceMember::BlockLapCounting);
    CFuelTank tank = member.car().fuelTank();
    tank.setMinUsage(1.0, 5000);
    CCar car;
    car.setFuelTank(tank);
    member.setCar(car);
    cross(member, 1000);
    cross(member, 2000);
    QCOMPARE(levelOf(member), 95.0);
    cross(member, 5000);
    QCOMPARE(levelOf(member), 92.0);
    cross(member, 10000);
    QCOMPARE(levelOf(member), 91.0);
}

void tst_CRaceMemberFuel::emptyReactions_data()
{
    QTest::addColumn<bool>("fuelEnabled");
    QTest::addColumn<int>("reaction");
    QTest::addColumn<bool>("blocked");
    QTest::addColumn<int>("penalty");

    QTest::newRow("laps don't count") << true << 0 << true << 0;
    QTest::newRow("power off") << true << 1 << false << 0;
    QTest::newRow("penalty") << true << 2 << false << 5000;
    QTest::newRow("stutter") << true << 3 << false << 0;
    QTest::newRow("no fuel: laps don't count") << false << 0 << false << 0;
    QTest::newRow("no fuel: power off") << false << 1 << false << 0;
    QTest::newRow("no fuel: penalty") << false << 2 << false << 0;
    QTest::newRow("no fuel: stutter") << false << 3 << false << 0;
}

void tst_CRaceMemberFuel::emptyReactions()
{
    QFETCH(bool, fuelEnabled);
    QFETCH(int, reaction);
    QFETCH(bool, blocked);
    QFETCH(int, penalty);

    CRaceMember member;
    prepare(member, 1.0, 1.0, reaction);
    member.setFuelEnabled(fuelEnabled);
    cross(member, 1000);
    QCOMPARE(cross(member, 3000), Ended | Began | Empty);
    QCOMPARE(member.numberOfLaps(), 1);
    QCOMPARE(member.lap(0).lapTime, 2000);
    QCOMPARE(member.lapCountingBlocked(), blocked);
    QCOMPARE(member.activePenalty(), penalty);
}

void tst_CRaceMemberFuel::onReserveAndEnoughKeepBlockAndPenalty()
{
    CRaceMember member;
    prepare(member, 0.5, 1.0, CRaceMember::PenaltyPerLap);
    cross(member, 1000);
    cross(member, 3000);
    QCOMPARE(member.activePenalty(), 5000);
    member.setFuelPercent(10); // not by refuelling
    QCOMPARE(cross(member, 5000), Ended | Began | Reserve);
    QCOMPARE(member.activePenalty(), 5000);
    member.setFuelPercent(90);
    QCOMPARE(cross(member, 7000), Ended | Began);
    QCOMPARE(member.activePenalty(), 5000);
}

void tst_CRaceMemberFuel::aCopyOfABlockedMemberIsBlocked()
{
    CRaceMember member;
    prepare(member, 0.5, 1.0, CRaceMember::BlockLapCounting);
    cross(member, 1000);
    cross(member, 3000);
    CRaceMember copy(member);
    QVERIFY(copy.lapCountingBlocked());
    QCOMPARE(cross(copy, 5000), Began);
}

void tst_CRaceMemberFuel::blockedLapsLeaveNoTrace()
{
    CRaceMember member;
    CRacewayTrack track;
    track.length = 1000;
    member.setTrack(track);
    prepare(member, 0.5, 1.0, CRaceMember::BlockLapCounting);
    cross(member, 1000);
    cross(member, 3000);
    QCOMPARE(cross(member, 5000), Began);
    QCOMPARE(member.currentLap().lapStartTime, 5000);
    QCOMPARE(cross(member, 7000), Began);
    QCOMPARE(member.numberOfLaps(), 1);
    QCOMPARE(member.totalLapTime(), 2000);
    QCOMPARE(member.car().distanceDriven(), 1000);
}

void tst_CRaceMemberFuel::aBlockedMemberCountsAgainAfterRefuelling()
{
    CRaceMember member;
    prepare(member, 0.5, 5.0, CRaceMember::BlockLapCounting);
    cross(member, 1000);
    cross(member, 3000);
    cross(member, 5000);
    tick(member); // 10 of 100: still below the reserve of 15
    QVERIFY(!member.lapCountingBlocked());
    QCOMPARE(cross(member, 8000), Ended | Began | Reserve);
    QCOMPARE(member.numberOfLaps(), 2);
    QCOMPARE(member.lap(1).lapTime, 3000);
}

void tst_CRaceMemberFuel::thePenaltyComesWithEveryLapUntilRefuelling()
{
    CRaceMember member;
    prepare(member, 0.5, 5.0, CRaceMember::PenaltyPerLap);
    cross(member, 1000);
    cross(member, 3000);
    cross(member, 5000);
    cross(member, 7000);
    QCOMPARE(member.lap(0).lapTime, 2000);
    QCOMPARE(member.lap(1).lapTime, 7000);
    QCOMPARE(member.lap(2).lapTime, 7000);
    QCOMPARE(member.totalLapTime(), 16000);
    tick(member);
    QCOMPARE(member.activePenalty(), 0);
    cross(member, 9000);
    QCOMPARE(member.lap(3).lapTime, 2000);
}

void tst_CRaceMemberFuel::aPenaltyCountsForTheBestLapAndTheSectors()
{
    CRaceMember member;
    prepare(member, 0.5, 5.0, CRaceMember::PenaltyPerLap);
    cross(member, 1000);
    cross(member, 4000);
    member.processSensors(active({Pin::Sector2}), 4500);
    QCOMPARE(cross(member, 5000), Ended | Began | Empty); // 1 s and 5 s of penalty: no best lap
    QCOMPARE(member.lap(1).sector1Time, 500);
    QCOMPARE(member.lap(1).sector2Time, 5500);
    QCOMPARE(member.bestLapIndex(), 0);
}

void tst_CRaceMemberFuel::aSingleSensorRefuelsWhileItIsActive()
{
    CRaceMember member;
    prepare(member, 50.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    member.processRefuelSensors(active({Pin::Start}), 1000);
    QVERIFY(!member.isRefuelling());
    member.processRefuelSensors(active({Pin::Fuel}), 1100);
    QVERIFY(member.isRefuelling());
    member.processRefuelSensors(active({Pin::Fuel, Pin::Start}), 1200);
    QVERIFY(member.isRefuelling());
    member.processRefuelSensors(active({}), 1300);
    QVERIFY(!member.isRefuelling());
}

void tst_CRaceMemberFuel::aZoneRefuelsFromItsFirstSensorToItsSecond()
{
    CRaceMember member;
    prepare(member, 50.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    member.setRefuelEndPin(Pin::FuelFinished);
    member.processRefuelSensors(active({Pin::FuelFinished}), 900);
    QVERIFY(!member.isRefuelling());
    member.processRefuelSensors(active({Pin::Fuel}), 1000);
    QVERIFY(member.isRefuelling());
    member.processRefuelSensors(active({}), 1100);
    QVERIFY(member.isRefuelling());
    member.processRefuelSensors(active({Pin::Start}), 1200);
    QVERIFY(member.isRefuelling());
    member.processRefuelSensors(active({Pin::FuelFinished}), 1300);
    QVERIFY(!member.isRefuelling());
}

void tst_CRaceMemberFuel::bothSensorsOfAZoneAtOnceRefuel()
{
    CRaceMember member;
    prepare(member, 50.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    member.setRefuelEndPin(Pin::FuelFinished);
    member.processRefuelSensors(active({Pin::Fuel, Pin::FuelFinished}), 1000);
    QVERIFY(member.isRefuelling());
}

void tst_CRaceMemberFuel::theTimerIsNotRestartedByFurtherEvents()
{
    CRaceMember member;
    prepare(member, 0.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    const auto* timer = member.findChild<QTimer*>();
    QVERIFY(timer != nullptr);
    member.processRefuelSensors(active({Pin::Fuel}), 1000);
    QCOMPARE(timer->interval(), 100);
    member.setRefuelInterval(200); // a new start would take it
    member.processRefuelSensors(active({Pin::Fuel}), 1001);
    QCOMPARE(timer->interval(), 100);
}

void tst_CRaceMemberFuel::withoutFuelNothingRefuels()
{
    CRaceMember member;
    prepare(member, 50.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    member.setFuelEnabled(false);
    member.processRefuelSensors(active({Pin::Fuel}), 1000);
    QVERIFY(!member.isRefuelling());
}

void tst_CRaceMemberFuel::aPausedMemberDoesNotRefuel()
{
    CRaceMember member;
    prepare(member, 50.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    member.pause();
    member.processRefuelSensors(active({Pin::Fuel}), 1000);
    QVERIFY(!member.isRefuelling());

    member.resume();
    member.processRefuelSensors(active({Pin::Fuel}), 2000);
    member.pause();
    QSignalSpy updates(&member, &CRaceMember::update);
    tick(member);
    QCOMPARE(levelOf(member), 50.0);
    QCOMPARE(updates.size(), 0);
    member.processRefuelSensors(active({}), 3000);
    QVERIFY(member.isRefuelling()); // a pause stops nothing in the timer
    member.resume();
    tick(member);
    QCOMPARE(levelOf(member), 60.0);
    member.processRefuelSensors(active({}), 4000);
    QVERIFY(!member.isRefuelling());
}

void tst_CRaceMemberFuel::aTickStopsAtTheSizeAndUpdatesTheDisplay()
{
    CRaceMember member(CRacewayTrack(), 3);
    prepare(member, 95.0, 5.0, CRaceMember::BlockLapCounting);
    QSignalSpy updates(&member, &CRaceMember::update);
    tick(member);
    QCOMPARE(levelOf(member), 100.0);
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.at(0), QVariantList({3, 0}));
}

void tst_CRaceMemberFuel::everyTickAboveTheThresholdIsReported()
{
    CRaceMember member;
    prepare(member, 0.0, 15.0, CRaceMember::BlockLapCounting);
    QSignalSpy refuelled(&member, &CRaceMember::refuelEnoughForAtLeastOneLap);
    tick(member);
    QCOMPARE(refuelled.size(), 0);
    tick(member);
    QCOMPARE(refuelled.size(), 1);
    tick(member);
    QCOMPARE(refuelled.size(), 2);
}

void tst_CRaceMemberFuel::resetStopsRefuellingAndClearsBlockAndPenalty()
{
    CRaceMember blocked;
    prepare(blocked, 0.5, 5.0, CRaceMember::BlockLapCounting);
    blocked.setRefuelStartPin(Pin::Fuel);
    cross(blocked, 1000);
    cross(blocked, 3000);
    blocked.processRefuelSensors(active({Pin::Fuel}), 3000);
    QVERIFY(blocked.isRefuelling());
    blocked.reset();
    QVERIFY(!blocked.isRefuelling());
    QVERIFY(!blocked.lapCountingBlocked());
    QVERIFY(blocked.isTankEmpty());

    CRaceMember punished;
    prepare(punished, 0.5, 5.0, CRaceMember::PenaltyPerLap);
    cross(punished, 1000);
    cross(punished, 3000);
    QCOMPARE(punished.activePenalty(), 5000);
    punished.reset();
    QCOMPARE(punished.activePenalty(), 0);
}

void tst_CRaceMemberFuel::aCopyHasAStoppedTimerOfItsOwn()
{
    CRaceMember member(CRacewayTrack(), 2);
    prepare(member, 50.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    member.processRefuelSensors(active({Pin::Fuel}), 1000);

    CRaceMember copy(member);
    CRaceMember assigned;
    prepare(assigned, 50.0, 5.0, CRaceMember::BlockLapCounting);
    assigned.setRefuelStartPin(Pin::Fuel);
    assigned.processRefuelSensors(active({Pin::Fuel}), 1000);
    assigned = member;
    QVERIFY(!copy.isRefuelling());
    QVERIFY(!assigned.isRefuelling());
    QVERIFY(member.isRefuelling());

    member.processRefuelSensors(active({}), 1100);
    copy.setRefuelInterval(1);
    QSignalSpy updates(&copy, &CRaceMember::update);
    copy.processRefuelSensors(active({Pin::Fuel}), 1200);
    QTRY_VERIFY(updates.size() >= 1);
    QVERIFY(levelOf(copy) > 50.0);
    QCOMPARE(levelOf(member), 50.0);
}

void tst_CRaceMemberFuel::theTimerRefuels()
{
    CRaceMember member;
    prepare(member, 0.0, 5.0, CRaceMember::BlockLapCounting);
    member.setRefuelStartPin(Pin::Fuel);
    member.setRefuelInterval(1);
    member.processRefuelSensors(active({Pin::Fuel}), 1000);
    QTRY_COMPARE(member.fuelPercent(), 100);
}

void tst_CRaceMemberFuel::fuelPercentGoesToTheTank()
{
    CRaceMember member;
    prepare(member, 50.0, 5.0, CRaceMember::BlockLapCounting);
    QCOMPARE(member.fuelPercent(), 50);
    member.setFuelPercent(7);
    QCOMPARE(levelOf(member), 7.0);
    member.setFuelPercent(101);
    QCOMPARE(levelOf(member), 7.0);
    QVERIFY(!member.isTankEmpty());
    member.setFuelPercent(0);
    QVERIFY(member.isTankEmpty());
}

QTEST_GUILESS_MAIN(tst_CRaceMemberFuel)
#include "tst_CRaceMemberFuel.moc"
