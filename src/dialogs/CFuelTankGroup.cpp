#include "dialogs/CFuelTankGroup.h"

#include "dialogs/FormParts.h"
#include "race/CFuelSettings.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QTimeEdit>
#include <QVBoxLayout>

using namespace FormParts;

namespace {

constexpr int SpaceBetweenColumns = 24;

} // namespace

CFuelTankGroup::CFuelTankGroup(QWidget* parent) : QGroupBox(tr("Tankeinstellungen"), parent)
{
    createEdits();
    auto* grid = new QGridLayout;
    m_raceRows =
        createRows(grid, 0,
                   {{tr("Zeitintervall beim Tanken (im Format s:zzz): "), m_refuelInterval},
                    {tr("Füllmenge pro Zeitintervall beim Tanken:"), m_refuelAmount},
                    {tr("Rundenzeit für minimalen Verbrauch (im Format mm:ss:zzz):"), m_minUsageTime},
                    {tr("Rundenzeit für maximalen Verbrauch (im Format mm:ss:zzz):"), m_maxUsageTime}});
    m_tankRows = createRows(grid, 3,
                            {{tr("Minimaler Verbrauch pro Runde:"), m_minUsageAmount},
                             {tr("Maximaler Verbrauch pro Runde:"), m_maxUsageAmount},
                             {tr("Größe des Tanks:"), m_tankSize},
                             {tr("Warnschwelle Tankreserve:"), m_reserveLevel}});
    grid->setColumnMinimumWidth(2, SpaceBetweenColumns);
    grid->setColumnStretch(5, 1);

    auto* column = new QVBoxLayout(this);
    column->addWidget(label(tr("Solange ein Fahrzeug beim Tanken steht, kommt nach jedem Zeitintervall die "
                               "Füllmenge hinzu, bis der Tank voll ist."),
                            this));
    column->addWidget(label(tr("Der Verbrauch steigt zwischen den beiden Rundenzeiten linear vom minimalen "
                               "zum maximalen an; darüber und darunter bleibt er gleich."),
                            this));
    column->addLayout(grid);
}

void CFuelTankGroup::createEdits()
{
    m_refuelInterval =
        timeEdit("refuelInterval", QStringLiteral("s:zzz"), QTime(0, 0), QTime(0, 0, 9, 999), this);
    m_refuelAmount = amountBox("refuelAmount", this);
    m_minUsageTime = lapTimeEdit("minFuelUsageTime", this);
    m_maxUsageTime = lapTimeEdit("maxFuelUsageTime", this);
    m_minUsageAmount = amountBox("minFuelUsageAmount", this);
    m_maxUsageAmount = amountBox("maxFuelUsageAmount", this);
    m_tankSize = amountBox("tankSize", this);
    m_reserveLevel = amountBox("reserveLevel", this);
}

QList<QWidget*> CFuelTankGroup::createRows(QGridLayout* grid, int column,
                                           const QList<std::pair<QString, QWidget*>>& rows)
{
    QList<QWidget*> parts;
    int row = 0;
    for (const auto& [caption, edit] : rows) {
        QLabel* captionLabel = label(caption, this);
        grid->addWidget(captionLabel, row, column);
        grid->addWidget(edit, row, column + 1);
        parts.append({captionLabel, edit});
        ++row;
    }
    return parts;
}

void CFuelTankGroup::showFuel(const CFuelSettings& fuel)
{
    m_refuelInterval->setTime(fuel.refuelInterval());
    m_refuelAmount->setValue(fuel.refuelAmount());
    m_minUsageTime->setTime(fuel.minFuelUsageTime());
    m_maxUsageTime->setTime(fuel.maxFuelUsageTime());
    m_minUsageAmount->setValue(fuel.minFuelUsageAmount());
    m_maxUsageAmount->setValue(fuel.maxFuelUsageAmount());
    m_tankSize->setValue(fuel.tankSize());
    m_reserveLevel->setValue(fuel.reserveLevel());
}

void CFuelTankGroup::storeFuel(CFuelSettings& fuel) const
{
    fuel.setRefuelInterval(m_refuelInterval->time());
    fuel.setRefuelAmount(m_refuelAmount->value());
    fuel.setMinFuelUsageTime(m_minUsageTime->time());
    fuel.setMaxFuelUsageTime(m_maxUsageTime->time());
    fuel.setMinFuelUsageAmount(m_minUsageAmount->value());
    fuel.setMaxFuelUsageAmount(m_maxUsageAmount->value());
    fuel.setTankSize(m_tankSize->value());
    fuel.setReserveLevel(m_reserveLevel->value());
}

void CFuelTankGroup::enableRaceRows(bool on)
{
    for (QWidget* part : qAsConst(m_raceRows))
        part->setEnabled(on);
}

void CFuelTankGroup::enableTankRows(bool on)
{
    for (QWidget* part : qAsConst(m_tankRows))
        part->setEnabled(on);
}
