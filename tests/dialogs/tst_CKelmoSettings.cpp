#include "dialogs/SettingsFixture.h"
#include "dialogs/StoredSettings.h"

#include <QColorDialog>
#include <QLabel>
#include <QSignalSpy>

using namespace StoredSettings;

namespace {

/** Lets the next window be one that chooses a colour. */
void expectColorDialog(ModalAnswers& answers, const QColor& shown, const QColor& chosen)
{
    answers.expect([shown, chosen](QDialog* window) {
        auto* colors = qobject_cast<QColorDialog*>(window);
        QVERIFY(colors);
        QCOMPARE(colors->currentColor(), shown);
        if (!chosen.isValid()) {
            colors->reject();
            return;
        }
        colors->setCurrentColor(chosen);
        colors->accept();
    });
}

QString sampleStyle(const DialogUser& user, const char* button)
{
    return user.control<QLabel>(qPrintable(QString(button) + "Sample"))->styleSheet();
}

} // namespace

/** What the settings show, where each control goes and which of them can be used. */
class tst_CKelmoSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void titleTabsAndButtons();
    void okWithoutAChangeKeepsEverything();
    void openingShowsNothingThatWasCancelled();
    void escapeCancels();
    void openingReadsTheStoreAnew();
    void enableRulesFollowTheUser();
    void sizeOutOfItsRangeIsShownAsTheFirstAndStoredSo_data();
    void sizeOutOfItsRangeIsShownAsTheFirstAndStoredSo();
    void choicesOutOfTheirRangeAreShownAsTheFirst();
    void colorGoesToItsTrackAlone();
    void commonColor();
    void cancelledColorDialogChangesNothing();
    void cancellingAfterAColorChangeKeepsItOnThePanelsUntilTheNextOpeningShowsTheStoredOne();
    void soundFileIsChosenInAFileBox_data();
    void soundFileIsChosenInAFileBox();
    void folderIsChosenInAFileBox();
    void waitTimeOfZeroIsStoredAsZero();
    void waitTimeOverTheLongestIsShownAsTheLongest();
    void longestWaitTimeCanBeTypedWhateverTheSecondsAre();
    void portTakesOnlyDigitsUpToTheHighestPort_data();
    void portTakesOnlyDigitsUpToTheHighestPort();
    void emptyPortIsStoredAsZero();
    void withoutACameraTheBoxIsEmptyAndTheNameIsStoredEmpty();
    void camerasAreListedAnewAtEachOpening();
    void keyboardWalksFromTheTopToTheBottom_data();
    void keyboardWalksFromTheTopToTheBottom();
    void dialogMakesItsControlsAtItsFirstOpening();
    void storingBeforeTheFirstOpeningKeepsEverything();
};

void tst_CKelmoSettings::init()
{
    SettingsFixture::startAnew();
}

void tst_CKelmoSettings::titleTabsAndButtons()
{
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        const auto* tabs = user.control<QTabWidget>("tabs");
        QCOMPARE(tabs->window()->windowTitle(), QString("Einstellungen"));
        QVERIFY(tabs->window()->isModal());
        QStringList titles;
        for (int tab = 0; tab < tabs->count(); ++tab)
            titles.append(tabs->tabText(tab));
        QCOMPARE(titles, QStringList({"Rennstrecken", "Fahrzeuge", "Fahrer", "Anzeige", "Töne", "Speichern",
                                      "Netzwerk", "QR Code"}));
        QCOMPARE(user.control<QPushButton>("okButton")->text(), QString("&Ok"));
        QVERIFY(user.control<QPushButton>("okButton")->isDefault());
        QCOMPARE(user.control<QPushButton>("cancelButton")->text(), QString("&Abbrechen"));
    });
}

void tst_CKelmoSettings::okWithoutAChangeKeepsEverything()
{
    store([](CSettings& settings) {
        settings.setDisplayShowIntermediateTimes(true); // of controls that are disabled, too
        settings.setSpeedDisplayType(CSettings::MilesPerHour);
        settings.setSoundVoiceOutputBestLapTime(true);
        settings.setStorageDefaultPath("/home/rennen");
        settings.setShutdownWaitTime(61);
        settings.setTrackColor(3, "#123456");
        settings.setQrCodeHandlingCamera("Kamera am Kabel");
    });
    const QByteArray before = bytesOf(storedSettings());
    SettingsFixture fixture;
    fixture.cameras = QStringList{"Kamera am Deckel", "Kamera am Kabel"};
    const QSignalSpy settingsChanged(fixture.dialog(), &CKelmoSettings::settingsChanged);
    fixture.open([](const DialogUser&) {});
    QCOMPARE(bytesOf(fixture.main.settings), before);
    QCOMPARE(bytesOf(storedSettings()), before);
    QCOMPARE(settingsChanged.size(), 0);
}

void tst_CKelmoSettings::openingShowsNothingThatWasCancelled()
{
    const QByteArray before = bytesOf(storedSettings());
    SettingsFixture fixture;
    fixture.openAndCancel([](const DialogUser& user) {
        user.enter("displaySpeed", true);
        user.enter("port", "80");
        user.enter("storageApproach1", true);
        user.enter("storageDefaultPath", "/tmp");
    });
    QCOMPARE(bytesOf(fixture.main.settings), before);
    QCOMPARE(bytesOf(storedSettings()), before);
    fixture.openAndCancel([](const DialogUser& user) {
        QCOMPARE(user.value("displaySpeed").toBool(), false);
        QVERIFY(!user.isEnabled("speedDisplayType1"));
        QCOMPARE(user.value("port").toString(), QString("47624"));
        QCOMPARE(user.value("storageDefaultPath").toString(), QString());
        QVERIFY(!user.isEnabled("storageDefaultPath"));
    });
}

void tst_CKelmoSettings::escapeCancels()
{
    SettingsFixture fixture;
    ModalAnswers answers;
    answers.expect([](QDialog* window) {
        DialogUser(window).enter("displaySpeed", true);
        QTest::keyClick(window, Qt::Key_Escape);
    });
    fixture.main.action(CMainMenu::Settings)->trigger();
    QVERIFY(!fixture.main.settings.displaySpeed());
}

void tst_CKelmoSettings::openingReadsTheStoreAnew()
{
    SettingsFixture fixture;
    fixture.main.settings.setPort(1);
    store(to(&CSettings::setDisplayFuel, true));
    fixture.openAndCancel([](const DialogUser& user) {
        QCOMPARE(user.value("port").toString(), QString("47624"));
        QCOMPARE(user.value("displayFuel").toBool(), true);
    });
    QCOMPARE(fixture.main.settings.port(), CSettings::DefaultPort);
}

void tst_CKelmoSettings::enableRulesFollowTheUser()
{
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        const auto follows = [&user](const char* control, const char* dependent) {
            for (const bool on : {true, false, true}) {
                user.enter(control, on);
                QCOMPARE(user.isEnabled(dependent), on);
            }
        };
        follows("displayShowSectorTimes", "displayShowIntermediateTimes");
        follows("displaySpeed", "speedDisplayType0");
        follows("displaySpeed", "speedDisplayType2");
        follows("soundEnhanced", "soundVoiceOutputLaps");
        QVERIFY(!user.isEnabled("soundVoiceOutputBestLapTime"));
        follows("soundVoiceOutputLapTime", "soundVoiceOutputBestLapTime");
        follows("soundEnhanced", "soundVoiceOutputBestLapTime");
        user.enter("storageApproach1", true);
        QVERIFY(user.isEnabled("storageDefaultPath") && user.isEnabled("storageDefaultPathBrowse"));
        user.enter("storageApproach0", true);
        QVERIFY(!user.isEnabled("storageDefaultPath") && !user.isEnabled("storageDefaultPathBrowse"));
        follows("sendShutdownToClients", "shutdownWaitTime");
        follows("sendShutdownToClients", "shutdownWaitTimeCaption");
        follows("qrCodeHandlingEnabled", "qrCodeHandlingCamera");
        follows("qrCodeHandlingEnabled", "cameraCaption");
    });
}

void tst_CKelmoSettings::sizeOutOfItsRangeIsShownAsTheFirstAndStoredSo_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {-1, 0, 5, 7})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void tst_CKelmoSettings::sizeOutOfItsRangeIsShownAsTheFirstAndStoredSo()
{
    QFETCH(int, size);
    store(to(&CSettings::setDisplaySize, size));
    SettingsFixture fixture;
    fixture.openAndCancel([](const DialogUser& user) { QCOMPARE(user.value("displaySize").toInt(), 0); });
    QCOMPARE(fixture.main.settings.displaySize(), size);
    fixture.open([](const DialogUser&) {});
    QCOMPARE(storedSettings().displaySize(), int(CSettings::VeryLarge));
}

void tst_CKelmoSettings::choicesOutOfTheirRangeAreShownAsTheFirst()
{
    store([](CSettings& settings) {
        settings.setSpeedDisplayType(3);
        settings.setStorageApproach(-7);
        settings.setStorageCsvTimeFormat(99);
    });
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        for (const char* choice : {"speedDisplayType0", "storageApproach0", "storageCsvTimeFormat0"})
            QVERIFY(user.value(choice).toBool());
    });
    QCOMPARE(storedSettings().speedDisplayType(), 0);
    QCOMPARE(storedSettings().storageApproach(), 0);
    QCOMPARE(storedSettings().storageCsvTimeFormat(), 0);
}

void tst_CKelmoSettings::colorGoesToItsTrackAlone()
{
    const QString style("font-weight: bold; background: #000000; color: ");
    CSettings expected = storedSettings();
    SettingsFixture fixture;
    for (int track = 0; track < CSettings::Tracks; ++track) {
        const QByteArray button = "colorSlot" + QByteArray::number(track + 1);
        const QColor color(0x12, 0x34, 0x50 + track);
        const QByteArray before = bytesOf(expected);
        expected.setTrackColor(track, color.name());
        fixture.open([&](const DialogUser& user) {
            QCOMPARE(sampleStyle(user, button), style + "#FFC80A");
            expectColorDialog(*fixture.answers, QColor("#FFC80A"), color);
            user.bringUpAndPress(button);
            QCOMPARE(sampleStyle(user, button), style + color.name());
            QCOMPARE(bytesOf(fixture.main.settings), bytesOf(expected)); // before Ok
            QCOMPARE(bytesOf(storedSettings()), before);
        });
        QCOMPARE(bytesOf(storedSettings()), bytesOf(expected));
        fixture.open([&](const DialogUser& user) {
            expectColorDialog(*fixture.answers, color, QColor());
            user.bringUpAndPress(button);
        });
    }
}

void tst_CKelmoSettings::commonColor()
{
    CSettings expected = storedSettings();
    expected.setColorBestLapAndStatus("#123456");
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        expectColorDialog(*fixture.answers, QColor("#FF3214"), QColor(0x12, 0x34, 0x56));
        user.bringUpAndPress("colorBestLapAndStatus");
        QCOMPARE(sampleStyle(user, "colorBestLapAndStatus"),
                 QString("font-weight: bold; background: #000000; color: #123456"));
        QCOMPARE(bytesOf(fixture.main.settings), bytesOf(expected));
    });
    QCOMPARE(bytesOf(storedSettings()), bytesOf(expected));
}

void tst_CKelmoSettings::cancelledColorDialogChangesNothing()
{
    const QByteArray before = bytesOf(storedSettings());
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        expectColorDialog(*fixture.answers, QColor("#FFC80A"), QColor());
        user.bringUpAndPress("colorSlot1");
        expectColorDialog(*fixture.answers, QColor("#FF3214"), QColor());
        user.bringUpAndPress("colorBestLapAndStatus");
        QCOMPARE(sampleStyle(user, "colorSlot1"),
                 QString("font-weight: bold; background: #000000; color: #FFC80A"));
    });
    QCOMPARE(bytesOf(fixture.main.settings), before);
}

void tst_CKelmoSettings::cancellingAfterAColorChangeKeepsItOnThePanelsUntilTheNextOpeningShowsTheStoredOne()
{
    const QColor stored("#FFC80A");
    const QColor chosen("#00FF00");
    SettingsFixture fixture;
    const auto shown = [&fixture] {
        return fixture.main.track(1)->findChild<CRichLabel*>("lapCount")->color();
    };
    fixture.openAndCancel([&](const DialogUser& user) {
        expectColorDialog(*fixture.answers, stored, chosen);
        user.bringUpAndPress("colorSlot1");
    });
    QCOMPARE(shown(), stored); // nothing has drawn the panels anew
    {
        ModalAnswers answers;
        answers.expect([](QDialog* rules) { rules->findChild<QPushButton*>("okButton")->click(); });
        fixture.main.action(CMainMenu::RaceSettings)->trigger();
    }
    QCOMPARE(shown(), chosen);
    fixture.open([](const DialogUser& user) {
        QCOMPARE(sampleStyle(user, "colorSlot1"),
                 QString("font-weight: bold; background: #000000; color: #FFC80A"));
    });
    QCOMPARE(shown(), stored);
}

void tst_CKelmoSettings::soundFileIsChosenInAFileBox_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("newBestLapSound") << "Sound für neue Beste Runde wählen";
    QTest::newRow("driveThroughSound") << "Sound für Drive Through wählen";
    QTest::newRow("redLightSound") << "Sound für rotes Ampellicht wählen";
    QTest::newRow("greenLightSound") << "Sound für grünes Ampellicht wählen";
}

void tst_CKelmoSettings::soundFileIsChosenInAFileBox()
{
    QFETCH(QString, title);
    const QByteArray field = QTest::currentDataTag();
    SettingsFixture fixture;
    fixture.openAndCancel([&](const DialogUser& user) {
        const QVariant before = user.value(field);
        user.bringUpAndPress(field + "Browse"); // and the box is cancelled
        QCOMPARE(user.value(field), before);
        fixture.user->fileName = "/home/hupe.wav";
        user.bringUpAndPress(field + "Browse");
        QCOMPARE(user.value(field).toString(), QString("/home/hupe.wav"));
    });
    QCOMPARE(fixture.user->questions.value(0), QStringList({title, "Sounds (*.wav)"}));
    QCOMPARE(fixture.user->questions.size(), 2);
}

void tst_CKelmoSettings::folderIsChosenInAFileBox()
{
    store(to(&CSettings::setStorageApproach, 1));
    SettingsFixture fixture;
    fixture.openAndCancel([&](const DialogUser& user) {
        user.enter("storageDefaultPath", "/alt");
        user.bringUpAndPress("storageDefaultPathBrowse"); // and the box is cancelled
        QCOMPARE(user.value("storageDefaultPath").toString(), QString("/alt"));
        fixture.user->fileName = "/home/rennen";
        user.bringUpAndPress("storageDefaultPathBrowse");
        QCOMPARE(user.value("storageDefaultPath").toString(), QString("/home/rennen"));
    });
    QCOMPARE(fixture.user->questions.value(0), QStringList("Verzeichnis wählen"));
}

void tst_CKelmoSettings::waitTimeOfZeroIsStoredAsZero()
{
    store(to(&CSettings::setSendShutdownToClients, true));
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) { user.enter("shutdownWaitTime", QTime(0, 0)); });
    QCOMPARE(fixture.main.settings.shutdownWaitTime(), 0);
    QCOMPARE(storedSettings().shutdownWaitTime(), 0);
}

void tst_CKelmoSettings::waitTimeOverTheLongestIsShownAsTheLongest()
{
    for (const int seconds : {601, 86400 + 5, -1}) {
        store(to(&CSettings::setShutdownWaitTime, seconds));
        SettingsFixture fixture;
        const QTime shown = seconds < 0 ? QTime(0, 0) : QTime(0, 10);
        fixture.open(
            [&](const DialogUser& user) { QCOMPARE(user.value("shutdownWaitTime").toTime(), shown); });
        QCOMPARE(storedSettings().shutdownWaitTime(), seconds < 0 ? 0 : 600);
    }
}

void tst_CKelmoSettings::longestWaitTimeCanBeTypedWhateverTheSecondsAre()
{
    store(to(&CSettings::setSendShutdownToClients, true));
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        user.control<QTabWidget>("tabs")->setCurrentIndex(6);
        QWidget* field = user.control("shutdownWaitTime");
        QCOMPARE(user.value("shutdownWaitTime").toTime(), QTime(0, 0, 15));
        field->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(field, "10");
    });
    QCOMPARE(storedSettings().shutdownWaitTime(), 600);
}

void tst_CKelmoSettings::portTakesOnlyDigitsUpToTheHighestPort_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("letters") << "12ab3"
                             << "123";
    QTest::newRow("signs") << "-+80"
                           << "80";
    QTest::newRow("marks") << "1.2,3 4"
                           << "1234";
    QTest::newRow("highest") << "65535"
                             << "65535";
    QTest::newRow("above") << "65536"
                           << "6553";
    QTest::newRow("too long") << "123456"
                              << "12345";
    QTest::newRow("zero") << "0"
                          << "0";
}

void tst_CKelmoSettings::portTakesOnlyDigitsUpToTheHighestPort()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        user.enter("port", typed);
        QCOMPARE(user.value("port").toString(), shown);
    });
    QCOMPARE(storedSettings().port(), shown.toUShort());
}

void tst_CKelmoSettings::emptyPortIsStoredAsZero()
{
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        auto* port = user.control<QLineEdit>("port");
        port->selectAll();
        QTest::keyClick(port, Qt::Key_Delete);
        QCOMPARE(port->text(), QString());
    });
    QCOMPARE(fixture.main.settings.port(), quint16(0));
    QCOMPARE(storedSettings().port(), quint16(0));
}

void tst_CKelmoSettings::withoutACameraTheBoxIsEmptyAndTheNameIsStoredEmpty()
{
    store(to(&CSettings::setQrCodeHandlingCamera, QString("Kamera am Kabel")));
    SettingsFixture fixture;
    fixture.openAndCancel([](const DialogUser& user) {
        QCOMPARE(user.control<QComboBox>("qrCodeHandlingCamera")->count(), 0);
    });
    QCOMPARE(storedSettings().qrCodeHandlingCamera(), QString("Kamera am Kabel"));
    fixture.open([](const DialogUser&) {});
    QCOMPARE(fixture.main.settings.qrCodeHandlingCamera(), QString());
    QCOMPARE(storedSettings().qrCodeHandlingCamera(), QString());
}

void tst_CKelmoSettings::camerasAreListedAnewAtEachOpening()
{
    SettingsFixture fixture;
    const auto entries = [](const DialogUser& user) {
        const auto* box = user.control<QComboBox>("qrCodeHandlingCamera");
        QStringList names;
        for (int entry = 0; entry < box->count(); ++entry)
            names.append(box->itemText(entry));
        return names;
    };
    for (const QStringList& cameras : {QStringList{"A", "B"}, QStringList{"B"}, QStringList{}}) {
        fixture.cameras = cameras;
        fixture.openAndCancel([&](const DialogUser& user) { QCOMPARE(entries(user), cameras); });
    }
}

void tst_CKelmoSettings::keyboardWalksFromTheTopToTheBottom_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QStringList>("controls");
    QTest::newRow("Rennstrecken") << 0
                                  << QStringList{"racewayTree", "newRaceway", "editRaceway", "deleteRaceway",
                                                 "useRaceway"};
    QTest::newRow("Fahrzeuge") << 1 << QStringList{"carTree",    "newCar",     "editCar",   "deleteCar",
                                                   "importCars", "exportCars", "qrCodeCar", "qrCodesCars"};
    QTest::newRow("Fahrer") << 2 << QStringList{"driverTree",   "newDriver",     "editDriver",
                                                "deleteDriver", "importDrivers", "exportDrivers",
                                                "qrCodeDriver", "qrCodesDrivers"};
    QStringList display{"displayShowLaps",
                        "displayShowLapTime",
                        "displayShowBestLapTime",
                        "displayShowStatus",
                        "displayShowAverageLapTime",
                        "displayShowSectorTimes",
                        "displayShowIntermediateTimes",
                        "displaySpeed",
                        "speedDisplayType0",
                        "displayFuel",
                        "displaySize"};
    for (int slot = 1; slot <= 8; ++slot)
        display.append(QStringLiteral("colorSlot%1").arg(slot));
    QTest::newRow("Anzeige") << 3 << display + QStringList{"colorBestLapAndStatus"};
    QTest::newRow("Töne") << 4 << QStringList{"newBestLapSound",         "newBestLapSoundBrowse",
                                              "driveThroughSound",       "driveThroughSoundBrowse",
                                              "redLightSound",           "redLightSoundBrowse",
                                              "greenLightSound",         "greenLightSoundBrowse",
                                              "soundEnhanced",           "soundVoiceOutputLaps",
                                              "soundVoiceOutputLapTime", "soundVoiceOutputBestLapTime"};
    QTest::newRow("Speichern") << 5
                               << QStringList{"storageApproach1", "storageDefaultPath",
                                              "storageDefaultPathBrowse", "storageCsvTimeFormat0"};
    QTest::newRow("Netzwerk") << 6
                              << QStringList{"port", "sendShutdownToClients", "shutdownWaitTime",
                                             "clientsMuted"};
    QTest::newRow("QR Code") << 7 << QStringList{"qrCodeHandlingEnabled", "qrCodeHandlingCamera"};
}

void tst_CKelmoSettings::keyboardWalksFromTheTopToTheBottom()
{
    QFETCH(int, tab);
    QFETCH(QStringList, controls);
    store([](CSettings& settings) {
        settings.setDisplayShowSectorTimes(true);
        settings.setDisplaySpeed(true);
        settings.setSoundEnhanced(true);
        settings.setSoundVoiceOutputLapTime(true);
        settings.setStorageApproach(CSettings::UseDefaultPath);
        settings.setSendShutdownToClients(true);
        settings.setQrCodeHandlingEnabled(true);
    });
    SettingsFixture fixture;
    fixture.cameras = QStringList{"Kamera am Deckel", "Kamera am Kabel"};
    fixture.open([&](const DialogUser& user) {
        user.control<QTabWidget>("tabs")->setCurrentIndex(tab);
        const QStringList expected =
            controls + QStringList{"okButton", "cancelButton", "qt_tabwidget_tabbar"};
        QCOMPARE(user.walkFrom(expected.first()), expected);
    });
}

/** The start of the program is not to wait for it. */
void tst_CKelmoSettings::dialogMakesItsControlsAtItsFirstOpening()
{
    SettingsFixture fixture;
    QVERIFY(fixture.dialog()->findChildren<QWidget*>().isEmpty());
    fixture.openAndCancel([](const DialogUser&) {});
    const auto controls = fixture.dialog()->findChildren<QWidget*>();
    QVERIFY(!controls.isEmpty());
    fixture.openAndCancel([](const DialogUser&) {});
    QCOMPARE(fixture.dialog()->findChildren<QWidget*>().size(), controls.size());
}

void tst_CKelmoSettings::storingBeforeTheFirstOpeningKeepsEverything()
{
    store(to(&CSettings::setPort, quint16(8080)));
    SettingsFixture fixture;
    fixture.main.settings.setPort(1234);
    const QByteArray live = bytesOf(fixture.main.settings);
    const QByteArray stored = bytesOf(storedSettings());
    fixture.dialog()->storeSettings();
    QCOMPARE(bytesOf(fixture.main.settings), live);
    QCOMPARE(bytesOf(storedSettings()), stored);
    QCOMPARE(fixture.dialog()->result(), int(QDialog::Rejected));
}

QTEST_MAIN(tst_CKelmoSettings)
#include "tst_CKelmoSettings.moc"
