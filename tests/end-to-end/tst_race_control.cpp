#include "io/CKelmoPortSimulator.h"
#include "results/CTrackSummary.h"
#include "shell/CKelmoMainDialog.h"
#include "support/ModalAnswers.h"
#include "support/RunningProgram.h"
#include "support/ScriptedQuestions.h"
#include "support/StoredSetup.h"

#include <QDir>
#include <QGroupBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int DeadTime = 220; ///< milliseconds, and some, in which a second press doesn't count
const char* const CsvFolder = "ergebnisse";

StoredSetup setupWithChaosButton()
{
    StoredSetup setup;
    setup.raceway.chaosButtonAvailable = true;
    return setup;
}

/** Two laps on track 1, one on track 2. */
void driveThreeLaps(RunningProgram& program)
{
    for (const int track : {1, 2, 1, 2, 1})
        program.cross(track);
    QCOMPARE(program.shownLaps(1).size(), 2);
    QCOMPARE(program.shownLaps(2).size(), 1);
}

/** @return the cells of a CSV file without their padding. */
QList<QStringList> cellsOf(const QString& fileName)
{
    QFile file(fileName);
    QList<QStringList> rows;
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
        QStringList cells = line.split(';');
        std::transform(cells.begin(), cells.end(), cells.begin(),
                       [](const QString& cell) { return cell.trimmed(); });
        rows.append(cells);
    }
    return rows;
}

} // namespace

/** What a user does before, in and after a race, in the running program. */
class tst_race_control : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void chaosButtonPausesAndResumes();
    void keyAndChaosButtonEndTheSamePause();
    void pauseWhileTheLightsRunHoldsTheCarsUntilTheResume();
    void racewayWithoutAChaosButtonShowsNone();

    void escAsksInARaceAndNoLetsItGoOn();
    void escAndYesCloseTheWindow();

    void resultIsWrittenIntoTheFolderOfTheSettings();
    void resultIsWrittenIntoTheFileTheUserNames();
    void runningRaceIsNeitherStoredNorSummarized();
    void summaryShowsTheLapsOfThePanels();

    void simulatorShowsWhileARaceRunsIfItIsChecked();
    void simulatorTakesKeys();
};

void tst_race_control::init()
{
    QDir(CsvFolder).removeRecursively();
    QDir().mkdir(CsvFolder);
}

void tst_race_control::chaosButtonPausesAndResumes()
{
    setupWithChaosButton().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.menuText(CMainMenu::PauseRace), QString("Rennen &pausieren"));

    program.tap("chaosButton", DeadTime);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    QCOMPARE(program.menuText(CMainMenu::PauseRace), QString("&Pausiertes Rennen fortsetzen"));
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    QCOMPARE(program.laps(1), QString("001"));

    program.tap("chaosButton", DeadTime);
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    QCOMPARE(program.menuText(CMainMenu::PauseRace), QString("Rennen &pausieren"));
    program.cross(1);
    QCOMPARE(program.statuses(), QStringList({"läuft", "warten"}));
    QCOMPARE(program.laps(1), QString("001")); // the lap of the pause is thrown away
    program.cross(1);
    QCOMPARE(program.laps(1), QString("002"));
}

void tst_race_control::keyAndChaosButtonEndTheSamePause()
{
    setupWithChaosButton().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    QVERIFY(QTest::qWaitFor([&] { return program.infoText("raceTime") == "00:00:01"; }));
    program.tap("chaosButton", DeadTime);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    QVERIFY(!QTest::qWaitFor([&] { return program.infoText("raceTime") != "00:00:01"; }, 1100));
    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    program.tap("chaosButton", DeadTime);
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    QTRY_COMPARE(program.infoText("raceTime"), QString("00:00:02"));
}

void tst_race_control::pauseWhileTheLightsRunHoldsTheCarsUntilTheResume()
{
    StoredSetup setup = setupWithChaosButton();
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    QCOMPARE(program.lights(), QString("Roooo"));
    program.tap("chaosButton", DeadTime);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    for (int second = 0; second < 5; ++second)
        program.letStartSecondPass();
    QCOMPARE(program.lights(), QString("GGGGG"));
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.laps(1), QString("000"));
    QVERIFY(program.status(1) != "läuft");
    program.tap("chaosButton", DeadTime);
    program.cross(1);
    QCOMPARE(program.status(1), QString("läuft"));
    program.cross(1);
    QCOMPARE(program.laps(1), QString("001"));
}

void tst_race_control::racewayWithoutAChaosButtonShowsNone()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    QVERIFY(!program.button("chaosButton")->isVisible());
}

void tst_race_control::escAsksInARaceAndNoLetsItGoOn()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.pressKey(Qt::Key_Escape);
    QCOMPARE(program.user().questions.size(), 1);
    QCOMPARE(program.user().questions[0],
             QStringList({"Programm beenden?", "Sind Sie sicher, dass Sie das Programm beenden möchten?",
                          "&Ja", "&Nein"}));
    QVERIFY(program.dialog().isVisible());
    program.cross(1);
    QCOMPARE(program.status(1), QString("läuft"));
}

void tst_race_control::escAndYesCloseTheWindow()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.user().answerIsYes = true;
    program.pressKey(Qt::Key_Escape);
    QVERIFY(!program.dialog().isVisible());
    QCOMPARE(program.user().questions.size(), 1);
}

void tst_race_control::resultIsWrittenIntoTheFolderOfTheSettings()
{
    StoredSetup setup;
    setup.settings.setStorageApproach(CSettings::UseDefaultPath);
    setup.settings.setStorageDefaultPath(QDir(CsvFolder).absolutePath());
    setup.settings.setStorageCsvTimeFormat(CSettings::MinutesComma);
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(2);
    setup.rules.setWinningCondition(1);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveThreeLaps(program);
    QCOMPARE(program.statuses(), QStringList({"sieger", "beendet"}));

    program.pressKey(Qt::Key_E, Qt::ControlModifier);
    QVERIFY(program.user().questions.isEmpty());
    const QStringList files = QDir(CsvFolder).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY2(QRegularExpression("^\\d{8}_\\d{6}_Anna_Ben\\.csv$").match(files[0]).hasMatch(),
             qPrintable(files[0]));
    const QList<QStringList> rows = cellsOf(QDir(CsvFolder).filePath(files[0]));
    const auto comma = [](int lap) { return RunningProgram::timeText(lap).replace(5, 1, ','); };
    QVERIFY(rows.size() >= 13);
    QCOMPARE(rows[0].mid(0, 2), QStringList({"Rennstrecke:", "Testbahn"}));
    QCOMPARE(rows[1].mid(0, 2), QStringList({"Startbedingung:", "fliegender Start"}));
    QCOMPARE(rows[2].mid(0, 2), QStringList({"Endebedingung:", "Ende nach 2 Runden"}));
    QCOMPARE(rows[3].mid(0, 2), QStringList({"Siegbedingung:", "Die meisten gefahrenen Runden bzw. "
                                                               "Rundenlimit als erster erreicht"}));
    QCOMPARE(rows[6].mid(0, 3), QStringList({"Fahrername:", "Anna", "Ben"}));
    QCOMPARE(rows[9].mid(0, 2), QStringList({"Status:", "Sieger"}));
    QVERIFY(!rows[9].mid(2).contains("Sieger"));
    QCOMPARE(rows[11].mid(0, 3),
             QStringList({"1", comma(program.shownLaps(1)[0]), comma(program.shownLaps(2)[0])}));
    QCOMPARE(rows[12].mid(0, 2), QStringList({"2", comma(program.shownLaps(1)[1])}));
}

void tst_race_control::resultIsWrittenIntoTheFileTheUserNames()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveThreeLaps(program);
    program.stopRace();
    program.user().fileName = QDir(CsvFolder).filePath("mein Rennen.csv");
    program.pressKey(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(program.user().questions.size(), 1);
    QCOMPARE(program.user().questions[0][0], QString("Rennen speichern als ..."));
    QVERIFY(program.user().questions[0][1].endsWith("_Anna_Ben.csv"));
    QCOMPARE(cellsOf(program.user().fileName).value(6).mid(0, 3),
             QStringList({"Fahrername:", "Anna", "Ben"}));
}

void tst_race_control::runningRaceIsNeitherStoredNorSummarized()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveThreeLaps(program);
    const ModalAnswers nothingOpens;
    program.pressKey(Qt::Key_E, Qt::ControlModifier);
    program.pressKey(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(program.user().questions.isEmpty());
    QCOMPARE(nothingOpens.numberOfWindows(), 0);
}

void tst_race_control::summaryShowsTheLapsOfThePanels()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveThreeLaps(program);
    program.stopRace();
    ModalAnswers answers;
    answers.expect([&program](QDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("Ergebnisübersicht"));
        int number = 0;
        for (const CTrackSummary* summary : dialog->findChildren<CTrackSummary*>()) {
            if (!summary->isVisible())
                continue;
            ++number;
            QCOMPARE(summary->findChild<QGroupBox*>()->title(), QString("Spur %1").arg(number));
            const QVector<int> laps = program.shownLaps(number);
            const int best = int(std::min_element(laps.begin(), laps.end()) - laps.begin());
            const QAbstractItemModel* model = summary->findChild<QTreeView*>()->model();
            QCOMPARE(model->rowCount(), laps.size());
            for (int lap = 0; lap < laps.size(); ++lap) {
                const QModelIndex time = model->index(lap, 1);
                QCOMPARE(time.data().toString(), RunningProgram::timeText(laps[lap]));
                QCOMPARE(time.data(Qt::FontRole).value<QFont>().bold(), lap == best);
            }
        }
        QCOMPARE(number, 2);
        dialog->reject();
    });
    program.pressKey(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(answers.numberOfWindows(), 1);
}

void tst_race_control::simulatorShowsWhileARaceRunsIfItIsChecked()
{
    StoredSetup().write();
    RunningProgram program;
    program.pressKey(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(program.statuses(), QStringList({"starten", "starten"}));
    QVERIFY(!program.simulator().isVisible());
    program.stopRace();
    program.pressKey(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(!program.simulator().isVisible());
    program.pressKey(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(program.simulator().isVisible());
    program.pressKey(Qt::Key_D, Qt::ControlModifier); // can't be changed in a race
    QVERIFY(program.simulator().isVisible());
    program.stopRace();
    QVERIFY(!program.simulator().isVisible());
}

void tst_race_control::simulatorTakesKeys()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.simulator().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&program.simulator()));
    QTest::keyClick(&program.simulator(), Qt::Key_2, Qt::AltModifier);
    QTRY_COMPARE(program.statuses(), QStringList({"starten", "läuft"}));
    program.button("slot2")->setFocus();
    QTRY_VERIFY(!program.button("slot2")->isDown());
    QTest::keyClick(program.button("slot2"), Qt::Key_Space);
    QTRY_COMPARE(program.laps(2), QString("001"));
}

QTEST_APPLESS_MAIN(tst_race_control)
#include "tst_race_control.moc"
