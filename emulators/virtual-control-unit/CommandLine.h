#ifndef TORNIK_EMULATORS_CONTROLUNITCOMMANDLINE_H
#define TORNIK_EMULATORS_CONTROLUNITCOMMANDLINE_H

#include "ControlUnitModel.h"
#include "support/TerminalProgram.h"

#include <QString>
#include <QStringList>

/** What the program was told when it was started. */
struct CommandLine
{
    ControlUnitSettings unit;
    TerminalProgram::Files files;
    bool startAtOnce = false;
    QString error; ///< why the words couldn't be read; empty if they could

    /** Shows the help and leaves the program if that is asked for. */
    static CommandLine parse(const QStringList& arguments);
};

#endif
