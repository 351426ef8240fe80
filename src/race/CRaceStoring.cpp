// The part of CRace that keeps what a race leaves behind.

#include "data/CCarList.h"
#include "data/CFastestLapList.h"
#include "race/CRace.h"
#include "race/CRaceList.h"
#include "results/CRaceToCsvWriter.h"

void CRace::makeStores()
{
    m_raceList = std::make_unique<CRaceList>();
    m_carList = new CCarList(this);
    m_fastestLapList = new CFastestLapList(this);
}

void CRace::storeFinishedRace()
{
    if (m_recordedRace)
        saveToDatabase(m_raceName);
    if (m_raceSettings->monitorDistanceDriven())
        storeDistances();
    if (m_raceSettings->monitorFastestLap())
        storeFastestLaps();
}

void CRace::storeDistances()
{
    for (const auto& racer : m_members)
        m_carList->updateDistanceDriven(racer->car());
}

void CRace::storeFastestLaps()
{
    for (const auto& racer : m_members) {
        if (racer->numberOfLaps() > 0)
            storeFastestLap(*racer);
    }
}

void CRace::storeFastestLap(const CRaceMember& racer)
{
    const int racewayId = m_raceSettings->raceway().id;
    const int trackId = racer.track().id;
    const int carId = racer.car().id();
    const int driverId = racer.driver().id();
    const auto time = quint32(racer.lap(racer.bestLapIndex()).lapTime);
    CFastestLap record = m_fastestLapList->findRecord(racewayId, trackId, carId, driverId);
    if (record.id() == -1) {
        record.setRacewayId(racewayId);
        record.setTrackId(trackId);
        record.setCarId(carId);
        record.setDriverId(driverId);
        record.setTime(time);
        m_fastestLapList->addRecord(record);
    } else if (time < record.time()) {
        record.setTime(time);
        m_fastestLapList->updateTime(record);
    }
}

void CRace::saveToDatabase(const QString& raceName)
{
    m_raceList->saveRace(*this, raceName);
}

void CRace::saveToCsv(const QString& pathAndFilename)
{
    CRaceToCsvWriter writer;
    writer.setRace(this);
    writer.writeToFile(pathAndFilename);
}
