#ifndef TORNIK_DATA_CDRIVERLIST_H
#define TORNIK_DATA_CDRIVERLIST_H

#include "data/CDriver.h"

#include <QAbstractItemModel>
#include <QList>
#include <QObject>
#include <QSqlQueryModel>
#include <QSqlTableModel>

#include <memory>

class CDatabase;

/**
 * The drivers in the database.
 *
 * Row numbers are rows of the list sorted by name. Each user of the table makes an object of its
 * own; all work on the one connection, in the main thread. A statement that fails leaves the table
 * as it was, without a message.
 */
class CDriverList : public QObject
{
    Q_OBJECT

public:
    /** Adds the driver "Default" to an empty table. */
    explicit CDriverList(QObject* parent = nullptr);
    ~CDriverList() override;

    /** Adds a new row, whatever the id of the driver. @return whether the file took it */
    bool addDriver(const CDriver& driver);
    /** @return the driver of a row; a default one, with id -1, for a row that there isn't. */
    CDriver driverAt(int row) const;
    /** @return the drivers of all rows, in order. */
    QList<CDriver> allDrivers() const;
    /** Renames the driver of a row; a row that there isn't is ignored. */
    void updateDriver(int row, const CDriver& driver);
    int count() const;
    /** Adds the driver "Default" to an empty table. */
    void ensureOneDriver();
    /** Removes a row; unlike the list of cars this one may become empty. */
    void removeDriver(int row);
    /** Leaves one driver, "Default". */
    void removeAll();

    /** The list of names for the boxes; both getters share one model, owned by this object. */
    QAbstractItemModel* nameModel();
    /** The same list for the editor. */
    QAbstractItemModel* editorNameModel();

    /** @return the row of the driver's id; 0 if there is none. */
    int rowOfDriver(const CDriver& driver) const;
    /** @return the first row of exactly that name; -1 if there is none. */
    int rowOfName(const QString& name) const;

    /**
     * Adds a row for each line of a CSV file behind its first: the name is what stands before the
     * first ";". A line without a name is dropped, a file that can't be read changes nothing.
     */
    void importCsv(const QString& fileName);
    /** Writes all names; a file that can't be written is passed over. */
    void exportCsv(const QString& fileName);

private:
    CDatabase* m_database;
    std::unique_ptr<QSqlQueryModel> m_queryModel;
    std::unique_ptr<QSqlTableModel> m_tableModel;
};

#endif
