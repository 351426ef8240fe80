#ifndef TORNIK_BENCH_STAMPDELAY_H
#define TORNIK_BENCH_STAMPDELAY_H

#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QRandomGenerator>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <cmath>
#include <functional>
#include <thread>
#include <vector>

/**
 * How far the stamps of a reading thread lie from the moments at which its inputs change. Another
 * thread makes the changes while the other processors are loaded; a change that wasn't seen counts
 * as one that lies too far.
 */
namespace StampDelay {

/** An input that shows the numbers 0, 1, 2, ... one after the other. */
struct Input
{
    std::function<unsigned()> reads;        ///< how often it has been read
    std::function<void(int)> show;          ///< called from another thread
    std::function<int(int value)> numberOf; ///< the number that a raw value is
    int changes;
    unsigned shortestPause; ///< microseconds between two changes; up to twice as many
    double limit;           ///< milliseconds: the share of the stamps within it is reported
};

/** Spins on every processor but one as long as it lives. */
class Load
{
public:
    Load()
    {
        for (int i = 1; i < std::max(2, QThread::idealThreadCount()); ++i)
            m_threads.emplace_back([this] {
                while (!m_stopRequested)
                    benchmark::ClobberMemory();
            });
    }
    ~Load()
    {
        m_stopRequested = true;
        for (std::thread& thread : m_threads)
            thread.join();
    }

private:
    std::atomic<bool> m_stopRequested{false};
    std::vector<std::thread> m_threads;
};

/** Keeps the stamp of each number; -1 for one that didn't come. */
class StampSink : public QObject
{
public:
    explicit StampSink(const Input& input)
        : stamps(std::size_t(input.changes), -1), m_numberOf(input.numberOf)
    {
    }

    std::vector<int> stamps;

protected:
    void customEvent(QEvent* event) override
    {
        const auto* raw = static_cast<const CRacewayIoEvent*>(event);
        const int number = m_numberOf(raw->value());
        if (number >= 0 && number < int(stamps.size()))
            stamps[std::size_t(number)] = raw->time();
    }

private:
    std::function<int(int value)> m_numberOf;
};

/**
 * Starts the thread.
 * @return the clock's time when the thread's own clock began, in ms: just before its first read
 */
template <typename Thread>
double startedAt(Thread& thread, const Input& input, const QElapsedTimer& clock)
{
    const unsigned before = input.reads();
    thread.start();
    while (input.reads() == before && clock.elapsed() < 5000) {
    }
    return double(clock.nsecsElapsed()) / 1e6;
}

/** Shows one number after the other. @return the moments, in ms */
inline std::vector<double> makeChanges(const Input& input, const QElapsedTimer& clock)
{
    QRandomGenerator random(1);
    std::vector<double> moments;
    for (int number = 0; number < input.changes; ++number) {
        QThread::usleep(input.shortestPause + random.bounded(input.shortestPause));
        moments.push_back(double(clock.nsecsElapsed()) / 1e6);
        input.show(number);
    }
    return moments;
}

inline void report(benchmark::State& state, const Input& input, const std::vector<double>& moments,
                   const std::vector<int>& stamps)
{
    std::vector<double> distances;
    for (std::size_t i = 0; i < moments.size(); ++i) {
        if (stamps[i] >= 0)
            distances.push_back(std::abs(stamps[i] - moments[i]));
    }
    std::sort(distances.begin(), distances.end());
    const auto within = std::upper_bound(distances.begin(), distances.end(), input.limit) - distances.begin();
    state.counters["changes"] = double(moments.size());
    state.counters["missed"] = double(moments.size() - distances.size());
    state.counters["limit_ms"] = input.limit;
    state.counters["within_limit"] = double(within) / double(moments.size());
    if (distances.empty())
        return;
    state.counters["median_ms"] = distances[distances.size() / 2];
    state.counters["p99_ms"] = distances[distances.size() * 99 / 100];
    state.counters["max_ms"] = distances.back();
}

/** @param makeThread makes the thread, with the target of its events */
template <typename MakeThread>
void measure(benchmark::State& state, const Input& input, MakeThread makeThread)
{
    StampSink sink(input);
    const auto thread = makeThread(&sink);
    QElapsedTimer clock;
    clock.start();
    std::vector<double> moments;
    for (auto _ : state) {
        const double start = startedAt(*thread, input, clock);
        const Load load;
        std::thread changer([&] { moments = makeChanges(input, clock); });
        changer.join();
        for (double& moment : moments)
            moment -= start;
        QThread::msleep(50); // let the thread see the last change
    }
    thread->requestStop();
    thread->wait();
    QCoreApplication::sendPostedEvents(&sink);
    report(state, input, moments, sink.stamps);
}

} // namespace StampDelay

#endif
