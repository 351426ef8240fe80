#ifndef TORNIK_TESTS_FRAMEGATE_H
#define TORNIK_TESTS_FRAMEGATE_H

#include <QTcpServer>
#include <QTcpSocket>
#include <QVector>

#include <memory>

/**
 * Stands between a race computer and its display: takes the frames of the one as they come, and
 * hands them to the other one by one, when the test wants it.
 */
class FrameGate
{
public:
    /** @param port of the race computer, on this machine */
    explicit FrameGate(quint16 port) : m_port(port)
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { open(); });
    }

    /** @return the port for the display. */
    quint16 port() const { return m_server.serverPort(); }
    /** @return all frames of the race computer so far, with their length in front. */
    const QVector<QByteArray>& frames() const { return m_frames; }
    bool isOpen() const { return m_display && m_raceComputer.state() == QAbstractSocket::ConnectedState; }

    /** @return the type of the record of a frame; 0 if it is too short for one. */
    static int typeOf(const QByteArray& frame)
    {
        return frame.size() < 4 ? 0 : int(quint8(frame.at(2))) << 8 | quint8(frame.at(3));
    }

    void handOn(const QByteArray& frame)
    {
        m_display->write(frame);
        m_display->flush();
    }

private:
    void open()
    {
        m_display.reset(m_server.nextPendingConnection());
        m_display->setParent(nullptr);
        m_display->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(&m_raceComputer, &QTcpSocket::readyRead, &m_server, [this] { takeFrames(); });
        m_raceComputer.connectToHost(QHostAddress::LocalHost, m_port);
    }

    void takeFrames()
    {
        m_bytes += m_raceComputer.readAll();
        while (m_bytes.size() >= 2) {
            const int size = 2 + (int(quint8(m_bytes.at(0))) << 8 | quint8(m_bytes.at(1)));
            if (m_bytes.size() < size)
                return;
            m_frames.append(m_bytes.left(size));
            m_bytes.remove(0, size);
        }
    }

    quint16 m_port;
    QTcpServer m_server;
    QTcpSocket m_raceComputer;
    std::unique_ptr<QTcpSocket> m_display;
    QByteArray m_bytes;
    QVector<QByteArray> m_frames;
};

#endif
