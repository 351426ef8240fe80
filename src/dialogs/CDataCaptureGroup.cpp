#include "dialogs/CDataCaptureGroup.h"

#include "dialogs/FormParts.h"
#include "race/CRaceSettings.h"

#include <QCheckBox>
#include <QVBoxLayout>

CDataCaptureGroup::CDataCaptureGroup(QWidget* parent)
    : QGroupBox(tr("Fahrzeugbezogene Datenerfassung"), parent),
      m_distanceDriven(FormParts::button<QCheckBox>("monitorDistanceDriven",
                                                    tr("gefahrene Strecke je Fahrzeug erfassen"), this)),
      m_fastestLap(
          FormParts::button<QCheckBox>("monitorFastestLap", tr("schnellste Rundenzeit erfassen"), this))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_distanceDriven);
    column->addWidget(m_fastestLap);
}

void CDataCaptureGroup::showRules(const CRaceSettings& rules)
{
    m_distanceDriven->setChecked(rules.monitorDistanceDriven());
    m_fastestLap->setChecked(rules.monitorFastestLap());
}

void CDataCaptureGroup::storeRules(CRaceSettings& rules) const
{
    rules.setMonitorDistanceDriven(m_distanceDriven->isChecked());
    rules.setMonitorFastestLap(m_fastestLap->isChecked());
}
