#include "network/CKelmoNetworkServer.h"

#include "network/CUnreadBytes.h"
#include "network/DisplayRecord.h"
#include "network/RequiredNetworkSession.h"
#include "race/CRaceEvent.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTime>

CKelmoNetworkServer::CKelmoNetworkServer(CSettings* settings, CRaceSettings* raceSettings, quint16 port,
                                         const QList<QHostAddress>& addresses)
    : m_settings(settings),
      m_raceSettings(raceSettings),
      m_port(port ? port : settings->port()),
      m_addresses(addresses)
{
    m_networkSession = openRequiredNetworkSession(this, [this] { sessionOpened(); });
    if (!m_networkSession)
        sessionOpened();
}

QHostAddress CKelmoNetworkServer::listeningAddress(const QList<QHostAddress>& addresses)
{
    for (const QHostAddress& address : addresses) {
        if (address != QHostAddress(QHostAddress::LocalHost) && address.toIPv4Address())
            return address;
    }
    return QHostAddress(QHostAddress::LocalHost);
}

/** A failing listen() is silent: the race runs without display clients. */
void CKelmoNetworkServer::sessionOpened()
{
    if (m_tcpServer)
        return; // a session may open more than once
    m_ipAddress = listeningAddress(m_addresses).toString();
    m_tcpServer = new QTcpServer(this);
    connect(m_tcpServer, &QTcpServer::newConnection, this, &CKelmoNetworkServer::connectClient);
    m_tcpServer->listen(QHostAddress(m_ipAddress), m_port);
}

QString CKelmoNetworkServer::serverAddress() const
{
    return m_tcpServer ? m_tcpServer->serverAddress().toString() : QString();
}

quint16 CKelmoNetworkServer::serverPort() const
{
    return m_tcpServer ? m_tcpServer->serverPort() : quint16(0);
}

bool CKelmoNetworkServer::isServerRunning() const
{
    return m_tcpServer && m_tcpServer->isListening();
}

/** The socket before, if there is one, is required to stay open and to get nothing more. */
void CKelmoNetworkServer::connectClient()
{
    QTcpSocket* socket = m_tcpServer ? m_tcpServer->nextPendingConnection() : nullptr;
    if (!socket)
        return;
    m_clientSocket = socket;
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    new CUnreadBytes(socket);
    Q_EMIT clientConnected();
    // Before the first bytes: a client that has left already is noticed while they are sent.
    connect(socket, &QTcpSocket::disconnected, socket, &QTcpSocket::deleteLater);
    connect(socket, &QTcpSocket::disconnected, this, &CKelmoNetworkServer::disconnectClient);
    sendInitData();
}

/** Required: whichever socket has gone, also a replaced one, the present client gets nothing more. */
void CKelmoNetworkServer::disconnectClient()
{
    Q_EMIT clientDisconnected();
    m_clientSocket = nullptr;
}

void CKelmoNetworkServer::sendInitData()
{
    onSettingsChanged();
    onRaceSettingsChanged();
}

void CKelmoNetworkServer::HandleEventRace(const CRaceEvent& event)
{
    send(DisplayRecord::raceEvent(event));
}

void CKelmoNetworkServer::vSetUiRaceStarted()
{
    send(DisplayRecord::raceSettingsWithDrivers(*m_raceSettings));
    send(DisplayRecord::notice(DisplayRecord::RaceStarted));
}

void CKelmoNetworkServer::vSetUiRecordedRaceStarted()
{
    send(DisplayRecord::notice(DisplayRecord::RecordedRaceStarted));
}

void CKelmoNetworkServer::vSetUiRaceStopped()
{
    send(DisplayRecord::notice(DisplayRecord::RaceStopped));
}

void CKelmoNetworkServer::vSetUiRacePaused()
{
    send(DisplayRecord::notice(DisplayRecord::RacePaused));
}

void CKelmoNetworkServer::vSetUiRaceResumed()
{
    send(DisplayRecord::notice(DisplayRecord::RaceResumed));
}

void CKelmoNetworkServer::updateLightsDisplay(int iAction)
{
    send(DisplayRecord::lights(iAction));
}

void CKelmoNetworkServer::setRaceTime(const QTime& time)
{
    send(DisplayRecord::raceTime(time));
}

void CKelmoNetworkServer::setAdditionalInfo(const QString& text)
{
    send(DisplayRecord::raceInfoText(text));
}

void CKelmoNetworkServer::trackPowerNotification(int tracknum, bool powerState)
{
    send(DisplayRecord::trackPower(tracknum, powerState));
}

void CKelmoNetworkServer::onSettingsChanged()
{
    send(DisplayRecord::settings(*m_settings));
}

void CKelmoNetworkServer::onRaceSettingsChanged()
{
    send(DisplayRecord::raceSettings(*m_raceSettings));
}

void CKelmoNetworkServer::sendAppTerminationNotification()
{
    send(DisplayRecord::shutdown(m_settings->shutdownWaitTime()));
}

/** One write() a frame: a client may take the bytes of one reading for whole frames. */
void CKelmoNetworkServer::send(const QByteArray& record)
{
    const QByteArray frame = DisplayRecord::framed(record);
    if (!m_clientSocket || frame.isEmpty())
        return;
    m_clientSocket->write(frame);
    m_clientSocket->flush(); // doesn't wait; the client shall see it before this screen is painted
    if (m_clientSocket && m_clientSocket->bytesToWrite() > MaxWaiting)
        m_clientSocket->abort();
}
