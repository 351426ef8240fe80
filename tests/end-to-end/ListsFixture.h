#ifndef TORNIK_TESTS_END_TO_END_LISTSFIXTURE_H
#define TORNIK_TESTS_END_TO_END_LISTSFIXTURE_H

#include "data/CCarList.h"
#include "shell/CTrackDisplay.h"
#include "support/DatabaseFile.h"
#include "support/ListTabs.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"
#include "wizard/WizardDriver.h"

/** What the tests of the lists in the running program share. */
namespace Lists {

/** A name with all that a question, a page of codes or a statement could stumble over. */
inline const QString Trickster("Zoe \"die <b>Schnelle</b>\" & %1 %2 O'Hara #7");

constexpr char File[] = "list.csv";
constexpr char Codes[] = "codes.pdf";

/** What the list of cars and that of drivers differ in: the controls of its tab, and where else it shows. */
struct List : ListTab
{
    const char* table;
    const char* panelBox;
    const char* tag; ///< of a code
};

constexpr List Cars{ListTabs::Cars, "cars", "carBox", "<car>"};
constexpr List Drivers{ListTabs::Drivers, "driver", "driverBox", "<drv>"};

/** A car with a value of its own in every column. */
inline CCar zonda()
{
    CCar car;
    car.setName("Zonda");
    car.setOriginalManufacturer("Pagani");
    car.setOriginalType("F");
    car.setStartNumber("07");
    car.setModelManufacturer("Ninco");
    car.setSpeedClass(3);
    car.setScale(32);
    car.setChassis("Plafit");
    car.setComment("rot");
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(60.5, 9);
    tank.setMaxUsage(7.25, 1000);
    tank.setMinUsage(2, 10000);
    car.setFuelTank(tank);
    car.setDistanceDriven(4711);
    for (int index = 0; index < CCar::NumberOfFreeFields; ++index)
        car.setFreeField(index, QStringLiteral("Wert %1").arg(index));
    return car;
}

/** The lists begin with "Default", and with Anna, Ben, Blitz and what a test adds. */
inline void storeLists(const QStringList& names = {})
{
    StoredSetup setup;
    setup.raceway.minTime = 200;
    setup.write();
    CCarList cars;
    CDriverList drivers;
    for (const QString& name : QStringList("Blitz") + names) {
        CCar car;
        car.setName(name);
        cars.addCar(car);
    }
    for (const QString& name : names) {
        CDriver driver;
        driver.setName(name);
        drivers.addDriver(driver);
    }
}

inline QStringList storedNames(const List& list)
{
    return DatabaseFile().rows(QStringLiteral("SELECT name FROM %1 ORDER BY name").arg(list.table));
}

inline QStringList names(const DialogUser& user, const List& list)
{
    QStringList result;
    const auto* model = user.control<QTreeView>(list.tree)->model();
    for (int row = 0; row < model->rowCount(); ++row)
        result.append(model->index(row, 0).data().toString());
    return result;
}

inline void select(const DialogUser& user, const List& list, const QString& name)
{
    const int row = names(user, list).indexOf(name);
    QVERIFY2(row >= 0, qPrintable(name));
    user.selectRow(list.tree, row);
}

/** @return what a list shows when the settings are opened again. */
inline QStringList namesAtTheNextOpening(RunningProgram& program, const List& list)
{
    QStringList result;
    inSettings(
        program, [&](const DialogUser& user, ModalAnswers&) { result = names(user, list); }, "cancelButton");
    return result;
}

/** @return what the panel of track 1 offers. */
inline QStringList offered(const RunningProgram& program, const List& list)
{
    const auto* box = program.track(1)->findChild<QComboBox*>(list.panelBox);
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts.append(box->itemText(index));
    return texts;
}

/** The list is the same in the file, on the panels, at the next opening and in the next run. */
inline void verifyEverywhere(std::unique_ptr<RunningProgram>& program, const List& list,
                             const QStringList& expected)
{
    QCOMPARE(storedNames(list), expected);
    QCOMPARE(offered(*program, list), expected);
    QCOMPARE(namesAtTheNextOpening(*program, list), expected);
    program.reset();
    program = std::make_unique<RunningProgram>();
    QCOMPARE(offered(*program, list), expected);
    QCOMPARE(namesAtTheNextOpening(*program, list), expected);
}

/** Sets up the raceway of the wizard that opens next. */
inline void expectWizard(ModalAnswers& answers, const QString& name, int tracks)
{
    WizardDriver::expect(answers, [name, tracks](WizardDriver& wizard) {
        wizard.describe(name, tracks);
        QCOMPARE(wizard.goToTheEnd().last(), QString("CFinishPage"));
        wizard.finish();
    });
}

} // namespace Lists

Q_DECLARE_METATYPE(Lists::List)

#endif
