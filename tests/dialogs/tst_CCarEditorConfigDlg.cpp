#include "dialogs/CCarEditorConfigDlg.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"

#include <QCheckBox>
#include <QDataStream>
#include <QGridLayout>

namespace {

using Work = std::function<void(const DialogUser&)>;

/** Opens the dialog and lets the user work; a press of @p button ends it. */
int open(CCarEditorConfigDlg& dialog, CCarEditorConfig& config, const Work& work,
         const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([work, button](QDialog* window) {
        const DialogUser user(window);
        work(user);
        user.press(button);
    });
    return dialog.editConfig(&config);
}

QByteArray bytesOf(const CCarEditorConfig& config)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << config;
    return bytes;
}

CCarEditorConfig everySecondField()
{
    CCarEditorConfig config;
    for (int index = 0; index < 10; ++index) {
        config.setShowFreeField(index, index % 2 == 0);
        config.setTitleFreeField(index, QStringLiteral("Titel %1").arg(index));
    }
    return config;
}

QByteArray showBox(int index)
{
    return "showFreeField" + QByteArray::number(index);
}

QByteArray titleEdit(int index)
{
    return "titleFreeField" + QByteArray::number(index);
}

} // namespace

class tst_CCarEditorConfigDlg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsTexts();
    void everyRowHasABoxAndATitleOverTwoColumns();
    void titlesOfHiddenFieldsAreDisabledFromTheBeginning();
    void showsTheConfiguration();
    void boxGoesToItsFieldAlone();
    void titleGoesToItsFieldAlone();
    void titleIsEnabledWithItsBox();
    void titleOfAHiddenFieldIsKept();
    void cancellingLeavesTheConfigurationAlone();
    void theNextOpeningKnowsNothingOfTheOneBefore();
    void noConfigurationIsRefusedAtOnce();
    void keyboardWalksRowByRow();
};

void tst_CCarEditorConfigDlg::showsItsTexts()
{
    CCarEditorConfigDlg dialog;
    QCOMPARE(dialog.windowTitle(), QString("Konfiguration des Fahrzeug Editor"));
    QStringList buttons;
    for (const auto* button : dialog.findChildren<QPushButton*>())
        buttons.append(button->text());
    QCOMPARE(buttons, QStringList({"&Ok", "&Abbrechen"}));
    for (int index = 0; index < 10; ++index)
        QCOMPARE(dialog.findChild<QLineEdit*>(titleEdit(index))->placeholderText(),
                 QStringLiteral("Freifeld %1").arg(index + 1));
}

void tst_CCarEditorConfigDlg::everyRowHasABoxAndATitleOverTwoColumns()
{
    CCarEditorConfigDlg dialog;
    const auto* grid = dialog.findChild<QGridLayout*>();
    QCOMPARE(grid->rowCount(), 10);
    for (int row = 0; row < 10; ++row) {
        QCOMPARE(grid->itemAtPosition(row, 0)->widget()->objectName(), QString(showBox(row)));
        for (const int column : {1, 2})
            QCOMPARE(grid->itemAtPosition(row, column)->widget()->objectName(), QString(titleEdit(row)));
    }
}

void tst_CCarEditorConfigDlg::titlesOfHiddenFieldsAreDisabledFromTheBeginning()
{
    CCarEditorConfigDlg dialog;
    CCarEditorConfig config; // no box changes its state when it is shown
    open(dialog, config, [](const DialogUser& user) {
        for (int index = 0; index < 10; ++index)
            QVERIFY(!user.isEnabled(titleEdit(index)));
    });
}

void tst_CCarEditorConfigDlg::showsTheConfiguration()
{
    CCarEditorConfigDlg dialog;
    CCarEditorConfig config = everySecondField();
    const auto work = [](const DialogUser& user) {
        for (int index = 0; index < 10; ++index) {
            QCOMPARE(user.value(showBox(index)).toBool(), index % 2 == 0);
            QCOMPARE(user.value(titleEdit(index)).toString(), QStringLiteral("Titel %1").arg(index));
            QCOMPARE(user.isEnabled(titleEdit(index)), index % 2 == 0);
        }
    };
    QCOMPARE(open(dialog, config, work), 1);
    QCOMPARE(bytesOf(config), bytesOf(everySecondField()));
}

void tst_CCarEditorConfigDlg::boxGoesToItsFieldAlone()
{
    for (int index = 0; index < 10; ++index) {
        CCarEditorConfigDlg dialog;
        CCarEditorConfig config = everySecondField();
        const bool show = !config.showFreeField(index);
        open(dialog, config, [=](const DialogUser& user) { user.enter(showBox(index), show); });
        CCarEditorConfig expected = everySecondField();
        expected.setShowFreeField(index, show);
        QCOMPARE(bytesOf(config), bytesOf(expected));
    }
}

void tst_CCarEditorConfigDlg::titleGoesToItsFieldAlone()
{
    for (int index = 0; index < 10; index += 2) {
        CCarEditorConfigDlg dialog;
        CCarEditorConfig config = everySecondField();
        open(dialog, config, [=](const DialogUser& user) { user.enter(titleEdit(index), "Achse"); });
        CCarEditorConfig expected = everySecondField();
        expected.setTitleFreeField(index, "Achse");
        QCOMPARE(bytesOf(config), bytesOf(expected));
    }
}

void tst_CCarEditorConfigDlg::titleIsEnabledWithItsBox()
{
    CCarEditorConfigDlg dialog;
    CCarEditorConfig config;
    open(dialog, config, [](const DialogUser& user) {
        for (int index = 0; index < 10; ++index) {
            user.enter(showBox(index), true);
            for (int other = 0; other < 10; ++other)
                QCOMPARE(user.isEnabled(titleEdit(other)), other == index);
            user.enter(showBox(index), false);
            QVERIFY(!user.isEnabled(titleEdit(index)));
        }
    });
}

void tst_CCarEditorConfigDlg::titleOfAHiddenFieldIsKept()
{
    CCarEditorConfigDlg dialog;
    CCarEditorConfig config = everySecondField();
    open(dialog, config, [](const DialogUser& user) { user.enter("showFreeField0", false); });
    QVERIFY(!config.showFreeField(0));
    QCOMPARE(config.titleFreeField(0), QString("Titel 0"));
}

void tst_CCarEditorConfigDlg::cancellingLeavesTheConfigurationAlone()
{
    CCarEditorConfigDlg dialog;
    CCarEditorConfig config = everySecondField();
    const auto work = [](const DialogUser& user) {
        user.enter("showFreeField1", true);
        user.enter("titleFreeField1", "Achse");
    };
    QCOMPARE(open(dialog, config, work, "cancelButton"), 0);
    QCOMPARE(bytesOf(config), bytesOf(everySecondField()));
}

void tst_CCarEditorConfigDlg::theNextOpeningKnowsNothingOfTheOneBefore()
{
    CCarEditorConfigDlg dialog;
    CCarEditorConfig config = everySecondField();
    const auto work = [](const DialogUser& user) {
        user.enter("titleFreeField0", "Achse");
        user.enter("showFreeField0", false);
    };
    open(dialog, config, work, "cancelButton");
    open(dialog, config, [](const DialogUser& user) {
        QVERIFY(user.value("showFreeField0").toBool() && user.isEnabled("titleFreeField0"));
        QCOMPARE(user.value("titleFreeField0").toString(), QString("Titel 0"));
    });
}

void tst_CCarEditorConfigDlg::noConfigurationIsRefusedAtOnce()
{
    const ModalAnswers nobody;
    CCarEditorConfigDlg dialog;
    QCOMPARE(dialog.editConfig(nullptr), 0);
    QCOMPARE(nobody.numberOfWindows(), 0);
}

void tst_CCarEditorConfigDlg::keyboardWalksRowByRow()
{
    CCarEditorConfigDlg dialog;
    CCarEditorConfig config = everySecondField();
    open(dialog, config, [](const DialogUser& user) {
        QStringList expected;
        for (int index = 0; index < 10; ++index) {
            expected.append(showBox(index));
            if (index % 2 == 0)
                expected.append(titleEdit(index));
        }
        expected += QStringList{"okButton", "cancelButton"};
        QCOMPARE(user.walkFrom(expected.first()), expected);
    });
}

QTEST_MAIN(tst_CCarEditorConfigDlg)
#include "tst_CCarEditorConfigDlg.moc"
