#include "qr/QZXing.h"

#include <QColor>

#define ZX_USE_UTF8 // Result::text() gives UTF-8
#include <ZXing/BitMatrix.h>
#include <ZXing/MultiFormatWriter.h>
#include <ZXing/ReadBarcode.h>
#include <algorithm>
#include <exception>

namespace {

constexpr int QuietZone = 4; // modules of light around a code

/** @return the level on the writer's scale: 2, 4, 6, 8. */
int writerLevel(QZXing::ErrorCorrection level)
{
    return 2 * int(level) + 2;
}

/** @return a picture with one pixel a module. */
QImage imageOf(const ZXing::BitMatrix& matrix, int margin, bool transparent)
{
    QImage image(matrix.width() + 2 * margin, matrix.height() + 2 * margin, QImage::Format_ARGB32);
    image.fill(transparent ? Qt::transparent : Qt::white);
    for (int y = 0; y < matrix.height(); ++y) {
        for (int x = 0; x < matrix.width(); ++x) {
            if (matrix.get(x, y))
                image.setPixelColor(x + margin, y + margin, Qt::black);
        }
    }
    return image;
}

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

/** One look at one picture, which is grey, 8 bits a pixel. */
QString read(const QImage& grey, ZXing::Binarizer binarizer, int tryHarder)
{
    const auto hints = ZXing::DecodeHints()
                           .setFormats(ZXing::BarcodeFormat::QRCode)
                           .setBinarizer(binarizer)
                           .setTryHarder(tryHarder & QZXing::ThoroughScanning)
                           .setTryRotate(tryHarder & QZXing::Rotation);
    try {
        const ZXing::ImageView view(grey.constBits(), grey.width(), grey.height(), ZXing::ImageFormat::Lum,
                                    grey.bytesPerLine());
        const ZXing::Result result = ZXing::ReadBarcode(view, hints);
        return result.isValid() ? QString::fromStdString(result.text()) : QString();
    } catch (const std::exception&) {
        return QString(); // as unreadable as any other picture
    }
}

QImage limited(const QImage& image, int maxWidth, int maxHeight, bool smooth)
{
    const QSize limit(maxWidth > 0 ? maxWidth : image.width(), maxHeight > 0 ? maxHeight : image.height());
    if (image.width() <= limit.width() && image.height() <= limit.height())
        return image;
    return image.scaled(limit, Qt::KeepAspectRatio,
                        smooth ? Qt::SmoothTransformation : Qt::FastTransformation);
}

} // namespace

QImage QZXing::encodeData(const QString& text, EncoderFormat format, const QSize& size,
                          ErrorCorrection errorCorrection, bool border, bool transparent)
{
    if (format != EncodeQrCode || size.isEmpty())
        return QImage();
    try {
        // A code of plain letters carries no mark of its character set: not every reader knows one.
        auto writer =
            ZXing::MultiFormatWriter(ZXing::BarcodeFormat::QRCode)
                .setMargin(0)
                .setEccLevel(writerLevel(errorCorrection))
                .setEncoding(isAscii(text) ? ZXing::CharacterSet::Unknown : ZXing::CharacterSet::UTF8);
        const ZXing::BitMatrix matrix = writer.encode(text.toStdWString(), 0, 0);
        return imageOf(matrix, border ? QuietZone : 0, transparent).scaled(size);
    } catch (const std::exception&) {
        return QImage();
    }
}

QString QZXing::decodeImage(const QImage& image, int maxWidth, int maxHeight, bool smoothTransformation) const
{
    if (image.isNull() || !(m_formats & DecodeQrCode))
        return QString();
    QImage grey =
        limited(image, maxWidth, maxHeight, smoothTransformation).convertToFormat(QImage::Format_Grayscale8);
    if (m_sourceFilters & NormalImage) {
        const QString text = decodeFiltered(grey);
        if (!text.isEmpty())
            return text;
    }
    if (m_sourceFilters & InvertedImage) {
        grey.invertPixels();
        return decodeFiltered(grey);
    }
    return QString();
}

QString QZXing::decodeFiltered(const QImage& grey) const
{
    return read(grey, ZXing::Binarizer::LocalAverage, m_tryHarder);
}
