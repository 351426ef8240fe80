#include "race/CRaceList.h"
#include "race/StoredRaceFixture.h"
#include "support/ModelTexts.h"

#include <QtTest>

namespace {

/** @return the ids of the races, of the participants and of the laps. */
QStringList storedIds()
{
    DatabaseFile file;
    return {file.rows("SELECT id FROM races ORDER BY id").join(' '),
            file.rows("SELECT id FROM raceParticipants ORDER BY id").join(' '),
            file.rows("SELECT id FROM laps ORDER BY id").join(' ')};
}

} // namespace

class tst_CRaceList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aRaceIsStoredWithDateNameAndSettings();
    void theDateIsTheStartOfTheRaceWithoutAZone();
    void eachLapIsStoredWithItsSectors();
    void timesAreWrittenAsUnsignedNumbers();
    void lapNumbersRunFrom1WithoutGapsWhateverTheCountingOfTheRace();
    void fourMembersOneWithoutLapsGiveFourParticipants();
    void aRaceWithoutMembersIsARowAlone();
    void aNameWithASingleQuoteStoresNothing();
    void aNameCannotBringAStatementOfItsOwn();
    void otherNamesAreStoredAsTheyAre_data();
    void otherNamesAreStoredAsTheyAre();
    void aRaceCanBeStoredTwice();
    void aRaceThatRunsIsStoredWithTheLapsSoFar();
    void eachStatementIsCommittedByItself();
    void aLapThatFailsIsPassedOver();
    void aParticipantThatFailsLosesItsLapsAlone();

    void racesAreCounted();
    void removingARaceOfTwoLeavesTheLapsOfTheSecond();
    void removingARaceWithoutParticipantsDeletesNoLaps();
    void removingARaceTakesTheRowInTheOrderOfTheDates();
    void removingTheLastOfManyRacesFindsIt();
    void removingARowThatThereIsNotChangesNothing_data();
    void removingARowThatThereIsNotChangesNothing();
    void removingAllLeavesParticipantsAndLaps();

    void theRaceModelIsSortedByTheTextOfTheDate();
    void theParticipantModelShowsNamesAndTrackNumbers();
    void theParticipantModelCanBeFilledAgain();
    void theLapModelShowsTheLapsOfOneParticipant();
    void anEmptyFileGivesEmptyModelsWithHeaders();
    void aDatabaseThatCannotBeOpenedStoresNothing();

private:
    std::unique_ptr<ScratchDirectory> m_scratch;
};

void tst_CRaceList::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
}

void tst_CRaceList::cleanup()
{
    closeDatabase(); // the race's list of fastest laps has kept its reference
    m_scratch.reset();
}

void tst_CRaceList::aRaceIsStoredWithDateNameAndSettings()
{
    StoredRaceFixture fixture;
    fixture.useLapLimit(12);
    const CRace& race = fixture.start();

    CRaceList().saveRace(race, "Stadtmeisterschaft 1");

    const QString date = race.raceDateTime().toString(Qt::ISODate);
    QCOMPARE(DatabaseFile().rows("SELECT id, date, name, settings FROM races"),
             QStringList{"1|" + date + "|Stadtmeisterschaft 1|" + fixture.raceSettings.toText()});
}

void tst_CRaceList::theDateIsTheStartOfTheRaceWithoutAZone()
{
    StoredRaceFixture fixture;
    fixture.start();
    CRaceList().saveRace(fixture.race(), "A");

    const QString date = DatabaseFile().value("SELECT date FROM races");
    QVERIFY2(QRegularExpression("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d$").match(date).hasMatch(),
             qPrintable(date));
    const auto age = QDateTime::fromString(date, Qt::ISODate).secsTo(fixture.race().raceDateTime());
    QCOMPARE(age, 0);
}

void tst_CRaceList::eachLapIsStoredWithItsSectors()
{
    StoredRaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.numberOfSectors = 3; });
    fixture.start();
    fixture.driveSectors(0, 1000, {300, 400, 500});
    fixture.driveSectors(1, 3000, {1000, 2000, 3000});

    CRaceList().saveRace(fixture.race(), "A");

    DatabaseFile file;
    QCOMPARE(file.rows("SELECT id, raceId, driverId, trackId, carId FROM raceParticipants"),
             (QStringList{"1|1|100|31|200", "2|1|101|32|201"}));
    QCOMPARE(file.rows("SELECT participantId, lapNumber, time, sector1Time, sector2Time, sector3Time "
                       "FROM laps"),
             (QStringList{"1|1|1200|300|400|500", "2|1|6000|1000|2000|3000"}));
}

// A sector 3 without its sector 2 leaves a raw stamp behind, which passes the signed range.
void tst_CRaceList::timesAreWrittenAsUnsignedNumbers()
{
    StoredRaceFixture fixture(1);
    fixture.changeRaceway([](CRaceway& raceway) { raceway.numberOfSectors = 3; });
    fixture.start();
    const int begin = std::numeric_limits<int>::min() + 1000;
    fixture.sensorsAt(begin, {PortId::lapSensor(0)});
    fixture.sensorsAt(begin + 500, {PortId::sector3Sensor(0)});
    fixture.sensorsAt(begin + 900, {PortId::lapSensor(0)});

    CRaceList().saveRace(fixture.race(), "A");

    QCOMPARE(DatabaseFile().rows("SELECT time, sector1Time, sector2Time FROM laps"),
             QStringList{"900|900|2147485148"});
}

void tst_CRaceList::lapNumbersRunFrom1WithoutGapsWhateverTheCountingOfTheRace()
{
    StoredRaceFixture fixture(1);
    fixture.useLapLimit(25);
    fixture.raceSettings.setLapsCountDown(true);
    fixture.start();
    fixture.drive(0, {1000, 1100, 50, 1200, 900});
    QCOMPARE(fixture.memberEvents.last().laps, 21);

    CRaceList().saveRace(fixture.race(), "A");

    QCOMPARE(DatabaseFile().rows("SELECT lapNumber, time FROM laps ORDER BY id"),
             (QStringList{"1|1000", "2|1100", "3|1250", "4|900"}));
}

void tst_CRaceList::fourMembersOneWithoutLapsGiveFourParticipants()
{
    StoredRaceFixture fixture(4);
    fixture.start();
    fixture.drive(0, {1000});
    fixture.drive(1, {1100, 1200});
    fixture.drive(3, {1300});

    CRaceList().saveRace(fixture.race(), "A");

    QCOMPARE(DatabaseFile().rows("SELECT raceId, driverId, trackId, carId FROM raceParticipants"),
             (QStringList{"1|100|31|200", "1|101|32|201", "1|102|33|202", "1|103|34|203"}));
    QCOMPARE(DatabaseFile().rows("SELECT participantId, lapNumber, time FROM laps"),
             (QStringList{"1|1|1000", "2|1|1100", "2|2|1200", "4|1|1300"}));
}

void tst_CRaceList::aRaceWithoutMembersIsARowAlone()
{
    StoredRaceFixture fixture(0);
    fixture.start();
    CRaceList().saveRace(fixture.race(), "A");

    QCOMPARE(storedIds(), (QStringList{"1", "", ""}));
}

void tst_CRaceList::aNameWithASingleQuoteStoresNothing()
{
    StoredRaceFixture fixture;
    fixture.start();
    fixture.drive(0, {1000, 1100});
    CRaceList list;
    list.saveRace(fixture.race(), "before");
    const QStringList before = DatabaseFile().dump();

    list.saveRace(fixture.race(), "Rock 'n Roll");

    QCOMPARE(DatabaseFile().dump(), before);
    list.saveRace(fixture.race(), "after");
    QCOMPARE(storedIds(), (QStringList{"1 2", "1 2 3 4", "1 2 3 4"}));
}

void tst_CRaceList::aNameCannotBringAStatementOfItsOwn()
{
    StoredRaceFixture fixture;
    fixture.start();
    fixture.drive(0, {1000});
    CRaceList list;
    list.saveRace(fixture.race(), "before");
    const QStringList before = DatabaseFile().dump();

    list.saveRace(fixture.race(), "x',''); DELETE FROM laps; --");

    QCOMPARE(DatabaseFile().dump(), before);
}

void tst_CRaceList::otherNamesAreStoredAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QString("");
    QTest::newRow("umlauts") << QString("Großer Preis von Köln");
    QTest::newRow("punctuation") << QString("\"A\"; B? C:1 -- %1 \\");
    QTest::newRow("long") << QString(10000, 'x');
}

void tst_CRaceList::otherNamesAreStoredAsTheyAre()
{
    QFETCH(const QString, name);
    StoredRaceFixture fixture;
    fixture.start();
    CRaceList().saveRace(fixture.race(), name);

    QCOMPARE(DatabaseFile().rows("SELECT name FROM races"), QStringList{name});
}

void tst_CRaceList::aRaceCanBeStoredTwice()
{
    StoredRaceFixture fixture(1);
    fixture.start();
    fixture.drive(0, {1000});
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    list.saveRace(fixture.race(), "A");

    QCOMPARE(DatabaseFile().rows("SELECT id, raceId FROM raceParticipants"), (QStringList{"1|1", "2|2"}));
    QCOMPARE(DatabaseFile().rows("SELECT id, participantId FROM laps"), (QStringList{"1|1", "2|2"}));
}

void tst_CRaceList::aRaceThatRunsIsStoredWithTheLapsSoFar()
{
    StoredRaceFixture fixture(1);
    fixture.start();
    fixture.drive(0, {1000, 1100});
    fixture.race().saveToDatabase("so far");

    QCOMPARE(storedLaps(), (QStringList{"so far|100|31|200|1|1000", "so far|100|31|200|2|1100"}));
    QVERIFY(fixture.race().isRaceActive());
}

// Each commit counts the change counter of the file, at byte 24, up by one.
void tst_CRaceList::eachStatementIsCommittedByItself()
{
    StoredRaceFixture fixture(2);
    fixture.start();
    fixture.drive(0, std::vector<int>(20, 1000));
    fixture.drive(1, std::vector<int>(10, 1000));
    CRaceList list;
    const auto changes = [] {
        return qFromBigEndian<quint32>(contentOf("tornik.db").mid(24, 4).constData());
    };
    const quint32 before = changes();

    list.saveRace(fixture.race(), "A");

    QCOMPARE(changes() - before, quint32(1 + 2 + 30));
}

void tst_CRaceList::aLapThatFailsIsPassedOver()
{
    StoredRaceFixture fixture(2);
    fixture.start();
    fixture.drive(0, {1000, 1100, 1200});
    fixture.drive(1, {1300});
    QVERIFY(DatabaseFile().exec("CREATE TRIGGER full BEFORE INSERT ON laps WHEN NEW.time = 1100 "
                                "BEGIN SELECT RAISE(ABORT, 'full'); END"));

    CRaceList().saveRace(fixture.race(), "A");

    QCOMPARE(DatabaseFile().rows("SELECT participantId, lapNumber, time FROM laps"),
             (QStringList{"1|1|1000", "1|3|1200", "2|1|1300"}));
}

void tst_CRaceList::aParticipantThatFailsLosesItsLapsAlone()
{
    StoredRaceFixture fixture(2);
    fixture.start();
    fixture.drive(0, {1000, 1100});
    fixture.drive(1, {1300});
    QVERIFY(DatabaseFile().exec("CREATE TRIGGER full BEFORE INSERT ON raceParticipants "
                                "WHEN NEW.driverId = 100 BEGIN SELECT RAISE(ABORT, 'full'); END"));

    CRaceList().saveRace(fixture.race(), "A");

    QCOMPARE(storedLaps(), QStringList{"A|101|32|201|1|1300"});
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM laps"), QString("1"));
}

void tst_CRaceList::racesAreCounted()
{
    StoredRaceFixture fixture;
    fixture.start();
    CRaceList list;
    QCOMPARE(list.count(), 0);
    for (int i = 1; i <= 3; ++i) {
        list.saveRace(fixture.race(), QString::number(i));
        QCOMPARE(list.count(), i);
    }
}

void tst_CRaceList::removingARaceOfTwoLeavesTheLapsOfTheSecond()
{
    StoredRaceFixture fixture(2);
    fixture.start();
    fixture.drive(0, {1000, 1100});
    fixture.drive(1, {1300, 1400});
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    QCOMPARE(storedIds(), (QStringList{"1", "1 2", "1 2 3 4"}));

    list.removeRace(0);

    QCOMPARE(storedIds(), (QStringList{"", "", "3 4"}));
    QCOMPARE(DatabaseFile().rows("SELECT participantId, time FROM laps"), (QStringList{"2|1300", "2|1400"}));
}

void tst_CRaceList::removingARaceWithoutParticipantsDeletesNoLaps()
{
    StoredRaceFixture fixture(1);
    fixture.start();
    fixture.drive(0, {1000});
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    QVERIFY(DatabaseFile().exec("INSERT INTO races(date, name) VALUES('0001-01-01T00:00:00', 'alone')"));

    list.removeRace(0);

    QCOMPARE(storedIds(), (QStringList{"1", "1", "1"}));
}

void tst_CRaceList::removingARaceTakesTheRowInTheOrderOfTheDates()
{
    CRaceList list;
    DatabaseFile().exec("INSERT INTO races(date, name) VALUES('2026-03-01T10:00:00', 'C'), "
                        "('2026-01-01T10:00:00', 'A'), ('2026-02-01T10:00:00', 'B')");

    list.removeRace(1);
    QCOMPARE(DatabaseFile().rows("SELECT name FROM races ORDER BY date"), (QStringList{"A", "C"}));
    list.removeRace(0);
    QCOMPARE(DatabaseFile().rows("SELECT name FROM races ORDER BY date"), QStringList{"C"});
}

void tst_CRaceList::removingTheLastOfManyRacesFindsIt()
{
    CRaceList list;
    DatabaseFile().exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 600) "
                        "INSERT INTO races(date, name) SELECT printf('%08d', i), i FROM n");
    QCOMPARE(list.count(), 600);
    QCOMPARE(list.raceModel()->rowCount(), 600);

    list.removeRace(599);

    QCOMPARE(DatabaseFile().value("SELECT MAX(date) FROM races"), QString("00000599"));
    QCOMPARE(list.count(), 599);
}

void tst_CRaceList::removingARowThatThereIsNotChangesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("before the first") << -1;
    QTest::newRow("behind the last") << 1;
    QTest::newRow("far behind") << std::numeric_limits<int>::max();
}

void tst_CRaceList::removingARowThatThereIsNotChangesNothing()
{
    QFETCH(const int, row);
    StoredRaceFixture fixture(1);
    fixture.start();
    fixture.drive(0, {1000});
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    const QStringList before = DatabaseFile().dump();

    list.removeRace(row);

    QCOMPARE(DatabaseFile().dump(), before);
}

void tst_CRaceList::removingAllLeavesParticipantsAndLaps()
{
    StoredRaceFixture fixture(2);
    fixture.start();
    fixture.drive(0, {1000, 1100});
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    list.saveRace(fixture.race(), "B");

    list.removeAll();

    QCOMPARE(list.count(), 0);
    QCOMPARE(storedIds(), (QStringList{"", "1 2 3 4", "1 2 3 4"}));
}

void tst_CRaceList::theRaceModelIsSortedByTheTextOfTheDate()
{
    CRaceList list;
    DatabaseFile().exec(
        "INSERT INTO races(date, name, settings) VALUES('2026-10-01T09:00:00', 'third', 's3'), "
        "('2026-09-30T23:59:59', 'second', 's2'), ('2025-12-31T10:00:00', 'first', 's1')");

    const QAbstractItemModel* model = list.raceModel();

    QCOMPARE(headersOf(model), (QStringList{"Name", "date", "settings"}));
    QCOMPARE(rowsOf(model), (QStringList{"first|2025-12-31T10:00:00|s1", "second|2026-09-30T23:59:59|s2",
                                         "third|2026-10-01T09:00:00|s3"}));
}

void tst_CRaceList::theParticipantModelShowsNamesAndTrackNumbers()
{
    StoredRaceFixture fixture(2);
    fixture.start();
    DatabaseFile().exec("INSERT INTO driver(id, name) VALUES(100, 'Anna'), (101, 'Ben')");
    DatabaseFile().exec("INSERT INTO cars(id, name) VALUES(200, 'GT'), (201, 'LMP')");
    DatabaseFile().exec("INSERT INTO tracks(id, noOfTrack) VALUES(31, 1), (32, 2)");
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    list.saveRace(fixture.race(), "B");

    const QAbstractItemModel* model = list.participantModel(2);

    QCOMPARE(headersOf(model).mid(2), (QStringList{"Fahrer", "Spur", "Fahrzeug"}));
    QCOMPARE(rowsOf(model), (QStringList{"3|2|Anna|1|GT", "4|2|Ben|2|LMP"}));
}

void tst_CRaceList::theParticipantModelCanBeFilledAgain()
{
    StoredRaceFixture fixture(1);
    fixture.start();
    DatabaseFile().exec("INSERT INTO driver(id, name) VALUES(100, 'Anna')");
    DatabaseFile().exec("INSERT INTO cars(id, name) VALUES(200, 'GT')");
    DatabaseFile().exec("INSERT INTO tracks(id, noOfTrack) VALUES(31, 1)");
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    list.saveRace(fixture.race(), "B");

    QCOMPARE(rowsOf(list.participantModel(2)), QStringList{"2|2|Anna|1|GT"});
    QCOMPARE(rowsOf(list.participantModel(1)), QStringList{"1|1|Anna|1|GT"});
    QCOMPARE(headersOf(list.participantModel(1)).mid(2), (QStringList{"Fahrer", "Spur", "Fahrzeug"}));
    QCOMPARE(rowsOf(list.participantModel(7)), QStringList());
}

void tst_CRaceList::theLapModelShowsTheLapsOfOneParticipant()
{
    CRaceList list;
    DatabaseFile().exec("INSERT INTO laps(participantId, lapNumber, time, sector1Time, sector2Time, "
                        "sector3Time) VALUES(4, 2, 20, 21, 22, 23), (4, 1, 10, 11, 12, 13), "
                        "(5, 1, 90, 91, 92, 93), (4, 10, 30, 31, 32, 33)");

    const QAbstractItemModel* model = list.lapModel(4);

    QCOMPARE(headersOf(model), (QStringList{"Runde", "Zeit", "Sektor 1", "Sektor 2", "Sektor 3"}));
    QCOMPARE(rowsOf(model), (QStringList{"1|10|11|12|13", "2|20|21|22|23", "10|30|31|32|33"}));
}

void tst_CRaceList::anEmptyFileGivesEmptyModelsWithHeaders()
{
    CRaceList list;
    QCOMPARE(list.raceModel()->rowCount(), 0);
    QCOMPARE(headersOf(list.raceModel()).size(), 3);
    QCOMPARE(list.lapModel(1)->rowCount(), 0);
    QCOMPARE(headersOf(list.lapModel(1)).size(), 5);
    QCOMPARE(list.participantModel(1)->rowCount(), 0);
}

void tst_CRaceList::aDatabaseThatCannotBeOpenedStoresNothing()
{
    QVERIFY(QDir().mkdir("tornik.db"));
    StoredRaceFixture fixture(1);
    fixture.start();
    fixture.drive(0, {1000});
    CRaceList list;
    list.saveRace(fixture.race(), "A");
    list.removeRace(0);
    list.removeAll();

    QCOMPARE(list.count(), 0);
    QCOMPARE(list.raceModel()->rowCount(), 0);
    QCOMPARE(list.participantModel(1)->rowCount(), 0);
    QCOMPARE(list.lapModel(1)->rowCount(), 0);
    fixture.race().vStop();
    QVERIFY(fixture.log.contains("info 'Rennen wurde beendet'"));
}

QTEST_GUILESS_MAIN(tst_CRaceList)
#include "tst_CRaceList.moc"
