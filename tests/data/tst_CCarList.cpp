#include "data/CCarList.h"
#include "support/DatabaseFile.h"
#include "support/ModelTexts.h"

#include <QtTest>

#include <memory>

namespace {

const QString CurrentHeader = QStringLiteral(
    "Fahrzeug Name;Hersteller Original;Typ Original;Startnummer;Hersteller Model;Klassifizierung;"
    "Massstab 1/X;Chassis;Kommentar;Tankgroesse;Reservelevel;Max. Verbrauch;Min. Verbrauch;"
    "gefahrene Strecke (cm);Freifeld 0;Freifeld 1;Freifeld 2;Freifeld 3;Freifeld 4;Freifeld 5;"
    "Freifeld 6;Freifeld 7;Freifeld 8;Freifeld 9");
const QString OldHeader =
    QStringLiteral("Fahrzeug Name;Fahrzeug Typ;Klassifizierung;Massstab 1/X;Chassis;Kommentar;"
                   "Tankgroesse;Reservelevel;Max. Verbrauch;Min. Verbrauch");

CCar namedCar(const QString& name)
{
    CCar car;
    car.setName(name);
    return car;
}

/** A car in which no two values are the same. */
CCar fullCar()
{
    CCar car = namedCar("Rot 'n' Grün");
    car.setOriginalManufacturer("Werk");
    car.setOriginalType("GT");
    car.setStartNumber("007");
    car.setModelManufacturer("Müller & Söhne");
    car.setSpeedClass(3);
    car.setScale(32);
    car.setChassis("Messing");
    car.setComment("läuft → gut");
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(80.5, 12.25);
    tank.setMaxUsage(4.5, 1000);
    tank.setMinUsage(1.125, 10000);
    car.setFuelTank(tank);
    car.setDistanceDriven(123456);
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        car.setFreeField(i, QString("Feld %1").arg(i));
    return car;
}

void compareTanks(const CFuelTank& actual, const CFuelTank& expected)
{
    QCOMPARE(actual.tankSize(), expected.tankSize());
    QCOMPARE(actual.reserveLevel(), expected.reserveLevel());
    QCOMPARE(actual.level(), expected.level());
    QCOMPARE(actual.maxUsageAmount(), expected.maxUsageAmount());
    QCOMPARE(actual.minUsageAmount(), expected.minUsageAmount());
    QCOMPARE(actual.maxUsageTime(), 1000U);
    QCOMPARE(actual.minUsageTime(), 10000U);
}

void compareCars(const CCar& actual, const CCar& expected)
{
    QCOMPARE(actual.name(), expected.name());
    QCOMPARE(actual.originalManufacturer(), expected.originalManufacturer());
    QCOMPARE(actual.originalType(), expected.originalType());
    QCOMPARE(actual.startNumber(), expected.startNumber());
    QCOMPARE(actual.modelManufacturer(), expected.modelManufacturer());
    QCOMPARE(actual.speedClass(), expected.speedClass());
    QCOMPARE(actual.scale(), expected.scale());
    QCOMPARE(actual.chassis(), expected.chassis());
    QCOMPARE(actual.comment(), expected.comment());
    QCOMPARE(actual.distanceDriven(), expected.distanceDriven());
    compareTanks(actual.fuelTank(), expected.fuelTank());
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        QCOMPARE(actual.freeField(i), expected.freeField(i));
}

/** @return whether the file could be written with these lines. */
bool writeLines(const QString& fileName, const QStringList& lines)
{
    return writeContent(fileName, lines.join('\n').toUtf8() + '\n');
}

} // namespace

class tst_CCarList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFreshFileHasItsDefaultCar();
    void anEmptyTableGetsABlankCarAtTheNextConstruction();
    void allColumnsReadBackAsTheyWereWritten();
    void anAddedCarIsAlwaysANewRow();
    void anUpdateKeepsTheIdAndTheOtherRows();
    void removeAllLeavesExactlyOneBlankCar();
    void removingTheLastCarLeavesABlankOneAndAgainOneWithANewId();
    void removingACarLeavesTheOthers();
    void aCarOfAnUnknownIdIsInRow0AndAnUnknownNameInNone();
    void ofTwoCarsOfTheSameNameTheFirstInNameOrderIsFound();
    void aReserveAboveTheTankSizeReadsBackAsTheTankSize();
    void consumptionReadsBackWithTheLapTimesOfTheTable();
    void theDistanceOfACarIsStoredByItsId();
    void theDistanceOfAnUnknownCarIsRefusedAndLeavesTheFilterSet();
    void rowsFollowTheNames();
    void aRowThatThereIsNotChangesNothing_data();
    void aRowThatThereIsNotChangesNothing();
    void theModelsShowTheirColumns();
    void theModelsAreOneAndTheSame();
    void allCarsAreThoseOfTheRows();
    void aThousandCarsAreAllThere();
    void twoListsWorkOnTheSameTable();
    void aDatabaseThatCannotBeOpenedGivesNoCar();

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

void tst_CCarList::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
}

void tst_CCarList::cleanup()
{
    QVERIFY2(!QSqlDatabase::contains(), "a list has left the database open");
    m_scratch.reset();
}

void tst_CCarList::aFreshFileHasItsDefaultCar()
{
    CCarList list;

    QCOMPARE(list.count(), 1);
    const CCar car = list.carAt(0);
    QCOMPARE(car.id(), 1);
    QCOMPARE(car.name(), QString("Default"));
    QCOMPARE(car.originalManufacturer(), QString());
    QCOMPARE(car.fuelTank().maxUsageAmount(), 3.0);
    QCOMPARE(car.fuelTank().minUsageAmount(), 1.5);
}

void tst_CCarList::anEmptyTableGetsABlankCarAtTheNextConstruction()
{
    const DatabaseReference reference;
    QVERIFY(DatabaseFile().exec("DELETE FROM cars"));

    CCarList list;

    QCOMPARE(list.count(), 1);
    QCOMPARE(list.carAt(0).name(), QString());
}

void tst_CCarList::allColumnsReadBackAsTheyWereWritten()
{
    CCarList list;
    list.addCar(fullCar());

    compareCars(list.carAt(1), fullCar());
    QCOMPARE(list.carAt(1).id(), 2);
}

void tst_CCarList::anAddedCarIsAlwaysANewRow()
{
    CCarList list;
    const CCar present = list.carAt(0);

    list.addCar(present);

    QCOMPARE(DatabaseFile().rows("SELECT id, name FROM cars"), (QStringList{"1|Default", "2|Default"}));
}

void tst_CCarList::anUpdateKeepsTheIdAndTheOtherRows()
{
    CCarList list;
    list.addCar(namedCar("A"));
    list.addCar(namedCar("B"));
    const QStringList others = DatabaseFile().rows("SELECT * FROM cars WHERE id <> 3");

    list.updateCar(1, fullCar());

    QCOMPARE(DatabaseFile().rows("SELECT * FROM cars WHERE id <> 3"), others);
    const int row = list.rowOfName(fullCar().name());
    QCOMPARE(list.carAt(row).id(), 3);
    compareCars(list.carAt(row), fullCar());
}

void tst_CCarList::removeAllLeavesExactlyOneBlankCar()
{
    CCarList list;
    list.addCar(fullCar());

    list.removeAll();

    QCOMPARE(list.count(), 1);
    CCar blank;
    CFuelTank tank;
    QCOMPARE(tank.tankSize(), 100.0);
    QCOMPARE(blank.scale(), 24);
    compareCars(list.carAt(0), blank);
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM cars WHERE name = '' AND class = 0 AND scale = 24 "
                                  "AND tankSize = 100.0 AND tankReserveLevel = 15.0 AND maxConsumption = 5.0 "
                                  "AND minConsumption = 1.0 AND distanceDriven = 0 AND freeField9 = ''"),
             QString("1"));
}

void tst_CCarList::removingTheLastCarLeavesABlankOneAndAgainOneWithANewId()
{
    CCarList list;

    list.removeCar(0);
    QCOMPARE(DatabaseFile().rows("SELECT id, name FROM cars"), QStringList{"2|"});

    list.removeCar(0);
    QCOMPARE(DatabaseFile().rows("SELECT id, name FROM cars"), QStringList{"3|"});
}

void tst_CCarList::removingACarLeavesTheOthers()
{
    CCarList list;
    list.addCar(namedCar("A"));
    list.addCar(namedCar("Z"));

    list.removeCar(1);

    QCOMPARE(DatabaseFile().rows("SELECT name FROM cars ORDER BY name"), (QStringList{"A", "Z"}));
}

void tst_CCarList::aCarOfAnUnknownIdIsInRow0AndAnUnknownNameInNone()
{
    CCarList list;
    list.addCar(namedCar("A"));
    CCar car;
    car.setId(1);
    QCOMPARE(list.rowOfCar(car), 1);
    QCOMPARE(list.rowOfName("Default"), 1);

    car.setId(99);
    QCOMPARE(list.rowOfCar(car), 0);
    QCOMPARE(list.rowOfName("default"), -1);
    QCOMPARE(list.rowOfName("Defaul"), -1);
    QCOMPARE(list.rowOfName(""), -1);
}

void tst_CCarList::ofTwoCarsOfTheSameNameTheFirstInNameOrderIsFound()
{
    CCarList list;
    list.addCar(namedCar("Zwilling"));
    list.addCar(namedCar("Zwilling"));

    QCOMPARE(list.count(), 3);
    QCOMPARE(list.rowOfName("Zwilling"), 1);
    QSet<int> ids;
    for (int row = 1; row < 3; ++row) {
        const CCar car = list.carAt(row);
        QCOMPARE(car.name(), QString("Zwilling"));
        QCOMPARE(list.rowOfCar(car), row);
        ids << car.id();
    }
    QCOMPARE(ids, (QSet<int>{2, 3}));
}

void tst_CCarList::aReserveAboveTheTankSizeReadsBackAsTheTankSize()
{
    CCarList list;
    QVERIFY(DatabaseFile().exec("UPDATE cars SET tankSize = 40.0, tankReserveLevel = 55.5"));

    QCOMPARE(list.carAt(0).fuelTank().tankSize(), 40.0);
    QCOMPARE(list.carAt(0).fuelTank().reserveLevel(), 40.0);
}

void tst_CCarList::consumptionReadsBackWithTheLapTimesOfTheTable()
{
    CCar car = namedCar("A");
    CFuelTank tank;
    tank.setMaxUsage(4.0, 6000);
    tank.setMinUsage(2.0, 8000);
    tank.setLevel(33.0);
    car.setFuelTank(tank);
    CCarList list;
    list.addCar(car);

    const CFuelTank stored = list.carAt(0).fuelTank();

    QCOMPARE(stored.maxUsageAmount(), 4.0);
    QCOMPARE(stored.maxUsageTime(), 1000U);
    QCOMPARE(stored.minUsageAmount(), 2.0);
    QCOMPARE(stored.minUsageTime(), 10000U);
    QCOMPARE(stored.level(), CFuelTank().level());
    QCOMPARE(CFuelTank().minUsageTime(), 5000U);
}

void tst_CCarList::theDistanceOfACarIsStoredByItsId()
{
    CCarList list;
    list.addCar(fullCar());
    CCar car = list.carAt(1);
    car.setDistanceDriven(200000);
    car.setName("not to be stored");

    QVERIFY(list.updateDistanceDriven(car));

    QCOMPARE(list.carAt(1).distanceDriven(), 200000);
    QCOMPARE(list.carAt(1).name(), fullCar().name());
    QCOMPARE(list.carAt(0).distanceDriven(), 0);
}

void tst_CCarList::theDistanceOfAnUnknownCarIsRefusedAndLeavesTheFilterSet()
{
    CCarList list;
    const QStringList before = DatabaseFile().dump();
    CCar car;
    car.setId(77);
    car.setDistanceDriven(5);

    QVERIFY(!list.updateDistanceDriven(car));

    QCOMPARE(DatabaseFile().dump(), before);
    QCOMPARE(list.carAt(0).id(), -1);
    QCOMPARE(CCarList().carAt(0).id(), 1);
    car.setId(1);
    QVERIFY(list.updateDistanceDriven(car));
    QCOMPARE(list.carAt(0).distanceDriven(), 5);
}

void tst_CCarList::rowsFollowTheNames()
{
    CCarList list;
    for (const char* name : {"Zebra", "Adler", "Maus"})
        list.addCar(namedCar(name));

    const QStringList names{"Adler", "Default", "Maus", "Zebra"};
    const QAbstractItemModel* model = list.nameModel();
    for (int row = 0; row < names.size(); ++row) {
        QCOMPARE(list.carAt(row).name(), names.at(row));
        QCOMPARE(model->index(row, 0).data().toString(), names.at(row));
        QCOMPARE(list.rowOfName(names.at(row)), row);
        QCOMPARE(list.rowOfCar(list.carAt(row)), row);
    }
}

void tst_CCarList::aRowThatThereIsNotChangesNothing_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("below") << -1;
    QTest::newRow("behind") << 1;
    QTest::newRow("far behind") << 100000;
}

void tst_CCarList::aRowThatThereIsNotChangesNothing()
{
    QFETCH(int, row);
    CCarList list;
    const QStringList before = DatabaseFile().dump();

    list.updateCar(row, fullCar());
    list.removeCar(row);

    QCOMPARE(DatabaseFile().dump(), before);
    QCOMPARE(list.carAt(row).id(), -1);
}

void tst_CCarList::theModelsShowTheirColumns()
{
    CCarList list;
    list.updateCar(0, fullCar());
    QStringList freeFields;
    for (int i = 0; i < 10; ++i)
        freeFields << QString("Freifeld %1").arg(i);

    QCOMPARE(headersOf(list.nameModel()), QStringList{"Name"});
    const QAbstractItemModel* model = list.distanceModel();
    QCOMPARE(headersOf(model), (QStringList{"Name", "Maßstab (1/X)", "gefahrene Strecke (cm)"}));
    QCOMPARE(model->index(0, 2).data().toInt(), 123456);
    model = list.fullModel();
    QCOMPARE(headersOf(model),
             (QStringList{"Name", "Hersteller Original", "Typ Original", "Startnummer", "Hersteller Model",
                          "Klasse", "Maßstab (1/X)", "Chassis", "Kommentar", "Tankgröße", "Reserveanzeige",
                          "Min. Verbrauch", "Max. Verbrauch", "gefahrene Strecke (cm)"} +
              freeFields));
    QCOMPARE(model->index(0, 11).data().toDouble(), 1.125);
    QCOMPARE(model->index(0, 12).data().toDouble(), 4.5);
    QCOMPARE(model->index(0, 23).data().toString(), QString("Feld 9"));
}

void tst_CCarList::theModelsAreOneAndTheSame()
{
    CCarList list;
    QAbstractItemModel* const model = list.nameModel();

    QCOMPARE(list.distanceModel(), model);
    QCOMPARE(model->columnCount(), 3);
    QCOMPARE(list.fullModel(), model);
    QCOMPARE(model->columnCount(), 24);
    list.addCar(fullCar());
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(list.nameModel(), model);
    QCOMPARE(model->columnCount(), 1);
    QCOMPARE(model->rowCount(), 2);
}

void tst_CCarList::allCarsAreThoseOfTheRows()
{
    const DatabaseReference reference;
    QVERIFY(DatabaseFile().exec("DELETE FROM cars"));
    QVERIFY(DatabaseFile().exec("INSERT INTO cars(name, comment) VALUES('LMP', 'x'), ('DTM', 'y')"));
    CCarList list;
    const QList<CCar> cars = list.allCars();
    QCOMPARE(cars.size(), 2);
    for (int row = 0; row < cars.size(); ++row) {
        QCOMPARE(cars[row].id(), list.carAt(row).id());
        QCOMPARE(cars[row].name(), QStringList({"DTM", "LMP"}).at(row));
        QCOMPARE(cars[row].comment(), QStringList({"y", "x"}).at(row));
    }
}

void tst_CCarList::aThousandCarsAreAllThere()
{
    const DatabaseReference reference;
    QVERIFY(
        DatabaseFile().exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
                            "INSERT INTO cars(name, startNumber) SELECT printf('Wagen %04d', i), i FROM n"));
    CCarList list;

    QCOMPARE(list.count(), 1001);
    QCOMPARE(list.nameModel()->rowCount(), 1001);
    QCOMPARE(list.rowOfName("Wagen 1000"), 1000);
    QCOMPARE(list.carAt(1000).startNumber(), QString("1000"));
    QCOMPARE(list.allCars().last().startNumber(), QString("1000"));
    list.updateCar(1000, namedCar("Wagen 2000"));
    QCOMPARE(list.carAt(1000).name(), QString("Wagen 2000"));
    list.exportCsv("cars.csv");
    QCOMPARE(contentOf("cars.csv").count('\n'), 1003);
    list.removeCar(1000);
    QCOMPARE(list.count(), 1000);
}

void tst_CCarList::twoListsWorkOnTheSameTable()
{
    CCarList first;
    CCarList second;
    first.carAt(0);

    second.addCar(namedCar("A"));

    QCOMPARE(first.count(), 2);
    QCOMPARE(first.carAt(0).name(), QString("A"));
}

void tst_CCarList::aDatabaseThatCannotBeOpenedGivesNoCar()
{
    QVERIFY(QDir().mkdir("tornik.db"));
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "A;B"}));
    CCarList list;

    list.addCar(fullCar());
    list.updateCar(0, fullCar());
    list.removeCar(0);
    list.importCsv("cars.csv");
    list.exportCsv("out.csv");

    QCOMPARE(list.count(), 0);
    QCOMPARE(list.carAt(0).id(), -1);
    QVERIFY(!list.updateDistanceDriven(fullCar()));
    QCOMPARE(QString::fromUtf8(contentOf("out.csv")), CurrentHeader + '\n');
}

void tst_CCarList::anExportWritesOneLineACarInNameOrder()
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

void tst_CCarList::anExportToAFileThatCannotBeOpenedWritesNothing()
{
    CCarList list;

    list.exportCsv("no/such/directory/cars.csv");
    list.exportCsv(QDir::currentPath());

    QCOMPARE(QDir().entryList(QDir::Files), QStringList{"tornik.db"});
}

void tst_CCarList::aFileExportedAndImportedDoublesTheTable()
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

void tst_CCarList::anImportWithTheOldHeaderPutsTheTypeIntoTheManufacturer()
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

void tst_CCarList::onlyTheWholeOldHeaderMeansTheOldForm_data()
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

void tst_CCarList::onlyTheWholeOldHeaderMeansTheOldForm()
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

void tst_CCarList::aLineWithoutNameAndManufacturerIsDropped()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, ";;GT;007;Werk;3;32", "", ";", "A", ";B", " ;"}));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().rows("SELECT name, originalManufacturer FROM cars WHERE id > 1 ORDER BY id"),
             (QStringList{"A|", "|B", " |"}));
}

void tst_CCarList::aNumberWithADecimalCommaReadsAsZero()
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

void tst_CCarList::missingPartsOfALineCountAsEmpty()
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

void tst_CCarList::morePartsThanColumnsAreIgnored()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "A" + QString(";1").repeated(1000)}));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(list.count(), 2);
    QCOMPARE(list.carAt(0).freeField(9), QString("1"));
}

void tst_CCarList::anImportedReserveIsCappedToTheTankSize()
{
    QVERIFY(writeLines("cars.csv", {CurrentHeader, "A;B;;;;0;24;;;50;70;5;1;0"}));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().value("SELECT tankReserveLevel FROM cars WHERE name = 'A'"), QString("50"));
}

void tst_CCarList::anImportSkipsAByteOrderMark()
{
    QVERIFY(writeContent("cars.csv", "\xEF\xBB\xBF" + OldHeader.toUtf8() + "\nGrün;GT;1;24\n"));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(list.carAt(1).name(), QString("Grün"));
    QCOMPARE(list.carAt(1).originalType(), QString("unknown"));
}

void tst_CCarList::anImportReadsLinesThatEndWithCarriageReturn()
{
    QVERIFY(writeContent("cars.csv", OldHeader.toUtf8() + "\r\nA;GT;1;24\r\nB;GT\r\n"));
    CCarList list;

    list.importCsv("cars.csv");

    QCOMPARE(DatabaseFile().rows("SELECT name, originalManufacturer, originalType FROM cars WHERE id > 1"),
             (QStringList{"A|GT|unknown", "B|GT|unknown"}));
}

void tst_CCarList::anImportOfAFileThatIsNotThereChangesNothing_data()
{
    QTest::addColumn<QString>("fileName");

    QTest::newRow("no name") << "";
    QTest::newRow("no such file") << "nothing.csv";
    QTest::newRow("a directory") << ".";
    QTest::newRow("a device without an end") << "/dev/zero";
}

void tst_CCarList::anImportOfAFileThatIsNotThereChangesNothing()
{
    QFETCH(QString, fileName);
    CCarList list;
    const QStringList before = DatabaseFile().dump();

    list.importCsv(fileName);

    QCOMPARE(DatabaseFile().dump(), before);
}

void tst_CCarList::anImportOfJunkNeitherCrashesNorChangesARow_data()
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

void tst_CCarList::anImportOfJunkNeitherCrashesNorChangesARow()
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

void tst_CCarList::anImportOf100000LinesAddsThemAll()
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

void tst_CCarList::anImportedCarIsStoredLikeAnAddedOne()
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

void tst_CCarList::anImportThatTheFileDoesNotTakeLeavesLaterCarsAlone()
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

QTEST_GUILESS_MAIN(tst_CCarList)
#include "tst_CCarList.moc"
