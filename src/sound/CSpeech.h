#ifndef TORNIK_SOUND_CSPEECH_H
#define TORNIK_SOUND_CSPEECH_H

#include "sound/CSpokenText.h"
#include "sound/SoundClip.h"

#include <QString>

/**
 * The voice: words in, sound out, by espeak-ng, without a device.
 *
 * The library behind it exists once in the process and isn't thread-safe: one lock goes around it,
 * so any thread may call. The first text loads it (some ten milliseconds); it stays to the end of
 * the process.
 */
class CSpeech
{
public:
    /**
     * Returns when the words are spoken to the end, soon after `ticket` is stopped.
     *
     * @return null when the ticket is stopped, without words, or without the library's voice data
     */
    static SoundClip speak(const QString& words, SpeechLanguage language, const CSoundTicket& ticket);
};

#endif
