// From the start of the process to the first painted window, beside a program that shows an empty
// Qt window, on the X display if there is one. Both tell of their first paint through Qt's own
// logging category for it.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <vector>

namespace {

constexpr int Runs = 15;

/** @return milliseconds to the first flushed paint, negative if the program never painted. */
double timeToFirstPaint(const QString& program, const QStringList& arguments, const QString& directory)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("qt.widgets.painting.info=true"));
    if (environment.contains(QStringLiteral("DISPLAY")))
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(directory);
    process.setReadChannel(QProcess::StandardError);

    QElapsedTimer clock;
    clock.start();
    process.start(program, arguments);
    double elapsed = -1.0;
    while (process.waitForReadyRead(10000)) {
        if (process.readAll().contains("Flushing")) {
            elapsed = double(clock.nsecsElapsed()) / 1e6;
            break;
        }
    }
    process.kill();
    process.waitForFinished();
    return elapsed;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void startToFirstPaint(benchmark::State& state)
{
    const QString tornik = QStringLiteral(TORNIK_BIN_DIR "/tornik");
    const QString empty = QCoreApplication::applicationDirPath() + QStringLiteral("/empty_window");
    QTemporaryDir directory;
    const QString path = directory.path();
    timeToFirstPaint(tornik, {QStringLiteral("--windowed")}, path); // makes the database
    timeToFirstPaint(empty, {}, path);

    std::vector<double> own;
    std::vector<double> yardstick;
    for (auto _ : state) {
        own.push_back(timeToFirstPaint(tornik, {QStringLiteral("--windowed")}, path));
        yardstick.push_back(timeToFirstPaint(empty, {}, path));
        if (own.back() < 0 || yardstick.back() < 0) {
            state.SkipWithError("a program never painted");
            return;
        }
    }
    state.counters["tornik_ms"] = median(own);
    state.counters["empty_window_ms"] = median(yardstick);
    state.counters["ratio"] = median(own) / median(yardstick);
}

BENCHMARK(startToFirstPaint)->Iterations(Runs)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
