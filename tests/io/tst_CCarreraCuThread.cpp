#include "io/CCarreraCu.h"
#include "io/CCarreraCuThread.h"
#include "io/EventRecorder.h"
#include "io/FakeLine.h"
#include "support/ControlUnitDevice.h"
#include "support/VirtualUnit.h"

#include <QScopeGuard>
#include <QtTest>

#include <sys/resource.h>

namespace {

const QByteArray Lap1 = "?10000000012$";
const QByteArray Lap1Later = "?11000000013$";
const QByteArray Lap2 = "?20000000013$";
const QByteArray Status = "?:??????00700083$";

/** @return processor time of this process, all its threads, in microseconds. */
qint64 processorTime()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * qint64(1000000) + usage.ru_utime.tv_usec +
           usage.ru_stime.tv_usec;
}

} // namespace

class tst_CCarreraCuThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withoutAPortNameItEndsAtOnce();
    void theFirstThingSentIsThePoll();
    void aFrameEqualToTheOneBeforeIsPostedOnce();
    void framesThatAlternateAreAllPosted();
    void joinedFramesArePostedInOrder();
    void aFrameWithAWrongChecksumIsDroppedAndTheNextPollGoesOut();
    void commandsGoOutInOrderBetweenThePolls();
    void commandsMayBeQueuedFromAnyThread();
    void withoutATargetFramesAreDropped();
    void everyCrossingOfAnAdapterWithLatencyArrives_data();
    void everyCrossingOfAnAdapterWithLatencyArrives();
    void theNextPollFollowsTheAnswerAtOnce();
    void afterQuestionsThatNobodyHeardTheNextPollFollowsAtOnceAgain();
    void lateAnswersLeaveOneQuestionUnderWay();
    void overATerminalCrossingsArrive();
    void aSilentUnitIsPolledOn();
    void lateAnswersThatArriveJoinedLoseNoCrossing();
    void aPulledCableLeavesTheProcessorAlone();
    void afterAPulledCableTheNextStartOpensThePortAnew();
    void randomBytesOnALineAreSurvived();

private:
    void useFakeLine();
    void run(const QList<QByteArray>& reads);
    void runUntil(ControlUnitModel* model, WaitingClock* clock, const std::function<bool()>& isEnough);
    static QStringList texts(const QList<QByteArray>& frames);

    FakeLineScript m_script;
    EventRecorder* m_target = nullptr;
    CCarreraCu* m_cu = nullptr;
    CCarreraCuThread* m_thread = nullptr;
};

void tst_CCarreraCuThread::init()
{
    m_script = FakeLineScript();
    m_target = new EventRecorder;
    m_cu = CCarreraCu::instance();
    m_thread = CCarreraCuThread::instance();
    m_thread->setTarget(m_target);
}

void tst_CCarreraCuThread::cleanup()
{
    CCarreraCuThread::release();
    CCarreraCu::release();
    delete m_target;
}

void tst_CCarreraCuThread::useFakeLine()
{
    m_cu->setPortMaker([this](const QString&) { return std::make_unique<FakeLine>(&m_script); });
    m_thread->setPortName(QStringLiteral("fake"));
}

/** Runs the thread until it has read everything and stops it. */
void tst_CCarreraCuThread::run(const QList<QByteArray>& reads)
{
    QSemaphore allRead;
    m_script.reads = reads;
    m_script.whenAllRead = [&allRead] { allRead.release(); };
    useFakeLine();
    m_thread->start();
    const auto stopReading = qScopeGuard([this] {
        m_thread->stop();
        m_thread->wait();
        QCoreApplication::sendPostedEvents(m_target);
    });
    QVERIFY(allRead.tryAcquire(1, 10000));
}

/** Runs the thread on a unit in memory; the condition is looked at by the thread before each wait. */
void tst_CCarreraCuThread::runUntil(ControlUnitModel* model, WaitingClock* clock,
                                    const std::function<bool()>& isEnough)
{
    QSemaphore enough;
    bool isOver = false;
    clock->atWait = [&] {
        isOver = isOver || isEnough();
        if (isOver)
            enough.release();
    };
    m_cu->setPortMaker([&](const QString&) { return std::make_unique<ControlUnitDevice>(model, clock); });
    m_thread->setPortName(QStringLiteral("memory"));
    m_thread->start();
    const auto stopReading = qScopeGuard([this] {
        m_thread->stop();
        m_thread->wait();
    });
    QVERIFY(enough.tryAcquire(1, 60000));
}

QStringList tst_CCarreraCuThread::texts(const QList<QByteArray>& frames)
{
    QStringList list;
    for (const QByteArray& frame : frames)
        list.append(QString::fromLatin1(frame));
    return list;
}

void tst_CCarreraCuThread::withoutAPortNameItEndsAtOnce()
{
    useFakeLine();
    m_thread->setPortName(QString());
    m_thread->start();
    QVERIFY(m_thread->wait(10000));
    QCOMPARE(m_script.writes, 0);
}

void tst_CCarreraCuThread::theFirstThingSentIsThePoll()
{
    run({""});
    QVERIFY(m_script.written.startsWith("\"?"));
    QVERIFY(m_script.written.size() % 2 == 0);
    QCOMPARE(m_script.written, QByteArray("\"?").repeated(m_script.written.size() / 2));
}

void tst_CCarreraCuThread::aFrameEqualToTheOneBeforeIsPostedOnce()
{
    run({Lap1, Lap1, Status, Status, Status, Lap1, Lap1Later});
    QCOMPARE(m_target->frames(), texts({Lap1, Status, Lap1, Lap1Later}));
}

void tst_CCarreraCuThread::framesThatAlternateAreAllPosted()
{
    run({Lap1, Lap2, Lap1, Lap2});
    QCOMPARE(m_target->frames(), texts({Lap1, Lap2, Lap1, Lap2}));
}

void tst_CCarreraCuThread::joinedFramesArePostedInOrder()
{
    run({Status + Lap1 + Lap2, Lap1Later + "?2000", "0000013$" + Status});
    QCOMPARE(m_target->frames(), texts({Status, Lap1, Lap2, Lap1Later, Lap2, Status}));
}

void tst_CCarreraCuThread::aFrameWithAWrongChecksumIsDroppedAndTheNextPollGoesOut()
{
    run({"?10000000013$", Lap2});
    QCOMPARE(m_target->frames(), texts({Lap2}));
    QVERIFY(m_script.writes >= 1);
}

void tst_CCarreraCuThread::commandsGoOutInOrderBetweenThePolls()
{
    m_thread->queueSwitch(true);
    m_thread->queueSwitch(false);
    m_thread->queueEquals101();
    m_thread->queueT22();
    m_thread->queueT11();
    m_thread->queueZero();
    run({"", "", "", "", "", "", "", "", ""});
    QVERIFY2(m_script.written.startsWith("\"?\":3F9$\":000$\"=101$\"T22$\"T11$\"0\"?"), m_script.written);
}

void tst_CCarreraCuThread::commandsMayBeQueuedFromAnyThread()
{
    constexpr int Commands = 200;
    WaitingClock clock;
    ControlUnitSettings settings;
    ControlUnitModel model(settings, [&clock] { return clock.now; });
    m_cu->setPortMaker([&](const QString&) { return std::make_unique<ControlUnitDevice>(&model, &clock); });
    m_thread->setPortName(QStringLiteral("memory"));
    m_thread->start();
    const auto stopReading = qScopeGuard([this] {
        m_thread->stop();
        m_thread->wait();
    });
    const std::unique_ptr<QThread> other(QThread::create([this] {
        for (int i = 0; i < Commands; ++i)
            m_thread->queueT11();
    }));
    other->start();
    for (int i = 0; i < Commands; ++i)
        m_thread->queueT22();
    QVERIFY(other->wait());
    QTRY_VERIFY(!m_thread->hasCommands());
    m_thread->stop();
    QVERIFY(m_thread->wait(10000));
    QCOMPARE(model.commands().count("\"T11$"), Commands);
    QCOMPARE(model.commands().count("\"T22$"), Commands);
}

void tst_CCarreraCuThread::withoutATargetFramesAreDropped()
{
    m_thread->setTarget(nullptr);
    run({Lap1});
    QVERIFY(m_target->frames().isEmpty());
}

void tst_CCarreraCuThread::everyCrossingOfAnAdapterWithLatencyArrives_data()
{
    QTest::addColumn<int>("latency");
    QTest::newRow("none, byte by byte") << 0;
    QTest::newRow("2 ms, in pieces") << 2000;
    QTest::newRow("16 ms, whole frames") << 16000;
    QTest::newRow("300 ms, answers joined") << 300000;
}

void tst_CCarreraCuThread::everyCrossingOfAnAdapterWithLatencyArrives()
{
    QFETCH(int, latency);
    WaitingClock clock;
    ControlUnitSettings settings;
    settings.cars = QVector<ControlUnitSettings::Car>(8);
    settings.sectors = 3;
    settings.laps = 20;
    settings.speedUp = 20;
    settings.lightStep = 0;
    ControlUnitModel model(settings, [&clock] { return clock.now; });
    QStringList expected;
    QSemaphore finished;
    model.setJournal([&](const Crossing& crossing) {
        expected.append(QString::fromLatin1(ControlUnitFrames::lap(crossing)));
        if (model.isFinished())
            finished.release();
    });
    model.pressStart();
    m_cu->setPortMaker(
        [&](const QString&) { return std::make_unique<ControlUnitDevice>(&model, &clock, latency); });
    m_thread->setPortName(QStringLiteral("memory"));
    m_thread->start();
    const auto stopReading = qScopeGuard([this] {
        m_thread->stop();
        m_thread->wait();
    });
    QVERIFY(finished.tryAcquire(1, 60000));
    QTRY_VERIFY(m_target->frames().contains(expected.last()));
    const QStringList laps = m_target->frames().filter(QRegularExpression("^\\?[1-8]"));
    QCOMPARE(laps, expected);
}

void tst_CCarreraCuThread::theNextPollFollowsTheAnswerAtOnce()
{
    WaitingClock clock;
    ControlUnitModel model(ControlUnitSettings(), [&clock] { return clock.now; });
    qint64 timeOfHundred = 0;
    runUntil(&model, &clock, [&] {
        timeOfHundred = clock.now;
        return clock.answered >= 100;
    });
    QVERIFY2(timeOfHundred < 1500000, qPrintable(QString::number(timeOfHundred))); // 10 ms each
}

void tst_CCarreraCuThread::afterQuestionsThatNobodyHeardTheNextPollFollowsAtOnceAgain()
{
    WaitingClock clock;
    ControlUnitModel model(ControlUnitSettings(), [&clock] { return clock.now; });
    model.fallSilent(5000);
    qint64 timeOfFirst = 0;
    qint64 timeOfHundred = 0;
    int lost = 0;
    runUntil(&model, &clock, [&] {
        if (clock.answered == 0)
            lost = clock.asked;
        qint64& time = clock.answered <= 1 ? timeOfFirst : timeOfHundred;
        time = clock.now;
        return clock.answered >= 100;
    });
    QVERIFY(lost >= 40);
    const qint64 used = timeOfHundred - timeOfFirst;
    QVERIFY2(used < 1500000, qPrintable(QString::number(used)));
}

void tst_CCarreraCuThread::lateAnswersLeaveOneQuestionUnderWay()
{
    WaitingClock clock;
    ControlUnitModel model(ControlUnitSettings(), [&clock] { return clock.now; });
    model.answerLate(2000);
    int mostWhileLate = 0;
    int mostLater = 0;
    runUntil(&model, &clock, [&] {
        int& most = clock.answered < 100 ? mostWhileLate : mostLater;
        most = qMax(most, clock.asked - clock.answered);
        return clock.answered >= 200;
    });
    QVERIFY(mostWhileLate >= 10);
    QCOMPARE(mostLater, 1);
}

void tst_CCarreraCuThread::overATerminalCrossingsArrive()
{
    VirtualUnit unit;
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    QVERIFY(unit.start({"--cars", "4", "--laps", "5", "--sectors", "2", "--speed-up", "40", "--light-step",
                        "0", "--journal", journal}));
    m_thread->setPortName(unit.path());
    m_thread->start();
    unit.command("start");
    QTRY_VERIFY_WITH_TIMEOUT(unit.hasSaid(QStringLiteral("finished")), 30000);
    QStringList expected;
    for (const Crossing& crossing : VirtualUnit::journal(journal))
        expected.append(QString::fromLatin1(ControlUnitFrames::lap(crossing)));
    QCOMPARE(expected.size(), 4 * 11);
    QTRY_COMPARE(m_target->frames().filter(QRegularExpression("^\\?[1-8]")), expected);
}

void tst_CCarreraCuThread::aSilentUnitIsPolledOn()
{
    VirtualUnit unit;
    QVERIFY(unit.start({}));
    unit.command("silence 1000000");
    m_thread->setPortName(unit.path());
    m_thread->start();
    QTRY_VERIFY(unit.polls() >= 3);
    QVERIFY(m_target->frames().isEmpty());
    unit.command("silence 0");
    QTRY_COMPARE(m_target->frames().size(), 1);
}

void tst_CCarreraCuThread::lateAnswersThatArriveJoinedLoseNoCrossing()
{
    VirtualUnit unit;
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    QVERIFY(unit.start(
        {"--cars", "8", "--laps", "2", "--speed-up", "10", "--light-step", "0", "--journal", journal}));
    m_thread->setPortName(unit.path());
    m_thread->start();
    unit.command("start");
    while (!unit.hasSaid(QStringLiteral("finished"))) {
        unit.command("late 350");
        const int before = unit.polls();
        QTRY_VERIFY(unit.polls() > before + 10); // three of them are answered late
    }
    QStringList expected;
    for (const Crossing& crossing : VirtualUnit::journal(journal))
        expected.append(QString::fromLatin1(ControlUnitFrames::lap(crossing)));
    QCOMPARE(expected.size(), 8 * 3);
    QTRY_COMPARE(m_target->frames().filter(QRegularExpression("^\\?[1-8]")), expected);
}

void tst_CCarreraCuThread::aPulledCableLeavesTheProcessorAlone()
{
    VirtualUnit unit;
    QVERIFY(unit.start({}));
    m_thread->setPortName(unit.path());
    m_thread->start();
    QTRY_COMPARE(m_target->frames().size(), 1);
    unit.command("pull");

    const qint64 before = processorTime();
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY_WITH_TIMEOUT(clock.elapsed() >= 2000, 10000);
    const qint64 used = processorTime() - before;
    QVERIFY2(used < clock.nsecsElapsed() / 1000 / 5, qPrintable(QString::number(used)));

    QVERIFY(m_thread->isRunning()); // the loss isn't told; the thread waits to be stopped
    m_thread->stop();
    QVERIFY(m_thread->wait(10000));
}

void tst_CCarreraCuThread::afterAPulledCableTheNextStartOpensThePortAnew()
{
    const QString link = QDir::current().filePath(QStringLiteral("unit"));
    VirtualUnit unit;
    QVERIFY(unit.start({"--link", link, "--car", "5000:0:4"}));
    m_thread->setPortName(link);
    m_thread->start();
    QTRY_COMPARE(m_target->frames().size(), 1);
    unit.command("pull");
    unit.command("fuel 1 5");
    QVERIFY(unit.plug());
    m_thread->stop();
    QVERIFY(m_thread->wait(10000));
    QCOMPARE(m_target->frames().size(), 1);

    m_thread->start();
    QTRY_COMPARE(m_target->frames().size(), 2);
    QCOMPARE(m_target->frames().last().at(2), QLatin1Char('5'));
}

void tst_CCarreraCuThread::randomBytesOnALineAreSurvived()
{
    QRandomGenerator random(65);
    QList<QByteArray> reads;
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes(random.bounded(40), Qt::Uninitialized);
        for (char& byte : bytes)
            byte = char(random.bounded(8) == 0 ? '$' : random.bounded(256));
        reads.append(bytes);
    }
    reads << "$" << Lap1;
    run(reads);
    QVERIFY(!m_target->frames().isEmpty());
    QCOMPARE(m_target->frames().last(), QString::fromLatin1(Lap1));
}

QTEST_GUILESS_MAIN(tst_CCarreraCuThread)
#include "tst_CCarreraCuThread.moc"
