#include "wizard/CPortStatusWidget.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

QLineEdit* editOf(const CPortStatusWidget& widget)
{
    return widget.findChild<QLineEdit*>("stateEdit");
}

QPushButton* buttonOf(const CPortStatusWidget& widget)
{
    return widget.findChild<QPushButton*>("learnButton");
}

/** Replaces the text as a user does. */
void type(const CPortStatusWidget& widget, const QString& text)
{
    editOf(widget)->selectAll();
    QTest::keyClick(editOf(widget), Qt::Key_Delete);
    QTest::keyClicks(editOf(widget), text);
}

} // namespace

class tst_CPortStatusWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsAsItShould();
    void showsAValueInLowerCase_data();
    void showsAValueInLowerCase();
    void theValueIsThatOfTheTextAnd0ForOneThatDoesNotConvert_data();
    void theValueIsThatOfTheTextAnd0ForOneThatDoesNotConvert();
    void theTextTakesOnlyWhatItsValidatorLetsThrough_data();
    void theTextTakesOnlyWhatItsValidatorLetsThrough();
    void a0xAloneIsRefused();
    void theButtonAsksForTheState();
    void aTypedStateIsToldAsSoonAsItIsAcceptable();
    void aStateThatTheProgramSetsIsNotTold();
    void labelAndButtonTakeTexts();
    void theReturnKeyPressesNoLearnButton();
};

void tst_CPortStatusWidget::beginsAsItShould()
{
    CPortStatusWidget widget;
    QCOMPARE(editOf(widget)->text(), QString("0xFF"));
    QCOMPARE(widget.value(), quint32(255));
    QCOMPARE(editOf(widget)->maxLength(), 10);
    QCOMPARE(editOf(widget)->maximumWidth(), 70);
    QCOMPARE(widget.buttonText(), QString("Ermitteln"));
}

void tst_CPortStatusWidget::showsAValueInLowerCase_data()
{
    QTest::addColumn<quint32>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << quint32(0) << "0x0";
    QTest::newRow("one digit") << quint32(10) << "0xa";
    QTest::newRow("open") << quint32(127) << "0x7f";
    QTest::newRow("default") << quint32(255) << "0xff";
    QTest::newRow("mixed") << quint32(0xBEEF) << "0xbeef";
    QTest::newRow("not assigned") << quint32(-1) << "0xffffffff";
    QTest::newRow("highest pin") << quint32(0x80000000) << "0x80000000";
}

void tst_CPortStatusWidget::showsAValueInLowerCase()
{
    QFETCH(quint32, value);
    QFETCH(QString, text);
    CPortStatusWidget widget;
    widget.setValue(value);
    QCOMPARE(editOf(widget)->text(), text);
    QCOMPARE(widget.value(), value);
}

void tst_CPortStatusWidget::theValueIsThatOfTheTextAnd0ForOneThatDoesNotConvert_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("value");
    QTest::newRow("lower case") << "0x7f" << quint32(127);
    QTest::newRow("capitals") << "0xFE" << quint32(254);
    QTest::newRow("eight digits") << "0xffffffff" << quint32(-1);
    QTest::newRow("nothing") << "" << quint32(0);
    QTest::newRow("no digits") << "0x" << quint32(0);
    QTest::newRow("letters beyond f") << "0xQQ" << quint32(0);
}

void tst_CPortStatusWidget::theValueIsThatOfTheTextAnd0ForOneThatDoesNotConvert()
{
    QFETCH(QString, text);
    CPortStatusWidget widget;
    editOf(widget)->setText(text);
    QTEST(widget.value(), "value");
}

void tst_CPortStatusWidget::theTextTakesOnlyWhatItsValidatorLetsThrough_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isAcceptable");
    QTest::newRow("two digits") << "0x7f"
                                << "0x7f" << true;
    QTest::newRow("capitals") << "0xFE"
                              << "0xFE" << true;
    QTest::newRow("eight digits") << "0x12345678"
                                  << "0x12345678" << true;
    QTest::newRow("nine digits") << "0x123456789"
                                 << "0x12345678" << true;
    QTest::newRow("one digit") << "0x7"
                               << "0x7" << false;
    QTest::newRow("without 0x") << "7f"
                                << "" << false;
    QTest::newRow("letters behind f") << "0xgh12z"
                                      << "0x12" << true;
    QTest::newRow("blank and signs") << "0x 1-2"
                                     << "0x12" << true;
    QTest::newRow("what lies between 9 and a") << "0xQ["
                                               << "0xQ[" << true; // required
}

void tst_CPortStatusWidget::theTextTakesOnlyWhatItsValidatorLetsThrough()
{
    QFETCH(QString, typed);
    CPortStatusWidget widget;
    type(widget, typed);
    QTEST(editOf(widget)->text(), "text");
    QTEST(editOf(widget)->hasAcceptableInput(), "isAcceptable");
}

void tst_CPortStatusWidget::a0xAloneIsRefused()
{
    CPortStatusWidget widget;
    QSignalSpy changed(&widget, &CPortStatusWidget::valueChanged);
    type(widget, "0x");
    QVERIFY(!editOf(widget)->hasAcceptableInput());
    QCOMPARE(changed.count(), 0);
}

void tst_CPortStatusWidget::theButtonAsksForTheState()
{
    CPortStatusWidget widget;
    QSignalSpy clicked(&widget, &CPortStatusWidget::clicked);
    QSignalSpy changed(&widget, &CPortStatusWidget::valueChanged);
    QTest::mouseClick(buttonOf(widget), Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(editOf(widget)->text(), QString("0xFF"));
}

void tst_CPortStatusWidget::aTypedStateIsToldAsSoonAsItIsAcceptable()
{
    CPortStatusWidget widget;
    QSignalSpy changed(&widget, &CPortStatusWidget::valueChanged);
    type(widget, "0x7");
    QCOMPARE(changed.count(), 0);
    QTest::keyClicks(editOf(widget), "f");
    QCOMPARE(changed.count(), 1);
    QCOMPARE(widget.value(), quint32(127));
    type(widget, "0xQQ"); // acceptable, but no number
    QCOMPARE(changed.count(), 1);
}

void tst_CPortStatusWidget::aStateThatTheProgramSetsIsNotTold()
{
    CPortStatusWidget widget;
    QSignalSpy changed(&widget, &CPortStatusWidget::valueChanged);
    widget.setValue(127);
    QCOMPARE(changed.count(), 0);
}

void tst_CPortStatusWidget::labelAndButtonTakeTexts()
{
    CPortStatusWidget widget;
    widget.setLabelText("Zustand:");
    widget.setButtonText("Lernen");
    QCOMPARE(widget.labelText(), QString("Zustand:"));
    QCOMPARE(widget.findChild<QLabel*>("stateLabel")->text(), QString("Zustand:"));
    QCOMPARE(widget.buttonText(), QString("Lernen"));
    QCOMPARE(buttonOf(widget)->text(), QString("Lernen"));
}

void tst_CPortStatusWidget::theReturnKeyPressesNoLearnButton()
{
    CPortStatusWidget widget;
    QSignalSpy clicked(&widget, &CPortStatusWidget::clicked);
    QTest::keyClick(buttonOf(widget), Qt::Key_Return);
    QCOMPARE(clicked.count(), 0);
    QTest::keyClick(buttonOf(widget), Qt::Key_Space);
    QCOMPARE(clicked.count(), 1);
}

QTEST_MAIN(tst_CPortStatusWidget)
#include "tst_CPortStatusWidget.moc"
