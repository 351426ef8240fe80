#include "network/CDisplayFrameReader.h"

#include <QtEndian>

namespace {

constexpr int LengthSize = 2;

} // namespace

void CDisplayFrameReader::append(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    dropTakenBytes();
    m_buffer.append(bytes);
}

/** Once for many records: bytes of a stranger can be a million empty frames. */
void CDisplayFrameReader::dropTakenBytes()
{
    m_buffer.remove(0, m_position);
    m_position = 0;
}

bool CDisplayFrameReader::takeRecord(QByteArray* record)
{
    if (m_buffer.size() - m_position < LengthSize)
        return false;
    const int length = takeLength();
    *record = m_buffer.mid(m_position, length);
    m_position += record->size();
    if (isEmpty())
        dropTakenBytes();
    return true;
}

int CDisplayFrameReader::takeLength()
{
    const auto length = qFromBigEndian<quint16>(m_buffer.constData() + m_position);
    m_position += LengthSize;
    return length;
}
