#ifndef TORNIK_SOUND_CSPEECH_H
#define TORNIK_SOUND_CSPEECH_H

#include "sound/CSpokenText.h"
#include "sound/SoundClip.h"

#include <QString>

/**
 * The voice: words in, sound out, by espeak-ng, without a device.
 *
 * The library behind it exists once in the process and isn't thread-safe: all objects share one
 * lock around it, so any thread may call. It is loaded by the first text (some ten milliseconds)
 * and released with the last object.
 */
class CSpeech
{
public:
    CSpeech();
    ~CSpeech();

    CSpeech(const CSpeech&) = delete;
    CSpeech& operator=(const CSpeech&) = delete;

    /**
     * Returns when the words are spoken to the end, soon after `ticket` is stopped.
     *
     * @return null when the ticket is stopped, without words, or without the library's voice data
     */
    SoundClip speak(const QString& words, SpeechLanguage language, const CSoundTicket& ticket);
};

#endif
