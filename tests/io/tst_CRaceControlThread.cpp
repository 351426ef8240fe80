#include "BoxLine.h"
#include "BoxTelegrams.h"
#include "io/CRaceControl.h"
#include "io/CRaceControlThread.h"
#include "io/CRacewayIoEvent.h"
#include "support/DebugLines.h"

#include <QtTest>

#include <optional>

namespace {

/** A target that keeps the events it gets. */
class RawEvents : public QObject
{
public:
    QList<QPair<int, int>> events; ///< value and time

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() != CRacewayIoEvent::EventType)
            return;
        const auto* raw = static_cast<CRacewayIoEvent*>(event);
        events.append({raw->value(), raw->time()});
    }
};

using Events = QList<QPair<int, int>>;

} // namespace

/** The thread on a pseudo-terminal, with the stand-in library. */
class tst_CRaceControlThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theStandInLibraryIsLoaded();
    void eventsArePostedWithTheCodeCutTo16BitsAndTheStampInTicks();
    void stampsBeyondTheSignedRangeArePassedOnBitByBit();
    void aRepeatedEventIsPostedAgain();
    void eventsThatAreNoSensorsPostNothing();
    void junkPostsNothingAndLosesNoEvent();
    void aBoxThatAsksGetsItsParameters();
    void theThreadStopsAndStartsAnyNumberOfTimes();
    void aStopRightBehindTheStartIsNotLost();
    void aLineThatHangsUpLeavesTheThreadToBeStopped();
    void oneLineThatHangsUpLeavesTheOtherBox();

private:
    void send(const BoxTelegrams::Event& event, int box = 0);

    std::optional<BoxLine> m_lines[2];
    std::optional<RawEvents> m_target;
    CRaceControl* m_control = nullptr;
    std::unique_ptr<CRaceControlThread> m_thread;
};

void tst_CRaceControlThread::init()
{
    m_control = CRaceControl::instance();
    m_target.emplace();
    m_thread = std::make_unique<CRaceControlThread>(&*m_target);
    m_lines[0].emplace();
    QVERIFY(m_control->openBox(m_lines[0]->path()));
}

void tst_CRaceControlThread::cleanup()
{
    m_thread.reset();
    CRaceControl::release();
    for (auto& line : m_lines)
        line.reset();
}

void tst_CRaceControlThread::send(const BoxTelegrams::Event& event, int box)
{
    m_lines[box]->send(QByteArray::fromStdString(BoxTelegrams::encode(event)));
}

void tst_CRaceControlThread::theStandInLibraryIsLoaded()
{
    QVERIFY(m_control->isLibraryLoaded());
}

void tst_CRaceControlThread::eventsArePostedWithTheCodeCutTo16BitsAndTheStampInTicks()
{
    m_thread->start();
    send({0x0203, 4800});
    QTRY_COMPARE(m_target->events, (Events{{0x0203, 4800}}));
    m_thread->requestStop();
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(m_control->lastEvent(), 0x10203U); // as the library gave it
}

void tst_CRaceControlThread::stampsBeyondTheSignedRangeArePassedOnBitByBit()
{
    m_thread->start();
    send({0x0203, 0x7FFFFFFF});
    send({0x0303, 0x80000000});
    send({0x0203, 0xFFFFFFFF});
    QTRY_COMPARE(m_target->events, (Events{{0x0203, INT_MAX}, {0x0303, INT_MIN}, {0x0203, -1}}));
}

void tst_CRaceControlThread::aRepeatedEventIsPostedAgain()
{
    m_thread->start();
    send({0x0203, 4800});
    send({0x0203, 4800});
    QTRY_COMPARE(m_target->events.size(), 2);
}

void tst_CRaceControlThread::eventsThatAreNoSensorsPostNothing()
{
    m_thread->start();
    for (const quint16 code : {0x0400, 0x0500, 0x0600, 0x0700, 0x0000, 0xFF00})
        send({code, 1});
    send({0x0202, 2});
    QTRY_COMPARE(m_target->events, (Events{{0x0202, 2}}));
}

void tst_CRaceControlThread::junkPostsNothingAndLosesNoEvent()
{
    m_thread->start();
    QByteArray junk;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != BoxTelegrams::EventBegin)
            junk.append(char(byte));
    }
    std::string spoilt = BoxTelegrams::encode(BoxTelegrams::Event{0x0201, 5});
    spoilt.back() = char(spoilt.back() + 1);
    m_lines[0]->send(junk);
    m_lines[0]->send(QByteArray::fromStdString(spoilt));
    send({0x0202, 9});
    QTRY_COMPARE(m_target->events, (Events{{0x0202, 9}}));
}

void tst_CRaceControlThread::aBoxThatAsksGetsItsParameters()
{
    m_control->setWord2(130, 0);
    m_control->setWord3(50, 0);
    m_control->setWord4(15, 0);
    m_control->setFlag6(true, 0);
    m_thread->start();
    send({0x0600, 1});
    const QByteArray expected =
        QByteArray::fromStdString(BoxTelegrams::encode(BoxTelegrams::Parameters{130, 50, 15, 0, 1}));
    QTRY_COMPARE(m_lines[0]->received(), expected);
    QVERIFY(m_target->events.isEmpty());
}

void tst_CRaceControlThread::theThreadStopsAndStartsAnyNumberOfTimes()
{
    QVERIFY(!m_thread->isRunning());
    for (int run = 1; run <= 3; ++run) {
        m_thread->start();
        m_thread->start();
        QVERIFY(m_thread->isRunning());
        send({0x0202, quint32(run)});
        QTRY_COMPARE(m_target->events.size(), run);
        m_thread->requestStop();
        if (run == 2)
            m_thread->start(); // while the run before may still be on its last pass
        m_thread->requestStop();
        QTRY_VERIFY(!m_thread->isRunning());
    }
}

void tst_CRaceControlThread::aStopRightBehindTheStartIsNotLost()
{
    for (int run = 0; run < 20; ++run) {
        m_thread->start();
        m_thread->requestStop();
        QVERIFY(m_thread->wait(5000));
    }
}

void tst_CRaceControlThread::aLineThatHangsUpLeavesTheThreadToBeStopped()
{
    const DebugLines lines("tornik.io");
    const QString lost = QStringLiteral("RaceControl: lost, \"%1\"").arg(m_lines[0]->path());
    m_thread->start();
    m_lines[0]->pull();
    QTRY_COMPARE(lines.count(lost), 1);
    QVERIFY(m_thread->isRunning());
    QCOMPARE(m_control->boxCount(), 1);
    m_thread->requestStop();
    QVERIFY(m_thread->wait(5000));
    QVERIFY(!m_control->hasLine());
    QCOMPARE(lines.count(lost), 1);
}

void tst_CRaceControlThread::oneLineThatHangsUpLeavesTheOtherBox()
{
    m_lines[1].emplace();
    QVERIFY(m_control->openBox(m_lines[1]->path()));
    m_thread->start();
    m_lines[0]->pull();
    send({0x0204, 7}, 1);
    QTRY_COMPARE(m_target->events, (Events{{0x0204, 7}}));
    send({0x0304, 8}, 1);
    QTRY_COMPARE(m_target->events.size(), 2);
}

QTEST_GUILESS_MAIN(tst_CRaceControlThread)
#include "tst_CRaceControlThread.moc"
