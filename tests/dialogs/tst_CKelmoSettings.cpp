#include "dialogs/SettingsFixture.h"

#include <QColorDialog>
#include <QLabel>
#include <QSignalSpy>

using Change = std::function<void(CSettings&)>;

Q_DECLARE_METATYPE(Change)

namespace {

QString notNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

/** Every value of the settings, in bytes, so that two records can be compared. */
QByteArray bytesOf(CSettings settings)
{
    // An empty text may be a null text, too.
    settings.setStorageDefaultPath(notNull(settings.storageDefaultPath()));
    settings.setQrCodeHandlingCamera(notNull(settings.qrCodeHandlingCamera()));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << settings;
    return bytes;
}

CSettings storedSettings()
{
    CSettings settings;
    settings.read();
    return settings;
}

void store(const Change& change)
{
    CSettings settings = storedSettings();
    change(settings);
    settings.write();
}

const auto nothing = [](CSettings&) {};

/** A change of one value. */
template <typename Value>
Change to(void (CSettings::*set)(Value), const std::decay_t<Value>& value)
{
    return [set, value](CSettings& settings) { (settings.*set)(value); };
}

QStringList textsOf(const QWidget* tab, const QStringList& kinds)
{
    QStringList texts;
    for (const auto* widget : tab->findChildren<QWidget*>()) {
        for (const QString& kind : kinds) {
            const QString text = widget->property("text").toString() + widget->property("title").toString();
            if (widget->inherits(qPrintable(kind)) && !text.isEmpty())
                texts.append(text);
        }
    }
    texts.sort();
    return texts;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

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
    void tabsHaveTheirTexts_data();
    void tabsHaveTheirTexts();
    void fieldsHaveTheirRange();
    void controlsShowTheSettingsOfANewUser();
    void controlGoesToItsFieldAlone_data();
    void controlGoesToItsFieldAlone();
    void okWithoutAChangeKeepsEverything();
    void openingShowsNothingThatWasCancelled();
    void escapeCancels();
    void openingReadsTheStoreAnew();
    void controlsAreEnabledByTheirRule_data();
    void controlsAreEnabledByTheirRule();
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

void tst_CKelmoSettings::tabsHaveTheirTexts_data()
{
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<QStringList>("entries");
    QStringList display{"Rundenanzahl anzeigen",
                        "Rundenzeit anzeigen",
                        "Beste Rundenzeit anzeigen",
                        "Rennstatus",
                        "Durchschnittliche Rundenzeit anzeigen",
                        "Sektorenzeiten anzeigen",
                        "Zwischenzeiten anstelle von Sektorenzeiten anzeigen",
                        "Geschwindigkeit anzeigen",
                        "in km/h",
                        "in m/s",
                        "in mph",
                        "Tankanzeige anzeigen",
                        "Farbe Bestzeit, Status, Tankreserve"};
    QStringList samples{"Anzeigegröße:", "00:08:531"};
    for (int track = 1; track <= 8; ++track) {
        display.append(QStringLiteral("Farbe Slot %1").arg(track));
        samples.append("00:08:531");
    }
    QTest::newRow("Anzeige") << display << samples << QStringList{"sehr groß", "groß", "medium", "klein"};
    QTest::newRow("Töne") << QStringList{"Browse",
                                         "Browse",
                                         "Browse",
                                         "Browse",
                                         "Sprachausgabe nutzen",
                                         "Rundenanzahl ansagen",
                                         "Rundenzeit ansagen",
                                         "Nur neue Bestzeiten ansagen"}
                          << QStringList{"Neue Bestzeit:", "Drive Through:", "Rotes Ampellicht:",
                                         "Grünes Ampellicht:"}
                          << QStringList();
    QTest::newRow("Speichern") << QStringList{"beim speichern immer nach Dateiname und Zielordner fragen",
                                              "immer in folgenden Ordner speichern:",
                                              "Browse",
                                              "Zeiten im Format mm:ss:zzz speichern (z.B. 0:08:531)",
                                              "Zeiten im Format s,zzz speichern (z.B. 8,531)",
                                              "Zeiten im Format mm:ss,zzz speichern (z.B. 0:08,531)"}
                               << QStringList{"Wählen Sie die standard Aktion beim speichern eines Rennens:",
                                              "Zeitformat beim speichern"}
                               << QStringList();
    QTest::newRow("Netzwerk")
        << QStringList{"Netzwerkanzeigerechner bei Programmende auf Host automatisch herunterfahren",
                       "Netzwerkanzeigen stumm schalten"}
        << QStringList{"Diese Einstellungen sind relevant wenn der Tornik seine Anzeige auf einen "
                       "<br>zweiten "
                       "Rechner im Netzwerk übertragen soll.<br>",
                       "Port:", "Wartezeit vor herunterfahren des Remote Rechners:"}
        << QStringList();
    QTest::newRow("QR Code")
        << QStringList{"QR Code Erkennung aktivieren"}
        << QStringList{"Für alle Fahrzeuge und Fahrer können QR Codes erzeugt und ausgedruckt werden. Eine "
                       "Webcam liest sie ein, so dass Fahrer und Fahrzeuge an den Anzeigen der Spuren ohne "
                       "Tastatur ausgewählt werden.",
                       "Kamera:"}
        << QStringList();
}

void tst_CKelmoSettings::tabsHaveTheirTexts()
{
    QFETCH(QStringList, buttons);
    QFETCH(QStringList, labels);
    QFETCH(QStringList, entries);
    const QString title = QString::fromUtf8(QTest::currentDataTag());
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        const auto* tabs = user.control<QTabWidget>("tabs");
        int tab = 0;
        while (tab < tabs->count() && tabs->tabText(tab) != title)
            ++tab;
        QVERIFY(tab < tabs->count());
        QCOMPARE(textsOf(tabs->widget(tab), {"QAbstractButton"}), sorted(buttons));
        QCOMPARE(textsOf(tabs->widget(tab), {"QLabel", "QGroupBox"}), sorted(labels));
        QStringList shown;
        for (const auto* box : tabs->widget(tab)->findChildren<QComboBox*>()) {
            for (int entry = 0; entry < box->count(); ++entry)
                shown.append(box->itemText(entry));
        }
        QCOMPARE(shown, entries);
    });
}

void tst_CKelmoSettings::fieldsHaveTheirRange()
{
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        const auto* wait = user.control<QTimeEdit>("shutdownWaitTime");
        QCOMPARE(wait->displayFormat(), QString("mm:ss"));
        QCOMPARE(wait->minimumTime(), QTime(0, 0));
        QCOMPARE(wait->maximumTime(), QTime(0, 10));
        const auto* port = user.control<QLineEdit>("port");
        QCOMPARE(port->maxLength(), 5);
        const auto* validator = qobject_cast<const QIntValidator*>(port->validator());
        QVERIFY(validator);
        QCOMPARE(validator->bottom(), 0);
        QCOMPARE(validator->top(), 65535);
    });
}

void tst_CKelmoSettings::controlsShowTheSettingsOfANewUser()
{
    const QStringList on{"displayShowLaps",       "displayShowLapTime", "displayShowBestLapTime",
                         "displayShowStatus",     "speedDisplayType0",  "storageApproach0",
                         "storageCsvTimeFormat0", "clientsMuted"};
    const QStringList off{"displayShowAverageLapTime",
                          "displayShowSectorTimes",
                          "displayShowIntermediateTimes",
                          "displaySpeed",
                          "speedDisplayType1",
                          "speedDisplayType2",
                          "displayFuel",
                          "soundEnhanced",
                          "soundVoiceOutputLaps",
                          "soundVoiceOutputLapTime",
                          "soundVoiceOutputBestLapTime",
                          "storageApproach1",
                          "storageCsvTimeFormat1",
                          "storageCsvTimeFormat2",
                          "sendShutdownToClients",
                          "qrCodeHandlingEnabled"};
    const QMap<QString, QVariant> others{{"displaySize", 1},
                                         {"newBestLapSound", "newBestLap.wav"},
                                         {"driveThroughSound", "driveThrough.wav"},
                                         {"redLightSound", "redLight.wav"},
                                         {"greenLightSound", "greenLight.wav"},
                                         {"storageDefaultPath", ""},
                                         {"port", "47624"},
                                         {"shutdownWaitTime", QTime(0, 0, 15)},
                                         {"qrCodeHandlingCamera", -1}};
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        for (const QString& control : on)
            QVERIFY2(user.value(qPrintable(control)).toBool(), qPrintable(control));
        for (const QString& control : off)
            QVERIFY2(!user.value(qPrintable(control)).toBool(), qPrintable(control));
        for (auto other = others.begin(); other != others.end(); ++other)
            QCOMPARE(user.value(qPrintable(other.key())), other.value());
    });
}

void tst_CKelmoSettings::controlGoesToItsFieldAlone_data()
{
    using S = CSettings;
    QTest::addColumn<Change>("before");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<Change>("change");
    const auto row = [](const char* control, const Change& before, const QVariant& value,
                        const Change& change) { QTest::newRow(control) << before << value << change; };
    row("displayShowLaps", nothing, false, to(&S::setDisplayShowLaps, false));
    row("displayShowLapTime", nothing, false, to(&S::setDisplayShowLapTime, false));
    row("displayShowBestLapTime", nothing, false, to(&S::setDisplayShowBestLapTime, false));
    row("displayShowStatus", nothing, false, to(&S::setDisplayShowStatus, false));
    row("displayShowAverageLapTime", nothing, true, to(&S::setDisplayShowAverageLapTime, true));
    row("displayShowSectorTimes", nothing, true, to(&S::setDisplayShowSectorTimes, true));
    row("displayShowIntermediateTimes", to(&S::setDisplayShowSectorTimes, true), true,
        to(&S::setDisplayShowIntermediateTimes, true));
    row("displaySpeed", nothing, true, to(&S::setDisplaySpeed, true));
    const Change speed = to(&S::setDisplaySpeed, true);
    row(
        "speedDisplayType0",
        [](S& settings) {
            settings.setDisplaySpeed(true);
            settings.setSpeedDisplayType(S::MilesPerHour);
        },
        true, to(&S::setSpeedDisplayType, int(S::KilometresPerHour)));
    row("speedDisplayType1", speed, true, to(&S::setSpeedDisplayType, int(S::MetresPerSecond)));
    row("speedDisplayType2", speed, true, to(&S::setSpeedDisplayType, int(S::MilesPerHour)));
    row("displayFuel", nothing, true, to(&S::setDisplayFuel, true));
    row("displaySize", nothing, 3, to(&S::setDisplaySize, int(S::Small)));
    const QString file("/tmp/Hupe & mehr.wav");
    row("newBestLapSound", nothing, file, to(&S::setNewBestLapSound, file));
    row("driveThroughSound", nothing, file, to(&S::setDriveThroughSound, file));
    row("redLightSound", nothing, file, to(&S::setRedLightSound, file));
    row("greenLightSound", nothing, "", to(&S::setGreenLightSound, QString("")));
    const Change voice = to(&S::setSoundEnhanced, true);
    row("soundEnhanced", nothing, true, voice);
    row("soundVoiceOutputLaps", voice, true, to(&S::setSoundVoiceOutputLaps, true));
    row("soundVoiceOutputLapTime", voice, true, to(&S::setSoundVoiceOutputLapTime, true));
    row(
        "soundVoiceOutputBestLapTime",
        [](S& settings) {
            settings.setSoundEnhanced(true);
            settings.setSoundVoiceOutputLapTime(true);
        },
        true, to(&S::setSoundVoiceOutputBestLapTime, true));
    const Change useFolder = to(&S::setStorageApproach, int(S::UseDefaultPath));
    row("storageApproach0", useFolder, true, to(&S::setStorageApproach, int(S::AskForFileName)));
    row("storageApproach1", nothing, true, useFolder);
    row("storageDefaultPath", useFolder, "/home/rennen",
        to(&S::setStorageDefaultPath, QString("/home/rennen")));
    row("storageCsvTimeFormat0", to(&S::setStorageCsvTimeFormat, int(S::MinutesComma)), true,
        to(&S::setStorageCsvTimeFormat, int(S::MinutesColonMilliseconds)));
    row("storageCsvTimeFormat1", nothing, true, to(&S::setStorageCsvTimeFormat, int(S::SecondsComma)));
    row("storageCsvTimeFormat2", nothing, true, to(&S::setStorageCsvTimeFormat, int(S::MinutesComma)));
    row("port", nothing, "65535", to(&S::setPort, quint16(65535)));
    row("sendShutdownToClients", nothing, true, to(&S::setSendShutdownToClients, true));
    row("shutdownWaitTime", to(&S::setSendShutdownToClients, true), QTime(0, 10),
        to(&S::setShutdownWaitTime, 600));
    row("clientsMuted", nothing, false, to(&S::setClientsMuted, false));
    row("qrCodeHandlingEnabled", nothing, true, to(&S::setQrCodeHandlingEnabled, true));
    row(
        "qrCodeHandlingCamera",
        [](S& settings) {
            settings.setQrCodeHandlingEnabled(true);
            settings.setQrCodeHandlingCamera("Kamera am Deckel");
        },
        1, to(&S::setQrCodeHandlingCamera, QString("Kamera am Kabel")));
}

void tst_CKelmoSettings::controlGoesToItsFieldAlone()
{
    QFETCH(Change, before);
    QFETCH(QVariant, value);
    QFETCH(Change, change);
    const char* control = QTest::currentDataTag();
    store(before);
    SettingsFixture fixture;
    if (!storedSettings().qrCodeHandlingCamera().isEmpty())
        fixture.cameras = QStringList{"Kamera am Deckel", "Kamera am Kabel"};
    CSettings expected = storedSettings();
    change(expected);
    fixture.open([&](const DialogUser& user) {
        QVERIFY(user.value(control) != value);
        user.enter(control, value);
        QCOMPARE(bytesOf(storedSettings()) == bytesOf(expected), false); // not before Ok
    });
    QCOMPARE(bytesOf(fixture.main.settings), bytesOf(expected));
    QCOMPARE(bytesOf(storedSettings()), bytesOf(expected));
    fixture.open([&](const DialogUser& user) { QCOMPARE(user.value(control), value); });
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

void tst_CKelmoSettings::controlsAreEnabledByTheirRule_data()
{
    using S = CSettings;
    QTest::addColumn<Change>("settings");
    QTest::addColumn<QStringList>("enabled");
    QTest::addColumn<QStringList>("disabled");
    const auto row = [](const char* name, const Change& settings, const QStringList& enabled,
                        const QStringList& disabled) {
        QTest::newRow(name) << settings << enabled << disabled;
    };
    const QStringList units{"speedDisplayType0", "speedDisplayType1", "speedDisplayType2"};
    const QStringList voice{"soundVoiceOutputLaps", "soundVoiceOutputLapTime"};
    const QStringList best{"soundVoiceOutputBestLapTime"};
    const QStringList folder{"storageDefaultPath", "storageDefaultPathBrowse"};
    const QStringList wait{"shutdownWaitTime", "shutdownWaitTimeCaption"};
    const QStringList camera{"qrCodeHandlingCamera", "cameraCaption"};
    row("new user", nothing, {"displayShowSectorTimes", "soundEnhanced", "port", "clientsMuted"},
        QStringList{"displayShowIntermediateTimes"} + units + voice + best + folder + wait + camera);
    row("sector times", to(&S::setDisplayShowSectorTimes, true), {"displayShowIntermediateTimes"}, units);
    row("speed", to(&S::setDisplaySpeed, true), units, {"displayShowIntermediateTimes"});
    row("voice", to(&S::setSoundEnhanced, true), voice, best);
    row("lap time without voice", to(&S::setSoundVoiceOutputLapTime, true), {}, voice + best);
    row("lap time",
        [](S& settings) {
            settings.setSoundEnhanced(true);
            settings.setSoundVoiceOutputLapTime(true);
        },
        voice + best, {});
    row("folder", to(&S::setStorageApproach, 1), folder, {});
    row("shutdown", to(&S::setSendShutdownToClients, true), wait, {});
    row("codes", to(&S::setQrCodeHandlingEnabled, true), camera, {});
}

void tst_CKelmoSettings::controlsAreEnabledByTheirRule()
{
    QFETCH(Change, settings);
    QFETCH(QStringList, enabled);
    QFETCH(QStringList, disabled);
    store(settings);
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        for (const QString& control : enabled)
            QVERIFY2(user.isEnabled(qPrintable(control)), qPrintable(control));
        for (const QString& control : disabled)
            QVERIFY2(!user.isEnabled(qPrintable(control)), qPrintable(control));
    });
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
        const QStringList expected = controls + QStringList{"okButton", "cancelButton"};
        user.control(qPrintable(expected.first()))->setFocus();
        QStringList walked;
        for (int step = 0; step < expected.size(); ++step) {
            QWidget* focus = QApplication::focusWidget();
            walked.append(focus->objectName());
            // A time field walks through its parts first.
            for (int part = 0; part < 3 && QApplication::focusWidget() == focus; ++part)
                QTest::keyClick(focus, Qt::Key_Tab);
        }
        QCOMPARE(walked, expected);
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
