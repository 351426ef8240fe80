#include "sound/CWaveReader.h"

#include <QIODevice>
#include <QtEndian>

#include <cmath>
#include <cstring>

namespace {

enum Encoding
{
    Integer = 1,
    Float = 3,
    Extensible = 0xFFFE
};

struct CFormat
{
    int encoding = 0;
    int channels = 0;
    quint32 rate = 0;
    int bits = 0;

    int bytes() const { return bits / 8; }
    bool isKnown() const;
};

bool CFormat::isKnown() const
{
    const bool known = (encoding == Integer && (bits == 8 || bits == 16 || bits == 24 || bits == 32)) ||
                       (encoding == Float && bits == 32);
    return known && channels >= 1 && channels <= 32 && rate >= 1000 && rate <= 384000;
}

CFormat readFormat(const QByteArray& chunk)
{
    constexpr int PlainSize = 16;
    constexpr int SubFormatOffset = 24;
    CFormat format;
    if (chunk.size() < PlainSize)
        return format;
    const char* bytes = chunk.constData();
    format.encoding = qFromLittleEndian<quint16>(bytes);
    format.channels = qFromLittleEndian<quint16>(bytes + 2);
    format.rate = qFromLittleEndian<quint32>(bytes + 4);
    format.bits = qFromLittleEndian<quint16>(bytes + 14);
    if (format.encoding == Extensible && chunk.size() >= SubFormatOffset + 2)
        format.encoding = qFromLittleEndian<quint16>(bytes + SubFormatOffset);
    return format;
}

/** @return a float as a sample of 16 bits; what is no number is silence. */
qint16 fromFloat(const char* bytes)
{
    const quint32 bits = qFromLittleEndian<quint32>(bytes);
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return std::isnan(value) ? qint16(0) : qint16(qBound(-1.0F, value, 1.0F) * 32767.0F);
}

qint16 sampleFrom(const char* bytes, const CFormat& format)
{
    if (format.encoding == Float)
        return fromFloat(bytes);
    if (format.bits == 8)
        return qint16((int(static_cast<unsigned char>(*bytes)) - 128) * 256);
    return qFromLittleEndian<qint16>(bytes + format.bytes() - 2); // the upper two bytes
}

SoundClip clipFrom(const QByteArray& data, const CFormat& format)
{
    const int count = data.size() / format.bytes();
    QVector<qint16> samples(count);
    for (int i = 0; i < count; ++i)
        samples[i] = sampleFrom(data.constData() + qptrdiff(i) * format.bytes(), format);
    return makeSoundClip(samples, format.channels, int(format.rate));
}

bool skip(QIODevice& device, qint64 bytes)
{
    return device.skip(bytes) == bytes;
}

/** @return the clip of a chunk of samples, cut to its longest; null without a format that can be read. */
SoundClip readData(QIODevice& device, qint64 size, const CFormat& format)
{
    if (!format.isKnown())
        return nullptr;
    const qint64 most = qint64(CWaveReader::LongestSeconds) * format.rate * format.channels * format.bytes();
    return clipFrom(device.read(qMin(size, most)), format);
}

} // namespace

SoundClip CWaveReader::read(QIODevice& device)
{
    constexpr int LargestFormat = 4096;
    const QByteArray riff = device.read(12);
    if (riff.size() < 12 || !riff.startsWith("RIFF") || riff.mid(8) != "WAVE")
        return nullptr;
    CFormat format;
    for (QByteArray head = device.read(8); head.size() == 8; head = device.read(8)) {
        const qint64 size = qFromLittleEndian<quint32>(head.constData() + 4);
        if (head.startsWith("data"))
            return readData(device, size, format);
        const qint64 padded = size + size % 2;
        QByteArray chunk;
        if (head.startsWith("fmt ")) {
            chunk = device.read(qMin<qint64>(padded, LargestFormat));
            format = readFormat(chunk);
        }
        if (!skip(device, padded - chunk.size()))
            return nullptr;
    }
    return nullptr;
}
