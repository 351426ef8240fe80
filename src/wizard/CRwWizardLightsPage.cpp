#include "wizard/CRwWizardLightsPage.h"

#include "io/PortIds.h"

CRwWizardLightsPage::CRwWizardLightsPage(CRacewayWizard* wizard)
    : COutputPage(wizard, {RacewayWizardPath::Page::Lights})
{
    setTitle(tr("<b>Portpins für \"Externe Startampel\" angeben</b>"));
    setExplanation(
        tr("<p>Bitte wählen Sie die jeweiligen Ausgänge um die Rotlichter und das Grünlicht anzusteuern. Die "
           "Rotlichter werden der Reihenfolge nach angesteuert, also Rotlicht 1 zuerst, dann Rotlicht 2 "
           "usw.</p><p>Bei weniger als 5 Rotlichtern an der externen Startampel müssen die vorderen "
           "Rotlichter auf \"---\" gestellt werden. Also z.B. falls die externe Startampel nur 4 Rotlichter "
           "besitzt, muß hier für Rotlicht 1 \"---\" gewählt werden.<br>Falls kein Grünlicht vorhanden ist, "
           "muß dieser ausgang ebenfalls auf \"---\" konfiguriert werden.</p>"));
    for (int lamp = 0; lamp < PortId::RedLamps; ++lamp)
        //: followed by the number of the lamp
        addOutput(PortId::redLamp(lamp), tr("Rotlicht") + ' ' + QString::number(lamp + 1));
    addOutput(PortId::GreenLamp, tr("Grünlicht:"));
}
