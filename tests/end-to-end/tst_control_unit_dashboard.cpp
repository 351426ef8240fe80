#include "io/CCarreraCuIo.h"
#include "race/CRace.h"
#include "support/JournalLaps.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"
#include "support/VirtualUnit.h"

#include <QDir>
#include <QTest>

#include <algorithm>
#include <numeric>

namespace {

constexpr int Tracks = 8;
constexpr int Laps = 125; // of each car, so that a race has a thousand

/** Eight cars of one pace, so that only the record can tell who wins; the tanks differ. */
QStringList carOptions()
{
    QStringList options;
    for (const char* fuel : {"15", "12", "9", "6", "3", "0", "15", "15"})
        options << "--car" << QStringLiteral("6000:900:%1").arg(QLatin1String(fuel));
    return options;
}

/** @return the car, from 0, that was the first one to end its last lap. */
int firstAtTheLimit(const QVector<Crossing>& journal)
{
    QVector<int> crossings(Tracks);
    for (const Crossing& crossing : journal) {
        if (++crossings[crossing.car - 1] > Laps)
            return crossing.car - 1;
    }
    return -1;
}

/** @return the table of a CSV file, row by row. */
QVector<QStringList> tableOf(const QString& fileName)
{
    QVector<QStringList> rows;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    while (!file.atEnd())
        rows.append(QString::fromUtf8(file.readLine()).remove('\n').split(';'));
    return rows;
}

/** What a panel has shown, an entry whenever its count has changed. */
struct ShownLaps
{
    QStringList counts;
    QVector<int> times;
};

} // namespace

/** A long race on eight tracks, from a serial line to what the racers see and take home. */
class tst_control_unit_dashboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aThousandLapsAreThoseOfTheUnitOnThePanelsInTheRaceAndInTheCsvFile();

private:
    void startProgram(const QString& port);
    void noteLaps(int number);
    void noteLights() { m_lights.append(m_program->lights()); }
    QStringList tracksWithPower() const;
    QVector<int> fuel() const;
    void driveRace(VirtualUnit& unit);
    void compareWinner(int winner);
    void comparePanels(const QVector<QVector<int>>& record);
    void compareRace(const QVector<QVector<int>>& record);
    void compareCsv(const QVector<QVector<int>>& record, int winner);

    std::unique_ptr<RunningProgram> m_program;
    QVector<ShownLaps> m_shown = QVector<ShownLaps>(Tracks);
    QStringList m_lights;
    QStringList m_names; ///< of the drivers
};

void tst_control_unit_dashboard::cleanup()
{
    if (m_program)
        m_program->race().disconnect(this); // the program says more at its end
    m_program.reset();
}

void tst_control_unit_dashboard::startProgram(const QString& port)
{
    CCarreraCuIo io;
    io.setPortName(port);
    StoredSetup setup(Tracks);
    setup.raceway.ioSettings = io.writeSettings();
    setup.raceway.minTime = 200;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(Laps);
    setup.rules.setAllMaxRounds(true);
    setup.rules.setWinningCondition(1);
    setup.rules.setRedLightsOnRaceStopped(true);
    setup.settings.setDisplaySize(CSettings::Medium);
    setup.settings.setDisplayFuel(true);
    setup.settings.setDisplayShowAverageLapTime(true);
    setup.settings.setStorageApproach(CSettings::UseDefaultPath);
    setup.settings.setStorageDefaultPath(QDir::currentPath());
    setup.settings.setStorageCsvTimeFormat(CSettings::MinutesComma);
    m_names = setup.names;
    setup.write();
    m_program = std::make_unique<RunningProgram>();
    // The window is connected before, so that it has shown what is noted here.
    connect(&m_program->race(), &CRace::RaceEventHappened, this, [this](const CRaceEvent& event) {
        if (event.type == CRaceEvent::MemberChanged)
            noteLaps(event.track + 1);
    });
    connect(&m_program->race(), &CRace::UpdateLights, this, &tst_control_unit_dashboard::noteLights);
}

void tst_control_unit_dashboard::noteLaps(int number)
{
    ShownLaps& shown = m_shown[number - 1];
    const QString count = m_program->laps(number);
    if (count == (shown.counts.isEmpty() ? QStringLiteral("000") : shown.counts.last()))
        return;
    shown.counts.append(count);
    shown.times.append(RunningProgram::milliseconds(m_program->trackText(number, "lastLap")));
}

/** @return the numbers of the tracks that the menu offers to switch off. */
QStringList tst_control_unit_dashboard::tracksWithPower() const
{
    QStringList numbers;
    for (int number = 1; number <= Tracks; ++number) {
        if (m_program->powerText(number) == QStringLiteral("Spur &%1 ausschalten").arg(number))
            numbers.append(QString::number(number));
    }
    return numbers;
}

QVector<int> tst_control_unit_dashboard::fuel() const
{
    QVector<int> levels;
    for (int number = 1; number <= Tracks; ++number)
        levels.append(m_program->fuel(number));
    return levels;
}

/** Status frames of both lengths, since a unit may be renewed between two races. */
void tst_control_unit_dashboard::driveRace(VirtualUnit& unit)
{
    QCOMPARE(tracksWithPower(), QStringList());
    m_program->pressKey(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(m_program->race().isRaceActive());
    QCOMPARE(tracksWithPower().join(' '), QString("1 2 3 4 5 6 7 8"));
    m_lights.clear();
    unit.command("start");
    QTRY_COMPARE_WITH_TIMEOUT(m_program->laps(1), QString("003"), 60000);
    // Green since the flying start; the unit's red lamps come one by one. It may tell more than once
    // that they are off, between the cars that cross the line.
    m_lights.removeDuplicates();
    QCOMPARE(m_lights.join(' '), QString("RGGGG RRGGG RRRGG RRRRG RRRRR ooooo"));
    QTRY_COMPARE(fuel(), QVector<int>({100, 80, 60, 40, 20, 0, 100, 100}));
    unit.command("long-status");
    QTRY_VERIFY_WITH_TIMEOUT(!m_program->race().isRaceActive(), 240000);
}

void tst_control_unit_dashboard::compareWinner(int winner)
{
    QStringList words;
    for (int track = 0; track < Tracks; ++track)
        words.append(track == winner ? QStringLiteral("sieger") : QStringLiteral("beendet"));
    QCOMPARE(m_program->statuses(), words);
    QCOMPARE(m_program->message(),
             QStringLiteral("Die meisten Runden gefahren hat %1.").arg(m_names.at(winner)));
    QCOMPARE(tracksWithPower(), QStringList());
    QCOMPARE(m_program->lights(), QString("RRRRR"));
}

void tst_control_unit_dashboard::comparePanels(const QVector<QVector<int>>& record)
{
    for (int track = 0; track < Tracks; ++track) {
        const QVector<int>& times = record.at(track);
        QCOMPARE(m_shown.at(track).times, times);
        for (int i = 0; i < times.size(); ++i)
            QCOMPARE(m_shown.at(track).counts.at(i),
                     QStringLiteral("%1").arg(i + 1, 3, 10, QLatin1Char('0')));
        const int best = *std::min_element(times.begin(), times.end());
        const int average = std::accumulate(times.begin(), times.end(), 0) / times.size();
        QCOMPARE(m_program->trackText(track + 1, "bestLap"), RunningProgram::timeText(best));
        QCOMPARE(m_program->trackText(track + 1, "averageLap"), RunningProgram::timeText(average));
    }
}

void tst_control_unit_dashboard::compareRace(const QVector<QVector<int>>& record)
{
    QCOMPARE(m_program->race().numberOfMembers(), Tracks);
    for (int track = 0; track < Tracks; ++track) {
        const CRaceMember member = m_program->race().raceMember(track);
        QVector<int> times;
        for (int i = 0; i < member.numberOfLaps(); ++i)
            times.append(member.lap(i).lapTime);
        QCOMPARE(times, record.at(track));
    }
}

/** Stores the race by its key, and reads the file as the racers do at home. */
void tst_control_unit_dashboard::compareCsv(const QVector<QVector<int>>& record, int winner)
{
    constexpr int StatusRow = 9;
    constexpr int FirstLapRow = 11;
    m_program->pressKey(Qt::Key_E, Qt::ControlModifier);
    const QStringList files = QDir::current().entryList({"*.csv"});
    QCOMPARE(files.size(), 1);
    const QVector<QStringList> table = tableOf(files.first());
    QVERIFY(table.size() >= FirstLapRow + Laps);
    for (int track = 0; track < Tracks; ++track) {
        QVector<int> times;
        for (const QStringList& row : table.mid(FirstLapRow)) {
            const QString text = row.value(track + 1).trimmed();
            if (!text.isEmpty())
                times.append(QTime::fromString(text, "mm:ss,zzz").msecsSinceStartOfDay());
        }
        QCOMPARE(times, record.at(track));
        QCOMPARE(table.at(StatusRow).value(track + 1) == "Sieger", track == winner);
    }
}

void tst_control_unit_dashboard::aThousandLapsAreThoseOfTheUnitOnThePanelsInTheRaceAndInTheCsvFile()
{
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    VirtualUnit unit;
    QVERIFY(unit.start(carOptions() +
                       QStringList({"--laps", QString::number(Laps), "--speed-up", "16", "--light-step",
                                    "16000", "--seed", "11", "--journal", journal, "--repeat", "10",
                                    "--noise", "3", "--bad-checksum", "3", "--lost-end", "2"})));
    startProgram(unit.path());
    driveRace(unit);

    const QVector<Crossing> crossings = VirtualUnit::journal(journal);
    const QVector<QVector<int>> record = lapTimesOf(crossings, Tracks);
    for (const QVector<int>& times : record)
        QCOMPARE(times.size(), Laps);
    const int winner = firstAtTheLimit(crossings);
    QVERIFY(winner >= 0);
    compareWinner(winner);
    comparePanels(record);
    compareRace(record);
    compareCsv(record, winner);
}

QTEST_APPLESS_MAIN(tst_control_unit_dashboard)
#include "tst_control_unit_dashboard.moc"
