#include "data/CCarList.h"
#include "data/CarRecords.h"
#include "support/DatabaseFile.h"
#include "support/ModelTexts.h"

#include <QtTest>

#include <memory>

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

QTEST_GUILESS_MAIN(tst_CCarList)
#include "tst_CCarList.moc"
