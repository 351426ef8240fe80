// How the list of cars is written to and read from a CSV file.

#include "data/CCarList.h"
#include "data/CCsvReader.h"
#include "data/TableAccess.h"
#include "results/CCsvWriter.h"

#include <QSqlRecord>

namespace {

/** The header of the form of ten columns, which is never translated. */
QStringList oldHeader()
{
    return {QStringLiteral("Fahrzeug Name"),   QStringLiteral("Fahrzeug Typ"),
            QStringLiteral("Klassifizierung"), QStringLiteral("Massstab 1/X"),
            QStringLiteral("Chassis"),         QStringLiteral("Kommentar"),
            QStringLiteral("Tankgroesse"),     QStringLiteral("Reservelevel"),
            QStringLiteral("Max. Verbrauch"),  QStringLiteral("Min. Verbrauch")};
}

/** Takes the parts of a line from the front; a missing one is empty. */
class Parts
{
public:
    explicit Parts(const QStringList& parts) : m_parts(parts) {}

    QString text() { return m_parts.value(m_next++); }
    int number() { return text().toInt(); }
    double amount() { return text().toDouble(); }

private:
    QStringList m_parts;
    int m_next = 0;
};

CFuelTank readTank(Parts& parts, CFuelTank tank)
{
    const double tankSize = parts.amount();
    const double reserveLevel = parts.amount();
    tank.setTankSizeAndReserveLevel(tankSize, reserveLevel);
    tank.setMaxUsage(parts.amount(), CCarList::MaxUsageTime);
    tank.setMinUsage(parts.amount(), CCarList::MinUsageTime);
    return tank;
}

void readCar(Parts parts, bool oldFormat, CCar& car)
{
    car.setName(parts.text());
    // Required: the type of the old form lands here too.
    car.setOriginalManufacturer(parts.text());
    if (!oldFormat) {
        car.setOriginalType(parts.text());
        car.setStartNumber(parts.text());
        car.setModelManufacturer(parts.text());
    }
    car.setSpeedClass(parts.number());
    car.setScale(parts.number());
    car.setChassis(parts.text());
    car.setComment(parts.text());
    car.setFuelTank(readTank(parts, car.fuelTank()));
    if (!oldFormat) {
        car.setDistanceDriven(parts.number());
        for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
            car.setFreeField(i, parts.text());
    }
}

/** Sets the cells of one row, from the left to the right. */
class RowWriter
{
public:
    RowWriter(CCsvWriter& writer, int row) : m_writer(writer), m_row(row) {}

    template <typename Value>
    RowWriter& operator<<(const Value& value)
    {
        m_writer.setCell(m_column++, m_row, value);
        return *this;
    }

private:
    CCsvWriter& m_writer;
    int m_row;
    int m_column = 0;
};

void writeRow(CCsvWriter& writer, int row, const CCar& car)
{
    RowWriter cells(writer, row);
    cells << car.name() << car.originalManufacturer() << car.originalType() << car.startNumber();
    cells << car.modelManufacturer() << car.speedClass() << car.scale() << car.chassis() << car.comment();
    const CFuelTank& tank = car.fuelTank();
    // Required: the maximum stands first, unlike in the table.
    cells << tank.tankSize() << tank.reserveLevel() << tank.maxUsageAmount() << tank.minUsageAmount();
    cells << car.distanceDriven();
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        cells << car.freeField(i);
}

} // namespace

void CCarList::importCsv(const QString& fileName)
{
    CCsvReader reader(fileName);
    if (!reader.open())
        return;
    const bool oldFormat = reader.readRow().value_or(QStringList()) == oldHeader();
    QSqlRecord record = m_tableModel->record();
    CRowInserter inserter(QStringLiteral("cars"), record);
    CCar car;
    while (const auto parts = reader.readRow()) {
        readCar(Parts(*parts), oldFormat, car);
        if (car.name().isEmpty() && car.originalManufacturer().isEmpty())
            continue;
        writeCar(car, record);
        inserter.add(record);
    }
}

void CCarList::exportCsv(const QString& fileName)
{
    CCsvWriter writer;
    RowWriter header(writer, 0);
    header << tr("Fahrzeug Name") << tr("Hersteller Original") << tr("Typ Original") << tr("Startnummer");
    header << tr("Hersteller Model") << tr("Klassifizierung") << tr("Massstab 1/X") << tr("Chassis");
    header << tr("Kommentar") << tr("Tankgroesse") << tr("Reservelevel") << tr("Max. Verbrauch");
    header << tr("Min. Verbrauch") << tr("gefahrene Strecke (cm)");
    for (const QString& freeField : freeFieldHeaders())
        header << freeField;

    const int cars = count();
    TableAccess::selectAll(*m_tableModel);
    for (int row = 0; row < cars; ++row)
        writeRow(writer, row + 1, carFrom(m_tableModel->record(row)));
    writer.writeToFile(fileName);
}
