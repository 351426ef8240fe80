#ifndef TORNIK_EMULATORS_AT2560COMMANDLINE_H
#define TORNIK_EMULATORS_AT2560COMMANDLINE_H

#include "At2560Model.h"
#include "support/TerminalProgram.h"

#include <QString>
#include <QStringList>

/** What the program was told when it was started. */
struct At2560CommandLine
{
    At2560Settings box;
    TerminalProgram::Files files;
    QString script; ///< file of commands; empty for none
    QString error;  ///< why the words couldn't be read; empty if they could

    /** Shows the help and leaves the program if that is asked for. */
    static At2560CommandLine parse(const QStringList& arguments);
};

#endif
