#include "network/CKelmoNetworkClient.h"

#include "network/DisplayRecord.h"
#include "network/RequiredNetworkSession.h"
#include "network/TcpKeepAlive.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"

#include <QLoggingCategory>
#include <QNetworkProxy>
#include <QTcpSocket>
#include <QTimer>

namespace {

Q_LOGGING_CATEGORY(networkLog, "tornik.network", QtInfoMsg)

constexpr int RetryDelay = 1000; ///< milliseconds behind an error
constexpr int ExpectedRaceSettingsSize = 1400;

template <typename Value>
Value valueOf(DisplayRecord::Payload& payload, Value value = Value())
{
    payload.read(value);
    return value;
}

} // namespace

CKelmoNetworkClient::CKelmoNetworkClient(const QString& address, CSettings* settings,
                                         CRaceSettings* raceSettings)
    : m_socket(new QTcpSocket(this)), m_settings(settings), m_raceSettings(raceSettings)
{
    parseAddress(address);
    m_socket->setProxy(QNetworkProxy::NoProxy); // the race computer stands in the same room
    connect(m_socket, &QTcpSocket::connected, this, &CKelmoNetworkClient::noticeConnection);
    connect(m_socket, &QTcpSocket::readyRead, this, &CKelmoNetworkClient::readDataFromNetwork);
    connect(m_socket, &QTcpSocket::errorOccurred, this, &CKelmoNetworkClient::handleConnectionError);
    m_networkSession = openRequiredNetworkSession(this, [this] { sessionOpened(); });
    // Not at once: on this very computer a refusal comes before anybody listens to the signals.
    QTimer::singleShot(0, this, &CKelmoNetworkClient::connectToServer);
}

/** The end of the connection is no news any more. */
CKelmoNetworkClient::~CKelmoNetworkClient()
{
    m_socket->disconnect(this);
}

/** Required: only the first ":" splits, so that no IPv6 address is understood. */
void CKelmoNetworkClient::parseAddress(const QString& address)
{
    const QStringList parts = address.split(QLatin1Char(':'));
    m_host = parts.first();
    if (parts.size() > 1)
        m_port = parts.at(1).toUShort(nullptr, 10);
}

/** Nobody waits for the session: until it is open, the tries fail and are repeated. */
void CKelmoNetworkClient::sessionOpened() {}

bool CKelmoNetworkClient::isConnected() const
{
    return m_socket->state() == QAbstractSocket::ConnectedState;
}

void CKelmoNetworkClient::connectToServer()
{
    qCDebug(networkLog) << "connecting to" << m_host << m_port;
    m_socket->connectToHost(m_host, m_port, QIODevice::ReadWrite, QAbstractSocket::AnyIPProtocol);
}

/** A computer whose power was cut says no good-bye, and this one never writes: the system has to ask. */
void CKelmoNetworkClient::noticeConnection()
{
    qCDebug(networkLog) << "connected";
    watchTcpPeer(m_socket->socketDescriptor());
}

/**
 * Required: the same error twice in a row is told once, even with a connection in between, and what was
 * read of a frame stays over the end of a connection.
 */
void CKelmoNetworkClient::handleConnectionError(QAbstractSocket::SocketError socketError)
{
    m_lastErrorText = errorText(socketError);
    qCDebug(networkLog) << socketError << m_lastErrorText;
    const bool isNews = socketError != m_lastError;
    m_lastError = socketError;
    if (isNews)
        Q_EMIT debugMessage(m_lastErrorText);
    QTimer::singleShot(RetryDelay, this, &CKelmoNetworkClient::connectToServer);
}

QString CKelmoNetworkClient::errorText(QAbstractSocket::SocketError socketError) const
{
    switch (socketError) {
    case QAbstractSocket::ConnectionRefusedError:
        return tr("Verbindungsanfrage wurde von der Gegenstelle abgelehnt. Stellen Sie sicher, dass der "
                  "Server läuft und die Verbindungseinstellungen korrekt sind.");
    case QAbstractSocket::RemoteHostClosedError:
        return tr("Verbindung wurde unterbrochen.");
    case QAbstractSocket::HostNotFoundError:
        return tr("Server nicht gefunden. Bitte überprüfen Sie die angegebene Adresse und den Port.");
    default:
        return m_socket->errorString();
    }
}

void CKelmoNetworkClient::readDataFromNetwork()
{
    QByteArray record;
    do {
        m_reader.append(m_socket->readAll()); // what a receiver of the record before let in, too
        if (!m_reader.takeRecord(&record))
            return;
        processRecord(record);
    } while (!m_reader.isEmpty());
}

void CKelmoNetworkClient::processRecord(QByteArray& record)
{
    DisplayRecord::Payload payload(record);
    // Required: the size is that of one particular set of names, so that the text shows on nearly every
    // connection; the record counts all the same.
    if (payload.type() == DisplayRecord::RaceSettings && record.size() != ExpectedRaceSettingsSize)
        Q_EMIT debugMessage(
            tr("RaceSettings falsch! %1 zu %2").arg(record.size()).arg(ExpectedRaceSettingsSize));
    processPayload(payload);
}

void CKelmoNetworkClient::processPayload(DisplayRecord::Payload& payload)
{
    switch (payload.type()) {
    case DisplayRecord::RaceInfoText:
        Q_EMIT raceInfoText(valueOf<QString>(payload));
        break;
    case DisplayRecord::RaceEvent:
        Q_EMIT RaceEventHappened(valueOf<CRaceEvent>(payload));
        break;
    case DisplayRecord::Lights:
        Q_EMIT UpdateLights(valueOf<qint32>(payload));
        break;
    case DisplayRecord::RaceTime:
        Q_EMIT UpdateRaceTime(valueOf<QTime>(payload));
        break;
    case DisplayRecord::TrackPower: {
        const auto track = valueOf<qint32>(payload);
        Q_EMIT trackPowerStateChanged(track, valueOf<bool>(payload));
        break;
    }
    case DisplayRecord::Settings:
        takeSettings(payload);
        break;
    case DisplayRecord::RaceSettings:
        takeRaceSettings(payload);
        Q_EMIT raceSettingsChanged();
        break;
    case DisplayRecord::RaceSettingsWithDrivers:
        takeRaceSettings(payload);
        Q_EMIT updateDriversAndCars();
        break;
    case DisplayRecord::Shutdown:
        Q_EMIT triggerShutdown(valueOf<qint32>(payload));
        break;
    default:
        processNotice(payload.type());
    }
}

/** Records without a payload; any other type says nothing. */
void CKelmoNetworkClient::processNotice(int type)
{
    switch (type) {
    case DisplayRecord::RaceStarted:
        Q_EMIT RaceStarted();
        break;
    case DisplayRecord::RecordedRaceStarted:
        Q_EMIT RecordedRaceStarted();
        break;
    case DisplayRecord::RaceStopped:
        Q_EMIT RaceStopped();
        break;
    case DisplayRecord::RacePaused:
        Q_EMIT RacePaused();
        break;
    case DisplayRecord::RaceResumed:
        Q_EMIT RaceResumed();
        break;
    default:
        qCDebug(networkLog) << "record of an unknown type" << type;
    }
}

void CKelmoNetworkClient::takeSettings(DisplayRecord::Payload& payload)
{
    CSettings settings;
    payload.read(settings);
    *m_settings = settings;
    Q_EMIT settingsChanged();
}

void CKelmoNetworkClient::takeRaceSettings(DisplayRecord::Payload& payload)
{
    CRaceSettings settings;
    payload.read(settings);
    *m_raceSettings = settings;
}
