#ifndef TORNIK_IO_CCARRERACUMESSAGE_H
#define TORNIK_IO_CCARRERACUMESSAGE_H

#include <QByteArray>
#include <QString>

/**
 * A frame of the Control Unit, or the bytes out of which frames are cut; a value, knows no port.
 *
 * A frame is text from "?" to "$", each character carries a nibble in its low four bits, the last
 * but one is a checksum. Reading past the end gives 0, so that no frame is too short to be asked.
 */
class CCarreraCuMessage
{
public:
    static constexpr char End = '$';
    static constexpr quint8 nibbleMask = 15;

    CCarreraCuMessage() = default;
    explicit CCarreraCuMessage(const QByteArray& bytes) : m_bytes(bytes) {}

    const QByteArray& bytes() const { return m_bytes; }
    int size() const { return m_bytes.size(); }
    bool isEmpty() const { return m_bytes.isEmpty(); }
    void append(const QByteArray& bytes) { m_bytes.append(bytes); }
    void clear() { m_bytes.clear(); }

    /** @return whether the bytes end with "$". */
    bool isComplete() const { return m_bytes.endsWith(End); }
    /** @return whether the character before the last one is the checksum of those before it. */
    bool checksumValid() const;
    /** @return the low four bits of a byte; 0 outside the frame. */
    quint8 nibble(int index) const;
    /** @return one character a byte, up to the first NUL. */
    QString toString() const;

    /** @return whether a "$" lies anywhere in the bytes. */
    bool containsFrame() const { return m_bytes.contains(End); }
    /** Cuts off the bytes up to and with the first "$"; without one gives an empty message. */
    CCarreraCuMessage takeFrame();

    /** @return whether a car passed a sensor; a byte too few or too many makes it none. */
    bool isLapFrame() const;
    /** @return the car of a lap frame, 1 to 8. */
    int car() const { return nibble(KindIndex); }
    /** @return the time stamp of a lap frame, milliseconds of the unit's clock. */
    quint32 timeStamp() const;
    /** @return the sensor group of a lap frame: 2 and 3 begin a sector, any other ends a lap. */
    int sensorGroup() const { return nibble(LastIndexRead); }

    /** @return whether tanks and start light are told; newer units tell more behind them. */
    bool isStatusFrame() const;
    /** @param car from 0 @return tank level of a status frame, 0 to 15 */
    quint8 tankLevel(int car) const { return nibble(FirstValueIndex + car); }
    /** @return state of the start light of a status frame, 0 to 15. */
    quint8 startLight() const { return nibble(LastIndexRead); }

private:
    static constexpr int KindIndex = 1;
    static constexpr int FirstValueIndex = 2;
    static constexpr int LastIndexRead = 10;
    static constexpr int LapFrameSize = LastIndexRead + 3; ///< checksum and "$" come behind

    QByteArray m_bytes;
};

#endif
