#ifndef TORNIK_IO_CRACECONTROLTHREAD_H
#define TORNIK_IO_CRACECONTROLTHREAD_H

#include "io/CReadingThread.h"

class CRaceControl;

/**
 * Polls the RaceControl boxes without a pause and posts a CRacewayIoEvent for each sensor that they
 * report, with the stamp of the box. Owned by CRaceControlIo. When the lines of all boxes have hung
 * up the thread waits, 100 ms a pass, until it is stopped.
 */
class CRaceControlThread : public CReadingThread
{
    Q_OBJECT

public:
    /** @param target gets the events; not owned */
    explicit CRaceControlThread(QObject* target);
    /** Stops the thread and waits for it. */
    ~CRaceControlThread() override;

protected:
    void pass() override;

private:
    CRaceControl* m_device;
};

#endif
