#include "data/CDriverList.h"

#include "data/CCsvReader.h"
#include "data/CDatabase.h"
#include "data/TableAccess.h"
#include "results/CCsvWriter.h"

#include <QSqlQuery>
#include <QSqlRecord>

using namespace TableAccess;

namespace {

const QLatin1String Name("name");

CDriver driverFrom(const QSqlRecord& record)
{
    CDriver driver;
    driver.setId(record.value(QStringLiteral("id")).toInt());
    driver.setName(record.value(Name).toString());
    return driver;
}

} // namespace

CDriverList::CDriverList(QObject* parent)
    : QObject(parent),
      m_database(CDatabase::instance()),
      m_queryModel(std::make_unique<QSqlQueryModel>()),
      m_tableModel(std::make_unique<QSqlTableModel>())
{
    m_tableModel->setTable(QStringLiteral("driver"));
    m_tableModel->setEditStrategy(QSqlTableModel::OnManualSubmit);
    m_tableModel->setSort(m_tableModel->fieldIndex(Name), Qt::AscendingOrder);
    ensureOneDriver();
}

CDriverList::~CDriverList()
{
    m_queryModel.reset();
    m_tableModel.reset();
    m_database->release();
}

bool CDriverList::addDriver(const CDriver& driver)
{
    QSqlRecord record = m_tableModel->record();
    record.setValue(Name, columnText(driver.name()));
    const bool inserted = m_tableModel->insertRecord(-1, record);
    return submitAll(*m_tableModel) && inserted;
}

CDriver CDriverList::driverAt(int row) const
{
    return readRow(*m_tableModel, row, driverFrom);
}

QList<CDriver> CDriverList::allDrivers() const
{
    return readAllRows(*m_tableModel, driverFrom);
}

void CDriverList::updateDriver(int row, const CDriver& driver)
{
    selectAll(*m_tableModel);
    QSqlRecord record = m_tableModel->record(row);
    record.setValue(Name, columnText(driver.name()));
    m_tableModel->setRecord(row, record);
    submitAll(*m_tableModel);
}

int CDriverList::count() const
{
    return countRows(QStringLiteral("SELECT * FROM driver"));
}

void CDriverList::ensureOneDriver()
{
    if (count() == 0)
        addDriver(CDriver());
}

// Required: the last driver can be removed; the next list of drivers that is made adds one again.
void CDriverList::removeDriver(int row)
{
    selectAll(*m_tableModel);
    m_tableModel->removeRows(row, 1);
    submitAll(*m_tableModel);
}

void CDriverList::removeAll()
{
    QSqlQuery().exec(QStringLiteral("DELETE FROM driver"));
    ensureOneDriver();
}

QAbstractItemModel* CDriverList::nameModel()
{
    setQuery(*m_queryModel, QStringLiteral("SELECT name FROM driver ORDER BY name ASC"), {tr("Name")});
    return m_queryModel.get();
}

QAbstractItemModel* CDriverList::editorNameModel()
{
    return nameModel();
}

int CDriverList::rowOfDriver(const CDriver& driver) const
{
    return rowOfId(QStringLiteral("SELECT id FROM driver ORDER BY name ASC"), driver.id());
}

// Required: unlike rowOfDriver() this tells when there is none.
int CDriverList::rowOfName(const QString& name) const
{
    return rowOfText(QStringLiteral("SELECT name FROM driver ORDER BY name ASC"), name);
}

void CDriverList::importCsv(const QString& fileName)
{
    CCsvReader reader(fileName);
    if (!reader.open())
        return;
    reader.readRow(); // the header
    QSqlRecord record = m_tableModel->record();
    CRowInserter inserter(QStringLiteral("driver"), record);
    while (const auto parts = reader.readRow()) {
        if (parts->first().isEmpty())
            continue;
        record.setValue(Name, parts->first());
        inserter.add(record);
    }
}

void CDriverList::exportCsv(const QString& fileName)
{
    CCsvWriter writer;
    writer.setCell(0, 0, tr("Fahrer Name"));
    const int drivers = count();
    selectAll(*m_tableModel);
    for (int row = 0; row < drivers; ++row)
        writer.setCell(0, row + 1, m_tableModel->record(row).value(Name).toString());
    writer.writeToFile(fileName);
}
