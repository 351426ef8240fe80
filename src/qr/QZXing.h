#ifndef TORNIK_QR_QZXING_H
#define TORNIK_QR_QZXING_H

#include <QImage>
#include <QSize>
#include <QString>

namespace ZXing {
enum class Binarizer : unsigned char;
}

/**
 * Makes and reads the picture of a code. The only place that knows the library behind it.
 *
 * A value without a thread of its own: each thread that reads has its own object. No call throws.
 */
class QZXing
{
public:
    enum EncoderFormat
    {
        EncodeQrCode = 1
    };
    enum ErrorCorrection
    {
        CorrectionLow,
        CorrectionMedium,
        CorrectionQuartile,
        CorrectionHigh
    };
    /** Flags of setDecoder(). */
    enum DecoderFormat
    {
        DecodeQrCode = 0x1000
    };
    /** Flags of setSourceFilterType(). */
    enum SourceFilter
    {
        NormalImage = 2,
        InvertedImage = 4
    };
    /** Flags of setTryHarderBehaviour(). */
    enum TryHarder
    {
        ThoroughScanning = 2,
        Rotation = 4
    };

    /**
     * @param border whether a light margin of four modules surrounds the code
     * @param transparent whether the light modules let the background through
     * @return a picture of that size, without smoothed edges; null for a text that fits no code
     */
    static QImage encodeData(const QString& text, EncoderFormat format, const QSize& size,
                             ErrorCorrection errorCorrection, bool border, bool transparent);

    /** @param formats DecoderFormat flags; no other kind of code is looked for */
    void setDecoder(int formats) { m_formats = formats; }
    void setSourceFilterType(int filters) { m_sourceFilters = filters; }
    void setTryHarderBehaviour(int behaviour) { m_tryHarder = behaviour; }

    /**
     * @param maxWidth, maxHeight a larger picture is scaled down to them first; -1 for no limit
     * @param smoothTransformation how it is scaled down
     * @return the text of a code in the picture, empty if none is found
     */
    QString decodeImage(const QImage& image, int maxWidth = -1, int maxHeight = -1,
                        bool smoothTransformation = false) const;

private:
    QString decodeFiltered(QImage grey, ZXing::Binarizer binarizer) const;

    int m_formats = DecodeQrCode;
    int m_sourceFilters = NormalImage;
    int m_tryHarder = 0;
};

#endif
