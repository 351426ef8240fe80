/**
 * The reading thread of the parallel port, on the stand-in library.
 *
 * readingThreadPasses: its passes beside those of a bare usleep(1) loop in the same run; `ratio` is
 * to be 0.9 at least.
 *
 * stampDelay: of 10,000 changes; see StampDelay.h. `within_limit` is the share that lies within a
 * millisecond.
 */
#include "StampDelay.h"
#include "io/CPortThread.h"
#include "io/TestPort.h"

#include <QThread>

#include <atomic>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr int Slices = 10;
constexpr unsigned long SliceMilliseconds = 300;

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

void stampDelay(benchmark::State& state)
{
    const StampDelay::Input input{[] { return port()->reads(); },
                                  [](int number) { port()->write(TestPort::Status, short(number)); },
                                  [](int value) { return value; },
                                  10000,
                                  1000,
                                  1.0};
    StampDelay::measure(state, input, [](QObject* target) { return std::make_unique<CPortThread>(target); });
}

BENCHMARK(readingThreadPasses)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(stampDelay)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    port();
    return StampDelay::run(argc, argv, QStringLiteral(VIRTUAL_INPOUT32));
}
