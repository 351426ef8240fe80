#ifndef TORNIK_TESTS_SUPPORT_DATABASEFILE_H
#define TORNIK_TESTS_SUPPORT_DATABASEFILE_H

#include "data/CDatabase.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

/** An empty directory that is the working directory as long as this object lives. */
class ScratchDirectory
{
public:
    ScratchDirectory() : m_before(QDir::currentPath()) { QDir::setCurrent(m_directory.path()); }
    ~ScratchDirectory() { QDir::setCurrent(m_before); }

    /** @return the names of the backups that lie in the directory. */
    QStringList backups() const { return QDir(m_directory.path()).entryList({"*tornik_backup_.db"}); }

private:
    Q_DISABLE_COPY(ScratchDirectory)

    QString m_before;
    QTemporaryDir m_directory;
};

inline QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool writeContent(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/** Holds the program's own connection open, as a list does. */
class DatabaseReference
{
public:
    DatabaseReference() { CDatabase::instance(); }
    ~DatabaseReference() { CDatabase::release(); }

private:
    Q_DISABLE_COPY(DatabaseReference)
};

/**
 * Closes the program's connection, whatever references are left: a list of fastest laps never gives
 * its own back. Nothing may use the connection any more.
 */
inline void closeDatabase()
{
    while (QSqlDatabase::contains()) {
        CDatabase::release();
    }
}

/** A SQLite file opened on a connection of its own, beside the program's. */
class DatabaseFile
{
public:
    explicit DatabaseFile(const QString& fileName = QStringLiteral("tornik.db"))
        : m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName()))
    {
        m_database.setDatabaseName(fileName);
        m_database.open();
    }
    ~DatabaseFile()
    {
        m_database.close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName());
    }

    /** @return the lines of a text file. */
    static QStringList linesOf(const QString& fileName)
    {
        return QString::fromUtf8(contentOf(fileName)).split('\n', Qt::SkipEmptyParts);
    }

    bool exec(const QString& statement) { return QSqlQuery(m_database).exec(statement); }

    /** Runs a file of statements, one a line. @return whether each of them succeeded. */
    bool execFile(const QString& fileName)
    {
        const QStringList statements = linesOf(fileName);
        bool succeeded = !statements.isEmpty();
        for (const QString& statement : statements) {
            succeeded = exec(statement) && succeeded;
        }
        return succeeded;
    }

    /** @return one text a row, the columns joined with "|"; NULL stands as "NULL". */
    QStringList rows(const QString& statement)
    {
        QStringList result;
        QSqlQuery query(m_database);
        query.exec(statement);
        while (query.next()) {
            QStringList columns;
            for (int column = 0; column < query.record().count(); ++column) {
                columns << (query.isNull(column) ? QStringLiteral("NULL") : query.value(column).toString());
            }
            result << columns.join('|');
        }
        return result;
    }

    /** @return the first column of the first row. */
    QString value(const QString& statement) { return rows(statement).value(0).section('|', 0, 0); }

    /** @return the schema version, then each table with its columns and its rows, one a line. */
    QStringList dump()
    {
        QStringList lines{"version " + value("PRAGMA user_version")};
        const QStringList tables = rows("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE "
                                        "'sqlite_%' ORDER BY name");
        for (const QString& table : tables) {
            const QString columns = "SELECT name, upper(type), pk FROM pragma_table_info('%1')";
            lines << "table " + table;
            for (const QString& column : rows(columns.arg(table))) {
                lines << "  " + column;
            }
            for (const QString& row : rows("SELECT * FROM " + table + " ORDER BY id")) {
                lines << "    " + row;
            }
        }
        return lines;
    }

private:
    Q_DISABLE_COPY(DatabaseFile)

    static QString connectionName() { return QStringLiteral("test"); }

    QSqlDatabase m_database;
};

#endif
