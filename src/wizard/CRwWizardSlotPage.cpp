#include "wizard/CRwWizardSlotPage.h"

#include "io/PortIds.h"
#include "wizard/CPortStatusWidgetBase.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>

#include <limits>

namespace {

constexpr int UnknownState = 255;
constexpr int LengthWidth = 70;

} // namespace

CRwWizardSlotPage::CRwWizardSlotPage(CRacewayWizard* wizard, int track)
    : CTrackSensorPage(
          wizard, {RacewayWizardPath::Page::Slot, track}, PortId::lapSensor(track),
          {tr("<b>Einstellungen Spur %1</b>"),
           tr("Bitte aktivieren Sie jetzt die Impulsfahrbahn für die Spur %1 und drücken Sie die "
              "Schaltfläche \"Ermitteln\" oder geben Sie den hexadezimalen Wert der den Zustand \"Spur %1 "
              "aktiviert\" repräsentiert in das Eingabefeld ein. Geben Sie bitte auch die Spurlänge in cm "
              "an (0 = keine Längenangabe)."),
           tr("Zustand \"Spur %1 aktiviert\":"),
           tr("Bitte wählen Sie den Eingang an Ihrem Light & Time AT2560 an dem der Sensor für Spur %1 "
              "angeschlossen ist. Geben Sie bitte auch die Spurlänge in cm an (0 = keine Längenangabe)."),
           tr("Pin für Spur %1:")}),
      m_lengthEdit(new QLineEdit("0", this))
{
    m_lengthEdit->setObjectName("lengthEdit");
    m_lengthEdit->setMaximumWidth(LengthWidth);
    m_lengthEdit->setValidator(new QIntValidator(0, std::numeric_limits<int>::max(), this));

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Spurlänge in cm:"), this));
    row->addWidget(m_lengthEdit);
    row->addStretch();
    rows()->addLayout(row);
}

int CRwWizardSlotPage::length() const
{
    return m_lengthEdit->text().toInt();
}

void CRwWizardSlotPage::setLength(int length)
{
    m_lengthEdit->setText(QString::number(length));
}

void CRwWizardSlotPage::clear()
{
    if (stateWidget())
        stateWidget()->setValue(UnknownState);
    setLength(0);
}

void CRwWizardSlotPage::stateWidgetMade()
{
    setTabOrder(stateWidget()->controls().last(), m_lengthEdit);
}
