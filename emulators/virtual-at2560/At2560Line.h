#ifndef TORNIK_EMULATORS_AT2560LINE_H
#define TORNIK_EMULATORS_AT2560LINE_H

#include <QByteArray>
#include <QList>
#include <QVector>

#include <random>

/** An input that became active. */
struct Activation
{
    int input = 0;
    quint32 stamp = 0; ///< milliseconds of the box's clock

    bool operator==(const Activation& other) const { return input == other.input && stamp == other.stamp; }
};

/** How often, in percent of the frames, the line does something of its own. */
struct At2560FaultRates
{
    int split = 0;    ///< a frame goes out in pieces
    int joined = 0;   ///< a frame waits for the next one and goes out with it
    int junk = 0;     ///< bytes that are no frame go ahead of a frame
    int nonsense = 0; ///< a frame without a meaning, or one that is too long, goes ahead of a frame
};

/**
 * The box's way out: frames in, writes out, in order and none lost, however badly they are cut,
 * joined or surrounded. Times are microseconds, handed in.
 */
class At2560Line
{
public:
    /** What is handed to the line at once. */
    struct Write
    {
        QByteArray bytes;
        QVector<Activation> completed; ///< reported wholly with the last of these bytes
    };

    At2560Line(const At2560FaultRates& rates, quint32 seed) : m_rates(rates), m_random(seed) {}

    void report(const Activation& activation, qint64 now);
    /** Sends bytes as they are. */
    void sendRaw(const QByteArray& bytes, qint64 now);

    void splitNext() { m_splitNext = true; }
    /** Lets the next frames go out in one write. */
    void joinNext(int frames) { m_toJoin = frames; }
    void junkNext() { m_junkNext = true; }
    void nonsenseNext() { m_nonsenseNext = true; }

    /** @return the next write that is due; no bytes if there is none. */
    Write take(qint64 now);
    /** @return when take() has more; -1 if only after another frame. */
    qint64 nextTime() const;
    bool isEmpty() const { return m_pieces.isEmpty() && m_held.bytes.isEmpty(); }
    /** Forgets what didn't go out yet. */
    void clear();

private:
    struct Piece
    {
        qint64 due = 0;
        Write write;
    };

    QByteArray surroundings();
    QByteArray junk();
    QByteArray nonsense();
    bool holdsBack(qint64 now);
    void queueHeld(qint64 now);
    int chance(int from, int to);
    bool happens(int percent) { return chance(0, 99) < percent; }

    At2560FaultRates m_rates;
    std::mt19937 m_random;
    QList<Piece> m_pieces;
    Write m_held;            ///< waits for the next frame
    qint64 m_holdUntil = -1; ///< -1 for as long as frames are missing
    int m_toJoin = 0;
    bool m_splitNext = false;
    bool m_junkNext = false;
    bool m_nonsenseNext = false;
};

#endif
