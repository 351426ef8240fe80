#ifndef TORNIK_DATA_CRACEWAYTRACK_H
#define TORNIK_DATA_CRACEWAYTRACK_H

class QDataStream;

/** One track of a raceway: its length and the state masks of its sensors. A value. */
struct CRacewayTrack
{
    int length = 0; ///< centimetres, 0 for no length given
    int id = -1;    ///< row in the table `tracks`; not part of the stream form
    int portClosedState = 255;
    int portOpenState = 127; ///< a copy of the raceway's own, set when a row is read
    int fuelSensorClosedState = 255;
    int fuelFinishedSensorClosedState = 255;
    int sector2BeginSensorClosedState = 255;
    int sector3BeginSensorClosedState = 255;
    int endSensorClosedState = 255;
    bool powerOn = false; ///< state of the running race; has no column
};

QDataStream& operator<<(QDataStream& stream, const CRacewayTrack& track);
QDataStream& operator>>(QDataStream& stream, CRacewayTrack& track);

#endif
