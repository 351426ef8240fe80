#ifndef TORNIK_NETWORK_CKELMONETWORKCLIENT_H
#define TORNIK_NETWORK_CKELMONETWORKCLIENT_H

#include "network/CDisplayFrameReader.h"
#include "race/CRaceEvent.h"

#include <QAbstractSocket>
#include <QObject>
#include <QTime>

class CRaceSettings;
class CSettings;
class QNetworkSession;
class QTcpSocket;

namespace DisplayRecord {
class Payload;
}

/**
 * Follows the race of another computer: keeps a connection to its display port, tries for ever to get
 * one, and turns each record that comes in into a signal or into new settings. Never sends a byte, and
 * takes any bytes: what is no record is passed over.
 *
 * The settings and race settings that it is given become those of the race computer, in memory only.
 * Owned by the start object of a display client; main thread.
 */
class CKelmoNetworkClient : public QObject
{
    Q_OBJECT

public:
    static constexpr quint16 DefaultPort = 47624;

    /**
     * Begins to connect as soon as the event loop runs.
     * @param address name or IPv4 address of the race computer; ":" and a port may stand behind it. A
     *        port that is no number is 0, which nobody listens on.
     * @param settings, raceSettings the live objects; not owned
     */
    CKelmoNetworkClient(const QString& address, CSettings* settings, CRaceSettings* raceSettings);
    ~CKelmoNetworkClient() override;

    QString host() const { return m_host; }
    quint16 port() const { return m_port; }
    bool isConnected() const;

    /** @return why the connection was lost or refused last; empty if it never was. */
    QString lastErrorText() const { return m_lastErrorText; }
    void clearLastError() { m_lastErrorText.clear(); }

Q_SIGNALS:
    /** @param iAction a CLightAction */
    void UpdateLights(int iAction);
    void UpdateRaceTime(const QTime& time);
    void RaceEventHappened(const CRaceEvent& event);
    void raceInfoText(const QString& text);
    /** What the user should know of the connection; the same error is told once in a row. */
    void debugMessage(const QString& text);
    /** @param track from 0 */
    void trackPowerStateChanged(int track, bool on);
    void RaceStarted();
    void RecordedRaceStarted();
    void RaceStopped();
    void RacePaused();
    void RaceResumed();
    void settingsChanged();
    void raceSettingsChanged();
    /** Drivers and cars have come with new race settings. */
    void updateDriversAndCars();
    /** @param shutdownWaitTime seconds until this computer is to be powered off */
    void triggerShutdown(int shutdownWaitTime);

private Q_SLOTS:
    void sessionOpened();
    void connectToServer();
    void noticeConnection();
    void readDataFromNetwork();
    void handleConnectionError(QAbstractSocket::SocketError socketError);
    void processRecord(QByteArray& record);

private:
    void parseAddress(const QString& address);
    QString errorText(QAbstractSocket::SocketError socketError) const;
    void processPayload(DisplayRecord::Payload& payload);
    void processNotice(int type);
    void takeSettings(DisplayRecord::Payload& payload);
    void takeRaceSettings(DisplayRecord::Payload& payload);

    QTcpSocket* m_socket;
    CDisplayFrameReader m_reader;
    QNetworkSession* m_networkSession = nullptr; ///< null where none is needed
    QString m_lastErrorText;
    QString m_host;
    quint16 m_port = DefaultPort;
    CSettings* m_settings;
    CRaceSettings* m_raceSettings;
    int m_lastError = -1; ///< a QAbstractSocket::SocketError; -1 before the first
};

#endif
