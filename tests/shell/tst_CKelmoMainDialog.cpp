#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "io/CKelmoPortSimulator.h"
#include "shell/CInfoFrame.h"
#include "shell/CLights.h"
#include "shell/MainDialogFixture.h"
#include "support/FunctionReader.h"
#include "support/ModalAnswers.h"

#include <QAbstractButton>
#include <QCryptographicHash>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>

namespace {

using Dialog = CKelmoMainDialog;

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

} // namespace

class tst_CKelmoMainDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { forgetStored(); }

    void windowIsFramelessBlackAndNamed();
    void layoutHoldsItsPartsFromTopToBottom();
    void styleSheetFileReplacesTheStyle();
    void missingStyleSheetFileChangesNothing();

    void startingCollectsDriversAndCarsOfTheBoxes();
    void settingsEntriesCollectDriversAndCars();
    void raceSettingsTakeEffectOnlyWhereTheyAreAccepted();
    void settingsTakeEffectOnlyWhereTheyAreAccepted();
    void storedChoiceShowsInTheBoxesAtStart();
    void choiceSurvivesChangedSettings();
    void lateEntriesOfALongListCanBeShown();
    void unknownDriverShowsTheFirstEntry();

    void panelsFollowTheRaceway_data();
    void panelsFollowTheRaceway();
    void racewayOfThousandsOfTracksShowsEight();
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

    void qrKeysStayBoundInClientMode();
    void clientModeShowsNamesInDisabledBoxes();
    void raceSettingsKnowTheNamesThatTheBoxesShow();

    void aboutBoxTellsVersionAndLibraries();
    void raceSignalsWithoutSummaryDialogDoNoHarm();
};

void tst_CKelmoMainDialog::windowIsFramelessBlackAndNamed()
{
    const MainDialogFixture fixture;
    QVERIFY(fixture.dialog.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(fixture.dialog.windowTitle(), QString("Tornik"));
    QVERIFY(fixture.dialog.styleSheet().startsWith(
        "QWidget {color: #646464; background-color: black;  selection-background-color: transparent; "));
    QCOMPARE(QCryptographicHash::hash(fixture.dialog.styleSheet().toUtf8(), QCryptographicHash::Sha1).toHex(),
             QByteArray("3f584703168da3abcfca0e91b7aee5fda20bcf63")); // the style is fixed to the byte
    QCOMPARE(fixture.infoText("raceTime"), QString("00:00:00"));
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

void tst_CKelmoMainDialog::racewayOfThousandsOfTracksShowsEight()
{
    MainDialogFixture program;
    program.dialog.enableClientMode();
    program.setRaceway(racewayWithTracks(3000));
    QVERIFY(program.track(8));
    QVERIFY(!program.track(9));
}

void tst_CKelmoMainDialog::raceSettingsChangeTellsTheRaceAndTheInfoFrame()
{
    MainDialogFixture fixture;
    const QSignalSpy changed(&fixture.dialog, &Dialog::racewayChanged);
    fixture.raceSettings.setEndType(CRaceSettings::LapLimit);
    fixture.raceSettings.setNumberOfLaps(33);
    fixture.setRaceway(racewayWithTracks(4));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(fixture.infoText("racewayName"), QString("Bahn 4"));
    QCOMPARE(fixture.infoText("endCondition"), QString("Ende nach 33 Runden"));
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

void tst_CKelmoMainDialog::qrKeysStayBoundInClientMode()
{
    MainDialogFixture fixture;
    fixture.raceSettings.setRaceway(racewayWithTracks(2));
    fixture.settings.setQrCodeHandlingEnabled(true);
    fixture.dialog.enableClientMode();
    int reads = 0;
    fixture.dialog.setQrCodeReaderDialog(std::make_unique<FunctionReader>([&reads] {
        ++reads;
        return QString();
    }));
    QVERIFY(fixture.activate());
    fixture.pressKey(Qt::Key_2, Qt::AltModifier);
    QCOMPARE(reads, 1);
    for (const char* name : {"driverQrButton", "carQrButton"})
        QVERIFY(!fixture.track(2)->findChild<QAbstractButton*>(name)->isEnabled());
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

QTEST_MAIN(tst_CKelmoMainDialog)
#include "tst_CKelmoMainDialog.moc"
