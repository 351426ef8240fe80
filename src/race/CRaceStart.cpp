#include "race/CRaceStart.h"

#include "race/CLightAction.h"
#include "race/CRaceSettings.h"

#include <QRandomGenerator>

#include <chrono>
#include <limits>

namespace {

constexpr int MinimumDelay = 5; // seconds: five red lights, one a second
constexpr int RedLightSeconds = 6;
constexpr auto OneSecond = std::chrono::milliseconds(1000);
constexpr quint64 RandomMax = 32767;

/** @return milliseconds from the last red light to green. */
int randomGreenDelay(quint32 minDelay, quint32 maxDelay)
{
    const quint64 r = QRandomGenerator::global()->bounded(quint32(RandomMax + 1));
    // Required: the second setting is added to the first, it is no upper limit of the sum.
    const quint64 delay = minDelay + r * maxDelay / RandomMax;
    return int(qMin(delay, quint64(std::numeric_limits<int>::max())));
}

} // namespace

void CRaceStart::giveGo()
{
    Q_EMIT go();
    Q_EMIT UpdateLights(CLightAction::Go);
}

void CRaceStartNoCondition::start()
{
    Q_EMIT UpdateLights(CLightAction::AllOff);
    setGoGiven(true);
    giveGo();
}

void CRaceStartNoCondition::stop()
{
    setGoGiven(false);
}

QString CRaceStartNoCondition::description() const
{
    return tr("fliegender Start");
}

CRaceStartTimer::CRaceStartTimer(const QTime& startDelay, quint32 startLightsMinDelay,
                                 quint32 startLightsMaxDelay)
    : m_startDelay(startDelay),
      m_startLightsMinDelay(startLightsMinDelay),
      m_startLightsMaxDelay(startLightsMaxDelay)
{
    // A coarse timer would round the random while before green.
    m_startTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_startTimer, &QTimer::timeout, this, &CRaceStartTimer::vStartTimerEventOccured);
}

void CRaceStartTimer::start()
{
    m_remainingSeconds = qMax(MinimumDelay, m_startDelay.minute() * 60 + m_startDelay.second());
    Q_EMIT UpdateLights(CLightAction::AllOff);
    m_startTimer.start(OneSecond);
    if (m_remainingSeconds < RedLightSeconds)
        Q_EMIT UpdateLights(CLightAction::NextRed);
}

void CRaceStartTimer::vStartTimerEventOccured()
{
    --m_remainingSeconds;
    if (m_remainingSeconds == 0) {
        m_startTimer.stop();
        setGoGiven(true);
        Q_EMIT UpdateLights(CLightAction::AllOff);
        giveGo();
        return;
    }
    if (m_remainingSeconds < RedLightSeconds)
        Q_EMIT UpdateLights(CLightAction::NextRed);
    if (m_remainingSeconds == 1)
        m_startTimer.start(randomGreenDelay(m_startLightsMinDelay, m_startLightsMaxDelay));
}

void CRaceStartTimer::stop()
{
    m_startTimer.stop();
    setGoGiven(false);
}

QString CRaceStartTimer::description() const
{
    return tr("Start nach %1 Minuten").arg(m_startDelay.toString(QStringLiteral("mm:ss")));
}

std::unique_ptr<CRaceStart> createRaceStart(const CRaceSettings& settings)
{
    if (settings.startType() != CRaceSettings::TimedStart)
        return std::make_unique<CRaceStartNoCondition>();
    return std::make_unique<CRaceStartTimer>(settings.startDelay(), settings.startLightsMinDelay(),
                                             settings.startLightsMaxDelay());
}
