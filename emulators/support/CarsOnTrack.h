#ifndef TORNIK_EMULATORS_CARSONTRACK_H
#define TORNIK_EMULATORS_CARSONTRACK_H

#include "support/Crossing.h"

#include <QVector>

#include <optional>
#include <random>

/**
 * Up to eight cars that drive laps by chance numbers: the same seed gives the same laps, however
 * often they are asked for. Time is in milliseconds of the race, handed in.
 */
class CarsOnTrack
{
public:
    struct Car
    {
        int meanLapTime = 6000; ///< milliseconds
        int spread = 400;       ///< a lap differs from the mean by this at most
    };

    /**
     * @param sectors 1 to 3
     * @param laps of each car; 0 for no end
     */
    CarsOnTrack(const QVector<Car>& cars, int sectors, int laps, quint32 seed);

    /** Lets every car leave its place on the grid; laps begin at the line, some time after @p now. */
    void start(qint64 now);
    /** Takes all cars off the track. */
    void stop();
    bool isDriving() const { return nextTime() >= 0; }
    /** @return when the next car passes a sensor; -1 if none drives. */
    qint64 nextTime() const;
    /** @return the earliest crossing not after @p now, once; its stamp is its time. */
    std::optional<Crossing> takeCrossing(qint64 now);

private:
    struct Driving
    {
        qint64 nextTime = -1;
        int nextGroup = 1;
        qint64 lapBegin = 0;
        int lapTime = 0;
        int lapsBegun = 0;
    };

    int chance(int from, int to);
    int firstToCross() const;
    void beginLap(int car, qint64 now);
    void planNext(int car);
    qint64 sectorBegin(const Driving& driving, int group);

    QVector<Car> m_cars;
    QVector<Driving> m_driving;
    int m_sectors;
    int m_laps;
    std::mt19937 m_random;
};

#endif
