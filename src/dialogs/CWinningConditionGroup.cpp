#include "dialogs/CWinningConditionGroup.h"

#include "dialogs/FormParts.h"
#include "race/CRaceSettings.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimeEdit>

using namespace FormParts;

namespace {

constexpr int FirstCondition = 1; ///< the value in the settings that the first button stands for

} // namespace

CWinningConditionGroup::CWinningConditionGroup(QWidget* parent)
    : QGroupBox(tr("Siegbedingung"), parent), m_conditions(new QButtonGroup(this))
{
    auto* grid = new QGridLayout(this);
    createConditions(grid);
    createConsistentTimesRow(grid);
    createTargetTimeRows(grid);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(grid->rowCount(), 1);

    for (const Condition condition : {LapAtTarget, AverageAtTarget, ConsistentTimes})
        connect(m_conditions->button(condition), &QAbstractButton::toggled, this,
                &CWinningConditionGroup::targetTimeNeedToggled);
    connect(m_useTargetTime, &QCheckBox::toggled, this, &CWinningConditionGroup::targetTimeNeedToggled);
    connect(m_conditions->button(ConsistentTimes), &QAbstractButton::toggled, this,
            &CWinningConditionGroup::consistentTimesToggled);
}

void CWinningConditionGroup::createConditions(QGridLayout* grid)
{
    const QString texts[] = {tr("die meisten gefahrenen Runden"),
                             tr("die schnellste Runde"),
                             tr("die beste Durchschnittszeit"),
                             tr("eine Rundenzeit möglichst nahe der Zielzeit"),
                             tr("die Durchschnittszeit möglichst nahe der Zielzeit"),
                             tr("die konsistentesten Rundenzeiten, ignoriere die schlechtesten ")};
    int condition = MostLaps;
    for (const QString& text : texts) {
        auto* radio = button<QRadioButton>("winningCondition", text, this);
        radio->setObjectName(QStringLiteral("winningCondition%1").arg(condition));
        m_conditions->addButton(radio, condition);
        grid->addWidget(radio, condition, 0, 1, condition == ConsistentTimes ? 1 : 3);
        ++condition;
    }
}

void CWinningConditionGroup::createConsistentTimesRow(QGridLayout* grid)
{
    m_lapsToIgnore = numberBox("numOfWorstLapsToIgnore", 0, 999, this);
    auto* unit = label(tr("Runden"), this);
    grid->addWidget(m_lapsToIgnore, ConsistentTimes, 1);
    grid->addWidget(unit, ConsistentTimes, 2);
    m_consistentTimesParts = {m_lapsToIgnore, unit};
}

void CWinningConditionGroup::createTargetTimeRows(QGridLayout* grid)
{
    m_useTargetTime = button<QCheckBox>("useTargetTime", tr("Zielzeit verwenden"), this);
    auto* caption = label(tr("verwendete Zielzeit (im Format mm:ss:zzz): "), this);
    m_targetTime = lapTimeEdit("winningTargetTime", this);
    auto* unit = label(tr("Minuten"), this);
    grid->addWidget(m_useTargetTime, ConsistentTimes + 1, 0, 1, 3);
    grid->addWidget(caption, ConsistentTimes + 2, 0);
    grid->addWidget(m_targetTime, ConsistentTimes + 2, 1);
    grid->addWidget(unit, ConsistentTimes + 2, 2);
    m_consistentTimesParts.append(m_useTargetTime);
    m_targetTimeParts = {caption, m_targetTime, unit};
}

void CWinningConditionGroup::showRules(const CRaceSettings& rules)
{
    check(*m_conditions, qMax(FirstCondition, rules.winningCondition()) - FirstCondition);
    m_lapsToIgnore->setValue(rules.numOfWorstLapsToIgnore());
    m_useTargetTime->setChecked(rules.useTargetTime());
    m_targetTime->setTime(rules.winningTargetTime());
}

void CWinningConditionGroup::storeRules(CRaceSettings& rules) const
{
    rules.setWinningCondition(m_conditions->checkedId() + FirstCondition);
    rules.setNumOfWorstLapsToIgnore(m_lapsToIgnore->value());
    rules.setUseTargetTime(m_useTargetTime->isChecked());
    rules.setWinningTargetTime(m_targetTime->time());
}

bool CWinningConditionGroup::needsTargetTime() const
{
    const int condition = m_conditions->checkedId();
    return condition == LapAtTarget || condition == AverageAtTarget ||
           (condition == ConsistentTimes && m_useTargetTime->isChecked());
}

bool CWinningConditionGroup::isConsistentTimes() const
{
    return m_conditions->checkedId() == ConsistentTimes;
}

void CWinningConditionGroup::enableTargetTime(bool on)
{
    for (QWidget* part : qAsConst(m_targetTimeParts))
        part->setEnabled(on);
}

void CWinningConditionGroup::enableConsistentTimes(bool on)
{
    for (QWidget* part : qAsConst(m_consistentTimesParts))
        part->setEnabled(on);
}
