#include "qr/QZXing.h"
#include "support/CodePictures.h"

#include <QtTest>

namespace {

QImage code(const QString& text, QZXing::ErrorCorrection level = QZXing::CorrectionLow)
{
    return QZXing::encodeData(text, QZXing::EncodeQrCode, QSize(240, 240), level, true, false);
}

/** @return a picture on a field of its own, turned and scaled about the middle. */
QImage placed(const QImage& picture, const QColor& field, double angle = 0.0, double scale = 1.0)
{
    QImage scene(1280, 720, QImage::Format_RGB32);
    scene.fill(field);
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(640, 360);
    painter.rotate(angle);
    painter.scale(scale, scale);
    painter.drawImage(QPoint(-picture.width() / 2, -picture.height() / 2), picture);
    return scene;
}

QZXing thoroughDecoder()
{
    QZXing decoder;
    decoder.setDecoder(0x1000);
    decoder.setSourceFilterType(6);
    decoder.setTryHarderBehaviour(6);
    return decoder;
}

} // namespace

class tst_QZXing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aCodeFillsItsPicture();
    void marginAndTransparencyAreAsked();
    void lowCorrectionTakesTheSmallestCode();
    void whatIsNoQrCodeIsNotMade();
    void turnedInAnyDirection_data();
    void turnedInAnyDirection();
    void invertedOnlyWhereItIsAskedFor();
    void noKindOfCodeIsLookedForUnlessItIsAskedFor();
    void aLargePictureIsScaledDownToTheLimit();
    void anyKindOfPicture_data();
    void anyKindOfPicture();
    void ofPoorQuality_data();
    void ofPoorQuality();
    void picturesWithoutACode_data();
    void picturesWithoutACode();
};

void tst_QZXing::aCodeFillsItsPicture()
{
    const QImage image = QZXing::encodeData("<car>Pfeil", QZXing::EncodeQrCode, QSize(240, 240),
                                            QZXing::CorrectionLow, false, false);
    QCOMPARE(image.size(), QSize(240, 240));
    for (const QPoint corner : {QPoint(0, 0), QPoint(239, 0), QPoint(0, 239)})
        QCOMPARE(image.pixelColor(corner), QColor(Qt::black));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            QVERIFY(pixel == 0xff000000U || pixel == 0xffffffffU); // no edge is smoothed
        }
    }
}

void tst_QZXing::marginAndTransparencyAreAsked()
{
    const auto made = [](bool border, bool transparent) {
        return QZXing::encodeData("Anna", QZXing::EncodeQrCode, QSize(290, 290), QZXing::CorrectionLow,
                                  border, transparent);
    };
    QCOMPARE(made(false, false).pixelColor(0, 0), QColor(Qt::black));
    QCOMPARE(made(true, false).pixelColor(0, 0), QColor(Qt::white));
    QCOMPARE(made(true, false).pixelColor(39, 39), QColor(Qt::white)); // four of 29 modules
    QCOMPARE(made(true, false).pixelColor(41, 41), QColor(Qt::black));
    QCOMPARE(made(true, true).pixelColor(0, 0).alpha(), 0);
}

void tst_QZXing::lowCorrectionTakesTheSmallestCode()
{
    // 17 bytes fill the smallest code of the low level; of each higher level they need more.
    const auto modules = [](QZXing::ErrorCorrection level) {
        const QImage image = QZXing::encodeData("abcdefghijklmnopq", QZXing::EncodeQrCode, QSize(2100, 2100),
                                                level, false, false);
        int dark = 0;
        while (image.pixelColor(dark, 0) == QColor(Qt::black))
            ++dark;
        return qRound(7.0 * 2100 / dark); // the finder is seven modules wide
    };
    QCOMPARE(modules(QZXing::CorrectionLow), 21);
    QCOMPARE(modules(QZXing::CorrectionMedium), 25);
    QCOMPARE(modules(QZXing::CorrectionQuartile), 25);
    QCOMPARE(modules(QZXing::CorrectionHigh), 29);
}

void tst_QZXing::whatIsNoQrCodeIsNotMade()
{
    QVERIFY(QZXing::encodeData(QString(5000, 'x'), QZXing::EncodeQrCode, QSize(240, 240),
                               QZXing::CorrectionLow, false, false)
                .isNull());
    QVERIFY(QZXing::encodeData("Anna", QZXing::EncoderFormat(2), QSize(240, 240), QZXing::CorrectionLow,
                               false, false)
                .isNull());
    QVERIFY(QZXing::encodeData("Anna", QZXing::EncodeQrCode, QSize(), QZXing::CorrectionLow, false, false)
                .isNull());
}

void tst_QZXing::turnedInAnyDirection_data()
{
    QTest::addColumn<int>("angle");
    for (int angle = 0; angle < 360; angle += 15)
        QTest::addRow("%d degrees", angle) << angle;
}

void tst_QZXing::turnedInAnyDirection()
{
    QFETCH(int, angle);
    QCOMPARE(thoroughDecoder().decodeImage(placed(code("<drv>Jürgen Größe"), Qt::darkGray, angle)),
             QString("<drv>Jürgen Größe"));
}

void tst_QZXing::invertedOnlyWhereItIsAskedFor()
{
    const QImage normal = placed(code("<car>Pfeil"), Qt::lightGray);
    QImage inverted = normal;
    inverted.invertPixels();
    const auto read = [](int filter, const QImage& image) {
        QZXing decoder = thoroughDecoder();
        decoder.setSourceFilterType(filter);
        return decoder.decodeImage(image);
    };
    QCOMPARE(read(QZXing::NormalImage, normal), QString("<car>Pfeil"));
    QCOMPARE(read(QZXing::NormalImage, inverted), QString());
    QCOMPARE(read(QZXing::InvertedImage, normal), QString());
    QCOMPARE(read(QZXing::InvertedImage, inverted), QString("<car>Pfeil"));
    QCOMPARE(read(6, normal), QString("<car>Pfeil"));
    QCOMPARE(read(6, inverted), QString("<car>Pfeil"));
}

void tst_QZXing::noKindOfCodeIsLookedForUnlessItIsAskedFor()
{
    QZXing decoder = thoroughDecoder();
    decoder.setDecoder(0);
    QCOMPARE(decoder.decodeImage(code("Anna")), QString());
    decoder.setDecoder(0x1000);
    QCOMPARE(decoder.decodeImage(code("Anna")), QString("Anna"));
}

void tst_QZXing::aLargePictureIsScaledDownToTheLimit()
{
    const QImage picture = placed(code("Anna"), Qt::white, 0.0, 2.0);
    QCOMPARE(thoroughDecoder().decodeImage(picture, 640, 640, true), QString("Anna"));
    QCOMPARE(thoroughDecoder().decodeImage(picture, 64, 64, true), QString()); // too few dots are left
    QCOMPARE(thoroughDecoder().decodeImage(picture, 64, -1, true), QString());
    QCOMPARE(thoroughDecoder().decodeImage(picture, -1, 36, false), QString());
    QCOMPARE(thoroughDecoder().decodeImage(picture, 4000, 4000, false), QString("Anna"));
}

void tst_QZXing::anyKindOfPicture_data()
{
    QTest::addColumn<int>("format");
    for (const auto format :
         {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32,
          QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB16, QImage::Format_RGB888,
          QImage::Format_RGBA64, QImage::Format_Grayscale8, QImage::Format_Grayscale16})
        QTest::addRow("format %d", format) << int(format);
}

void tst_QZXing::anyKindOfPicture()
{
    QFETCH(int, format);
    const QImage picture = placed(code("Anna"), Qt::white).convertToFormat(QImage::Format(format));
    QCOMPARE(thoroughDecoder().decodeImage(picture), QString("Anna"));
}

/** What is too faint, uneven, grainy or soft for the library alone to tell black from white. */
void tst_QZXing::ofPoorQuality_data()
{
    using namespace CodePictures;
    const QImage held = scene(texts().first(), upright(240, 8));
    const auto shade = [](double value, int x, int) {
        return value * (0.04 + 0.8 / (1 + std::exp((680 - x) / 15.0)));
    };
    QTest::addColumn<QImage>("picture");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QImage& picture, const QString& text = texts().first()) {
        QTest::newRow(name) << picture << text;
    };
    row("noise", noisy(held, 80, 3));
    row("heavy noise", noisy(held, 105, 37));
    row("low light", dark(held, 8, 5));
    row("low light, small", dark(scene(texts().first(), upright(110, 10)), 6, 1));
    row("shade", noisy(eachDot(held, shade), 1.5, 7));
    row("glare", glaring(held, 0.8, QPointF(800, 250), 400));
    row("blur", blurred(scene(texts().last(), upright(240, 5)), 3.5), texts().last());
}

void tst_QZXing::ofPoorQuality()
{
    QFETCH(QImage, picture);
    QFETCH(QString, text);
    QCOMPARE(thoroughDecoder().decodeImage(picture), text);
}

void tst_QZXing::picturesWithoutACode_data()
{
    QTest::addColumn<QImage>("picture");
    const auto plain = [](int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::gray);
        return image;
    };
    QTest::newRow("null") << QImage();
    QTest::newRow("one dot") << plain(1, 1);
    QTest::newRow("one row") << plain(2000, 1);
    QTest::newRow("one column") << plain(1, 2000);
    QTest::newRow("plain") << plain(1280, 720);
    QTest::newRow("half a code") << placed(code("Anna").copy(0, 0, 120, 240), Qt::white);
    QImage noise = plain(640, 480);
    for (int y = 0; y < noise.height(); ++y) {
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, (x * 7919 + y * 104729 + x * y * 31) % 2 ? 0xffffffff : 0xff000000);
    }
    QTest::newRow("noise") << noise;
}

void tst_QZXing::picturesWithoutACode()
{
    QFETCH(QImage, picture);
    QCOMPARE(thoroughDecoder().decodeImage(picture), QString());
}

QTEST_GUILESS_MAIN(tst_QZXing)
#include "tst_QZXing.moc"
