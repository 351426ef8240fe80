#ifndef TORNIK_TESTS_SUPPORT_RACEBOX_H
#define TORNIK_TESTS_SUPPORT_RACEBOX_H

#include "support/EmulatorProgram.h"

/** The program virtual-race-box. */
class RaceBox : public EmulatorProgram
{
public:
    RaceBox() : EmulatorProgram(QStringLiteral("virtual-race-box")) {}

    /** @return how many events were sent so far. */
    int events() { return ask("status", "clock").section(' ', 3, 3).toInt(); }
};

#endif
