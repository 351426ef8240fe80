#include "io/CParallelPortIo.h"
#include "io/TestPort.h"
#include "race/CRace.h"
#include "support/RunningProgram.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"

#include <QElapsedTimer>
#include <QTest>

#include <optional>

namespace {

constexpr int AtRest = 127;
constexpr int DeadTime = 220;   ///< milliseconds, and some, in which a second press doesn't count
constexpr int MinimumTime = 30; ///< milliseconds of the shortest lap

/** Sensors: the bits of the status register that fall when one closes. */
enum Sensor : short
{
    Lap1 = 0x08,
    Lap2 = 0x10,
    ChaosButton = 0x20
};

/** Outputs: the bits of the data register. The light has three red lamps. */
enum Output
{
    Power1 = 0x01,
    Power2 = 0x02,
    FirstRed = 0x04,
    Green = 0x20,
    ChaosSignal = 0x40
};
constexpr int RedLamps = 3;

/** The register that the wizard has learned, with the relays of the power open when their bits are set. */
QByteArray learnedPort()
{
    CParallelPortIo io;
    io.setPortState(PortId::Open, AtRest, false);
    io.setPortState(PortId::lapSensor(0), AtRest & ~Lap1, false);
    io.setPortState(PortId::lapSensor(1), AtRest & ~Lap2, false);
    io.setPortState(PortId::ChaosButton, AtRest & ~ChaosButton, false);
    io.setPortState(PortId::trackPower(0), Power1, true);
    io.setPortState(PortId::trackPower(1), Power2, true);
    for (int lamp = 0; lamp < PortId::RedLamps; ++lamp)
        io.setPortState(PortId::redLamp(lamp), lamp < RedLamps ? FirstRed << lamp : -1, false);
    io.setPortState(PortId::GreenLamp, Green, false);
    io.setPortState(PortId::ChaosSignal, ChaosSignal, false);
    return io.writeSettings();
}

StoredSetup portSetup()
{
    StoredSetup setup;
    setup.raceway.ioSettings = learnedPort();
    setup.raceway.minTime = MinimumTime;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.raceway.externalLightsAvailable = true;
    setup.raceway.chaosButtonAvailable = true;
    setup.raceway.chaosPhaseOutputAvailable = true;
    setup.rules.setRedLightsOnRaceStopped(true);
    return setup;
}

StoredSetup setupWithLights()
{
    StoredSetup setup = portSetup();
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.rules.setStartDelay(QTime(0, 0, 5));
    setup.rules.setStartLightsMinDelay(60000); // green comes when the test asks for it
    setup.rules.setStartLightsMaxDelay(0);
    return setup;
}

/** A while in which something happened, in nanoseconds. */
struct Span
{
    qint64 begin = 0;
    qint64 end = 0;
};

} // namespace

/** Races in the running program, on the registers of the virtual parallel port. */
class tst_parallel_port_race : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aWholeRaceOfTwoTracksCountsEachLapAndNamesTheWinner();
    void lampsPowerAndChaosSignalAreThoseOfTheRace();
    void lampsAndPowerAtTheEndAreThoseOfTheRules_data();
    void lampsAndPowerAtTheEndAreThoseOfTheRules();
    void withoutTheFeaturesNoOutputIsWritten();
    void aCarOnTheSensorInTheCountdownIsAFalseStart();
    void aCarThatStandsOnTheSensorFromBeforeTheStartIsNone();
    void twoCarsOnTheLineAtOnceHaveTheSameLap();
    void aSensorThatIsHeldCountsOnce();
    void eachOfManyCrossingsCountsOnce();
    void nothingCountsBetweenTwoRacesAndTheNextBeginsAnew();

private:
    RunningProgram& start(StoredSetup setup);
    void startRace();
    QString outputs();
    bool isRead();
    Span close(short sensors);
    void open(short sensors);
    Span press(short sensors);
    void compareLap(int number, int lap, const Span& begin, const Span& end);

    std::optional<TestPort> m_port;
    std::unique_ptr<RunningProgram> m_program;
    QElapsedTimer m_clock; ///< begins with the race
    QElapsedTimer m_sinceOpen;
};

void tst_parallel_port_race::init()
{
    if (!m_port)
        m_port.emplace();
    m_port->reset();
    m_sinceOpen.start();
}

void tst_parallel_port_race::cleanup()
{
    m_program.reset();
}

RunningProgram& tst_parallel_port_race::start(StoredSetup setup)
{
    setup.write();
    m_program = std::make_unique<RunningProgram>();
    return *m_program;
}

/** Begins a race; its dead times are over then. */
void tst_parallel_port_race::startRace()
{
    m_program->pressKey(Qt::Key_S, Qt::ControlModifier);
    m_clock.start();
    QVERIFY(m_program->race().io()->isRunning());
    QVERIFY(QTest::qWaitFor([this] { return m_clock.elapsed() > DeadTime; }));
}

/** @return for example "power 1- red 12- green - chaos -". */
QString tst_parallel_port_race::outputs()
{
    const int data = (*m_port)->read(TestPort::Data);
    const auto letter = [data](int bit, bool onAtOne, char name) {
        return QLatin1Char(((data & bit) != 0) == onAtOne ? name : '-');
    };
    QString text = QStringLiteral("power ");
    text += letter(Power1, false, '1');
    text += letter(Power2, false, '2');
    text += QStringLiteral(" red ");
    for (int lamp = 0; lamp < RedLamps; ++lamp)
        text += letter(FirstRed << lamp, true, char('1' + lamp));
    return text + QStringLiteral(" green ") + letter(Green, true, 'g') + QStringLiteral(" chaos ") +
           letter(ChaosSignal, true, 'c');
}

/** Waits until the program has seen the registers as they are now, or reads them no longer. */
bool tst_parallel_port_race::isRead()
{
    const unsigned before = (*m_port)->reads();
    const bool isSeen = QTest::qWaitFor(
        [&] { return (*m_port)->reads() - before >= 2 || !m_program->race().io()->isRunning(); });
    QCoreApplication::sendPostedEvents(); // of the thread to the interface
    QCoreApplication::sendPostedEvents(); // of the interface to the race
    return isSeen;
}

/** @return the while in which the sensors closed. */
Span tst_parallel_port_race::close(short sensors)
{
    Span span;
    span.begin = m_clock.nsecsElapsed();
    m_port->press(sensors);
    [this] { QVERIFY(isRead()); }();
    span.end = m_clock.nsecsElapsed();
    return span;
}

void tst_parallel_port_race::open(short sensors)
{
    m_port->release(sensors);
    QVERIFY(isRead());
    m_sinceOpen.start();
}

/** Closes sensors and opens them, longer than the shortest lap after the last time. */
Span tst_parallel_port_race::press(short sensors)
{
    [this] { QVERIFY(QTest::qWaitFor([this] { return m_sinceOpen.elapsed() > MinimumTime; })); }();
    const Span span = close(sensors);
    open(sensors);
    return span;
}

/** The time that a panel shows last lies between those that the sensor can have seen. */
void tst_parallel_port_race::compareLap(int number, int lap, const Span& begin, const Span& end)
{
    constexpr qint64 Millisecond = 1000000;
    const CRaceMember member = m_program->race().raceMember(number - 1);
    QCOMPARE(member.numberOfLaps(), lap);
    QCOMPARE(m_program->laps(number), QStringLiteral("%1").arg(lap, 3, 10, QLatin1Char('0')));
    const int time = member.lap(lap - 1).lapTime;
    QCOMPARE(m_program->trackText(number, "lastLap"), RunningProgram::timeText(time));
    QVERIFY(time >= (end.begin - begin.end) / Millisecond - 1);
    QVERIFY(time <= (end.end - begin.begin) / Millisecond + 1);
}

void tst_parallel_port_race::aWholeRaceOfTwoTracksCountsEachLapAndNamesTheWinner()
{
    StoredSetup setup = portSetup();
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(3);
    setup.rules.setWinningCondition(1);
    RunningProgram& program = start(setup);
    startRace();

    Span begin1 = press(Lap1);
    QCOMPARE(program.statuses(), QStringList({"läuft", "starten"}));
    Span begin2 = press(Lap2);
    QCOMPARE(program.statuses(), QStringList({"läuft", "läuft"}));
    for (int lap = 1; lap <= 3; ++lap) {
        const Span end2 = press(Lap2);
        compareLap(2, lap, begin2, end2);
        begin2 = end2;
        if (lap == 3)
            break;
        const Span end1 = press(Lap1);
        compareLap(1, lap, begin1, end1);
        begin1 = end1;
    }
    QVERIFY(!program.race().isRaceActive());
    QVERIFY(!program.race().io()->isRunning());
    QCOMPARE(program.statuses(), QStringList({"beendet", "sieger"}));
    QCOMPARE(program.message(), QString("Die meisten Runden gefahren hat Ben."));
    QCOMPARE(program.laps(1), QString("002"));
}

void tst_parallel_port_race::lampsPowerAndChaosSignalAreThoseOfTheRace()
{
    StoredSetup setup = setupWithLights();
    setup.rules.setEndType(CRaceSettings::LapLimit);
    setup.rules.setNumberOfLaps(1);
    setup.rules.setWinningCondition(1);
    RunningProgram& program = start(setup);
    const QString idle = QStringLiteral("power -- red 123 green - chaos -");
    QCOMPARE(outputs(), idle);
    startRace();
    QCOMPARE(outputs(), QString("power 12 red 1-- green - chaos -"));
    for (const char* red : {"12-", "123", "123", "123"}) { // the fourth and fifth lamp aren't there
        program.letStartSecondPass();
        QCOMPARE(outputs(), QStringLiteral("power 12 red %1 green - chaos -").arg(red));
    }
    program.letStartSecondPass();
    QCOMPARE(outputs(), QString("power 12 red --- green g chaos -"));
    QCOMPARE(program.statuses(), QStringList({"starten", "starten"}));

    press(Lap1);
    press(ChaosButton);
    QCOMPARE(outputs(), QString("power 12 red --- green g chaos c"));
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    press(Lap1);
    QCOMPARE(program.laps(1), QString("000"));
    QVERIFY(QTest::qWaitFor([this] { return m_sinceOpen.elapsed() > DeadTime; }));
    press(ChaosButton);
    QCOMPARE(outputs(), QString("power 12 red --- green g chaos -"));
    QCOMPARE(program.statuses(), QStringList({"warten", "warten"}));
    program.race().trackPowerToggle(1);
    QCOMPARE(outputs(), QString("power 1- red --- green g chaos -"));
    program.race().trackPowerToggle(1);
    QCOMPARE(outputs(), QString("power 12 red --- green g chaos -"));

    press(Lap1);
    press(Lap1);
    QCOMPARE(program.statuses(), QStringList({"sieger", "beendet"}));
    QCOMPARE(outputs(), idle);
    QCOMPARE((*m_port)->read(TestPort::Control), short(0));
}

void tst_parallel_port_race::lampsAndPowerAtTheEndAreThoseOfTheRules_data()
{
    QTest::addColumn<bool>("redLights");
    QTest::addColumn<bool>("power");
    QTest::addColumn<QString>("atTheEnd");
    QTest::newRow("neither") << false << false << "power -- red --- green - chaos -";
    QTest::newRow("red lights") << true << false << "power -- red 123 green - chaos -";
    QTest::newRow("power") << false << true << "power 12 red --- green - chaos -";
    QTest::newRow("both") << true << true << "power 12 red 123 green - chaos -";
}

void tst_parallel_port_race::lampsAndPowerAtTheEndAreThoseOfTheRules()
{
    QFETCH(bool, redLights);
    QFETCH(bool, power);
    QFETCH(QString, atTheEnd);
    RunningProgram& program = start(portSetup());
    inRaceSettings(program, [=](const DialogUser& user) {
        user.enter("redLightsOnRaceStopped", redLights);
        user.enter("leavePowerOnWhenRaceStopped", power);
    });
    startRace();
    QCOMPARE(outputs(), QString("power 12 red --- green g chaos -"));
    program.stopRace();
    QCOMPARE(outputs(), atTheEnd);
}

void tst_parallel_port_race::withoutTheFeaturesNoOutputIsWritten()
{
    StoredSetup setup = setupWithLights();
    setup.raceway.pwrOffFeatureAvailable = false;
    setup.raceway.externalLightsAvailable = false;
    setup.raceway.chaosPhaseOutputAvailable = false;
    const unsigned before = (*m_port)->writes();
    RunningProgram& program = start(setup);
    startRace();
    for (int second = 0; second < 5; ++second)
        program.letStartSecondPass();
    press(Lap1);
    press(ChaosButton);
    QCOMPARE(program.statuses(), QStringList({"pause", "pause"}));
    program.stopRace();
    QCOMPARE((*m_port)->writes(), before);
}

void tst_parallel_port_race::aCarOnTheSensorInTheCountdownIsAFalseStart()
{
    RunningProgram& program = start(setupWithLights());
    startRace();
    program.letStartSecondPass();
    close(Lap2);
    QCOMPARE(program.statuses(), QStringList({"beendet", "frühstart"}));
    QVERIFY(!program.race().io()->isRunning());
    QCOMPARE(outputs(), QString("power -- red 123 green - chaos -"));
}

void tst_parallel_port_race::aCarThatStandsOnTheSensorFromBeforeTheStartIsNone()
{
    m_port->press(Lap2);
    RunningProgram& program = start(setupWithLights());
    startRace();
    for (int second = 0; second < 5; ++second)
        program.letStartSecondPass();
    QCOMPARE(program.statuses(), QStringList({"starten", "starten"}));
    open(Lap2);
    QCOMPARE(program.statuses(), QStringList({"starten", "starten"}));
    press(Lap2);
    QCOMPARE(program.statuses(), QStringList({"starten", "läuft"}));
}

void tst_parallel_port_race::twoCarsOnTheLineAtOnceHaveTheSameLap()
{
    RunningProgram& program = start(portSetup());
    startRace();
    const Span begin = press(Lap1 | Lap2);
    QCOMPARE(program.statuses(), QStringList({"läuft", "läuft"}));
    const Span end = press(Lap1 | Lap2);
    compareLap(1, 1, begin, end);
    compareLap(2, 1, begin, end);
    QCOMPARE(program.race().raceMember(0).lap(0).lapTime, program.race().raceMember(1).lap(0).lapTime);
}

void tst_parallel_port_race::aSensorThatIsHeldCountsOnce()
{
    RunningProgram& program = start(portSetup());
    startRace();
    press(Lap1);
    QVERIFY(QTest::qWaitFor([this] { return m_sinceOpen.elapsed() > MinimumTime; }));
    close(Lap1);
    QCOMPARE(program.laps(1), QString("001"));
    QElapsedTimer held;
    held.start();
    QVERIFY(QTest::qWaitFor([&held] { return held.elapsed() > 5 * MinimumTime; }));
    open(Lap1);
    QCOMPARE(program.laps(1), QString("001"));
}

void tst_parallel_port_race::eachOfManyCrossingsCountsOnce()
{
    constexpr int Laps = 40;
    RunningProgram& program = start(portSetup());
    startRace();
    for (int crossing = 0; crossing <= Laps; ++crossing)
        press(crossing % 2 == 0 ? Lap1 | Lap2 : Lap1);
    QCOMPARE(program.race().raceMember(0).numberOfLaps(), Laps);
    QCOMPARE(program.race().raceMember(1).numberOfLaps(), Laps / 2);
    QCOMPARE(program.laps(1), QString("040"));
    QCOMPARE(program.laps(2), QString("020"));
}

void tst_parallel_port_race::nothingCountsBetweenTwoRacesAndTheNextBeginsAnew()
{
    RunningProgram& program = start(portSetup());
    for (int race = 1; race <= 3; ++race) {
        startRace();
        QCOMPARE(program.laps(1), QString("000"));
        const Span begin = press(Lap1);
        const Span end = press(Lap1);
        compareLap(1, 1, begin, end);
        program.stopRace();
        const unsigned reads = (*m_port)->reads();
        m_port->press(Lap1);
        QCoreApplication::processEvents();
        open(Lap1);
        QCOMPARE((*m_port)->reads(), reads);
        QCOMPARE(program.laps(1), QString("001"));
    }
}

QTEST_APPLESS_MAIN(tst_parallel_port_race)
#include "tst_parallel_port_race.moc"
