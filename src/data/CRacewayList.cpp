#include "data/CRacewayList.h"

#include "data/CDatabase.h"
#include "data/TableAccess.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariantList>

using namespace TableAccess;

namespace {

constexpr int NoSuchRow = -1;

/** A mask as the column keeps it: the unsigned number of the same 32 bits. */
qint64 unsignedColumn(int mask)
{
    return static_cast<quint32>(mask);
}

/** @return the mask of a column that may hold the signed or the unsigned number. */
int maskOf(const QVariant& column)
{
    return static_cast<int>(static_cast<quint32>(column.toLongLong()));
}

quint16 mask16Of(const QVariant& column)
{
    return static_cast<quint16>(column.toLongLong());
}

QString ioSettingsText(const QByteArray& blob)
{
    return QString::fromLatin1(blob.toBase64()) + QStringLiteral("|end_stream|");
}

QByteArray ioSettingsBlob(const QString& text)
{
    if (text.startsWith(QLatin1Char('|')))
        return QByteArray();
    return QByteArray::fromBase64(text.split(QLatin1Char('|'), Qt::SkipEmptyParts).value(0).toLatin1());
}

/** Every column of a raceway but the id and the mark; the statements name them in this order. */
QVariantList columnsOf(const CRaceway& raceway)
{
    return {columnText(raceway.name),
            raceway.scale,
            raceway.tracks.size(),
            int(raceway.portOpenState),
            int(raceway.chaosButtonState),
            int(raceway.chaosButtonAvailable),
            int(raceway.chaosPhaseOutputAvailable),
            int(raceway.pwrOffFeatureAvailable),
            int(raceway.externalLightsAvailable),
            raceway.fuelSensorSetup,
            raceway.numberOfSectors,
            ioSettingsText(raceway.ioSettings),
            raceway.minTime,
            int(raceway.startAndEndSensorSeparate)};
}

// Required: the closed state of the lap sensor is written as a signed number, the others and the
// length as unsigned ones.
QVariantList columnsOf(const CRacewayTrack& track)
{
    return {unsignedColumn(track.length),
            track.portClosedState,
            unsignedColumn(track.fuelSensorClosedState),
            unsignedColumn(track.fuelFinishedSensorClosedState),
            unsignedColumn(track.sector2BeginSensorClosedState),
            unsignedColumn(track.sector3BeginSensorClosedState),
            unsignedColumn(track.endSensorClosedState)};
}

void readRaceway(const QSqlQuery& query, CRaceway& raceway)
{
    raceway.id = query.value(QStringLiteral("id")).toInt();
    raceway.name = query.value(QStringLiteral("name")).toString();
    raceway.scale = query.value(QStringLiteral("scale")).toInt();
    raceway.portOpenState = mask16Of(query.value(QStringLiteral("portOpenState")));
    raceway.chaosButtonState = mask16Of(query.value(QStringLiteral("chaosButtonState")));
    raceway.chaosButtonAvailable = query.value(QStringLiteral("chaosButtonAvailable")).toBool();
    raceway.chaosPhaseOutputAvailable = query.value(QStringLiteral("chaosPhaseOutputAvailable")).toBool();
    raceway.pwrOffFeatureAvailable = query.value(QStringLiteral("pwrOffFeatureAvailable")).toBool();
    raceway.externalLightsAvailable = query.value(QStringLiteral("externalLightsAvailable")).toBool();
    raceway.fuelSensorSetup = query.value(QStringLiteral("fuelSensorSetup")).toInt();
    raceway.numberOfSectors = query.value(QStringLiteral("numberOfSectors")).toInt();
    raceway.ioSettings = ioSettingsBlob(query.value(QStringLiteral("ioSettings")).toString());
    raceway.minTime = query.value(QStringLiteral("minTime")).toInt();
    raceway.startAndEndSensorSeparate = query.value(QStringLiteral("startAndEndSensorSeparate")).toBool();
}

CRacewayTrack trackFrom(const QSqlQuery& query)
{
    CRacewayTrack track;
    track.id = query.value(QStringLiteral("id")).toInt();
    track.length = maskOf(query.value(QStringLiteral("length")));
    track.portClosedState = maskOf(query.value(QStringLiteral("portClosedState")));
    track.fuelSensorClosedState = maskOf(query.value(QStringLiteral("fuelSensorClosedState")));
    track.fuelFinishedSensorClosedState =
        maskOf(query.value(QStringLiteral("fuelFinishedSensorClosedState")));
    track.sector2BeginSensorClosedState =
        maskOf(query.value(QStringLiteral("sector2BeginSensorClosedState")));
    track.sector3BeginSensorClosedState =
        maskOf(query.value(QStringLiteral("sector3BeginSensorClosedState")));
    track.endSensorClosedState = maskOf(query.value(QStringLiteral("endSensorClosedState")));
    return track;
}

/** @return the id of the raceway that is marked current; NoSuchRow if none is. */
int currentId()
{
    QSqlQuery query(QStringLiteral("SELECT id FROM raceways WHERE currentRw = 'x'"));
    return query.next() ? query.value(0).toInt() : NoSuchRow;
}

/** @return the id of the newest raceway of that name; NoSuchRow if there is none. */
int newestIdOfName(const QString& name)
{
    QSqlQuery query;
    query.prepare(QStringLiteral("SELECT id FROM raceways WHERE name = ? ORDER BY id DESC"));
    query.addBindValue(columnText(name));
    return query.exec() && query.next() ? query.value(0).toInt() : NoSuchRow;
}

} // namespace

CRacewayList::CRacewayList(QObject* parent)
    : QObject(parent),
      m_database(CDatabase::instance()),
      m_overviewModel(std::make_unique<QSqlQueryModel>()),
      m_detailModel(std::make_unique<QSqlQueryModel>()),
      m_tableModel(std::make_unique<QSqlTableModel>())
{
    m_tableModel->setTable(QStringLiteral("raceways"));
    m_tableModel->setSort(m_tableModel->fieldIndex(QStringLiteral("name")), Qt::AscendingOrder);
    ensureDefault();
    ensureCurrent();
}

CRacewayList::~CRacewayList()
{
    m_overviewModel.reset();
    m_detailModel.reset();
    m_tableModel.reset();
    m_database->release();
}

int CRacewayList::racewayCount() const
{
    return countRows(QStringLiteral("SELECT id FROM raceways ORDER BY name ASC"));
}

int CRacewayList::idOfRow(int row)
{
    selectAll(*m_tableModel);
    if (row < 0 || row >= m_tableModel->rowCount())
        return NoSuchRow;
    return m_tableModel->record(row).value(QStringLiteral("id")).toInt();
}

int CRacewayList::rowOfId(int id) const
{
    return TableAccess::rowOfId(QStringLiteral("SELECT id FROM raceways ORDER BY name ASC"), id);
}

void CRacewayList::setCurrentRow(int row)
{
    const int id = idOfRow(row);
    if (id == NoSuchRow)
        return;
    QSqlQuery().exec(QStringLiteral("UPDATE raceways SET currentRw = '' WHERE currentRw = 'x'"));
    execBound(QStringLiteral("UPDATE raceways SET currentRw = 'x' WHERE id = ?"), {id});
}

int CRacewayList::currentRow() const
{
    return rowOfId(currentId());
}

void CRacewayList::ensureCurrent()
{
    if (currentId() == NoSuchRow)
        setCurrentRow(0);
}

void CRacewayList::ensureDefault()
{
    if (racewayCount() == 0)
        addRaceway(CRaceway());
}

CRaceway CRacewayList::racewayAt(int row)
{
    CRaceway raceway;
    raceway.tracks.clear();
    QSqlQuery query;
    query.prepare(QStringLiteral(
        "SELECT id, name, scale, noOfTracks, portOpenState, chaosButtonState, chaosButtonAvailable, "
        "chaosPhaseOutputAvailable, pwrOffFeatureAvailable, externalLightsAvailable, fuelSensorSetup, "
        "numberOfSectors, ioSettings, minTime, startAndEndSensorSeparate FROM raceways WHERE id = ? "
        "ORDER BY name ASC"));
    query.addBindValue(idOfRow(row));
    if (query.exec() && query.next()) {
        readRaceway(query, raceway);
        readTracks(raceway);
    }
    return raceway;
}

void CRacewayList::readTracks(CRaceway& raceway) const
{
    QSqlQuery query;
    query.prepare(QStringLiteral(
        "SELECT id, length, portClosedState, fuelSensorClosedState, fuelFinishedSensorClosedState, "
        "sector2BeginSensorClosedState, sector3BeginSensorClosedState, endSensorClosedState FROM tracks "
        "WHERE racewayId = ? ORDER BY noOfTrack ASC"));
    query.addBindValue(raceway.id);
    query.exec();
    while (query.next()) {
        CRacewayTrack track = trackFrom(query);
        track.portOpenState = raceway.portOpenState;
        raceway.tracks.append(track);
    }
}

CRaceway CRacewayList::currentRaceway()
{
    return racewayAt(currentRow());
}

bool CRacewayList::addRaceway(const CRaceway& raceway)
{
    const bool added = execBound(
        QStringLiteral(
            "INSERT INTO raceways(name, scale, noOfTracks, portOpenState, chaosButtonState, "
            "chaosButtonAvailable, chaosPhaseOutputAvailable, pwrOffFeatureAvailable, "
            "externalLightsAvailable, fuelSensorSetup, numberOfSectors, ioSettings, currentRw, minTime, "
            "startAndEndSensorSeparate) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?, ?)"),
        columnsOf(raceway));
    // Without a new row the name may find an older raceway, whose tracks must stay as they are.
    if (added)
        insertTracks(newestIdOfName(raceway.name), raceway.tracks, 0);
    return added;
}

void CRacewayList::insertTracks(int racewayId, const QList<CRacewayTrack>& tracks, int first)
{
    for (int i = first; i < tracks.size(); ++i) {
        execBound(QStringLiteral("INSERT INTO tracks(racewayId, noOfTrack, length, portClosedState, "
                                 "fuelSensorClosedState, fuelFinishedSensorClosedState, "
                                 "sector2BeginSensorClosedState, sector3BeginSensorClosedState, "
                                 "endSensorClosedState) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                  QVariantList{racewayId, i + 1} + columnsOf(tracks.at(i)));
    }
}

void CRacewayList::updateRaceway(int row, const CRaceway& raceway)
{
    const int id = idOfRow(row);
    if (id == NoSuchRow)
        return;
    updateTracks(id, raceway.tracks);
    execBound(
        QStringLiteral("UPDATE raceways SET name = ?, scale = ?, noOfTracks = ?, portOpenState = ?, "
                       "chaosButtonState = ?, chaosButtonAvailable = ?, chaosPhaseOutputAvailable = ?, "
                       "pwrOffFeatureAvailable = ?, externalLightsAvailable = ?, fuelSensorSetup = ?, "
                       "numberOfSectors = ?, ioSettings = ?, minTime = ?, startAndEndSensorSeparate = ? "
                       "WHERE id = ?"),
        columnsOf(raceway) << id);
}

void CRacewayList::updateTracks(int racewayId, const QList<CRacewayTrack>& tracks)
{
    const int present =
        countRows(QStringLiteral("SELECT noOfTrack FROM tracks WHERE racewayId = %1 ORDER BY noOfTrack ASC")
                      .arg(racewayId));
    insertTracks(racewayId, tracks, present);
    if (tracks.size() < present)
        execBound(QStringLiteral("DELETE FROM tracks WHERE racewayId = ? AND noOfTrack > ?"),
                  {racewayId, tracks.size()});
    for (int i = 0; i < tracks.size(); ++i) {
        execBound(
            QStringLiteral("UPDATE tracks SET length = ?, portClosedState = ?, fuelSensorClosedState = ?, "
                           "fuelFinishedSensorClosedState = ?, sector2BeginSensorClosedState = ?, "
                           "sector3BeginSensorClosedState = ?, endSensorClosedState = ? "
                           "WHERE racewayId = ? AND noOfTrack = ?"),
            columnsOf(tracks.at(i)) << racewayId << i + 1);
    }
}

void CRacewayList::removeRaceway(int row)
{
    const int id = idOfRow(row);
    if (id != NoSuchRow) {
        execBound(QStringLiteral("DELETE FROM tracks WHERE racewayId = ?"), {id});
        execBound(QStringLiteral("DELETE FROM raceways WHERE id = ?"), {id});
    }
    ensureDefault();
    ensureCurrent();
}

void CRacewayList::removeAllRaceways()
{
    QSqlQuery().exec(QStringLiteral("DELETE FROM raceways"));
    QSqlQuery().exec(QStringLiteral("DELETE FROM tracks"));
    ensureDefault();
    ensureCurrent();
}

QAbstractItemModel* CRacewayList::overviewModel()
{
    setQuery(*m_overviewModel,
             QStringLiteral("SELECT currentRw, name, noOfTracks FROM raceways ORDER BY name ASC"),
             {tr("Aktiv"), tr("Name"), tr("Slots")});
    return m_overviewModel.get();
}

// Required: fifteen headers over fourteen columns, so that from the twelfth on each stands over the
// column to the right of its own.
QAbstractItemModel* CRacewayList::detailModel()
{
    setQuery(*m_detailModel,
             QStringLiteral(
                 "SELECT currentRw, name, scale, noOfTracks, portOpenState, chaosButtonState, "
                 "chaosButtonAvailable, chaosPhaseOutputAvailable, pwrOffFeatureAvailable, "
                 "externalLightsAvailable, fuelSensorSetup, ioSettings, minTime, startAndEndSensorSeparate "
                 "FROM raceways ORDER BY name ASC"),
             {tr("Aktiv"), tr("Name"), tr("Maßstab (1/X)"), tr("Slots"), tr("Maske \"offen\""),
              tr("Maske Chaostaste"), tr("Chaostaste verfügbar"),
              tr("Externes Signal für Chaosphase verfügbar"), tr("Bahnstromabschaltung verfügbar"),
              tr("Externe Startampel verfügbar"), tr("Tanksensor Setup"), tr("Anzahl Sektoren"),
              tr("IOSettings"), tr("Min. Rundenzeit"), tr("Start- und Endesensor separat")});
    return m_detailModel.get();
}
