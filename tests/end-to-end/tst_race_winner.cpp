#include "io/CKelmoPortSimulator.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QTest>

namespace {

using Laps = QVector<QVector<int>>; ///< of each track, in milliseconds

constexpr int TenSeconds = 10000;

StoredSetup setupWithRule(int rule, int tracks)
{
    StoredSetup setup(tracks);
    setup.rules.setWinningCondition(rule);
    setup.rules.setEndType(CRaceSettings::TimeLimit);
    return setup;
}

} // namespace

/** Who wins and what the red line says of it, in the running program. */
class tst_race_winner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void winnerAndResult_data();
    void winnerAndResult();
    void firstAtTheLapLimitWins();
    void lowerTrackWinsWhenBothReachTheLapLimitAtOnce();
    void simulatedTieGivesTwoWinners();
    void resultIsThatOfTheLapsThePanelsHaveShown();
    void raceStoppedByTheUserHasNoWinner();

private:
    static void addMostLaps();
    static void addFastestAndAverage();
    static void addTargets();
    static void addConstancy();
};

void tst_race_winner::winnerAndResult_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<int>("targetTime");
    QTest::addColumn<bool>("useTarget");
    QTest::addColumn<int>("ignoredLaps");
    QTest::addColumn<Laps>("laps");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("result");
    addMostLaps();
    addFastestAndAverage();
    addTargets();
    addConstancy();
}

namespace {

const QStringList first{"sieger", "beendet"};
const QStringList second{"beendet", "sieger"};
const QStringList both{"sieger", "sieger"};
const QStringList nobody{"beendet", "beendet"};

void row(const char* name, int rule, const Laps& laps, const QStringList& words, const QString& result,
         int targetTime = TenSeconds)
{
    QTest::newRow(name) << rule << targetTime << false << 0 << laps << words << result;
}

void constancyRow(const char* name, bool useTarget, int ignoredLaps, const Laps& laps,
                  const QStringList& words, const QString& result)
{
    QTest::newRow(name) << 6 << TenSeconds << useTarget << ignoredLaps << laps << words << result;
}

QString constancy(int driver, const char* deviation, const char* fastest, const char* slowest)
{
    return QStringLiteral("Fahrer %1 hat mit einer max. Abweichung von %2 gewonnen. Die schnellste "
                          "Rundenzeit war %3, die langsamste %4.")
        .arg(QString::number(driver), deviation, fastest, slowest);
}

} // namespace

void tst_race_winner::addMostLaps()
{
    row("no rule", 0, {{5000}, {4000}}, nobody, "Rennen beendet");
    row("unknown rule", 7, {{5000}, {4000}}, nobody, "Rennen beendet");
    row("most laps", 1, {{5000, 5000}, {4000, 4000, 4000}}, second, "Die meisten Runden gefahren hat Ben.");
    row("as many laps: the lower track", 1, {{5000, 5000}, {4000, 4000}}, first,
        "Die meisten Runden gefahren hat Anna.");
    row("most laps, but no laps: nobody, and the text names track 1", 1, {{}, {}}, nobody,
        "Die meisten Runden gefahren hat Anna.");
}

void tst_race_winner::addFastestAndAverage()
{
    row("fastest lap", 2, {{5000, 4734}, {4800, 4900}}, first,
        "Die schnellste Runde war die 2. Runde von Anna mit einer Zeit von 00:04:734.");
    row("equal fastest laps: two winners, and the text names the higher track", 2,
        {{5000, 4734}, {4734, 4900}}, both,
        "Die schnellste Runde war die 1. Runde von Ben mit einer Zeit von 00:04:734.");
    row("fastest lap: a track without laps wins", 2, {{5000}, {}}, second,
        "Die schnellste Runde war die 1. Runde von Ben mit einer Zeit von 00:00:000.");
    row("lowest average", 3, {{5000, 6000}, {5200, 5401}}, second,
        "Die beste Durchschnittszeit hatte Ben mit einer Zeit von 00:05:300.");
    row("equal averages: two winners, and the text names the higher track", 3, {{5000, 6000}, {5500}}, both,
        "Die beste Durchschnittszeit hatte Ben mit einer Zeit von 00:05:500.");
    row("lowest average: a track without laps wins", 3, {{}, {5000}}, first,
        "Die beste Durchschnittszeit hatte Anna mit einer Zeit von 00:00:000.");
}

void tst_race_winner::addTargets()
{
    row("closest to the target", 4, {{9000, 10400}, {12000, 10300}}, second,
        "Die siegreiche Runde war die 2. Runde mit einer Zeit von 00:10:300.");
    row("as close on two tracks: the lower one", 4, {{10500}, {9500}}, first,
        "Die siegreiche Runde war die 1. Runde mit einer Zeit von 00:10:500.");
    row("as close in two laps: the earlier one", 4, {{12000}, {9500, 10500}}, second,
        "Die siegreiche Runde war die 1. Runde mit einer Zeit von 00:09:500.");
    row("closest to the target without any lap: track 1", 4, {{}, {}}, first,
        "Die siegreiche Runde war die 1. Runde mit einer Zeit von 00:00:000.");
    row("average closest to the target", 5, {{9000, 10000}, {10000, 10300}}, second,
        "Fahrer 2 lag mit einer Durchschnittszeit von 00:10:150 am nächsten an der Zielzeit 00:10:000.");
    row("average as close on two tracks: the lower one", 5, {{9500}, {10500}}, first,
        "Fahrer 1 lag mit einer Durchschnittszeit von 00:09:500 am nächsten an der Zielzeit 00:10:000.");
    row("average: a track without laps is closer to a short target", 5, {{5000}, {}}, second,
        "Fahrer 2 lag mit einer Durchschnittszeit von 00:00:000 am nächsten an der Zielzeit 00:01:000.",
        1000);
}

void tst_race_winner::addConstancy()
{
    constancyRow("constancy", false, 0, {{5000, 5050, 9000}, {5000, 5100, 5600}}, second,
                 constancy(2, "00:00:600", "00:05:000", "00:05:600"));
    constancyRow("constancy without the worst lap", false, 1, {{5000, 5050, 9000}, {5000, 5100, 5600}}, first,
                 constancy(1, "00:00:050", "00:05:000", "00:05:050"));
    constancyRow("constancy: a track without laps can't be beaten", false, 0, {{5000, 5001}, {}}, second,
                 constancy(2, "00:00:000", "00:00:000", "00:00:000"));
    constancyRow("as constant: the smaller slowest lap", false, 0, {{6000, 6100}, {5000, 5100}}, second,
                 constancy(2, "00:00:100", "00:05:000", "00:05:100"));
    constancyRow("as constant with equal laps: the lower track", false, 0, {{5000, 5100}, {5000, 5100}},
                 first, constancy(1, "00:00:100", "00:05:000", "00:05:100"));
    constancyRow("more laps to ignore than driven: the fastest lap alone", false, 3,
                 {{6000, 6050}, {5000, 9000}}, second, constancy(2, "00:00:000", "00:05:000", "00:05:000"));
    constancyRow("constancy around a target without the worst lap", true, 1,
                 {{8000, 8100, 8200}, {9000, 10500, 13000}}, second,
                 constancy(2, "00:01:000", "00:09:000", "00:10:500"));
    constancyRow("around a target, as bad at both ends: the slow one goes", true, 1,
                 {{9000, 10200, 11000}, {5000, 6000}}, first,
                 constancy(1, "00:01:000", "00:09:000", "00:10:200"));
    constancyRow("around a target: a track without laps can't be beaten", true, 0, {{10000, 10001}, {}},
                 second, constancy(2, "00:00:000", "00:00:000", "00:00:000"));
    QStringList track1OfEight{"sieger"}; // the ninth has no panel
    for (int track = 2; track <= 8; ++track)
        track1OfEight.append("beendet");
    constancyRow("constancy of more than eight tracks is an error", false, 0, Laps(9), track1OfEight,
                 "Fehler: Diese Siegbedingung kann nicht auf mehr als 8 Rennteilnehmer angewendet werden.");
}

void tst_race_winner::winnerAndResult()
{
    QFETCH(int, rule);
    QFETCH(int, targetTime);
    QFETCH(bool, useTarget);
    QFETCH(int, ignoredLaps);
    QFETCH(Laps, laps);
    StoredSetup setup = setupWithRule(rule, laps.size());
    setup.rules.setWinningTargetTime(QTime::fromMSecsSinceStartOfDay(targetTime));
    setup.rules.setUseTargetTime(useTarget);
    setup.rules.setNumOfWorstLapsToIgnore(ignoredLaps);
    setup.write();
    RunningProgram program({"--windowed", "--quickRace"});
    program.driveLaps(laps);
    program.letTimeRunOut();
    QTEST(program.statuses(), "words");
    QTEST(program.message(), "result");
    QCOMPARE(program.menuText(CMainMenu::QuickRace), QString("&schnelles Rennen starten"));
}

void tst_race_winner::firstAtTheLapLimitWins()
{
    StoredSetup setup = setupWithRule(1, 3);
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(2);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (const int track : {1, 1, 2, 3, 3})
        program.cross(track);
    QCOMPARE(program.statuses(), QStringList({"läuft", "läuft", "läuft"}));
    program.cross(3);
    QCOMPARE(program.statuses(), QStringList({"beendet", "beendet", "sieger"}));
    QCOMPARE(program.message(), QString("Die meisten Runden gefahren hat Carla."));
}

void tst_race_winner::lowerTrackWinsWhenBothReachTheLapLimitAtOnce()
{
    StoredSetup setup = setupWithRule(1, 2);
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(2);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 3; ++crossing)
        program.crossAll();
    QCOMPARE(program.statuses(), first);
    QCOMPARE(program.message(), QString("Die meisten Runden gefahren hat Anna."));
}

void tst_race_winner::simulatedTieGivesTwoWinners()
{
    setupWithRule(2, 2).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.crossAll();
    program.crossAll();
    program.letTimeRunOut();
    QCOMPARE(program.shownLaps(1), program.shownLaps(2));
    QCOMPARE(program.statuses(), both);
    QCOMPARE(program.message(),
             QString("Die schnellste Runde war die 1. Runde von Ben mit einer Zeit von %1.")
                 .arg(RunningProgram::timeText(program.shownLaps(2).value(0))));
}

void tst_race_winner::resultIsThatOfTheLapsThePanelsHaveShown()
{
    setupWithRule(4, 2).write(); // all laps are far below the target: the slowest one is the closest
    RunningProgram program;
    QVERIFY(program.startRace());
    for (const int atLeast : {15, 60, 30}) {
        program.cross(1, atLeast);
        program.cross(2, atLeast);
    }
    program.letTimeRunOut();
    int slowest = 0;
    int lapOfSlowest = 0;
    int trackOfSlowest = 0;
    for (const int track : {1, 2}) {
        const QVector<int> laps = program.shownLaps(track);
        QCOMPARE(laps.size(), 2);
        for (int lap = 0; lap < laps.size(); ++lap) {
            if (laps[lap] > slowest) {
                slowest = laps[lap];
                lapOfSlowest = lap + 1;
                trackOfSlowest = track;
            }
        }
    }
    QCOMPARE(program.statuses(), trackOfSlowest == 1 ? first : second);
    QCOMPARE(program.message(), QString("Die siegreiche Runde war die %1. Runde mit einer Zeit von %2.")
                                    .arg(QString::number(lapOfSlowest), RunningProgram::timeText(slowest)));
}

void tst_race_winner::raceStoppedByTheUserHasNoWinner()
{
    setupWithRule(1, 2).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.cross(1);
    program.cross(1);
    program.stopRace();
    QCOMPARE(program.statuses(), nobody);
    QCOMPARE(program.message(), QString("Rennen wurde beendet"));
    QVERIFY(!program.simulator().isVisible());
}

QTEST_APPLESS_MAIN(tst_race_winner)
#include "tst_race_winner.moc"
