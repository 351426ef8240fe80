#include "wizard/CChaosPhaseOutputPage.h"

#include "io/PortIds.h"

CChaosPhaseOutputPage::CChaosPhaseOutputPage(CRacewayWizard* wizard)
    : COutputPage(wizard, {RacewayWizardPath::Page::ChaosPhaseOutput})
{
    setTitle(tr("<b>Portpin für \"Signal während Chaosphase\" angeben</b>"));
    setExplanation(
        tr("Bitte wählen Sie den Anschluß über den eine aktive Chaosphase signalisiert werden soll."));
    addOutput(PortId::ChaosSignal, tr("Signal während Chaosphase:"));
}
