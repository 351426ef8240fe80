#include "race/StoredRaceFixture.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlDriver>
#include <QtTest>

#include <chrono>
#include <csignal>
#include <cstring>
#include <sqlite3.h>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>

namespace {

const char* const StoreRaces = "store-races";
constexpr int KillsWanted = 100; // in the midst of the storing
constexpr int MostKills = 500;
constexpr int Members = 3;
constexpr int Laps = 6;
constexpr int TrackLength = 100; // of the first track, centimetres
constexpr int SlowestLap = 1000000;
constexpr int MostRaces = 1000;
constexpr int CommitsOfARace = 1 + Members + Members * Laps + 1 + Members;
constexpr int LatestKill = 50000; // microseconds after the commit that was waited for
constexpr int Patience = 60000;   // milliseconds

// --- The process that is killed -------------------------------------------------------------

/** What it writes: one letter for each statement that is done, commit and all. */
constexpr char RaceStored = 'S';

void report(char letter)
{
    if (::write(STDOUT_FILENO, &letter, 1) != 1)
        ::_exit(1);
}

int reportStatement(unsigned, void*, void* statement, void*)
{
    const QByteArray text = sqlite3_sql(static_cast<sqlite3_stmt*>(statement));
    if (text.startsWith("INSERT INTO races"))
        report('R');
    else if (text.startsWith("INSERT INTO raceParticipants"))
        report('P');
    else if (text.startsWith("INSERT INTO laps"))
        report('L');
    else if (text.startsWith("UPDATE \"cars\""))
        report('C');
    else if (text.contains("\"fastestLapTimes\"") && !text.startsWith("SELECT"))
        report('F');
    return 0;
}

/** Stores race after race until it is killed. */
int storeRaces()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    StoredRaceFixture fixture(Members);
    fixture.raceSettings.setMonitorDistanceDriven(true);
    fixture.raceSettings.setMonitorFastestLap(true);
    fixture.make();
    const QVariant handle = QSqlDatabase::database().driver()->handle();
    sqlite3_trace_v2(*static_cast<sqlite3* const*>(handle.data()), SQLITE_TRACE_PROFILE, reportStatement,
                     nullptr);
    for (int race = 0; race < MostRaces; ++race) {
        DatabaseFile file;
        // Each race is faster than the one before, so that its fastest laps are stored too.
        const int lapTime = SlowestLap - file.value("SELECT COUNT(*) FROM races").toInt();
        fixture.useCar(0, 200, file.value("SELECT distanceDriven FROM cars WHERE id = 200").toInt());
        const std::vector<int> laps(Laps, lapTime);
        fixture.runRecordedRace("A", {laps, laps, laps});
        fixture.take();
        fixture.memberEvents.clear();
        report(RaceStored);
    }
    return 0;
}

// --- What it leaves -------------------------------------------------------------------------

struct Content
{
    QStringList races, participants, laps;
    int distance = 0;
    int fastestLap = SlowestLap + 1; ///< of the first track
    int fastestLaps = 0;
};

Content readFile()
{
    DatabaseFile file;
    Content content;
    content.races = file.rows("SELECT * FROM races ORDER BY id");
    content.participants = file.rows("SELECT * FROM raceParticipants ORDER BY id");
    content.laps = file.rows("SELECT * FROM laps ORDER BY id");
    content.distance = file.value("SELECT distanceDriven FROM cars WHERE id = 200").toInt();
    content.fastestLaps = file.value("SELECT COUNT(*) FROM fastestLapTimes").toInt();
    const QString fastestLap = file.value("SELECT time FROM fastestLapTimes WHERE trackId = 31");
    if (!fastestLap.isEmpty())
        content.fastestLap = fastestLap.toInt();
    return content;
}

/** @return whether the later list is all of the earlier one and at least so many rows more. */
bool continues(const QStringList& later, const QStringList& earlier, int more)
{
    return later.mid(0, earlier.size()) == earlier && later.size() >= earlier.size() + more;
}

} // namespace

/** Kills a process that stores races, at random moments, and looks at what it leaves. */
class tst_RaceStoringKilled : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aKillAtAnyMomentOfTheStoringLosesNothingThatWasCommitted();

private:
    void killOnce();
    void readReports(QProcess& process, int atLeast);
    void checkThatTheFileOpens();
    void checkThatNothingIsLost(const Content& before, const Content& after);
    void checkThatEachRaceIsTheBeginningOfAWholeOne();
    void countKill(const Content& before, const Content& after);

    quint32 m_seed = QRandomGenerator::global()->generate();
    QRandomGenerator m_random{m_seed};
    QByteArray m_reports; ///< of the process that was killed last
    int m_kills = 0;
    int m_killsInStoring = 0;
    int m_openJournals = 0;
    int m_partialRaces = 0;
};

void tst_RaceStoringKilled::initTestCase()
{
    qInfo("seed %u", m_seed);
    const DatabaseReference creation; // its making isn't what is killed here
    QVERIFY(DatabaseFile().exec("INSERT INTO cars(id, distanceDriven) VALUES(200, 0)"));
}

void tst_RaceStoringKilled::aKillAtAnyMomentOfTheStoringLosesNothingThatWasCommitted()
{
    while (m_killsInStoring < KillsWanted) {
        QVERIFY2(m_kills < MostKills, "the kills hit something else than the storing");
        killOnce();
        if (QTest::currentTestFailed())
            return;
    }
    const Content content = readFile();
    qInfo("%d kills, %d of them in the storing: %d left a journal to roll back, %d a race whose laps are cut "
          "off; %d races and %d laps are in the file",
          m_kills, m_killsInStoring, m_openJournals, m_partialRaces, content.races.size(),
          content.laps.size());
    QVERIFY(m_openJournals > 0);
    QVERIFY(m_partialRaces > 0);
}

void tst_RaceStoringKilled::killOnce()
{
    const Content before = readFile();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {StoreRaces});
    QVERIFY(process.waitForStarted(Patience));
    readReports(process, m_random.bounded(2 * CommitsOfARace));
    std::this_thread::sleep_for(std::chrono::microseconds(m_random.bounded(LatestKill)));
    ::kill(pid_t(process.processId()), SIGKILL);
    QVERIFY(process.waitForFinished(Patience));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), SIGKILL);
    m_reports += process.readAllStandardOutput();
    m_openJournals += QFile("tornik.db-journal").size() > 0 ? 1 : 0;

    checkThatTheFileOpens();
    const Content after = readFile();
    checkThatNothingIsLost(before, after);
    checkThatEachRaceIsTheBeginningOfAWholeOne();
    countKill(before, after);
}

void tst_RaceStoringKilled::readReports(QProcess& process, int atLeast)
{
    m_reports.clear();
    do {
        QVERIFY2(process.waitForReadyRead(Patience), "the process stores nothing");
        m_reports += process.readAllStandardOutput();
    } while (m_reports.size() < atLeast);
}

/** As the program opens it the next time. */
void tst_RaceStoringKilled::checkThatTheFileOpens()
{
    const DatabaseReference program;
    QVERIFY(QSqlDatabase::database().isOpen());
    QCOMPARE(DatabaseFile().rows("PRAGMA integrity_check"), QStringList{"ok"});
    QCOMPARE(DatabaseFile().value("PRAGMA user_version"), QString("1"));
}

void tst_RaceStoringKilled::checkThatNothingIsLost(const Content& before, const Content& after)
{
    QVERIFY(continues(after.races, before.races, m_reports.count('R')));
    QVERIFY(continues(after.participants, before.participants, m_reports.count('P')));
    QVERIFY(continues(after.laps, before.laps, m_reports.count('L')));
    QVERIFY(after.distance >= before.distance + m_reports.count('C') * Laps * TrackLength);
    QVERIFY(after.fastestLap <= before.fastestLap);
    QVERIFY(after.fastestLaps >= qMin(Members, m_reports.count('F')));
    QVERIFY(after.fastestLaps <= Members);
    const int stored = m_reports.count(RaceStored);
    if (stored > 0)
        QVERIFY(after.fastestLap <= SlowestLap - before.races.size() - stored + 1);
}

/** A race that was cut off has all rows up to the last of them. */
void tst_RaceStoringKilled::checkThatEachRaceIsTheBeginningOfAWholeOne()
{
    DatabaseFile file;
    const QStringList laps =
        file.rows("SELECT r.id, p.driverId - 99, l.lapNumber, l.time FROM races r JOIN raceParticipants p ON "
                  "p.raceId = r.id JOIN laps l ON l.participantId = p.id ORDER BY l.id");
    QCOMPARE(laps.size(), file.value("SELECT COUNT(*) FROM laps").toInt());
    int race = 0;
    int number = Members * Laps; // of the lap in its race
    for (const QString& lap : laps) {
        const int newRace = lap.section('|', 0, 0).toInt();
        number = newRace == race ? number + 1 : 0;
        race = newRace;
        QCOMPARE(lap, QString("%1|%2|%3|%4")
                          .arg(race)
                          .arg(number / Laps + 1)
                          .arg(number % Laps + 1)
                          .arg(SlowestLap - race + 1));
    }
}

void tst_RaceStoringKilled::countKill(const Content& before, const Content& after)
{
    ++m_kills;
    // A race that is in the file and wasn't reported as stored was just being stored.
    const int begun = after.races.size() - before.races.size();
    m_killsInStoring += begun > m_reports.count(RaceStored) ? 1 : 0;
    const int newLaps = after.laps.size() - before.laps.size();
    m_partialRaces += newLaps < begun * Members * Laps ? 1 : 0;
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && std::strcmp(argv[1], StoreRaces) == 0)
        return storeRaces();
    tst_RaceStoringKilled test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_RaceStoringKilled.moc"
