#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "dialogs/CKelmoSettings.h"
#include "dialogs/Dashboard.h"
#include "support/DialogPicture.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"

#include <QColorDialog>
#include <QFile>
#include <QHeaderView>
#include <QMessageBox>
#include <QSettings>

using DialogPicture::look;

namespace {

const QString LongName("Maximilian von und zu Mustermann-Oberhausen der Jüngere (Startnummer 117)");

/** Lists with a short, a usual and a very long name. */
void fillLists()
{
    for (const QString& name : {QString("A"), QString("Porsche 917k #23"), LongName}) {
        CRaceway raceway(8);
        raceway.name = name;
        CRacewayList().addRaceway(raceway);
        CCar car;
        car.setName(name);
        car.setDistanceDriven(888888888);
        CCarList().addCar(car);
        CDriver driver;
        driver.setName(name);
        CDriverList().addDriver(driver);
    }
}

/** Everything on, so that every control can be used, or all that can be off. */
void storeSettings(bool on)
{
    CSettings settings;
    settings.read();
    settings.setDisplayShowSectorTimes(on);
    settings.setDisplaySpeed(on);
    settings.setDisplaySize(CSettings::VeryLarge);
    settings.setSoundEnhanced(on);
    settings.setSoundVoiceOutputLapTime(on);
    settings.setStorageApproach(on ? CSettings::UseDefaultPath : CSettings::AskForFileName);
    settings.setStorageDefaultPath("/home/rennleitung/Rennen");
    settings.setPort(65535);
    settings.setSendShutdownToClients(on);
    settings.setQrCodeHandlingEnabled(on);
    const char* const colors[] = {"#ff0000", "#00ff00", "#0000ff", "#ffff00",
                                  "#00ffff", "#ff00ff", "#ffffff", "#202020"};
    int track = 0;
    for (const char* color : colors)
        settings.setTrackColor(track++, color);
    settings.write();
}

void haveCameras(const Dashboard& dashboard)
{
    dashboard->dialog.findChild<CKelmoSettings*>()->setCameraNames([] {
        return QStringList{"Integrierte Kamera: HD Webcam C270 (04f2:b5ce)", "USB2.0 PC CAMERA"};
    });
}

} // namespace

/** Each tab of the settings over the dashboard; with TORNIK_PICTURES set, for a person to look at. */
class tst_SettingsPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tabIsWhollyVisible_data();
    void tabIsWhollyVisible();
    void everyColumnOfALongNameIsInSight_data();
    void everyColumnOfALongNameIsInSight();
    void colorDialogCanBeReadOverTheSettings_data();
    void questionBeforeADeletionIsWhollyVisible_data();
    void questionBeforeADeletionIsWhollyVisible();
    void colorDialogCanBeReadOverTheSettings();
};

void tst_SettingsPictures::init()
{
    QFile::remove("tornik.db");
    QSettings("Tornik", "Tornik").clear();
    fillLists();
}

void tst_SettingsPictures::tabIsWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("on");
    for (const char* language : {"de", "en"}) {
        for (int tab = 0; tab < 8; ++tab) {
            for (const bool on : {true, false}) {
                const QString name =
                    QStringLiteral("settings-%1-%2-%3").arg(tab).arg(on ? "on" : "off", language);
                QTest::newRow(qPrintable(name)) << language << tab << on;
            }
        }
    }
}

void tst_SettingsPictures::tabIsWhollyVisible()
{
    QFETCH(QString, language);
    QFETCH(int, tab);
    QFETCH(bool, on);
    storeSettings(on);
    const Dashboard dashboard(language);
    haveCameras(dashboard);
    ModalAnswers answers;
    answers.expect([tab](QDialog* dialog) {
        auto* tabs = dialog->findChild<QTabWidget*>("tabs");
        QCOMPARE(tabs->count(), 8);
        tabs->setCurrentIndex(tab);
        if (auto* list = tabs->widget(tab)->findChild<QTreeView*>())
            list->setCurrentIndex(list->model()->index(1, 0));
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("showSettings"));
}

void tst_SettingsPictures::everyColumnOfALongNameIsInSight_data()
{
    QTest::addColumn<QString>("tree");
    for (const char* tree : {"racewayTree", "carTree", "driverTree"})
        QTest::newRow(tree) << tree;
}

void tst_SettingsPictures::everyColumnOfALongNameIsInSight()
{
    QFETCH(QString, tree);
    const Dashboard dashboard("de");
    ModalAnswers answers;
    answers.expect([tree](QDialog* dialog) {
        auto* list = dialog->findChild<QTreeView*>(tree);
        auto* tabs = dialog->findChild<QTabWidget*>("tabs");
        for (int tab = 0; tab < tabs->count(); ++tab) {
            if (tabs->widget(tab)->isAncestorOf(list))
                tabs->setCurrentIndex(tab);
        }
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        QVERIFY(list->header()->length() <= list->viewport()->width());
        for (int column = 0; column < list->header()->count(); ++column)
            QVERIFY(list->columnWidth(column) >= list->header()->sectionSizeHint(column));
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("showSettings"));
}

void tst_SettingsPictures::colorDialogCanBeReadOverTheSettings_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("de") << "Farbauswahl";
    QTest::newRow("en") << "Select Color";
}

void tst_SettingsPictures::questionBeforeADeletionIsWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("row");
    for (const char* language : {"de", "en"}) {
        for (const bool isLong : {false, true}) {
            const QString name =
                QStringLiteral("delete-%1-%2-%3").arg("%1", isLong ? "long" : "short", language);
            const int row = isLong ? 2 : 3;
            QTest::newRow(qPrintable(name.arg("raceway")))
                << language << QByteArray("racewayTree") << QByteArray("deleteRaceway") << row;
            QTest::newRow(qPrintable(name.arg("car")))
                << language << QByteArray("carTree") << QByteArray("deleteCar") << row;
            QTest::newRow(qPrintable(name.arg("driver")))
                << language << QByteArray("driverTree") << QByteArray("deleteDriver") << row;
        }
    }
}

void tst_SettingsPictures::questionBeforeADeletionIsWhollyVisible()
{
    QFETCH(QString, language);
    QFETCH(QByteArray, tree);
    QFETCH(QByteArray, button);
    QFETCH(int, row);
    const Dashboard dashboard(language);
    ModalAnswers answers;
    answers.expect([&](QDialog* dialog) {
        answers.expect([](QDialog* box) {
            QVERIFY(qobject_cast<QMessageBox*>(box));
            look(box, QTest::currentDataTag());
            box->reject();
        });
        const DialogUser user(dialog);
        user.selectRow(tree, row);
        const int before = user.rows(tree).size();
        user.press(button);
        QCOMPARE(user.rows(tree).size(), before);
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("showSettings"));
}

void tst_SettingsPictures::colorDialogCanBeReadOverTheSettings()
{
    QFETCH(QString, title);
    const QString language = QTest::currentDataTag();
    const Dashboard dashboard(language);
    ModalAnswers answers;
    answers.expect([&](QDialog* dialog) {
        answers.expect([&](QDialog* colors) {
            QVERIFY(qobject_cast<QColorDialog*>(colors));
            QCOMPARE(colors->windowTitle(), title);
            look(colors, "settings-color-" + language);
            colors->reject();
        });
        DialogUser(dialog).bringUpAndPress("colorSlot1");
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("showSettings"));
}

QTEST_MAIN(tst_SettingsPictures)
#include "tst_SettingsPictures.moc"
