#include "data/CRacewayList.h"
#include "io/CDriveThroughEvent.h"
#include "io/CKelmoPortSimulator.h"
#include "io/PortIds.h"
#include "race/CRace.h"
#include "results/CRaceSummaryDialog.h"
#include "shell/CCommandLineParameters.h"
#include "shell/CKelmoMain.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CMainMenu.h"
#include "shell/CRichLabel.h"
#include "shell/CTrackDisplay.h"
#include "shell/CUserQuestions.h"
#include "support/ModalAnswers.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTextCodec>

#include <vector>

namespace {

/** Answers every question with yes and every file name with its own. */
class CWillingUser : public CUserQuestions
{
public:
    bool ask(QWidget*, const QString&, const QString&, const QString&, const QString&) override
    {
        return true;
    }
    QString askSaveFileName(QWidget*, const QString&, const QString&, const QString&) override
    {
        return QStringLiteral("rennen.csv");
    }
    void showAbout(QWidget*, const QString&, const QString&) override {}
};

/** One program: the application with its arguments and the start object. */
class Program
{
public:
    explicit Program(const QStringList& arguments)
    {
        m_bytes.emplace_back("tornik");
        for (const QString& argument : arguments)
            m_bytes.push_back(argument.toLocal8Bit());
        for (QByteArray& argument : m_bytes)
            m_argv.push_back(argument.data());
        m_argv.push_back(nullptr);
        m_argc = int(m_bytes.size());
        m_application = std::make_unique<QApplication>(m_argc, m_argv.data());
        m_main = std::make_unique<CKelmoMain>(m_application.get(), CCommandLineParameters());
        dialog().setUserQuestions(std::make_unique<CWillingUser>());
    }

    CKelmoMain& main() { return *m_main; }
    void destroyMain() { m_main.reset(); }
    CKelmoMainDialog& dialog() { return *m_main->mainDialog(); }
    CRace& race() { return *m_main->race(); }
    CMainMenu* menu() { return dialog().findChild<CMainMenu*>("menuBar"); }
    QString trackText(int number, const char* label)
    {
        return dialog()
            .findChild<CTrackDisplay*>(QStringLiteral("track%1").arg(number))
            ->findChild<CRichLabel*>(label)
            ->text();
    }
    QString infoText(const char* label) { return dialog().findChild<QLabel*>(label)->text(); }

    /** Lets a sensor event reach the race; 0 for no sensor. */
    void sensorAt(int time, int portId)
    {
        QBitArray sensors(PortId::Count);
        if (portId)
            sensors.setBit(portId);
        CDriveThroughEvent event(sensors, time);
        QApplication::sendEvent(&race(), &event);
    }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<char*> m_argv;
    int m_argc = 0;
    std::unique_ptr<QApplication> m_application;
    std::unique_ptr<CKelmoMain> m_main;
};

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

    void clientModeHasNoRaceMenu();
    void clientModeWiresNoRace();
    void clientModeIgnoresQuickRace();

    void withoutTracksARaceStillRuns_data();
    void withoutTracksARaceStillRuns();

    void endStopsARunningRace();
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
    Program program({"--windowed"});
    QCOMPARE(QTextCodec::codecForLocale()->name(), QByteArray("UTF-8"));
}

void tst_CKelmoMain::windowedProgramShowsAMaximizedWindowWithAFrame()
{
    Program program({"--windowed"});
    QVERIFY(program.dialog().isVisible());
    QVERIFY(program.dialog().windowState() & Qt::WindowMaximized);
    QVERIFY(!(program.dialog().windowFlags() & Qt::FramelessWindowHint));
    QVERIFY(program.dialog().windowFlags() & Qt::WindowMinMaxButtonsHint);
    QVERIFY(program.dialog().windowFlags() & Qt::WindowCloseButtonHint);
}

void tst_CKelmoMain::usualProgramShowsAFullScreenWithoutAFrame()
{
    Program program({});
    QVERIFY(program.dialog().isVisible());
    QVERIFY(program.dialog().windowState() & Qt::WindowFullScreen);
    QVERIFY(program.dialog().windowFlags() & Qt::FramelessWindowHint);
}

void tst_CKelmoMain::startBringsTheOutputsToTheirIdleState()
{
    storePowerSwitchableRaceway(2);
    Program program({"--windowed"});
    // The race's stop has told the menu that both tracks are off.
    QCOMPARE(program.menu()->trackPowerActions()[0]->text(), QString("Spur &1 einschalten"));
    QCOMPARE(program.menu()->trackPowerActions()[1]->text(), QString("Spur &2 einschalten"));
    QVERIFY(!program.race().isRaceActive());
}

void tst_CKelmoMain::quickRaceOptionStartsARace()
{
    Program program({"--windowed", "--quickRace"});
    QVERIFY(program.race().isRaceActive());
    QCOMPARE(program.menu()->action(CMainMenu::QuickRace)->text(), QString("&schnelles Rennen beenden"));
}

void tst_CKelmoMain::withoutTheOptionNoRaceRuns()
{
    Program program({"--windowed"});
    QVERIFY(!program.race().isRaceActive());
    QVERIFY(program.infoText("additionalInfo").isEmpty());
}

void tst_CKelmoMain::quickRaceIsStartedAndStoppedFromTheMenu()
{
    Program program({"--windowed"});
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
    Program program({"--windowed", "--quickRace"});
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
    Program program({"--windowed", "--quickRace"});
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
    Program program({"--windowed"});
    const QSignalSpy started(&program.race(), &CRace::RecordedRaceStarted);
    Q_EMIT program.dialog().raceStartRecordedRace("Finale");
    QCOMPARE(started.count(), 1);
    QVERIFY(program.race().isRaceActive());
    QCOMPARE(program.menu()->action(CMainMenu::RecordedRace)->text(), QString("&Wettkampf Rennen beenden"));
}

void tst_CKelmoMain::raceTimeAndTextsShowInTheInfoFrame()
{
    Program program({"--windowed"});
    Q_EMIT program.race().UpdateRaceTime(QTime(0, 12, 34));
    Q_EMIT program.race().raceInfoText("Spur 1 hat gewonnen");
    QCOMPARE(program.infoText("raceTime"), QString("00:12:34"));
    QCOMPARE(program.infoText("additionalInfo"), QString("Spur 1 hat gewonnen"));
}

void tst_CKelmoMain::trackPowerCommandsReachTheRaceAndItsAnswerTheMenu()
{
    storePowerSwitchableRaceway(2);
    Program program({"--windowed"});
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
    Program program({"--windowed"});
    QCOMPARE(program.race().numberOfMembers(), 2);
    CRacewayList list;
    list.updateRaceway(list.currentRow(), CRaceway(5));
    QVERIFY(QMetaObject::invokeMethod(&program.dialog(), "newRacewaySelected", Qt::DirectConnection));
    QCOMPARE(program.race().numberOfMembers(), 5);
    QVERIFY(program.dialog().findChild<CTrackDisplay*>("track5"));
}

void tst_CKelmoMain::summaryShowsTheRaceAndStoresIt()
{
    Program program({"--windowed", "--quickRace"});
    program.sensorAt(1000, PortId::lapSensor(0));
    program.sensorAt(6000, PortId::lapSensor(0));
    Q_EMIT program.dialog().raceStop();
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
    Program program({"--windowed"});
    program.menu()->action(CMainMenu::Simulator)->setChecked(true);
    program.menu()->action(CMainMenu::QuickRace)->trigger();
    auto* simulator = program.dialog().findChild<CKelmoPortSimulator*>();
    QVERIFY(simulator->isVisible());
    auto* slot1 = simulator->findChild<QPushButton*>("slot1");
    // A stamp of 0 ms would count as no stamp at all.
    QTRY_VERIFY((QTest::mousePress(slot1, Qt::LeftButton), QTest::mouseRelease(slot1, Qt::LeftButton),
                 QApplication::processEvents(), program.trackText(1, "status") == "läuft"));
}

void tst_CKelmoMain::networkMessagesShowInTheInfoFrame()
{
    Program program({"--windowed"});
    QVERIFY(QMetaObject::invokeMethod(&program.main(), "debugMessage", Qt::DirectConnection,
                                      Q_ARG(QString, "Verbindung wurde unterbrochen.")));
    QCOMPARE(program.infoText("additionalInfo"), QString("Verbindung wurde unterbrochen."));
}

void tst_CKelmoMain::clientModeHasNoRaceMenu()
{
    Program program({"--windowed", "--connect", "127.0.0.1:9"});
    QVERIFY(program.dialog().isVisible());
    QVERIFY(!program.menu()->actions()[0]->isVisible());
    QVERIFY(program.menu()->action(CMainMenu::Quit)->isVisible());
}

void tst_CKelmoMain::clientModeWiresNoRace()
{
    Program program({"--windowed", "--connect", "127.0.0.1:9"});
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
    Program program({"--windowed", "--connect", "127.0.0.1:9", "--quickRace"});
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
    Program program({"--windowed"});
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

    const ModalAnswers noWindow;
    program.menu()->action(CMainMenu::ShowSummary)->trigger();
    program.menu()->action(CMainMenu::StoreRace)->trigger();
    QVERIFY(QFile::exists("rennen.csv"));
}

void tst_CKelmoMain::endStopsARunningRace()
{
    Program program({"--windowed", "--quickRace"});
    const QSignalSpy stopped(&program.race(), &CRace::RaceStopped);
    program.destroyMain();
    QCOMPARE(stopped.count(), 1);
}

void tst_CKelmoMain::closingTheWindowInARaceEndsTheProgram()
{
    Program program({"--windowed", "--quickRace"});
    QApplication::setQuitOnLastWindowClosed(true);
    QTimer::singleShot(0, &program.dialog(),
                       [&program] { QTest::keyClick(&program.dialog(), Qt::Key_Escape); });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!program.dialog().isVisible());
    program.destroyMain();
}

QTEST_APPLESS_MAIN(tst_CKelmoMain)
#include "tst_CKelmoMain.moc"
