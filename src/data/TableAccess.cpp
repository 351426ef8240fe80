#include "data/TableAccess.h"

#include <QVariant>

namespace {

const QLatin1String Id("id");

} // namespace

namespace TableAccess {

namespace {

/** @return a query of which each row is read once, from the first to the last. */
QSqlQuery forwardQuery(const QString& statement)
{
    QSqlQuery query;
    query.setForwardOnly(true);
    query.exec(statement);
    return query;
}

/** @return the number of the first row whose first column fits; -1 if none does. */
template <typename Fits>
int firstRow(const QString& statement, Fits fits)
{
    QSqlQuery query = forwardQuery(statement);
    for (int row = 0; query.next(); ++row) {
        if (fits(query.value(0)))
            return row;
    }
    return -1;
}

} // namespace

void fetchAllRows(QSqlQueryModel& model)
{
    while (model.canFetchMore())
        model.fetchMore();
}

void selectAll(QSqlTableModel& model)
{
    model.select();
    fetchAllRows(model);
}

bool submitAll(QSqlTableModel& model)
{
    const bool isStored = model.submitAll();
    if (!isStored)
        model.revertAll();
    return isStored;
}

void setQuery(QSqlQueryModel& model, const QString& statement, const QStringList& headers)
{
    model.setQuery(statement);
    fetchAllRows(model);
    setHeaders(model, headers);
}

void setHeaders(QSqlQueryModel& model, const QStringList& headers)
{
    for (int column = 0; column < headers.size(); ++column)
        model.setHeaderData(column, Qt::Horizontal, headers.at(column));
}

int countRows(const QString& statement)
{
    QSqlQuery query = forwardQuery(statement);
    int rows = 0;
    while (query.next())
        ++rows;
    return rows;
}

int rowOfId(const QString& statement, int id)
{
    return qMax(0, firstRow(statement, [id](const QVariant& value) { return value.toInt() == id; }));
}

int rowOfText(const QString& statement, const QString& text)
{
    return firstRow(statement, [&text](const QVariant& value) { return value.toString() == text; });
}

bool execBound(const QString& statement, const QVariantList& values)
{
    QSqlQuery query;
    query.prepare(statement);
    for (const QVariant& value : values)
        query.addBindValue(value);
    return query.exec();
}

QString columnText(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

} // namespace TableAccess

void CWholeQueryModel::setWholeQuery(const QString& statement)
{
    beginResetModel();
    setQuery(statement);
    TableAccess::fetchAllRows(*this);
    endResetModel();
}

CRowInserter::CRowInserter(const QString& table, const QSqlRecord& fields)
    : m_database(QSqlDatabase::database()), m_inTransaction(m_database.transaction()), m_query(m_database)
{
    QStringList columns;
    QStringList places;
    for (int i = 0; i < fields.count(); ++i) {
        if (fields.fieldName(i) != Id) {
            columns << fields.fieldName(i);
            places << QStringLiteral("?");
        }
    }
    m_query.prepare(
        QStringLiteral("INSERT INTO %1(%2) VALUES(%3)").arg(table, columns.join(","), places.join(",")));
}

CRowInserter::~CRowInserter()
{
    m_query.finish();
    // A transaction that stays open would take all that is stored later with it at the end.
    if (m_inTransaction && !m_database.commit())
        m_database.rollback();
}

void CRowInserter::add(const QSqlRecord& row)
{
    for (int i = 0; i < row.count(); ++i) {
        if (row.fieldName(i) != Id)
            m_query.addBindValue(row.value(i));
    }
    m_query.exec();
}
