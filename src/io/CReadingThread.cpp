#include "io/CReadingThread.h"

#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>

void CReadingThread::start()
{
    if (m_stopRequested)
        wait(); // the run before ends within a pass
    if (isRunning())
        return;
    prepareRun();
    // Not in run(): a stop that comes before the new thread gets the processor must not be lost.
    m_stopRequested = false;
    QThread::start();
}

void CReadingThread::stopAndWait()
{
    requestStop();
    wait();
}

void CReadingThread::post(int value, int time)
{
    QCoreApplication::postEvent(m_target, new CRacewayIoEvent(value, time));
}

void CReadingThread::run()
{
    while (!m_stopRequested)
        pass();
}
