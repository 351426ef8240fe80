#include "io/CKelmoPortSimulator.h"

#include "io/CDriveThroughEvent.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QMetaMethod>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

struct RowDescription
{
    const char* suffix; ///< behind "slot" and the number in the object name
    const char* text;   ///< in front of the number
    const char* allName;
    const char* allText;
};

/** In the order of CKelmoPortSimulator::Kind. */
const RowDescription rowDescriptions[] = {
    {"", QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Slot &"), "all",
     QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Alle Slots")},
    {"Sector2Begin", QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Sektor2 Slot &"), "allSector2Begin",
     QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Alle Sektor 2")},
    {"Sector3Begin", QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Sektor3 Slot &"), "allSector3Begin",
     QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Alle Sektor 3")},
    {"EndSensor", QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Ende Slot &"), "allEndSensors",
     QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Alle Slots Ende")},
    {"Fuel", QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Tanken &"), "allRefuel",
     QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Alle auftanken")},
    {"FuelEnd", QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Tanken Ende &"), "allRefuelEnd",
     QT_TRANSLATE_NOOP("CKelmoPortSimulator", "Alle auftanken beenden")},
};

} // namespace

CKelmoPortSimulator::CKelmoPortSimulator(QWidget* parent) : QDialog(parent), m_sensors(PortId::Count)
{
    setWindowTitle(tr("Simulator Modus"));
    auto* layout = new QVBoxLayout(this);
    for (int kind = 0; kind < KindCount; ++kind)
        m_rows[std::size_t(kind)] = addRow(layout, Kind(kind));
    m_chaosButton = makeButton(QStringLiteral("chaosButton"), tr("Chaostaste"));
    layout->addWidget(m_chaosButton);
    m_clock.start();
}

CKelmoPortSimulator::~CKelmoPortSimulator()
{
    hide(); // releases a held button while there is still a slot for it
}

CKelmoPortSimulator::Row CKelmoPortSimulator::addRow(QVBoxLayout* layout, Kind kind)
{
    const RowDescription& description = rowDescriptions[kind];
    Row row;
    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    for (int track = 0; track < PortId::Tracks; ++track) {
        const QString number = QString::number(track + 1);
        row.buttons.push_back(makeButton(QStringLiteral("slot") + number + QLatin1String(description.suffix),
                                         tr(description.text) + number));
        buttons->addWidget(row.buttons.back());
    }
    row.all = makeButton(QLatin1String(description.allName), tr(description.allText));
    layout->addWidget(row.all);
    return row;
}

QPushButton* CKelmoPortSimulator::makeButton(const QString& name, const QString& text)
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    // One slot for each of 55 buttons, found by its name.
    const int slot = metaObject()->indexOfSlot(qPrintable(name + QStringLiteral("Pressed()")));
    connect(button, QMetaMethod::fromSignal(&QPushButton::pressed), this, metaObject()->method(slot));
    connect(button, &QPushButton::released, this, &CKelmoPortSimulator::slotReleased);
    return button;
}

void CKelmoPortSimulator::show()
{
    m_clock.start();
    QDialog::show();
}

void CKelmoPortSimulator::setRaceway(const CRaceway& raceway)
{
    m_raceway = raceway;
    const int tracks = std::min(int(raceway.tracks.size()), PortId::Tracks);
    const int setup = raceway.fuelSensorSetup;
    showRow(Slot, true, tracks);
    showRow(Sector2, raceway.numberOfSectors > 1, tracks);
    showRow(Sector3, raceway.numberOfSectors > 2, tracks);
    showRow(EndSensor, raceway.startAndEndSensorSeparate, tracks);
    showRow(Fuel, setup == 1 || setup == 3 || setup == 4, tracks);
    showRow(FuelEnd, setup == 2 || setup == 4, tracks);
    m_rows[Slot].all->setVisible(true);
    m_chaosButton->setVisible(raceway.chaosButtonAvailable && tracks > 1);
    layout()->activate();
    adjustSize();
}

void CKelmoPortSimulator::showRow(Kind kind, bool available, int tracks)
{
    const Row& row = m_rows[kind];
    for (int track = 0; track < PortId::Tracks; ++track)
        row.buttons[std::size_t(track)]->setVisible(available && track < tracks);
    row.all->setVisible(available && tracks > 1);
}

void CKelmoPortSimulator::press(int firstPortId, int count)
{
    m_sensors.fill(false);
    for (int id = firstPortId; id < firstPortId + count; ++id)
        m_sensors.setBit(id);
    postSensors();
}

void CKelmoPortSimulator::slotReleased()
{
    m_sensors.fill(false);
    postSensors();
}

void CKelmoPortSimulator::postSensors()
{
    if (m_receiver)
        QCoreApplication::postEvent(m_receiver, new CDriveThroughEvent(m_sensors, int(m_clock.elapsed())));
}
