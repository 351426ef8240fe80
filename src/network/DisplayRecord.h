#ifndef TORNIK_NETWORK_DISPLAYRECORD_H
#define TORNIK_NETWORK_DISPLAYRECORD_H

#include <QByteArray>
#include <QDataStream>

struct CRaceEvent;
class CRaceSettings;
class CSettings;
class QString;
class QTime;

/**
 * The records that a race computer sends to a display client: a type of 16 bits and a payload, all in
 * stream version Qt_5_5. On the wire each stands in a frame, its length in 16 bits in front of it.
 */
namespace DisplayRecord {

enum Type : quint16
{
    RaceInfoText = 100,
    RaceEvent = 101,
    Lights = 102,
    RaceTime = 103,
    TrackPower = 104,
    RaceStarted = 105,
    RecordedRaceStarted = 106,
    RaceStopped = 107,
    RacePaused = 108,
    RaceResumed = 109,
    Settings = 110,
    RaceSettings = 111,
    RaceSettingsWithDrivers = 112,
    Shutdown = 113
};

/** A longer record has no frame. */
constexpr int MaxSize = 65535;

QByteArray raceInfoText(const QString& text);
QByteArray raceEvent(const CRaceEvent& event);
/** @param action a CLightAction */
QByteArray lights(int action);
QByteArray raceTime(const QTime& time);
/** @param track from 0 */
QByteArray trackPower(int track, bool on);
/** @param type of a record without a payload: RaceStarted to RaceResumed */
QByteArray notice(Type type);
QByteArray settings(const CSettings& settings);
QByteArray raceSettings(const CRaceSettings& settings);
QByteArray raceSettingsWithDrivers(const CRaceSettings& settings);
/** @param waitTime seconds */
QByteArray shutdown(int waitTime);

/** @return the record behind its length; empty if it is longer than MaxSize. */
QByteArray framed(const QByteArray& record);

/**
 * Takes a received record apart. A value that isn't there, or only in part, is read as zero or empty;
 * there is no error.
 */
class Payload
{
public:
    explicit Payload(const QByteArray& record);

    /** @return the type, which may be no Type; 0 if the record is too short for one. */
    quint16 type() const { return m_type; }
    /** Reads the next value on top of what it holds, in the order in which it was written. */
    template <typename Value>
    void read(Value& value)
    {
        m_stream >> value;
    }

private:
    QDataStream m_stream;
    quint16 m_type = 0;
};

} // namespace DisplayRecord

#endif
