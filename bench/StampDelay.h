#ifndef TORNIK_BENCH_STAMPDELAY_H
#define TORNIK_BENCH_STAMPDELAY_H

#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLibrary>
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
 *
 * Of a change that wasn't seen, `unread` tells that the machine gave the thread no time for a read
 * before the next change, and `missed` that it had read all the same; that is to be 0.
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

inline double milliseconds(const QElapsedTimer& clock)
{
    return double(clock.nsecsElapsed()) / 1e6;
}

/**
 * Starts the thread, and once more as long as its first read isn't seen at once.
 * @return the clock's time when the thread's own clock began, in ms: just before its first read
 */
template <typename Thread>
double startedAt(Thread& thread, const Input& input, const QElapsedTimer& clock)
{
    constexpr double Exact = 0.1; // ms
    constexpr int Attempts = 100;
    constexpr double LongestWait = 5000; // ms since the clock began
    double seen = milliseconds(clock);
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const unsigned before = input.reads();
        thread.start();
        double unseen = 0.0;
        do {
            unseen = seen;
            seen = milliseconds(clock);
        } while (input.reads() == before && seen < LongestWait);
        if (seen - unseen < Exact || seen >= LongestWait)
            break;
        thread.requestStop();
        thread.wait();
    }
    return seen;
}

/** A number that was shown. */
struct Change
{
    double moment = 0.0; ///< ms
    unsigned reads = 0;  ///< that began while it was shown
};

/** Shows one number after the other. */
inline std::vector<Change> makeChanges(const Input& input, const QElapsedTimer& clock)
{
    QRandomGenerator random(1);
    std::vector<Change> changes;
    for (int number = 0; number < input.changes; ++number) {
        Change change;
        change.moment = milliseconds(clock);
        input.show(number);
        change.reads = input.reads();
        QThread::usleep(input.shortestPause + random.bounded(input.shortestPause));
        change.reads = input.reads() - change.reads;
        changes.push_back(change);
    }
    return changes;
}

inline void report(benchmark::State& state, const Input& input, const std::vector<Change>& changes,
                   const std::vector<int>& stamps)
{
    // Of two reads that were counted while a number was shown, one lies wholly in that time.
    constexpr unsigned ReadsOfOneWhole = 2;
    std::vector<double> distances;
    int unread = 0;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (stamps[i] >= 0)
            distances.push_back(std::abs(stamps[i] - changes[i].moment));
        else if (changes[i].reads < ReadsOfOneWhole)
            ++unread;
    }
    std::sort(distances.begin(), distances.end());
    const auto within = std::upper_bound(distances.begin(), distances.end(), input.limit) - distances.begin();
    state.counters["changes"] = double(changes.size());
    state.counters["unread"] = unread;
    state.counters["missed"] = double(changes.size() - distances.size()) - unread;
    state.counters["limit_ms"] = input.limit;
    state.counters["within_limit"] = double(within) / double(changes.size());
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
    std::vector<Change> changes;
    for (auto _ : state) {
        const double start = startedAt(*thread, input, clock);
        const Load load;
        std::thread changer([&] { changes = makeChanges(input, clock); });
        changer.join();
        for (Change& change : changes)
            change.moment -= start;
        QThread::msleep(50); // let the thread see the last change
    }
    thread->requestStop();
    thread->wait();
    QCoreApplication::sendPostedEvents(&sink);
    report(state, input, changes, sink.stamps);
}

/**
 * What main() of such a benchmark does.
 * @param standIn the library that takes the place of the hardware's; once it is loaded, it is found
 * by its mere name
 */
inline int run(int argc, char* argv[], const QString& standIn)
{
    const QCoreApplication app(argc, argv);
    QLibrary library(standIn);
    if (!library.load()) {
        qCritical("cannot load %s", qPrintable(standIn));
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace StampDelay

#endif
