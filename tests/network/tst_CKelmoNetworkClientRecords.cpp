#include "network/ClientFixture.h"
#include "network/FullRecords.h"
#include "support/StreamBytes.h"

#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <limits>

namespace {

QByteArray randomBytes(QRandomGenerator& random, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
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

} // namespace

/** What the client makes of records and of bytes that are none. */
class tst_CKelmoNetworkClientRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

void tst_CKelmoNetworkClientRecords::everyRecordBecomesItsSignal()
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

void tst_CKelmoNetworkClientRecords::settingsBecomeTheLiveOnesAndAreNotStored()
{
    QSettings("Tornik", "Tornik").clear();
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(DisplayRecord::settings(FullRecords::settings()))));
    QCOMPARE(streamForm(connection.user->settings), streamForm(FullRecords::settings()));
    QVERIFY(QSettings("Tornik", "Tornik").allKeys().isEmpty());
}

void tst_CKelmoNetworkClientRecords::raceSettingsBecomeTheLiveOnes_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::newRow("race settings") << DisplayRecord::raceSettings(FullRecords::raceSettings());
    QTest::newRow("race settings with drivers")
        << DisplayRecord::raceSettingsWithDrivers(FullRecords::raceSettings());
}

void tst_CKelmoNetworkClientRecords::raceSettingsBecomeTheLiveOnes()
{
    QFETCH(QByteArray, record);
    QSettings("Tornik", "Tornik").clear();
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(record)));
    QCOMPARE(streamForm(connection.user->raceSettings), streamForm(FullRecords::raceSettings()));
    QVERIFY(QSettings("Tornik", "Tornik").allKeys().isEmpty());
}

void tst_CKelmoNetworkClientRecords::raceSettingsOfAnotherSizeAreToldAndAppliedAllTheSame()
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

void tst_CKelmoNetworkClientRecords::raceSettingsOf1400BytesAreNotTold()
{
    const CRaceSettings settings = raceSettingsOfSize(1400);
    QCOMPARE(DisplayRecord::raceSettings(settings).size(), 1400);
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(DisplayRecord::raceSettings(settings))));
    QCOMPARE(connection.user->messages, QStringList());
    QCOMPARE(streamForm(connection.user->raceSettings), streamForm(settings));
}

void tst_CKelmoNetworkClientRecords::sizeOfRaceSettingsWithDriversIsNeverTold()
{
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(frame(DisplayRecord::raceSettingsWithDrivers(FullRecords::raceSettings()))));
    QVERIFY(connection.user->messages.isEmpty());
}

void tst_CKelmoNetworkClientRecords::trackPowerIsToldThoughNobodyListens()
{
    Connection connection;
    QVERIFY(connection.open());
    const QSignalSpy power(&connection.user->client, &CKelmoNetworkClient::trackPowerStateChanged);
    QVERIFY(connection.send(frame(DisplayRecord::trackPower(7, false))));
    QCOMPARE(power.count(), 1);
    QCOMPARE(power.at(0), (QVariantList{7, false}));
}

void tst_CKelmoNetworkClientRecords::twoFramesInOneSegmentAreBothProcessedInOneReading()
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

void tst_CKelmoNetworkClientRecords::recordOfAnUnknownTypeIsSkippedWithoutLosingTheNext()
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

void tst_CKelmoNetworkClientRecords::emptyFramesAreSkipped()
{
    Connection connection;
    QVERIFY(connection.open());
    QVERIFY(connection.send(QByteArray(2000, '\0') + lightsFrame(8)));
    QCOMPARE(connection.user->lights, QVector<int>{8});
}

void tst_CKelmoNetworkClientRecords::cutRecordLeavesTheRestAtItsDefaults()
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

void tst_CKelmoNetworkClientRecords::frameThatIsSplitIsHandedOnShortAndItsRestReadAsFrames()
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

void tst_CKelmoNetworkClientRecords::firstByteOfALengthWaitsForTheSecond()
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

void tst_CKelmoNetworkClientRecords::bytesOfABrokenFrameStayOverAReconnection()
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

void tst_CKelmoNetworkClientRecords::giantLengthsAreSurvived()
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

void tst_CKelmoNetworkClientRecords::everyRecordCutAnywhereIsSurvived()
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

void tst_CKelmoNetworkClientRecords::longestRecordsOfEveryTypeAreSurvived()
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

void tst_CKelmoNetworkClientRecords::randomBytesAreSurvived()
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

void tst_CKelmoNetworkClientRecords::randomRecordsOfEveryTypeAreSurvived()
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

QTEST_GUILESS_MAIN(tst_CKelmoNetworkClientRecords)
#include "tst_CKelmoNetworkClientRecords.moc"
