#ifndef TORNIK_NETWORK_CDISPLAYFRAMEREADER_H
#define TORNIK_NETWORK_CDISPLAYFRAMEREADER_H

#include <QByteArray>

/**
 * Takes the frames of the display connection apart, as their bytes come in. Any bytes are some row
 * of frames: there is no error, and at most one byte waits between two calls of takeRecord() that
 * found nothing.
 *
 * In the usual way of use the receiver appends what has arrived, takes one record, and goes on so for
 * as long as there are records.
 */
class CDisplayFrameReader
{
public:
    void append(const QByteArray& bytes);

    /**
     * Takes the next record out. Required: a frame whose rest hasn't arrived is handed on as short as
     * it is, and its rest is read as new frames. The sender writes each frame in one piece.
     * @param record empty for a frame of length 0; left alone without a record
     * @return false if not even a length is there
     */
    bool takeRecord(QByteArray* record);

    /** @return whether every byte has been taken. */
    bool isEmpty() const { return m_position == m_buffer.size(); }

private:
    int takeLength();
    void dropTakenBytes();

    QByteArray m_buffer;
    int m_position = 0; ///< of the first byte not yet taken
};

#endif
