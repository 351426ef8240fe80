#include "race/CEndCondition.h"

#include "race/CRaceSettings.h"

#include <algorithm>

QString CEndConditionNone::description() const
{
    return tr("Keine Endebedingung");
}

CEndConditionTimeLimit::CEndConditionTimeLimit(const QTime& endTime, const CStopwatch& clock)
    : m_clock(clock), m_remainingSeconds(endTime.msecsSinceStartOfDay() / 1000)
{
    m_endTimer.setSingleShot(true);
    // A coarse timer of minutes may be a second late.
    m_endTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_endTimer, &QTimer::timeout, this, &CEndConditionTimeLimit::endTimerEventOccured);
}

void CEndConditionTimeLimit::start()
{
    m_clock.start();
    m_endTimer.start(m_remainingSeconds * 1000);
}

void CEndConditionTimeLimit::pause()
{
    if (!m_endTimer.isActive())
        return;
    m_endTimer.stop();
    const qint64 elapsedSeconds = m_clock.elapsed() / 1000;
    m_remainingSeconds = int(qMax(qint64(0), m_remainingSeconds - elapsedSeconds));
}

void CEndConditionTimeLimit::resume()
{
    start();
}

void CEndConditionTimeLimit::stop()
{
    m_endTimer.stop();
}

QString CEndConditionTimeLimit::description() const
{
    return tr("Ende nach %1 Sekunden").arg(m_remainingSeconds);
}

void CEndConditionTimeLimit::endTimerEventOccured()
{
    Q_EMIT endConditionReached();
}

CEndConditionLapLimit::CEndConditionLapLimit(int numberOfLaps, bool allMaxRounds)
    : m_numberOfLaps(numberOfLaps), m_allMaxRounds(allMaxRounds)
{
}

void CEndConditionLapLimit::check()
{
    if (m_allMaxRounds)
        checkAllTracks();
    else
        checkEachTrack();
}

void CEndConditionLapLimit::checkAllTracks()
{
    const auto isBelowLimit = [this](const auto& member) { return member->numberOfLaps() < m_numberOfLaps; };
    if (std::none_of(members()->cbegin(), members()->cend(), isBelowLimit))
        Q_EMIT endConditionReached();
}

void CEndConditionLapLimit::checkEachTrack()
{
    for (const auto& member : *members()) {
        if (member->numberOfLaps() == m_numberOfLaps)
            Q_EMIT endConditionReached();
    }
}

QString CEndConditionLapLimit::description() const
{
    QString text = tr("Ende nach %1 Runden").arg(m_numberOfLaps);
    if (m_allMaxRounds)
        text += tr(" auf allen Spuren");
    return text;
}

std::unique_ptr<CEndCondition> createEndCondition(const CRaceSettings& settings, const CRaceMembers* members)
{
    std::unique_ptr<CEndCondition> condition;
    switch (settings.endType()) {
    case CRaceSettings::TimeLimit:
        condition = std::make_unique<CEndConditionTimeLimit>(settings.endTime());
        break;
    case CRaceSettings::LapLimit:
        condition = std::make_unique<CEndConditionLapLimit>(settings.numberOfLaps(), settings.allMaxRounds());
        break;
    default:
        condition = std::make_unique<CEndConditionNone>();
        break;
    }
    condition->setMembers(members);
    return condition;
}
