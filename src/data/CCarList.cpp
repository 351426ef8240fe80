#include "data/CCarList.h"

#include "data/CDatabase.h"
#include "data/TableAccess.h"

#include <QSqlQuery>
#include <QSqlRecord>

using namespace TableAccess;

namespace {

QString freeFieldColumn(int index)
{
    return QStringLiteral("freeField%1").arg(index);
}

CFuelTank tankFrom(const QSqlRecord& record)
{
    const double reserveLevel = record.value(QStringLiteral("tankReserveLevel")).toDouble();
    const double tankSize = record.value(QStringLiteral("tankSize")).toDouble();
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(tankSize, reserveLevel);
    tank.setMaxUsage(record.value(QStringLiteral("maxConsumption")).toDouble(), CCarList::MaxUsageTime);
    tank.setMinUsage(record.value(QStringLiteral("minConsumption")).toDouble(), CCarList::MinUsageTime);
    return tank;
}

} // namespace

CCarList::CCarList(QObject* parent)
    : QObject(parent),
      m_database(CDatabase::instance()),
      m_queryModel(std::make_unique<QSqlQueryModel>()),
      m_tableModel(std::make_unique<QSqlTableModel>())
{
    m_tableModel->setTable(QStringLiteral("cars"));
    m_tableModel->setEditStrategy(QSqlTableModel::OnManualSubmit);
    m_tableModel->setSort(m_tableModel->fieldIndex(QStringLiteral("name")), Qt::AscendingOrder);
    ensureOneCar();
}

CCarList::~CCarList()
{
    m_queryModel.reset();
    m_tableModel.reset();
    m_database->release();
}

bool CCarList::addCar(const CCar& car)
{
    QSqlRecord record = m_tableModel->record();
    writeCar(car, record);
    const bool inserted = m_tableModel->insertRecord(-1, record);
    return submitAll(*m_tableModel) && inserted;
}

CCar CCarList::carAt(int row) const
{
    return readRow(*m_tableModel, row, carFrom);
}

QList<CCar> CCarList::allCars() const
{
    return readAllRows(*m_tableModel, carFrom);
}

void CCarList::updateCar(int row, const CCar& car)
{
    selectAll(*m_tableModel);
    QSqlRecord record = m_tableModel->record(row);
    writeCar(car, record);
    m_tableModel->setRecord(row, record);
    submitAll(*m_tableModel);
}

bool CCarList::updateDistanceDriven(const CCar& car)
{
    m_tableModel->setFilter(QStringLiteral("id=%1").arg(car.id()));
    m_tableModel->select();
    if (m_tableModel->rowCount() != 1)
        return false; // Required: the filter stays set.
    QSqlRecord record = m_tableModel->record(0);
    record.setValue(QStringLiteral("distanceDriven"), car.distanceDriven());
    m_tableModel->setRecord(0, record);
    submitAll(*m_tableModel);
    m_tableModel->setFilter(QString());
    return true;
}

int CCarList::count() const
{
    return countRows(QStringLiteral("SELECT * FROM cars"));
}

void CCarList::ensureOneCar()
{
    if (count() == 0)
        addCar(CCar());
}

void CCarList::removeCar(int row)
{
    selectAll(*m_tableModel);
    m_tableModel->removeRows(row, 1);
    submitAll(*m_tableModel);
    ensureOneCar();
}

void CCarList::removeAll()
{
    QSqlQuery().exec(QStringLiteral("DELETE FROM cars"));
    ensureOneCar();
}

QStringList CCarList::freeFieldHeaders()
{
    QStringList headers;
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        headers << tr("Freifeld %1").arg(i);
    return headers;
}

QAbstractItemModel* CCarList::showQuery(const QString& statement, const QStringList& headers)
{
    setQuery(*m_queryModel, statement, headers);
    return m_queryModel.get();
}

QAbstractItemModel* CCarList::nameModel()
{
    return showQuery(QStringLiteral("SELECT name FROM cars ORDER BY name ASC"), {tr("Name")});
}

QAbstractItemModel* CCarList::distanceModel()
{
    return showQuery(QStringLiteral("SELECT name, scale, distanceDriven FROM cars ORDER BY name ASC"),
                     {tr("Name"), tr("Maßstab (1/X)"), tr("gefahrene Strecke (cm)")});
}

QAbstractItemModel* CCarList::fullModel()
{
    const QStringList headers{tr("Name"),
                              tr("Hersteller Original"),
                              tr("Typ Original"),
                              tr("Startnummer"),
                              tr("Hersteller Model"),
                              tr("Klasse"),
                              tr("Maßstab (1/X)"),
                              tr("Chassis"),
                              tr("Kommentar"),
                              tr("Tankgröße"),
                              tr("Reserveanzeige"),
                              tr("Min. Verbrauch"),
                              tr("Max. Verbrauch"),
                              tr("gefahrene Strecke (cm)")};
    return showQuery(
        QStringLiteral("SELECT name, originalManufacturer, originalType, startNumber, modelManufacturer, "
                       "class, scale, chassis, comment, tankSize, tankReserveLevel, minConsumption, "
                       "maxConsumption, distanceDriven, freeField0, freeField1, freeField2, freeField3, "
                       "freeField4, freeField5, freeField6, freeField7, freeField8, freeField9 FROM cars "
                       "ORDER BY name ASC"),
        headers + freeFieldHeaders());
}

int CCarList::rowOfCar(const CCar& car) const
{
    return rowOfId(QStringLiteral("SELECT id FROM cars ORDER BY name ASC"), car.id());
}

// Required: unlike rowOfCar() this tells when there is none.
int CCarList::rowOfName(const QString& name) const
{
    return rowOfText(QStringLiteral("SELECT name FROM cars ORDER BY name ASC"), name);
}

CCar CCarList::carFrom(const QSqlRecord& record)
{
    CCar car;
    car.setId(record.value(QStringLiteral("id")).toInt());
    car.setName(record.value(QStringLiteral("name")).toString());
    car.setOriginalManufacturer(record.value(QStringLiteral("originalManufacturer")).toString());
    car.setOriginalType(record.value(QStringLiteral("originalType")).toString());
    car.setStartNumber(record.value(QStringLiteral("startNumber")).toString());
    car.setModelManufacturer(record.value(QStringLiteral("modelManufacturer")).toString());
    car.setSpeedClass(record.value(QStringLiteral("class")).toInt());
    car.setScale(record.value(QStringLiteral("scale")).toInt());
    car.setChassis(record.value(QStringLiteral("chassis")).toString());
    car.setComment(record.value(QStringLiteral("comment")).toString());
    car.setFuelTank(tankFrom(record));
    car.setDistanceDriven(record.value(QStringLiteral("distanceDriven")).toInt());
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        car.setFreeField(i, record.value(freeFieldColumn(i)).toString());
    return car;
}

void CCarList::writeCar(const CCar& car, QSqlRecord& record)
{
    record.setValue(QStringLiteral("name"), columnText(car.name()));
    record.setValue(QStringLiteral("originalManufacturer"), columnText(car.originalManufacturer()));
    record.setValue(QStringLiteral("originalType"), columnText(car.originalType()));
    record.setValue(QStringLiteral("startNumber"), columnText(car.startNumber()));
    record.setValue(QStringLiteral("modelManufacturer"), columnText(car.modelManufacturer()));
    record.setValue(QStringLiteral("class"), car.speedClass());
    record.setValue(QStringLiteral("scale"), car.scale());
    record.setValue(QStringLiteral("chassis"), columnText(car.chassis()));
    record.setValue(QStringLiteral("comment"), columnText(car.comment()));
    record.setValue(QStringLiteral("tankSize"), car.fuelTank().tankSize());
    record.setValue(QStringLiteral("tankReserveLevel"), car.fuelTank().reserveLevel());
    record.setValue(QStringLiteral("minConsumption"), car.fuelTank().minUsageAmount());
    record.setValue(QStringLiteral("maxConsumption"), car.fuelTank().maxUsageAmount());
    record.setValue(QStringLiteral("distanceDriven"), car.distanceDriven());
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        record.setValue(freeFieldColumn(i), columnText(car.freeField(i)));
}
