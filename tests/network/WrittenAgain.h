#ifndef TORNIK_TESTS_WRITTENAGAIN_H
#define TORNIK_TESTS_WRITTENAGAIN_H

#include "network/DisplayRecord.h"
#include "race/CRaceEvent.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"

#include <QTime>

/** @return the first value of a record, read on top of another one. */
template <typename Value>
Value valueOf(const QByteArray& record, Value value)
{
    DisplayRecord::Payload payload(record);
    payload.read(value);
    return value;
}

inline QByteArray trackPowerWrittenAgain(const QByteArray& record)
{
    DisplayRecord::Payload payload(record);
    qint32 track = 0;
    bool on = false;
    payload.read(track);
    payload.read(on);
    return DisplayRecord::trackPower(track, on);
}

/** @return the record that a reader would write from what it has read. */
inline QByteArray writtenAgain(const QByteArray& record)
{
    using namespace DisplayRecord;
    const quint16 type = Payload(record).type();
    switch (type) {
    case RaceInfoText:
        return raceInfoText(valueOf(record, QString()));
    case RaceEvent:
        return raceEvent(valueOf(record, CRaceEvent()));
    case Lights:
        return lights(valueOf(record, qint32(0)));
    case RaceTime:
        return raceTime(valueOf(record, QTime()));
    case TrackPower:
        return trackPowerWrittenAgain(record);
    case Settings:
        return settings(valueOf(record, CSettings()));
    case RaceSettings:
        return raceSettings(valueOf(record, CRaceSettings()));
    case RaceSettingsWithDrivers:
        return raceSettingsWithDrivers(valueOf(record, CRaceSettings()));
    case Shutdown:
        return shutdown(valueOf(record, qint32(0)));
    default:
        return notice(Type(type));
    }
}

#endif
