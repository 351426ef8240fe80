#ifndef TORNIK_TESTS_SUPPORT_MAINTHREADWATCH_H
#define TORNIK_TESTS_SUPPORT_MAINTHREADWATCH_H

#include <QElapsedTimer>
#include <QEventLoop>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <algorithm>
#include <sys/resource.h>

/** How the main thread lived through a while, as a dashboard would. */
struct MainThreadWatch
{
    double processorShare = 0.0; ///< of one core, by all threads of this process
    qint64 medianGap = 0;        ///< milliseconds between two events of a timer with 10 ms
    qint64 longestGap = 0;

    /** @return what a user would complain of; empty for nothing. Another process may cost a pause or two. */
    QString complaints() const
    {
        QStringList texts;
        if (processorShare >= 0.2)
            texts.append(QStringLiteral("%1 of a processor").arg(processorShare));
        if (medianGap >= 50)
            texts.append(QStringLiteral("every other event after %1 ms").arg(medianGap));
        if (longestGap >= 500)
            texts.append(QStringLiteral("one event after %1 ms").arg(longestGap));
        return texts.join(QStringLiteral(", "));
    }

    /** Runs the event loop for a while. */
    static MainThreadWatch during(int milliseconds)
    {
        const qint64 before = processorTime();
        QElapsedTimer whole;
        whole.start();
        QElapsedTimer sinceTick;
        sinceTick.start();
        QVector<qint64> gaps;
        QEventLoop loop;
        QTimer tick;
        QObject::connect(&tick, &QTimer::timeout, &loop, [&] {
            gaps.append(sinceTick.restart());
            if (whole.elapsed() >= milliseconds)
                loop.quit();
        });
        tick.start(10);
        loop.exec();
        std::sort(gaps.begin(), gaps.end());
        return {double(processorTime() - before) * 1000.0 / double(whole.nsecsElapsed()),
                gaps.at(gaps.size() / 2), gaps.last()};
    }

    /** @return processor time of this process, all its threads, in microseconds. */
    static qint64 processorTime() { return timeOf(RUSAGE_SELF); }

    /** @return processor time of all threads of this process but the calling one, in microseconds. */
    static qint64 timeOfOtherThreads() { return timeOf(RUSAGE_SELF) - timeOf(RUSAGE_THREAD); }

private:
    static qint64 timeOf(int who)
    {
        rusage usage{};
        getrusage(__rusage_who_t(who), &usage);
        return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * qint64(1000000) + usage.ru_utime.tv_usec +
               usage.ru_stime.tv_usec;
    }
};

#endif
