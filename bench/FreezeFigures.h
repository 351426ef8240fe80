#ifndef TORNIK_BENCH_FREEZEFIGURES_H
#define TORNIK_BENCH_FREEZEFIGURES_H

#include "support/DatabaseFile.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QWidget>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

/** How long the window stands still at each step of the user, beside a yardstick named "bare_statement". */
class Figures
{
public:
    static constexpr double LongestFreeze = 1000; ///< milliseconds that a user may have to wait

    template <typename Step>
    void measure(const std::string& name, Step step)
    {
        QElapsedTimer timer;
        timer.start();
        step();
        add(name, timer);
    }
    void add(const std::string& name, const QElapsedTimer& timer)
    {
        m_values[name].push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    /** Tells the figures, and which step a user had to wait for too long, if there is one. */
    void tell(benchmark::State& state)
    {
        double longest = 0;
        std::string slowest;
        for (auto& [name, values] : m_values) {
            std::sort(values.begin(), values.end());
            state.counters[name + "_ms"] = values[values.size() / 2];
            if (name != "bare_statement" && values.back() > longest) {
                longest = values.back();
                slowest = name;
            }
        }
        state.counters["longest_freeze_ms"] = longest;
        state.counters["at_most_ms"] = LongestFreeze;
        if (longest > LongestFreeze)
            state.SetLabel("TOO LONG: " + slowest);
    }

private:
    std::map<std::string, std::vector<double>> m_values;
};

/** Waits until all that has happened to a window is on the screen. */
inline void painted(QWidget* window)
{
    QCoreApplication::sendPostedEvents();
    window->repaint();
    QCoreApplication::processEvents();
}

/** Runs an INSERT ... SELECT ... FROM n, where i counts up to @p count. */
inline bool insertRows(DatabaseFile& file, int count, const char* statement)
{
    const QString counter = QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                           "WHERE i < %1) ");
    return file.exec(counter.arg(count) + statement);
}

/** Reads a whole list as plainly as it can be read. @return the number of its rows */
inline int readRows(const char* statement, int columns)
{
    QSqlQuery query;
    query.setForwardOnly(true);
    query.exec(statement);
    int rows = 0;
    while (query.next()) {
        for (int column = 0; column < columns; ++column)
            benchmark::DoNotOptimize(query.value(column));
        ++rows;
    }
    return rows;
}

/** Prints as usual and remembers whether a benchmark has failed or a window has stood still too long. */
class FailureReporter : public benchmark::ConsoleReporter
{
public:
    bool hasFailed = false;

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const auto longest = run.counters.find("longest_freeze_ms");
            hasFailed = hasFailed || run.error_occurred || longest == run.counters.end() ||
                        longest->second > Figures::LongestFreeze;
        }
    }
};

/** The main() of a benchmark with windows. @return 1 if it has failed */
inline int runWithWindows(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    FailureReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.hasFailed ? 1 : 0;
}

#endif
