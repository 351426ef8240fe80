#include "At2560CommandLine.h"

#include "support/OptionValues.h"

#include <QCommandLineParser>

#include <limits>

namespace {

constexpr int MostCars = 8;
constexpr int LastInput = 53;
constexpr double LastStamp = std::numeric_limits<quint32>::max();

QList<QCommandLineOption> options()
{
    return {
        {"cars", "Number of cars, 0 to 8, each a little slower than the one before.", "n", "0"},
        {"laps", "Laps of each car; 0 for no end.", "n", "0"},
        {"sectors", "Sectors of the track, 1 to 3.", "n", "1"},
        {"lap-input", "Input of the first car's lap sensor; the other cars' follow.", "n", "1"},
        {"sector2-input", "The same for the begin of sector 2.", "n", "9"},
        {"sector3-input", "The same for the begin of sector 3.", "n", "17"},
        {"seed", "The same seed drives the same laps.", "n", "1"},
        {"speed-up", "How much faster than real time the box's clock runs.", "factor", "1"},
        {"clock", "The box's clock when it is switched on.", "ms", "1000"},
        {"active-high", "The digit 1 switches an output on, not 0."},
        {"split", "Percent of the frames that go out in pieces.", "percent", "0"},
        {"joined", "Percent of the frames that wait for the next one.", "percent", "0"},
        {"junk", "Percent of the frames with junk ahead of them.", "percent", "0"},
        {"nonsense", "Percent of the frames with a meaningless frame ahead.", "percent", "0"},
        {"journal", "File that gets a line for each input that was reported: input stamp.", "file"},
        {"link", "Symbolic link to the terminal, renewed when it is plugged in again.", "path"},
        {"script", "File with commands, carried out before those of the standard input.", "file"},
    };
}

At2560FaultRates faultsOf(OptionValues& values)
{
    At2560FaultRates faults;
    faults.split = values.integer("split", 0, 100);
    faults.joined = values.integer("joined", 0, 100);
    faults.junk = values.integer("junk", 0, 100);
    faults.nonsense = values.integer("nonsense", 0, 100);
    return faults;
}

At2560Settings boxOf(const QCommandLineParser& parser, OptionValues& values)
{
    At2560Settings box;
    const int cars = values.integer("cars", 0, MostCars);
    for (int car = 0; car < cars; ++car)
        box.cars.append({6000 + 150 * car, 400});
    box.laps = values.integer("laps", 0, 100000);
    box.sectors = values.integer("sectors", 1, 3);
    box.firstLapInput = values.integer("lap-input", 0, LastInput);
    box.firstSector2Input = values.integer("sector2-input", 0, LastInput);
    box.firstSector3Input = values.integer("sector3-input", 0, LastInput);
    box.seed = quint32(values.number("seed", 0, LastStamp));
    box.speedUp = values.number("speed-up", 0.01, 1000);
    box.firstStamp = quint32(values.number("clock", 0, LastStamp));
    box.activeHigh = parser.isSet("active-high");
    box.faults = faultsOf(values);
    return box;
}

} // namespace

At2560CommandLine At2560CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "An AT2560 timing box on a pseudo-terminal. The first line it prints is the path"
        " to connect to; then it takes commands, see \"help\".");
    parser.addHelpOption();
    parser.addOptions(options());
    parser.process(arguments);

    OptionValues values(parser);
    At2560CommandLine line;
    line.box = boxOf(parser, values);
    line.files = {parser.value("journal"), parser.value("link")};
    line.script = parser.value("script");
    line.error = values.error();
    return line;
}
