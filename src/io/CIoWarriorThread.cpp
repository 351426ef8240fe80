#include "io/CIoWarriorThread.h"

#include "io/CIoWarriorDevice.h"

#include <QMutexLocker>

namespace {

constexpr int AllPinsHigh = -1;
/** A device that has gone away gives no answer at once: the pause spares the processor. */
constexpr unsigned long SilentPause = 10; // milliseconds
/** Of a pass: some times what the slowest chip takes, and short for one who waits for the end. */
constexpr int AnswerWait = 30;               // milliseconds
constexpr int LongestAnswer = 1000;          // milliseconds
constexpr int AnswerWaitOfALostQuestion = 1; // milliseconds

} // namespace

CIoWarriorThread::CIoWarriorThread() : m_device(CIoWarriorDevice::instance())
{
    setLastValue(AllPinsHigh); // where the chip doesn't answer
    setLastValue(CIoWarriorThread::readValue());
}

CIoWarriorThread::~CIoWarriorThread()
{
    stopAndWait();
    CIoWarriorDevice::release();
}

void CIoWarriorThread::queueOutput(int value, int mask)
{
    const QMutexLocker lock(&m_mutex);
    if (m_pending.value == 0) {
        m_pending = {value, mask};
        return;
    }
    // Required: all the pins of the mask are flipped, even if one of them has its level already.
    if (((value ^ m_pending.value) & mask) != 0)
        m_pending.value ^= mask;
    m_pending.mask |= mask;
}

void CIoWarriorThread::writeOutput(int value, int mask)
{
    m_device->write(value);
    // The next read shows the pins that change, and only them: one of several outputs in a write
    // may have its level already.
    setLastValue(lastValue() ^ ((value ^ lastValue()) & mask));
}

void CIoWarriorThread::prepareRun()
{
    takePending();
    forgetQuestion();
}

int CIoWarriorThread::readValue()
{
    if (isQuestionGivenUp())
        forgetQuestion();
    if (!m_isQuestionOpen) {
        m_device->ask();
        m_sinceQuestion.start();
    }
    const int value = m_device->takeAnswer(AnswerWait);
    m_isQuestionOpen = !m_device->isAnswering();
    // Without an answer there is nothing to compare: what was written meanwhile never shows.
    return m_isQuestionOpen ? lastValue() : value;
}

void CIoWarriorThread::finishPass()
{
    // The answer to an open question doesn't know of what is written now.
    if (!m_isQuestionOpen || isQuestionGivenUp())
        writePending();
    if (m_isQuestionOpen)
        msleep(SilentPause);
    else
        usleep(1);
}

void CIoWarriorThread::writePending()
{
    // Written out of the lock: a device that takes no report must not hold the main thread up.
    const Output output = takePending();
    if (output.value != 0)
        writeOutput(output.value, output.mask);
}

CIoWarriorThread::Output CIoWarriorThread::takePending()
{
    const QMutexLocker lock(&m_mutex);
    const Output output = m_pending;
    m_pending = {};
    return output;
}

bool CIoWarriorThread::isQuestionGivenUp() const
{
    return m_isQuestionOpen && m_sinceQuestion.hasExpired(LongestAnswer);
}

/** An answer that has come meanwhile must not pass for that to the next question. */
void CIoWarriorThread::forgetQuestion()
{
    if (m_isQuestionOpen)
        m_device->takeAnswer(AnswerWaitOfALostQuestion);
    m_isQuestionOpen = false;
}
