#ifndef TORNIK_TESTS_SUPPORT_PAPERRESULT_H
#define TORNIK_TESTS_SUPPORT_PAPERRESULT_H

#include "race/CRaceSettings.h"

#include <QStringList>
#include <QTime>
#include <QVector>

#include <algorithm>
#include <limits>
#include <numeric>

/**
 * Who has won and what the red line says, worked out from the lap times in milliseconds as somebody
 * does with pencil and paper. Knows none of the classes that decide a race; for up to eight tracks.
 */
class PaperResult
{
public:
    PaperResult(const CRaceSettings& rules, const QVector<QVector<int>>& laps, const QStringList& names)
        : m_rules(rules), m_laps(laps), m_names(names)
    {
        switch (rules.winningCondition()) {
        case 1:
            decideMostLaps();
            break;
        case 2:
            decideFastestLap();
            break;
        case 3:
            decideLowestAverage();
            break;
        case 4:
            decideClosestLap();
            break;
        case 5:
            decideClosestAverage();
            break;
        case 6:
            decideConstancy();
            break;
        default:
            m_text = QStringLiteral("Rennen beendet");
            break;
        }
    }

    /** @return the tracks of the winners, from 0. */
    QVector<int> winners() const { return m_winners; }
    QString text() const { return m_text; }

private:
    static QString timeText(int milliseconds)
    {
        return QTime::fromMSecsSinceStartOfDay(milliseconds).toString("mm:ss:zzz");
    }
    int target() const { return m_rules.winningTargetTime().msecsSinceStartOfDay(); }
    static int best(const QVector<int>& laps) // no lap is the fastest of all
    {
        return laps.isEmpty() ? 0 : *std::min_element(laps.begin(), laps.end());
    }
    static int average(const QVector<int>& laps)
    {
        return laps.isEmpty() ? 0 : std::accumulate(laps.begin(), laps.end(), 0) / laps.size();
    }

    /** @return a value of each track. */
    template <typename Value>
    QVector<int> ofEachTrack(Value value) const
    {
        QVector<int> values;
        std::transform(m_laps.begin(), m_laps.end(), std::back_inserter(values), value);
        return values;
    }
    static QVector<int> placesOf(int value, const QVector<int>& values)
    {
        QVector<int> places;
        for (int i = 0; i < values.size(); ++i) {
            if (values[i] == value)
                places.append(i);
        }
        return places;
    }
    static QVector<int> placesOfLeast(const QVector<int>& values)
    {
        return placesOf(*std::min_element(values.begin(), values.end()), values);
    }

    void decideMostLaps()
    {
        const QVector<int> counts = ofEachTrack([](const QVector<int>& laps) { return laps.size(); });
        const int most = *std::max_element(counts.begin(), counts.end());
        if (most > 0)
            m_winners = {placesOf(most, counts).first()};
        m_text = QStringLiteral("Die meisten Runden gefahren hat %1.").arg(m_names[m_winners.value(0)]);
    }

    void decideFastestLap()
    {
        m_winners = placesOfLeast(ofEachTrack(best));
        const int named = m_winners.last();
        const QVector<int> laps = m_laps[named];
        m_text = QStringLiteral("Die schnellste Runde war die %1. Runde von %2 mit einer Zeit von %3.")
                     .arg(QString::number(qMax(0, laps.indexOf(best(laps))) + 1), m_names[named],
                          timeText(best(laps)));
    }

    void decideLowestAverage()
    {
        m_winners = placesOfLeast(ofEachTrack(average));
        m_text = QStringLiteral("Die beste Durchschnittszeit hatte %1 mit einer Zeit von %2.")
                     .arg(m_names[m_winners.last()], timeText(average(m_laps[m_winners.last()])));
    }

    void decideClosestLap()
    {
        int least = std::numeric_limits<int>::max();
        int lapOfWinner = 0;
        m_winners = {0};
        for (int track = 0; track < m_laps.size(); ++track) {
            for (int lap = 0; lap < m_laps[track].size(); ++lap) {
                const int distance = qAbs(m_laps[track][lap] - target());
                if (distance >= least)
                    continue;
                least = distance;
                m_winners = {track};
                lapOfWinner = lap;
            }
        }
        m_text = QStringLiteral("Die siegreiche Runde war die %1. Runde mit einer Zeit von %2.")
                     .arg(QString::number(lapOfWinner + 1),
                          timeText(m_laps[m_winners.first()].value(lapOfWinner)));
    }

    void decideClosestAverage()
    {
        const auto distance = [this](const QVector<int>& laps) { return qAbs(average(laps) - target()); };
        m_winners = {placesOfLeast(ofEachTrack(distance)).first()};
        m_text = QStringLiteral("Fahrer %1 lag mit einer Durchschnittszeit von %2 am nächsten an der "
                                "Zielzeit %3.")
                     .arg(QString::number(m_winners.first() + 1),
                          timeText(average(m_laps[m_winners.first()])), timeText(target()));
    }

    /** @return the laps that count, in ascending order; the last one to stay is never ignored. */
    QVector<int> countingLaps(QVector<int> laps) const
    {
        std::sort(laps.begin(), laps.end());
        int ignored = m_rules.numOfWorstLapsToIgnore();
        if (ignored >= laps.size())
            return laps.mid(0, 1);
        for (; ignored > 0; --ignored) {
            const bool fastEndIsWorse =
                m_rules.useTargetTime() && qAbs(laps.first() - target()) > qAbs(laps.last() - target());
            laps.removeAt(fastEndIsWorse ? 0 : laps.size() - 1);
        }
        return laps;
    }
    int deviation(const QVector<int>& laps) const
    {
        if (laps.isEmpty())
            return 0;
        if (m_rules.useTargetTime())
            return qMax(qAbs(laps.first() - target()), qAbs(laps.last() - target()));
        return laps.last() - laps.first();
    }

    void decideConstancy()
    {
        QVector<QPair<int, int>> places; // deviation and slowest lap
        for (const QVector<int>& laps : m_laps) {
            const QVector<int> counting = countingLaps(laps);
            places.append({deviation(counting), counting.isEmpty() ? 0 : counting.last()});
        }
        const int winner = int(std::min_element(places.begin(), places.end()) - places.begin());
        m_winners = {winner};
        const QVector<int> laps = countingLaps(m_laps[winner]);
        m_text = QStringLiteral("Fahrer %1 hat mit einer max. Abweichung von %2 gewonnen. Die schnellste "
                                "Rundenzeit war %3, die langsamste %4.")
                     .arg(QString::number(winner + 1), timeText(places[winner].first),
                          timeText(laps.value(0)), timeText(places[winner].second));
    }

    CRaceSettings m_rules;
    QVector<QVector<int>> m_laps;
    QStringList m_names;
    QVector<int> m_winners;
    QString m_text;
};

#endif
