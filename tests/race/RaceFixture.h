#ifndef TORNIK_TESTS_RACE_RACEFIXTURE_H
#define TORNIK_TESTS_RACE_RACEFIXTURE_H

#include "io/CCarreraCuEvents.h"
#include "io/CDriveThroughEvent.h"
#include "race/CLightAction.h"
#include "race/CRace.h"
#include "shell/CSettings.h"
#include "support/FakeRacewayIo.h"
#include "support/RaceMembers.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <array>
#include <vector>

/**
 * A race on a raceway without hardware, with a clock that the test moves. Everything that the race
 * emits and everything that it asks of its interface is written down in one list, in order.
 */
class RaceFixture
{
public:
    explicit RaceFixture(int tracks = 2)
    {
        CRaceway raceway(tracks);
        raceway.ioSettings = QByteArray("blob");
        raceSettings.setRaceway(raceway);
        for (int i = 0; i < CRaceSettings::Slots; ++i) {
            CDriver driver;
            driver.setName(QStringLiteral("Driver %1").arg(i + 1));
            raceSettings.setDriver(i, driver);
        }
    }

    /** Makes the race from the settings as they are now. */
    CRace& make()
    {
        m_race = std::make_unique<CRace>(&settings, &raceSettings, surroundings());
        record();
        return *m_race;
    }
    /** Makes the race and starts it as a quick race; the list begins behind it. */
    CRace& start()
    {
        make().vStartQuickRace();
        log.clear();
        return *m_race;
    }

    CRace& race() { return *m_race; }
    void destroyRace() { m_race.reset(); }

    template <typename Change>
    void changeRaceway(Change change)
    {
        CRaceway raceway = raceSettings.raceway();
        change(raceway);
        raceSettings.setRaceway(raceway);
    }
    template <typename Change>
    void changeFuel(Change change)
    {
        CFuelSettings fuel = raceSettings.fuelSettings();
        change(fuel);
        raceSettings.setFuelSettings(fuel);
    }
    void useLapLimit(int laps)
    {
        raceSettings.setEndType(CRaceSettings::LapLimit);
        raceSettings.setNumberOfLaps(laps);
    }
    void useTimedStart() { raceSettings.setStartType(CRaceSettings::TimedStart); }
    void useChaosButton()
    {
        changeRaceway([](CRaceway& raceway) { raceway.chaosButtonAvailable = true; });
    }
    void usePowerSwitches()
    {
        changeRaceway([](CRaceway& raceway) { raceway.pwrOffFeatureAvailable = true; });
    }

    /** Lets one sensor event reach the race. */
    void sensorsAt(int time, std::initializer_list<int> portIds)
    {
        CDriveThroughEvent event(TestSupport::closedSensors(portIds), time);
        QCoreApplication::sendEvent(m_race.get(), &event);
    }
    /** Begins a lap on the track and ends one after each of the times. */
    void drive(int track, const std::vector<int>& lapTimes, int begin = 1000)
    {
        int time = begin;
        sensorsAt(time, {PortId::lapSensor(track)});
        for (const int lapTime : lapTimes) {
            time += lapTime;
            sensorsAt(time, {PortId::lapSensor(track)});
        }
    }
    /** Drives one lap over its three sectors. */
    void driveSectors(int track, int begin, const std::array<int, 3>& sectors)
    {
        sensorsAt(begin, {PortId::lapSensor(track)});
        sensorsAt(begin + sectors[0], {PortId::sector2Sensor(track)});
        sensorsAt(begin + sectors[0] + sectors[1], {PortId::sector3Sensor(track)});
        sensorsAt(begin + sectors[0] + sectors[1] + sectors[2], {PortId::lapSensor(track)});
    }
    void controlUnitReports(const std::array<quint8, CCarreraCuStatusEvent::Cars>& fuel, int startLight)
    {
        CCarreraCuStatusEvent event(fuel, quint8(startLight));
        QCoreApplication::sendEvent(m_race.get(), &event);
    }
    void advanceClock(qint64 milliseconds) { m_now += milliseconds; }
    /** Runs a private slot, as its timer would. */
    bool fire(const char* slot) { return QMetaObject::invokeMethod(m_race.get(), slot); }
    /** Runs the private slot of the start procedure. */
    void letStartSecondsPass(int seconds)
    {
        auto* procedure = const_cast<CRaceStart*>(m_race->raceStart());
        for (int i = 0; i < seconds; ++i)
            QMetaObject::invokeMethod(procedure, "vStartTimerEventOccured");
    }
    QTimer& timer(const QString& name) { return *m_race->findChild<QTimer*>(name); }

    int status(int track) const { return int(m_race->raceMember(track).status()); }
    QList<int> statuses() const
    {
        QList<int> all;
        for (int track = 0; track < m_race->numberOfMembers(); ++track)
            all << status(track);
        return all;
    }
    int laps(int track) const { return m_race->raceMember(track).numberOfLaps(); }

    /** @return the list since the last call. */
    QStringList take()
    {
        const QStringList taken = log;
        log.clear();
        return taken;
    }
    /** @return the entries that match, since the last call; all others are dropped. */
    QStringList take(const QString& pattern) { return take().filter(QRegularExpression(pattern)); }

    QStringList log;
    QList<CRaceEvent> memberEvents; ///< every event of type 6
    QByteArray ioBlob;              ///< what the last interface was made from
    int ioType = CRacewayIo::ParallelPort;
    CSettings settings;
    CRaceSettings raceSettings;

private:
    CRace::Surroundings surroundings()
    {
        const auto createIo = [this](const QByteArray& blob) {
            ioBlob = blob;
            log << QStringLiteral("create");
            auto io = std::make_unique<TestSupport::FakeRacewayIo>(&log, ioType);
            io->readSettings(blob);
            return io;
        };
        return {createIo, [this] { return m_now; }};
    }

    static QString onOff(bool on) { return on ? QStringLiteral("on") : QStringLiteral("off"); }

    static QString toText(const CRaceEvent& event)
    {
        if (event.type != CRaceEvent::MemberChanged)
            return QStringLiteral("event %1.%2").arg(event.type).arg(event.subType);
        return QStringLiteral("member %1: kind %2, status %3, laps %4")
            .arg(event.track)
            .arg(event.subType)
            .arg(event.status)
            .arg(event.laps);
    }

    template <typename Signal>
    void recordName(Signal signal, const QString& name)
    {
        QObject::connect(m_race.get(), signal, m_race.get(), [this, name] { log << name; });
    }

    void record()
    {
        recordName(&CRace::RaceStarted, QStringLiteral("RaceStarted"));
        recordName(&CRace::RecordedRaceStarted, QStringLiteral("RecordedRaceStarted"));
        recordName(&CRace::RaceStopped, QStringLiteral("RaceStopped"));
        recordName(&CRace::RacePaused, QStringLiteral("RacePaused"));
        recordName(&CRace::RaceResumed, QStringLiteral("RaceResumed"));
        QObject::connect(m_race.get(), &CRace::UpdateLights, m_race.get(),
                         [this](int action) { log << QStringLiteral("lights %1").arg(action); });
        QObject::connect(m_race.get(), &CRace::UpdateRaceTime, m_race.get(), [this](const QTime& time) {
            log << time.toString(QStringLiteral("'time' hh:mm:ss.zzz"));
        });
        QObject::connect(m_race.get(), &CRace::raceInfoText, m_race.get(),
                         [this](const QString& text) { log << QStringLiteral("info '%1'").arg(text); });
        QObject::connect(m_race.get(), &CRace::trackPowerStateChanged, m_race.get(),
                         [this](int track, bool on) {
                             log << QStringLiteral("power %1 %2").arg(QString::number(track), onOff(on));
                         });
        QObject::connect(m_race.get(), &CRace::RaceEventHappened, m_race.get(),
                         [this](const CRaceEvent& event) {
                             log << toText(event);
                             if (event.type == CRaceEvent::MemberChanged)
                                 memberEvents << event;
                         });
    }

    qint64 m_now = 1000;
    std::unique_ptr<CRace> m_race;
};

#endif
