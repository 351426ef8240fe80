#include "wizard/CRwWizardFuelSensorPage.h"

#include "io/PortIds.h"

CRwWizardFuelSensorPage::CRwWizardFuelSensorPage(CRacewayWizard* wizard, int track)
    : CTrackSensorPage(
          wizard, {RacewayWizardPath::Page::FuelSensor, track}, PortId::fuelSensor(track),
          {tr("<b>Tanksensor Spur %1</b>"),
           tr("Bitte aktivieren Sie jetzt den Tanksensor für die Spur %1 und drücken Sie die Schaltfläche "
              "\"Ermitteln\" oder geben Sie den hexadezimalen Wert der den Zustand \"Tanksensor Spur %1  "
              "aktiviert\" repräsentiert in das Eingabefeld ein."),
           tr("Zustand \"Tanksensor Spur %1 aktiviert\":"),
           tr("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 an dem der Tanksensor für Spur %1 "
              "angeschlossen ist."),
           tr("Pin für Tanksensor Spur %1:")})
{
}
