#ifndef TORNIK_IO_CINPOUTLIBRARY_H
#define TORNIK_IO_CINPOUTLIBRARY_H

#include <QtGlobal>

#include <atomic>
#include <memory>

class CPortRegisters;
template <typename Device>
class SharedDevice;

/**
 * The parallel port of this process: one input and one output register at a base address.
 *
 * One shared object, handed out with a reference count in the main thread; address and offsets
 * belong to whichever interface set them last. readPort() is called by the reading thread while
 * the main thread writes; neither needs a lock.
 */
class CInpOutLibrary
{
public:
    static constexpr int DefaultBaseAddress = 888; ///< 0x378
    static constexpr int DefaultInputOffset = 1;   ///< the status register
    static constexpr int DefaultOutputOffset = 0;  ///< the data register

    /** Takes a reference; the first one makes the object. Main thread only. */
    static CInpOutLibrary* instance();
    /** Gives a reference back; the last one frees the object. Main thread only. */
    static void release();

    void setBaseAddress(int address) { m_baseAddress = address; }
    void setInputOffset(int offset) { m_inputOffset = offset; }
    void setOutputOffset(int offset) { m_outputOffset = offset; }

    /** @return the input register, sign-extended from 16 bits. */
    int readPort();
    void writePort(short value);

private:
    friend class SharedDevice<CInpOutLibrary>;

    CInpOutLibrary();
    ~CInpOutLibrary();
    Q_DISABLE_COPY(CInpOutLibrary)

    std::unique_ptr<CPortRegisters> m_registers;
    std::atomic<int> m_baseAddress{DefaultBaseAddress};
    std::atomic<int> m_inputOffset{DefaultInputOffset};
    std::atomic<int> m_outputOffset{DefaultOutputOffset};
};

#endif
