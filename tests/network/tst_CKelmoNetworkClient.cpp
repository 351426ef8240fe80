#include "network/ClientFixture.h"
#include "network/FullRecords.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <limits>
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

int socketOption(qintptr descriptor, int level, int option)
{
    int value = 0;
    socklen_t size = sizeof value;
    return getsockopt(int(descriptor), level, option, &value, &size) == 0 ? value : -1;
}

} // namespace

/** How the client finds its race computer, loses it and finds it again. */
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

QTEST_GUILESS_MAIN(tst_CKelmoNetworkClient)
#include "tst_CKelmoNetworkClient.moc"
