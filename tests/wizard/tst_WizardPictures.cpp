#include "data/CRaceway.h"
#include "shell/MainDialogFixture.h"
#include "wizard/WizardDriver.h"

#include <QDir>
#include <QSet>
#include <QTest>
#include <QTranslator>

namespace {

/** A text that fits into the field is shown whole; a name may be longer than its field. */
bool hasRoomForText(const QLineEdit& edit)
{
    constexpr int MarginsAndFrame = 6;
    return edit.objectName() == "nameEdit" ||
           edit.fontMetrics().horizontalAdvance(edit.text()) + MarginsAndFrame <= edit.width();
}

/** What a widget shows doesn't fit: its height, at its width, is less than its text takes. */
bool isClipped(const QWidget& widget)
{
    const auto* edit = qobject_cast<const QLineEdit*>(&widget);
    if (edit && !hasRoomForText(*edit))
        return true;
    const int needed = widget.hasHeightForWidth() ? widget.heightForWidth(widget.width())
                                                  : widget.minimumSizeHint().height();
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const bool wraps = label && label->wordWrap();
    const bool isButton = qobject_cast<const QAbstractButton*>(&widget);
    const bool isTooNarrow = (label || isButton) && !wraps && widget.width() < widget.sizeHint().width();
    return widget.height() < needed || isTooNarrow;
}

/** @return the widgets that can be seen and aren't shown whole. */
QStringList clippedWidgets(const QDialog& dialog)
{
    QStringList names;
    for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
        const bool hasText = qobject_cast<const QLabel*>(widget) ||
                             qobject_cast<const QAbstractButton*>(widget) ||
                             qobject_cast<const QComboBox*>(widget) || qobject_cast<const QLineEdit*>(widget);
        const bool isPart = qobject_cast<const QComboBox*>(widget->parent()); // of what is looked at itself
        if (!hasText || isPart || !widget->isVisible())
            continue;
        const QRect rect(widget->mapTo(const_cast<QDialog*>(&dialog), QPoint()), widget->size());
        if (!dialog.rect().contains(rect) || isClipped(*widget))
            names.append(widget->metaObject()->className() + (' ' + widget->objectName()));
    }
    return names;
}

/** @return whether all texts of a page have one colour. */
bool isOfOneStyle(const QWidget& page)
{
    QSet<QRgb> colors;
    for (const QLabel* label : page.findChildren<QLabel*>()) {
        if (label->isVisible())
            colors.insert(label->palette().color(QPalette::WindowText).rgb());
    }
    return colors.size() == 1;
}

/** @return the controls that the tab key leads to, from the focus on until it is back there. */
QStringList tabOrder()
{
    QStringList names;
    const QWidget* first = QApplication::focusWidget();
    do {
        names.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && names.size() < 100);
    return names;
}

/** @return the controls that can be used now, in no order. */
QSet<const QWidget*> usableControls(const QDialog& dialog)
{
    QSet<const QWidget*> controls;
    for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
        const bool isReached = widget->isVisible() && widget->isEnabled() && !widget->focusProxy();
        if (isReached && (widget->focusPolicy() & Qt::TabFocus))
            controls.insert(widget);
    }
    return controls;
}

/** Each control is reached by the tab key, from the focus on, and none lies above the one before. */
void verifyTabOrder(QDialog& dialog)
{
    constexpr int SameRow = 12;
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const auto height = [&dialog](const QWidget* widget) {
        return widget->mapTo(&dialog, widget->rect().center()).y();
    };
    if (QApplication::focusWidget()->focusPolicy() == Qt::NoFocus) // a page without controls
        QTest::keyClick(&dialog, Qt::Key_Tab);
    QSet<const QWidget*> reached;
    int lowest = 0;
    while (reached.size() < 100 && !reached.contains(QApplication::focusWidget())) {
        const QWidget* control = QApplication::focusWidget();
        QVERIFY(control && dialog.isAncestorOf(control));
        QVERIFY2(height(control) + SameRow > lowest, qPrintable(control->objectName()));
        lowest = height(control);
        reached.insert(control);
        QTest::keyClick(&dialog, Qt::Key_Tab);
    }
    const QSet<const QWidget*> usable = usableControls(dialog);
    for (const QWidget* control : usable)
        QVERIFY2(reached.contains(control),
                 qPrintable(control->metaObject()->className() + (' ' + control->objectName())));
    QCOMPARE(reached.size(), usable.size());
}

void savePicture(QDialog& dialog, const QString& name)
{
    const QString directory = qEnvironmentVariable("TORNIK_PICTURES");
    if (!directory.isEmpty())
        QVERIFY(dialog.grab().save(QDir(directory).filePath(QString(name).replace(' ', '-') + ".png")));
}

} // namespace

/** Every page of the wizard as a user sees it; with TORNIK_PICTURES set, for a person to look at. */
class tst_WizardPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPageIsShownWhole_data();
    void everyPageIsShownWhole();
    void theTabKeyLeadsThroughThePageAndThenTheButtons();
};

void tst_WizardPictures::everyPageIsShownWhole_data()
{
    QTest::addColumn<QString>("hardware");
    QTest::addColumn<bool>("isEnglish");
    for (const char* hardware : {"Parallel Port", "Carrera CU", "IO-Warrior40", "L&T AT2560"}) {
        QTest::newRow(qPrintable(QString("german %1").arg(hardware))) << QString(hardware) << false;
        QTest::newRow(qPrintable(QString("english %1").arg(hardware))) << QString(hardware) << true;
    }
}

void tst_WizardPictures::everyPageIsShownWhole()
{
    QFETCH(QString, hardware);
    QFETCH(bool, isEnglish);
    QTranslator translator;
    if (isEnglish) {
        const QString other = qEnvironmentVariable("TORNIK_CATALOGUE");
        QVERIFY(translator.load(other.isEmpty() ? TORNIK_BIN_DIR "/languages/Tornik_en.qm" : other));
        QApplication::installTranslator(&translator);
    }
    MainDialogFixture fixture;
    CRacewayWizard wizard(&fixture.dialog);
    CRaceway raceway;
    int pages = 0;
    WizardDriver::create(wizard, &raceway, [&](WizardDriver& user) {
        user.describe("Mmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmm", 8);
        user.type("scaleEdit", "100");
        while (pages < 100) {
            ++pages;
            if (user.pageName() == "CIoInterfacePage")
                user.choose("hardwareBox", user.field<QComboBox>("hardwareBox")
                                               ->findData(hardware == "L&T AT2560"     ? 9
                                                          : hardware == "Carrera CU"   ? 5
                                                          : hardware == "IO-Warrior40" ? 3
                                                                                       : 1));
            if (user.pageName() == "CAvailableFeaturesPage") {
                for (const char* box :
                     {"chaosBox", "chaosOutputBox", "powerOffBox", "lightsBox", "separateEndBox"})
                    user.field<QCheckBox>(box)->setChecked(true);
                user.choose("sectorBox", 2);
                user.choose("fuelBox", 4);
            }
            if (user.pageName() == "CRwWizardDebounceTimePage")
                user.type("timeEdit", "60000");
            QCoreApplication::processEvents();
            savePicture(*user.dialog(), QString(QTest::currentDataTag()) + ' ' + user.pageName());
            QVERIFY2(clippedWidgets(*user.dialog()).isEmpty(),
                     qPrintable(user.pageName() + ": " + clippedWidgets(*user.dialog()).join(", ")));
            QVERIFY(isOfOneStyle(*user.page()));
            const bool isLast = user.page()->isLastPage();
            QVERIFY(user.button(isLast ? "finishButton" : "nextButton")->isDefault());
            verifyTabOrder(*user.dialog());
            if (isLast)
                break;
            user.next();
        }
    });
    QCOMPARE(pages, (hardware == "L&T AT2560" ? 0 : 1) + 3 + 4 + 8 * 6 + 2);
}

void tst_WizardPictures::theTabKeyLeadsThroughThePageAndThenTheButtons()
{
    CRaceway raceway;
    WizardDriver::create(&raceway, [](WizardDriver& user) {
        QVERIFY(QTest::qWaitForWindowActive(user.dialog()));
        user.type("nameEdit", "Bahn");
        const QStringList first{"nameEdit", "tracksBox", "scaleEdit", "cancelButton", "nextButton"};
        QCOMPARE(tabOrder(), first);
        const QStringList buttons{"cancelButton", "backButton", "nextButton"};
        user.next();
        QCOMPARE(tabOrder(),
                 QStringList({"hardwareBox", "addressEdit", "inputRegisterBox", "outputRegisterBox"}) +
                     buttons);
        user.next();
        user.field<QCheckBox>("chaosBox")->setChecked(true);
        QCOMPARE(tabOrder(), QStringList({"chaosBox", "chaosOutputBox", "powerOffBox", "lightsBox",
                                          "separateEndBox", "sectorBox", "fuelBox"}) +
                                 buttons);
        QVERIFY(user.goTo("CRwWizardSlotPage 1"));
        QCOMPARE(tabOrder(), QStringList({"learnButton", "stateEdit", "lengthEdit"}) + buttons);
        QVERIFY(user.goBackTo("COpenPage"));
        QCOMPARE(tabOrder(), QStringList({"learnButton", "stateEdit"}) + buttons);
        QVERIFY(user.goTo("CRwWizardDebounceTimePage"));
        QCOMPARE(tabOrder(), QStringList{"timeEdit"} + buttons);
    });
}

QTEST_MAIN(tst_WizardPictures)
#include "tst_WizardPictures.moc"
