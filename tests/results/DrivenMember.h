#ifndef TORNIK_TESTS_RESULTS_DRIVENMEMBER_H
#define TORNIK_TESTS_RESULTS_DRIVENMEMBER_H

#include "io/PortIds.h"
#include "race/CRaceMember.h"

/** A sensor event in which one sensor is closed. */
inline QBitArray closedSensor(int portId)
{
    QBitArray sensors(PortId::Count);
    sensors.setBit(portId);
    return sensors;
}

/** A member that has driven laps of these milliseconds; each lap's sectors are a tenth, two tenths, the rest.
 */
inline CRaceMember drivenMember(const QVector<int>& lapTimes, const QString& driverName = "Anna",
                                const QString& carName = "Blitz")
{
    CDriver driver;
    driver.setName(driverName);
    CCar car;
    car.setName(carName);
    CRaceMember member(CRacewayTrack(), 0);
    member.setDriver(driver);
    member.setCar(car);
    member.setStartSensorPin(PortId::lapSensor(0));
    member.setEndSensorPin(PortId::lapSensor(0));
    member.setSector2Pin(PortId::sector2Sensor(0));
    member.setSector3Pin(PortId::sector3Sensor(0));

    quint32 time = 1000;
    member.processSensors(closedSensor(PortId::lapSensor(0)), time);
    for (const int lapTime : lapTimes) {
        member.processSensors(closedSensor(PortId::sector2Sensor(0)), time + quint32(lapTime / 10));
        member.processSensors(closedSensor(PortId::sector3Sensor(0)), time + quint32(lapTime / 10 * 3));
        time += quint32(lapTime);
        member.processSensors(closedSensor(PortId::lapSensor(0)), time);
    }
    return member;
}

#endif
