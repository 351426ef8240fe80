#include "wizard/CPowerOffFeaturePage.h"

#include "io/PortIds.h"
#include "wizard/CRacewayWizard.h"

CPowerOffFeaturePage::CPowerOffFeaturePage(CRacewayWizard* wizard)
    : COutputPage(wizard, {RacewayWizardPath::Page::PowerOffFeature})
{
    setTitle(tr("<b>Portpin für \"Bahnstromabschaltung\" angeben</b>"));
    setExplanation(tr("Bitte wählen Sie für jede Spur den Anschluß über den die Bahnstromabschaltung "
                      "gesteuert wird."));
    for (int track = 0; track < PortId::Tracks; ++track)
        //: followed by the number of the track
        addOutput(PortId::trackPower(track),
                  tr("Bahnstromabschaltung für Spur") + ' ' + QString::number(track + 1));
}

void CPowerOffFeaturePage::setIoInterface(CRacewayIo** io)
{
    COutputPage::setIoInterface(io);
    showOutputs(wizard()->numberOfTracks()); // of a stored raceway, too, which isn't reset
}

void CPowerOffFeaturePage::clear()
{
    showOutputs(wizard()->numberOfTracks());
}
