#ifndef TORNIK_IO_CPORTTHREAD_H
#define TORNIK_IO_CPORTTHREAD_H

#include <QThread>

#include <atomic>

class CInpOutLibrary;

/**
 * Reads the input register of the parallel port without a pause and posts a CRacewayIoEvent for
 * each change, stamped at the read. Owned by CParallelPortIo and made with it, in the main thread.
 */
class CPortThread : public QThread
{
public:
    /**
     * Reads the port once, so that the first event of a run is a true change.
     * @param target gets the events; not owned
     */
    explicit CPortThread(QObject* target);
    /** Stops the thread and waits for it. */
    ~CPortThread() override;

    void setBaseAddress(int address);
    void setInputOffset(int offset);
    void setOutputOffset(int offset);

    /**
     * Starts reading, on from the value last seen; time stamps begin at 0. Does nothing while the
     * thread reads, unless it has been asked to stop: then a new run begins.
     */
    void start();
    /** Asks the loop to end and returns at once. */
    void requestStop() { m_stopRequested = true; }

protected:
    void run() override;

private:
    QObject* m_target;
    std::atomic<bool> m_stopRequested{true};
    CInpOutLibrary* m_library;
    int m_lastValue;
};

#endif
