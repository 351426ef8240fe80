#ifndef TORNIK_TESTS_FULLRECORDS_H
#define TORNIK_TESTS_FULLRECORDS_H

#include "race/CRaceEvent.h"
#include "race/CRaceSettings.h"
#include "shell/CSettings.h"

/** What the files in tests/data/display-records hold: no two fields of a record have the same value. */
namespace FullRecords {

inline QTime time(int milliseconds)
{
    return QTime::fromMSecsSinceStartOfDay(milliseconds);
}

inline CRaceEvent event()
{
    CRaceEvent event;
    event.type = 0x0a01;
    event.subType = 0x0a02;
    event.track = 0x0a03;
    event.laps = 0x0a04;
    event.lastLapTime = time(0x110001);
    event.sector1Time = time(0x110002);
    event.sector2Time = time(0x110003);
    event.sector3Time = time(0x110004);
    event.split1Time = time(0x110005);
    event.split2Time = time(0x110006);
    event.split3Time = time(0x110007);
    event.bestLapTime = time(0x110008);
    event.status = 0x0a05;
    event.averageLapTime = time(0x110009);
    event.speed = 123.4;
    event.fuelPercent = 0x42;
    event.raceRunning = true;
    return event;
}

inline void setDisplay(CSettings& settings)
{
    settings.setDisplayShowLaps(true);
    settings.setDisplayShowLapTime(false);
    settings.setDisplayShowBestLapTime(true);
    settings.setDisplayShowStatus(true);
    settings.setDisplayShowAverageLapTime(false);
    settings.setDisplayShowSectorTimes(false);
    settings.setDisplayShowIntermediateTimes(false);
    settings.setDisplaySpeed(true);
    settings.setSpeedDisplayType(0x0b01);
    settings.setDisplayFuel(false);
    for (int track = 0; track < CSettings::Tracks; ++track)
        settings.setTrackColor(track, QStringLiteral("#c%1").arg(track));
    settings.setColorBestLapAndStatus(QStringLiteral("#bs"));
    settings.setDisplaySize(0x0b04);
}

inline void setSound(CSettings& settings)
{
    settings.setNewBestLapSound(QStringLiteral("Ñ1"));
    settings.setDriveThroughSound(QStringLiteral("d2"));
    settings.setRedLightSound(QStringLiteral("r3"));
    settings.setGreenLightSound(QStringLiteral("g4"));
    settings.setSoundEnhanced(true);
    settings.setSoundVoiceOutputLaps(true);
    settings.setSoundVoiceOutputLapTime(false);
    settings.setSoundVoiceOutputBestLapTime(true);
}

inline CSettings settings()
{
    CSettings settings;
    setDisplay(settings);
    setSound(settings);
    settings.setStorageApproach(0x0b02);
    settings.setStorageDefaultPath(QStringLiteral("/p"));
    settings.setStorageCsvTimeFormat(0x0b03);
    settings.setPort(0xba98);
    settings.setSendShutdownToClients(true);
    settings.setShutdownWaitTime(0x0b05);
    settings.setClientsMuted(false);
    settings.setQrCodeHandlingEnabled(true);
    settings.setQrCodeHandlingCamera(QStringLiteral("cam"));
    return settings;
}

inline CDriver driver(int i)
{
    CDriver driver;
    driver.setName(QStringLiteral("D%1").arg(i));
    driver.setId(0x1100 + i);
    return driver;
}

inline CFuelTank tank(int i)
{
    CFuelTank tank;
    tank.setTankSizeAndReserveLevel(1000 + i, 500 + i);
    tank.setLevel(250 + i);
    tank.setMaxUsage(20.5 + i, quint32(0x2400 + i));
    tank.setMinUsage(10.25 + i, quint32(0x2500 + i));
    tank.setConsumptionEnabled(i % 2 == 0);
    return tank;
}

inline CCar car(int i)
{
    CCar car;
    car.setName(QStringLiteral("N%1").arg(i));
    car.setOriginalManufacturer(QStringLiteral("M%1").arg(i));
    car.setOriginalType(QStringLiteral("T%1").arg(i));
    car.setStartNumber(QStringLiteral("S%1").arg(i));
    car.setModelManufacturer(QStringLiteral("O%1").arg(i));
    car.setScale(0x2100 + i);
    car.setSpeedClass(0x2200 + i);
    car.setId(0x2300 + i);
    car.setChassis(QStringLiteral("C%1").arg(i));
    car.setComment(QStringLiteral("K%1").arg(i));
    car.setFuelTank(tank(i));
    car.setDistanceDriven(0x2600 + i);
    for (int field = 0; field < CCar::NumberOfFreeFields; ++field)
        car.setFreeField(field, QStringLiteral("F%1%2").arg(i).arg(field));
    return car;
}

inline CRacewayTrack track(int i)
{
    CRacewayTrack track;
    track.portOpenState = 0x4100 + i;
    track.portClosedState = 0x4200 + i;
    track.length = 0x4300 + i;
    track.powerOn = i == 1;
    track.fuelSensorClosedState = 0x4400 + i;
    track.fuelFinishedSensorClosedState = 0x4500 + i;
    track.sector2BeginSensorClosedState = 0x4600 + i;
    track.sector3BeginSensorClosedState = 0x4700 + i;
    track.endSensorClosedState = 0x4800 + i;
    return track;
}

inline CRaceway raceway()
{
    CRaceway raceway(0);
    raceway.name = QStringLiteral("W");
    raceway.scale = 0x3101;
    raceway.portOpenState = 0x3102;
    raceway.chaosButtonState = 0x3103;
    raceway.chaosButtonAvailable = true;
    raceway.pwrOffFeatureAvailable = true;
    raceway.externalLightsAvailable = true;
    raceway.fuelSensorSetup = 0x3104;
    raceway.ioSettings = QByteArray::fromHex("abcdef");
    raceway.minTime = 0x3105;
    raceway.numberOfSectors = 0x3106;
    raceway.startAndEndSensorSeparate = true;
    for (int i = 0; i < 3; ++i)
        raceway.tracks.append(track(i));
    return raceway;
}

inline CFuelSettings fuelSettings()
{
    CFuelSettings fuel;
    fuel.setFuelFunction(2);
    fuel.setRefuelInterval(time(0x330001));
    fuel.setRefuelAmount(3001.5);
    fuel.setMinFuelUsageAmount(3002.5);
    fuel.setMinFuelUsageTime(time(0x330002));
    fuel.setMaxFuelUsageAmount(3003.5);
    fuel.setMaxFuelUsageTime(time(0x330003));
    fuel.setTankSize(3004.5);
    fuel.setReserveLevel(3005.5);
    fuel.setEmptyFuelReaction(3);
    fuel.setEmptyFuelPenaltyTime(time(0x330004));
    fuel.setEmptyFuelStutterFrequency(0x3107);
    return fuel;
}

inline void setRules(CRaceSettings& settings)
{
    settings.setStartType(0x0c01);
    settings.setStartDelay(time(0x220001));
    settings.setStartLightsMinDelay(0x0c02);
    settings.setStartLightsMaxDelay(0xfedc0c03);
    settings.setEndType(0x0c04);
    settings.setEndTime(time(0x220002));
    settings.setNumberOfLaps(0x0c05);
    settings.setAllMaxRounds(true);
    settings.setMaxRoundsStopCounting(false);
    settings.setLapsCountDown(true);
    settings.setWinningCondition(0x0c06);
    settings.setWinningTargetTime(time(0x220003));
    settings.setUseTargetTime(true);
    settings.setNumOfWorstLapsToIgnore(0x0c07);
}

inline CRaceSettings raceSettings()
{
    CRaceSettings settings;
    setRules(settings);
    for (int i = 0; i < CRaceSettings::Slots; ++i) {
        settings.setDriver(i, driver(i));
        settings.setCar(i, car(i));
    }
    settings.setRaceway(raceway());
    settings.setFuelSettings(fuelSettings());
    settings.setMonitorDistanceDriven(true);
    settings.setMonitorFastestLap(false);
    settings.setRedLightsOnRaceStopped(false);
    settings.setLeavePowerOnWhenRaceStopped(true);
    return settings;
}

} // namespace FullRecords

#endif
