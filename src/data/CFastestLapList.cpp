#include "data/CFastestLapList.h"

#include "data/CDatabase.h"
#include "data/TableAccess.h"
#include "results/CCsvWriter.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QTime>

using namespace TableAccess;

namespace {

const QLatin1String Records("SELECT id, carId, driverId, racewayId, trackId, time FROM fastestLapTimes ");

CFastestLap recordFrom(const QSqlRecord& columns)
{
    CFastestLap record;
    record.setId(columns.value(QStringLiteral("id")).toInt());
    record.setCarId(columns.value(QStringLiteral("carId")).toInt());
    record.setDriverId(columns.value(QStringLiteral("driverId")).toInt());
    record.setRacewayId(columns.value(QStringLiteral("racewayId")).toInt());
    record.setTrackId(columns.value(QStringLiteral("trackId")).toInt());
    record.setTime(columns.value(QStringLiteral("time")).toUInt());
    return record;
}

/** Sets every column but the id. */
void writeRecord(const CFastestLap& record, QSqlRecord& columns)
{
    columns.setValue(QStringLiteral("carId"), record.carId());
    columns.setValue(QStringLiteral("driverId"), record.driverId());
    columns.setValue(QStringLiteral("racewayId"), record.racewayId());
    columns.setValue(QStringLiteral("trackId"), record.trackId());
    columns.setValue(QStringLiteral("time"), record.time());
}

/** @return the conditions that are used, joined, with "WHERE " before them; empty if none is. */
QString filterCondition(int racewayId, int trackId, int carId, int driverId)
{
    QStringList conditions;
    const auto use = [&conditions](const QString& condition, int id) {
        if (id != CFastestLapList::Any)
            conditions << condition.arg(id);
    };
    use(QStringLiteral("f.racewayId=%1 "), racewayId);
    use(QStringLiteral("f.trackId=%1 "), trackId);
    use(QStringLiteral("f.carId=%1 "), carId);
    use(QStringLiteral("f.driverId=%1 "), driverId);
    return conditions.isEmpty() ? QString() : QStringLiteral("WHERE ") + conditions.join("AND ");
}

/** @return the duration in the format; a day or more wraps, as a clock does. */
QString formattedTime(const QVariant& milliseconds, const QString& format)
{
    constexpr quint32 millisecondsPerDay = 24 * 60 * 60 * 1000;
    return QTime::fromMSecsSinceStartOfDay(int(milliseconds.toUInt() % millisecondsPerDay)).toString(format);
}

} // namespace

CFastestLapList::CFastestLapList(QObject* parent)
    : QObject(parent),
      m_database(CDatabase::instance()),
      m_queryModel(new CWholeQueryModel(this)),
      m_tableModel(new QSqlTableModel(this))
{
    m_tableModel->setTable(QStringLiteral("fastestLapTimes"));
    m_tableModel->setEditStrategy(QSqlTableModel::OnManualSubmit);
    m_tableModel->setSort(m_tableModel->fieldIndex(QStringLiteral("id")), Qt::AscendingOrder);
}

CFastestLap CFastestLapList::firstRecord(const QString& statement)
{
    QSqlQuery query;
    query.setForwardOnly(true);
    return query.exec(statement) && query.next() ? recordFrom(query.record()) : CFastestLap();
}

CFastestLap CFastestLapList::findRecord(int racewayId, int trackId, int carId, int driverId) const
{
    const QString tail =
        QStringLiteral("WHERE racewayId=%1 AND trackId=%2 AND carId=%3 AND driverId=%4 ORDER BY time ASC");
    return firstRecord(Records + tail.arg(racewayId).arg(trackId).arg(carId).arg(driverId));
}

CFastestLap CFastestLapList::bestOfCar(int carId, int racewayId) const
{
    const QString tail = QStringLiteral("WHERE carId=%1 AND racewayId=%2 ORDER BY time ASC");
    return firstRecord(Records + tail.arg(carId).arg(racewayId));
}

CFastestLap CFastestLapList::bestOfDriver(int driverId, int racewayId) const
{
    const QString tail = QStringLiteral("WHERE driverId=%1 AND racewayId=%2 ORDER BY time ASC");
    return firstRecord(Records + tail.arg(driverId).arg(racewayId));
}

CFastestLap CFastestLapList::bestOnRaceway(int racewayId) const
{
    return firstRecord(Records + QStringLiteral("WHERE racewayId=%1 ORDER BY time ASC").arg(racewayId));
}

void CFastestLapList::addRecord(const CFastestLap& record)
{
    QSqlRecord columns = m_tableModel->record();
    writeRecord(record, columns);
    m_tableModel->insertRecord(-1, columns);
    submitAll(*m_tableModel);
}

CFastestLap CFastestLapList::recordAt(int row)
{
    return readRow(*m_tableModel, row, recordFrom);
}

void CFastestLapList::updateRecord(int row, const CFastestLap& record)
{
    selectAll(*m_tableModel);
    QSqlRecord columns = m_tableModel->record(row);
    columns.setValue(QStringLiteral("id"), record.id());
    writeRecord(record, columns);
    m_tableModel->setRecord(row, columns);
    submitAll(*m_tableModel);
}

bool CFastestLapList::updateTime(const CFastestLap& record)
{
    const QString filter =
        QStringLiteral("id=%1 AND carId=%2 AND driverId=%3 AND racewayId=%4 AND trackId=%5");
    m_tableModel->setFilter(filter.arg(record.id())
                                .arg(record.carId())
                                .arg(record.driverId())
                                .arg(record.racewayId())
                                .arg(record.trackId()));
    m_tableModel->select();
    if (m_tableModel->rowCount() != 1)
        return false; // Required: the filter stays set.
    QSqlRecord columns = m_tableModel->record(0);
    columns.setValue(QStringLiteral("time"), record.time());
    m_tableModel->setRecord(0, columns);
    submitAll(*m_tableModel);
    m_tableModel->setFilter(QString());
    return true;
}

bool CFastestLapList::removeRecord(int row)
{
    selectAll(*m_tableModel);
    m_tableModel->removeRows(row, 1);
    return submitAll(*m_tableModel);
}

void CFastestLapList::removeAll()
{
    QSqlQuery().exec(QStringLiteral("DELETE FROM fastestLapTimes"));
}

int CFastestLapList::count() const
{
    return countRows(QStringLiteral("SELECT * FROM fastestLapTimes"));
}

int CFastestLapList::rowOfRecord(const CFastestLap& record) const
{
    return rowOfId(QStringLiteral("SELECT id FROM fastestLapTimes ORDER BY id ASC"), record.id());
}

QAbstractItemModel* CFastestLapList::showQuery(const QString& statement, const QStringList& headers)
{
    m_queryModel->setWholeQuery(statement);
    setHeaders(*m_queryModel, headers);
    return m_queryModel;
}

QAbstractItemModel* CFastestLapList::showRecords(const QString& statement)
{
    return showQuery(statement,
                     {tr("id"), tr("carId"), tr("driverId"), tr("racewayId"), tr("trackId"), tr("time")});
}

QAbstractItemModel* CFastestLapList::racewayModel(int racewayId)
{
    return showRecords(Records + QStringLiteral("WHERE racewayId=%1 ORDER BY time ASC").arg(racewayId));
}

QAbstractItemModel* CFastestLapList::allModel()
{
    return showRecords(Records + QStringLiteral("ORDER BY time ASC"));
}

QAbstractItemModel* CFastestLapList::filterModel(int racewayId, int trackId, int carId, int driverId)
{
    const QString statement =
        QStringLiteral("SELECT d.name, c.name, t.noOfTrack, f.time FROM fastestLapTimes f "
                       "LEFT OUTER JOIN cars c ON c.id=f.carId "
                       "LEFT OUTER JOIN driver d ON d.id=f.driverId "
                       "LEFT OUTER JOIN tracks t ON t.id=f.trackId ") +
        filterCondition(racewayId, trackId, carId, driverId) + QStringLiteral("ORDER BY f.time ASC");
    return showQuery(statement, {tr("Fahrer"), tr("Fahrzeug"), tr("Spur"), tr("Zeit")});
}

void CFastestLapList::exportCsv(const QString& fileName, const QString& racewayName,
                                const QString& timeFormat, int racewayId, int trackId, int carId,
                                int driverId)
{
    constexpr int timeColumn = 3;
    const QAbstractItemModel* laps = filterModel(racewayId, trackId, carId, driverId);
    const int rows = laps->rowCount();
    CCsvWriter writer;
    const QStringList headers{tr("Rennstrecke"), tr("Fahrer"), tr("Fahrzeug"), tr("Spur"), tr("Bestzeit")};
    for (int column = 0; column < headers.size(); ++column)
        writer.setCell(column, 0, headers.at(column));
    for (int row = 0; row < rows; ++row) {
        writer.setCell(0, row + 1, racewayName);
        for (int column = 0; column < timeColumn; ++column)
            writer.setCell(column + 1, row + 1, laps->index(row, column).data().toString());
        const QVariant time = laps->index(row, timeColumn).data();
        writer.setCell(timeColumn + 1, row + 1, formattedTime(time, timeFormat));
    }
    writer.writeToFile(fileName);
}
