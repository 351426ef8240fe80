#include "data/CCarList.h"
#include "data/CDatabase.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "support/DatabaseFile.h"

#include <QtTest>

#include <memory>

namespace {

const QDateTime Moment(QDate(2016, 1, 31), QTime(17, 45, 2));
const QString BackupName = QStringLiteral("20160131_174502tornik_backup_.db");
const char* const NotOpen = "migrateDatabaseToCurrent: database not open";
const char* const UnknownVersion =
    "migrateDatabaseToCurrent: database migration failed: Unknown base version";

/** Opens the program's database and closes it again, as one run of the program does. */
void startAndStop()
{
    CDatabase::instance();
    CDatabase::release();
}

QString migrationFile(const QString& name)
{
    return QStringLiteral(TORNIK_TEST_DATA "/migration/") + name;
}

bool buildFile(const QString& version)
{
    return DatabaseFile().execFile(migrationFile(version + ".sql"));
}

/** Opens a file in which no step has made a table; user_version is 0 while it is open. */
CDatabase* openBareFile()
{
    if (!DatabaseFile().exec("PRAGMA user_version = 7"))
        return nullptr;
    QTest::ignoreMessage(QtDebugMsg, UnknownVersion);
    CDatabase* database = CDatabase::instance();
    QSqlQuery("PRAGMA user_version = 0");
    return database;
}

} // namespace

class tst_CDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aStartWithNoFileYieldsAFileOfVersion1WithItsDefaultRows();
    void aFreshFileHasTheSameTablesAsAMigratedOne();
    void anOldFileComesOutAsExpected_data();
    void anOldFileComesOutAsExpected();
    void aStartOnAVersion1FileMakesNoBackup();
    void aStartOnAVersion0FileMakesOneBackupAndKeepsAllCars();
    void aStartOnAnOlderFileMakesOneBackupAndLeavesTheCarsEmpty_data();
    void aStartOnAnOlderFileMakesOneBackupAndLeavesTheCarsEmpty();
    void theBackupHoldsTheFileAsItWas();
    void theBackupIsNamedByTheLocalTimeOfTheSystem();
    void aBackupOfTheSameNameIsReplacedAndNotNumbered();
    void aFileOfVersion2IsBackedUpOnEveryStartAndUsedUnchanged();
    void aMigrationRunsAlsoWhenNoBackupCanBeMade();
    void theTankSizeIsFoundWhateverTheCaseOfItsLetters();
    void theVersionIsTakenFromWhatTheFileHolds_data();
    void theVersionIsTakenFromWhatTheFileHolds();
    void aTableExistsOnlyUnderItsOwnName();
    void aStatementThatFailsDoesNotStopTheMigration();
    void aMigrationFromAnUnknownVersionLeavesTheFileAlone();
    void oneObjectIsSharedUntilTheLastRelease();
    void aReleaseTooManyDoesNothing();
    void aFileThatIsNoDatabaseIsLeftAlone_data();
    void aFileThatIsNoDatabaseIsLeftAlone();
    void aFileTooShortForADatabaseIsBackedUpAndMigrated_data();
    void aFileTooShortForADatabaseIsBackedUpAndMigrated();
    void aTornFileDoesNotStopTheStartAndIsNotLost_data();
    void aTornFileDoesNotStopTheStartAndIsNotLost();
    void theListsLiveWithADamagedFile_data();
    void theListsLiveWithADamagedFile();
    void aDirectoryInPlaceOfTheFileDoesNotStopTheStart();
    void aFileThatCannotBeMadeDoesNotStopTheStart();
    void aReadOnlyFileCanStillBeRead();

private:
    std::unique_ptr<ScratchDirectory> m_scratch;
};

void tst_CDatabase::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
    CDatabase::setBackupClock([] { return Moment; });
}

void tst_CDatabase::cleanup()
{
    QVERIFY2(!QSqlDatabase::contains(), "a test has left the database open");
    m_scratch.reset();
}

void tst_CDatabase::aStartWithNoFileYieldsAFileOfVersion1WithItsDefaultRows()
{
    startAndStop();

    DatabaseFile file;
    QCOMPARE(file.dump(), DatabaseFile::linesOf(migrationFile("fresh.expected")));
    QCOMPARE(m_scratch->backups(), QStringList());
}

void tst_CDatabase::aFreshFileHasTheSameTablesAsAMigratedOne()
{
    startAndStop();
    const QString schema = "SELECT t.name, c.name, upper(c.type), c.pk FROM sqlite_master t, "
                           "pragma_table_info(t.name) c ORDER BY t.name, c.cid";
    const QStringList fresh = DatabaseFile().rows(schema);
    QVERIFY(QFile::remove("tornik.db"));

    QVERIFY(buildFile("0"));
    startAndStop();

    QVERIFY(!fresh.isEmpty());
    QCOMPARE(DatabaseFile().rows(schema), fresh);
}

void tst_CDatabase::anOldFileComesOutAsExpected_data()
{
    QTest::addColumn<QString>("version");

    for (const char* version : {"minus2", "minus1", "0", "1"})
        QTest::newRow(version) << version;
}

void tst_CDatabase::anOldFileComesOutAsExpected()
{
    QFETCH(QString, version);
    QVERIFY(buildFile(version));

    startAndStop();

    QCOMPARE(DatabaseFile().dump(), DatabaseFile::linesOf(migrationFile(version + ".expected")));
}

void tst_CDatabase::aStartOnAVersion1FileMakesNoBackup()
{
    QVERIFY(buildFile("1"));

    startAndStop();

    QCOMPARE(m_scratch->backups(), QStringList());
}

void tst_CDatabase::aStartOnAVersion0FileMakesOneBackupAndKeepsAllCars()
{
    QVERIFY(buildFile("0"));
    const QStringList cars = DatabaseFile().rows("SELECT * FROM cars");
    QCOMPARE(cars.size(), 2);

    startAndStop();

    QCOMPARE(m_scratch->backups(), QStringList{BackupName});
    QCOMPARE(DatabaseFile().rows("SELECT * FROM cars"), cars);
}

void tst_CDatabase::aStartOnAnOlderFileMakesOneBackupAndLeavesTheCarsEmpty_data()
{
    QTest::addColumn<QString>("version");

    QTest::newRow("minus 2") << "minus2";
    QTest::newRow("minus 1") << "minus1";
}

void tst_CDatabase::aStartOnAnOlderFileMakesOneBackupAndLeavesTheCarsEmpty()
{
    QFETCH(QString, version);
    QVERIFY(buildFile(version));

    startAndStop();

    QCOMPARE(m_scratch->backups(), QStringList{BackupName});
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM cars"), QString("0"));
    QCOMPARE(DatabaseFile(BackupName).value("SELECT name FROM cars"), QString("Rot"));
}

void tst_CDatabase::theBackupHoldsTheFileAsItWas()
{
    QVERIFY(buildFile("minus2"));
    const QByteArray before = contentOf("tornik.db");

    startAndStop();

    QCOMPARE(contentOf(BackupName), before);
    QVERIFY(contentOf("tornik.db") != before);
}

void tst_CDatabase::theBackupIsNamedByTheLocalTimeOfTheSystem()
{
    CDatabase::setBackupClock(nullptr);
    QVERIFY(buildFile("0"));
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);

    startAndStop();

    QCOMPARE(m_scratch->backups().size(), 1);
    const QString stamp = m_scratch->backups().first().left(15);
    const QDateTime time = QDateTime::fromString(stamp, "yyyyMMdd_hhmmss");
    QVERIFY2(before <= time && time <= QDateTime::currentDateTime(), qPrintable(stamp));
}

void tst_CDatabase::aBackupOfTheSameNameIsReplacedAndNotNumbered()
{
    QVERIFY(buildFile("0"));
    const QByteArray before = contentOf("tornik.db");
    QVERIFY(writeContent(BackupName, "an older backup"));

    startAndStop();

    QCOMPARE(m_scratch->backups(), QStringList{BackupName});
    QCOMPARE(contentOf(BackupName), before);
}

void tst_CDatabase::aFileOfVersion2IsBackedUpOnEveryStartAndUsedUnchanged()
{
    QVERIFY(buildFile("2"));
    const QByteArray before = contentOf("tornik.db");

    QTest::ignoreMessage(QtDebugMsg, UnknownVersion);
    startAndStop();
    CDatabase::setBackupClock([] { return Moment.addSecs(60); });
    QTest::ignoreMessage(QtDebugMsg, UnknownVersion);
    const CDatabase* database = CDatabase::instance();

    QCOMPARE(database->detectVersion(), 2);
    QCOMPARE(QSqlQuery("SELECT what FROM future").next(), true);
    CDatabase::release();
    QCOMPARE(contentOf("tornik.db"), before);
    QCOMPARE(m_scratch->backups(), (QStringList{BackupName, "20160131_174602tornik_backup_.db"}));
    QCOMPARE(contentOf(BackupName), before);
}

void tst_CDatabase::aMigrationRunsAlsoWhenNoBackupCanBeMade()
{
    QVERIFY(buildFile("0"));
    QVERIFY(QDir().mkpath(BackupName + "/occupied"));

    startAndStop();

    QCOMPARE(DatabaseFile().value("PRAGMA user_version"), QString("1"));
}

void tst_CDatabase::theTankSizeIsFoundWhateverTheCaseOfItsLetters()
{
    for (const char* column : {"tankSize", "tanksize", "TANKSIZE"}) {
        const CDatabase* database = openBareFile();
        QVERIFY(database);
        QVERIFY(QSqlQuery().exec(QString("CREATE TABLE cars (id INTEGER, %1 REAL)").arg(column)));
        QCOMPARE(database->detectVersion(), -1);
        CDatabase::release();
        QVERIFY(QFile::remove("tornik.db"));
    }
}

void tst_CDatabase::theVersionIsTakenFromWhatTheFileHolds_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<int>("version");

    QTest::newRow("nothing") << QStringList() << -2;
    QTest::newRow("cars without a tank") << QStringList{"CREATE TABLE cars (name TEXT)"} << -2;
    QTest::newRow("cars with a tank") << QStringList{"CREATE TABLE cars (tankSize REAL)"} << -1;
    QTest::newRow("fastest laps") << QStringList{"CREATE TABLE fastestLapTimes (id INTEGER)"} << 0;
    QTest::newRow("fastest laps and a tank")
        << QStringList{"CREATE TABLE fastestLapTimes (id INTEGER)", "CREATE TABLE cars (tankSize REAL)"} << 0;
    QTest::newRow("a number of its own") << QStringList{"PRAGMA user_version = 31"} << 31;
    QTest::newRow("a number below zero") << QStringList{"PRAGMA user_version = -5"} << -5;
}

void tst_CDatabase::theVersionIsTakenFromWhatTheFileHolds()
{
    QFETCH(QStringList, statements);
    QFETCH(int, version);
    const CDatabase* database = openBareFile();
    QVERIFY(database);

    for (const QString& statement : statements)
        QVERIFY(QSqlQuery().exec(statement));

    QCOMPARE(database->detectVersion(), version);
    CDatabase::release();
}

void tst_CDatabase::aTableExistsOnlyUnderItsOwnName()
{
    const CDatabase* database = CDatabase::instance();

    QVERIFY(database->tableExists("cars"));
    QVERIFY(!database->tableExists("car"));
    QVERIFY(!database->tableExists(""));
    QVERIFY(!database->tableExists("it's none"));
    CDatabase::release();
}

void tst_CDatabase::aStatementThatFailsDoesNotStopTheMigration()
{
    QVERIFY(buildFile("0"));
    QVERIFY(DatabaseFile().exec("DROP TABLE tracks"));

    startAndStop();

    DatabaseFile file;
    QCOMPARE(file.value("PRAGMA user_version"), QString("1"));
    QCOMPARE(file.rows("SELECT name, numberOfSectors FROM raceways"),
             (QStringList{"Dachboden|1", "Keller|1"}));
    QCOMPARE(file.rows("SELECT time, sector3Time FROM laps"), (QStringList{"8531|NULL", "7999|NULL"}));
}

void tst_CDatabase::aMigrationFromAnUnknownVersionLeavesTheFileAlone()
{
    CDatabase* database = CDatabase::instance();
    const QStringList before = DatabaseFile().dump();

    for (const int version : {-3, 2, 1000}) {
        QTest::ignoreMessage(QtDebugMsg, UnknownVersion);
        database->migrateDatabaseToCurrent(version);
    }
    database->migrateDatabaseToCurrent(1);

    QCOMPARE(DatabaseFile().dump(), before);
    CDatabase::release();
}

void tst_CDatabase::oneObjectIsSharedUntilTheLastRelease()
{
    const CDatabase* first = CDatabase::instance();
    QCOMPARE(CDatabase::instance(), first);
    QVERIFY(QSqlDatabase::database().isOpen());

    CDatabase::release();
    QVERIFY(QSqlDatabase::database(QSqlDatabase::defaultConnection, false).isOpen());
    CDatabase::release();

    QVERIFY(!QSqlDatabase::contains());
}

void tst_CDatabase::aReleaseTooManyDoesNothing()
{
    startAndStop();
    CDatabase::release();

    CDatabase::instance();
    QVERIFY(QSqlDatabase::database().isOpen());
    CDatabase::release();
}

void tst_CDatabase::aFileThatIsNoDatabaseIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("content");

    QByteArray junk;
    for (quint32 i = 0; i < 100000; ++i)
        junk += char((i * i + 7 * i) % 251);
    QTest::newRow("a text") << QByteArray("Name;Startnummer\n").repeated(100);
    QTest::newRow("binary junk") << junk;
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("the right head before junk") << QByteArray("SQLite format 3\0", 16) + junk;
}

void tst_CDatabase::aFileThatIsNoDatabaseIsLeftAlone()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeContent("tornik.db", content));

    startAndStop();

    QCOMPARE(contentOf("tornik.db"), content);
    QCOMPARE(contentOf(BackupName), content);
}

void tst_CDatabase::aFileTooShortForADatabaseIsBackedUpAndMigrated_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("x");
}

void tst_CDatabase::aFileTooShortForADatabaseIsBackedUpAndMigrated()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeContent("tornik.db", content));

    startAndStop();

    QCOMPARE(m_scratch->backups(), QStringList{BackupName});
    QCOMPARE(contentOf(BackupName), content);
    DatabaseFile file;
    QCOMPARE(file.value("PRAGMA user_version"), QString("1"));
    // It is there, so that it isn't made anew: it has what the steps of the migration make.
    QCOMPARE(file.rows("SELECT name FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY name"),
             (QStringList{"cars", "fastestLapTimes", "raceways"}));
}

void tst_CDatabase::aTornFileDoesNotStopTheStartAndIsNotLost_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<int>("percent");

    for (const char* version : {"minus2", "0", "1"}) {
        for (const int percent : {1, 10, 50, 90, 99}) {
            const QByteArray name =
                QByteArray("version ") + version + ", " + QByteArray::number(percent) + " percent left";
            QTest::newRow(name.constData()) << version << percent;
        }
    }
}

void tst_CDatabase::aTornFileDoesNotStopTheStartAndIsNotLost()
{
    QFETCH(QString, version);
    QFETCH(int, percent);
    QVERIFY(buildFile(version));
    const QByteArray whole = contentOf("tornik.db");
    const QByteArray torn = whole.left(whole.size() * percent / 100);
    QVERIFY(torn.size() < whole.size());
    QVERIFY(writeContent("tornik.db", torn));

    startAndStop();

    QVERIFY(contentOf("tornik.db") == torn || contentOf(BackupName) == torn);
}

void tst_CDatabase::theListsLiveWithADamagedFile_data()
{
    QTest::addColumn<int>("page");

    for (int page = 0; page < 10; ++page)
        QTest::addRow("junk in page %d", page) << page;
}

void tst_CDatabase::theListsLiveWithADamagedFile()
{
    constexpr int PageSize = 4096;
    QFETCH(int, page);
    QVERIFY(buildFile("1"));
    QByteArray content = contentOf("tornik.db");
    QVERIFY(content.size() > page * PageSize);
    // The head of the first page is spared: without it the file is no database at all.
    for (int i = page * PageSize + 100; i < qMin((page + 1) * PageSize, content.size()); ++i)
        content[i] = char((i * 31) % 253);
    QVERIFY(writeContent("tornik.db", content));

    CCarList cars;
    CDriverList drivers;
    CRacewayList raceways;
    cars.addCar(cars.carAt(0));
    drivers.addDriver(drivers.driverAt(0));
    raceways.addRaceway(raceways.currentRaceway());
    cars.exportCsv("cars.csv");
    cars.importCsv("cars.csv");
    cars.removeCar(0);
    drivers.removeDriver(0);
    raceways.removeRaceway(0);

    // What is left is shown alike by the list and by its model.
    QCOMPARE(cars.nameModel()->rowCount(), cars.count());
    QCOMPARE(drivers.nameModel()->rowCount(), drivers.count());
    QCOMPARE(raceways.overviewModel()->rowCount(), raceways.racewayCount());
}

void tst_CDatabase::aDirectoryInPlaceOfTheFileDoesNotStopTheStart()
{
    QVERIFY(QDir().mkdir("tornik.db"));

    QTest::ignoreMessage(QtDebugMsg, NotOpen);
    const CDatabase* database = CDatabase::instance();

    QCOMPARE(database->detectVersion(), 0);
    QVERIFY(!database->tableExists("cars"));
    CDatabase::release();
    QVERIFY(QDir("tornik.db").isEmpty());
}

void tst_CDatabase::aFileThatCannotBeMadeDoesNotStopTheStart()
{
    QVERIFY(QFile::link("no/such/directory/tornik.db", "tornik.db"));

    QTest::ignoreMessage(QtDebugMsg, NotOpen);
    const CDatabase* database = CDatabase::instance();

    QCOMPARE(database->detectVersion(), 0);
    CDatabase::release();
    QCOMPARE(m_scratch->backups(), QStringList());
}

void tst_CDatabase::aReadOnlyFileCanStillBeRead()
{
    QVERIFY(buildFile("1"));
    QVERIFY(QFile::setPermissions("tornik.db", QFile::ReadOwner));

    const CDatabase* database = CDatabase::instance();

    QCOMPARE(database->detectVersion(), 1);
    QSqlQuery query("SELECT name FROM cars ORDER BY id");
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toString(), QString("Rot"));
    query.clear();
    CDatabase::release();
}

QTEST_GUILESS_MAIN(tst_CDatabase)
#include "tst_CDatabase.moc"
