#include "io/CLtAt2560.h"

#include "io/CRacewayIoEvent.h"
#include "io/IoLog.h"
#include "io/SharedDevice.h"

#include <QCoreApplication>
#include <QSerialPort>

#include <poll.h>

namespace {

constexpr char Begin = ':';
constexpr char End = ';';
constexpr int MaxFrameSize = int(CRacewayIoEvent::TextSize) - 1;

/**
 * An error of the port doesn't tell a line that is gone: a box that takes no bytes for a moment
 * has the same error.
 */
bool isHungUp(const QSerialPort& port)
{
    pollfd descriptor{int(port.handle()), 0, 0};
    return ::poll(&descriptor, 1, 0) > 0 && (descriptor.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

} // namespace

CLtAt2560* CLtAt2560::instance()
{
    return SharedDevice<CLtAt2560>::take();
}

void CLtAt2560::release()
{
    SharedDevice<CLtAt2560>::giveBack();
}

CLtAt2560::CLtAt2560(QObject* parent) : QObject(parent), m_port(std::make_unique<QSerialPort>())
{
    connect(m_port.get(), &QSerialPort::readyRead, this, &CLtAt2560::processSerialData);
    // Queued: the port can't be closed while it reads.
    connect(
        m_port.get(), &QSerialPort::errorOccurred, this, [this] { closeIfHungUp(); }, Qt::QueuedConnection);
}

CLtAt2560::~CLtAt2560() = default;

bool CLtAt2560::openOnPort(const QString& name)
{
    setPortName(name);
    return connectPort();
}

bool CLtAt2560::setPortName(const QString& name)
{
    if (name == m_portName)
        return m_connected;
    m_portName = name;
    qCDebug(ioLog) << "COM Port changed, reconnect()";
    return reconnectPort();
}

bool CLtAt2560::reconnectPort()
{
    qCDebug(ioLog) << "reconnect() was called";
    m_port->close();
    m_connected = false;
    return connectPort();
}

bool CLtAt2560::connectPort()
{
    if (m_connected)
        return true;
    m_port->setBaudRate(m_baudRate);
    m_port->setPortName(m_portName);
    if (m_port->open(QIODevice::ReadWrite)) {
        m_port->setDataTerminalReady(true);
        dropOldBytes();
        m_connected = true;
        qCDebug(ioLog) << "serial->open() in connect() was successful";
    } else {
        qCDebug(ioLog) << "AT2560:" << m_portName << m_port->errorString();
    }
    return m_connected;
}

void CLtAt2560::dropOldBytes()
{
    // What the box said to nobody belongs to no race, nor does half a frame of an earlier line.
    m_port->clear(QSerialPort::Input);
    m_buffer.clear();
}

void CLtAt2560::disconnectPort()
{
    qCDebug(ioLog) << "disconnect attempt";
}

void CLtAt2560::closeIfHungUp()
{
    if (!m_port->isOpen() || !isHungUp(*m_port))
        return;
    // A line that is gone reports its error without a pause for as long as it is open. Required:
    // the box counts as connected all the same, and only another port name or a new object opens
    // the line again.
    qCDebug(ioLog) << "AT2560: lost," << m_portName;
    m_port->close();
}

void CLtAt2560::sendFrame(const QString& frame)
{
    if (!m_connected)
        return;
    const QByteArray bytes = frame.toUtf8();
    const bool isOpen = m_port->isOpen();
    if (!isOpen || m_port->write(bytes) != bytes.size())
        qCDebug(ioLog) << "serial->write(s) was not successful";
    if (!isOpen || !m_port->flush())
        qCDebug(ioLog) << "serial->flush() was not successful";
}

void CLtAt2560::processSerialData()
{
    processBytes(m_port->readAll());
}

void CLtAt2560::processBytes(const QByteArray& bytes)
{
    m_buffer += bytes;
    int end = 0;
    while (dropBytesAheadOfFrame() && (end = m_buffer.indexOf(End)) >= 0) {
        postFrame(m_buffer.left(end + 1));
        m_buffer.remove(0, end + 1);
    }
    // What is too long already is cut when its end comes; a line gone mad can't fill the memory.
    m_buffer.truncate(MaxFrameSize + 1);
}

bool CLtAt2560::dropBytesAheadOfFrame()
{
    const int begin = m_buffer.indexOf(Begin);
    m_buffer.remove(0, begin < 0 ? m_buffer.size() : begin);
    if (begin > 0 && !m_buffer.startsWith(Begin))
        qCDebug(ioLog) << "wtf in CLtAt2560::processSerialData(void)";
    return begin >= 0;
}

void CLtAt2560::postFrame(const QByteArray& frame)
{
    if (frame.size() > MaxFrameSize)
        qCDebug(ioLog) << "string size in CLtAt2560::processSerialData(void)";
    if (!m_target)
        return;
    auto event = std::make_unique<CRacewayIoEvent>(0, 0);
    event->setText(frame.constData());
    QCoreApplication::postEvent(m_target, event.release());
}
