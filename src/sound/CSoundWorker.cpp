#include "sound/CSoundWorker.h"

#include "sound/SoundFiles.h"
#include "sound/SoundLog.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>

/** What the thread works on. It shares it, so that it can be left behind. */
struct CSoundWorker::CState
{
    Read read;
    Speak speak;
    Output output;

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void(CState&)>> jobs;
    SoundTicket current; ///< of the items in work
    bool quit = false;
    bool ended = false;

    void run();
    void playItems(const SoundTicket& ticket, const std::vector<CSoundItem>& items);
};

void CSoundWorker::CState::run()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (true) {
        changed.wait(lock, [this] { return quit || !jobs.empty(); });
        if (quit)
            break;
        const std::function<void(CState&)> job = std::move(jobs.front());
        jobs.pop_front();
        lock.unlock();
        job(*this);
        lock.lock();
    }
    ended = true;
    changed.notify_all();
}

void CSoundWorker::CState::playItems(const SoundTicket& ticket, const std::vector<CSoundItem>& items)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (quit)
            return;
        current = ticket;
    }
    for (const CSoundItem& item : items) {
        if (ticket->stopped)
            break;
        const SoundClip clip = item.sample ? item.sample->clip : speak(item.words, item.language, *ticket);
        if (clip && !ticket->stopped)
            output(ticket, clip);
    }
    const std::lock_guard<std::mutex> lock(mutex);
    current.reset();
}

CSoundWorker::CSoundWorker(Read read, Speak speak, Output output) : m_state(std::make_shared<CState>())
{
    m_state->read = std::move(read);
    m_state->speak = std::move(speak);
    m_state->output = std::move(output);
}

CSoundWorker::~CSoundWorker()
{
    finish();
}

void CSoundWorker::load(const std::shared_ptr<CSoundSample>& sample)
{
    post([sample](CState& state) {
        if (sample.use_count() > 1) // else it was unloaded meanwhile
            sample->clip = state.read(soundFilePath(sample->name, sample->directories));
    });
}

void CSoundWorker::play(const SoundTicket& ticket, std::vector<CSoundItem> items)
{
    post([ticket, items = std::move(items)](CState& state) { state.playItems(ticket, items); });
}

void CSoundWorker::post(std::function<void(CState&)> job)
{
    {
        const std::lock_guard<std::mutex> lock(m_state->mutex);
        if (m_state->quit)
            return;
        m_state->jobs.push_back(std::move(job));
    }
    m_state->changed.notify_all();
    if (!m_thread.joinable())
        m_thread = std::thread([state = m_state] { state->run(); });
}

void CSoundWorker::finish()
{
    constexpr std::chrono::seconds Patience(1);
    std::unique_lock<std::mutex> lock(m_state->mutex);
    m_state->quit = true;
    m_state->jobs.clear();
    if (m_state->current)
        m_state->current->stopped = true;
    if (!m_thread.joinable())
        return;
    m_state->changed.notify_all();
    const bool ended = m_state->changed.wait_for(lock, Patience, [this] { return m_state->ended; });
    lock.unlock();
    if (!ended) {
        qCWarning(soundLog) << "the sound worker hangs and is left behind";
        m_thread.detach();
        return;
    }
    m_thread.join();
    m_state->read = nullptr;
    m_state->speak = nullptr;
    m_state->output = nullptr;
}
