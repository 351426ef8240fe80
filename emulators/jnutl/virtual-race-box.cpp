#include "VirtualRaceBox.h"
#include "support/OptionValues.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <limits>

namespace {

void prepare(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        "A RaceControl box on a pseudo-terminal, for the stand-in library jnutl. The first line it"
        " prints is the path to connect to; then it takes commands, see \"help\".");
    parser.addHelpOption();
    parser.addOptions({
        {"number", "Which of the boxes it is, 0 to 3.", "n", "0"},
        {"clock", "The box's clock when it is switched on; 4800 ticks a second.", "ticks", "4800"},
        {"journal", "File that gets a line for each event: code ticks.", "file"},
        {"link", "Symbolic link to the terminal, renewed when it is plugged in again.", "path"},
    });
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    prepare(parser);
    parser.process(QCoreApplication::arguments());

    OptionValues values(parser);
    RaceBoxSettings settings;
    settings.files = {parser.value("journal"), parser.value("link")};
    settings.number = values.integer("number", 0, 3);
    settings.firstStamp = quint32(values.number("clock", 0, std::numeric_limits<quint32>::max()));
    if (!values.error().isEmpty()) {
        std::fprintf(stderr, "not understood: %s\n", qPrintable(values.error()));
        return 2;
    }
    VirtualRaceBox box(settings);
    return box.run();
}
