#include "data/CFastestLapList.h"
#include "support/DatabaseFile.h"
#include "support/ModelTexts.h"

#include <QtTest>

namespace {

CFastestLap lapOf(int raceway, int track, int car, int driver, quint32 time)
{
    CFastestLap record;
    record.setRacewayId(raceway);
    record.setTrackId(track);
    record.setCarId(car);
    record.setDriverId(driver);
    record.setTime(time);
    return record;
}

/** @return id, raceway, track, car, driver and time. */
QString textOf(const CFastestLap& record)
{
    return QString("%1|%2|%3|%4|%5|%6")
        .arg(record.id())
        .arg(record.racewayId())
        .arg(record.trackId())
        .arg(record.carId())
        .arg(record.driverId())
        .arg(record.time());
}

const QString NoRecord = "-1|-1|-1|-1|-1|0";

QStringList storedRecords()
{
    return DatabaseFile().rows(
        "SELECT id, racewayId, trackId, carId, driverId, time FROM fastestLapTimes ORDER BY id");
}

/** @return the statement behind a model of the list. */
QString statementOf(const QAbstractItemModel* model)
{
    return qobject_cast<const QSqlQueryModel*>(model)->query().lastQuery();
}

/** Two raceways with their tracks, two cars, two drivers, and a record of each combination. */
void addEightRecords(CFastestLapList& list)
{
    DatabaseFile file;
    file.exec("DELETE FROM cars");
    file.exec("DELETE FROM tracks");
    file.exec("INSERT INTO cars(id, name) VALUES(21, 'GT'), (22, 'LMP')");
    file.exec("INSERT INTO driver(id, name) VALUES(31, 'Anna'), (32, 'Ben')");
    file.exec("INSERT INTO tracks(id, racewayId, noOfTrack) VALUES(11, 1, 1), (12, 2, 1)");
    quint32 time = 2000;
    for (const int raceway : {1, 2}) {
        for (const int car : {21, 22}) {
            for (const int driver : {31, 32})
                list.addRecord(lapOf(raceway, 10 + raceway, car, driver, time -= 100));
        }
    }
}

} // namespace

class tst_CFastestLapList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFreshFileHasNoRecords();
    void theReferenceToTheDatabaseIsNeverGivenBack();
    void anAddedRecordIsFoundByItsFourKeys();
    void ofTwoRecordsOfOneKeyTheFastestIsFound();
    void timesKeepAll32Bits();
    void theBestOfACarIsAskedPerRaceway();
    void theBestOfADriverIsAskedPerRaceway();
    void theBestOnARacewayIsAskedOverAllItsTracks();
    void rowsFollowTheIds();
    void aRecordIsOverwrittenByItsRow();
    void theTimeOfARecordIsStored();
    void theTimeOfAnUnknownRecordIsRefusedAndLeavesTheFilterSet_data();
    void theTimeOfAnUnknownRecordIsRefusedAndLeavesTheFilterSet();
    void aRecordCanBeRemoved();
    void removingThatFailsSaysSo();
    void aRowThatThereIsNotChangesNothing_data();
    void aRowThatThereIsNotChangesNothing();
    void removingAllResetsTheList();
    void aThousandRecordsAreAllThere();

    void theModelsShowTheFastestFirst();
    void theModelsAreOneAndTheSame();
    void aLongModelTellsOfItsRowsOnce();
    void aFilterWithoutCriteriaHasNoWhere();
    void aFilterByDriverAloneHasNoAnd();
    void aFilterNamesItsCriteriaInOrder_data();
    void aFilterNamesItsCriteriaInOrder();
    void aFilterShowsNamesAndTheFastestFirst();
    void aRecordWhoseCarDriverOrTrackIsGoneStays();

    void anExportWritesWhatTheFilterShows();
    void anExportWithoutRecordsIsTheHeaderAlone();
    void anExportedHourIsLost_data();
    void anExportedHourIsLost();
    void anExportToAFileThatCannotBeOpenedWritesNothing();
    void aDatabaseThatCannotBeOpenedGivesNoRecord();

private:
    std::unique_ptr<ScratchDirectory> m_scratch;
};

void tst_CFastestLapList::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
}

void tst_CFastestLapList::cleanup()
{
    closeDatabase();
    m_scratch.reset();
}

void tst_CFastestLapList::aFreshFileHasNoRecords()
{
    const CFastestLapList list;
    QCOMPARE(list.count(), 0);
    QCOMPARE(textOf(list.findRecord(1, 1, 1, 1)), NoRecord);
    QCOMPARE(textOf(list.bestOfCar(1, 1)), NoRecord);
    QCOMPARE(textOf(list.bestOfDriver(1, 1)), NoRecord);
    QCOMPARE(textOf(list.bestOnRaceway(1)), NoRecord);
}

void tst_CFastestLapList::theReferenceToTheDatabaseIsNeverGivenBack()
{
    {
        const CFastestLapList first;
        const CFastestLapList second;
    }
    QVERIFY(QSqlDatabase::database().isOpen());
    CDatabase::release();
    QVERIFY(QSqlDatabase::contains());
    CDatabase::release();
    QVERIFY(!QSqlDatabase::contains());
}

void tst_CFastestLapList::anAddedRecordIsFoundByItsFourKeys()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 1234));

    QCOMPARE(storedRecords(), QStringList{"1|1|2|3|4|1234"});
    QCOMPARE(textOf(list.findRecord(1, 2, 3, 4)), QString("1|1|2|3|4|1234"));
    QCOMPARE(textOf(list.findRecord(9, 2, 3, 4)), NoRecord);
    QCOMPARE(textOf(list.findRecord(1, 9, 3, 4)), NoRecord);
    QCOMPARE(textOf(list.findRecord(1, 2, 9, 4)), NoRecord);
    QCOMPARE(textOf(list.findRecord(1, 2, 3, 9)), NoRecord);
}

void tst_CFastestLapList::ofTwoRecordsOfOneKeyTheFastestIsFound()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 1300));
    list.addRecord(lapOf(1, 2, 3, 4, 1200));
    list.addRecord(lapOf(1, 2, 3, 4, 1250));
    QCOMPARE(textOf(list.findRecord(1, 2, 3, 4)), QString("2|1|2|3|4|1200"));
}

void tst_CFastestLapList::timesKeepAll32Bits()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 4294967295U));
    CFastestLap record = list.findRecord(1, 2, 3, 4);
    QCOMPARE(record.time(), 4294967295U);
    record.setTime(4000000000U);
    QVERIFY(list.updateTime(record));
    QCOMPARE(storedRecords(), QStringList{"1|1|2|3|4|4000000000"});
}

void tst_CFastestLapList::theBestOfACarIsAskedPerRaceway()
{
    CFastestLapList list;
    addEightRecords(list);
    QCOMPARE(textOf(list.bestOfCar(21, 1)), QString("2|1|11|21|32|1800"));
    QCOMPARE(textOf(list.bestOfCar(21, 2)), QString("6|2|12|21|32|1400"));
    QCOMPARE(textOf(list.bestOfCar(31, 1)), NoRecord);
}

void tst_CFastestLapList::theBestOfADriverIsAskedPerRaceway()
{
    CFastestLapList list;
    addEightRecords(list);
    QCOMPARE(textOf(list.bestOfDriver(31, 1)), QString("3|1|11|22|31|1700"));
    QCOMPARE(textOf(list.bestOfDriver(31, 2)), QString("7|2|12|22|31|1300"));
    QCOMPARE(textOf(list.bestOfDriver(21, 1)), NoRecord);
}

void tst_CFastestLapList::theBestOnARacewayIsAskedOverAllItsTracks()
{
    CFastestLapList list;
    addEightRecords(list);
    list.addRecord(lapOf(1, 99, 21, 31, 1));
    QCOMPARE(textOf(list.bestOnRaceway(1)), QString("9|1|99|21|31|1"));
    QCOMPARE(textOf(list.bestOnRaceway(2)), QString("8|2|12|22|32|1200"));
}

void tst_CFastestLapList::rowsFollowTheIds()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    list.addRecord(lapOf(5, 6, 7, 8, 100));
    QCOMPARE(textOf(list.recordAt(0)), QString("1|1|2|3|4|300"));
    QCOMPARE(textOf(list.recordAt(1)), QString("2|5|6|7|8|100"));
    QCOMPARE(list.rowOfRecord(list.recordAt(1)), 1);
    QCOMPARE(list.rowOfRecord(list.recordAt(0)), 0);
    QCOMPARE(list.rowOfRecord(CFastestLap()), 0);
}

void tst_CFastestLapList::aRecordIsOverwrittenByItsRow()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    list.addRecord(lapOf(5, 6, 7, 8, 100));
    CFastestLap changed = lapOf(15, 16, 17, 18, 50);
    changed.setId(9);

    list.updateRecord(1, changed);

    QCOMPARE(storedRecords(), (QStringList{"1|1|2|3|4|300", "9|15|16|17|18|50"}));
}

void tst_CFastestLapList::theTimeOfARecordIsStored()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    list.addRecord(lapOf(5, 6, 7, 8, 100));
    CFastestLap record = list.recordAt(1);
    record.setTime(90);

    QVERIFY(list.updateTime(record));

    QCOMPARE(storedRecords(), (QStringList{"1|1|2|3|4|300", "2|5|6|7|8|90"}));
    QCOMPARE(list.recordAt(0).time(), 300U);
}

void tst_CFastestLapList::theTimeOfAnUnknownRecordIsRefusedAndLeavesTheFilterSet_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("raceway");
    QTest::addColumn<int>("track");
    QTest::addColumn<int>("car");
    QTest::addColumn<int>("driver");
    QTest::newRow("other id") << 9 << 1 << 2 << 3 << 4;
    QTest::newRow("other raceway") << 1 << 9 << 2 << 3 << 4;
    QTest::newRow("other track") << 1 << 1 << 9 << 3 << 4;
    QTest::newRow("other car") << 1 << 1 << 2 << 9 << 4;
    QTest::newRow("other driver") << 1 << 1 << 2 << 3 << 9;
}

void tst_CFastestLapList::theTimeOfAnUnknownRecordIsRefusedAndLeavesTheFilterSet()
{
    QFETCH(const int, id);
    QFETCH(const int, raceway);
    QFETCH(const int, track);
    QFETCH(const int, car);
    QFETCH(const int, driver);
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    CFastestLap unknown = lapOf(raceway, track, car, driver, 90);
    unknown.setId(id);

    QVERIFY(!list.updateTime(unknown));

    QCOMPARE(storedRecords(), QStringList{"1|1|2|3|4|300"});
    QCOMPARE(textOf(list.recordAt(0)), NoRecord);
    // Looking up and storing the time of a known one aren't hindered.
    CFastestLap known = list.findRecord(1, 2, 3, 4);
    known.setTime(80);
    QVERIFY(list.updateTime(known));
    QCOMPARE(textOf(list.recordAt(0)), QString("1|1|2|3|4|80"));
}

void tst_CFastestLapList::aRecordCanBeRemoved()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    list.addRecord(lapOf(5, 6, 7, 8, 100));
    QVERIFY(list.removeRecord(0));
    QCOMPARE(storedRecords(), QStringList{"2|5|6|7|8|100"});
}

void tst_CFastestLapList::removingThatFailsSaysSo()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    QVERIFY(DatabaseFile().exec("CREATE TRIGGER no BEFORE DELETE ON fastestLapTimes "
                                "BEGIN SELECT RAISE(ABORT, 'no'); END"));
    QVERIFY(!list.removeRecord(0));
    QCOMPARE(list.count(), 1);
}

void tst_CFastestLapList::aRowThatThereIsNotChangesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("before the first") << -1;
    QTest::newRow("behind the last") << 1;
    QTest::newRow("far behind") << std::numeric_limits<int>::max() - 1;
}

void tst_CFastestLapList::aRowThatThereIsNotChangesNothing()
{
    QFETCH(const int, row);
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));

    QCOMPARE(textOf(list.recordAt(row)), NoRecord);
    list.updateRecord(row, lapOf(9, 9, 9, 9, 9));
    list.removeRecord(row);

    QCOMPARE(storedRecords(), QStringList{"1|1|2|3|4|300"});
}

void tst_CFastestLapList::removingAllResetsTheList()
{
    CFastestLapList list;
    addEightRecords(list);
    QCOMPARE(list.count(), 8);
    list.removeAll();
    QCOMPARE(list.count(), 0);
    QCOMPARE(storedRecords(), QStringList());
}

void tst_CFastestLapList::aThousandRecordsAreAllThere()
{
    CFastestLapList list;
    DatabaseFile().exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
                        "INSERT INTO fastestLapTimes(carId, driverId, racewayId, trackId, time) "
                        "SELECT 1, i, 1, 1, 5000 - i FROM n");
    QCOMPARE(list.count(), 1000);
    QCOMPARE(textOf(list.recordAt(999)), QString("1000|1|1|1|1000|4000"));
    QCOMPARE(list.rowOfRecord(list.recordAt(999)), 999);
    QCOMPARE(list.allModel()->rowCount(), 1000);
    QCOMPARE(list.filterModel(1, -1, -1, -1)->rowCount(), 1000);
    list.exportCsv("laps.csv", "Ring", "mm:ss,zzz", 1, -1, -1, -1);
    QCOMPARE(DatabaseFile::linesOf("laps.csv").size(), 1001);
}

void tst_CFastestLapList::theModelsShowTheFastestFirst()
{
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    list.addRecord(lapOf(5, 6, 7, 8, 100));
    list.addRecord(lapOf(1, 6, 7, 8, 200));
    const QStringList headers{"id", "carId", "driverId", "racewayId", "trackId", "time"};

    QCOMPARE(rowsOf(list.allModel()), (QStringList{"2|7|8|5|6|100", "3|7|8|1|6|200", "1|3|4|1|2|300"}));
    QCOMPARE(headersOf(list.allModel()), headers);
    QCOMPARE(rowsOf(list.racewayModel(1)), (QStringList{"3|7|8|1|6|200", "1|3|4|1|2|300"}));
    QCOMPARE(headersOf(list.racewayModel(1)), headers);
    QCOMPARE(rowsOf(list.racewayModel(7)), QStringList());
}

void tst_CFastestLapList::theModelsAreOneAndTheSame()
{
    CFastestLapList list;
    const QAbstractItemModel* model = list.allModel();
    QCOMPARE(list.racewayModel(1), model);
    QCOMPARE(list.filterModel(-1, -1, -1, -1), model);
    QCOMPARE(headersOf(model), (QStringList{"Fahrer", "Fahrzeug", "Spur", "Zeit"}));
    list.allModel();
    QCOMPARE(headersOf(model).size(), 6);
}

void tst_CFastestLapList::aLongModelTellsOfItsRowsOnce()
{
    CFastestLapList list;
    QVERIFY(
        DatabaseFile().exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
                            "INSERT INTO fastestLapTimes(racewayId, trackId, carId, driverId, time) SELECT "
                            "1, 1, 1, 1, i FROM n"));
    QAbstractItemModel* model = list.racewayModel(2);
    QSignalSpy resets(model, &QAbstractItemModel::modelReset);
    QSignalSpy insertions(model, &QAbstractItemModel::rowsInserted);
    int rowsAtTheReset = -1;
    connect(model, &QAbstractItemModel::modelReset, [&] { rowsAtTheReset = model->rowCount(); });

    list.filterModel(1, -1, -1, -1);

    QCOMPARE(resets.count(), 1);
    QCOMPARE(insertions.count(), 0);
    QCOMPARE(rowsAtTheReset, 1000);
    QVERIFY(!model->canFetchMore(QModelIndex()));
}

void tst_CFastestLapList::aFilterWithoutCriteriaHasNoWhere()
{
    CFastestLapList list;
    QCOMPARE(statementOf(list.filterModel(-1, -1, -1, -1)),
             QString("SELECT d.name, c.name, t.noOfTrack, f.time FROM fastestLapTimes f "
                     "LEFT OUTER JOIN cars c ON c.id=f.carId LEFT OUTER JOIN driver d ON d.id=f.driverId "
                     "LEFT OUTER JOIN tracks t ON t.id=f.trackId ORDER BY f.time ASC"));
}

void tst_CFastestLapList::aFilterByDriverAloneHasNoAnd()
{
    CFastestLapList list;
    const QString statement = statementOf(list.filterModel(-1, -1, -1, 7));
    QVERIFY2(statement.endsWith("ON t.id=f.trackId WHERE f.driverId=7 ORDER BY f.time ASC"),
             qPrintable(statement));
    QVERIFY(!statement.contains("AND "));
}

void tst_CFastestLapList::aFilterNamesItsCriteriaInOrder_data()
{
    QTest::addColumn<QList<int>>("ids");
    QTest::addColumn<QString>("condition");
    QTest::newRow("raceway") << QList<int>{5, -1, -1, -1} << "WHERE f.racewayId=5 ";
    QTest::newRow("track") << QList<int>{-1, 6, -1, -1} << "WHERE f.trackId=6 ";
    QTest::newRow("car") << QList<int>{-1, -1, 7, -1} << "WHERE f.carId=7 ";
    QTest::newRow("raceway, driver") << QList<int>{5, -1, -1, 8} << "WHERE f.racewayId=5 AND f.driverId=8 ";
    QTest::newRow("track, car") << QList<int>{-1, 0, 7, -1} << "WHERE f.trackId=0 AND f.carId=7 ";
    QTest::newRow("all") << QList<int>{5, 6, 7, 8}
                         << "WHERE f.racewayId=5 AND f.trackId=6 AND f.carId=7 AND f.driverId=8 ";
}

void tst_CFastestLapList::aFilterNamesItsCriteriaInOrder()
{
    QFETCH(const QList<int>, ids);
    QFETCH(const QString, condition);
    CFastestLapList list;
    const QString statement = statementOf(list.filterModel(ids[0], ids[1], ids[2], ids[3]));
    QCOMPARE(statement.mid(statement.indexOf("WHERE")), condition + "ORDER BY f.time ASC");
}

void tst_CFastestLapList::aFilterShowsNamesAndTheFastestFirst()
{
    CFastestLapList list;
    addEightRecords(list);

    QCOMPARE(rowsOf(list.filterModel(1, -1, -1, -1)),
             (QStringList{"Ben|LMP|1|1600", "Anna|LMP|1|1700", "Ben|GT|1|1800", "Anna|GT|1|1900"}));
    QCOMPARE(rowsOf(list.filterModel(1, 11, 21, -1)), (QStringList{"Ben|GT|1|1800", "Anna|GT|1|1900"}));
    QCOMPARE(rowsOf(list.filterModel(2, -1, 22, 31)), QStringList{"Anna|LMP|1|1300"});
    QCOMPARE(rowsOf(list.filterModel(1, 12, -1, -1)), QStringList());
    QCOMPARE(list.filterModel(-1, -1, -1, -1)->rowCount(), 8);
}

void tst_CFastestLapList::aRecordWhoseCarDriverOrTrackIsGoneStays()
{
    CFastestLapList list;
    addEightRecords(list);
    DatabaseFile().exec("DELETE FROM cars WHERE id = 22");
    DatabaseFile().exec("DELETE FROM driver WHERE id = 31");
    DatabaseFile().exec("DELETE FROM tracks");
    QCOMPARE(rowsOf(list.filterModel(1, -1, -1, -1)),
             (QStringList{"Ben|||1600", "|||1700", "Ben|GT||1800", "|GT||1900"}));
}

void tst_CFastestLapList::anExportWritesWhatTheFilterShows()
{
    CFastestLapList list;
    addEightRecords(list);
    list.exportCsv("laps.csv", "Müllers Ring", "mm:ss,zzz", 1, -1, 21, -1);
    QCOMPARE(DatabaseFile::linesOf("laps.csv"),
             (QStringList{"Rennstrecke;Fahrer;Fahrzeug;Spur;Bestzeit; ", "Müllers Ring;Ben;GT;1;00:01,800; ",
                          "Müllers Ring;Anna;GT;1;00:01,900; "}));
}

void tst_CFastestLapList::anExportWithoutRecordsIsTheHeaderAlone()
{
    CFastestLapList list;
    list.exportCsv("laps.csv", "Ring", "mm:ss,zzz", 1, -1, -1, -1);
    QCOMPARE(contentOf("laps.csv"), QByteArray("Rennstrecke;Fahrer;Fahrzeug;Spur;Bestzeit; \n"));
}

void tst_CFastestLapList::anExportedHourIsLost_data()
{
    QTest::addColumn<quint32>("time");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("cell");
    QTest::newRow("seconds") << 61234U << "s,zzz"
                             << "1,234";
    QTest::newRow("under an hour") << 3599999U << "mm:ss,zzz"
                                   << "59:59,999";
    QTest::newRow("one hour") << 3600000U << "mm:ss,zzz"
                              << "00:00,000";
    QTest::newRow("more than an hour") << 3661007U << "mm:ss,zzz"
                                       << "01:01,007";
    QTest::newRow("quoted") << 61234U << "\"mm:ss:zzz\t\""
                            << "\"01:01:234\t\"";
    QTest::newRow("more than a day") << 86400000U + 1002U << "mm:ss,zzz"
                                     << "00:01,002";
    QTest::newRow("more than the signed range") << 4294967295U << "mm:ss,zzz"
                                                << "02:47,295";
}

void tst_CFastestLapList::anExportedHourIsLost()
{
    QFETCH(const quint32, time);
    QFETCH(const QString, format);
    QFETCH(const QString, cell);
    CFastestLapList list;
    list.addRecord(lapOf(1, 99, 99, 99, time));
    list.exportCsv("laps.csv", "Ring", format, -1, -1, -1, -1);
    QCOMPARE(DatabaseFile::linesOf("laps.csv").value(1), "Ring;;;;" + cell + "; ");
}

void tst_CFastestLapList::anExportToAFileThatCannotBeOpenedWritesNothing()
{
    CFastestLapList list;
    addEightRecords(list);
    list.exportCsv("none/laps.csv", "Ring", "s,zzz", 1, -1, -1, -1);
    QVERIFY(!QFile::exists("none"));
}

void tst_CFastestLapList::aDatabaseThatCannotBeOpenedGivesNoRecord()
{
    QVERIFY(QDir().mkdir("tornik.db"));
    CFastestLapList list;
    list.addRecord(lapOf(1, 2, 3, 4, 300));
    QVERIFY(!list.updateTime(lapOf(1, 2, 3, 4, 300)));
    list.updateRecord(0, lapOf(1, 2, 3, 4, 300));
    list.removeRecord(0);
    list.removeAll();
    QCOMPARE(list.count(), 0);
    QCOMPARE(textOf(list.findRecord(1, 2, 3, 4)), NoRecord);
    QCOMPARE(textOf(list.recordAt(0)), NoRecord);
    QCOMPARE(list.allModel()->rowCount(), 0);
}

QTEST_GUILESS_MAIN(tst_CFastestLapList)
#include "tst_CFastestLapList.moc"
