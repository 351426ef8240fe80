// A finished race of eight tracks with 500 laps each is stored, one commit a row. The yardstick is the
// same statements, made beforehand and run on the bare engine in a file beside it, in the same run.
//
// The disc decides most of both; the processor time tells what the program itself adds.

#include "race/StoredRaceFixture.h"

#include <QElapsedTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace {

constexpr int Tracks = 8;
constexpr int Laps = 500;
constexpr int Rounds = 5;

struct Cost
{
    double wall;      // milliseconds
    double processor; // milliseconds
};

double processorMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

template <typename Function>
Cost costOf(Function function)
{
    QElapsedTimer timer;
    timer.start();
    const double processor = processorMilliseconds();
    function();
    return {double(timer.nsecsElapsed()) / 1e6, processorMilliseconds() - processor};
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/** The bare engine on a copy of the empty file. */
class BareFile
{
public:
    explicit BareFile(const char* fileName) { sqlite3_open(fileName, &m_database); }
    ~BareFile() { sqlite3_close(m_database); }

    void run(const std::vector<std::string>& statements)
    {
        for (const std::string& statement : statements) {
            if (sqlite3_exec(m_database, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
                ++m_failures;
        }
    }
    int failures() const { return m_failures; }

private:
    Q_DISABLE_COPY(BareFile)

    sqlite3* m_database = nullptr;
    int m_failures = 0;
};

/** Laps of 5 s and some, no two of a member the same. */
void driveRace(StoredRaceFixture& fixture)
{
    fixture.start();
    for (int track = 0; track < Tracks; ++track) {
        std::vector<int> lapTimes;
        for (int lap = 0; lap < Laps; ++lap)
            lapTimes.push_back(5000 + lap * 7 % Laps + track);
        fixture.drive(track, lapTimes);
        fixture.take();
        fixture.memberEvents.clear();
    }
}

/** @return what the list sends for the n-th race of the file, n from 1. */
std::vector<std::string> statementsOf(const CRace& race, int n)
{
    std::vector<std::string> statements;
    const auto add = [&statements](const QString& text) { statements.push_back(text.toStdString()); };
    const QString date = race.raceDateTime().toString(Qt::ISODate);
    add("INSERT INTO races(date, name, settings) VALUES('" + date + "','Rennen','" +
        race.raceSettingsCopy().toText() + "')");
    for (int track = 0; track < Tracks; ++track) {
        const CRaceMember member = race.raceMember(track);
        const int participant = (n - 1) * Tracks + track + 1;
        add(QString("INSERT INTO raceParticipants(raceId, driverId, trackId, carId) VALUES(%1,%2,%3,%4)")
                .arg(n)
                .arg(member.driver().id())
                .arg(member.track().id)
                .arg(member.car().id()));
        for (int lap = 0; lap < Laps; ++lap)
            add(QString("INSERT INTO laps(participantId, lapNumber, time, sector1Time, sector2Time, "
                        "sector3Time) VALUES(%1,%2,%3,%4,%5,%6)")
                    .arg(participant)
                    .arg(lap + 1)
                    .arg(member.lap(lap).lapTime)
                    .arg(member.lap(lap).sector1Time)
                    .arg(member.lap(lap).sector2Time)
                    .arg(member.lap(lap).sector3Time));
    }
    return statements;
}

QStringList storedRows(const QString& fileName)
{
    DatabaseFile file(fileName);
    return file.rows("SELECT * FROM races") + file.rows("SELECT * FROM raceParticipants") +
           file.rows("SELECT * FROM laps");
}

void storeARace(benchmark::State& state)
{
    const ScratchDirectory scratch;
    {
        StoredRaceFixture fixture(Tracks);
        driveRace(fixture);
        QFile::copy("tornik.db", "bare.db");
        BareFile bare("bare.db");
        std::vector<double> ownWall;
        std::vector<double> bareWall;
        std::vector<double> wallRatios;
        std::vector<double> processorRatios;
        int race = 0;
        for (auto _ : state) {
            const auto statements = statementsOf(fixture.race(), ++race);
            const auto runBare = [&] { return costOf([&] { bare.run(statements); }); };
            const auto runOwn = [&] { return costOf([&] { fixture.race().saveToDatabase("Rennen"); }); };
            // In turn, so that neither always has the disc that the other has left behind.
            const Cost first = race % 2 ? runOwn() : runBare();
            const Cost second = race % 2 ? runBare() : runOwn();
            const Cost own = race % 2 ? first : second;
            const Cost yardstick = race % 2 ? second : first;
            ownWall.push_back(own.wall);
            bareWall.push_back(yardstick.wall);
            wallRatios.push_back(own.wall / yardstick.wall);
            processorRatios.push_back(own.processor / yardstick.processor);
        }
        state.counters["own_ms"] = median(ownWall);
        state.counters["bare_ms"] = median(bareWall);
        state.counters["ratio"] = median(wallRatios);
        state.counters["at_most"] = 1.5;
        state.counters["processor_ratio"] = median(processorRatios);
        if (bare.failures() > 0 || storedRows("tornik.db") != storedRows("bare.db") ||
            DatabaseFile().value("SELECT COUNT(*) FROM laps").toInt() != Tracks * Laps * race)
            state.SkipWithError("the two files differ");
    }
    closeDatabase();
}

BENCHMARK(storeARace)->Iterations(Rounds)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
