#include "io/CCarreraCu.h"

#include "io/IoLog.h"
#include "io/SharedDevice.h"

#include <QElapsedTimer>
#include <QSerialPort>
#include <QThread>

namespace {

constexpr int ShortestFrame = 3;

std::unique_ptr<QIODevice> makeSerialPort(const QString& name)
{
    auto port = std::make_unique<QSerialPort>(name);
    port->setBaudRate(QSerialPort::Baud19200);
    port->setParity(QSerialPort::NoParity);
    port->setDataBits(QSerialPort::Data8);
    port->setStopBits(QSerialPort::OneStop);
    return port;
}

void discard(QIODevice* port, QSerialPort::Directions directions)
{
    if (auto* serialPort = qobject_cast<QSerialPort*>(port))
        serialPort->clear(directions);
}

} // namespace

CCarreraCu* CCarreraCu::instance()
{
    return SharedDevice<CCarreraCu>::take();
}

void CCarreraCu::release()
{
    SharedDevice<CCarreraCu>::giveBack();
}

CCarreraCu::CCarreraCu(QObject* parent) : QObject(parent), m_portMaker(&makeSerialPort) {}

CCarreraCu::~CCarreraCu() = default;

bool CCarreraCu::openPort(const QString& name)
{
    m_rxBuffer.clear();
    m_txBuffer.clear();
    m_port = m_portMaker(name);
    m_isOpen = m_port->open(QIODevice::ReadWrite);
    if (m_isOpen)
        discard(m_port.get(), QSerialPort::AllDirections); // an answer to a race gone by
    else
        qCDebug(ioLog) << "Control Unit:" << name << m_port->errorString();
    return m_isOpen;
}

void CCarreraCu::closePort()
{
    m_port.reset();
    m_isOpen = false;
}

bool CCarreraCu::receiveFrame()
{
    QElapsedTimer pass;
    pass.start();
    // A slow line hands over a frame in pieces: asking again between them would only join the
    // answer to the next question to this frame.
    while (!m_rxBuffer.containsFrame() && m_rxBuffer.size() <= MaxBuffered &&
           takeBytes(WaitTime - int(pass.elapsed()))) {
    }
    if (takeValidFrame())
        return true;
    keepUnfinishedFrame();
    return false;
}

bool CCarreraCu::takeBytes(int milliseconds)
{
    if (milliseconds <= 0)
        return false;
    if (!m_isOpen) {
        QThread::msleep(ulong(milliseconds));
        return false;
    }
    // Bytes that came while the last question went out are there already and aren't waited for.
    if (m_port->bytesAvailable() == 0 && !m_port->waitForReadyRead(milliseconds))
        closeIfHungUp();
    const QByteArray bytes = m_isOpen ? m_port->readAll() : QByteArray();
    m_rxBuffer.append(bytes);
    return !bytes.isEmpty();
}

bool CCarreraCu::takeValidFrame()
{
    // One by one: taken as one, frames that arrive joined fail their checksum and a lap is lost.
    while (m_rxBuffer.containsFrame()) {
        const CCarreraCuMessage frame = m_rxBuffer.takeFrame();
        if (frame.size() >= ShortestFrame && frame.checksumValid()) {
            m_lastFrame = frame;
            return true;
        }
    }
    return false;
}

void CCarreraCu::keepUnfinishedFrame()
{
    if (m_rxBuffer.isEmpty())
        return;
    m_lastFrame = m_rxBuffer;
    if (m_rxBuffer.size() > MaxBuffered)
        m_rxBuffer.clear();
}

bool CCarreraCu::sendPending()
{
    if (m_txBuffer.isEmpty() || !m_isOpen)
        return false;
    const qint64 written = m_port->write(m_txBuffer.bytes());
    if (!m_port->waitForBytesWritten(WaitTime)) {
        dropUnsentBytes();
        closeIfHungUp();
        return false;
    }
    const bool whole = written == m_txBuffer.size();
    m_txBuffer.clear();
    return whole;
}

void CCarreraCu::queueText(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    if (m_txBuffer.size() + bytes.size() <= MaxBuffered)
        m_txBuffer.append(bytes);
}

void CCarreraCu::dropUnsentBytes()
{
    // They are kept in txBuffer, and the port would send its own copy as well.
    discard(m_port.get(), QSerialPort::Output);
}

void CCarreraCu::closeIfHungUp()
{
    const auto* serialPort = qobject_cast<const QSerialPort*>(m_port.get());
    if (!serialPort)
        return;
    const QSerialPort::SerialPortError error = serialPort->error();
    if (error != QSerialPort::ReadError && error != QSerialPort::ResourceError)
        return;
    // A line that is gone reports its error without a pause for as long as it is asked.
    qCDebug(ioLog) << "Control Unit: lost," << serialPort->errorString();
    closePort();
}
