#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "dialogs/SettingsFixture.h"
#include "support/ListTabs.h"

#include <QLabel>

namespace {

using ListTabs::Cars;
using ListTabs::Drivers;

void addTabs()
{
    QTest::addColumn<ListTab>("tab");
    QTest::newRow("cars") << Cars;
    QTest::newRow("drivers") << Drivers;
}

QStringList names(const DialogUser& user, const ListTab& tab)
{
    QStringList result;
    for (const QString& row : user.rows(tab.tree))
        result.append(row.section('|', 0, 0));
    return result;
}

/** Lets the next window be an editor, into which the user types a name. */
void expectEditor(SettingsFixture& fixture, const ListTab& tab, const QString& shown, const QString& typed,
                  const char* button = "okButton")
{
    fixture.answers->expect([tab, shown, typed, button](QDialog* window) {
        const DialogUser editor(window);
        QCOMPARE(editor.value(tab.nameField).toString(), shown);
        editor.enter(tab.nameField, typed);
        editor.press(button);
    });
}

void addCar(const QString& name, int distance = 0)
{
    CCar car;
    car.setName(name);
    car.setDistanceDriven(distance);
    CCarList().addCar(car);
}

void addDriver(const QString& name)
{
    CDriver driver;
    driver.setName(name);
    CDriverList().addDriver(driver);
}

void addToBoth(const QString& name)
{
    addCar(name);
    addDriver(name);
}

QStringList textsOfButtons(const QWidget* tab)
{
    QStringList texts;
    for (const auto* button : tab->findChildren<QPushButton*>())
        texts.append(button->text());
    return texts;
}

QStringList headers(const DialogUser& user, const char* tree)
{
    const QAbstractItemModel* model = user.control<QTreeView>(tree)->model();
    QStringList texts;
    for (int column = 0; column < model->columnCount(); ++column)
        texts.append(model->headerData(column, Qt::Horizontal).toString());
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(ListTab)

/** The lists of cars and drivers in the settings, opened from the menu of the main dialog. */
class tst_CKelmoSettingsLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tabsHaveTheirTexts();
    void listsShowTheirColumns();
    void newOneIsThereAtOnceAndStaysWhereTheSettingsAreCancelled_data();
    void newOneIsThereAtOnceAndStaysWhereTheSettingsAreCancelled();
    void newOneIsSelectedAmongItsNamesakes_data();
    void newOneIsSelectedAmongItsNamesakes();
    void cancelledEditorAddsNothing_data();
    void cancelledEditorAddsNothing();
    void editedOneTakesItsRowAndStaysSelected_data();
    void editedOneTakesItsRowAndStaysSelected();
    void cancelledEditorChangesNothing_data();
    void cancelledEditorChangesNothing();
    void doubleClickEdits_data();
    void doubleClickEdits();
    void newCarBeginsWithTheTankOfADefaultCar();
    void editedCarKeepsWhatItsEditorDoesNotShow();
    void deletingAsks_data();
    void deletingAsks();
    void deletingTheLastCarLeavesABlankOne();
    void deletingTheLastDriverLeavesNoneUntilTheNextOpening();
    void nothingHappensWithoutASelectedRow_data();
    void nothingHappensWithoutASelectedRow();
    void fileBoxesHaveTheirTexts_data();
    void fileBoxesHaveTheirTexts();
    void cancelledFileBoxDoesNothing_data();
    void cancelledFileBoxDoesNothing();
    void exportedListCanBeImported_data();
    void exportedListCanBeImported();
    void badFilesLoseNothing_data();
    void badFilesLoseNothing();
    void fileWithAByteOrderMarkIsRead_data();
    void fileWithAByteOrderMarkIsRead();
    void hundredThousandLinesAreImported_data();
    void hundredThousandLinesAreImported();
    void exportToAPathThatCanNotBeWrittenLeavesEverything_data();
    void exportToAPathThatCanNotBeWrittenLeavesEverything();
    void codesArePrinted_data();
    void codesArePrinted();
    void nameOfAFileIsProposedWithoutAFolder_data();
    void nameOfAFileIsProposedWithoutAFolder();
    void thousandAreAllInTheList_data();
    void thousandAreAllInTheList();
    void panelsOfferWhatTheListsHold_data();
    void panelsOfferWhatTheListsHold();
    void choiceOfThePanelsSurvivesWhateverEndsTheSettings_data();
    void choiceOfThePanelsSurvivesWhateverEndsTheSettings();
    void panelsStayAsTheyAreWhileTheListsChange();
};

void tst_CKelmoSettingsLists::init()
{
    SettingsFixture::startAnew();
    for (const char* file : {"list.csv", "codes.pdf"})
        QFile::remove(file);
}

void tst_CKelmoSettingsLists::tabsHaveTheirTexts()
{
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        const auto* tabs = user.control<QTabWidget>("tabs");
        const QStringList buttons{"&Neu",         "&Bearbeiten", "&Löschen",      "&Importieren",
                                  "&Exportieren", "QR &Code",    "&QR Code Liste"};
        QCOMPARE(tabs->tabText(1), QString("Fahrzeuge"));
        QCOMPARE(tabs->widget(1)->findChild<QLabel*>()->text(), QString("Vorhandene Fahrzeuge:"));
        QCOMPARE(textsOfButtons(tabs->widget(1)), buttons);
        QCOMPARE(tabs->tabText(2), QString("Fahrer"));
        QCOMPARE(tabs->widget(2)->findChild<QLabel*>()->text(), QString("Vorhandene Fahrer:"));
        QCOMPARE(textsOfButtons(tabs->widget(2)), buttons);
    });
}

void tst_CKelmoSettingsLists::listsShowTheirColumns()
{
    addCar("Zonda", 1234);
    addDriver("Anna");
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        QCOMPARE(user.rows("carTree"), QStringList({"Default|24|0", "Zonda|24|1234"}));
        QCOMPARE(headers(user, "carTree"), QStringList({"Name", "Maßstab (1/X)", "gefahrene Strecke (cm)"}));
        QCOMPARE(user.rows("driverTree"), QStringList({"Anna", "Default"}));
        QCOMPARE(headers(user, "driverTree"), QStringList("Name"));
        QCOMPARE(user.selectedRow("carTree"), -1);
        QCOMPARE(user.selectedRow("driverTree"), -1);
    });
}

void tst_CKelmoSettingsLists::newOneIsThereAtOnceAndStaysWhereTheSettingsAreCancelled_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::newOneIsThereAtOnceAndStaysWhereTheSettingsAreCancelled()
{
    QFETCH(ListTab, tab);
    SettingsFixture fixture;
    fixture.openAndCancel([&](const DialogUser& user) {
        expectEditor(fixture, tab, QString(), "Zoe; die \"Schnelle\" O'Hara");
        user.bringUpAndPress(tab.newButton);
        QCOMPARE(names(user, tab), QStringList({"Default", "Zoe; die \"Schnelle\" O'Hara"}));
        QCOMPARE(user.selectedRow(tab.tree), 1);
    });
    fixture.open([&](const DialogUser& user) { QCOMPARE(names(user, tab).size(), 2); });
}

void tst_CKelmoSettingsLists::newOneIsSelectedAmongItsNamesakes_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::newOneIsSelectedAmongItsNamesakes()
{
    QFETCH(ListTab, tab);
    addToBoth("Anna");
    addToBoth("Anna");
    addToBoth("Zoë");
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.open([&](const DialogUser& user) {
        expectEditor(fixture, tab, QString(), "Anna");
        user.bringUpAndPress(tab.newButton);
        user.press(tab.deleteButton);
        QCOMPARE(names(user, tab), QStringList({"Anna", "Anna", "Default", "Zoë"}));
    });
    // Of the namesakes the new one has gone.
    const QString table = tab.tree == Cars.tree ? "cars" : "driver";
    QCOMPARE(DatabaseFile().rows("SELECT id FROM " + table + " ORDER BY id"),
             QStringList({"1", "2", "3", "4"}));
}

void tst_CKelmoSettingsLists::cancelledEditorAddsNothing_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::cancelledEditorAddsNothing()
{
    QFETCH(ListTab, tab);
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        expectEditor(fixture, tab, QString(), "Anna", "cancelButton");
        user.bringUpAndPress(tab.newButton);
        QCOMPARE(names(user, tab), QStringList("Default"));
    });
}

void tst_CKelmoSettingsLists::editedOneTakesItsRowAndStaysSelected_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::editedOneTakesItsRowAndStaysSelected()
{
    QFETCH(ListTab, tab);
    addToBoth("Zoë");
    SettingsFixture fixture;
    fixture.openAndCancel([&](const DialogUser& user) {
        user.selectRow(tab.tree, 1);
        expectEditor(fixture, tab, "Zoë", "Anna");
        user.press(tab.editButton);
        QCOMPARE(names(user, tab), QStringList({"Anna", "Default"}));
        QCOMPARE(user.selectedRow(tab.tree), 0);
    });
    const QString table = tab.tree == Cars.tree ? "cars" : "driver";
    QCOMPARE(DatabaseFile().rows("SELECT id, name FROM " + table + " ORDER BY id"),
             QStringList({"1|Default", "2|Anna"}));
}

void tst_CKelmoSettingsLists::cancelledEditorChangesNothing_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::cancelledEditorChangesNothing()
{
    QFETCH(ListTab, tab);
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        user.selectRow(tab.tree, 0);
        expectEditor(fixture, tab, "Default", "Anna", "cancelButton");
        user.press(tab.editButton);
        QCOMPARE(names(user, tab), QStringList("Default"));
        QCOMPARE(user.selectedRow(tab.tree), 0);
    });
}

void tst_CKelmoSettingsLists::doubleClickEdits_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::doubleClickEdits()
{
    QFETCH(ListTab, tab);
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        user.selectRow(tab.tree, 0);
        expectEditor(fixture, tab, "Default", "Anna");
        auto* view = user.control<QTreeView>(tab.tree);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                           view->visualRect(view->model()->index(0, 0)).center());
        QCOMPARE(names(user, tab), QStringList("Anna"));
    });
}

void tst_CKelmoSettingsLists::newCarBeginsWithTheTankOfADefaultCar()
{
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        fixture.answers->expect([](QDialog* window) {
            const DialogUser editor(window);
            QCOMPARE(editor.value("tankSize").toDouble(), 100.0);
            QCOMPARE(editor.value("reserveLevel").toDouble(), 15.0);
            QCOMPARE(editor.value("minUsage").toDouble(), 1.0);
            QCOMPARE(editor.value("maxUsage").toDouble(), 5.0);
            editor.enter("originalManufacturer", "Porsche");
            editor.enter("originalType", "917k");
            editor.enter("startNumber", "23");
            editor.press("okButton");
        });
        user.bringUpAndPress("newCar");
        QCOMPARE(user.rows("carTree"), QStringList({"Default|24|0", "Porsche 917k #23|24|0"}));
    });
}

void tst_CKelmoSettingsLists::editedCarKeepsWhatItsEditorDoesNotShow()
{
    CCar car;
    car.setName("Blitz");
    car.setDistanceDriven(4711);
    car.setFreeField(9, "verborgen");
    CCarList().addCar(car);
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        user.selectRow("carTree", 0);
        expectEditor(fixture, Cars, "Blitz", "Donner");
        user.press("editCar");
    });
    QCOMPARE(DatabaseFile().rows("SELECT name, distanceDriven, freeField9 FROM cars WHERE id = 2"),
             QStringList("Donner|4711|verborgen"));
}

void tst_CKelmoSettingsLists::deletingAsks_data()
{
    QTest::addColumn<ListTab>("tab");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QStringList>("question");
    const QStringList cars{"Fahrzeug löschen", "Sind Sie sicher, dass Sie das Fahrzeug Anna löschen möchten?",
                           "&Ja", "&Nein"};
    const QStringList drivers{"Fahrer löschen", "Sind Sie sicher, dass Sie den Fahrer Anna löschen möchten?",
                              "&Ja", "&Nein"};
    for (const bool yes : {true, false}) {
        QTest::newRow(yes ? "car: yes" : "car: no") << Cars << yes << cars;
        QTest::newRow(yes ? "driver: yes" : "driver: no") << Drivers << yes << drivers;
    }
}

void tst_CKelmoSettingsLists::deletingAsks()
{
    QFETCH(ListTab, tab);
    QFETCH(bool, yes);
    QFETCH(QStringList, question);
    addToBoth("Anna");
    SettingsFixture fixture;
    fixture.user->answerIsYes = yes;
    fixture.openAndCancel([&](const DialogUser& user) {
        user.selectRow(tab.tree, 0);
        user.press(tab.deleteButton);
        QCOMPARE(names(user, tab), yes ? QStringList("Default") : QStringList({"Anna", "Default"}));
    });
    QCOMPARE(fixture.user->questions, QList<QStringList>{question});
    fixture.open([&](const DialogUser& user) { QCOMPARE(names(user, tab).size(), yes ? 1 : 2); });
}

void tst_CKelmoSettingsLists::deletingTheLastCarLeavesABlankOne()
{
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.open([](const DialogUser& user) {
        user.selectRow("carTree", 0);
        user.press("deleteCar");
        QCOMPARE(user.rows("carTree"), QStringList("|24|0"));
    });
    QCOMPARE(fixture.main.carBox(1)->count(), 1);
}

void tst_CKelmoSettingsLists::deletingTheLastDriverLeavesNoneUntilTheNextOpening()
{
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.openAndCancel([](const DialogUser& user) {
        user.selectRow("driverTree", 0);
        user.press("deleteDriver");
        QCOMPARE(user.rows("driverTree"), QStringList());
        user.press("editDriver"); // there is none
    });
    QCOMPARE(fixture.main.driverBox(1)->count(), 0);
    fixture.main.dialog.quickRaceTrigger(); // without a driver
    fixture.open([](const DialogUser& user) { QCOMPARE(user.rows("driverTree"), QStringList("Default")); });
    QCOMPARE(fixture.main.driverBox(1)->currentText(), QString("Default"));
}

void tst_CKelmoSettingsLists::nothingHappensWithoutASelectedRow_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::nothingHappensWithoutASelectedRow()
{
    QFETCH(ListTab, tab);
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.user->fileName = "codes.pdf";
    fixture.open([&](const DialogUser& user) {
        for (const char* button : {tab.editButton, tab.deleteButton, tab.codeButton})
            user.bringUpAndPress(button);
        QCOMPARE(names(user, tab), QStringList("Default"));
    });
    QCOMPARE(fixture.user->questions.size(), 0);
    QVERIFY(!QFile::exists("codes.pdf"));
}

void tst_CKelmoSettingsLists::fileBoxesHaveTheirTexts_data()
{
    QTest::addColumn<ListTab>("tab");
    QTest::addColumn<QList<QStringList>>("questions");
    QTest::newRow("cars") << Cars
                          << QList<QStringList>{
                                 {"Datei mit Fahrzeugliste für Import wählen", "CSV-Datei (*.csv)"},
                                 {"Fahrzeugliste exportieren nach ...", "carList.csv", "CSV-Datei (*.csv)"},
                                 {"QR Code für Fahrzeug erstellen ...", "Anna.pdf", "PDF-Datei (*.pdf)"},
                                 {"QR Code Liste für Fahrzeuge erstellen ...", "QrCodeCarList.pdf",
                                  "PDF-Datei (*.pdf)"}};
    QTest::newRow("drivers")
        << Drivers
        << QList<QStringList>{
               {"Datei mit Fahrerliste für Import wählen", "CSV-Datei (*.csv)"},
               {"Fahrerliste exportieren nach ...", "driverList.csv", "CSV-Datei (*.csv)"},
               {"QR Code für Fahrer erstellen ...", "Anna.pdf", "PDF-Datei (*.pdf)"},
               {"QR Code Liste für alle Fahrer erstellen ...", "QrCodeDriverList.pdf", "PDF-Datei (*.pdf)"}};
}

void tst_CKelmoSettingsLists::fileBoxesHaveTheirTexts()
{
    QFETCH(ListTab, tab);
    QFETCH(QList<QStringList>, questions);
    addToBoth("Anna");
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        user.selectRow(tab.tree, 0);
        for (const char* button : {tab.importButton, tab.exportButton, tab.codeButton, tab.codesButton})
            user.press(button);
        QCOMPARE(user.selectedRow(tab.tree), 0); // all were cancelled
    });
    QCOMPARE(fixture.user->questions, questions);
}

void tst_CKelmoSettingsLists::cancelledFileBoxDoesNothing_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::cancelledFileBoxDoesNothing()
{
    QFETCH(ListTab, tab);
    SettingsFixture fixture;
    const QStringList filesBefore = QDir().entryList(QDir::Files);
    fixture.open([&](const DialogUser& user) {
        user.selectRow(tab.tree, 0);
        for (const char* button : {tab.importButton, tab.exportButton, tab.codeButton, tab.codesButton})
            user.press(button);
        QCOMPARE(names(user, tab), QStringList("Default"));
    });
    QCOMPARE(QDir().entryList(QDir::Files), filesBefore);
}

void tst_CKelmoSettingsLists::exportedListCanBeImported_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::exportedListCanBeImported()
{
    QFETCH(ListTab, tab);
    addToBoth("Zoë Müller");
    SettingsFixture fixture;
    fixture.user->fileName = "list.csv";
    fixture.openAndCancel([&](const DialogUser& user) {
        user.bringUpAndPress(tab.exportButton);
        QVERIFY(contentOf("list.csv").contains("\nZoë Müller"));
        QCOMPARE(names(user, tab).size(), 2);
        user.press(tab.importButton);
        QCOMPARE(names(user, tab), QStringList({"Default", "Default", "Zoë Müller", "Zoë Müller"}));
    });
}

void tst_CKelmoSettingsLists::badFilesLoseNothing_data()
{
    QTest::addColumn<ListTab>("tab");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("added");
    const auto row = [](const char* name, const QByteArray& content, const QStringList& cars,
                        const QStringList& drivers) {
        QTest::newRow(qPrintable(QString("cars: ") + name)) << Cars << content << cars;
        QTest::newRow(qPrintable(QString("drivers: ") + name)) << Drivers << content << drivers;
    };
    row("empty", "", {}, {});
    row("header alone", "Name\n", {}, {});
    row("missing columns", "Name\nAnna\nBen;GT\n\n;\n", {"Anna", "Ben"}, {"Anna", "Ben"});
    row("quotes", "Name\n\"Anna\";\"a;b\"\n'Ben'\n\"\n", {"\"", "\"Anna\"", "'Ben'"},
        {"\"", "\"Anna\"", "'Ben'"});
    row("carriage returns", "Name\r\nAnna;GT\r\nBen\r\n", {"Anna", "Ben"}, {"Anna", "Ben"});
    row("no line end", "Name\nAnna", {"Anna"}, {"Anna"});
    row("without a name", "Name\n;;;;\n", {}, {});
    row("more columns than any form", "Name\nAnna" + QByteArray(100000, ';') + "\nBen\n", {"Anna", "Ben"},
        {"Anna", "Ben"});
    row("no text", QByteArray("Name\n\xff\xfe\x01;\x80\n", 11), {QStringLiteral("\ufffd\ufffd\u0001")},
        {QStringLiteral("\ufffd\ufffd\u0001")});
}

void tst_CKelmoSettingsLists::badFilesLoseNothing()
{
    QFETCH(ListTab, tab);
    QFETCH(QByteArray, content);
    QFETCH(QStringList, added);
    QVERIFY(writeContent("list.csv", content));
    SettingsFixture fixture;
    fixture.user->fileName = "list.csv";
    fixture.open([&](const DialogUser& user) {
        user.bringUpAndPress(tab.importButton);
        QStringList expected = added + QStringList("Default");
        expected.sort();
        QCOMPARE(names(user, tab), expected);
        for (const char* noFile : {"there-is-none.csv", ".", "/dev/zero"}) {
            fixture.user->fileName = noFile;
            user.press(tab.importButton);
            QCOMPARE(names(user, tab), expected);
        }
    });
}

void tst_CKelmoSettingsLists::fileWithAByteOrderMarkIsRead_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::fileWithAByteOrderMarkIsRead()
{
    QFETCH(ListTab, tab);
    // The old form of the cars is known by its header, which follows the mark.
    QVERIFY(writeContent("list.csv", "\xef\xbb\xbf"
                                     "Fahrzeug Name;Fahrzeug Typ;Klassifizierung;Massstab "
                                     "1/X;Chassis;Kommentar;Tankgroesse;Reservelevel;Max. Verbrauch;Min. "
                                     "Verbrauch\nZoë;GT;3;32;;;;;;\n"));
    SettingsFixture fixture;
    fixture.user->fileName = "list.csv";
    fixture.open([&](const DialogUser& user) {
        user.bringUpAndPress(tab.importButton);
        QCOMPARE(user.rows(tab.tree).last(), QString(tab.tree == Cars.tree ? "Zoë|32|0" : "Zoë"));
    });
}

void tst_CKelmoSettingsLists::hundredThousandLinesAreImported_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::hundredThousandLinesAreImported()
{
    QFETCH(ListTab, tab);
    QByteArray content("Name\n");
    for (int line = 0; line < 100000; ++line)
        content += "Nr. " + QByteArray::number(line) + ";GT\n";
    QVERIFY(writeContent("list.csv", content));
    SettingsFixture fixture;
    fixture.user->fileName = "list.csv";
    fixture.openAndCancel([&](const DialogUser& user) {
        user.bringUpAndPress(tab.importButton);
        const auto* model = user.control<QTreeView>(tab.tree)->model();
        QCOMPARE(model->rowCount(), 100001);
        QVERIFY(!QApplication::overrideCursor());
        user.selectRow(tab.tree, 100000);
        QCOMPARE(user.selectedRow(tab.tree), 100000);
    });
}

void tst_CKelmoSettingsLists::exportToAPathThatCanNotBeWrittenLeavesEverything_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::exportToAPathThatCanNotBeWrittenLeavesEverything()
{
    QFETCH(ListTab, tab);
    addToBoth("Anna");
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        user.selectRow(tab.tree, 0);
        for (const char* path : {"/no/such/folder/file", "/dev/full", "."}) {
            fixture.user->fileName = path;
            for (const char* button : {tab.exportButton, tab.codeButton, tab.codesButton})
                user.press(button);
        }
        QCOMPARE(names(user, tab), QStringList({"Anna", "Default"}));
    });
}

void tst_CKelmoSettingsLists::codesArePrinted_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::codesArePrinted()
{
    QFETCH(ListTab, tab);
    for (int number = 0; number < 40; ++number)
        addToBoth(QStringLiteral("Nr. %1").arg(number));
    SettingsFixture fixture;
    fixture.user->fileName = "codes.pdf";
    fixture.open([&](const DialogUser& user) {
        user.selectRow(tab.tree, 1);
        user.press(tab.codeButton);
        const QByteArray one = contentOf("codes.pdf");
        QVERIFY(one.startsWith("%PDF"));
        QFile::remove("codes.pdf");
        user.press(tab.codesButton);
        const QByteArray all = contentOf("codes.pdf");
        QVERIFY(all.startsWith("%PDF"));
        QVERIFY(all.count("/Type /Page\n") > one.count("/Type /Page\n"));
    });
}

void tst_CKelmoSettingsLists::nameOfAFileIsProposedWithoutAFolder_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::nameOfAFileIsProposedWithoutAFolder()
{
    QFETCH(ListTab, tab);
    addToBoth("A/B\\C");
    SettingsFixture fixture;
    fixture.open([&](const DialogUser& user) {
        user.selectRow(tab.tree, 0);
        user.press(tab.codeButton);
    });
    QCOMPARE(fixture.user->questions.value(0).value(1), QString("A-B-C.pdf"));
}

void tst_CKelmoSettingsLists::thousandAreAllInTheList_data()
{
    addTabs();
}

void tst_CKelmoSettingsLists::thousandAreAllInTheList()
{
    QFETCH(ListTab, tab);
    {
        const CCarList cars; // each list has its default one, then
        const CDriverList drivers;
    }
    const QString table = tab.tree == Cars.tree ? "cars" : "driver";
    DatabaseFile().exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
                        "INSERT INTO " +
                        table + "(name) SELECT 'Nr. ' || (10000 + i) FROM n");
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.open([&](const DialogUser& user) {
        QCOMPARE(names(user, tab).size(), 1001);
        user.selectRow(tab.tree, 1000);
        expectEditor(fixture, tab, "Nr. 11000", "Zuletzt");
        user.press(tab.editButton);
        QCOMPARE(names(user, tab).last(), QString("Zuletzt"));
        QCOMPARE(user.selectedRow(tab.tree), 1000);
        user.press(tab.deleteButton);
        QCOMPARE(names(user, tab).last(), QString("Nr. 10999"));
    });
}

void tst_CKelmoSettingsLists::panelsOfferWhatTheListsHold_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("ok") << "okButton";
    QTest::newRow("cancel") << "cancelButton";
}

void tst_CKelmoSettingsLists::panelsOfferWhatTheListsHold()
{
    QFETCH(QString, button);
    SettingsFixture fixture;
    fixture.open(
        [&](const DialogUser& user) {
            expectEditor(fixture, Cars, QString(), "Zonda");
            user.bringUpAndPress("newCar");
            expectEditor(fixture, Drivers, QString(), "Zoe");
            user.bringUpAndPress("newDriver");
        },
        qPrintable(button));
    QCOMPARE(fixture.main.carBox(2)->findText("Zonda"), 1);
    QCOMPARE(fixture.main.driverBox(2)->findText("Zoe"), 1);
}

void tst_CKelmoSettingsLists::choiceOfThePanelsSurvivesWhateverEndsTheSettings_data()
{
    panelsOfferWhatTheListsHold_data();
}

void tst_CKelmoSettingsLists::choiceOfThePanelsSurvivesWhateverEndsTheSettings()
{
    QFETCH(QString, button);
    addToBoth("Ben");
    addToBoth("Carla");
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.main.carBox(1)->setCurrentText("Ben");
    fixture.main.driverBox(1)->setCurrentText("Carla");
    fixture.main.driverBox(2)->setCurrentText("Ben");
    fixture.open(
        [&](const DialogUser& user) {
            for (const ListTab& tab : {Cars, Drivers}) { // every other row moves
                expectEditor(fixture, tab, QString(), "Anna");
                user.bringUpAndPress(tab.newButton);
            }
            user.selectRow("driverTree", 1);
            user.press("deleteDriver"); // Ben
        },
        qPrintable(button));
    QCOMPARE(fixture.main.carBox(1)->currentText(), QString("Ben"));
    QCOMPARE(fixture.main.driverBox(1)->currentText(), QString("Carla"));
    QCOMPARE(fixture.main.driverBox(2)->currentText(), QString("Anna")); // in place of the one who is gone
}

void tst_CKelmoSettingsLists::panelsStayAsTheyAreWhileTheListsChange()
{
    addToBoth("Ben");
    SettingsFixture fixture;
    fixture.main.driverBox(1)->setCurrentText("Default");
    fixture.main.carBox(1)->setCurrentText("Default");
    fixture.openAndCancel([&](const DialogUser& user) {
        QCOMPARE(fixture.main.driverBox(1)->currentText(), QString("Default"));
        QCOMPARE(fixture.main.carBox(1)->currentText(), QString("Default"));
        user.selectRow("racewayTree", 0);
        user.press("useRaceway"); // the panels are made anew over the open dialog
        QCOMPARE(fixture.main.driverBox(1)->currentText(), QString("Default"));
        QCOMPARE(user.rows("carTree"), QStringList({"Ben|24|0", "Default|24|0"}));
    });
}

QTEST_MAIN(tst_CKelmoSettingsLists)
#include "tst_CKelmoSettingsLists.moc"
