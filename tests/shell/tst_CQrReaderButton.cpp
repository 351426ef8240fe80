#include "shell/CQrReaderButton.h"

#include <QImage>
#include <QTest>

class tst_CQrReaderButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithIconAndYellowBackground()
    {
        const CQrReaderButton button;
        QCOMPARE(button.icon().pixmap(48).toImage().convertToFormat(QImage::Format_ARGB32),
                 QImage(QStringLiteral(":/images/QR_Icon4.png")).convertToFormat(QImage::Format_ARGB32));
        QVERIFY(!button.icon().pixmap(48).isNull());
        QCOMPARE(button.styleSheet(), QStringLiteral("background-color: #FFC80A; padding: 0px;"));
    }

    void backgroundColourIsAStyleSheetAndTheColourItselfStaysInvalid()
    {
        CQrReaderButton button;
        QVERIFY(!button.color().isValid());
        button.setBackgroundColor(QStringLiteral("#00FF00"));
        QCOMPARE(button.styleSheet(), QStringLiteral("background-color: #00FF00; padding: 0px;"));
        QVERIFY(!button.color().isValid());
    }

    void backgroundIsPainted()
    {
        CQrReaderButton button;
        button.setBackgroundColor(QStringLiteral("#00FF00"));
        button.resize(40, 40);
        const QColor edge = button.grab().toImage().pixelColor(3, 20); // the style may shade it
        QVERIFY2(edge.green() > edge.red() + 100 && edge.green() > edge.blue() + 100,
                 qPrintable(edge.name()));
    }
};

QTEST_MAIN(tst_CQrReaderButton)
#include "tst_CQrReaderButton.moc"
