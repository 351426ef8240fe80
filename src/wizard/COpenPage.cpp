#include "wizard/COpenPage.h"

#include "io/PortIds.h"

COpenPage::COpenPage(CRacewayWizard* wizard)
    : CSensorPage(wizard, {RacewayWizardPath::Page::Open}, PortId::Open,
                  {tr("<b>Zustand \"offen\" eingeben</b>"),
                   tr("Bitte versetzen Sie die Impulsfahrbahn und alle anderen Sensoren (z.B. Chaostaste "
                      "falls vorhanden) in den Zustand \"offen\" und drücken Sie die Schaltfläche "
                      "\"Ermitteln\"."),
                   tr("Zustand \"offen\":"),
                   {},
                   {}})
{
}
