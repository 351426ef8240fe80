#ifndef TORNIK_TESTS_SUPPORT_CONTROLUNITDEVICE_H
#define TORNIK_TESTS_SUPPORT_CONTROLUNITDEVICE_H

#include "ControlUnitModel.h"

#include <QIODevice>

#include <cstring>
#include <functional>

/** The clock of a virtual unit, which runs only while somebody waits for it, and what it counts. */
struct WaitingClock
{
    qint64 now = 0;               ///< microseconds
    int asked = 0;                ///< pieces written, each a poll or a command
    int answered = 0;             ///< frames that came to their end
    std::function<void()> atWait; ///< called before each wait, by the thread that waits
};

/**
 * A line to a ControlUnitModel in memory: a wait takes no time, it moves the unit's clock. An
 * adapter with a latency hands over late, and then all that has gathered.
 */
class ControlUnitDevice : public QIODevice
{
public:
    ControlUnitDevice(ControlUnitModel* model, WaitingClock* clock, qint64 latency = 0)
        : m_model(model), m_clock(clock), m_latency(latency)
    {
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_arrived.size() + QIODevice::bytesAvailable(); }

    bool waitForReadyRead(int milliseconds) override
    {
        if (m_clock->atWait)
            m_clock->atWait();
        const qint64 deadline = m_clock->now + milliseconds * qint64(1000);
        while (!handOver()) {
            const qint64 next = nextChange();
            if (next < 0 || next > deadline) {
                m_clock->now = deadline;
                return false;
            }
            m_clock->now = qMax(m_clock->now, next);
        }
        return true;
    }

    bool waitForBytesWritten(int /*milliseconds*/) override { return true; }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const int size = int(qMin(maxSize, qint64(m_arrived.size())));
        std::memcpy(data, m_arrived.constData(), std::size_t(size));
        m_arrived.remove(0, size);
        return size;
    }

    qint64 writeData(const char* data, qint64 size) override
    {
        ++m_clock->asked;
        m_model->receive(QByteArray(data, int(size)));
        return size;
    }

private:
    /** Takes what the unit has sent; the first byte of it sets the time at which all arrives. */
    bool handOver()
    {
        const QByteArray bytes = m_model->transmit();
        m_clock->answered += bytes.count('$');
        if (m_gathered.isEmpty())
            m_handOverAt = m_clock->now + m_latency;
        m_gathered += bytes;
        if (m_gathered.isEmpty() || m_clock->now < m_handOverAt)
            return false;
        m_arrived += m_gathered;
        m_gathered.clear();
        return true;
    }

    qint64 nextChange() const
    {
        const qint64 next = m_model->nextChange();
        if (m_gathered.isEmpty())
            return next;
        return next < 0 ? m_handOverAt : qMin(next, m_handOverAt);
    }

    ControlUnitModel* m_model;
    WaitingClock* m_clock;
    qint64 m_latency;
    QByteArray m_gathered; ///< in the adapter
    qint64 m_handOverAt = 0;
    QByteArray m_arrived;
};

#endif
