#include "io/CIoWarriorIo.h"
#include "io/CRacewayIoFactory.h"
#include "race/CRace.h"
#include "shell/CSettings.h"
#include "support/MainThreadWatch.h"
#include "support/TestChip.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

#include <optional>

namespace {

constexpr int Tracks = 2;
constexpr int MinTime = 200; // milliseconds

/** Where the wires go. */
enum Pin
{
    Lap = 0, ///< and the next one
    ChaosButton = 2,
    Power = 8,    ///< and the next one
    RedLamp = 10, ///< and the next four
    GreenLamp = 15,
    ChaosSignal = 31
};

quint32 bit(int pin)
{
    return 1U << pin;
}

QString letters(quint32 written, int first, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += (written & bit(first + i)) ? QString::number(i + 1) : QStringLiteral("-");
    return text;
}

} // namespace

class tst_iowarrior_race : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aWholeRaceFromTheLampsToTheWinner_data();
    void aWholeRaceFromTheLampsToTheWinner();
    void aCarThatStandsOnItsSensorIsNoFalseStartByTheLamps();
    void aCarThatComesDuringTheLampsIsAFalseStart();
    void anUnpluggedChipDisturbsNothingAndTheNextStartFindsItAgain();
    void aSilentChipDoesNotFreezeTheRace();
    void aChipThatComesLateIsFoundByTheNextStart();

private:
    /** Learns the raceway as the wizard does, by pressing each sensor. */
    CRaceway learnRaceway();
    CRace& makeRace();
    void useTimedStart();
    /** What the pins say, in words. */
    QString outputs();
    QString output(const QString& redLamps, bool green, const QString& power, bool chaos) const;
    /** Lets a car cross the line, when the shortest lap is over; sees it off the sensor again. */
    void cross(int track);
    void press(int pin) { (*m_chip)->pullLow(bit(pin)); }
    void letGo(int pin) { (*m_chip)->letGo(bit(pin)); }
    void letTheThreadRead();
    int laps(int track) const { return m_race->raceMember(track).numberOfLaps(); }
    CRaceMemberStatus status(int track) const { return m_race->raceMember(track).status(); }
    void driveLap(int track);

    std::optional<TestChip> m_chip;
    CSettings m_settings;
    CRaceSettings m_raceSettings;
    std::unique_ptr<CRace> m_race;
    QElapsedTimer m_clock;
    QVector<qint64> m_pressed; ///< of each track, on m_clock; when its sensor was pressed last
    QVector<qint64> m_seen;    ///< when the race had seen it
};

void tst_iowarrior_race::initTestCase()
{
    m_chip.emplace();
    m_clock.start();
}

void tst_iowarrior_race::init()
{
    QVERIFY(m_chip->plug(TestChip::Warrior40));
    m_raceSettings = CRaceSettings();
    m_raceSettings.setRaceway(learnRaceway());
    for (int track = 0; track < Tracks; ++track) {
        CDriver driver;
        driver.setName(QStringLiteral("Driver %1").arg(track + 1));
        m_raceSettings.setDriver(track, driver);
    }
    m_pressed = QVector<qint64>(Tracks, m_clock.elapsed() - 10 * MinTime);
    m_seen = m_pressed;
}

void tst_iowarrior_race::cleanup()
{
    (*m_chip)->setSilent(false);
    m_race.reset();
}

CRaceway tst_iowarrior_race::learnRaceway()
{
    const auto io = CRacewayIoFactory::createIoWarrior40();
    io->capturePortState(PortId::Open);
    const auto learn = [&](int portId, int pin) {
        press(pin);
        io->capturePortState(portId);
        letGo(pin);
    };
    learn(PortId::ChaosButton, ChaosButton);
    for (int track = 0; track < Tracks; ++track) {
        learn(PortId::lapSensor(track), Lap + track);
        io->setPortState(PortId::trackPower(track), int(bit(Power + track)), false);
    }
    for (int lamp = 0; lamp < PortId::RedLamps; ++lamp)
        io->setPortState(PortId::redLamp(lamp), int(bit(RedLamp + lamp)), false);
    io->setPortState(PortId::GreenLamp, int(bit(GreenLamp)), false);
    io->setPortState(PortId::ChaosSignal, int(bit(ChaosSignal)), true); // wired the other way round

    CRaceway raceway(Tracks);
    raceway.ioSettings = io->writeSettings();
    raceway.minTime = MinTime;
    raceway.chaosButtonAvailable = true;
    raceway.chaosPhaseOutputAvailable = true;
    raceway.pwrOffFeatureAvailable = true;
    raceway.externalLightsAvailable = true;
    return raceway;
}

CRace& tst_iowarrior_race::makeRace()
{
    m_race = std::make_unique<CRace>(&m_settings, &m_raceSettings);
    return *m_race;
}

void tst_iowarrior_race::useTimedStart()
{
    m_raceSettings.setStartType(CRaceSettings::TimedStart);
    m_raceSettings.setStartLightsMinDelay(100);
    m_raceSettings.setStartLightsMaxDelay(0);
}

QString tst_iowarrior_race::outputs()
{
    const quint32 written = (*m_chip)->written();
    return output(letters(written, RedLamp, PortId::RedLamps), (written & bit(GreenLamp)) != 0,
                  letters(written, Power, Tracks), (written & bit(ChaosSignal)) == 0);
}

QString tst_iowarrior_race::output(const QString& redLamps, bool green, const QString& power,
                                   bool chaos) const
{
    return QStringLiteral("red %1 green %2 power %3 chaos %4")
        .arg(redLamps, green ? "on" : "off", power, chaos ? "on" : "off");
}

void tst_iowarrior_race::letTheThreadRead()
{
    const unsigned before = (*m_chip)->count(VirtualIoWarrior::Answered);
    QTRY_VERIFY((*m_chip)->count(VirtualIoWarrior::Answered) - before >= 3);
    QCoreApplication::processEvents();
}

void tst_iowarrior_race::cross(int track)
{
    QTRY_VERIFY(m_clock.elapsed() - m_seen.at(track) > MinTime + 10);
    QSignalSpy events(m_race.get(), &CRace::RaceEventHappened);
    m_pressed[track] = m_clock.elapsed();
    press(Lap + track);
    QTRY_VERIFY(!events.isEmpty());
    m_seen[track] = m_clock.elapsed();
    letGo(Lap + track);
    if (m_race->isRaceActive())
        letTheThreadRead();
}

/** A lap that is counted, with the time between the two crossings. */
void tst_iowarrior_race::driveLap(int track)
{
    const int before = laps(track);
    const qint64 pressed = m_pressed.at(track);
    const qint64 seen = m_seen.at(track);
    cross(track);
    QCOMPARE(laps(track), before + 1);
    // The stamp of a crossing lies between the press and the moment when the race knew of it.
    const int lapTime = m_race->raceMember(track).lap(before).lapTime;
    QVERIFY2(lapTime >= m_pressed.at(track) - seen - 1, qPrintable(QString::number(lapTime)));
    QVERIFY2(lapTime <= m_seen.at(track) - pressed + 1, qPrintable(QString::number(lapTime)));
}

void tst_iowarrior_race::aWholeRaceFromTheLampsToTheWinner_data()
{
    QTest::addColumn<unsigned>("productId");
    QTest::newRow("IO-Warrior40") << TestChip::Warrior40;
    QTest::newRow("IO-Warrior56, for a raceway set up for an IO-Warrior40") << TestChip::Warrior56;
}

void tst_iowarrior_race::aWholeRaceFromTheLampsToTheWinner()
{
    QFETCH(unsigned, productId);
    QVERIFY(m_chip->plug(productId));
    useTimedStart();
    m_raceSettings.setEndType(CRaceSettings::LapLimit);
    m_raceSettings.setNumberOfLaps(3);
    m_raceSettings.setWinningCondition(1);
    m_raceSettings.setRedLightsOnRaceStopped(true);
    CRace& race = makeRace();
    race.vStop(); // as at the start of the program
    QCOMPARE(outputs(), output("12345", false, "--", false));
    QSignalSpy info(&race, &CRace::raceInfoText);

    race.vStartQuickRace();
    QVERIFY(race.io()->isRunning());
    for (const char* redLamps : {"1----", "12---", "123--", "1234-", "12345"})
        QTRY_COMPARE_WITH_TIMEOUT(outputs(), output(redLamps, false, "12", false), 10000);
    QTRY_COMPARE_WITH_TIMEOUT(outputs(), output("-----", true, "12", false), 10000);
    QCOMPARE(status(0), CRaceMemberStatus::Starting);

    cross(0);
    cross(1);
    QCOMPARE(status(0), CRaceMemberStatus::Running);
    QCOMPARE(status(1), CRaceMemberStatus::Running);
    driveLap(1);
    driveLap(0);
    driveLap(1);

    press(ChaosButton);
    QTRY_VERIFY(race.isPaused());
    QTRY_COMPARE(outputs(), output("-----", true, "12", true));
    letGo(ChaosButton);
    letTheThreadRead();
    QElapsedTimer sincePress;
    sincePress.start();
    QTRY_VERIFY(sincePress.elapsed() > MinTime);
    press(ChaosButton);
    QTRY_VERIFY(!race.isPaused());
    QTRY_COMPARE(outputs(), output("-----", true, "12", false));
    letGo(ChaosButton);
    letTheThreadRead();
    race.trackPower(0, false);
    QTRY_COMPARE(outputs(), output("-----", true, "-2", false));
    race.trackPower(0, true);
    QTRY_COMPARE(outputs(), output("-----", true, "12", false));

    // The pause has thrown the laps in progress away.
    cross(0);
    cross(1);
    driveLap(0);
    QVERIFY(race.isRaceActive());
    driveLap(1);
    QVERIFY(!race.isRaceActive());
    QVERIFY(!race.io()->isRunning());
    QCOMPARE(outputs(), output("12345", false, "--", false));
    QCOMPARE(laps(0), 2);
    QCOMPARE(laps(1), 3);
    QCOMPARE(status(1), CRaceMemberStatus::Winner);
    QCOMPARE(info.last().at(0).toString(), QStringLiteral("Die meisten Runden gefahren hat Driver 2."));
}

void tst_iowarrior_race::aCarThatStandsOnItsSensorIsNoFalseStartByTheLamps()
{
    useTimedStart();
    press(Lap + 1);
    CRace& race = makeRace();
    race.vStop();
    race.vStartQuickRace();
    QTRY_COMPARE_WITH_TIMEOUT(outputs(), output("-----", true, "12", false), 15000);
    QVERIFY(race.isRaceActive());
    QCOMPARE(status(1), CRaceMemberStatus::Starting);
    letGo(Lap + 1);
    letTheThreadRead();
    QCOMPARE(status(1), CRaceMemberStatus::Starting);
    cross(1);
    QCOMPARE(status(1), CRaceMemberStatus::Running);
}

void tst_iowarrior_race::aCarThatComesDuringTheLampsIsAFalseStart()
{
    useTimedStart();
    CRace& race = makeRace();
    race.vStartQuickRace();
    QTRY_COMPARE(outputs(), output("1----", false, "12", false));
    press(Lap + 1);
    QTRY_VERIFY(!race.isRaceActive());
    letGo(Lap + 1);
    QCOMPARE(status(0), CRaceMemberStatus::Finished);
    QCOMPARE(status(1), CRaceMemberStatus::FalseStart);
    QCOMPARE(outputs(), output("-----", false, "--", false));
}

void tst_iowarrior_race::anUnpluggedChipDisturbsNothingAndTheNextStartFindsItAgain()
{
    CRace& race = makeRace();
    race.vStartQuickRace();
    cross(0);
    driveLap(0);
    (*m_chip)->unplug();

    QCOMPARE(MainThreadWatch::during(2000).complaints(), QString());
    QVERIFY(race.isRaceActive());
    race.trackPowerToggle(1);
    race.vPause();
    race.vResume();
    race.vStop();
    QVERIFY(!race.isRaceActive());
    QCOMPARE(laps(0), 1);

    // Plugged in again: the start closes the old handle and opens the chip anew.
    QVERIFY(m_chip->plug(TestChip::Warrior40));
    race.vStartQuickRace();
    QVERIFY(race.io()->isRunning());
    QCOMPARE(outputs(), output("-----", true, "12", false));
    cross(0);
    driveLap(0);
    driveLap(0);
    QCOMPARE(laps(0), 2);
    race.vStop();
    QCOMPARE(outputs(), output("-----", false, "--", false));
}

void tst_iowarrior_race::aSilentChipDoesNotFreezeTheRace()
{
    CRace& race = makeRace();
    race.vStartQuickRace();
    cross(0);
    driveLap(0);
    (*m_chip)->setSilent(true);
    QCOMPARE(MainThreadWatch::during(1500).complaints(), QString());
    for (int i = 0; i < 20; ++i)
        race.trackPowerToggle(1);

    // An answer that got lost costs no more than the laps of that time.
    (*m_chip)->setSilent(false);
    letTheThreadRead();
    driveLap(0);
    (*m_chip)->setSilent(true);
    QTRY_VERIFY((*m_chip)->count(VirtualIoWarrior::Asked) - (*m_chip)->count(VirtualIoWarrior::Answered) > 1);
    QElapsedTimer stopping;
    stopping.start();
    race.vStop();
    QVERIFY2(stopping.elapsed() < 500, qPrintable(QString::number(stopping.elapsed())));
    QVERIFY(!race.isRaceActive());
    QCOMPARE(laps(0), 2);
    stopping.start();
    race.vStartQuickRace(); // on a chip that has nothing to say
    race.vStop();
    QVERIFY2(stopping.elapsed() < 500, qPrintable(QString::number(stopping.elapsed())));
}

void tst_iowarrior_race::aChipThatComesLateIsFoundByTheNextStart()
{
    (*m_chip)->unplug();
    CRace& race = makeRace();
    race.vStop();
    race.vStartQuickRace();
    QVERIFY(race.isRaceActive());
    QVERIFY(!race.io()->isRunning());
    QVERIFY(m_chip->plug(TestChip::Warrior40));
    QVERIFY(!race.io()->isRunning());
    race.vStop();
    QVERIFY(!race.isRaceActive());

    race.vStartQuickRace();
    QVERIFY(race.io()->isRunning());
    cross(0);
    driveLap(0);
    QCOMPARE(laps(0), 1);
}

QTEST_GUILESS_MAIN(tst_iowarrior_race)
#include "tst_iowarrior_race.moc"
