#include "dialogs/CStartConditionGroup.h"

#include "dialogs/FormParts.h"
#include "race/CRaceSettings.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimeEdit>

using namespace FormParts;

namespace {

constexpr int ShortestLightDelay = 500; ///< milliseconds
constexpr int LongestLightDelay = 5000;

} // namespace

CStartConditionGroup::CStartConditionGroup(QWidget* parent)
    : QGroupBox(tr("Startbedingung"), parent), m_types(new QButtonGroup(this))
{
    auto* flying = button<QRadioButton>("startTypeNone", tr("Keine"), this);
    auto* timed = button<QRadioButton>("startTypeTimed", tr("Start in "), this);
    m_types->addButton(flying, CRaceSettings::FlyingStart);
    m_types->addButton(timed, CRaceSettings::TimedStart);
    m_delay = timeEdit("startDelay", QStringLiteral("mm:ss"), QTime(0, 0, 5), QTime(0, 10), this);
    auto* unit = label(tr("Minuten"), this);
    m_timedStartParts = {m_delay, unit};

    auto* grid = new QGridLayout(this);
    grid->addWidget(flying, 0, 0);
    grid->addWidget(timed, 1, 0);
    grid->addWidget(m_delay, 1, 1);
    grid->addWidget(unit, 1, 2);
    m_minLightDelay = createDelayRow(grid, 2, tr("Minimum"), "startLightsMinDelay");
    m_maxLightDelay = createDelayRow(grid, 3, tr("Maximum"), "startLightsMaxDelay");
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(4, 1);

    connect(timed, &QRadioButton::toggled, this, &CStartConditionGroup::timedStartToggled);
    connect(m_minLightDelay, qOverload<int>(&QSpinBox::valueChanged), this,
            &CStartConditionGroup::minDelayChanged);
    connect(m_maxLightDelay, qOverload<int>(&QSpinBox::valueChanged), this,
            &CStartConditionGroup::maxDelayChanged);
}

QSpinBox* CStartConditionGroup::createDelayRow(QGridLayout* grid, int row, const QString& caption,
                                               const char* name)
{
    auto* captionLabel = label(caption, this);
    auto* box = numberBox(name, ShortestLightDelay, LongestLightDelay, this);
    // The first digits of a number that is being typed must not be taken for a delay and held back.
    box->setKeyboardTracking(false);
    auto* unit = label(tr("ms warten bevor die Ampel von Rot auf Grün umschaltet"), this);
    grid->addWidget(captionLabel, row, 0);
    grid->addWidget(box, row, 1);
    grid->addWidget(unit, row, 2);
    m_timedStartParts.append({captionLabel, box, unit});
    return box;
}

void CStartConditionGroup::showRules(const CRaceSettings& rules)
{
    check(*m_types, rules.startType());
    m_delay->setTime(rules.startDelay());
    // So that neither of the new delays is held back by an old one.
    m_maxLightDelay->setValue(LongestLightDelay);
    m_minLightDelay->setValue(int(qMin<quint32>(rules.startLightsMinDelay(), LongestLightDelay)));
    m_maxLightDelay->setValue(int(qMin<quint32>(rules.startLightsMaxDelay(), LongestLightDelay)));
}

void CStartConditionGroup::storeRules(CRaceSettings& rules)
{
    m_minLightDelay->interpretText();
    m_maxLightDelay->interpretText();
    rules.setStartType(m_types->checkedId());
    rules.setStartDelay(m_delay->time());
    rules.setStartLightsMinDelay(quint32(m_minLightDelay->value()));
    rules.setStartLightsMaxDelay(quint32(m_maxLightDelay->value()));
}

bool CStartConditionGroup::isTimedStart() const
{
    return m_types->checkedId() == CRaceSettings::TimedStart;
}

void CStartConditionGroup::enableTimedStart(bool on)
{
    for (QWidget* part : qAsConst(m_timedStartParts))
        part->setEnabled(on);
}

void CStartConditionGroup::holdMinDelay(int delay)
{
    if (m_maxLightDelay->value() < delay)
        m_minLightDelay->setValue(m_maxLightDelay->value());
}

void CStartConditionGroup::holdMaxDelay(int delay)
{
    if (m_minLightDelay->value() > delay)
        m_maxLightDelay->setValue(m_minLightDelay->value());
}
