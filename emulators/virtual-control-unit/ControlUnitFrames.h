#ifndef TORNIK_EMULATORS_CONTROLUNITFRAMES_H
#define TORNIK_EMULATORS_CONTROLUNITFRAMES_H

#include <QByteArray>
#include <QVector>

/** A car that passed a sensor. */
struct Crossing
{
    int car = 1;       ///< 1 to 8
    quint32 stamp = 0; ///< milliseconds of the unit's clock
    int group = 1;     ///< 1 the finishing line, 2 and 3 the begin of a sector

    bool operator==(const Crossing& other) const
    {
        return car == other.car && stamp == other.stamp && group == other.group;
    }
};

/** The unit's side of the frames: text from "?" to "$", a nibble a character. */
namespace ControlUnitFrames {

constexpr int StatusSize = 17;
constexpr int LongStatusSize = 19; ///< of newer firmware

QByteArray lap(const Crossing& crossing);
/**
 * @param fuel tank level of each car, 0 to 15
 * @param startLight 0 to 15
 * @param size StatusSize or LongStatusSize
 */
QByteArray status(const QVector<int>& fuel, int startLight, int size);

/** @return the character that belongs before the "$" of these bytes, which begin with "?". */
char checksum(const QByteArray& withoutChecksum);
/** @return whether bytes that end with "$" carry the checksum that they should. */
bool looksValid(const QByteArray& frame);

} // namespace ControlUnitFrames

#endif
