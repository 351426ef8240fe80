#ifndef TORNIK_DATA_CFASTESTLAPLIST_H
#define TORNIK_DATA_CFASTESTLAPLIST_H

#include "data/CFastestLap.h"

#include <QAbstractItemModel>
#include <QObject>
#include <QSqlTableModel>
#include <QStringList>

class CDatabase;
class CWholeQueryModel;

/**
 * The all-time best lap of every combination of raceway, track, car and driver.
 *
 * The table doesn't keep the combinations apart by itself: whoever adds a record asks findRecord()
 * first. Row numbers are rows of the table sorted by id. Each user of the table makes an object of
 * its own; all work on the one connection, in the main thread. A statement that fails leaves the
 * table as it was, without a message.
 */
class CFastestLapList : public QObject
{
    Q_OBJECT

public:
    /** A criterion of filterModel() and exportCsv() that isn't used. */
    static constexpr int Any = -1;

    explicit CFastestLapList(QObject* parent = nullptr);
    // Required: no destructor of its own. The reference to the database is never given back, so that
    // the connection stays open to the end of the process.

    /** @return the fastest record of the four; the default one, with id -1, if there is none. */
    CFastestLap findRecord(int racewayId, int trackId, int carId, int driverId) const;
    CFastestLap bestOfCar(int carId, int racewayId) const;
    CFastestLap bestOfDriver(int driverId, int racewayId) const;
    CFastestLap bestOnRaceway(int racewayId) const;

    /** Adds a new row, whatever the id of the record. */
    void addRecord(const CFastestLap& record);
    /** @return the record of a row; the default one for a row that there isn't. */
    CFastestLap recordAt(int row);
    /** Overwrites all of a row; a row that there isn't is ignored. */
    void updateRecord(int row, const CFastestLap& record);
    /**
     * Stores the time of the row that has the id and the four keys of the record.
     * @return whether there is one; if not, this object shows no row from then on
     */
    bool updateTime(const CFastestLap& record);
    /** @return whether the change was stored; a row that there isn't is no failure. */
    bool removeRecord(int row);
    /** Forgets all records. */
    void removeAll();
    int count() const;
    /** @return the row of the record's id; 0 if there is none. */
    int rowOfRecord(const CFastestLap& record) const;

    /**
     * The three lists share one model, owned by this object: a later call replaces what an earlier
     * caller sees. The fastest lap stands first.
     */
    QAbstractItemModel* racewayModel(int racewayId);
    QAbstractItemModel* allModel();
    /** Names in place of ids; a name is empty if its row is gone. Each criterion may be Any. */
    QAbstractItemModel* filterModel(int racewayId, int trackId, int carId, int driverId);

    /**
     * Writes what filterModel() shows; a file that can't be written is passed over.
     * @param racewayName stands in every line as it is
     * @param timeFormat as QTime::toString() has it
     */
    void exportCsv(const QString& fileName, const QString& racewayName, const QString& timeFormat,
                   int racewayId, int trackId, int carId, int driverId);

private:
    static CFastestLap firstRecord(const QString& statement);
    QAbstractItemModel* showRecords(const QString& statement);
    QAbstractItemModel* showQuery(const QString& statement, const QStringList& headers);

    CDatabase* m_database;
    CWholeQueryModel* m_queryModel;
    QSqlTableModel* m_tableModel;
};

#endif
