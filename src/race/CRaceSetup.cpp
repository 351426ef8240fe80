// The part of CRace that builds its members, its interface and its rules, and switches the power on.

#include "io/CRacewayIo.h"
#include "race/CRace.h"

#include <QThread>

namespace {

constexpr unsigned long StopPollPeriod = 1; // milliseconds

int milliseconds(const QTime& duration)
{
    return duration.msecsSinceStartOfDay();
}

} // namespace

void CRace::adaptToRaceway()
{
    m_members.clear();
    buildMembers();
    setUpInterface();
}

void CRace::buildMembers()
{
    const int tracks = m_raceSettings->raceway().tracks.size();
    for (int track = 0; track < tracks; ++track) {
        m_members.push_back(buildMember(track));
        const CRaceMember* racer = m_members.back().get();
        connect(racer, &CRaceMember::update, this, &CRace::vUpdateRaceMember);
        connect(racer, &CRaceMember::refuelEnoughForAtLeastOneLap, this, &CRace::raceMemberRefuelHappened);
    }
}

std::unique_ptr<CRaceMember> CRace::buildMember(int track) const
{
    CCar car = m_raceSettings->car(track);
    prepareCarFuel(car);
    auto racer = std::make_unique<CRaceMember>(m_raceSettings->raceway().tracks.at(track), track);
    racer->setDriver(m_raceSettings->driver(track));
    racer->setCar(car);
    racer->setMinTime(m_raceSettings->raceway().minTime);
    setUpSensors(*racer);
    setUpFuel(*racer);
    return racer;
}

void CRace::setUpSensors(CRaceMember& racer) const
{
    const CRaceway& raceway = m_raceSettings->raceway();
    const int track = racer.trackIndex();
    const int sectors = raceway.numberOfSectors;
    const int lapSensor = PortId::lapSensor(track);
    racer.setStartSensorPin(lapSensor);
    racer.setEndSensorPin(raceway.startAndEndSensorSeparate ? PortId::endSensor(track) : lapSensor);
    racer.setSector2Pin(sectors == 2 || sectors == 3 ? PortId::sector2Sensor(track) : 0);
    racer.setSector3Pin(sectors == 3 ? PortId::sector3Sensor(track) : 0);
}

void CRace::setUpFuel(CRaceMember& racer) const
{
    const CFuelSettings& fuel = m_raceSettings->fuelSettings();
    if (fuel.fuelFunction() == CFuelSettings::NoFuel)
        return;
    const int track = racer.trackIndex();
    const int setup = m_raceSettings->raceway().fuelSensorSetup;
    const bool startsAtFuelSensor = setup == 1 || setup == 3 || setup == 4;
    const bool endsAtZoneEnd = setup == 2 || setup == 4;
    const int endAtLapSensor = setup == 3 ? PortId::lapSensor(track) : 0;
    racer.setFuelEnabled(true);
    racer.setRefuelInterval(milliseconds(fuel.refuelInterval()));
    racer.setRefuelAmount(fuel.refuelAmount());
    racer.setRefuelStartPin(startsAtFuelSensor ? PortId::fuelSensor(track) : PortId::lapSensor(track));
    racer.setRefuelEndPin(endsAtZoneEnd ? PortId::fuelFinishedSensor(track) : endAtLapSensor);
    racer.setEmptyReaction(fuel.emptyFuelReaction());
    racer.setEmptyPenaltyTime(milliseconds(fuel.emptyFuelPenaltyTime()));
}

void CRace::prepareCarFuel(CCar& car) const
{
    const CFuelSettings& fuel = m_raceSettings->fuelSettings();
    CFuelTank tank = car.fuelTank();
    tank.setConsumptionEnabled(fuel.fuelFunction() != CFuelSettings::NoFuel);
    if (fuel.fuelFunction() == CFuelSettings::FuelSameForAll) {
        tank.setTankSizeAndReserveLevel(fuel.tankSize(), fuel.reserveLevel());
        tank.setMaxUsage(fuel.maxFuelUsageAmount(), quint32(milliseconds(fuel.maxFuelUsageTime())));
        tank.setMinUsage(fuel.minFuelUsageAmount(), quint32(milliseconds(fuel.minFuelUsageTime())));
    }
    tank.addFuel(tank.tankSize());
    car.setFuelTank(tank);
}

void CRace::setUpInterface()
{
    const CRaceway& raceway = m_raceSettings->raceway();
    stopInterface();
    if (!keepsInterface(raceway.ioSettings)) {
        m_outputs.setIo(nullptr);
        // One device has one owner: the old interface goes before the new one comes.
        m_io.reset();
        m_io = m_surroundings.createIo(raceway.ioSettings);
    }
    m_io->setReceiver(this);
    m_outputs.setIo(m_io.get());
    m_outputs.setExternalLightsAvailable(raceway.externalLightsAvailable);
    m_outputs.setPwrOffFeatureAvailable(raceway.pwrOffFeatureAvailable);
    m_outputs.setChaosPhaseOutputAvailable(raceway.chaosPhaseOutputAvailable);
    if (m_io->interfaceType() == CRacewayIo::LtAt2560)
        m_io->start();
}

bool CRace::keepsInterface(const QByteArray& ioSettings) const
{
    return m_io && m_io->interfaceType() == CRacewayIo::LtAt2560 && m_io->writeSettings() == ioSettings;
}

void CRace::stopInterface()
{
    if (!m_io)
        return;
    m_io->stop();
    while (m_io->isRunning())
        QThread::msleep(StopPollPeriod);
}

void CRace::setUpPower()
{
    m_powerSwitchable = m_raceSettings->raceway().pwrOffFeatureAvailable;
    m_powerOffOnEmptyTank = false;
    m_stutterOnEmptyTank = false;
    m_stutterTimer.stop();
    if (!m_powerSwitchable)
        return;
    const int reaction = m_raceSettings->fuelSettings().emptyFuelReaction();
    m_powerOffOnEmptyTank = reaction == CRaceMember::PowerOff;
    if (reaction == CRaceMember::Stutter) {
        m_stutterOnEmptyTank = true;
        m_stutterPowerState = true;
    }
    allTracksPower(true);
}

void CRace::makeEndCondition()
{
    m_endCondition = createEndCondition(*m_raceSettings, &m_members);
    connect(m_endCondition.get(), &CEndCondition::endConditionReached, this, &CRace::endConditionIsMet);
}

void CRace::makeRaceStart()
{
    m_raceStart = createRaceStart(*m_raceSettings);
    connect(m_raceStart.get(), &CRaceStart::go, this, &CRace::vHandleRaceStartTrigger);
    connect(m_raceStart.get(), &CRaceStart::UpdateLights, this, &CRace::vStartLightsUpdate);
}

void CRace::makeWinningCondition()
{
    m_winningCondition = createWinningCondition(*m_raceSettings, &m_members);
}
