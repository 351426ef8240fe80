#include "wizard/CRwWizardFuelFinishedSensorPage.h"

#include "io/PortIds.h"

CRwWizardFuelFinishedSensorPage::CRwWizardFuelFinishedSensorPage(CRacewayWizard* wizard, int track)
    : CTrackSensorPage(
          wizard, {RacewayWizardPath::Page::FuelFinishedSensor, track}, PortId::fuelFinishedSensor(track),
          {tr("<b>Endesensor Tankzone Spur %1</b>"),
           tr("Bitte aktivieren Sie jetzt den Sensor der das Ende der Tankzone für die Spur %1 darstellt und "
              "drücken Sie die Schaltfläche \"Ermitteln\" oder geben Sie den hexadezimalen Wert der den "
              "Zustand \"Tankzonen Endesensor Spur %1  aktiviert\" repräsentiert in das Eingabefeld ein."),
           tr("Zustand \"Ende Tankzone Spur %1 aktiviert\":"),
           tr("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 der das Ende der Tankzone für die "
              "Spur %1 detektiert."),
           tr("Pin für Ende Tankzone Spur %1:")})
{
}
