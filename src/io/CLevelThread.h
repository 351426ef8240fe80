#ifndef TORNIK_IO_CLEVELTHREAD_H
#define TORNIK_IO_CLEVELTHREAD_H

#include "io/CReadingThread.h"

#include <QElapsedTimer>

/**
 * A reading thread of a device that shows its inputs as the bits of one value: each change is
 * posted, stamped at the read in milliseconds since the start of the run. A run goes on from the
 * value that was seen last.
 */
class CLevelThread : public CReadingThread
{
protected:
    using CReadingThread::CReadingThread;

    /** @return the value as it is now. Called by the reading thread, once a pass. */
    virtual int readValue() = 0;
    /** What ends a pass, its pause included. Called by the reading thread. */
    virtual void finishPass() { usleep(1); }

    /** The value with which the next one is compared; while the thread reads, it alone has it. */
    int lastValue() const { return m_lastValue; }
    void setLastValue(int value) { m_lastValue = value; }

    void run() override;
    void pass() override;

private:
    QElapsedTimer m_clock; ///< of the reading thread
    int m_lastValue = 0;
};

#endif
