#include "race/CRace.h"

#include "io/CCarreraCuEvents.h"
#include "io/CDriveThroughEvent.h"
#include "io/CRacewayIo.h"
#include "io/CRacewayIoEvent.h"
#include "io/CRacewayIoFactory.h"
#include "race/CLightAction.h"
#include "race/CRaceList.h"
#include "shell/CSettings.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <chrono>

namespace {

/** The words of the info line; off unless a filter rule asks for them. */
Q_LOGGING_CATEGORY(raceLog, "tornik.race", QtInfoMsg)

constexpr auto RaceTimePeriod = std::chrono::milliseconds(1000);
constexpr int MillisecondsPerSecond = 1000;
constexpr int MillisecondsPerDay = 24 * 60 * 60 * 1000;
constexpr quint32 ChaosButtonDeadTime = 199; // milliseconds of the sensor clock
constexpr int TankOnReserveSubType = 3;
constexpr int HighestLapKind = 3;
constexpr int FirstStartLight = 2;
constexpr int LastStartLight = 6;
constexpr int StartLightsOff = 7;

} // namespace

CRace::CRace(CSettings* settings, CRaceSettings* raceSettings, QObject* parent)
    : CRace(settings, raceSettings, {&CRacewayIoFactory::createFromSettings, {}}, parent)
{
}

CRace::CRace(CSettings* settings, CRaceSettings* raceSettings, Surroundings surroundings, QObject* parent)
    : QObject(parent),
      m_surroundings(std::move(surroundings)),
      m_settings(settings),
      m_raceSettings(raceSettings),
      m_raceClock(m_surroundings.clock)
{
    qRegisterMetaType<CRaceEvent>();
    m_oneSecondTimer.setObjectName(QStringLiteral("oneSecondTimer"));
    m_oneSecondTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_oneSecondTimer, &QTimer::timeout, this, &CRace::vOneSecondEvent);
    m_stutterTimer.setObjectName(QStringLiteral("stutterTimer"));
    m_stutterTimer.setTimerType(Qt::CoarseTimer);
    connect(&m_stutterTimer, &QTimer::timeout, this, &CRace::stutterFrequencyTimerTimeout);
    makeRaceStart();
    makeEndCondition();
    makeWinningCondition();
    makeStores();
    adaptToRaceway();
}

CRace::~CRace()
{
    stopInterface();
}

CRaceMember CRace::raceMember(int index) const
{
    return hasMember(index) ? member(index) : CRaceMember();
}

void CRace::setRaceSettings(const CRaceSettings& settings)
{
    if (!m_raceActive)
        *m_raceSettings = settings;
}

// --- The course of a race -------------------------------------------------------------------

void CRace::vStartRecordedRace(const QString& raceName)
{
    m_recordedRace = true;
    m_raceName = raceName;
    vStart();
    Q_EMIT RecordedRaceStarted();
}

void CRace::vStartQuickRace()
{
    m_recordedRace = false;
    vStart();
    Q_EMIT RaceStarted();
}

void CRace::vStart()
{
    vReset();
    adaptToRaceway();
    // What a sensor posted before this moment belongs to no race.
    QCoreApplication::removePostedEvents(this, CDriveThroughEvent::EventType);
    QCoreApplication::removePostedEvents(m_io.get(), CRacewayIoEvent::EventType);
    setUpPower();
    m_chaosButtonEnabled = m_raceSettings->raceway().chaosButtonAvailable;
    m_raceActive = true;
    m_paused = false;
    m_raceClock.clear();
    m_pausedTime = 0;
    m_outputs.setChaosSignal(false);
    setAllStatus(CRaceMemberStatus::Waiting);
    makeEndCondition();
    makeRaceStart();
    m_raceStart->start();
    makeWinningCondition();
    m_raceDateTime = QDateTime::currentDateTime();
    m_io->start();
}

void CRace::vReset()
{
    for (const auto& racer : m_members)
        racer->reset();
    m_raceTime = QTime(0, 0);
    m_lastChaosTime = 0;
    Q_EMIT UpdateRaceTime(m_raceTime);
    showInfo(QString());
}

void CRace::vHandleRaceStartTrigger()
{
    setAllStatus(CRaceMemberStatus::Starting);
    startRaceClock();
    m_pausedTime = 0;
    m_endCondition->start();
}

void CRace::startRaceClock()
{
    m_raceClock.start();
    m_oneSecondTimer.start(RaceTimePeriod);
}

void CRace::vPause()
{
    for (const auto& racer : m_members)
        racer->pause();
    // Required: only whole seconds count, so that up to 999 ms are lost with every pause.
    m_pausedTime += int(m_raceClock.elapsed() / MillisecondsPerSecond) * MillisecondsPerSecond;
    m_oneSecondTimer.stop();
    m_endCondition->pause();
    m_paused = true;
    m_outputs.setChaosSignal(true);
    setAllStatus(CRaceMemberStatus::Paused);
    Q_EMIT RacePaused();
}

void CRace::vResume()
{
    m_endCondition->resume();
    startRaceClock();
    for (const auto& racer : m_members)
        racer->resume();
    setAllStatus(CRaceMemberStatus::Waiting);
    m_paused = false;
    m_outputs.setChaosSignal(false);
    Q_EMIT RaceResumed();
}

void CRace::vStop()
{
    stopInterface();
    m_paused = false;
    m_outputs.setChaosSignal(false);
    m_raceStart->stop();
    m_endCondition->stop();
    m_oneSecondTimer.stop();
    m_stutterTimer.stop();
    allTracksPower(m_raceSettings->leavePowerOnWhenRaceStopped());
    vStartLightsUpdate(m_raceSettings->redLightsOnRaceStopped() ? CLightAction::AllRed
                                                                : CLightAction::AllOff);
    if (m_raceActive) {
        m_raceActive = false;
        setAllStatus(CRaceMemberStatus::Finished);
        storeFinishedRace();
        m_recordedRace = false;
        showInfo(tr("Rennen wurde beendet"));
    }
    Q_EMIT RaceStopped();
}

void CRace::endConditionIsMet()
{
    // Required: runs for each member that is at the limit in one event, after the stop too.
    vStop();
    m_winningCondition->determineWinner();
    showInfo(m_winningCondition->resultText());
}

void CRace::showInfo(const QString& text)
{
    if (!text.isEmpty())
        qCDebug(raceLog).noquote() << text;
    Q_EMIT raceInfoText(text);
}

void CRace::vOneSecondEvent()
{
    const qint64 elapsed = m_raceClock.elapsed() + m_pausedTime;
    m_raceTime = QTime::fromMSecsSinceStartOfDay(int(elapsed % MillisecondsPerDay));
    Q_EMIT UpdateRaceTime(m_raceTime);
}

void CRace::vStartLightsUpdate(int iAction)
{
    m_outputs.updateLights(iAction);
    Q_EMIT UpdateLights(iAction);
}

void CRace::setAllStatus(CRaceMemberStatus status)
{
    for (const auto& racer : m_members)
        racer->setStatus(status);
}

// --- Sensor events --------------------------------------------------------------------------

void CRace::customEvent(QEvent* event)
{
    switch (int(event->type())) {
    case CDriveThroughEvent::EventType:
        processDriveThrough(*static_cast<CDriveThroughEvent*>(event));
        break;
    case CCarreraCuStatusEvent::EventType:
        processControlUnitStatus(*static_cast<CCarreraCuStatusEvent*>(event));
        break;
    default:
        QObject::customEvent(event);
        break;
    }
}

void CRace::processDriveThrough(const CDriveThroughEvent& event)
{
    const QBitArray& sensors = event.sensors();
    if (!m_raceActive || sensors.size() < PortId::Count)
        return;
    const auto time = quint32(event.time());
    processChaosButton(sensors, time);
    for (int track = 0; track < numberOfMembers(); ++track)
        processMember(track, sensors, time);
    m_winningCondition->update();
    // A false start in this event has ended the race; it names no winner.
    if (m_raceActive)
        m_endCondition->check();
}

void CRace::processChaosButton(const QBitArray& sensors, quint32 time)
{
    if (!m_chaosButtonEnabled || !sensors.testBit(PortId::ChaosButton) ||
        time - m_lastChaosTime <= ChaosButtonDeadTime) {
        return;
    }
    if (m_paused)
        vResume();
    else
        vPause();
    m_lastChaosTime = time;
}

void CRace::processMember(int track, const QBitArray& sensors, quint32 time)
{
    CRaceMember& racer = member(track);
    if (stopsCountingAtLimit() && racer.numberOfLaps() >= m_raceSettings->numberOfLaps()) {
        racer.setStatus(CRaceMemberStatus::Finished);
        racer.stopRefuelling(); // the crossing that reached the limit may have begun it
        return;
    }
    const CLapSensorFlags flags = racer.processSensors(sensors, time);
    int lapKind = CRaceEvent::NoLapEnded;
    if (flags & CRaceMember::LapBegan)
        processLapBegin(racer);
    if (flags & CRaceMember::LapEnded)
        lapKind = processLapEnd(racer, flags);
    if (flags & CRaceMember::TankEmpty)
        vFuelTankEmpty();
    if (flags & CRaceMember::TankOnReserve)
        vFuelTankOnReserve();
    if (flags != 0)
        vUpdateRaceMember(track, lapKind);
    racer.processRefuelSensors(sensors, time);
}

void CRace::processLapBegin(CRaceMember& racer)
{
    if (m_raceStart->isGoGiven()) {
        racer.setStatus(CRaceMemberStatus::Running);
        return;
    }
    // A false start. Required: each car of one event stops the race.
    vStop();
    racer.setStatus(CRaceMemberStatus::FalseStart);
}

int CRace::processLapEnd(CRaceMember& racer, CLapSensorFlags flags)
{
    if (stopsCountingAtLimit() && racer.numberOfLaps() == m_raceSettings->numberOfLaps())
        racer.setStatus(CRaceMemberStatus::Finished);
    else
        checkEmptyTank(racer.trackIndex());
    if (flags & CRaceMember::NewBestLap) {
        vNewBestLapHappened();
        return CRaceEvent::BestLap;
    }
    vDriveThroughHappened();
    return CRaceEvent::NormalLap;
}

bool CRace::stopsCountingAtLimit() const
{
    return m_raceSettings->maxRoundsStopCounting() && m_raceSettings->endType() == CRaceSettings::LapLimit;
}

void CRace::processControlUnitStatus(const CCarreraCuStatusEvent& event)
{
    if (m_raceActive) {
        for (int car = 0; car < qMin(numberOfMembers(), CCarreraCuStatusEvent::Cars); ++car) {
            const int fuel = event.fuel()[std::size_t(car)];
            member(car).setFuelPercent(fuel * 100 / CCarreraCuStatusEvent::FullTank);
        }
    }
    const int light = event.startLight();
    if (light >= FirstStartLight && light <= LastStartLight)
        vStartLightsUpdate(CLightAction::NextRed);
    else if (light == StartLightsOff)
        vStartLightsUpdate(CLightAction::AllOff);
}

// --- Race events ----------------------------------------------------------------------------

void CRace::vNewBestLapHappened()
{
    Q_EMIT RaceEventHappened(CRaceEvent(CRaceEvent::NewBestLap));
}

void CRace::vDriveThroughHappened()
{
    Q_EMIT RaceEventHappened(CRaceEvent(CRaceEvent::LapEnded));
}

void CRace::vFuelTankEmpty()
{
    Q_EMIT RaceEventHappened(CRaceEvent(CRaceEvent::TankEmpty));
}

void CRace::vFuelTankOnReserve()
{
    CRaceEvent event(CRaceEvent::TankOnReserve);
    event.subType = TankOnReserveSubType;
    Q_EMIT RaceEventHappened(event);
}

void CRace::vUpdateRaceMember(int track, int lapKind)
{
    if (!hasMember(track))
        return;
    const CRaceMember& racer = member(track);
    CRaceEvent event(CRaceEvent::MemberChanged);
    event.subType = lapKind >= 0 && lapKind <= HighestLapKind ? lapKind : CRaceEvent::NoLapEnded;
    event.track = track;
    event.laps = lapsToShow(racer);
    event.lastLapTime = racer.lastLapTime();
    event.sector1Time = racer.sector1Time();
    event.sector2Time = racer.sector2Time();
    event.sector3Time = racer.sector3Time();
    event.split1Time = racer.split1Time();
    event.split2Time = racer.split2Time();
    event.split3Time = racer.split3Time();
    event.bestLapTime = racer.bestLapTime();
    event.status = qint32(racer.status());
    event.averageLapTime = racer.averageLapTime();
    event.speed = racer.speed(speedUnit());
    event.fuelPercent = racer.fuelPercent();
    event.raceRunning = m_raceActive;
    Q_EMIT RaceEventHappened(event);
}

int CRace::lapsToShow(const CRaceMember& racer) const
{
    const bool countsDown =
        m_raceSettings->lapsCountDown() && m_raceSettings->endType() == CRaceSettings::LapLimit;
    return countsDown ? m_raceSettings->numberOfLaps() - racer.numberOfLaps() : racer.numberOfLaps();
}

int CRace::speedUnit() const
{
    const int unit = m_settings->speedDisplayType();
    const bool isKnown = unit == CSettings::MetresPerSecond || unit == CSettings::MilesPerHour;
    return isKnown ? unit : CSettings::KilometresPerHour;
}

// --- Track power and fuel -------------------------------------------------------------------

void CRace::allTracksPower(bool powerOn)
{
    for (int track = 0; track < numberOfMembers(); ++track)
        trackPower(track, powerOn);
}

void CRace::trackPower(int trackNum, bool powerOn)
{
    if (!m_raceSettings->raceway().pwrOffFeatureAvailable || !hasMember(trackNum))
        return;
    m_outputs.setTrackPower(trackNum, powerOn);
    member(trackNum).setPowerOn(powerOn);
    Q_EMIT trackPowerStateChanged(trackNum, powerOn);
}

void CRace::trackPowerToggle(int trackNum)
{
    if (hasMember(trackNum))
        trackPower(trackNum, !member(trackNum).powerOn());
}

void CRace::checkEmptyTank(int track)
{
    const CRaceMember& racer = member(track);
    // A control unit can empty a tank where the race simulates no fuel; no reaction follows then.
    if (!racer.fuelEnabled() || !racer.isTankEmpty())
        return;
    if (m_powerOffOnEmptyTank) {
        trackPower(track, false);
    } else if (m_stutterOnEmptyTank && !m_stutterTimer.isActive()) {
        m_stutterPowerState = false;
        // The dialog keeps the frequency above 0, a file may not.
        const int frequency = qMax(1, m_raceSettings->fuelSettings().emptyFuelStutterFrequency());
        m_stutterTimer.start(MillisecondsPerSecond / frequency);
    }
}

void CRace::stutterFrequencyTimerTimeout()
{
    m_stutterPowerState = !m_stutterPowerState;
    int emptyTanks = 0;
    for (int track = 0; track < numberOfMembers(); ++track) {
        if (member(track).isTankEmpty()) {
            trackPower(track, m_stutterPowerState);
            ++emptyTanks;
        }
    }
    if (emptyTanks == 0) {
        m_stutterTimer.stop();
        m_stutterPowerState = true;
    }
}

void CRace::raceMemberRefuelHappened(int track)
{
    // A tank may go on filling after the race; the power is then what the settings want.
    if (m_raceActive)
        trackPower(track, true);
}
