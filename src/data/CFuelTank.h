#ifndef TORNIK_DATA_CFUELTANK_H
#define TORNIK_DATA_CFUELTANK_H

#include <QtGlobal>

class QDataStream;

/**
 * The tank of a car: its size, its present content and what a lap takes out of it.
 *
 * Amounts have no unit of their own; only their ratio to the tank size matters. Lap times are
 * milliseconds. A value, copied freely.
 */
class CFuelTank
{
public:
    /** What consumeLap() says of the tank after the lap. */
    enum LapResult
    {
        Enough = 1,
        OnReserve = 2,
        Empty = 3
    };

    double tankSize() const { return m_tankSize; }
    double reserveLevel() const { return m_reserveLevel; }
    /** Sets both; the reserve is capped to the size. */
    void setTankSizeAndReserveLevel(double tankSize, double reserveLevel);

    double level() const { return m_level; }
    void setLevel(double level) { m_level = level; }

    double maxUsageAmount() const { return m_maxUsageAmount; }
    quint32 maxUsageTime() const { return m_maxUsageTime; }
    /** Consumption of a lap of @p time milliseconds or less. */
    void setMaxUsage(double amount, quint32 time);

    double minUsageAmount() const { return m_minUsageAmount; }
    quint32 minUsageTime() const { return m_minUsageTime; }
    /** Consumption of a lap of @p time milliseconds or more. */
    void setMinUsage(double amount, quint32 time);

    /** False: a lap is classified but takes nothing out of the tank. */
    bool consumptionEnabled() const { return m_consumptionEnabled; }
    void setConsumptionEnabled(bool enabled) { m_consumptionEnabled = enabled; }

    /**
     * Takes the consumption of one lap out of the tank.
     * @param lapTime milliseconds
     */
    LapResult consumeLap(quint32 lapTime);

    /** Adds to the level, up to the tank size. */
    void addFuel(double amount);

    /** @return the level in percent of the tank size, cut to a whole number. */
    int percent() const;

    /** Sets the level in percent of the tank size; a value above 100 is ignored. */
    void setPercent(int percent);

    bool isEmpty() const;

private:
    double usageOfLap(quint32 lapTime) const;

    double m_tankSize = 100.0;
    double m_reserveLevel = 15.0;
    double m_level = 100.0;
    double m_maxUsageAmount = 5.0;
    double m_minUsageAmount = 1.0;
    quint32 m_maxUsageTime = 1000;
    quint32 m_minUsageTime = 5000;
    bool m_consumptionEnabled = true;
};

/**
 * Stream form: size, reserve, level, maximum and minimum amount as doubles, maximum and minimum
 * time as 32-bit integers, the consumption flag as a bool.
 */
QDataStream& operator<<(QDataStream& stream, const CFuelTank& tank);
QDataStream& operator>>(QDataStream& stream, CFuelTank& tank);

#endif
