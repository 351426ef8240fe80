#include "dialogs/CarEditorFixture.h"

namespace {

/** Types behind what stands in a field. */
void append(const DialogUser& user, const char* field, const QString& text)
{
    auto* edit = user.control<QLineEdit>(field);
    edit->setFocus();
    edit->end(false);
    QTest::keyClicks(edit, text);
}

/** Takes all out of a field, by the keys. */
void erase(const DialogUser& user, const char* field)
{
    auto* edit = user.control<QLineEdit>(field);
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
}

QString name(const DialogUser& user)
{
    return user.value("carName").toString();
}

} // namespace

/** How the name of a car follows what it is made of. */
class tst_CCarEditorName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nameIsMadeOfManufacturerTypeAndStartNumber_data();
    void nameIsMadeOfManufacturerTypeAndStartNumber();
    void nameOfANewCarGrowsWithTheTyping();
    void nameShrinksWithItsSources();
    void typedNameIsLeftAloneUntilItIsCleared();
    void clearedNameIsMadeAnewWhenItsFieldIsLeft();
    void automaticNameIsStored();
    void longNameIsCutToItsField();
    void editedCarWithoutANameGetsOne();
    void editedCarKeepsItsNameInAFreshEditor();
    void editAfterANewCarCanRewriteTheName();
    void editAfterATypedNameLeavesTheNameAlone();
};

void tst_CCarEditorName::init()
{
    QSettings("Tornik", "Tornik").clear();
}

void tst_CCarEditorName::nameIsMadeOfManufacturerTypeAndStartNumber_data()
{
    QTest::addColumn<QString>("manufacturer");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("name");
    QTest::newRow("all three") << "Porsche"
                               << "917k"
                               << "23"
                               << "Porsche 917k #23";
    QTest::newRow("manufacturer") << "Porsche"
                                  << ""
                                  << ""
                                  << "Porsche";
    QTest::newRow("type") << ""
                          << "917k"
                          << ""
                          << "917k";
    QTest::newRow("start number 7 alone") << ""
                                          << ""
                                          << "7"
                                          << "#7";
    QTest::newRow("manufacturer and type") << "Porsche"
                                           << "917k"
                                           << ""
                                           << "Porsche 917k";
    QTest::newRow("manufacturer and number") << "Porsche"
                                             << ""
                                             << "23"
                                             << "Porsche #23";
    QTest::newRow("type and number") << ""
                                     << "917k"
                                     << "23"
                                     << "917k #23";
    QTest::newRow("nothing") << ""
                             << ""
                             << ""
                             << "";
    QTest::newRow("number 0") << ""
                              << ""
                              << "0"
                              << "#0";
    QTest::newRow("blanks") << "Aston Martin"
                            << "DB 5"
                            << "007"
                            << "Aston Martin DB 5 #007";
}

void tst_CCarEditorName::nameIsMadeOfManufacturerTypeAndStartNumber()
{
    QFETCH(QString, manufacturer);
    QFETCH(QString, type);
    QFETCH(QString, number);
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [&](const DialogUser& user) {
        append(user, "startNumber", number); // in any order
        append(user, "originalType", type);
        append(user, "originalManufacturer", manufacturer);
        QTEST(name(user), "name");
    });
}

void tst_CCarEditorName::nameOfANewCarGrowsWithTheTyping()
{
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [](const DialogUser& user) {
        QCOMPARE(name(user), QString());
        append(user, "originalManufacturer", "Por");
        QCOMPARE(name(user), QString("Por"));
        append(user, "originalManufacturer", "sche");
        QCOMPARE(name(user), QString("Porsche"));
        append(user, "originalType", "917k");
        QCOMPARE(name(user), QString("Porsche 917k"));
        append(user, "startNumber", "23");
        QCOMPARE(name(user), QString("Porsche 917k #23"));
    });
}

void tst_CCarEditorName::nameShrinksWithItsSources()
{
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [](const DialogUser& user) {
        append(user, "originalManufacturer", "Porsche");
        append(user, "startNumber", "23");
        erase(user, "originalManufacturer");
        QCOMPARE(name(user), QString("#23"));
        erase(user, "startNumber");
        QCOMPARE(name(user), QString());
    });
}

void tst_CCarEditorName::typedNameIsLeftAloneUntilItIsCleared()
{
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [](const DialogUser& user) {
        append(user, "originalManufacturer", "Porsche");
        append(user, "carName", "!");
        QCOMPARE(name(user), QString("Porsche!"));
        append(user, "originalManufacturer", "s");
        append(user, "originalType", "917k");
        append(user, "startNumber", "23");
        QTest::keyClick(user.control("startNumber"), Qt::Key_Tab);
        QCOMPARE(name(user), QString("Porsche!"));

        erase(user, "carName");
        QCOMPARE(name(user), QString());
        append(user, "originalType", "/20");
        QCOMPARE(name(user), QString("Porsches 917k/20 #23"));
    });
}

void tst_CCarEditorName::clearedNameIsMadeAnewWhenItsFieldIsLeft()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const DialogUser& user) {
        erase(user, "carName");
        QTest::keyClick(user.control("carName"), Qt::Key_Tab);
        QCOMPARE(name(user), QString("Porsche 917k #23"));
    });
    QCOMPARE(car.name(), QString("Porsche 917k #23"));
}

void tst_CCarEditorName::automaticNameIsStored()
{
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [](const DialogUser& user) { append(user, "originalType", "917k"); });
    QCOMPARE(car.name(), QString("917k"));
    QCOMPARE(car.originalType(), QString("917k"));
}

void tst_CCarEditorName::longNameIsCutToItsField()
{
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [](const DialogUser& user) {
        append(user, "originalManufacturer", QString(119, 'm'));
        append(user, "originalType", QString(119, 't'));
    });
    QCOMPARE(car.name(), QString(119, 'm') + ' ');
}

void tst_CCarEditorName::editedCarWithoutANameGetsOne()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    car.setName(QString());
    open(editor, EditCar, car, [](const DialogUser& user) {
        QCOMPARE(name(user), QString()); // not before the first edit
        append(user, "startNumber", "4");
        QCOMPARE(name(user), QString("Porsche 917k #234"));
    });
}

void tst_CCarEditorName::editedCarKeepsItsNameInAFreshEditor()
{
    CCarEditorDlg editor;
    CCar car = porsche();
    open(editor, EditCar, car, [](const DialogUser& user) {
        append(user, "originalManufacturer", "!");
        append(user, "originalType", "!");
        append(user, "startNumber", "4");
        QTest::keyClick(user.control("carName"), Qt::Key_Tab);
    });
    QCOMPARE(car.name(), porsche().name());
}

/** The one editor serves all edits, and only a name that is typed turns the rule off. */
void tst_CCarEditorName::editAfterANewCarCanRewriteTheName()
{
    CCarEditorDlg editor;
    CCar car;
    open(
        editor, NewCar, car, [](const DialogUser&) {}, "cancelButton");
    CCar edited = porsche();
    open(editor, EditCar, edited, [](const DialogUser& user) {
        QCOMPARE(name(user), porsche().name());
        append(user, "originalManufacturer", "!");
        QCOMPARE(name(user), QString("Porsche! 917k #23"));
    });
    QCOMPARE(edited.name(), QString("Porsche! 917k #23"));
}

void tst_CCarEditorName::editAfterATypedNameLeavesTheNameAlone()
{
    CCarEditorDlg editor;
    CCar car;
    open(editor, NewCar, car, [](const DialogUser& user) { append(user, "carName", "Rot"); });
    CCar edited = porsche();
    open(editor, EditCar, edited, [](const DialogUser& user) { append(user, "originalManufacturer", "!"); });
    QCOMPARE(edited.name(), porsche().name());
}

QTEST_MAIN(tst_CCarEditorName)
#include "tst_CCarEditorName.moc"
