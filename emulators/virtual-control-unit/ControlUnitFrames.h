#ifndef TORNIK_EMULATORS_CONTROLUNITFRAMES_H
#define TORNIK_EMULATORS_CONTROLUNITFRAMES_H

#include "support/Crossing.h"

#include <QByteArray>
#include <QVector>

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
