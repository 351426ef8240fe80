/**
 * Stand-in for the library `inpout32`: the four entries that the program looks up, on the registers
 * of a virtual port.
 */
#include "VirtualPort.h"

namespace {

VirtualPort& port()
{
    static VirtualPort virtualPort;
    return virtualPort;
}

} // namespace

extern "C" {

short Inp32(short address)
{
    port().countRead();
    return port().read(static_cast<unsigned short>(address));
}

void Out32(short address, short value)
{
    port().write(static_cast<unsigned short>(address), short(value & 0xFF));
    port().countWrite();
}

int IsInpOutDriverOpen()
{
    return port().isOpen() ? 1 : 0;
}

int IsXP64Bit()
{
    return 1;
}

} // extern "C"
