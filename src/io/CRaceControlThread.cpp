#include "io/CRaceControlThread.h"

#include "io/CRaceControl.h"
#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>

namespace {

constexpr unsigned long PauseWithoutLine = 100; // milliseconds

} // namespace

CRaceControlThread::CRaceControlThread(QObject* target) : m_target(target), m_device(CRaceControl::instance())
{
}

CRaceControlThread::~CRaceControlThread()
{
    requestStop();
    wait();
    CRaceControl::release();
}

void CRaceControlThread::start()
{
    if (m_stopRequested)
        wait(); // the run before ends within a pass
    // Not in run(): a stop that comes before the new thread gets the processor must not be lost.
    m_stopRequested = false;
    QThread::start();
}

void CRaceControlThread::run()
{
    while (!m_stopRequested) {
        pass();
        if (m_device->hasLine())
            usleep(1);
        else
            msleep(PauseWithoutLine);
    }
}

void CRaceControlThread::pass()
{
    if (!m_device->poll())
        return;
    // Required: the time goes on in ticks of the box, 4800 a second, not in milliseconds.
    QCoreApplication::postEvent(
        m_target, new CRacewayIoEvent(int(m_device->lastEvent() & 0xFFFFU), int(m_device->lastTimeStamp())));
}
