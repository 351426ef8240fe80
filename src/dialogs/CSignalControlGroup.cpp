#include "dialogs/CSignalControlGroup.h"

#include "dialogs/FormParts.h"
#include "race/CRaceSettings.h"

#include <QCheckBox>
#include <QVBoxLayout>

CSignalControlGroup::CSignalControlGroup(QWidget* parent)
    : QGroupBox(tr("Signalsteuerung"), parent),
      m_redLights(FormParts::button<QCheckBox>("redLightsOnRaceStopped",
                                               tr("Ampel auf rot schalten bei Rennende"), this)),
      m_leavePowerOn(FormParts::button<QCheckBox>("leavePowerOnWhenRaceStopped",
                                                  tr("Bahnstrom angeschaltet lassen bei Rennende"), this))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_redLights);
    column->addWidget(m_leavePowerOn);
    column->addStretch();
}

void CSignalControlGroup::showRules(const CRaceSettings& rules)
{
    m_redLights->setChecked(rules.redLightsOnRaceStopped());
    m_leavePowerOn->setChecked(rules.leavePowerOnWhenRaceStopped());
}

void CSignalControlGroup::storeRules(CRaceSettings& rules) const
{
    rules.setRedLightsOnRaceStopped(m_redLights->isChecked());
    rules.setLeavePowerOnWhenRaceStopped(m_leavePowerOn->isChecked());
}
