#ifndef TORNIK_RACE_CENDCONDITION_H
#define TORNIK_RACE_CENDCONDITION_H

#include "race/CRaceMembers.h"
#include "race/CStopwatch.h"

#include <QObject>
#include <QTime>
#include <QTimer>

#include <memory>

class CRaceSettings;

/**
 * Ends a race by itself. The race makes a new one for each start and owns it; everything runs in
 * the main thread.
 */
class CEndCondition : public QObject
{
    Q_OBJECT

public:
    /** The start was given. */
    virtual void start() = 0;
    virtual void pause() = 0;
    virtual void resume() = 0;
    virtual void stop() = 0;
    /** Called once after each sensor event, when all members have seen it. */
    virtual void check() = 0;
    /** @return the condition in words. */
    virtual QString description() const = 0;

    /** @param members the race's list; not owned */
    void setMembers(const CRaceMembers* members) { m_members = members; }

Q_SIGNALS:
    void endConditionReached();

protected:
    const CRaceMembers* members() const { return m_members; }

private:
    const CRaceMembers* m_members = nullptr;
};

/** The race ends when the user stops it. */
class CEndConditionNone : public CEndCondition
{
    Q_OBJECT

public:
    void start() override {}
    void pause() override {}
    void resume() override {}
    void stop() override {}
    void check() override {}
    QString description() const override;
};

/** The race ends after a time; pauses don't count, in whole seconds. */
class CEndConditionTimeLimit : public CEndCondition
{
    Q_OBJECT

public:
    /**
     * @param endTime the limit; its milliseconds don't count
     * @param clock measures the time between two pauses
     */
    explicit CEndConditionTimeLimit(const QTime& endTime, const CStopwatch& clock = CStopwatch());

    void start() override;
    void pause() override;
    void resume() override;
    void stop() override;
    void check() override {}
    QString description() const override;

    int remainingSeconds() const { return m_remainingSeconds; }

private Q_SLOTS:
    void endTimerEventOccured();

private:
    QTimer m_endTimer{this};
    CStopwatch m_clock;
    int m_remainingSeconds;
};

/** The race ends when a track, or every track, has driven its laps. */
class CEndConditionLapLimit : public CEndCondition
{
    Q_OBJECT

public:
    CEndConditionLapLimit(int numberOfLaps, bool allMaxRounds);

    void start() override {}
    void pause() override {}
    void resume() override {}
    void stop() override {}
    void check() override;
    QString description() const override;

private:
    void checkAllTracks();
    void checkEachTrack();

    int m_numberOfLaps;
    bool m_allMaxRounds;
};

/** @return the condition that the settings ask for; never null. */
std::unique_ptr<CEndCondition> createEndCondition(const CRaceSettings& settings, const CRaceMembers* members);

#endif
