#ifndef TORNIK_TESTS_MEMBERSENSORS_H
#define TORNIK_TESTS_MEMBERSENSORS_H

#include "io/PortIds.h"
#include "race/CRaceMember.h"

#include <QBitArray>

#include <initializer_list>

/** The pins of the members that the tests build. */
namespace Pin {

constexpr int Start = PortId::FirstLapSensor;
constexpr int End = PortId::FirstEndSensor;
constexpr int Sector2 = PortId::FirstSector2Sensor;
constexpr int Sector3 = PortId::FirstSector3Sensor;
constexpr int Fuel = PortId::FirstFuelSensor;
constexpr int FuelFinished = PortId::FirstFuelFinishedSensor;

} // namespace Pin

/** @return 65 levels of which these are active. */
inline QBitArray active(std::initializer_list<int> pins)
{
    QBitArray sensors(PortId::Count);
    for (const int pin : pins)
        sensors.setBit(pin);
    return sensors;
}

/** One sensor begins and ends the lap. */
inline void useOneSensor(CRaceMember& member)
{
    member.setStartSensorPin(Pin::Start);
    member.setEndSensorPin(Pin::Start);
    member.setSector2Pin(Pin::Sector2);
    member.setSector3Pin(Pin::Sector3);
}

inline void useSeparateSensors(CRaceMember& member)
{
    useOneSensor(member);
    member.setEndSensorPin(Pin::End);
}

/** Lets a car cross the start line. @return the flags */
inline CLapSensorFlags cross(CRaceMember& member, quint32 time)
{
    return member.processSensors(active({Pin::Start}), time);
}

inline CLapSensorFlags crossEnd(CRaceMember& member, quint32 time)
{
    return member.processSensors(active({Pin::End}), time);
}

/** Drives laps of these times, the first one from 1000 ms on. */
inline void drive(CRaceMember& member, std::initializer_list<quint32> lapTimes)
{
    quint32 time = 1000;
    cross(member, time);
    for (const quint32 lapTime : lapTimes) {
        time += lapTime;
        cross(member, time);
    }
}

inline CRacewayTrack trackOfLength(int centimetres)
{
    CRacewayTrack track;
    track.length = centimetres;
    return track;
}

#endif
