#ifndef TORNIK_IO_CREADINGTHREAD_H
#define TORNIK_IO_CREADINGTHREAD_H

#include <QThread>

#include <atomic>

/**
 * Reads a device in passes without end and posts what it sees as CRacewayIoEvents. What a pass does
 * is a matter of the derived class; its object is owned by an interface and made with it, in the
 * main thread.
 */
class CReadingThread : public QThread
{
public:
    /**
     * Starts reading. Does nothing while the thread reads, unless it has been asked to stop: then a
     * new run begins.
     */
    void start();
    /** Asks the loop to end and returns at once. */
    void requestStop() { m_stopRequested = true; }

protected:
    /** @param target gets the events; not owned; must be set before start() */
    explicit CReadingThread(QObject* target = nullptr) : m_target(target) {}

    /** For the destructor of the derived class: the loop calls its operations. */
    void stopAndWait();
    void setTarget(QObject* target) { m_target = target; }

    /** Called by start(), in the main thread, before a run begins. */
    virtual void prepareRun() {}
    /** Called by the reading thread, again and again; must pause. */
    virtual void pass() = 0;

    /** Posts an event to the target. @param time stamp, as the source gives it */
    void post(int value, int time);

    void run() override;

private:
    QObject* m_target;
    std::atomic<bool> m_stopRequested{true};
};

#endif
