// Prepares a race on the virtual Control Unit in the working directory: a raceway of four tracks
// and two sectors in tornik.db, four drivers and cars, and the settings of the user's store.
//
// usage: prepare-demo SERIAL-PORT LAPS

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "io/CCarreraCuIo.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

namespace {

constexpr int Tracks = 4;
constexpr int Sectors = 2;
constexpr int TrackLength = 1250; // centimetres
const char* const DriverNames[Tracks] = {"Anna", "Ben", "Clara", "Jörg"};
const char* const CarNames[Tracks] = {"Blau #1", "Rot #2", "Grün #3", "Weiß #4"};

CRaceway demoRaceway(const QString& port)
{
    CCarreraCuIo io;
    io.setPortName(port);
    CRaceway raceway(Tracks);
    raceway.name = QStringLiteral("Demo");
    raceway.numberOfSectors = Sectors;
    raceway.ioSettings = io.writeSettings();
    for (CRacewayTrack& track : raceway.tracks)
        track.length = TrackLength;
    return raceway;
}

void addCurrentRaceway(const QString& port)
{
    CRacewayList raceways;
    raceways.addRaceway(demoRaceway(port));
    for (int row = 0; row < raceways.racewayCount(); ++row) {
        if (raceways.racewayAt(row).name == QLatin1String("Demo"))
            raceways.setCurrentRow(row);
    }
}

void addDriversAndCars(CRaceSettings& settings)
{
    CDriverList drivers(nullptr);
    CCarList cars(nullptr);
    for (int track = 0; track < Tracks; ++track) {
        CDriver driver;
        driver.setName(QString::fromUtf8(DriverNames[track]));
        drivers.addDriver(driver);
        CCar car;
        car.setName(QString::fromUtf8(CarNames[track]));
        cars.addCar(car);
    }
    for (int track = 0; track < Tracks; ++track) {
        settings.setDriver(track, drivers.driverAt(drivers.rowOfName(QString::fromUtf8(DriverNames[track]))));
        settings.setCar(track, cars.carAt(cars.rowOfName(QString::fromUtf8(CarNames[track]))));
    }
}

void writeRaceSettings(int laps)
{
    CRaceSettings settings;
    settings.readDefaults();
    settings.setStartType(CRaceSettings::FlyingStart);
    settings.setEndType(CRaceSettings::LapLimit);
    settings.setNumberOfLaps(laps);
    settings.setWinningCondition(1); // the first one at the lap limit
    settings.setRedLightsOnRaceStopped(true);
    addDriversAndCars(settings);
    settings.writeDefaults();
}

void writeSettings()
{
    CSettings settings;
    settings.read();
    settings.setDisplayShowSectorTimes(true);
    settings.setDisplayShowAverageLapTime(true);
    settings.setDisplayFuel(true);
    settings.setDisplaySize(CSettings::Medium); // two rows of panels with all these fields on one screen
    settings.setStorageApproach(CSettings::UseDefaultPath);
    settings.setStorageDefaultPath(QDir::currentPath());
    settings.setStorageCsvTimeFormat(CSettings::MinutesComma);
    settings.write();
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int laps = arguments.value(2).toInt();
    if (arguments.size() != 3 || laps < 1) {
        std::fputs("usage: prepare-demo SERIAL-PORT LAPS\n", stderr);
        return 2;
    }
    addCurrentRaceway(arguments.at(1));
    writeRaceSettings(laps);
    writeSettings();
    return 0;
}
