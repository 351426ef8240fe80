#include "shell/CRichLabel.h"
#include "support/Ink.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QTest>

/** Counts what a change costs. */
class CCountingLabel : public CRichLabel
{
    Q_OBJECT

public:
    using CRichLabel::CRichLabel;

    int paints = 0;
    QRegion lastRegion;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        lastRegion = event->region();
        CRichLabel::paintEvent(event);
    }
};

/** Counts the paints of a parent and the layouts asked for. */
class CCountingParent : public QWidget
{
    Q_OBJECT

public:
    int paints = 0;
    int layoutRequests = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            ++layoutRequests;
        return QWidget::event(event);
    }
};

class tst_CRichLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithArialBoldInTenPointsAndTheSizeOfAMiddlePanel()
    {
        const CRichLabel label;
        QCOMPARE(label.font().family(), QStringLiteral("Arial"));
        QCOMPARE(label.font().pointSize(), 10);
        QCOMPARE(label.font().weight(), 75);
        QCOMPARE(label.sizeHint(), QSize(182, 85));
        QCOMPARE(label.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
        QCOMPARE(label.text(), QString());
    }

    void scaledFontIsAPercentageOfThePointSizeCutToWholePoints_data()
    {
        QTest::addColumn<int>("pointSize");
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("expected");
        QTest::newRow("150 at 80 %") << 150 << 80 << 120;
        QTest::newRow("37 at 80 %") << 37 << 80 << 29;
        QTest::newRow("15 at 33 %") << 15 << 33 << 4;
        QTest::newRow("40 at 100 %") << 40 << 100 << 40;
    }

    void scaledFontIsAPercentageOfThePointSizeCutToWholePoints()
    {
        QFETCH(int, pointSize);
        QFETCH(int, percent);
        CRichLabel label;
        label.setPointSize(pointSize);
        label.scaleFont(percent);
        QTEST(label.font().pointSize(), "expected");
        QCOMPARE(label.pointSize(), pointSize);
        label.scaleFont(percent); // a scaled font isn't scaled once more
        QTEST(label.font().pointSize(), "expected");
        label.restoreFont();
        QCOMPARE(label.font().pointSize(), pointSize);
    }

    void setFontKeepsEveryPropertyAndRestoreGoesBackToItsSize()
    {
        CRichLabel label;
        QFont font(QStringLiteral("Liberation Mono"), 17, QFont::Normal);
        label.setFont(font);
        QCOMPARE(label.font(), font);
        label.scaleFont(50);
        label.restoreFont();
        QCOMPARE(label.font(), font);
    }

    void paintsTheTextInTheMiddleInItsColour()
    {
        CRichLabel label(QStringLiteral("0"), Qt::red);
        setBlack(label);
        label.setWidth(101);
        label.setHeight(60);
        const QImage picture = pictureOf(label);
        QCOMPARE(picture.size(), QSize(101, 60));
        const QRect ink = inkOf(picture, Qt::black);
        QVERIFY(!ink.isEmpty());
        QVERIFY2(qAbs(ink.center().x() - 50) <= 1, qPrintable(QString::number(ink.center().x())));
        QVERIFY2(qAbs(ink.center().y() - 30) <= 2, qPrintable(QString::number(ink.center().y())));
        QVERIFY(onlyShadesOfRed(picture));
    }

    void figuresLookAsIfDrawnInOneGo_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("points");
        for (const int points : {12, 15, 25, 40, 52, 150})
            for (const char* text : {"00:05:734", "110", "11:11:111", " -1", "123,4 km/h"})
                QTest::newRow(qPrintable(QString("%1 in %2").arg(text).arg(points))) << text << points;
    }

    void figuresLookAsIfDrawnInOneGo()
    {
        QFETCH(QString, text);
        QFETCH(int, points);
        CRichLabel label(text, Qt::white);
        setBlack(label);
        label.setPointSize(points);
        label.setWidth(points * 10);
        label.setHeight(points * 2);
        const QImage picture = pictureOf(label);
        QImage expected(picture.size(), QImage::Format_RGB32);
        expected.fill(Qt::black);
        QPainter painter(&expected);
        QFont font = label.font();
        font.setPixelSize(qRound(points * 96 / 72.0));
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(expected.rect(), Qt::AlignCenter, text);
        painter.end();
        const QRect ink = inkOf(picture, Qt::black);
        const QRect expectedInk = inkOf(expected, Qt::black);
        QVERIFY(!ink.isEmpty());
        QVERIFY2(isNear(ink, expectedInk, 2), "the figures stand somewhere else");
        // Half a pixel of offset changes edges only: the same amount of ink to some percent.
        const double share = inkAmount(picture) / inkAmount(expected);
        QVERIFY2(share > 0.93 && share < 1.07, qPrintable(QString::number(share)));
    }

    void changedLookIsPaintedAtOnce()
    {
        CRichLabel label(QStringLiteral("00:05:734"), Qt::white);
        setBlack(label);
        pictureOf(label);
        label.setColor(QColor(Qt::red));
        QVERIFY(onlyShadesOfRed(pictureOf(label)));
        label.setPointSize(18);
        label.setStretch(90);
        CRichLabel fresh(label.text(), Qt::red);
        setBlack(fresh);
        fresh.setPointSize(18);
        fresh.setStretch(90);
        QCOMPARE(pictureOf(label), pictureOf(fresh));
    }

    void wordsAreKernedAndOtherScriptsAreShaped_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("kerned") << "AVATAV";
        QTest::newRow("an accent of its own") << QString::fromUtf8("a\u0308a\u0308a\u0308");
        QTest::newRow("beyond 16 bits") << QString::fromUtf8("\U0001F3CE");
    }

    void wordsAreKernedAndOtherScriptsAreShaped()
    {
        QFETCH(QString, text);
        CRichLabel label(text, Qt::white);
        setBlack(label);
        label.setPointSize(30);
        label.setWidth(300);
        QFont font = label.font();
        font.setPixelSize(40);
        const QFontMetrics metrics(font);
        const QSize size(metrics.horizontalAdvance(text), metrics.height());
        QImage expected(300, 85, QImage::Format_RGB32);
        expected.fill(Qt::black);
        QPainter painter(&expected);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.translate((300 - size.width()) / 2, (85 - size.height()) / 2);
        painter.drawText(QRect(0, 0, size.width() - 1, size.height() - 1), Qt::AlignCenter | Qt::TextDontClip,
                         text);
        painter.end();
        QCOMPARE(pictureOf(label), expected);
    }

    void textWiderThanTheLabelStartsLeftOfItsEdgeAndIsClippedByIt()
    {
        QWidget parent;
        setBlack(parent);
        CRichLabel wide(QStringLiteral("12345678901234567890"), Qt::white, &parent);
        setBlack(wide);
        wide.setWidth(50);
        wide.setHeight(40);
        const int textWidth = QFontMetrics(wide.font()).horizontalAdvance(wide.text());
        QVERIFY(textWidth > 100);
        wide.setGeometry(100, 20, 50, 40);
        parent.resize(400, 100);
        const QImage picture = pictureOf(parent);
        const QRect ink = inkOf(picture, Qt::black);
        QVERIFY(wide.geometry().contains(ink));       // nothing outside the label ...
        QCOMPARE(ink.left(), wide.geometry().left()); // ... and cut on both sides
        QCOMPARE(ink.right(), wide.geometry().right());
        // It shows the middle of the text, not its beginning.
        CRichLabel roomy(wide.text(), Qt::white);
        setBlack(roomy);
        roomy.setWidth(textWidth);
        roomy.setHeight(40);
        const QImage whole = pictureOf(roomy);
        QCOMPARE(pictureOf(wide), whole.copy((textWidth - 50) / 2, 0, 50, 40));
    }

    void takesItsSizeHintWhenItPaints()
    {
        CRichLabel label(QStringLiteral("000"), Qt::white);
        label.resize(20, 20);
        label.setWidth(120);
        label.setHeight(44);
        label.grab();
        QCOMPARE(label.size(), QSize(120, 44));
    }

    void stretchMakesTheTextNarrowerAndKeepsThePointSize()
    {
        CRichLabel label(QStringLiteral("1000"), Qt::white);
        setBlack(label);
        label.setPointSize(30);
        const int plain = inkOf(pictureOf(label), Qt::black).width();
        label.setStretch(80);
        const int stretched = inkOf(pictureOf(label), Qt::black).width();
        QVERIFY2(stretched < plain * 9 / 10, qPrintable(QString("%1 of %2").arg(stretched).arg(plain)));
        QCOMPARE(label.font().pointSize(), 30);
        QCOMPARE(label.font().family(), QStringLiteral("Arial"));
    }

    void textThatFitsNeedsNoStretch()
    {
        CRichLabel label;
        QCOMPARE(label.fittingStretch(QStringLiteral("000")), 100);
        QCOMPARE(label.fittingStretch(QString()), 100);
    }

    void fittingStretchIsTheWidestThatCutsNothing()
    {
        CRichLabel label(QStringLiteral("1000"), Qt::white);
        setBlack(label);
        label.setPointSize(150);
        label.setWidth(320);
        label.setHeight(180);
        label.scaleFont(80);
        const int stretch = label.fittingStretch(label.text(), 80);
        QVERIFY2(stretch < 100 && stretch > 80, qPrintable(QString::number(stretch)));
        QCOMPARE(label.font().pointSize(), 120); // asking changes nothing
        label.setStretch(stretch);
        const int narrow = inkWidth(label);
        label.setWidth(600);
        QCOMPARE(inkWidth(label), narrow); // nothing was cut
        label.setWidth(320);
        label.setStretch(100);
        const int cut = inkWidth(label);
        label.setWidth(600);
        QVERIFY(inkWidth(label) > cut); // a full one would be
    }

    void stretchHasALimitWhereNoneFits()
    {
        CRichLabel label;
        label.setPointSize(150);
        label.setWidth(20);
        QCOMPARE(label.fittingStretch(QStringLiteral("00:00:000")), 50);
    }

    void pointsArePixelsOf96DotsAnInchOnEveryScreen()
    {
        CRichLabel label(QStringLiteral("0"), Qt::white);
        setBlack(label);
        label.setPointSize(72);
        label.setHeight(150);
        QFont pixels = label.font();
        pixels.setPixelSize(96);
        const int digit = inkOf(pictureOf(label), Qt::black).height();
        const int expected = QFontMetrics(pixels).tightBoundingRect(QStringLiteral("0")).height();
        QVERIFY2(qAbs(digit - expected) <= 1, qPrintable(QString("%1 of %2").arg(digit).arg(expected)));
    }

    void digitsStandStillWhenTheyChange()
    {
        CRichLabel label(QStringLiteral("00:05:734"), Qt::white);
        for (const char* text : {"11:11:111", "00:00:000", "59:48:888"})
            QCOMPARE(QFontMetrics(label.font()).horizontalAdvance(QLatin1String(text)),
                     QFontMetrics(label.font()).horizontalAdvance(label.text()));
    }

    void newTextRepaintsTheLabelAloneAndMovesNoLayout()
    {
        CCountingParent parent;
        QHBoxLayout layout(&parent);
        CCountingLabel label(QStringLiteral("00:00:000"), Qt::white, &parent);
        CCountingLabel other(QStringLiteral("00:00:000"), Qt::white, &parent);
        layout.addWidget(&label);
        layout.addWidget(&other);
        parent.show();
        QVERIFY(QTest::qWaitForWindowExposed(&parent));
        QTRY_VERIFY(label.paints > 0 && other.paints > 0 && parent.paints > 0);
        settle();
        label.paints = other.paints = parent.paints = parent.layoutRequests = 0;
        label.setText(QStringLiteral("00:05:734"));
        QTRY_COMPARE(label.paints, 1);
        settle();
        QCOMPARE(label.lastRegion, QRegion(label.rect()));
        QCOMPARE(label.paints, 1);
        QCOMPARE(other.paints, 0);
        QCOMPARE(parent.paints, 0);
        QCOMPARE(parent.layoutRequests, 0);
    }

    void settersThatChangeNothingPaintNothing()
    {
        CCountingLabel label(QStringLiteral("000"), Qt::white);
        label.setPointSize(30);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        QTRY_VERIFY(label.paints > 0);
        settle();
        label.paints = 0;
        label.setText(QStringLiteral("000"));
        label.setColor(QColor(Qt::white));
        label.setPointSize(30);
        label.restoreFont();
        label.scaleFont(100);
        label.setWidth(182);
        label.setHeight(85);
        settle();
        QCOMPARE(label.paints, 0);
    }

    void everySetterThatChangesSomethingRepaints()
    {
        CCountingLabel label(QStringLiteral("000"), Qt::white);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        QTRY_VERIFY(label.paints > 0);
        const auto repainted = [&label] {
            settle();
            const bool painted = label.paints > 0;
            label.paints = 0;
            return painted;
        };
        repainted();
        label.setText(QStringLiteral("001"));
        QVERIFY(repainted());
        label.setColor(QStringLiteral("#FF3214"));
        QVERIFY(repainted());
        QCOMPARE(label.color(), QColor(255, 50, 20));
        label.setPointSize(20);
        QVERIFY(repainted());
        label.scaleFont(50);
        QVERIFY(repainted());
        label.restoreFont();
        QVERIFY(repainted());
        label.setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        QVERIFY(repainted());
        label.setWidth(90);
        QVERIFY(repainted());
        label.setHeight(50);
        QVERIFY(repainted());
    }

private:
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

    static int inkWidth(CRichLabel& label) { return inkOf(pictureOf(label), Qt::black).width(); }

    static bool isNear(const QRect& first, const QRect& second, int pixels)
    {
        return qAbs(first.left() - second.left()) <= pixels &&
               qAbs(first.right() - second.right()) <= pixels && qAbs(first.top() - second.top()) <= pixels &&
               qAbs(first.bottom() - second.bottom()) <= pixels;
    }

    static double inkAmount(const QImage& picture)
    {
        double amount = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                amount += qGreen(picture.pixel(x, y));
        }
        return amount;
    }

    static void setBlack(QWidget& widget)
    {
        QPalette palette = widget.palette();
        palette.setColor(QPalette::Window, Qt::black);
        widget.setPalette(palette);
    }

    static bool onlyShadesOfRed(const QImage& picture)
    {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (qGreen(picture.pixel(x, y)) != 0 || qBlue(picture.pixel(x, y)) != 0)
                    return false;
            }
        }
        return true;
    }
};

QTEST_MAIN(tst_CRichLabel)
#include "tst_CRichLabel.moc"
