/**
 * The reading thread of the parallel port, on the stand-in library.
 *
 * readingThreadPasses: its passes beside those of a bare usleep(1) loop in the same run; `ratio` is
 * to be 0.9 at least.
 *
 * stampDelay: how far the stamps of 10,000 changes lie from the moments of the changes, which
 * another thread makes while the other processors are loaded; `within_1ms` is the share of those
 * that lie within a millisecond. A change that the thread didn't see counts as one that doesn't.
 */
#include "io/CPortThread.h"
#include "io/CRacewayIoEvent.h"
#include "io/TestPort.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLibrary>
#include <QRandomGenerator>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr int Slices = 10;
constexpr unsigned long SliceMilliseconds = 300;
constexpr int Changes = 10000;

/** The yardstick: the loop of the reading thread with nothing in it. */
class BareLoop : public QThread
{
public:
    void requestStop() { m_stopRequested = true; }
    unsigned passes() const { return m_passes; }

protected:
    void run() override
    {
        while (!m_stopRequested) {
            usleep(1);
            m_passes.fetch_add(1, std::memory_order_relaxed);
        }
    }

private:
    std::atomic<bool> m_stopRequested{false};
    std::atomic<unsigned> m_passes{0};
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

/** Keeps the stamp of each value; -1 for one that didn't come. */
class StampSink : public QObject
{
public:
    std::vector<int> stamps = std::vector<int>(Changes, -1);

protected:
    void customEvent(QEvent* event) override
    {
        const auto* raw = static_cast<const CRacewayIoEvent*>(event);
        if (raw->value() >= 0 && raw->value() < Changes)
            stamps[std::size_t(raw->value())] = raw->time();
    }
};

unsigned passesOfBareLoop()
{
    BareLoop loop;
    loop.start();
    QThread::msleep(SliceMilliseconds);
    loop.requestStop();
    loop.wait();
    return loop.passes();
}

/** The library looks its registers up once: one port for the whole process, made before its first use. */
TestPort& port()
{
    static TestPort testPort;
    return testPort;
}

unsigned passesOfReadingThread()
{
    QObject target;
    CPortThread thread(&target);
    const unsigned before = port()->reads();
    thread.start();
    QThread::msleep(SliceMilliseconds);
    thread.requestStop();
    thread.wait();
    return port()->reads() - before;
}

void readingThreadPasses(benchmark::State& state)
{
    double bare = 0;
    double reading = 0;
    for (auto _ : state) {
        for (int slice = 0; slice < Slices; ++slice) {
            bare += passesOfBareLoop();
            reading += passesOfReadingThread();
        }
    }
    const double seconds = double(Slices) * SliceMilliseconds / 1000;
    state.counters["bare_passes_per_s"] = bare / seconds;
    state.counters["reading_passes_per_s"] = reading / seconds;
    state.counters["ratio"] = reading / bare;
}

/**
 * Starts the thread.
 * @return the clock's time when the thread's own clock began, in ms: just before its first read
 */
double startedAt(CPortThread& thread, const QElapsedTimer& clock)
{
    const unsigned before = port()->reads();
    thread.start();
    while (port()->reads() == before && clock.elapsed() < 5000) {
    }
    return double(clock.nsecsElapsed()) / 1e6;
}

/** Writes a new value every one to two milliseconds. @return the moments, in ms */
std::vector<double> makeChanges(const QElapsedTimer& clock)
{
    QRandomGenerator random(1);
    std::vector<double> moments;
    for (int value = 0; value < Changes; ++value) {
        QThread::usleep(1000 + random.bounded(1000U));
        moments.push_back(double(clock.nsecsElapsed()) / 1e6);
        port()->write(TestPort::Status, short(value));
    }
    return moments;
}

void report(benchmark::State& state, const std::vector<double>& moments, const std::vector<int>& stamps)
{
    std::vector<double> distances;
    for (std::size_t i = 0; i < moments.size(); ++i) {
        if (stamps[i] >= 0)
            distances.push_back(std::abs(stamps[i] - moments[i]));
    }
    std::sort(distances.begin(), distances.end());
    const auto within = std::upper_bound(distances.begin(), distances.end(), 1.0) - distances.begin();
    state.counters["changes"] = double(moments.size());
    state.counters["missed"] = double(moments.size() - distances.size());
    state.counters["within_1ms"] = double(within) / double(moments.size());
    if (distances.empty())
        return;
    state.counters["median_ms"] = distances[distances.size() / 2];
    state.counters["p99_ms"] = distances[distances.size() * 99 / 100];
    state.counters["max_ms"] = distances.back();
}

void stampDelay(benchmark::State& state)
{
    StampSink sink;
    CPortThread thread(&sink);
    QElapsedTimer clock;
    clock.start();
    std::vector<double> moments;
    for (auto _ : state) {
        const double start = startedAt(thread, clock);
        const Load load;
        std::thread changer([&] { moments = makeChanges(clock); });
        changer.join();
        for (double& moment : moments)
            moment -= start;
        QThread::msleep(50); // let the thread see the last change
    }
    thread.requestStop();
    thread.wait();
    QCoreApplication::sendPostedEvents(&sink);
    report(state, moments, sink.stamps);
}

BENCHMARK(readingThreadPasses)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(stampDelay)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    port();
    QLibrary standIn(QStringLiteral(VIRTUAL_INPOUT32)); // once loaded, it is found by its mere name
    if (!standIn.load()) {
        qCritical("cannot load %s", VIRTUAL_INPOUT32);
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
