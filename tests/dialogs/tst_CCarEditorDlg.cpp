#include "data/CCarList.h"
#include "dialogs/CarEditorFixture.h"
#include "support/DatabaseFile.h"

#include <QIntValidator>
#include <QScopeGuard>

#include <limits>

using Change = std::function<void(CCar&)>;

Q_DECLARE_METATYPE(Change)

namespace {

const char* const TextFields[] = {"carName",       "originalManufacturer", "originalType", "startNumber",
                                  "scale",         "modelManufacturer",    "chassis",      "comment",
                                  "distanceDriven"};
const char* const AmountBoxes[] = {"tankSize", "reserveLevel", "minUsage", "maxUsage"};

/** A change of the car's tank. */
Change tank(const std::function<void(CFuelTank&)>& change)
{
    return [change](CCar& car) {
        CFuelTank changed = car.fuelTank();
        change(changed);
        car.setFuelTank(changed);
    };
}

CCar withTank(CCar car, double size, double reserve, double max, double min)
{
    CFuelTank changed = car.fuelTank();
    changed.setTankSizeAndReserveLevel(size, reserve);
    changed.setMaxUsage(max, 1000);
    changed.setMinUsage(min, 10000);
    car.setFuelTank(changed);
    return car;
}

} // namespace

/** The form of the car editor: its controls, their limits and the fields of the car behind them. */
class tst_CCarEditorDlg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyRowHasItsCaptionAndField_data();
    void everyRowHasItsCaptionAndField();
    void windowHasItsTitleAndButtons();
    void textFieldHasItsLimits_data();
    void textFieldHasItsLimits();
    void numberFieldHasItsLimits_data();
    void numberFieldHasItsLimits();
    void numberFieldRefusesWhatIsNoNumberOfItsRange_data();
    void numberFieldRefusesWhatIsNoNumberOfItsRange();
    void groupSeparatorsOfTheUsersLocaleAreNoPartOfANumber();
    void amountsHaveTheirRange();
    void speedClassesAreNumbered();
    void newCarShowsTheDefaults_data();
    void newCarShowsTheDefaults();
    void newCarTakesTankAndDistanceFromTheCar();
    void newCarForgetsTheCarBefore();
    void newCarStoresTheForm();
    void editedCarIsShown_data();
    void editedCarIsShown();
    void controlGoesToItsFieldAlone_data();
    void controlGoesToItsFieldAlone();
    void untouchedCarComesBackAsItWent();
    void cancellingLeavesTheCarAlone_data();
    void cancellingLeavesTheCarAlone();
    void noCarIsRefusedAtOnce();
    void carOfClassZeroShowsTheLastClassAndGetsIt();
    void reserveIsCappedToTheTankSize();
    void consumptionGetsItsLapTimesAndTheTankKeepsItsLevel();
    void emptyNumbersAreStoredAsZero();
    void anEmptyNameAndAnOldStartNumberAreAccepted();
    void whatIsTooLongForItsFieldIsCutToItOnOk();
    void amountsOutsideTheRangeBecomeThoseOfTheirBoxesOnOk();
    void amountsThatAreNoNumbersAreHarmless();
    void distanceIsChangedOnPurposeOnly();
    void distanceIsLockedAgainAtTheNextOpening();
    void keyboardWalksFromTheTopToTheBottom();
    void lettersPressTheirButtons();
    void returnAcceptsAndEscapeCancels();
};

void tst_CCarEditorDlg::init()
{
    QSettings("Tornik", "Tornik").clear();
}

void tst_CCarEditorDlg::everyRowHasItsCaptionAndField_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("fieldOfColumn2");
    int number = 0;
    const auto row = [&number](const char* caption, const char* field, const char* second) {
        QTest::newRow(field) << number << caption << field << second;
        ++number;
    };
    row("Fahrzeug Name", "carName", "carName");
    row("Hersteller Original", "originalManufacturer", "originalManufacturer");
    row("Typenbezeichnung Original", "originalType", "originalType");
    row("Startnummer", "startNumber", "");
    row("Fahrzeug Maßstab 1/", "scale", "");
    row("Fahrzeug Klasse", "speedClass", "speedClass");
    row("Hersteller des Modell", "modelManufacturer", "modelManufacturer");
    row("Fahrzeug Chassis", "chassis", "chassis");
    row("Kommentar", "comment", "comment");
    row("Tankgröße", "tankSize", "tankSize");
    row("Reservelevel", "reserveLevel", "reserveLevel");
    row("Min. Verbrauch", "minUsage", "minUsage");
    row("Max. Verbrauch", "maxUsage", "maxUsage");
    row("gefahrene Strecke (cm)", "distanceDriven", "changeDistance");
    for (int index = 0; index < 10; ++index)
        row(qPrintable(QStringLiteral("Titel %1").arg(index)), freeField(index), freeField(index));
}

void tst_CCarEditorDlg::everyRowHasItsCaptionAndField()
{
    QFETCH(int, row);
    QFETCH(QString, caption);
    showFreeFields([](int) { return true; });
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [&](const DialogUser&) {
        const auto* grid = editor.findChild<QGridLayout*>();
        QCOMPARE(grid->rowCount(), 24);
        const auto* label = qobject_cast<QLabel*>(grid->itemAtPosition(row, 0)->widget());
        QVERIFY(label && label->isVisible());
        QCOMPARE(label->text(), caption);
        QTEST(grid->itemAtPosition(row, 1)->widget()->objectName(), "field");
        auto* second = grid->itemAtPosition(row, 2);
        QTEST(second ? second->widget()->objectName() : QString(""), "fieldOfColumn2");
    });
}

void tst_CCarEditorDlg::windowHasItsTitleAndButtons()
{
    CCarEditorDlg editor;
    QCOMPARE(editor.windowTitle(), QString("Fahrzeug Editor"));
    QStringList buttons;
    for (const auto* button : editor.findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly))
        buttons.append(button->text());
    QCOMPARE(buttons, QStringList({"Ändern", "Editor &konfigurieren", "&Ok", "&Abbrechen"}));
}

void tst_CCarEditorDlg::textFieldHasItsLimits_data()
{
    QTest::addColumn<int>("longest");
    QTest::addColumn<QString>("placeholder");
    QTest::newRow("carName") << 120 << "";
    QTest::newRow("originalManufacturer") << 120 << "z.B. Porsche";
    QTest::newRow("originalType") << 120 << "z.B. 917k";
    QTest::newRow("modelManufacturer") << 120 << "z.B. Carrera";
    QTest::newRow("chassis") << 120 << "z.B. Carrera D124";
    QTest::newRow("comment") << 255 << "";
    for (int index = 0; index < 10; ++index)
        QTest::newRow(freeField(index)) << 120 << "";
}

void tst_CCarEditorDlg::textFieldHasItsLimits()
{
    CCarEditorDlg editor;
    const auto* edit = editor.findChild<QLineEdit*>(QTest::currentDataTag());
    QVERIFY(edit);
    QTEST(edit->maxLength(), "longest");
    QTEST(edit->placeholderText(), "placeholder");
    QCOMPARE(edit->minimumWidth(), 200);
    QCOMPARE(edit->maximumWidth(), 255);
}

void tst_CCarEditorDlg::numberFieldHasItsLimits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("longest");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("largest");
    QTest::newRow("startNumber") << "" << 3 << 30 << 999;
    QTest::newRow("scale") << "24" << 3 << 30 << 100;
    QTest::newRow("distanceDriven") << "" << 10 << 100 << 999999999;
}

void tst_CCarEditorDlg::numberFieldHasItsLimits()
{
    CCarEditorDlg editor;
    const auto* edit = editor.findChild<QLineEdit*>(QTest::currentDataTag());
    QVERIFY(edit);
    QTEST(edit->text(), "text");
    QTEST(edit->maxLength(), "longest");
    QTEST(edit->maximumWidth(), "width");
    const auto* validator = qobject_cast<const QIntValidator*>(edit->validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), 0);
    QTEST(validator->top(), "largest");
}

void tst_CCarEditorDlg::numberFieldRefusesWhatIsNoNumberOfItsRange_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("letters") << "startNumber"
                             << "4a2b"
                             << "42";
    QTest::newRow("sign") << "startNumber"
                          << "-7"
                          << "7";
    QTest::newRow("largest start number") << "startNumber"
                                          << "999"
                                          << "999";
    QTest::newRow("four digits") << "startNumber"
                                 << "1234"
                                 << "123";
    QTest::newRow("largest scale") << "scale"
                                   << "100"
                                   << "100";
    QTest::newRow("scale of four digits") << "scale"
                                          << "1000"
                                          << "100";
    QTest::newRow("largest distance") << "distanceDriven"
                                      << "999999999"
                                      << "999999999";
    QTest::newRow("distance over the largest") << "distanceDriven"
                                               << "9999999999"
                                               << "999999999";
}

void tst_CCarEditorDlg::numberFieldRefusesWhatIsNoNumberOfItsRange()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [&](const DialogUser& user) {
        user.enter("changeDistance", true);
        user.enter(qPrintable(field), typed);
        QTEST(user.value(qPrintable(field)).toString(), "shown");
    });
}

void tst_CCarEditorDlg::groupSeparatorsOfTheUsersLocaleAreNoPartOfANumber()
{
    const QLocale usual;
    const auto restore = qScopeGuard([usual] { QLocale::setDefault(usual); });
    for (const auto& [locale, typed] :
         {std::pair("de_DE", QString("12.500")), std::pair("en_US", QString("12,500"))}) {
        QLocale::setDefault(QLocale(locale));
        CCarEditorDlg editor;
        CCar car;
        open(editor, NewCar, car, [&typed = typed](const DialogUser& user) {
            user.enter("changeDistance", true);
            user.enter("distanceDriven", typed);
        });
        QCOMPARE(car.distanceDriven(), 12500);
    }
}

void tst_CCarEditorDlg::amountsHaveTheirRange()
{
    CCarEditorDlg editor;
    for (const char* name : AmountBoxes) {
        const auto* box = editor.findChild<QDoubleSpinBox*>(name);
        QVERIFY(box);
        QCOMPARE(box->minimum(), 0.1);
        QCOMPARE(box->maximum(), 999.99);
        QCOMPARE(box->singleStep(), 0.1);
    }
}

void tst_CCarEditorDlg::speedClassesAreNumbered()
{
    CCarEditorDlg editor;
    const auto* box = editor.findChild<QComboBox*>("speedClass");
    QStringList entries;
    for (int index = 0; index < box->count(); ++index)
        entries.append(box->itemText(index));
    QCOMPARE(entries, QStringList({"(1) - sehr schnell", "(2) - schnell", "(3) - normal", "(4) - langsam",
                                   "(5) - sehr langsam"}));
    QCOMPARE(box->currentIndex(), 1);
}

void tst_CCarEditorDlg::newCarShowsTheDefaults_data()
{
    QTest::addColumn<QVariant>("value");
    for (const char* name : {"carName", "originalManufacturer", "originalType", "startNumber",
                             "modelManufacturer", "chassis", "comment"})
        QTest::newRow(name) << QVariant("");
    for (int index = 0; index < 10; ++index)
        QTest::newRow(freeField(index)) << QVariant("");
    QTest::newRow("scale") << QVariant("24");
    QTest::newRow("speedClass") << QVariant(1);
    QTest::newRow("tankSize") << QVariant(100.0);
    QTest::newRow("reserveLevel") << QVariant(15.0);
    QTest::newRow("minUsage") << QVariant(1.0);
    QTest::newRow("maxUsage") << QVariant(5.0);
    QTest::newRow("distanceDriven") << QVariant("0");
    QTest::newRow("changeDistance") << QVariant(false);
}

void tst_CCarEditorDlg::newCarShowsTheDefaults()
{
    QFETCH(QVariant, value);
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car,
         [&](const DialogUser& user) { QCOMPARE(user.value(QTest::currentDataTag()), value); });
}

void tst_CCarEditorDlg::newCarTakesTankAndDistanceFromTheCar()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, NewCar, car, [](const DialogUser& user) {
        QCOMPARE(user.value("tankSize").toDouble(), 80.0);
        QCOMPARE(user.value("reserveLevel").toDouble(), 12.0);
        QCOMPARE(user.value("minUsage").toDouble(), 1.5);
        QCOMPARE(user.value("maxUsage").toDouble(), 6.5);
        QCOMPARE(user.value("distanceDriven").toString(), QString("123456"));
        QCOMPARE(user.value("originalManufacturer").toString(), QString());
    });
    QCOMPARE(car.distanceDriven(), 123456);
    QCOMPARE(car.fuelTank().level(), 33.0);
    QCOMPARE(car.originalManufacturer(), QString());
}

void tst_CCarEditorDlg::newCarForgetsTheCarBefore()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const DialogUser& user) { user.enter("changeDistance", true); });
    CCar next;
    open(editor, NewCar, next, [](const DialogUser& user) {
        for (const char* name : TextFields) {
            if (!user.isEnabled(name))
                continue;
            QTest::keyClick(user.control(name), Qt::Key_Z, Qt::ControlModifier); // nothing to undo
            QVERIFY2(user.value(name) == (qstrcmp(name, "scale") == 0 ? "24" : ""), name);
        }
        QCOMPARE(user.value("speedClass").toInt(), 1);
        QVERIFY(!user.value("changeDistance").toBool());
    });
    for (int index = 0; index < 10; ++index)
        QVERIFY(next.freeField(index).isEmpty());
    QCOMPARE(next.distanceDriven(), 0);
}

void tst_CCarEditorDlg::newCarStoresTheForm()
{
    CCarEditorDlg editor;
    CCar car;
    QCOMPARE(open(editor, NewCar, car, [](const DialogUser&) {}), 1);
    QCOMPARE(car.fuelTank().minUsageTime(), 10000U); // and not the 5000 of a tank that no editor has seen
    QCOMPARE(car.id(), -1);
    for (const auto field : {&CCar::name, &CCar::originalManufacturer, &CCar::originalType,
                             &CCar::startNumber, &CCar::modelManufacturer, &CCar::chassis, &CCar::comment})
        QCOMPARE((car.*field)(), QString());
    QCOMPARE(car.scale(), 24);
    QCOMPARE(car.speedClass(), 2);
    QCOMPARE(car.fuelTank().tankSize(), 100.0);
    QCOMPARE(car.fuelTank().reserveLevel(), 15.0);
}

void tst_CCarEditorDlg::editedCarIsShown_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("carName") << QVariant(QStringLiteral("Der Weiße"));
    QTest::newRow("originalManufacturer") << QVariant("Porsche");
    QTest::newRow("originalType") << QVariant("917k");
    QTest::newRow("startNumber") << QVariant("23");
    QTest::newRow("scale") << QVariant("32");
    QTest::newRow("speedClass") << QVariant(3);
    QTest::newRow("modelManufacturer") << QVariant("Carrera");
    QTest::newRow("chassis") << QVariant("Carrera D132");
    QTest::newRow("comment") << QVariant("Sieger; 1970");
    QTest::newRow("tankSize") << QVariant(80.0);
    QTest::newRow("reserveLevel") << QVariant(12.0);
    QTest::newRow("minUsage") << QVariant(1.5);
    QTest::newRow("maxUsage") << QVariant(6.5);
    QTest::newRow("distanceDriven") << QVariant("123456");
    QTest::newRow("changeDistance") << QVariant(false);
    for (int index = 0; index < 10; ++index)
        QTest::newRow(freeField(index)) << QVariant(QStringLiteral("Wert %1").arg(index));
}

void tst_CCarEditorDlg::editedCarIsShown()
{
    QFETCH(QVariant, value);
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car,
         [&](const DialogUser& user) { QCOMPARE(user.value(QTest::currentDataTag()), value); });
}

void tst_CCarEditorDlg::controlGoesToItsFieldAlone_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<Change>("change");
    const auto row = [](const char* control, const QVariant& value, const Change& change) {
        QTest::newRow(control) << value << change;
    };
    row("carName", "Der Rote", [](CCar& car) { car.setName("Der Rote"); });
    row("originalManufacturer", "Ferrari", [](CCar& car) { car.setOriginalManufacturer("Ferrari"); });
    row("originalType", "512S", [](CCar& car) { car.setOriginalType("512S"); });
    row("startNumber", "007", [](CCar& car) { car.setStartNumber("007"); });
    row("scale", "43", [](CCar& car) { car.setScale(43); });
    row("speedClass", 0, [](CCar& car) { car.setSpeedClass(1); });
    row("modelManufacturer", "Fly", [](CCar& car) { car.setModelManufacturer("Fly"); });
    row("chassis", "Plafit", [](CCar& car) { car.setChassis("Plafit"); });
    row("comment", "Leihwagen", [](CCar& car) { car.setComment("Leihwagen"); });
    row("tankSize", 90.5, tank([](CFuelTank& car) { car.setTankSizeAndReserveLevel(90.5, 12); }));
    row("reserveLevel", 20, tank([](CFuelTank& car) { car.setTankSizeAndReserveLevel(80, 20); }));
    row("minUsage", 0.1, tank([](CFuelTank& car) { car.setMinUsage(0.1, 10000); }));
    row("maxUsage", 999.99, tank([](CFuelTank& car) { car.setMaxUsage(999.99, 1000); }));
    for (int index = 0; index < 10; ++index)
        row(freeField(index), "neu", [index](CCar& car) { car.setFreeField(index, "neu"); });
}

void tst_CCarEditorDlg::controlGoesToItsFieldAlone()
{
    QFETCH(QVariant, value);
    QFETCH(Change, change);
    showFreeFields([](int) { return true; });
    CCarEditorDlg editor;
    CCar car = porsche();
    CCar expected = porsche();
    change(expected);
    const auto work = [&](const DialogUser& user) { user.enter(QTest::currentDataTag(), value); };
    QCOMPARE(open(editor, EditCar, car, work), 1);
    QVERIFY(bytesOf(car) != bytesOf(porsche()));
    QCOMPARE(bytesOf(car), bytesOf(expected));
    // What one opening has changed the next one shows.
    open(editor, EditCar, car,
         [&](const DialogUser& user) { QCOMPARE(user.value(QTest::currentDataTag()), value); });
    QCOMPARE(bytesOf(car), bytesOf(expected));
}

void tst_CCarEditorDlg::untouchedCarComesBackAsItWent()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    QCOMPARE(open(editor, EditCar, car, [](const DialogUser&) {}), 1);
    QCOMPARE(bytesOf(car), bytesOf(porsche()));
}

void tst_CCarEditorDlg::cancellingLeavesTheCarAlone_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("new") << true;
    QTest::newRow("edited") << false;
}

void tst_CCarEditorDlg::cancellingLeavesTheCarAlone()
{
    QFETCH(bool, isNew);
    CCarEditorDlg editor;
    CCar car = porsche();
    const auto work = [](const DialogUser& user) {
        user.enter("originalManufacturer", "Ferrari");
        user.enter("tankSize", 10);
        user.enter("speedClass", 4);
    };
    QCOMPARE(open(editor, isNew ? NewCar : EditCar, car, work, "cancelButton"), 0);
    QCOMPARE(bytesOf(car), bytesOf(porsche()));
}

void tst_CCarEditorDlg::noCarIsRefusedAtOnce()
{
    const ModalAnswers nobody;
    CCarEditorDlg editor;
    QCOMPARE(editor.newCar(nullptr), 0);
    QCOMPARE(editor.editCar(nullptr), 0);
    QCOMPARE(nobody.numberOfWindows(), 0);
}

void tst_CCarEditorDlg::carOfClassZeroShowsTheLastClassAndGetsIt()
{
    CCarEditorDlg editor;
    CCar before = porsche();
    before.setSpeedClass(3);
    open(editor, EditCar, before, [](const DialogUser&) {});
    for (const int noClass : {0, 6, -1}) {
        CCar car = porsche();
        car.setSpeedClass(noClass);
        open(editor, EditCar, car,
             [](const DialogUser& user) { QCOMPARE(user.value("speedClass").toInt(), 2); });
        QCOMPARE(car.speedClass(), 3);
    }
}

void tst_CCarEditorDlg::reserveIsCappedToTheTankSize()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const DialogUser& user) {
        user.enter("tankSize", 50);
        user.enter("reserveLevel", 60);
    });
    QCOMPARE(car.fuelTank().tankSize(), 50.0);
    QCOMPARE(car.fuelTank().reserveLevel(), 50.0);
}

void tst_CCarEditorDlg::consumptionGetsItsLapTimesAndTheTankKeepsItsLevel()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    CFuelTank before = car.fuelTank();
    before.setMaxUsage(6.5, 4711);
    before.setMinUsage(1.5, 4712);
    car.setFuelTank(before);
    open(editor, EditCar, car, [](const DialogUser& user) { user.enter("tankSize", 20); });
    QCOMPARE(car.fuelTank().maxUsageTime(), 1000U);
    QCOMPARE(car.fuelTank().minUsageTime(), 10000U);
    QCOMPARE(car.fuelTank().level(), 33.0);
    QVERIFY(!car.fuelTank().consumptionEnabled());
}

void tst_CCarEditorDlg::emptyNumbersAreStoredAsZero()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const DialogUser& user) {
        user.enter("changeDistance", true);
        for (const char* name : {"startNumber", "scale", "distanceDriven"})
            user.control<QLineEdit>(name)->clear();
    });
    QCOMPARE(car.startNumber(), QString());
    QCOMPARE(car.scale(), 0);
    QCOMPARE(car.distanceDriven(), 0);
}

void tst_CCarEditorDlg::anEmptyNameAndAnOldStartNumberAreAccepted()
{
    ScratchDirectory directory;
    DatabaseReference database;
    CCarList list;
    list.addCar(porsche());
    CCarEditorDlg editor;
    CCar car;
    const auto work = [](const DialogUser& user) {
        user.enter("startNumber", "23");
        user.enter("carName", " ");
        user.control<QLineEdit>("carName")->clear();
    };
    QCOMPARE(open(editor, NewCar, car, work), 1);
    QCOMPARE(car.startNumber(), QString("23"));
}

void tst_CCarEditorDlg::whatIsTooLongForItsFieldIsCutToItOnOk()
{
    CCar imported = porsche();
    imported.setName(QString(130, 'n'));
    imported.setStartNumber("A1234");
    imported.setComment(QString(300, 'c'));
    imported.setScale(1000);
    imported.setDistanceDriven(std::numeric_limits<int>::min());
    imported.setFreeField(9, QString(500, 'f'));
    CCarEditorDlg editor;
    CCar car = imported;
    open(editor, EditCar, car, [](const DialogUser& user) {
        QCOMPARE(user.value("carName").toString(), QString(120, 'n'));
        QCOMPARE(user.value("scale").toString(), QString("100"));
    });
    CCar cut = imported;
    cut.setName(QString(120, 'n'));
    cut.setStartNumber("A12");
    cut.setComment(QString(255, 'c'));
    cut.setScale(100);
    cut.setDistanceDriven(-214748364);
    cut.setFreeField(9, QString(120, 'f'));
    QCOMPARE(bytesOf(car), bytesOf(cut));
    car = imported;
    open(
        editor, EditCar, car, [](const DialogUser&) {}, "cancelButton");
    QCOMPARE(bytesOf(car), bytesOf(imported));
}

void tst_CCarEditorDlg::amountsOutsideTheRangeBecomeThoseOfTheirBoxesOnOk()
{
    CCarEditorDlg editor;
    CCar car = withTank(porsche(), 5000, 12.3456, 0, -1);
    open(editor, EditCar, car, [](const DialogUser& user) {
        QCOMPARE(user.value("tankSize").toDouble(), 999.99);
        QCOMPARE(user.value("reserveLevel").toDouble(), 12.35);
        QCOMPARE(user.value("maxUsage").toDouble(), 0.1);
        QCOMPARE(user.value("minUsage").toDouble(), 0.1);
    });
    QCOMPARE(bytesOf(car), bytesOf(withTank(porsche(), 999.99, 12.35, 0.1, 0.1)));
}

void tst_CCarEditorDlg::amountsThatAreNoNumbersAreHarmless()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    CCarEditorDlg editor;
    CCar car = withTank(porsche(), nan, infinity, -infinity, 1e300);
    open(editor, EditCar, car, [](const DialogUser&) {});
    const CFuelTank tank = car.fuelTank();
    for (const double amount :
         {tank.tankSize(), tank.reserveLevel(), tank.maxUsageAmount(), tank.minUsageAmount()})
        QVERIFY2(amount >= 0.1 && amount <= 999.99, qPrintable(QString::number(amount)));
    open(editor, EditCar, car, [](const DialogUser& user) {
        for (const char* name : AmountBoxes)
            user.enter(name, 7);
    });
    QCOMPARE(bytesOf(car), bytesOf(withTank(porsche(), 7, 7, 7, 7)));
}

void tst_CCarEditorDlg::distanceIsChangedOnPurposeOnly()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const DialogUser& user) {
        QVERIFY(user.control<QPushButton>("changeDistance")->isCheckable());
        QVERIFY(!user.isEnabled("distanceDriven"));
        user.enter("distanceDriven", "1");
        QCOMPARE(user.value("distanceDriven").toString(), QString("123456"));
        user.press("changeDistance");
        QVERIFY(user.isEnabled("distanceDriven"));
        user.enter("distanceDriven", "500");
        user.press("changeDistance");
        QVERIFY(!user.isEnabled("distanceDriven"));
    });
    QCOMPARE(car.distanceDriven(), 500);
}

void tst_CCarEditorDlg::distanceIsLockedAgainAtTheNextOpening()
{
    for (const Edit next : {NewCar, EditCar}) {
        CCarEditorDlg editor;
        CCar car = porsche();
        open(editor, EditCar, car, [](const DialogUser& user) { user.press("changeDistance"); });
        open(editor, next, car, [](const DialogUser& user) {
            QVERIFY(!user.isEnabled("distanceDriven"));
            QVERIFY(!user.value("changeDistance").toBool());
        });
    }
}

void tst_CCarEditorDlg::keyboardWalksFromTheTopToTheBottom()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const DialogUser& user) {
        user.enter("changeDistance", true);
        const QStringList expected{"carName",
                                   "originalManufacturer",
                                   "originalType",
                                   "startNumber",
                                   "scale",
                                   "speedClass",
                                   "modelManufacturer",
                                   "chassis",
                                   "comment",
                                   "tankSize",
                                   "reserveLevel",
                                   "minUsage",
                                   "maxUsage",
                                   "distanceDriven",
                                   "changeDistance",
                                   "freeField0",
                                   "freeField1",
                                   "freeField2",
                                   "configureButton",
                                   "okButton",
                                   "cancelButton"};
        QCOMPARE(user.walkFrom(expected.first()), expected);
    });
}

void tst_CCarEditorDlg::lettersPressTheirButtons()
{
    for (const auto letter : {Qt::Key_O, Qt::Key_A}) {
        CCarEditorDlg editor;
        CCar car = porsche();
        ModalAnswers answers;
        answers.expect([&answers, letter](QDialog* window) {
            const DialogUser user(window);
            user.enter("carName", "Neu");
            answers.expect([](QDialog* config) {
                QCOMPARE(config->objectName(), QString("carEditorConfigDialog"));
                DialogUser(config).pressLetter(Qt::Key_A);
            });
            user.pressLetter(Qt::Key_K);
            QTRY_COMPARE(answers.numberOfWindows(), 2); // the configuration is open and closed again
            user.pressLetter(letter);
        });
        const bool accepted = letter == Qt::Key_O;
        QCOMPARE(editor.editCar(&car), int(accepted));
        QCOMPARE(car.name(), accepted ? QString("Neu") : porsche().name());
    }
}

void tst_CCarEditorDlg::returnAcceptsAndEscapeCancels()
{
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        CCarEditorDlg editor;
        CCar car = porsche();
        ModalAnswers answers;
        answers.expect([key](QDialog* window) {
            const DialogUser user(window);
            QVERIFY(user.control("carName")->hasFocus());
            QTest::keyClicks(user.control("carName"), "Neu"); // over the old name
            QTest::keyClick(user.control("carName"), key);
        });
        const bool accepted = key == Qt::Key_Return;
        QCOMPARE(editor.editCar(&car), int(accepted));
        QCOMPARE(car.name(), accepted ? QString("Neu") : porsche().name());
    }
}

QTEST_MAIN(tst_CCarEditorDlg)
#include "tst_CCarEditorDlg.moc"
