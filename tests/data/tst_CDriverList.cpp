#include "data/CDriverList.h"
#include "support/DatabaseFile.h"

#include <QtTest>

#include <memory>

namespace {

CDriver namedDriver(const QString& name)
{
    CDriver driver;
    driver.setName(name);
    return driver;
}

/** @return id and name of each row, in the order they came in. */
QStringList storedDrivers()
{
    return DatabaseFile().rows("SELECT id, name FROM driver ORDER BY id");
}

} // namespace

class tst_CDriverList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFreshFileGetsTheDriverNamedDefault();
    void removeAllLeavesOneDriverNamedDefault();
    void removingTheOnlyDriverLeavesTheTableEmptyUntilTheNextList();
    void anAddedDriverIsAlwaysANewRow();
    void anUpdateRenamesOneDriver();
    void rowsFollowTheNames();
    void aDriverOfAnUnknownIdIsInRow0AndAnUnknownNameInNone();
    void ofTwoDriversOfTheSameNameTheFirstIsFound();
    void aRowThatThereIsNotChangesNothing_data();
    void aRowThatThereIsNotChangesNothing();
    void bothModelsAreOneAndShowTheNames();
    void allDriversAreThoseOfTheRows();
    void aThousandDriversAreAllThere();
    void aDatabaseThatCannotBeOpenedGivesNoDriver();

    void anExportWritesOneNameALine();
    void anImportAddsARowForEachName();
    void anImportIgnoresTheFirstLineWhateverItSays();
    void anImportOfAFileWithOnlyAHeaderAddsNothing();
    void anEmptyLineOfAnImportIsSkipped();
    void aNameWithASemicolonComesBackCut();
    void anImportNeverMerges();
    void anImportSkipsAByteOrderMark();
    void anImportThatCannotBeReadChangesNothing_data();
    void anImportThatCannotBeReadChangesNothing();
    void anImportOfJunkNeitherCrashesNorChangesARow_data();
    void anImportOfJunkNeitherCrashesNorChangesARow();
    void anImportOf100000LinesAddsThemAll();

private:
    std::unique_ptr<ScratchDirectory> m_scratch;
};

void tst_CDriverList::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
}

void tst_CDriverList::cleanup()
{
    QVERIFY2(!QSqlDatabase::contains(), "a list has left the database open");
    m_scratch.reset();
}

void tst_CDriverList::aFreshFileGetsTheDriverNamedDefault()
{
    const DatabaseReference reference;
    QCOMPARE(storedDrivers(), QStringList());

    CDriverList list;

    QCOMPARE(storedDrivers(), QStringList{"1|Default"});
    QCOMPARE(list.driverAt(0).id(), 1);
    QCOMPARE(list.driverAt(0).name(), QString("Default"));
}

void tst_CDriverList::removeAllLeavesOneDriverNamedDefault()
{
    CDriverList list;
    list.updateDriver(0, namedDriver("Anna"));
    list.addDriver(namedDriver("Bert"));

    list.removeAll();

    QCOMPARE(storedDrivers(), QStringList{"3|Default"});
}

void tst_CDriverList::removingTheOnlyDriverLeavesTheTableEmptyUntilTheNextList()
{
    CDriverList list;

    list.removeDriver(0);
    QCOMPARE(list.count(), 0);
    QCOMPARE(storedDrivers(), QStringList());

    const CDriverList next;
    QCOMPARE(storedDrivers(), QStringList{"2|Default"});
}

void tst_CDriverList::anAddedDriverIsAlwaysANewRow()
{
    CDriverList list;

    list.addDriver(list.driverAt(0));
    list.addDriver(namedDriver("Jörg \"der 'Blitz'\""));

    QCOMPARE(storedDrivers(), (QStringList{"1|Default", "2|Default", "3|Jörg \"der 'Blitz'\""}));
    QCOMPARE(list.count(), 3);
}

void tst_CDriverList::anUpdateRenamesOneDriver()
{
    CDriverList list;
    list.addDriver(namedDriver("Anna"));
    list.addDriver(namedDriver("Bert"));

    list.updateDriver(0, namedDriver("Zora"));

    QCOMPARE(storedDrivers(), (QStringList{"1|Default", "2|Zora", "3|Bert"}));
}

void tst_CDriverList::rowsFollowTheNames()
{
    CDriverList list;
    for (const char* name : {"Zora", "Anna", "Max"})
        list.addDriver(namedDriver(name));

    const QStringList names{"Anna", "Default", "Max", "Zora"};
    for (int row = 0; row < names.size(); ++row) {
        QCOMPARE(list.driverAt(row).name(), names.at(row));
        QCOMPARE(list.rowOfName(names.at(row)), row);
        QCOMPARE(list.rowOfDriver(list.driverAt(row)), row);
    }
}

void tst_CDriverList::aDriverOfAnUnknownIdIsInRow0AndAnUnknownNameInNone()
{
    CDriverList list;
    list.addDriver(namedDriver("Anna"));
    CDriver driver;
    driver.setId(1);
    QCOMPARE(list.rowOfDriver(driver), 1);

    driver.setId(99);
    QCOMPARE(list.rowOfDriver(driver), 0);
    QCOMPARE(list.rowOfName("anna"), -1);
    QCOMPARE(list.rowOfName(""), -1);
}

void tst_CDriverList::ofTwoDriversOfTheSameNameTheFirstIsFound()
{
    CDriverList list;
    list.addDriver(namedDriver("Zora"));
    list.addDriver(namedDriver("Zora"));

    QCOMPARE(list.rowOfName("Zora"), 1);
    for (int row = 1; row < 3; ++row)
        QCOMPARE(list.rowOfDriver(list.driverAt(row)), row);
}

void tst_CDriverList::aRowThatThereIsNotChangesNothing_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("below") << -1;
    QTest::newRow("behind") << 1;
    QTest::newRow("far behind") << 100000;
}

void tst_CDriverList::aRowThatThereIsNotChangesNothing()
{
    QFETCH(int, row);
    CDriverList list;

    list.updateDriver(row, namedDriver("Anna"));
    list.removeDriver(row);

    QCOMPARE(storedDrivers(), QStringList{"1|Default"});
    QCOMPARE(list.driverAt(row).id(), -1);
    QCOMPARE(list.driverAt(row).name(), QString("Default"));
}

void tst_CDriverList::bothModelsAreOneAndShowTheNames()
{
    CDriverList list;
    list.addDriver(namedDriver("Anna"));

    QAbstractItemModel* const model = list.nameModel();

    QCOMPARE(list.editorNameModel(), model);
    QCOMPARE(model->columnCount(), 1);
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QString("Name"));
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->index(0, 0).data().toString(), QString("Anna"));
    list.addDriver(namedDriver("Bert"));
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(list.editorNameModel()->rowCount(), 3);
}

void tst_CDriverList::allDriversAreThoseOfTheRows()
{
    const DatabaseReference reference;
    QVERIFY(DatabaseFile().exec("INSERT INTO driver(name) VALUES('Carla'), ('Anna'), ('Ben'), ('Anna')"));
    CDriverList list;
    const QList<CDriver> drivers = list.allDrivers();
    QCOMPARE(drivers.size(), 4);
    for (int row = 0; row < drivers.size(); ++row) {
        QCOMPARE(drivers[row].id(), list.driverAt(row).id());
        QCOMPARE(drivers[row].name(), QStringList({"Anna", "Anna", "Ben", "Carla"}).at(row));
    }
    QCOMPARE(list.rowOfName("Carla"), 3);
}

void tst_CDriverList::aThousandDriversAreAllThere()
{
    const DatabaseReference reference;
    QVERIFY(
        DatabaseFile().exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
                            "INSERT INTO driver(name) SELECT printf('Fahrer %04d', i) FROM n"));
    CDriverList list;

    QCOMPARE(list.count(), 1000);
    QCOMPARE(list.nameModel()->rowCount(), 1000);
    QCOMPARE(list.driverAt(999).name(), QString("Fahrer 1000"));
    QCOMPARE(list.allDrivers().last().name(), QString("Fahrer 1000"));
    list.exportCsv("drivers.csv");
    QCOMPARE(contentOf("drivers.csv").count('\n'), 1001);
    list.removeDriver(999);
    QCOMPARE(list.rowOfName("Fahrer 1000"), -1);
}

void tst_CDriverList::aDatabaseThatCannotBeOpenedGivesNoDriver()
{
    QVERIFY(QDir().mkdir("tornik.db"));
    CDriverList list;

    list.addDriver(namedDriver("Anna"));
    list.updateDriver(0, namedDriver("Bert"));
    list.removeDriver(0);

    QCOMPARE(list.count(), 0);
    QCOMPARE(list.driverAt(0).id(), -1);
    QCOMPARE(list.nameModel()->rowCount(), 0);
}

void tst_CDriverList::anExportWritesOneNameALine()
{
    CDriverList list;
    list.addDriver(namedDriver("Jörg"));
    list.addDriver(namedDriver("Anna"));

    list.exportCsv("drivers.csv");

    // Each line ends with the blank cell that the writer adds, and an empty line closes the file.
    QCOMPARE(QString::fromUtf8(contentOf("drivers.csv")),
             QString("Fahrer Name; \nAnna; \nDefault; \nJörg; \n\n"));
}

void tst_CDriverList::anImportAddsARowForEachName()
{
    QVERIFY(writeContent("drivers.csv", "Fahrer Name; \nJörg; \nAnna\nBert;1;2;3"));
    CDriverList list;

    list.importCsv("drivers.csv");

    QCOMPARE(storedDrivers(), (QStringList{"1|Default", "2|Jörg", "3|Anna", "4|Bert"}));
}

void tst_CDriverList::anImportIgnoresTheFirstLineWhateverItSays()
{
    QVERIFY(writeContent("drivers.csv", "Anna\nBert\n"));
    CDriverList list;

    list.importCsv("drivers.csv");

    QCOMPARE(storedDrivers(), (QStringList{"1|Default", "2|Bert"}));
}

void tst_CDriverList::anImportOfAFileWithOnlyAHeaderAddsNothing()
{
    QVERIFY(writeContent("drivers.csv", "Fahrer Name; \n"));
    CDriverList list;

    list.importCsv("drivers.csv");

    QCOMPARE(storedDrivers(), QStringList{"1|Default"});
}

void tst_CDriverList::anEmptyLineOfAnImportIsSkipped()
{
    QVERIFY(writeContent("drivers.csv", "Fahrer Name\n\nAnna\n\n;no name\n\nBert\n\n"));
    CDriverList list;

    list.importCsv("drivers.csv");

    QCOMPARE(storedDrivers(), (QStringList{"1|Default", "2|Anna", "3|Bert"}));
}

void tst_CDriverList::aNameWithASemicolonComesBackCut()
{
    CDriverList list;
    list.updateDriver(0, namedDriver("Anna; die Schnelle"));
    list.exportCsv("drivers.csv");

    list.importCsv("drivers.csv");

    QCOMPARE(storedDrivers(), (QStringList{"1|Anna; die Schnelle", "2|Anna"}));
}

void tst_CDriverList::anImportNeverMerges()
{
    CDriverList list;
    list.exportCsv("drivers.csv");

    list.importCsv("drivers.csv");
    list.importCsv("drivers.csv");

    QCOMPARE(storedDrivers(), (QStringList{"1|Default", "2|Default", "3|Default"}));
}

void tst_CDriverList::anImportSkipsAByteOrderMark()
{
    // Without a header the mark would otherwise become part of the first name behind it.
    QVERIFY(writeContent("drivers.csv", "\xEF\xBB\xBF\nJörg\n"));
    CDriverList list;

    list.importCsv("drivers.csv");

    QCOMPARE(storedDrivers(), (QStringList{"1|Default", "2|Jörg"}));
}

void tst_CDriverList::anImportThatCannotBeReadChangesNothing_data()
{
    QTest::addColumn<QString>("fileName");

    QTest::newRow("no name") << "";
    QTest::newRow("no such file") << "nothing.csv";
    QTest::newRow("a directory") << ".";
    QTest::newRow("a device without an end") << "/dev/zero";
}

void tst_CDriverList::anImportThatCannotBeReadChangesNothing()
{
    QFETCH(QString, fileName);
    CDriverList list;

    list.importCsv(fileName);

    QCOMPARE(storedDrivers(), QStringList{"1|Default"});
}

void tst_CDriverList::anImportOfJunkNeitherCrashesNorChangesARow_data()
{
    QTest::addColumn<QByteArray>("content");

    QByteArray junk;
    for (quint32 i = 0; i < 300000; ++i)
        junk += char((i * i + i / 7) % 256);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << junk;
    QTest::newRow("broken UTF-8") << QByteArray("h\nA\xff\xfe\xc3;\xf0\x9f;\x80\n");
    QTest::newRow("zeros") << QByteArray(100000, '\0');
    QTest::newRow("one long line") << QByteArray("h\n") + QByteArray(5000000, 'x');
    QTest::newRow("separators only") << QByteArray("h\n") + QByteArray(1000000, ';');
}

void tst_CDriverList::anImportOfJunkNeitherCrashesNorChangesARow()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeContent("drivers.csv", content));
    CDriverList list;

    list.importCsv("drivers.csv");

    QCOMPARE(DatabaseFile().rows("SELECT * FROM driver WHERE id = 1"), QStringList{"1|Default"});
    for (int row = 0; row < qMin(list.count(), 20); ++row)
        QVERIFY(list.driverAt(row).id() > 0);
}

void tst_CDriverList::anImportOf100000LinesAddsThemAll()
{
    QByteArray content = "Fahrer Name\n";
    for (int i = 0; i < 100000; ++i)
        content += "Fahrer " + QByteArray::number(i) + '\n';
    QVERIFY(writeContent("drivers.csv", content));
    CDriverList list;

    list.importCsv("drivers.csv");

    QCOMPARE(list.count(), 100001);
    QCOMPARE(DatabaseFile().value("SELECT name FROM driver WHERE id = 100001"), QString("Fahrer 99999"));
}

QTEST_GUILESS_MAIN(tst_CDriverList)
#include "tst_CDriverList.moc"
