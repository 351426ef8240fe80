#include "At2560CommandLine.h"
#include "VirtualAt2560.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const At2560CommandLine commandLine = At2560CommandLine::parse(QCoreApplication::arguments());
    if (!commandLine.error.isEmpty()) {
        std::fprintf(stderr, "not understood: %s\n", qPrintable(commandLine.error));
        return 2;
    }
    VirtualAt2560 box(commandLine);
    return box.run();
}
