#include "io/CLevelThread.h"

void CLevelThread::run()
{
    m_clock.start();
    CReadingThread::run();
}

void CLevelThread::pass()
{
    const int value = readValue();
    if (value != m_lastValue)
        post(value, int(m_clock.elapsed()));
    m_lastValue = value;
    finishPass();
}
