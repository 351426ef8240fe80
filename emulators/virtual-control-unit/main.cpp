#include "CommandLine.h"
#include "VirtualControlUnit.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const CommandLine commandLine = CommandLine::parse(QCoreApplication::arguments());
    if (!commandLine.error.isEmpty()) {
        std::fprintf(stderr, "not understood: %s\n", qPrintable(commandLine.error));
        return 2;
    }
    VirtualControlUnit unit(commandLine);
    return unit.run();
}
