#include "io/PortIds.h"
#include "network/CKelmoNetworkServer.h"
#include "network/DisplayPeer.h"
#include "results/CKelmoRaceAnalyzer.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CQrReaderButton.h"
#include "shell/CTrackDisplay.h"
#include "support/DatabaseFile.h"
#include "support/FunctionReader.h"
#include "support/LoopbackNetwork.h"
#include "support/RecordingSounds.h"
#include "support/RunningProgram.h"
#include "support/ScriptedQuestions.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"
#include "wizard/WizardDriver.h"

#include <QDir>

namespace {

bool isNetworkOurOwn = false;

const char Folder[] = "stored-races";

bool isShown(const RunningProgram& program, const char* field)
{
    return program.track(1)->findChild<QWidget*>(field)->isVisible();
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

/** @return the cells of a file in the folder. */
QList<QByteArray> cellsOf(const QString& file)
{
    return contentOf(QDir(Folder).filePath(file)).replace('\n', ';').split(';');
}

/** Opens the list of fastest laps by its key. */
void inAnalyzer(RunningProgram& program, const std::function<void(CKelmoRaceAnalyzer*)>& work)
{
    ModalAnswers answers;
    answers.expect([work](QDialog* dialog) {
        auto* analyzer = qobject_cast<CKelmoRaceAnalyzer*>(dialog);
        QVERIFY(analyzer);
        work(analyzer);
        analyzer->close();
    });
    program.pressKey(Qt::Key_A, Qt::ControlModifier);
}

void exportFastestLaps(RunningProgram& program, const QString& file)
{
    inAnalyzer(program, [file](CKelmoRaceAnalyzer* analyzer) {
        auto questions = std::make_unique<CScriptedQuestions>();
        questions->fileName = QDir(Folder).filePath(file);
        analyzer->setUserQuestions(std::move(questions));
        DialogUser(analyzer).press("exportButton");
    });
}

/** @return whether the list of fastest laps offers to read codes. */
bool analyzerReadsCodes(RunningProgram& program)
{
    bool isOffered = false;
    inAnalyzer(program, [&isOffered](CKelmoRaceAnalyzer* analyzer) {
        isOffered = analyzer->findChild<QWidget*>("qrButton")->isVisible();
    });
    return isOffered;
}

} // namespace

/** What the user sets in the settings is stored, sent and offered in the running program. */
class tst_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void racesAreStoredInTheFolderInTheTimeFormat_data();
    void racesAreStoredInTheFolderInTheTimeFormat();
    void summaryStoresWhereTheSettingsSay();
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

void tst_settings::racesAreStoredInTheFolderInTheTimeFormat_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::newRow("storageCsvTimeFormat0") << QByteArray("\"00:08:531\t\"");
    QTest::newRow("storageCsvTimeFormat1") << QByteArray("8,531");
    QTest::newRow("storageCsvTimeFormat2") << QByteArray("00:08,531");
}

void tst_settings::racesAreStoredInTheFolderInTheTimeFormat()
{
    QFETCH(QByteArray, time);
    StoredSetup setup;
    setup.rules.setMonitorFastestLap(true);
    setup.write();
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
    QVERIFY(cellsOf(storedFiles().first()).contains(time));
    QVERIFY(program.user().questions.isEmpty());
    exportFastestLaps(program, "fastest.csv");
    QVERIFY(cellsOf("fastest.csv").contains(time));
}

/** The button of the summary does what the entry of the menu does. */
void tst_settings::summaryStoresWhereTheSettingsSay()
{
    StoredSetup().write();
    RunningProgram program;
    for (const bool asks : {false, true}) {
        inSettings(program, [asks](const DialogUser& user, ModalAnswers&) {
            user.enter(asks ? "storageApproach0" : "storageApproach1", true);
            if (!asks)
                user.enter("storageDefaultPath", Folder);
        });
        QVERIFY(program.startRace());
        driveTwoLaps(program);
        program.stopRace();
        program.user().fileName = QDir(Folder).filePath("asked.csv");
        ModalAnswers answers;
        answers.expect([](QDialog* summary) {
            const DialogUser user(summary);
            user.press("csvButton");
            user.press("closeButton");
        });
        program.pressKey(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(storedFiles().contains("asked.csv"), asks);
        QCOMPARE(storedFiles().size(), asks ? 2 : 1);
        QCOMPARE(program.user().questions.size(), asks ? 1 : 0);
    }
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
    QVERIFY(!analyzerReadsCodes(program));
    inSettings(program,
               [](const DialogUser& user, ModalAnswers&) { user.enter("qrCodeHandlingEnabled", true); });
    QVERIFY(isShown(program, "driverQrButton"));
    QVERIFY(isShown(program, "carQrButton"));
    QVERIFY(analyzerReadsCodes(program));
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
