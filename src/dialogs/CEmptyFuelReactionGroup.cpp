#include "dialogs/CEmptyFuelReactionGroup.h"

#include "dialogs/CTickedSlider.h"
#include "dialogs/FormParts.h"
#include "race/CFuelSettings.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <QTimeEdit>

using namespace FormParts;

CEmptyFuelReactionGroup::CEmptyFuelReactionGroup(QWidget* parent)
    : QGroupBox(tr("Reaktion bei leerem Tank"), parent), m_reactions(new QButtonGroup(this))
{
    auto* grid = new QGridLayout(this);
    createReactions(grid);
    m_penaltyTime = lapTimeEdit("emptyFuelPenaltyTime", this);
    m_penaltyUnit = label(tr("Minuten"), this);
    createStutterFrequency();
    grid->addWidget(m_penaltyTime, Penalty, 1);
    grid->addWidget(m_penaltyUnit, Penalty, 2);
    grid->addWidget(m_frequency, Stutter, 1);
    grid->addWidget(m_frequencyText, Stutter, 2);
    grid->setColumnStretch(2, 1);
    connect(m_reactions->button(Penalty), &QAbstractButton::toggled, this,
            &CEmptyFuelReactionGroup::penaltyToggled);
    connect(m_reactions->button(Stutter), &QAbstractButton::toggled, this,
            &CEmptyFuelReactionGroup::stutterToggled);
}

void CEmptyFuelReactionGroup::createReactions(QGridLayout* grid)
{
    const QString texts[] = {tr("Runden nicht zählen"), tr("Spurabschaltung"), tr("Zeitstrafe pro Runde:"),
                             tr("Stottern mit Frequenz:")};
    int reaction = BlockLaps;
    for (const QString& text : texts) {
        auto* radio = button<QRadioButton>("emptyFuelReaction", text, this);
        radio->setObjectName(QStringLiteral("emptyFuelReaction%1").arg(reaction));
        m_reactions->addButton(radio, reaction);
        grid->addWidget(radio, reaction, 0);
        ++reaction;
    }
}

void CEmptyFuelReactionGroup::createStutterFrequency()
{
    m_frequency = new CTickedSlider(this);
    m_frequency->setObjectName(QStringLiteral("emptyFuelStutterFrequency"));
    m_frequency->setRange(1, 10);
    m_frequency->setPageStep(1);
    m_frequency->setTickInterval(1);
    m_frequencyText = label(QString(), this);
    m_frequencyText->setObjectName(QStringLiteral("emptyFuelStutterFrequencyText"));
    connect(m_frequency, &QSlider::valueChanged, this, &CEmptyFuelReactionGroup::stutterFrequencyChanged);
}

void CEmptyFuelReactionGroup::showFuel(const CFuelSettings& fuel)
{
    check(*m_reactions, fuel.emptyFuelReaction());
    m_penaltyTime->setTime(fuel.emptyFuelPenaltyTime());
    m_frequency->setValue(fuel.emptyFuelStutterFrequency());
    showStutterFrequency(m_frequency->value());
}

void CEmptyFuelReactionGroup::storeFuel(CFuelSettings& fuel) const
{
    fuel.setEmptyFuelReaction(m_reactions->checkedId());
    fuel.setEmptyFuelPenaltyTime(m_penaltyTime->time());
    fuel.setEmptyFuelStutterFrequency(m_frequency->value());
}

void CEmptyFuelReactionGroup::enableReactions(bool on, bool powerSwitchable)
{
    m_reactions->button(BlockLaps)->setEnabled(on);
    m_reactions->button(PowerOff)->setEnabled(on && powerSwitchable);
    m_reactions->button(Penalty)->setEnabled(on);
    m_reactions->button(Stutter)->setEnabled(on && powerSwitchable);
    fixTabFocus(*m_reactions);
    enablePenalty(on && m_reactions->checkedId() == Penalty);
    enableStutter(on && powerSwitchable && m_reactions->checkedId() == Stutter);
}

void CEmptyFuelReactionGroup::enablePenalty(bool on)
{
    m_penaltyTime->setEnabled(on);
    m_penaltyUnit->setEnabled(on);
}

void CEmptyFuelReactionGroup::enableStutter(bool on)
{
    m_frequency->setEnabled(on);
    m_frequencyText->setEnabled(on);
}

void CEmptyFuelReactionGroup::showStutterFrequency(int frequency)
{
    m_frequencyText->setText(tr("%1Hz").arg(frequency));
}
