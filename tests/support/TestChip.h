#ifndef TORNIK_TESTS_SUPPORT_TESTCHIP_H
#define TORNIK_TESTS_SUPPORT_TESTCHIP_H

#include "VirtualIoWarrior.h"
#include "support/PrivateDevice.h"

/**
 * A virtual IO-Warrior of this process alone. Make it before the first object that opens one; the
 * stand-in library shows the chip that was plugged in last.
 */
class TestChip : public PrivateDevice<VirtualIoWarrior>
{
public:
    static constexpr unsigned Warrior40 = 0x1500;
    static constexpr unsigned Warrior24 = 0x1501;
    static constexpr unsigned WithoutPins = 0x1502;
    static constexpr unsigned Warrior56 = 0x1503;
    static constexpr unsigned Warrior28 = 0x1504;
    static constexpr unsigned SmallWarrior28 = 0x1505;
    static constexpr unsigned Warrior100 = 0x1506;

    TestChip() : PrivateDevice("TORNIK_VIRTUAL_IOWARRIOR") {}

    /** A fresh chip, with nothing that pulls at its pins. @return whether there is such a product */
    bool plug(unsigned productId)
    {
        (*this)->letGo(~0U);
        return (*this)->plug(productId);
    }

    unsigned count(VirtualIoWarrior::Happening happening) { return (*this)->count(happening); }
};

#endif
