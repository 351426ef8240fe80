#ifndef TORNIK_SOUND_CWAVEREADER_H
#define TORNIK_SOUND_CWAVEREADER_H

#include "sound/SoundClip.h"

class QIODevice;

/** Reads wave files (RIFF): integers of 8, 16, 24 and 32 bits and floats of 32 bits. */
class CWaveReader
{
public:
    /** A longer sound is cut there. */
    static constexpr int LongestSeconds = 120;

    /**
     * @param device open for reading, at the start of the file
     * @return null for what is no wave file of a known kind, or has no sound in it. A file that
     *         ends early gives what is there.
     */
    static SoundClip read(QIODevice& device);
};

#endif
