#include "At2560Line.h"

#include <algorithm>

namespace {

constexpr qint64 Millisecond = 1000;
constexpr int LongestGap = 8;   ///< milliseconds between the pieces of a frame
constexpr int LongestHold = 50; ///< milliseconds for which a frame waits for another one
constexpr char JunkBytes[] = "0123456789,;.S\r\n \xff"; // no ":", which would begin a frame

QByteArray frameOf(const Activation& activation)
{
    return ":S" + QByteArray::number(activation.input) + ',' + QByteArray::number(activation.stamp) + ';';
}

} // namespace

int At2560Line::chance(int from, int to)
{
    return from + int(m_random() % unsigned(to - from + 1));
}

void At2560Line::report(const Activation& activation, qint64 now)
{
    m_held.bytes += surroundings() + frameOf(activation);
    m_held.completed.append(activation);
    if (!holdsBack(now))
        queueHeld(now);
}

void At2560Line::sendRaw(const QByteArray& bytes, qint64 now)
{
    m_held.bytes += bytes;
    queueHeld(now);
}

QByteArray At2560Line::surroundings()
{
    QByteArray bytes;
    if (m_junkNext || happens(m_rates.junk))
        bytes += junk();
    if (m_nonsenseNext || happens(m_rates.nonsense))
        bytes += nonsense();
    m_junkNext = false;
    m_nonsenseNext = false;
    return bytes;
}

QByteArray At2560Line::junk()
{
    QByteArray bytes;
    for (int i = chance(1, 12); i > 0; --i)
        bytes += JunkBytes[chance(0, int(sizeof JunkBytes) - 2)];
    return bytes;
}

QByteArray At2560Line::nonsense()
{
    const QList<QByteArray> frames{":X12,34;", ":S12;",    ":;",
                                   ":S,;",     ":S1x,7y;", ":S1," + QByteArray(60, '7') + ';'};
    return frames.at(chance(0, frames.size() - 1));
}

bool At2560Line::holdsBack(qint64 now)
{
    if (m_toJoin > 0) {
        m_holdUntil = -1;
        return --m_toJoin > 0;
    }
    if (!happens(m_rates.joined))
        return false;
    m_holdUntil = now + LongestHold * Millisecond;
    return true;
}

void At2560Line::queueHeld(qint64 now)
{
    qint64 due = m_pieces.isEmpty() ? now : std::max(now, m_pieces.last().due);
    QByteArray rest = m_held.bytes;
    if (m_splitNext || happens(m_rates.split)) {
        for (int i = chance(1, 2); i > 0 && rest.size() > 1; --i) {
            const int size = chance(1, rest.size() - 1);
            m_pieces.append({due, {rest.left(size), {}}});
            rest.remove(0, size);
            due += chance(1, LongestGap) * Millisecond;
        }
    }
    m_pieces.append({due, {rest, m_held.completed}});
    m_splitNext = false;
    m_held = Write();
    m_holdUntil = -1;
}

At2560Line::Write At2560Line::take(qint64 now)
{
    if (m_holdUntil >= 0 && m_holdUntil <= now)
        queueHeld(now);
    if (m_pieces.isEmpty() || m_pieces.first().due > now)
        return {};
    return m_pieces.takeFirst().write;
}

qint64 At2560Line::nextTime() const
{
    return m_pieces.isEmpty() ? m_holdUntil : m_pieces.first().due;
}

void At2560Line::clear()
{
    m_pieces.clear();
    m_held = Write();
    m_holdUntil = -1;
    m_toJoin = 0;
}
