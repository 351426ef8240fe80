#ifndef TORNIK_DATA_CRACEWAYLIST_H
#define TORNIK_DATA_CRACEWAYLIST_H

#include "data/CRaceway.h"

#include <QAbstractItemModel>
#include <QObject>
#include <QSqlQueryModel>
#include <QSqlTableModel>

#include <memory>

class CDatabase;

/**
 * The raceways and their tracks in the database. Exactly one raceway is current; races run on it.
 *
 * Row numbers are rows of the list sorted by name. Each user of the tables makes an object of its
 * own; all work on the one connection, in the main thread. A statement that fails leaves the tables
 * as they were, without a message.
 */
class CRacewayList : public QObject
{
    Q_OBJECT

public:
    /** Adds the default raceway to an empty table and marks a raceway current if none is. */
    explicit CRacewayList(QObject* parent = nullptr);
    ~CRacewayList() override;

    int racewayCount() const;
    /** @return the id of a row; -1 for a row that there isn't. */
    int idOfRow(int row);
    /** @return the row of an id; 0 if there is none. */
    int rowOfId(int id) const;

    /** A row that there isn't changes nothing. */
    void setCurrentRow(int row);
    /** @return the row of the raceway that is marked current. */
    int currentRow() const;
    /** Marks the first row if none is marked. */
    void ensureCurrent();
    /** Adds the default raceway if there is none at all. */
    void ensureDefault();

    /** @return the raceway of a row with its tracks; one without tracks for a row that there isn't. */
    CRaceway racewayAt(int row);
    CRaceway currentRaceway();

    /**
     * Adds a new row, whatever the id of the raceway; the current mark stays where it is.
     * @return whether the file took the row
     */
    bool addRaceway(const CRaceway& raceway);
    /** Overwrites a row and its tracks; a row that there isn't is ignored. */
    void updateRaceway(int row, const CRaceway& raceway);
    /** Removes a row with its tracks; a raceway stays, and one is current. */
    void removeRaceway(int row);
    void removeAllRaceways();

    /** @return the short list with a fresh query: mark, name, tracks. Owned by this object. */
    QAbstractItemModel* overviewModel();
    /** @return the full list with a fresh query. Owned by this object. */
    QAbstractItemModel* detailModel();

private:
    void insertTracks(int racewayId, const QList<CRacewayTrack>& tracks, int first);
    void updateTracks(int racewayId, const QList<CRacewayTrack>& tracks);
    void readTracks(CRaceway& raceway) const;

    CDatabase* m_database;
    std::unique_ptr<QSqlQueryModel> m_overviewModel;
    std::unique_ptr<QSqlQueryModel> m_detailModel;
    std::unique_ptr<QSqlTableModel> m_tableModel;
};

#endif
