#include "shell/CTranslators.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QKeySequence>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QTest>

namespace {

const QStringList Catalogues{TORNIK_BIN_DIR "/languages"};

template <typename Widget>
QStringList textsOf(const QWidget& window)
{
    QStringList texts;
    for (const auto* widget : window.findChildren<Widget*>())
        texts.append(widget->text());
    return texts;
}

} // namespace

/** The program's own texts and those of Qt's boxes speak one language. */
class tst_CTranslators : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void boxesSpeakTheLanguageOfTheProgram_data();
    void boxesSpeakTheLanguageOfTheProgram();
    void textOfTheProgramStandsInFrontOfQts();
    void shortcutsReadTheSame_data();
    void shortcutsReadTheSame();
    void buttonOfAMessageBoxStaysOk();
    void languageEndsWithTheObject();
};

void tst_CTranslators::boxesSpeakTheLanguageOfTheProgram_data()
{
    QTest::addColumn<QString>("colors"); // title of the box that chooses a colour
    QTest::addColumn<QString>("file");   // caption of the box that chooses a file
    QTest::addColumn<QString>("own");    // a text of the program
    const QString german = "Farbauswahl";
    for (const char* locale : {"de", "de_AT", "xx", "C", "fr_FR"})
        QTest::newRow(locale) << german << "Datei&name:"
                              << "Einstellungen";
    for (const char* locale : {"en", "en_US", "en_GB"})
        QTest::newRow(locale) << "Select Color"
                              << "File &name:"
                              << "Settings";
}

void tst_CTranslators::boxesSpeakTheLanguageOfTheProgram()
{
    QFETCH(QString, colors);
    QFETCH(QString, file);
    QFETCH(QString, own);
    const CTranslators translators(QLocale(QTest::currentDataTag()), Catalogues);
    QCOMPARE(QColorDialog().windowTitle(), colors);
    QFileDialog files;
    files.setOption(QFileDialog::DontUseNativeDialog);
    QVERIFY2(textsOf<QLabel>(files).contains(file), qPrintable(textsOf<QLabel>(files).join(" | ")));
    QCOMPARE(QCoreApplication::translate("CKelmoSettings", "Einstellungen"), own);
}

void tst_CTranslators::textOfTheProgramStandsInFrontOfQts()
{
    const CTranslators translators(QLocale("en"), Catalogues);
    QCOMPARE(QCoreApplication::translate("CKelmoSettings", "&Abbrechen"), QString("&Cancel"));
}

void tst_CTranslators::shortcutsReadTheSame_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* locale : {"de", "en"})
        QTest::newRow(locale) << true;
}

void tst_CTranslators::shortcutsReadTheSame()
{
    const CTranslators translators(QLocale(QTest::currentDataTag()), Catalogues);
    QCOMPARE(QKeySequence("Ctrl+S").toString(QKeySequence::NativeText), QString("Ctrl+S"));
    QCOMPARE(QKeySequence("Ctrl+S")[0], int(Qt::CTRL | Qt::Key_S));
    QCOMPARE(QKeySequence("Shift+Del").toString(QKeySequence::NativeText), QString("Shift+Del"));
}

void tst_CTranslators::buttonOfAMessageBoxStaysOk()
{
    const CTranslators translators(QLocale("de"), Catalogues);
    const QMessageBox box(QMessageBox::Information, "Kamera Problem", "Text", QMessageBox::Ok);
    QCOMPARE(box.button(QMessageBox::Ok)->text().remove('&'), QString("OK"));
}

void tst_CTranslators::languageEndsWithTheObject()
{
    {
        const CTranslators translators(QLocale("en"), Catalogues);
    }
    QCOMPARE(QCoreApplication::translate("CKelmoSettings", "Einstellungen"), QString("Einstellungen"));
    {
        const CTranslators translators(QLocale("de"), Catalogues);
    }
    QCOMPARE(QColorDialog().windowTitle(), QString("Select Color"));
}

QTEST_MAIN(tst_CTranslators)
#include "tst_CTranslators.moc"
