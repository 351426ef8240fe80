#include "data/CRacewayList.h"
#include "support/DatabaseFile.h"
#include "support/ModelTexts.h"

#include <QtTest>

#include <memory>

namespace {

CRaceway namedRaceway(const QString& name, int tracks = 2)
{
    CRaceway raceway(tracks);
    raceway.name = name;
    return raceway;
}

/** A raceway in which no two values are the same. */
CRaceway fullRaceway()
{
    CRaceway raceway = namedRaceway("Große \"Bahn\" | ;", 2);
    raceway.scale = 32;
    raceway.portOpenState = 65535;
    raceway.chaosButtonState = 513;
    raceway.chaosButtonAvailable = true;
    raceway.pwrOffFeatureAvailable = true;
    raceway.startAndEndSensorSeparate = true;
    raceway.ioSettings = QByteArray("\0\1\2|'\xff\n", 7);
    raceway.minTime = 1500;
    raceway.fuelSensorSetup = 4;
    raceway.numberOfSectors = 3;
    int value = 1000;
    for (CRacewayTrack& track : raceway.tracks) {
        track.length = ++value;
        track.portClosedState = ++value;
        track.fuelSensorClosedState = ++value;
        track.fuelFinishedSensorClosedState = ++value;
        track.sector2BeginSensorClosedState = ++value;
        track.sector3BeginSensorClosedState = ++value;
        track.endSensorClosedState = ++value;
        track.portOpenState = raceway.portOpenState;
    }
    return raceway;
}

void compareTracks(const CRacewayTrack& actual, const CRacewayTrack& expected)
{
    QCOMPARE(actual.length, expected.length);
    QCOMPARE(actual.portClosedState, expected.portClosedState);
    QCOMPARE(actual.portOpenState, expected.portOpenState);
    QCOMPARE(actual.fuelSensorClosedState, expected.fuelSensorClosedState);
    QCOMPARE(actual.fuelFinishedSensorClosedState, expected.fuelFinishedSensorClosedState);
    QCOMPARE(actual.sector2BeginSensorClosedState, expected.sector2BeginSensorClosedState);
    QCOMPARE(actual.sector3BeginSensorClosedState, expected.sector3BeginSensorClosedState);
    QCOMPARE(actual.endSensorClosedState, expected.endSensorClosedState);
}

void compareRaceways(const CRaceway& actual, const CRaceway& expected)
{
    QCOMPARE(actual.name, expected.name);
    QCOMPARE(actual.scale, expected.scale);
    QCOMPARE(actual.portOpenState, expected.portOpenState);
    QCOMPARE(actual.chaosButtonState, expected.chaosButtonState);
    QCOMPARE(actual.chaosButtonAvailable, expected.chaosButtonAvailable);
    QCOMPARE(actual.chaosPhaseOutputAvailable, expected.chaosPhaseOutputAvailable);
    QCOMPARE(actual.pwrOffFeatureAvailable, expected.pwrOffFeatureAvailable);
    QCOMPARE(actual.externalLightsAvailable, expected.externalLightsAvailable);
    QCOMPARE(actual.startAndEndSensorSeparate, expected.startAndEndSensorSeparate);
    QCOMPARE(actual.ioSettings, expected.ioSettings);
    QCOMPARE(actual.minTime, expected.minTime);
    QCOMPARE(actual.fuelSensorSetup, expected.fuelSensorSetup);
    QCOMPARE(actual.numberOfSectors, expected.numberOfSectors);
    QCOMPARE(actual.tracks.size(), expected.tracks.size());
    for (int i = 0; i < actual.tracks.size(); ++i)
        compareTracks(actual.tracks.at(i), expected.tracks.at(i));
}

QList<int> trackIds(const CRaceway& raceway)
{
    QList<int> ids;
    for (const CRacewayTrack& track : raceway.tracks)
        ids << track.id;
    return ids;
}

} // namespace

class tst_CRacewayList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFreshFileHasNoRacewayUntilTheListAddsTheDefaultOne();
    void theDefaultRacewayReadsBackAsItIsBuilt();
    void allColumnsReadBackAsTheyWereWritten();
    void anAddedRacewayIsNotCurrent();
    void aNameWithAQuoteIsStored();
    void removingTheLastRacewayLeavesTheDefaultOneMarkedCurrent();
    void removingTheCurrentRacewayMarksTheFirstInNameOrder();
    void removingAnotherRacewayLeavesTheMarkWhereItIs();
    void removingARacewayRemovesItsTracksOnly();
    void removingAllLeavesTheDefaultOneMarkedCurrent();
    void ofTwoRacewaysOfTheSameNameTheNewOneGetsTheTracks();
    void aRacewayOf3TracksUpdatedTo5KeepsTheIdsOfTheFirstThree();
    void aRacewayOf5TracksUpdatedTo3LosesTheLastTwo();
    void anUpdateOverwritesAllColumnsButTheMark();
    void ioSettingsTextWithoutABarDecodesAsAWhole();
    void ioSettingsTextIsReadUpToItsFirstBar_data();
    void ioSettingsTextIsReadUpToItsFirstBar();
    void masksOfMinusOneStandUnsignedInTheColumnsButTheLapSensorSigned();
    void portStatesAreCutTo16Bits();
    void columnsOfAnotherKindReadAsZero();
    void aMigratedRacewayReadsItsMissingColumnsAsZero();
    void exactlyOneRowIsMarkedCurrent();
    void aMissingMarkIsSetOnTheFirstRow();
    void rowsFollowTheNames();
    void anIdThatThereIsNotHasRow0();
    void aRowThatThereIsNotChangesNothing_data();
    void aRowThatThereIsNotChangesNothing();
    void theOverviewShowsMarkNameAndSlots();
    void theHeadersOfTheFullListStandOneColumnToTheRightFromTheTwelfthOn();
    void aModelIsReadAfreshByItsGetter();
    void aThousandRacewaysAreAllThere();
    void aDatabaseThatCannotBeOpenedGivesNoRaceway();

private:
    std::unique_ptr<ScratchDirectory> m_scratch;
};

void tst_CRacewayList::init()
{
    m_scratch = std::make_unique<ScratchDirectory>();
}

void tst_CRacewayList::cleanup()
{
    QVERIFY2(!QSqlDatabase::contains(), "a list has left the database open");
    m_scratch.reset();
}

void tst_CRacewayList::aFreshFileHasNoRacewayUntilTheListAddsTheDefaultOne()
{
    const DatabaseReference reference;
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM raceways"), QString("0"));

    const CRacewayList list;

    QCOMPARE(DatabaseFile().rows("SELECT id, name, currentRw FROM raceways"), QStringList{"1|Default|x"});
}

void tst_CRacewayList::theDefaultRacewayReadsBackAsItIsBuilt()
{
    CRacewayList list;

    compareRaceways(list.currentRaceway(), CRaceway());
    QCOMPARE(list.currentRaceway().id, 1);
}

void tst_CRacewayList::allColumnsReadBackAsTheyWereWritten()
{
    CRacewayList list;
    list.addRaceway(fullRaceway());

    compareRaceways(list.racewayAt(list.rowOfId(2)), fullRaceway());

    CRaceway other = fullRaceway();
    other.name = "Zweite";
    other.chaosButtonAvailable = other.pwrOffFeatureAvailable = other.startAndEndSensorSeparate = false;
    other.chaosPhaseOutputAvailable = other.externalLightsAvailable = true;
    list.addRaceway(other);
    compareRaceways(list.racewayAt(list.rowOfId(3)), other);
}

void tst_CRacewayList::anAddedRacewayIsNotCurrent()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen"));

    QCOMPARE(DatabaseFile().rows("SELECT name, currentRw FROM raceways ORDER BY id"),
             (QStringList{"Default|x", "Aachen|"}));
}

void tst_CRacewayList::aNameWithAQuoteIsStored()
{
    CRacewayList list;
    const QString name = "Ann's'); DROP TABLE raceways; --";
    list.addRaceway(namedRaceway(name, 3));

    const CRaceway stored = list.racewayAt(0);
    QCOMPARE(stored.name, name);
    QCOMPARE(stored.tracks.size(), 3);
}

void tst_CRacewayList::removingTheLastRacewayLeavesTheDefaultOneMarkedCurrent()
{
    CRacewayList list;
    list.updateRaceway(0, namedRaceway("Einzige", 4));

    list.removeRaceway(0);

    QCOMPARE(DatabaseFile().rows("SELECT id, name, currentRw FROM raceways"), QStringList{"2|Default|x"});
    compareRaceways(list.currentRaceway(), CRaceway());
}

void tst_CRacewayList::removingTheCurrentRacewayMarksTheFirstInNameOrder()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Bonn"));
    list.addRaceway(namedRaceway("Aachen"));
    QCOMPARE(list.currentRaceway().name, QString("Default"));

    list.removeRaceway(list.currentRow());

    QCOMPARE(list.currentRow(), 0);
    QCOMPARE(list.currentRaceway().name, QString("Aachen"));
}

void tst_CRacewayList::removingAnotherRacewayLeavesTheMarkWhereItIs()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen"));
    list.addRaceway(namedRaceway("Bonn"));

    list.removeRaceway(0);

    QCOMPARE(list.currentRaceway().name, QString("Default"));
    QCOMPARE(list.currentRow(), 1);
}

void tst_CRacewayList::removingARacewayRemovesItsTracksOnly()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen", 3));
    list.addRaceway(namedRaceway("Bonn", 4));

    list.removeRaceway(0);

    QCOMPARE(DatabaseFile().rows("SELECT racewayId, COUNT(*) FROM tracks GROUP BY racewayId"),
             (QStringList{"0|2", "1|2", "3|4"}));
}

void tst_CRacewayList::removingAllLeavesTheDefaultOneMarkedCurrent()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen", 3));

    list.removeAllRaceways();

    QCOMPARE(DatabaseFile().rows("SELECT name, currentRw FROM raceways"), QStringList{"Default|x"});
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM tracks"), QString("2"));
}

void tst_CRacewayList::ofTwoRacewaysOfTheSameNameTheNewOneGetsTheTracks()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Doppelt", 3));
    list.addRaceway(namedRaceway("Doppelt", 5));

    QCOMPARE(DatabaseFile().rows("SELECT racewayId, COUNT(*) FROM tracks WHERE racewayId > 1 GROUP BY "
                                 "racewayId"),
             (QStringList{"2|3", "3|5"}));
    QCOMPARE(list.racewayAt(list.rowOfId(2)).tracks.size(), 3);
    QCOMPARE(list.racewayAt(list.rowOfId(3)).tracks.size(), 5);
}

void tst_CRacewayList::aRacewayOf3TracksUpdatedTo5KeepsTheIdsOfTheFirstThree()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen", 3));
    list.addRaceway(namedRaceway("Bonn", 1));
    CRaceway raceway = list.racewayAt(0);
    const QList<int> ids = trackIds(raceway);
    QCOMPARE(ids.size(), 3);
    raceway.tracks[1].length = 1234;
    raceway.tracks << CRacewayTrack() << CRacewayTrack();
    raceway.tracks[4].portClosedState = 63;

    list.updateRaceway(0, raceway);

    const CRaceway stored = list.racewayAt(0);
    QCOMPARE(stored.tracks.size(), 5);
    QCOMPARE(trackIds(stored).mid(0, 3), ids);
    QCOMPARE(stored.tracks.at(1).length, 1234);
    QCOMPARE(stored.tracks.at(4).portClosedState, 63);
    QCOMPARE(DatabaseFile().rows("SELECT noOfTrack FROM tracks WHERE racewayId = 2 ORDER BY id"),
             (QStringList{"1", "2", "3", "4", "5"}));
    QCOMPARE(DatabaseFile().value("SELECT noOfTracks FROM raceways WHERE id = 2"), QString("5"));
}

void tst_CRacewayList::aRacewayOf5TracksUpdatedTo3LosesTheLastTwo()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen", 5));
    const QList<int> ids = trackIds(list.racewayAt(0));

    list.updateRaceway(0, namedRaceway("Aachen", 3));

    QCOMPARE(trackIds(list.racewayAt(0)), ids.mid(0, 3));
    QCOMPARE(DatabaseFile().value("SELECT noOfTracks FROM raceways WHERE id = 2"), QString("3"));
}

void tst_CRacewayList::anUpdateOverwritesAllColumnsButTheMark()
{
    CRacewayList list;

    list.updateRaceway(0, fullRaceway());

    QCOMPARE(list.racewayCount(), 1);
    QCOMPARE(list.currentRaceway().id, 1);
    compareRaceways(list.currentRaceway(), fullRaceway());
}

void tst_CRacewayList::ioSettingsTextWithoutABarDecodesAsAWhole()
{
    CRacewayList list;
    QVERIFY(DatabaseFile().exec("UPDATE raceways SET ioSettings = 'AAECAw=='"));

    QCOMPARE(list.currentRaceway().ioSettings, QByteArray("\0\1\2\3", 4));
}

void tst_CRacewayList::ioSettingsTextIsReadUpToItsFirstBar_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("blob");

    QTest::newRow("as written") << "AAECAw==|end_stream|" << QByteArray("\0\1\2\3", 4);
    QTest::newRow("another part behind") << "AAEC|Aw==|end_stream|" << QByteArray("\0\1\2", 3);
    QTest::newRow("an empty blob") << "|end_stream|" << QByteArray();
    QTest::newRow("bars only") << "|||" << QByteArray();
    QTest::newRow("nothing") << "" << QByteArray();
    QTest::newRow("no base64") << QString::fromUtf8("\"§$%&/()äöü?|end_stream|") << QByteArray();
    QTest::newRow("base64 cut short") << "AAE" << QByteArray("\0\1", 2);
}

void tst_CRacewayList::ioSettingsTextIsReadUpToItsFirstBar()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, blob);
    CRacewayList list;
    QVERIFY(DatabaseFile().exec(QString("UPDATE raceways SET ioSettings = '%1'").arg(text)));

    QCOMPARE(list.currentRaceway().ioSettings, blob);
}

void tst_CRacewayList::masksOfMinusOneStandUnsignedInTheColumnsButTheLapSensorSigned()
{
    CRaceway raceway = namedRaceway("Aachen", 1);
    raceway.tracks[0].length = -1;
    raceway.tracks[0].portClosedState = -1;
    raceway.tracks[0].fuelSensorClosedState = -1;
    raceway.tracks[0].fuelFinishedSensorClosedState = -1;
    raceway.tracks[0].sector2BeginSensorClosedState = -1;
    raceway.tracks[0].sector3BeginSensorClosedState = -1;
    raceway.tracks[0].endSensorClosedState = -1;
    CRacewayList list;
    const QString columns =
        "SELECT length, portClosedState, fuelSensorClosedState, fuelFinishedSensorClosedState, "
        "sector2BeginSensorClosedState, sector3BeginSensorClosedState, endSensorClosedState "
        "FROM tracks WHERE racewayId = 2";
    const QStringList expected{"4294967295|-1|4294967295|4294967295|4294967295|4294967295|4294967295"};

    list.addRaceway(raceway);
    QCOMPARE(DatabaseFile().rows(columns), expected);
    compareTracks(list.racewayAt(0).tracks.at(0), raceway.tracks.at(0));

    list.updateRaceway(0, namedRaceway("Aachen", 1));
    list.updateRaceway(0, raceway);
    QCOMPARE(DatabaseFile().rows(columns), expected);
}

void tst_CRacewayList::portStatesAreCutTo16Bits()
{
    CRacewayList list;
    QVERIFY(DatabaseFile().exec("UPDATE raceways SET portOpenState = 65663, chaosButtonState = -1"));

    const CRaceway raceway = list.currentRaceway();

    QCOMPARE(int(raceway.portOpenState), 127);
    QCOMPARE(int(raceway.chaosButtonState), 65535);
    QCOMPARE(raceway.tracks.at(0).portOpenState, 127);
}

void tst_CRacewayList::columnsOfAnotherKindReadAsZero()
{
    CRacewayList list;
    QVERIFY(DatabaseFile().exec("UPDATE raceways SET scale = 'viel', portOpenState = x'00ff', minTime = '', "
                                "numberOfSectors = 1e300, chaosButtonState = 'x'"));
    QVERIFY(DatabaseFile().exec("UPDATE tracks SET length = 'lang', endSensorClosedState = x'ff'"));

    const CRaceway raceway = list.currentRaceway();

    QCOMPARE(raceway.scale, 0);
    QCOMPARE(int(raceway.portOpenState), 0);
    QCOMPARE(int(raceway.chaosButtonState), 0);
    QCOMPARE(raceway.minTime, 0);
    QCOMPARE(raceway.tracks.size(), 2);
    QCOMPARE(raceway.tracks.at(0).length, 0);
    QCOMPARE(raceway.tracks.at(0).endSensorClosedState, 0);
}

void tst_CRacewayList::aMigratedRacewayReadsItsMissingColumnsAsZero()
{
    QVERIFY(DatabaseFile().execFile(TORNIK_TEST_DATA "/migration/minus2.sql"));
    CRacewayList list;

    const CRaceway raceway = list.currentRaceway();

    QCOMPARE(raceway.name, QString("Keller"));
    QCOMPARE(raceway.ioSettings, QByteArray("\0\0\0\1", 4));
    QCOMPARE(raceway.numberOfSectors, 1);
    QCOMPARE(raceway.minTime, 0);
    QCOMPARE(raceway.fuelSensorSetup, 0);
    QCOMPARE(raceway.startAndEndSensorSeparate, false);
}

void tst_CRacewayList::exactlyOneRowIsMarkedCurrent()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen"));
    list.addRaceway(namedRaceway("Bonn"));

    for (const int row : {1, 0, 2, 2}) {
        list.setCurrentRow(row);
        QCOMPARE(list.currentRow(), row);
        QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM raceways WHERE currentRw = 'x'"), QString("1"));
        QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM raceways WHERE currentRw = ''"), QString("2"));
    }
}

void tst_CRacewayList::aMissingMarkIsSetOnTheFirstRow()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen"));
    QVERIFY(DatabaseFile().exec("UPDATE raceways SET currentRw = NULL"));
    QCOMPARE(list.currentRow(), 0);

    const CRacewayList next;

    QCOMPARE(DatabaseFile().rows("SELECT name FROM raceways WHERE currentRw = 'x'"), QStringList{"Aachen"});
}

void tst_CRacewayList::rowsFollowTheNames()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Zwickau"));
    list.addRaceway(namedRaceway("Aachen"));
    list.addRaceway(namedRaceway("Bonn"));

    const QStringList names{"Aachen", "Bonn", "Default", "Zwickau"};
    QCOMPARE(list.racewayCount(), 4);
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(list.racewayAt(row).name, names.at(row));
        QCOMPARE(list.racewayAt(row).id, list.idOfRow(row));
        QCOMPARE(list.rowOfId(list.idOfRow(row)), row);
    }
}

void tst_CRacewayList::anIdThatThereIsNotHasRow0()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Zwickau"));

    QCOMPARE(list.rowOfId(2), 1);
    QCOMPARE(list.rowOfId(77), 0);
}

void tst_CRacewayList::aRowThatThereIsNotChangesNothing_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("below") << -1;
    QTest::newRow("behind") << 1;
    QTest::newRow("far behind") << 100000;
}

void tst_CRacewayList::aRowThatThereIsNotChangesNothing()
{
    QFETCH(int, row);
    CRacewayList list;
    const QStringList before = DatabaseFile().dump();

    QCOMPARE(list.idOfRow(row), -1);
    list.setCurrentRow(row);
    list.updateRaceway(row, fullRaceway());
    list.removeRaceway(row);
    const CRaceway raceway = list.racewayAt(row);

    QCOMPARE(DatabaseFile().dump(), before);
    QCOMPARE(raceway.id, -1);
    QVERIFY(raceway.tracks.isEmpty());
}

void tst_CRacewayList::theOverviewShowsMarkNameAndSlots()
{
    CRacewayList list;
    list.addRaceway(namedRaceway("Aachen", 6));

    const QAbstractItemModel* model = list.overviewModel();

    QCOMPARE(headersOf(model), (QStringList{"Aktiv", "Name", "Slots"}));
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->index(0, 0).data().toString(), QString(""));
    QCOMPARE(model->index(0, 1).data().toString(), QString("Aachen"));
    QCOMPARE(model->index(0, 2).data().toInt(), 6);
    QCOMPARE(model->index(1, 0).data().toString(), QString("x"));
}

void tst_CRacewayList::theHeadersOfTheFullListStandOneColumnToTheRightFromTheTwelfthOn()
{
    CRacewayList list;
    list.updateRaceway(0, fullRaceway());

    const QAbstractItemModel* model = list.detailModel();

    QCOMPARE(headersOf(model),
             (QStringList{"Aktiv", "Name", "Maßstab (1/X)", "Slots", "Maske \"offen\"", "Maske Chaostaste",
                          "Chaostaste verfügbar", "Externes Signal für Chaosphase verfügbar",
                          "Bahnstromabschaltung verfügbar", "Externe Startampel verfügbar",
                          "Tanksensor Setup", "Anzahl Sektoren", "IOSettings", "Min. Rundenzeit"}));
    QCOMPARE(model->rowCount(), 1);
    QVERIFY(model->index(0, 11).data().toString().endsWith("|end_stream|"));
    QCOMPARE(model->index(0, 12).data().toInt(), 1500);
    QCOMPARE(model->index(0, 13).data().toInt(), 1);
}

void tst_CRacewayList::aModelIsReadAfreshByItsGetter()
{
    CRacewayList list;
    QAbstractItemModel* const overview = list.overviewModel();
    QAbstractItemModel* const detail = list.detailModel();
    QVERIFY(overview != detail);
    CRacewayList().addRaceway(namedRaceway("Aachen"));
    QCOMPARE(overview->rowCount(), 1);

    QCOMPARE(list.overviewModel(), overview);
    QCOMPARE(list.detailModel(), detail);

    QCOMPARE(overview->rowCount(), 2);
    QCOMPARE(detail->rowCount(), 2);
}

void tst_CRacewayList::aThousandRacewaysAreAllThere()
{
    const DatabaseReference reference;
    QVERIFY(DatabaseFile().exec(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
        "INSERT INTO raceways(name, noOfTracks, currentRw) SELECT printf('Bahn %04d', i), 2, '' FROM n"));
    CRacewayList list;

    QCOMPARE(list.racewayCount(), 1000);
    QCOMPARE(list.racewayAt(999).name, QString("Bahn 1000"));
    list.setCurrentRow(999);
    QCOMPARE(list.currentRow(), 999);
    QCOMPARE(list.overviewModel()->rowCount(), 1000);
    QCOMPARE(list.detailModel()->rowCount(), 1000);
}

void tst_CRacewayList::aDatabaseThatCannotBeOpenedGivesNoRaceway()
{
    QVERIFY(QDir().mkdir("tornik.db"));
    CRacewayList list;

    list.addRaceway(fullRaceway());
    list.removeRaceway(0);
    list.setCurrentRow(0);

    QCOMPARE(list.racewayCount(), 0);
    QCOMPARE(list.currentRow(), 0);
    QCOMPARE(list.currentRaceway().id, -1);
    QCOMPARE(list.overviewModel()->rowCount(), 0);
}

QTEST_GUILESS_MAIN(tst_CRacewayList)
#include "tst_CRacewayList.moc"
