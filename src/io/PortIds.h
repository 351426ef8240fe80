#ifndef TORNIK_IO_PORTIDS_H
#define TORNIK_IO_PORTIDS_H

/**
 * Port ids: one table of 65 numbers addresses every input and output of a raceway. An input's id
 * is also the number of its bit in a CDriveThroughEvent.
 *
 * The lookups take an index from 0 and return the port id; an index out of range gives 0.
 */
namespace PortId {

constexpr int Count = 65;
constexpr int Tracks = 8;
constexpr int RedLamps = 5;

constexpr int Open = 0;
constexpr int FirstLapSensor = 1;
constexpr int ChaosButton = 9;
constexpr int FirstTrackPower = 10;
constexpr int FirstRedLamp = 18;
constexpr int GreenLamp = 23;
constexpr int ChaosSignal = 24;
constexpr int FirstFuelSensor = 25;
constexpr int FirstFuelFinishedSensor = 33;
constexpr int FirstSector2Sensor = 41;
constexpr int FirstSector3Sensor = 49;
constexpr int FirstEndSensor = 57;

constexpr int ofIndex(int first, int index, int count)
{
    return index >= 0 && index < count ? first + index : 0;
}

constexpr int lapSensor(int track)
{
    return ofIndex(FirstLapSensor, track, Tracks);
}
constexpr int trackPower(int track)
{
    return ofIndex(FirstTrackPower, track, Tracks);
}
constexpr int redLamp(int lamp)
{
    return ofIndex(FirstRedLamp, lamp, RedLamps);
}
constexpr int fuelSensor(int track)
{
    return ofIndex(FirstFuelSensor, track, Tracks);
}
constexpr int fuelFinishedSensor(int track)
{
    return ofIndex(FirstFuelFinishedSensor, track, Tracks);
}
constexpr int sector2Sensor(int track)
{
    return ofIndex(FirstSector2Sensor, track, Tracks);
}
constexpr int sector3Sensor(int track)
{
    return ofIndex(FirstSector3Sensor, track, Tracks);
}
constexpr int endSensor(int track)
{
    return ofIndex(FirstEndSensor, track, Tracks);
}

/** @return whether the id is one of the fifteen outputs, which carry an invert flag. */
constexpr bool isOutput(int portId)
{
    return portId >= FirstTrackPower && portId <= ChaosSignal;
}

} // namespace PortId

#endif
