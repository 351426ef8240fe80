#include "wizard/CInputPinWidget.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

namespace {

QComboBox* boxOf(const CInputPinWidget& widget)
{
    return widget.findChild<QComboBox*>("inputBox");
}

} // namespace

class tst_CInputPinWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offers54InputsAndNone();
    void theValueOfNoneIsMinus1();
    void anInputIsChosenByItsNumber();
    void aNumberThatIsNoInputChangesNothing();
    void aChoiceOfTheUserIsTold();
    void thereIsNoButton();
};

void tst_CInputPinWidget::offers54InputsAndNone()
{
    CInputPinWidget widget;
    const QComboBox* box = boxOf(widget);
    QCOMPARE(box->count(), 55);
    QCOMPARE(box->itemText(0), QString("---"));
    QCOMPARE(box->itemData(0).toInt(), -1);
    for (int input = 0; input <= 53; ++input) {
        QCOMPARE(box->itemText(input + 1), QStringLiteral("D%1").arg(input));
        QCOMPARE(box->itemData(input + 1).toInt(), input);
    }
}

void tst_CInputPinWidget::theValueOfNoneIsMinus1()
{
    CInputPinWidget widget;
    QCOMPARE(int(widget.value()), -1);
    widget.setValue(5);
    widget.setValue(quint32(-1));
    QCOMPARE(boxOf(widget)->currentText(), QString("---"));
    QCOMPARE(int(widget.value()), -1);
    boxOf(widget)->setCurrentIndex(-1);
    QCOMPARE(int(widget.value()), -1);
}

void tst_CInputPinWidget::anInputIsChosenByItsNumber()
{
    CInputPinWidget widget;
    for (const quint32 input : {0U, 7U, 53U}) {
        widget.setValue(input);
        QCOMPARE(boxOf(widget)->currentText(), QStringLiteral("D%1").arg(input));
        QCOMPARE(widget.value(), input);
    }
}

void tst_CInputPinWidget::aNumberThatIsNoInputChangesNothing()
{
    CInputPinWidget widget;
    widget.setValue(12);
    for (const quint32 number : {54U, 255U, 0x80000000U}) {
        widget.setValue(number);
        QCOMPARE(widget.value(), 12U);
    }
}

void tst_CInputPinWidget::aChoiceOfTheUserIsTold()
{
    CInputPinWidget widget;
    widget.show();
    QSignalSpy changed(&widget, &CInputPinWidget::valueChanged);
    QTest::keyClick(boxOf(widget), Qt::Key_Down);
    QCOMPARE(widget.value(), 0U);
    QCOMPARE(changed.count(), 1);
    widget.setValue(3);
    QCOMPARE(changed.count(), 1);
}

void tst_CInputPinWidget::thereIsNoButton()
{
    CInputPinWidget widget;
    widget.setButtonText("Ermitteln");
    QCOMPARE(widget.buttonText(), QString());
    widget.setLabelText("Pin für Spur 1:");
    QCOMPARE(widget.labelText(), QString("Pin für Spur 1:"));
}

QTEST_MAIN(tst_CInputPinWidget)
#include "tst_CInputPinWidget.moc"
