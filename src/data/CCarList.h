#ifndef TORNIK_DATA_CCARLIST_H
#define TORNIK_DATA_CCARLIST_H

#include "data/CCar.h"

#include <QAbstractItemModel>
#include <QList>
#include <QObject>
#include <QSqlQueryModel>
#include <QSqlTableModel>
#include <QStringList>

#include <memory>

class CDatabase;
class QSqlRecord;

/**
 * The cars in the database. The table never stays empty.
 *
 * Row numbers are rows of the list sorted by name. Each user of the table makes an object of its
 * own; all work on the one connection, in the main thread. A statement that fails leaves the table
 * as it was, without a message.
 */
class CCarList : public QObject
{
    Q_OBJECT

public:
    // Table and files keep the consumption without its lap times; a car from there has these.
    static constexpr quint32 MaxUsageTime = 1000;  ///< milliseconds
    static constexpr quint32 MinUsageTime = 10000; ///< milliseconds

    explicit CCarList(QObject* parent = nullptr);
    ~CCarList() override;

    /** Adds a new row, whatever the id of the car. @return whether the file took it */
    bool addCar(const CCar& car);
    /** @return the car of a row; a default one, with id -1, for a row that there isn't. */
    CCar carAt(int row) const;
    /** @return the cars of all rows, in order. */
    QList<CCar> allCars() const;
    /** Overwrites all of a row but its id; a row that there isn't is ignored. */
    void updateCar(int row, const CCar& car);
    /**
     * Stores the distance of the car with this id.
     * @return whether there is one; if not, this object shows no car from then on
     */
    bool updateDistanceDriven(const CCar& car);
    int count() const;
    /** Adds a blank car to an empty table. */
    void ensureOneCar();
    /** Removes a row; a blank car takes the place of the last one. */
    void removeCar(int row);
    /** Leaves one blank car. */
    void removeAll();

    /**
     * The three lists share one model, owned by this object: a later call replaces what an earlier
     * caller sees.
     */
    QAbstractItemModel* nameModel();
    QAbstractItemModel* distanceModel();
    QAbstractItemModel* fullModel();

    /** @return the row of the car's id; 0 if there is none. */
    int rowOfCar(const CCar& car) const;
    /** @return the first row of exactly that name; -1 if there is none. */
    int rowOfName(const QString& name) const;

    /**
     * Adds a row for each line of a CSV file with a name or a manufacturer; never changes a row.
     * Reads the present form of 24 columns and the older one of 10. A part that is missing counts
     * as empty. A file that can't be read changes nothing.
     */
    void importCsv(const QString& fileName);
    /** Writes all cars; a file that can't be written is passed over. */
    void exportCsv(const QString& fileName);

private:
    static CCar carFrom(const QSqlRecord& record);
    /** Sets every column but the id. */
    static void writeCar(const CCar& car, QSqlRecord& record);
    static QStringList freeFieldHeaders();
    QAbstractItemModel* showQuery(const QString& statement, const QStringList& headers);

    CDatabase* m_database;
    std::unique_ptr<QSqlQueryModel> m_queryModel;
    std::unique_ptr<QSqlTableModel> m_tableModel;
};

#endif
