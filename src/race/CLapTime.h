#ifndef TORNIK_RACE_CLAPTIME_H
#define TORNIK_RACE_CLAPTIME_H

#include <QtGlobal>

class QDataStream;

/**
 * One lap: its begin, its end and its sectors, in milliseconds of the sensor clock. 0 means not set.
 * Durations are differences of stamps. A value of 32 bytes.
 */
struct CLapTime
{
    qint32 lapEndTime = 0; ///< stamp, a fuel penalty included
    qint32 lapTime = 0;
    qint32 sector1Time = 0;
    qint32 sector2Time = 0;
    qint32 sector3Time = 0;
    qint32 lapStartTime = 0;     ///< stamp; 0 while no lap has begun
    qint32 sector2BeginTime = 0; ///< stamp; 0 if not seen
    qint32 sector3BeginTime = 0; ///< stamp; 0 if not seen

    void setLapStart(quint32 time);
    void setSector2Begin(quint32 time);
    void setSector3Begin(quint32 time);
    /** Ends the lap and closes the one sector that is open. */
    void setLapEnd(quint32 time);
    void clear();
};

Q_DECLARE_TYPEINFO(CLapTime, Q_PRIMITIVE_TYPE);

/** Stream form: eight 32-bit integers, stamps first; see the definition. */
QDataStream& operator<<(QDataStream& stream, const CLapTime& lap);
QDataStream& operator>>(QDataStream& stream, CLapTime& lap);

#endif
