#include "io/CIoWarriorThread.h"

#include "io/CIoWarriorDevice.h"

#include <QMutexLocker>

namespace {

/** A device that has gone away answers at once: the pause spares the processor. */
constexpr unsigned long SilentPause = 10; // milliseconds

} // namespace

CIoWarriorThread::CIoWarriorThread() : m_device(CIoWarriorDevice::instance())
{
    setLastValue(m_device->read());
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
}

int CIoWarriorThread::readValue()
{
    const int value = m_device->read();
    // Without an answer there is nothing to compare: what was written meanwhile never shows.
    return m_device->isAnswering() ? value : lastValue();
}

void CIoWarriorThread::finishPass()
{
    // Written out of the lock: a device that takes no report must not hold the main thread up.
    const Output output = takePending();
    if (output.value != 0)
        writeOutput(output.value, output.mask);
    if (m_device->isAnswering())
        usleep(1);
    else
        msleep(SilentPause);
}

CIoWarriorThread::Output CIoWarriorThread::takePending()
{
    const QMutexLocker lock(&m_mutex);
    const Output output = m_pending;
    m_pending = {};
    return output;
}
