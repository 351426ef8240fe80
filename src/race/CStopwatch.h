#ifndef TORNIK_RACE_CSTOPWATCH_H
#define TORNIK_RACE_CSTOPWATCH_H

#include <QElapsedTimer>

#include <functional>
#include <utility>

/**
 * A running clock that a change of the wall clock doesn't move. A value; a test hands in a source
 * of its own and lets the time pass as it likes.
 */
class CStopwatch
{
public:
    /** Gives milliseconds that never run backwards. */
    using Source = std::function<qint64()>;

    /** @param source empty for the monotonic clock of the machine */
    explicit CStopwatch(Source source = {}) : m_source(std::move(source)) {}

    void start()
    {
        m_started = now();
        m_running = true;
    }
    /** Back to a clock that was never started. */
    void clear() { m_running = false; }
    /** @return milliseconds since start(); 0 before it. */
    qint64 elapsed() const { return m_running ? now() - m_started : 0; }

private:
    qint64 now() const
    {
        if (m_source)
            return m_source();
        QElapsedTimer clock;
        clock.start();
        return clock.msecsSinceReference();
    }

    Source m_source;
    qint64 m_started = 0;
    bool m_running = false;
};

#endif
