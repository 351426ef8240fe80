#include "data/CRacewayList.h"
#include "io/CKelmoPortSimulator.h"
#include "io/PortIds.h"
#include "race/CRace.h"
#include "results/CRaceSummaryDialog.h"
#include "shell/CKelmoMain.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CMainMenu.h"
#include "shell/CTrackDisplay.h"
#include "support/ModalAnswers.h"
#include "support/RunningProgram.h"
#include "support/ScriptedQuestions.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTextCodec>
#include <QTimer>

#include <algorithm>

namespace {

void storePowerSwitchableRaceway(int tracks)
{
    CRaceway raceway(tracks);
    raceway.pwrOffFeatureAvailable = true;
    CRacewayList list;
    list.updateRaceway(list.currentRow(), raceway);
}

} // namespace

class tst_CKelmoMain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void localeCodecIsUtf8();
    void windowedProgramShowsAMaximizedWindowWithAFrame();
    void usualProgramShowsAFullScreenWithoutAFrame();
    void startBringsTheOutputsToTheirIdleState();
    void quickRaceOptionStartsARace();
    void withoutTheOptionNoRaceRuns();
    void quickRaceIsStartedAndStoppedFromTheMenu();
    void lapsOfTheRaceShowOnThePanels();
    void pauseAndResumeReachTheRace();
    void competitionCarriesItsName();
    void raceTimeAndTextsShowInTheInfoFrame();
    void trackPowerCommandsReachTheRaceAndItsAnswerTheMenu();
    void changedRacewayReachesTheRace();
    void summaryShowsTheRaceAndStoresIt();
    void simulatorDrivesTheRace();
    void networkMessagesShowInTheInfoFrame();

    void shutdownBoxOfAServerIsNeverShown();

    void clientModeHasNoRaceMenu();
    void clientModeWiresNoRace();
    void clientModeIgnoresQuickRace();

    void withoutTracksARaceStillRuns_data();
    void withoutTracksARaceStillRuns();

    void endStopsARunningRace();
    void closingTheWindowInARaceEndsTheProgram_data();
    void closingTheWindowInARaceEndsTheProgram();
};

void tst_CKelmoMain::init()
{
    QFile::remove("tornik.db");
    QDir().rmdir("tornik.db");
    QFile::remove("rennen.csv");
    QSettings("Tornik", "Tornik").clear();
}

void tst_CKelmoMain::localeCodecIsUtf8()
{
    RunningProgram program({"--windowed"});
    QCOMPARE(QTextCodec::codecForLocale()->name(), QByteArray("UTF-8"));
}

void tst_CKelmoMain::windowedProgramShowsAMaximizedWindowWithAFrame()
{
    RunningProgram program({"--windowed"});
    QVERIFY(program.dialog().isVisible());
    QVERIFY(program.dialog().windowState() & Qt::WindowMaximized);
    QVERIFY(!(program.dialog().windowFlags() & Qt::FramelessWindowHint));
    QVERIFY(program.dialog().windowFlags() & Qt::WindowMinMaxButtonsHint);
    QVERIFY(program.dialog().windowFlags() & Qt::WindowCloseButtonHint);
}

void tst_CKelmoMain::usualProgramShowsAFullScreenWithoutAFrame()
{
    RunningProgram program{QStringList()};
    QVERIFY(program.dialog().isVisible());
    QVERIFY(program.dialog().windowState() & Qt::WindowFullScreen);
    QVERIFY(program.dialog().windowFlags() & Qt::FramelessWindowHint);
}

void tst_CKelmoMain::startBringsTheOutputsToTheirIdleState()
{
    storePowerSwitchableRaceway(2);
    RunningProgram program({"--windowed"});
    // The race's stop has told the menu that both tracks are off.
    QCOMPARE(program.menu()->trackPowerActions()[0]->text(), QString("Spur &1 einschalten"));
    QCOMPARE(program.menu()->trackPowerActions()[1]->text(), QString("Spur &2 einschalten"));
    QVERIFY(!program.race().isRaceActive());
}

void tst_CKelmoMain::quickRaceOptionStartsARace()
{
    RunningProgram program({"--windowed", "--quickRace"});
    QVERIFY(program.race().isRaceActive());
    QCOMPARE(program.menu()->action(CMainMenu::QuickRace)->text(), QString("&schnelles Rennen beenden"));
}

void tst_CKelmoMain::withoutTheOptionNoRaceRuns()
{
    RunningProgram program({"--windowed"});
    QVERIFY(!program.race().isRaceActive());
    QVERIFY(program.infoText("additionalInfo").isEmpty());
}

void tst_CKelmoMain::quickRaceIsStartedAndStoppedFromTheMenu()
{
    RunningProgram program({"--windowed"});
    QAction* action = program.menu()->action(CMainMenu::QuickRace);
    action->trigger();
    QVERIFY(program.race().isRaceActive());
    QVERIFY(!program.menu()->action(CMainMenu::Settings)->isEnabled());
    action->trigger();
    QVERIFY(!program.race().isRaceActive());
    QVERIFY(program.menu()->action(CMainMenu::Settings)->isEnabled());
    QCOMPARE(program.infoText("additionalInfo"), QString("Rennen wurde beendet"));
}

void tst_CKelmoMain::lapsOfTheRaceShowOnThePanels()
{
    RunningProgram program({"--windowed", "--quickRace"});
    program.sensorAt(1000, PortId::lapSensor(0));
    program.sensorAt(1100, 0);
    program.sensorAt(6734, PortId::lapSensor(0));
    QCOMPARE(program.trackText(1, "lapCount"), QString("001"));
    QCOMPARE(program.trackText(1, "lastLap"), QString("00:05:734"));
    QCOMPARE(program.trackText(1, "status"), QString("läuft"));
    QCOMPARE(program.trackText(2, "lapCount"), QString("000"));
}

void tst_CKelmoMain::pauseAndResumeReachTheRace()
{
    RunningProgram program({"--windowed", "--quickRace"});
    QAction* pause = program.menu()->action(CMainMenu::PauseRace);
    pause->trigger();
    QVERIFY(program.race().isPaused());
    QCOMPARE(pause->text(), QString("&Pausiertes Rennen fortsetzen"));
    QCOMPARE(program.trackText(1, "status"), QString("pause"));
    pause->trigger();
    QVERIFY(!program.race().isPaused());
    QCOMPARE(pause->text(), QString("Rennen &pausieren"));
}

void tst_CKelmoMain::competitionCarriesItsName()
{
    RunningProgram program({"--windowed"});
    const QSignalSpy started(&program.race(), &CRace::RecordedRaceStarted);
    Q_EMIT program.dialog().raceStartRecordedRace("Finale");
    QCOMPARE(started.count(), 1);
    QVERIFY(program.race().isRaceActive());
    QCOMPARE(program.menu()->action(CMainMenu::RecordedRace)->text(), QString("&Wettkampf Rennen beenden"));
}

void tst_CKelmoMain::raceTimeAndTextsShowInTheInfoFrame()
{
    RunningProgram program({"--windowed"});
    Q_EMIT program.race().UpdateRaceTime(QTime(0, 12, 34));
    Q_EMIT program.race().raceInfoText("Spur 1 hat gewonnen");
    QCOMPARE(program.infoText("raceTime"), QString("00:12:34"));
    QCOMPARE(program.infoText("additionalInfo"), QString("Spur 1 hat gewonnen"));
}

void tst_CKelmoMain::trackPowerCommandsReachTheRaceAndItsAnswerTheMenu()
{
    storePowerSwitchableRaceway(2);
    RunningProgram program({"--windowed"});
    QAction* track2 = program.menu()->trackPowerActions()[1];
    track2->trigger();
    QCOMPARE(track2->text(), QString("Spur &2 ausschalten"));
    QCOMPARE(program.menu()->trackPowerActions()[0]->text(), QString("Spur &1 einschalten"));
    program.menu()->action(CMainMenu::AllTracksOn)->trigger();
    QCOMPARE(program.menu()->trackPowerActions()[0]->text(), QString("Spur &1 ausschalten"));
    program.menu()->action(CMainMenu::AllTracksOff)->trigger();
    QCOMPARE(track2->text(), QString("Spur &2 einschalten"));
}

void tst_CKelmoMain::changedRacewayReachesTheRace()
{
    RunningProgram program({"--windowed"});
    QCOMPARE(program.race().numberOfMembers(), 2);
    CRacewayList list;
    list.updateRaceway(list.currentRow(), CRaceway(5));
    QVERIFY(QMetaObject::invokeMethod(&program.dialog(), "newRacewaySelected", Qt::DirectConnection));
    QCOMPARE(program.race().numberOfMembers(), 5);
    QVERIFY(program.dialog().findChild<CTrackDisplay*>("track5"));
}

void tst_CKelmoMain::summaryShowsTheRaceAndStoresIt()
{
    RunningProgram program({"--windowed", "--quickRace"});
    program.sensorAt(1000, PortId::lapSensor(0));
    program.sensorAt(6000, PortId::lapSensor(0));
    Q_EMIT program.dialog().raceStop();
    program.user().fileName = "rennen.csv";
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QCOMPARE(dialog->objectName(), QString("summaryDialog"));
        dialog->findChild<QPushButton*>("csvButton")->click();
        dialog->reject();
    });
    QTest::mouseClick(program.dialog().findChild<QLabel*>("additionalInfo"), Qt::LeftButton);
    QCOMPARE(answers.numberOfWindows(), 1);
    QVERIFY(QFile::exists("rennen.csv"));
}

void tst_CKelmoMain::simulatorDrivesTheRace()
{
    RunningProgram program({"--windowed"});
    QVERIFY(program.startRace());
    program.cross(1);
    QCOMPARE(program.status(1), QString("läuft"));
}

void tst_CKelmoMain::networkMessagesShowInTheInfoFrame()
{
    RunningProgram program({"--windowed"});
    QVERIFY(QMetaObject::invokeMethod(&program.main(), "debugMessage", Qt::DirectConnection,
                                      Q_ARG(QString, "Verbindung wurde unterbrochen.")));
    QCOMPARE(program.infoText("additionalInfo"), QString("Verbindung wurde unterbrochen."));
}

void tst_CKelmoMain::shutdownBoxOfAServerIsNeverShown()
{
    RunningProgram program({"--windowed", "--quickRace"});
    auto* timer = program.main().findChild<QTimer*>("shutdownTimer");
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto box = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->objectName() == "shutdownBox";
    });
    QVERIFY(box != windows.end());
    Q_EMIT program.dialog().remoteClientShutdownTrigger();
    QVERIFY(!(*box)->isVisible());
    QVERIFY(!timer->isActive());

    // Nor does the timer count where it is made to run.
    auto* messageBox = qobject_cast<QMessageBox*>(*box);
    messageBox->setText("unchanged");
    QSignalSpy ticks(timer, &QTimer::timeout);
    timer->start(1);
    QVERIFY(ticks.wait());
    QCOMPARE(messageBox->text(), QString("unchanged"));
}

void tst_CKelmoMain::clientModeHasNoRaceMenu()
{
    RunningProgram program({"--windowed", "--connect", "127.0.0.1:9"});
    QVERIFY(program.dialog().isVisible());
    QVERIFY(!program.menu()->actions()[0]->isVisible());
    QVERIFY(program.menu()->action(CMainMenu::Quit)->isVisible());
}

void tst_CKelmoMain::clientModeWiresNoRace()
{
    RunningProgram program({"--windowed", "--connect", "127.0.0.1:9"});
    program.dialog().quickRaceTrigger();
    QVERIFY(QMetaObject::invokeMethod(&program.dialog(), "racePauseTrigger", Qt::DirectConnection));
    Q_EMIT program.dialog().raceStartRecordedRace("Finale");
    QVERIFY(!program.race().isRaceActive());
    program.race().vStartQuickRace();
    QCOMPARE(program.trackText(1, "status"), QString("---"));
    QVERIFY(!program.dialog().findChild<QLabel*>("additionalInfo")->text().contains("Rennen"));
}

void tst_CKelmoMain::clientModeIgnoresQuickRace()
{
    RunningProgram program({"--windowed", "--connect", "127.0.0.1:9", "--quickRace"});
    QVERIFY(!program.race().isRaceActive());
}

void tst_CKelmoMain::withoutTracksARaceStillRuns_data()
{
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("a database that can't be opened") << false;
    QTest::newRow("a database without the table of tracks") << true;
}

void tst_CKelmoMain::withoutTracksARaceStillRuns()
{
    QFETCH(bool, isOpen);
    QFile emptyFile("tornik.db");
    QVERIFY(isOpen ? emptyFile.open(QIODevice::WriteOnly) : QDir().mkdir("tornik.db"));
    emptyFile.close();
    RunningProgram program({"--windowed"});
    QCOMPARE(program.race().numberOfMembers(), 0);
    QVERIFY(program.dialog().findChild<CTrackDisplay*>("track1")->isVisible());

    QAction* quickRace = program.menu()->action(CMainMenu::QuickRace);
    quickRace->trigger();
    program.sensorAt(1000, 1);
    program.menu()->action(CMainMenu::PauseRace)->trigger();
    program.menu()->action(CMainMenu::PauseRace)->trigger();
    program.sensorAt(2000, 1);
    QVERIFY(program.race().isRaceActive());
    quickRace->trigger();
    QVERIFY(!program.race().isRaceActive());

    program.user().fileName = "rennen.csv";
    const ModalAnswers noWindow;
    program.menu()->action(CMainMenu::ShowSummary)->trigger();
    program.menu()->action(CMainMenu::StoreRace)->trigger();
    QVERIFY(QFile::exists("rennen.csv"));
}

void tst_CKelmoMain::endStopsARunningRace()
{
    RunningProgram program({"--windowed", "--quickRace"});
    const QSignalSpy stopped(&program.race(), &CRace::RaceStopped);
    program.destroyMain();
    QCOMPARE(stopped.count(), 1);
}

void tst_CKelmoMain::closingTheWindowInARaceEndsTheProgram_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("by Esc") << true;
    QTest::newRow("by the window's own button, with the simulator open") << false;
}

void tst_CKelmoMain::closingTheWindowInARaceEndsTheProgram()
{
    QFETCH(bool, byKey);
    RunningProgram program({"--windowed"});
    program.user().answerIsYes = true;
    program.menu()->action(CMainMenu::Simulator)->setChecked(!byKey);
    program.menu()->action(CMainMenu::QuickRace)->trigger();
    QVERIFY(program.race().isRaceActive());
    QApplication::setQuitOnLastWindowClosed(true);
    QTimer::singleShot(0, &program.dialog(), [&program, byKey] {
        if (byKey)
            QTest::keyClick(&program.dialog(), Qt::Key_Escape);
        else
            program.dialog().close();
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!program.dialog().isVisible());
    program.destroyMain();
}

QTEST_APPLESS_MAIN(tst_CKelmoMain)
#include "tst_CKelmoMain.moc"
