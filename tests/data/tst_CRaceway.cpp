#include "data/CRaceway.h"
#include "io/CRacewayIo.h"
#include "io/CRacewayIoFactory.h"
#include "support/StreamBytes.h"

#include <QTest>

namespace {

CRacewayTrack unusualTrack()
{
    CRacewayTrack track;
    track.length = 1530;
    track.id = 9;
    track.portClosedState = 126;
    track.portOpenState = 120;
    track.fuelSensorClosedState = 2;
    track.fuelFinishedSensorClosedState = 3;
    track.sector2BeginSensorClosedState = 4;
    track.sector3BeginSensorClosedState = 5;
    track.endSensorClosedState = 6;
    track.powerOn = true;
    return track;
}

/** Every field differs from its default. */
CRaceway unusualRaceway()
{
    CRaceway raceway(0);
    raceway.name = QStringLiteral("Keller süd");
    raceway.scale = 32;
    raceway.portOpenState = 65535;
    raceway.chaosButtonState = 0x1234;
    raceway.chaosButtonAvailable = true;
    raceway.chaosPhaseOutputAvailable = true;
    raceway.pwrOffFeatureAvailable = true;
    raceway.externalLightsAvailable = true;
    raceway.reservedFlag = true;
    raceway.startAndEndSensorSeparate = true;
    raceway.id = 4;
    raceway.ioSettings = QByteArray::fromHex("00000005ff00");
    raceway.tracks = {unusualTrack(), CRacewayTrack(), unusualTrack()};
    raceway.minTime = 60000;
    raceway.fuelSensorSetup = 4;
    raceway.numberOfSectors = 3;
    return raceway;
}

StreamBytes unusualTrackBytes()
{
    StreamBytes bytes;
    bytes.int32(120).int32(126).int32(1530).boolean(true);
    return bytes.int32(2).int32(3).int32(4).int32(5).int32(6);
}

StreamBytes defaultTrackBytes()
{
    StreamBytes bytes;
    bytes.int32(127).int32(255).int32(0).boolean(false);
    return bytes.int32(255).int32(255).int32(255).int32(255).int32(255);
}

} // namespace

class tst_CRaceway : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewTrackHasTheDefaults();
    void trackStreamFormByteForByte();
    void aNewRacewayIsTheDefaultOne();
    void ioSettingsOfANewRacewayAreThoseOfAParallelPort();
    void theNumberOfTracksCanBeGiven();
    void aNegativeNumberOfTracksGivesNone();
    void createIoMakesTheInterfaceOfTheSettings_data();
    void createIoMakesTheInterfaceOfTheSettings();
    void streamFormByteForByte();
    void streamKeepsAllFieldsButTheIds();
    void readingEmptiesTheListOfTracksFirst();
    void readingStopsAtTheEndOfTheStream();
    void aNumberOfTracksBeyondTheStreamIsHarmless_data();
    void aNumberOfTracksBeyondTheStreamIsHarmless();
};

void tst_CRaceway::aNewTrackHasTheDefaults()
{
    const CRacewayTrack track;
    QCOMPARE(track.length, 0);
    QCOMPARE(track.portClosedState, 255);
    QCOMPARE(track.portOpenState, 127);
    QCOMPARE(track.fuelSensorClosedState, 255);
    QCOMPARE(track.fuelFinishedSensorClosedState, 255);
    QCOMPARE(track.sector2BeginSensorClosedState, 255);
    QCOMPARE(track.sector3BeginSensorClosedState, 255);
    QCOMPARE(track.endSensorClosedState, 255);
    QVERIFY(!track.powerOn);
}

void tst_CRaceway::trackStreamFormByteForByte()
{
    QCOMPARE(streamForm(unusualTrack()), unusualTrackBytes().bytes());
    QCOMPARE(streamForm(CRacewayTrack()), defaultTrackBytes().bytes());
    QCOMPARE(unusualTrackBytes().bytes().toHex(), QByteArray("00000078"
                                                             "0000007e"
                                                             "000005fa"
                                                             "01"
                                                             "00000002"
                                                             "00000003"
                                                             "00000004"
                                                             "00000005"
                                                             "00000006"));
}

void tst_CRaceway::aNewRacewayIsTheDefaultOne()
{
    const CRaceway raceway;
    QCOMPARE(raceway.name, QStringLiteral("Default"));
    QCOMPARE(raceway.scale, 24);
    QCOMPARE(raceway.portOpenState, quint16(127));
    QCOMPARE(raceway.chaosButtonState, quint16(0));
    QVERIFY(!raceway.chaosButtonAvailable);
    QVERIFY(!raceway.chaosPhaseOutputAvailable);
    QVERIFY(!raceway.pwrOffFeatureAvailable);
    QVERIFY(!raceway.externalLightsAvailable);
    QVERIFY(!raceway.reservedFlag);
    QVERIFY(!raceway.startAndEndSensorSeparate);
    QCOMPARE(raceway.tracks.size(), 2);
    QCOMPARE(raceway.minTime, 200);
    QCOMPARE(raceway.fuelSensorSetup, 0);
    QCOMPARE(raceway.numberOfSectors, 1);
    for (const CRacewayTrack& track : raceway.tracks)
        QCOMPARE(streamForm(track), streamForm(CRacewayTrack()));
}

void tst_CRaceway::ioSettingsOfANewRacewayAreThoseOfAParallelPort()
{
    const CRaceway raceway;
    QCOMPARE(raceway.ioSettings.size(), 291);
    QCOMPARE(raceway.ioSettings, CRacewayIoFactory::createParallelPort()->writeSettings());
}

void tst_CRaceway::theNumberOfTracksCanBeGiven()
{
    const CRaceway raceway(8);
    QCOMPARE(raceway.tracks.size(), 8);
    QCOMPARE(raceway.name, QStringLiteral("Default"));
    QCOMPARE(raceway.ioSettings, CRaceway().ioSettings);
}

void tst_CRaceway::aNegativeNumberOfTracksGivesNone()
{
    QVERIFY(CRaceway(-1).tracks.isEmpty());
}

void tst_CRaceway::createIoMakesTheInterfaceOfTheSettings_data()
{
    QTest::addColumn<QByteArray>("ioSettings");
    QTest::addColumn<int>("type");

    QTest::newRow("default") << CRaceway().ioSettings << int(CRacewayIo::ParallelPort);
    QTest::newRow("nothing") << QByteArray() << 0;
    QTest::newRow("unknown code") << QByteArray::fromHex("00000063") << 99;
}

void tst_CRaceway::createIoMakesTheInterfaceOfTheSettings()
{
    QFETCH(QByteArray, ioSettings);
    CRaceway raceway;
    raceway.ioSettings = ioSettings;
    const std::unique_ptr<CRacewayIo> io = raceway.createIo();
    QVERIFY(io);
    const std::unique_ptr<CRacewayIo> expected = CRacewayIoFactory::createFromSettings(ioSettings);
    QCOMPARE(io->interfaceType(), expected->interfaceType());
    QCOMPARE(io->writeSettings(), expected->writeSettings());
}

void tst_CRaceway::streamFormByteForByte()
{
    StreamBytes expected;
    expected.text(QStringLiteral("Keller süd")).int32(32).int16(-1).int16(0x1234);
    expected.boolean(true).boolean(true).boolean(true).boolean(true).boolean(true);
    expected.int32(4).blob(QByteArray::fromHex("00000005ff00")).int32(60000).int32(3).boolean(true);
    expected.int32(3).raw(unusualTrackBytes().bytes());
    expected.raw(defaultTrackBytes().bytes()).raw(unusualTrackBytes().bytes());
    QCOMPARE(streamForm(unusualRaceway()), expected.bytes());
}

void tst_CRaceway::streamKeepsAllFieldsButTheIds()
{
    const CRaceway raceway = unusualRaceway();
    const CRaceway copy = fromStreamForm<CRaceway>(streamForm(raceway));
    QCOMPARE(copy.name, raceway.name);
    QCOMPARE(copy.scale, raceway.scale);
    QCOMPARE(copy.portOpenState, raceway.portOpenState);
    QCOMPARE(copy.chaosButtonState, raceway.chaosButtonState);
    QVERIFY(copy.chaosButtonAvailable);
    QVERIFY(copy.chaosPhaseOutputAvailable);
    QVERIFY(copy.pwrOffFeatureAvailable);
    QVERIFY(copy.externalLightsAvailable);
    QVERIFY(copy.reservedFlag);
    QVERIFY(copy.startAndEndSensorSeparate);
    QCOMPARE(copy.ioSettings, raceway.ioSettings);
    QCOMPARE(copy.minTime, raceway.minTime);
    QCOMPARE(copy.fuelSensorSetup, raceway.fuelSensorSetup);
    QCOMPARE(copy.numberOfSectors, raceway.numberOfSectors);
    QCOMPARE(copy.tracks.size(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(streamForm(copy.tracks.at(i)), streamForm(raceway.tracks.at(i)));
    QCOMPARE(copy.id, CRaceway().id);
    QCOMPARE(copy.tracks.at(0).id, CRacewayTrack().id);
}

void tst_CRaceway::readingEmptiesTheListOfTracksFirst()
{
    CRaceway raceway = unusualRaceway();
    QDataStream stream(streamForm(CRaceway(1)));
    stream.setVersion(QDataStream::Qt_5_5);
    stream >> raceway;
    QCOMPARE(raceway.tracks.size(), 1);
    QCOMPARE(streamForm(raceway.tracks.at(0)), streamForm(CRacewayTrack()));
    QCOMPARE(raceway.id, 4);
}

void tst_CRaceway::readingStopsAtTheEndOfTheStream()
{
    const QByteArray bytes = streamForm(unusualRaceway());
    const int trackSize = streamForm(CRacewayTrack()).size();
    const int head = bytes.size() - 3 * trackSize;
    for (int size = 0; size < bytes.size(); ++size) {
        const CRaceway raceway = fromStreamForm<CRaceway>(bytes.left(size));
        QCOMPARE(raceway.tracks.size(), qMax(0, (size - head) / trackSize));
    }
}

void tst_CRaceway::aNumberOfTracksBeyondTheStreamIsHarmless_data()
{
    QTest::addColumn<qint32>("count");
    QTest::newRow("far too many") << qint32(0x7fffffff);
    QTest::newRow("negative") << qint32(-1);
    QTest::newRow("none") << qint32(0);
}

void tst_CRaceway::aNumberOfTracksBeyondTheStreamIsHarmless()
{
    QFETCH(qint32, count);
    QByteArray bytes = streamForm(CRaceway(0));
    bytes.chop(4);
    bytes.append(StreamBytes().int32(count).bytes());
    QVERIFY(fromStreamForm<CRaceway>(bytes).tracks.isEmpty());
}

QTEST_GUILESS_MAIN(tst_CRaceway)
#include "tst_CRaceway.moc"
