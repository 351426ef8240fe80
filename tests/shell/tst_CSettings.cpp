#include "shell/CSettings.h"
#include "support/StreamBytes.h"

#include <QDataStream>
#include <QSettings>
#include <QTest>

namespace {

/** Every field differs from both kinds of default. */
CSettings unusualSettings()
{
    CSettings settings;
    settings.setNewBestLapSound("best.wav");
    settings.setDriveThroughSound("drive.wav");
    settings.setRedLightSound("red.wav");
    settings.setGreenLightSound(QStringLiteral("grün.wav"));
    settings.setDisplayShowLaps(false);
    settings.setDisplayShowLapTime(false);
    settings.setDisplayShowBestLapTime(false);
    settings.setDisplayShowStatus(false);
    settings.setDisplayShowAverageLapTime(true);
    settings.setDisplayShowSectorTimes(true);
    settings.setDisplayShowIntermediateTimes(true);
    settings.setDisplaySpeed(true);
    settings.setSpeedDisplayType(CSettings::MilesPerHour);
    settings.setDisplayFuel(true);
    settings.setSoundEnhanced(true);
    settings.setSoundVoiceOutputLaps(true);
    settings.setSoundVoiceOutputLapTime(true);
    settings.setSoundVoiceOutputBestLapTime(true);
    for (int track = 0; track < CSettings::Tracks; ++track)
        settings.setTrackColor(track, QStringLiteral("#00000%1").arg(track));
    settings.setColorBestLapAndStatus("#123456");
    settings.setStorageApproach(CSettings::UseDefaultPath);
    settings.setStorageDefaultPath(QStringLiteral("/home/anna/Rennen 2026; März"));
    settings.setStorageCsvTimeFormat(CSettings::MinutesComma);
    settings.setDisplaySize(CSettings::Small);
    settings.setPort(65535);
    settings.setSendShutdownToClients(true);
    settings.setShutdownWaitTime(120);
    settings.setClientsMuted(false);
    settings.setQrCodeHandlingEnabled(true);
    settings.setQrCodeHandlingCamera("HD Webcam: 2");
    return settings;
}

/** A text as the stream form holds it: the number of bytes, then two bytes a character. */
QByteArray streamText(const QString& text)
{
    QByteArray bytes;
    const quint32 size = quint32(text.size()) * 2;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.append(char((size >> shift) & 0xff));
    for (const QChar character : text) {
        bytes.append(char(character.row()));
        bytes.append(char(character.cell()));
    }
    return bytes;
}

} // namespace

class tst_CSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void freshRecordDiffersFromReadDefaultsInSpeedFuelAndVoice();
    void newUserGetsReadDefaults();
    void everyKeyStandsInItsGroup_data();
    void everyKeyStandsInItsGroup();
    void writingStoresExactlyThirtySevenKeys();
    void readingBackGivesTheSameValues();
    void missingKeyTakesItsDefaultOnASecondRead();
    void valuesOutOfRangeAreCarried();
    void trackColorOutsideTheEightTracksIsIgnored();
    void copiesAreIndependent();
    void streamFormIsByteForByteAsTheProtocolWantsIt();
    void streamAndBackKeepsAllValues();
    void cutStreamDoesNoHarm();
};

void tst_CSettings::init()
{
    QSettings("Tornik", "Tornik").clear();
}

void tst_CSettings::freshRecordDiffersFromReadDefaultsInSpeedFuelAndVoice()
{
    const CSettings settings;
    QVERIFY(settings.displaySpeed());
    QVERIFY(settings.displayFuel());
    QVERIFY(settings.soundEnhanced());
    QVERIFY(settings.soundVoiceOutputLaps());
    QVERIFY(settings.soundVoiceOutputLapTime());
    QVERIFY(settings.soundVoiceOutputBestLapTime());
    QCOMPARE(settings.displaySize(), 2);
    QCOMPARE(settings.port(), CSettings::DefaultPort);
    QCOMPARE(settings.shutdownWaitTime(), 15);
    QVERIFY(settings.clientsMuted());
    QCOMPARE(settings.newBestLapSound(), QString("newBestLap.wav"));
    QCOMPARE(settings.trackColor(7), QString("#FFC80A"));
}

void tst_CSettings::newUserGetsReadDefaults()
{
    CSettings settings = unusualSettings();
    settings.read();
    QCOMPARE(settings.newBestLapSound(), QString("newBestLap.wav"));
    QCOMPARE(settings.driveThroughSound(), QString("driveThrough.wav"));
    QCOMPARE(settings.redLightSound(), QString("redLight.wav"));
    QCOMPARE(settings.greenLightSound(), QString("greenLight.wav"));
    QVERIFY(settings.displayShowLaps());
    QVERIFY(settings.displayShowLapTime());
    QVERIFY(settings.displayShowBestLapTime());
    QVERIFY(settings.displayShowStatus());
    QVERIFY(!settings.displayShowAverageLapTime());
    QVERIFY(!settings.displayShowSectorTimes());
    QVERIFY(!settings.displayShowIntermediateTimes());
    QVERIFY(!settings.displaySpeed());
    QCOMPARE(settings.speedDisplayType(), 0);
    QVERIFY(!settings.displayFuel());
    QVERIFY(!settings.soundEnhanced());
    QVERIFY(!settings.soundVoiceOutputLaps());
    QVERIFY(!settings.soundVoiceOutputLapTime());
    QVERIFY(!settings.soundVoiceOutputBestLapTime());
    for (int track = 0; track < CSettings::Tracks; ++track)
        QCOMPARE(settings.trackColor(track), QString("#FFC80A"));
    QCOMPARE(settings.colorBestLapAndStatus(), QString("#FF3214"));
    QCOMPARE(settings.storageApproach(), 0);
    QVERIFY(settings.storageDefaultPath().isEmpty());
    QCOMPARE(settings.storageCsvTimeFormat(), 0);
    QCOMPARE(settings.displaySize(), 2);
    QCOMPARE(settings.port(), quint16(47624));
    QVERIFY(!settings.sendShutdownToClients());
    QCOMPARE(settings.shutdownWaitTime(), 15);
    QVERIFY(settings.clientsMuted());
    QVERIFY(!settings.qrCodeHandlingEnabled());
    QVERIFY(settings.qrCodeHandlingCamera().isEmpty());
}

void tst_CSettings::everyKeyStandsInItsGroup_data()
{
    QTest::addColumn<QString>("value");
    const auto row = [](const char* key, const char* value) { QTest::newRow(key) << QString(value); };
    row("sound/NewBestLapSound", "best.wav");
    row("sound/DriveThroughSound", "drive.wav");
    row("sound/RedLightSound", "red.wav");
    row("sound/GreenLightSound", "grün.wav");
    row("sound/SoundEnhanced", "true");
    row("sound/SoundVoiceOutputLaps", "true");
    row("sound/SoundVoiceOutputLapTime", "true");
    row("sound/SoundVoiceOutputBestLapTime", "true");
    row("display/DisplayShowLaps", "false");
    row("display/DisplayShowLapTime", "false");
    row("display/DisplayShowBestLapTime", "false");
    row("display/DisplayShowStatus", "false");
    row("display/DisplayShowAverageLapTime", "true");
    row("display/DisplayShowSectorTimes", "true");
    row("display/DisplayShowIntermediateTimes", "true");
    row("display/DisplaySpeed", "true");
    row("display/SpeedDisplayType", "2");
    row("display/DisplayFuel", "true");
    row("display/ColorTrack1", "#000000");
    row("display/ColorTrack8", "#000007");
    row("display/ColorBestLapAndStatus", "#123456");
    row("display/DisplaySize", "4");
    row("storage/StorageApproach", "1");
    row("storage/StorageDefaultPath", "/home/anna/Rennen 2026; März");
    row("storage/StorageCsvTimeFormat", "2");
    row("network/Port", "65535");
    row("network/SendShutdownToClients", "true");
    row("network/ShutdownWaitTime", "120");
    row("network/ClientsMuted", "false");
    row("qr/qrCodeHandlingEnabled", "true");
    row("qr/qrCodeHandlingCamera", "HD Webcam: 2");
}

void tst_CSettings::everyKeyStandsInItsGroup()
{
    QFETCH(QString, value);
    unusualSettings().write();
    const QSettings store("Tornik", "Tornik");
    QCOMPARE(store.value(QTest::currentDataTag()).toString(), value);
}

void tst_CSettings::writingStoresExactlyThirtySevenKeys()
{
    unusualSettings().write();
    const QStringList keys = QSettings("Tornik", "Tornik").allKeys();
    QCOMPARE(keys.size(), 37);
    QVERIFY(keys.filter("default", Qt::CaseInsensitive) == QStringList("storage/StorageDefaultPath"));
}

void tst_CSettings::readingBackGivesTheSameValues()
{
    unusualSettings().write();
    CSettings settings;
    settings.read();
    QCOMPARE(streamForm(settings), streamForm(unusualSettings()));
}

void tst_CSettings::missingKeyTakesItsDefaultOnASecondRead()
{
    unusualSettings().write();
    CSettings settings;
    settings.read();
    QSettings("Tornik", "Tornik").remove("network/Port");
    settings.read();
    QCOMPARE(settings.port(), quint16(47624));
    QCOMPARE(settings.shutdownWaitTime(), 120);
}

void tst_CSettings::valuesOutOfRangeAreCarried()
{
    QSettings("Tornik", "Tornik").setValue("display/DisplaySize", 7);
    CSettings settings;
    settings.read();
    QCOMPARE(settings.displaySize(), 7);
    settings.write();
    QCOMPARE(QSettings("Tornik", "Tornik").value("display/DisplaySize").toInt(), 7);
}

void tst_CSettings::trackColorOutsideTheEightTracksIsIgnored()
{
    CSettings settings;
    settings.setTrackColor(8, "#111111");
    settings.setTrackColor(-1, "#111111");
    QVERIFY(settings.trackColor(8).isEmpty());
    QVERIFY(settings.trackColor(-1).isEmpty());
    QCOMPARE(streamForm(settings), streamForm(CSettings()));
}

void tst_CSettings::copiesAreIndependent()
{
    CSettings original = unusualSettings();
    const CSettings copy(original);
    CSettings assigned;
    assigned = original;
    original.setTrackColor(0, "#ffffff");
    original.setDisplaySize(1);
    QCOMPARE(streamForm(copy), streamForm(unusualSettings()));
    QCOMPARE(streamForm(assigned), streamForm(unusualSettings()));
}

void tst_CSettings::streamFormIsByteForByteAsTheProtocolWantsIt()
{
    QByteArray expected;
    for (const char* name : {"best.wav", "drive.wav", "red.wav", "grün.wav"})
        expected += streamText(QString::fromUtf8(name));
    expected += QByteArray::fromHex("00000000"   // laps, lap time, best lap time, status
                                    "01010101"   // average, sectors, intermediate times, speed
                                    "00000002"   // unit of the speed
                                    "0101010101" // fuel, voice, laps, lap time, best lap time
    );
    for (int track = 0; track < 8; ++track)
        expected += streamText(QStringLiteral("#00000%1").arg(track));
    expected += QByteArray::fromHex("00000001"); // storage approach
    expected += streamText(QStringLiteral("/home/anna/Rennen 2026; März"));
    expected += QByteArray::fromHex("00000002" // time format
                                    "00000004" // display size
                                    "ffff"     // port
                                    "01"       // send shutdown
                                    "00000078" // wait time
                                    "00"       // clients muted
    );
    expected += streamText("#123456");
    expected += QByteArray::fromHex("01");
    expected += streamText("HD Webcam: 2");

    QCOMPARE(streamForm(unusualSettings()).toHex(), expected.toHex());
}

void tst_CSettings::streamAndBackKeepsAllValues()
{
    const CSettings copy = fromStreamForm<CSettings>(streamForm(unusualSettings()));
    QCOMPARE(streamForm(copy), streamForm(unusualSettings()));
    QCOMPARE(copy.qrCodeHandlingCamera(), QString("HD Webcam: 2"));
    QCOMPARE(copy.colorBestLapAndStatus(), QString("#123456"));
    QCOMPARE(copy.trackColor(3), QString("#000003"));
    QCOMPARE(copy.port(), quint16(65535));
}

void tst_CSettings::cutStreamDoesNoHarm()
{
    const QByteArray bytes = streamForm(unusualSettings());
    for (int length = 0; length < bytes.size(); ++length) {
        const CSettings settings = fromStreamForm<CSettings>(bytes.left(length));
        QVERIFY(settings.trackColor(7).isEmpty() || settings.trackColor(7).startsWith('#'));
        QVERIFY(settings.qrCodeHandlingCamera().isEmpty());
    }
}

QTEST_APPLESS_MAIN(tst_CSettings)
#include "tst_CSettings.moc"
