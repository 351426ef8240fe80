#ifndef TORNIK_BENCH_FREEZEFIGURES_H
#define TORNIK_BENCH_FREEZEFIGURES_H

#include <QCoreApplication>
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
    void tell(benchmark::State& state)
    {
        double longest = 0;
        for (auto& [name, values] : m_values) {
            std::sort(values.begin(), values.end());
            state.counters[name + "_ms"] = values[values.size() / 2];
            if (name != "bare_statement")
                longest = std::max(longest, values.back());
        }
        state.counters["longest_freeze_ms"] = longest;
        state.counters["at_most_ms"] = 1000;
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

#endif
