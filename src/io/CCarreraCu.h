#ifndef TORNIK_IO_CCARRERACU_H
#define TORNIK_IO_CCARRERACU_H

#include "io/CCarreraCuMessage.h"

#include <QObject>

#include <functional>
#include <memory>

class QIODevice;

/**
 * The serial line to the Control Unit: frames the bytes that come in, sends those that wait.
 *
 * One shared object, handed out with a reference count in the main thread. Between openPort() and
 * closePort() only the reading thread touches it; the port is made and dies in that thread.
 */
class CCarreraCu : public QObject
{
    Q_OBJECT

public:
    /** Makes the device of a port name, not yet open; never null. */
    using PortMaker = std::function<std::unique_ptr<QIODevice>(const QString& name)>;

    static constexpr int WaitTime = 100; ///< milliseconds, for bytes to arrive or to leave
    /**
     * Most bytes kept of a frame without an end, and most bytes kept to be sent: far above the 19
     * of the longest frame, and a line gone mad can't fill the memory.
     */
    static constexpr int MaxBuffered = 256;

    /** Takes a reference; the first one makes the object. Main thread only. */
    static CCarreraCu* instance();
    /** Gives a reference back; the last one frees the object. Main thread only. */
    static void release();

    explicit CCarreraCu(QObject* parent = nullptr);
    ~CCarreraCu() override;

    /** Replaces the serial port by another kind of device, from the next openPort() on. */
    void setPortMaker(const PortMaker& maker) { m_portMaker = maker; }

    /**
     * Opens the port afresh and forgets what earlier bytes left behind.
     * @return whether it could be opened
     */
    bool openPort(const QString& name);
    void closePort();
    /** @return whether the port is open; false as well after the line has hung up. */
    bool isOpen() const { return m_isOpen; }

    /**
     * Waits for one frame, 100 ms at most. Frames that arrive joined come out one by one, in order.
     * @return true if a new valid frame is in lastFrame()
     */
    bool receiveFrame();
    /**
     * Sends what queueText() left, waiting 100 ms at most.
     * @return true if it went out whole; what couldn't leave is kept
     */
    bool sendPending();
    /** Appends UTF-8 to what waits to be sent; dropped when too much waits already. */
    void queueText(const QString& text);

    const CCarreraCuMessage& lastFrame() const { return m_lastFrame; }
    QString lastFrameText() const { return m_lastFrame.toString(); }

private:
    bool takeBytes(int milliseconds);
    bool takeValidFrame();
    void keepUnfinishedFrame();
    void dropUnsentBytes();
    void closeIfHungUp();

    PortMaker m_portMaker;
    std::unique_ptr<QIODevice> m_port;
    CCarreraCuMessage m_lastFrame;
    bool m_isOpen = false;
    CCarreraCuMessage m_txBuffer;
    CCarreraCuMessage m_rxBuffer;
};

#endif
