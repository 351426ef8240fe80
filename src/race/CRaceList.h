#ifndef TORNIK_RACE_CRACELIST_H
#define TORNIK_RACE_CRACELIST_H

#include <QAbstractItemModel>
#include <QObject>
#include <QSqlQueryModel>
#include <QSqlRelationalTableModel>
#include <QSqlTableModel>

#include <memory>

class CDatabase;
class CRace;
class CRaceMember;
class QSqlQuery;

/**
 * Stores finished races in the database, and reads and deletes stored ones.
 *
 * A stored race is a tree: the race, a participant for each of its members, a row for each finished
 * lap. The tables don't tie the levels together; only this class does. Row numbers are rows of the
 * table `races` sorted by date. Owned by CRace; lies beside it because it reads one. Main thread
 * only. A statement that fails leaves the tables as they were, without a message.
 */
class CRaceList : public QObject
{
    Q_OBJECT

public:
    CRaceList();
    ~CRaceList() override;

    /**
     * Adds the race with all its members, those without laps too. Costs one commit per lap; a run
     * that is cut off leaves the part of the race that it has come to.
     */
    void saveRace(const CRace& race, const QString& name);
    int count() const;
    /**
     * Deletes the race, its participants and the laps of the first of them; a row that there isn't is
     * ignored.
     */
    void removeRace(int row);
    /** Deletes all races; participants and laps stay in the file. */
    void removeAll();

    /** The three models are owned by this object; each call fills its model anew. */
    QAbstractItemModel* raceModel();
    /** Names and the track number in place of ids. */
    QAbstractItemModel* participantModel(int raceId);
    QAbstractItemModel* lapModel(int participantId);

private:
    static void saveParticipant(QSqlQuery& query, const QString& raceId, const CRaceMember& member);
    static std::unique_ptr<QSqlTableModel> makeTableModel(const QString& table);

    CDatabase* m_database;
    std::unique_ptr<QSqlQueryModel> m_raceModel;
    std::unique_ptr<QSqlQueryModel> m_lapModel;
    std::unique_ptr<QSqlRelationalTableModel> m_participantModel;
    std::unique_ptr<QSqlTableModel> m_races;
    std::unique_ptr<QSqlTableModel> m_participants;
    std::unique_ptr<QSqlTableModel> m_laps;
};

#endif
