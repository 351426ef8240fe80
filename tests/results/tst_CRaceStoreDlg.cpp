#include "results/CRaceStoreDlg.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

template <typename Widget>
Widget& part(const CRaceStoreDlg& dialog, const char* name)
{
    auto* widget = dialog.findChild<Widget*>(name);
    if (!widget)
        qFatal("the dialog has no %s", name);
    return *widget;
}

QStringList labelsOf(const CRaceStoreDlg& dialog)
{
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        texts << label->text();
    return texts;
}

} // namespace

class tst_CRaceStoreDlg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePartsShowTheirTexts();
    void theFieldsStandInAGrid();
    void theNameIsAtMost120CharactersLong();
    void anEmptyNameIsDefault();
    void theNameIsTakenAsTyped();
    void theCheckBoxesTellWhereToStore();
    void storeAccepts();
    void cancelCloses();
    void enterInTheNameStores();
};

void tst_CRaceStoreDlg::thePartsShowTheirTexts()
{
    const CRaceStoreDlg dialog;

    QCOMPARE(dialog.windowTitle(), QString("Rennen speichern"));
    QCOMPARE(part<QPushButton>(dialog, "storeButton").text(), QString("Rennen &speichern"));
    QCOMPARE(part<QPushButton>(dialog, "cancelButton").text(), QString("&Abbrechen"));
    QCOMPARE(part<QCheckBox>(dialog, "csvBox").text(), QString("Als CSV Datei Speichern"));
    QCOMPARE(part<QCheckBox>(dialog, "databaseBox").text(), QString("In Datenbank Speichern"));
    QCOMPARE(labelsOf(dialog), (QStringList{"Bitte geben Sie einen Namen für das Rennen ein. Das\n"
                                            "Rennen wird unter diesem Namen abgespeichert.",
                                            "Name des Rennens: "}));
}

void tst_CRaceStoreDlg::theFieldsStandInAGrid()
{
    CRaceStoreDlg dialog;
    const auto* grid = dialog.findChild<QGridLayout*>();
    QVERIFY(grid);

    QCOMPARE(grid->itemAtPosition(0, 1)->widget(), &part<QLineEdit>(dialog, "nameEdit"));
    QCOMPARE(grid->itemAtPosition(1, 1)->widget(), &part<QCheckBox>(dialog, "csvBox"));
    QCOMPARE(grid->itemAtPosition(2, 1)->widget(), &part<QCheckBox>(dialog, "databaseBox"));
    QCOMPARE(qobject_cast<QLabel*>(grid->itemAtPosition(0, 0)->widget())->text(),
             QString("Name des Rennens: "));
    dialog.show();
    const QPushButton& store = part<QPushButton>(dialog, "storeButton");
    QVERIFY(store.y() > part<QCheckBox>(dialog, "databaseBox").geometry().bottom() + 20);
}

void tst_CRaceStoreDlg::theNameIsAtMost120CharactersLong()
{
    const CRaceStoreDlg dialog;
    auto& name = part<QLineEdit>(dialog, "nameEdit");

    name.setText(QString(200, 'x'));

    QCOMPARE(dialog.raceName(), QString(120, 'x'));
    QCOMPARE(name.maximumWidth(), 256);
}

void tst_CRaceStoreDlg::anEmptyNameIsDefault()
{
    const CRaceStoreDlg dialog;

    QCOMPARE(dialog.raceName(), QString("Default"));
}

void tst_CRaceStoreDlg::theNameIsTakenAsTyped()
{
    CRaceStoreDlg dialog;
    QTest::keyClicks(&part<QLineEdit>(dialog, "nameEdit"), " Winterpokal ");

    QCOMPARE(dialog.raceName(), QString(" Winterpokal "));
}

void tst_CRaceStoreDlg::theCheckBoxesTellWhereToStore()
{
    CRaceStoreDlg dialog;
    QVERIFY(!dialog.storeAsCsv());
    QVERIFY(!dialog.storeInDatabase());

    part<QCheckBox>(dialog, "csvBox").click();
    QVERIFY(dialog.storeAsCsv());
    QVERIFY(!dialog.storeInDatabase());

    part<QCheckBox>(dialog, "csvBox").click();
    part<QCheckBox>(dialog, "databaseBox").click();
    QVERIFY(!dialog.storeAsCsv());
    QVERIFY(dialog.storeInDatabase());
}

void tst_CRaceStoreDlg::storeAccepts()
{
    CRaceStoreDlg dialog;
    dialog.show();
    QSignalSpy finished(&dialog, &QDialog::finished);

    part<QPushButton>(dialog, "storeButton").click();

    QCOMPARE(finished.size(), 1);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
}

void tst_CRaceStoreDlg::cancelCloses()
{
    CRaceStoreDlg dialog;
    dialog.show();
    QSignalSpy finished(&dialog, &QDialog::finished);

    part<QPushButton>(dialog, "cancelButton").click();

    QCOMPARE(finished.size(), 1);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QVERIFY(!dialog.isVisible());
}

void tst_CRaceStoreDlg::enterInTheNameStores()
{
    CRaceStoreDlg dialog;
    dialog.show();
    QSignalSpy accepted(&dialog, &QDialog::accepted);

    QTest::keyClick(&part<QLineEdit>(dialog, "nameEdit"), Qt::Key_Return);

    QCOMPARE(accepted.size(), 1);
}

QTEST_MAIN(tst_CRaceStoreDlg)
#include "tst_CRaceStoreDlg.moc"
