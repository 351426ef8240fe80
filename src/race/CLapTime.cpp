#include "race/CLapTime.h"

#include <QDataStream>

namespace {

/** @return the signed difference of two stamps; right across the wrap of the 32-bit clock too. */
qint32 elapsed(quint32 end, qint32 begin)
{
    return qint32(end - quint32(begin));
}

} // namespace

void CLapTime::setLapStart(quint32 time)
{
    sector1Time = 0;
    sector2Time = 0;
    sector3Time = 0;
    sector2BeginTime = 0;
    sector3BeginTime = 0;
    lapStartTime = qint32(time);
}

void CLapTime::setSector2Begin(quint32 time)
{
    sector2BeginTime = qint32(time);
    sector1Time = elapsed(time, lapStartTime);
}

void CLapTime::setSector3Begin(quint32 time)
{
    sector3BeginTime = qint32(time);
    // Required: with no sector 2 sensor seen this is the stamp itself.
    sector2Time = elapsed(time, sector2BeginTime);
}

void CLapTime::setLapEnd(quint32 time)
{
    lapEndTime = qint32(time);
    lapTime = elapsed(time, lapStartTime);
    if (sector2BeginTime == 0)
        sector1Time = lapTime;
    else if (sector3BeginTime == 0)
        sector2Time = elapsed(time, sector2BeginTime);
    else
        sector3Time = elapsed(time, sector3BeginTime);
}

void CLapTime::clear()
{
    *this = CLapTime();
}

QDataStream& operator<<(QDataStream& stream, const CLapTime& lap)
{
    stream << lap.lapStartTime << lap.sector2BeginTime << lap.sector3BeginTime << lap.lapEndTime;
    return stream << lap.lapTime << lap.sector1Time << lap.sector2Time << lap.sector3Time;
}

QDataStream& operator>>(QDataStream& stream, CLapTime& lap)
{
    stream >> lap.lapStartTime >> lap.sector2BeginTime >> lap.sector3BeginTime >> lap.lapEndTime;
    return stream >> lap.lapTime >> lap.sector1Time >> lap.sector2Time >> lap.sector3Time;
}
