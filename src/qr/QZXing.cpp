#include "qr/QZXing.h"

#include <QColor>

#define ZX_USE_UTF8 // Result::text() gives UTF-8
#include <ZXing/BitMatrix.h>
#include <ZXing/MultiFormatWriter.h>
#include <ZXing/ReadBarcode.h>
#include <algorithm>
#include <exception>
#include <vector>

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

/** How a picture is made black and white where its light is poor. */
struct LocalThreshold
{
    int smoothing;    ///< dots around a dot that count as one with it, against noise
    int surroundings; ///< dots around a dot whose mean parts black from white, against shade and glare
};

constexpr LocalThreshold LocalThresholds[] = {
    {1, 20}, // shade, and small codes in low light
    {2, 50}, // noise
    {0, 8},  // blur, and small codes; takes the longest, for it finds the most that looks like a code
};

/** Sums over any square of a picture, in the time of four look-ups. */
class SquareSums
{
public:
    explicit SquareSums(const QImage& grey)
        : m_size(grey.size()), m_sums(size_t(grey.width() + 1) * size_t(grey.height() + 1))
    {
        for (int y = 0; y < m_size.height(); ++y) {
            const uchar* line = grey.constScanLine(y);
            const quint32* above = row(y);
            quint32* sums = &m_sums[rowStart(y + 1)];
            quint32 sum = 0;
            for (int x = 0; x < m_size.width(); ++x) {
                sum += line[x];
                sums[x + 1] = above[x + 1] + sum;
            }
        }
    }

    const QSize& size() const { return m_size; }

    /** @return whether the mean of the inner square around a dot is not below that of the outer one. */
    bool isLight(int x, int y, const LocalThreshold& threshold) const
    {
        const Square inner = square(x, y, threshold.smoothing);
        const Square outer = square(x, y, threshold.surroundings);
        return inner.sum * outer.dots >= outer.sum * inner.dots;
    }

private:
    struct Square
    {
        quint64 sum;
        quint64 dots;
    };

    /** @return the square around a dot, as far as it lies in the picture. */
    Square square(int x, int y, int radius) const
    {
        const int left = std::max(0, x - radius);
        const int right = std::min(m_size.width(), x + radius + 1);
        const int top = std::max(0, y - radius);
        const int bottom = std::min(m_size.height(), y + radius + 1);
        const quint32* above = row(top);
        const quint32* within = row(bottom);
        const quint32 sum = within[right] - within[left] - above[right] + above[left];
        return {sum, quint64(right - left) * quint64(bottom - top)};
    }
    size_t rowStart(int y) const { return size_t(y) * size_t(m_size.width() + 1); }
    const quint32* row(int y) const { return &m_sums[rowStart(y)]; }

    QSize m_size;
    std::vector<quint32> m_sums; ///< of all dots above and left; an overflow cancels out in a square
};

/** @return 0 for each dot darker than its surroundings, 255 for the others. */
QImage blackAndWhite(const SquareSums& sums, const LocalThreshold& threshold)
{
    QImage image(sums.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < image.height(); ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            line[x] = sums.isLight(x, y, threshold) ? 255 : 0;
    }
    return image;
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
    const QImage grey =
        limited(image, maxWidth, maxHeight, smoothTransformation).convertToFormat(QImage::Format_Grayscale8);
    QString text = decodeFiltered(grey, ZXing::Binarizer::LocalAverage);
    if (!text.isEmpty() || !(m_tryHarder & ThoroughScanning))
        return text;
    const SquareSums sums(grey);
    for (const LocalThreshold& threshold : LocalThresholds) {
        if (text.isEmpty())
            text = decodeFiltered(blackAndWhite(sums, threshold), ZXing::Binarizer::BoolCast);
    }
    return text;
}

QString QZXing::decodeFiltered(QImage grey, ZXing::Binarizer binarizer) const
{
    QString text;
    if (m_sourceFilters & NormalImage)
        text = read(grey, binarizer, m_tryHarder);
    if (text.isEmpty() && (m_sourceFilters & InvertedImage)) {
        grey.invertPixels();
        text = read(grey, binarizer, m_tryHarder);
    }
    return text;
}
