#include "io/CRaceControl.h"
#include "io/CRaceControlIo.h"
#include "race/CRace.h"
#include "shell/CSettings.h"
#include "support/MainThreadWatch.h"
#include "support/RaceBox.h"

#include <QtTest>

namespace {

/** The code at rest: a deactivated sensor, left and intermediate, of the box 0. */
constexpr int Rest = 0x0300;

/** Which bit of a code makes out a sensor; the sensor of the other track lacks it. */
enum SensorBit
{
    RightBit = 0x0001,
    StartBit = 0x0002,
    Box1Bit = 0x0004
};

/** A raceway with one lap sensor for each of two tracks. */
CRaceway twoTracks(const QStringList& ports, SensorBit first, SensorBit second)
{
    CRaceControlIo io;
    for (int box = 0; box < ports.size(); ++box)
        io.setPortName(box, ports.at(box));
    for (int id = 0; id < PortId::Count; ++id)
        io.setPortState(id, Rest, false);
    io.setPortState(PortId::lapSensor(0), Rest | first, false);
    io.setPortState(PortId::lapSensor(1), Rest | second, false);
    CRaceway raceway(2);
    raceway.ioSettings = io.writeSettings();
    return raceway;
}

/** One box with both tracks: "right intermediate" is track 0, "left" is track 1. */
CRaceway onOneBox(const QString& port)
{
    return twoTracks({port}, RightBit, StartBit);
}

} // namespace

/** Races on virtual boxes, through the stand-in library. Times are ticks, 4800 a second. */
class tst_racecontrol_race : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aWholeRaceOfTwoTracksCountsEachLapAndNamesTheWinner();
    void twoBoxesOnTwoLinesShareARace();
    void everyLapOfAThousandIsCountedOnce();
    void junkOnTheLineLosesNoLap();
    void aCodeThatIsTheChaosButtonPausesAndResumes();
    void theBoxGetsItsParametersWhenItAsks();
    void aPulledCableDisturbsNothingAndTheNextRaceOpensTheLineAnew();

private:
    CRace& makeRace(const CRaceway& raceway);
    void press(RaceBox& box, int track, quint32 ticks);
    int laps(int track) const { return m_race->raceMember(track).numberOfLaps(); }
    QVector<int> lapTimes(int track) const;
    bool hasCrossed(int track) const;

    CSettings m_settings;
    CRaceSettings m_raceSettings;
    std::unique_ptr<CRace> m_race;
};

void tst_racecontrol_race::cleanup()
{
    m_race.reset();
    m_raceSettings = CRaceSettings();
}

/** Makes a race with a flying start. */
CRace& tst_racecontrol_race::makeRace(const CRaceway& raceway)
{
    m_raceSettings.setRaceway(raceway);
    for (int track = 0; track < 2; ++track) {
        CDriver driver;
        driver.setName(QStringLiteral("Driver %1").arg(track + 1));
        m_raceSettings.setDriver(track, driver);
    }
    m_race = std::make_unique<CRace>(&m_settings, &m_raceSettings);
    return *m_race;
}

/** Lets the car of a track pass the sensor of onOneBox(). */
void tst_racecontrol_race::press(RaceBox& box, int track, quint32 ticks)
{
    box.command((track == 0 ? "press right intermediate " : "press left ") + QByteArray::number(ticks));
}

QVector<int> tst_racecontrol_race::lapTimes(int track) const
{
    const CRaceMember member = m_race->raceMember(track);
    QVector<int> times;
    for (int lap = 0; lap < member.numberOfLaps(); ++lap)
        times.append(member.lap(lap).lapTime);
    return times;
}

bool tst_racecontrol_race::hasCrossed(int track) const
{
    return m_race->raceMember(track).status() == CRaceMemberStatus::Running;
}

void tst_racecontrol_race::aWholeRaceOfTwoTracksCountsEachLapAndNamesTheWinner()
{
    RaceBox box;
    QVERIFY(box.start({}));
    m_raceSettings.setEndType(CRaceSettings::LapLimit);
    m_raceSettings.setNumberOfLaps(5);
    m_raceSettings.setWinningCondition(1);
    CRace& race = makeRace(onOneBox(box.path()));
    QSignalSpy stopped(&race, &CRace::RaceStopped);
    QSignalSpy info(&race, &CRace::raceInfoText);
    race.vStartQuickRace();
    QVERIFY(race.io()->isRunning());

    for (int crossing = 0; crossing <= 5; ++crossing) {
        press(box, 0, quint32(10000 + crossing * 5000));
        press(box, 1, quint32(10500 + crossing * 4800)); // starts later and is faster
    }
    QTRY_COMPARE_WITH_TIMEOUT(stopped.count(), 1, 30000);
    QVERIFY(!race.isRaceActive());
    QVERIFY(!race.io()->isRunning());
    QCoreApplication::sendPostedEvents();

    QCOMPARE(lapTimes(0), QVector<int>(5, 5000));
    QCOMPARE(lapTimes(1), QVector<int>(4, 4800));
    QCOMPARE(race.raceMember(0).status(), CRaceMemberStatus::Winner);
    QCOMPARE(race.raceMember(1).status(), CRaceMemberStatus::Finished);
    QCOMPARE(race.winningCondition()->winner(), 0);
    QCOMPARE(info.last().first().toString(), QString("Die meisten Runden gefahren hat Driver 1."));
}

void tst_racecontrol_race::twoBoxesOnTwoLinesShareARace()
{
    RaceBox first;
    RaceBox second;
    QVERIFY(first.start({"--number", "0"}));
    QVERIFY(second.start({"--number", "1"}));
    CRace& race = makeRace(twoTracks({first.path(), second.path()}, RightBit, Box1Bit));
    race.vStartQuickRace();
    // One behind the other: of two events in one pass only the last one counts.
    const auto pass = [](RaceBox& box, int code, int ticks) {
        box.command(QStringLiteral("event %1 %2").arg(code).arg(ticks).toLatin1());
    };
    pass(first, 0x0201, 10000);
    QTRY_VERIFY(hasCrossed(0));
    pass(second, 0x0204, 500);
    QTRY_VERIFY(hasCrossed(1));
    for (int lap = 1; lap <= 2; ++lap) {
        pass(first, 0x0201, 10000 + lap * 4000);
        QTRY_COMPARE(laps(0), lap);
        pass(second, 0x0204, 500 + lap * 6000);
        QTRY_COMPARE(laps(1), lap);
    }
    QCOMPARE(lapTimes(0), QVector<int>(2, 4000));
    QCOMPARE(lapTimes(1), QVector<int>(2, 6000));
}

void tst_racecontrol_race::everyLapOfAThousandIsCountedOnce()
{
    RaceBox box;
    QVERIFY(box.start({}));
    CRace& race = makeRace(onOneBox(box.path()));
    race.vStartQuickRace();
    // The line is a pseudo-terminal without a pace: no more at once than it can hold.
    constexpr int Bunch = 50;
    for (int crossing = 0; crossing <= 500; ++crossing) {
        press(box, 0, quint32(10000 + crossing * 4801));
        press(box, 1, quint32(10500 + crossing * 4807));
        if (crossing % Bunch == 0)
            QTRY_COMPARE_WITH_TIMEOUT(laps(0) + laps(1), 2 * crossing, 30000);
    }
    QTRY_COMPARE_WITH_TIMEOUT(laps(0) + laps(1), 1000, 30000);
    race.vStop();
    QCOMPARE(lapTimes(0), QVector<int>(500, 4801));
    QCOMPARE(lapTimes(1), QVector<int>(500, 4807));
}

void tst_racecontrol_race::junkOnTheLineLosesNoLap()
{
    RaceBox box;
    QVERIFY(box.start({}));
    CRace& race = makeRace(onOneBox(box.path()));
    race.vStartQuickRace();
    for (int crossing = 0; crossing <= 10; ++crossing) {
        box.command("bytes 00ff7e0d0a11131b");
        box.command("event 0x0700 1");
        press(box, 0, quint32(10000 + crossing * 4800));
        box.command("lost");
        box.command("found");
    }
    QTRY_COMPARE_WITH_TIMEOUT(laps(0), 10, 30000);
    QCOMPARE(lapTimes(0), QVector<int>(10, 4800));
    QCOMPARE(laps(1), 0);
}

void tst_racecontrol_race::aCodeThatIsTheChaosButtonPausesAndResumes()
{
    RaceBox box;
    QVERIFY(box.start({}));
    CRaceway raceway = onOneBox(box.path());
    CRaceControlIo io;
    io.readSettings(raceway.ioSettings);
    io.setPortState(PortId::ChaosButton, Rest | Box1Bit, false);
    raceway.ioSettings = io.writeSettings();
    raceway.chaosButtonAvailable = true;
    CRace& race = makeRace(raceway);
    race.vStartQuickRace();
    press(box, 0, 10000);
    QTRY_VERIFY(hasCrossed(0));
    box.command("event 0x0204 11000");
    QTRY_VERIFY(race.isPaused());
    box.command("event 0x0204 11199"); // the dead time is in ticks, too
    press(box, 0, 12000);
    box.command("event 0x0204 13000");
    QTRY_VERIFY(!race.isPaused());
    QCOMPARE(laps(0), 0);
    press(box, 0, 14000);
    press(box, 0, 18000);
    QTRY_COMPARE(laps(0), 1);
    QCOMPARE(lapTimes(0), QVector<int>{4000});
}

void tst_racecontrol_race::theBoxGetsItsParametersWhenItAsks()
{
    RaceBox box;
    QVERIFY(box.start({}));
    makeRace(onOneBox(box.path())).vStartQuickRace();
    QCOMPARE(box.ask("request", "parameters"), QString("parameters 0 0 0 0 0"));
}

void tst_racecontrol_race::aPulledCableDisturbsNothingAndTheNextRaceOpensTheLineAnew()
{
    const QString link = QDir::current().filePath(QStringLiteral("box"));
    RaceBox box;
    QVERIFY(box.start({"--link", link}));
    CRace& race = makeRace(onOneBox(link));
    race.vStartQuickRace();
    press(box, 0, 10000);
    press(box, 0, 20000);
    QTRY_COMPARE(laps(0), 1);
    box.command("pull");
    QVERIFY(box.events() > 0); // the command before this one is carried out by now

    QCOMPARE(MainThreadWatch::during(2000).complaints(), QString());
    QVERIFY(race.isRaceActive());
    QVERIFY(race.io()->isRunning());
    QCOMPARE(laps(0), 1);
    race.vStop();
    QVERIFY(!race.isRaceActive());
    QVERIFY(!race.io()->isRunning());

    race.vStartQuickRace(); // the link leads nowhere now
    QVERIFY(!race.io()->isRunning());
    race.vStop();

    QVERIFY(box.plug());
    race.vStartQuickRace();
    QVERIFY(race.io()->isRunning());
    press(box, 0, 30000);
    press(box, 0, 36000);
    QTRY_COMPARE(laps(0), 1);
    QCOMPARE(lapTimes(0), QVector<int>{6000});
}

QTEST_GUILESS_MAIN(tst_racecontrol_race)
#include "tst_racecontrol_race.moc"
