#ifndef TORNIK_TESTS_SUPPORT_JOURNALLAPS_H
#define TORNIK_TESTS_SUPPORT_JOURNALLAPS_H

#include "support/Crossing.h"

#include <QMap>
#include <QVector>

/** A lap as the unit's journal tells it, in milliseconds. */
struct JournalLap
{
    int lap = 0;
    int sector2 = 0; ///< from the finishing line to the sensor; 0 for none
    int sector3 = 0;
};

/** @return the laps of each car from 1, in order. */
inline QMap<int, QVector<JournalLap>> lapsOf(const QVector<Crossing>& journal)
{
    QMap<int, QVector<JournalLap>> laps;
    QMap<int, quint32> begun;
    QMap<int, JournalLap> open;
    for (const Crossing& crossing : journal) {
        const int since = int(crossing.stamp - begun.value(crossing.car));
        if (crossing.group == 2)
            open[crossing.car].sector2 = since;
        if (crossing.group == 3)
            open[crossing.car].sector3 = since;
        if (crossing.group != 1)
            continue;
        if (begun.contains(crossing.car)) {
            open[crossing.car].lap = since;
            laps[crossing.car].append(open.take(crossing.car));
        }
        begun[crossing.car] = crossing.stamp;
    }
    return laps;
}

/** @return the laps alone, of the tracks from 0. */
inline QVector<QVector<int>> lapTimesOf(const QVector<Crossing>& journal, int tracks)
{
    const QMap<int, QVector<JournalLap>> laps = lapsOf(journal);
    QVector<QVector<int>> times(tracks);
    for (int track = 0; track < tracks; ++track) {
        for (const JournalLap& lap : laps.value(track + 1))
            times[track].append(lap.lap);
    }
    return times;
}

#endif
