#ifndef TORNIK_SOUND_EFFECTFILE_H
#define TORNIK_SOUND_EFFECTFILE_H

#include <QString>

class QIODevice;

/**
 * Tells whether QSound can be trusted with a wave file (RIFF, whole numbers).
 *
 * It loads files in a thread of its own, and waits for that thread without end when a sound is
 * deleted. On a file that is cut short or whose lengths don't fit, the thread waits for the rest,
 * which never comes: the program would hang at the next change of a sound or at its end.
 *
 * @return whether the file is whole, from its head to the last byte of sound
 */
bool isEffectFile(const QString& path);
/** @param device open for reading, at the start of the file */
bool isEffectFile(QIODevice& device);

#endif
