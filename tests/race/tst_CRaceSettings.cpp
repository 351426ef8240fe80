#include "race/CRaceSettings.h"
#include "support/StreamBytes.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr auto Group = "DefaultRaceSettings/";

/** Every field differs from both kinds of default; no time has milliseconds. */
CRaceSettings unusualSettings()
{
    CRaceSettings settings;
    settings.setStartType(CRaceSettings::TimedStart);
    settings.setStartDelay(QTime(0, 0, 12));
    settings.setStartLightsMinDelay(700);
    settings.setStartLightsMaxDelay(4000000000U);
    settings.setEndType(CRaceSettings::LapLimit);
    settings.setEndTime(QTime(1, 30));
    settings.setNumberOfLaps(42);
    settings.setAllMaxRounds(true);
    settings.setMaxRoundsStopCounting(true);
    settings.setLapsCountDown(true);
    settings.setWinningCondition(7);
    settings.setWinningTargetTime(QTime(0, 0, 8));
    settings.setUseTargetTime(true);
    settings.setNumOfWorstLapsToIgnore(3);
    settings.setMonitorDistanceDriven(true);
    settings.setMonitorFastestLap(true);
    settings.setRedLightsOnRaceStopped(true);
    settings.setLeavePowerOnWhenRaceStopped(true);
    CFuelSettings fuel;
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    fuel.setRefuelInterval(QTime(0, 0, 1));
    fuel.setRefuelAmount(2.5);
    fuel.setMinFuelUsageAmount(0.5);
    fuel.setMinFuelUsageTime(QTime(0, 0, 12));
    fuel.setMaxFuelUsageAmount(4.25);
    fuel.setMaxFuelUsageTime(QTime(0, 0, 3));
    fuel.setTankSize(80.0);
    fuel.setReserveLevel(8.0);
    fuel.setEmptyFuelReaction(3);
    fuel.setEmptyFuelPenaltyTime(QTime(0, 1));
    fuel.setEmptyFuelStutterFrequency(9);
    settings.setFuelSettings(fuel);
    for (int i = 0; i < CRaceSettings::Slots; ++i) {
        CDriver driver;
        driver.setName(QStringLiteral("Fahrer %1").arg(i));
        driver.setId(100 + i);
        settings.setDriver(i, driver);
        CCar car;
        car.setName(QStringLiteral("Auto %1").arg(i));
        car.setId(200 + i);
        settings.setCar(i, car);
    }
    CRaceway raceway(3);
    raceway.name = QStringLiteral("Keller");
    settings.setRaceway(raceway);
    return settings;
}

const QString UnusualText = QStringLiteral("1 00:00:12 700 4000000000 2 01:30:00 42 1 1 1 7 00:00:08 3 1 "
                                           "2 4.25 00:00:03 0.5 00:00:12 2.5 00:00:01 80 8 3 00:01:00 9 "
                                           "1 1 1 1");

QByteArray fileContent(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& name, const QByteArray& content)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

/** @return what a read of a store without any key gives. */
CRaceSettings freshSettings()
{
    CRaceSettings settings;
    settings.readFromFile(QStringLiteral("no-such-file.rsf"));
    return settings;
}

/** Names, cars and raceway have no keys: only this is kept by the store. */
QString storedValuesOf(const CRaceSettings& settings)
{
    QString text = settings.toText();
    for (int i = 0; i < CRaceSettings::Slots; ++i)
        text += QStringLiteral(" %1/%2").arg(settings.driver(i).id()).arg(settings.car(i).id());
    return text;
}

} // namespace

class tst_CRaceSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void newSettingsHaveTheDefaults();
    void driversAndCarsOutsideTheEightAreDefaultRecords();

    void aFreshStoreReads10LapsAndATankOf20();
    void aFreshStoreReadsItsDefaults();
    void aReadPutsMissingKeysBackToTheirDefaults();
    void theStoreKeepsAllItsValues();
    void theStoreKeepsMilliseconds();
    void theStoreIsThatOfTheApplication();
    void aReadFillsOnlyTheIdsOfDriversAndCars();
    void storeKeys_data();
    void storeKeys();
    void timesAreStoredAsTimes();
    void otherGroupsOfTheStoreStay();
    void unreadableValuesGiveTheirDefaults_data();
    void unreadableValuesGiveTheirDefaults();
    void valuesOutOfRangeAreTakenAsTheyAre();

    void aFileKeepsAllItsValues();
    void aFileHasItsKeysAndNoOthers();
    void anUnknownEmptyFuelReactionInAFileIsReadAsZero();
    void aFileThatCannotBeReadGivesAllDefaults_data();
    void aFileThatCannotBeReadGivesAllDefaults();
    void aFileThatCannotBeWrittenIsSilent();

    void textOfNewSettings();
    void textOfUnusualSettings();
    void aStartDelayLosesItsMillisecondsInTheText();
    void anInvalidTimeKeepsItsPlaceInTheText();
    void numbersInTheText_data();
    void numbersInTheText();
    void textKeepsAllItsValues();
    void anyNumberButZeroIsTrueInTheText();
    void unreadableWordsLeaveTheirValuesAlone();
    void aTextCutAnywhereIsRead();

    void streamFormByteForByte();
    void streamKeepsAllFields();
    void aStreamCutAnywhereIsRead();

    void aTankAsLargeAsItsReserveIsOnReserveFromTheFirstLapOn();

private:
    QTemporaryDir m_dir;
    QString m_file;
};

void tst_CRaceSettings::init()
{
    QVERIFY(m_dir.isValid());
    m_file = m_dir.filePath(QStringLiteral("race.rsf"));
    QFile::remove(m_file);
    QSettings store(QStringLiteral("Tornik"), QStringLiteral("Tornik"));
    store.clear();
}

void tst_CRaceSettings::newSettingsHaveTheDefaults()
{
    const CRaceSettings settings;
    QCOMPARE(settings.startType(), 0);
    QCOMPARE(settings.startDelay(), QTime(0, 0, 5));
    QCOMPARE(settings.startLightsMinDelay(), 500U);
    QCOMPARE(settings.startLightsMaxDelay(), 2500U);
    QCOMPARE(settings.endType(), 0);
    QCOMPARE(settings.endTime(), QTime(0, 5));
    QCOMPARE(settings.numberOfLaps(), 25);
    QVERIFY(!settings.allMaxRounds());
    QVERIFY(!settings.maxRoundsStopCounting());
    QVERIFY(!settings.lapsCountDown());
    QCOMPARE(settings.winningCondition(), 0);
    QCOMPARE(settings.winningTargetTime(), QTime(0, 0, 10));
    QVERIFY(!settings.useTargetTime());
    QCOMPARE(settings.numOfWorstLapsToIgnore(), 0);
    QCOMPARE(settings.fuelSettings().tankSize(), 100.0);
    QCOMPARE(settings.raceway().name, QStringLiteral("Default"));
    QVERIFY(!settings.monitorDistanceDriven());
    QVERIFY(!settings.monitorFastestLap());
    QVERIFY(!settings.redLightsOnRaceStopped());
    QVERIFY(!settings.leavePowerOnWhenRaceStopped());
    for (int i = 0; i < CRaceSettings::Slots; ++i) {
        QCOMPARE(settings.driver(i).name(), QStringLiteral("Default"));
        QCOMPARE(settings.driver(i).id(), -1);
        QCOMPARE(settings.car(i).id(), -1);
    }
}

void tst_CRaceSettings::driversAndCarsOutsideTheEightAreDefaultRecords()
{
    CRaceSettings settings = unusualSettings();
    const QByteArray before = streamForm(settings);
    for (const int index : {-1, 8, 1000}) {
        settings.setDriver(index, CDriver());
        settings.setCar(index, CCar());
        QCOMPARE(settings.driver(index).name(), QStringLiteral("Default"));
        QCOMPARE(settings.car(index).id(), -1);
    }
    QCOMPARE(streamForm(settings), before);
    QCOMPARE(settings.driver(7).name(), QStringLiteral("Fahrer 7"));
    QCOMPARE(settings.car(7).name(), QStringLiteral("Auto 7"));
}

void tst_CRaceSettings::aFreshStoreReads10LapsAndATankOf20()
{
    CRaceSettings settings;
    QCOMPARE(settings.numberOfLaps(), 25);
    QCOMPARE(settings.fuelSettings().tankSize(), 100.0);
    settings.readDefaults();
    QCOMPARE(settings.numberOfLaps(), 10);
    QCOMPARE(settings.fuelSettings().tankSize(), 20.0);
}

void tst_CRaceSettings::aFreshStoreReadsItsDefaults()
{
    CRaceSettings settings = unusualSettings();
    settings.readDefaults();
    CRaceSettings expected;
    expected.setNumberOfLaps(10);
    CFuelSettings fuel;
    fuel.setTankSize(20.0);
    expected.setFuelSettings(fuel);
    QCOMPARE(storedValuesOf(settings), storedValuesOf(expected));
    QCOMPARE(settings.fuelSettings().refuelInterval(), QTime(0, 0, 0, 500));
    QCOMPARE(settings.fuelSettings().minFuelUsageTime(), QTime(0, 0, 7, 500));
    QCOMPARE(settings.fuelSettings().maxFuelUsageTime(), QTime(0, 0, 4, 500));
}

void tst_CRaceSettings::aReadPutsMissingKeysBackToTheirDefaults()
{
    QSettings store(QStringLiteral("Tornik"), QStringLiteral("Tornik"));
    store.setValue(QStringLiteral("DefaultRaceSettings/endType"), 2);
    store.sync();
    CRaceSettings settings = unusualSettings();
    settings.readDefaults();
    QCOMPARE(settings.endType(), 2);
    QCOMPARE(settings.startType(), 0);
    QCOMPARE(settings.car(0).id(), -1);
}

void tst_CRaceSettings::theStoreKeepsAllItsValues()
{
    const CRaceSettings settings = unusualSettings();
    settings.writeDefaults();
    CRaceSettings read;
    read.readDefaults();
    QCOMPARE(storedValuesOf(read), storedValuesOf(settings));
    QCOMPARE(read.raceway().name, QStringLiteral("Default"));
}

void tst_CRaceSettings::theStoreKeepsMilliseconds()
{
    CRaceSettings settings;
    settings.setStartDelay(QTime(0, 0, 5, 250));
    settings.writeDefaults();
    CRaceSettings read;
    read.readDefaults();
    QCOMPARE(read.startDelay(), QTime(0, 0, 5, 250));
    QCOMPARE(read.fuelSettings().refuelInterval(), QTime(0, 0, 0, 500));
}

void tst_CRaceSettings::theStoreIsThatOfTheApplication()
{
    unusualSettings().writeDefaults();
    const QSettings store(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Tornik"),
                          QStringLiteral("Tornik"));
    QCOMPARE(store.value(QStringLiteral("DefaultRaceSettings/numberOfLaps")).toInt(), 42);
    QCOMPARE(QFileInfo(store.fileName()).fileName(), QStringLiteral("Tornik.conf"));
}

void tst_CRaceSettings::aReadFillsOnlyTheIdsOfDriversAndCars()
{
    unusualSettings().writeDefaults();
    CRaceSettings settings;
    CDriver driver;
    driver.setName(QStringLiteral("Bert"));
    settings.setDriver(0, driver);
    settings.readDefaults();
    QCOMPARE(settings.driver(0).name(), QStringLiteral("Bert"));
    QCOMPARE(settings.driver(0).id(), 100);
    QCOMPARE(settings.driver(7).name(), QStringLiteral("Default"));
    QCOMPARE(settings.car(7).name(), QString());
    QCOMPARE(settings.car(7).id(), 207);
}

void tst_CRaceSettings::storeKeys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* key, const QVariant& value) {
        QTest::newRow(key) << QString::fromLatin1(key) << value;
    };
    row("startType", 1);
    row("startDelay", QTime(0, 0, 12));
    row("startLightsMinDelay", 700U);
    row("startLightsMaxDelay", 4000000000U);
    row("endType", 2);
    row("endTime", QTime(1, 30));
    row("numberOfLaps", 42);
    row("allMaxRounds", true);
    row("maxRoundsStopCounting", true);
    row("lapsCountDown", true);
    row("winningCondition", 7);
    row("winningTargetTime", QTime(0, 0, 8));
    row("numOfWorstLapsToIgnore", 3);
    row("useTargetTime", true);
    row("redLightsOnRaceStopped", true);
    row("leavePowerOnWhenRaceStopped", true);
    row("DefaultDriverList/Driver1ID", 100);
    row("DefaultDriverList/Driver8ID", 107);
    row("DefaultCarList/Car1ID", 200);
    row("DefaultCarList/Car8ID", 207);
    row("DefaultFuelSettings/fuelFunction", 2);
    row("DefaultFuelSettings/maxFuelUsageAmount", 4.25);
    row("DefaultFuelSettings/maxFuelUsageTime", QTime(0, 0, 3));
    row("DefaultFuelSettings/minFuelUsageAmount", 0.5);
    row("DefaultFuelSettings/minFuelUsageTime", QTime(0, 0, 12));
    row("DefaultFuelSettings/refuelAmount", 2.5);
    row("DefaultFuelSettings/refuelInterval", QTime(0, 0, 1));
    row("DefaultFuelSettings/tankSize", 80.0);
    row("DefaultFuelSettings/reserveLevel", 8.0);
    row("DefaultFuelSettings/emptyFuelReaction", 3);
    row("DefaultFuelSettings/emptyFuelPenaltyTime", QTime(0, 1));
    row("DefaultFuelSettings/emptyFuelStutterFrequency", 9);
    row("DefaultDataStorage/monitorDistanceDriven", true);
    row("DefaultDataStorage/monitorFastestLap", true);
}

void tst_CRaceSettings::storeKeys()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    unusualSettings().writeToFile(m_file);
    const QSettings store(m_file, QSettings::IniFormat);
    QVERIFY(store.contains(Group + key));
    QCOMPARE(store.value(Group + key).toString(), value.toString());
    QCOMPARE(store.allKeys().size(), 46);
}

void tst_CRaceSettings::timesAreStoredAsTimes()
{
    CRaceSettings().writeToFile(m_file);
    const QSettings store(m_file, QSettings::IniFormat);
    QCOMPARE(store.value(QStringLiteral("DefaultRaceSettings/startDelay")), QVariant(QTime(0, 0, 5)));
    QCOMPARE(store.value(QStringLiteral("DefaultRaceSettings/DefaultFuelSettings/refuelInterval")),
             QVariant(QTime(0, 0, 0, 500)));
}

void tst_CRaceSettings::otherGroupsOfTheStoreStay()
{
    {
        QSettings store(QStringLiteral("Tornik"), QStringLiteral("Tornik"));
        store.setValue(QStringLiteral("sound/enhanced"), true);
    }
    CRaceSettings().writeDefaults();
    const QSettings store(QStringLiteral("Tornik"), QStringLiteral("Tornik"));
    QVERIFY(store.value(QStringLiteral("sound/enhanced")).toBool());
}

void tst_CRaceSettings::unreadableValuesGiveTheirDefaults_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a word") << QByteArray("viel");
    QTest::newRow("a list") << QByteArray("1, 2, 3");
    QTest::newRow("beyond every number") << QByteArray("9e999");
    QTest::newRow("no number") << QByteArray("nan");
    QTest::newRow("an invalid variant") << QByteArray("@Invalid()");
    QTest::newRow("a cut variant") << QByteArray("@Variant(\\0\\0\\0\\xf)");
    QTest::newRow("an invalid time") << QByteArray("@Variant(\\0\\0\\0\\xf\\xff\\xff\\xff\\xff)");
    QTest::newRow("a negative time") << QByteArray("@Variant(\\0\\0\\0\\xf\\x80\\0\\0\\0)");
    QTest::newRow("a time of another day") << QByteArray("@Variant(\\0\\0\\0\\xf\\x7f\\xff\\xff\\xff)");
    QTest::newRow("bytes") << QByteArray("@ByteArray(\\0\\1\\2)");
}

void tst_CRaceSettings::unreadableValuesGiveTheirDefaults()
{
    QFETCH(QByteArray, value);
    unusualSettings().writeToFile(m_file);
    QByteArray spoilt;
    for (const QByteArray& line : fileContent(m_file).split('\n')) {
        const int equals = line.indexOf('=');
        spoilt += equals < 0 ? line : line.left(equals + 1) + value;
        spoilt += '\n';
    }
    writeFile(m_file, spoilt);
    CRaceSettings settings;
    settings.readFromFile(m_file);

    const CRaceSettings expected = freshSettings();
    QCOMPARE(settings.startType(), expected.startType());
    QCOMPARE(settings.startLightsMinDelay(), expected.startLightsMinDelay());
    QCOMPARE(settings.numberOfLaps(), expected.numberOfLaps());
    QCOMPARE(settings.driver(0).id(), -1);
    QCOMPARE(settings.car(7).id(), -1);
    QCOMPARE(settings.fuelSettings().tankSize(), 20.0);
    QCOMPARE(settings.fuelSettings().emptyFuelStutterFrequency(), 5);
    QVERIFY(settings.startDelay().isValid());
    QVERIFY(settings.fuelSettings().refuelInterval().isValid());
}

void tst_CRaceSettings::valuesOutOfRangeAreTakenAsTheyAre()
{
    writeFile(m_file,
              "[DefaultRaceSettings]\nstartType=17\nendType=-3\nwinningCondition=99\nnumberOfLaps=-1\n"
              "endTime=00:07:30\nDefaultDriverList\\Driver3ID=-5\n");
    CRaceSettings settings;
    settings.readFromFile(m_file);
    QCOMPARE(settings.startType(), 17);
    QCOMPARE(settings.endType(), -3);
    QCOMPARE(settings.winningCondition(), 99);
    QCOMPARE(settings.numberOfLaps(), -1);
    QCOMPARE(settings.driver(2).id(), -5);
    QCOMPARE(settings.endTime(), QTime(0, 7, 30)); // typed by hand
}

void tst_CRaceSettings::aFileKeepsAllItsValues()
{
    const CRaceSettings settings = unusualSettings();
    settings.writeToFile(m_file);
    CRaceSettings read;
    read.readFromFile(m_file);
    QCOMPARE(storedValuesOf(read), storedValuesOf(settings));
}

void tst_CRaceSettings::aFileHasItsKeysAndNoOthers()
{
    CRaceSettings().writeToFile(m_file);
    QStringList keys;
    for (const QByteArray& line : fileContent(m_file).split('\n')) {
        if (line.contains('='))
            keys.append(QString::fromLatin1(line.left(line.indexOf('='))));
    }
    QStringList expected = {"startType",
                            "startDelay",
                            "startLightsMinDelay",
                            "startLightsMaxDelay",
                            "endType",
                            "endTime",
                            "numberOfLaps",
                            "allMaxRounds",
                            "maxRoundsStopCounting",
                            "lapsCountDown",
                            "winningCondition",
                            "winningTargetTime",
                            "numOfWorstLapsToIgnore",
                            "useTargetTime",
                            "redLightsOnRaceStopped",
                            "leavePowerOnWhenRaceStopped"};
    for (int i = 1; i <= 8; ++i)
        expected.append(QStringLiteral("DefaultDriverList\\Driver%1ID").arg(i));
    for (int i = 1; i <= 8; ++i)
        expected.append(QStringLiteral("DefaultCarList\\Car%1ID").arg(i));
    for (const char* key : {"fuelFunction", "maxFuelUsageAmount", "maxFuelUsageTime", "minFuelUsageAmount",
                            "minFuelUsageTime", "refuelAmount", "refuelInterval", "tankSize", "reserveLevel",
                            "emptyFuelReaction", "emptyFuelPenaltyTime", "emptyFuelStutterFrequency"})
        expected.append(QStringLiteral("DefaultFuelSettings\\") + QLatin1String(key));
    expected.append(QStringLiteral("DefaultDataStorage\\monitorDistanceDriven"));
    expected.append(QStringLiteral("DefaultDataStorage\\monitorFastestLap"));
    expected.sort(); // QSettings has an order of its own
    keys.sort();
    QCOMPARE(keys, expected);
    QVERIFY(fileContent(m_file).startsWith("[DefaultRaceSettings]\n"));
}

void tst_CRaceSettings::anUnknownEmptyFuelReactionInAFileIsReadAsZero()
{
    writeFile(m_file, "[DefaultRaceSettings]\nDefaultFuelSettings\\emptyFuelReaction=7\n"
                      "DefaultFuelSettings\\fuelFunction=3\n");
    CRaceSettings settings = unusualSettings();
    settings.readFromFile(m_file);
    QCOMPARE(settings.fuelSettings().emptyFuelReaction(), 0);
    QCOMPARE(settings.fuelSettings().fuelFunction(), 0);
}

void tst_CRaceSettings::aFileThatCannotBeReadGivesAllDefaults_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << m_dir.filePath(QStringLiteral("missing.rsf"));
    QTest::newRow("a directory") << m_dir.path();
    QTest::newRow("no name") << QString();
    const QString binary = m_dir.filePath(QStringLiteral("binary.rsf"));
    writeFile(binary, QByteArray::fromHex("00ff5b5d3d3d00").repeated(200));
    QTest::newRow("binary") << binary;
    const QString empty = m_dir.filePath(QStringLiteral("empty.rsf"));
    writeFile(empty, QByteArray());
    QTest::newRow("empty") << empty;
}

void tst_CRaceSettings::aFileThatCannotBeReadGivesAllDefaults()
{
    QFETCH(QString, name);
    CRaceSettings settings = unusualSettings();
    settings.readFromFile(name);
    QCOMPARE(storedValuesOf(settings), storedValuesOf(freshSettings()));
    QCOMPARE(settings.numberOfLaps(), 10);
}

void tst_CRaceSettings::aFileThatCannotBeWrittenIsSilent()
{
    writeFile(m_file, "a file, and no directory");
    const QString below = m_file + QStringLiteral("/race.rsf");
    unusualSettings().writeToFile(below);
    QVERIFY(!QFile::exists(below));
    QCOMPARE(fileContent(m_file), QByteArray("a file, and no directory"));
}

void tst_CRaceSettings::textOfNewSettings()
{
    QCOMPARE(CRaceSettings().toText(),
             QStringLiteral("0 00:00:05 500 2500 0 00:05:00 25 0 0 0 0 00:00:10 0 0 "
                            "0 5 00:00:04 1 00:00:07 20 00:00:00 100 20 0 00:00:05 5 0 0 0 0"));
}

void tst_CRaceSettings::textOfUnusualSettings()
{
    QCOMPARE(unusualSettings().toText(), UnusualText);
}

void tst_CRaceSettings::aStartDelayLosesItsMillisecondsInTheText()
{
    CRaceSettings settings;
    settings.setStartDelay(QTime(0, 0, 5, 250));
    QVERIFY(settings.toText().startsWith(QStringLiteral("0 00:00:05 500 ")));
    CRaceSettings read;
    read.fromText(settings.toText());
    QCOMPARE(read.startDelay(), QTime(0, 0, 5));
}

void tst_CRaceSettings::anInvalidTimeKeepsItsPlaceInTheText()
{
    CRaceSettings settings;
    settings.setStartDelay(QTime());
    QVERIFY(settings.toText().startsWith(QStringLiteral("0 00:00:00 500 ")));
}

void tst_CRaceSettings::numbersInTheText_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("word");
    QTest::newRow("whole") << 3.0 << QStringLiteral("3");
    QTest::newRow("fraction") << 0.125 << QStringLiteral("0.125");
    QTest::newRow("six digits") << 1.0 / 3.0 << QStringLiteral("0.333333");
    QTest::newRow("large") << 1e7 << QStringLiteral("1e+07");
}

void tst_CRaceSettings::numbersInTheText()
{
    QFETCH(double, amount);
    QFETCH(QString, word);
    CRaceSettings settings;
    CFuelSettings fuel;
    fuel.setMaxFuelUsageAmount(amount);
    settings.setFuelSettings(fuel);
    QCOMPARE(settings.toText().split(QLatin1Char(' ')).at(15), word);
    CRaceSettings read;
    read.fromText(settings.toText());
    QCOMPARE(read.fuelSettings().maxFuelUsageAmount(), word.toDouble());
}

void tst_CRaceSettings::textKeepsAllItsValues()
{
    CRaceSettings settings;
    settings.fromText(UnusualText);
    QCOMPARE(settings.toText(), UnusualText);
    QCOMPARE(settings.startLightsMaxDelay(), 4000000000U);
    QCOMPARE(settings.numOfWorstLapsToIgnore(), 3);
    QVERIFY(settings.useTargetTime());
    QCOMPARE(settings.fuelSettings().maxFuelUsageAmount(), 4.25);
    QCOMPARE(settings.fuelSettings().minFuelUsageTime(), QTime(0, 0, 12));
    QVERIFY(settings.leavePowerOnWhenRaceStopped());
}

void tst_CRaceSettings::anyNumberButZeroIsTrueInTheText()
{
    CRaceSettings settings;
    settings.fromText(QStringLiteral("0 00:00:05 500 2500 0 00:05:00 25 2 -1 0"));
    QVERIFY(settings.allMaxRounds());
    QVERIFY(settings.maxRoundsStopCounting());
    QVERIFY(!settings.lapsCountDown());
}

void tst_CRaceSettings::unreadableWordsLeaveTheirValuesAlone()
{
    CRaceSettings settings = unusualSettings();
    settings.fromText(QStringLiteral("x 99:99:99 -1 y 1 00:02:00"));
    QCOMPARE(settings.startType(), 1);
    QCOMPARE(settings.startDelay(), QTime(0, 0, 12));
    QCOMPARE(settings.startLightsMinDelay(), 700U);
    QCOMPARE(settings.startLightsMaxDelay(), 4000000000U);
    QCOMPARE(settings.endType(), 1);
    QCOMPARE(settings.endTime(), QTime(0, 2));
    QCOMPARE(settings.numberOfLaps(), 42);
    QVERIFY(settings.leavePowerOnWhenRaceStopped());
}

void tst_CRaceSettings::aTextCutAnywhereIsRead()
{
    const CRaceSettings fresh;
    for (int size = 0; size < UnusualText.size(); ++size) {
        CRaceSettings settings;
        settings.fromText(UnusualText.left(size));
        QCOMPARE(settings.leavePowerOnWhenRaceStopped(), fresh.leavePowerOnWhenRaceStopped());
        QCOMPARE(settings.toText().split(QLatin1Char(' ')).size(), 30);
    }
}

void tst_CRaceSettings::streamFormByteForByte()
{
    const CRaceSettings settings = unusualSettings();
    StreamBytes expected;
    expected.int32(1).time(12000).int32(700).int32(qint32(4000000000U)).int32(2).time(5400000).int32(42);
    expected.boolean(true).boolean(true).boolean(true).int32(7).time(8000);
    expected.boolean(true).int32(3);
    for (int i = 0; i < 8; ++i)
        expected.text(QStringLiteral("Fahrer %1").arg(i)).int32(100 + i);
    for (int i = 0; i < 8; ++i)
        expected.raw(streamForm(settings.car(i)));
    expected.raw(streamForm(settings.raceway()));
    expected.int16(2).time(1000).real(2.5).real(0.5).time(12000).real(4.25).time(3000);
    expected.real(80.0).real(8.0).int16(3).time(60000).int32(9);
    expected.boolean(true).boolean(true).boolean(true).boolean(true);
    QCOMPARE(streamForm(settings), expected.bytes());
}

void tst_CRaceSettings::streamKeepsAllFields()
{
    const QByteArray bytes = streamForm(unusualSettings());
    const CRaceSettings copy = fromStreamForm<CRaceSettings>(bytes);
    QCOMPARE(copy.toText(), UnusualText);
    QCOMPARE(copy.driver(3).name(), QStringLiteral("Fahrer 3"));
    QCOMPARE(copy.car(3).name(), QStringLiteral("Auto 3"));
    QCOMPARE(copy.raceway().name, QStringLiteral("Keller"));
    QCOMPARE(copy.raceway().tracks.size(), 3);
    QCOMPARE(streamForm(copy), bytes);
}

void tst_CRaceSettings::aStreamCutAnywhereIsRead()
{
    const QByteArray bytes = streamForm(unusualSettings());
    for (int size = 0; size < bytes.size(); ++size) {
        const CRaceSettings settings = fromStreamForm<CRaceSettings>(bytes.left(size));
        QVERIFY(!settings.leavePowerOnWhenRaceStopped());
    }
}

void tst_CRaceSettings::aTankAsLargeAsItsReserveIsOnReserveFromTheFirstLapOn()
{
    const CFuelSettings fuel = freshSettings().fuelSettings();
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(fuel.tankSize(), fuel.reserveLevel());
    tank.setMinUsage(fuel.minFuelUsageAmount(), quint32(fuel.minFuelUsageTime().msecsSinceStartOfDay()));
    tank.setMaxUsage(fuel.maxFuelUsageAmount(), quint32(fuel.maxFuelUsageTime().msecsSinceStartOfDay()));
    tank.addFuel(fuel.tankSize());
    QCOMPARE(tank.level(), 20.0);
    QCOMPARE(tank.consumeLap(60000), CFuelTank::OnReserve);
}

QTEST_GUILESS_MAIN(tst_CRaceSettings)
#include "tst_CRaceSettings.moc"
