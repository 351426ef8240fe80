#include "network/CKelmoNetworkClient.h"
#include "network/DisplayRecord.h"
#include "network/FullRecords.h"
#include "support/StreamBytes.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <limits>
#include <memory>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace {

const QString Refused =
    QStringLiteral("Verbindungsanfrage wurde von der Gegenstelle abgelehnt. Stellen Sie sicher, dass der "
                   "Server läuft und die Verbindungseinstellungen korrekt sind.");
const QString Lost = QStringLiteral("Verbindung wurde unterbrochen.");
const QString NotFound =
    QStringLiteral("Server nicht gefunden. Bitte überprüfen Sie die angegebene Adresse und den Port.");

constexpr int Patience = 20000; // milliseconds

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

QByteArray frame(const QByteArray& record)
{
    return DisplayRecord::framed(record);
}

QByteArray rawRecord(quint16 type, const QByteArray& payload)
{
    return StreamBytes().int16(qint16(type)).raw(payload).bytes();
}

QByteArray randomBytes(QRandomGenerator& random, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

QByteArray lightsFrame(int action)
{
    return frame(DisplayRecord::lights(action));
}

/** @return race settings without names, and with as many bytes for the interface as are missing. */
CRaceSettings raceSettingsOfSize(int size)
{
    CRaceSettings settings;
    CDriver driver;
    driver.setName("");
    CCar car;
    car.setOriginalManufacturer("");
    car.setOriginalType("");
    car.setModelManufacturer("");
    car.setChassis("");
    for (int i = 0; i < CRaceSettings::Slots; ++i) {
        settings.setDriver(i, driver);
        settings.setCar(i, car);
    }
    CRaceway raceway(1);
    raceway.ioSettings = "";
    settings.setRaceway(raceway);
    raceway.ioSettings.fill('x', qMax(0, size - DisplayRecord::raceSettings(settings).size()));
    settings.setRaceway(raceway);
    return settings;
}

int socketOption(qintptr descriptor, int level, int option)
{
    int value = 0;
    socklen_t size = sizeof value;
    return getsockopt(int(descriptor), level, option, &value, &size) == 0 ? value : -1;
}

} // namespace

class tst_CKelmoNetworkClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hostAndPortAreTakenFromTheAddress_data();
    void hostAndPortAreTakenFromTheAddress();
    void connectsToTheHostAndPortOfTheAddress();
    void badPortIsTriedAsPort0EachSecond();
    void ipv6AddressIsSplitAtItsFirstColonAndFails();

    void clientThatComesBeforeItsServerFindsIt();
    void serverThatGoesAwayIsToldOnceThenItsRefusalOnceThenNothing();
    void serverThatReturnsIsFoundAgain();
    void secondLossOfTheSameKindIsNotTold();
    void everyTryComesASecondBehindTheError();
    void errorHasItsText_data();
    void errorHasItsText();
    void repeatedErrorIsToldOnce();
    void lastErrorTextCanBeCleared();
    void silentEndOfThePeerIsWatchedFor();
    void endOfTheClientTellsNothing();

    void neverSendsAByte();
    void everyRecordBecomesItsSignal();
    void settingsBecomeTheLiveOnesAndAreNotStored();
    void raceSettingsBecomeTheLiveOnes_data();
    void raceSettingsBecomeTheLiveOnes();
    void raceSettingsOfAnotherSizeAreToldAndAppliedAllTheSame();
    void raceSettingsOf1400BytesAreNotTold();
    void sizeOfRaceSettingsWithDriversIsNeverTold();
    void trackPowerIsToldThoughNobodyListens();

    void twoFramesInOneSegmentAreBothProcessedInOneReading();
    void recordOfAnUnknownTypeIsSkippedWithoutLosingTheNext();
    void emptyFramesAreSkipped();
    void cutRecordLeavesTheRestAtItsDefaults();
    void frameThatIsSplitIsHandedOnShortAndItsRestReadAsFrames();
    void firstByteOfALengthWaitsForTheSecond();
    void bytesOfABrokenFrameStayOverAReconnection();

    void giantLengthsAreSurvived();
    void everyRecordCutAnywhereIsSurvived();
    void longestRecordsOfEveryTypeAreSurvived();
    void randomBytesAreSurvived();
    void randomRecordsOfEveryTypeAreSurvived();
};

void tst_CKelmoNetworkClient::hostAndPortAreTakenFromTheAddress_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::newRow("name and port") << "rechner:5000"
                                   << "rechner" << 5000;
    QTest::newRow("name alone") << "rechner"
                                << "rechner" << 47624;
    QTest::newRow("IPv4 address") << "192.168.1.20"
                                  << "192.168.1.20" << 47624;
    QTest::newRow("IPv4 address and port") << "192.168.1.20:65535"
                                           << "192.168.1.20" << 65535;
    QTest::newRow("port that is no number") << "rechner:abc"
                                            << "rechner" << 0;
    QTest::newRow("port that is too large") << "rechner:65536"
                                            << "rechner" << 0;
    QTest::newRow("negative port") << "rechner:-1"
                                   << "rechner" << 0;
    QTest::newRow("hexadecimal port") << "rechner:0x50"
                                      << "rechner" << 0;
    QTest::newRow("empty port") << "rechner:"
                                << "rechner" << 0;
    QTest::newRow("further parts") << "rechner:5000:6000:x"
                                   << "rechner" << 5000;
    QTest::newRow("IPv6 address") << "fe80::1"
                                  << "fe80" << 0;
    QTest::newRow("IPv6 loopback") << "::1"
                                   << "" << 0;
    QTest::newRow("nothing") << ""
                             << "" << 47624;
}

void tst_CKelmoNetworkClient::hostAndPortAreTakenFromTheAddress()
{
    QFETCH(QString, address);
    const ClientFixture user(address); // no event loop runs, so nobody is looked up
    QTEST(user.client.host(), "host");
    QCOMPARE(int(user.client.port()), *static_cast<int*>(QTest::qData("port", QMetaType::Int)));
}

void tst_CKelmoNetworkClient::connectsToTheHostAndPortOfTheAddress()
{
    RaceComputer server;
    QVERIFY(server.listen());
    ClientFixture user(QStringLiteral("localhost:%1").arg(server.port()));
    QVERIFY(server.accept());
    QVERIFY(user.isConnected());
    QVERIFY(user.messages.isEmpty());
}

void tst_CKelmoNetworkClient::badPortIsTriedAsPort0EachSecond()
{
    ClientFixture user("127.0.0.1:abc");
    QVERIFY(user.fails());
    QElapsedTimer sinceError;
    sinceError.start();
    qint64 shortest = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 3; ++attempt) {
        const qint64 before = sinceError.elapsed();
        QVERIFY(user.fails());
        shortest = qMin(shortest, sinceError.elapsed() - before);
    }
    QVERIFY(sinceError.elapsed() >= 2850);
    QVERIFY2(shortest < 1900, qPrintable(QString::number(shortest)));
    QCOMPARE(user.messages.size(), 1);
}

void tst_CKelmoNetworkClient::ipv6AddressIsSplitAtItsFirstColonAndFails()
{
    QTcpServer server;
    if (!server.listen(QHostAddress::LocalHostIPv6))
        QVERIFY(server.listen(QHostAddress::LocalHost)); // a machine without IPv6
    ClientFixture user(QStringLiteral("::1:%1").arg(server.serverPort()));
    QVERIFY(user.fails());
    QVERIFY(user.fails());
    QVERIFY(!server.hasPendingConnections());
    QVERIFY(!user.client.isConnected());
}

void tst_CKelmoNetworkClient::clientThatComesBeforeItsServerFindsIt()
{
    RaceComputer server;
    QVERIFY(server.listen());
    const quint16 port = server.port();
    server.leave();
    ClientFixture user(QStringLiteral("127.0.0.1:%1").arg(port));
    QVERIFY(user.fails());
    QVERIFY(user.fails());
    QCOMPARE(user.messages, QStringList(Refused));
    QVERIFY(server.listen(port));
    QVERIFY(server.accept());
    QVERIFY(user.isConnected());
    QCOMPARE(user.messages, QStringList(Refused));
}

void tst_CKelmoNetworkClient::serverThatGoesAwayIsToldOnceThenItsRefusalOnceThenNothing()
{
    Connection connection;
    QVERIFY(connection.open());
    connection.server.leave();
    ClientFixture& user = *connection.user;
    QTRY_COMPARE(user.messages, QStringList(Lost));
    QTRY_COMPARE(user.messages, (QStringList{Lost, Refused}));
    for (int attempt = 0; attempt < 3; ++attempt)
        QVERIFY(user.fails());
    QCOMPARE(user.messages, (QStringList{Lost, Refused}));
}

void tst_CKelmoNetworkClient::serverThatReturnsIsFoundAgain()
{
    Connection connection;
    QVERIFY(connection.open());
    const quint16 port = connection.server.port();
    ClientFixture& user = *connection.user;
    for (int loss = 0; loss < 2; ++loss) {
        connection.server.leave();
        QVERIFY(user.fails());
        QVERIFY(user.fails());
        QVERIFY(connection.server.listen(port));
        QVERIFY(connection.server.accept());
        QVERIFY(user.isConnected());
        QVERIFY(connection.send(lightsFrame(8)));
        QCOMPARE(user.lights.size(), loss + 1);
    }
}

void tst_CKelmoNetworkClient::secondLossOfTheSameKindIsNotTold()
{
    Connection connection;
    QVERIFY(connection.open());
    ClientFixture& user = *connection.user;
    connection.server.hangUp();
    QTRY_COMPARE(user.messages, QStringList(Lost));
    QVERIFY(connection.server.accept()); // it listens on, so no try is refused
    QVERIFY(user.isConnected());
    connection.server.hangUp();
    QVERIFY(user.fails());
    QCOMPARE(user.client.lastErrorText(), Lost);
    QVERIFY(connection.server.accept());
    QCOMPARE(user.messages, QStringList(Lost));
}

void tst_CKelmoNetworkClient::everyTryComesASecondBehindTheError()
{
    RaceComputer server;
    QVERIFY(server.listen());
    const QString address = server.address();
    server.leave();
    ClientFixture user(address);
    QVERIFY(user.fails());
    for (int attempt = 0; attempt < 3; ++attempt) {
        QElapsedTimer sinceError;
        sinceError.start();
        QVERIFY(user.fails());
        QVERIFY2(sinceError.elapsed() >= 950, qPrintable(QString::number(sinceError.elapsed())));
    }
}

void tst_CKelmoNetworkClient::errorHasItsText_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("text");
    QTest::newRow("refused") << int(QAbstractSocket::ConnectionRefusedError) << Refused;
    QTest::newRow("lost") << int(QAbstractSocket::RemoteHostClosedError) << Lost;
    QTest::newRow("not found") << int(QAbstractSocket::HostNotFoundError) << NotFound;
    QTest::newRow("any other: what the socket says")
        << int(QAbstractSocket::NetworkError) << QTcpSocket().errorString();
}

void tst_CKelmoNetworkClient::errorHasItsText()
{
    QFETCH(int, error);
    QFETCH(QString, text);
    ClientFixture user("127.0.0.1:9");
    user.notice(QAbstractSocket::SocketError(error));
    QCOMPARE(user.client.lastErrorText(), text);
    QCOMPARE(user.messages, QStringList(text));
}

void tst_CKelmoNetworkClient::repeatedErrorIsToldOnce()
{
    ClientFixture user("127.0.0.1:9");
    for (const auto error : {QAbstractSocket::ConnectionRefusedError, QAbstractSocket::ConnectionRefusedError,
                             QAbstractSocket::HostNotFoundError, QAbstractSocket::HostNotFoundError,
                             QAbstractSocket::ConnectionRefusedError})
        user.notice(error);
    QCOMPARE(user.messages, (QStringList{Refused, NotFound, Refused}));
}

void tst_CKelmoNetworkClient::lastErrorTextCanBeCleared()
{
    ClientFixture user("127.0.0.1:9");
    QVERIFY(user.client.lastErrorText().isEmpty());
    user.notice(QAbstractSocket::HostNotFoundError);
    QCOMPARE(user.client.lastErrorText(), NotFound);
    user.client.clearLastError();
    QVERIFY(user.client.lastErrorText().isEmpty());
    user.notice(QAbstractSocket::HostNotFoundError);
    QCOMPARE(user.messages.size(), 1); // clearing the text makes it no news
}

void tst_CKelmoNetworkClient::silentEndOfThePeerIsWatchedFor()
{
    Connection connection;
    QVERIFY(connection.open());
    const qintptr descriptor = connection.user->client.findChild<QTcpSocket*>()->socketDescriptor();
    QCOMPARE(socketOption(descriptor, SOL_SOCKET, SO_KEEPALIVE), 1);
    QCOMPARE(socketOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE), 10);
    QCOMPARE(socketOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL), 5);
    QCOMPARE(socketOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT), 3);
}

void tst_CKelmoNetworkClient::endOfTheClientTellsNothing()
{
    RaceComputer server;
    QVERIFY(server.listen());
    CSettings settings;
    CRaceSettings raceSettings;
    auto client = std::make_unique<CKelmoNetworkClient>(server.address(), &settings, &raceSettings);
    QVERIFY(server.accept());
    QTRY_VERIFY(client->isConnected());
    const QSignalSpy messages(client.get(), &CKelmoNetworkClient::debugMessage);
    client.reset();
    QCOMPARE(messages.count(), 0);
}

void tst_CKelmoNetworkClient::neverSendsAByte()
{
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(DisplayRecord::settings(FullRecords::settings())) +
                            frame(DisplayRecord::shutdown(15)) + rawRecord(999, "?")));
    QCOMPARE(connection.server.bytesFromClient(), qint64(0));
}

void tst_CKelmoNetworkClient::everyRecordBecomesItsSignal()
{
    Connection connection;
    QVERIFY(connection.open());
    CKelmoNetworkClient& client = connection.user->client;
    QVector<int> order;
    const auto note = [&order](int type) { return [&order, type] { order.append(type); }; };
    QString text;
    CRaceEvent event;
    int lights = 0;
    QTime raceTime;
    QPair<int, bool> power;
    int waitTime = 0;
    connect(&client, &CKelmoNetworkClient::raceInfoText, this, [&](const QString& value) {
        text = text.isNull() ? value : text;
        if (order.size() < 14)
            order.append(100);
    });
    connect(&client, &CKelmoNetworkClient::RaceEventHappened, this, [&](const CRaceEvent& value) {
        event = value;
        order.append(101);
    });
    connect(&client, &CKelmoNetworkClient::UpdateLights, this, [&](int value) {
        lights = value;
        order.append(102);
    });
    connect(&client, &CKelmoNetworkClient::UpdateRaceTime, this, [&](const QTime& value) {
        raceTime = value;
        order.append(103);
    });
    connect(&client, &CKelmoNetworkClient::trackPowerStateChanged, this, [&](int track, bool on) {
        power = {track, on};
        order.append(104);
    });
    connect(&client, &CKelmoNetworkClient::RaceStarted, this, note(105));
    connect(&client, &CKelmoNetworkClient::RecordedRaceStarted, this, note(106));
    connect(&client, &CKelmoNetworkClient::RaceStopped, this, note(107));
    connect(&client, &CKelmoNetworkClient::RacePaused, this, note(108));
    connect(&client, &CKelmoNetworkClient::RaceResumed, this, note(109));
    connect(&client, &CKelmoNetworkClient::settingsChanged, this, note(110));
    connect(&client, &CKelmoNetworkClient::raceSettingsChanged, this, note(111));
    connect(&client, &CKelmoNetworkClient::updateDriversAndCars, this, note(112));
    connect(&client, &CKelmoNetworkClient::triggerShutdown, this, [&](int seconds) {
        waitTime = seconds;
        order.append(113);
    });

    QByteArray frames = frame(DisplayRecord::raceInfoText("Grüße von der Bahn")) +
                        frame(DisplayRecord::raceEvent(FullRecords::event())) + lightsFrame(9) +
                        frame(DisplayRecord::raceTime(QTime(1, 2, 3))) +
                        frame(DisplayRecord::trackPower(5, true));
    for (int type = DisplayRecord::RaceStarted; type <= DisplayRecord::RaceResumed; ++type)
        frames += frame(DisplayRecord::notice(DisplayRecord::Type(type)));
    frames += frame(DisplayRecord::settings(FullRecords::settings())) +
              frame(DisplayRecord::raceSettings(FullRecords::raceSettings())) +
              frame(DisplayRecord::raceSettingsWithDrivers(FullRecords::raceSettings())) +
              frame(DisplayRecord::shutdown(42));
    QVERIFY(connection.send(frames));

    QCOMPARE(order, (QVector<int>{100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113}));
    QCOMPARE(text, QString("Grüße von der Bahn"));
    QCOMPARE(streamForm(event), streamForm(FullRecords::event()));
    QCOMPARE(lights, 9);
    QCOMPARE(raceTime, QTime(1, 2, 3));
    QCOMPARE(power, qMakePair(5, true));
    QCOMPARE(waitTime, 42);
}

void tst_CKelmoNetworkClient::settingsBecomeTheLiveOnesAndAreNotStored()
{
    QSettings("Tornik", "Tornik").clear();
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(DisplayRecord::settings(FullRecords::settings()))));
    QCOMPARE(streamForm(connection.user->settings), streamForm(FullRecords::settings()));
    QVERIFY(QSettings("Tornik", "Tornik").allKeys().isEmpty());
}

void tst_CKelmoNetworkClient::raceSettingsBecomeTheLiveOnes_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::newRow("race settings") << DisplayRecord::raceSettings(FullRecords::raceSettings());
    QTest::newRow("race settings with drivers")
        << DisplayRecord::raceSettingsWithDrivers(FullRecords::raceSettings());
}

void tst_CKelmoNetworkClient::raceSettingsBecomeTheLiveOnes()
{
    QFETCH(QByteArray, record);
    QSettings("Tornik", "Tornik").clear();
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(record)));
    QCOMPARE(streamForm(connection.user->raceSettings), streamForm(FullRecords::raceSettings()));
    QVERIFY(QSettings("Tornik", "Tornik").allKeys().isEmpty());
}

void tst_CKelmoNetworkClient::raceSettingsOfAnotherSizeAreToldAndAppliedAllTheSame()
{
    Connection connection;
    QVERIFY(connection.open());
    const QByteArray record = DisplayRecord::raceSettings(FullRecords::raceSettings());
    QVERIFY(record.size() != 1400);
    QVERIFY(connection.send(frame(record)));
    QCOMPARE(connection.user->messages,
             QStringList(QStringLiteral("RaceSettings falsch! %1 zu 1400").arg(record.size())));
    QCOMPARE(connection.user->raceSettings.raceway().name, QString("W"));
}

void tst_CKelmoNetworkClient::raceSettingsOf1400BytesAreNotTold()
{
    const CRaceSettings settings = raceSettingsOfSize(1400);
    QCOMPARE(DisplayRecord::raceSettings(settings).size(), 1400);
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(DisplayRecord::raceSettings(settings))));
    QCOMPARE(connection.user->messages, QStringList());
    QCOMPARE(streamForm(connection.user->raceSettings), streamForm(settings));
}

void tst_CKelmoNetworkClient::sizeOfRaceSettingsWithDriversIsNeverTold()
{
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(DisplayRecord::raceSettingsWithDrivers(FullRecords::raceSettings()))));
    QVERIFY(connection.user->messages.isEmpty());
}

void tst_CKelmoNetworkClient::trackPowerIsToldThoughNobodyListens()
{
    Connection connection;
    QVERIFY(connection.open());
    const QSignalSpy power(&connection.user->client, &CKelmoNetworkClient::trackPowerStateChanged);
    QVERIFY(connection.send(frame(DisplayRecord::trackPower(7, false))));
    QCOMPARE(power.count(), 1);
    QCOMPARE(power.at(0), (QVariantList{7, false}));
}

void tst_CKelmoNetworkClient::twoFramesInOneSegmentAreBothProcessedInOneReading()
{
    Connection connection;
    QVERIFY(connection.open());
    auto* socket = connection.user->client.findChild<QTcpSocket*>();
    QVector<int> lightsAtReading; // behind the client's own slot
    connect(socket, &QTcpSocket::readyRead, this,
            [&] { lightsAtReading.append(connection.user->lights.size()); });
    connection.server.send(lightsFrame(8) + lightsFrame(9));
    QTRY_COMPARE(connection.user->lights, (QVector<int>{8, 9}));
    QCOMPARE(lightsAtReading, QVector<int>{2});
}

void tst_CKelmoNetworkClient::recordOfAnUnknownTypeIsSkippedWithoutLosingTheNext()
{
    Connection connection;
    QVERIFY(connection.open());
    QByteArray frames;
    int number = 0;
    for (const int type : {0, 99, 114, 115, 255, 0x6600, 65535}) {
        const QByteArray payload = lightsFrame(1); // looks like a frame itself
        frames += frame(rawRecord(quint16(type), payload)) + lightsFrame(++number);
    }
    QVERIFY(connection.send(frames));
    QCOMPARE(connection.user->lights, (QVector<int>{1, 2, 3, 4, 5, 6, 7}));
}

void tst_CKelmoNetworkClient::emptyFramesAreSkipped()
{
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(QByteArray(2000, '\0') + lightsFrame(8)));
    QCOMPARE(connection.user->lights, QVector<int>{8});
}

void tst_CKelmoNetworkClient::cutRecordLeavesTheRestAtItsDefaults()
{
    Connection connection;
    QVERIFY(connection.open());
    CRaceEvent event;
    connect(&connection.user->client, &CKelmoNetworkClient::RaceEventHappened, this,
            [&event](const CRaceEvent& value) { event = value; });
    const QSignalSpy waits(&connection.user->client, &CKelmoNetworkClient::triggerShutdown);
    const QByteArray whole = DisplayRecord::raceEvent(FullRecords::event());
    QVERIFY(connection.send(frame(whole.left(2 + 3 * 4)) + frame(rawRecord(113, "")) + lightsFrame(8)));
    QCOMPARE(event.type, FullRecords::event().type);
    QCOMPARE(event.track, FullRecords::event().track);
    QCOMPARE(event.laps, 0);
    QCOMPARE(event.fuelPercent, 0);
    QCOMPARE(event.speed, 0.0);
    QVERIFY(!event.raceRunning);
    QCOMPARE(waits.count(), 1);
    QCOMPARE(waits.at(0).at(0).toInt(), 0);
    QCOMPARE(connection.user->lights, QVector<int>{8});
}

void tst_CKelmoNetworkClient::frameThatIsSplitIsHandedOnShortAndItsRestReadAsFrames()
{
    Connection connection;
    QVERIFY(connection.open());
    // The second half alone is a frame of its own: lights with the action 7.
    const QByteArray payload = StreamBytes().int32(9).bytes() + lightsFrame(7);
    const QByteArray whole = frame(rawRecord(DisplayRecord::Lights, payload));
    const int firstPart = 2 + 2 + 4;
    connection.server.send(whole.left(firstPart));
    QTRY_COMPARE(connection.user->lights, QVector<int>{9});
    connection.server.send(whole.mid(firstPart));
    QTRY_COMPARE(connection.user->lights, (QVector<int>{9, 7}));
}

void tst_CKelmoNetworkClient::firstByteOfALengthWaitsForTheSecond()
{
    Connection connection;
    QVERIFY(connection.open());
    const QByteArray bytes = lightsFrame(8);
    const QSignalSpy readings(connection.user->client.findChild<QTcpSocket*>(), &QTcpSocket::readyRead);
    connection.server.send(bytes.left(1));
    QTRY_COMPARE(readings.count(), 1);
    QVERIFY(connection.user->lights.isEmpty());
    connection.server.send(bytes.mid(1));
    QTRY_COMPARE(connection.user->lights, QVector<int>{8});
}

void tst_CKelmoNetworkClient::bytesOfABrokenFrameStayOverAReconnection()
{
    Connection connection;
    QVERIFY(connection.open());
    const QByteArray bytes = lightsFrame(8);
    connection.server.send(bytes.left(1));
    connection.server.hangUp();
    QVERIFY(connection.server.accept());
    connection.server.send(bytes.mid(1));
    QTRY_COMPARE(connection.user->lights, QVector<int>{8});
}

void tst_CKelmoNetworkClient::giantLengthsAreSurvived()
{
    Connection connection;
    QVERIFY(connection.open());
    for (int length : {0x8000, 0xfffe, 0xffff}) {
        const QByteArray bytes = StreamBytes().int16(qint16(length)).int16(101).bytes();
        QVERIFY(connection.send(bytes));
        QVERIFY(connection.send(bytes + QByteArray(1000, '\xff')));
    }
    connection.user->lights.clear();
    QVERIFY(connection.send(lightsFrame(8)));
    QCOMPARE(connection.user->lights, QVector<int>{8});
}

void tst_CKelmoNetworkClient::everyRecordCutAnywhereIsSurvived()
{
    Connection connection;
    QVERIFY(connection.open());
    const QByteArray records[] = {DisplayRecord::raceInfoText("Text"),
                                  DisplayRecord::raceEvent(FullRecords::event()),
                                  DisplayRecord::lights(8),
                                  DisplayRecord::raceTime(QTime(0, 0, 1)),
                                  DisplayRecord::trackPower(1, true),
                                  DisplayRecord::settings(FullRecords::settings()),
                                  DisplayRecord::raceSettings(FullRecords::raceSettings()),
                                  DisplayRecord::raceSettingsWithDrivers(FullRecords::raceSettings()),
                                  DisplayRecord::shutdown(15)};
    for (const QByteArray& record : records) {
        QByteArray frames;
        for (int size = 0; size < record.size(); ++size)
            frames += frame(record.left(size));
        // Each piece may be cut by the line as well, so only the client's being in step counts.
        QVERIFY(connection.send(frames));
    }
    QVERIFY(connection.user->client.isConnected());
}

void tst_CKelmoNetworkClient::longestRecordsOfEveryTypeAreSurvived()
{
    Connection connection;
    QVERIFY(connection.open());
    for (int type = 99; type <= 114; ++type) {
        for (const char filler : {'\0', '\1', '\x7f', '\xff'}) {
            const QByteArray record = rawRecord(quint16(type), QByteArray(65533, filler));
            QCOMPARE(record.size(), DisplayRecord::MaxSize);
            QVERIFY(connection.send(frame(record)));
        }
    }
}

void tst_CKelmoNetworkClient::randomBytesAreSurvived()
{
    Connection connection;
    QVERIFY(connection.open());
    QRandomGenerator random(20210);
    for (int block = 0; block < 200; ++block) {
        connection.server.send(randomBytes(random, 20000));
        QTRY_COMPARE(connection.server.waitingBytes(), qint64(0));
    }
    QVERIFY(connection.isInStep());
    QVERIFY(connection.user->client.isConnected());
}

void tst_CKelmoNetworkClient::randomRecordsOfEveryTypeAreSurvived()
{
    Connection connection;
    QVERIFY(connection.open());
    QRandomGenerator random(20211);
    for (int block = 0; block < 200; ++block) {
        QByteArray frames;
        for (int number = 0; number < 20; ++number) {
            const QByteArray payload = randomBytes(random, random.bounded(3000));
            frames += frame(rawRecord(quint16(100 + random.bounded(14)), payload));
        }
        connection.server.send(frames);
        QTRY_COMPARE(connection.server.waitingBytes(), qint64(0));
    }
    QVERIFY(connection.isInStep());
    QVERIFY(connection.user->client.isConnected());
}

QTEST_GUILESS_MAIN(tst_CKelmoNetworkClient)
#include "tst_CKelmoNetworkClient.moc"
