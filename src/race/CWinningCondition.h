#ifndef TORNIK_RACE_CWINNINGCONDITION_H
#define TORNIK_RACE_CWINNINGCONDITION_H

#include "race/CRaceMembers.h"

#include <QObject>
#include <QTime>

#include <array>
#include <memory>
#include <vector>

class CRaceSettings;

/**
 * Names the winner when an end condition has ended the race. The race makes a new one for each
 * start and owns it; everything runs in the main thread.
 */
class CWinningCondition : public QObject
{
    Q_OBJECT

public:
    /** Called once after each sensor event, when all members have seen it. */
    virtual void update() {}
    /** Gives the winner, or the winners, the status Winner. */
    virtual void determineWinner() = 0;
    virtual void reset() {}
    /** @return who won and by what; may be called any number of times after determineWinner(). */
    virtual QString resultText() const = 0;
    /** @return the rule in words. */
    virtual QString description() const = 0;

    /** @param members the race's list; not owned */
    void setMembers(const CRaceMembers* members) { m_members = members; }
    /** @return track number from 0 of the winner, the last one of several; 0 if nobody won. */
    int winner() const { return m_winner; }

protected:
    /** A time of a member that a rule compares. */
    using MemberTime = QTime (CRaceMember::*)() const;

    const CRaceMembers& members() const { return *m_members; }
    int numberOfMembers() const { return int(m_members->size()); }
    /** @param track from 0, inside the list */
    CRaceMember& member(int track) const { return *(*m_members)[std::size_t(track)]; }
    void setWinner(int track) { m_winner = track; }
    /** @return a copy of the winner; a default-built one if the race has no members. */
    CRaceMember winningMember() const;
    /** Gives the status Winner; a track outside the list is ignored. */
    void crown(int track) const;
    /** Crowns every member with the lowest time. */
    void crownLowest(MemberTime time);

private:
    const CRaceMembers* m_members = nullptr;
    int m_winner = 0;
};

/** Nobody wins. */
class CWinningConditionNone : public CWinningCondition
{
    Q_OBJECT

public:
    void determineWinner() override {}
    QString resultText() const override;
    QString description() const override;
};

/** The most laps, or the lap limit reached first. */
class CWinningConditionNumOfLaps : public CWinningCondition
{
    Q_OBJECT

public:
    static constexpr int NoLimit = -1;

    /** @param lapLimit the lap limit of the race; NoLimit for the most laps */
    explicit CWinningConditionNumOfLaps(int lapLimit) : m_lapLimit(lapLimit) {}

    void update() override;
    void determineWinner() override;
    void reset() override { m_firstAtLimit = -1; }
    QString resultText() const override;
    QString description() const override;

private:
    int memberWithMostLaps() const;

    int m_lapLimit;
    int m_firstAtLimit = -1;
};

/** The fastest lap of all. */
class CWinningConditionFastestLap : public CWinningCondition
{
    Q_OBJECT

public:
    void determineWinner() override { crownLowest(&CRaceMember::bestLapTime); }
    QString resultText() const override;
    QString description() const override;
};

/** The lowest average of the lap times. */
class CWinningConditionLowestAvgTime : public CWinningCondition
{
    Q_OBJECT

public:
    void determineWinner() override { crownLowest(&CRaceMember::averageLapTime); }
    QString resultText() const override;
    QString description() const override;
};

/** The one lap that is closest to a time. */
class CWinningConditionClosestToTargetTime : public CWinningCondition
{
    Q_OBJECT

public:
    /** @param targetTime its hours don't count */
    explicit CWinningConditionClosestToTargetTime(const QTime& targetTime) : m_targetTime(targetTime) {}

    void determineWinner() override;
    QString resultText() const override;
    QString description() const override;

private:
    QTime m_targetTime;
    int m_winningLap = 0;
};

/** The average that is closest to a time. */
class CWinningConditionAverageClosestToTargetTime : public CWinningCondition
{
    Q_OBJECT

public:
    explicit CWinningConditionAverageClosestToTargetTime(const QTime& targetTime) : m_targetTime(targetTime)
    {
    }

    void determineWinner() override;
    QString resultText() const override;
    QString description() const override;

private:
    QTime m_targetTime;
};

/** The smallest spread of the lap times, the slowest laps left out. */
class CWinningConditionMostConstantTimes : public CWinningCondition
{
    Q_OBJECT

public:
    static constexpr int MaxMembers = 8;

    explicit CWinningConditionMostConstantTimes(int numOfWorstLapsToIgnore)
        : m_numOfWorstLapsToIgnore(numOfWorstLapsToIgnore)
    {
    }

    void determineWinner() override;
    QString resultText() const override;
    QString description() const override;
    /** Measures every member; does nothing without members or with more than MaxMembers. */
    virtual void computeDeviations();

protected:
    /** Milliseconds. */
    struct Deviation
    {
        int deviation = 0;
        int fastestLap = 0;
        int slowestLap = 0;
    };

    int numOfWorstLapsToIgnore() const { return m_numOfWorstLapsToIgnore; }
    /** Keeps the result of @p measure for every member, if the race has not too many of them. */
    template <typename Measure>
    void measureMembers(Measure measure)
    {
        const int count = numberOfMembers() <= MaxMembers ? numberOfMembers() : 0;
        for (int track = 0; track < count; ++track)
            m_deviations[std::size_t(track)] = measure(member(track));
    }

private:
    Deviation spreadOf(const CRaceMember& racer) const;

    int m_numOfWorstLapsToIgnore;
    std::array<Deviation, MaxMembers> m_deviations;
    Deviation m_winnerDeviation;
};

/** The laps nearest to a time, those furthest from it left out. */
class CWinningConditionMostConstantTimesWithTarget : public CWinningConditionMostConstantTimes
{
    Q_OBJECT

public:
    /** @param targetTime its hours don't count */
    CWinningConditionMostConstantTimesWithTarget(int numOfWorstLapsToIgnore, const QTime& targetTime);

    QString description() const override;
    void computeDeviations() override;

private:
    Deviation distanceOf(const CRaceMember& racer) const;

    int m_targetMs;
};

/** @return the condition that the settings ask for; never null. */
std::unique_ptr<CWinningCondition> createWinningCondition(const CRaceSettings& settings,
                                                          const CRaceMembers* members);

/** @return milliseconds between the two, never negative. */
int absoluteDifference(const QTime& a, const QTime& b);
/** @return never negative; the largest int where the difference doesn't fit. */
int absoluteDifference(int a, int b);

#endif
