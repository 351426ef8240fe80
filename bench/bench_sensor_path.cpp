// The road of an event through the race: from the posted raw event of a mask interface to the last
// RaceEventHappened. The yardstick is the posting and delivery of one bare QEvent.
//
// Besides: whether the cost grows with the laps driven, and the memory of a lap.

#include "io/CParallelPortIo.h"
#include "io/CRacewayIoEvent.h"
#include "race/CRace.h"
#include "shell/CSettings.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <malloc.h>
#include <vector>

namespace {

constexpr int Tracks = 8;
constexpr int AllOpen = 255;
constexpr int AllClosed = 0;

/** A race on eight tracks of a parallel port, started flying, whose port stands still. */
class Race
{
public:
    Race()
    {
        CRaceway raceway(Tracks);
        CParallelPortIo io;
        io.setPortState(PortId::Open, AllOpen, false);
        for (int track = 0; track < Tracks; ++track)
            io.setPortState(PortId::lapSensor(track), AllOpen & ~(1 << track), false);
        raceway.ioSettings = io.writeSettings();
        m_raceSettings.setRaceway(raceway);
        m_race = std::make_unique<CRace>(&m_settings, &m_raceSettings);
        QObject::connect(m_race.get(), &CRace::RaceEventHappened, [this](const CRaceEvent&) { ++m_events; });
        m_race->vStartQuickRace();
        m_race->io()->stop();
        while (m_race->io()->isRunning())
            QThread::msleep(1);
        QCoreApplication::sendPostedEvents();
    }

    void deliver(int value, int time)
    {
        QCoreApplication::postEvent(m_race->io(), new CRacewayIoEvent(value, time));
        QCoreApplication::sendPostedEvents(); // to the interface, which posts the decoded event
        QCoreApplication::sendPostedEvents(); // to the race
    }

    /** Every car crosses its sensor; the first time opens the laps. */
    void crossAll() { deliver(AllClosed, m_time += 1000); }
    void release() { deliver(AllOpen, ++m_time); }

    void drive(int laps)
    {
        for (int lap = 0; lap <= laps; ++lap)
            crossAll();
    }

    int laps() const { return m_race->raceMember(0).numberOfLaps(); }
    long events() const { return m_events; }

private:
    CSettings m_settings;
    CRaceSettings m_raceSettings;
    std::unique_ptr<CRace> m_race;
    int m_time = 1000;
    long m_events = 0;
};

class Sink : public QObject
{
protected:
    void customEvent(QEvent*) override { benchmark::ClobberMemory(); }
};

void bareEvent(Sink& sink)
{
    QCoreApplication::postEvent(&sink, new QEvent(QEvent::User));
    QCoreApplication::sendPostedEvents();
}

constexpr int Batch = 400;
constexpr int Rounds = 60;

/** Processor time of this thread: what else the machine does must not count. */
double processorNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
}

template <typename Function>
double nanosecondsEach(Function function)
{
    const double begin = processorNanoseconds();
    for (int i = 0; i < Batch; ++i)
        function();
    return (processorNanoseconds() - begin) / Batch;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/** Measures the two in turn and reports the median of the ratios round by round. */
template <typename Own, typename Yardstick>
void reportRatio(benchmark::State& state, Own own, Yardstick yardstick, const char* limit, double limitValue)
{
    std::vector<double> ownTimes;
    std::vector<double> yardstickTimes;
    std::vector<double> ratios;
    for (auto _ : state) {
        ownTimes.push_back(nanosecondsEach(own));
        yardstickTimes.push_back(nanosecondsEach(yardstick));
        ratios.push_back(ownTimes.back() / yardstickTimes.back());
    }
    state.counters["own_ns"] = median(ownTimes);
    state.counters["yardstick_ns"] = median(yardstickTimes);
    state.counters["ratio"] = median(ratios);
    state.counters[limit] = limitValue;
}

void lapOnEightTracks(benchmark::State& state)
{
    Race race;
    Sink sink;
    race.crossAll();
    reportRatio(
        state, [&race] { race.crossAll(); }, [&sink] { bareEvent(sink); }, "at_most", 25.0);
    if (race.laps() < Batch * Rounds)
        state.SkipWithError("laps were lost");
    state.counters["events_a_lap"] = double(race.events()) / race.laps();
}

void eventThatChangesNothing(benchmark::State& state)
{
    Race race;
    Sink sink;
    race.drive(10);
    const int laps = race.laps();
    reportRatio(
        state, [&race] { race.release(); }, [&sink] { bareEvent(sink); }, "at_most", 5.0);
    if (race.laps() != laps)
        state.SkipWithError("the event changed something");
}

void costOfManyLaps(benchmark::State& state)
{
    std::vector<double> ratios;
    for (auto _ : state) {
        Race few;
        Race many;
        few.drive(10);
        many.drive(10000);
        // Laps are appended while measuring, so each round takes its races anew.
        std::vector<double> fewTimes;
        std::vector<double> manyTimes;
        for (int i = 0; i < 200; ++i) {
            const double begin = processorNanoseconds();
            few.crossAll();
            const double middle = processorNanoseconds();
            many.crossAll();
            fewTimes.push_back(middle - begin);
            manyTimes.push_back(processorNanoseconds() - middle);
        }
        ratios.push_back(median(manyTimes) / median(fewTimes));
    }
    state.counters["ratio"] = median(ratios);
    state.counters["at_most"] = 1.1;
}

void memoryOfALap(benchmark::State& state)
{
    constexpr int Laps = 10000;
    double bytes = 0.0;
    for (auto _ : state) {
        Race race;
        race.drive(10);
        const auto before = mallinfo2();
        race.drive(Laps);
        const auto after = mallinfo2();
        bytes =
            double(after.uordblks + after.hblkhd - before.uordblks - before.hblkhd) / (double(Laps) * Tracks);
    }
    state.counters["bytes_a_lap"] = bytes;
    state.counters["at_most"] = 64.0;
}

BENCHMARK(lapOnEightTracks)->Iterations(Rounds)->Unit(benchmark::kMillisecond);
BENCHMARK(eventThatChangesNothing)->Iterations(Rounds)->Unit(benchmark::kMillisecond);
BENCHMARK(costOfManyLaps)->Iterations(9)->Unit(benchmark::kMillisecond);
BENCHMARK(memoryOfALap)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
