#ifndef TORNIK_EMULATORS_CROSSING_H
#define TORNIK_EMULATORS_CROSSING_H

#include <QtGlobal>

/** A car that passed a sensor. */
struct Crossing
{
    int car = 1;       ///< 1 to 8
    quint32 stamp = 0; ///< milliseconds of the device's clock
    int group = 1;     ///< 1 the finishing line, 2 and 3 the begin of a sector

    bool operator==(const Crossing& other) const
    {
        return car == other.car && stamp == other.stamp && group == other.group;
    }
};

#endif
