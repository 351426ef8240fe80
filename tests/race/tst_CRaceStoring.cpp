#include "data/CCarList.h"
#include "race/StoredRaceFixture.h"

#include <QtTest>

namespace {

QStringList fastestLaps()
{
    return DatabaseFile().rows(
        "SELECT racewayId, trackId, carId, driverId, time FROM fastestLapTimes ORDER BY id");
}

/** Lets the file itself write down what is stored, in order. */
bool recordStatements()
{
    DatabaseFile file;
    const QString trigger =
        "CREATE TRIGGER on%1 AFTER %2 ON %1 BEGIN INSERT INTO told VALUES('%1 ' || %3); END";
    return file.exec("CREATE TABLE told (what TEXT)") &&
           file.exec(trigger.arg("races", "INSERT", "NEW.name")) &&
           file.exec(trigger.arg("raceParticipants", "INSERT", "NEW.carId")) &&
           file.exec(trigger.arg("laps", "INSERT", "NEW.time")) &&
           file.exec(trigger.arg("cars", "UPDATE", "NEW.distanceDriven")) &&
           file.exec(trigger.arg("fastestLapTimes", "INSERT", "NEW.time"));
}

QStringList toldStatements()
{
    return DatabaseFile().rows("SELECT what FROM told ORDER BY rowid");
}

bool addCars()
{
    return DatabaseFile().exec("INSERT INTO cars(id, name, distanceDriven) VALUES(200, 'GT', 0), "
                               "(201, 'LMP', 0), (202, 'F1', 0)");
}

QStringList distances()
{
    return DatabaseFile().rows("SELECT id, distanceDriven FROM cars WHERE id >= 200 ORDER BY id");
}

} // namespace

/** What a race leaves in the database at its end. */
class tst_CRaceStoring : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theSettingsDecideWhatIsStored_data();
    void theSettingsDecideWhatIsStored();
    void everythingIsStoredInOrder();
    void storingComesBeforeTheWordsForTheUser();
    void aRecordedRaceIsStoredWithExactlyItsLaps();
    void aRaceThatItsLapLimitEndsIsStoredWithItsLastLaps();
    void aDeadHeatIsStoredOnce();
    void aFalseStartIsStoredOnceWithoutLaps();
    void aQuickRaceAfterARecordedOneIsNotStored();
    void aRecordedRaceIsForgottenAtItsStop();
    void aStopOutsideARaceStoresNothing();
    void aStoppedRaceCanStillBeStored();
    void aRacePausedAtItsStopIsStored();

    void distancesAddUpOverRaces();
    void aCarThatIsNotInTheTableHindersNoOther();

    void theFirstRaceGivesOneRecordPerMemberWithLaps();
    void theSameCarAndDriverOnAnotherTrackGetARecordOfTheirOwn();
    void aSlowerOrEqualRaceLeavesTheRecord_data();
    void aSlowerOrEqualRaceLeavesTheRecord();
    void aFasterRaceChangesTheTimeOfItsRecordAlone();
    void theBestLapOfTheRaceCounts();
    void recordsAreKeptApartOverRacewaysTracksCarsAndDrivers();
    void aRenamedCarKeepsItsRecords();
    void twoCarsOfTheSameNameHaveRecordsOfTheirOwn();
    void recordsOutliveTheRace();

private:
    std::unique_ptr<ScratchDirectory> m_scratch;
};

void tst_CRaceStoring::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
}

void tst_CRaceStoring::cleanup()
{
    closeDatabase(); // the race's list of fastest laps has kept its reference
    m_scratch.reset();
}

void tst_CRaceStoring::theSettingsDecideWhatIsStored_data()
{
    QTest::addColumn<bool>("recorded");
    QTest::addColumn<bool>("distances");
    QTest::addColumn<bool>("fastestLaps");
    for (int i = 0; i < 8; ++i)
        QTest::addRow("recorded %d, distances %d, fastest laps %d", i & 1, i >> 1 & 1, i >> 2 & 1)
            << bool(i & 1) << bool(i & 2) << bool(i & 4);
}

void tst_CRaceStoring::theSettingsDecideWhatIsStored()
{
    QFETCH(const bool, recorded);
    QFETCH(const bool, distances);
    QFETCH(const bool, fastestLaps);
    StoredRaceFixture fixture(1);
    fixture.raceSettings.setMonitorDistanceDriven(distances);
    fixture.raceSettings.setMonitorFastestLap(fastestLaps);
    fixture.make();
    QVERIFY(addCars());

    if (recorded)
        fixture.runRecordedRace("A", {{1000, 1100}});
    else
        fixture.runQuickRace({{1000, 1100}});

    DatabaseFile file;
    QCOMPARE(file.value("SELECT COUNT(*) FROM races").toInt(), recorded ? 1 : 0);
    QCOMPARE(file.value("SELECT COUNT(*) FROM raceParticipants").toInt(), recorded ? 1 : 0);
    QCOMPARE(file.value("SELECT COUNT(*) FROM laps").toInt(), recorded ? 2 : 0);
    QCOMPARE(file.value("SELECT distanceDriven FROM cars WHERE id = 200").toInt(), distances ? 200 : 0);
    QCOMPARE(file.value("SELECT COUNT(*) FROM fastestLapTimes").toInt(), fastestLaps ? 1 : 0);
}

void tst_CRaceStoring::everythingIsStoredInOrder()
{
    StoredRaceFixture fixture(2);
    fixture.raceSettings.setMonitorDistanceDriven(true);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    QVERIFY(addCars());
    QVERIFY(recordStatements());

    fixture.runRecordedRace("A", {{1000, 1100}, {1200}});

    QCOMPARE(toldStatements(), (QStringList{"races A", "raceParticipants 200", "laps 1000", "laps 1100",
                                            "raceParticipants 201", "laps 1200", "cars 200", "cars 200",
                                            "fastestLapTimes 1000", "fastestLapTimes 1200"}));
}

void tst_CRaceStoring::storingComesBeforeTheWordsForTheUser()
{
    StoredRaceFixture fixture(1);
    CRace& race = fixture.make();
    int racesAtTheWords = -1;
    QList<int> statusesAtTheWords;
    connect(&race, &CRace::raceInfoText, &race, [&](const QString& text) {
        if (text == "Rennen wurde beendet") {
            racesAtTheWords = DatabaseFile().value("SELECT COUNT(*) FROM races").toInt();
            statusesAtTheWords = fixture.statuses();
        }
    });

    fixture.runRecordedRace("A", {{1000}});

    QCOMPARE(racesAtTheWords, 1);
    QCOMPARE(statusesAtTheWords, QList<int>{int(CRaceMemberStatus::Finished)});
}

void tst_CRaceStoring::aRecordedRaceIsStoredWithExactlyItsLaps()
{
    StoredRaceFixture fixture(4);
    fixture.make();
    fixture.runRecordedRace("Großer Preis", {{1000, 1100, 950}, {2000}, {}, {1500, 1600}});

    const QString driver = "Großer Preis|%1|%2|%3|";
    QStringList expected{driver.arg(102).arg(33).arg(202) + "NULL|NULL"};
    for (int track = 0; track < 4; ++track) {
        const CRaceMember member = fixture.race().raceMember(track);
        for (int lap = 0; lap < member.numberOfLaps(); ++lap)
            expected << driver.arg(100 + track).arg(31 + track).arg(200 + track) +
                            QString("%1|%2").arg(lap + 1).arg(member.lap(lap).lapTime);
    }
    QCOMPARE(expected.size(), 7);
    QCOMPARE(storedLaps(), expected);
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM laps"), QString("6"));
    QCOMPARE(DatabaseFile().value("SELECT date FROM races"),
             fixture.race().raceDateTime().toString(Qt::ISODate));
}

void tst_CRaceStoring::aRaceThatItsLapLimitEndsIsStoredWithItsLastLaps()
{
    StoredRaceFixture fixture(2);
    fixture.useLapLimit(2);
    fixture.make().vStartRecordedRace("A");
    fixture.sensorsAt(1000, {1, 2});
    fixture.sensorsAt(2000, {1, 2});
    fixture.sensorsAt(3100, {1});
    fixture.sensorsAt(3200, {2});

    QVERIFY(!fixture.race().isRaceActive());
    QCOMPARE(storedLaps(),
             (QStringList{"A|100|31|200|1|1000", "A|100|31|200|2|1100", "A|101|32|201|1|1000"}));
}

void tst_CRaceStoring::aDeadHeatIsStoredOnce()
{
    StoredRaceFixture fixture(2);
    fixture.useLapLimit(1);
    fixture.make().vStartRecordedRace("A");
    fixture.sensorsAt(1000, {1, 2});
    fixture.sensorsAt(2000, {1, 2});

    QCOMPARE(storedLaps(), (QStringList{"A|100|31|200|1|1000", "A|101|32|201|1|1000"}));
}

void tst_CRaceStoring::aFalseStartIsStoredOnceWithoutLaps()
{
    StoredRaceFixture fixture(2);
    fixture.useTimedStart();
    fixture.make().vStartRecordedRace("A");
    fixture.sensorsAt(1000, {1, 2});

    QCOMPARE(storedLaps(), (QStringList{"A|100|31|200|NULL|NULL", "A|101|32|201|NULL|NULL"}));
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM races"), QString("1"));
}

void tst_CRaceStoring::aQuickRaceAfterARecordedOneIsNotStored()
{
    StoredRaceFixture fixture(1);
    fixture.make();
    fixture.runRecordedRace("A", {{1000}});
    fixture.runQuickRace({{1100}});
    QCOMPARE(storedLaps(), QStringList{"A|100|31|200|1|1000"});

    fixture.runRecordedRace("B", {{1200}});
    QCOMPARE(storedLaps(), (QStringList{"A|100|31|200|1|1000", "B|100|31|200|1|1200"}));
}

// A start that says nothing of the kind of race runs a race that isn't recorded.
void tst_CRaceStoring::aRecordedRaceIsForgottenAtItsStop()
{
    StoredRaceFixture fixture(1);
    fixture.make();
    fixture.runRecordedRace("A", {{1000}});

    QVERIFY(fixture.fire("vStart"));
    QVERIFY(fixture.race().isRaceActive());
    fixture.drive(0, {1100});
    fixture.race().vStop();

    QCOMPARE(storedLaps(), QStringList{"A|100|31|200|1|1000"});
}

void tst_CRaceStoring::aStopOutsideARaceStoresNothing()
{
    StoredRaceFixture fixture(1);
    fixture.raceSettings.setMonitorDistanceDriven(true);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.race().vStop();
    fixture.runRecordedRace("A", {{1000}});
    const QStringList before = DatabaseFile().dump();

    fixture.race().vStop();

    QCOMPARE(DatabaseFile().dump(), before);
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM races"), QString("1"));
}

void tst_CRaceStoring::aStoppedRaceCanStillBeStored()
{
    StoredRaceFixture fixture(1);
    fixture.make();
    fixture.runQuickRace({{1000}});
    QCOMPARE(storedLaps(), QStringList());

    fixture.race().saveToDatabase("later");

    QCOMPARE(storedLaps(), QStringList{"later|100|31|200|1|1000"});
}

void tst_CRaceStoring::aRacePausedAtItsStopIsStored()
{
    StoredRaceFixture fixture(1);
    fixture.make().vStartRecordedRace("A");
    fixture.drive(0, {1000});
    fixture.race().vPause();
    fixture.race().vStop();

    QCOMPARE(storedLaps(), QStringList{"A|100|31|200|1|1000"});
}

void tst_CRaceStoring::distancesAddUpOverRaces()
{
    StoredRaceFixture fixture(2);
    fixture.raceSettings.setMonitorDistanceDriven(true);
    fixture.make();
    QVERIFY(addCars());
    CCarList cars; // as the main dialog has one, from which it takes the cars before each start
    const auto takeCar = [&](int track, const QString& name) {
        fixture.raceSettings.setCar(track, cars.carAt(cars.rowOfName(name)));
    };
    takeCar(0, "GT");
    takeCar(1, "LMP");
    fixture.runQuickRace({{1000, 1000, 1000}, {1000}});
    QCOMPARE(distances(), (QStringList{"200|300", "201|200", "202|0"}));

    takeCar(0, "LMP");
    takeCar(1, "GT");
    fixture.runRecordedRace("A", {{1000}, {1000, 1000}});
    QCOMPARE(distances(), (QStringList{"200|700", "201|300", "202|0"}));

    takeCar(0, "F1");
    takeCar(1, "GT");
    fixture.runQuickRace({{1000, 1000}, {}});
    QCOMPARE(distances(), (QStringList{"200|700", "201|300", "202|200"}));
}

void tst_CRaceStoring::aCarThatIsNotInTheTableHindersNoOther()
{
    StoredRaceFixture fixture(3);
    fixture.raceSettings.setMonitorDistanceDriven(true);
    fixture.useCar(1, -1);
    fixture.make();
    QVERIFY(addCars());
    fixture.runQuickRace({{1000}, {1000}, {1000}});
    QCOMPARE(distances(), (QStringList{"200|100", "201|0", "202|300"}));
}

void tst_CRaceStoring::theFirstRaceGivesOneRecordPerMemberWithLaps()
{
    StoredRaceFixture fixture(3);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runQuickRace({{1000, 900, 1100}, {}, {1500}});
    QCOMPARE(fastestLaps(), (QStringList{"3|31|200|100|900", "3|33|202|102|1500"}));
}

void tst_CRaceStoring::theSameCarAndDriverOnAnotherTrackGetARecordOfTheirOwn()
{
    StoredRaceFixture fixture(2);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runQuickRace({{1000}, {}});
    fixture.useCar(1, 200);
    fixture.useDriver(1, 100);
    fixture.runQuickRace({{}, {900}});
    QCOMPARE(fastestLaps(), (QStringList{"3|31|200|100|1000", "3|32|200|100|900"}));
}

void tst_CRaceStoring::aSlowerOrEqualRaceLeavesTheRecord_data()
{
    QTest::addColumn<int>("lapTime");
    QTest::newRow("slower by one millisecond") << 1001;
    QTest::newRow("much slower") << 100000;
    QTest::newRow("equal") << 1000;
}

void tst_CRaceStoring::aSlowerOrEqualRaceLeavesTheRecord()
{
    QFETCH(const int, lapTime);
    StoredRaceFixture fixture(1);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runQuickRace({{1000}});
    QVERIFY(DatabaseFile().exec("CREATE TRIGGER no BEFORE UPDATE ON fastestLapTimes "
                                "BEGIN INSERT INTO driver(name) VALUES('written'); END"));

    fixture.runQuickRace({{lapTime}});

    QCOMPARE(fastestLaps(), QStringList{"3|31|200|100|1000"});
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM driver WHERE name = 'written'"), QString("0"));
}

void tst_CRaceStoring::aFasterRaceChangesTheTimeOfItsRecordAlone()
{
    StoredRaceFixture fixture(2);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runQuickRace({{1000}, {1000}});
    fixture.runQuickRace({{1000}, {999}});
    QCOMPARE(fastestLaps(), (QStringList{"3|31|200|100|1000", "3|32|201|101|999"}));
    QCOMPARE(DatabaseFile().rows("SELECT id FROM fastestLapTimes"), (QStringList{"1", "2"}));
}

void tst_CRaceStoring::theBestLapOfTheRaceCounts()
{
    StoredRaceFixture fixture(1);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runQuickRace({{1200, 1000, 1100}});
    QCOMPARE(fastestLaps(), QStringList{"3|31|200|100|1000"});
    fixture.runQuickRace({{1500, 980, 970, 1400}});
    QCOMPARE(fastestLaps(), QStringList{"3|31|200|100|970"});
}

void tst_CRaceStoring::recordsAreKeptApartOverRacewaysTracksCarsAndDrivers()
{
    StoredRaceFixture fixture(2);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    QMap<QString, int> expected;
    int lapTime = 50000;
    // Each combination twice; each race is faster than all before it, but for every third.
    for (int turn = 0; turn < 2; ++turn) {
        for (const int raceway : {3, 4}) {
            fixture.useRaceway(raceway);
            for (const int car : {200, 201, 202}) {
                for (const int driver : {100, 101}) {
                    fixture.useCar(0, car);
                    fixture.useDriver(0, driver);
                    fixture.useCar(1, car);
                    fixture.useDriver(1, driver + 10);
                    lapTime += lapTime % 3 == 0 ? 400 : -301;
                    fixture.runQuickRace({{lapTime, lapTime + 5}, {lapTime + 7}});
                    for (const int track : {0, 1}) {
                        const QString key = QString("%1|%2|%3|%4")
                                                .arg(raceway)
                                                .arg(StoredRaceFixture::trackId(raceway, track))
                                                .arg(car)
                                                .arg(driver + 10 * track);
                        const int time = lapTime + 7 * track;
                        expected[key] = qMin(expected.value(key, time), time);
                    }
                }
            }
        }
    }

    QCOMPARE(expected.size(), 24);
    QMap<QString, int> actual;
    for (const QString& row : fastestLaps())
        actual[row.section('|', 0, 3)] = row.section('|', 4).toInt();
    QCOMPARE(actual, expected);
    QCOMPARE(fastestLaps().size(), 24);
}

void tst_CRaceStoring::aRenamedCarKeepsItsRecords()
{
    StoredRaceFixture fixture(1);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runQuickRace({{1000}});
    CCar car = fixture.raceSettings.car(0);
    car.setName("renamed");
    fixture.raceSettings.setCar(0, car);
    fixture.runQuickRace({{900}});
    QCOMPARE(fastestLaps(), QStringList{"3|31|200|100|900"});
}

void tst_CRaceStoring::twoCarsOfTheSameNameHaveRecordsOfTheirOwn()
{
    StoredRaceFixture fixture(1);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runQuickRace({{1000}});
    fixture.useCar(0, 201);
    fixture.runQuickRace({{1100}});
    QCOMPARE(fastestLaps(), (QStringList{"3|31|200|100|1000", "3|31|201|100|1100"}));
}

void tst_CRaceStoring::recordsOutliveTheRace()
{
    StoredRaceFixture fixture(1);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    fixture.runRecordedRace("A", {{1000}});
    fixture.destroyRace();
    closeDatabase();

    fixture.make();
    fixture.runRecordedRace("B", {{900}});
    QCOMPARE(fastestLaps(), QStringList{"3|31|200|100|900"});
    QCOMPARE(storedLaps(), (QStringList{"A|100|31|200|1|1000", "B|100|31|200|1|900"}));
}

QTEST_GUILESS_MAIN(tst_CRaceStoring)
#include "tst_CRaceStoring.moc"
