#ifndef TORNIK_DATA_CDATABASE_H
#define TORNIK_DATA_CDATABASE_H

#include <QDateTime>
#include <QSqlDatabase>
#include <QString>

/**
 * The one SQLite file "tornik.db" in the working directory, open on Qt's default connection.
 *
 * Creates the file if it is missing, recognises the schema of an existing one, copies the file aside
 * before any change and brings it to the present schema. Each list holds a reference from instance()
 * to release(); with the last one the connection goes. Main thread only. Nothing reports an error:
 * whatever fails is skipped, and the program goes on with what works.
 */
class CDatabase
{
public:
    using Clock = QDateTime (*)();

    /** @return the shared object, opened and prepared by the first call; adds one reference. */
    static CDatabase* instance();
    /** Gives one reference back; the last one closes the connection and deletes the object. */
    static void release();

    /** Replaces the clock that names the backups; the null pointer brings the system's back. */
    static void setBackupClock(Clock clock);

    /** @return the schema of the open file: -2, -1, 0 or its user_version; 0 if none is open. */
    int detectVersion() const;
    /** @return whether exactly one table of that name exists. */
    bool tableExists(const QString& name) const;
    /** Runs the steps from @p baseVersion to the present schema; a version without one is left alone. */
    void migrateDatabaseToCurrent(int baseVersion);

private:
    CDatabase();
    ~CDatabase();
    Q_DISABLE_COPY(CDatabase)

    void createFile();
    void openExistingFile();
    void backUpFile() const;

    void createInitialTables();
    void insertDefaultRows();
    void migrateFromMinus2();
    void migrateFromMinus1();
    void migrateFrom0();

    QSqlDatabase m_database;
    QString m_fileName;
    qint32 m_currentVersion;
};

#endif
