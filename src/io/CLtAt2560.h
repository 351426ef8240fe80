#ifndef TORNIK_IO_CLTAT2560_H
#define TORNIK_IO_CLTAT2560_H

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class QSerialPort;

/**
 * The serial line to an AT2560 timing box: sends text frames, cuts frames out of the bytes that
 * come in and posts each as a CRacewayIoEvent to the target.
 *
 * One shared object, handed out with a reference count. It lives in the main thread; the line is
 * open from the first use of a port name to another name or to the end of the object.
 */
class CLtAt2560 : public QObject
{
    Q_OBJECT

public:
    static constexpr int BaudRate = 57600;

    /** Takes a reference; the first one makes the object. */
    static CLtAt2560* instance();
    /** Gives a reference back; the last one frees the object and closes its line. */
    static void release();

    explicit CLtAt2560(QObject* parent = nullptr);
    ~CLtAt2560() override;

    /** @param target gets the frames; not owned; null for none */
    void setTarget(QObject* target) { m_target = target; }
    const QObject* target() const { return m_target; }

    /** Sets the port name and sees to it that the line is open. @return whether it is */
    bool openOnPort(const QString& name);
    /** Takes another port name, and with it another line. @return whether the line is open */
    bool setPortName(const QString& name);
    QString portName() const { return m_portName; }
    /** Opens the line unless it was opened before. @return whether it could be opened */
    bool connectPort();
    /** Closes the line and opens it afresh. @return whether it could be opened */
    bool reconnectPort();
    /** Does nothing but tell so. */
    void disconnectPort();
    /** @return whether the line was opened; a box that went away doesn't change that. */
    bool isConnected() const { return m_connected; }

    /** Sends a frame as UTF-8; without a line it is dropped. */
    void sendFrame(const QString& frame);
    /** Takes bytes of the line, in pieces of any size. */
    void processBytes(const QByteArray& bytes);
    /** @return how many bytes wait for the end of their frame, 32 at most. */
    int pendingBytes() const { return m_buffer.size(); }

Q_SIGNALS:
    /** Never emitted. */
    void dataReceived();

public Q_SLOTS:
    void processSerialData();

private:
    void dropOldBytes();
    bool dropBytesAheadOfFrame();
    void postFrame(const QByteArray& frame);
    void closeIfHungUp();

    QPointer<QObject> m_target;
    QString m_portName;
    int m_baudRate = BaudRate;
    std::unique_ptr<QSerialPort> m_port;
    bool m_connected = false;
    QByteArray m_buffer; ///< bytes received and not yet framed
};

#endif
