#ifndef TORNIK_TESTS_SOUND_FAKESOUNDWORKER_H
#define TORNIK_TESTS_SOUND_FAKESOUNDWORKER_H

#include "sound/CSoundWorker.h"

#include <QFileInfo>
#include <QHash>
#include <QStringList>
#include <QVector>

#include <condition_variable>
#include <mutex>
#include <thread>

/**
 * A worker that speaks and reads in a test: it writes down what it is asked to read and speak and
 * what reaches the output. The words "wait" are spoken until their ticket is stopped, the file
 * "wait.wav" is read until release() is called.
 */
class CFakeSoundWorker
{
public:
    CFakeSoundWorker()
        : m_worker(std::make_shared<CSoundWorker>(
              [this](const QString& path) { return read(path); },
              [this](const QString& words, SpeechLanguage language, const CSoundTicket& ticket) {
                  return speak(words, language, ticket);
              },
              [this](const SoundTicket&, const SoundClip& clip) { hear(clip); }))
    {
    }
    ~CFakeSoundWorker()
    {
        release();
        m_worker->finish();
    }

    std::shared_ptr<CSoundWorker> worker() const { return m_worker; }

    /** @return what happened up to now, one line a step: "read <file>", "speak <words>", "heard <file or
     * words>". */
    QStringList log() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        QStringList copy; // not shared with the thread
        for (const QString& line : m_log)
            copy << line;
        return copy;
    }
    /** @return the languages of what was spoken. */
    QVector<SpeechLanguage> languages() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return QVector<SpeechLanguage>(m_languages.begin(), m_languages.end());
    }
    /** Lets the file "wait.wav" go. */
    void release()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_released = true;
        m_changed.notify_all();
    }

private:
    SoundClip read(const QString& path)
    {
        const QString name = QFileInfo(path).fileName();
        note(QStringLiteral("read ") + name);
        if (name == QLatin1String("wait.wav")) {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_changed.wait(lock, [this] { return m_released; });
        }
        return name == QLatin1String("missing.wav") ? nullptr : clip(name);
    }
    SoundClip speak(const QString& words, SpeechLanguage language, const CSoundTicket& ticket)
    {
        note(QStringLiteral("speak ") + words);
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_languages << language;
        }
        while (words == QLatin1String("wait") && !ticket.stopped)
            std::this_thread::yield();
        return clip(words);
    }
    SoundClip clip(const QString& name)
    {
        const SoundClip made = makeSoundClip({0}, 1, MixRate);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_clips << made;
        m_names.insert(made.get(), name);
        return made;
    }
    void hear(const SoundClip& clip)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_log << QStringLiteral("heard ") + m_names.value(clip.get());
    }
    void note(const QString& line)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_log << line;
    }

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    QStringList m_log;
    QVector<SpeechLanguage> m_languages;
    QVector<SoundClip> m_clips; ///< kept, so that no address is used twice
    QHash<const void*, QString> m_names;
    bool m_released = false;
    std::shared_ptr<CSoundWorker> m_worker;
};

#endif
