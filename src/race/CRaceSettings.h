#ifndef TORNIK_RACE_CRACESETTINGS_H
#define TORNIK_RACE_CRACESETTINGS_H

#include "data/CCar.h"
#include "data/CDriver.h"
#include "data/CRaceway.h"
#include "race/CFuelSettings.h"

#include <QTime>

#include <array>

class QDataStream;
class QSettings;

/**
 * How the next race runs: start, end, winner, drivers, cars, raceway and fuel.
 *
 * One live instance is owned by the start object and handed on by pointer; dialogs work on copies.
 */
class CRaceSettings
{
public:
    static constexpr int Slots = 8;

    enum StartType
    {
        FlyingStart = 0,
        TimedStart = 1
    };
    enum EndType
    {
        NoEnd = 0,
        TimeLimit = 1,
        LapLimit = 2
    };

    /** Reads from the settings store of the application; a missing key gives its read default. */
    void readDefaults();
    /** Writes to the settings store of the application. */
    void writeDefaults() const;
    /** Reads the same keys from an INI file (.rsf); a file that can't be read gives all defaults. */
    void readFromFile(const QString& fileName);
    void writeToFile(const QString& fileName) const;

    /** @return the values in one line, for the column `races.settings`; times lose milliseconds. */
    QString toText() const;
    /** A word that is missing or can't be read leaves its value alone. */
    void fromText(const QString& text);

    /** @return 0 flying start, 1 timed start with lights. */
    int startType() const { return m_startType; }
    void setStartType(int type) { m_startType = type; }
    QTime startDelay() const { return m_startDelay; }
    void setStartDelay(const QTime& delay) { m_startDelay = delay; }
    /** @return base of the random delay before green, milliseconds. */
    quint32 startLightsMinDelay() const { return m_startLightsMinDelay; }
    void setStartLightsMinDelay(quint32 milliseconds) { m_startLightsMinDelay = milliseconds; }
    /** @return largest random addition to the base, milliseconds. */
    quint32 startLightsMaxDelay() const { return m_startLightsMaxDelay; }
    void setStartLightsMaxDelay(quint32 milliseconds) { m_startLightsMaxDelay = milliseconds; }
    /** @return 0 none, 1 time limit, 2 lap limit. */
    int endType() const { return m_endType; }
    void setEndType(int type) { m_endType = type; }
    QTime endTime() const { return m_endTime; }
    void setEndTime(const QTime& time) { m_endTime = time; }
    int numberOfLaps() const { return m_numberOfLaps; }
    void setNumberOfLaps(int laps) { m_numberOfLaps = laps; }
    bool allMaxRounds() const { return m_allMaxRounds; }
    void setAllMaxRounds(bool on) { m_allMaxRounds = on; }
    bool maxRoundsStopCounting() const { return m_maxRoundsStopCounting; }
    void setMaxRoundsStopCounting(bool on) { m_maxRoundsStopCounting = on; }
    bool lapsCountDown() const { return m_lapsCountDown; }
    void setLapsCountDown(bool on) { m_lapsCountDown = on; }
    int winningCondition() const { return m_winningCondition; }
    void setWinningCondition(int condition) { m_winningCondition = condition; }
    QTime winningTargetTime() const { return m_winningTargetTime; }
    void setWinningTargetTime(const QTime& time) { m_winningTargetTime = time; }
    bool useTargetTime() const { return m_useTargetTime; }
    void setUseTargetTime(bool on) { m_useTargetTime = on; }
    int numOfWorstLapsToIgnore() const { return m_numOfWorstLapsToIgnore; }
    void setNumOfWorstLapsToIgnore(int laps) { m_numOfWorstLapsToIgnore = laps; }

    /** @return the driver of a track from 0; a default one for an index outside 0 to 7. */
    CDriver driver(int index) const;
    void setDriver(int index, const CDriver& driver);
    /** @return the car of a track from 0; a default one for an index outside 0 to 7. */
    CCar car(int index) const;
    void setCar(int index, const CCar& car);

    const CRaceway& raceway() const { return m_raceway; }
    void setRaceway(const CRaceway& raceway) { m_raceway = raceway; }
    const CFuelSettings& fuelSettings() const { return m_fuelSettings; }
    void setFuelSettings(const CFuelSettings& settings) { m_fuelSettings = settings; }

    bool monitorDistanceDriven() const { return m_monitorDistanceDriven; }
    void setMonitorDistanceDriven(bool on) { m_monitorDistanceDriven = on; }
    bool monitorFastestLap() const { return m_monitorFastestLap; }
    void setMonitorFastestLap(bool on) { m_monitorFastestLap = on; }
    bool redLightsOnRaceStopped() const { return m_redLightsOnRaceStopped; }
    void setRedLightsOnRaceStopped(bool on) { m_redLightsOnRaceStopped = on; }
    bool leavePowerOnWhenRaceStopped() const { return m_leavePowerOnWhenRaceStopped; }
    void setLeavePowerOnWhenRaceStopped(bool on) { m_leavePowerOnWhenRaceStopped = on; }

private:
    friend QDataStream& operator<<(QDataStream& stream, const CRaceSettings& settings);
    friend QDataStream& operator>>(QDataStream& stream, CRaceSettings& settings);

    // The values of the store and of the text, in their order; see RaceSettingsForms.h.
    template <typename Settings, typename Visitor>
    static void visitRules(Settings& settings, Visitor& visit);
    template <typename Settings, typename Visitor>
    static void visitDataStorage(Settings& settings, Visitor& visit);
    template <typename Settings, typename Visitor>
    static void visitRaceStopped(Settings& settings, Visitor& visit);

    void readFrom(QSettings& store);
    void writeTo(QSettings& store) const;

    int m_startType = FlyingStart;
    QTime m_startDelay{0, 0, 5};
    quint32 m_startLightsMinDelay = 500;
    quint32 m_startLightsMaxDelay = 2500;
    int m_endType = NoEnd;
    QTime m_endTime{0, 5, 0};
    int m_numberOfLaps = 25;
    bool m_allMaxRounds = false;
    bool m_maxRoundsStopCounting = false;
    bool m_lapsCountDown = false;
    int m_winningCondition = 0;
    QTime m_winningTargetTime{0, 0, 10};
    bool m_useTargetTime = false;
    int m_numOfWorstLapsToIgnore = 0;
    std::array<CDriver, Slots> m_drivers;
    std::array<CCar, Slots> m_cars;
    CRaceway m_raceway;
    CFuelSettings m_fuelSettings;
    bool m_monitorDistanceDriven = false;
    bool m_monitorFastestLap = false;
    bool m_redLightsOnRaceStopped = false;
    bool m_leavePowerOnWhenRaceStopped = false;
};

/** Stream form for the display protocol; the order is that of the definition. */
QDataStream& operator<<(QDataStream& stream, const CRaceSettings& settings);
QDataStream& operator>>(QDataStream& stream, CRaceSettings& settings);

#endif
