#include "end-to-end/ListsFixture.h"
#include "io/PortIds.h"
#include "qr/PrintedPages.h"
#include "race/CRace.h"

#include <QSqlQuery>

using namespace Lists;

namespace {

const char Export[] = "export.csv";

const char* const AllButtons[] = {
    "newRaceway", "editRaceway",  "deleteRaceway", "useRaceway",    "newCar",       "editCar",
    "deleteCar",  "importCars",   "exportCars",    "qrCodeCar",     "qrCodesCars",  "newDriver",
    "editDriver", "deleteDriver", "importDrivers", "exportDrivers", "qrCodeDriver", "qrCodesDrivers"};

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
            boxes->fileName = name.startsWith("qr") ? Codes : name.startsWith("export") ? Export : File;
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

/** What the lists of the running program read and write, and what they do without a file to write to. */
class tst_list_files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void carsAreExported();
    void driversAreExported();
    void carsAreImported();
    void driversAreImported();
    void codesAreThoseOfTheList_data();
    void codesAreThoseOfTheList();
    void everyButtonOnAFileThatIsNoDatabase_data();
    void everyButtonOnAFileThatIsNoDatabase();
    void everyButtonOnAReadOnlyFile();

private:
    std::unique_ptr<RunningProgram> m_program;
};

void tst_list_files::cleanup()
{
    m_program.reset();
    for (const char* file : {File, Codes, Export})
        QFile::remove(file);
}

void tst_list_files::carsAreExported()
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

void tst_list_files::driversAreExported()
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

void tst_list_files::carsAreImported()
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

void tst_list_files::driversAreImported()
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

void tst_list_files::codesAreThoseOfTheList_data()
{
    QTest::addColumn<List>("list");
    QTest::newRow("cars") << Cars;
    QTest::newRow("drivers") << Drivers;
}

void tst_list_files::codesAreThoseOfTheList()
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

void tst_list_files::everyButtonOnAFileThatIsNoDatabase_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a text") << QByteArray("Name;Startnummer\n").repeated(100);
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("the right head before junk")
        << QByteArray("SQLite format 3\0", 16) + QByteArray("\xa5\x5a\x0f").repeated(3000);
}

/** The lists are empty then. */
void tst_list_files::everyButtonOnAFileThatIsNoDatabase()
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
    QCOMPARE(contentOf(Export), QByteArray("Fahrer Name; \n"));
    QCOMPARE(contentOf(File), QByteArray("Name\nAnna\n"));
    m_program->pressKey(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(m_program->race().isRaceActive());
    m_program->stopRace();
    m_program.reset();
    QCOMPARE(contentOf("tornik.db"), content);
}

/** Everything is shown, exported and printed, and nothing changes. */
void tst_list_files::everyButtonOnAReadOnlyFile()
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
    QCOMPARE(contentOf(Export), QByteArray("Fahrer Name; \nAnna; \nBen; \nDefault; \n\n"));
    QCOMPARE(PrintedPages(Codes).foreignReading(), QStringList({"<drv>Anna", "<drv>Ben", "<drv>Default"}));
    QCOMPARE(m_program->infoText("racewayName"), QString("Testbahn"));
    QVERIFY(m_program->startRace());
    m_program->sensorAt(1000, PortId::lapSensor(0));
    m_program->sensorAt(2000, PortId::lapSensor(0));
    QCOMPARE(m_program->laps(1), QString("001"));
    m_program.reset();
    QCOMPARE(contentOf("tornik.db"), content);
}

QTEST_APPLESS_MAIN(tst_list_files)
#include "tst_list_files.moc"
