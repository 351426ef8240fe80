#include "io/CLtAt2560Io.h"
#include "race/CRace.h"
#include "shell/CSettings.h"
#include "support/DebugLines.h"
#include "support/MainThreadWatch.h"
#include "support/VirtualBox.h"

#include <QtTest>

#include <random>

namespace {

constexpr int Tracks = 6;
constexpr int LapsEach = 170;
constexpr int ChaosInput = 53;

const QString Opened = QStringLiteral("serial->open() in connect() was successful");

/** The inputs of the box: track 0 to 5 of each kind side by side. */
enum FirstInput
{
    Lap = 0,
    End = 6,
    Fuel = 12,
    FuelFinished = 18,
    Sector2 = 24,
    Sector3 = 30
};

/** A raceway with everything that the box can see and switch. */
CRaceway fullRaceway(const QString& port)
{
    CLtAt2560Io io;
    io.setPortName(port);
    io.setPortState(PortId::ChaosButton, ChaosInput, false);
    for (int track = 0; track < Tracks; ++track) {
        io.setPortState(PortId::lapSensor(track), Lap + track, false);
        io.setPortState(PortId::endSensor(track), End + track, false);
        io.setPortState(PortId::fuelSensor(track), Fuel + track, false);
        io.setPortState(PortId::fuelFinishedSensor(track), FuelFinished + track, false);
        io.setPortState(PortId::sector2Sensor(track), Sector2 + track, false);
        io.setPortState(PortId::sector3Sensor(track), Sector3 + track, false);
    }
    CRaceway raceway(Tracks);
    raceway.ioSettings = io.writeSettings();
    raceway.numberOfSectors = 3;
    raceway.fuelSensorSetup = 4;
    raceway.startAndEndSensorSeparate = true;
    raceway.chaosButtonAvailable = true;
    raceway.chaosPhaseOutputAvailable = true;
    raceway.pwrOffFeatureAvailable = true;
    raceway.externalLightsAvailable = true;
    return raceway;
}

/** A raceway with a lap sensor a track. */
CRaceway plainRaceway(const QString& port, int tracks, int firstInput = Lap)
{
    CLtAt2560Io io;
    io.setPortName(port);
    for (int track = 0; track < tracks; ++track)
        io.setPortState(PortId::lapSensor(track), firstInput + track, false);
    CRaceway raceway(tracks);
    raceway.ioSettings = io.writeSettings();
    return raceway;
}

/** Laps of all tracks with all their sensors, as commands for the box. */
QByteArray scriptOfLaps(quint32 begin)
{
    QByteArray script;
    std::mt19937 random(2560);
    const auto press = [&script](int input, quint32 stamp) {
        script += "press " + QByteArray::number(input) + ' ' + QByteArray::number(stamp) + '\n';
    };
    for (int track = 0; track < Tracks; ++track) {
        quint32 time = begin + random() % 1000;
        for (int lap = 0; lap < LapsEach; ++lap) {
            const quint32 lapTime = 2000 + random() % 2000;
            press(Lap + track, time);
            press(Sector2 + track, time + 300 + random() % 400);
            press(Sector3 + track, time + 1000 + random() % 400);
            press(End + track, time + lapTime);
            press(Fuel + track, time + lapTime + 50);
            press(FuelFinished + track, time + lapTime + 100);
            time += lapTime + 250 + random() % 200;
        }
    }
    return script;
}

/** A lap as the box's journal tells it, in milliseconds. */
struct JournalLap
{
    quint32 begin = 0; ///< stamp
    int lap = 0;
    int sector2 = 0; ///< from the begin of the lap to the sensor
    int sector3 = 0;
};

QVector<JournalLap> lapsOf(const QVector<Activation>& journal, int track)
{
    QVector<JournalLap> laps;
    JournalLap lap;
    for (const Activation& activation : journal) {
        const int since = int(activation.stamp - lap.begin);
        if (activation.input == Lap + track)
            lap.begin = activation.stamp;
        if (activation.input == Sector2 + track)
            lap.sector2 = since;
        if (activation.input == Sector3 + track)
            lap.sector3 = since;
        if (activation.input == End + track) {
            lap.lap = since;
            laps.append(lap);
        }
    }
    return laps;
}

QStringList lamps(int first, int last, bool on)
{
    QStringList lines;
    for (int lamp = first; lamp <= last; ++lamp)
        lines.append(QStringLiteral("A%1 %2").arg(lamp).arg(on ? "on" : "off"));
    return lines;
}

QStringList power(bool on)
{
    QStringList lines;
    for (int track = 1; track <= Tracks; ++track)
        lines.append(QStringLiteral("P%1 %2").arg(track).arg(on ? "on" : "off"));
    return lines;
}

} // namespace

class tst_at2560_race : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyLapOfAThousandIsCountedOnceToTheMillisecond_data();
    void everyLapOfAThousandIsCountedOnceToTheMillisecond();
    void theConnectionSurvivesFiveRacesAndChangesWithTheRaceway();
    void lightsPowerAndChaosSignalAreThoseOfTheRace();
    void aCarOnTheSensorInTheCountdownIsAFalseStart();
    void unreadableFramesPassForNoSensorThatTheRaceUses();
    void aLostBoxDisturbsNothingAndIsReachedAgainByAChangedRaceway();
    void aBoxThatComesLateIsReachedByTheNextStart();

private:
    CRace& makeRace(const CRaceway& raceway);
    void press(int input, int stamp);
    void driveLap(int input, int begin, int lapTime);
    int totalLaps() const;
    void compareLaps(const QVector<Activation>& journal);

    std::unique_ptr<DebugLines> m_log;
    std::unique_ptr<VirtualBox> m_box;
    CSettings m_settings;
    CRaceSettings m_raceSettings;
    std::unique_ptr<CRace> m_race;
};

void tst_at2560_race::init()
{
    m_log = std::make_unique<DebugLines>("tornik.io");
    m_box = std::make_unique<VirtualBox>();
    m_raceSettings = CRaceSettings();
}

void tst_at2560_race::cleanup()
{
    m_race.reset();
    m_box.reset();
    m_log.reset();
}

/** Makes a race with a flying start and without an end, unless the settings tell another. */
CRace& tst_at2560_race::makeRace(const CRaceway& raceway)
{
    m_raceSettings.setRaceway(raceway);
    m_race = std::make_unique<CRace>(&m_settings, &m_raceSettings);
    return *m_race;
}

/** Activates an input with a time stamp that has been, thus at once. */
void tst_at2560_race::press(int input, int stamp)
{
    m_box->command("press " + QByteArray::number(input) + ' ' + QByteArray::number(stamp));
}

void tst_at2560_race::driveLap(int input, int begin, int lapTime)
{
    press(input, begin);
    press(input, begin + lapTime);
}

int tst_at2560_race::totalLaps() const
{
    int laps = 0;
    for (int track = 0; track < m_race->numberOfMembers(); ++track)
        laps += m_race->raceMember(track).numberOfLaps();
    return laps;
}

void tst_at2560_race::compareLaps(const QVector<Activation>& journal)
{
    for (int track = 0; track < Tracks; ++track) {
        const CRaceMember member = m_race->raceMember(track);
        const QVector<JournalLap> expected = lapsOf(journal, track);
        QCOMPARE(expected.size(), LapsEach);
        QCOMPARE(member.numberOfLaps(), LapsEach);
        for (int i = 0; i < LapsEach; ++i) {
            const CLapTime lap = member.lap(i);
            QCOMPARE(quint32(lap.lapStartTime), expected.at(i).begin);
            QCOMPARE(lap.lapTime, expected.at(i).lap);
            QCOMPARE(lap.sector1Time, expected.at(i).sector2);
            QCOMPARE(lap.sector2Time, expected.at(i).sector3 - expected.at(i).sector2);
            QCOMPARE(lap.sector3Time, expected.at(i).lap - expected.at(i).sector3);
        }
    }
}

void tst_at2560_race::everyLapOfAThousandIsCountedOnceToTheMillisecond_data()
{
    QTest::addColumn<QStringList>("faults");
    QTest::addColumn<quint32>("begin");
    QTest::newRow("clean line") << QStringList() << 100000U;
    QTest::newRow("split, joined and surrounded by junk")
        << QStringList{"--split", "25", "--joined", "25", "--junk", "25", "--nonsense", "10"} << 100000U;
    QTest::newRow("the box's clock passes 2^31") << QStringList() << 0x7fffffffU - 200000U;
}

void tst_at2560_race::everyLapOfAThousandIsCountedOnceToTheMillisecond()
{
    QFETCH(QStringList, faults);
    QFETCH(quint32, begin);
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    QFile script(QStringLiteral("laps"));
    QVERIFY(script.open(QIODevice::WriteOnly | QIODevice::Truncate));
    script.write(scriptOfLaps(begin));
    script.close();
    QVERIFY(m_box->start(QStringList{"--speed-up", "60", "--clock", "0", "--journal", journal} + faults));

    CFuelSettings fuel;
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    fuel.setTankSize(100000.0);
    m_raceSettings.setFuelSettings(fuel);
    CRace& race = makeRace(fullRaceway(m_box->path()));
    race.vStartQuickRace();
    QTRY_COMPARE(m_box->said().filter(QRegularExpression("^IS ")).size(), 3);
    m_box->command("script laps");
    m_box->command("clock " + QByteArray::number(begin - 1000));
    QTRY_VERIFY_WITH_TIMEOUT(m_box->hasSaid(QStringLiteral("finished")), 100000);
    QTRY_COMPARE(totalLaps(), Tracks * LapsEach);
    race.vStop();

    const QVector<Activation> activations = VirtualBox::journal(journal);
    QCOMPARE(activations.size(), Tracks * LapsEach * 6);
    compareLaps(activations);
}

void tst_at2560_race::theConnectionSurvivesFiveRacesAndChangesWithTheRaceway()
{
    QVERIFY(m_box->start({"--clock", "1000000000"}));
    CRace& race = makeRace(plainRaceway(m_box->path(), 2));
    QVERIFY(race.io()->isRunning());
    QPointer<CRacewayIo> kept(race.io());
    for (int round = 1; round <= 5; ++round) {
        race.vStartQuickRace();
        QVERIFY(race.io()->isRunning());
        driveLap(1, 100000 * round, 5000 + round);
        QTRY_COMPARE(totalLaps(), 1);
        QCOMPARE(race.raceMember(1).lap(0).lapTime, 5000 + round);
        race.vStop();
        QVERIFY(!race.io()->isRunning());
        driveLap(0, 100000 * round + 20000, 5000);
        QVERIFY(m_box->reported() >= 4 * round);
        QCoreApplication::processEvents();
        QCOMPARE(totalLaps(), 1); // what comes between two races counts in none
    }
    QVERIFY(kept);
    QCOMPARE(race.io(), kept.data());
    QCOMPARE(m_log->count(Opened), 1);
    QTRY_COMPARE(m_box->said().filter(QStringLiteral("IS 0.1")).size(), 11);

    m_raceSettings.setRaceway(plainRaceway(m_box->path(), 3, 10));
    race.adaptToRaceway();
    QVERIFY(!kept);
    QCOMPARE(m_log->count(Opened), 2);
    QTRY_VERIFY(m_box->hasSaid(QStringLiteral("IS 10.11.12")));
    race.vStartQuickRace();
    driveLap(12, 900000, 4321);
    QTRY_COMPARE(totalLaps(), 1);
    QCOMPARE(race.raceMember(2).lap(0).lapTime, 4321);
}

void tst_at2560_race::lightsPowerAndChaosSignalAreThoseOfTheRace()
{
    QVERIFY(m_box->start({"--clock", "1000000000"}));
    m_raceSettings.setStartType(CRaceSettings::TimedStart);
    m_raceSettings.setStartLightsMinDelay(100);
    m_raceSettings.setStartLightsMaxDelay(0);
    m_raceSettings.setEndType(CRaceSettings::LapLimit);
    m_raceSettings.setNumberOfLaps(2);
    m_raceSettings.setRedLightsOnRaceStopped(true);
    CRaceway raceway = fullRaceway(m_box->path());
    raceway.startAndEndSensorSeparate = false;
    CRace& race = makeRace(raceway);
    QTRY_COMPARE(m_box->said().size(), 2); // the path and the inputs
    const QString inputs = m_box->said().last();
    QCOMPARE(inputs.count('.'), 36);

    QStringList expected = m_box->said();
    const QStringList idle = QStringList{"C off"} + power(false) + lamps(1, 5, true) + lamps(6, 6, false);
    race.vStop(); // as at the start of the program
    expected += idle;
    QTRY_COMPARE(m_box->said(), expected);
    QCOMPARE(m_box->outputs(), QStringLiteral("lamps 12345- power ------ chaos off e off"));
    expected = m_box->said();

    race.vStartQuickRace();
    expected += QStringList{inputs} + power(true) + QStringList{"C off"} + lamps(1, 6, false) +
                lamps(1, 1, true) + QStringList{inputs} + lamps(2, 5, true) + lamps(1, 6, false) +
                lamps(1, 5, false) + lamps(6, 6, true);
    QTRY_COMPARE_WITH_TIMEOUT(m_box->said(), expected, 10000);
    QCOMPARE(m_box->outputs(), QStringLiteral("lamps -----6 power 123456 chaos off e off"));

    press(Lap + 2, 10000);
    QTRY_COMPARE(int(race.raceMember(2).status()), int(CRaceMemberStatus::Running));
    press(ChaosInput, 12000);
    QTRY_VERIFY(race.isPaused());
    QTRY_COMPARE(m_box->outputs(), QStringLiteral("lamps -----6 power 123456 chaos on e off"));
    press(ChaosInput, 12100); // too early
    press(ChaosInput, 13000);
    QTRY_VERIFY(!race.isPaused());
    race.trackPower(4, false);
    QTRY_COMPARE(m_box->outputs(), QStringLiteral("lamps -----6 power 1234-6 chaos off e off"));

    const int said = m_box->said().size();
    for (int stamp = 20000; stamp <= 30000; stamp += 5000)
        press(Lap + 2, stamp);
    QTRY_VERIFY(!race.isRaceActive());
    QTRY_COMPARE(m_box->said().mid(said).filter(QRegularExpression("^[ACP]")), idle);
    QCOMPARE(m_box->outputs(), QStringLiteral("lamps 12345- power ------ chaos off e off"));
    QCOMPARE(totalLaps(), 2);
    QCOMPARE(race.raceMember(2).lap(1).lapTime, 5000);
}

void tst_at2560_race::aCarOnTheSensorInTheCountdownIsAFalseStart()
{
    QVERIFY(m_box->start({"--clock", "1000000000"}));
    m_raceSettings.setStartType(CRaceSettings::TimedStart);
    CRace& race = makeRace(plainRaceway(m_box->path(), 2));
    race.vStartQuickRace();
    QTRY_COMPARE(m_box->said().filter(QStringLiteral("IS 0.1")).size(), 3);
    press(1, 10000);
    QTRY_VERIFY(!race.isRaceActive());
    QCOMPARE(int(race.raceMember(0).status()), int(CRaceMemberStatus::Finished));
    QCOMPARE(int(race.raceMember(1).status()), int(CRaceMemberStatus::FalseStart));
}

void tst_at2560_race::unreadableFramesPassForNoSensorThatTheRaceUses()
{
    QVERIFY(m_box->start({"--clock", "1000000000"}));
    CRace& race = makeRace(fullRaceway(m_box->path()));
    race.vStartQuickRace();
    press(Lap, 10000);
    QTRY_COMPARE(int(race.raceMember(0).status()), int(CRaceMemberStatus::Running));
    for (const QByteArray text : {":S0;", ":;", ":S,;", ":Sx,y;", ":X1,20000;", ":S-1,20000;", ":S0,1x;"})
        m_box->command("send " + text);
    press(End, 15000);
    QTRY_COMPARE(totalLaps(), 1);
    QVERIFY(!race.isPaused());
    QCOMPARE(race.raceMember(0).lap(0).lapTime, 5000);
    for (int track = 1; track < Tracks; ++track)
        QCOMPARE(int(race.raceMember(track).status()), int(CRaceMemberStatus::Starting));
}

void tst_at2560_race::aLostBoxDisturbsNothingAndIsReachedAgainByAChangedRaceway()
{
    const QString link = QDir::current().filePath(QStringLiteral("box"));
    QVERIFY(m_box->start({"--clock", "1000000000", "--link", link}));
    CRace& race = makeRace(plainRaceway(link, 2));
    race.vStartQuickRace();
    driveLap(0, 10000, 5000);
    QTRY_COMPARE(totalLaps(), 1);
    m_box->command("pull");

    QCOMPARE(MainThreadWatch::during(2000).complaints(), QString());
    QVERIFY(race.isRaceActive());
    QCOMPARE(m_log->lines().filter(QStringLiteral("AT2560: lost")).size(), 1);
    race.vStop();
    QVERIFY(!race.isRaceActive());
    QCOMPARE(totalLaps(), 1);

    // The line that was open once counts as open until the raceway changes.
    QVERIFY(m_box->plug());
    const int said = m_box->said().size();
    race.vStartQuickRace();
    driveLap(0, 20000, 5000);
    QVERIFY(m_box->reported() >= 4);
    QCoreApplication::processEvents();
    QCOMPARE(totalLaps(), 0);
    QVERIFY(m_box->said().mid(said).filter(QRegularExpression("^IS")).isEmpty());
    race.vStop();

    m_raceSettings.setRaceway(plainRaceway(link, 3));
    race.vStartQuickRace();
    QTRY_COMPARE(m_box->said().filter(QStringLiteral("IS 0.1.2")).size(), 2);
    driveLap(2, 30000, 6000);
    QTRY_COMPARE(totalLaps(), 1);
    QCOMPARE(race.raceMember(2).lap(0).lapTime, 6000);
}

void tst_at2560_race::aBoxThatComesLateIsReachedByTheNextStart()
{
    const QString link = QDir::current().filePath(QStringLiteral("late"));
    CRace& race = makeRace(plainRaceway(link, 2));
    race.vStartQuickRace();
    QVERIFY(race.isRaceActive());
    race.vStop();
    QCOMPARE(m_log->count(Opened), 0);

    QVERIFY(m_box->start({"--clock", "1000000000", "--link", link}));
    race.vStartQuickRace();
    QCOMPARE(m_log->count(Opened), 1);
    QTRY_COMPARE(m_box->said().filter(QStringLiteral("IS 0.1")).size(), 2);
    driveLap(1, 10000, 5000);
    QTRY_COMPARE(totalLaps(), 1);
}

QTEST_GUILESS_MAIN(tst_at2560_race)
#include "tst_at2560_race.moc"
