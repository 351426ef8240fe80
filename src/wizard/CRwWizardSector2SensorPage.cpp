#include "wizard/CRwWizardSector2SensorPage.h"

#include "io/PortIds.h"

CRwWizardSector2SensorPage::CRwWizardSector2SensorPage(CRacewayWizard* wizard, int track)
    : CTrackSensorPage(
          wizard, {RacewayWizardPath::Page::Sector2Sensor, track}, PortId::sector2Sensor(track),
          {tr("<b>Sektor zwei Beginnsensor Spur %1</b>"),
           tr("Bitte aktivieren Sie jetzt den Sektorsensor der den Beginn des zweiten Sektors für die Spur "
              "%1 erkennen soll und drücken Sie die Schaltfläche \"Ermitteln\"."),
           tr("Zustand \"Sektor 2 Beginnsensor Spur %1 aktiviert\":"),
           tr("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 für den Sektorsensor der den "
              "Beginn des zweiten Sektors für die Spur %1 detektiert."),
           tr("Pin für Sektor 2 Beginnsensor Spur %1:")})
{
}
