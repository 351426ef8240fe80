#ifndef TORNIK_TESTS_SUPPORT_STOREDSETUP_H
#define TORNIK_TESTS_SUPPORT_STOREDSETUP_H

#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"

#include <QFile>
#include <QSettings>

/**
 * What a user has chosen before the program starts. Begins as that of a new user, on a raceway where
 * a lap may be as short as two presses of a button take; write() puts it where the program reads it.
 */
class StoredSetup
{
public:
    explicit StoredSetup(int tracks = 2) : raceway(tracks)
    {
        QFile::remove("tornik.db");
        QSettings("Tornik", "Tornik").clear();
        settings.read();
        rules.readDefaults();
        raceway.name = QStringLiteral("Testbahn");
        raceway.minTime = 5;
    }

    void write()
    {
        CRacewayList raceways;
        raceways.updateRaceway(raceways.currentRow(), raceway);
        CDriverList drivers;
        for (int track = 0; track < raceway.tracks.size() && track < names.size(); ++track) {
            CDriver driver;
            driver.setName(names.at(track));
            drivers.addDriver(driver);
            rules.setDriver(track, drivers.driverAt(drivers.rowOfName(driver.name())));
        }
        settings.write();
        rules.writeDefaults();
    }

    CRaceway raceway;
    CSettings settings;
    CRaceSettings rules;
    QStringList names{"Anna", "Ben", "Carla", "David", "Emma", "Felix", "Greta", "Hans"};
};

#endif
