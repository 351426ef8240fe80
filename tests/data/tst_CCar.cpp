#include "data/CCar.h"
#include "support/StreamBytes.h"

#include <QTest>

namespace {

/** Every field differs from its default and from every other field. */
CCar unusualCar()
{
    CCar car;
    car.setName(QStringLiteral("Käfer"));
    car.setOriginalManufacturer(QStringLiteral("VW"));
    car.setOriginalType(QStringLiteral("1303"));
    car.setStartNumber(QStringLiteral("53"));
    car.setModelManufacturer(QStringLiteral("Modellbau"));
    car.setSpeedClass(4);
    car.setScale(32);
    car.setId(77);
    car.setChassis(QStringLiteral("A1"));
    car.setComment(QStringLiteral("grün"));
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(60.0, 6.0);
    tank.setLevel(30.0);
    car.setFuelTank(tank);
    car.setDistanceDriven(123456);
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        car.setFreeField(i, QStringLiteral("Feld %1").arg(i));
    return car;
}

StreamBytes streamBytesOf(const CFuelTank& tank)
{
    StreamBytes bytes;
    bytes.real(tank.tankSize()).real(tank.reserveLevel()).real(tank.level());
    bytes.real(tank.maxUsageAmount()).real(tank.minUsageAmount());
    bytes.int32(qint32(tank.maxUsageTime())).int32(qint32(tank.minUsageTime()));
    return bytes.boolean(tank.consumptionEnabled());
}

} // namespace

class tst_CCar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewCarHasTheDefaults();
    void keepsWhatIsSet();
    void freeFieldsOutsideTheTenAreIgnored();
    void fuelPercentOfTheTank();
    void fuelPercentAbove100IsIgnored();
    void addFuelAndConsumeLapReachTheTank();
    void streamFormOfANewCar();
    void streamFormHasTheScaleBeforeTheClass();
    void streamKeepsAllFields();
    void aStreamCutAnywhereIsRead();
};

void tst_CCar::aNewCarHasTheDefaults()
{
    const CCar car;
    QCOMPARE(car.name(), QString());
    QCOMPARE(car.originalManufacturer(), QStringLiteral("unknown"));
    QCOMPARE(car.originalType(), QStringLiteral("unknown"));
    QCOMPARE(car.startNumber(), QString());
    QCOMPARE(car.modelManufacturer(), QStringLiteral("unknown"));
    QCOMPARE(car.speedClass(), 0);
    QCOMPARE(car.scale(), 24);
    QCOMPARE(car.id(), -1);
    QCOMPARE(car.chassis(), QStringLiteral("unknown"));
    QCOMPARE(car.comment(), QString());
    QCOMPARE(car.fuelTank().tankSize(), 100.0);
    QCOMPARE(car.distanceDriven(), 0);
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        QCOMPARE(car.freeField(i), QString());
}

void tst_CCar::keepsWhatIsSet()
{
    const CCar car = unusualCar();
    QCOMPARE(car.name(), QStringLiteral("Käfer"));
    QCOMPARE(car.originalManufacturer(), QStringLiteral("VW"));
    QCOMPARE(car.originalType(), QStringLiteral("1303"));
    QCOMPARE(car.startNumber(), QStringLiteral("53"));
    QCOMPARE(car.modelManufacturer(), QStringLiteral("Modellbau"));
    QCOMPARE(car.speedClass(), 4);
    QCOMPARE(car.scale(), 32);
    QCOMPARE(car.id(), 77);
    QCOMPARE(car.chassis(), QStringLiteral("A1"));
    QCOMPARE(car.comment(), QStringLiteral("grün"));
    QCOMPARE(car.fuelTank().tankSize(), 60.0);
    QCOMPARE(car.distanceDriven(), 123456);
    QCOMPARE(car.freeField(0), QStringLiteral("Feld 0"));
    QCOMPARE(car.freeField(9), QStringLiteral("Feld 9"));
}

void tst_CCar::freeFieldsOutsideTheTenAreIgnored()
{
    CCar car = unusualCar();
    const QByteArray before = streamForm(car);
    car.setFreeField(-1, QStringLiteral("x"));
    car.setFreeField(10, QStringLiteral("x"));
    QCOMPARE(streamForm(car), before);
    QCOMPARE(car.freeField(-1), QString());
    QCOMPARE(car.freeField(10), QString());
}

void tst_CCar::fuelPercentOfTheTank()
{
    CCar car = unusualCar();
    QCOMPARE(car.fuelPercent(), 50);
    car.setFuelPercent(25);
    QCOMPARE(car.fuelTank().level(), 15.0);
}

void tst_CCar::fuelPercentAbove100IsIgnored()
{
    CCar car = unusualCar();
    car.setFuelPercent(101);
    QCOMPARE(car.fuelPercent(), 50);
    car.setFuelPercent(100);
    QCOMPARE(car.fuelPercent(), 100);
}

void tst_CCar::addFuelAndConsumeLapReachTheTank()
{
    CCar car = unusualCar();
    car.addFuel(12.0);
    QCOMPARE(car.fuelTank().level(), 42.0);
    QCOMPARE(car.consumeLap(1000), CFuelTank::Enough);
    QCOMPARE(car.fuelTank().level(), 37.0);
}

void tst_CCar::streamFormOfANewCar()
{
    StreamBytes expected;
    expected.text(QString()).text("unknown").text("unknown").text(QString()).text("unknown");
    expected.int32(24).int32(0).int32(-1).text("unknown").text(QString());
    expected.raw(streamBytesOf(CFuelTank()).bytes()).int32(0);
    for (int i = 0; i < 10; ++i)
        expected.text(QString());
    QCOMPARE(streamForm(CCar()), expected.bytes());
}

void tst_CCar::streamFormHasTheScaleBeforeTheClass()
{
    const CCar car = unusualCar();
    StreamBytes expected;
    expected.text(QStringLiteral("Käfer")).text("VW").text("1303").text("53").text("Modellbau");
    expected.int32(32).int32(4).int32(77).text("A1").text(QStringLiteral("grün"));
    expected.raw(streamBytesOf(car.fuelTank()).bytes()).int32(123456);
    for (int i = 0; i < 10; ++i)
        expected.text(QStringLiteral("Feld %1").arg(i));
    QCOMPARE(streamForm(car), expected.bytes());
}

void tst_CCar::streamKeepsAllFields()
{
    const QByteArray bytes = streamForm(unusualCar());
    const CCar copy = fromStreamForm<CCar>(bytes);
    QCOMPARE(copy.name(), QStringLiteral("Käfer"));
    QCOMPARE(copy.speedClass(), 4);
    QCOMPARE(copy.scale(), 32);
    QCOMPARE(copy.fuelTank().level(), 30.0);
    QCOMPARE(copy.freeField(9), QStringLiteral("Feld 9"));
    QCOMPARE(streamForm(copy), bytes);
}

void tst_CCar::aStreamCutAnywhereIsRead()
{
    const QByteArray bytes = streamForm(unusualCar());
    for (int size = 0; size < bytes.size(); ++size) {
        const CCar car = fromStreamForm<CCar>(bytes.left(size));
        QCOMPARE(car.freeField(9), QString());
    }
}

QTEST_APPLESS_MAIN(tst_CCar)
#include "tst_CCar.moc"
