#include "race/RaceFixture.h"
#include "results/CRaceToCsvWriter.h"
#include "support/DatabaseFile.h"

#include <QtTest>

namespace {

/** @return the lines of the file that the race writes, each split at ";". */
QList<QStringList> writtenRows(CRace& race)
{
    CRaceToCsvWriter writer;
    writer.setRace(&race);
    writer.writeToFile("race.csv");
    QList<QStringList> rows;
    for (const QString& line : QString::fromUtf8(contentOf("race.csv")).split('\n'))
        rows << line.split(';');
    rows.removeLast(); // behind the last line end
    return rows;
}

QString cell(const QList<QStringList>& rows, int column, int row)
{
    return rows.value(row).value(column, "none");
}

} // namespace

class tst_CRaceToCsvWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRaceWithoutLapsGivesRows0To10();
    void aRaceIsWrittenWithItsMembersSideBySide();
    void theNameOfTheRaceDoesNotAppear();
    void startTimeAndDurationAreTheRaceOwn();
    void with3SectorsTheHeaderOfALapStandsInColumns1And5();
    void with2SectorsAMemberHasThreeColumns();
    void with1SectorTheSecondMemberHasItsColumnAt2();
    void lapsOfSectorsStandInTheBlockOfTheirMember();
    void lapsAreNumberedAsFarAsTheLongestList();
    void theWinnerIsNamedAndNobodyElse();
    void timesFollowTheFormatOfTheSettings_data();
    void timesFollowTheFormatOfTheSettings();
    void theShortFormatLosesTheMinutes();
    void theAverageStandsAboveTheLaps();
    void namesWithUmlautsAreWrittenInUtf8();
    void theConstructorAloneFillsNothing();
    void noRaceFillsNothing();
    void theRaceWritesItselfToTheFile();
    void aFileThatCannotBeOpenedLeavesNoTrace();

private:
    ScratchDirectory m_scratch;
};

void tst_CRaceToCsvWriter::aRaceWithoutLapsGivesRows0To10()
{
    RaceFixture fixture;

    const QList<QStringList> rows = writtenRows(fixture.start());

    QCOMPARE(rows.size(), 11);
    QStringList labels;
    for (const QStringList& row : rows)
        labels << row.first();
    QCOMPARE(labels, (QStringList{"Rennstrecke:", "Startbedingung:", "Endebedingung:", "Siegbedingung:",
                                  "Startzeit:", "Renndauer:", "Fahrername:", "Fahrzeug:",
                                  "Durchschnittszeit:", "Status:", "Rundenzeiten:"}));
    QCOMPARE(rows.at(10), (QStringList{"Rundenzeiten:", "Rundenzeit", "Rundenzeit", " "}));
}

void tst_CRaceToCsvWriter::aRaceIsWrittenWithItsMembersSideBySide()
{
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.name = "Keller"; });
    CCar car;
    car.setName("Rot");
    fixture.raceSettings.setCar(0, car);
    fixture.settings.setStorageCsvTimeFormat(CSettings::MinutesComma);
    CRace& race = fixture.start();
    fixture.drive(0, {8531, 7000, 9000});
    fixture.drive(1, {10000}, 2000);

    const QList<QStringList> rows = writtenRows(race);

    const QList<QStringList> expected{
        {"Rennstrecke:", "Keller"},
        {"Startbedingung:", race.raceStart()->description()},
        {"Endebedingung:", race.endCondition()->description()},
        {"Siegbedingung:", race.winningCondition()->description()},
        {"Startzeit:", race.raceDateTime().toString("hh:mm:ss")},
        {"Renndauer:", race.raceTime().toString("hh:mm:ss")},
        {"Fahrername:", "Driver 1", "Driver 2", " "},
        {"Fahrzeug:", "Rot", "", " "},
        {"Durchschnittszeit:", "00:08,177", "00:10,000", " "},
        {"Status:", " "},
        {"Rundenzeiten:", "Rundenzeit", "Rundenzeit", " "},
        {"1", "00:08,531", "00:10,000", " "},
        {"2", "00:07,000"},
        {"3", "00:09,000"},
        {""},
    };
    QCOMPARE(rows, expected);
}

void tst_CRaceToCsvWriter::theNameOfTheRaceDoesNotAppear()
{
    RaceFixture fixture;
    CRace& race = fixture.make();
    race.vStartRecordedRace("Winterpokal");
    fixture.drive(0, {8531});

    QCOMPARE(cell(writtenRows(race), 1, 11).isEmpty(), false);

    QVERIFY(!contentOf("race.csv").contains("Winterpokal"));
}

void tst_CRaceToCsvWriter::startTimeAndDurationAreTheRaceOwn()
{
    RaceFixture fixture;
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    CRace& race = fixture.start();
    fixture.advanceClock(3725000);
    QVERIFY(fixture.fire("vOneSecondEvent"));

    const QList<QStringList> rows = writtenRows(race);

    QVERIFY(before <= race.raceDateTime() && race.raceDateTime() <= QDateTime::currentDateTime());
    QCOMPARE(cell(rows, 1, 4), race.raceDateTime().toString("hh:mm:ss"));
    QCOMPARE(cell(rows, 1, 5), QString("01:02:05"));
}

void tst_CRaceToCsvWriter::with3SectorsTheHeaderOfALapStandsInColumns1And5()
{
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.numberOfSectors = 3; });

    const QList<QStringList> rows = writtenRows(fixture.start());

    QCOMPARE(rows.at(10), (QStringList{"Rundenzeiten:", "Rundenzeit", "Sektor 1", "Sektor 2", "Sektor 3",
                                       "Rundenzeit", "Sektor 1", "Sektor 2", "Sektor 3", " "}));
    QCOMPARE(rows.at(6), (QStringList{"Fahrername:", "Driver 1", " ", " ", " ", "Driver 2", " "}));
}

void tst_CRaceToCsvWriter::with2SectorsAMemberHasThreeColumns()
{
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) { raceway.numberOfSectors = 2; });

    const QList<QStringList> rows = writtenRows(fixture.start());

    QCOMPARE(rows.at(10), (QStringList{"Rundenzeiten:", "Rundenzeit", "Sektor 1", "Sektor 2", "Rundenzeit",
                                       "Sektor 1", "Sektor 2", " "}));
    QCOMPARE(cell(rows, 4, 6), QString("Driver 2"));
}

void tst_CRaceToCsvWriter::with1SectorTheSecondMemberHasItsColumnAt2()
{
    for (const int sectors : {0, 1}) {
        RaceFixture fixture(8);
        fixture.changeRaceway([sectors](CRaceway& raceway) { raceway.numberOfSectors = sectors; });

        const QList<QStringList> rows = writtenRows(fixture.start());

        QCOMPARE(cell(rows, 2, 6), QString("Driver 2"));
        QCOMPARE(cell(rows, 8, 6), QString("Driver 8"));
        QCOMPARE(rows.at(10).count("Rundenzeit"), 8);
        QCOMPARE(rows.at(10).count("Sektor 1"), 0);
    }
}

void tst_CRaceToCsvWriter::lapsOfSectorsStandInTheBlockOfTheirMember()
{
    RaceFixture fixture;
    fixture.changeRaceway([](CRaceway& raceway) {
        raceway.numberOfSectors = 3;
        raceway.startAndEndSensorSeparate = false;
    });
    fixture.settings.setStorageCsvTimeFormat(CSettings::SecondsComma);
    CRace& race = fixture.start();
    fixture.driveSectors(1, 1000, {1500, 2250, 3125});

    const QList<QStringList> rows = writtenRows(race);

    QCOMPARE(rows.at(11), (QStringList{"1", " ", " ", " ", " ", "6,875", "1,500", "2,250", "3,125"}));
}

void tst_CRaceToCsvWriter::lapsAreNumberedAsFarAsTheLongestList()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    fixture.drive(0, {3000});
    fixture.drive(1, {1000, 1000, 1000, 1000});

    const QList<QStringList> rows = writtenRows(race);

    for (int lap = 1; lap <= 4; ++lap)
        QCOMPARE(cell(rows, 0, 10 + lap), QString::number(lap));
    QCOMPARE(cell(rows, 1, 12), QString(" "));
    QCOMPARE(cell(rows, 1, 14), QString(" "));
    QCOMPARE(cell(rows, 0, 15), QString("none"));
}

void tst_CRaceToCsvWriter::theWinnerIsNamedAndNobodyElse()
{
    RaceFixture fixture(3);
    fixture.useLapLimit(2);
    fixture.raceSettings.setWinningCondition(1);
    CRace& race = fixture.start();
    fixture.drive(1, {3000, 3000});
    QVERIFY(!race.isRaceActive());

    QCOMPARE(writtenRows(race).at(9), (QStringList{"Status:", " ", "Sieger", " "}));
}

void tst_CRaceToCsvWriter::timesFollowTheFormatOfTheSettings_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");

    QTest::newRow("quoted, with a tab") << 0 << "\"00:08:531\t\"";
    QTest::newRow("seconds") << 1 << "8,531";
    QTest::newRow("minutes") << 2 << "00:08,531";
    QTest::newRow("any other") << 17 << "00:08,531";
    QTest::newRow("below zero") << -1 << "00:08,531";
}

void tst_CRaceToCsvWriter::timesFollowTheFormatOfTheSettings()
{
    QFETCH(int, format);
    QFETCH(QString, text);
    RaceFixture fixture;
    fixture.settings.setStorageCsvTimeFormat(format);
    CRace& race = fixture.start();
    fixture.drive(0, {8531});

    const QList<QStringList> rows = writtenRows(race);

    QCOMPARE(cell(rows, 1, 11), text);
    QCOMPARE(cell(rows, 1, 8), text);
}

void tst_CRaceToCsvWriter::theShortFormatLosesTheMinutes()
{
    RaceFixture fixture;
    fixture.settings.setStorageCsvTimeFormat(CSettings::SecondsComma);
    CRace& race = fixture.start();
    fixture.drive(0, {75400});

    QCOMPARE(cell(writtenRows(race), 1, 11), QString("15,400"));
}

void tst_CRaceToCsvWriter::theAverageStandsAboveTheLaps()
{
    RaceFixture fixture;
    fixture.settings.setStorageCsvTimeFormat(CSettings::MinutesComma);
    CRace& race = fixture.start();
    QCOMPARE(cell(writtenRows(race), 1, 8), QString("00:00,000"));
    fixture.drive(0, {61000, 60000});

    QCOMPARE(cell(writtenRows(race), 1, 8), QString("01:00,500"));
}

void tst_CRaceToCsvWriter::namesWithUmlautsAreWrittenInUtf8()
{
    RaceFixture fixture;
    CDriver driver;
    driver.setName(QString::fromUtf8("Jörg Größer"));
    fixture.raceSettings.setDriver(0, driver);

    QCOMPARE(cell(writtenRows(fixture.start()), 1, 6), driver.name());
    QVERIFY(contentOf("race.csv").contains("J\xC3\xB6rg"));
}

void tst_CRaceToCsvWriter::theConstructorAloneFillsNothing()
{
    RaceFixture fixture;
    CRaceToCsvWriter writer(&fixture.start());
    writer.writeToFile("race.csv");

    QCOMPARE(contentOf("race.csv"), QByteArray("\n"));
}

void tst_CRaceToCsvWriter::noRaceFillsNothing()
{
    CRaceToCsvWriter writer;
    writer.setRace(nullptr);
    writer.writeToFile("race.csv");

    QCOMPARE(contentOf("race.csv"), QByteArray("\n"));
}

void tst_CRaceToCsvWriter::theRaceWritesItselfToTheFile()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    fixture.drive(0, {8531, 7000});
    writtenRows(race);

    race.saveToCsv("saved.csv");

    QVERIFY(!contentOf("saved.csv").isEmpty());
    QCOMPARE(contentOf("saved.csv"), contentOf("race.csv"));
}

void tst_CRaceToCsvWriter::aFileThatCannotBeOpenedLeavesNoTrace()
{
    RaceFixture fixture;
    CRace& race = fixture.start();
    fixture.drive(0, {8531});

    race.saveToCsv("no/such/directory/race.csv");

    QVERIFY(!QFile::exists("no"));
    QCOMPARE(fixture.laps(0), 1);
}

QTEST_GUILESS_MAIN(tst_CRaceToCsvWriter)
#include "tst_CRaceToCsvWriter.moc"
