#ifndef TORNIK_TESTS_RACE_STOREDRACEFIXTURE_H
#define TORNIK_TESTS_RACE_STOREDRACEFIXTURE_H

#include "race/RaceFixture.h"
#include "support/DatabaseFile.h"

#include <vector>

/**
 * A race that is stored in a database of its own. Raceway 3 has the tracks 31, 32, ...; driver i is
 * number 100 + i, car i number 200 + i, both from 0, like the tracks.
 */
class StoredRaceFixture : public RaceFixture
{
public:
    explicit StoredRaceFixture(int tracks = 2) : RaceFixture(tracks) { useRaceway(3); }

    static int trackId(int raceway, int track) { return 10 * raceway + track + 1; }

    void useRaceway(int id)
    {
        changeRaceway([id](CRaceway& raceway) {
            raceway.id = id;
            for (int track = 0; track < raceway.tracks.size(); ++track) {
                raceway.tracks[track].id = trackId(id, track);
                raceway.tracks[track].length = 100 * (track + 1);
            }
        });
        for (int track = 0; track < CRaceSettings::Slots; ++track) {
            useDriver(track, 100 + track);
            useCar(track, 200 + track);
        }
    }
    void useDriver(int track, int id)
    {
        CDriver driver = raceSettings.driver(track);
        driver.setId(id);
        raceSettings.setDriver(track, driver);
    }
    void useCar(int track, int id, int distanceDriven = 0)
    {
        CCar car = raceSettings.car(track);
        car.setId(id);
        car.setDistanceDriven(distanceDriven);
        raceSettings.setCar(track, car);
    }

    /** Lets the members of a new race drive these laps, one list a track, and stops it. */
    void runQuickRace(const std::vector<std::vector<int>>& lapTimes)
    {
        race().vStartQuickRace();
        driveAndStop(lapTimes);
    }
    void runRecordedRace(const QString& name, const std::vector<std::vector<int>>& lapTimes)
    {
        race().vStartRecordedRace(name);
        driveAndStop(lapTimes);
    }

private:
    void driveAndStop(const std::vector<std::vector<int>>& lapTimes)
    {
        for (std::size_t track = 0; track < lapTimes.size(); ++track) {
            if (!lapTimes[track].empty())
                drive(int(track), lapTimes[track]);
        }
        race().vStop();
    }
};

/** @return each stored race with its participants and their laps, in the order of their ids. */
inline QStringList storedLaps()
{
    return DatabaseFile().rows("SELECT r.name, p.driverId, p.trackId, p.carId, l.lapNumber, l.time "
                               "FROM races r JOIN raceParticipants p ON p.raceId = r.id "
                               "LEFT JOIN laps l ON l.participantId = p.id ORDER BY l.id, p.id");
}

#endif
