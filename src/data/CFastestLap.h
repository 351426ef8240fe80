#ifndef TORNIK_DATA_CFASTESTLAP_H
#define TORNIK_DATA_CFASTESTLAP_H

#include <QtGlobal>

class QDataStream;

/** The best lap of a car and a driver on a track of a raceway. A value, copied freely. */
class CFastestLap
{
public:
    /** @return the id of the database row; -1 means that no such record exists. */
    int id() const { return m_id; }
    void setId(int id) { m_id = id; }
    int racewayId() const { return m_racewayId; }
    void setRacewayId(int id) { m_racewayId = id; }
    /** @return the database id of the track, not its number. */
    int trackId() const { return m_trackId; }
    void setTrackId(int id) { m_trackId = id; }
    int driverId() const { return m_driverId; }
    void setDriverId(int id) { m_driverId = id; }
    int carId() const { return m_carId; }
    void setCarId(int id) { m_carId = id; }
    /** @return milliseconds. */
    quint32 time() const { return m_time; }
    void setTime(quint32 milliseconds) { m_time = milliseconds; }

private:
    qint32 m_id = -1;
    qint32 m_racewayId = -1;
    qint32 m_trackId = -1;
    qint32 m_driverId = -1;
    qint32 m_carId = -1;
    quint32 m_time = 0;
};

/** Stream form: the six fields in their order, each as a 32-bit integer. */
QDataStream& operator<<(QDataStream& stream, const CFastestLap& record);
QDataStream& operator>>(QDataStream& stream, CFastestLap& record);

#endif
