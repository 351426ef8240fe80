#ifndef TORNIK_NETWORK_CKELMONETWORKSERVER_H
#define TORNIK_NETWORK_CKELMONETWORKSERVER_H

#include <QHostAddress>
#include <QList>
#include <QNetworkInterface>
#include <QObject>

struct CRaceEvent;
class CRaceSettings;
class CSettings;
class QNetworkSession;
class QTcpServer;
class QTcpSocket;
class QTime;

/**
 * Shows the race to one display client: each of its slots becomes a record on the connection.
 *
 * Owned by the start object of a race computer, whether a client ever comes or not; lives in the main
 * thread. Nothing here waits for the client. One that doesn't read is cut off, what it sends is thrown
 * away, and with no client every record is dropped.
 */
class CKelmoNetworkServer : public QObject
{
    Q_OBJECT

public:
    /** More bytes than these never wait for a client: it is cut off. */
    static constexpr qint64 MaxWaiting = qint64(4) * 1024 * 1024;

    /**
     * Listens at once. A port that can't be listened on gives a program without display clients.
     * @param settings not owned, as raceSettings
     * @param port 0 for that of the settings
     * @param addresses of this computer, one of which is listened on; see listeningAddress()
     */
    CKelmoNetworkServer(CSettings* settings, CRaceSettings* raceSettings, quint16 port,
                        const QList<QHostAddress>& addresses = QNetworkInterface::allAddresses());

    /** @return the first address with an IPv4 form that isn't the loopback one, which is the last resort. */
    static QHostAddress listeningAddress(const QList<QHostAddress>& addresses);

    /** @return the address listened on; empty if there is none yet. */
    QString serverAddress() const;
    /** @return the port listened on; 0 if there is none. */
    quint16 serverPort() const;

public Q_SLOTS:
    void HandleEventRace(const CRaceEvent& event);
    /** Sends the drivers and cars, which the start has taken from the screen, and that the race runs. */
    void vSetUiRaceStarted();
    void vSetUiRecordedRaceStarted();
    void vSetUiRaceStopped();
    void vSetUiRacePaused();
    void vSetUiRaceResumed();
    /** @param iAction a CLightAction */
    void updateLightsDisplay(int iAction);
    void setRaceTime(const QTime& time);
    void setAdditionalInfo(const QString& text);
    /** @param tracknum from 0 */
    void trackPowerNotification(int tracknum, bool powerState);
    void onSettingsChanged();
    void onRaceSettingsChanged();
    /** Takes the connection that has come in, in the place of the one before. */
    void connectClient();
    void disconnectClient();
    void sessionOpened();
    /** Sends what a new client must know: settings and race settings. */
    void sendInitData();
    bool isServerRunning() const;
    /** Lets the client's computer count down and shut itself down. */
    void sendAppTerminationNotification();

Q_SIGNALS:
    /** Never emitted. */
    void debugMessage(const QString& text);
    void clientConnected();
    void clientDisconnected();

private:
    void send(const QByteArray& record);

    QTcpServer* m_tcpServer = nullptr; ///< child; null until listening starts
    QNetworkSession* m_networkSession = nullptr;
    QTcpSocket* m_clientSocket = nullptr; ///< the server's; null without a client
    QString m_ipAddress;
    CSettings* m_settings;
    CRaceSettings* m_raceSettings;
    quint16 m_port;
    QList<QHostAddress> m_addresses;
};

#endif
