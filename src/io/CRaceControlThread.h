#ifndef TORNIK_IO_CRACECONTROLTHREAD_H
#define TORNIK_IO_CRACECONTROLTHREAD_H

#include <QThread>

#include <atomic>

class CRaceControl;

/**
 * Polls the RaceControl boxes without a pause and posts a CRacewayIoEvent for each sensor that they
 * report, with the stamp of the box. Owned by CRaceControlIo and made with it, in the main thread.
 * When the lines of all boxes have hung up the thread waits, 100 ms a pass, until it is stopped.
 */
class CRaceControlThread : public QThread
{
    Q_OBJECT

public:
    /** @param target gets the events; not owned */
    explicit CRaceControlThread(QObject* target);
    /** Stops the thread and waits for it. */
    ~CRaceControlThread() override;

    /**
     * Starts reading. Does nothing while the thread reads, unless it has been asked to stop: then a
     * new run begins.
     */
    void start();
    /** Asks the loop to end and returns at once. */
    void requestStop() { m_stopRequested = true; }

protected:
    void run() override;

private:
    void pass();

    QObject* m_target;
    std::atomic<bool> m_stopRequested{true};
    CRaceControl* m_device;
};

#endif
