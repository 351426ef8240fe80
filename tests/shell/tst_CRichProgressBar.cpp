#include "shell/CRichProgressBar.h"

#include <QTest>

namespace {

QString sheet(const char* text, const char* color, int radius = 5, int border = 2, int chunkRadius = 3)
{
    return QStringLiteral(
               "QProgressBar {color: %1; border-radius: %2px; text-align: center; border: %3px solid %4; }"
               "QProgressBar::chunk { background-color: %4; margin: 0px; border-radius: %5px;}")
        .arg(QLatin1String(text))
        .arg(radius)
        .arg(border)
        .arg(QLatin1String(color))
        .arg(chunkRadius);
}

/** Counts how often a style sheet was set anew. */
class StyleChanges : public QObject
{
public:
    explicit StyleChanges(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::StyleChange ? 1 : 0;
        return false;
    }
};

} // namespace

class tst_CRichProgressBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsColoursAndFont()
    {
        const CRichProgressBar bar;
        QCOMPARE(bar.colorName(), QStringLiteral("black"));
        QCOMPARE(bar.redColorName(), QStringLiteral("red"));
        QCOMPARE(bar.redThreshold(), 20);
        QCOMPARE(bar.font().pointSize(), 14);
        QCOMPARE(bar.font().weight(), 50);
    }

    void valuesAroundTheThreshold_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("100 is the track's colour") << 100 << sheet("#999999", "#FFC80A");
        QTest::newRow("21 is grey text on the track's colour") << 21 << sheet("#999999", "#FFC80A");
        QTest::newRow("exactly 20 is red") << 20 << sheet("#FF3214", "#FF3214");
        QTest::newRow("0 is red") << 0 << sheet("#FF3214", "#FF3214");
    }

    void valuesAroundTheThreshold()
    {
        QFETCH(int, value);
        CRichProgressBar bar;
        bar.setRange(0, 100);
        bar.setColorName(QStringLiteral("#FFC80A"));
        bar.setRedColorName(QStringLiteral("#FF3214"));
        bar.setValue(value);
        QTEST(bar.styleSheet(), "expected");
        QCOMPARE(bar.value(), value);
    }

    void colourRestylesWithGreyTextEvenOnReserve()
    {
        CRichProgressBar bar;
        bar.setValue(10);
        bar.setColorName(QStringLiteral("#00FF00"));
        QCOMPARE(bar.styleSheet(), sheet("#999999", "#00FF00"));
        bar.setValue(10);
        QCOMPARE(bar.styleSheet(), sheet("red", "red"));
    }

    void redColourRestylesARedBarOnly()
    {
        CRichProgressBar bar;
        bar.setValue(10);
        bar.setRedColorName(QStringLiteral("#FF3214"));
        QCOMPARE(bar.styleSheet(), sheet("#FF3214", "#FF3214"));
        bar.setValue(100);
        bar.setRedColorName(QStringLiteral("#800000"));
        QCOMPARE(bar.styleSheet(), sheet("#999999", "black"));
    }

    void thresholdActsOnTheValueThatStands()
    {
        CRichProgressBar bar;
        bar.setValue(30);
        QCOMPARE(bar.styleSheet(), sheet("#999999", "black"));
        bar.setRedThreshold(30);
        QCOMPARE(bar.styleSheet(), sheet("red", "red"));
        bar.setRedThreshold(29);
        QCOMPARE(bar.styleSheet(), sheet("#999999", "black"));
    }

    void sizeDividesBorderAndRoundingCutToWholePixels_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("expected");
        QTest::newRow("1") << 1 << sheet("#999999", "black", 5, 2, 3);
        QTest::newRow("2") << 2 << sheet("#999999", "black", 2, 1, 1);
        QTest::newRow("3") << 3 << sheet("#999999", "black", 1, 0, 1);
        QTest::newRow("0 is ignored") << 0 << sheet("#999999", "black", 5, 2, 3);
    }

    void sizeDividesBorderAndRoundingCutToWholePixels()
    {
        QFETCH(int, size);
        CRichProgressBar bar;
        bar.setValue(100);
        bar.setSize(size);
        QTEST(bar.styleSheet(), "expected");
    }

    void heightAndFontSize()
    {
        CRichProgressBar bar;
        bar.setMaxHeight(22);
        bar.setFontSize(10);
        QCOMPARE(bar.maximumHeight(), 22);
        QCOMPARE(bar.font().pointSize(), 10);
    }

    void styleIsSetOnlyWhenItChanges()
    {
        CRichProgressBar bar;
        bar.setValue(100);
        bar.ensurePolished();
        StyleChanges changes(bar);
        for (int value = 99; value > 20; --value)
            bar.setValue(value);
        QCOMPARE(changes.count, 0);
        bar.setValue(20);
        QCOMPARE(changes.count, 1);
        bar.setValue(19);
        QCOMPARE(changes.count, 1);
    }
};

QTEST_MAIN(tst_CRichProgressBar)
#include "tst_CRichProgressBar.moc"
