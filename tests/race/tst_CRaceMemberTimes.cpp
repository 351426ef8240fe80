#include "race/CRaceMember.h"
#include "support/MemberSensors.h"

#include <QTest>

#include <limits>

namespace {

QTime milliseconds(int count)
{
    return QTime(0, 0).addMSecs(count);
}

} // namespace

/** What a member tells of its laps: times, splits, averages, distance and speed. */
class tst_CRaceMemberTimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutLapsAllTimesAndTheSpeedAreZero();

    void lapOutsideTheListIsCleared();
    void distanceDrivenGrowsByTheTrack();
    void distanceDrivenStaysWithinItsRange();
    void averageLapTimeIsCutTowardsZero();
    void lastAndBestLapTime();
    void sectorTimesOfTheRunningLapComeFirst();
    void splitTimesAreSums();
    void splitTimesOfTheRunningLapComeFirst();
    void speedInEachUnit_data();
    void speedInEachUnit();
    void speedOfALapOfNoDurationIsZero();
    void stampsOfABrokenClockAreHarmless();
};

void tst_CRaceMemberTimes::withoutLapsAllTimesAndTheSpeedAreZero()
{
    CRaceMember member(trackOfLength(1000), 0);
    useOneSensor(member);
    cross(member, 1000); // a lap that has only begun changes nothing
    const QTime zero(0, 0);
    QCOMPARE(member.averageLapTime(), zero);
    QCOMPARE(member.lastLapTime(), zero);
    QCOMPARE(member.bestLapTime(), zero);
    QCOMPARE(member.sector1Time(), zero);
    QCOMPARE(member.sector2Time(), zero);
    QCOMPARE(member.sector3Time(), zero);
    QCOMPARE(member.split1Time(), zero);
    QCOMPARE(member.split2Time(), zero);
    QCOMPARE(member.split3Time(), zero);
    for (int unit = 0; unit < 3; ++unit)
        QCOMPARE(member.speed(unit), 0.0);
}

void tst_CRaceMemberTimes::lapOutsideTheListIsCleared()
{
    CRaceMember member;
    useOneSensor(member);
    drive(member, {3000});
    QCOMPARE(member.lap(0).lapTime, 3000);
    for (const int index : {-1, 1, 1000})
        QCOMPARE(member.lap(index).lapStartTime, 0);
}

void tst_CRaceMemberTimes::distanceDrivenGrowsByTheTrack()
{
    CRaceMember member(trackOfLength(1530), 0);
    useOneSensor(member);
    CCar car;
    car.setDistanceDriven(100);
    member.setCar(car);
    drive(member, {3000, 3000});
    QCOMPARE(member.car().distanceDriven(), 100 + 2 * 1530);
}

void tst_CRaceMemberTimes::distanceDrivenStaysWithinItsRange()
{
    CRaceMember member(trackOfLength(1530), 0);
    useOneSensor(member);
    CCar car;
    car.setDistanceDriven(std::numeric_limits<int>::max() - 10);
    member.setCar(car);
    drive(member, {3000});
    QCOMPARE(member.car().distanceDriven(), std::numeric_limits<int>::max());
}

void tst_CRaceMemberTimes::averageLapTimeIsCutTowardsZero()
{
    CRaceMember member;
    useOneSensor(member);
    drive(member, {1000, 1000, 1002});
    QCOMPARE(member.averageLapTime(), milliseconds(1000));
    cross(member, 1000 + 3002 + 1002);
    QCOMPARE(member.averageLapTime(), milliseconds(1001));
}

void tst_CRaceMemberTimes::lastAndBestLapTime()
{
    CRaceMember member;
    useOneSensor(member);
    drive(member, {3000, 2345, 61001});
    QCOMPARE(member.lastLapTime(), QTime(0, 1, 1, 1));
    QCOMPARE(member.bestLapTime(), QTime(0, 0, 2, 345));
}

void tst_CRaceMemberTimes::sectorTimesOfTheRunningLapComeFirst()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    member.processSensors(active({Pin::Sector2}), 1100);
    member.processSensors(active({Pin::Sector3}), 1300);
    QCOMPARE(member.sector1Time(), milliseconds(100));
    QCOMPARE(member.sector2Time(), milliseconds(200));
    QCOMPARE(member.sector3Time(), milliseconds(0));
    cross(member, 1600);
    QCOMPARE(member.sector1Time(), milliseconds(100));
    QCOMPARE(member.sector2Time(), milliseconds(200));
    QCOMPARE(member.sector3Time(), milliseconds(300));
    member.processSensors(active({Pin::Sector2}), 2011);
    QCOMPARE(member.sector1Time(), milliseconds(411));
    QCOMPARE(member.sector2Time(), milliseconds(200));
    member.processSensors(active({Pin::Sector3}), 2533);
    QCOMPARE(member.sector2Time(), milliseconds(522));
    QCOMPARE(member.sector3Time(), milliseconds(300));
}

void tst_CRaceMemberTimes::splitTimesAreSums()
{
    CRaceMember member;
    useOneSensor(member);
    cross(member, 1000);
    member.processSensors(active({Pin::Sector2}), 1100);
    member.processSensors(active({Pin::Sector3}), 1300);
    cross(member, 1600);
    QCOMPARE(member.split1Time(), milliseconds(100));
    QCOMPARE(member.split2Time(), milliseconds(300));
    QCOMPARE(member.split3Time(), milliseconds(600));
}

void tst_CRaceMemberTimes::splitTimesOfTheRunningLapComeFirst()
{
    CRaceMember member;
    useSeparateSensors(member);
    cross(member, 1000);
    member.processSensors(active({Pin::Sector2}), 1100);
    member.processSensors(active({Pin::Sector3}), 1300);
    crossEnd(member, 1600);
    cross(member, 2000);
    member.processSensors(active({Pin::Sector2}), 2400);
    QCOMPARE(member.split1Time(), milliseconds(400));
    QCOMPARE(member.split2Time(), milliseconds(300));
    QCOMPARE(member.split3Time(), milliseconds(600));
    member.processSensors(active({Pin::Sector3}), 2900);
    QCOMPARE(member.split2Time(), milliseconds(900));
    QCOMPARE(member.split3Time(), milliseconds(600));
    crossEnd(member, 3500);
    QCOMPARE(member.split3Time(), milliseconds(1500));
}

void tst_CRaceMemberTimes::speedInEachUnit_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("speed");
    // 10 m in 4 s, at 1/32
    QTest::newRow("km/h at full size") << 0 << 2.5 * 3.6 * 32;
    QTest::newRow("m/s on the model") << 1 << 2.5;
    QTest::newRow("mph at full size") << 2 << 2.5 * 2.23693629 * 32;
}

void tst_CRaceMemberTimes::speedInEachUnit()
{
    QFETCH(int, unit);
    QFETCH(double, speed);
    CRaceMember member(trackOfLength(1000), 0);
    useOneSensor(member);
    CCar car;
    car.setScale(32);
    member.setCar(car);
    drive(member, {9000, 4000});
    QCOMPARE(member.speed(unit), speed);
}

void tst_CRaceMemberTimes::speedOfALapOfNoDurationIsZero()
{
    CRaceMember member(trackOfLength(1000), 0);
    useOneSensor(member);
    member.setMinTime(0);
    drive(member, {0});
    QCOMPARE(member.numberOfLaps(), 1);
    QCOMPARE(member.speed(1), 0.0);
}

void tst_CRaceMemberTimes::stampsOfABrokenClockAreHarmless()
{
    CRaceMember member(trackOfLength(std::numeric_limits<int>::min()), 0);
    useOneSensor(member);
    member.setMinTime(0);
    const quint32 stamps[] = {1U, 0x7fffffffU, 0xfffffffeU, 0x7ffffffdU, 0xfffffffcU, 0U, 0x80000000U};
    int events = 0;
    for (int round = 0; round < 50; ++round) {
        for (const quint32 stamp : stamps) {
            cross(member, stamp);
            member.processSensors(active({Pin::Sector3}), ~stamp);
            member.split3Time();
            member.averageLapTime();
            ++events;
        }
    }
    QCOMPARE(events, 350);
    QVERIFY(member.numberOfLaps() > 0);
}

QTEST_GUILESS_MAIN(tst_CRaceMemberTimes)
#include "tst_CRaceMemberTimes.moc"
