#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "io/CKelmoPortSimulator.h"
#include "race/CLightAction.h"
#include "shell/CInfoFrame.h"
#include "shell/CLights.h"
#include "shell/MainDialogFixture.h"
#include "sound/CSoundOutput.h"
#include "sound/SoundOutLib.h"
#include "support/FunctionReader.h"
#include "support/ModalAnswers.h"

#include <QCryptographicHash>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>

namespace {

using Dialog = CKelmoMainDialog;

/** Writes down what a voice is asked to speak. */
class CRecordingVoice : public SoundOutLib
{
public:
    explicit CRecordingVoice(QStringList& spoken) : m_spoken(spoken) {}

    int load(const char*) override { return 1; }
    void unloadAll() override {}
    void enqueue(int) override { m_spoken.append("sample"); }
    void enqueue(const char* text) override { m_spoken.append(QString::fromLatin1(text)); }
    void play() override {}
    void stop() override {}

private:
    QStringList& m_spoken;
};

/** Listens to the voice of a panel; applies the settings, as the voice asks for it. */
void listenToVoice(CTrackDisplay* panel, CSettings* settings, QStringList& spoken)
{
    panel->setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingVoice>(spoken)));
    panel->setSettings(settings);
}

CRaceEvent memberEvent(int track)
{
    CRaceEvent event;
    event.type = CRaceEvent::MemberChanged;
    event.subType = CRaceEvent::BestLap;
    event.track = track;
    event.laps = 12;
    event.lastLapTime = QTime(0, 0, 5, 734);
    event.sector1Time = QTime(0, 0, 1, 1);
    event.sector2Time = QTime(0, 0, 2, 2);
    event.sector3Time = QTime(0, 0, 3, 3);
    event.split1Time = QTime(0, 0, 1, 1);
    event.split2Time = QTime(0, 0, 3, 3);
    event.split3Time = QTime(0, 0, 6, 6);
    event.bestLapTime = QTime(0, 0, 5, 421);
    event.status = 4;
    event.averageLapTime = QTime(0, 0, 5, 800);
    event.speed = 123.44;
    event.fuelPercent = 42;
    event.raceRunning = true;
    return event;
}

CRaceEvent eventOfType(int type)
{
    return CRaceEvent(type);
}

QString infoText(const Dialog& dialog, const char* label)
{
    return dialog.findChild<QLabel*>(label)->text();
}

QImage pictureOf(CLights* lights)
{
    return lights->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/** Numbers of the track panels that stand at least partly in each other's height, row by row. */
QList<QStringList> rowsOfPanels(const MainDialogFixture& fixture, int tracks)
{
    QList<QStringList> rows;
    int y = -1;
    for (int number = 1; number <= tracks; ++number) {
        const QWidget* panel = fixture.track(number);
        if (panel->y() != y)
            rows.append(QStringList());
        y = panel->y();
        rows.last().append(panel->objectName());
    }
    return rows;
}

void addDriver(const QString& name)
{
    CDriver driver;
    driver.setName(name);
    CDriverList().addDriver(driver);
}

void addCar(const QString& name)
{
    CCar car;
    car.setName(name);
    CCarList().addCar(car);
}

/** Drivers "Anna", "Ben", "Default" and cars "", "Blitz", "Pfeil", in this order. */
void addDriversAndCars()
{
    addDriver("Ben");
    addDriver("Anna");
    addCar("Pfeil");
    addCar("Blitz");
}

/** Makes the stored raceway one with so many tracks. */
void storeRaceway(const CRaceway& raceway)
{
    CRacewayList list;
    list.updateRaceway(list.currentRow(), raceway);
}

void closeBoxWith(QDialog* dialog, const QString& buttonText)
{
    for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
        if (button->text() == buttonText)
            button->click();
    }
}

} // namespace

class tst_CKelmoMainDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void racewayOfThousandsOfTracksShowsEight();
    void init();

    void windowIsFramelessBlackAndNamed();
    void layoutHoldsItsPartsFromTopToBottom();
    void styleSheetFileReplacesTheStyle();
    void missingStyleSheetFileChangesNothing();

    void escAsksAndNoSwallowsTheKey();
    void escAsksAndYesClosesTheDialog();
    void escInARunningRaceAsksTheSameQuestion();
    void quitQuestionHasGermanButtonsWithYesAsDefaultAndNoOnEscape();
    void quitQuestionAnsweredYesByItsButton();
    void otherKeysAskNothing();
    void quitEntryClosesWithoutAQuestion();

    void quickRaceStartsAndEndsByTheSameEntry();
    void keysOfTheMenuReachTheirSignals_data();
    void keysOfTheMenuReachTheirSignals();
    void entriesForTheTimeBetweenRacesHaveNoKeyInARace();
    void competitionAsksForANameAndStarts();
    void cancelledCompetitionStartsNothing();
    void competitionEntryEndsARunningRace();
    void ctrlWTriggersNothingInEitherMode();
    void pauseAndResumeAlternate();
    void afterAStopThePauseEntryIsDisabledThoughItsTriggerWouldResume();
    void trackKeysToggleTheirTracks();
    void withoutPowerSwitchingF1ToF10DoNothing();
    void hiddenTracksHaveNoKey();
    void powerNotificationChangesTheEntry();

    void startingCollectsDriversAndCarsOfTheBoxes();
    void settingsEntriesCollectDriversAndCars();
    void raceSettingsTakeEffectOnlyWhereTheyAreAccepted();
    void settingsTakeEffectOnlyWhereTheyAreAccepted();
    void storedChoiceShowsInTheBoxesAtStart();
    void choiceSurvivesChangedSettings();
    void lateEntriesOfALongListCanBeShown();
    void unknownDriverShowsTheFirstEntry();

    void lapEndedPlaysTheDriveThroughSound();
    void bestLapPlaysItsSound();
    void voiceReplacesTheEffects();
    void mutedClientPlaysNothing();
    void bestLapSoundPlaysOnAnUnmutedClient();
    void otherEventsPlayNothing();
    void memberEventFillsThePanelOfItsTrack();
    void memberEventShowsIntermediateTimesIfAskedFor();
    void memberEventWithoutAPanelIsDropped();
    void memberEventSpeaksTheLap();
    void mutedClientDoesNotSpeak();
    void boxesAreLockedWhileTheRaceRuns();

    void lightsFollowTheStart();
    void greenLightWithoutRedBeforeItGivesNoGreenSound();
    void allOffKeepsTheRedSeenAndOthersForgetIt();
    void lightsAreSilentOnAMutedClient();

    void raceTimeIsShownInHours();
    void additionalInfoIsShownAndCleared();

    void panelsFollowTheRaceway_data();
    void panelsFollowTheRaceway();
    void raceSettingsChangeTellsTheRaceAndTheInfoFrame();
    void changedSettingsReachPanelsAndSounds();
    void onePanelForEachTrackColour();

    void storingAsksForAFileName();
    void cancelledFileDialogStoresNothing();
    void storingWithDefaultFolderAsksNothing();
    void fileNameProposalWithoutADriverNameHoldsTheEmptyString();

    void simulatorShowsOnlyWhileARaceRuns();
    void uncheckedSimulatorStaysHidden();
    void clearingTheSimulatorEntryClosesIt();

    void qrCodeOfACarSelectsIt();
    void qrCodeOfADriverSelectsHim();
    void unknownQrCodesChangeNothing_data();
    void unknownQrCodesChangeNothing();
    void qrKeysReadForTheirTrack();
    void qrKeysDoNothingWhileDisabledOrRacing();
    void qrButtonOfAPanelReadsForIt();
    void qrCodeForAPanelThatIsGoneChangesNothing();

    void clientModeShowsNamesInDisabledBoxes();
    void raceSettingsKnowTheNamesThatTheBoxesShow();
    void clientModeLeavesOnlyQuitAndHelp();
    void clientModeKeysStartNothing();

    void aboutBoxTellsVersionAndLibraries();
    void raceSignalsWithoutSummaryDialogDoNoHarm();
};

void tst_CKelmoMainDialog::init()
{
    QFile::remove("tornik.db");
    QFile::remove("styleSheet.css");
    QSettings("Tornik", "Tornik").clear();
}

void tst_CKelmoMainDialog::windowIsFramelessBlackAndNamed()
{
    const MainDialogFixture fixture;
    QVERIFY(fixture.dialog.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(fixture.dialog.windowTitle(), QString("Tornik"));
    QVERIFY(fixture.dialog.styleSheet().startsWith(
        "QWidget {color: #646464; background-color: black;  selection-background-color: transparent; "));
    QCOMPARE(QCryptographicHash::hash(fixture.dialog.styleSheet().toUtf8(), QCryptographicHash::Sha1).toHex(),
             QByteArray("3f584703168da3abcfca0e91b7aee5fda20bcf63")); // the style is fixed to the byte
    QCOMPARE(infoText(fixture.dialog, "raceTime"), QString("00:00:00"));
}

void tst_CKelmoMainDialog::layoutHoldsItsPartsFromTopToBottom()
{
    MainDialogFixture fixture;
    fixture.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&fixture.dialog));
    const int menu = fixture.menu()->y();
    const int lights = fixture.dialog.findChild<CLights*>("lights")->y();
    const int panel = fixture.track(1)->y();
    const int info = fixture.dialog.findChild<CInfoFrame*>("infoFrame")->y();
    QVERIFY(menu < lights);
    QVERIFY(lights < panel);
    QVERIFY(panel < info);
}

void tst_CKelmoMainDialog::styleSheetFileReplacesTheStyle()
{
    MainDialogFixture fixture;
    QFile file("styleSheet.css");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("QWidget { color: red; }\n");
    file.close();
    fixture.dialog.loadStyleSheet();
    QCOMPARE(fixture.dialog.styleSheet(), QString("QWidget { color: red; }\n"));
}

void tst_CKelmoMainDialog::missingStyleSheetFileChangesNothing()
{
    MainDialogFixture fixture;
    const QString before = fixture.dialog.styleSheet();
    fixture.dialog.loadStyleSheet();
    QCOMPARE(fixture.dialog.styleSheet(), before);
}

void tst_CKelmoMainDialog::escAsksAndNoSwallowsTheKey()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.user->answerIsYes = false;
    fixture.pressKey(Qt::Key_Escape);
    QCOMPARE(fixture.user->questions,
             QList<QStringList>{
                 QStringList({"Programm beenden?", "Sind Sie sicher, dass Sie das Programm beenden möchten?",
                              "&Ja", "&Nein"})});
    QVERIFY(fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::escAsksAndYesClosesTheDialog()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.user->answerIsYes = true;
    const QSignalSpy rejected(&fixture.dialog, &QDialog::rejected);
    fixture.pressKey(Qt::Key_Escape);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::escInARunningRaceAsksTheSameQuestion()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.dialog.vSetUiRaceStarted();
    fixture.user->answerIsYes = true;
    fixture.pressKey(Qt::Key_Escape);
    QCOMPARE(fixture.user->questions.size(), 1);
    QCOMPARE(fixture.user->questions[0][0], QString("Programm beenden?"));
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::quitQuestionHasGermanButtonsWithYesAsDefaultAndNoOnEscape()
{
    MainDialogFixture fixture;
    fixture.dialog.setUserQuestions(std::make_unique<CUserQuestions>());
    QVERIFY(fixture.activate());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        QVERIFY(box);
        QCOMPARE(box->icon(), QMessageBox::Question);
        QCOMPARE(box->text(), QString("Sind Sie sicher, dass Sie das Programm beenden möchten?"));
        QCOMPARE(box->buttons().size(), 2);
        QCOMPARE(box->defaultButton()->text(), QString("&Ja"));
        QCOMPARE(box->escapeButton()->text(), QString("&Nein"));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    fixture.pressKey(Qt::Key_Escape);
    QCOMPARE(answers.numberOfWindows(), 1);
    QVERIFY(fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::quitQuestionAnsweredYesByItsButton()
{
    MainDialogFixture fixture;
    fixture.dialog.setUserQuestions(std::make_unique<CUserQuestions>());
    QVERIFY(fixture.activate());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) { closeBoxWith(dialog, "&Ja"); });
    fixture.pressKey(Qt::Key_Escape);
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::otherKeysAskNothing()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    for (const int key : {int(Qt::Key_Return), int(Qt::Key_Space), int(Qt::Key_A), int(Qt::Key_Backspace)})
        fixture.pressKey(key);
    QVERIFY(fixture.user->questions.isEmpty());
    QVERIFY(fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::quitEntryClosesWithoutAQuestion()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.pressKey(Qt::Key_X, Qt::ControlModifier);
    QVERIFY(fixture.user->questions.isEmpty());
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::quickRaceStartsAndEndsByTheSameEntry()
{
    MainDialogFixture fixture;
    const QSignalSpy started(&fixture.dialog, &Dialog::raceStartQuickRace);
    const QSignalSpy stopped(&fixture.dialog, &Dialog::raceStop);
    fixture.action(CMainMenu::QuickRace)->trigger();
    QCOMPARE(started.count(), 1);
    QCOMPARE(stopped.count(), 0);
    fixture.dialog.vSetUiRaceStarted();
    fixture.action(CMainMenu::QuickRace)->trigger();
    QCOMPARE(started.count(), 1);
    QCOMPARE(stopped.count(), 1);
    fixture.dialog.vSetUiRaceStopped();
    fixture.action(CMainMenu::QuickRace)->trigger();
    QCOMPARE(started.count(), 2);
}

void tst_CKelmoMainDialog::keysOfTheMenuReachTheirSignals_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("signal");
    QTest::newRow("Ctrl+S") << int(Qt::Key_S) << "quick";
    QTest::newRow("Ctrl+P") << int(Qt::Key_P) << "pause";
    QTest::newRow("Ctrl+E") << int(Qt::Key_E) << "csv";
    QTest::newRow("Ctrl+H") << int(Qt::Key_H) << "shutdown";
    QTest::newRow("Ctrl+Ü") << int(Qt::Key_Udiaeresis) << "about";
}

void tst_CKelmoMainDialog::keysOfTheMenuReachTheirSignals()
{
    QFETCH(int, key);
    QFETCH(QString, signal);
    MainDialogFixture fixture;
    fixture.settings.setStorageApproach(CSettings::UseDefaultPath);
    QVERIFY(fixture.activate());
    if (signal == "pause")
        fixture.dialog.vSetUiRaceStarted();
    fixture.dialog.vSetUiRemoteClientConnected();

    QStringList heard;
    connect(&fixture.dialog, &Dialog::raceStartQuickRace, this, [&heard] { heard.append("quick"); });
    connect(&fixture.dialog, &Dialog::racePause, this, [&heard] { heard.append("pause"); });
    connect(&fixture.dialog, &Dialog::raceStoreToCsv, this, [&heard] { heard.append("csv"); });
    connect(&fixture.dialog, &Dialog::remoteClientShutdownTrigger, this,
            [&heard] { heard.append("shutdown"); });
    fixture.pressKey(key, Qt::ControlModifier);
    if (!fixture.user->questions.isEmpty())
        heard.append("about");
    QCOMPARE(heard, QStringList{signal});
}

void tst_CKelmoMainDialog::entriesForTheTimeBetweenRacesHaveNoKeyInARace()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.dialog.vSetUiRemoteClientConnected();
    fixture.dialog.vSetUiRaceStarted();
    QStringList triggered;
    for (int entry = 0; entry < CMainMenu::NumberOfEntries; ++entry) {
        const QAction* action = fixture.action(CMainMenu::Entry(entry));
        connect(action, &QAction::triggered, this,
                [&triggered, action] { triggered.append(action->objectName()); });
    }
    for (const int key : {int(Qt::Key_E), int(Qt::Key_Z), int(Qt::Key_R), int(Qt::Key_G), int(Qt::Key_D),
                          int(Qt::Key_H), int(Qt::Key_A)})
        fixture.pressKey(key, Qt::ControlModifier);
    QCOMPARE(triggered, QStringList());
    fixture.pressKey(Qt::Key_S, Qt::ControlModifier);
    fixture.pressKey(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(triggered, QStringList({"quickRace", "pauseRace"}));
}

void tst_CKelmoMainDialog::competitionAsksForANameAndStarts()
{
    MainDialogFixture fixture;
    const QSignalSpy started(&fixture.dialog, &Dialog::raceStartRecordedRace);
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit*>("raceName"), "Finale");
        dialog->findChild<QPushButton*>("startButton")->click();
    });
    QVERIFY(fixture.trigger("raceTrigger"));
    QCOMPARE(started.count(), 1);
    QCOMPARE(started[0][0].toString(), QString("Finale"));
}

void tst_CKelmoMainDialog::cancelledCompetitionStartsNothing()
{
    MainDialogFixture fixture;
    const QSignalSpy started(&fixture.dialog, &Dialog::raceStartRecordedRace);
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) { dialog->findChild<QPushButton*>("cancelButton")->click(); });
    QVERIFY(fixture.trigger("raceTrigger"));
    QCOMPARE(started.count(), 0);
}

void tst_CKelmoMainDialog::competitionEntryEndsARunningRace()
{
    MainDialogFixture fixture;
    const QSignalSpy stopped(&fixture.dialog, &Dialog::raceStop);
    fixture.dialog.vSetUiRecordedRaceStarted();
    QVERIFY(fixture.trigger("raceTrigger"));
    QCOMPARE(stopped.count(), 1);
}

void tst_CKelmoMainDialog::ctrlWTriggersNothingInEitherMode()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    const ModalAnswers answers;
    const QSignalSpy triggered(fixture.action(CMainMenu::RecordedRace), &QAction::triggered);
    fixture.pressKey(Qt::Key_W, Qt::ControlModifier);
    fixture.dialog.enableClientMode();
    fixture.pressKey(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(triggered.count(), 0);
    QCOMPARE(answers.numberOfWindows(), 0);
}

void tst_CKelmoMainDialog::pauseAndResumeAlternate()
{
    MainDialogFixture fixture;
    const QSignalSpy paused(&fixture.dialog, &Dialog::racePause);
    const QSignalSpy resumed(&fixture.dialog, &Dialog::raceResume);
    fixture.dialog.vSetUiRaceStarted();
    fixture.action(CMainMenu::PauseRace)->trigger();
    QCOMPARE(paused.count(), 1);
    fixture.dialog.vSetUiRacePaused();
    fixture.action(CMainMenu::PauseRace)->trigger();
    QCOMPARE(resumed.count(), 1);
    fixture.dialog.vSetUiRaceResumed();
    fixture.action(CMainMenu::PauseRace)->trigger();
    QCOMPARE(paused.count(), 2);
    fixture.dialog.vSetUiRacePaused();
    fixture.dialog.vSetUiRaceStarted(); // a new race isn't paused
    fixture.action(CMainMenu::PauseRace)->trigger();
    QCOMPARE(paused.count(), 3);
    QCOMPARE(resumed.count(), 1);
}

void tst_CKelmoMainDialog::afterAStopThePauseEntryIsDisabledThoughItsTriggerWouldResume()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    const QSignalSpy resumed(&fixture.dialog, &Dialog::raceResume);
    fixture.dialog.vSetUiRaceStarted();
    fixture.dialog.vSetUiRacePaused();
    fixture.dialog.vSetUiRaceStopped();
    fixture.pressKey(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(!fixture.action(CMainMenu::PauseRace)->isEnabled());
    QCOMPARE(resumed.count(), 0);
    QVERIFY(fixture.trigger("racePauseTrigger"));
    QCOMPARE(resumed.count(), 1);
}

void tst_CKelmoMainDialog::trackKeysToggleTheirTracks()
{
    MainDialogFixture fixture;
    CRaceway raceway = racewayWithTracks(8);
    raceway.pwrOffFeatureAvailable = true;
    fixture.setRaceway(raceway);
    QVERIFY(fixture.activate());
    const QSignalSpy toggled(&fixture.dialog, &Dialog::raceTrackPowerToggle);
    const QSignalSpy switched(&fixture.dialog, qOverload<bool>(&Dialog::raceTrackPowerSwitch));
    for (int track = 0; track < 8; ++track) {
        fixture.pressKey(Qt::Key_F1 + track);
        QCOMPARE(toggled.count(), track + 1);
        QCOMPARE(toggled[track][0].toInt(), track);
    }
    fixture.pressKey(Qt::Key_F9);
    fixture.pressKey(Qt::Key_F10);
    QCOMPARE(switched.count(), 2);
    QCOMPARE(switched[0][0].toBool(), true);
    QCOMPARE(switched[1][0].toBool(), false);
}

void tst_CKelmoMainDialog::withoutPowerSwitchingF1ToF10DoNothing()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(8));
    QVERIFY(fixture.activate());
    const QSignalSpy toggled(&fixture.dialog, &Dialog::raceTrackPowerToggle);
    const QSignalSpy switched(&fixture.dialog, qOverload<bool>(&Dialog::raceTrackPowerSwitch));
    for (int key = Qt::Key_F1; key <= Qt::Key_F10; ++key)
        fixture.pressKey(key);
    QCOMPARE(toggled.count(), 0);
    QCOMPARE(switched.count(), 0);
}

void tst_CKelmoMainDialog::hiddenTracksHaveNoKey()
{
    MainDialogFixture fixture;
    CRaceway raceway = racewayWithTracks(3);
    raceway.pwrOffFeatureAvailable = true;
    fixture.setRaceway(raceway);
    QVERIFY(fixture.activate());
    const QSignalSpy toggled(&fixture.dialog, &Dialog::raceTrackPowerToggle);
    fixture.pressKey(Qt::Key_F3);
    fixture.pressKey(Qt::Key_F4);
    QCOMPARE(toggled.count(), 1);
}

void tst_CKelmoMainDialog::powerNotificationChangesTheEntry()
{
    MainDialogFixture fixture;
    fixture.dialog.trackPowerNotification(0, true);
    QCOMPARE(fixture.menu()->trackPowerActions()[0]->text(), QString("Spur &1 ausschalten"));
}

void tst_CKelmoMainDialog::startingCollectsDriversAndCarsOfTheBoxes()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(3));
    fixture.driverBox(1)->setCurrentText("Ben");
    fixture.driverBox(2)->setCurrentText("Anna");
    fixture.driverBox(3)->setCurrentText("Default");
    fixture.carBox(1)->setCurrentText("Pfeil");
    fixture.carBox(2)->setCurrentText("Blitz");
    fixture.dialog.quickRaceTrigger();
    QCOMPARE(fixture.raceSettings.driver(0).name(), QString("Ben"));
    QCOMPARE(fixture.raceSettings.driver(1).name(), QString("Anna"));
    QCOMPARE(fixture.raceSettings.driver(2).name(), QString("Default"));
    QVERIFY(fixture.raceSettings.driver(0).id() > 0);
    QCOMPARE(fixture.raceSettings.car(0).name(), QString("Pfeil"));
    QCOMPARE(fixture.raceSettings.car(1).name(), QString("Blitz"));
    QVERIFY(fixture.raceSettings.car(1).id() > 0);
}

void tst_CKelmoMainDialog::settingsEntriesCollectDriversAndCars()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.driverBox(1)->setCurrentText("Ben");
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) { dialog->reject(); });
    QVERIFY(fixture.trigger("showRaceSettings"));
    QCOMPARE(fixture.raceSettings.driver(0).name(), QString("Ben"));
    fixture.driverBox(1)->setCurrentText("Anna");
    answers.expect([](QDialog* dialog) { dialog->reject(); });
    QVERIFY(fixture.trigger("showSettings"));
    QCOMPARE(fixture.raceSettings.driver(0).name(), QString("Anna"));
}

void tst_CKelmoMainDialog::raceSettingsTakeEffectOnlyWhereTheyAreAccepted()
{
    MainDialogFixture fixture;
    const QSignalSpy raceSettingsChanged(&fixture.dialog, &CKelmoMainDialog::raceSettingsChanged);
    const QSignalSpy racewayChanged(&fixture.dialog, &CKelmoMainDialog::racewayChanged);
    const auto* endCondition = fixture.dialog.findChild<QLabel*>("endCondition");
    const auto chooseTimeLimit = [](QDialog* dialog) {
        dialog->findChild<QAbstractButton*>("endTypeTime")->setChecked(true);
    };
    ModalAnswers answers;
    answers.expect([&](QDialog* dialog) {
        chooseTimeLimit(dialog);
        dialog->findChild<QAbstractButton*>("cancelButton")->click();
    });
    QVERIFY(fixture.trigger("showRaceSettings"));
    QCOMPARE(raceSettingsChanged.count() + racewayChanged.count(), 0);
    QCOMPARE(endCondition->text(), QString("keine Endebedingung"));
    answers.expect([&](QDialog* dialog) {
        chooseTimeLimit(dialog);
        dialog->findChild<QAbstractButton*>("okButton")->click();
    });
    QVERIFY(fixture.trigger("showRaceSettings"));
    QCOMPARE(raceSettingsChanged.count(), 1);
    QCOMPARE(racewayChanged.count(), 1);
    QCOMPARE(endCondition->text(), QString("Zeitlimit 00:05:00"));
}

void tst_CKelmoMainDialog::settingsTakeEffectOnlyWhereTheyAreAccepted()
{
    MainDialogFixture fixture;
    const QSignalSpy settingsChanged(&fixture.dialog, &CKelmoMainDialog::settingsChanged);
    const QSignalSpy raceSettingsChanged(&fixture.dialog, &CKelmoMainDialog::raceSettingsChanged);
    const QSignalSpy racewayChanged(&fixture.dialog, &CKelmoMainDialog::racewayChanged);
    const auto press = [](const char* button) {
        return [button](QDialog* dialog) { dialog->findChild<QAbstractButton*>(button)->click(); };
    };
    ModalAnswers answers;
    answers.expect(press("cancelButton"));
    QVERIFY(fixture.trigger("showSettings"));
    // Whoever has a race to store still has it.
    QCOMPARE(settingsChanged.count() + raceSettingsChanged.count() + racewayChanged.count(), 0);
    answers.expect(press("okButton"));
    QVERIFY(fixture.trigger("showSettings"));
    QCOMPARE(settingsChanged.count(), 1);
    QCOMPARE(raceSettingsChanged.count(), 1);
    QCOMPARE(racewayChanged.count(), 1);
}

void tst_CKelmoMainDialog::storedChoiceShowsInTheBoxesAtStart()
{
    addDriversAndCars();
    CSettings settings;
    settings.read();
    CRaceSettings raceSettings;
    CDriverList drivers;
    CCarList cars;
    raceSettings.setDriver(1, drivers.driverAt(drivers.rowOfName("Ben")));
    raceSettings.setCar(1, cars.carAt(cars.rowOfName("Pfeil")));
    storeRaceway(racewayWithTracks(2));
    const Dialog dialog(&settings, &raceSettings);
    QCOMPARE(raceSettings.raceway().name, QString("Bahn 2"));
    const auto* panel = dialog.findChild<CTrackDisplay*>("track2");
    QCOMPARE(panel->findChild<QComboBox*>("driverBox")->currentText(), QString("Ben"));
    QCOMPARE(panel->findChild<QComboBox*>("carBox")->currentText(), QString("Pfeil"));
}

void tst_CKelmoMainDialog::choiceSurvivesChangedSettings()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.driverBox(2)->setCurrentText("Ben");
    fixture.carBox(2)->setCurrentText("Pfeil");
    for (const char* button : {"okButton", "cancelButton"}) {
        ModalAnswers answers;
        answers.expect([button](QDialog* dialog) { dialog->findChild<QAbstractButton*>(button)->click(); });
        QVERIFY(fixture.trigger("showSettings"));
        QCOMPARE(fixture.driverBox(2)->currentText(), QString("Ben"));
        QCOMPARE(fixture.carBox(2)->currentText(), QString("Pfeil"));
    }
}

void tst_CKelmoMainDialog::lateEntriesOfALongListCanBeShown()
{
    CDriverList drivers;
    CDriver driver;
    for (int number = 0; number < 300; ++number) {
        driver.setName(QStringLiteral("Fahrer %1").arg(number, 3, 10, QChar('0')));
        drivers.addDriver(driver);
    }
    MainDialogFixture fixture;
    fixture.raceSettings.setDriver(0, drivers.driverAt(drivers.rowOfName("Fahrer 299")));
    fixture.setRaceway(racewayWithTracks(2));
    QCOMPARE(fixture.driverBox(1)->currentText(), QString("Fahrer 299"));
    QCOMPARE(fixture.driverBox(1)->count(), 301);
}

void tst_CKelmoMainDialog::unknownDriverShowsTheFirstEntry()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    CDriver driver;
    driver.setId(4711);
    fixture.raceSettings.setDriver(0, driver);
    fixture.setRaceway(racewayWithTracks(2));
    QCOMPARE(fixture.driverBox(1)->currentIndex(), 0);
}

void tst_CKelmoMainDialog::lapEndedPlaysTheDriveThroughSound()
{
    MainDialogFixture fixture;
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::LapEnded));
    QCOMPARE(fixture.sounds->played, QStringList{"drive"});
}

void tst_CKelmoMainDialog::bestLapPlaysItsSound()
{
    MainDialogFixture fixture;
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QCOMPARE(fixture.sounds->played, QStringList{"best"});
}

void tst_CKelmoMainDialog::voiceReplacesTheEffects()
{
    MainDialogFixture fixture;
    fixture.settings.setSoundEnhanced(true);
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::LapEnded));
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QVERIFY(fixture.sounds->played.isEmpty());
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    QCOMPARE(fixture.sounds->played, QStringList{"red"});
}

void tst_CKelmoMainDialog::mutedClientPlaysNothing()
{
    MainDialogFixture fixture;
    fixture.dialog.enableClientMode();
    fixture.settings.setClientsMuted(true);
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::LapEnded));
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QVERIFY(fixture.sounds->played.isEmpty());
}

void tst_CKelmoMainDialog::bestLapSoundPlaysOnAnUnmutedClient()
{
    MainDialogFixture fixture;
    fixture.dialog.enableClientMode();
    fixture.settings.setClientsMuted(false);
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QCOMPARE(fixture.sounds->played, QStringList{"best"});
}

void tst_CKelmoMainDialog::otherEventsPlayNothing()
{
    MainDialogFixture fixture;
    for (const int type : {0, 3, 4, 5, 7, int(CRaceEvent::TankEmpty), int(CRaceEvent::TankOnReserve), -1})
        fixture.dialog.HandleEventRace(eventOfType(type));
    QVERIFY(fixture.sounds->played.isEmpty());
}

void tst_CKelmoMainDialog::memberEventFillsThePanelOfItsTrack()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(3));
    fixture.dialog.HandleEventRace(memberEvent(1));
    QCOMPARE(fixture.text(2, "lapCount"), QString("012"));
    QCOMPARE(fixture.text(2, "lastLap"), QString("00:05:734"));
    QCOMPARE(fixture.text(2, "bestLap"), QString("00:05:421"));
    QCOMPARE(fixture.text(2, "status"), QString("läuft"));
    QCOMPARE(fixture.text(2, "averageLap"), QString("00:05:800"));
    QCOMPARE(fixture.text(2, "section1"), QString("00:01:001"));
    QCOMPARE(fixture.text(2, "section2"), QString("00:02:002"));
    QCOMPARE(fixture.text(2, "section3"), QString("00:03:003"));
    QVERIFY(fixture.text(2, "speed").startsWith("123"));
    QCOMPARE(fixture.track(2)->findChild<QProgressBar*>("fuelBar")->value(), 42);
    QCOMPARE(fixture.text(1, "lapCount"), QString("000"));
    QCOMPARE(fixture.text(3, "lapCount"), QString("000"));
}

void tst_CKelmoMainDialog::memberEventShowsIntermediateTimesIfAskedFor()
{
    MainDialogFixture fixture;
    fixture.settings.setDisplayShowIntermediateTimes(true);
    fixture.setRaceway(racewayWithTracks(2));
    fixture.dialog.HandleEventRace(memberEvent(0));
    QCOMPARE(fixture.text(1, "section1"), QString("00:01:001"));
    QCOMPARE(fixture.text(1, "section2"), QString("00:03:003"));
    QCOMPARE(fixture.text(1, "section3"), QString("00:06:006"));
}

void tst_CKelmoMainDialog::memberEventWithoutAPanelIsDropped()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    for (const int track :
         {-1, 2, 8, 1 << 30, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        fixture.dialog.HandleEventRace(memberEvent(track));
    QCOMPARE(fixture.text(1, "lapCount"), QString("000"));
    QCOMPARE(fixture.text(2, "lapCount"), QString("000"));
}

void tst_CKelmoMainDialog::memberEventSpeaksTheLap()
{
    MainDialogFixture fixture;
    fixture.settings.setSoundEnhanced(true);
    fixture.settings.setSoundVoiceOutputLaps(true);
    fixture.setRaceway(racewayWithTracks(2));
    QStringList spoken;
    listenToVoice(fixture.track(1), &fixture.settings, spoken);
    fixture.dialog.HandleEventRace(memberEvent(0));
    QCOMPARE(spoken, QStringList{"012"});
}

void tst_CKelmoMainDialog::mutedClientDoesNotSpeak()
{
    MainDialogFixture fixture;
    fixture.settings.setSoundEnhanced(true);
    fixture.settings.setSoundVoiceOutputLaps(true);
    fixture.raceSettings.setRaceway(racewayWithTracks(2));
    fixture.dialog.enableClientMode();
    QStringList spoken;
    listenToVoice(fixture.track(1), &fixture.settings, spoken);
    fixture.settings.setClientsMuted(true);
    fixture.dialog.HandleEventRace(memberEvent(0));
    QVERIFY(spoken.isEmpty());
    QCOMPARE(fixture.text(1, "lapCount"), QString("012"));
    fixture.settings.setClientsMuted(false);
    fixture.dialog.HandleEventRace(memberEvent(0));
    QCOMPARE(spoken, QStringList{"012"});
}

void tst_CKelmoMainDialog::boxesAreLockedWhileTheRaceRuns()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    CRaceEvent event = memberEvent(0);
    fixture.dialog.HandleEventRace(event);
    QVERIFY(!fixture.driverBox(1)->isEnabled());
    QVERIFY(!fixture.carBox(1)->isEnabled());
    QVERIFY(fixture.driverBox(2)->isEnabled());
    event.raceRunning = false;
    fixture.dialog.HandleEventRace(event);
    QVERIFY(fixture.driverBox(1)->isEnabled());
    QVERIFY(fixture.carBox(1)->isEnabled());
}

void tst_CKelmoMainDialog::lightsFollowTheStart()
{
    MainDialogFixture fixture;
    auto* lights = fixture.dialog.findChild<CLights*>("lights");
    CLights expected(5);
    const auto apply = [&](int action) { fixture.dialog.updateLightsDisplay(action); };
    for (int light = 0; light < 5; ++light) {
        apply(CLightAction::NextRed);
        expected.nextRed();
        QCOMPARE(pictureOf(lights), pictureOf(&expected));
    }
    QCOMPARE(fixture.sounds->played, QStringList({"red", "red", "red", "red", "red"}));
    apply(CLightAction::Go);
    expected.allGreen();
    QCOMPARE(pictureOf(lights), pictureOf(&expected));
    QCOMPARE(fixture.sounds->played.last(), QString("green"));
    apply(CLightAction::AllRed);
    expected.allRed();
    QCOMPARE(pictureOf(lights), pictureOf(&expected));
    for (const int off : {int(CLightAction::AllOff), 0, 42, -1}) {
        apply(CLightAction::AllRed);
        apply(off);
        expected.allOff();
        QCOMPARE(pictureOf(lights), pictureOf(&expected));
    }
    QCOMPARE(fixture.sounds->played.size(), 6);
}

void tst_CKelmoMainDialog::greenLightWithoutRedBeforeItGivesNoGreenSound()
{
    MainDialogFixture fixture;
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QVERIFY(fixture.sounds->played.isEmpty());
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QCOMPARE(fixture.sounds->played, QStringList({"red", "green"}));
}

void tst_CKelmoMainDialog::allOffKeepsTheRedSeenAndOthersForgetIt()
{
    MainDialogFixture fixture;
    const auto greenSoundAfter = [&](int action) {
        fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
        fixture.dialog.updateLightsDisplay(action);
        fixture.sounds->played.clear();
        fixture.dialog.updateLightsDisplay(CLightAction::Go);
        return fixture.sounds->played.contains("green");
    };
    QVERIFY(greenSoundAfter(CLightAction::AllOff));
    QVERIFY(!greenSoundAfter(CLightAction::AllRed));
    QVERIFY(!greenSoundAfter(0));
    QVERIFY(!greenSoundAfter(99));
}

void tst_CKelmoMainDialog::lightsAreSilentOnAMutedClient()
{
    MainDialogFixture fixture;
    fixture.dialog.enableClientMode();
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QVERIFY(fixture.sounds->played.isEmpty());
    fixture.settings.setClientsMuted(false);
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QCOMPARE(fixture.sounds->played, QStringList({"red", "green"}));
}

void tst_CKelmoMainDialog::raceTimeIsShownInHours()
{
    MainDialogFixture fixture;
    fixture.dialog.setRaceTime(QTime(1, 2, 3, 999));
    QCOMPARE(infoText(fixture.dialog, "raceTime"), QString("01:02:03"));
}

void tst_CKelmoMainDialog::additionalInfoIsShownAndCleared()
{
    MainDialogFixture fixture;
    fixture.dialog.setAdditionalInfo("Rennen wurde beendet");
    QCOMPARE(infoText(fixture.dialog, "additionalInfo"), QString("Rennen wurde beendet"));
    fixture.dialog.setAdditionalInfo("");
    QCOMPARE(infoText(fixture.dialog, "additionalInfo"), QString());
}

void tst_CKelmoMainDialog::panelsFollowTheRaceway_data()
{
    QTest::addColumn<int>("tracks");
    QTest::addColumn<QList<int>>("rowSizes");
    QTest::newRow("1 track") << 1 << QList<int>{1};
    QTest::newRow("2 tracks") << 2 << QList<int>{2};
    QTest::newRow("3 tracks") << 3 << QList<int>{3};
    QTest::newRow("4 tracks") << 4 << QList<int>{3, 1};
    QTest::newRow("5 tracks") << 5 << QList<int>{3, 2};
    QTest::newRow("6 tracks") << 6 << QList<int>{3, 3};
    QTest::newRow("7 tracks") << 7 << QList<int>{4, 3};
    QTest::newRow("8 tracks") << 8 << QList<int>{4, 4};
}

void tst_CKelmoMainDialog::panelsFollowTheRaceway()
{
    QFETCH(int, tracks);
    QFETCH(QList<int>, rowSizes);
    MainDialogFixture fixture;
    fixture.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&fixture.dialog));
    fixture.setRaceway(racewayWithTracks(tracks));
    QTRY_VERIFY(fixture.track(1)->width() > 0 && fixture.track(1)->y() > 0);
    const QList<QStringList> rows = rowsOfPanels(fixture, tracks);
    QCOMPARE(rows.size(), rowSizes.size());
    for (int row = 0; row < rows.size(); ++row)
        QCOMPARE(rows[row].size(), rowSizes[row]);
    QCOMPARE(fixture.dialog.findChildren<CTrackDisplay*>().size(), tracks < 2 ? 2 : 2 * tracks - 1);
    int hidden = 0;
    for (const CTrackDisplay* panel : fixture.dialog.findChildren<CTrackDisplay*>())
        hidden += !panel->isVisible();
    QCOMPARE(hidden, rowSizes.size() - 1);
}

void tst_CKelmoMainDialog::raceSettingsChangeTellsTheRaceAndTheInfoFrame()
{
    MainDialogFixture fixture;
    const QSignalSpy changed(&fixture.dialog, &Dialog::racewayChanged);
    fixture.raceSettings.setEndType(CRaceSettings::LapLimit);
    fixture.raceSettings.setNumberOfLaps(33);
    fixture.setRaceway(racewayWithTracks(4));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(infoText(fixture.dialog, "racewayName"), QString("Bahn 4"));
    QCOMPARE(infoText(fixture.dialog, "endCondition"), QString("Ende nach 33 Runden"));
    QCOMPARE(fixture.dialog.findChild<CKelmoPortSimulator*>()->raceway().name, QString("Bahn 4"));
}

void tst_CKelmoMainDialog::changedSettingsReachPanelsAndSounds()
{
    MainDialogFixture fixture;
    QCOMPARE(fixture.sounds->files, QStringList({"newBestLap.wav", "driveThrough.wav", "redLight.wav",
                                                 "greenLight.wav", "newBestLap.wav"}));
    fixture.sounds->files.clear();
    fixture.settings.setNewBestLapSound("hupe.wav");
    fixture.settings.setDisplaySpeed(true);
    fixture.dialog.onSettingsChanged();
    QCOMPARE(fixture.sounds->files,
             QStringList({"hupe.wav", "driveThrough.wav", "redLight.wav", "greenLight.wav", "hupe.wav"}));
    QVERIFY(fixture.track(1)->findChild<CRichLabel*>("speed")->isVisibleTo(fixture.track(1)));
}

void tst_CKelmoMainDialog::onePanelForEachTrackColour()
{
    MainDialogFixture fixture;
    fixture.settings.setTrackColor(0, "#112233");
    fixture.settings.setTrackColor(1, "#445566");
    fixture.setRaceway(racewayWithTracks(2));
    QCOMPARE(fixture.track(1)->findChild<CRichLabel*>("lapCount")->color(), QColor("#112233"));
    QCOMPARE(fixture.track(2)->findChild<CRichLabel*>("lapCount")->color(), QColor("#445566"));
    fixture.settings.setTrackColor(1, "#778899");
    fixture.dialog.onSettingsChanged();
    QCOMPARE(fixture.track(2)->findChild<CRichLabel*>("lapCount")->color(), QColor("#778899"));
}

void tst_CKelmoMainDialog::storingAsksForAFileName()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.driverBox(1)->setCurrentText("Anna");
    fixture.driverBox(2)->setCurrentText("Ben");
    const QSignalSpy stored(&fixture.dialog, &Dialog::raceStoreToCsv);
    fixture.user->fileName = "/tmp/rennen.csv";
    fixture.dialog.raceStoreTrigger();
    QCOMPARE(stored.count(), 1);
    QCOMPARE(stored[0][0].toString(), QString("/tmp/rennen.csv"));
    QCOMPARE(fixture.user->questions.size(), 1);
    QCOMPARE(fixture.user->questions[0][0], QString("Rennen speichern als ..."));
    QVERIFY(
        QRegularExpression("^\\d{8}_\\d{6}_Anna_Ben\\.csv$").match(fixture.user->questions[0][1]).hasMatch());
    QCOMPARE(fixture.user->questions[0][2], QString("CSV-Datei (*.csv)"));
}

void tst_CKelmoMainDialog::cancelledFileDialogStoresNothing()
{
    MainDialogFixture fixture;
    const QSignalSpy stored(&fixture.dialog, &Dialog::raceStoreToCsv);
    fixture.dialog.raceStoreTrigger();
    QCOMPARE(fixture.user->questions.size(), 1);
    QCOMPARE(stored.count(), 0);
}

void tst_CKelmoMainDialog::storingWithDefaultFolderAsksNothing()
{
    MainDialogFixture fixture;
    fixture.settings.setStorageApproach(CSettings::UseDefaultPath);
    fixture.settings.setStorageDefaultPath("/home/anna/Rennen");
    const QSignalSpy stored(&fixture.dialog, &Dialog::raceStoreToCsv);
    fixture.dialog.raceStoreTrigger();
    QVERIFY(fixture.user->questions.isEmpty());
    QCOMPARE(stored.count(), 1);
    QVERIFY(QRegularExpression("^/home/anna/Rennen/\\d{8}_\\d{6}_Default_Default\\.csv$")
                .match(stored[0][0].toString())
                .hasMatch());
}

void tst_CKelmoMainDialog::fileNameProposalWithoutADriverNameHoldsTheEmptyString()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(3));
    fixture.driverBox(2)->setCurrentIndex(-1);
    fixture.dialog.raceStoreTrigger();
    QVERIFY(fixture.user->questions[0][1].endsWith("_Default__Default.csv"));
}

void tst_CKelmoMainDialog::simulatorShowsOnlyWhileARaceRuns()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    auto* simulator = fixture.dialog.findChild<CKelmoPortSimulator*>();
    QVERIFY(!simulator->isVisible());
    fixture.pressKey(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(fixture.action(CMainMenu::Simulator)->isChecked());
    QVERIFY(!simulator->isVisible());
    fixture.dialog.vSetUiRaceStarted();
    QVERIFY(simulator->isVisible());
    QVERIFY(!simulator->isModal());
    fixture.dialog.vSetUiRaceStopped();
    QVERIFY(!simulator->isVisible());
    fixture.dialog.vSetUiRecordedRaceStarted();
    QVERIFY(simulator->isVisible());
}

void tst_CKelmoMainDialog::uncheckedSimulatorStaysHidden()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.dialog.vSetUiRaceStarted();
    QVERIFY(!fixture.dialog.findChild<CKelmoPortSimulator*>()->isVisible());
}

void tst_CKelmoMainDialog::clearingTheSimulatorEntryClosesIt()
{
    MainDialogFixture fixture;
    fixture.action(CMainMenu::Simulator)->setChecked(true);
    fixture.dialog.vSetUiRaceStarted();
    const auto* simulator = fixture.dialog.findChild<CKelmoPortSimulator*>();
    QVERIFY(simulator->isVisible());
    fixture.action(CMainMenu::Simulator)->setChecked(false);
    QVERIFY(!simulator->isVisible());
}

void tst_CKelmoMainDialog::qrCodeOfACarSelectsIt()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.settings.setQrCodeHandlingEnabled(true);
    fixture.dialog.setQrCodeReaderDialog(
        std::make_unique<FunctionReader>([] { return QString("<car>Pfeil"); }));
    fixture.driverBox(2)->setCurrentText("Anna");
    fixture.trigger("qrCodeShortcutTrack2");
    QCOMPARE(fixture.carBox(2)->currentText(), QString("Pfeil"));
    QCOMPARE(fixture.driverBox(2)->currentText(), QString("Anna"));
    QCOMPARE(fixture.carBox(1)->currentIndex(), 0);
}

void tst_CKelmoMainDialog::qrCodeOfADriverSelectsHim()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.settings.setQrCodeHandlingEnabled(true);
    fixture.dialog.setQrCodeReaderDialog(
        std::make_unique<FunctionReader>([] { return QString("<drv>Ben"); }));
    fixture.trigger("qrCodeShortcutTrack1");
    QCOMPARE(fixture.driverBox(1)->currentText(), QString("Ben"));
}

void tst_CKelmoMainDialog::unknownQrCodesChangeNothing_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("no prefix") << "Pfeil";
    QTest::newRow("other prefix") << "<trk>Pfeil";
    QTest::newRow("prefix in capitals") << "<CAR>Pfeil";
    QTest::newRow("unknown car") << "<car>Rakete";
    QTest::newRow("unknown driver") << "<drv>Pfeil";
    QTest::newRow("nothing read") << "";
}

void tst_CKelmoMainDialog::unknownQrCodesChangeNothing()
{
    QFETCH(QString, code);
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.settings.setQrCodeHandlingEnabled(true);
    fixture.driverBox(1)->setCurrentText("Anna");
    fixture.carBox(1)->setCurrentText("Blitz");
    fixture.dialog.setQrCodeReaderDialog(std::make_unique<FunctionReader>([code] { return code; }));
    fixture.trigger("qrCodeShortcutTrack1");
    QCOMPARE(fixture.driverBox(1)->currentText(), QString("Anna"));
    QCOMPARE(fixture.carBox(1)->currentText(), QString("Blitz"));
}

void tst_CKelmoMainDialog::qrKeysReadForTheirTrack()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(8));
    fixture.settings.setQrCodeHandlingEnabled(true);
    fixture.dialog.onSettingsChanged();
    int reads = 0;
    fixture.dialog.setQrCodeReaderDialog(std::make_unique<FunctionReader>([&reads] {
        ++reads;
        return QString("<drv>Default");
    }));
    QVERIFY(fixture.activate());
    for (int number = 1; number <= 8; ++number) {
        QCOMPARE(fixture.driverBox(number)->currentText(), QString("Anna"));
        fixture.pressKey(Qt::Key_0 + number, Qt::AltModifier);
        QCOMPARE(reads, number);
        QCOMPARE(fixture.driverBox(number)->currentText(), QString("Default"));
    }
}

void tst_CKelmoMainDialog::qrKeysDoNothingWhileDisabledOrRacing()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    QVERIFY(fixture.activate());
    int reads = 0;
    fixture.dialog.setQrCodeReaderDialog(std::make_unique<FunctionReader>([&reads] {
        ++reads;
        return QString();
    }));
    fixture.settings.setQrCodeHandlingEnabled(false);
    fixture.pressKey(Qt::Key_1, Qt::AltModifier);
    fixture.settings.setQrCodeHandlingEnabled(true);
    fixture.dialog.vSetUiRaceStarted();
    fixture.pressKey(Qt::Key_1, Qt::AltModifier);
    fixture.dialog.vSetUiRaceStopped();
    fixture.pressKey(Qt::Key_3, Qt::AltModifier);
    QCOMPARE(reads, 0);
    fixture.pressKey(Qt::Key_2, Qt::AltModifier);
    QCOMPARE(reads, 1);
}

void tst_CKelmoMainDialog::qrCodeForAPanelThatIsGoneChangesNothing()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.settings.setQrCodeHandlingEnabled(true);
    fixture.dialog.setQrCodeReaderDialog(std::make_unique<FunctionReader>([&fixture] {
        fixture.setRaceway(racewayWithTracks(1));
        return QString("<car>Blitz");
    }));
    const int before = fixture.carBox(1)->currentIndex();
    fixture.trigger("qrCodeShortcutTrack2");
    fixture.setRaceway(racewayWithTracks(2));
    fixture.track(2)->findChild<QAbstractButton*>("carQrButton")->click();
    QCOMPARE(fixture.carBox(1)->currentIndex(), before);
}

void tst_CKelmoMainDialog::qrButtonOfAPanelReadsForIt()
{
    addDriversAndCars();
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    fixture.dialog.setQrCodeReaderDialog(
        std::make_unique<FunctionReader>([] { return QString("<car>Blitz"); }));
    fixture.track(2)->findChild<QAbstractButton*>("carQrButton")->click();
    QCOMPARE(fixture.carBox(2)->currentText(), QString("Blitz"));
    QCOMPARE(fixture.carBox(1)->currentIndex(), 0);
}

void tst_CKelmoMainDialog::clientModeShowsNamesInDisabledBoxes()
{
    MainDialogFixture fixture;
    CDriver driver;
    driver.setName("Carla");
    CCar car;
    car.setName("Komet");
    fixture.raceSettings.setRaceway(racewayWithTracks(2));
    fixture.raceSettings.setDriver(1, driver);
    fixture.raceSettings.setCar(1, car);
    fixture.dialog.enableClientMode();
    QCOMPARE(fixture.driverBox(2)->currentText(), QString("Carla"));
    QCOMPARE(fixture.carBox(2)->currentText(), QString("Komet"));
    QVERIFY(!fixture.driverBox(2)->isEnabled());
    QVERIFY(!fixture.carBox(2)->isEnabled());
    QVERIFY(!fixture.track(2)->findChild<QAbstractButton*>("driverQrButton")->isEnabled());

    driver.setName("Dora");
    fixture.raceSettings.setDriver(1, driver);
    fixture.dialog.vPublishDriversAndCarsToTrackDisplays();
    QCOMPARE(fixture.driverBox(2)->currentText(), QString("Dora"));
    fixture.dialog.onSettingsChanged();
    QCOMPARE(fixture.driverBox(2)->currentText(), QString("Dora"));
    QVERIFY(!fixture.driverBox(2)->isEnabled());
}

void tst_CKelmoMainDialog::raceSettingsKnowTheNamesThatTheBoxesShow()
{
    MainDialogFixture fixture;
    CDriverList drivers;
    CDriver anna;
    anna.setName("Anna");
    drivers.addDriver(anna);
    CDriver stored;
    stored.setId(drivers.driverAt(drivers.rowOfName("Anna")).id());
    fixture.raceSettings.setDriver(1, stored); // as the stored defaults have it
    fixture.setRaceway(racewayWithTracks(2));
    QCOMPARE(fixture.driverBox(2)->currentText(), QString("Anna"));
    QCOMPARE(fixture.raceSettings.driver(1).name(), QString("Anna"));
    QCOMPARE(fixture.raceSettings.car(1).name(), fixture.carBox(2)->currentText());
}

void tst_CKelmoMainDialog::clientModeLeavesOnlyQuitAndHelp()
{
    MainDialogFixture fixture;
    CRaceway raceway = racewayWithTracks(2);
    raceway.pwrOffFeatureAvailable = true;
    fixture.raceSettings.setRaceway(raceway);
    fixture.dialog.enableClientMode();
    QStringList visible;
    for (const QAction* menuAction : fixture.menu()->actions()) {
        if (!menuAction->isVisible())
            continue;
        for (const QAction* action : menuAction->menu()->actions()) {
            if (action->isVisible())
                visible.append(action->text());
        }
    }
    QCOMPARE(visible, QStringList({"&Beenden", "&Über"}));
}

void tst_CKelmoMainDialog::clientModeKeysStartNothing()
{
    MainDialogFixture fixture;
    CRaceway raceway = racewayWithTracks(2);
    raceway.pwrOffFeatureAvailable = true;
    fixture.raceSettings.setRaceway(raceway);
    fixture.dialog.enableClientMode();
    QVERIFY(fixture.activate());
    const ModalAnswers answers;
    QStringList heard;
    const auto hear = [&heard](const char* name) { return [&heard, name] { heard.append(name); }; };
    connect(&fixture.dialog, &Dialog::raceStartQuickRace, this, hear("quick"));
    connect(&fixture.dialog, &Dialog::racePause, this, hear("pause"));
    connect(&fixture.dialog, &Dialog::raceResume, this, hear("resume"));
    connect(&fixture.dialog, &Dialog::raceStop, this, hear("stop"));
    connect(&fixture.dialog, &Dialog::raceStoreToCsv, this, hear("csv"));
    connect(&fixture.dialog, &Dialog::raceTrackPowerToggle, this, hear("toggle"));
    connect(&fixture.dialog, qOverload<bool>(&Dialog::raceTrackPowerSwitch), this, hear("switch"));
    connect(&fixture.dialog, &Dialog::remoteClientShutdownTrigger, this, hear("shutdown"));
    fixture.dialog.vSetUiRaceStarted();
    fixture.dialog.vSetUiRaceStopped();
    for (const int key : {int(Qt::Key_S), int(Qt::Key_P), int(Qt::Key_E), int(Qt::Key_Z), int(Qt::Key_R),
                          int(Qt::Key_G), int(Qt::Key_D), int(Qt::Key_H), int(Qt::Key_A)})
        fixture.pressKey(key, Qt::ControlModifier);
    for (int key = Qt::Key_F1; key <= Qt::Key_F10; ++key)
        fixture.pressKey(key);
    QCOMPARE(heard.join(" "), QString());
    QVERIFY(!fixture.action(CMainMenu::Simulator)->isChecked());
    QVERIFY(fixture.user->questions.isEmpty());
    QCOMPARE(answers.numberOfWindows(), 0);
    fixture.pressKey(Qt::Key_X, Qt::ControlModifier);
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialog::aboutBoxTellsVersionAndLibraries()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.trigger("showAboutDialog"));
    QCOMPARE(fixture.user->questions.size(), 1);
    QCOMPARE(fixture.user->questions[0][0], QString("Über den Tornik"));
    const QString text = fixture.user->questions[0][1];
    QVERIFY(text.startsWith("<h1>Über den Tornik</h1><hr><p><b>Version:</b> 2.6b1<br>"));
    for (const char* part : {"The Tornik developers", "Bedienungsanleitung.pdf", "5.5.0", "inpout32.dll",
                             "64-Bit", "#FF9933", "<a "})
        QVERIFY2(text.contains(part), part);
}

void tst_CKelmoMainDialog::raceSignalsWithoutSummaryDialogDoNoHarm()
{
    MainDialogFixture fixture;
    const ModalAnswers answers;
    QVERIFY(fixture.trigger("raceSummaryDialogTrigger"));
    QTest::mouseClick(fixture.dialog.findChild<QLabel*>("additionalInfo"), Qt::LeftButton);
    QCOMPARE(answers.numberOfWindows(), 0);
}

void tst_CKelmoMainDialog::racewayOfThousandsOfTracksShowsEight()
{
    MainDialogFixture program;
    program.dialog.enableClientMode();
    program.setRaceway(racewayWithTracks(3000));
    QVERIFY(program.track(8));
    QVERIFY(!program.track(9));
}

QTEST_MAIN(tst_CKelmoMainDialog)
#include "tst_CKelmoMainDialog.moc"
