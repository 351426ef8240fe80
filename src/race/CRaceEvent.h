#ifndef TORNIK_RACE_CRACEEVENT_H
#define TORNIK_RACE_CRACEEVENT_H

#include <QMetaType>
#include <QTime>

class QDataStream;

/** What the race publishes: the display values of a member, or that something happened. A value. */
struct CRaceEvent
{
    enum Type
    {
        LapEnded = 1,
        NewBestLap = 2,
        MemberChanged = 6, ///< the display values of a member; all fields filled
        TankEmpty = 11,
        TankOnReserve = 12 ///< subType is 3
    };
    /** Sub-type of MemberChanged. */
    enum LapKind
    {
        NoLapEnded = 0,
        NormalLap = 1,
        BestLap = 2
    };

    /** Every time 00:00:00.000, every number 0. */
    CRaceEvent();
    /** Only the type (and the sub-type) count: the times are null. */
    explicit CRaceEvent(int eventType);

    qint32 type = 0;
    qint32 subType = 0;
    qint32 track = 0; ///< from 0
    qint32 laps = 0;  ///< laps to show; those that remain when counting down
    QTime lastLapTime;
    QTime sector1Time;
    QTime sector2Time;
    QTime sector3Time;
    QTime split1Time;
    QTime split2Time;
    QTime split3Time;
    QTime bestLapTime;
    qint32 status = 0; ///< a CRaceMemberStatus
    QTime averageLapTime;
    double speed = 0.0; ///< in the unit of the setting speedDisplayType
    qint32 fuelPercent = 0;
    bool raceRunning = false;
};

Q_DECLARE_METATYPE(CRaceEvent)

/** Stream form: the fields in their order. */
QDataStream& operator<<(QDataStream& stream, const CRaceEvent& event);
QDataStream& operator>>(QDataStream& stream, CRaceEvent& event);

#endif
