#include "dialogs/CRaceStartDlg.h"
#include "shell/CTranslationCatalogue.h"
#include "shell/MainDialogFixture.h"
#include "support/ModalAnswers.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTabWidget>
#include <QTranslator>

namespace {

const QSize SmallScreen(1366, 768);

/** The main dialog with a raceway that can switch power, in a language. */
class Dashboard
{
public:
    explicit Dashboard(const QString& language)
    {
        if (language != "de" &&
            CTranslationCatalogue::load(m_translator, QLocale(language), {TORNIK_BIN_DIR "/languages"}))
            QCoreApplication::installTranslator(&m_translator);
        m_fixture = std::make_unique<MainDialogFixture>();
        CRaceway raceway = racewayWithTracks(2);
        raceway.pwrOffFeatureAvailable = true;
        m_fixture->setRaceway(raceway);
    }

    MainDialogFixture& operator*() const { return *m_fixture; }
    MainDialogFixture* operator->() const { return m_fixture.get(); }

private:
    QTranslator m_translator;
    std::unique_ptr<MainDialogFixture> m_fixture;
};

/** Saves the picture where a person wants to look at it: into the directory TORNIK_PICTURES. */
bool savePicture(QWidget* dialog, const QString& name)
{
    const QString directory = qEnvironmentVariable("TORNIK_PICTURES");
    return directory.isEmpty() || dialog->grab().save(QDir(directory).filePath(name + ".png"));
}

/** Whether the whole of a control's text can be seen. */
bool isWhole(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->wordWrap())
        return label->height() >= label->heightForWidth(label->width());
    const bool sized = label || qobject_cast<const QAbstractButton*>(widget) ||
                       qobject_cast<const QAbstractSpinBox*>(widget);
    if (!sized)
        return true;
    const QSize needed = label ? widget->sizeHint() : widget->minimumSizeHint();
    return widget->width() >= needed.width() && widget->height() >= needed.height();
}

QStringList clippedWidgets(const QDialog* dialog)
{
    QStringList names;
    for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
        const QRect place(widget->mapTo(const_cast<QDialog*>(dialog), QPoint(0, 0)), widget->size());
        if (widget->isVisible() && (!isWhole(widget) || !dialog->rect().contains(place)))
            names.append(widget->objectName() + ' ' + widget->property("text").toString());
    }
    return names;
}

/** @return the letters that stand for more than one visible control. */
QStringList collidingMnemonics(const QDialog* dialog)
{
    QStringList letters;
    QStringList collisions;
    for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
        const QString letter = QKeySequence::mnemonic(button->text()).toString();
        if (!button->isVisible() || letter.isEmpty())
            continue;
        if (letters.contains(letter))
            collisions.append(letter);
        letters.append(letter);
    }
    return collisions;
}

void look(QDialog* dialog, const QString& name)
{
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QApplication::processEvents();
    QVERIFY(savePicture(dialog, name));
    QCOMPARE(clippedWidgets(dialog), QStringList());
    QCOMPARE(collidingMnemonics(dialog), QStringList());
    QVERIFY2(dialog->width() <= SmallScreen.width() && dialog->height() <= SmallScreen.height(),
             qPrintable(QStringLiteral("%1x%2").arg(dialog->width()).arg(dialog->height())));
}

} // namespace

/** Each dialog over the dashboard; with TORNIK_PICTURES set, for a person to look at. */
class tst_DialogPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void raceSettingsAreWhollyVisible_data();
    void raceSettingsAreWhollyVisible();
    void raceNameIsWhollyVisible_data();
    void raceNameIsWhollyVisible();
};

void tst_DialogPictures::init()
{
    QFile::remove("tornik.db");
    QSettings("Tornik", "Tornik").clear();
}

void tst_DialogPictures::raceSettingsAreWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("tab");
    for (const char* language : {"de", "en"}) {
        for (int tab = 0; tab < 3; ++tab)
            QTest::newRow(qPrintable(QStringLiteral("race-settings-%1-%2").arg(tab).arg(language)))
                << language << tab;
    }
}

void tst_DialogPictures::raceSettingsAreWhollyVisible()
{
    QFETCH(QString, language);
    QFETCH(int, tab);
    const Dashboard dashboard(language);
    CFuelSettings fuel;
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    dashboard->raceSettings.setFuelSettings(fuel);
    dashboard->raceSettings.setStartType(CRaceSettings::TimedStart);
    ModalAnswers answers;
    answers.expect([tab](QDialog* dialog) {
        dialog->findChild<QTabWidget*>("tabs")->setCurrentIndex(tab);
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("showRaceSettings"));
}

void tst_DialogPictures::raceNameIsWhollyVisible_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("race-name-de") << "de";
    QTest::newRow("race-name-en") << "en";
}

void tst_DialogPictures::raceNameIsWhollyVisible()
{
    QFETCH(QString, language);
    const Dashboard dashboard(language);
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit*>("raceName"), "Rennen am Sonntag");
        look(dialog, QTest::currentDataTag());
        dialog->reject();
    });
    QVERIFY(dashboard->trigger("raceTrigger"));
}

QTEST_MAIN(tst_DialogPictures)
#include "tst_DialogPictures.moc"
