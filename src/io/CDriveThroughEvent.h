#ifndef TORNIK_IO_CDRIVETHROUGHEVENT_H
#define TORNIK_IO_CDRIVETHROUGHEVENT_H

#include <QBitArray>
#include <QEvent>

/**
 * The decoded state of all sensors at one moment; all that a race sees of them.
 *
 * A set bit n says that the sensor of port id n is closed. It is a level, not an edge: the release
 * of a sensor gives an event in which its bit is clear. Made in the main thread.
 */
class CDriveThroughEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = QEvent::Type(1025);

    /**
     * @param sensors 65 bits, numbered by port id
     * @param time milliseconds of the source's own clock (ticks for RaceControl boxes)
     */
    CDriveThroughEvent(const QBitArray& sensors, int time)
        : QEvent(EventType), m_sensors(sensors), m_time(time)
    {
    }

    const QBitArray& sensors() const { return m_sensors; }
    int time() const { return m_time; }

private:
    QBitArray m_sensors;
    int m_time;
};

#endif
