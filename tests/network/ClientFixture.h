#ifndef TORNIK_TESTS_NETWORK_CLIENTFIXTURE_H
#define TORNIK_TESTS_NETWORK_CLIENTFIXTURE_H

#include "network/CKelmoNetworkClient.h"
#include "network/DisplayRecord.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"
#include "support/StreamBytes.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <memory>

constexpr int Patience = 20000; // milliseconds, of each wait

/** The race computer's side of a connection: its bytes are the test's. */
class RaceComputer
{
public:
    /** @return false if the port can't be had; 0 for any */
    bool listen(quint16 port = 0) { return m_server.listen(QHostAddress::LocalHost, port); }
    quint16 port() const { return m_server.serverPort(); }
    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(port()); }

    bool accept()
    {
        if (!QTest::qWaitFor([this] { return m_server.hasPendingConnections(); }, Patience))
            return false;
        m_socket.reset(m_server.nextPendingConnection());
        return true;
    }
    bool hasNewConnection() const { return m_server.hasPendingConnections(); }
    /** Sends the bytes as one segment. */
    void send(const QByteArray& bytes)
    {
        m_socket->write(bytes);
        m_socket->flush();
    }
    qint64 bytesFromClient() const { return m_socket->bytesAvailable(); }
    qint64 waitingBytes() const { return m_socket->bytesToWrite(); }
    void hangUp() { m_socket.reset(); }
    void leave()
    {
        m_server.close();
        hangUp();
    }

private:
    QTcpServer m_server;
    std::unique_ptr<QTcpSocket> m_socket;
};

/** A client with its settings, and all that it tells. */
class ClientFixture
{
public:
    explicit ClientFixture(const QString& address) : client(address, &settings, &raceSettings)
    {
        QObject::connect(&client, &CKelmoNetworkClient::debugMessage, &client,
                         [this](const QString& text) { messages.append(text); });
        QObject::connect(&client, &CKelmoNetworkClient::raceInfoText, &client,
                         [this](const QString& text) { texts.append(text); });
        QObject::connect(&client, &CKelmoNetworkClient::UpdateLights, &client,
                         [this](int action) { lights.append(action); });
    }

    /** Waits for the next failed try or the next loss. */
    bool fails()
    {
        client.clearLastError();
        return QTest::qWaitFor([this] { return !client.lastErrorText().isEmpty(); }, Patience);
    }
    bool isConnected()
    {
        return QTest::qWaitFor([this] { return client.isConnected(); }, Patience);
    }
    void notice(QAbstractSocket::SocketError error)
    {
        QVERIFY(QMetaObject::invokeMethod(&client, "handleConnectionError", Qt::DirectConnection,
                                          Q_ARG(QAbstractSocket::SocketError, error)));
    }

    CSettings settings;
    CRaceSettings raceSettings;
    CKelmoNetworkClient client;
    QStringList messages;
    QStringList texts;
    QVector<int> lights;
};

/** A client that is connected to a race computer. */
class Connection
{
public:
    bool open()
    {
        if (!server.listen())
            return false;
        user = std::make_unique<ClientFixture>(server.address());
        return server.accept() && user->isConnected();
    }
    /** Sends the bytes and then a text of the test's own. @return whether that came through */
    bool send(const QByteArray& bytes)
    {
        server.send(bytes);
        return isInStep();
    }
    /** Several tries: rubbish may swallow a record. */
    bool isInStep()
    {
        const QString text = QStringLiteral("in step %1").arg(++m_step);
        for (int attempt = 0; attempt < 100; ++attempt) {
            server.send(DisplayRecord::framed(DisplayRecord::raceInfoText(text)));
            if (QTest::qWaitFor([&] { return user->texts.contains(text); }, 200))
                return true;
        }
        return false;
    }

    RaceComputer server;
    std::unique_ptr<ClientFixture> user;

private:
    int m_step = 0;
};

inline QByteArray frame(const QByteArray& record)
{
    return DisplayRecord::framed(record);
}

inline QByteArray rawRecord(quint16 type, const QByteArray& payload)
{
    return StreamBytes().int16(qint16(type)).raw(payload).bytes();
}

inline QByteArray lightsFrame(int action)
{
    return frame(DisplayRecord::lights(action));
}

#endif
