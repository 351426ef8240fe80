#ifndef TORNIK_TESTS_DISPLAYPEER_H
#define TORNIK_TESTS_DISPLAYPEER_H

#include "network/DisplayRecord.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QVector>

/** The other end of the display connection: takes whole frames, however they are cut on their way. */
class DisplayPeer
{
public:
    /** Connects to a server of this process, whose event loop must go on. */
    explicit DisplayPeer(quint16 port, const QHostAddress& address = QHostAddress::LocalHost)
    {
        QObject::connect(&m_socket, &QTcpSocket::readyRead, &m_socket, [this] { takeRecords(); });
        m_socket.connectToHost(address, port);
    }

    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    QTcpSocket& socket() { return m_socket; }

    /** @return the records received since the last forget(). */
    const QVector<QByteArray>& records() const { return m_records; }
    QVector<int> types() const
    {
        QVector<int> types;
        for (const QByteArray& record : m_records)
            types.append(DisplayRecord::Payload(record).type());
        return types;
    }
    void forget() { m_records.clear(); }

private:
    void takeRecords()
    {
        m_bytes += m_socket.readAll();
        while (m_bytes.size() >= 2) {
            const int length = int(quint8(m_bytes.at(0))) << 8 | quint8(m_bytes.at(1));
            if (m_bytes.size() < 2 + length)
                return;
            m_records.append(m_bytes.mid(2, length));
            m_bytes.remove(0, 2 + length);
        }
    }

    QTcpSocket m_socket;
    QByteArray m_bytes;
    QVector<QByteArray> m_records;
};

#endif
