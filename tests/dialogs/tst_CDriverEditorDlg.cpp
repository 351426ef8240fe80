#include "data/CDriver.h"
#include "dialogs/CDriverEditorDlg.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"

#include <QLabel>
#include <QSignalSpy>

namespace {

using Work = std::function<void(const DialogUser&)>;
using Edit = int (CDriverEditorDlg::*)(CDriver*);

const Edit BothEdits[] = {&CDriverEditorDlg::newDriver, &CDriverEditorDlg::editDriver};

/** Opens the editor and lets the user work; a press of @p button ends it. */
int open(CDriverEditorDlg& editor, Edit edit, CDriver& driver, const Work& work,
         const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([work, button](QDialog* window) {
        const DialogUser user(window);
        work(user);
        user.press(button);
    });
    return (editor.*edit)(&driver);
}

CDriver anna()
{
    CDriver driver;
    driver.setName("Anna");
    driver.setId(7);
    return driver;
}

} // namespace

class tst_CDriverEditorDlg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsTexts();
    void theNameTakesAtMost120Characters();
    void newDriverBeginsWithAnEmptyName();
    void editDriverBeginsWithTheName();
    void okGivesTheNameAndNothingElse();
    void anEmptyNameIsAccepted();
    void cancellingLeavesTheDriverAlone();
    void theNextOpeningKnowsNothingOfTheOneBefore();
    void keyboardWalksFromTheTopToTheBottom();
    void lettersPressTheirButtons();
    void returnAcceptsAndEscapeCancels();
    void noDriverIsRefusedAtOnce();
    void storeDriverOnlyTellsOfAnAcceptance();
};

void tst_CDriverEditorDlg::showsItsTexts()
{
    CDriverEditorDlg editor;
    QCOMPARE(editor.windowTitle(), QString("Fahrer Editor"));
    const auto labels = editor.findChildren<QLabel*>();
    QCOMPARE(labels.size(), 1);
    QCOMPARE(labels.first()->text(), QString("Fahrer Name:"));
    QStringList buttons;
    for (const auto* button : editor.findChildren<QPushButton*>())
        buttons.append(button->text());
    QCOMPARE(buttons, QStringList({"&Ok", "&Abbrechen"}));
    QCOMPARE(editor.findChild<QLineEdit*>("driverName")->maximumWidth(), 256);
}

void tst_CDriverEditorDlg::theNameTakesAtMost120Characters()
{
    CDriverEditorDlg editor;
    CDriver driver;
    open(editor, &CDriverEditorDlg::newDriver, driver,
         [](const DialogUser& user) { user.enter("driverName", QString(121, 'x')); });
    QCOMPARE(driver.name(), QString(120, 'x'));
}

void tst_CDriverEditorDlg::newDriverBeginsWithAnEmptyName()
{
    CDriverEditorDlg editor;
    CDriver driver; // is named "Default"
    const auto empty = [](const DialogUser& user) { QCOMPARE(user.value("driverName"), QVariant("")); };
    open(editor, &CDriverEditorDlg::newDriver, driver, empty, "cancelButton");
}

void tst_CDriverEditorDlg::editDriverBeginsWithTheName()
{
    CDriverEditorDlg editor;
    CDriver driver = anna();
    open(editor, &CDriverEditorDlg::editDriver, driver, [](const DialogUser& user) {
        QCOMPARE(user.value("driverName"), QVariant("Anna"));
        auto* name = user.control<QLineEdit>("driverName");
        QVERIFY(name->hasFocus());
        QTest::keyClicks(name, "Bert"); // over the old name
    });
    QCOMPARE(driver.name(), QString("Bert"));
}

void tst_CDriverEditorDlg::okGivesTheNameAndNothingElse()
{
    for (const Edit edit : BothEdits) {
        CDriverEditorDlg editor;
        CDriver driver = anna();
        const auto work = [](const DialogUser& user) {
            user.control<QLineEdit>("driverName")->setText(QStringLiteral("Jörg; \"J\""));
        };
        QCOMPARE(open(editor, edit, driver, work), 1);
        QCOMPARE(driver.name(), QStringLiteral("Jörg; \"J\""));
        QCOMPARE(driver.id(), 7);
    }
}

void tst_CDriverEditorDlg::anEmptyNameIsAccepted()
{
    for (const Edit edit : BothEdits) {
        CDriverEditorDlg editor;
        CDriver driver = anna();
        const auto clear = [](const DialogUser& user) { user.control<QLineEdit>("driverName")->clear(); };
        QCOMPARE(open(editor, edit, driver, clear), 1);
        QVERIFY(driver.name().isEmpty());
    }
}

void tst_CDriverEditorDlg::cancellingLeavesTheDriverAlone()
{
    for (const Edit edit : BothEdits) {
        CDriverEditorDlg editor;
        CDriver driver = anna();
        const auto work = [](const DialogUser& user) { user.enter("driverName", "Bert"); };
        QCOMPARE(open(editor, edit, driver, work, "cancelButton"), 0);
        QCOMPARE(driver.name(), QString("Anna"));
    }
}

void tst_CDriverEditorDlg::theNextOpeningKnowsNothingOfTheOneBefore()
{
    CDriverEditorDlg editor;
    CDriver driver = anna();
    const auto type = [](const DialogUser& user) { user.enter("driverName", "Bert"); };
    open(editor, &CDriverEditorDlg::editDriver, driver, type, "cancelButton");
    open(editor, &CDriverEditorDlg::editDriver, driver, [](const DialogUser& user) {
        QCOMPARE(user.value("driverName"), QVariant("Anna"));
        QTest::keyClick(user.control("driverName"), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(user.value("driverName"), QVariant("Anna"));
    });
    open(editor, &CDriverEditorDlg::newDriver, driver,
         [](const DialogUser& user) { QCOMPARE(user.value("driverName"), QVariant("")); });
}

void tst_CDriverEditorDlg::keyboardWalksFromTheTopToTheBottom()
{
    CDriverEditorDlg editor;
    CDriver driver = anna();
    open(editor, &CDriverEditorDlg::editDriver, driver, [](const DialogUser& user) {
        const QStringList expected{"driverName", "okButton", "cancelButton"};
        QVERIFY(user.control("driverName")->hasFocus());
        QCOMPARE(user.walkFrom(expected.first()), expected);
    });
}

void tst_CDriverEditorDlg::lettersPressTheirButtons()
{
    for (const auto letter : {Qt::Key_O, Qt::Key_A}) {
        CDriverEditorDlg editor;
        CDriver driver = anna();
        ModalAnswers answers;
        answers.expect([letter](QDialog* window) {
            const DialogUser user(window);
            user.enter("driverName", "Bert");
            user.pressLetter(letter);
        });
        const bool accepted = letter == Qt::Key_O;
        QCOMPARE(editor.editDriver(&driver), int(accepted));
        QCOMPARE(driver.name(), QString(accepted ? "Bert" : "Anna"));
    }
}

void tst_CDriverEditorDlg::returnAcceptsAndEscapeCancels()
{
    CDriverEditorDlg editor;
    CDriver driver = anna();
    ModalAnswers answers;
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        answers.expect([key](QDialog* window) {
            const DialogUser user(window);
            QTest::keyClicks(user.control("driverName"), "Bert");
            QTest::keyClick(user.control("driverName"), key);
        });
    }
    QCOMPARE(editor.editDriver(&driver), 0);
    QCOMPARE(driver.name(), QString("Anna"));
    QCOMPARE(editor.editDriver(&driver), 1);
    QCOMPARE(driver.name(), QString("Bert"));
}

void tst_CDriverEditorDlg::noDriverIsRefusedAtOnce()
{
    const ModalAnswers nobody;
    CDriverEditorDlg editor;
    QCOMPARE(editor.newDriver(nullptr), 0);
    QCOMPARE(editor.editDriver(nullptr), 0);
    QCOMPARE(nobody.numberOfWindows(), 0);
}

void tst_CDriverEditorDlg::storeDriverOnlyTellsOfAnAcceptance()
{
    CDriverEditorDlg editor;
    CDriver driver = anna();
    QSignalSpy accepted(&editor, &QDialog::accepted);
    const auto work = [&editor](const DialogUser&) {
        editor.storeDriver();
        QVERIFY(editor.isVisible());
    };
    QCOMPARE(open(editor, &CDriverEditorDlg::editDriver, driver, work, "cancelButton"), 0);
    QCOMPARE(accepted.size(), 1);
}

QTEST_MAIN(tst_CDriverEditorDlg)
#include "tst_CDriverEditorDlg.moc"
