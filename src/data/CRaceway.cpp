#include "data/CRaceway.h"

#include "io/CRacewayIo.h"
#include "io/CRacewayIoFactory.h"

#include <QDataStream>

namespace {

constexpr int DefaultNumberOfTracks = 2;

/** @return the blob of a default parallel port; made once, since making a port touches the hardware. */
const QByteArray& defaultIoSettings()
{
    static const QByteArray blob = CRacewayIoFactory::createParallelPort()->writeSettings();
    return blob;
}

QList<CRacewayTrack> readTracks(QDataStream& stream)
{
    QList<CRacewayTrack> tracks;
    qint32 count = 0;
    stream >> count;
    for (int i = 0; i < count; ++i) {
        CRacewayTrack track;
        stream >> track;
        if (stream.status() != QDataStream::Ok)
            break;
        tracks.append(track);
    }
    return tracks;
}

} // namespace

CRaceway::CRaceway() : CRaceway(DefaultNumberOfTracks) {}

CRaceway::CRaceway(int numberOfTracks) : name(QStringLiteral("Default")), ioSettings(defaultIoSettings())
{
    for (int i = 0; i < numberOfTracks; ++i)
        tracks.append(CRacewayTrack());
}

std::unique_ptr<CRacewayIo> CRaceway::createIo() const
{
    return CRacewayIoFactory::createFromSettings(ioSettings);
}

QDataStream& operator<<(QDataStream& stream, const CRaceway& raceway)
{
    stream << raceway.name << raceway.scale << raceway.portOpenState << raceway.chaosButtonState;
    stream << raceway.chaosButtonAvailable << raceway.chaosPhaseOutputAvailable;
    stream << raceway.pwrOffFeatureAvailable << raceway.externalLightsAvailable << raceway.reservedFlag;
    stream << raceway.fuelSensorSetup << raceway.ioSettings << raceway.minTime << raceway.numberOfSectors;
    stream << raceway.startAndEndSensorSeparate << qint32(raceway.tracks.size());
    for (const CRacewayTrack& track : raceway.tracks)
        stream << track;
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CRaceway& raceway)
{
    stream >> raceway.name >> raceway.scale >> raceway.portOpenState >> raceway.chaosButtonState;
    stream >> raceway.chaosButtonAvailable >> raceway.chaosPhaseOutputAvailable;
    stream >> raceway.pwrOffFeatureAvailable >> raceway.externalLightsAvailable >> raceway.reservedFlag;
    stream >> raceway.fuelSensorSetup >> raceway.ioSettings >> raceway.minTime >> raceway.numberOfSectors;
    stream >> raceway.startAndEndSensorSeparate;
    raceway.tracks = readTracks(stream);
    return stream;
}
