#ifndef TORNIK_DATA_TABLEACCESS_H
#define TORNIK_DATA_TABLEACCESS_H

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QSqlTableModel>
#include <QStringList>
#include <QVariantList>

/**
 * What the lists of the database share. Everything runs on the default connection, in the main
 * thread; a statement that fails gives no rows.
 */
namespace TableAccess {

/** Qt fetches 256 rows at a time; a box or a row number beyond them needs them all. */
void fetchAllRows(QSqlQueryModel& model);

/** Re-selects the table, with all its rows. */
void selectAll(QSqlTableModel& model);

/**
 * Re-selects the table and reads a row of it.
 * @param read makes a record of the program of the row's columns
 * @return a default-built record for a row outside the table
 */
template <typename Read>
auto readRow(QSqlTableModel& model, int row, Read read)
{
    using Record = decltype(read(QSqlRecord()));
    selectAll(model);
    return row < 0 || row >= model.rowCount() ? Record() : read(model.record(row));
}

/** The same for all rows, in their order. */
template <typename Read>
auto readAllRows(QSqlTableModel& model, Read read)
{
    QList<decltype(read(QSqlRecord()))> records;
    selectAll(model);
    for (int row = 0; row < model.rowCount(); ++row)
        records << read(model.record(row));
    return records;
}

/**
 * Submits the pending changes; those that fail are forgotten and not tried again by the next.
 * @return whether all were stored
 */
bool submitAll(QSqlTableModel& model);

/** Runs the query, fetches all its rows and names the columns. */
void setQuery(QSqlQueryModel& model, const QString& statement, const QStringList& headers);

/** Names the columns, from the first on. */
void setHeaders(QSqlQueryModel& model, const QStringList& headers);

/** @return the number of rows that the statement yields. */
int countRows(const QString& statement);

/** @return the number of the first row whose first column has the id; 0 if none has. */
int rowOfId(const QString& statement, int id);

/** @return the number of the first row whose first column is exactly the text; -1 if none is. */
int rowOfText(const QString& statement, const QString& text);

/** Runs a statement with its "?" bound in order. @return whether it succeeded. */
bool execBound(const QString& statement, const QVariantList& values);

/** @return the text for a column: never NULL, which a null text would be bound as. */
QString columnText(const QString& text);

} // namespace TableAccess

/** A model that tells of a new query once, when all its rows are there: a long list is sorted once. */
class CWholeQueryModel : public QSqlQueryModel
{
public:
    using QSqlQueryModel::QSqlQueryModel;

    void setWholeQuery(const QString& statement);
};

/**
 * Adds many rows to a table in one transaction, which ends with the object. A row that fails is
 * passed over; where the file takes none of them, the table stays as it was.
 */
class CRowInserter
{
public:
    /** @param fields the columns that each row sets, apart from `id` */
    CRowInserter(const QString& table, const QSqlRecord& fields);
    ~CRowInserter();

    /** @param row the fields told at the start, in their order */
    void add(const QSqlRecord& row);

private:
    Q_DISABLE_COPY(CRowInserter)

    QSqlDatabase m_database;
    bool m_inTransaction;
    QSqlQuery m_query;
};

#endif
