#ifndef TORNIK_TESTS_IO_TESTPORT_H
#define TORNIK_TESTS_IO_TESTPORT_H

#include "VirtualPort.h"
#include "support/PrivateDevice.h"

/**
 * A virtual parallel port of this process alone. Make it before the first parallel port object; the
 * stand-in library shows its registers as long as the shared CInpOutLibrary lives.
 */
class TestPort : public PrivateDevice<VirtualPort>
{
public:
    static constexpr unsigned short Data = 0x378;
    static constexpr unsigned short Status = 0x379;
    static constexpr unsigned short Control = 0x37A;

    TestPort() : PrivateDevice("TORNIK_VIRTUAL_PORT") {}

    void reset()
    {
        (*this)->write(Data, 0);
        (*this)->write(Status, 127);
        (*this)->write(Control, 0);
    }

    /** Closes sensors that hang on the status register, all of them open after reset(). */
    void press(short bits) { (*this)->clearBits(Status, bits); }
    void release(short bits) { (*this)->setBits(Status, bits); }
};

#endif
