#include "CommandLine.h"

#include "support/OptionValues.h"

#include <QCommandLineParser>

#include <limits>

namespace {

constexpr int MostCars = 8;
constexpr int LongestLap = 3600000;

QList<QCommandLineOption> options()
{
    return {
        {"cars", "Number of cars, 1 to 8, each a little slower than the one before.", "n", "2"},
        {"car", "One car; may be given up to eight times, instead of --cars.", "mean:spread:fuel"},
        {"laps", "Laps of each car; 0 for no end.", "n", "0"},
        {"sectors", "Sectors of the track, 1 to 3.", "n", "1"},
        {"seed", "The same seed drives the same laps.", "n", "1"},
        {"speed-up", "How much faster than real time the race runs.", "factor", "1"},
        {"light-step", "Milliseconds between two start lamps; 0 for none.", "ms", "1000"},
        {"clock", "The unit's clock when it is switched on.", "ms", "1000"},
        {"baud", "Pace of the line; 0 for none.", "n", "19200"},
        {"long-status", "Send status frames of 19 characters."},
        {"noise", "Percent of the answers with junk in them.", "percent", "0"},
        {"lost-end", "Percent of the answers without an end.", "percent", "0"},
        {"bad-checksum", "Percent of the answers with a wrong checksum.", "percent", "0"},
        {"repeat", "Percent of the crossings after which two cars are repeated.", "percent", "0"},
        {"journal", "File that gets a line for each crossing that was read: car stamp group.", "file"},
        {"link", "Symbolic link to the terminal, renewed when it is plugged in again.", "path"},
        {"start", "Press the start button at once."},
    };
}

ControlUnitSettings::Car carOf(const QString& text, OptionValues& values)
{
    const QStringList parts = text.split(':');
    if (parts.size() != 3) {
        values.complain("car", text);
        return {};
    }
    ControlUnitSettings::Car car;
    car.pace.meanLapTime = int(values.read("car", parts.at(0), 1, LongestLap));
    car.pace.spread = int(values.read("car", parts.at(1), 0, LongestLap));
    car.fuel = int(values.read("car", parts.at(2), 0, 15));
    return car;
}

QVector<ControlUnitSettings::Car> carsOf(const QCommandLineParser& parser, OptionValues& values)
{
    QVector<ControlUnitSettings::Car> cars;
    for (const QString& text : parser.values("car"))
        cars.append(carOf(text, values));
    if (cars.size() > MostCars)
        values.complain("car", QString::number(cars.size()));
    const int count = cars.isEmpty() ? values.integer("cars", 1, MostCars) : 0;
    for (int car = 0; car < count; ++car)
        cars.append({{6000 + 150 * car, 400}, 15});
    return cars;
}

ControlUnitSettings unitOf(const QCommandLineParser& parser, OptionValues& values)
{
    ControlUnitSettings unit;
    unit.cars = carsOf(parser, values);
    unit.laps = values.integer("laps", 0, 100000);
    unit.sectors = values.integer("sectors", 1, 3);
    unit.seed = quint32(values.number("seed", 0, std::numeric_limits<quint32>::max()));
    unit.speedUp = values.number("speed-up", 0.01, 1000);
    unit.lightStep = values.integer("light-step", 0, 60000);
    unit.firstStamp = quint32(values.number("clock", 0, std::numeric_limits<quint32>::max()));
    unit.baud = values.integer("baud", 0, 1000000);
    unit.longStatus = parser.isSet("long-status");
    unit.faults.noise = values.integer("noise", 0, 100);
    unit.faults.lostEnd = values.integer("lost-end", 0, 100);
    unit.faults.badChecksum = values.integer("bad-checksum", 0, 100);
    unit.faults.repeat = values.integer("repeat", 0, 100);
    return unit;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "A Control Unit on a pseudo-terminal. The first line it prints is the path"
        " to connect to; then it takes commands, see \"help\".");
    parser.addHelpOption();
    parser.addOptions(options());
    parser.process(arguments);

    OptionValues values(parser);
    CommandLine line;
    line.unit = unitOf(parser, values);
    line.files = {parser.value("journal"), parser.value("link")};
    line.startAtOnce = parser.isSet("start");
    line.error = values.error();
    return line;
}
