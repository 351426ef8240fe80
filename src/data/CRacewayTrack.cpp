#include "data/CRacewayTrack.h"

#include <QDataStream>

QDataStream& operator<<(QDataStream& stream, const CRacewayTrack& track)
{
    stream << track.portOpenState << track.portClosedState << track.length << track.powerOn;
    stream << track.fuelSensorClosedState << track.fuelFinishedSensorClosedState;
    stream << track.sector2BeginSensorClosedState << track.sector3BeginSensorClosedState;
    return stream << track.endSensorClosedState;
}

QDataStream& operator>>(QDataStream& stream, CRacewayTrack& track)
{
    stream >> track.portOpenState >> track.portClosedState >> track.length >> track.powerOn;
    stream >> track.fuelSensorClosedState >> track.fuelFinishedSensorClosedState;
    stream >> track.sector2BeginSensorClosedState >> track.sector3BeginSensorClosedState;
    return stream >> track.endSensorClosedState;
}
