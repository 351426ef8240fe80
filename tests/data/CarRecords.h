#ifndef TORNIK_TESTS_DATA_CARRECORDS_H
#define TORNIK_TESTS_DATA_CARRECORDS_H

#include "data/CCar.h"
#include "support/DatabaseFile.h"

#include <QTest>

/** The first line of a file of cars. */
inline const QString CurrentHeader = QStringLiteral(
    "Fahrzeug Name;Hersteller Original;Typ Original;Startnummer;Hersteller Model;Klassifizierung;"
    "Massstab 1/X;Chassis;Kommentar;Tankgroesse;Reservelevel;Max. Verbrauch;Min. Verbrauch;"
    "gefahrene Strecke (cm);Freifeld 0;Freifeld 1;Freifeld 2;Freifeld 3;Freifeld 4;Freifeld 5;"
    "Freifeld 6;Freifeld 7;Freifeld 8;Freifeld 9");

inline CCar namedCar(const QString& name)
{
    CCar car;
    car.setName(name);
    return car;
}

/** A car in which no two values are the same. */
inline CCar fullCar()
{
    CCar car = namedCar("Rot 'n' Grün");
    car.setOriginalManufacturer("Werk");
    car.setOriginalType("GT");
    car.setStartNumber("007");
    car.setModelManufacturer("Müller & Söhne");
    car.setSpeedClass(3);
    car.setScale(32);
    car.setChassis("Messing");
    car.setComment("läuft → gut");
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(80.5, 12.25);
    tank.setMaxUsage(4.5, 1000);
    tank.setMinUsage(1.125, 10000);
    car.setFuelTank(tank);
    car.setDistanceDriven(123456);
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        car.setFreeField(i, QString("Feld %1").arg(i));
    return car;
}

inline void compareTanks(const CFuelTank& actual, const CFuelTank& expected)
{
    QCOMPARE(actual.tankSize(), expected.tankSize());
    QCOMPARE(actual.reserveLevel(), expected.reserveLevel());
    QCOMPARE(actual.level(), expected.level());
    QCOMPARE(actual.maxUsageAmount(), expected.maxUsageAmount());
    QCOMPARE(actual.minUsageAmount(), expected.minUsageAmount());
    QCOMPARE(actual.maxUsageTime(), 1000U);
    QCOMPARE(actual.minUsageTime(), 10000U);
}

inline void compareCars(const CCar& actual, const CCar& expected)
{
    QCOMPARE(actual.name(), expected.name());
    QCOMPARE(actual.originalManufacturer(), expected.originalManufacturer());
    QCOMPARE(actual.originalType(), expected.originalType());
    QCOMPARE(actual.startNumber(), expected.startNumber());
    QCOMPARE(actual.modelManufacturer(), expected.modelManufacturer());
    QCOMPARE(actual.speedClass(), expected.speedClass());
    QCOMPARE(actual.scale(), expected.scale());
    QCOMPARE(actual.chassis(), expected.chassis());
    QCOMPARE(actual.comment(), expected.comment());
    QCOMPARE(actual.distanceDriven(), expected.distanceDriven());
    compareTanks(actual.fuelTank(), expected.fuelTank());
    for (int i = 0; i < CCar::NumberOfFreeFields; ++i)
        QCOMPARE(actual.freeField(i), expected.freeField(i));
}

/** @return whether the file could be written with these lines. */
inline bool writeLines(const QString& fileName, const QStringList& lines)
{
    return writeContent(fileName, lines.join('\n').toUtf8() + '\n');
}

#endif
