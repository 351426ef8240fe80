#include "race/CWinningCondition.h"

#include "race/CRaceSettings.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int MillisecondsPerHour = 60 * 60 * 1000;
/** Where a rule by distance from a target starts: only a smaller distance counts. */
constexpr int FarthestFromTarget = MillisecondsPerHour - 1;

QString timeText(const QTime& time)
{
    return time.toString(QStringLiteral("mm:ss:zzz"));
}

QString timeText(int milliseconds)
{
    return timeText(QTime(0, 0).addMSecs(milliseconds));
}

int millisecondsWithoutHours(const QTime& time)
{
    return time.msecsSinceStartOfDay() % MillisecondsPerHour;
}

std::vector<int> sortedLapTimes(const CRaceMember& racer)
{
    std::vector<int> times;
    times.reserve(std::size_t(racer.numberOfLaps()));
    for (const CLapTime& lap : racer.laps())
        times.push_back(lap.lapTime);
    std::sort(times.begin(), times.end());
    return times;
}

} // namespace

int absoluteDifference(const QTime& a, const QTime& b)
{
    return qAbs(a.msecsTo(b));
}

int absoluteDifference(int a, int b)
{
    const qint64 difference = qAbs(qint64(a) - b);
    return int(qMin(difference, qint64(std::numeric_limits<int>::max())));
}

CRaceMember CWinningCondition::winningMember() const
{
    return m_winner < numberOfMembers() ? member(m_winner) : CRaceMember();
}

void CWinningCondition::crown(int track) const
{
    if (track >= 0 && track < numberOfMembers())
        member(track).setStatus(CRaceMemberStatus::Winner);
}

void CWinningCondition::crownLowest(MemberTime time)
{
    // Required: a member without laps has 00:00:00.000 and wins over any member with laps.
    QTime lowest(23, 59, 59, 999);
    for (int track = 0; track < numberOfMembers(); ++track)
        lowest = qMin(lowest, (member(track).*time)());
    for (int track = 0; track < numberOfMembers(); ++track) {
        if ((member(track).*time)() == lowest) {
            crown(track);
            setWinner(track);
        }
    }
}

QString CWinningConditionNone::resultText() const
{
    return tr("Rennen beendet");
}

QString CWinningConditionNone::description() const
{
    return tr("Keine Siegbedingung");
}

void CWinningConditionNumOfLaps::update()
{
    for (int track = 0; track < numberOfMembers() && m_firstAtLimit == -1; ++track) {
        if (member(track).numberOfLaps() == m_lapLimit)
            m_firstAtLimit = track;
    }
}

int CWinningConditionNumOfLaps::memberWithMostLaps() const
{
    int found = -1;
    int mostLaps = 0;
    for (int track = 0; track < numberOfMembers(); ++track) {
        const int laps = member(track).numberOfLaps();
        if (laps > mostLaps) {
            mostLaps = laps;
            found = track;
        }
    }
    return found;
}

void CWinningConditionNumOfLaps::determineWinner()
{
    const int found = m_lapLimit == NoLimit ? memberWithMostLaps() : m_firstAtLimit;
    if (found != -1) {
        crown(found);
        setWinner(found);
    }
}

QString CWinningConditionNumOfLaps::resultText() const
{
    return tr("Die meisten Runden gefahren hat %1.").arg(winningMember().driver().name());
}

QString CWinningConditionNumOfLaps::description() const
{
    return tr("Die meisten gefahrenen Runden bzw. Rundenlimit als erster erreicht");
}

QString CWinningConditionFastestLap::resultText() const
{
    const CRaceMember racer = winningMember();
    return tr("Die schnellste Runde war die %1. Runde von %2 mit einer Zeit von %3.")
        .arg(QString::number(racer.bestLapIndex() + 1), racer.driver().name(), timeText(racer.bestLapTime()));
}

QString CWinningConditionFastestLap::description() const
{
    return tr("schnellste Runde");
}

QString CWinningConditionLowestAvgTime::resultText() const
{
    const CRaceMember racer = winningMember();
    return tr("Die beste Durchschnittszeit hatte %1 mit einer Zeit von %2.")
        .arg(racer.driver().name(), timeText(racer.averageLapTime()));
}

QString CWinningConditionLowestAvgTime::description() const
{
    return tr("geringste Durchschnittszeit");
}

void CWinningConditionClosestToTargetTime::determineWinner()
{
    setWinner(0);
    m_winningLap = 0;
    const int target = millisecondsWithoutHours(m_targetTime);
    int best = FarthestFromTarget;
    for (int track = 0; track < numberOfMembers(); ++track) {
        const QVector<CLapTime>& laps = member(track).laps();
        for (int lap = 0; lap < laps.size(); ++lap) {
            const int distance = absoluteDifference(laps.at(lap).lapTime, target);
            if (distance < best) {
                best = distance;
                setWinner(track);
                m_winningLap = lap;
            }
        }
    }
    crown(winner());
}

QString CWinningConditionClosestToTargetTime::resultText() const
{
    const int time = winningMember().lap(m_winningLap).lapTime;
    return tr("Die siegreiche Runde war die %1. Runde mit einer Zeit von %2.")
        .arg(QString::number(m_winningLap + 1), timeText(time));
}

QString CWinningConditionClosestToTargetTime::description() const
{
    return tr("am nächsten an Zielzeit %1").arg(timeText(m_targetTime));
}

void CWinningConditionAverageClosestToTargetTime::determineWinner()
{
    setWinner(0);
    int best = FarthestFromTarget;
    for (int track = 0; track < numberOfMembers(); ++track) {
        const QTime average = member(track).averageLapTime();
        const int distance = absoluteDifference(average, m_targetTime);
        if (distance < best) {
            best = distance;
            setWinner(track);
        }
    }
    crown(winner());
}

QString CWinningConditionAverageClosestToTargetTime::resultText() const
{
    return tr("Fahrer %1 lag mit einer Durchschnittszeit von %2 am nächsten an der Zielzeit %3.")
        .arg(QString::number(winner() + 1), timeText(winningMember().averageLapTime()),
             timeText(m_targetTime));
}

QString CWinningConditionAverageClosestToTargetTime::description() const
{
    return tr("Durchschnittszeit am nächsten an Zielzeit %1").arg(timeText(m_targetTime));
}

void CWinningConditionMostConstantTimes::determineWinner()
{
    computeDeviations();
    int smallest = std::numeric_limits<int>::max();
    for (int track = 0; track < qMin(numberOfMembers(), MaxMembers); ++track) {
        const Deviation& candidate = m_deviations[std::size_t(track)];
        const Deviation& current = m_deviations[std::size_t(winner())];
        const bool isTieWon = candidate.deviation == smallest && candidate.slowestLap < current.slowestLap;
        if (candidate.deviation < smallest || isTieWon) {
            smallest = candidate.deviation;
            setWinner(track);
            m_winnerDeviation = candidate;
        }
    }
    crown(winner());
}

void CWinningConditionMostConstantTimes::computeDeviations()
{
    measureMembers([this](const CRaceMember& racer) { return spreadOf(racer); });
}

CWinningConditionMostConstantTimes::Deviation
CWinningConditionMostConstantTimes::spreadOf(const CRaceMember& racer) const
{
    // Required: a member without laps has the spread 0, which can't be beaten.
    const std::vector<int> times = sortedLapTimes(racer);
    if (times.empty()) {
        return {};
    }
    const int count = int(times.size());
    const int ignored = qMax(0, m_numOfWorstLapsToIgnore);
    const int last = ignored < count ? count - ignored - 1 : 0;
    const int slowest = times[std::size_t(last)];
    return {absoluteDifference(slowest, times.front()), times.front(), slowest};
}

QString CWinningConditionMostConstantTimes::resultText() const
{
    if (numberOfMembers() > MaxMembers) {
        return tr("Fehler: Diese Siegbedingung kann nicht auf mehr als %1 Rennteilnehmer angewendet werden.")
            .arg(MaxMembers);
    }
    return tr("Fahrer %1 hat mit einer max. Abweichung von %2 gewonnen. Die schnellste Rundenzeit war %3, "
              "die langsamste %4.")
        .arg(QString::number(winner() + 1), timeText(m_winnerDeviation.deviation),
             timeText(m_winnerDeviation.fastestLap), timeText(m_winnerDeviation.slowestLap));
}

QString CWinningConditionMostConstantTimes::description() const
{
    QString text = tr("Konstanteste Rundenzeit");
    if (m_numOfWorstLapsToIgnore != 0)
        text += tr(", die schlechtesten %1 Runden ignorieren").arg(m_numOfWorstLapsToIgnore);
    return text;
}

CWinningConditionMostConstantTimesWithTarget::CWinningConditionMostConstantTimesWithTarget(
    int numOfWorstLapsToIgnore, const QTime& targetTime)
    : CWinningConditionMostConstantTimes(numOfWorstLapsToIgnore),
      m_targetMs(millisecondsWithoutHours(targetTime))
{
}

void CWinningConditionMostConstantTimesWithTarget::computeDeviations()
{
    measureMembers([this](const CRaceMember& racer) { return distanceOf(racer); });
}

CWinningConditionMostConstantTimesWithTarget::Deviation
CWinningConditionMostConstantTimesWithTarget::distanceOf(const CRaceMember& racer) const
{
    const std::vector<int> times = sortedLapTimes(racer);
    if (times.empty()) {
        return {};
    }
    const int count = int(times.size());
    const auto distance = [this, &times](int lap) {
        return absoluteDifference(times[std::size_t(lap)], m_targetMs);
    };
    int low = 0;
    int high = count - 1 < numOfWorstLapsToIgnore() ? 0 : count - 1;
    for (int i = 0; i < numOfWorstLapsToIgnore() && low < high; ++i) {
        // At a tie the slow end goes.
        if (distance(high) >= distance(low))
            --high;
        else
            ++low;
    }
    return {qMax(distance(high), distance(low)), times[std::size_t(low)], times[std::size_t(high)]};
}

QString CWinningConditionMostConstantTimesWithTarget::description() const
{
    // Required: the time stays empty.
    return tr("Rundenzeit möglichst nahe an der Zielzeit %1").arg(timeText(QTime()));
}

namespace {

std::unique_ptr<CWinningCondition> createConstancy(const CRaceSettings& settings)
{
    const int ignored = settings.numOfWorstLapsToIgnore();
    if (settings.useTargetTime()) {
        return std::make_unique<CWinningConditionMostConstantTimesWithTarget>(ignored,
                                                                              settings.winningTargetTime());
    }
    return std::make_unique<CWinningConditionMostConstantTimes>(ignored);
}

std::unique_ptr<CWinningCondition> createByNumber(const CRaceSettings& settings)
{
    const QTime target = settings.winningTargetTime();
    const bool hasLapLimit = settings.endType() == CRaceSettings::LapLimit;
    switch (settings.winningCondition()) {
    case 1:
        return std::make_unique<CWinningConditionNumOfLaps>(
            hasLapLimit ? settings.numberOfLaps() : CWinningConditionNumOfLaps::NoLimit);
    case 2:
        return std::make_unique<CWinningConditionFastestLap>();
    case 3:
        return std::make_unique<CWinningConditionLowestAvgTime>();
    case 4:
        return std::make_unique<CWinningConditionClosestToTargetTime>(target);
    case 5:
        return std::make_unique<CWinningConditionAverageClosestToTargetTime>(target);
    case 6:
        return createConstancy(settings);
    default:
        return std::make_unique<CWinningConditionNone>();
    }
}

} // namespace

std::unique_ptr<CWinningCondition> createWinningCondition(const CRaceSettings& settings,
                                                          const CRaceMembers* members)
{
    std::unique_ptr<CWinningCondition> condition = createByNumber(settings);
    condition->setMembers(members);
    return condition;
}
