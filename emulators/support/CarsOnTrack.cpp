#include "support/CarsOnTrack.h"

#include <algorithm>

namespace {

constexpr int LapGroup = 1;
constexpr int ShortestLap = 300;
constexpr int GridStep = 150;

} // namespace

CarsOnTrack::CarsOnTrack(const QVector<Car>& cars, int sectors, int laps, quint32 seed)
    : m_cars(cars), m_driving(cars.size()), m_sectors(sectors), m_laps(laps), m_random(seed)
{
}

int CarsOnTrack::chance(int from, int to)
{
    return from + int(m_random() % unsigned(to - from + 1));
}

void CarsOnTrack::start(qint64 now)
{
    for (int car = 0; car < m_cars.size(); ++car) {
        m_driving[car] = Driving();
        m_driving[car].nextTime = now + 200 + qint64(car) * GridStep + chance(0, GridStep);
    }
}

void CarsOnTrack::stop()
{
    m_driving.fill(Driving());
}

int CarsOnTrack::firstToCross() const
{
    int first = -1;
    for (int car = 0; car < m_driving.size(); ++car) {
        const qint64 time = m_driving.at(car).nextTime;
        if (time >= 0 && (first < 0 || time < m_driving.at(first).nextTime))
            first = car;
    }
    return first;
}

qint64 CarsOnTrack::nextTime() const
{
    const int car = firstToCross();
    return car < 0 ? -1 : m_driving.at(car).nextTime;
}

std::optional<Crossing> CarsOnTrack::takeCrossing(qint64 now)
{
    const int car = firstToCross();
    if (car < 0 || m_driving.at(car).nextTime > now)
        return std::nullopt;
    Driving& driving = m_driving[car];
    const Crossing crossing{car + 1, quint32(driving.nextTime), driving.nextGroup};
    if (driving.nextGroup == LapGroup)
        beginLap(car, driving.nextTime);
    else
        planNext(car);
    return crossing;
}

void CarsOnTrack::beginLap(int car, qint64 now)
{
    Driving& driving = m_driving[car];
    if (m_laps > 0 && driving.lapsBegun == m_laps) {
        driving = Driving();
        return;
    }
    const Car& settings = m_cars.at(car);
    ++driving.lapsBegun;
    driving.lapBegin = now;
    driving.lapTime = std::max(ShortestLap, settings.meanLapTime + chance(-settings.spread, settings.spread));
    planNext(car);
}

void CarsOnTrack::planNext(int car)
{
    Driving& driving = m_driving[car];
    driving.nextGroup = driving.nextGroup == m_sectors ? LapGroup : driving.nextGroup + 1;
    driving.nextTime = driving.nextGroup == LapGroup ? driving.lapBegin + driving.lapTime
                                                     : sectorBegin(driving, driving.nextGroup);
}

qint64 CarsOnTrack::sectorBegin(const Driving& driving, int group)
{
    const int deviation = driving.lapTime / 20;
    return driving.lapBegin + driving.lapTime * (group - 1) / m_sectors + chance(-deviation, deviation);
}
