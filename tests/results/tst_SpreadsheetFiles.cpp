#include "data/CFastestLapList.h"
#include "race/StoredRaceFixture.h"
#include "results/CRaceToCsvWriter.h"
#include "results/CsvTimeFormat.h"
#include "results/Spreadsheet.h"

#include <QtTest>

namespace {

constexpr int Tracks = 8;
constexpr int Formats = 3;
constexpr int LongLap = 75400;
const std::array<int, 3> Sectors{2800, 2731, 3000};
const QString Raceway = QStringLiteral("Große Bahn Köln");

QString raceFile(int tracks, int sectors, int format)
{
    return QStringLiteral("race-%1-%2-%3").arg(tracks).arg(sectors).arg(format);
}

QString lapFile(int format)
{
    return QStringLiteral("laps-%1").arg(format);
}

QString driverName(int track)
{
    return QStringLiteral("Jörg Weiß %1").arg(track + 1);
}

/** Each member drives a lap of 8.531 s and one of 75.4 s, in which it passes no sensor of a sector. */
void writeRace(int tracks, int sectors, int format)
{
    StoredRaceFixture fixture(tracks);
    fixture.settings.setStorageCsvTimeFormat(format);
    fixture.changeRaceway([sectors](CRaceway& raceway) {
        raceway.name = Raceway;
        raceway.numberOfSectors = sectors;
    });
    for (int track = 0; track < tracks; ++track) {
        CDriver driver;
        driver.setName(driverName(track));
        fixture.raceSettings.setDriver(track, driver);
    }
    fixture.start();
    for (int track = 0; track < tracks; ++track) {
        fixture.driveSectors(track, 1000, Sectors);
        fixture.sensorsAt(1000 + 8531 + LongLap, {PortId::lapSensor(track)});
    }
    CRaceToCsvWriter writer;
    writer.setRace(&fixture.race());
    writer.writeToFile(raceFile(tracks, sectors, format) + ".csv");
}

void writeFastestLaps()
{
    CFastestLapList list;
    DatabaseFile file;
    QVERIFY(file.exec("INSERT INTO driver(id, name) VALUES(71, 'Jörg Weiß 1')"));
    QVERIFY(file.exec("INSERT INTO cars(id, name) VALUES(81, 'Käfer')"));
    QVERIFY(file.exec("INSERT INTO tracks(id, noOfTrack) VALUES(91, 4)"));
    QVERIFY(file.exec("INSERT INTO fastestLapTimes(racewayId, trackId, driverId, carId, time) "
                      "VALUES(61, 91, 71, 81, 8531), (61, 91, 71, 81, 75400)"));
    for (int format = 0; format < Formats; ++format)
        list.exportCsv(lapFile(format) + ".csv", Raceway, csvTimeFormat(format), 61, -1, -1, -1);
}

/** @return the type and the value that the sheet is to have for a time. */
QString understood(int format, int milliseconds)
{
    const QTime time = QTime(0, 0).addMSecs(milliseconds);
    switch (format) {
    case CSettings::MinutesColonMilliseconds:
        return "string " + time.toString("mm:ss:zzz\t"); // no clock time
    case CSettings::SecondsComma:
        return QStringLiteral("float %1").arg(milliseconds % 60000 / 1000.0);
    default:
        return QStringLiteral("time %1").arg(milliseconds);
    }
}

/** @return milliseconds of a duration as "PT00H01M15.4S" has it. */
int duration(const QString& text)
{
    const auto match = QRegularExpression("^PT(\\d+)H(\\d+)M([\\d.]+)S$").match(text);
    return qRound((match.captured(1).toInt() * 3600 + match.captured(2).toInt() * 60) * 1000 +
                  match.captured(3).toDouble() * 1000);
}

QString content(const SpreadsheetCell& cell)
{
    if (cell.type == "time")
        return QStringLiteral("time %1").arg(duration(cell.value));
    return cell.type + ' ' + (cell.type == "float" ? cell.value : cell.text);
}

} // namespace

/** Whether LibreOffice finds in the files what the program has written; skipped where there is none. */
class tst_SpreadsheetFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { closeDatabase(); }

    void aRaceOpensRightly_data();
    void aRaceOpensRightly();
    void theFastestLapsOpenRightly_data();
    void theFastestLapsOpenRightly();

private:
    ScratchDirectory m_scratch;
};

void tst_SpreadsheetFiles::initTestCase()
{
    if (Spreadsheet::program().isEmpty())
        QSKIP("LibreOffice isn't installed");
    for (int tracks = 1; tracks <= Tracks; ++tracks) {
        for (int sectors = 1; sectors <= 3; ++sectors) {
            for (int format = 0; format < Formats; ++format)
                writeRace(tracks, sectors, format);
        }
    }
    writeFastestLaps();
    const QStringList files = QDir().entryList({"*.csv"});
    QCOMPARE(files.size(), Tracks * 3 * Formats + Formats);
    QVERIFY(Spreadsheet::open(files));
}

void tst_SpreadsheetFiles::aRaceOpensRightly_data()
{
    QTest::addColumn<int>("tracks");
    QTest::addColumn<int>("sectors");
    QTest::addColumn<int>("format");
    for (int tracks = 1; tracks <= Tracks; ++tracks) {
        for (int sectors = 1; sectors <= 3; ++sectors) {
            for (int format = 0; format < Formats; ++format)
                QTest::addRow("%d tracks, %d sectors, format %d", tracks, sectors, format)
                    << tracks << sectors << format;
        }
    }
}

void tst_SpreadsheetFiles::aRaceOpensRightly()
{
    QFETCH(const int, tracks);
    QFETCH(const int, sectors);
    QFETCH(const int, format);
    const Spreadsheet sheet(raceFile(tracks, sectors, format));

    QCOMPARE(sheet.text(0, 0), QString("Rennstrecke:"));
    QCOMPARE(sheet.text(1, 0), Raceway);
    QCOMPARE(sheet.text(0, 8), QString("Durchschnittszeit:"));
    QCOMPARE(content(sheet.cell(0, 11)), QString("float 1"));
    QCOMPARE(content(sheet.cell(0, 12)), QString("float 2"));
    const int width = sectors == 1 ? 1 : sectors + 1;
    for (int track = 0; track < tracks; ++track) {
        const int column = 1 + track * width;
        QCOMPARE(sheet.text(column, 6), driverName(track));
        QCOMPARE(sheet.text(column, 10), QString("Rundenzeit"));
        QCOMPARE(content(sheet.cell(column, 8)), understood(format, (8531 + LongLap) / 2));
        QCOMPARE(content(sheet.cell(column, 11)), understood(format, 8531));
        QCOMPARE(content(sheet.cell(column, 12)), understood(format, LongLap));
        for (int sector = 0; sectors > 1 && sector < sectors; ++sector) {
            const bool isLast = sector == sectors - 1;
            const int time = isLast && sectors == 2 ? Sectors[1] + Sectors[2] : Sectors[std::size_t(sector)];
            QCOMPARE(sheet.text(column + 1 + sector, 10), QStringLiteral("Sektor %1").arg(sector + 1));
            QCOMPARE(content(sheet.cell(column + 1 + sector, 11)), understood(format, time));
        }
    }
    QCOMPARE(sheet.text(1 + tracks * width, 10).trimmed(), QString());
}

void tst_SpreadsheetFiles::theFastestLapsOpenRightly_data()
{
    QTest::addColumn<int>("format");
    for (int format = 0; format < Formats; ++format)
        QTest::addRow("format %d", format) << format;
}

void tst_SpreadsheetFiles::theFastestLapsOpenRightly()
{
    QFETCH(const int, format);
    const Spreadsheet sheet(lapFile(format));
    const QStringList headers{"Rennstrecke", "Fahrer", "Fahrzeug", "Spur", "Bestzeit"};
    for (int column = 0; column < headers.size(); ++column)
        QCOMPARE(sheet.text(column, 0), headers.at(column));
    for (const int row : {1, 2}) {
        QCOMPARE(sheet.text(0, row), Raceway);
        QCOMPARE(sheet.text(1, row), QString("Jörg Weiß 1"));
        QCOMPARE(sheet.text(2, row), QString("Käfer"));
        QCOMPARE(content(sheet.cell(3, row)), QString("float 4"));
        QCOMPARE(content(sheet.cell(4, row)), understood(format, row == 1 ? 8531 : LongLap));
    }
}

QTEST_GUILESS_MAIN(tst_SpreadsheetFiles)
#include "tst_SpreadsheetFiles.moc"
