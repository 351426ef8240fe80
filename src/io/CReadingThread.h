#ifndef TORNIK_IO_CREADINGTHREAD_H
#define TORNIK_IO_CREADINGTHREAD_H

#include <QThread>

#include <atomic>

/**
 * Reads an input value without a pause and posts a CRacewayIoEvent for each change, stamped at the
 * read. What is read is a matter of the derived class; its object is owned by an interface and
 * made with it, in the main thread.
 */
class CReadingThread : public QThread
{
public:
    /**
     * Starts reading, on from the value last seen; time stamps begin at 0. Does nothing while the
     * thread reads, unless it has been asked to stop: then a new run begins.
     */
    void start();
    /** Asks the loop to end and returns at once. */
    void requestStop() { m_stopRequested = true; }

protected:
    /** @param target gets the events; not owned; must be set before start() */
    explicit CReadingThread(QObject* target = nullptr) : m_target(target) {}

    /** For the destructor of the derived class: the loop calls its operations. */
    void stopAndWait();

    /** Called by start(), in the main thread, before a run begins. */
    virtual void prepareRun() {}
    /** @return the input value as it is now. Called by the reading thread, once a pass. */
    virtual int readValue() = 0;
    /** What ends a pass, its pause included. Called by the reading thread. */
    virtual void finishPass() { usleep(1); }

    /** The value with which the next one is compared; while the thread reads, it alone has it. */
    int lastValue() const { return m_lastValue; }
    void setLastValue(int value) { m_lastValue = value; }

    void setTarget(QObject* target) { m_target = target; }

    void run() override;

private:
    QObject* m_target;
    std::atomic<bool> m_stopRequested{true};
    int m_lastValue = 0;
};

#endif
