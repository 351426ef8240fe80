#include "io/CRaceControlThread.h"

#include "io/CRaceControl.h"

namespace {

constexpr unsigned long PauseWithoutLine = 100; // milliseconds

} // namespace

CRaceControlThread::CRaceControlThread(QObject* target)
    : CReadingThread(target), m_device(CRaceControl::instance())
{
}

CRaceControlThread::~CRaceControlThread()
{
    stopAndWait();
    CRaceControl::release();
}

void CRaceControlThread::pass()
{
    // Required: the time goes on in ticks of the box, 4800 a second, not in milliseconds.
    if (m_device->poll())
        post(int(m_device->lastEvent() & 0xFFFFU), int(m_device->lastTimeStamp()));
    if (m_device->hasLine())
        usleep(1);
    else
        msleep(PauseWithoutLine);
}
