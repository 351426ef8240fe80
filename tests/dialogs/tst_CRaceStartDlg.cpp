#include "dialogs/CRaceStartDlg.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"

#include <QLabel>

namespace {

QLineEdit* nameEdit(QDialog* dialog)
{
    return dialog->findChild<QLineEdit*>("raceName");
}

void press(QDialog* dialog, const char* button)
{
    QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
}

} // namespace

class tst_CRaceStartDlg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsTexts();
    void acceptingGivesTheName();
    void anEmptyNameIsNotRefused();
    void cancellingLeavesTheNameAlone();
    void theNameTakesAtMost120Characters();
    void returnStartsTheRace();
    void theLastNameStandsSelectedTheNextTime();
    void keyboardWalksFromTheTopToTheBottom();
    void lettersPressTheirButtons();
};

void tst_CRaceStartDlg::showsItsTexts()
{
    CRaceStartDlg dialog;
    QCOMPARE(dialog.windowTitle(), QString("Wettkampf Rennen"));
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        texts.append(label->text());
    QVERIFY(texts.contains("Bitte geben Sie einen Namen für das Rennen ein. Das\nRennen wird unter diesem "
                           "Namen abgespeichert."));
    QVERIFY(texts.contains("Name des Rennens: "));
    QCOMPARE(dialog.findChild<QPushButton*>("startButton")->text(), QString("Rennen &Starten"));
    QCOMPARE(dialog.findChild<QPushButton*>("cancelButton")->text(), QString("&Abbrechen"));
    QCOMPARE(nameEdit(&dialog)->maximumWidth(), 256);
    QCOMPARE(nameEdit(&dialog)->minimumWidth(), 256); // whatever the length of the texts round it
}

void tst_CRaceStartDlg::acceptingGivesTheName()
{
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QTest::keyClicks(nameEdit(dialog), "Lauf 1");
        press(dialog, "startButton");
    });
    CRaceStartDlg dialog;
    QString name;
    QCOMPARE(dialog.run(name), int(QDialog::Accepted));
    QCOMPARE(name, QString("Lauf 1"));
}

void tst_CRaceStartDlg::anEmptyNameIsNotRefused()
{
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) { press(dialog, "startButton"); });
    CRaceStartDlg dialog;
    QString name = "vorher";
    QCOMPARE(dialog.run(name), int(QDialog::Accepted));
    QCOMPARE(name, QString());
}

void tst_CRaceStartDlg::cancellingLeavesTheNameAlone()
{
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QTest::keyClicks(nameEdit(dialog), "Lauf 1");
        press(dialog, "cancelButton");
    });
    CRaceStartDlg dialog;
    QString name = "vorher";
    QCOMPARE(dialog.run(name), int(QDialog::Rejected));
    QCOMPARE(name, QString("vorher"));
}

void tst_CRaceStartDlg::theNameTakesAtMost120Characters()
{
    CRaceStartDlg dialog;
    QTest::keyClicks(nameEdit(&dialog), QString(130, 'x'));
    QCOMPARE(nameEdit(&dialog)->text(), QString(120, 'x'));
}

void tst_CRaceStartDlg::returnStartsTheRace()
{
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QTest::keyClicks(nameEdit(dialog), "Finale");
        QTest::keyClick(nameEdit(dialog), Qt::Key_Return);
    });
    CRaceStartDlg dialog;
    QString name;
    QCOMPARE(dialog.run(name), int(QDialog::Accepted));
    QCOMPARE(name, QString("Finale"));
}

void tst_CRaceStartDlg::theLastNameStandsSelectedTheNextTime()
{
    ModalAnswers answers;
    CRaceStartDlg dialog;
    QString name;
    answers.expect([](QDialog* window) {
        QTest::keyClicks(nameEdit(window), "Lauf 1");
        press(window, "startButton");
    });
    dialog.run(name);
    answers.expect([](QDialog* window) {
        QCOMPARE(nameEdit(window)->selectedText(), QString("Lauf 1"));
        QTest::keyClicks(nameEdit(window), "Lauf 2");
        press(window, "startButton");
    });
    QCOMPARE(dialog.run(name), int(QDialog::Accepted));
    QCOMPARE(name, QString("Lauf 2"));
}

void tst_CRaceStartDlg::keyboardWalksFromTheTopToTheBottom()
{
    ModalAnswers answers;
    answers.expect([](QDialog* window) {
        const DialogUser user(window);
        const QStringList expected{"raceName", "startButton", "cancelButton"};
        QVERIFY(user.control("raceName")->hasFocus());
        QCOMPARE(user.walkFrom(expected.first()), expected);
        window->reject();
    });
    CRaceStartDlg dialog;
    QString name;
    QCOMPARE(dialog.run(name), int(QDialog::Rejected));
}

void tst_CRaceStartDlg::lettersPressTheirButtons()
{
    for (const auto letter : {Qt::Key_S, Qt::Key_A}) {
        ModalAnswers answers;
        answers.expect([letter](QDialog* window) {
            const DialogUser user(window);
            user.enter("raceName", "Finale");
            user.pressLetter(letter);
        });
        CRaceStartDlg dialog;
        QString name = "vorher";
        const bool started = letter == Qt::Key_S;
        QCOMPARE(dialog.run(name), int(started));
        QCOMPARE(name, QString(started ? "Finale" : "vorher"));
    }
}

QTEST_MAIN(tst_CRaceStartDlg)
#include "tst_CRaceStartDlg.moc"
