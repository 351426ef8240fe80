/**
 * Stand-in for the vendor's library `iowkit`: the entries that the program looks up, on a virtual
 * chip. An answer takes as long as that of the chip; a call without a chip does nothing.
 */
#include "VirtualIoWarrior.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned long PinPipe = 0;
constexpr unsigned long SpecialPipe = 1;
constexpr auto LongestSleep = std::chrono::milliseconds(1);

/** What a handle stands for: one chip, until it is unplugged. */
class Connection
{
public:
    Connection() : m_plugging(m_chip.plugging()) {}

    bool isAlive() const { return m_chip.isPlugged() && m_chip.plugging() == m_plugging; }

    unsigned long productId() const { return isAlive() ? m_chip.kind().productId : 0; }

    void setWriteTimeout(unsigned long milliseconds) { m_chip.setWriteTimeout(unsigned(milliseconds)); }
    void setReadTimeout(unsigned long milliseconds) { m_chip.setReadTimeout(unsigned(milliseconds)); }

    unsigned long write(unsigned long pipe, const char* report, unsigned long size)
    {
        if (isAlive() && pipe == PinPipe && m_chip.takePins(report, size))
            return size;
        if (isAlive() && pipe == SpecialPipe && m_chip.isQuestion(report, size)) {
            ask();
            return size;
        }
        m_chip.add(VirtualIoWarrior::Refused);
        return 0;
    }

    /** Waits for the answer to the oldest question, as long as the read time-out. */
    unsigned long read(unsigned long pipe, char* report, unsigned long size)
    {
        std::optional<std::uint32_t> levels;
        if (pipe == SpecialPipe && waitForAnswer(&levels)) {
            // The pins first: an unplugged chip must not tell what happened to them afterwards.
            const std::uint32_t told = levels.value_or(m_chip.pins());
            if (isAlive())
                return m_chip.answer(told, report, size);
        }
        m_chip.add(VirtualIoWarrior::Refused);
        return 0;
    }

private:
    struct Answer
    {
        Clock::time_point due;
        std::optional<std::uint32_t> levels; ///< nothing: those at the end
    };

    /** Hears a question; a silent chip forgets it. */
    void ask()
    {
        m_chip.add(VirtualIoWarrior::Asked);
        if (m_chip.isSilent())
            return;
        const std::lock_guard<std::mutex> lock(m_mutex);
        Answer answer{m_answers.empty() ? Clock::now() : m_answers.back().due, {}};
        answer.due += std::chrono::milliseconds(m_chip.answerTime());
        if (m_chip.isLate())
            answer.levels = m_chip.pins();
        m_answers.push_back(answer);
    }

    /** @return false when the time is up, or the chip was unplugged. */
    bool waitForAnswer(std::optional<std::uint32_t>* levels)
    {
        const Clock::time_point end = Clock::now() + std::chrono::milliseconds(m_chip.readTimeout());
        bool held = false;
        while (isAlive()) {
            const bool holding = m_chip.isHeld();
            if (holding && !held)
                m_chip.add(VirtualIoWarrior::Held);
            held = held || holding;
            if (!holding && takeDue(levels))
                return true;
            if (!holding && m_chip.readTimeout() > 0 && Clock::now() >= end)
                return false;
            std::this_thread::sleep_until(std::min(Clock::now() + LongestSleep, nextDue()));
        }
        return false;
    }

    /** @return whether an answer is due; it is taken then. */
    bool takeDue(std::optional<std::uint32_t>* levels)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_answers.empty() || Clock::now() < m_answers.front().due)
            return false;
        *levels = m_answers.front().levels;
        m_answers.pop_front();
        return true;
    }

    Clock::time_point nextDue()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const bool isNone = m_answers.empty() || m_answers.front().due < Clock::now();
        return isNone ? Clock::time_point::max() : m_answers.front().due;
    }

    VirtualIoWarrior m_chip;
    unsigned m_plugging;
    std::deque<Answer> m_answers; ///< to each question heard
    std::mutex m_mutex;           ///< guards m_answers
};

Connection* connection(void* handle)
{
    if (!handle)
        VirtualIoWarrior().add(VirtualIoWarrior::Refused);
    return static_cast<Connection*>(handle);
}

} // namespace

extern "C" {

void* IowKitOpenDevice()
{
    VirtualIoWarrior chip;
    if (!chip.isPlugged())
        return nullptr;
    chip.add(VirtualIoWarrior::Opened);
    return new Connection; // freed by IowKitCloseDevice()
}

void IowKitCloseDevice(void* handle)
{
    if (handle)
        VirtualIoWarrior().add(VirtualIoWarrior::Closed);
    delete static_cast<Connection*>(handle);
}

unsigned long IowKitRead(void* handle, unsigned long pipe, char* report, unsigned long size)
{
    Connection* chip = connection(handle);
    return chip ? chip->read(pipe, report, size) : 0;
}

unsigned long IowKitWrite(void* handle, unsigned long pipe, char* report, unsigned long size)
{
    Connection* chip = connection(handle);
    return chip ? chip->write(pipe, report, size) : 0;
}

unsigned long IowKitGetProductId(void* handle)
{
    Connection* chip = connection(handle);
    return chip ? chip->productId() : 0;
}

int IowKitSetTimeout(void* handle, unsigned long milliseconds)
{
    Connection* chip = connection(handle);
    if (chip)
        chip->setReadTimeout(milliseconds);
    return chip ? 1 : 0;
}

int IowKitSetWriteTimeout(void* handle, unsigned long milliseconds)
{
    Connection* chip = connection(handle);
    if (chip)
        chip->setWriteTimeout(milliseconds);
    return chip ? 1 : 0;
}

} // extern "C"
