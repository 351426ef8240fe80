#include "network/CDisplayFrameReader.h"
#include "network/DisplayRecord.h"
#include "network/FullRecords.h"
#include "network/RecordFile.h"
#include "network/WrittenAgain.h"
#include "support/StreamBytes.h"

#include <QtTest>

#include <functional>

namespace {

using SettingsSwitch = std::function<void(CSettings&, bool)>;
using RaceSettingsSwitch = std::function<void(CRaceSettings&, bool)>;

/** @return the places of the bytes in which the two differ. */
QVector<int> differences(const QByteArray& one, const QByteArray& other)
{
    QVector<int> places;
    for (int i = 0; i < qMax(one.size(), other.size()); ++i) {
        if (i >= one.size() || i >= other.size() || one.at(i) != other.at(i))
            places.append(i);
    }
    return places;
}

template <typename Getter>
RaceSettingsSwitch racewayFlag(Getter flag)
{
    return [flag](CRaceSettings& settings, bool on) {
        CRaceway raceway = settings.raceway();
        raceway.*flag = on;
        settings.setRaceway(raceway);
    };
}

} // namespace

Q_DECLARE_METATYPE(SettingsSwitch)
Q_DECLARE_METATYPE(RaceSettingsSwitch)

class tst_DisplayRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRecordIsFramedByteForByteAsTheProtocolWantsIt_data();
    void everyRecordIsFramedByteForByteAsTheProtocolWantsIt();
    void everyFramedRecordIsReadBack_data();
    void everyFramedRecordIsReadBack();
    void aLightsRecordWithAction8TravelsAsEightBytes();
    void everySwitchOfTheSettingsHasItsPlace_data();
    void everySwitchOfTheSettingsHasItsPlace();
    void everySwitchOfTheRaceSettingsHasItsPlace_data();
    void everySwitchOfTheRaceSettingsHasItsPlace();
    void aNullTextAndAnEmptyTextDiffer();
    void aNullTimeTravelsAsOnes();
    void anEventOfATypeAloneCarriesNineNullTimes();
    void negativeNumbersTravel();

    void settingsWithAVeryLongPathAreFarBelowTheLargestRecord();
    void aRecordAbove65535BytesHasNoFrame();

    void aRecordCutBetweenTwoValuesReadsTheRestAsZeros();
    void aRecordCutInAValueReadsItAsZeroOrEmpty();
    void everyCutOfTheSettingsIsRead();
    void aRecordWithoutATypeReadsAsTypeZero();
    void anEndlessTextInARecordIsEmpty();
    void anEndlessListOfTracksInARecordEndsWithIt();
};

namespace {

QByteArray fullRecord(int type)
{
    using namespace DisplayRecord;
    switch (type) {
    case 100:
        return raceInfoText(QStringLiteral("Läuft €"));
    case 101:
        return raceEvent(FullRecords::event());
    case 102:
        return lights(8);
    case 103:
        return raceTime(FullRecords::time(0x01234567));
    case 104:
        return trackPower(7, true);
    case 110:
        return settings(FullRecords::settings());
    case 111:
        return raceSettings(FullRecords::raceSettings());
    case 112:
        return raceSettingsWithDrivers(FullRecords::raceSettings());
    case 113:
        return shutdown(0x0d01);
    default:
        return notice(Type(type));
    }
}

void addRecordFiles()
{
    QTest::addColumn<int>("type");
    const char* const names[] = {"100-race-info-text",
                                 "101-race-event",
                                 "102-lights",
                                 "103-race-time",
                                 "104-track-power",
                                 "105-race-started",
                                 "106-recorded-race-started",
                                 "107-race-stopped",
                                 "108-race-paused",
                                 "109-race-resumed",
                                 "110-settings",
                                 "111-race-settings",
                                 "112-race-settings-with-drivers",
                                 "113-shutdown"};
    int type = 100;
    for (const char* name : names)
        QTest::newRow(name) << type++;
}

} // namespace

void tst_DisplayRecord::everyRecordIsFramedByteForByteAsTheProtocolWantsIt_data()
{
    addRecordFiles();
}

void tst_DisplayRecord::everyRecordIsFramedByteForByteAsTheProtocolWantsIt()
{
    QFETCH(int, type);
    const QByteArray expected = frameFromFile(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(!expected.isEmpty());
    const QByteArray frame = DisplayRecord::framed(fullRecord(type));
    QCOMPARE(differences(frame, expected), QVector<int>());
    QCOMPARE(frame.toHex(), expected.toHex());
}

void tst_DisplayRecord::everyFramedRecordIsReadBack_data()
{
    addRecordFiles();
}

void tst_DisplayRecord::everyFramedRecordIsReadBack()
{
    QFETCH(int, type);
    const QByteArray frame = frameFromFile(QString::fromLatin1(QTest::currentDataTag()));
    CDisplayFrameReader reader;
    reader.append(frame);
    QByteArray record;
    QVERIFY(reader.takeRecord(&record));
    QVERIFY(reader.isEmpty());
    QCOMPARE(int(DisplayRecord::Payload(record).type()), type);
    QCOMPARE(DisplayRecord::framed(writtenAgain(record)).toHex(), frame.toHex());
}

void tst_DisplayRecord::aLightsRecordWithAction8TravelsAsEightBytes()
{
    QCOMPARE(DisplayRecord::framed(DisplayRecord::lights(8)), QByteArray::fromHex("0006006600000008"));
}

void tst_DisplayRecord::everySwitchOfTheSettingsHasItsPlace_data()
{
    QTest::addColumn<SettingsSwitch>("set");
    QTest::addColumn<int>("place");
    const auto row = [](const char* name, void (CSettings::*set)(bool), int place) {
        QTest::newRow(name) << SettingsSwitch(set) << place;
    };
    // Behind the type, four file names of 2 characters each; 8 texts of 3 between the switches.
    const int shown = 2 + 4 * 8;
    row("laps", &CSettings::setDisplayShowLaps, shown);
    row("lap time", &CSettings::setDisplayShowLapTime, shown + 1);
    row("best lap time", &CSettings::setDisplayShowBestLapTime, shown + 2);
    row("status", &CSettings::setDisplayShowStatus, shown + 3);
    row("average lap time", &CSettings::setDisplayShowAverageLapTime, shown + 4);
    row("sector times", &CSettings::setDisplayShowSectorTimes, shown + 5);
    row("intermediate times", &CSettings::setDisplayShowIntermediateTimes, shown + 6);
    row("speed", &CSettings::setDisplaySpeed, shown + 7);
    const int sound = shown + 8 + 4;
    row("fuel", &CSettings::setDisplayFuel, sound);
    row("voice", &CSettings::setSoundEnhanced, sound + 1);
    row("voice: laps", &CSettings::setSoundVoiceOutputLaps, sound + 2);
    row("voice: lap time", &CSettings::setSoundVoiceOutputLapTime, sound + 3);
    row("voice: best lap time", &CSettings::setSoundVoiceOutputBestLapTime, sound + 4);
    const int shutdown = sound + 5 + 8 * 10 + 4 + 8 + 4 + 4 + 2;
    row("shutdown of clients", &CSettings::setSendShutdownToClients, shutdown);
    row("clients muted", &CSettings::setClientsMuted, shutdown + 1 + 4);
    row("codes", &CSettings::setQrCodeHandlingEnabled, shutdown + 1 + 4 + 1 + 10);
}

void tst_DisplayRecord::everySwitchOfTheSettingsHasItsPlace()
{
    QFETCH(SettingsSwitch, set);
    QFETCH(int, place);
    CSettings off = FullRecords::settings();
    set(off, false);
    CSettings on = FullRecords::settings();
    set(on, true);
    const QByteArray record = DisplayRecord::settings(on);
    QCOMPARE(differences(DisplayRecord::settings(off), record), QVector<int>{place});
    QCOMPARE(record.at(place), '\x01');
}

void tst_DisplayRecord::everySwitchOfTheRaceSettingsHasItsPlace_data()
{
    QTest::addColumn<RaceSettingsSwitch>("set");
    QTest::addColumn<int>("place");
    const auto row = [](const char* name, const RaceSettingsSwitch& set, int place) {
        QTest::newRow(name) << set << place;
    };
    const int rules = 2 + 7 * 4;
    row("all reach the limit", &CRaceSettings::setAllMaxRounds, rules);
    row("no laps beyond the limit", &CRaceSettings::setMaxRoundsStopCounting, rules + 1);
    row("laps count down", &CRaceSettings::setLapsCountDown, rules + 2);
    row("target time", &CRaceSettings::setUseTargetTime, rules + 3 + 8);
    // Eight drivers of 12 bytes; eight cars of 7 texts of 2 characters, 10 texts of 3, and numbers.
    const int raceway =
        rules + 3 + 8 + 1 + 4 + 8 * 12 + 8 * (7 * 8 + 3 * 4 + 5 * 8 + 2 * 4 + 1 + 4 + 10 * 10);
    const int flags = raceway + 6 + 4 + 2 + 2;
    row("chaos button", racewayFlag(&CRaceway::chaosButtonAvailable), flags);
    row("chaos signal", racewayFlag(&CRaceway::chaosPhaseOutputAvailable), flags + 1);
    row("power switches", racewayFlag(&CRaceway::pwrOffFeatureAvailable), flags + 2);
    row("lights", racewayFlag(&CRaceway::externalLightsAvailable), flags + 3);
    row("reserved", racewayFlag(&CRaceway::reservedFlag), flags + 4);
    const int sensors = flags + 5 + 4 + 7 + 4 + 4;
    row("end sensors", racewayFlag(&CRaceway::startAndEndSensorSeparate), sensors);
    const int fuel = sensors + 1 + 4 + 3 * (8 * 4 + 1);
    const int end = fuel + 2 + 4 + 8 + 8 + 4 + 8 + 4 + 8 + 8 + 2 + 4 + 4;
    row("distances", &CRaceSettings::setMonitorDistanceDriven, end);
    row("fastest laps", &CRaceSettings::setMonitorFastestLap, end + 1);
    row("red lights", &CRaceSettings::setRedLightsOnRaceStopped, end + 2);
    row("power stays", &CRaceSettings::setLeavePowerOnWhenRaceStopped, end + 3);
}

void tst_DisplayRecord::everySwitchOfTheRaceSettingsHasItsPlace()
{
    QFETCH(RaceSettingsSwitch, set);
    QFETCH(int, place);
    CRaceSettings off = FullRecords::raceSettings();
    set(off, false);
    CRaceSettings on = FullRecords::raceSettings();
    set(on, true);
    const QByteArray record = DisplayRecord::raceSettings(on);
    const QByteArray recordOff = DisplayRecord::raceSettings(off);
    QCOMPARE(differences(recordOff, record), QVector<int>{place});
    QCOMPARE(record.at(place), '\x01');
    QCOMPARE(writtenAgain(record).toHex(), record.toHex());
    QCOMPARE(writtenAgain(recordOff).toHex(), recordOff.toHex());
}

void tst_DisplayRecord::aNullTextAndAnEmptyTextDiffer()
{
    QCOMPARE(DisplayRecord::raceInfoText(QString()).toHex(), QByteArray("0064ffffffff"));
    QCOMPARE(DisplayRecord::raceInfoText(QLatin1String("")).toHex(), QByteArray("006400000000"));
}

void tst_DisplayRecord::aNullTimeTravelsAsOnes()
{
    QCOMPARE(DisplayRecord::raceTime(QTime()).toHex(), QByteArray("0067ffffffff"));
    QCOMPARE(DisplayRecord::raceTime(QTime(0, 0)).toHex(), QByteArray("006700000000"));
    QVERIFY(valueOf(QByteArray::fromHex("0067ffffffff"), QTime(1, 0)).isNull());
}

void tst_DisplayRecord::anEventOfATypeAloneCarriesNineNullTimes()
{
    for (const int type : {1, 2, 11, 12}) {
        StreamBytes expected;
        expected.int16(101).int32(type).int32(0).int32(0).int32(0);
        for (int i = 0; i < 8; ++i)
            expected.int32(-1);
        expected.int32(0).int32(-1).real(0.0).int32(0).boolean(false);
        QCOMPARE(DisplayRecord::raceEvent(CRaceEvent(type)).toHex(), expected.bytes().toHex());
    }
}

void tst_DisplayRecord::negativeNumbersTravel()
{
    QCOMPARE(DisplayRecord::lights(-2).toHex(), QByteArray("0066fffffffe"));
    QCOMPARE(valueOf(QByteArray::fromHex("0066fffffffe"), qint32(0)), -2);
}

void tst_DisplayRecord::settingsWithAVeryLongPathAreFarBelowTheLargestRecord()
{
    CSettings settings = FullRecords::settings();
    settings.setStorageDefaultPath(QString(4096, 'x')); // the longest path that the system takes
    QVERIFY(DisplayRecord::settings(settings).size() < DisplayRecord::MaxSize / 4);
}

void tst_DisplayRecord::aRecordAbove65535BytesHasNoFrame()
{
    const QByteArray largest(65535, 'x');
    QCOMPARE(DisplayRecord::framed(largest), QByteArray::fromHex("ffff") + largest);
    QVERIFY(DisplayRecord::framed(largest + 'x').isEmpty());
    // Type and length take 6 bytes, a character takes 2.
    const QString longestText(32764, 'x');
    QCOMPARE(DisplayRecord::framed(DisplayRecord::raceInfoText(longestText)).size(), 2 + 65534);
    QVERIFY(DisplayRecord::framed(DisplayRecord::raceInfoText(longestText + 'x')).isEmpty());
}

void tst_DisplayRecord::aRecordCutBetweenTwoValuesReadsTheRestAsZeros()
{
    for (const int type : {101, 102, 103, 104, 113}) {
        const QByteArray record = fullRecord(type);
        const int valuesOfFourBytes = type == 101 ? 14 : 1;
        for (int values = 0; values <= valuesOfFourBytes; ++values) {
            const QByteArray cut = record.left(2 + 4 * values);
            QCOMPARE(writtenAgain(cut).toHex(), cut.leftJustified(record.size(), '\0').toHex());
        }
    }
}

void tst_DisplayRecord::aRecordCutInAValueReadsItAsZeroOrEmpty()
{
    QCOMPARE(valueOf(QByteArray::fromHex("0066000000"), qint32(7)), 0);
    QCOMPARE(valueOf(QByteArray::fromHex("0067000000"), QTime()), QTime(0, 0));
    QCOMPARE(valueOf(QByteArray::fromHex("0064000000040041"), QStringLiteral("alt")), QString());
}

void tst_DisplayRecord::everyCutOfTheSettingsIsRead()
{
    for (const int type : {110, 111, 112}) {
        const QByteArray record = fullRecord(type);
        for (int size = 2; size < record.size(); ++size) {
            const QByteArray again = writtenAgain(record.left(size));
            QCOMPARE(int(DisplayRecord::Payload(again).type()), type);
        }
    }
}

void tst_DisplayRecord::aRecordWithoutATypeReadsAsTypeZero()
{
    QCOMPARE(int(DisplayRecord::Payload(QByteArray()).type()), 0);
    QCOMPARE(int(DisplayRecord::Payload(QByteArray("\x66")).type()), 0);
}

void tst_DisplayRecord::anEndlessTextInARecordIsEmpty()
{
    const QByteArray record = QByteArray::fromHex("0064fffffffe") + QByteArray(1000, '\0');
    QCOMPARE(valueOf(record, QString()), QString());
}

void tst_DisplayRecord::anEndlessListOfTracksInARecordEndsWithIt()
{
    QByteArray record = DisplayRecord::raceSettings(FullRecords::raceSettings());
    const QByteArray count = QByteArray::fromHex("00000003") + QByteArray::fromHex("00004100");
    const int place = record.indexOf(count);
    QVERIFY(place > 0);
    record.replace(place, 4, QByteArray::fromHex("7fffffff"));
    const CRaceSettings settings = valueOf(record, CRaceSettings());
    QVERIFY(settings.raceway().tracks.size() >= 3);
    QVERIFY(settings.raceway().tracks.size() < 10);
}

QTEST_GUILESS_MAIN(tst_DisplayRecord)
#include "tst_DisplayRecord.moc"
