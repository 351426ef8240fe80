// The statements that build the schema and lead it from version to version.
//
// Required: no result is looked at. A statement that fails is skipped, the next one runs, and the
// "COMMIT" is sent all the same. The texts are the history of the file format; never change one.

#include "data/CDatabase.h"

#include <QSqlQuery>
#include <QVariant>

namespace {

// Version -2, the first schema.
constexpr const char* InitialTables[] = {
    "CREATE TABLE raceways (id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(255), scale INTEGER, "
    "noOfTracks INTEGER, portOpenState INTEGER, chaosButtonState INTEGER, chaosButtonAvailable BOOLEAN, "
    "chaosPhaseOutputAvailable BOOLEAN, pwrOffFeatureAvailable BOOLEAN, externalLightsAvailable BOOLEAN, "
    "ioSettings Text, currentRw VARCHAR(255));",
    "CREATE TABLE tracks (id INTEGER PRIMARY KEY AUTOINCREMENT, racewayId INTEGER, noOfTrack INTEGER, "
    "length INTEGER, portClosedState INTEGER);",
    "CREATE TABLE cars (id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(255), type VARCHAR(255), "
    "class INTEGER, scale INTEGER, chassis VARCHAR(255), comment VARCHAR(255));",
    "CREATE TABLE driver (id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(255));",
    "CREATE TABLE races (id INTEGER PRIMARY KEY AUTOINCREMENT, date TEXT, name VARCHAR(255), "
    "settings TEXT);",
    "CREATE TABLE raceParticipants (id INTEGER PRIMARY KEY AUTOINCREMENT, raceId INTEGER, "
    "driverId INTEGER, trackId INTEGER, carId INTEGER);",
    "CREATE TABLE laps (id INTEGER PRIMARY KEY AUTOINCREMENT, participantId INTEGER, lapNumber INTEGER, "
    "time INTEGER);",
};

// Fuel: a sensor a track, the tank of a car.
constexpr const char* FromMinus2[] = {
    "BEGIN TRANSACTION;",
    "ALTER TABLE tracks ADD COLUMN fuelSensorClosedState INTEGER;",
    "CREATE TABLE IF NOT EXISTS racewaysTemp (id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(255), "
    "scale INTEGER, noOfTracks INTEGER, portOpenState INTEGER, chaosButtonState INTEGER, "
    "chaosButtonAvailable BOOLEAN, chaosPhaseOutputAvailable BOOLEAN, pwrOffFeatureAvailable BOOLEAN, "
    "externalLightsAvailable BOOLEAN, separateFuelSensorsAvailable BOOLEAN, ioSettings Text, "
    "currentRw VARCHAR(255));",
    "INSERT INTO racewaysTemp(name, scale, noOfTracks, portOpenState, chaosButtonState, "
    "chaosButtonAvailable, chaosPhaseOutputAvailable, pwrOffFeatureAvailable, externalLightsAvailable, "
    "ioSettings, currentRw) SELECT name, scale, noOfTracks, portOpenState, chaosButtonState, "
    "chaosButtonAvailable, chaosPhaseOutputAvailable, pwrOffFeatureAvailable, externalLightsAvailable, "
    "ioSettings, currentRw FROM raceways ORDER BY id;",
    "DROP TABLE raceways;",
    "ALTER TABLE racewaysTemp RENAME TO raceways;",
    "ALTER TABLE cars ADD COLUMN tankSize REAL;",
    "ALTER TABLE cars ADD COLUMN tankReserveLevel REAL;",
    "ALTER TABLE cars ADD COLUMN minConsumption REAL;",
    "ALTER TABLE cars ADD COLUMN maxConsumption REAL;",
    "COMMIT",
};

// The fastest laps, and more of a car.
constexpr const char* FromMinus1[] = {
    "BEGIN TRANSACTION;",
    "ALTER TABLE raceways ADD COLUMN minTime INTEGER;",
    "CREATE TABLE fastestLapTimes (id INTEGER PRIMARY KEY AUTOINCREMENT, carId INTEGER, "
    "driverId INTEGER, racewayId INTEGER, trackId INTEGER, time INTEGER)",
    "CREATE TABLE IF NOT EXISTS carsTemp (id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(255), "
    "originalManufacturer VARCHAR(255), originalType VARCHAR(255), startNumber VARCHAR(255), "
    "modelManufacturer VARCHAR(255) , class INTEGER, scale INTEGER, chassis VARCHAR(255), "
    "comment VARCHAR(255), tankSize REAL, tankReserveLevel REAL, minConsumption REAL, "
    "maxConsumption REAL, distanceDriven INTEGER, freeField0 VARCHAR(255), freeField1 VARCHAR(255), "
    "freeField2 VARCHAR(255), freeField3 VARCHAR(255), freeField4 VARCHAR(255), "
    "freeField5 VARCHAR(255), freeField6 VARCHAR(255), freeField7 VARCHAR(255), "
    "freeField8 VARCHAR(255), freeField9 VARCHAR(255));",
    // Required: the cars are asked of the raceways, so that none comes over; the backup has them.
    "INSERT INTO carsTemp(name, originalType, class, scale, chassis, comment, tankSize, "
    "tankReserveLevel, minConsumption, maxConsumption) SELECT name, type, class, scale, chassis, "
    "comment, tankSize, tankReserveLevel, minConsumption, maxConsumption FROM raceways ORDER BY id;",
    "DROP TABLE cars;",
    "ALTER TABLE carsTemp RENAME TO cars;",
    "COMMIT",
};

// Sectors, an end sensor, kinds of refuelling.
// Required: ids aren't copied, so that a gap in the old ones breaks the references to raceways.
constexpr const char* From0[] = {
    "BEGIN TRANSACTION;",
    "ALTER TABLE tracks ADD COLUMN fuelFinishedSensorClosedState INTEGER;",
    "ALTER TABLE tracks ADD COLUMN sector2BeginSensorClosedState INTEGER;",
    "ALTER TABLE tracks ADD COLUMN sector3BeginSensorClosedState INTEGER;",
    "ALTER TABLE tracks ADD COLUMN endSensorClosedState INTEGER;",
    "CREATE TABLE IF NOT EXISTS racewaysTemp (id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(255), "
    "scale INTEGER, noOfTracks INTEGER, portOpenState INTEGER, chaosButtonState INTEGER, "
    "chaosButtonAvailable BOOLEAN, chaosPhaseOutputAvailable BOOLEAN, pwrOffFeatureAvailable BOOLEAN, "
    "externalLightsAvailable BOOLEAN, fuelSensorSetup INTEGER, numberOfSectors INTEGER, ioSettings Text, "
    "currentRw VARCHAR(255), minTime INTEGER, startAndEndSensorSeparate BOOLEAN);",
    "INSERT INTO racewaysTemp(name, scale, noOfTracks, portOpenState, chaosButtonState, "
    "chaosButtonAvailable, chaosPhaseOutputAvailable, pwrOffFeatureAvailable, externalLightsAvailable, "
    "fuelSensorSetup, ioSettings, currentRw, minTime) SELECT name, scale, noOfTracks, portOpenState, "
    "chaosButtonState, chaosButtonAvailable, chaosPhaseOutputAvailable, pwrOffFeatureAvailable, "
    "externalLightsAvailable, separateFuelSensorsAvailable, ioSettings, currentRw, minTime FROM raceways "
    "ORDER BY id;",
    "DROP TABLE raceways;",
    "ALTER TABLE racewaysTemp RENAME TO raceways;",
    "UPDATE raceways SET numberOfSectors = 1",
    "ALTER TABLE laps ADD COLUMN sector1Time INTEGER;",
    "ALTER TABLE laps ADD COLUMN sector2Time INTEGER;",
    "ALTER TABLE laps ADD COLUMN sector3Time INTEGER;",
    "COMMIT",
    "PRAGMA user_version = 1",
};

// Required: twelve columns and fourteen values, so that the engine rejects the statement; the first
// raceway comes from the raceway list.
constexpr const char* DefaultRaceway =
    "INSERT INTO raceways(name, scale, noOfTracks, portOpenState, chaosButtonState, "
    "chaosButtonAvailable, chaosPhaseOutputAvailable, pwrOffFeatureAvailable, externalLightsAvailable, "
    "fuelSensorSetup, ioSettings, currentRw) "
    "VALUES('DEFAULT',24,2,127,0,false,false,false,false,0,1,'Test','X',200)";

constexpr const char* DefaultTrack =
    "INSERT INTO tracks(racewayId, noOfTrack, length, portClosedState, fuelSensorClosedState, "
    "fuelFinishedSensorClosedState, sector2BeginSensorClosedState, sector3BeginSensorClosedState, "
    "endSensorClosedState) VALUES(";

constexpr const char* DefaultCar =
    "INSERT INTO cars(name, originalManufacturer, originalType, startNumber, modelManufacturer, class, "
    "scale, chassis, comment, tankSize, tankReserveLevel, minConsumption, maxConsumption, "
    "distanceDriven, freeField0, freeField1, freeField2, freeField3, freeField4, freeField5, "
    "freeField6, freeField7, freeField8, freeField9) VALUES('Default','','','','',0,24,'','', 100.0, "
    "15.0, 1.5, 3.0, 0, '', '', '', '', '', '', '', '', '', '')";

template <std::size_t Count>
void runStatements(const QSqlDatabase& database, const char* const (&statements)[Count])
{
    if (!database.isOpen()) {
        return;
    }
    QSqlQuery query(database);
    for (const char* statement : statements) {
        query.exec(QLatin1String(statement));
    }
}

} // namespace

void CDatabase::createInitialTables()
{
    runStatements(m_database, InitialTables);
}

void CDatabase::migrateFromMinus2()
{
    runStatements(m_database, FromMinus2);
}

void CDatabase::migrateFromMinus1()
{
    runStatements(m_database, FromMinus1);
}

void CDatabase::migrateFrom0()
{
    runStatements(m_database, From0);
}

void CDatabase::insertDefaultRows()
{
    if (!m_database.isOpen()) {
        return;
    }
    QSqlQuery query(m_database);
    query.exec(QLatin1String(DefaultRaceway));
    query.exec(QStringLiteral("SELECT id FROM raceways"));
    const int racewayId = query.next() ? query.value(0).toInt() : 0;
    const QString track = QLatin1String(DefaultTrack) + QString::number(racewayId);
    query.exec(track + QStringLiteral(",1,0,255,255,255,255,255,255)"));
    query.exec(track + QStringLiteral(",2,0,63,255,255,255,255,255)"));
    query.exec(QLatin1String(DefaultCar));
}
