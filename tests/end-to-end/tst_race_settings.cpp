#include "dialogs/CKelmoRaceSettings.h"
#include "io/CKelmoPortSimulator.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CTrackDisplay.h"
#include "support/DatabaseFile.h"
#include "support/RunningProgram.h"
#include "support/ScriptedQuestions.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"

#include <QAction>
#include <QFile>

namespace {

/** Answers each file box of the race settings, which are open. */
void answerFileBoxes(RunningProgram& program, const QString& fileName)
{
    auto questions = std::make_unique<CScriptedQuestions>();
    questions->fileName = fileName;
    program.dialog().findChild<CKelmoRaceSettings*>()->setUserQuestions(std::move(questions));
}

} // namespace

/** What the user sets in the race settings counts in the next race of the running program. */
class tst_race_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void winnerIsTheOneOfTheRule_data();
    void winnerIsTheOneOfTheRule();
    void dataCapture_data();
    void dataCapture();
    void cancelledSettingsHaveNoEffect();
    void settingsOfOneOpeningShowInTheNext();
    void savedDefaultsAreThereInTheNextRun();
    void exportedRulesCanBeImportedAndRaced();
    void runningRaceLocksTheEntry();
};

void tst_race_settings::winnerIsTheOneOfTheRule_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QTime>("target");
    QTest::addColumn<bool>("useTarget");
    QTest::addColumn<int>("ignoredLaps");
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, const char* rule, const QString& info, const QString& result,
                        const QTime& target = QTime(0, 0, 10), bool useTarget = false, int ignoredLaps = 0) {
        QTest::newRow(name) << QString(rule) << target << useTarget << ignoredLaps << info << result;
    };
    row("most laps", "winningCondition0", "die meisten Runden", "Die meisten Runden gefahren hat Anna.");
    row("fastest lap", "winningCondition1", "die schnellste Runde",
        "Die schnellste Runde war die 1. Runde von Ben mit einer Zeit von 00:09:000.");
    row("average", "winningCondition2", "die beste Durchschnittszeit",
        "Die beste Durchschnittszeit hatte Anna mit einer Zeit von 00:11:000.");
    row("lap at target", "winningCondition3", "die Zielzeit möglichst genau erreicht",
        "Die siegreiche Runde war die 2. Runde mit einer Zeit von 00:14:000.", QTime(0, 0, 13, 500));
    row("average at target", "winningCondition4", "die Durchschnittszeit möglichst nahe an Zielzeit",
        "Fahrer 2 lag mit einer Durchschnittszeit von 00:11:500 am nächsten an der Zielzeit 00:11:600.",
        QTime(0, 0, 11, 600));
    row("consistent", "winningCondition5", "die konsistentesten Rundenzeiten",
        "Fahrer 1 hat mit einer max. Abweichung von 00:02:000 gewonnen. Die schnellste Rundenzeit war "
        "00:10:000, die langsamste 00:12:000.");
    row("consistent but for one lap", "winningCondition5", "die konsistentesten Rundenzeiten",
        "Fahrer 2 hat mit einer max. Abweichung von 00:00:000 gewonnen. Die schnellste Rundenzeit war "
        "00:09:000, die langsamste 00:09:000.",
        QTime(0, 0, 10), false, 1);
    row("consistent around the target", "winningCondition5", "die konsistentesten Rundenzeiten",
        "Fahrer 1 hat mit einer max. Abweichung von 00:04:000 gewonnen. Die schnellste Rundenzeit war "
        "00:10:000, die langsamste 00:12:000.",
        QTime(0, 0, 14), true);
}

void tst_race_settings::winnerIsTheOneOfTheRule()
{
    QFETCH(QString, rule);
    QFETCH(QTime, target);
    QFETCH(bool, useTarget);
    QFETCH(int, ignoredLaps);
    QFETCH(QString, info);
    QFETCH(QString, result);
    StoredSetup setup;
    setup.rules.setEndType(CRaceSettings::TimeLimit);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [&](const DialogUser& user) {
        user.enter(qPrintable(rule), true);
        user.enter("numOfWorstLapsToIgnore", ignoredLaps);
        user.enter("useTargetTime", useTarget);
        user.enter("winningTargetTime", target);
    });
    QCOMPARE(program.infoText("winningCondition"), info);
    QVERIFY(program.startRace());
    program.driveLaps({{10000, 12000, 11000}, {9000, 14000}});
    program.letTimeRunOut();
    QCOMPARE(program.message(), result);
}

void tst_race_settings::dataCapture_data()
{
    QTest::addColumn<bool>("distance");
    QTest::addColumn<bool>("fastestLap");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("distance") << true << false;
    QTest::newRow("fastest lap") << false << true;
}

void tst_race_settings::dataCapture()
{
    QFETCH(bool, distance);
    QFETCH(bool, fastestLap);
    StoredSetup setup(1);
    setup.raceway.tracks[0].length = 500;
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [=](const DialogUser& user) {
        user.enter("monitorDistanceDriven", distance);
        user.enter("monitorFastestLap", fastestLap);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{10000, 9000}});
    program.stopRace();
    DatabaseFile database;
    QCOMPARE(database.value("SELECT distanceDriven FROM cars"), QString(distance ? "1000" : "0"));
    QCOMPARE(database.rows("SELECT time FROM fastestLapTimes"),
             fastestLap ? QStringList("9000") : QStringList());
}

void tst_race_settings::cancelledSettingsHaveNoEffect()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(
        program, [](const DialogUser& user) { user.enter("startTypeTimed", true); }, "cancelButton");
    QCOMPARE(program.infoText("startCondition"), QString("fliegender Start"));
    QVERIFY(program.startRace());
    QCOMPARE(program.lights(), QString("GGGGG"));
}

void tst_race_settings::settingsOfOneOpeningShowInTheNext()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        user.enter("winningCondition5", true);
        user.enter("numOfWorstLapsToIgnore", 4);
        user.enter("monitorFastestLap", true);
    });
    QVERIFY(program.startRace());
    program.stopRace();
    inRaceSettings(program, [](const DialogUser& user) {
        QCOMPARE(user.value("winningCondition5").toBool(), true);
        QCOMPARE(user.value("numOfWorstLapsToIgnore").toInt(), 4);
        QCOMPARE(user.value("monitorFastestLap").toBool(), true);
    });
}

void tst_race_settings::savedDefaultsAreThereInTheNextRun()
{
    StoredSetup().write();
    {
        RunningProgram program;
        inRaceSettings(program, [](const DialogUser& user) {
            user.enter("endTypeLaps", true);
            user.enter("numberOfLaps", 33);
            user.enter("saveAsDefaults", true);
        });
        inRaceSettings(program, [](const DialogUser& user) { user.enter("numberOfLaps", 44); });
        QCOMPARE(program.infoText("endCondition"), QString("Ende nach 44 Runden"));
    }
    RunningProgram program;
    QCOMPARE(program.infoText("endCondition"), QString("Ende nach 33 Runden"));
    // The drivers of the panels were saved with the rules.
    QCOMPARE(program.track(2)->driverName(), QString("Ben"));
}

void tst_race_settings::exportedRulesCanBeImportedAndRaced()
{
    StoredSetup().write();
    QFile::remove("two-laps.rsf");
    RunningProgram program;
    const auto enterAndExport = [&program](const DialogUser& user) {
        answerFileBoxes(program, "two-laps.rsf");
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 2);
        user.press("exportButton");
    };
    inRaceSettings(program, enterAndExport, "cancelButton");
    QVERIFY(QFile::exists("two-laps.rsf"));
    QCOMPARE(program.infoText("endCondition"), QString("keine Endebedingung"));
    inRaceSettings(program, [](const DialogUser& user) { user.press("importButton"); });
    QCOMPARE(program.infoText("endCondition"), QString("Ende nach 2 Runden"));
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 3; ++crossing)
        program.cross(1);
    QCOMPARE(program.menuText(CMainMenu::QuickRace), QString("&schnelles Rennen starten"));
}

void tst_race_settings::runningRaceLocksTheEntry()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    const ModalAnswers answers; // nothing may open
    program.pressKey(Qt::Key_R, Qt::ControlModifier);
    QVERIFY(!program.menu()->action(CMainMenu::RaceSettings)->isEnabled());
    program.stopRace();
    QVERIFY(program.menu()->action(CMainMenu::RaceSettings)->isEnabled());
}

QTEST_APPLESS_MAIN(tst_race_settings)
#include "tst_race_settings.moc"
