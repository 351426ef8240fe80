#include "race/CEndCondition.h"
#include "race/CRaceSettings.h"
#include "support/RaceMembers.h"

#include <QSignalSpy>
#include <QtTest>

using TestSupport::membersWithLaps;

namespace {

/** A time limit whose clock the test moves. */
class LimitedRace
{
public:
    explicit LimitedRace(const QTime& endTime) : m_condition(endTime, CStopwatch([this] { return m_now; })) {}

    CEndConditionTimeLimit& condition() { return m_condition; }
    QTimer& timer() { return *m_condition.findChild<QTimer*>(); }
    void advance(qint64 milliseconds) { m_now += milliseconds; }

private:
    qint64 m_now = 5000;
    CEndConditionTimeLimit m_condition;
};

std::unique_ptr<CEndCondition> lapLimit(int numberOfLaps, bool allMaxRounds, const CRaceMembers& members)
{
    CRaceSettings settings;
    settings.setEndType(CRaceSettings::LapLimit);
    settings.setNumberOfLaps(numberOfLaps);
    settings.setAllMaxRounds(allMaxRounds);
    return createEndCondition(settings, &members);
}

int endsReported(CEndCondition& condition)
{
    const QSignalSpy reached(&condition, &CEndCondition::endConditionReached);
    condition.check();
    return reached.count();
}

} // namespace

class tst_CEndCondition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsChooseTheCondition_data();
    void settingsChooseTheCondition();
    void noneNeverEndsTheRace();
    void timeLimitCountsHoursMinutesAndSecondsOnly_data();
    void timeLimitCountsHoursMinutesAndSecondsOnly();
    void timeLimitStartsItsTimer();
    void timeLimitEndsTheRace();
    void timeLimitPausedAfter10Point9SecondsAndResumedHas290SecondsLeft();
    void timeLimitKeepsTheSameClockOverTwoPauses();
    void timeLimitPausedBeforeTheStartKeepsItsTime();
    void timeLimitPausedTwiceCountsTheTimeOnce();
    void timeLimitPausedPastItsEndHasNothingLeftAndFiresAtOnceOnResume();
    void timeLimitStoppedDoesNotFire();
    void timeLimitDescriptionFallsWithEachPause();
    void timeLimitOfAWholeDayFitsTheTimer();
    void lapLimitEndsTheRaceWithTheFirstMemberThatReachesIt();
    void lapLimitIsComparedForEquality();
    void lapLimitReportsEachMemberAtTheLimit();
    void lapLimitOnAllTracksWaitsForTheSlowestTrack();
    void lapLimitOnAllTracksReportsOnce();
    void lapLimitOnAllTracksWithoutMembersReportsAtOnce();
    void lapLimitWithoutMembersReportsNothing();
    void lapLimitOf0EndsTheRaceWithTheFirstEvent();
    void descriptions_data();
    void descriptions();
};

void tst_CEndCondition::settingsChooseTheCondition_data()
{
    QTest::addColumn<int>("endType");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("0") << 0 << QByteArray("CEndConditionNone");
    QTest::newRow("1") << 1 << QByteArray("CEndConditionTimeLimit");
    QTest::newRow("2") << 2 << QByteArray("CEndConditionLapLimit");
    QTest::newRow("3, unknown") << 3 << QByteArray("CEndConditionNone");
    QTest::newRow("-1, unknown") << -1 << QByteArray("CEndConditionNone");
}

void tst_CEndCondition::settingsChooseTheCondition()
{
    QFETCH(int, endType);
    QFETCH(QByteArray, className);
    CRaceSettings settings;
    settings.setEndType(endType);
    const CRaceMembers members;
    const std::unique_ptr<CEndCondition> condition = createEndCondition(settings, &members);
    QCOMPARE(QByteArray(condition->metaObject()->className()), className);
}

void tst_CEndCondition::noneNeverEndsTheRace()
{
    const CRaceMembers members = membersWithLaps({{5000, 5000}});
    CRaceSettings settings;
    const std::unique_ptr<CEndCondition> condition = createEndCondition(settings, &members);
    const QSignalSpy reached(condition.get(), &CEndCondition::endConditionReached);
    condition->start();
    condition->pause();
    condition->resume();
    condition->check();
    condition->stop();
    QCoreApplication::processEvents();
    QCOMPARE(reached.count(), 0);
}

void tst_CEndCondition::timeLimitCountsHoursMinutesAndSecondsOnly_data()
{
    QTest::addColumn<QTime>("endTime");
    QTest::addColumn<int>("seconds");
    QTest::newRow("hours, minutes, seconds") << QTime(1, 2, 3) << 3723;
    QTest::newRow("milliseconds don't count") << QTime(0, 5, 0, 999) << 300;
    QTest::newRow("nothing") << QTime(0, 0) << 0;
    QTest::newRow("invalid") << QTime() << 0;
}

void tst_CEndCondition::timeLimitCountsHoursMinutesAndSecondsOnly()
{
    QFETCH(QTime, endTime);
    QFETCH(int, seconds);
    QCOMPARE(CEndConditionTimeLimit(endTime).remainingSeconds(), seconds);
}

void tst_CEndCondition::timeLimitStartsItsTimer()
{
    LimitedRace race(QTime(0, 5, 0));
    QVERIFY(!race.timer().isActive());
    race.condition().start();
    QVERIFY(race.timer().isActive());
    QCOMPARE(race.timer().interval(), 300000);
}

void tst_CEndCondition::timeLimitEndsTheRace()
{
    LimitedRace race(QTime(0, 0, 0));
    QSignalSpy reached(&race.condition(), &CEndCondition::endConditionReached);
    race.condition().start();
    QCOMPARE(reached.count(), 0);
    QTRY_COMPARE(reached.count(), 1);
}

void tst_CEndCondition::timeLimitPausedAfter10Point9SecondsAndResumedHas290SecondsLeft()
{
    LimitedRace race(QTime(0, 5, 0));
    race.condition().start();
    race.advance(10900);
    race.condition().pause();
    QVERIFY(!race.timer().isActive());
    QCOMPARE(race.condition().remainingSeconds(), 290);
    race.advance(60000);
    race.condition().resume();
    QVERIFY(race.timer().isActive());
    QCOMPARE(race.timer().interval(), 290000);
}

void tst_CEndCondition::timeLimitKeepsTheSameClockOverTwoPauses()
{
    LimitedRace race(QTime(0, 5, 0));
    race.condition().start();
    race.advance(10900);
    race.condition().pause();
    race.condition().resume();
    race.advance(20999);
    race.condition().pause();
    QCOMPARE(race.condition().remainingSeconds(), 270);
}

void tst_CEndCondition::timeLimitPausedBeforeTheStartKeepsItsTime()
{
    LimitedRace race(QTime(0, 5, 0));
    race.advance(10000);
    race.condition().pause();
    QCOMPARE(race.condition().remainingSeconds(), 300);
}

void tst_CEndCondition::timeLimitPausedTwiceCountsTheTimeOnce()
{
    LimitedRace race(QTime(0, 5, 0));
    race.condition().start();
    race.advance(10000);
    race.condition().pause();
    race.advance(10000);
    race.condition().pause();
    QCOMPARE(race.condition().remainingSeconds(), 290);
}

void tst_CEndCondition::timeLimitPausedPastItsEndHasNothingLeftAndFiresAtOnceOnResume()
{
    LimitedRace race(QTime(0, 0, 3));
    QSignalSpy reached(&race.condition(), &CEndCondition::endConditionReached);
    race.condition().start();
    race.advance(3500);
    race.condition().pause();
    QCOMPARE(race.condition().remainingSeconds(), 0);
    race.condition().resume();
    QCOMPARE(race.timer().interval(), 0);
    QTRY_COMPARE(reached.count(), 1);
}

void tst_CEndCondition::timeLimitStoppedDoesNotFire()
{
    LimitedRace race(QTime(0, 0, 0));
    const QSignalSpy reached(&race.condition(), &CEndCondition::endConditionReached);
    race.condition().start();
    race.condition().stop();
    race.condition().stop();
    QVERIFY(!race.timer().isActive());
    QCoreApplication::processEvents();
    QCOMPARE(reached.count(), 0);
}

void tst_CEndCondition::timeLimitDescriptionFallsWithEachPause()
{
    LimitedRace race(QTime(0, 5, 0));
    QCOMPARE(race.condition().description(), QStringLiteral("Ende nach 300 Sekunden"));
    race.condition().start();
    race.advance(10900);
    race.condition().pause();
    QCOMPARE(race.condition().description(), QStringLiteral("Ende nach 290 Sekunden"));
}

void tst_CEndCondition::timeLimitOfAWholeDayFitsTheTimer()
{
    LimitedRace race(QTime(23, 59, 59));
    race.condition().start();
    QCOMPARE(race.timer().interval(), 86399000);
}

void tst_CEndCondition::lapLimitEndsTheRaceWithTheFirstMemberThatReachesIt()
{
    CRaceMembers members = membersWithLaps({{5000}, {5000}});
    const std::unique_ptr<CEndCondition> condition = lapLimit(2, false, members);
    QCOMPARE(endsReported(*condition), 0);
    members[1] = TestSupport::memberWithLaps(1, {5000, 5000});
    QCOMPARE(endsReported(*condition), 1);
}

void tst_CEndCondition::lapLimitIsComparedForEquality()
{
    const CRaceMembers members = membersWithLaps({{5000, 5000, 5000}});
    QCOMPARE(endsReported(*lapLimit(2, false, members)), 0);
    QCOMPARE(endsReported(*lapLimit(3, false, members)), 1);
    QCOMPARE(endsReported(*lapLimit(2, true, members)), 1);
}

void tst_CEndCondition::lapLimitReportsEachMemberAtTheLimit()
{
    const CRaceMembers members = membersWithLaps({{5000}, {}, {5000}});
    QCOMPARE(endsReported(*lapLimit(1, false, members)), 2);
}

void tst_CEndCondition::lapLimitOnAllTracksWaitsForTheSlowestTrack()
{
    CRaceMembers members = membersWithLaps({{5000, 5000}, {5000}, {5000, 5000, 5000}});
    const std::unique_ptr<CEndCondition> condition = lapLimit(2, true, members);
    QCOMPARE(endsReported(*condition), 0);
    members[1] = TestSupport::memberWithLaps(1, {5000, 5000});
    QCOMPARE(endsReported(*condition), 1);
}

void tst_CEndCondition::lapLimitOnAllTracksReportsOnce()
{
    const CRaceMembers members = membersWithLaps({{5000}, {5000}, {5000}});
    QCOMPARE(endsReported(*lapLimit(1, true, members)), 1);
}

void tst_CEndCondition::lapLimitOnAllTracksWithoutMembersReportsAtOnce()
{
    const CRaceMembers members;
    QCOMPARE(endsReported(*lapLimit(25, true, members)), 1);
}

void tst_CEndCondition::lapLimitWithoutMembersReportsNothing()
{
    const CRaceMembers members;
    QCOMPARE(endsReported(*lapLimit(25, false, members)), 0);
}

void tst_CEndCondition::lapLimitOf0EndsTheRaceWithTheFirstEvent()
{
    const CRaceMembers members = membersWithLaps({{}});
    QCOMPARE(endsReported(*lapLimit(0, false, members)), 1);
}

void tst_CEndCondition::descriptions_data()
{
    QTest::addColumn<int>("endType");
    QTest::addColumn<bool>("allMaxRounds");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << false << QStringLiteral("Keine Endebedingung");
    QTest::newRow("time") << 1 << false << QStringLiteral("Ende nach 3725 Sekunden");
    QTest::newRow("laps") << 2 << false << QStringLiteral("Ende nach 12 Runden");
    QTest::newRow("laps of all") << 2 << true << QStringLiteral("Ende nach 12 Runden auf allen Spuren");
}

void tst_CEndCondition::descriptions()
{
    QFETCH(int, endType);
    QFETCH(bool, allMaxRounds);
    QFETCH(QString, text);
    CRaceSettings settings;
    settings.setEndType(endType);
    settings.setEndTime(QTime(1, 2, 5, 600));
    settings.setNumberOfLaps(12);
    settings.setAllMaxRounds(allMaxRounds);
    const CRaceMembers members;
    QCOMPARE(createEndCondition(settings, &members)->description(), text);
}

QTEST_GUILESS_MAIN(tst_CEndCondition)
#include "tst_CEndCondition.moc"
