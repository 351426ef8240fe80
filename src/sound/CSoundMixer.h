#ifndef TORNIK_SOUND_CSOUNDMIXER_H
#define TORNIK_SOUND_CSOUNDMIXER_H

#include "sound/SoundClip.h"

#include <deque>
#include <mutex>
#include <vector>

/**
 * Puts the sounds of all players together. The clips of one ticket are heard one after the other,
 * those of different tickets at the same time. Any thread; no call waits for anything but another one.
 */
class CSoundMixer
{
public:
    /** Adds a clip behind those of the same ticket; nothing for a null clip or a stopped ticket. */
    void add(const SoundTicket& ticket, const SoundClip& clip);
    /** Drops everything, as there is nobody to hear it. */
    void clear();
    /** @return whether there is nothing to be heard. */
    bool isIdle() const;

    /**
     * Moves on in all sounds. A stopped ticket fades out at once and is gone.
     *
     * @param samples takes `frames` frames of MixChannels samples; silence where nothing is heard
     */
    void mix(qint16* samples, int frames);

private:
    struct CVoice
    {
        SoundTicket ticket;
        std::deque<SoundClip> clips;
        int position = 0; ///< samples of the first clip that were heard
        bool begun = false;
    };

    void addVoice(CVoice& voice, std::vector<int>& sums);
    void dropSilentVoices();

    mutable std::mutex m_mutex;
    std::vector<CVoice> m_voices;
};

#endif
