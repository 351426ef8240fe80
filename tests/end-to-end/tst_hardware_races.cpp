#include "RaceHardware.h"
#include "io/CCarreraCuIo.h"
#include "race/CRace.h"
#include "shell/CKelmoMainDialog.h"
#include "support/DebugLines.h"
#include "support/InputWatch.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"
#include "support/VirtualUnit.h"

#include <QAction>
#include <QElapsedTimer>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {

using Maker = std::unique_ptr<RaceHardware> (*)();

/** Share of one core. The port is read at the same pace, there or not, and sanitizers double what that takes.
 */
#ifdef __SANITIZE_ADDRESS__
constexpr double MostProcessor = 0.4;
#else
constexpr double MostProcessor = 0.2;
#endif

} // namespace

Q_DECLARE_METATYPE(Maker)

/** Races in the running program, on virtual hardware of each kind. */
class tst_hardware_races : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aWholeRaceFromTheLampsToTheWinner_data();
    void aWholeRaceFromTheLampsToTheWinner();
    void aWholeRaceOnAControlUnit();
    void aDevicePulledInARaceLeavesTheWindowAlive_data();
    void aDevicePulledInARaceLeavesTheWindowAlive();
    void aSilentIoWarriorLeavesTheWindowAlive();
    void anAt2560StaysConnectedForFiveRaces();

private:
    void switchOn(Maker maker);
    RunningProgram& start(StoredSetup setup);
    RunningProgram& startAgain();
    StoredSetup setupOfHardware();
    void startRace();
    void cross(int number);
    void pressChaosButton();
    void compareOutputs(const QString& expected);
    void compareLap(int number);
    void verifyWindowIsAlive();
    void verifyRaceCanBeStopped();
    void compareLaps(const QVector<Crossing>& journal, int car);
    void driveLap();

    std::unique_ptr<RaceHardware> m_hardware;
    std::unique_ptr<RunningProgram> m_program;
    QVector<Moment> m_crossings[RaceHardware::Tracks]; ///< of the laps in a row, the last one last
};

void tst_hardware_races::cleanup()
{
    m_program.reset();
    m_hardware.reset();
}

void tst_hardware_races::switchOn(Maker maker)
{
    m_hardware = maker();
    QVERIFY(m_hardware->switchOn());
}

/** What is stored for the hardware, with a flying start. */
StoredSetup tst_hardware_races::setupOfHardware()
{
    StoredSetup setup;
    const QString name = setup.raceway.name;
    setup.raceway = m_hardware->raceway();
    setup.raceway.name = name;
    setup.rules.setRedLightsOnRaceStopped(true);
    return setup;
}

RunningProgram& tst_hardware_races::start(StoredSetup setup)
{
    setup.write();
    return startAgain();
}

RunningProgram& tst_hardware_races::startAgain()
{
    m_program.reset();
    m_program = std::make_unique<RunningProgram>();
    return *m_program;
}

void tst_hardware_races::startRace()
{
    for (QVector<Moment>& crossings : m_crossings)
        crossings.clear();
    m_program->pressKey(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(m_program->race().isRaceActive());
    QVERIFY(m_program->race().io()->isRunning());
    m_hardware->begin();
}

void tst_hardware_races::cross(int number)
{
    QSignalSpy events(&m_program->race(), &CRace::RaceEventHappened);
    m_crossings[number - 1].append(m_hardware->cross(number, [&events] { return !events.isEmpty(); }));
}

void tst_hardware_races::pressChaosButton()
{
    const bool before = m_program->race().isPaused();
    m_hardware->pressChaosButton([&] { return m_program->race().isPaused() != before; });
    for (QVector<Moment>& crossings : m_crossings)
        crossings.clear(); // a lap that a pause interrupts doesn't count
}

void tst_hardware_races::compareOutputs(const QString& expected)
{
    if (!m_hardware->outputs().isEmpty())
        QTRY_COMPARE(m_hardware->outputs(), expected);
}

/** The panel shows the lap that the hardware has seen last. */
void tst_hardware_races::compareLap(int number)
{
    const CRaceMember member = m_program->race().raceMember(number - 1);
    const QVector<Moment>& crossings = m_crossings[number - 1];
    QVERIFY(crossings.size() >= 2 && member.numberOfLaps() > 0);
    const Moment begin = crossings.at(crossings.size() - 2);
    const Moment end = crossings.last();
    const int time = member.lap(member.numberOfLaps() - 1).lapTime;
    const bool isExact = begin.earliest == begin.latest;
    QVERIFY(time >= end.earliest - begin.latest - (isExact ? 0 : 1));
    QVERIFY(time <= end.latest - begin.earliest + (isExact ? 0 : 1));
    QCOMPARE(m_program->trackText(number, "lastLap"), RunningProgram::timeText(time));
    QCOMPARE(m_program->laps(number),
             QStringLiteral("%1").arg(member.numberOfLaps(), 3, 10, QLatin1Char('0')));
}

void tst_hardware_races::aWholeRaceFromTheLampsToTheWinner_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::newRow("IO-Warrior") << &RaceHardware::ioWarrior;
    QTest::newRow("AT2560") << &RaceHardware::at2560;
    QTest::newRow("RaceControl box") << &RaceHardware::raceControl;
}

void tst_hardware_races::aWholeRaceFromTheLampsToTheWinner()
{
    QFETCH(Maker, maker);
    switchOn(maker);
    StoredSetup setup = setupOfHardware();
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.rules.setStartDelay(QTime(0, 0, 5));
    setup.rules.setStartLightsMinDelay(60000); // green comes when the test asks for it
    setup.rules.setStartLightsMaxDelay(0);
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(3);
    setup.rules.setWinningCondition(1);
    RunningProgram& program = start(setup);
    const QString idle = QStringLiteral("power -- red 12345 green - chaos -");
    compareOutputs(idle);

    startRace();
    compareOutputs("power 12 red 1---- green - chaos -");
    QCOMPARE(program.lights(), QString("Roooo"));
    for (const char* red : {"12---", "123--", "1234-", "12345"}) {
        program.letStartSecondPass();
        compareOutputs(QStringLiteral("power 12 red %1 green - chaos -").arg(red));
    }
    QCOMPARE(program.lights(), QString("RRRRR"));
    program.letStartSecondPass();
    compareOutputs("power 12 red ----- green g chaos -");
    QCOMPARE(program.lights(), QString("GGGGG"));
    QCOMPARE(program.statuses(), QStringList({"starten", "starten"}));

    cross(1);
    cross(2);
    QCOMPARE(program.statuses(), QStringList({"läuft", "läuft"}));
    for (const int number : {1, 2, 2}) {
        cross(number);
        compareLap(number);
    }

    pressChaosButton();
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    compareOutputs("power 12 red ----- green g chaos c");
    pressChaosButton();
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    compareOutputs("power 12 red ----- green g chaos -");
    program.menu()->trackPowerActions().at(1)->trigger();
    compareOutputs("power 1- red ----- green g chaos -");
    program.menu()->trackPowerActions().at(1)->trigger();
    compareOutputs("power 12 red ----- green g chaos -");

    cross(2);
    cross(1);
    cross(1);
    compareLap(1);
    QVERIFY(program.race().isRaceActive());
    cross(2);
    compareLap(2);
    QVERIFY(!program.race().isRaceActive());
    QVERIFY(!program.race().io()->isRunning());
    QCOMPARE(program.statuses(), QStringList({"beendet", "sieger"}));
    QCOMPARE(program.message(), QString("Die meisten Runden gefahren hat Ben."));
    QCOMPARE(program.laps(1), QString("002"));
    QCOMPARE(program.laps(2), QString("003"));
    compareOutputs(idle);
    QCOMPARE(program.lights(), QString("RRRRR"));
}

/** The unit lights its lamps and lets its cars go by itself; the program has nothing to switch there. */
void tst_hardware_races::aWholeRaceOnAControlUnit()
{
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    VirtualUnit unit;
    QVERIFY(unit.start({"--car", "9000:0:15", "--car", "6000:0:6", "--speed-up", "10", "--light-step", "2000",
                        "--journal", journal}));
    CCarreraCuIo io;
    io.setPortName(unit.path());
    StoredSetup setup;
    setup.raceway.ioSettings = io.writeSettings();
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(4);
    setup.rules.setWinningCondition(1);
    RunningProgram& program = start(setup);
    QStringList lights;
    const QObject noting; // ends with this test, before the program does
    connect(&program.race(), &CRace::UpdateLights, &noting, [&] { lights.append(program.lights()); });

    program.pressKey(Qt::Key_S, Qt::ControlModifier);
    lights.clear();
    unit.command("start");
    QTRY_COMPARE(program.race().raceMember(1).fuelPercent(), 40); // 6 of 15
    QCOMPARE(program.race().raceMember(0).fuelPercent(), 100);
    QTRY_COMPARE(program.laps(2), QString("001"));
    // Green since the flying start; the red lamps come one by one.
    QCOMPARE(lights.mid(0, 6), QStringList({"RGGGG", "RRGGG", "RRRGG", "RRRRG", "RRRRR", "ooooo"}));

    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    const QStringList before{program.laps(1), program.laps(2)};
    const int crossings = VirtualUnit::journal(journal).size();
    QTRY_VERIFY(VirtualUnit::journal(journal).size() >= crossings + 3);
    QCOMPARE(QStringList({program.laps(1), program.laps(2)}), before);
    program.pressKey(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));

    QTRY_VERIFY_WITH_TIMEOUT(!program.race().isRaceActive(), 30000);
    QVERIFY(!program.race().io()->isRunning());
    QCOMPARE(program.statuses(), QStringList({"beendet", "sieger"}));
    QCOMPARE(program.message(), QString("Die meisten Runden gefahren hat Ben."));
    QCOMPARE(program.laps(2), QString("004"));
    QVERIFY(program.race().raceMember(0).numberOfLaps() > 0);
    for (int car = 1; car <= 2; ++car)
        compareLaps(VirtualUnit::journal(journal), car);
}

/** Each lap of a car lies between two crossings that follow each other in the journal. */
void tst_hardware_races::compareLaps(const QVector<Crossing>& journal, int car)
{
    QVector<quint32> stamps;
    for (const Crossing& crossing : journal) {
        if (crossing.car == car)
            stamps.append(crossing.stamp);
    }
    const CRaceMember member = m_program->race().raceMember(car - 1);
    for (int i = 0; i < member.numberOfLaps(); ++i) {
        const int begin = stamps.indexOf(quint32(member.lap(i).lapStartTime));
        QVERIFY(begin >= 0 && begin + 1 < stamps.size());
        QCOMPARE(member.lap(i).lapTime, int(stamps.at(begin + 1) - stamps.at(begin)));
    }
}

void tst_hardware_races::verifyWindowIsAlive()
{
    const InputWatch watch(&m_program->dialog(), 2000);
    QVERIFY(watch.delays.size() > 20);
    qDebug("input handled in %d ms (median), %d ms (longest); %.1f %% of a core", int(watch.median()),
           int(watch.longest()), 100 * watch.processorShare);
    QVERIFY2(watch.shareWithin(50) > 0.9, qPrintable(QString::number(watch.shareWithin(50))));
    QVERIFY2(watch.longest() < 500, qPrintable(QString::number(watch.longest())));
    QVERIFY2(watch.processorShare < MostProcessor, qPrintable(QString::number(watch.processorShare)));
    QVERIFY(m_program->race().isRaceActive());
}

void tst_hardware_races::verifyRaceCanBeStopped()
{
    const QString laps = m_program->laps(1);
    QElapsedTimer stopping;
    stopping.start();
    m_program->stopRace();
    QVERIFY2(stopping.elapsed() < 1000, qPrintable(QString::number(stopping.elapsed())));
    QVERIFY(!m_program->race().isRaceActive());
    QVERIFY(!m_program->race().io()->isRunning());
    QCOMPARE(m_program->message(), QString("Rennen wurde beendet"));
    QCOMPARE(m_program->laps(1), laps);
}

void tst_hardware_races::driveLap()
{
    cross(1);
    cross(1);
    QTRY_VERIFY(m_program->laps(1) != "000");
}

void tst_hardware_races::aDevicePulledInARaceLeavesTheWindowAlive_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::newRow("IO-Warrior") << &RaceHardware::ioWarrior;
    QTest::newRow("AT2560") << &RaceHardware::at2560;
    QTest::newRow("RaceControl box") << &RaceHardware::raceControl;
    QTest::newRow("Control Unit") << &RaceHardware::controlUnit;
    QTest::newRow("parallel port") << &RaceHardware::parallelPort;
}

void tst_hardware_races::aDevicePulledInARaceLeavesTheWindowAlive()
{
    QFETCH(Maker, maker);
    switchOn(maker);
    RunningProgram& program = start(setupOfHardware());
    startRace();
    driveLap();
    m_hardware->pull();
    verifyWindowIsAlive();
    program.menu()->trackPowerActions().at(1)->trigger(); // there is nobody to take it
    verifyRaceCanBeStopped();

    QVERIFY(m_hardware->plug());
    if (maker == &RaceHardware::at2560)
        startAgain(); // its line stays as it was as long as the program runs on the same raceway
    startRace();
    QCOMPARE(m_program->laps(1), QString("000"));
    driveLap();
    verifyRaceCanBeStopped();
}

void tst_hardware_races::aSilentIoWarriorLeavesTheWindowAlive()
{
    switchOn(&RaceHardware::ioWarrior);
    start(setupOfHardware());
    startRace();
    driveLap();
    m_hardware->fallSilent();
    verifyWindowIsAlive();
    verifyRaceCanBeStopped();

    QVERIFY(m_hardware->plug());
    startRace();
    driveLap();
}

void tst_hardware_races::anAt2560StaysConnectedForFiveRaces()
{
    const DebugLines log("tornik.io");
    switchOn(&RaceHardware::at2560);
    const RunningProgram& program = start(setupOfHardware());
    const QPointer<CRacewayIo> io(program.race().io());
    for (int round = 1; round <= 5; ++round) {
        startRace();
        driveLap();
        compareLap(1);
        verifyRaceCanBeStopped();
    }
    QVERIFY(io);
    QCOMPARE(program.race().io(), io.data());
    QCOMPARE(log.count("serial->open() in connect() was successful"), 1);
    QCOMPARE(log.count("reconnect() was called"), 1); // as the first port name came
}

QTEST_APPLESS_MAIN(tst_hardware_races)
#include "tst_hardware_races.moc"
