#include "wizard/CRwWizardSector3SensorPage.h"

#include "io/PortIds.h"

CRwWizardSector3SensorPage::CRwWizardSector3SensorPage(CRacewayWizard* wizard, int track)
    : CTrackSensorPage(
          wizard, {RacewayWizardPath::Page::Sector3Sensor, track}, PortId::sector3Sensor(track),
          {tr("<b>Sektor drei Beginnsensor Spur %1</b>"),
           tr("Bitte aktivieren Sie jetzt den Sektorsensor der den Beginn des dritten Sektors für die Spur "
              "%1 erkennen soll und drücken Sie die Schaltfläche \"Ermitteln\"."),
           tr("Zustand \"Sektor 3 Beginnsensor Spur %1 aktiviert\":"),
           tr("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 für den Sektorsensor der den "
              "Beginn des dritten Sektors für die Spur %1 detektiert."),
           tr("Pin für Sektor 3 Beginnsensor Spur %1:")})
{
}
