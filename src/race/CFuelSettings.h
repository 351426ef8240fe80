#ifndef TORNIK_RACE_CFUELSETTINGS_H
#define TORNIK_RACE_CFUELSETTINGS_H

#include <QTime>

class QDataStream;

/** The fuel rules of a race. A value; part of CRaceSettings. */
class CFuelSettings
{
public:
    enum FuelFunction
    {
        NoFuel = 0,
        FuelOfEachCar = 1,
        FuelSameForAll = 2
    };

    /** @return 0 none or driven by a control unit, 1 each car's own tank, 2 one tank for all. */
    int fuelFunction() const { return m_fuelFunction; }
    /** A value outside 0 to 2 becomes 0. */
    void setFuelFunction(int function);

    QTime refuelInterval() const { return m_refuelInterval; }
    void setRefuelInterval(const QTime& interval) { m_refuelInterval = interval; }
    double refuelAmount() const { return m_refuelAmount; }
    void setRefuelAmount(double amount) { m_refuelAmount = amount; }
    double minFuelUsageAmount() const { return m_minFuelUsageAmount; }
    void setMinFuelUsageAmount(double amount) { m_minFuelUsageAmount = amount; }
    QTime minFuelUsageTime() const { return m_minFuelUsageTime; }
    void setMinFuelUsageTime(const QTime& time) { m_minFuelUsageTime = time; }
    double maxFuelUsageAmount() const { return m_maxFuelUsageAmount; }
    void setMaxFuelUsageAmount(double amount) { m_maxFuelUsageAmount = amount; }
    QTime maxFuelUsageTime() const { return m_maxFuelUsageTime; }
    void setMaxFuelUsageTime(const QTime& time) { m_maxFuelUsageTime = time; }
    double tankSize() const { return m_tankSize; }
    void setTankSize(double size) { m_tankSize = size; }
    double reserveLevel() const { return m_reserveLevel; }
    void setReserveLevel(double level) { m_reserveLevel = level; }

    /** @return 0 laps don't count, 1 power off, 2 time penalty per lap, 3 stutter. */
    int emptyFuelReaction() const { return m_emptyFuelReaction; }
    /** A value outside 0 to 3 becomes 0. */
    void setEmptyFuelReaction(int reaction);
    QTime emptyFuelPenaltyTime() const { return m_emptyFuelPenaltyTime; }
    void setEmptyFuelPenaltyTime(const QTime& time) { m_emptyFuelPenaltyTime = time; }
    /** @return changes of the stutter per second; never 0 from the dialog. */
    int emptyFuelStutterFrequency() const { return m_emptyFuelStutterFrequency; }
    void setEmptyFuelStutterFrequency(int frequency) { m_emptyFuelStutterFrequency = frequency; }

    /** Fills all values through a visitor of RaceSettingsForms.h. */
    template <typename Visitor>
    void readFrom(Visitor& visit)
    {
        visitAll(*this, visit);
        setFuelFunction(m_fuelFunction);
        setEmptyFuelReaction(m_emptyFuelReaction);
    }
    /** Hands all values to a visitor of RaceSettingsForms.h. */
    template <typename Visitor>
    void writeTo(Visitor& visit) const
    {
        visitAll(*this, visit);
    }

private:
    /** The values in the order of the store and the text, which isn't that of the fields. */
    template <typename Settings, typename Visitor>
    static void visitAll(Settings& settings, Visitor& visit)
    {
        visit("fuelFunction", settings.m_fuelFunction, 0);
        visit("maxFuelUsageAmount", settings.m_maxFuelUsageAmount, 5.0);
        visit("maxFuelUsageTime", settings.m_maxFuelUsageTime, QTime(0, 0, 4, 500));
        visit("minFuelUsageAmount", settings.m_minFuelUsageAmount, 1.0);
        visit("minFuelUsageTime", settings.m_minFuelUsageTime, QTime(0, 0, 7, 500));
        visit("refuelAmount", settings.m_refuelAmount, 20.0);
        visit("refuelInterval", settings.m_refuelInterval, QTime(0, 0, 0, 500));
        // Required: a fresh store gives 20, a new record 100.
        visit("tankSize", settings.m_tankSize, 20.0);
        visit("reserveLevel", settings.m_reserveLevel, 20.0);
        visit("emptyFuelReaction", settings.m_emptyFuelReaction, 0);
        visit("emptyFuelPenaltyTime", settings.m_emptyFuelPenaltyTime, QTime(0, 0, 5));
        visit("emptyFuelStutterFrequency", settings.m_emptyFuelStutterFrequency, 5);
    }

    int m_fuelFunction = NoFuel;
    QTime m_refuelInterval{0, 0, 0, 500};
    double m_refuelAmount = 20.0;
    double m_minFuelUsageAmount = 1.0;
    QTime m_minFuelUsageTime{0, 0, 7, 500};
    double m_maxFuelUsageAmount = 5.0;
    QTime m_maxFuelUsageTime{0, 0, 4, 500};
    double m_tankSize = 100.0;
    double m_reserveLevel = 20.0;
    int m_emptyFuelReaction = 0;
    QTime m_emptyFuelPenaltyTime{0, 0, 5};
    int m_emptyFuelStutterFrequency = 5;
};

/** Stream form: the fields in their order; function and reaction as 16-bit integers. */
QDataStream& operator<<(QDataStream& stream, const CFuelSettings& settings);
QDataStream& operator>>(QDataStream& stream, CFuelSettings& settings);

#endif
