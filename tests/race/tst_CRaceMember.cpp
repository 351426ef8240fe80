#include "race/CRaceMember.h"
#include "support/MemberSensors.h"

#include <QSignalSpy>
#include <QTest>

namespace {

constexpr int Began = CRaceMember::LapBegan;
constexpr int Ended = CRaceMember::LapEnded;
constexpr int Best = CRaceMember::NewBestLap;
constexpr int NoFlags = 0;

} // namespace

/** Laps, sectors and best laps; times and fuel have tests of their own. */
class tst_CRaceMember : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewMemberHasTheDefaults();
    void aMemberKnowsItsTrack();
    void aCopyHasEveryField();
    void aCopyFiltersLikeTheOriginal();
    void setStatusEmitsOnlyWhenItChanges();

    void oneSensorRefusesTheBounceAndTakesTheLap();
    void aLapShorterThanMinTimeStaysOpenAndBecomesOneLongLap();
    void aLapShorterThanMinTimeStaysOpenWithSeparateSensors();
    void theFirstLapAndAnEqualLapAreNoNewBestLap();
    void aSector3SensorWithoutSector2KeepsTheStamp();
    void afterAPauseTheFirstCrossingOnlyStartsALap_data();
    void afterAPauseTheFirstCrossingOnlyStartsALap();
    void theEndSensorTwiceInOneLapEndsItOnce();

    void oneSensorEndsAndBeginsOnOneStamp();
    void separateSensorsLeaveTheStretchBetweenThemOut();
    void theEndSensorBeforeAnyStartIsIgnored();
    void startAndEndSensorInOneEvent();
    void aSensorThatStaysActiveCountsOnce();
    void theLapTimeAtMinTime_data();
    void theLapTimeAtMinTime();
    void theFiltersCompareSignedAndTheLapUnsigned_data();
    void theFiltersCompareSignedAndTheLapUnsigned();
    void minTimeOfZeroAndBelowFiltersNothing_data();
    void minTimeOfZeroAndBelowFiltersNothing();
    void aBetterLapIsReportedAndKept();

    void sectorSensors_data();
    void sectorSensors();
    void threeSectorsOfALap();
    void aSectorSensorHasNoTimeFilter();
    void aSectorSensorTogetherWithTheStartSensorIsNotTaken();
    void pinsThatAreNotSetSeeNothing();
    void aShortSensorSetIsReadAsInactive();

    void aStoppedMemberIgnoresSensors();
    void pauseThrowsTheLapInProgressAway();
    void pauseKeepsTheFinishedLaps();
    void aSectorSensorAfterThePauseLeavesNoTraceInTheNextLap();
    void resetForgetsTheLapsAndKeepsTheRest();

    void aLapTakesAtMost64Bytes();
    void eventsThatChangeNothingLeaveTheLapsAlone();
};

void tst_CRaceMember::aNewMemberHasTheDefaults()
{
    const CRaceMember member;
    QCOMPARE(member.status(), CRaceMemberStatus::None);
    QCOMPARE(int(member.status()), 1);
    QCOMPARE(member.minTime(), 200);
    QCOMPARE(member.trackIndex(), 0);
    QCOMPARE(member.startSensorPin(), 0);
    QCOMPARE(member.endSensorPin(), 0);
    QCOMPARE(member.sector2Pin(), 0);
    QCOMPARE(member.sector3Pin(), 0);
    QCOMPARE(member.refuelStartPin(), 0);
    QCOMPARE(member.refuelEndPin(), 0);
    QCOMPARE(member.numberOfLaps(), 0);
    QCOMPARE(member.bestLapIndex(), 0);
    QCOMPARE(member.totalLapTime(), 0);
    QCOMPARE(member.currentLap().lapStartTime, 0);
    QVERIFY(!member.fuelEnabled());
    QVERIFY(!member.isStopped());
    QVERIFY(!member.lapOpen());
    QVERIFY(!member.powerOn());
}

void tst_CRaceMember::aMemberKnowsItsTrack()
{
    CRacewayTrack track = trackOfLength(1234);
    track.id = 8;
    track.powerOn = true;
    CRaceMember member(track, 5);
    QCOMPARE(member.trackIndex(), 5);
    QCOMPARE(member.track().length, 1234);
    QCOMPARE(member.track().id, 8);
    QCOMPARE(member.minTime(), 200);
    QVERIFY(member.powerOn());
    member.setPowerOn(false);
    QVERIFY(!member.powerOn());
    QVERIFY(!member.track().powerOn);
}

void tst_CRaceMember::aCopyHasEveryField()
{
    CRaceMember member(trackOfLength(1000), 3);
    useSeparateSensors(member);
    CCar car;
    car.setName("Porsche");
    member.setCar(car);
    CDriver driver;
    driver.setName("Anna");
    member.setDriver(driver);
    member.setMinTime(321);
    member.setRefuelStartPin(25);
    member.setRefuelEndPin(33);
    member.setFuelEnabled(true);
    member.setRefuelInterval(700);
    member.setRefuelAmount(1.5);
    member.setEmptyReaction(CRaceMember::PenaltyPerLap);
    member.setEmptyPenaltyTime(3000);
    member.setStatus(CRaceMemberStatus::Running);
    cross(member, 1000);
    crossEnd(member, 3000);
    cross(member, 3500);
    crossEnd(member, 5000);
    cross(member, 6000);
    member.setFuelPercent(0);
    crossEnd(member, 9000); // the tank is empty now, the penalty is active
    cross(member, 9500);
    member.pause();

    CRaceMember assigned;
    assigned = member;
    for (const CRaceMember& copy : {CRaceMember(member), CRaceMember(assigned)}) {
        QCOMPARE(copy.trackIndex(), 3);
        QCOMPARE(copy.track().length, 1000);
        QCOMPARE(copy.car().name(), QStringLiteral("Porsche"));
        QCOMPARE(copy.car().distanceDriven(), 3000);
        QCOMPARE(copy.driver().name(), QStringLiteral("Anna"));
        QCOMPARE(copy.minTime(), 321);
        QCOMPARE(copy.startSensorPin(), int(Pin::Start));
        QCOMPARE(copy.endSensorPin(), int(Pin::End));
        QCOMPARE(copy.sector2Pin(), int(Pin::Sector2));
        QCOMPARE(copy.sector3Pin(), int(Pin::Sector3));
        QCOMPARE(copy.refuelStartPin(), 25);
        QCOMPARE(copy.refuelEndPin(), 33);
        QVERIFY(copy.fuelEnabled());
        QCOMPARE(copy.refuelInterval(), 700);
        QCOMPARE(copy.refuelAmount(), 1.5);
        QCOMPARE(copy.emptyReaction(), int(CRaceMember::PenaltyPerLap));
        QCOMPARE(copy.emptyPenaltyTime(), 3000);
        QCOMPARE(copy.activePenalty(), 3000);
        QCOMPARE(copy.status(), CRaceMemberStatus::Running);
        QCOMPARE(copy.numberOfLaps(), 3);
        QCOMPARE(copy.bestLapIndex(), 1);
        QCOMPARE(copy.totalLapTime(), 6500);
        QVERIFY(copy.isStopped());
        QVERIFY(copy.lapOpen());
        QVERIFY(copy.isTankEmpty());
    }
}

void tst_CRaceMember::aCopyFiltersLikeTheOriginal()
{
    CRaceMember member;
    useSeparateSensors(member);
    cross(member, 1000);
    crossEnd(member, 6000);
    cross(member, 6300);
    CRaceMember copy(member);
    QCOMPARE(cross(copy, 6400), NoFlags);
    QCOMPARE(crossEnd(copy, 5900), NoFlags); // before the last end
    QCOMPARE(crossEnd(copy, 7000), Ended | Best);
}

void tst_CRaceMember::setStatusEmitsOnlyWhenItChanges()
{
    CRaceMember member(CRacewayTrack(), 2);
    QSignalSpy updates(&member, &CRaceMember::update);
    member.setStatus(CRaceMemberStatus::Waiting);
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.at(0).at(0).toInt(), 2);
    QCOMPARE(updates.at(0).at(1).toInt(), 0);
    member.setStatus(CRaceMemberStatus::Waiting);
    QCOMPARE(updates.size(), 1);
    member.setStatus(CRaceMemberStatus::Paused);
    QCOMPARE(updates.size(), 2);
    QCOMPARE(int(member.status()), 8);
}

void tst_CRaceMember::oneSensorRefusesTheBounceAndTakesTheLap()
{
    CRaceMember member;
    useOneSensor(member);
    QCOMPARE(cross(member, 1000), Began);
    QCOMPARE(cross(member, 1150), NoFlags);
    QCOMPARE(cross(member, 2000), Ended | Began);
    QCOMPARE(member.numberOfLaps(), 1);
    QCOMPARE(member.lap(0).lapTime, 1000);
    QCOMPARE(member.currentLap().lapStartTime, 2000);
}

void tst_CRaceMember::aLapShorterThanMinTimeStaysOpenAndBecomesOneLongLap()
{
    CRaceMember member;
    useOneSensor(member);
    member.setMinTime(3000);
    cross(member, 1000);
    QCOMPARE(cross(member, 3999), NoFlags);
    QVERIFY(member.lapOpen());
    QCOMPARE(cross(member, 7000), Ended | Began);
    QCOMPARE(member.numberOfLaps(), 1);
    QCOMPARE(member.lap(0).lapTime, 6000);
}

void tst_CRaceMember::aLapShorterThanMinTimeStaysOpenWithSeparateSensors()
{
    CRaceMember member;
    useSeparateSensors(member);
    cross(member, 1000);
    QCOMPARE(crossEnd(member, 1150), NoFlags);
    QVERIFY(member.lapOpen());
    QCOMPARE(crossEnd(member, 3000), int(Ended));
    QCOMPARE(member.lap(0).lapTime, 2000);
}

void tst_CRaceMember::theFirstLapAndAnEqualLapAreNoNewBestLap()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    QCOMPARE(cross(member, 2000), Ended | Began);
    QCOMPARE(member.bestLapIndex(), 0);
    QCOMPARE(cross(member, 3000), Ended | Began);
    QCOMPARE(member.bestLapIndex(), 0);
}

void tst_CRaceMember::aSector3SensorWithoutSector2KeepsTheStamp()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    QCOMPARE(member.processSensors(active({Pin::Sector3}), 1700), int(CRaceMember::Sector3Taken));
    cross(member, 3000);
    QCOMPARE(member.lap(0).lapTime, 2000);
    QCOMPARE(member.lap(0).sector1Time, 2000);
    QCOMPARE(member.lap(0).sector2Time, 1700);
    QCOMPARE(member.lap(0).sector3Time, 0);
}

void tst_CRaceMember::afterAPauseTheFirstCrossingOnlyStartsALap_data()
{
    QTest::addColumn<QVector<quint32>>("before");
    QTest::addColumn<quint32>("first");

    QTest::newRow("nothing before the pause") << QVector<quint32>{} << 5000U;
    QTest::newRow("a lap had begun") << QVector<quint32>{1000} << 5000U;
    QTest::newRow("laps had ended") << QVector<quint32>{1000, 2000, 3000} << 5000U;
    QTest::newRow("right behind the last crossing") << QVector<quint32>{1000, 2000} << 2001U;
    QTest::newRow("at the stamp of the last crossing") << QVector<quint32>{1000, 2000} << 2000U;
    QTest::newRow("with a clock that begins anew") << QVector<quint32>{1000, 2000} << 10U;
}

void tst_CRaceMember::afterAPauseTheFirstCrossingOnlyStartsALap()
{
    QFETCH(QVector<quint32>, before);
    QFETCH(quint32, first);
    CRaceMember member;
    useOneSensor(member);
    for (const quint32 time : before)
        cross(member, time);
    const int laps = member.numberOfLaps();
    member.pause();
    member.resume();
    QCOMPARE(cross(member, first), Began);
    QCOMPARE(member.numberOfLaps(), laps);
    QCOMPARE(member.currentLap().lapStartTime, int(first));
    QCOMPARE(cross(member, first + 4000) & ~Best, Ended | Began);
    QCOMPARE(member.lap(laps).lapTime, 4000);
}

void tst_CRaceMember::theEndSensorTwiceInOneLapEndsItOnce()
{
    CRaceMember member;
    useSeparateSensors(member);
    cross(member, 1000);
    QCOMPARE(crossEnd(member, 3000), int(Ended));
    QVERIFY(!member.lapOpen());
    QCOMPARE(crossEnd(member, 4000), NoFlags);
    QCOMPARE(member.numberOfLaps(), 1);
}

void tst_CRaceMember::oneSensorEndsAndBeginsOnOneStamp()
{
    CRaceMember member;
    useOneSensor(member);
    drive(member, {1500, 2500});
    QCOMPARE(member.lap(0).lapEndTime, 2500);
    QCOMPARE(member.lap(1).lapStartTime, 2500);
    QCOMPARE(member.lap(1).lapEndTime, 5000);
    QCOMPARE(member.currentLap().lapStartTime, 5000);
    QCOMPARE(member.totalLapTime(), 4000);
}

void tst_CRaceMember::separateSensorsLeaveTheStretchBetweenThemOut()
{
    CRaceMember member;
    useSeparateSensors(member);
    QCOMPARE(cross(member, 1000), Began);
    QCOMPARE(crossEnd(member, 3000), int(Ended));
    QCOMPARE(cross(member, 3700), Began);
    QCOMPARE(crossEnd(member, 5000), Ended | Best);
    QCOMPARE(member.lap(0).lapTime, 2000);
    QCOMPARE(member.lap(1).lapTime, 1300);
    QCOMPARE(member.totalLapTime(), 3300);
}

void tst_CRaceMember::theEndSensorBeforeAnyStartIsIgnored()
{
    CRaceMember member;
    useSeparateSensors(member);
    QCOMPARE(crossEnd(member, 1000), NoFlags);
    QVERIFY(!member.lapOpen());
    QCOMPARE(cross(member, 1100), Began);
}

void tst_CRaceMember::startAndEndSensorInOneEvent()
{
    CRaceMember member;
    useSeparateSensors(member);
    const QBitArray both = active({Pin::Start, Pin::End});
    QCOMPARE(member.processSensors(both, 1000), Began);
    QCOMPARE(member.processSensors(both, 2000), Ended | Began);
    QCOMPARE(member.lap(0).lapTime, 1000);
    QVERIFY(member.lapOpen());
}

void tst_CRaceMember::aSensorThatStaysActiveCountsOnce()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    QCOMPARE(cross(member, 5000), Ended | Began);
    // The car is still over the sensor while other tracks cause events.
    for (quint32 time = 5001; time < 5200; time += 33)
        QCOMPARE(cross(member, time), NoFlags);
    QCOMPARE(member.numberOfLaps(), 1);
    QCOMPARE(member.currentLap().lapStartTime, 5000);
}

void tst_CRaceMember::theLapTimeAtMinTime_data()
{
    QTest::addColumn<quint32>("second");
    QTest::addColumn<int>("flags");
    QTest::newRow("one less") << 1199U << int(NoFlags);
    QTest::newRow("exactly") << 1200U << (Ended | Began);
    QTest::newRow("one more") << 1201U << (Ended | Began);
}

void tst_CRaceMember::theLapTimeAtMinTime()
{
    QFETCH(quint32, second);
    QFETCH(int, flags);
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    QCOMPARE(cross(member, second), flags);
}

void tst_CRaceMember::theFiltersCompareSignedAndTheLapUnsigned_data()
{
    // Begin of a lap, end of it, begin of the next one; then the event looked at.
    QTest::addColumn<quint32>("firstStart");
    QTest::addColumn<quint32>("firstEnd");
    QTest::addColumn<quint32>("secondStart");
    QTest::addColumn<int>("pin");
    QTest::addColumn<quint32>("time");
    QTest::addColumn<int>("flags");

    const int start = Pin::Start;
    const int end = Pin::End;
    QTest::newRow("end filter across the unsigned wrap: far enough")
        << 0xfffff000U << 0xfffffff0U << 0xfffffff8U << end << 0x200U << (Ended | Best);
    QTest::newRow("end filter across the unsigned wrap: too close")
        << 0xfffff000U << 0xfffffff0U << 0xfffffff8U << end << 0x80U << int(NoFlags);
    QTest::newRow("end filter across the signed wrap: far enough")
        << 0x7ffff000U << 0x7ffffff0U << 0x7ffffff8U << end << 0x80000200U << (Ended | Best);
    QTest::newRow("end before the last end is refused")
        << 1000U << 6000U << 6300U << end << 5000U << int(NoFlags);
    QTest::newRow("end half the clock later is refused")
        << 1000U << 6000U << 6300U << end << 0x80000000U + 6000U << int(NoFlags);
    QTest::newRow("end a little less than half the clock later is taken")
        << 1000U << 6000U << 6300U << end << 0x7fffffffU + 6000U << int(Ended);
    QTest::newRow("start before the last start is refused")
        << 1000U << 6000U << 6300U << start << 5000U << int(NoFlags);
    QTest::newRow("start half the clock later is refused")
        << 1000U << 6000U << 6300U << start << 0x80000000U + 6300U << int(NoFlags);
    QTest::newRow("start a little less than half the clock later is taken")
        << 1000U << 6000U << 6300U << start << 0x7fffffffU + 6300U << int(Began);
    QTest::newRow("start across the unsigned wrap is taken")
        << 0xfffff000U << 0xfffffe00U << 0xffffff00U << start << 0x10U << int(Began);
    // The last end lies far enough back, and the lap began behind the event: its age is huge.
    QTest::newRow("end before the lap's start is taken")
        << 1000U << 6000U << 9000U << end << 8000U << (Ended | Best);
}

void tst_CRaceMember::theFiltersCompareSignedAndTheLapUnsigned()
{
    QFETCH(quint32, firstStart);
    QFETCH(quint32, firstEnd);
    QFETCH(quint32, secondStart);
    QFETCH(int, pin);
    QFETCH(quint32, time);
    QFETCH(int, flags);

    CRaceMember member;
    useSeparateSensors(member);
    QCOMPARE(cross(member, firstStart), Began);
    QCOMPARE(crossEnd(member, firstEnd), int(Ended));
    QCOMPARE(cross(member, secondStart), Began);
    QCOMPARE(member.processSensors(active({pin}), time), flags);
    if ((flags & Ended) != 0)
        QCOMPARE(member.lap(1).lapTime, int(time - secondStart));
}

void tst_CRaceMember::minTimeOfZeroAndBelowFiltersNothing_data()
{
    QTest::addColumn<int>("minTime");
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -5;
}

void tst_CRaceMember::minTimeOfZeroAndBelowFiltersNothing()
{
    QFETCH(int, minTime);
    CRaceMember member;
    useOneSensor(member);
    member.setMinTime(minTime);
    cross(member, 1000);
    QCOMPARE(cross(member, 1001), Ended | Began);
}

void tst_CRaceMember::aBetterLapIsReportedAndKept()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    QCOMPARE(cross(member, 4000), Ended | Began);
    QCOMPARE(cross(member, 6999), Ended | Began | Best);
    QCOMPARE(member.bestLapIndex(), 1);
    QCOMPARE(cross(member, 11000), Ended | Began);
    QCOMPARE(member.bestLapIndex(), 1);
    QCOMPARE(cross(member, 12000), Ended | Began | Best);
    QCOMPARE(member.bestLapIndex(), 3);
}

void tst_CRaceMember::sectorSensors_data()
{
    QTest::addColumn<bool>("lapOpen");
    QTest::addColumn<QVector<int>>("pins");
    QTest::addColumn<int>("flags");

    const int taken2 = CRaceMember::Sector2Taken;
    const int taken3 = CRaceMember::Sector3Taken;
    QTest::newRow("none") << true << QVector<int>{} << 0;
    QTest::newRow("sector 2") << true << QVector<int>{Pin::Sector2} << taken2;
    QTest::newRow("sector 3") << true << QVector<int>{Pin::Sector3} << taken3;
    QTest::newRow("both: sector 2 wins") << true << QVector<int>{Pin::Sector2, Pin::Sector3} << taken2;
    QTest::newRow("of another track") << true << QVector<int>{Pin::Sector2 + 1, Pin::Sector3 + 1} << 0;
    QTest::newRow("sector 2, no lap") << false << QVector<int>{Pin::Sector2} << 0;
    QTest::newRow("sector 3, no lap") << false << QVector<int>{Pin::Sector3} << 0;
    QTest::newRow("both, no lap") << false << QVector<int>{Pin::Sector2, Pin::Sector3} << 0;
}

void tst_CRaceMember::sectorSensors()
{
    QFETCH(bool, lapOpen);
    QFETCH(QVector<int>, pins);
    QFETCH(int, flags);

    CRaceMember member;
    useSeparateSensors(member);
    cross(member, 1000);
    if (!lapOpen)
        crossEnd(member, 2000);
    QBitArray sensors(PortId::Count);
    for (const int pin : pins)
        sensors.setBit(pin);
    QCOMPARE(member.processSensors(sensors, 2500), flags);
    QCOMPARE(member.currentLap().sector2BeginTime, flags == CRaceMember::Sector2Taken ? 2500 : 0);
    QCOMPARE(member.currentLap().sector3BeginTime, flags == CRaceMember::Sector3Taken ? 2500 : 0);
}

void tst_CRaceMember::threeSectorsOfALap()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    member.processSensors(active({Pin::Sector2}), 1700);
    member.processSensors(active({Pin::Sector3}), 2600);
    cross(member, 3900);
    QCOMPARE(member.lap(0).sector1Time, 700);
    QCOMPARE(member.lap(0).sector2Time, 900);
    QCOMPARE(member.lap(0).sector3Time, 1300);
    QCOMPARE(member.lap(0).lapTime, 2900);
    QCOMPARE(member.currentLap().sector1Time, 0);
}

void tst_CRaceMember::aSectorSensorHasNoTimeFilter()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    QCOMPARE(member.processSensors(active({Pin::Sector2}), 1001), int(CRaceMember::Sector2Taken));
    QCOMPARE(member.processSensors(active({Pin::Sector2}), 1002), int(CRaceMember::Sector2Taken));
    QCOMPARE(member.currentLap().sector2BeginTime, 1002);
    QCOMPARE(member.currentLap().sector1Time, 2);
}

void tst_CRaceMember::aSectorSensorTogetherWithTheStartSensorIsNotTaken()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    QCOMPARE(member.processSensors(active({Pin::Start, Pin::Sector2}), 1100), NoFlags);
    QCOMPARE(member.currentLap().sector2BeginTime, 0);
}

void tst_CRaceMember::pinsThatAreNotSetSeeNothing()
{
    CRaceMember member;
    QBitArray sensors(PortId::Count, true);
    sensors.clearBit(PortId::Open); // no interface sets it
    QCOMPARE(member.processSensors(sensors, 1000), NoFlags);
    QVERIFY(!member.lapOpen());
}

void tst_CRaceMember::aShortSensorSetIsReadAsInactive()
{
    CRaceMember member;
    useSeparateSensors(member);
    QCOMPARE(member.processSensors(QBitArray(), 1000), NoFlags);
    QCOMPARE(member.processSensors(QBitArray(2, true), 1000), Began);
    member.setStartSensorPin(-1);
    member.setEndSensorPin(65);
    QCOMPARE(member.processSensors(QBitArray(PortId::Count, true), 2000), int(CRaceMember::Sector2Taken));
}

void tst_CRaceMember::aStoppedMemberIgnoresSensors()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    member.pause();
    QVERIFY(member.isStopped());
    QCOMPARE(cross(member, 3000), NoFlags);
    QCOMPARE(member.processSensors(active({Pin::Sector2}), 3000), NoFlags);
    QCOMPARE(member.numberOfLaps(), 0);
    QCOMPARE(member.currentLap().lapStartTime, 0);
    member.resume();
    QVERIFY(!member.isStopped());
}

void tst_CRaceMember::pauseThrowsTheLapInProgressAway()
{
    CRaceMember member;
    useSeparateSensors(member);
    cross(member, 1000);
    member.processSensors(active({Pin::Sector2}), 1400);
    member.processSensors(active({Pin::Sector3}), 1800);
    member.pause();
    QCOMPARE(member.currentLap().lapStartTime, 0);
    QCOMPARE(member.currentLap().sector1Time, 0);
    QCOMPARE(member.currentLap().sector2Time, 0);
    QCOMPARE(member.currentLap().sector2BeginTime, 0);
    QCOMPARE(member.currentLap().sector3BeginTime, 0);
    QVERIFY(member.lapOpen());
    member.resume();
    QCOMPARE(crossEnd(member, 9000), NoFlags);
    QCOMPARE(member.numberOfLaps(), 0);
}

void tst_CRaceMember::pauseKeepsTheFinishedLaps()
{
    CRaceMember member;
    useOneSensor(member);
    drive(member, {3000, 2000});
    member.pause();
    member.resume();
    QCOMPARE(member.numberOfLaps(), 2);
    QCOMPARE(member.bestLapIndex(), 1);
    QCOMPARE(member.totalLapTime(), 5000);
    QCOMPARE(member.lastLapTime(), QTime(0, 0).addMSecs(2000));
}

void tst_CRaceMember::aSectorSensorAfterThePauseLeavesNoTraceInTheNextLap()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    member.pause();
    member.resume();
    QCOMPARE(member.processSensors(active({Pin::Sector2}), 5000), int(CRaceMember::Sector2Taken));
    QCOMPARE(cross(member, 6000), Began);
    QCOMPARE(member.currentLap().sector2BeginTime, 0);
    QCOMPARE(member.currentLap().sector1Time, 0);
}

void tst_CRaceMember::resetForgetsTheLapsAndKeepsTheRest()
{
    CRaceMember member(trackOfLength(500), 4);
    useOneSensor(member);
    member.setStatus(CRaceMemberStatus::Running);
    drive(member, {3000, 2000});
    member.pause();
    const double level = member.car().fuelTank().level();
    QSignalSpy updates(&member, &CRaceMember::update);
    member.reset();
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.at(0), QVariantList({4, 0}));
    QCOMPARE(member.numberOfLaps(), 0);
    QCOMPARE(member.bestLapIndex(), 0);
    QCOMPARE(member.totalLapTime(), 0);
    QCOMPARE(member.currentLap().lapEndTime, 0);
    QVERIFY(!member.lapOpen());
    QVERIFY(member.isStopped());
    QCOMPARE(member.status(), CRaceMemberStatus::Running);
    QCOMPARE(member.car().distanceDriven(), 1000);
    QCOMPARE(member.car().fuelTank().level(), level);

    // The times of the sensors are forgotten too: a smaller stamp starts and ends a lap.
    member.resume();
    QCOMPARE(cross(member, 100), Began);
    QCOMPARE(cross(member, 400), Ended | Began);
}

void tst_CRaceMember::aLapTakesAtMost64Bytes()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    for (quint32 lap = 1; lap <= 5000; ++lap) {
        cross(member, 1000 + lap * 200);
        QVERIFY(member.laps().capacity() * int(sizeof(CLapTime)) <= member.numberOfLaps() * 64);
    }
    QCOMPARE(member.numberOfLaps(), 5000);
}

void tst_CRaceMember::eventsThatChangeNothingLeaveTheLapsAlone()
{
    CRaceMember member;
    useOneSensor(member);
    drive(member, {1000, 1000, 1000});
    const CRaceMember copy(member);
    const QBitArray otherTrack = active({Pin::Start + 1, Pin::Sector2 + 1});
    for (quint32 time = 4001; time < 5000; ++time)
        QCOMPARE(member.processSensors(otherTrack, time), NoFlags);
    // Still one list with the copy: nothing was copied for it.
    QCOMPARE(member.laps().constData(), copy.laps().constData());
}

QTEST_GUILESS_MAIN(tst_CRaceMember)
#include "tst_CRaceMember.moc"
