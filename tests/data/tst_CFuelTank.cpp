#include "data/CFuelTank.h"
#include "support/StreamBytes.h"

#include <QTest>

#include <limits>

namespace {

CFuelTank tankWith(double size, double reserve, double level)
{
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(size, reserve);
    tank.setLevel(level);
    return tank;
}

} // namespace

class tst_CFuelTank : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewTankHasTheDefaults();
    void theReserveIsCappedToTheSize();
    void aLapOfSevenSecondsTakesOneAndAHalf();
    void aLapAtTheBoundsTakesTheAmountsOfTheBounds();
    void consumption_data();
    void consumption();
    void aLevelEqualToTheReserveIsNotOnReserve();
    void classification_data();
    void classification();
    void disabledConsumptionStillClassifies();
    void addFuelStopsAtTheSize();
    void percent_data();
    void percent();
    void setPercent_data();
    void setPercent();
    void isEmptyOnlyAtExactlyZero();
    void streamFormByteForByte();
    void streamKeepsAllFields();
    void anEmptyStreamGivesZeros();
};

void tst_CFuelTank::aNewTankHasTheDefaults()
{
    const CFuelTank tank;
    QCOMPARE(tank.tankSize(), 100.0);
    QCOMPARE(tank.reserveLevel(), 15.0);
    QCOMPARE(tank.level(), 100.0);
    QCOMPARE(tank.maxUsageAmount(), 5.0);
    QCOMPARE(tank.minUsageAmount(), 1.0);
    QCOMPARE(tank.maxUsageTime(), 1000U);
    QCOMPARE(tank.minUsageTime(), 5000U);
    QVERIFY(tank.consumptionEnabled());
}

void tst_CFuelTank::theReserveIsCappedToTheSize()
{
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(40.0, 50.0);
    QCOMPARE(tank.tankSize(), 40.0);
    QCOMPARE(tank.reserveLevel(), 40.0);
    tank.setTankSizeAndReserveLevel(40.0, 8.0);
    QCOMPARE(tank.reserveLevel(), 8.0);
    QCOMPARE(tank.level(), 100.0);
}

void tst_CFuelTank::aLapOfSevenSecondsTakesOneAndAHalf()
{
    CFuelTank tank;
    tank.setMinUsage(1.0, 8000);
    tank.setMaxUsage(2.0, 6000);
    tank.consumeLap(7000);
    QCOMPARE(tank.level(), 98.5);
}

void tst_CFuelTank::aLapAtTheBoundsTakesTheAmountsOfTheBounds()
{
    CFuelTank fast;
    fast.consumeLap(fast.maxUsageTime());
    QCOMPARE(fast.level(), 95.0);
    CFuelTank slow;
    slow.consumeLap(slow.minUsageTime());
    QCOMPARE(slow.level(), 99.0);
}

void tst_CFuelTank::consumption_data()
{
    QTest::addColumn<double>("maxAmount");
    QTest::addColumn<quint32>("maxTime");
    QTest::addColumn<double>("minAmount");
    QTest::addColumn<quint32>("minTime");
    QTest::addColumn<quint32>("lapTime");
    QTest::addColumn<double>("usage");

    QTest::newRow("no time at all") << 5.0 << 1000U << 1.0 << 5000U << 0U << 5.0;
    QTest::newRow("faster than the fast lap") << 5.0 << 1000U << 1.0 << 5000U << 999U << 5.0;
    QTest::newRow("a quarter of the way") << 5.0 << 1000U << 1.0 << 5000U << 2000U << 4.0;
    QTest::newRow("half way") << 5.0 << 1000U << 1.0 << 5000U << 3000U << 3.0;
    QTest::newRow("slower than the slow lap") << 5.0 << 1000U << 1.0 << 5000U << 5001U << 1.0;
    QTest::newRow("the longest time") << 5.0 << 1000U << 1.0 << 5000U << 0xffffffffU << 1.0;
    QTest::newRow("both amounts equal") << 3.0 << 1000U << 3.0 << 5000U << 2500U << 3.0;
    QTest::newRow("amounts the wrong way round") << 1.0 << 1000U << 5.0 << 5000U << 2500U << 1.0;
    QTest::newRow("both times equal, fast") << 5.0 << 3000U << 1.0 << 3000U << 3000U << 5.0;
    QTest::newRow("both times equal, slow") << 5.0 << 3000U << 1.0 << 3000U << 3001U << 1.0;
    QTest::newRow("times the wrong way round") << 5.0 << 5000U << 1.0 << 1000U << 2500U << 5.0;
    QTest::newRow("times the wrong way round, slow") << 5.0 << 5000U << 1.0 << 1000U << 5001U << 1.0;
    QTest::newRow("times above the signed range")
        << 5.0 << 0x80000000U << 1.0 << 0xc0000000U << 0xa0000000U << 3.0;
}

void tst_CFuelTank::consumption()
{
    QFETCH(double, maxAmount);
    QFETCH(quint32, maxTime);
    QFETCH(double, minAmount);
    QFETCH(quint32, minTime);
    QFETCH(quint32, lapTime);
    QFETCH(double, usage);

    CFuelTank tank;
    tank.setMaxUsage(maxAmount, maxTime);
    tank.setMinUsage(minAmount, minTime);
    QCOMPARE(tank.consumeLap(lapTime), CFuelTank::Enough);
    QCOMPARE(tank.level(), 100.0 - usage);
}

void tst_CFuelTank::aLevelEqualToTheReserveIsNotOnReserve()
{
    CFuelTank tank = tankWith(100.0, 15.0, 20.0);
    QCOMPARE(tank.consumeLap(1000), CFuelTank::Enough);
    QCOMPARE(tank.level(), 15.0);
    QCOMPARE(tank.consumeLap(1000), CFuelTank::OnReserve);
}

void tst_CFuelTank::classification_data()
{
    QTest::addColumn<double>("reserve");
    QTest::addColumn<double>("before");
    QTest::addColumn<int>("result");
    QTest::addColumn<double>("after");

    QTest::newRow("full") << 15.0 << 100.0 << 1 << 95.0;
    QTest::newRow("just below the reserve") << 15.0 << 19.5 << 2 << 14.5;
    QTest::newRow("less than a lap left") << 15.0 << 4.5 << 3 << 0.0;
    QTest::newRow("just one lap left") << 15.0 << 5.0 << 3 << 0.0;
    QTest::newRow("a drop left") << 15.0 << 5.25 << 2 << 0.25;
    QTest::newRow("already empty") << 15.0 << 0.0 << 3 << 0.0;
    QTest::newRow("empty, but no reserve at all") << 0.0 << 5.0 << 1 << 0.0;
}

void tst_CFuelTank::classification()
{
    QFETCH(double, reserve);
    QFETCH(double, before);
    QFETCH(int, result);
    QFETCH(double, after);

    CFuelTank tank = tankWith(100.0, reserve, before);
    QCOMPARE(int(tank.consumeLap(1000)), result);
    QCOMPARE(tank.level(), after);
}

void tst_CFuelTank::disabledConsumptionStillClassifies()
{
    CFuelTank tank = tankWith(100.0, 15.0, 10.0);
    tank.setConsumptionEnabled(false);
    QCOMPARE(tank.consumeLap(1000), CFuelTank::OnReserve);
    QCOMPARE(tank.level(), 10.0);
    tank.setLevel(0.0);
    QCOMPARE(tank.consumeLap(1000), CFuelTank::Empty);
    tank.setLevel(15.0);
    QCOMPARE(tank.consumeLap(1000), CFuelTank::Enough);
}

void tst_CFuelTank::addFuelStopsAtTheSize()
{
    CFuelTank tank = tankWith(100.0, 15.0, 50.0);
    tank.addFuel(20.0);
    QCOMPARE(tank.level(), 70.0);
    tank.addFuel(31.0);
    QCOMPARE(tank.level(), 100.0);
}

void tst_CFuelTank::percent_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("level");
    QTest::addColumn<int>("percent");

    QTest::newRow("full") << 100.0 << 100.0 << 100;
    QTest::newRow("cut, not rounded") << 100.0 << 99.9 << 99;
    QTest::newRow("below one percent") << 100.0 << 0.9 << 0;
    QTest::newRow("another size") << 40.0 << 10.0 << 25;
    QTest::newRow("empty") << 100.0 << 0.0 << 0;
    QTest::newRow("more than the size holds") << 20.0 << 100.0 << 500;
    QTest::newRow("a tank of no size, empty") << 0.0 << 0.0 << 0;
    QTest::newRow("a tank of no size, not empty") << 0.0 << 5.0 << 0;
    QTest::newRow("no number") << 100.0 << std::numeric_limits<double>::quiet_NaN() << 0;
    QTest::newRow("beyond an int") << 1e-9 << 1e9 << std::numeric_limits<int>::max();
}

void tst_CFuelTank::percent()
{
    QFETCH(double, size);
    QFETCH(double, level);
    QFETCH(int, percent);
    QCOMPARE(tankWith(size, 0.0, level).percent(), percent);
}

void tst_CFuelTank::setPercent_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<double>("level");

    QTest::newRow("none") << 0 << 0.0;
    QTest::newRow("a quarter") << 25 << 10.0;
    QTest::newRow("all") << 100 << 40.0;
    QTest::newRow("too much is ignored") << 101 << 7.0;
    QTest::newRow("far too much is ignored") << 100000 << 7.0;
}

void tst_CFuelTank::setPercent()
{
    QFETCH(int, percent);
    QFETCH(double, level);
    CFuelTank tank = tankWith(40.0, 0.0, 7.0);
    tank.setPercent(percent);
    QCOMPARE(tank.level(), level);
}

void tst_CFuelTank::isEmptyOnlyAtExactlyZero()
{
    QVERIFY(tankWith(100.0, 15.0, 0.0).isEmpty());
    QVERIFY(!tankWith(100.0, 15.0, 1e-12).isEmpty());
}

void tst_CFuelTank::streamFormByteForByte()
{
    CFuelTank tank = tankWith(80.0, 10.0, 40.0);
    tank.setMaxUsage(4.0, 4500);
    tank.setMinUsage(0.5, 7500);
    QCOMPARE(streamForm(tank), QByteArray::fromHex("4054000000000000"
                                                   "4024000000000000"
                                                   "4044000000000000"
                                                   "4010000000000000"
                                                   "3fe0000000000000"
                                                   "00001194"
                                                   "00001d4c"
                                                   "01"));
}

void tst_CFuelTank::streamKeepsAllFields()
{
    CFuelTank tank = tankWith(80.5, 10.25, 40.125);
    tank.setMaxUsage(4.5, 4500);
    tank.setMinUsage(0.75, 7500);
    tank.setConsumptionEnabled(false);
    const CFuelTank copy = fromStreamForm<CFuelTank>(streamForm(tank));
    QCOMPARE(copy.tankSize(), 80.5);
    QCOMPARE(copy.reserveLevel(), 10.25);
    QCOMPARE(copy.level(), 40.125);
    QCOMPARE(copy.maxUsageAmount(), 4.5);
    QCOMPARE(copy.minUsageAmount(), 0.75);
    QCOMPARE(copy.maxUsageTime(), 4500U);
    QCOMPARE(copy.minUsageTime(), 7500U);
    QVERIFY(!copy.consumptionEnabled());
}

void tst_CFuelTank::anEmptyStreamGivesZeros()
{
    const CFuelTank tank = fromStreamForm<CFuelTank>(QByteArray());
    QCOMPARE(tank.tankSize(), 0.0);
    QCOMPARE(tank.level(), 0.0);
    QCOMPARE(tank.minUsageTime(), 0U);
    QVERIFY(!tank.consumptionEnabled());
    QCOMPARE(tank.percent(), 0);
}

QTEST_APPLESS_MAIN(tst_CFuelTank)
#include "tst_CFuelTank.moc"
