#include "io/CCarreraCuMessage.h"

#include <cstring>

namespace {

constexpr char Begin = '?';
constexpr char Status = ':';
constexpr quint8 ChecksumBits = 0x30;

} // namespace

bool CCarreraCuMessage::checksumValid() const
{
    const int checksumIndex = m_bytes.size() - 2;
    if (checksumIndex < 0)
        return false;
    int sum = 0;
    for (int i = 1; i < checksumIndex; ++i)
        sum += nibble(i);
    return quint8(m_bytes.at(checksumIndex)) == (ChecksumBits | (sum & nibbleMask));
}

quint8 CCarreraCuMessage::nibble(int index) const
{
    return index >= 0 && index < m_bytes.size() ? quint8(m_bytes.at(index)) & nibbleMask : 0;
}

QString CCarreraCuMessage::toString() const
{
    return QString::fromLatin1(m_bytes.constData(), int(std::strlen(m_bytes.constData())));
}

CCarreraCuMessage CCarreraCuMessage::takeFrame()
{
    const int length = m_bytes.indexOf(End) + 1;
    CCarreraCuMessage frame(m_bytes.left(length));
    m_bytes.remove(0, length);
    return frame;
}

bool CCarreraCuMessage::isLapFrame() const
{
    // A byte lost or added on the line shifts the time stamp, and one checksum in sixteen holds
    // by chance: a stamp far ahead would refuse every later lap of the car.
    return m_bytes.size() == LapFrameSize && m_bytes.at(0) == Begin && m_bytes.at(KindIndex) >= '1' &&
           m_bytes.at(KindIndex) <= '8';
}

bool CCarreraCuMessage::isStatusFrame() const
{
    return m_bytes.size() >= LapFrameSize && m_bytes.at(0) == Begin && m_bytes.at(KindIndex) == Status;
}

quint32 CCarreraCuMessage::timeStamp() const
{
    // The most significant byte comes first, but in each byte the low nibble comes first.
    quint32 stamp = 0;
    for (int byte = 0; byte < 4; ++byte) {
        const quint32 low = nibble(FirstValueIndex + 2 * byte);
        const quint32 high = nibble(FirstValueIndex + 2 * byte + 1);
        stamp = stamp << 8 | high << 4 | low;
    }
    return stamp;
}
