#ifndef TORNIK_DATA_CRACEWAY_H
#define TORNIK_DATA_CRACEWAY_H

#include "data/CRacewayTrack.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

class CRacewayIo;
class QDataStream;

/**
 * A raceway: its tracks, its features and the settings of its hardware interface.
 *
 * A new raceway is the default one: two tracks on a parallel port. A value, copied freely.
 */
struct CRaceway
{
    /** The default raceway, with two tracks. */
    CRaceway();
    /** The default raceway with another number of tracks. */
    explicit CRaceway(int numberOfTracks);

    /** @return a new interface made from ioSettings; never null. */
    std::unique_ptr<CRacewayIo> createIo() const;

    QString name;
    int scale = 24; ///< divisor of the scale, 0 for none
    quint16 portOpenState = 127;
    quint16 chaosButtonState = 0;
    bool chaosButtonAvailable = false;
    bool chaosPhaseOutputAvailable = false;
    bool pwrOffFeatureAvailable = false;
    bool externalLightsAvailable = false;
    bool reservedFlag = false; ///< carried in the stream form only
    bool startAndEndSensorSeparate = false;
    int id = -1;           ///< row in the table `raceways`; not part of the stream form
    QByteArray ioSettings; ///< the blob of CRacewayIo::writeSettings()
    QList<CRacewayTrack> tracks;
    int minTime = 200;       ///< shortest valid lap, milliseconds
    int fuelSensorSetup = 0; ///< 0 to 4: which sensors begin and end refuelling
    int numberOfSectors = 1; ///< 1 to 3
};

QDataStream& operator<<(QDataStream& stream, const CRaceway& raceway);
/** Stops early at the end of the stream; the list of tracks is emptied first. */
QDataStream& operator>>(QDataStream& stream, CRaceway& raceway);

#endif
