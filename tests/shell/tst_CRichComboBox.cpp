#include "shell/CRichComboBox.h"

#include <QLineEdit>
#include <QStandardItemModel>
#include <QTest>

class tst_CRichComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsFramelessInTwelvePointsOfNormalWeight()
    {
        const CRichComboBox box;
        QVERIFY(!box.hasFrame());
        QCOMPARE(box.font().pointSize(), 12);
        QCOMPARE(box.font().weight(), 50);
    }

    void chosenEntryDoesNotLightUpInAnyColourGroup()
    {
        const CRichComboBox box;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(box.palette().brush(group, QPalette::Highlight),
                     box.palette().brush(QPalette::Active, QPalette::Base));
    }

    void pointSizeReachesTheFont()
    {
        CRichComboBox box;
        box.setPointSize(25);
        QCOMPARE(box.font().pointSize(), 25);
        QCOMPARE(box.font().weight(), 50);
    }

    void pointSizeReachesTheTextThatCanBeTyped()
    {
        QWidget window;
        window.setStyleSheet(QStringLiteral("QWidget {color: #646464; background-color: black;}"));
        CRichComboBox box(&window);
        box.setEditable(true);
        box.setColor(QStringLiteral("#FF3214"));
        window.show();
        for (const int size : {25, 7}) {
            box.setPointSize(size);
            QCOMPARE(box.lineEdit()->font().pointSize(), size);
        }
    }

    void colourGoesToThePaletteAndTheStyleSheet()
    {
        CRichComboBox box;
        box.setColor(QStringLiteral("#FF3214"));
        QCOMPARE(box.styleSheet(), QStringLiteral("color: #FF3214; selection-color: #FF3214;"));
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(box.palette().color(group, QPalette::Text), QColor(255, 50, 20));
            QCOMPARE(box.palette().color(group, QPalette::HighlightedText), QColor(255, 50, 20));
        }
    }

    void lastColourWins()
    {
        CRichComboBox box;
        box.setColor(QStringLiteral("#FF3214"));
        box.setColor(QStringLiteral("#00FF00"));
        QCOMPARE(box.styleSheet(), QStringLiteral("color: #00FF00; selection-color: #00FF00;"));
        QCOMPARE(box.palette().color(QPalette::Text), QColor(0, 255, 0));
    }

    void disabledBoxKeepsItsColour()
    {
        QWidget window;
        window.setStyleSheet(QStringLiteral("QWidget {color: #646464; background-color: black;}"));
        CRichComboBox box(&window);
        box.addItem(QStringLiteral("\u2588\u2588\u2588"));
        box.setColor(QStringLiteral("#00FF00"));
        box.setEnabled(false);
        box.resize(120, 30);
        const QImage picture = box.grab().toImage();
        int green = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                green += picture.pixelColor(x, y) == QColor(0, 255, 0) ? 1 : 0;
        }
        QVERIFY2(green > 50, qPrintable(QString::number(green)));
    }
};

QTEST_MAIN(tst_CRichComboBox)
#include "tst_CRichComboBox.moc"
