#include "wizard/CRwWizardEndSensorPage.h"

#include "io/PortIds.h"

CRwWizardEndSensorPage::CRwWizardEndSensorPage(CRacewayWizard* wizard, int track)
    : CTrackSensorPage(
          wizard, {RacewayWizardPath::Page::EndSensor, track}, PortId::endSensor(track),
          {tr("<b>Rundenende Sensor Spur %1</b>"),
           tr("Bitte aktivieren Sie jetzt den Sensor der das Rundenende für die Spur %1 erkennen soll und "
              "drücken Sie die Schaltfläche \"Ermitteln\"."),
           tr("Zustand \"Rundenende Spur %1 aktiviert\":"),
           tr("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 der das Rundenende für die Spur %1 "
              "erkennen soll."),
           tr("Pin für Rundenende Spur %1:")})
{
}
