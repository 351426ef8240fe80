#ifndef TORNIK_SOUND_SOUNDOUTLIB_H
#define TORNIK_SOUND_SOUNDOUTLIB_H

#include "sound/SoundClip.h"

#include <QHash>

#include <memory>
#include <vector>

class CSoundWorker;
struct CSoundItem;
struct CSoundSample;

/**
 * A queue player of samples and spoken texts. Each CSoundOutput owns one; main thread only.
 *
 * No operation waits for a file, for the speech or for a device: all of that is done by threads
 * that every player of the program shares and that start with the first thing to do. Players don't
 * cut each other: their sounds are mixed. Without a device, or when it vanishes, a player is silent.
 *
 * The operations are virtual so that a test can put a recorder in this one's place.
 */
class SoundOutLib
{
public:
    SoundOutLib();
    /** @param worker who does the work, in place of the one that all players share. */
    explicit SoundOutLib(std::shared_ptr<CSoundWorker> worker);
    /** Stops the output and releases everything. */
    virtual ~SoundOutLib();

    SoundOutLib(const SoundOutLib&) = delete;
    SoundOutLib& operator=(const SoundOutLib&) = delete;

    /**
     * Makes a wave file playable.
     *
     * @param file in the encoding of the file system; without a directory as soundFilePath() tells
     * @return an id that this player never gave before. A file that can't be read is silent.
     */
    virtual int load(const char* file);
    /** Forgets all loaded samples; their ids are silent from now on. */
    virtual void unloadAll();

    /** Adds a sample to the queue. */
    virtual void enqueue(int id);
    /**
     * Adds a text to the queue, to be spoken in the program's language.
     *
     * @param text Latin-1: a number, or a time as "mm:ss:zzz", a "B" in front for a best lap
     */
    virtual void enqueue(const char* text);

    /** Starts what is in the queue behind what is heard now; what is added later waits for the next play. */
    virtual void play();
    /** Cuts the output short and empties the queue. */
    virtual void stop();

private:
    std::shared_ptr<CSoundWorker> m_worker;
    QHash<int, std::shared_ptr<CSoundSample>> m_samples;
    int m_lastId = 0;
    std::vector<CSoundItem> m_queue;
    SoundTicket m_ticket;
};

#endif
