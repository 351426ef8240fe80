#include "race/CRaceMember.h"

#include <limits>

namespace {

/** A pin outside the set reads as inactive; pin 0 is an input that no interface sets. */
bool isActive(const QBitArray& sensors, int pin)
{
    return pin >= 0 && pin < sensors.size() && sensors.testBit(pin);
}

/** @return whether the filter of a sensor that was last accepted at @p last lets @p time pass. */
bool passesFilter(quint32 time, quint32 last, int minTime)
{
    return last == 0 || qint32(time - last) >= minTime;
}

/** Adds as the 32-bit clock does: it wraps, whatever stamps a broken source sends. */
int wrappingSum(int a, int b)
{
    return int(quint32(a) + quint32(b));
}

int boundedSum(int a, int b)
{
    using Limits = std::numeric_limits<int>;
    return int(qBound(qint64(Limits::min()), qint64(a) + b, qint64(Limits::max())));
}

/** As QTime(0, 0).addMSecs() has it, in a fraction of the time: each event asks for nine of them. */
QTime toTime(int milliseconds)
{
    constexpr int millisecondsPerDay = 24 * 60 * 60 * 1000;
    const int ofDay = milliseconds % millisecondsPerDay;
    return QTime::fromMSecsSinceStartOfDay(ofDay < 0 ? ofDay + millisecondsPerDay : ofDay);
}

int split2(const CLapTime& lap)
{
    return wrappingSum(lap.sector1Time, lap.sector2Time);
}

int split3(const CLapTime& lap)
{
    return wrappingSum(split2(lap), lap.sector3Time);
}

} // namespace

CRaceMember::CRaceMember() : CRaceMember(CRacewayTrack(), 0) {}

CRaceMember::CRaceMember(const CRacewayTrack& track, int trackIndex)
    : m_track(track), m_trackIndex(trackIndex)
{
    m_refuelTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_refuelTimer, &QTimer::timeout, this, &CRaceMember::refuel);
}

CRaceMember::CRaceMember(const CRaceMember& other) : CRaceMember(other.m_track, other.m_trackIndex)
{
    *this = other;
}

CRaceMember& CRaceMember::operator=(const CRaceMember& other)
{
    m_refuelTimer.stop();
    m_car = other.m_car;
    m_track = other.m_track;
    m_driver = other.m_driver;
    m_laps = other.m_laps;
    m_bestLapIndex = other.m_bestLapIndex;
    m_currentLap = other.m_currentLap;
    m_status = other.m_status;
    m_lastStartSensorTime = other.m_lastStartSensorTime;
    m_lastEndSensorTime = other.m_lastEndSensorTime;
    m_totalLapTime = other.m_totalLapTime;
    m_trackIndex = other.m_trackIndex;
    m_stopped = other.m_stopped;
    m_minTime = other.m_minTime;
    m_startSensorPin = other.m_startSensorPin;
    m_refuelStartPin = other.m_refuelStartPin;
    m_refuelEndPin = other.m_refuelEndPin;
    m_sector2Pin = other.m_sector2Pin;
    m_sector3Pin = other.m_sector3Pin;
    m_endSensorPin = other.m_endSensorPin;
    m_fuelEnabled = other.m_fuelEnabled;
    m_refuelInterval = other.m_refuelInterval;
    m_refuelAmount = other.m_refuelAmount;
    m_emptyReaction = other.m_emptyReaction;
    m_emptyPenaltyTime = other.m_emptyPenaltyTime;
    m_lapCountingBlocked = other.m_lapCountingBlocked;
    m_activePenalty = other.m_activePenalty;
    m_lapOpen = other.m_lapOpen;
    return *this;
}

void CRaceMember::setStatus(CRaceMemberStatus status)
{
    if (m_status == status)
        return;
    m_status = status;
    Q_EMIT update(m_trackIndex, 0);
}

CLapTime CRaceMember::lap(int index) const
{
    return m_laps.value(index);
}

CLapSensorFlags CRaceMember::processSensors(const QBitArray& sensors, quint32 time)
{
    if (m_stopped)
        return 0;
    const bool start = isActive(sensors, m_startSensorPin);
    const bool end = isActive(sensors, m_endSensorPin);
    if (!start && !end)
        return processSectorSensors(sensors, time);
    if (m_currentLap.lapStartTime == 0)
        return start ? beginLap(time) : 0; // the first crossing passes no filter
    CLapSensorFlags flags = 0;
    if (end && acceptsEnd(time))
        flags |= endLap(time);
    if (start && passesFilter(time, m_lastStartSensorTime, m_minTime))
        flags |= beginLap(time);
    return flags;
}

CLapSensorFlags CRaceMember::processSectorSensors(const QBitArray& sensors, quint32 time)
{
    if (isActive(sensors, m_sector2Pin)) {
        if (!m_lapOpen)
            return 0;
        m_currentLap.setSector2Begin(time);
        return Sector2Taken;
    }
    if (!m_lapOpen || !isActive(sensors, m_sector3Pin))
        return 0;
    m_currentLap.setSector3Begin(time);
    return Sector3Taken;
}

CLapSensorFlags CRaceMember::beginLap(quint32 time)
{
    m_currentLap.setLapStart(time);
    m_lapOpen = true;
    m_lastStartSensorTime = time;
    return LapBegan;
}

bool CRaceMember::acceptsEnd(quint32 time) const
{
    if (m_lapCountingBlocked || !m_lapOpen || !passesFilter(time, m_lastEndSensorTime, m_minTime))
        return false;
    // Unlike the filter of the sensors, the age of the lap is an unsigned difference.
    return qint64(time - quint32(m_currentLap.lapStartTime)) >= m_minTime;
}

CLapSensorFlags CRaceMember::endLap(quint32 time)
{
    m_lapOpen = false;
    m_currentLap.setLapEnd(time + quint32(m_activePenalty));
    m_laps.append(m_currentLap);
    m_totalLapTime = wrappingSum(m_totalLapTime, m_currentLap.lapTime);
    m_car.setDistanceDriven(boundedSum(m_car.distanceDriven(), m_track.length));
    m_lastEndSensorTime = time;
    return LapEnded | rateLap() | consumeFuel();
}

CLapSensorFlags CRaceMember::rateLap()
{
    // The first lap compares with itself, so that it is never a new best one.
    if (m_currentLap.lapTime >= m_laps.at(m_bestLapIndex).lapTime)
        return 0;
    m_bestLapIndex = m_laps.size() - 1;
    return NewBestLap;
}

CLapSensorFlags CRaceMember::consumeFuel()
{
    switch (m_car.consumeLap(quint32(m_currentLap.lapTime))) {
    case CFuelTank::Enough:
        return 0;
    case CFuelTank::OnReserve:
        return TankOnReserve;
    case CFuelTank::Empty:
        break;
    }
    reactToEmptyTank();
    return TankEmpty;
}

void CRaceMember::reactToEmptyTank()
{
    m_lapCountingBlocked = m_fuelEnabled && m_emptyReaction == BlockLapCounting;
    m_activePenalty = m_fuelEnabled && m_emptyReaction == PenaltyPerLap ? m_emptyPenaltyTime : 0;
}

void CRaceMember::processRefuelSensors(const QBitArray& sensors, quint32 /*time*/)
{
    if (!m_fuelEnabled || m_stopped)
        return;
    if (isActive(sensors, m_refuelStartPin)) {
        if (!m_refuelTimer.isActive())
            m_refuelTimer.start(m_refuelInterval);
        return;
    }
    if (m_refuelEndPin == 0 || isActive(sensors, m_refuelEndPin))
        m_refuelTimer.stop();
}

void CRaceMember::refuel()
{
    if (m_stopped)
        return;
    m_car.addFuel(m_refuelAmount);
    // Required: a percentage is compared with an amount, and passes for "enough for one lap".
    if (double(fuelPercent()) >= m_car.fuelTank().maxUsageAmount()) {
        m_lapCountingBlocked = false;
        m_activePenalty = 0;
        Q_EMIT refuelEnoughForAtLeastOneLap(m_trackIndex);
    }
    Q_EMIT update(m_trackIndex, 0);
}

void CRaceMember::pause()
{
    m_currentLap.setLapStart(0);
    m_currentLap.setSector2Begin(0);
    m_currentLap.setSector3Begin(0);
    m_stopped = true;
}

void CRaceMember::resume()
{
    m_stopped = false;
}

void CRaceMember::reset()
{
    m_laps = QVector<CLapTime>(); // not clear(): a list that a copy still shares would be copied first
    m_bestLapIndex = 0;
    m_currentLap.clear();
    m_lastStartSensorTime = 0;
    m_lastEndSensorTime = 0;
    m_totalLapTime = 0;
    m_refuelTimer.stop();
    m_lapCountingBlocked = false;
    m_activePenalty = 0;
    m_lapOpen = false;
    Q_EMIT update(m_trackIndex, 0);
}

const CLapTime& CRaceMember::lastLap() const
{
    static const CLapTime noLap;
    return m_laps.isEmpty() ? noLap : m_laps.constLast();
}

QTime CRaceMember::lastLapTime() const
{
    return toTime(lastLap().lapTime);
}

QTime CRaceMember::bestLapTime() const
{
    return toTime(m_laps.isEmpty() ? 0 : m_laps.at(m_bestLapIndex).lapTime);
}

QTime CRaceMember::averageLapTime() const
{
    return toTime(m_laps.isEmpty() ? 0 : m_totalLapTime / m_laps.size());
}

QTime CRaceMember::sector1Time() const
{
    return toTime(m_currentLap.sector1Time != 0 ? m_currentLap.sector1Time : lastLap().sector1Time);
}

QTime CRaceMember::sector2Time() const
{
    return toTime(m_currentLap.sector2Time != 0 ? m_currentLap.sector2Time : lastLap().sector2Time);
}

QTime CRaceMember::sector3Time() const
{
    return toTime(m_currentLap.sector3Time != 0 ? m_currentLap.sector3Time : lastLap().sector3Time);
}

QTime CRaceMember::split1Time() const
{
    return sector1Time();
}

QTime CRaceMember::split2Time() const
{
    return toTime(split2(m_currentLap.sector2Time != 0 ? m_currentLap : lastLap()));
}

QTime CRaceMember::split3Time() const
{
    return toTime(split3(m_currentLap.sector3Time != 0 ? m_currentLap : lastLap()));
}

double CRaceMember::speed(int unit) const
{
    constexpr double kilometresPerHour = 3.6;
    constexpr double milesPerHour = 2.23693629;
    const int lapTime = lastLap().lapTime;
    if (lapTime == 0) // no lap, or one of no duration
        return 0.0;
    const double metresPerSecond = m_track.length * 10.0 / lapTime;
    switch (unit) {
    case 1:
        return metresPerSecond;
    case 2:
        return metresPerSecond * milesPerHour * m_car.scale();
    default:
        return metresPerSecond * kilometresPerHour * m_car.scale();
    }
}

bool CRaceMember::isTankEmpty() const
{
    return m_car.fuelTank().isEmpty();
}
