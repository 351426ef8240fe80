#include "io/CReadingThread.h"

#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>
#include <QElapsedTimer>

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

void CReadingThread::run()
{
    QElapsedTimer clock;
    clock.start();
    while (!m_stopRequested) {
        const int value = readValue();
        if (value != m_lastValue)
            QCoreApplication::postEvent(m_target, new CRacewayIoEvent(value, int(clock.elapsed())));
        m_lastValue = value;
        finishPass();
    }
}
