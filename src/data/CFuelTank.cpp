#include "data/CFuelTank.h"

#include "data/StreamValue.h"

#include <cmath>
#include <limits>

void CFuelTank::setTankSizeAndReserveLevel(double tankSize, double reserveLevel)
{
    m_tankSize = tankSize;
    m_reserveLevel = qMin(reserveLevel, tankSize);
}

void CFuelTank::setMaxUsage(double amount, quint32 time)
{
    m_maxUsageAmount = amount;
    m_maxUsageTime = time;
}

void CFuelTank::setMinUsage(double amount, quint32 time)
{
    m_minUsageAmount = amount;
    m_minUsageTime = time;
}

double CFuelTank::usageOfLap(quint32 lapTime) const
{
    if (lapTime <= m_maxUsageTime)
        return m_maxUsageAmount;
    if (lapTime >= m_minUsageTime)
        return m_minUsageAmount;
    if (m_maxUsageAmount < m_minUsageAmount)
        return m_maxUsageAmount;
    // Here the two lap times are in order: a lap lies strictly between them.
    const double slope = (m_maxUsageAmount - m_minUsageAmount) / (m_minUsageTime - m_maxUsageTime);
    return m_maxUsageAmount - slope * (lapTime - m_maxUsageTime);
}

CFuelTank::LapResult CFuelTank::consumeLap(quint32 lapTime)
{
    if (m_consumptionEnabled) {
        const double usage = usageOfLap(lapTime);
        m_level = m_level >= usage ? m_level - usage : 0.0;
    }
    if (m_level >= m_reserveLevel)
        return Enough;
    return isEmpty() ? Empty : OnReserve;
}

void CFuelTank::addFuel(double amount)
{
    m_level = qMin(m_level + amount, m_tankSize);
}

int CFuelTank::percent() const
{
    const double percent = m_level * 100.0 / m_tankSize;
    if (!std::isfinite(percent)) // a tank of size 0
        return 0;
    constexpr double limit = std::numeric_limits<int>::max();
    return int(qBound(-limit, percent, limit));
}

void CFuelTank::setPercent(int percent)
{
    if (percent <= 100)
        m_level = percent * m_tankSize / 100.0;
}

bool CFuelTank::isEmpty() const
{
    return m_level == 0.0;
}

QDataStream& operator<<(QDataStream& stream, const CFuelTank& tank)
{
    stream << tank.tankSize() << tank.reserveLevel() << tank.level();
    stream << tank.maxUsageAmount() << tank.minUsageAmount();
    stream << tank.maxUsageTime() << tank.minUsageTime();
    return stream << tank.consumptionEnabled();
}

QDataStream& operator>>(QDataStream& stream, CFuelTank& tank)
{
    const auto size = readValue<double>(stream);
    tank.setTankSizeAndReserveLevel(size, readValue<double>(stream));
    tank.setLevel(readValue<double>(stream));
    const auto maxAmount = readValue<double>(stream);
    const auto minAmount = readValue<double>(stream);
    tank.setMaxUsage(maxAmount, readValue<quint32>(stream));
    tank.setMinUsage(minAmount, readValue<quint32>(stream));
    tank.setConsumptionEnabled(readValue<bool>(stream));
    return stream;
}
