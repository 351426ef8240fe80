#ifndef TORNIK_SOUND_CSOUNDWORKER_H
#define TORNIK_SOUND_CSOUNDWORKER_H

#include "sound/CSpokenText.h"
#include "sound/SoundClip.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

/** A sample that a player has loaded. Only the worker's thread reads and writes the clip. */
struct CSoundSample
{
    QString name;
    QStringList directories; ///< where to look for a name without a directory
    SoundClip clip;          ///< null until it is loaded, and for a file that can't be read
};

/** A thing to be heard: a sample, or words where there is none. */
struct CSoundItem
{
    std::shared_ptr<CSoundSample> sample;
    QString words;
    SpeechLanguage language = SpeechLanguage::German;
};

/**
 * The thread that reads files and makes speech for all players, in the order in which it is asked.
 * It starts with the first thing to do. The calls come from the main thread and don't wait.
 */
class CSoundWorker
{
public:
    /** Reads a file; called in the thread. */
    using Read = std::function<SoundClip(const QString& path)>;
    /** Speaks words and returns early when the ticket is stopped; called in the thread. */
    using Speak =
        std::function<SoundClip(const QString& words, SpeechLanguage language, const CSoundTicket& ticket)>;
    /** Takes a clip that is ready to be heard; called in the thread. */
    using Output = std::function<void(const SoundTicket& ticket, const SoundClip& clip)>;

    CSoundWorker(Read read, Speak speak, Output output);
    /** As finish(). */
    ~CSoundWorker();

    /** Loads a sample in the background. */
    void load(const std::shared_ptr<CSoundSample>& sample);
    /** Gives the items to the output one after the other, until the ticket is stopped. */
    void play(const SoundTicket& ticket, std::vector<CSoundItem> items);

    /**
     * Drops what is waiting and ends the thread; later calls do nothing. A thread that hangs in a
     * file for more than a second is left to itself.
     */
    void finish();

private:
    struct CState;

    void post(std::function<void(CState&)> job);

    std::shared_ptr<CState> m_state;
    std::thread m_thread;
};

#endif
