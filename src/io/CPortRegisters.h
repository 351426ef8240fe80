#ifndef TORNIK_IO_CPORTREGISTERS_H
#define TORNIK_IO_CPORTREGISTERS_H

#include <memory>

/**
 * Access to the registers of a parallel port by their absolute addresses, in whichever way this
 * machine offers one. Owned by CInpOutLibrary. Registers are read by the reading thread while the
 * main thread writes others: both operations are safe to call from any thread.
 */
class CPortRegisters
{
public:
    virtual ~CPortRegisters() = default;

    /** @return the value of one byte register, as the driver extends it to 16 bits. */
    virtual short read(short address) = 0;
    virtual void write(short address, short value) = 0;

    /**
     * The best access this machine has: the library `inpout32`, else the kernel's parallel port
     * driver, else none. @return never null
     */
    static std::unique_ptr<CPortRegisters> create();
};

/**
 * Where there is no port: every register reads 255 and swallows what is written. The first use in
 * this process says so in a debug line.
 */
class CNoPortRegisters : public CPortRegisters
{
public:
    static constexpr short ReadValue = 255;

    short read(short address) override;
    void write(short address, short value) override;
};

#endif
