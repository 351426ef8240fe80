#include "data/CCarList.h"
#include "io/PortIds.h"
#include "qr/PrintedPages.h"
#include "race/CRace.h"
#include "shell/CTrackDisplay.h"
#include "support/DatabaseFile.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"
#include "wizard/WizardDriver.h"

#include <QSqlQuery>

namespace {

/** A name with all that a question, a page of codes or a statement could stumble over. */
const QString Trickster("Zoe \"die <b>Schnelle</b>\" & %1 %2 O'Hara #7");

const char File[] = "list.csv";
const char Codes[] = "codes.pdf";

/** What the list of cars and that of drivers differ in. */
struct List
{
    const char* table;
    const char* tree;
    const char* newButton;
    const char* editButton;
    const char* deleteButton;
    const char* importButton;
    const char* exportButton;
    const char* codeButton;
    const char* codesButton;
    const char* nameField; ///< of the editor
    const char* panelBox;
    const char* tag; ///< of a code
};

const List Cars{"cars",       "carTree",   "newCar",      "editCar", "deleteCar", "importCars",
                "exportCars", "qrCodeCar", "qrCodesCars", "carName", "carBox",    "<car>"};
const List Drivers{"driver",         "driverTree",    "newDriver",     "editDriver",
                   "deleteDriver",   "importDrivers", "exportDrivers", "qrCodeDriver",
                   "qrCodesDrivers", "driverName",    "driverBox",     "<drv>"};

const char* const AllButtons[] = {
    "newRaceway", "editRaceway",  "deleteRaceway", "useRaceway",    "newCar",       "editCar",
    "deleteCar",  "importCars",   "exportCars",    "qrCodeCar",     "qrCodesCars",  "newDriver",
    "editDriver", "deleteDriver", "importDrivers", "exportDrivers", "qrCodeDriver", "qrCodesDrivers"};

void addLists()
{
    QTest::addColumn<List>("list");
    QTest::newRow("cars") << Cars;
    QTest::newRow("drivers") << Drivers;
}

/** A car with a value of its own in every column. */
CCar zonda()
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
void storeLists(const QStringList& names = {})
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

void storeRaceway(const QString& name, int tracks)
{
    CRaceway raceway(tracks);
    raceway.name = name;
    CRacewayList().addRaceway(raceway);
}

QStringList storedNames(const List& list)
{
    return DatabaseFile().rows(QStringLiteral("SELECT name FROM %1 ORDER BY name").arg(list.table));
}

QStringList names(const DialogUser& user, const List& list)
{
    QStringList result;
    const auto* model = user.control<QTreeView>(list.tree)->model();
    for (int row = 0; row < model->rowCount(); ++row)
        result.append(model->index(row, 0).data().toString());
    return result;
}

void select(const DialogUser& user, const List& list, const QString& name)
{
    const int row = names(user, list).indexOf(name);
    QVERIFY2(row >= 0, qPrintable(name));
    user.selectRow(list.tree, row);
}

/** @return what a list shows when the settings are opened again. */
QStringList namesAtTheNextOpening(RunningProgram& program, const List& list)
{
    QStringList result;
    inSettings(
        program, [&](const DialogUser& user, ModalAnswers&) { result = names(user, list); }, "cancelButton");
    return result;
}

/** @return what the panel of track 1 offers. */
QStringList offered(const RunningProgram& program, const List& list)
{
    const auto* box = program.track(1)->findChild<QComboBox*>(list.panelBox);
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts.append(box->itemText(index));
    return texts;
}

/** The list is the same in the file, on the panels, at the next opening and in the next run. */
void verifyEverywhere(std::unique_ptr<RunningProgram>& program, const List& list, const QStringList& expected)
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
void expectWizard(ModalAnswers& answers, const QString& name, int tracks)
{
    WizardDriver::expect(answers, [name, tracks](WizardDriver& wizard) {
        wizard.describe(name, tracks);
        QCOMPARE(wizard.goToTheEnd().last(), QString("CFinishPage"));
        wizard.finish();
    });
}

/** Accepts the window that a button opens, with a name. */
void expectAccepted(ModalAnswers& answers, const QByteArray& button)
{
    if (button.endsWith("Raceway"))
        expectWizard(answers, "Neubau", 3);
    else
        expectEditor(answers, button.endsWith("Car") ? "carName" : "driverName", "Neuling");
}

/** Selects a row of each list and presses every button, with yes to each question. */
void pressEveryButton(RunningProgram& program, bool hasRows)
{
    CScriptedQuestions* boxes = answerBoxes(program);
    boxes->answerIsYes = true;
    inSettings(program, [=](const DialogUser& user, ModalAnswers& answers) {
        for (const char* button : AllButtons) {
            const QByteArray name(button);
            const bool opensWindow = name.startsWith("new") || (hasRows && name.startsWith("edit"));
            if (opensWindow)
                expectAccepted(answers, name);
            if (hasRows) {
                for (const char* tree : {"racewayTree", "carTree", "driverTree"})
                    user.selectRow(tree, 0);
            }
            boxes->fileName = name.startsWith("qr") ? Codes : name.startsWith("export") ? "export.csv" : File;
            user.bringUpAndPress(button);
            if (name.startsWith("new")) { // no other row stands for the one that wasn't added
                for (const char* tree : {"racewayTree", "carTree", "driverTree"})
                    QCOMPARE(user.selectedRow(tree),
                             hasRows && !name.toLower().contains(QByteArray(tree).chopped(4)) ? 0 : -1);
            }
        }
    });
}

} // namespace

Q_DECLARE_METATYPE(List)

/** The lists of raceways, cars and drivers in the running program: each button acts at once. */
class tst_lists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void newOneIsThereEverywhere_data() { addListsAndButtons(); }
    void newOneIsThereEverywhere();
    void editedOneIsThereEverywhere_data() { addListsAndButtons(); }
    void editedOneIsThereEverywhere();
    void editedCarShowsItsValuesAgain();
    void deletingAsks_data();
    void deletingAsks();
    void carsAreExported();
    void driversAreExported();
    void carsAreImported();
    void driversAreImported();
    void codesAreThoseOfTheList_data() { addLists(); }
    void codesAreThoseOfTheList();
    void newRacewayIsThereAtOnce();
    void editedRacewayIsRacedOnAtOnce();
    void deletingARacewayAsks_data();
    void deletingARacewayAsks();
    void deletedCurrentRacewayGivesItsPlaceToTheFirst();
    void usedRacewayIsThatOfTheNextRun();
    void everyButtonOnAFileThatIsNoDatabase_data();
    void everyButtonOnAFileThatIsNoDatabase();
    void everyButtonOnAReadOnlyFile();

private:
    static void addListsAndButtons();

    std::unique_ptr<RunningProgram> m_program;
};

void tst_lists::cleanup()
{
    m_program.reset();
    for (const char* file : {File, Codes, "export.csv"})
        QFile::remove(file);
}

/** What was done stays done, however the settings are closed. */
void tst_lists::addListsAndButtons()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("cars, ok") << Cars << QByteArray("okButton");
    QTest::newRow("cars, cancelled") << Cars << QByteArray("cancelButton");
    QTest::newRow("drivers, ok") << Drivers << QByteArray("okButton");
    QTest::newRow("drivers, cancelled") << Drivers << QByteArray("cancelButton");
}

void tst_lists::newOneIsThereEverywhere()
{
    QFETCH(List, list);
    QFETCH(QByteArray, button);
    storeLists();
    const QStringList expected = storedNames(list) + QStringList(Trickster);
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            expectEditor(answers, list.nameField, Trickster);
            user.bringUpAndPress(list.newButton);
            QCOMPARE(names(user, list), expected);
            QCOMPARE(user.selectedRow(list.tree), expected.size() - 1);
            QCOMPARE(storedNames(list), expected);
        },
        button);
    verifyEverywhere(m_program, list, expected);
}

void tst_lists::editedOneIsThereEverywhere()
{
    QFETCH(List, list);
    QFETCH(QByteArray, button);
    storeLists();
    QStringList expected = storedNames(list);
    expected[expected.indexOf("Default")] = Trickster;
    const QString idOf = QStringLiteral("SELECT id FROM %1 WHERE name = '%2'").arg(list.table);
    const QString id = DatabaseFile().value(idOf.arg("Default"));
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            select(user, list, "Default");
            expectEditor(answers, list.nameField, Trickster);
            user.press(list.editButton);
            QCOMPARE(names(user, list), expected);
            QCOMPARE(names(user, list).value(user.selectedRow(list.tree)), Trickster);
            QCOMPARE(storedNames(list), expected);
        },
        button);
    QCOMPARE(DatabaseFile().value(idOf.arg(QString(Trickster).replace('\'', "''"))), id);
    verifyEverywhere(m_program, list, expected);
}

void tst_lists::editedCarShowsItsValuesAgain()
{
    const QMap<QByteArray, QVariant> values{{"originalManufacturer", "Porsche"},
                                            {"originalType", "917k"},
                                            {"startNumber", "23"},
                                            {"scale", "43"},
                                            {"speedClass", 4},
                                            {"modelManufacturer", "Fly"},
                                            {"chassis", "Slot.it"},
                                            {"comment", "Leihwagen"},
                                            {"tankSize", 80.5},
                                            {"reserveLevel", 12.25},
                                            {"minUsage", 0.1},
                                            {"maxUsage", 999.99},
                                            {"distanceDriven", "99"},
                                            {"freeField0", "blau"}};
    storeLists();
    CCarList().addCar(zonda());
    m_program = std::make_unique<RunningProgram>();
    for (const bool entered : {false, true}) {
        inSettings(*m_program, [&](const DialogUser& user, ModalAnswers& answers) {
            select(user, Cars, "Zonda");
            answers.expect([&](QDialog* window) {
                const DialogUser editor(window);
                if (!entered)
                    editor.enter("changeDistance", true);
                for (auto value = values.begin(); value != values.end(); ++value) {
                    if (!entered)
                        editor.enter(value.key(), value.value());
                    QCOMPARE(editor.value(value.key()), value.value());
                }
                editor.press("okButton");
            });
            user.press("editCar");
        });
        QCOMPARE(
            DatabaseFile().rows("SELECT name, originalManufacturer, originalType, startNumber, scale, class, "
                                "modelManufacturer, chassis, comment, tankSize, tankReserveLevel, "
                                "minConsumption, maxConsumption, distanceDriven, freeField0, freeField9 "
                                "FROM cars WHERE name = 'Zonda'"),
            QStringList("Zonda|Porsche|917k|23|43|5|Fly|Slot.it|Leihwagen|80.5|12.25|0.1|999.99|99|"
                        "blau|Wert 9"));
    }
}

void tst_lists::deletingAsks_data()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QStringList>("question");
    for (const bool yes : {true, false}) {
        QTest::newRow(yes ? "car: yes" : "car: no")
            << Cars << yes
            << QStringList{"Fahrzeug löschen",
                           "Sind Sie sicher, dass Sie das Fahrzeug " + Trickster + " löschen möchten?", "&Ja",
                           "&Nein"};
        QTest::newRow(yes ? "driver: yes" : "driver: no")
            << Drivers << yes
            << QStringList{"Fahrer löschen",
                           "Sind Sie sicher, dass Sie den Fahrer " + Trickster + " löschen möchten?", "&Ja",
                           "&Nein"};
    }
}

void tst_lists::deletingAsks()
{
    QFETCH(List, list);
    QFETCH(bool, yes);
    QFETCH(QStringList, question);
    storeLists({Trickster});
    QStringList expected = storedNames(list);
    if (yes)
        expected.removeAll(Trickster);
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->answerIsYes = yes;
    const QStringList before = DatabaseFile().dump();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers&) {
            select(user, list, Trickster);
            user.press(list.deleteButton);
            QCOMPARE(names(user, list), expected);
            QCOMPARE(storedNames(list), expected);
        },
        "cancelButton");
    QCOMPARE(boxes->questions, QList<QStringList>{question});
    QCOMPARE(DatabaseFile().dump() == before, !yes);
    verifyEverywhere(m_program, list, expected);
}

void tst_lists::carsAreExported()
{
    StoredSetup().write();
    CCarList().addCar(zonda());
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->fileName = File;
    inSettings(*m_program, [](const DialogUser& user, ModalAnswers&) { user.bringUpAndPress("exportCars"); });
    QCOMPARE(boxes->questions, (QList<QStringList>{{"Fahrzeugliste exportieren nach ...", "carList.csv",
                                                    "CSV-Datei (*.csv)"}}));
    QCOMPARE(QString(contentOf(File)).split('\n'),
             QStringList({"Fahrzeug Name;Hersteller Original;Typ Original;Startnummer;Hersteller Model;"
                          "Klassifizierung;Massstab 1/X;Chassis;Kommentar;Tankgroesse;Reservelevel;"
                          "Max. Verbrauch;Min. Verbrauch;gefahrene Strecke (cm);Freifeld 0;Freifeld 1;"
                          "Freifeld 2;Freifeld 3;Freifeld 4;Freifeld 5;Freifeld 6;Freifeld 7;Freifeld 8;"
                          "Freifeld 9",
                          "Default;;;;;0;24;;;100;15;3;1.5;0;;;;;;;;;;",
                          "Zonda;Pagani;F;07;Ninco;3;32;Plafit;rot;60.5;9;7.25;2;4711;Wert 0;Wert 1;Wert 2;"
                          "Wert 3;Wert 4;Wert 5;Wert 6;Wert 7;Wert 8;Wert 9",
                          ""}));
}

void tst_lists::driversAreExported()
{
    storeLists({QStringLiteral("Zoë")});
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->fileName = File;
    inSettings(*m_program,
               [](const DialogUser& user, ModalAnswers&) { user.bringUpAndPress("exportDrivers"); });
    QCOMPARE(boxes->questions, (QList<QStringList>{{"Fahrerliste exportieren nach ...", "driverList.csv",
                                                    "CSV-Datei (*.csv)"}}));
    QCOMPARE(QString(contentOf(File)), QString("Fahrer Name; \nAnna; \nBen; \nDefault; \nZoë; \n"));
}

void tst_lists::carsAreImported()
{
    storeLists();
    QVERIFY(writeContent(File, "Name und so weiter\n"
                               "Zonda;Pagani;F;07;Ninco;3;32;Plafit;rot;60.5;99;7.25;2;4711;a;b;c;d;e;f;g;h;"
                               "i;j\n;;unbekannt\n"));
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->fileName = File;
    inSettings(
        *m_program, [](const DialogUser& user, ModalAnswers&) { user.bringUpAndPress("importCars"); },
        "cancelButton");
    QCOMPARE(boxes->questions,
             (QList<QStringList>{{"Datei mit Fahrzeugliste für Import wählen", "CSV-Datei (*.csv)"}}));
    QCOMPARE(DatabaseFile().rows("SELECT name, originalManufacturer, originalType, startNumber, "
                                 "modelManufacturer, class, scale, chassis, comment, tankSize, "
                                 "tankReserveLevel, maxConsumption, minConsumption, distanceDriven, "
                                 "freeField0, freeField9 FROM cars WHERE id > 2"),
             QStringList("Zonda|Pagani|F|07|Ninco|3|32|Plafit|rot|60.5|60.5|7.25|2|4711|a|j"));
    verifyEverywhere(m_program, Cars, {"Blitz", "Default", "Zonda"});
}

void tst_lists::driversAreImported()
{
    storeLists();
    QVERIFY(writeContent(File, "Name\nZoe;GT\n\nAnna\n"));
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->fileName = File;
    inSettings(
        *m_program, [](const DialogUser& user, ModalAnswers&) { user.bringUpAndPress("importDrivers"); },
        "cancelButton");
    QCOMPARE(boxes->questions,
             (QList<QStringList>{{"Datei mit Fahrerliste für Import wählen", "CSV-Datei (*.csv)"}}));
    verifyEverywhere(m_program, Drivers, {"Anna", "Anna", "Ben", "Default", "Zoe"});
}

void tst_lists::codesAreThoseOfTheList()
{
    QFETCH(List, list);
    storeLists({Trickster});
    QStringList tagged = storedNames(list);
    for (QString& name : tagged)
        name.prepend(list.tag);
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->fileName = Codes;
    inSettings(*m_program, [&](const DialogUser& user, ModalAnswers&) {
        user.bringUpAndPress(list.codesButton);
        QCOMPARE(PrintedPages(Codes).foreignReading(), tagged);
        select(user, list, Trickster);
        user.press(list.codeButton);
        QCOMPARE(PrintedPages(Codes).foreignReading(), QStringList(list.tag + Trickster));
    });
    const bool cars = list.tree == Cars.tree;
    const QString proposal = QString(Trickster).replace('/', '-') + ".pdf";
    QCOMPARE(
        boxes->questions,
        (QList<QStringList>{{cars ? "QR Code Liste für Fahrzeuge erstellen ..."
                                  : "QR Code Liste für alle Fahrer erstellen ...",
                             cars ? "QrCodeCarList.pdf" : "QrCodeDriverList.pdf", "PDF-Datei (*.pdf)"},
                            {cars ? "QR Code für Fahrzeug erstellen ..." : "QR Code für Fahrer erstellen ...",
                             proposal, "PDF-Datei (*.pdf)"}}));
}

void tst_lists::newRacewayIsThereAtOnce()
{
    const char overview[] = "SELECT currentRw, name, noOfTracks FROM raceways ORDER BY name";
    const QStringList expected{"|Keller|3", "x|Testbahn|2"};
    storeLists();
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            expectWizard(answers, "Keller", 3);
            user.press("newRaceway");
            QCOMPARE(user.rows("racewayTree"), expected);
            QCOMPARE(user.selectedRow("racewayTree"), 0);
            QCOMPARE(DatabaseFile().rows(overview), expected);
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
    inSettings(*m_program,
               [&](const DialogUser& user, ModalAnswers&) { QCOMPARE(user.rows("racewayTree"), expected); });
    QCOMPARE(DatabaseFile().rows(overview), expected);
}

void tst_lists::editedRacewayIsRacedOnAtOnce()
{
    storeLists();
    m_program = std::make_unique<RunningProgram>();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers& answers) {
            user.selectRow("racewayTree", 0);
            expectWizard(answers, "Dachboden", 4);
            user.press("editRaceway");
            QCOMPARE(user.rows("racewayTree"), QStringList("x|Dachboden|4"));
            QVERIFY(m_program->track(4)); // behind the open settings
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Dachboden"));
    QVERIFY(m_program->startRace());
    m_program->sensorAt(1000, PortId::lapSensor(3));
    m_program->sensorAt(60000, PortId::lapSensor(3));
    QCOMPARE(m_program->laps(4), QString("001"));
    m_program->stopRace();
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
    QVERIFY(m_program->track(4) && !m_program->track(5));
    QCOMPARE(m_program->infoText("racewayName"), QString("Dachboden"));
}

void tst_lists::deletingARacewayAsks_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void tst_lists::deletingARacewayAsks()
{
    QFETCH(bool, yes);
    storeLists();
    storeRaceway(Trickster, 3);
    const QStringList expected =
        yes ? QStringList("x|Testbahn|2") : QStringList{"x|Testbahn|2", '|' + Trickster + "|3"};
    m_program = std::make_unique<RunningProgram>();
    CScriptedQuestions* boxes = answerBoxes(*m_program);
    boxes->answerIsYes = yes;
    const QStringList before = DatabaseFile().dump();
    inSettings(
        *m_program,
        [&](const DialogUser& user, ModalAnswers&) {
            user.selectRow("racewayTree", 1);
            user.press("deleteRaceway");
            QCOMPARE(user.rows("racewayTree"), expected);
        },
        "cancelButton");
    QCOMPARE(boxes->questions, (QList<QStringList>{{"Rennstrecke löschen",
                                                    "Sind Sie sicher, dass Sie die Rennstrecke " + Trickster +
                                                        " löschen möchten?",
                                                    "&Ja", "&Nein"}}));
    QCOMPARE(DatabaseFile().dump() == before, !yes);
    QCOMPARE(DatabaseFile().rows("SELECT id FROM tracks WHERE racewayId = 2").size(), yes ? 0 : 3);
    inSettings(*m_program,
               [&](const DialogUser& user, ModalAnswers&) { QCOMPARE(user.rows("racewayTree"), expected); });
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
}

void tst_lists::deletedCurrentRacewayGivesItsPlaceToTheFirst()
{
    storeLists();
    storeRaceway("Aachen", 3);
    m_program = std::make_unique<RunningProgram>();
    answerBoxes(*m_program)->answerIsYes = true;
    inSettings(
        *m_program,
        [](const DialogUser& user, ModalAnswers&) {
            user.selectRow("racewayTree", 1); // "Testbahn"
            user.press("deleteRaceway");
            QCOMPARE(user.rows("racewayTree"), QStringList("x|Aachen|3"));
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Aachen"));
    QVERIFY(m_program->startRace());
    m_program->sensorAt(1000, PortId::lapSensor(2));
    m_program->sensorAt(2000, PortId::lapSensor(2));
    QCOMPARE(m_program->laps(3), QString("001"));
}

void tst_lists::usedRacewayIsThatOfTheNextRun()
{
    storeLists();
    storeRaceway("Aachen", 3);
    m_program = std::make_unique<RunningProgram>();
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
    inSettings(
        *m_program,
        [](const DialogUser& user, ModalAnswers&) {
            user.selectRow("racewayTree", 0);
            user.press("useRaceway");
            QCOMPARE(user.rows("racewayTree"), QStringList({"x|Aachen|3", "|Testbahn|2"}));
        },
        "cancelButton");
    QCOMPARE(m_program->infoText("racewayName"), QString("Aachen"));
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
    QCOMPARE(m_program->infoText("racewayName"), QString("Aachen"));
    QVERIFY(m_program->track(3) && !m_program->track(4));
}

void tst_lists::everyButtonOnAFileThatIsNoDatabase_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a text") << QByteArray("Name;Startnummer\n").repeated(100);
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("the right head before junk")
        << QByteArray("SQLite format 3\0", 16) + QByteArray("\xa5\x5a\x0f").repeated(3000);
}

/** The lists are empty then. */
void tst_lists::everyButtonOnAFileThatIsNoDatabase()
{
    QFETCH(QByteArray, content);
    QSettings("Tornik", "Tornik").clear();
    QVERIFY(writeContent("tornik.db", content));
    QVERIFY(writeContent(File, "Name\nAnna\n"));
    m_program = std::make_unique<RunningProgram>();
    pressEveryButton(*m_program, false);
    inSettings(*m_program, [](const DialogUser& user, ModalAnswers&) {
        for (const char* tree : {"racewayTree", "carTree", "driverTree"})
            QCOMPARE(user.rows(tree), QStringList());
    });
    QCOMPARE(contentOf("export.csv"), QByteArray("Fahrer Name; \n"));
    QCOMPARE(contentOf(File), QByteArray("Name\nAnna\n"));
    m_program->pressKey(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(m_program->race().isRaceActive());
    m_program->stopRace();
    m_program.reset();
    QCOMPARE(contentOf("tornik.db"), content);
}

/** Everything is shown, exported and printed, and nothing changes. */
void tst_lists::everyButtonOnAReadOnlyFile()
{
    storeLists();
    QVERIFY(writeContent(File, "Name\nZoe\n"));
    const QByteArray content = contentOf("tornik.db");
    QVERIFY(QFile::setPermissions("tornik.db", QFile::ReadOwner));
    m_program = std::make_unique<RunningProgram>();
    QVERIFY(QSqlQuery().exec("PRAGMA query_only = ON")); // an administrator writes to any file
    pressEveryButton(*m_program, true);
    for (const List& list : {Cars, Drivers})
        QCOMPARE(namesAtTheNextOpening(*m_program, list), storedNames(list));
    QCOMPARE(contentOf("export.csv"), QByteArray("Fahrer Name; \nAnna; \nBen; \nDefault; \n\n"));
    QCOMPARE(PrintedPages(Codes).foreignReading(), QStringList({"<drv>Anna", "<drv>Ben", "<drv>Default"}));
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
    QVERIFY(m_program->startRace());
    m_program->sensorAt(1000, PortId::lapSensor(0));
    m_program->sensorAt(2000, PortId::lapSensor(0));
    QCOMPARE(m_program->laps(1), QString("001"));
    m_program.reset();
    QCOMPARE(contentOf("tornik.db"), content);
}

QTEST_APPLESS_MAIN(tst_lists)
#include "tst_lists.moc"
