#include "io/CPortThread.h"

#include "io/CInpOutLibrary.h"
#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>
#include <QElapsedTimer>

CPortThread::CPortThread(QObject* target)
    : m_target(target), m_library(CInpOutLibrary::instance()), m_lastValue(m_library->readPort())
{
}

CPortThread::~CPortThread()
{
    requestStop();
    wait();
    CInpOutLibrary::release();
}

void CPortThread::setBaseAddress(int address)
{
    m_library->setBaseAddress(address);
}

void CPortThread::setInputOffset(int offset)
{
    m_library->setInputOffset(offset);
}

void CPortThread::setOutputOffset(int offset)
{
    m_library->setOutputOffset(offset);
}

void CPortThread::start()
{
    if (m_stopRequested)
        wait(); // the run before ends within a pass
    // Not in run(): a stop that comes before the new thread gets the processor must not be lost.
    m_stopRequested = false;
    QThread::start();
}

void CPortThread::run()
{
    QElapsedTimer clock;
    clock.start();
    while (!m_stopRequested) {
        const int value = m_library->readPort();
        if (value != m_lastValue)
            QCoreApplication::postEvent(m_target, new CRacewayIoEvent(value, int(clock.elapsed())));
        m_lastValue = value;
        usleep(1);
    }
}
