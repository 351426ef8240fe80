#include "race/CFuelSettings.h"
#include "support/StreamBytes.h"

#include <QTest>

namespace {

/** Every field differs from its default. */
CFuelSettings unusualSettings()
{
    CFuelSettings settings;
    settings.setFuelFunction(CFuelSettings::FuelSameForAll);
    settings.setRefuelInterval(QTime(0, 0, 0, 250));
    settings.setRefuelAmount(2.5);
    settings.setMinFuelUsageAmount(0.5);
    settings.setMinFuelUsageTime(QTime(0, 0, 12));
    settings.setMaxFuelUsageAmount(4.25);
    settings.setMaxFuelUsageTime(QTime(0, 0, 3, 125));
    settings.setTankSize(80.0);
    settings.setReserveLevel(8.0);
    settings.setEmptyFuelReaction(3);
    settings.setEmptyFuelPenaltyTime(QTime(0, 1));
    settings.setEmptyFuelStutterFrequency(9);
    return settings;
}

} // namespace

class tst_CFuelSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newSettingsHaveTheDefaults();
    void keepsWhatIsSet();
    void anUnknownFuelFunctionBecomesZero_data();
    void anUnknownFuelFunctionBecomesZero();
    void anUnknownEmptyFuelReactionBecomesZero_data();
    void anUnknownEmptyFuelReactionBecomesZero();
    void streamFormByteForByte();
    void streamKeepsAllFields();
    void unknownValuesInAStreamBecomeZero();
    void anEmptyStreamGivesZeros();
};

void tst_CFuelSettings::newSettingsHaveTheDefaults()
{
    const CFuelSettings settings;
    QCOMPARE(settings.fuelFunction(), 0);
    QCOMPARE(settings.refuelInterval(), QTime(0, 0, 0, 500));
    QCOMPARE(settings.refuelAmount(), 20.0);
    QCOMPARE(settings.minFuelUsageAmount(), 1.0);
    QCOMPARE(settings.minFuelUsageTime(), QTime(0, 0, 7, 500));
    QCOMPARE(settings.maxFuelUsageAmount(), 5.0);
    QCOMPARE(settings.maxFuelUsageTime(), QTime(0, 0, 4, 500));
    QCOMPARE(settings.tankSize(), 100.0);
    QCOMPARE(settings.reserveLevel(), 20.0);
    QCOMPARE(settings.emptyFuelReaction(), 0);
    QCOMPARE(settings.emptyFuelPenaltyTime(), QTime(0, 0, 5));
    QCOMPARE(settings.emptyFuelStutterFrequency(), 5);
}

void tst_CFuelSettings::keepsWhatIsSet()
{
    const CFuelSettings settings = unusualSettings();
    QCOMPARE(settings.fuelFunction(), 2);
    QCOMPARE(settings.refuelInterval(), QTime(0, 0, 0, 250));
    QCOMPARE(settings.refuelAmount(), 2.5);
    QCOMPARE(settings.minFuelUsageAmount(), 0.5);
    QCOMPARE(settings.minFuelUsageTime(), QTime(0, 0, 12));
    QCOMPARE(settings.maxFuelUsageAmount(), 4.25);
    QCOMPARE(settings.maxFuelUsageTime(), QTime(0, 0, 3, 125));
    QCOMPARE(settings.tankSize(), 80.0);
    QCOMPARE(settings.reserveLevel(), 8.0);
    QCOMPARE(settings.emptyFuelReaction(), 3);
    QCOMPARE(settings.emptyFuelPenaltyTime(), QTime(0, 1));
    QCOMPARE(settings.emptyFuelStutterFrequency(), 9);
}

void tst_CFuelSettings::anUnknownFuelFunctionBecomesZero_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("kept");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("2") << 2 << 2;
    QTest::newRow("3") << 3 << 0;
    QTest::newRow("-1") << -1 << 0;
    QTest::newRow("65536") << 65536 << 0;
}

void tst_CFuelSettings::anUnknownFuelFunctionBecomesZero()
{
    QFETCH(int, given);
    QFETCH(int, kept);
    CFuelSettings settings = unusualSettings();
    settings.setFuelFunction(given);
    QCOMPARE(settings.fuelFunction(), kept);
}

void tst_CFuelSettings::anUnknownEmptyFuelReactionBecomesZero_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("kept");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("2") << 2 << 2;
    QTest::newRow("3") << 3 << 3;
    QTest::newRow("4") << 4 << 0;
    QTest::newRow("-1") << -1 << 0;
}

void tst_CFuelSettings::anUnknownEmptyFuelReactionBecomesZero()
{
    QFETCH(int, given);
    QFETCH(int, kept);
    CFuelSettings settings = unusualSettings();
    settings.setEmptyFuelReaction(given);
    QCOMPARE(settings.emptyFuelReaction(), kept);
}

void tst_CFuelSettings::streamFormByteForByte()
{
    StreamBytes expected;
    expected.int16(2).time(250).real(2.5).real(0.5).time(12000).real(4.25).time(3125);
    expected.real(80.0).real(8.0).int16(3).time(60000).int32(9);
    QCOMPARE(streamForm(unusualSettings()), expected.bytes());
}

void tst_CFuelSettings::streamKeepsAllFields()
{
    const QByteArray bytes = streamForm(unusualSettings());
    const CFuelSettings copy = fromStreamForm<CFuelSettings>(bytes);
    QCOMPARE(copy.fuelFunction(), 2);
    QCOMPARE(copy.maxFuelUsageTime(), QTime(0, 0, 3, 125));
    QCOMPARE(copy.emptyFuelStutterFrequency(), 9);
    QCOMPARE(streamForm(copy), bytes);
}

void tst_CFuelSettings::unknownValuesInAStreamBecomeZero()
{
    QByteArray bytes = streamForm(unusualSettings());
    bytes.replace(0, 2, StreamBytes().int16(7).bytes());
    bytes.replace(bytes.size() - 10, 2, StreamBytes().int16(-2).bytes());
    const CFuelSettings settings = fromStreamForm<CFuelSettings>(bytes);
    QCOMPARE(settings.fuelFunction(), 0);
    QCOMPARE(settings.emptyFuelReaction(), 0);
    QCOMPARE(settings.emptyFuelStutterFrequency(), 9);
}

void tst_CFuelSettings::anEmptyStreamGivesZeros()
{
    const CFuelSettings settings = fromStreamForm<CFuelSettings>(QByteArray());
    QCOMPARE(settings.fuelFunction(), 0);
    QCOMPARE(settings.tankSize(), 0.0);
    QCOMPARE(settings.emptyFuelStutterFrequency(), 0);
}

QTEST_APPLESS_MAIN(tst_CFuelSettings)
#include "tst_CFuelSettings.moc"
