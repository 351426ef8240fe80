#include "wizard/CChaosButtonPage.h"

#include "io/PortIds.h"

CChaosButtonPage::CChaosButtonPage(CRacewayWizard* wizard)
    : CSensorPage(wizard, {RacewayWizardPath::Page::ChaosButton}, PortId::ChaosButton,
                  {tr("<b>Zustand \"Chaostaste gedrückt\" eingeben</b>"),
                   tr("Bitte halten Sie jetzt die Chaostaste gedrückt und drücken Sie die Schaltfläche "
                      "\"Ermitteln\"."),
                   tr("Zustand \"Chaostaste gedrückt\":"),
                   tr("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 an dem die Chaostaste "
                      "angeschlossen ist."),
                   tr("Pin für Chaostaste:")})
{
}
