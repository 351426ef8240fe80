#include "dialogs/CKelmoSettings.h"
#include "io/PortIds.h"
#include "network/CKelmoNetworkServer.h"
#include "network/DisplayPeer.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CQrReaderButton.h"
#include "shell/CRichLabel.h"
#include "shell/CTrackDisplay.h"
#include "sound/CSoundOutput.h"
#include "sound/RecordingSoundOutLib.h"
#include "support/DatabaseFile.h"
#include "support/DialogUser.h"
#include "support/FunctionReader.h"
#include "support/LoopbackNetwork.h"
#include "support/ModalAnswers.h"
#include "support/RecordingSounds.h"
#include "support/RunningProgram.h"
#include "support/ScriptedQuestions.h"
#include "support/StoredSetup.h"
#include "wizard/WizardDriver.h"

#include <QColorDialog>
#include <QDir>
#include <QProgressBar>

namespace {

bool isNetworkOurOwn = false;

const char Folder[] = "stored-races";

using Work = std::function<void(const DialogUser&, ModalAnswers&)>;

/** Opens the settings by their key, lets the user work there and closes them by a button. */
void inSettings(RunningProgram& program, const Work& work, const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([&answers, work, button](QDialog* dialog) {
        QCOMPARE(dialog->objectName(), QString("settingsDialog"));
        const DialogUser user(dialog);
        work(user, answers);
        user.press(button);
    });
    program.pressKey(Qt::Key_G, Qt::ControlModifier);
}

/** The settings of a program, whose file boxes and questions are answered. */
CScriptedQuestions* answerBoxes(RunningProgram& program)
{
    auto questions = std::make_unique<CScriptedQuestions>();
    CScriptedQuestions* user = questions.get();
    program.dialog().findChild<CKelmoSettings*>()->setUserQuestions(std::move(questions));
    return user;
}

bool isShown(const RunningProgram& program, const char* field)
{
    return program.track(1)->findChild<QWidget*>(field)->isVisible();
}

QColor colorOf(const RunningProgram& program, int track, const char* label)
{
    return program.track(track)->findChild<CRichLabel*>(label)->color();
}

/** Drives two laps on track 1: the second is no new best one. */
void driveTwoLaps(RunningProgram& program)
{
    program.sensorAt(1000, PortId::lapSensor(0));
    program.sensorAt(9531, PortId::lapSensor(0));
    program.sensorAt(19531, PortId::lapSensor(0));
}

QStringList storedFiles()
{
    return QDir(Folder).entryList({"*.csv"}, QDir::Files);
}

/** Accepts the editor that opens next, with a name. */
void expectEditor(ModalAnswers& answers, const char* field, const QString& name)
{
    answers.expect([field, name](QDialog* window) {
        const DialogUser editor(window);
        editor.enter(field, name);
        editor.press("okButton");
    });
}

} // namespace

/** What the user sets in the settings shows, sounds, is stored and is sent in the running program. */
class tst_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void fieldsOfThePanels_data();
    void fieldsOfThePanels();
    void intermediateTimesTakeThePlaceOfSectorTimes();
    void unitOfTheSpeed_data();
    void unitOfTheSpeed();
    void sizeOfThePanels();
    void colorsOfThePanels();
    void filesOfTheSounds();
    void voiceTakesThePlaceOfTheEffects();
    void voiceTellsWhatItIsAskedFor();
    void racesAreStoredInTheFolderInTheTimeFormat_data();
    void racesAreStoredInTheFolderInTheTimeFormat();
    void racesAreStoredWhereTheUserIsAsked();
    void folderThatIsNotThereLosesNoRace();
    void portIsThatOfTheNextRun();
    void displayClientGetsTheSettings();
    void codesCanBeReadWhereTheyAreSwitchedOn();
    void cancelledSettingsHaveNoEffect();
    void settingsAreThereInTheNextRun();
    void cancelledSettingsKeepTheDrivenRace();
    void newRacewayCarAndDriverRace();
    void deletedDriverIsReplacedOnThePanels();
    void importedListsAreOfferedOnThePanels();
    void runningRaceLocksTheEntry();
};

void tst_settings::init()
{
    cleanup();
    QDir().mkdir(Folder);
}

void tst_settings::cleanup()
{
    QDir(Folder).removeRecursively();
}

void tst_settings::fieldsOfThePanels_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("displayShowLaps") << "lapCount";
    QTest::newRow("displayShowLapTime") << "lastLap";
    QTest::newRow("displayShowBestLapTime") << "bestLap";
    QTest::newRow("displayShowStatus") << "status";
    QTest::newRow("displayShowAverageLapTime") << "averageLap";
    QTest::newRow("displayShowSectorTimes") << "section3";
    QTest::newRow("displaySpeed") << "speed";
    QTest::newRow("displayFuel") << "fuelBar";
}

void tst_settings::fieldsOfThePanels()
{
    QFETCH(QString, field);
    const char* box = QTest::currentDataTag();
    StoredSetup setup;
    setup.raceway.numberOfSectors = 3;
    setup.write();
    RunningProgram program;
    for (const bool on : {true, false, true}) {
        inSettings(program, [&](const DialogUser& user, ModalAnswers&) { user.enter(box, on); });
        QCOMPARE(isShown(program, qPrintable(field)), on);
    }
}

void tst_settings::intermediateTimesTakeThePlaceOfSectorTimes()
{
    StoredSetup setup;
    setup.raceway.numberOfSectors = 3;
    setup.write();
    RunningProgram program;
    for (const bool intermediate : {false, true}) {
        inSettings(program, [intermediate](const DialogUser& user, ModalAnswers&) {
            user.enter("displayShowSectorTimes", true);
            user.enter("displayShowIntermediateTimes", intermediate);
        });
        QVERIFY(program.startRace());
        for (const char* sensor : {"slot1", "slot1Sector2Begin", "slot1Sector3Begin", "slot1"})
            program.tap(sensor);
        const int last = RunningProgram::milliseconds(program.trackText(1, "section3"));
        QVERIFY(last > 0);
        QCOMPARE(program.shownLaps(1).value(0) == last, intermediate);
        program.stopRace();
    }
}

void tst_settings::unitOfTheSpeed_data()
{
    QTest::addColumn<QString>("unit");
    QTest::newRow("speedDisplayType0") << " km/h";
    QTest::newRow("speedDisplayType1") << " m/s";
    QTest::newRow("speedDisplayType2") << " mph";
}

void tst_settings::unitOfTheSpeed()
{
    QFETCH(QString, unit);
    StoredSetup setup;
    setup.raceway.tracks[0].length = 500;
    setup.write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("displaySpeed", true);
        user.enter(QTest::currentDataTag(), true);
    });
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    const QString speed = program.trackText(1, "speed");
    QVERIFY2(speed.endsWith(unit), qPrintable(speed));
    QVERIFY(speed != "0,0" + unit && speed != "0,00" + unit);
}

void tst_settings::sizeOfThePanels()
{
    StoredSetup().write();
    RunningProgram program;
    QVector<int> heights;
    for (int size = 0; size < 4; ++size) {
        inSettings(program,
                   [size](const DialogUser& user, ModalAnswers&) { user.enter("displaySize", size); });
        heights.append(program.track(1)->findChild<CRichLabel*>("lapCount")->height());
    }
    for (int size = 1; size < 4; ++size)
        QVERIFY2(heights[size] < heights[size - 1], qPrintable(QString::number(size)));
}

void tst_settings::colorsOfThePanels()
{
    StoredSetup().write();
    RunningProgram program;
    const auto choose = [](ModalAnswers& answers, const QColor& color) {
        answers.expect([color](QDialog* window) {
            qobject_cast<QColorDialog*>(window)->setCurrentColor(color);
            window->accept();
        });
    };
    inSettings(program, [&](const DialogUser& user, ModalAnswers& answers) {
        choose(answers, Qt::green);
        user.bringUpAndPress("colorSlot2");
        choose(answers, Qt::cyan);
        user.bringUpAndPress("colorBestLapAndStatus");
    });
    QCOMPARE(colorOf(program, 1, "lapCount"), QColor("#FFC80A"));
    QCOMPARE(colorOf(program, 2, "lapCount"), QColor(Qt::green));
    for (const int track : {1, 2}) {
        QCOMPARE(colorOf(program, track, "bestLap"), QColor(Qt::cyan));
        QCOMPARE(colorOf(program, track, "status"), QColor(Qt::cyan));
    }
}

void tst_settings::filesOfTheSounds()
{
    StoredSetup().write();
    RunningProgram program;
    program.sounds().files.clear();
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("newBestLapSound", "best.wav");
        user.enter("driveThroughSound", "drive.wav");
        user.enter("redLightSound", "red.wav");
        user.enter("greenLightSound", "green.wav");
    });
    QCOMPARE(program.sounds().files,
             QStringList({"best.wav", "drive.wav", "red.wav", "green.wav", "best.wav"}));
}

void tst_settings::voiceTakesThePlaceOfTheEffects()
{
    StoredSetup().write();
    RunningProgram program;
    for (const bool voice : {true, false}) {
        inSettings(program,
                   [voice](const DialogUser& user, ModalAnswers&) { user.enter("soundEnhanced", voice); });
        program.sounds().played.clear();
        QVERIFY(program.startRace());
        driveTwoLaps(program);
        QCOMPARE(program.sounds().played.isEmpty(), voice);
        program.stopRace();
    }
}

void tst_settings::voiceTellsWhatItIsAskedFor()
{
    StoredSetup().write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("soundEnhanced", true);
        user.enter("soundVoiceOutputLaps", true);
        user.enter("soundVoiceOutputLapTime", true);
        user.enter("soundVoiceOutputBestLapTime", true);
    });
    QStringList calls;
    program.track(1)->setSoundOutput(
        std::make_unique<CSoundOutput>(std::make_unique<CRecordingSoundOutLib>(&calls)));
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    program.sensorAt(19531 + 7000, PortId::lapSensor(0)); // a new best lap
    QVERIFY(calls.contains("text 001") && calls.contains("text 003"));
    QVERIFY(!calls.contains("text 00:10:000"));
    QVERIFY(calls.contains("text B00:07:000"));
    program.destroyMain(); // before the list that it writes to
}

void tst_settings::racesAreStoredInTheFolderInTheTimeFormat_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::newRow("storageCsvTimeFormat0") << QByteArray("00:08:531");
    QTest::newRow("storageCsvTimeFormat1") << QByteArray("8,531");
    QTest::newRow("storageCsvTimeFormat2") << QByteArray("00:08,531");
}

void tst_settings::racesAreStoredInTheFolderInTheTimeFormat()
{
    QFETCH(QByteArray, time);
    StoredSetup().write();
    RunningProgram program;
    answerBoxes(program)->fileName = QDir(Folder).absolutePath();
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("storageApproach1", true);
        user.press("storageDefaultPathBrowse");
        user.enter(QTest::currentDataTag(), true);
    });
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    program.stopRace();
    program.pressKey(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(storedFiles().size(), 1);
    QVERIFY(storedFiles().first().endsWith("_Anna_Ben.csv"));
    QVERIFY2(contentOf(QDir(Folder).filePath(storedFiles().first())).contains(time), time);
    QVERIFY(program.user().questions.isEmpty());
}

void tst_settings::racesAreStoredWhereTheUserIsAsked()
{
    StoredSetup setup;
    setup.settings.setStorageApproach(CSettings::UseDefaultPath);
    setup.settings.setStorageDefaultPath(Folder);
    setup.write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) { user.enter("storageApproach0", true); });
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    program.stopRace();
    program.user().fileName = QDir(Folder).filePath("asked.csv");
    program.pressKey(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(storedFiles(), QStringList("asked.csv"));
    QCOMPARE(program.user().questions.size(), 1);
}

void tst_settings::folderThatIsNotThereLosesNoRace()
{
    StoredSetup().write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("storageApproach1", true);
        user.enter("storageDefaultPath", "/no/such/folder");
    });
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    program.stopRace();
    program.pressKey(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(program.laps(1), QString("002"));
    QCOMPARE(storedFiles(), QStringList());
}

void tst_settings::portIsThatOfTheNextRun()
{
    if (!isNetworkOurOwn)
        QSKIP("this system allows no network of one's own");
    StoredSetup().write();
    {
        RunningProgram program;
        inSettings(program, [](const DialogUser& user, ModalAnswers&) { user.enter("port", "5002"); });
        QCOMPARE(program.server().serverPort(), CSettings::DefaultPort);
    }
    const RunningProgram program;
    QCOMPARE(program.server().serverPort(), quint16(5002));
}

void tst_settings::displayClientGetsTheSettings()
{
    if (!isNetworkOurOwn)
        QSKIP("this system allows no network of one's own");
    StoredSetup().write();
    RunningProgram program;
    DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    client.forget();
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("sendShutdownToClients", true);
        user.enter("shutdownWaitTime", QTime(0, 1, 17));
        user.enter("clientsMuted", false);
        user.enter("displaySpeed", true);
    });
    QTRY_COMPARE(client.types(), (QVector<int>{110, 111}));
    CSettings sent;
    DisplayRecord::Payload(client.records().first()).read(sent);
    QVERIFY(!sent.clientsMuted());
    QVERIFY(sent.sendShutdownToClients());
    QVERIFY(sent.displaySpeed());
    client.forget();
    program.menu()->action(CMainMenu::ClientShutdown)->trigger();
    QTRY_COMPARE(client.records(), QVector<QByteArray>{DisplayRecord::shutdown(77)});
}

void tst_settings::codesCanBeReadWhereTheyAreSwitchedOn()
{
    StoredSetup().write();
    RunningProgram program;
    int readings = 0;
    program.dialog().setQrCodeReaderDialog(std::make_unique<FunctionReader>([&readings] {
        ++readings;
        return QString("<drv>Ben");
    }));
    program.pressKey(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(readings, 0);
    QVERIFY(!isShown(program, "driverQrButton"));
    inSettings(program,
               [](const DialogUser& user, ModalAnswers&) { user.enter("qrCodeHandlingEnabled", true); });
    QVERIFY(isShown(program, "driverQrButton"));
    QVERIFY(isShown(program, "carQrButton"));
    program.pressKey(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(readings, 1);
    QCOMPARE(program.track(1)->driverName(), QString("Ben"));
}

void tst_settings::cancelledSettingsHaveNoEffect()
{
    StoredSetup().write();
    RunningProgram program;
    program.sounds().files.clear();
    inSettings(
        program,
        [](const DialogUser& user, ModalAnswers&) {
            user.enter("displayFuel", true);
            user.enter("soundEnhanced", true);
            user.enter("qrCodeHandlingEnabled", true);
            user.enter("displaySize", 3);
        },
        "cancelButton");
    QVERIFY(!isShown(program, "fuelBar"));
    QVERIFY(!isShown(program, "driverQrButton"));
    QVERIFY(program.sounds().files.isEmpty());
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    QVERIFY(!program.sounds().played.isEmpty());
}

void tst_settings::settingsAreThereInTheNextRun()
{
    StoredSetup().write();
    {
        RunningProgram program;
        inSettings(program, [](const DialogUser& user, ModalAnswers&) {
            user.enter("displayFuel", true);
            user.enter("displayShowStatus", false);
        });
    }
    const RunningProgram program;
    QVERIFY(isShown(program, "fuelBar"));
    QVERIFY(!isShown(program, "status"));
}

void tst_settings::cancelledSettingsKeepTheDrivenRace()
{
    StoredSetup setup;
    setup.settings.setStorageApproach(CSettings::UseDefaultPath);
    setup.settings.setStorageDefaultPath(Folder);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    program.stopRace();
    inSettings(
        program, [](const DialogUser&, ModalAnswers&) {}, "cancelButton");
    QCOMPARE(program.laps(1), QString("002"));
    QCOMPARE(program.track(2)->driverName(), QString("Ben"));
    program.pressKey(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(storedFiles().size(), 1);
    QVERIFY(contentOf(QDir(Folder).filePath(storedFiles().first())).contains("00:08:531"));
}

void tst_settings::newRacewayCarAndDriverRace()
{
    StoredSetup setup(1);
    setup.rules.setMonitorFastestLap(true);
    setup.write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers& answers) {
        WizardDriver::expect(answers, [](WizardDriver& wizard) {
            wizard.describe("Keller", 3);
            wizard.goToTheEnd();
            wizard.finish();
        });
        user.press("newRaceway");
        user.press("useRaceway"); // the new one is selected
        expectEditor(answers, "carName", "Zonda");
        user.bringUpAndPress("newCar");
        expectEditor(answers, "driverName", "Zoe");
        user.bringUpAndPress("newDriver");
    });
    QVERIFY(program.track(3) && !program.track(4));
    QCOMPARE(program.infoText("racewayName"), QString("Keller"));
    for (const char* box : {"driverBox", "carBox"}) {
        auto* choice = program.track(3)->findChild<QComboBox*>(box);
        choice->setCurrentIndex(choice->count() - 1);
    }
    QVERIFY(program.startRace());
    program.sensorAt(1000, PortId::lapSensor(2));
    program.sensorAt(10000, PortId::lapSensor(2));
    QCOMPARE(program.laps(3), QString("001"));
    program.stopRace();
    QCOMPARE(DatabaseFile().rows("SELECT d.name, c.name, r.name, f.time FROM fastestLapTimes f "
                                 "JOIN driver d ON d.id = f.driverId JOIN cars c ON c.id = f.carId "
                                 "JOIN raceways r ON r.id = f.racewayId"),
             QStringList("Zoe|Zonda|Keller|9000"));
}

void tst_settings::deletedDriverIsReplacedOnThePanels()
{
    StoredSetup().write();
    RunningProgram program;
    answerBoxes(program)->answerIsYes = true;
    QCOMPARE(program.track(1)->driverName(), QString("Anna"));
    inSettings(
        program,
        [](const DialogUser& user, ModalAnswers&) {
            user.selectRow("driverTree", 0); // Anna
            user.press("deleteDriver");
        },
        "cancelButton");
    QCOMPARE(program.track(1)->driverName(), QString("Ben"));
    QCOMPARE(program.track(2)->driverName(), QString("Ben"));
    QVERIFY(program.startRace());
    driveTwoLaps(program);
    QCOMPARE(program.laps(1), QString("002"));
}

void tst_settings::importedListsAreOfferedOnThePanels()
{
    StoredSetup().write();
    RunningProgram program;
    CScriptedQuestions* user = answerBoxes(program);
    QVERIFY(writeContent(QDir(Folder).filePath("list.csv"), "Name\nZonda;GT\nZoe\n"));
    user->fileName = QDir(Folder).filePath("list.csv");
    inSettings(program, [](const DialogUser& dialog, ModalAnswers&) {
        dialog.bringUpAndPress("importCars");
        dialog.bringUpAndPress("importDrivers");
    });
    QVERIFY(program.track(1)->findChild<QComboBox*>("carBox")->findText("Zonda") > 0);
    QVERIFY(program.track(1)->findChild<QComboBox*>("driverBox")->findText("Zoe") > 0);
    QCOMPARE(program.track(1)->driverName(), QString("Anna")); // still
}

void tst_settings::runningRaceLocksTheEntry()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    const ModalAnswers answers; // nothing may open
    program.pressKey(Qt::Key_G, Qt::ControlModifier);
    QVERIFY(!program.menu()->action(CMainMenu::Settings)->isEnabled());
    program.stopRace();
    QVERIFY(program.menu()->action(CMainMenu::Settings)->isEnabled());
}

int main(int argc, char* argv[])
{
    isNetworkOurOwn = LoopbackNetwork::enter();
    tst_settings test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_settings.moc"
