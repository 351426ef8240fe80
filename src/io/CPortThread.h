#ifndef TORNIK_IO_CPORTTHREAD_H
#define TORNIK_IO_CPORTTHREAD_H

#include "io/CLevelThread.h"

class CInpOutLibrary;

/** Reads the input register of the parallel port. Owned by CParallelPortIo. */
class CPortThread : public CLevelThread
{
public:
    /**
     * Reads the port once, so that the first event of a run is a true change.
     * @param target gets the events; not owned
     */
    explicit CPortThread(QObject* target);
    /** Stops the thread and waits for it. */
    ~CPortThread() override;

    void setBaseAddress(int address);
    void setInputOffset(int offset);
    void setOutputOffset(int offset);

protected:
    int readValue() override;

private:
    CInpOutLibrary* m_library;
};

#endif
