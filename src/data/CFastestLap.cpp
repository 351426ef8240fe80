#include "data/CFastestLap.h"

#include "data/StreamValue.h"

QDataStream& operator<<(QDataStream& stream, const CFastestLap& record)
{
    stream << qint32(record.id()) << qint32(record.racewayId()) << qint32(record.trackId());
    return stream << qint32(record.driverId()) << qint32(record.carId()) << record.time();
}

QDataStream& operator>>(QDataStream& stream, CFastestLap& record)
{
    record.setId(readValue<qint32>(stream));
    record.setRacewayId(readValue<qint32>(stream));
    record.setTrackId(readValue<qint32>(stream));
    record.setDriverId(readValue<qint32>(stream));
    record.setCarId(readValue<qint32>(stream));
    record.setTime(readValue<quint32>(stream));
    return stream;
}
