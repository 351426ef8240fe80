#include "race/CRaceList.h"

#include "data/CDatabase.h"
#include "data/TableAccess.h"
#include "race/CRace.h"

#include <QSqlQuery>
#include <QSqlRecord>

using namespace TableAccess;

namespace {

const QLatin1String Id("id");

/** The fields of a lap are signed; the columns hold the unsigned numbers of the same bits. */
QString unsignedText(qint32 milliseconds)
{
    return QString::number(quint32(milliseconds));
}

QString lapStatement(const QString& participantId, int lapNumber, const CLapTime& lap)
{
    const QStringList values{participantId,
                             QString::number(lapNumber),
                             unsignedText(lap.lapTime),
                             unsignedText(lap.sector1Time),
                             unsignedText(lap.sector2Time),
                             unsignedText(lap.sector3Time)};
    return QStringLiteral(
               "INSERT INTO laps(participantId, lapNumber, time, sector1Time, sector2Time, sector3Time) "
               "VALUES(") +
           values.join(',') + QStringLiteral(")");
}

} // namespace

CRaceList::CRaceList()
    : m_database(CDatabase::instance()),
      m_raceModel(std::make_unique<QSqlQueryModel>()),
      m_lapModel(std::make_unique<QSqlQueryModel>()),
      m_participantModel(std::make_unique<QSqlRelationalTableModel>()),
      m_races(makeTableModel(QStringLiteral("races"))),
      m_participants(makeTableModel(QStringLiteral("raceParticipants"))),
      m_laps(makeTableModel(QStringLiteral("laps")))
{
    const int idColumn = m_races->fieldIndex(Id); // the same in all three tables
    m_races->setSort(m_races->fieldIndex(QStringLiteral("date")), Qt::AscendingOrder);
    m_participants->setSort(idColumn, Qt::AscendingOrder);
    m_laps->setSort(idColumn, Qt::AscendingOrder);
}

std::unique_ptr<QSqlTableModel> CRaceList::makeTableModel(const QString& table)
{
    auto model = std::make_unique<QSqlTableModel>();
    model->setTable(table);
    model->setEditStrategy(QSqlTableModel::OnManualSubmit);
    return model;
}

CRaceList::~CRaceList()
{
    m_raceModel.reset();
    m_lapModel.reset();
    m_participantModel.reset();
    m_races.reset();
    m_participants.reset();
    m_laps.reset();
    m_database->release();
}

// Required: the texts stand in the statement as they are, so that a name with a single quote makes it
// fail; the id of the race is then empty, and with it every statement behind fails too.
void CRaceList::saveRace(const CRace& race, const QString& name)
{
    const QString settings = race.raceSettingsCopy().toText();
    const QString date = race.raceDateTime().toString(Qt::ISODate);
    QSqlQuery query;
    query.exec(QStringLiteral("INSERT INTO races(date, name, settings) VALUES('") + date +
               QStringLiteral("','") + name + QStringLiteral("','") + settings + QStringLiteral("')"));
    const QString raceId = query.lastInsertId().toString();
    for (int i = 0; i < race.numberOfMembers(); ++i)
        saveParticipant(query, raceId, race.raceMember(i));
}

void CRaceList::saveParticipant(QSqlQuery& query, const QString& raceId, const CRaceMember& member)
{
    const QStringList values{raceId, QString::number(member.driver().id()),
                             QString::number(member.track().id), QString::number(member.car().id())};
    query.exec(QStringLiteral("INSERT INTO raceParticipants(raceId, driverId, trackId, carId) VALUES(") +
               values.join(',') + QStringLiteral(")"));
    const QString participantId = query.lastInsertId().toString();
    for (int i = 0; i < member.numberOfLaps(); ++i)
        query.exec(lapStatement(participantId, i + 1, member.lap(i)));
}

int CRaceList::count() const
{
    return countRows(QStringLiteral("SELECT * FROM races"));
}

void CRaceList::removeRace(int row)
{
    selectAll(*m_races);
    const QString raceId = m_races->record(row).value(Id).toString();
    QSqlQuery query;
    query.exec(QStringLiteral("SELECT id FROM raceParticipants WHERE raceId = ") + raceId);
    // Required: the laps of the first participant go, those of the others stay behind.
    const QString participantId = query.next() ? query.value(0).toString() : QString();
    query.exec(QStringLiteral("DELETE FROM laps WHERE participantId = ") + participantId);
    query.exec(QStringLiteral("DELETE FROM raceParticipants WHERE raceId = ") + raceId);
    query.exec(QStringLiteral("DELETE FROM races WHERE id = ") + raceId);
}

// Required: participants and laps stay in the file.
void CRaceList::removeAll()
{
    QSqlQuery().exec(QStringLiteral("DELETE FROM races"));
}

QAbstractItemModel* CRaceList::raceModel()
{
    setQuery(*m_raceModel, QStringLiteral("SELECT name, date, settings FROM races ORDER BY date ASC"),
             {tr("Name"), tr("date"), tr("settings")});
    return m_raceModel.get();
}

QAbstractItemModel* CRaceList::participantModel(int raceId)
{
    m_participantModel->setTable(QStringLiteral("raceParticipants"));
    m_participantModel->setFilter(QStringLiteral("raceId = ") + QString::number(raceId));
    const int trackColumn = m_participantModel->fieldIndex(QStringLiteral("trackId"));
    const int driverColumn = m_participantModel->fieldIndex(QStringLiteral("driverId"));
    const int carColumn = m_participantModel->fieldIndex(QStringLiteral("carId"));
    m_participantModel->setRelation(driverColumn, QSqlRelation("driver", Id, "name"));
    m_participantModel->setRelation(carColumn, QSqlRelation("cars", Id, "name"));
    m_participantModel->setRelation(trackColumn, QSqlRelation("tracks", Id, "noOfTrack"));
    m_participantModel->setHeaderData(trackColumn, Qt::Horizontal, tr("Spur"));
    m_participantModel->setHeaderData(driverColumn, Qt::Horizontal, tr("Fahrer"));
    m_participantModel->setHeaderData(carColumn, Qt::Horizontal, tr("Fahrzeug"));
    m_participantModel->select();
    fetchAllRows(*m_participantModel);
    return m_participantModel.get();
}

QAbstractItemModel* CRaceList::lapModel(int participantId)
{
    const QString statement =
        QStringLiteral("SELECT lapNumber, time, sector1Time, sector2Time, sector3Time FROM laps "
                       "WHERE participantId = ") +
        QString::number(participantId) + QStringLiteral(" ORDER BY lapNumber ASC");
    setQuery(*m_lapModel, statement,
             {tr("Runde"), tr("Zeit"), tr("Sektor 1"), tr("Sektor 2"), tr("Sektor 3")});
    return m_lapModel.get();
}
