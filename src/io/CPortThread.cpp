#include "io/CPortThread.h"

#include "io/CInpOutLibrary.h"

CPortThread::CPortThread(QObject* target) : CLevelThread(target), m_library(CInpOutLibrary::instance())
{
    setLastValue(m_library->readPort());
}

CPortThread::~CPortThread()
{
    stopAndWait();
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

int CPortThread::readValue()
{
    return m_library->readPort();
}
