#include "io/CIoWarriorDevice.h"
#include "io/CIoWarriorThread.h"
#include "io/CRacewayIoEvent.h"
#include "support/TestChip.h"

#include <QElapsedTimer>
#include <QtTest>

#include <optional>

namespace {

/** Keeps the raw events that the thread posts. */
class RawSink : public QObject
{
public:
    QList<quint32> values;
    QList<int> times;

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() != CRacewayIoEvent::EventType)
            return;
        const auto* raw = static_cast<const CRacewayIoEvent*>(event);
        values.append(quint32(raw->value()));
        times.append(raw->time());
    }
};

} // namespace

class tst_CIoWarriorThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void changeOfAPinIsPostedWithItsValue();
    void changeBackIsPostedToo();
    void valueWhenTheThreadWasMadeIsWhereTheFirstRunBegins();
    void changeBetweenTwoRunsIsTheFirstEventWithAStampNearZero();
    void stampsDoNotRunBackwards();

    void queuedOutputIsWrittenAndPostsNoEvent();
    void outputThatHasItsLevelAlreadyPostsNoEvent();
    void severalOutputsOfWhichOneHasItsLevelAlreadyPostNoEvent();
    void twoOutputsForDifferentBitsBetweenTwoPassesArriveInOneWrite();
    void lastOfTwoOutputsForTheSameBitWins();
    void repeatedOutputChangesNothing();
    void outputWithSeveralBitsFlipsAllOfThem();
    void outputOfZeroIsNotQueued();
    void outputWithoutAMaskIsWritten();
    void sensorThatChangesInTheSamePassAsAQueuedWriteIsReportedOutsideThePendingMask();
    void outputQueuedRightAfterTheStartIsWritten();
    void outputQueuedBeforeTheStartIsForgotten();
    void queueingNeverWaitsForTheDevice();

    void stopRightAfterStartEndsTheThread();
    void startRightAfterStopBeginsANewRun();
    void secondStartIsHarmless();
    void deletingARunningThreadEndsIt();
    void pulledCablePostsNoEventAndTheThreadCanBeStopped();
    void outputsAfterThePulledCablePostNoEvent();
    void chipThatNeverAnswersHoldsNoStopUp();
    void chipThatNeverAnswersGetsItsOutputsAllTheSame();
    void chipThatNeverAnsweredHoldsNobodyUpWhoMakesAThread();
    void lateAnswersAreNotAskedForTwice();
    void outputsBetweenLateAnswersPostNoEvent();
    void chipThatAnswersAgainIsReadOn();

private:
    unsigned writes() { return m_chip->count(VirtualIoWarrior::Written); }
    /** Lets the thread end the pass in which it is, and two more. */
    void letTheThreadRead();
    /** Holds the thread within a read, until the chip may answer. */
    void holdTheThread();
    void start();

    std::optional<TestChip> m_chip;
    std::unique_ptr<RawSink> m_sink;
    std::unique_ptr<CIoWarriorThread> m_thread;
};

void tst_CIoWarriorThread::initTestCase()
{
    m_chip.emplace();
}

void tst_CIoWarriorThread::init()
{
    QVERIFY(m_chip->plug(TestChip::Warrior56));
    m_sink = std::make_unique<RawSink>();
    m_thread = std::make_unique<CIoWarriorThread>();
    m_thread->setTarget(m_sink.get());
}

void tst_CIoWarriorThread::cleanup()
{
    (*m_chip)->setHeld(false);
    m_thread.reset();
    m_sink.reset();
}

void tst_CIoWarriorThread::letTheThreadRead()
{
    const unsigned before = m_chip->count(VirtualIoWarrior::Answered);
    QTRY_VERIFY(m_chip->count(VirtualIoWarrior::Answered) - before >= 3);
    QCoreApplication::processEvents();
}

void tst_CIoWarriorThread::holdTheThread()
{
    const unsigned held = m_chip->count(VirtualIoWarrior::Held);
    (*m_chip)->setHeld(true);
    QTRY_COMPARE(m_chip->count(VirtualIoWarrior::Held), held + 1);
}

void tst_CIoWarriorThread::start()
{
    m_thread->start();
    letTheThreadRead();
}

void tst_CIoWarriorThread::changeOfAPinIsPostedWithItsValue()
{
    start();
    (*m_chip)->pullLow(0x100);
    QTRY_COMPARE(m_sink->values, QList<quint32>{0xFFFFFEFF});
}

void tst_CIoWarriorThread::changeBackIsPostedToo()
{
    start();
    (*m_chip)->pullLow(0x100);
    QTRY_COMPARE(m_sink->values.size(), 1);
    (*m_chip)->letGo(0x100);
    QTRY_COMPARE(m_sink->values, (QList<quint32>{0xFFFFFEFF, 0xFFFFFFFF}));
    letTheThreadRead();
    QCOMPARE(m_sink->values.size(), 2);
}

void tst_CIoWarriorThread::valueWhenTheThreadWasMadeIsWhereTheFirstRunBegins()
{
    m_thread.reset();
    (*m_chip)->pullLow(1);
    m_thread = std::make_unique<CIoWarriorThread>();
    m_thread->setTarget(m_sink.get());
    start();
    QVERIFY(m_sink->values.isEmpty());
    (*m_chip)->letGo(1);
    QTRY_COMPARE(m_sink->values, QList<quint32>{0xFFFFFFFF});
}

void tst_CIoWarriorThread::changeBetweenTwoRunsIsTheFirstEventWithAStampNearZero()
{
    start();
    do { // let the stamps of the first run grow
        const int before = m_sink->values.size();
        (*m_chip)->flip(1);
        QTRY_VERIFY(m_sink->values.size() > before);
    } while (m_sink->times.last() < 200);
    m_thread->requestStop();
    QVERIFY(m_thread->wait());
    m_sink->values.clear();
    m_sink->times.clear();
    (*m_chip)->pullLow(0x80);

    QElapsedTimer sinceStart;
    sinceStart.start();
    m_thread->start();
    QTRY_COMPARE(m_sink->values.size(), 1);
    QVERIFY(m_sink->times.at(0) <= sinceStart.elapsed());
    QCOMPARE(m_sink->values.at(0) & 0x80, 0U);
}

void tst_CIoWarriorThread::stampsDoNotRunBackwards()
{
    start();
    for (int change = 1; change <= 10; ++change) {
        (*m_chip)->flip(1);
        QTRY_COMPARE(m_sink->values.size(), change);
    }
    QVERIFY(std::is_sorted(m_sink->times.begin(), m_sink->times.end()));
}

void tst_CIoWarriorThread::queuedOutputIsWrittenAndPostsNoEvent()
{
    start();
    m_thread->queueOutput(~0x10, 0x10);
    QTRY_COMPARE((*m_chip)->written(), ~0x10U);
    m_thread->queueOutput(-1, 0x10);
    QTRY_COMPARE((*m_chip)->written(), ~0U);
    letTheThreadRead();
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::outputThatHasItsLevelAlreadyPostsNoEvent()
{
    start();
    const unsigned before = writes();
    m_thread->queueOutput(-1, 0x10);
    QTRY_COMPARE(writes(), before + 1);
    letTheThreadRead();
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::severalOutputsOfWhichOneHasItsLevelAlreadyPostNoEvent()
{
    start();
    holdTheThread();
    m_thread->queueOutput(-1, 0x01); // stays as it is
    m_thread->queueOutput(~0x02, 0x02);
    m_thread->queueOutput(~0x02, 0x04); // stays as it is
    (*m_chip)->setHeld(false);
    QTRY_COMPARE((*m_chip)->written(), ~0x02U);
    letTheThreadRead();
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::twoOutputsForDifferentBitsBetweenTwoPassesArriveInOneWrite()
{
    start();
    holdTheThread();
    const unsigned before = writes();
    m_thread->queueOutput(~0x01, 0x01);
    m_thread->queueOutput(~0x03, 0x02);
    QCOMPARE(writes(), before);
    (*m_chip)->setHeld(false);
    QTRY_COMPARE((*m_chip)->written(), ~0x03U);
    letTheThreadRead();
    QCOMPARE(writes(), before + 1);
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::lastOfTwoOutputsForTheSameBitWins()
{
    start();
    holdTheThread();
    m_thread->queueOutput(~0x08, 0x08);
    m_thread->queueOutput(-1, 0x08);
    m_thread->queueOutput(~0x08, 0x08);
    (*m_chip)->setHeld(false);
    QTRY_COMPARE((*m_chip)->written(), ~0x08U);
    letTheThreadRead();
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::repeatedOutputChangesNothing()
{
    start();
    holdTheThread();
    m_thread->queueOutput(~0x08, 0x08);
    m_thread->queueOutput(~0x08, 0x08);
    m_thread->queueOutput(~0x08, 0x08);
    (*m_chip)->setHeld(false);
    QTRY_COMPARE((*m_chip)->written(), ~0x08U);
}

void tst_CIoWarriorThread::outputWithSeveralBitsFlipsAllOfThem()
{
    start();
    holdTheThread();
    m_thread->queueOutput(~0x01, 0x01);
    // Of the two pins only one has another level than in the output that waits; both are flipped.
    m_thread->queueOutput(~0x03, 0x03);
    (*m_chip)->setHeld(false);
    QTRY_COMPARE((*m_chip)->written(), ~0x02U);
    letTheThreadRead();
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::outputOfZeroIsNotQueued()
{
    start();
    const unsigned before = writes();
    m_thread->queueOutput(0, 0xFF);
    letTheThreadRead();
    QCOMPARE(writes(), before);
    m_thread->queueOutput(~0x01, 0x01);
    QTRY_COMPARE((*m_chip)->written(), ~0x01U);
}

void tst_CIoWarriorThread::outputWithoutAMaskIsWritten()
{
    start();
    m_thread->queueOutput(-1, 0);
    const unsigned before = writes();
    m_thread->queueOutput(~0x20, 0x20);
    QTRY_COMPARE((*m_chip)->written(), ~0x20U);
    m_thread->queueOutput(~0x20, 0);
    QTRY_VERIFY(writes() >= before + 2);
    letTheThreadRead();
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::sensorThatChangesInTheSamePassAsAQueuedWriteIsReportedOutsideThePendingMask()
{
    start();
    for (quint32 sensor = 0x100; sensor <= 0x8000; sensor <<= 1) {
        // The read that is held answers with the sensor, and the write follows in the same pass.
        holdTheThread();
        m_sink->values.clear();
        m_thread->queueOutput(~0x01, 0x01);
        (*m_chip)->pullLow(sensor);
        (*m_chip)->setHeld(false);
        QTRY_COMPARE((*m_chip)->written(), ~0x01U);
        letTheThreadRead();
        QCOMPARE(m_sink->values, QList<quint32>{~sensor});

        holdTheThread();
        m_sink->values.clear();
        m_thread->queueOutput(-1, 0x01);
        (*m_chip)->letGo(sensor);
        (*m_chip)->setHeld(false);
        QTRY_COMPARE((*m_chip)->written(), ~0U);
        letTheThreadRead();
        QCOMPARE(m_sink->values, QList<quint32>{~0x01U});
    }
}

void tst_CIoWarriorThread::outputQueuedRightAfterTheStartIsWritten()
{
    for (int run = 0; run < 20; ++run) {
        const quint32 level = run % 2 == 0 ? ~0x01U : ~0U;
        m_thread->start();
        m_thread->queueOutput(int(level), 0x01);
        QTRY_COMPARE((*m_chip)->written(), level);
        m_thread->requestStop();
        QVERIFY(m_thread->wait());
    }
}

void tst_CIoWarriorThread::outputQueuedBeforeTheStartIsForgotten()
{
    const unsigned before = writes();
    m_thread->queueOutput(~0x01, 0x01);
    start();
    QCOMPARE(writes(), before);
}

void tst_CIoWarriorThread::queueingNeverWaitsForTheDevice()
{
    start();
    holdTheThread();
    const unsigned answered = m_chip->count(VirtualIoWarrior::Answered);
    for (int i = 0; i < 1000; ++i)
        m_thread->queueOutput(i % 2 == 0 ? ~0x01 : -1, 0x01);
    QCOMPARE(m_chip->count(VirtualIoWarrior::Answered), answered); // held all the while
}

void tst_CIoWarriorThread::stopRightAfterStartEndsTheThread()
{
    for (int run = 0; run < 20; ++run) {
        m_thread->start();
        m_thread->requestStop();
        QVERIFY(m_thread->wait());
    }
}

void tst_CIoWarriorThread::startRightAfterStopBeginsANewRun()
{
    start();
    for (int run = 0; run < 50; ++run) {
        m_thread->requestStop();
        m_thread->start();
        QVERIFY(m_thread->isRunning());
    }
    letTheThreadRead();
    (*m_chip)->pullLow(1);
    QTRY_COMPARE(m_sink->values.size(), 1);
}

void tst_CIoWarriorThread::secondStartIsHarmless()
{
    start();
    holdTheThread();
    m_thread->queueOutput(~0x01, 0x01);
    m_thread->start();
    (*m_chip)->setHeld(false);
    QTRY_COMPARE((*m_chip)->written(), ~0x01U);
    (*m_chip)->pullLow(2);
    QTRY_COMPARE(m_sink->values.size(), 1);
}

void tst_CIoWarriorThread::deletingARunningThreadEndsIt()
{
    start();
    m_thread.reset();
    const unsigned asked = m_chip->count(VirtualIoWarrior::Asked);
    QCoreApplication::processEvents();
    QCOMPARE(m_chip->count(VirtualIoWarrior::Asked), asked);
}

void tst_CIoWarriorThread::pulledCablePostsNoEventAndTheThreadCanBeStopped()
{
    start();
    (*m_chip)->pullLow(1);
    QTRY_COMPARE(m_sink->values.size(), 1);
    (*m_chip)->unplug();
    (*m_chip)->letGo(1);
    const unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    QTRY_VERIFY(m_chip->count(VirtualIoWarrior::Refused) - refused >= 20);
    QCOMPARE(m_sink->values.size(), 1);
    QVERIFY(m_thread->isRunning());
    m_thread->requestStop();
    QVERIFY(m_thread->wait());
}

void tst_CIoWarriorThread::outputsAfterThePulledCablePostNoEvent()
{
    start();
    (*m_chip)->unplug();
    unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    QTRY_VERIFY(m_chip->count(VirtualIoWarrior::Refused) - refused >= 4);
    for (int change = 0; change < 10; ++change) {
        m_thread->queueOutput(change % 2 == 0 ? ~0x01 : -1, 0x01);
        refused = m_chip->count(VirtualIoWarrior::Refused);
        QTRY_VERIFY(m_chip->count(VirtualIoWarrior::Refused) - refused >= 6);
    }
    QCOMPARE(m_sink->values, QList<quint32>());
}

/** A stop waits for the end of a pass, and thus for as much as one answer. */
void tst_CIoWarriorThread::chipThatNeverAnswersHoldsNoStopUp()
{
    start();
    (*m_chip)->setSilent(true);
    for (int run = 0; run < 5; ++run) {
        unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
        QTRY_VERIFY(m_chip->count(VirtualIoWarrior::Refused) - refused >= 2);
        QVERIFY2((*m_chip)->readTimeout() <= 40, qPrintable(QString::number((*m_chip)->readTimeout())));
        refused = m_chip->count(VirtualIoWarrior::Refused);
        m_thread->requestStop();
        QVERIFY(m_thread->wait());
        QVERIFY(m_chip->count(VirtualIoWarrior::Refused) - refused <= 2);
        m_thread->start();
    }
}

void tst_CIoWarriorThread::chipThatNeverAnswersGetsItsOutputsAllTheSame()
{
    start();
    (*m_chip)->setSilent(true);
    m_thread->queueOutput(~0x01, 0x01);
    QTRY_COMPARE((*m_chip)->written(), ~0x01U);
    m_thread->queueOutput(-1, 0x01);
    QTRY_COMPARE((*m_chip)->written(), ~0U);
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::chipThatNeverAnsweredHoldsNobodyUpWhoMakesAThread()
{
    m_thread.reset();
    (*m_chip)->setSilent(true);
    const unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    m_thread = std::make_unique<CIoWarriorThread>();
    QCOMPARE(m_chip->count(VirtualIoWarrior::Refused), refused + 1);
    QVERIFY2((*m_chip)->readTimeout() <= 40, qPrintable(QString::number((*m_chip)->readTimeout())));
}

void tst_CIoWarriorThread::lateAnswersAreNotAskedForTwice()
{
    start();
    (*m_chip)->setAnswerTime(150);
    letTheThreadRead();
    const unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    const unsigned owed = m_chip->count(VirtualIoWarrior::Asked) - m_chip->count(VirtualIoWarrior::Answered);
    for (quint32 pin = 1; pin <= 4; pin <<= 1) {
        (*m_chip)->pullLow(pin);
        QTRY_COMPARE(m_sink->values.value(m_sink->values.size() - 1), ~((pin << 1) - 1));
    }
    QCOMPARE(m_sink->values.size(), 3);
    QVERIFY(m_chip->count(VirtualIoWarrior::Refused) > refused); // some passes went by in between
    m_thread->requestStop();
    QVERIFY(m_thread->wait());
    QVERIFY(m_chip->count(VirtualIoWarrior::Asked) - m_chip->count(VirtualIoWarrior::Answered) <= owed + 1);
}

void tst_CIoWarriorThread::outputsBetweenLateAnswersPostNoEvent()
{
    start();
    (*m_chip)->setAnswerTime(100);
    for (int change = 0; change < 5; ++change) {
        const quint32 levels = change % 2 == 0 ? ~0x01U : ~0U;
        m_thread->queueOutput(int(levels), 0x01);
        QTRY_COMPARE((*m_chip)->written(), levels);
    }
    (*m_chip)->setAnswerTime(0);
    letTheThreadRead();
    QCOMPARE(m_sink->values, QList<quint32>());
}

void tst_CIoWarriorThread::chipThatAnswersAgainIsReadOn()
{
    start();
    (*m_chip)->setSilent(true);
    const unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    QTRY_VERIFY(m_chip->count(VirtualIoWarrior::Refused) - refused >= 2);
    (*m_chip)->pullLow(1);
    (*m_chip)->setSilent(false); // it has heard the open question for nothing
    QTRY_COMPARE(m_sink->values, QList<quint32>{~0x01U});
}

QTEST_GUILESS_MAIN(tst_CIoWarriorThread)
#include "tst_CIoWarriorThread.moc"
