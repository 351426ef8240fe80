#include "data/CCarList.h"
#include "data/CarRecords.h"
#include "support/DatabaseFile.h"

#include <QtTest>

#include <memory>

namespace {

const QString OldHeader =
    QStringLiteral("Fahrzeug Name;Fahrzeug Typ;Klassifizierung;Massstab 1/X;Chassis;Kommentar;"
                   "Tankgroesse;Reservelevel;Max. Verbrauch;Min. Verbrauch");

} // namespace

/** The list of cars in CSV files. */
class tst_CCarListCsv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void anExportWritesOneLineACarInNameOrder();
    void anExportToAFileThatCannotBeOpenedWritesNothing();
    void aFileExportedAndImportedDoublesTheTable();
    void anImportWithTheOldHeaderPutsTheTypeIntoTheManufacturer();
    void onlyTheWholeOldHeaderMeansTheOldForm_data();
    void onlyTheWholeOldHeaderMeansTheOldForm();
    void aLineWithoutNameAndManufacturerIsDropped();
    void aNumberWithADecimalCommaReadsAsZero();
    void missingPartsOfALineCountAsEmpty();
    void morePartsThanColumnsAreIgnored();
    void anImportedReserveIsCappedToTheTankSize();
    void anImportSkipsAByteOrderMark();
    void anImportReadsLinesThatEndWithCarriageReturn();
    void anImportOfAFileThatIsNotThereChangesNothing_data();
    void anImportOfAFileThatIsNotThereChangesNothing();
    void anImportOfJunkNeitherCrashesNorChangesARow_data();
    void anImportOfJunkNeitherCrashesNorChangesARow();
    void anImportOf100000LinesAddsThemAll();
    void anImportedCarIsStoredLikeAnAddedOne();
    void anImportThatTheFileDoesNotTakeLeavesLaterCarsAlone();

private:
    std::unique_ptr<ScratchDirectory> m_scratch;
};

void tst_CCarListCsv::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
}

void tst_CCarListCsv::cleanup()
{
    QVERIFY2(!QSqlDatabase::contains(), "a list has left the database open");
    m_scratch.reset();
}

void tst_CCarListCsv::anExportWritesOneLineACarInNameOrder()
{
    CCarList list;
    list.addCar(fullCar());
    list.addCar(namedCar("A;B"));

    list.exportCsv("cars.csv");

    const QStringList lines{
        CurrentHeader,
        "A;B;unknown;unknown;;unknown;0;24;unknown;;100;15;5;1;0;;;;;;;;;;",
        "Default;;;;;0;24;;;100;15;3;1.5;0;;;;;;;;;;",
        "Rot 'n' Grün;Werk;GT;007;Müller & Söhne;3;32;Messing;läuft → gut;80.5;12.25;4.5;1.125;123456;"
        "Feld 0;Feld 1;Feld 2;Feld 3;Feld 4;Feld 5;Feld 6;Feld 7;Feld 8;Feld 9",
        "",
        ""};
    QCOMPARE(QString::fromUtf8(contentOf("cars.csv")).split('\n'), lines);
}

void tst_CCarListCsv::anExportToAFileThatCannotBeOpenedWritesNothing()
{
    CCarList list;

    list.exportCsv("no/such/directory/cars.csv");
    list.exportCsv(QDir::currentPath());

    QCOMPARE(QDir().entryList(QDir::Files), QStringList{"tornik.db"});
}

void tst_CCarListCsv::aFileExportedAndImportedDoublesTheTable()
{
    CCarList list;
    list.addCar(fullCar());
    list.exportCsv("cars.csv");

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().rows("SELECT name FROM cars ORDER BY id"),
             (QStringList{"Default", fullCar().name(), "Default", fullCar().name()}));
    compareCars(list.carAt(2), fullCar());
    compareCars(list.carAt(3), fullCar());
}

void tst_CCarListCsv::anImportWithTheOldHeaderPutsTheTypeIntoTheManufacturer()
{
    QVERIFY(writeLines("cars.csv", {OldHeader, "Blau;GT3;2;32;Stahl;alt;80;12;4;1.5",
                                    "Grün;GT4;1;24;Holz;neu;70;11;3;1;99999;more"}));
    CCarList list;
    list.removeAll();

    list.importCsv("cars.csv");

    QCOMPARE(list.count(), 3);
    const CCar car = list.carAt(1);
    QCOMPARE(car.name(), QString("Blau"));
    QCOMPARE(car.originalManufacturer(), QString("GT3"));
    QCOMPARE(car.originalType(), QString("unknown"));
    QCOMPARE(car.modelManufacturer(), QString("unknown"));
    QCOMPARE(car.startNumber(), QString());
    QCOMPARE(car.speedClass(), 2);
    QCOMPARE(car.scale(), 32);
    QCOMPARE(car.chassis(), QString("Stahl"));
    QCOMPARE(car.comment(), QString("alt"));
    QCOMPARE(car.fuelTank().tankSize(), 80.0);
    QCOMPARE(car.fuelTank().reserveLevel(), 12.0);
    QCOMPARE(car.fuelTank().maxUsageAmount(), 4.0);
    QCOMPARE(car.fuelTank().minUsageAmount(), 1.5);
    QCOMPARE(list.carAt(2).distanceDriven(), 0);
}

void tst_CCarListCsv::onlyTheWholeOldHeaderMeansTheOldForm_data()
{
    QTest::addColumn<QString>("header");
    QTest::addColumn<bool>("oldForm");

    QTest::newRow("old") << OldHeader << true;
    QTest::newRow("current") << CurrentHeader << false;
    QTest::newRow("old with one more part") << OldHeader + ";" << false;
    QTest::newRow("old in small letters") << OldHeader.toLower() << false;
    QTest::newRow("other words") << "name;type" << false;
    QTest::newRow("empty") << "" << false;
}

void tst_CCarListCsv::onlyTheWholeOldHeaderMeansTheOldForm()
{
    QFETCH(QString, header);
    QFETCH(bool, oldForm);
    QVERIFY(writeLines("cars.csv", {header, "A;B;1;2;3;4;5;6;7;8"}));
    CCarList list;

    list.importCsv("cars.csv");

    const CCar car = list.carAt(0);
    QCOMPARE(car.originalManufacturer(), QString("B"));
    QCOMPARE(car.originalType(), QString(oldForm ? "unknown" : "1"));
    QCOMPARE(car.speedClass(), oldForm ? 1 : 4);
}

void tst_CCarListCsv::aLineWithoutNameAndManufacturerIsDropped()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, ";;GT;007;Werk;3;32", "", ";", "A", ";B", " ;"}));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().rows("SELECT name, originalManufacturer FROM cars WHERE id > 1 ORDER BY id"),
             (QStringList{"A|", "|B", " |"}));
}

void tst_CCarListCsv::aNumberWithADecimalCommaReadsAsZero()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "A;B;;;;3,0;24,5;;;80,5;12;4,5;1.5;12,5"}));
    CCarList list;

    list.importCsv("cars.csv");

    const CCar car = list.carAt(0);
    QCOMPARE(car.speedClass(), 0);
    QCOMPARE(car.scale(), 0);
    QCOMPARE(car.fuelTank().tankSize(), 0.0);
    QCOMPARE(car.fuelTank().reserveLevel(), 0.0);
    QCOMPARE(car.fuelTank().maxUsageAmount(), 0.0);
    QCOMPARE(car.fuelTank().minUsageAmount(), 1.5);
    QCOMPARE(car.distanceDriven(), 0);
}

void tst_CCarListCsv::missingPartsOfALineCountAsEmpty()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "B;Werk;GT;7;Modell;3;32;Holz;gut;80;12;4;1;99;F0", "A"}));
    CCarList list;

    list.importCsv("cars.csv");

    const CCar car = list.carAt(0);
    QCOMPARE(car.name(), QString("A"));
    QCOMPARE(car.originalManufacturer(), QString());
    QCOMPARE(car.originalType(), QString());
    QCOMPARE(car.chassis(), QString());
    QCOMPARE(car.scale(), 0);
    QCOMPARE(car.fuelTank().tankSize(), 0.0);
    QCOMPARE(car.distanceDriven(), 0);
    QCOMPARE(car.freeField(0), QString());
}

void tst_CCarListCsv::morePartsThanColumnsAreIgnored()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "A" + QString(";1").repeated(1000)}));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(list.count(), 2);
    QCOMPARE(list.carAt(0).freeField(9), QString("1"));
}

void tst_CCarListCsv::anImportedReserveIsCappedToTheTankSize()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "A;B;;;;0;24;;;50;70;5;1;0"}));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().value("SELECT tankReserveLevel FROM cars WHERE name = 'A'"), QString("50"));
}

void tst_CCarListCsv::anImportSkipsAByteOrderMark()
{
    QVERIFY(writeContent("cars.csv", "\xEF\xBB\xBF" + OldHeader.toUtf8() + "\nGrün;GT;1;24\n"));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(list.carAt(1).name(), QString("Grün"));
    QCOMPARE(list.carAt(1).originalType(), QString("unknown"));
}

void tst_CCarListCsv::anImportReadsLinesThatEndWithCarriageReturn()
{
    QVERIFY(writeContent("cars.csv", OldHeader.toUtf8() + "\r\nA;GT;1;24\r\nB;GT\r\n"));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().rows("SELECT name, originalManufacturer, originalType FROM cars WHERE id > 1"),
             (QStringList{"A|GT|unknown", "B|GT|unknown"}));
}

void tst_CCarListCsv::anImportOfAFileThatIsNotThereChangesNothing_data()
{
    QTest::addColumn<QString>("fileName");

    QTest::newRow("no name") << "";
    QTest::newRow("no such file") << "nothing.csv";
    QTest::newRow("a directory") << ".";
    QTest::newRow("a device without an end") << "/dev/zero";
}

void tst_CCarListCsv::anImportOfAFileThatIsNotThereChangesNothing()
{
    QFETCH(QString, fileName);
    CCarList list;
    const QStringList before = DatabaseFile().dump();

    list.importCsv(fileName);

    QCOMPARE(DatabaseFile().dump(), before);
}

void tst_CCarListCsv::anImportOfJunkNeitherCrashesNorChangesARow_data()
{
    QTest::addColumn<QByteArray>("content");

    QByteArray junk;
    for (quint32 i = 0; i < 300000; ++i)
        junk += char((i * i + i / 7) % 256);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one line end") << QByteArray("\n");
    QTest::newRow("header only") << CurrentHeader.toUtf8();
    QTest::newRow("binary") << junk;
    QTest::newRow("broken UTF-8") << QByteArray("h\nA\xff\xfe\xc3;\xf0\x9f;\x80\n");
    QTest::newRow("zeros") << QByteArray(100000, '\0');
    QTest::newRow("one long line") << QByteArray(5000000, 'x');
    QTest::newRow("separators only") << QByteArray("h\n") + QByteArray(1000000, ';');
    QTest::newRow("another program") << QByteArray("\"Id\",\"Name\"\r\n1,\"Rot, schnell\"\r\n2,\"Blau\"\r\n");
    QTest::newRow("numbers out of range")
        << CurrentHeader.toUtf8() + "\nA;B;;;;99999999999;-99999999999;;;1e999;nan;inf;-1e308;1e10\n";
}

void tst_CCarListCsv::anImportOfJunkNeitherCrashesNorChangesARow()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeContent("cars.csv", content));
    CCarList list;
    list.addCar(fullCar());
    const QStringList before = DatabaseFile().rows("SELECT * FROM cars");

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().rows("SELECT * FROM cars WHERE id <= 2"), before);
    for (int row = 0; row < qMin(list.count(), 20); ++row)
        QVERIFY(list.carAt(row).id() > 0);
}

void tst_CCarListCsv::anImportOf100000LinesAddsThemAll()
{
    QByteArray content = CurrentHeader.toUtf8() + '\n';
    for (int i = 0; i < 100000; ++i)
        content += "Wagen " + QByteArray::number(i) + ";Werk;GT;7;Modell;3;32;Holz;gut;80;12;4;1;99;F0\n";
    QVERIFY(writeContent("cars.csv", content));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(list.count(), 100001);
    QCOMPARE(list.carAt(list.rowOfName("Wagen 99999")).distanceDriven(), 99);
}

void tst_CCarListCsv::anImportedCarIsStoredLikeAnAddedOne()
{
    CCarList list;
    list.addCar(fullCar());
    list.exportCsv("cars.csv");
    list.importCsv("cars.csv");

    const QStringList types = DatabaseFile().rows(
        "SELECT typeof(name), typeof(class), typeof(scale), typeof(tankSize), typeof(minConsumption), "
        "typeof(distanceDriven), typeof(freeField9) FROM cars WHERE name LIKE 'Rot%'");
    QCOMPARE(types, (QStringList{"text|integer|integer|real|real|integer|text",
                                 "text|integer|integer|real|real|integer|text"}));
}

void tst_CCarListCsv::anImportThatTheFileDoesNotTakeLeavesLaterCarsAlone()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "A", "B"}));
    CCarList list;
    QVERIFY(QSqlQuery().exec("PRAGMA busy_timeout = 1"));
    {
        DatabaseFile reader; // as long as somebody reads, nothing can be written
        QVERIFY(reader.exec("BEGIN"));
        QCOMPARE(reader.value("SELECT COUNT(*) FROM cars"), QString("1"));
        list.importCsv("cars.csv");
        QVERIFY(reader.exec("COMMIT"));
    }
    QCOMPARE(list.count(), 1);

    list.addCar(namedCar("C"));

    QCOMPARE(DatabaseFile().rows("SELECT name FROM cars ORDER BY id"), (QStringList{"Default", "C"}));
}

QTEST_GUILESS_MAIN(tst_CCarListCsv)
#include "tst_CCarListCsv.moc"
