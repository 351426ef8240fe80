#include "race/RaceFixture.h"

#include <QtTest>

namespace {

constexpr int Chaos = PortId::ChaosButton;

} // namespace

/** Pauses, by the chaos button and by the user: what counts, what is lost, what the clock shows. */
class tst_CRacePause : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
    void stopDuringAPauseEndsThePause();
    void timeLimitIsPausedWithTheRace();
};

void tst_CRacePause::chaosButtonPausesAndResumes()
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

void tst_CRacePause::pauseAndResumeSayEverythingInOrder()
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

void tst_CRacePause::chaosPressWithin199MillisecondsIsDropped_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<bool>("counts");
    QTest::newRow("150 ms") << 150 << false;
    QTest::newRow("199 ms") << 199 << false;
    QTest::newRow("200 ms") << 200 << true;
}

void tst_CRacePause::chaosPressWithin199MillisecondsIsDropped()
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

void tst_CRacePause::chaosPressWhileTheStartLightsRunPausesTheRace()
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

void tst_CRacePause::chaosButtonOfARacewayWithoutOneIsIgnored()
{
    RaceFixture fixture;
    const CRace& race = fixture.start();
    fixture.sensorsAt(2000, {Chaos});
    QVERIFY(!race.isPaused());
}

void tst_CRacePause::chaosTimeIsForgottenAtTheNextStart()
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

void tst_CRacePause::pauseLosesTheFractionOfASecond()
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

void tst_CRacePause::pauseThrowsTheRunningLapAway()
{
    RaceFixture fixture(1);
    CRace& race = fixture.start();
    fixture.sensorsAt(1000, {1});
    race.vPause();
    fixture.sensorsAt(6000, {1});
    QCOMPARE(fixture.laps(0), 0);
    QCOMPARE(fixture.status(0), 8);
}

void tst_CRacePause::lapBegunBeforeThePauseIsNotCountedAfterIt()
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

void tst_CRacePause::sensorEventsReachEndAndWinnerDuringAPause()
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

void tst_CRacePause::pauseThatRunsIntoTheGoKeepsMembersStopped()
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

void tst_CRacePause::pauseBeforeTheGoAddsNoTimeOfTheRaceBefore()
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

void tst_CRacePause::stopDuringAPauseEndsThePause()
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

void tst_CRacePause::timeLimitIsPausedWithTheRace()
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

QTEST_GUILESS_MAIN(tst_CRacePause)
#include "tst_CRacePause.moc"
