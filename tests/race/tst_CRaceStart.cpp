#include "race/CLightAction.h"
#include "race/CRaceSettings.h"
#include "race/CRaceStart.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

/** What a start procedure did, in order: light actions and "go". */
class Course : public QObject
{
public:
    explicit Course(const CRaceStart& start)
    {
        connect(&start, &CRaceStart::UpdateLights, this,
                [this](int action) { m_steps << QString::number(action); });
        connect(&start, &CRaceStart::go, this, [this, &start] {
            m_steps << QStringLiteral("go");
            m_goWasGivenAtGo = start.isGoGiven();
        });
    }

    /** @return the steps since the last call. */
    QString take()
    {
        const QString steps = m_steps.join(' ');
        m_steps.clear();
        return steps;
    }
    bool goWasGivenAtGo() const { return m_goWasGivenAtGo; }

private:
    QStringList m_steps;
    bool m_goWasGivenAtGo = false;
};

QTimer& timerOf(CRaceStart& start)
{
    return *start.findChild<QTimer*>();
}

void letOneSecondPass(CRaceStart& start)
{
    QVERIFY(QMetaObject::invokeMethod(&start, "vStartTimerEventOccured"));
}

void letSecondsPass(CRaceStart& start, int seconds)
{
    for (int i = 0; i < seconds; ++i)
        letOneSecondPass(start);
}

} // namespace

class tst_CRaceStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsChooseTheProcedure_data();
    void settingsChooseTheProcedure();
    void settingsReachTheTimedStart();
    void goIsNotGivenBeforeTheStart();
    void flyingStartTurnsLightsOffAndGivesTheGoAtOnce();
    void flyingStartStoppedTakesTheGoBack();
    void timedStartWithDefaultsLightsFiveRedsAndThenGreen();
    void timedStartOf30SecondsIsSilentFor25Seconds();
    void startDelayOf0SecondsGivesTheSequenceOf5Seconds();
    void startDelayOf4SecondsGivesTheSequenceOf5Seconds();
    void invalidStartDelayGivesTheSequenceOf5Seconds();
    void startDelayOf1HourAnd10SecondsLastsTenSeconds();
    void startDelayCountsMinutes();
    void startDelayDropsMilliseconds();
    void redLightsFollowEachOtherOnceASecond();
    void randomWhileReachesFromMinimumToMinimumPlusMaximum();
    void randomWhileVaries();
    void randomWhileBeyondTheRangeOfATimerIsCut();
    void zeroDelaysGiveTheGoOnTheNextTurnOfTheEventLoop();
    void stopDuringTheCountdownLeavesNoGo();
    void stopAfterTheGoTakesItBack();
    void timerFiresByItself();
    void descriptions_data();
    void descriptions();
};

void tst_CRaceStart::settingsChooseTheProcedure_data()
{
    QTest::addColumn<int>("startType");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("0") << 0 << QByteArray("CRaceStartNoCondition");
    QTest::newRow("1") << 1 << QByteArray("CRaceStartTimer");
    QTest::newRow("2, unknown") << 2 << QByteArray("CRaceStartNoCondition");
    QTest::newRow("-1, unknown") << -1 << QByteArray("CRaceStartNoCondition");
}

void tst_CRaceStart::settingsChooseTheProcedure()
{
    QFETCH(int, startType);
    QFETCH(QByteArray, className);
    CRaceSettings settings;
    settings.setStartType(startType);
    const std::unique_ptr<CRaceStart> start = createRaceStart(settings);
    QCOMPARE(QByteArray(start->metaObject()->className()), className);
}

void tst_CRaceStart::settingsReachTheTimedStart()
{
    CRaceSettings settings;
    settings.setStartType(CRaceSettings::TimedStart);
    settings.setStartDelay(QTime(0, 0, 7));
    settings.setStartLightsMinDelay(20000);
    settings.setStartLightsMaxDelay(0);
    const std::unique_ptr<CRaceStart> start = createRaceStart(settings);
    QCOMPARE(start->description(), QStringLiteral("Start nach 00:07 Minuten"));
    start->start();
    letSecondsPass(*start, 6);
    QCOMPARE(timerOf(*start).interval(), 20000);
}

void tst_CRaceStart::goIsNotGivenBeforeTheStart()
{
    QVERIFY(!CRaceStartNoCondition().isGoGiven());
    QVERIFY(!CRaceStartTimer(QTime(0, 0, 5), 500, 2500).isGoGiven());
}

void tst_CRaceStart::flyingStartTurnsLightsOffAndGivesTheGoAtOnce()
{
    CRaceStartNoCondition start;
    Course course(start);
    start.start();
    QCOMPARE(course.take(), QStringLiteral("7 go 9"));
    QVERIFY(course.goWasGivenAtGo());
    QVERIFY(start.isGoGiven());
}

void tst_CRaceStart::flyingStartStoppedTakesTheGoBack()
{
    CRaceStartNoCondition start;
    start.start();
    Course course(start);
    start.stop();
    QVERIFY(!start.isGoGiven());
    QCOMPARE(course.take(), QString());
}

void tst_CRaceStart::timedStartWithDefaultsLightsFiveRedsAndThenGreen()
{
    CRaceStartTimer start(QTime(0, 0, 5), 500, 2500);
    Course course(start);
    start.start();
    QCOMPARE(start.remainingSeconds(), 5);
    QCOMPARE(course.take(), QStringLiteral("7 8"));
    for (int remaining = 4; remaining > 0; --remaining) {
        letOneSecondPass(start);
        QCOMPARE(start.remainingSeconds(), remaining);
        QCOMPARE(course.take(), QStringLiteral("8"));
        QVERIFY(!start.isGoGiven());
    }
    letOneSecondPass(start);
    QCOMPARE(course.take(), QStringLiteral("7 go 9"));
    QVERIFY(course.goWasGivenAtGo());
    QVERIFY(start.isGoGiven());
    QVERIFY(!timerOf(start).isActive());
}

void tst_CRaceStart::timedStartOf30SecondsIsSilentFor25Seconds()
{
    CRaceStartTimer start(QTime(0, 0, 30), 500, 2500);
    Course course(start);
    start.start();
    letSecondsPass(start, 24);
    QCOMPARE(course.take(), QStringLiteral("7"));
    letOneSecondPass(start);
    QCOMPARE(start.remainingSeconds(), 5);
    QCOMPARE(course.take(), QStringLiteral("8"));
    letSecondsPass(start, 5);
    QCOMPARE(course.take(), QStringLiteral("8 8 8 8 7 go 9"));
}

void tst_CRaceStart::startDelayOf0SecondsGivesTheSequenceOf5Seconds()
{
    CRaceStartTimer start(QTime(0, 0, 0), 500, 2500);
    Course course(start);
    start.start();
    letSecondsPass(start, 5);
    QCOMPARE(course.take(), QStringLiteral("7 8 8 8 8 8 7 go 9"));
}

void tst_CRaceStart::startDelayOf4SecondsGivesTheSequenceOf5Seconds()
{
    CRaceStartTimer start(QTime(0, 0, 4), 500, 2500);
    start.start();
    QCOMPARE(start.remainingSeconds(), 5);
}

void tst_CRaceStart::invalidStartDelayGivesTheSequenceOf5Seconds()
{
    CRaceStartTimer start(QTime(), 500, 2500);
    start.start();
    QCOMPARE(start.remainingSeconds(), 5);
}

void tst_CRaceStart::startDelayOf1HourAnd10SecondsLastsTenSeconds()
{
    CRaceStartTimer start(QTime(1, 0, 10), 500, 2500);
    Course course(start);
    start.start();
    QCOMPARE(start.remainingSeconds(), 10);
    letSecondsPass(start, 10);
    QCOMPARE(course.take(), QStringLiteral("7 8 8 8 8 8 7 go 9"));
}

void tst_CRaceStart::startDelayCountsMinutes()
{
    CRaceStartTimer start(QTime(0, 2, 3), 500, 2500);
    start.start();
    QCOMPARE(start.remainingSeconds(), 123);
}

void tst_CRaceStart::startDelayDropsMilliseconds()
{
    CRaceStartTimer start(QTime(0, 0, 6, 999), 500, 2500);
    Course course(start);
    start.start();
    QCOMPARE(start.remainingSeconds(), 6);
    QCOMPARE(course.take(), QStringLiteral("7"));
}

void tst_CRaceStart::redLightsFollowEachOtherOnceASecond()
{
    CRaceStartTimer start(QTime(0, 0, 5), 500, 2500);
    start.start();
    QVERIFY(timerOf(start).isActive());
    QVERIFY(!timerOf(start).isSingleShot());
    for (int remaining = 5; remaining > 1; --remaining) {
        QCOMPARE(timerOf(start).interval(), 1000);
        letOneSecondPass(start);
    }
}

void tst_CRaceStart::randomWhileReachesFromMinimumToMinimumPlusMaximum()
{
    for (int i = 0; i < 300; ++i) {
        CRaceStartTimer start(QTime(0, 0, 5), 4000, 100);
        start.start();
        letSecondsPass(start, 4);
        QVERIFY(timerOf(start).isActive());
        QVERIFY(timerOf(start).interval() >= 4000);
        QVERIFY(timerOf(start).interval() <= 4100);
    }
}

void tst_CRaceStart::randomWhileVaries()
{
    QSet<int> intervals;
    for (int i = 0; i < 100; ++i) {
        CRaceStartTimer start(QTime(0, 0, 5), 0, 30000);
        start.start();
        letSecondsPass(start, 4);
        intervals << timerOf(start).interval();
    }
    QVERIFY(intervals.size() > 10);
}

void tst_CRaceStart::randomWhileBeyondTheRangeOfATimerIsCut()
{
    CRaceStartTimer start(QTime(0, 0, 5), 4294967295U, 4294967295U);
    start.start();
    letSecondsPass(start, 4);
    QVERIFY(timerOf(start).isActive());
    QCOMPARE(timerOf(start).interval(), std::numeric_limits<int>::max());
}

void tst_CRaceStart::zeroDelaysGiveTheGoOnTheNextTurnOfTheEventLoop()
{
    CRaceStartTimer start(QTime(0, 0, 5), 0, 0);
    Course course(start);
    start.start();
    letSecondsPass(start, 4);
    QCOMPARE(course.take(), QStringLiteral("7 8 8 8 8 8"));
    QCoreApplication::processEvents();
    QCOMPARE(course.take(), QStringLiteral("7 go 9"));
    QVERIFY(!timerOf(start).isActive());
}

void tst_CRaceStart::stopDuringTheCountdownLeavesNoGo()
{
    CRaceStartTimer start(QTime(0, 0, 5), 0, 0);
    start.start();
    letSecondsPass(start, 4);
    Course course(start);
    start.stop();
    QVERIFY(!timerOf(start).isActive());
    QCoreApplication::processEvents();
    QVERIFY(!start.isGoGiven());
    QCOMPARE(course.take(), QString());
}

void tst_CRaceStart::stopAfterTheGoTakesItBack()
{
    CRaceStartTimer start(QTime(0, 0, 5), 0, 0);
    start.start();
    letSecondsPass(start, 5);
    QVERIFY(start.isGoGiven());
    start.stop();
    QVERIFY(!start.isGoGiven());
}

void tst_CRaceStart::timerFiresByItself()
{
    CRaceStartTimer start(QTime(0, 0, 5), 0, 0);
    QSignalSpy go(&start, &CRaceStart::go);
    start.start();
    timerOf(start).setInterval(0);
    QTRY_COMPARE(go.count(), 1);
}

void tst_CRaceStart::descriptions_data()
{
    QTest::addColumn<int>("startType");
    QTest::addColumn<QTime>("delay");
    QTest::addColumn<QString>("text");
    QTest::newRow("flying") << 0 << QTime(0, 0, 5) << QStringLiteral("fliegender Start");
    QTest::newRow("five seconds") << 1 << QTime(0, 0, 5) << QStringLiteral("Start nach 00:05 Minuten");
    QTest::newRow("minutes") << 1 << QTime(0, 12, 30) << QStringLiteral("Start nach 12:30 Minuten");
    QTest::newRow("hours don't show") << 1 << QTime(1, 0, 10) << QStringLiteral("Start nach 00:10 Minuten");
}

void tst_CRaceStart::descriptions()
{
    QFETCH(int, startType);
    QFETCH(QTime, delay);
    QFETCH(QString, text);
    CRaceSettings settings;
    settings.setStartType(startType);
    settings.setStartDelay(delay);
    QCOMPARE(createRaceStart(settings)->description(), text);
}

QTEST_GUILESS_MAIN(tst_CRaceStart)
#include "tst_CRaceStart.moc"
