#ifndef TORNIK_TESTS_SOUND_WAVEFILE_H
#define TORNIK_TESTS_SOUND_WAVEFILE_H

#include <QByteArray>
#include <QVector>
#include <QtEndian>

/** Puts wave files together, right ones and wrong ones. */
namespace WaveFile {

template <typename T>
QByteArray number(T value)
{
    QByteArray bytes(int(sizeof(T)), 0);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

inline QByteArray chunk(const QByteArray& id, const QByteArray& content)
{
    return id + number(quint32(content.size())) + content +
           (content.size() % 2 ? QByteArray(1, 0) : QByteArray());
}

inline QByteArray format(quint16 encoding, quint16 channels, quint32 rate, quint16 bits)
{
    const auto frame = quint16(channels * bits / 8);
    return chunk("fmt ", number(encoding) + number(channels) + number(rate) + number(quint32(rate * frame)) +
                             number(frame) + number(bits));
}

inline QByteArray riff(const QByteArray& chunks)
{
    return chunk("RIFF", "WAVE" + chunks);
}

/** A whole file of 16 bits. */
inline QByteArray plain(const QVector<qint16>& samples, quint16 channels = 1, quint32 rate = 44100)
{
    QByteArray data;
    for (const qint16 sample : samples)
        data += number(sample);
    return riff(format(1, channels, rate, 16) + chunk("data", data));
}

} // namespace WaveFile

#endif
