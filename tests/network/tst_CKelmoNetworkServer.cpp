#include "network/CKelmoNetworkServer.h"
#include "network/DisplayPeer.h"
#include "network/FullRecords.h"
#include "network/LoopbackSocket.h"
#include "network/RecordFile.h"
#include "race/CLightAction.h"

#include <QDir>
#include <QSignalSpy>
#include <QTcpServer>
#include <QtTest>

#include <functional>

namespace {

using Slot = std::function<void(CKelmoNetworkServer&)>;

const QVector<int> InitData{110, 111};

QList<QHostAddress> addresses(const QStringList& texts)
{
    QList<QHostAddress> addresses;
    for (const QString& text : texts)
        addresses.append(QHostAddress(text));
    return addresses;
}

const QList<QHostAddress>& loopbackOnly()
{
    static const QList<QHostAddress> loopback = addresses({"127.0.0.1", "::1"});
    return loopback;
}

quint16 freePort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

int openFiles()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size();
}

/** Settings with full records, and a server of theirs on a port that is free. */
struct CServerFixture
{
    CServerFixture() { settings.setPort(freePort()); }

    QTcpSocket* socket() const { return server.findChild<QTcpSocket*>(); }
    int sockets() const { return server.findChildren<QTcpSocket*>().size(); }
    QByteArray initData() const
    {
        return DisplayRecord::framed(DisplayRecord::settings(settings)) +
               DisplayRecord::framed(DisplayRecord::raceSettings(raceSettings));
    }
    qint64 waiting() const { return socket() ? socket()->bytesToWrite() : 0; }
    /** @return a client that has got its first records, which it has forgotten. */
    std::unique_ptr<DisplayPeer> client() const
    {
        auto client = std::make_unique<DisplayPeer>(server.serverPort());
        if (!QTest::qWaitFor([&] { return client->types() == InitData; }))
            return nullptr;
        client->forget();
        return client;
    }

    CSettings settings = FullRecords::settings();
    CRaceSettings raceSettings = FullRecords::raceSettings();
    CKelmoNetworkServer server{&settings, &raceSettings, freePort(), loopbackOnly()};
};

/** A second of a race with a lot going on. */
void sendASecondOfRace(CKelmoNetworkServer& server)
{
    for (int event = 0; event < 20; ++event)
        server.HandleEventRace(FullRecords::event());
    server.setRaceTime(QTime(0, 0, 1));
}

} // namespace

Q_DECLARE_METATYPE(Slot)

class tst_CKelmoNetworkServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstAddressThatIsNotLoopbackIsListenedOn_data();
    void theFirstAddressThatIsNotLoopbackIsListenedOn();
    void withNoInterfaceButLoopbackTheServerListensOnTheLoopbackAddress();
    void aPortIsListenedOn();
    void portZeroIsThePortOfTheSettings();
    void aPortInUseIsSilent();
    void anotherOpenedSessionChangesNothing();
    void aConnectWithoutAConnectionChangesNothing();

    void aNewClientGetsSettingsAndRaceSettings();
    void aNewClientIsTold();
    void theInitDataAreSentAgainOnDemand();
    void everySlotSendsItsRecord_data();
    void everySlotSendsItsRecord();
    void aStartedRaceSendsItsDriversFirst();
    void changedSettingsAreSentAsTheyAreNow();
    void aFrameIsSentAtOnce();

    void aSecondClientReplacesTheFirstWhichStaysConnectedAndGetsNothing();
    void theDisconnectOfTheFirstClientSilencesTheSecond();
    void aClientThatComesInARaceSeesNoStartedStateUntilTheNextStart();
    void withoutAClientRecordsAreDropped();
    void aRecordAbove65535BytesIsNeverSeenByTheClient();
    void aClientThatLeavesIsTold();
    void theEndOfTheServerEndsTheConnection();

    void aClientThatNeverReadsIsCutOff();
    void aClientThatNeverReadsCostsBoundedMemoryInAnHourOfRace();
    void aClientThatReadsLateMissesNothing();
    void theBytesOfAClientAreThrownAway();
    void aClientThatSendsAllTheTimeIsServed();
    void aThousandClientsThatConnectAndLeaveLeaveNothingBehind();
};

void tst_CKelmoNetworkServer::theFirstAddressThatIsNotLoopbackIsListenedOn_data()
{
    QTest::addColumn<QStringList>("all");
    QTest::addColumn<QString>("expected");
    QTest::newRow("usual") << QStringList{"127.0.0.1", "192.0.2.7", "::1", "fd00::2"} << "192.0.2.7";
    QTest::newRow("two networks") << QStringList{"127.0.0.1", "192.0.2.7", "198.51.100.1"} << "192.0.2.7";
    QTest::newRow("the newer protocol first") << QStringList{"::1", "fd00::2", "192.0.2.7"} << "192.0.2.7";
    QTest::newRow("another address of the loopback network")
        << QStringList{"127.0.0.1", "127.0.0.2"} << "127.0.0.2";
    QTest::newRow("loopback only") << QStringList{"127.0.0.1"} << "127.0.0.1";
    QTest::newRow("no address of the older protocol") << QStringList{"::1", "fd00::2"} << "127.0.0.1";
    QTest::newRow("no address") << QStringList() << "127.0.0.1";
}

void tst_CKelmoNetworkServer::theFirstAddressThatIsNotLoopbackIsListenedOn()
{
    QFETCH(QStringList, all);
    QFETCH(QString, expected);
    QCOMPARE(CKelmoNetworkServer::listeningAddress(addresses(all)).toString(), expected);
}

void tst_CKelmoNetworkServer::withNoInterfaceButLoopbackTheServerListensOnTheLoopbackAddress()
{
    const CServerFixture fixture;
    QVERIFY(fixture.server.isServerRunning());
    QCOMPARE(fixture.server.serverAddress(), QString("127.0.0.1"));
    QVERIFY(fixture.client());
}

void tst_CKelmoNetworkServer::aPortIsListenedOn()
{
    CServerFixture fixture;
    const quint16 port = freePort();
    const CKelmoNetworkServer server(&fixture.settings, &fixture.raceSettings, port, loopbackOnly());
    QVERIFY(server.isServerRunning());
    QCOMPARE(server.serverPort(), port);
}

void tst_CKelmoNetworkServer::portZeroIsThePortOfTheSettings()
{
    CServerFixture fixture;
    const CKelmoNetworkServer server(&fixture.settings, &fixture.raceSettings, 0, loopbackOnly());
    QVERIFY(server.isServerRunning());
    QCOMPARE(server.serverPort(), fixture.settings.port());
}

void tst_CKelmoNetworkServer::aPortInUseIsSilent()
{
    CServerFixture fixture;
    CKelmoNetworkServer second(&fixture.settings, &fixture.raceSettings, fixture.server.serverPort(),
                               loopbackOnly());
    const QSignalSpy messages(&second, &CKelmoNetworkServer::debugMessage);
    QVERIFY(!second.isServerRunning());
    QCOMPARE(second.serverAddress(), QString());
    QCOMPARE(second.serverPort(), quint16(0));
    sendASecondOfRace(second);
    QVERIFY(messages.isEmpty());
    QVERIFY(fixture.server.isServerRunning());
}

void tst_CKelmoNetworkServer::anotherOpenedSessionChangesNothing()
{
    CServerFixture fixture;
    const quint16 port = fixture.server.serverPort();
    fixture.server.sessionOpened();
    QCOMPARE(fixture.server.findChildren<QTcpServer*>().size(), 1);
    QCOMPARE(fixture.server.serverPort(), port);
}

void tst_CKelmoNetworkServer::aConnectWithoutAConnectionChangesNothing()
{
    CServerFixture fixture;
    const auto client = fixture.client();
    QVERIFY(client);
    fixture.server.connectClient();
    fixture.server.vSetUiRaceStopped();
    QTRY_COMPARE(client->types(), QVector<int>{107});
}

void tst_CKelmoNetworkServer::aNewClientGetsSettingsAndRaceSettings()
{
    CServerFixture fixture;
    fixture.settings = FullRecords::settings();
    const DisplayPeer client(fixture.server.serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    QCOMPARE(DisplayRecord::framed(client.records().at(0)), frameFromFile("110-settings"));
    QCOMPARE(DisplayRecord::framed(client.records().at(1)), frameFromFile("111-race-settings"));
}

void tst_CKelmoNetworkServer::aNewClientIsTold()
{
    const CServerFixture fixture;
    QSignalSpy connected(&fixture.server, &CKelmoNetworkServer::clientConnected);
    const QSignalSpy messages(&fixture.server, &CKelmoNetworkServer::debugMessage);
    const DisplayPeer client(fixture.server.serverPort());
    QVERIFY(connected.wait());
    QCOMPARE(connected.count(), 1);
    QVERIFY(messages.isEmpty());
}

void tst_CKelmoNetworkServer::theInitDataAreSentAgainOnDemand()
{
    CServerFixture fixture;
    const auto client = fixture.client();
    QVERIFY(client);
    fixture.server.sendInitData();
    QTRY_COMPARE(client->types(), InitData);
}

void tst_CKelmoNetworkServer::everySlotSendsItsRecord_data()
{
    QTest::addColumn<Slot>("slot");
    const auto row = [](const char* name, const Slot& slot) { QTest::newRow(name) << slot; };
    using Server = CKelmoNetworkServer;
    row("100-race-info-text", [](Server& server) { server.setAdditionalInfo(QStringLiteral("Läuft €")); });
    row("101-race-event", [](Server& server) { server.HandleEventRace(FullRecords::event()); });
    row("102-lights", [](Server& server) { server.updateLightsDisplay(CLightAction::NextRed); });
    row("103-race-time", [](Server& server) { server.setRaceTime(FullRecords::time(0x01234567)); });
    row("104-track-power", [](Server& server) { server.trackPowerNotification(7, true); });
    row("106-recorded-race-started", &Server::vSetUiRecordedRaceStarted);
    row("107-race-stopped", &Server::vSetUiRaceStopped);
    row("108-race-paused", &Server::vSetUiRacePaused);
    row("109-race-resumed", &Server::vSetUiRaceResumed);
    row("110-settings", &Server::onSettingsChanged);
    row("111-race-settings", &Server::onRaceSettingsChanged);
    row("113-shutdown", &Server::sendAppTerminationNotification);
}

void tst_CKelmoNetworkServer::everySlotSendsItsRecord()
{
    QFETCH(Slot, slot);
    CServerFixture fixture;
    fixture.settings = FullRecords::settings();
    const auto client = fixture.client();
    QVERIFY(client);
    if (qstrcmp(QTest::currentDataTag(), "113-shutdown") == 0)
        fixture.settings.setShutdownWaitTime(0x0d01);
    slot(fixture.server);
    fixture.server.vSetUiRaceStopped(); // nothing else came before it
    QTRY_COMPARE(client->records().size(), 2);
    QCOMPARE(DisplayRecord::framed(client->records().first()), frameFromFile(QTest::currentDataTag()));
    QCOMPARE(client->types().last(), 107);
}

void tst_CKelmoNetworkServer::aStartedRaceSendsItsDriversFirst()
{
    CServerFixture fixture;
    const auto client = fixture.client();
    QVERIFY(client);
    fixture.server.vSetUiRaceStarted();
    QTRY_COMPARE(client->types(), (QVector<int>{112, 105}));
    QCOMPARE(DisplayRecord::framed(client->records().first()),
             frameFromFile("112-race-settings-with-drivers"));
    QCOMPARE(DisplayRecord::framed(client->records().last()), frameFromFile("105-race-started"));
}

void tst_CKelmoNetworkServer::changedSettingsAreSentAsTheyAreNow()
{
    CServerFixture fixture;
    const auto client = fixture.client();
    QVERIFY(client);
    fixture.settings.setDisplaySize(CSettings::Small);
    fixture.raceSettings.setNumberOfLaps(7);
    fixture.server.onSettingsChanged();
    fixture.server.onRaceSettingsChanged();
    QTRY_COMPARE(client->types(), InitData);
    QCOMPARE(client->records().at(0), DisplayRecord::settings(fixture.settings));
    QCOMPARE(client->records().at(1), DisplayRecord::raceSettings(fixture.raceSettings));
}

/** Before the event loop goes on, which would paint the screen of this computer first. */
void tst_CKelmoNetworkServer::aFrameIsSentAtOnce()
{
    CServerFixture fixture;
    LoopbackSocket client(fixture.server.serverPort());
    QTRY_VERIFY(fixture.socket());
    QVERIFY(client.receive(fixture.initData()));
    fixture.server.updateLightsDisplay(CLightAction::NextRed);
    QCOMPARE(client.read(), frameFromFile("102-lights"));
    QCOMPARE(fixture.waiting(), 0);
}

void tst_CKelmoNetworkServer::aSecondClientReplacesTheFirstWhichStaysConnectedAndGetsNothing()
{
    CServerFixture fixture;
    QSignalSpy connected(&fixture.server, &CKelmoNetworkServer::clientConnected);
    const QSignalSpy disconnected(&fixture.server, &CKelmoNetworkServer::clientDisconnected);
    const auto first = fixture.client();
    const auto second = fixture.client();
    QVERIFY(first && second);
    fixture.server.vSetUiRaceStarted();
    fixture.server.vSetUiRaceStopped();
    QTRY_COMPARE(second->types(), (QVector<int>{112, 105, 107}));
    QVERIFY(first->isConnected());
    QVERIFY(first->records().isEmpty());
    QCOMPARE(connected.count(), 2);
    QCOMPARE(disconnected.count(), 0);
}

void tst_CKelmoNetworkServer::theDisconnectOfTheFirstClientSilencesTheSecond()
{
    CServerFixture fixture;
    QSignalSpy disconnected(&fixture.server, &CKelmoNetworkServer::clientDisconnected);
    auto first = fixture.client();
    const auto second = fixture.client();
    QVERIFY(first && second);
    first.reset();
    QTRY_COMPARE(disconnected.count(), 1);
    fixture.server.vSetUiRaceStarted();
    const auto third = fixture.client(); // what was sent before has arrived by now
    QVERIFY(third);
    QVERIFY(second->isConnected());
    QVERIFY(second->records().isEmpty());
    QCOMPARE(fixture.sockets(), 2);
}

void tst_CKelmoNetworkServer::aClientThatComesInARaceSeesNoStartedStateUntilTheNextStart()
{
    CServerFixture fixture;
    fixture.server.vSetUiRaceStarted();
    fixture.server.HandleEventRace(FullRecords::event());
    const DisplayPeer client(fixture.server.serverPort());
    QTRY_COMPARE(client.types(), InitData);
    fixture.server.HandleEventRace(FullRecords::event());
    fixture.server.setRaceTime(QTime(0, 1));
    fixture.server.vSetUiRaceStopped();
    fixture.server.vSetUiRaceStarted();
    QTRY_COMPARE(client.types(), InitData + QVector<int>({101, 103, 107, 112, 105}));
}

void tst_CKelmoNetworkServer::withoutAClientRecordsAreDropped()
{
    CServerFixture fixture;
    sendASecondOfRace(fixture.server);
    auto client = fixture.client();
    QVERIFY(client);
    client.reset();
    QTRY_COMPARE(fixture.sockets(), 0);
    sendASecondOfRace(fixture.server);
    const DisplayPeer next(fixture.server.serverPort());
    QTRY_VERIFY(next.records().size() >= 2);
    fixture.server.vSetUiRaceStopped();
    QTRY_COMPARE(next.types(), InitData + QVector<int>{107});
}

void tst_CKelmoNetworkServer::aRecordAbove65535BytesIsNeverSeenByTheClient()
{
    CServerFixture fixture;
    const auto client = fixture.client();
    QVERIFY(client);
    const QSignalSpy messages(&fixture.server, &CKelmoNetworkServer::debugMessage);
    fixture.server.setAdditionalInfo(QString(32765, 'x'));
    fixture.server.setAdditionalInfo(QString(32764, 'y'));
    QTRY_COMPARE(client->types(), QVector<int>{100});
    QCOMPARE(client->records().first(), DisplayRecord::raceInfoText(QString(32764, 'y')));
    QVERIFY(messages.isEmpty());
}

void tst_CKelmoNetworkServer::aClientThatLeavesIsTold()
{
    CServerFixture fixture;
    QSignalSpy disconnected(&fixture.server, &CKelmoNetworkServer::clientDisconnected);
    auto client = fixture.client();
    QVERIFY(client);
    client.reset();
    QVERIFY(disconnected.wait());
    QCOMPARE(disconnected.count(), 1);
    QTRY_COMPARE(fixture.sockets(), 0);
    sendASecondOfRace(fixture.server);
}

void tst_CKelmoNetworkServer::theEndOfTheServerEndsTheConnection()
{
    auto fixture = std::make_unique<CServerFixture>();
    const auto client = fixture->client();
    QVERIFY(client);
    fixture.reset();
    QTRY_VERIFY(!client->isConnected());
}

void tst_CKelmoNetworkServer::aClientThatNeverReadsIsCutOff()
{
    CServerFixture fixture;
    QSignalSpy disconnected(&fixture.server, &CKelmoNetworkServer::clientDisconnected);
    LoopbackSocket client(fixture.server.serverPort(), 4096);
    QTRY_VERIFY(fixture.socket());
    qint64 mostWaiting = 0;
    for (int second = 0; second < 100000 && disconnected.isEmpty(); ++second) {
        sendASecondOfRace(fixture.server);
        mostWaiting = qMax(mostWaiting, fixture.waiting());
    }
    QCOMPARE(disconnected.count(), 1);
    QVERIFY(mostWaiting > CKelmoNetworkServer::MaxWaiting - 2000);
    QVERIFY(mostWaiting <= CKelmoNetworkServer::MaxWaiting);
    QTRY_COMPARE(fixture.sockets(), 0);
    QTRY_VERIFY(client.hasEnded());
    sendASecondOfRace(fixture.server);
    QVERIFY(fixture.client()); // the next one is served
}

void tst_CKelmoNetworkServer::aClientThatNeverReadsCostsBoundedMemoryInAnHourOfRace()
{
    CServerFixture fixture;
    LoopbackSocket client(fixture.server.serverPort());
    QTRY_VERIFY(fixture.socket());
    for (int second = 0; second < 3600; ++second) {
        sendASecondOfRace(fixture.server);
        QVERIFY(fixture.waiting() <= CKelmoNetworkServer::MaxWaiting);
    }
}

void tst_CKelmoNetworkServer::aClientThatReadsLateMissesNothing()
{
    CServerFixture fixture;
    LoopbackSocket client(fixture.server.serverPort());
    QTRY_VERIFY(fixture.socket());
    for (int second = 0; fixture.waiting() < CKelmoNetworkServer::MaxWaiting / 4; ++second) {
        QVERIFY(second < 100000);
        sendASecondOfRace(fixture.server);
    }
    const QByteArray last = frameFromFile("113-shutdown");
    fixture.settings.setShutdownWaitTime(0x0d01);
    fixture.server.sendAppTerminationNotification();
    QVERIFY(client.receive(last));
    QCOMPARE(fixture.sockets(), 1);
}

void tst_CKelmoNetworkServer::theBytesOfAClientAreThrownAway()
{
    CServerFixture fixture;
    const auto client = fixture.client();
    QVERIFY(client);
    const QByteArray bytes = "GET / HTTP/1.1\r\n\r\n" + frameFromFile("113-shutdown");
    client->socket().write(bytes);
    QTRY_COMPARE(fixture.socket()->bytesAvailable(), bytes.size());
    QTRY_COMPARE(fixture.socket()->bytesAvailable(), 0);
    fixture.server.vSetUiRaceStopped();
    QTRY_COMPARE(client->types(), QVector<int>{107});
}

void tst_CKelmoNetworkServer::aClientThatSendsAllTheTimeIsServed()
{
    CServerFixture fixture;
    QSignalSpy disconnected(&fixture.server, &CKelmoNetworkServer::clientDisconnected);
    auto client = std::make_unique<LoopbackSocket>(fixture.server.serverPort());
    QTRY_VERIFY(fixture.socket());
    const QByteArray junk(0x10000, 'x');
    qint64 sent = 0;
    for (int turn = 0; turn < 2000; ++turn) {
        sent += client->send(junk);
        QCoreApplication::processEvents();
        QVERIFY(fixture.socket()->bytesAvailable() <= 0x4000);
    }
    QVERIFY(sent > 0x10000); // more than is thrown away at once
    fixture.server.updateLightsDisplay(CLightAction::NextRed);
    QVERIFY(client->receive(frameFromFile("102-lights")));
    client->breakOffWhenClosed();
    client.reset();
    QTRY_COMPARE_WITH_TIMEOUT(disconnected.count(), 1, 60000);
}

void tst_CKelmoNetworkServer::aThousandClientsThatConnectAndLeaveLeaveNothingBehind()
{
    CServerFixture fixture;
    QSignalSpy connected(&fixture.server, &CKelmoNetworkServer::clientConnected);
    const QSignalSpy disconnected(&fixture.server, &CKelmoNetworkServer::clientDisconnected);
    const int filesBefore = openFiles();
    for (int i = 0; i < 1000; ++i) {
        LoopbackSocket client(fixture.server.serverPort());
        QVERIFY(client.isConnected());
        if (i % 2)
            client.breakOffWhenClosed();
        if (i % 3 == 0) // the others leave before they have been noticed
            QVERIFY(connected.wait());
    }
    QTRY_COMPARE(fixture.sockets(), 0);
    QTRY_COMPARE(disconnected.count(), connected.count());
    QCOMPARE(openFiles(), filesBefore);
    QVERIFY(connected.count() > 300);
    QVERIFY(fixture.client());
}

QTEST_GUILESS_MAIN(tst_CKelmoNetworkServer)
#include "tst_CKelmoNetworkServer.moc"
