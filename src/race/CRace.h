#ifndef TORNIK_RACE_CRACE_H
#define TORNIK_RACE_CRACE_H

#include "race/CEndCondition.h"
#include "race/CRaceEvent.h"
#include "race/CRaceMembers.h"
#include "race/CRaceSettings.h"
#include "race/CRaceStart.h"
#include "race/CRacewayOutputs.h"
#include "race/CStopwatch.h"
#include "race/CWinningCondition.h"

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

class CCarList;
class CCarreraCuStatusEvent;
class CDriveThroughEvent;
class CFastestLapList;
class CRaceList;
class CRacewayIo;
class CSettings;
class QBitArray;

/**
 * Runs the race: owns the members, the start procedure, the end and winning conditions and the
 * hardware interface.
 *
 * Sensor events arrive as posted events, go through the members and come out as CRaceEvents and a
 * few signals. One object for the life of the program, owned by the start object; each race
 * rebuilds everything inside it. Lives in the main thread; reading threads reach it by posted
 * events alone.
 */
class CRace : public QObject
{
    Q_OBJECT

public:
    /** What the race takes from outside; a test hands in its own. */
    struct Surroundings
    {
        /** Makes the interface of a settings blob; never null. */
        std::function<std::unique_ptr<CRacewayIo>(const QByteArray&)> createIo;
        CStopwatch::Source clock;
    };

    /**
     * @param settings read for the speed unit; not owned
     * @param raceSettings rules of the next race; not owned
     */
    CRace(CSettings* settings, CRaceSettings* raceSettings, QObject* parent = nullptr);
    CRace(CSettings* settings, CRaceSettings* raceSettings, Surroundings surroundings,
          QObject* parent = nullptr);
    /** Stops the interface; the settings may be gone already. */
    ~CRace() override;

    int numberOfMembers() const { return int(m_members.size()); }
    /** @return a copy of the member; a default-built one for an index outside the list. */
    CRaceMember raceMember(int index) const;
    CRaceSettings raceSettingsCopy() const { return *m_raceSettings; }
    /** Ignored while a race is active. */
    void setRaceSettings(const CRaceSettings& settings);
    /** @return the time last shown. */
    QTime raceTime() const { return m_raceTime; }
    /** @return the moment of the start. */
    QDateTime raceDateTime() const { return m_raceDateTime; }
    bool isRaceActive() const { return m_raceActive; }
    bool isPaused() const { return m_paused; }

    /** @return never null, before the first race too. */
    const CRaceStart* raceStart() const { return m_raceStart.get(); }
    const CEndCondition* endCondition() const { return m_endCondition.get(); }
    const CWinningCondition* winningCondition() const { return m_winningCondition.get(); }
    const CSettings* settings() const { return m_settings; }
    /** @return the present interface; null until created. */
    CRacewayIo* io() const { return m_io.get(); }

public Q_SLOTS:
    /**
     * Ends a race without a winner and brings lights and power to rest, outside a race too. Waits
     * until the reading thread of the interface has left its loop.
     */
    void vStop();
    /** Sets a race off that is stored at its end. */
    void vStartRecordedRace(const QString& raceName);
    void vStartQuickRace();
    /** Throws the laps in progress away and stops the clocks; sensors count again after vResume(). */
    void vPause();
    void vResume();
    /** Forgets all laps and the race time. */
    void vReset();
    /** Stores the race in the database. */
    void saveToDatabase(const QString& raceName);
    /** Writes the race to a CSV file; a file that can't be opened leaves no trace. */
    void saveToCsv(const QString& pathAndFilename);
    void allTracksPower(bool powerOn);
    /** @param trackNum track number from 0; out of range is ignored */
    void trackPower(int trackNum, bool powerOn);
    void trackPowerToggle(int trackNum);
    /** Rebuilds members and interface for the raceway of the settings. */
    void adaptToRaceway();

Q_SIGNALS:
    /** @param iAction a CLightAction */
    void UpdateLights(int iAction);
    void RaceStarted();
    void RecordedRaceStarted();
    void RaceStopped();
    void RacePaused();
    void RaceResumed();
    void UpdateRaceTime(const QTime& time);
    void RaceEventHappened(const CRaceEvent& event);
    /** A line for the user; empty at vReset(). */
    void raceInfoText(const QString& text);
    void trackPowerStateChanged(int trackNum, bool powerOn);

protected:
    void customEvent(QEvent* event) override;

private Q_SLOTS:
    void vStartLightsUpdate(int iAction);
    void endConditionIsMet();
    void vOneSecondEvent();
    void vNewBestLapHappened();
    void vDriveThroughHappened();
    void vFuelTankEmpty();
    void vFuelTankOnReserve();
    void vUpdateRaceMember(int track, int lapKind);
    void vHandleRaceStartTrigger();
    void stutterFrequencyTimerTimeout();
    void raceMemberRefuelHappened(int track);
    void vStart();

private:
    void buildMembers();
    std::unique_ptr<CRaceMember> buildMember(int track) const;
    void setUpSensors(CRaceMember& racer) const;
    void setUpFuel(CRaceMember& racer) const;
    void prepareCarFuel(CCar& car) const;
    void setUpInterface();
    bool keepsInterface(const QByteArray& ioSettings) const;
    void stopInterface();
    void setUpPower();
    void makeEndCondition();
    void makeRaceStart();
    void makeWinningCondition();

    bool hasMember(int track) const { return track >= 0 && track < numberOfMembers(); }
    CRaceMember& member(int track) const { return *m_members[std::size_t(track)]; }
    void setAllStatus(CRaceMemberStatus status);
    void startRaceClock();

    void processDriveThrough(const CDriveThroughEvent& event);
    void processChaosButton(const QBitArray& sensors, quint32 time);
    void processMember(int track, const QBitArray& sensors, quint32 time);
    void processLapBegin(CRaceMember& racer);
    int processLapEnd(CRaceMember& racer, CLapSensorFlags flags);
    bool stopsCountingAtLimit() const;
    void checkEmptyTank(int track);
    void processControlUnitStatus(const CCarreraCuStatusEvent& event);
    int lapsToShow(const CRaceMember& racer) const;
    int speedUnit() const;
    /** Publishes a line for the user, and as a debug line if it isn't empty. */
    void showInfo(const QString& text);

    void makeStores();
    /** Stores what the settings ask for. */
    void storeFinishedRace();
    void storeDistances();
    void storeFastestLaps();
    void storeFastestLap(const CRaceMember& racer);

    Surroundings m_surroundings;
    CRaceMembers m_members;
    CSettings* m_settings;
    CRaceSettings* m_raceSettings;
    std::unique_ptr<CRacewayIo> m_io;
    bool m_raceActive = false;
    CStopwatch m_raceClock;
    QTime m_raceTime{0, 0};
    QTimer m_oneSecondTimer{this};
    QTimer m_stutterTimer{this};
    QDateTime m_raceDateTime;
    int m_pausedTime = 0; ///< milliseconds gathered before the last pause
    QString m_raceName;
    bool m_recordedRace = false;
    std::unique_ptr<CRaceStart> m_raceStart;
    std::unique_ptr<CEndCondition> m_endCondition;
    std::unique_ptr<CWinningCondition> m_winningCondition;
    bool m_chaosButtonEnabled = false;
    bool m_powerSwitchable = false;
    bool m_powerOffOnEmptyTank = false;
    bool m_stutterOnEmptyTank = false;
    bool m_stutterPowerState = false;
    bool m_paused = false;
    quint32 m_lastChaosTime = 0;
    CRacewayOutputs m_outputs;
    std::unique_ptr<CRaceList> m_raceList;
    CCarList* m_carList = nullptr;
    CFastestLapList* m_fastestLapList = nullptr;
};

#endif
