#include "dialogs/CEndConditionGroup.h"

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

CEndConditionGroup::CEndConditionGroup(QWidget* parent)
    : QGroupBox(tr("Endebedingung"), parent), m_types(new QButtonGroup(this))
{
    createTypes();
    m_time = timeEdit("endTime", QStringLiteral("hh:mm:ss"), QTime(0, 0), QTime(23, 59, 59), this);
    m_timeUnit = label(tr("Stunden"), this);
    m_laps = numberBox("numberOfLaps", 1, 9999, this);
    m_lapsUnit = label(tr("Runden"), this);
    m_allTracks = button<QCheckBox>("allMaxRounds", tr("auf allen Spuren"), this);
    m_stopCounting = button<QCheckBox>("maxRoundsStopCounting",
                                       tr("bei erreichen der max. Runden Spurzähler anhalten"), this);
    m_countDown = button<QCheckBox>("lapsCountDown", tr("Runden abwärts zählen"), this);
    createLayout();
}

void CEndConditionGroup::createTypes()
{
    auto* none = button<QRadioButton>("endTypeNone", tr("Keine"), this);
    auto* timeLimit = button<QRadioButton>("endTypeTime", tr("Ende nach "), this);
    auto* lapLimit = button<QRadioButton>("endTypeLaps", tr("Ende nach "), this);
    m_types->addButton(none, CRaceSettings::NoEnd);
    m_types->addButton(timeLimit, CRaceSettings::TimeLimit);
    m_types->addButton(lapLimit, CRaceSettings::LapLimit);
    connect(timeLimit, &QRadioButton::toggled, this, &CEndConditionGroup::timeLimitToggled);
    connect(lapLimit, &QRadioButton::toggled, this, &CEndConditionGroup::lapLimitToggled);
}

void CEndConditionGroup::createLayout()
{
    auto* grid = new QGridLayout(this);
    for (int type = CRaceSettings::NoEnd; type <= CRaceSettings::LapLimit; ++type)
        grid->addWidget(m_types->button(type), type, 0);
    grid->addWidget(m_time, CRaceSettings::TimeLimit, 1);
    grid->addWidget(m_timeUnit, CRaceSettings::TimeLimit, 2);
    grid->addWidget(m_laps, CRaceSettings::LapLimit, 1);
    grid->addWidget(m_lapsUnit, CRaceSettings::LapLimit, 2);
    int row = CRaceSettings::LapLimit;
    for (QCheckBox* box : {m_allTracks, m_stopCounting, m_countDown})
        grid->addWidget(box, ++row, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(row + 1, 1);
}

void CEndConditionGroup::showRules(const CRaceSettings& rules)
{
    check(*m_types, rules.endType());
    m_time->setTime(rules.endTime());
    m_laps->setValue(rules.numberOfLaps());
    m_allTracks->setChecked(rules.allMaxRounds());
    m_stopCounting->setChecked(rules.maxRoundsStopCounting());
    m_countDown->setChecked(rules.lapsCountDown());
}

void CEndConditionGroup::storeRules(CRaceSettings& rules) const
{
    rules.setEndType(m_types->checkedId());
    rules.setEndTime(m_time->time());
    rules.setNumberOfLaps(m_laps->value());
    rules.setAllMaxRounds(m_allTracks->isChecked());
    rules.setMaxRoundsStopCounting(m_stopCounting->isChecked());
    rules.setLapsCountDown(m_countDown->isChecked());
}

bool CEndConditionGroup::isTimeLimit() const
{
    return m_types->checkedId() == CRaceSettings::TimeLimit;
}

bool CEndConditionGroup::isLapLimit() const
{
    return m_types->checkedId() == CRaceSettings::LapLimit;
}

void CEndConditionGroup::enableTimeLimit(bool on)
{
    m_time->setEnabled(on);
    m_timeUnit->setEnabled(on);
}

void CEndConditionGroup::enableLapLimit(bool on)
{
    for (QWidget* part : {static_cast<QWidget*>(m_laps), m_lapsUnit, static_cast<QWidget*>(m_allTracks),
                          static_cast<QWidget*>(m_stopCounting), static_cast<QWidget*>(m_countDown)})
        part->setEnabled(on);
}
