#include "race/CRace.h"
#include "shell/CKelmoMainDialog.h"
#include "sound/CSoundHandler.h"
#include "support/DatabaseFile.h"
#include "support/ModalAnswers.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QElapsedTimer>
#include <QSettings>
#include <QTest>

/** The whole program on stored things that are not as it left them: it starts and a race is driven. */
class tst_bad_input : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aSettingsStoreOfNonsense_data();
    void aSettingsStoreOfNonsense();
    void anInterfaceThatCannotBeRead_data();
    void anInterfaceThatCannotBeRead();
    void aRacewayOfNonsense_data();
    void aRacewayOfNonsense();
    void aCarOfNonsense_data() { aRacewayOfNonsense_data(); }
    void aCarOfNonsense();
    void aFileThatIsNoDatabase_data();
    void aFileThatIsNoDatabase();
    void soundFilesThatCannotBePlayed_data();
    void soundFilesThatCannotBePlayed();

private:
    RunningProgram& start();
    void driveLap();
    void driveRace();

    std::unique_ptr<RunningProgram> m_program;
};

void tst_bad_input::cleanup()
{
    m_program.reset();
    QSettings("Tornik", "Tornik").clear();
}

RunningProgram& tst_bad_input::start()
{
    m_program = std::make_unique<RunningProgram>();
    return *m_program;
}

void tst_bad_input::driveLap()
{
    m_program->cross(1);
    m_program->cross(1);
    QCOMPARE(m_program->laps(1), QString("001"));
    QCOMPARE(m_program->trackText(1, "lastLap"), RunningProgram::timeText(m_program->shownLaps(1).value(0)));
}

void tst_bad_input::driveRace()
{
    QVERIFY(m_program->startRace());
    driveLap();
    QVERIFY(m_program->race().isRaceActive());
    m_program->stopRace();
    QVERIFY(!m_program->race().isRaceActive());
    QCOMPARE(m_program->message(), QString("Rennen wurde beendet"));
}

void tst_bad_input::aSettingsStoreOfNonsense_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("nothing") << QString();
    QTest::newRow("a word") << QStringLiteral("überall");
    QTest::newRow("minus one") << QStringLiteral("-1");
    QTest::newRow("the smallest number") << QStringLiteral("-2147483648");
    QTest::newRow("the largest number") << QStringLiteral("2147483647");
    QTest::newRow("a number too large") << QStringLiteral("99999999999999999999");
    QTest::newRow("no number") << QStringLiteral("nan");
    QTest::newRow("a list") << QStringLiteral("1, 2, 3");
    QTest::newRow("half a style sheet") << QStringLiteral("red; } QWidget { color: ");
    QTest::newRow("very long") << QString(100000, QLatin1Char('x'));
}

/** Each value that the program has ever stored is the same nonsense. */
void tst_bad_input::aSettingsStoreOfNonsense()
{
    QFETCH(QString, value);
    StoredSetup().write();
    {
        QSettings store("Tornik", "Tornik");
        const QStringList keys = store.allKeys();
        QVERIFY(keys.size() > 80);
        for (const QString& key : keys)
            store.setValue(key, value);
    }
    RunningProgram& program = start();
    driveRace();
    ModalAnswers user;
    for (const Qt::Key dialogKey : {Qt::Key_R, Qt::Key_G, Qt::Key_A}) {
        user.expect([](QDialog* dialog) { dialog->reject(); });
        program.pressKey(dialogKey, Qt::ControlModifier);
    }
    QCOMPARE(user.numberOfWindows(), 3);
}

void tst_bad_input::anInterfaceThatCannotBeRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("no base64") << QByteArray("\"§$%&/()äöü?|end_stream|");
    QTest::newRow("a sentence") << QByteArray("keine Einstellungen");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("an interface of no known kind") << QByteArray::fromHex("0000004d").toBase64();
    QTest::newRow("cut within the masks") << CRaceway().ioSettings.left(50).toBase64();
    QTest::newRow("a kind alone") << CRaceway().ioSettings.left(4).toBase64();
    QTest::newRow("junk") << QByteArray("\xff").repeated(1000).toBase64();
}

void tst_bad_input::anInterfaceThatCannotBeRead()
{
    QFETCH(QByteArray, text);
    StoredSetup().write();
    QVERIFY(DatabaseFile().exec(
        QStringLiteral("UPDATE raceways SET ioSettings = '%1'").arg(QString::fromUtf8(text))));
    RunningProgram& program = start();
    QCOMPARE(program.race().numberOfMembers(), 2);
    QVERIFY(program.race().io());
    driveRace();
}

void tst_bad_input::aRacewayOfNonsense_data()
{
    QTest::addColumn<QString>("value");
    for (const char* value : {"NULL", "-1", "'viele'", "2147483647", "1e300", "x'ff00ff'"})
        QTest::newRow(value) << QString::fromLatin1(value);
}

/** All that is stored of the raceway and its tracks but what ties the two together. */
void tst_bad_input::aRacewayOfNonsense()
{
    QFETCH(QString, value);
    StoredSetup().write();
    {
        DatabaseFile file;
        for (const char* column :
             {"name", "scale", "portOpenState", "chaosButtonState", "chaosButtonAvailable",
              "chaosPhaseOutputAvailable", "pwrOffFeatureAvailable", "externalLightsAvailable",
              "numberOfSectors", "fuelSensorSetup", "startAndEndSensorSeparate"})
            QVERIFY2(
                file.exec(QStringLiteral("UPDATE raceways SET %1 = %2").arg(QLatin1String(column), value)),
                column);
        for (const char* column : {"length", "portClosedState"})
            QVERIFY2(file.exec(QStringLiteral("UPDATE tracks SET %1 = %2").arg(QLatin1String(column), value)),
                     column);
    }
    RunningProgram& program = start();
    QCOMPARE(program.race().numberOfMembers(), 2);
    QVERIFY(program.startRace());
    if (program.race().raceSettingsCopy().raceway().startAndEndSensorSeparate) {
        program.tap("slot1");
        QElapsedTimer sinceStart;
        sinceStart.start();
        QTRY_VERIFY(sinceStart.elapsed() > 15); // a lap takes its time
        program.tap("slot1EndSensor");
        QCOMPARE(program.laps(1), QString("001"));
    } else {
        driveLap();
    }
    program.stopRace();
    QVERIFY(!program.race().isRaceActive());
}

/** With the tank of the car, and its distance counted. */
void tst_bad_input::aCarOfNonsense()
{
    QFETCH(QString, value);
    StoredSetup setup;
    CFuelSettings fuel;
    fuel.setFuelFunction(CFuelSettings::FuelOfEachCar);
    setup.rules.setFuelSettings(fuel);
    setup.rules.setMonitorDistanceDriven(true);
    setup.rules.setMonitorFastestLap(true);
    setup.settings.setDisplayFuel(true);
    setup.settings.setDisplaySpeed(true);
    setup.write();
    {
        DatabaseFile file;
        for (const char* column : {"name", "class", "scale", "tankSize", "tankReserveLevel", "minConsumption",
                                   "maxConsumption", "distanceDriven"})
            QVERIFY2(file.exec(QStringLiteral("UPDATE cars SET %1 = %2").arg(QLatin1String(column), value)),
                     column);
    }
    start();
    driveRace();
    QCOMPARE(DatabaseFile().value("SELECT COUNT(*) FROM fastestLapTimes"), QString("1"));
}

void tst_bad_input::aFileThatIsNoDatabase_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a text") << QByteArray("Name;Startnummer\n").repeated(100);
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("the right head before junk")
        << QByteArray("SQLite format 3\0", 16) + QByteArray("\xa5\x5a\x0f").repeated(3000);
}

/** There is no raceway then, but the program can be used and ended, and the file is as it was. */
void tst_bad_input::aFileThatIsNoDatabase()
{
    QFETCH(QByteArray, content);
    QSettings("Tornik", "Tornik").clear();
    QVERIFY(writeContent("tornik.db", content));
    RunningProgram& program = start();
    QVERIFY(program.dialog().isVisible());
    program.pressKey(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(program.race().isRaceActive());
    program.stopRace();
    QVERIFY(!program.race().isRaceActive());
    m_program.reset();
    QCOMPARE(contentOf("tornik.db"), content);
}

void tst_bad_input::soundFilesThatCannotBePlayed_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("voice");
    QVERIFY(writeContent("junk.wav", QByteArray("RIFF\xff\xff\xff\x7fWAVEfmt ").repeated(10)));
    for (const bool voice : {false, true}) {
        const QByteArray end = voice ? ", with a voice" : ", effects";
        QTest::newRow("missing" + end) << QStringLiteral("nirgends.wav") << voice;
        QTest::newRow("missing directory" + end) << QStringLiteral("/nirgends/x.wav") << voice;
        QTest::newRow("a directory" + end) << QDir::currentPath() << voice;
        QTest::newRow("no sound" + end) << QDir::current().filePath("junk.wav") << voice;
        QTest::newRow("no name" + end) << QString() << voice;
    }
}

void tst_bad_input::soundFilesThatCannotBePlayed()
{
    QFETCH(QString, file);
    QFETCH(bool, voice);
    StoredSetup setup;
    setup.settings.setNewBestLapSound(file);
    setup.settings.setDriveThroughSound(file);
    setup.settings.setRedLightSound(file);
    setup.settings.setGreenLightSound(file);
    setup.settings.setSoundEnhanced(voice);
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.rules.setStartDelay(QTime(0, 0, 5));
    setup.write();
    RunningProgram& program = start();
    program.dialog().setSoundHandler(std::make_unique<CSoundHandler>()); // the one that plays
    QVERIFY(program.startRace());
    for (int second = 0; second < 5; ++second)
        program.letStartSecondPass();
    QCOMPARE(program.lights(), QString("GGGGG"));
    driveLap();
    program.cross(1, 5);
    program.stopRace();
    QCOMPARE(program.laps(1), QString("002"));
}

QTEST_APPLESS_MAIN(tst_bad_input)
#include "tst_bad_input.moc"
