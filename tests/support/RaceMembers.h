#ifndef TORNIK_TESTS_SUPPORT_RACEMEMBERS_H
#define TORNIK_TESTS_SUPPORT_RACEMEMBERS_H

#include "io/PortIds.h"
#include "race/CRaceMembers.h"

#include <QBitArray>

#include <initializer_list>
#include <vector>

namespace TestSupport {

/** @return the levels of one sensor event: the given port ids closed, all others open. */
inline QBitArray closedSensors(std::initializer_list<int> portIds)
{
    QBitArray sensors(PortId::Count);
    for (const int id : portIds)
        sensors.setBit(id);
    return sensors;
}

/** Drives laps of the given times, one behind the other, over the member's start sensor. */
inline void driveLaps(CRaceMember& member, const std::vector<int>& lapTimes)
{
    const QBitArray sensors = closedSensors({member.startSensorPin()});
    quint32 time = 1000;
    member.processSensors(sensors, time);
    for (const int lapTime : lapTimes) {
        time += quint32(lapTime);
        member.processSensors(sensors, time);
    }
}

/** @return a member of the track with one sensor, a driver "Driver 1" on track 0, and its laps. */
inline std::unique_ptr<CRaceMember> memberWithLaps(int track, const std::vector<int>& lapTimes)
{
    auto member = std::make_unique<CRaceMember>(CRacewayTrack(), track);
    CDriver driver;
    driver.setName(QStringLiteral("Driver %1").arg(track + 1));
    member->setDriver(driver);
    member->setMinTime(1);
    member->setStartSensorPin(PortId::FirstLapSensor);
    member->setEndSensorPin(PortId::FirstLapSensor);
    if (!lapTimes.empty())
        driveLaps(*member, lapTimes);
    return member;
}

/** @return one member per list of lap times, in track order. */
inline CRaceMembers membersWithLaps(const std::vector<std::vector<int>>& lapTimes)
{
    CRaceMembers members;
    for (const auto& laps : lapTimes)
        members.push_back(memberWithLaps(int(members.size()), laps));
    return members;
}

} // namespace TestSupport

#endif
