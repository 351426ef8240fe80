#include "network/DisplayRecord.h"

#include "race/CRaceEvent.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"

#include <QTime>

namespace DisplayRecord {

namespace {

constexpr auto StreamVersion = QDataStream::Qt_5_5;

template <typename... Fields>
QByteArray record(Type type, const Fields&... fields)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(StreamVersion);
    stream << quint16(type);
    static_cast<void>((stream << ... << fields));
    return bytes;
}

} // namespace

QByteArray raceInfoText(const QString& text)
{
    return record(RaceInfoText, text);
}

QByteArray raceEvent(const CRaceEvent& event)
{
    return record(RaceEvent, event);
}

QByteArray lights(int action)
{
    return record(Lights, qint32(action));
}

QByteArray raceTime(const QTime& time)
{
    return record(RaceTime, time);
}

QByteArray trackPower(int track, bool on)
{
    return record(TrackPower, qint32(track), on);
}

QByteArray notice(Type type)
{
    return record(type);
}

QByteArray settings(const CSettings& settings)
{
    return record(Settings, settings);
}

QByteArray raceSettings(const CRaceSettings& settings)
{
    return record(RaceSettings, settings);
}

QByteArray raceSettingsWithDrivers(const CRaceSettings& settings)
{
    return record(RaceSettingsWithDrivers, settings);
}

QByteArray shutdown(int waitTime)
{
    return record(Shutdown, qint32(waitTime));
}

QByteArray framed(const QByteArray& record)
{
    if (record.size() > MaxSize)
        return {};
    QByteArray frame;
    QDataStream stream(&frame, QIODevice::WriteOnly);
    stream.setVersion(StreamVersion);
    stream << quint16(record.size());
    return frame + record;
}

Payload::Payload(const QByteArray& record) : m_stream(record)
{
    m_stream.setVersion(StreamVersion);
    m_stream >> m_type;
}

} // namespace DisplayRecord
