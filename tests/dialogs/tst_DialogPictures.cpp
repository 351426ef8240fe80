#include "dialogs/CCarEditorDlg.h"
#include "dialogs/CDriverEditorDlg.h"
#include "dialogs/CRaceStartDlg.h"
#include "dialogs/Dashboard.h"
#include "support/DialogPicture.h"
#include "support/ModalAnswers.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>

Q_DECLARE_METATYPE(CCar)

using DialogPicture::look;

namespace {

/** A car with every field, each number at its longest. */
CCar fullCar()
{
    CCar car;
    car.setName("Porsche 917k #888");
    car.setOriginalManufacturer("Porsche");
    car.setOriginalType("917k");
    car.setStartNumber("888");
    car.setScale(100);
    car.setSpeedClass(5);
    car.setModelManufacturer("Carrera");
    car.setChassis("Carrera D124");
    car.setComment("Sieger 1970");
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(888.88, 888.88);
    car.setFuelTank(tank);
    car.setDistanceDriven(888888888);
    for (int index = 0; index < CCar::NumberOfFreeFields; ++index)
        car.setFreeField(index, QStringLiteral("Wert %1").arg(index + 1));
    return car;
}

/** Lets the car editor show the first @p count free fields. */
void showFreeFields(int count)
{
    CCarEditorConfig config;
    config.read();
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        config.setShowFreeField(index, index < count);
        if (index > 2)
            config.setTitleFreeField(index, QStringLiteral("Freies Feld Nr. %1").arg(index + 1));
    }
    config.write();
}

/** Rules by which most controls can be used, each number at its longest. */
void useEveryRule(CRaceSettings& rules)
{
    CFuelSettings fuel;
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    fuel.setEmptyFuelReaction(3); // the power stutters
    fuel.setEmptyFuelStutterFrequency(10);
    fuel.setRefuelAmount(888.88);
    fuel.setMaxFuelUsageAmount(888.88);
    fuel.setTankSize(888.88);
    rules.setFuelSettings(fuel);
    rules.setStartType(CRaceSettings::TimedStart);
    rules.setEndType(CRaceSettings::LapLimit);
    rules.setNumberOfLaps(8888);
    rules.setWinningCondition(6);
    rules.setNumOfWorstLapsToIgnore(888);
    rules.setUseTargetTime(true);
}

} // namespace

/** Each dialog over the dashboard; with TORNIK_PICTURES set, for a person to look at. */
class tst_DialogPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void raceSettingsAreWhollyVisible_data();
    void raceSettingsAreWhollyVisible();
    void raceNameIsWhollyVisible_data();
    void raceNameIsWhollyVisible();
    void carEditorIsWhollyVisible_data();
    void carEditorIsWhollyVisible();
    void carEditorConfigIsWhollyVisible_data();
    void carEditorConfigIsWhollyVisible();
    void driverEditorIsWhollyVisible_data();
    void driverEditorIsWhollyVisible();
};

void tst_DialogPictures::init()
{
    QFile::remove("tornik.db");
    QSettings("Tornik", "Tornik").clear();
}

void tst_DialogPictures::raceSettingsAreWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("on");
    for (const char* language : {"de", "en"}) {
        for (int tab = 0; tab < 3; ++tab) {
            for (const bool on : {true, false}) {
                const QString name =
                    QStringLiteral("race-settings-%1-%2-%3").arg(tab).arg(on ? "on" : "off", language);
                QTest::newRow(qPrintable(name)) << language << tab << on;
            }
        }
    }
}

void tst_DialogPictures::raceSettingsAreWhollyVisible()
{
    QFETCH(QString, language);
    QFETCH(int, tab);
    QFETCH(bool, on);
    const Dashboard dashboard(language);
    if (on)
        useEveryRule(dashboard->raceSettings);
    ModalAnswers answers;
    answers.expect([tab](QDialog* dialog) {
        dialog->findChild<QTabWidget*>("tabs")->setCurrentIndex(tab);
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("showRaceSettings"));
}

void tst_DialogPictures::raceNameIsWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("race-name-de") << "de";
    QTest::newRow("race-name-en") << "en";
}

void tst_DialogPictures::raceNameIsWhollyVisible()
{
    QFETCH(QString, language);
    const Dashboard dashboard(language);
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit*>("raceName"), "Rennen am Sonntag");
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("raceTrigger"));
}

void tst_DialogPictures::carEditorIsWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<CCar>("car");
    QTest::addColumn<int>("fields");
    for (const char* language : {"de", "en"}) {
        QTest::newRow(qPrintable(QStringLiteral("car-new-%1").arg(language))) << language << CCar() << 3;
        QTest::newRow(qPrintable(QStringLiteral("car-full-%1").arg(language))) << language << fullCar() << 10;
        QTest::newRow(qPrintable(QStringLiteral("car-bare-%1").arg(language))) << language << fullCar() << 0;
    }
}

void tst_DialogPictures::carEditorIsWhollyVisible()
{
    QFETCH(QString, language);
    QFETCH(CCar, car);
    QFETCH(int, fields);
    const Dashboard dashboard(language);
    CCarEditorDlg editor(&dashboard->dialog);
    showFreeFields(fields);
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    car.name().isEmpty() ? editor.newCar(&car) : editor.editCar(&car);
}

void tst_DialogPictures::carEditorConfigIsWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("car-config-de") << "de";
    QTest::newRow("car-config-en") << "en";
}

void tst_DialogPictures::carEditorConfigIsWhollyVisible()
{
    QFETCH(QString, language);
    const Dashboard dashboard(language);
    CCarEditorDlg editor(&dashboard->dialog);
    CCar car;
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton*>("configureButton"), Qt::LeftButton);
        dialog->reject();
    });
    answers.expect([](QDialog* dialog) {
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    editor.newCar(&car);
}

void tst_DialogPictures::driverEditorIsWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("driver-de") << "de";
    QTest::newRow("driver-en") << "en";
}

void tst_DialogPictures::driverEditorIsWhollyVisible()
{
    QFETCH(QString, language);
    const Dashboard dashboard(language);
    CDriverEditorDlg editor(&dashboard->dialog);
    CDriver driver;
    driver.setName("Maximilian Mustermann");
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    editor.editDriver(&driver);
}

QTEST_MAIN(tst_DialogPictures)
#include "tst_DialogPictures.moc"
