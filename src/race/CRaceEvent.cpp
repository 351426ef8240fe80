#include "race/CRaceEvent.h"

#include <QDataStream>

namespace {

QTime zeroTime()
{
    return QTime::fromMSecsSinceStartOfDay(0);
}

} // namespace

CRaceEvent::CRaceEvent()
    : lastLapTime(zeroTime()),
      sector1Time(zeroTime()),
      sector2Time(zeroTime()),
      sector3Time(zeroTime()),
      split1Time(zeroTime()),
      split2Time(zeroTime()),
      split3Time(zeroTime()),
      bestLapTime(zeroTime()),
      averageLapTime(zeroTime())
{
}

CRaceEvent::CRaceEvent(int eventType) : type(eventType) {}

QDataStream& operator<<(QDataStream& stream, const CRaceEvent& event)
{
    stream << event.type << event.subType << event.track << event.laps;
    stream << event.lastLapTime << event.sector1Time << event.sector2Time << event.sector3Time;
    stream << event.split1Time << event.split2Time << event.split3Time << event.bestLapTime;
    stream << event.status << event.averageLapTime << event.speed << event.fuelPercent;
    return stream << event.raceRunning;
}

QDataStream& operator>>(QDataStream& stream, CRaceEvent& event)
{
    stream >> event.type >> event.subType >> event.track >> event.laps;
    stream >> event.lastLapTime >> event.sector1Time >> event.sector2Time >> event.sector3Time;
    stream >> event.split1Time >> event.split2Time >> event.split3Time >> event.bestLapTime;
    stream >> event.status >> event.averageLapTime >> event.speed >> event.fuelPercent;
    return stream >> event.raceRunning;
}
