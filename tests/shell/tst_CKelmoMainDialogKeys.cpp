#include "shell/MainDialogFixture.h"
#include "support/ModalAnswers.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

namespace {

using Dialog = CKelmoMainDialog;

void closeBoxWith(QDialog* dialog, const QString& buttonText)
{
    for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
        if (button->text() == buttonText)
            button->click();
    }
}

} // namespace

/** What keys and menu entries do, on a race computer and on a display. */
class tst_CKelmoMainDialogKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { forgetStored(); }

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

    void clientModeLeavesOnlyQuitAndHelp();
    void clientModeKeysStartNothing();
};

void tst_CKelmoMainDialogKeys::escAsksAndNoSwallowsTheKey()
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

void tst_CKelmoMainDialogKeys::escAsksAndYesClosesTheDialog()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.user->answerIsYes = true;
    const QSignalSpy rejected(&fixture.dialog, &QDialog::rejected);
    fixture.pressKey(Qt::Key_Escape);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialogKeys::escInARunningRaceAsksTheSameQuestion()
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

void tst_CKelmoMainDialogKeys::quitQuestionHasGermanButtonsWithYesAsDefaultAndNoOnEscape()
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

void tst_CKelmoMainDialogKeys::quitQuestionAnsweredYesByItsButton()
{
    MainDialogFixture fixture;
    fixture.dialog.setUserQuestions(std::make_unique<CUserQuestions>());
    QVERIFY(fixture.activate());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) { closeBoxWith(dialog, "&Ja"); });
    fixture.pressKey(Qt::Key_Escape);
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialogKeys::otherKeysAskNothing()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    for (const int key : {int(Qt::Key_Return), int(Qt::Key_Space), int(Qt::Key_A), int(Qt::Key_Backspace)})
        fixture.pressKey(key);
    QVERIFY(fixture.user->questions.isEmpty());
    QVERIFY(fixture.dialog.isVisible());
}

void tst_CKelmoMainDialogKeys::quitEntryClosesWithoutAQuestion()
{
    MainDialogFixture fixture;
    QVERIFY(fixture.activate());
    fixture.pressKey(Qt::Key_X, Qt::ControlModifier);
    QVERIFY(fixture.user->questions.isEmpty());
    QVERIFY(!fixture.dialog.isVisible());
}

void tst_CKelmoMainDialogKeys::quickRaceStartsAndEndsByTheSameEntry()
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

void tst_CKelmoMainDialogKeys::keysOfTheMenuReachTheirSignals_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("signal");
    QTest::newRow("Ctrl+S") << int(Qt::Key_S) << "quick";
    QTest::newRow("Ctrl+P") << int(Qt::Key_P) << "pause";
    QTest::newRow("Ctrl+E") << int(Qt::Key_E) << "csv";
    QTest::newRow("Ctrl+H") << int(Qt::Key_H) << "shutdown";
    QTest::newRow("Ctrl+Ü") << int(Qt::Key_Udiaeresis) << "about";
}

void tst_CKelmoMainDialogKeys::keysOfTheMenuReachTheirSignals()
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

void tst_CKelmoMainDialogKeys::entriesForTheTimeBetweenRacesHaveNoKeyInARace()
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

void tst_CKelmoMainDialogKeys::competitionAsksForANameAndStarts()
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

void tst_CKelmoMainDialogKeys::cancelledCompetitionStartsNothing()
{
    MainDialogFixture fixture;
    const QSignalSpy started(&fixture.dialog, &Dialog::raceStartRecordedRace);
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) { dialog->findChild<QPushButton*>("cancelButton")->click(); });
    QVERIFY(fixture.trigger("raceTrigger"));
    QCOMPARE(started.count(), 0);
}

void tst_CKelmoMainDialogKeys::competitionEntryEndsARunningRace()
{
    MainDialogFixture fixture;
    const QSignalSpy stopped(&fixture.dialog, &Dialog::raceStop);
    fixture.dialog.vSetUiRecordedRaceStarted();
    QVERIFY(fixture.trigger("raceTrigger"));
    QCOMPARE(stopped.count(), 1);
}

void tst_CKelmoMainDialogKeys::ctrlWTriggersNothingInEitherMode()
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

void tst_CKelmoMainDialogKeys::pauseAndResumeAlternate()
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

void tst_CKelmoMainDialogKeys::afterAStopThePauseEntryIsDisabledThoughItsTriggerWouldResume()
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

void tst_CKelmoMainDialogKeys::trackKeysToggleTheirTracks()
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

void tst_CKelmoMainDialogKeys::withoutPowerSwitchingF1ToF10DoNothing()
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

void tst_CKelmoMainDialogKeys::hiddenTracksHaveNoKey()
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

void tst_CKelmoMainDialogKeys::powerNotificationChangesTheEntry()
{
    MainDialogFixture fixture;
    fixture.dialog.trackPowerNotification(0, true);
    QCOMPARE(fixture.menu()->trackPowerActions()[0]->text(), QString("Spur &1 ausschalten"));
}

void tst_CKelmoMainDialogKeys::clientModeLeavesOnlyQuitAndHelp()
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

void tst_CKelmoMainDialogKeys::clientModeKeysStartNothing()
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

QTEST_MAIN(tst_CKelmoMainDialogKeys)
#include "tst_CKelmoMainDialogKeys.moc"
