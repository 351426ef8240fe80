#include "data/CDatabase.h"

#include <QFile>
#include <QLoggingCategory>
#include <QSqlQuery>
#include <QVariant>

namespace {

Q_LOGGING_CATEGORY(dataLog, "tornik.data")

QDateTime systemClock()
{
    return QDateTime::currentDateTime();
}

CDatabase* sharedDatabase = nullptr;
qint32 referenceCount = 0;
CDatabase::Clock backupClock = systemClock;

/** @return the first column of the first row as a number; 0 if there is none. */
int firstNumber(const QSqlDatabase& database, const QString& statement)
{
    QSqlQuery query(database);
    return query.exec(statement) && query.next() ? query.value(0).toInt() : 0;
}

} // namespace

CDatabase* CDatabase::instance()
{
    if (!sharedDatabase) {
        sharedDatabase = new CDatabase;
    }
    ++referenceCount;
    return sharedDatabase;
}

void CDatabase::release()
{
    if (referenceCount == 0 || --referenceCount > 0) {
        return;
    }
    CDatabase* database = sharedDatabase;
    sharedDatabase = nullptr;
    delete database;
}

void CDatabase::setBackupClock(Clock clock)
{
    backupClock = clock ? clock : systemClock;
}

CDatabase::CDatabase() : m_fileName(QStringLiteral("tornik.db")), m_currentVersion(1)
{
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    m_database.setDatabaseName(m_fileName);
    if (QFile::exists(m_fileName)) {
        openExistingFile();
    } else {
        createFile();
    }
}

CDatabase::~CDatabase()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(QLatin1String(QSqlDatabase::defaultConnection));
}

// A new file is built in the oldest schema and walks through every step, so that each new file
// exercises the migration.
void CDatabase::createFile()
{
    m_database.open();
    createInitialTables();
    migrateDatabaseToCurrent(-2);
    insertDefaultRows();
}

void CDatabase::openExistingFile()
{
    m_database.open();
    const int version = detectVersion();
    if (version == m_currentVersion) {
        return;
    }
    m_database.close();
    backUpFile();
    m_database.open();
    migrateDatabaseToCurrent(version);
}

void CDatabase::backUpFile() const
{
    // Required: the date and time come first in the name, and a backup of that name is replaced.
    const QString stamp = backupClock().toString(QStringLiteral("yyyyMMdd_hhmmss"));
    const QString backupName = stamp + QStringLiteral("tornik_backup_") + QStringLiteral(".db");
    if (QFile::exists(backupName)) {
        QFile::remove(backupName);
    }
    QFile::copy(m_fileName, backupName);
}

int CDatabase::detectVersion() const
{
    if (!m_database.isOpen()) {
        return 0;
    }
    const int userVersion = firstNumber(m_database, QStringLiteral("PRAGMA user_version"));
    if (userVersion != 0) {
        return userVersion;
    }
    if (tableExists(QStringLiteral("fastestLapTimes"))) {
        return 0;
    }
    QSqlQuery query(m_database);
    return query.exec(QStringLiteral("SELECT tanksize FROM cars")) ? -1 : -2;
}

bool CDatabase::tableExists(const QString& name) const
{
    if (!m_database.isOpen()) {
        return false;
    }
    const QString statement =
        QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type='table' AND name='%1'");
    return firstNumber(m_database, statement.arg(name)) == 1;
}

void CDatabase::migrateDatabaseToCurrent(int baseVersion)
{
    if (!m_database.isOpen()) {
        qCDebug(dataLog, "migrateDatabaseToCurrent: database not open");
        return;
    }
    switch (baseVersion) {
    case -2:
        migrateFromMinus2();
        Q_FALLTHROUGH();
    case -1:
        migrateFromMinus1();
        Q_FALLTHROUGH();
    case 0:
        migrateFrom0();
        Q_FALLTHROUGH();
    case 1:
        break;
    default:
        qCDebug(dataLog, "migrateDatabaseToCurrent: database migration failed: Unknown base version");
        break;
    }
}
