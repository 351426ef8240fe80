#include "wizard/CFinishPage.h"

CFinishPage::CFinishPage(CRacewayWizard* wizard)
    : CRacewayWizardPage(wizard, {RacewayWizardPath::Page::Finish})
{
    setTitle(tr("<b>Fertigstellen</b>"));
    setExplanation(tr("Sie haben nun alle erforderlichen Daten zum erstellen einer neuen Rennstrecke "
                      "eingegeben. Drücken Sie jetzt \"Fertigstellen\" um die Rennstrecke mit den von Ihnen "
                      "gemachten Einstellungen zu speichern."));
}
