#ifndef TORNIK_RACE_CRACEMEMBER_H
#define TORNIK_RACE_CRACEMEMBER_H

#include "data/CCar.h"
#include "data/CDriver.h"
#include "data/CRacewayTrack.h"
#include "race/CLapTime.h"

#include <QBitArray>
#include <QObject>
#include <QTime>
#include <QTimer>
#include <QVector>

/** What a member is doing; its words are shown on the track panel. */
enum class CRaceMemberStatus
{
    None = 1,       ///< nothing has happened yet
    Waiting = 2,    ///< for the start, or for the first crossing after a pause
    Starting = 3,   ///< the start was given, the start sensor is still to come
    Running = 4,    ///< crossed the start sensor after the start was given
    FalseStart = 5, ///< started too early
    Finished = 6,   ///< its race is over
    Winner = 7,
    Paused = 8
};

/** What an event did to a member; an OR of bits. */
using CLapSensorFlags = int;

/**
 * One track's participant of a race: turns the sensor states of each event into lap starts, lap
 * ends, sector splits, best laps and fuel reactions.
 *
 * Owned by CRace, one per track, rebuilt at each race start. Lives in the main thread. Every time
 * is in milliseconds of the sensor clock; 0 is never a genuine stamp.
 */
class CRaceMember : public QObject
{
    Q_OBJECT

public:
    enum SensorFlag
    {
        LapBegan = 1,
        LapEnded = 2,
        Sector2Taken = 4,
        Sector3Taken = 8,
        NewBestLap = 16,
        TankOnReserve = 32, ///< always with LapEnded
        TankEmpty = 64      ///< always with LapEnded
    };

    /** What an empty tank does; the numbers of CFuelSettings::emptyFuelReaction(). */
    enum EmptyReaction
    {
        BlockLapCounting = 0,
        PowerOff = 1,
        PenaltyPerLap = 2,
        Stutter = 3
    };

    CRaceMember();
    /** @param trackIndex track number from 0; the first argument of both signals */
    CRaceMember(const CRacewayTrack& track, int trackIndex);
    /** Copies everything but the refuelling timer: the copy has a stopped one of its own. */
    CRaceMember(const CRaceMember& other);
    CRaceMember& operator=(const CRaceMember& other);

    const CCar& car() const { return m_car; }
    void setCar(const CCar& car) { m_car = car; }
    const CDriver& driver() const { return m_driver; }
    void setDriver(const CDriver& driver) { m_driver = driver; }
    const CRacewayTrack& track() const { return m_track; }
    void setTrack(const CRacewayTrack& track) { m_track = track; }
    int trackIndex() const { return m_trackIndex; }

    CRaceMemberStatus status() const { return m_status; }
    /** Emits update(trackIndex, 0) if the status changed. */
    void setStatus(CRaceMemberStatus status);

    /** @return the shortest valid lap in milliseconds. */
    int minTime() const { return m_minTime; }
    void setMinTime(int milliseconds) { m_minTime = milliseconds; }

    /** Port ids of the sensors; 0 for none. */
    int startSensorPin() const { return m_startSensorPin; }
    void setStartSensorPin(int portId) { m_startSensorPin = portId; }
    int endSensorPin() const { return m_endSensorPin; }
    void setEndSensorPin(int portId) { m_endSensorPin = portId; }
    int sector2Pin() const { return m_sector2Pin; }
    void setSector2Pin(int portId) { m_sector2Pin = portId; }
    int sector3Pin() const { return m_sector3Pin; }
    void setSector3Pin(int portId) { m_sector3Pin = portId; }
    int refuelStartPin() const { return m_refuelStartPin; }
    void setRefuelStartPin(int portId) { m_refuelStartPin = portId; }
    int refuelEndPin() const { return m_refuelEndPin; }
    void setRefuelEndPin(int portId) { m_refuelEndPin = portId; }

    /** @return whether the race simulates fuel on this member. */
    bool fuelEnabled() const { return m_fuelEnabled; }
    void setFuelEnabled(bool enabled) { m_fuelEnabled = enabled; }
    /** @return milliseconds between refuelling ticks. */
    int refuelInterval() const { return m_refuelInterval; }
    void setRefuelInterval(int milliseconds) { m_refuelInterval = milliseconds; }
    /** @return the amount added per tick. */
    double refuelAmount() const { return m_refuelAmount; }
    void setRefuelAmount(double amount) { m_refuelAmount = amount; }
    /** @return an EmptyReaction. */
    int emptyReaction() const { return m_emptyReaction; }
    void setEmptyReaction(int reaction) { m_emptyReaction = reaction; }
    /** @return milliseconds added to each lap on an empty tank. */
    int emptyPenaltyTime() const { return m_emptyPenaltyTime; }
    void setEmptyPenaltyTime(int milliseconds) { m_emptyPenaltyTime = milliseconds; }

    /** @return whether an empty tank keeps laps from being counted. */
    bool lapCountingBlocked() const { return m_lapCountingBlocked; }
    /** @return milliseconds added to the end of each lap; 0 for none. */
    int activePenalty() const { return m_activePenalty; }
    /** @return whether a lap has begun and has not ended yet. */
    bool lapOpen() const { return m_lapOpen; }
    bool isStopped() const { return m_stopped; }
    bool isRefuelling() const { return m_refuelTimer.isActive(); }

    int numberOfLaps() const { return m_laps.size(); }
    int bestLapIndex() const { return m_bestLapIndex; }
    /** @return the lap at the index, or a cleared one for an index outside the list. */
    CLapTime lap(int index) const;
    const QVector<CLapTime>& laps() const { return m_laps; }
    const CLapTime& currentLap() const { return m_currentLap; }
    /** @return the sum of all lap times in milliseconds. */
    int totalLapTime() const { return m_totalLapTime; }

    /**
     * Lets one event act on the laps.
     * @param sensors 65 levels, numbered by port id
     * @param time milliseconds of the sensor clock
     * @return an OR of SensorFlag
     */
    CLapSensorFlags processSensors(const QBitArray& sensors, quint32 time);
    /** Lets one event begin or end refuelling; called after processSensors(). */
    void processRefuelSensors(const QBitArray& sensors, quint32 time);
    void stopRefuelling() { m_refuelTimer.stop(); }

    /** Throws the lap in progress away and ignores sensors and refuelling until resume(). */
    void pause();
    void resume();
    /** Forgets all laps; the car's tank, its distance and the status stay. */
    void reset();

    /** Durations as 00:00:00.000 plus the milliseconds; 00:00:00.000 for none. */
    QTime lastLapTime() const;
    QTime bestLapTime() const;
    /** Integer division that cuts towards zero. */
    QTime averageLapTime() const;
    /** The running lap's sector, or the last lap's until the running lap has reached it. */
    QTime sector1Time() const;
    QTime sector2Time() const;
    QTime sector3Time() const;
    /** Sums of the sectors up to this one, with the same fallback. */
    QTime split1Time() const;
    QTime split2Time() const;
    QTime split3Time() const;

    /**
     * Speed of the last lap; 0.0 with no laps.
     * @param unit 0 km/h at full size, 1 m/s on the model, 2 mph at full size
     */
    double speed(int unit) const;

    bool isTankEmpty() const;
    int fuelPercent() const { return m_car.fuelPercent(); }
    void setFuelPercent(int percent) { m_car.setFuelPercent(percent); }
    bool powerOn() const { return m_track.powerOn; }
    void setPowerOn(bool on) { m_track.powerOn = on; }

Q_SIGNALS:
    /** A display must be refreshed; the member itself always sends 0 as @p lapKind. */
    void update(int trackIndex, int lapKind);
    /** A refuelling tick found enough fuel for a lap. */
    void refuelEnoughForAtLeastOneLap(int trackIndex);

private Q_SLOTS:
    void refuel();

private:
    CLapSensorFlags processSectorSensors(const QBitArray& sensors, quint32 time);
    CLapSensorFlags beginLap(quint32 time);
    bool acceptsEnd(quint32 time) const;
    CLapSensorFlags endLap(quint32 time);
    CLapSensorFlags rateLap();
    CLapSensorFlags consumeFuel();
    void reactToEmptyTank();
    /** @return the last lap, or a cleared one. */
    const CLapTime& lastLap() const;

    CCar m_car;
    CRacewayTrack m_track;
    CDriver m_driver;
    QVector<CLapTime> m_laps;
    int m_bestLapIndex = 0;
    CLapTime m_currentLap;
    CRaceMemberStatus m_status = CRaceMemberStatus::None;
    quint32 m_lastStartSensorTime = 0;
    quint32 m_lastEndSensorTime = 0;
    int m_totalLapTime = 0;
    int m_trackIndex = 0;
    bool m_stopped = false;
    int m_minTime = 200;
    int m_startSensorPin = 0;
    int m_refuelStartPin = 0;
    int m_refuelEndPin = 0;
    int m_sector2Pin = 0;
    int m_sector3Pin = 0;
    int m_endSensorPin = 0;
    bool m_fuelEnabled = false;
    int m_refuelInterval = 0;
    double m_refuelAmount = 0.0;
    QTimer m_refuelTimer{this};
    int m_emptyReaction = 0;
    int m_emptyPenaltyTime = 0;
    bool m_lapCountingBlocked = false;
    int m_activePenalty = 0;
    bool m_lapOpen = false;
};

#endif
