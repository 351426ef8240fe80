#include "race/CRaceSettings.h"

#include "race/RaceSettingsForms.h"

#include <QDataStream>
#include <QSettings>
#include <QTextStream>

using namespace RaceSettingsForms;

namespace {

QString storeName()
{
    return QStringLiteral("Tornik");
}

bool isSlot(int index)
{
    return index >= 0 && index < CRaceSettings::Slots;
}

/** Ids of the database rows, one key a track: "Driver1ID", "Driver2ID", ... */
template <typename Record, std::size_t Count>
void readIds(QSettings& store, const QString& key, std::array<Record, Count>& records)
{
    StoreReader read(store);
    int number = 0;
    for (Record& record : records) {
        int id = -1;
        read(key.arg(++number).toLatin1().constData(), id, -1);
        record.setId(id);
    }
}

template <typename Record, std::size_t Count>
void writeIds(QSettings& store, const QString& key, const std::array<Record, Count>& records)
{
    int number = 0;
    for (const Record& record : records)
        store.setValue(key.arg(++number), record.id());
}

} // namespace

template <typename Settings, typename Visitor>
void CRaceSettings::visitRules(Settings& settings, Visitor& visit)
{
    visit("startType", settings.m_startType, 0);
    visit("startDelay", settings.m_startDelay, QTime(0, 0, 5));
    visit("startLightsMinDelay", settings.m_startLightsMinDelay, 500U);
    visit("startLightsMaxDelay", settings.m_startLightsMaxDelay, 2500U);
    visit("endType", settings.m_endType, 0);
    visit("endTime", settings.m_endTime, QTime(0, 5));
    // Required: a fresh store gives 10 laps, a new record 25.
    visit("numberOfLaps", settings.m_numberOfLaps, 10);
    visit("allMaxRounds", settings.m_allMaxRounds, false);
    visit("maxRoundsStopCounting", settings.m_maxRoundsStopCounting, false);
    visit("lapsCountDown", settings.m_lapsCountDown, false);
    visit("winningCondition", settings.m_winningCondition, 0);
    visit("winningTargetTime", settings.m_winningTargetTime, QTime(0, 0, 10));
    visit("numOfWorstLapsToIgnore", settings.m_numOfWorstLapsToIgnore, 0);
    visit("useTargetTime", settings.m_useTargetTime, false);
}

template <typename Settings, typename Visitor>
void CRaceSettings::visitDataStorage(Settings& settings, Visitor& visit)
{
    visit("monitorDistanceDriven", settings.m_monitorDistanceDriven, false);
    visit("monitorFastestLap", settings.m_monitorFastestLap, false);
}

template <typename Settings, typename Visitor>
void CRaceSettings::visitRaceStopped(Settings& settings, Visitor& visit)
{
    visit("redLightsOnRaceStopped", settings.m_redLightsOnRaceStopped, false);
    visit("leavePowerOnWhenRaceStopped", settings.m_leavePowerOnWhenRaceStopped, false);
}

void CRaceSettings::readDefaults()
{
    QSettings store(storeName(), storeName());
    readFrom(store);
}

void CRaceSettings::writeDefaults() const
{
    QSettings store(storeName(), storeName());
    writeTo(store);
}

void CRaceSettings::readFromFile(const QString& fileName)
{
    QSettings store(fileName, QSettings::IniFormat);
    readFrom(store);
}

void CRaceSettings::writeToFile(const QString& fileName) const
{
    QSettings store(fileName, QSettings::IniFormat);
    writeTo(store);
}

void CRaceSettings::readFrom(QSettings& store)
{
    StoreReader read(store);
    store.beginGroup(QStringLiteral("DefaultRaceSettings"));
    visitRules(*this, read);
    visitRaceStopped(*this, read);
    store.beginGroup(QStringLiteral("DefaultDriverList"));
    readIds(store, QStringLiteral("Driver%1ID"), m_drivers);
    store.endGroup();
    store.beginGroup(QStringLiteral("DefaultCarList"));
    readIds(store, QStringLiteral("Car%1ID"), m_cars);
    store.endGroup();
    store.beginGroup(QStringLiteral("DefaultFuelSettings"));
    m_fuelSettings.readFrom(read);
    store.endGroup();
    store.beginGroup(QStringLiteral("DefaultDataStorage"));
    visitDataStorage(*this, read);
    store.endGroup();
    store.endGroup();
}

void CRaceSettings::writeTo(QSettings& store) const
{
    StoreWriter write(store);
    store.beginGroup(QStringLiteral("DefaultRaceSettings"));
    visitRules(*this, write);
    visitRaceStopped(*this, write);
    store.beginGroup(QStringLiteral("DefaultDriverList"));
    writeIds(store, QStringLiteral("Driver%1ID"), m_drivers);
    store.endGroup();
    store.beginGroup(QStringLiteral("DefaultCarList"));
    writeIds(store, QStringLiteral("Car%1ID"), m_cars);
    store.endGroup();
    store.beginGroup(QStringLiteral("DefaultFuelSettings"));
    m_fuelSettings.writeTo(write);
    store.endGroup();
    store.beginGroup(QStringLiteral("DefaultDataStorage"));
    visitDataStorage(*this, write);
    store.endGroup();
    store.endGroup();
}

QString CRaceSettings::toText() const
{
    QString text;
    QTextStream stream(&text);
    TextWriter write(stream);
    visitRules(*this, write);
    m_fuelSettings.writeTo(write);
    visitDataStorage(*this, write);
    visitRaceStopped(*this, write);
    stream.flush();
    return text;
}

void CRaceSettings::fromText(const QString& text)
{
    QString words = text;
    QTextStream stream(&words, QIODevice::ReadOnly);
    TextReader read(stream);
    visitRules(*this, read);
    m_fuelSettings.readFrom(read);
    visitDataStorage(*this, read);
    visitRaceStopped(*this, read);
}

CDriver CRaceSettings::driver(int index) const
{
    return isSlot(index) ? m_drivers[std::size_t(index)] : CDriver();
}

void CRaceSettings::setDriver(int index, const CDriver& driver)
{
    if (isSlot(index))
        m_drivers[std::size_t(index)] = driver;
}

CCar CRaceSettings::car(int index) const
{
    return isSlot(index) ? m_cars[std::size_t(index)] : CCar();
}

void CRaceSettings::setCar(int index, const CCar& car)
{
    if (isSlot(index))
        m_cars[std::size_t(index)] = car;
}

QDataStream& operator<<(QDataStream& stream, const CRaceSettings& settings)
{
    stream << settings.m_startType << settings.m_startDelay;
    stream << settings.m_startLightsMinDelay << settings.m_startLightsMaxDelay;
    stream << settings.m_endType << settings.m_endTime << settings.m_numberOfLaps;
    stream << settings.m_allMaxRounds << settings.m_maxRoundsStopCounting << settings.m_lapsCountDown;
    // The last two stand the other way round in the text.
    stream << settings.m_winningCondition << settings.m_winningTargetTime;
    stream << settings.m_useTargetTime << settings.m_numOfWorstLapsToIgnore;
    for (const CDriver& driver : settings.m_drivers)
        stream << driver;
    for (const CCar& car : settings.m_cars)
        stream << car;
    stream << settings.m_raceway << settings.m_fuelSettings;
    stream << settings.m_monitorDistanceDriven << settings.m_monitorFastestLap;
    return stream << settings.m_redLightsOnRaceStopped << settings.m_leavePowerOnWhenRaceStopped;
}

QDataStream& operator>>(QDataStream& stream, CRaceSettings& settings)
{
    stream >> settings.m_startType >> settings.m_startDelay;
    stream >> settings.m_startLightsMinDelay >> settings.m_startLightsMaxDelay;
    stream >> settings.m_endType >> settings.m_endTime >> settings.m_numberOfLaps;
    stream >> settings.m_allMaxRounds >> settings.m_maxRoundsStopCounting >> settings.m_lapsCountDown;
    stream >> settings.m_winningCondition >> settings.m_winningTargetTime;
    stream >> settings.m_useTargetTime >> settings.m_numOfWorstLapsToIgnore;
    for (CDriver& driver : settings.m_drivers)
        stream >> driver;
    for (CCar& car : settings.m_cars)
        stream >> car;
    stream >> settings.m_raceway >> settings.m_fuelSettings;
    stream >> settings.m_monitorDistanceDriven >> settings.m_monitorFastestLap;
    return stream >> settings.m_redLightsOnRaceStopped >> settings.m_leavePowerOnWhenRaceStopped;
}
