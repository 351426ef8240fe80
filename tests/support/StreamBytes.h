#ifndef TORNIK_TESTS_STREAMBYTES_H
#define TORNIK_TESTS_STREAMBYTES_H

#include <QByteArray>
#include <QDataStream>
#include <QString>
#include <QtEndian>

#include <cstring>

/**
 * Bytes of a stream form, written by hand: most significant byte first. It knows nothing of
 * QDataStream, so that a test can hold the one against the other.
 */
class StreamBytes
{
public:
    StreamBytes& int16(qint16 value) { return unsignedValue(quint16(value), 2); }
    StreamBytes& int32(qint32 value) { return unsignedValue(quint32(value), 4); }
    StreamBytes& boolean(bool value) { return unsignedValue(value ? 1 : 0, 1); }
    /** @param milliseconds since the start of the day */
    StreamBytes& time(int milliseconds) { return int32(milliseconds); }

    StreamBytes& real(double value)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        return unsignedValue(bits, 8);
    }

    StreamBytes& text(const QString& text)
    {
        if (text.isNull())
            return int32(-1);
        int32(text.size() * 2);
        for (const QChar character : text)
            unsignedValue(character.unicode(), 2);
        return *this;
    }

    StreamBytes& blob(const QByteArray& bytes)
    {
        int32(bytes.size());
        return raw(bytes);
    }

    StreamBytes& raw(const QByteArray& bytes)
    {
        m_bytes.append(bytes);
        return *this;
    }

    const QByteArray& bytes() const { return m_bytes; }

private:
    StreamBytes& unsignedValue(quint64 value, int size)
    {
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
            m_bytes.append(char((value >> shift) & 0xff));
        return *this;
    }

    QByteArray m_bytes;
};

/** @return the number of four bytes at a position. */
inline int numberAt(const QByteArray& bytes, int position)
{
    return qFromBigEndian<qint32>(bytes.constData() + position);
}

/** @return what the record writes. */
template <typename Record>
QByteArray streamForm(const Record& record)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << record;
    return bytes;
}

/** @return the record that these bytes make of a default one. */
template <typename Record>
Record fromStreamForm(const QByteArray& bytes)
{
    Record record;
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_5);
    stream >> record;
    return record;
}

#endif
