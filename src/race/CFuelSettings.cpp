#include "race/CFuelSettings.h"

#include "data/StreamValue.h"

namespace {

constexpr int LastFuelFunction = 2;
constexpr int LastEmptyFuelReaction = 3;

int knownOrZero(int value, int last)
{
    return value >= 0 && value <= last ? value : 0;
}

} // namespace

void CFuelSettings::setFuelFunction(int function)
{
    m_fuelFunction = knownOrZero(function, LastFuelFunction);
}

void CFuelSettings::setEmptyFuelReaction(int reaction)
{
    m_emptyFuelReaction = knownOrZero(reaction, LastEmptyFuelReaction);
}

QDataStream& operator<<(QDataStream& stream, const CFuelSettings& settings)
{
    stream << qint16(settings.fuelFunction()) << settings.refuelInterval() << settings.refuelAmount();
    stream << settings.minFuelUsageAmount() << settings.minFuelUsageTime();
    stream << settings.maxFuelUsageAmount() << settings.maxFuelUsageTime();
    stream << settings.tankSize() << settings.reserveLevel();
    stream << qint16(settings.emptyFuelReaction()) << settings.emptyFuelPenaltyTime();
    return stream << qint32(settings.emptyFuelStutterFrequency());
}

QDataStream& operator>>(QDataStream& stream, CFuelSettings& settings)
{
    settings.setFuelFunction(readValue<qint16>(stream));
    settings.setRefuelInterval(readValue<QTime>(stream));
    settings.setRefuelAmount(readValue<double>(stream));
    settings.setMinFuelUsageAmount(readValue<double>(stream));
    settings.setMinFuelUsageTime(readValue<QTime>(stream));
    settings.setMaxFuelUsageAmount(readValue<double>(stream));
    settings.setMaxFuelUsageTime(readValue<QTime>(stream));
    settings.setTankSize(readValue<double>(stream));
    settings.setReserveLevel(readValue<double>(stream));
    settings.setEmptyFuelReaction(readValue<qint16>(stream));
    settings.setEmptyFuelPenaltyTime(readValue<QTime>(stream));
    settings.setEmptyFuelStutterFrequency(readValue<qint32>(stream));
    return stream;
}
