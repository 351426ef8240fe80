#include "io/CCarreraCu.h"
#include "io/CCarreraCuEvents.h"
#include "io/CCarreraCuIo.h"
#include "race/CLightAction.h"
#include "race/CRace.h"
#include "shell/CSettings.h"
#include "support/ControlUnitDevice.h"
#include "support/MainThreadWatch.h"
#include "support/VirtualUnit.h"

#include <QScopeGuard>
#include <QtTest>

namespace {

/** A lap as the unit's journal tells it, in milliseconds. */
struct JournalLap
{
    int lap = 0;
    int sector2 = 0; ///< from the finishing line to the sensor; 0 for none
    int sector3 = 0;
};

/** @return the laps of each car from 1, in order. */
QMap<int, QVector<JournalLap>> lapsOf(const QVector<Crossing>& journal)
{
    QMap<int, QVector<JournalLap>> laps;
    QMap<int, quint32> begun;
    QMap<int, JournalLap> open;
    for (const Crossing& crossing : journal) {
        const int since = int(crossing.stamp - begun.value(crossing.car));
        if (crossing.group == 2)
            open[crossing.car].sector2 = since;
        if (crossing.group == 3)
            open[crossing.car].sector3 = since;
        if (crossing.group != 1)
            continue;
        if (begun.contains(crossing.car)) {
            open[crossing.car].lap = since;
            laps[crossing.car].append(open.take(crossing.car));
        }
        begun[crossing.car] = crossing.stamp;
    }
    return laps;
}

} // namespace

class tst_control_unit_race : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void everyLapOfAThousandIsCountedOnce();
    void sectorTimesAreThoseOfTheUnit();
    void alternatelyRepeatedFramesCountEachLapOnce();
    void faultsOfEveryKindLoseNoLap_data();
    void faultsOfEveryKindLoseNoLap();
    void theLightsFollowTheUnit();
    void theTanksFollowTheUnitWhileARaceRuns();
    void withThreeMembersTheOtherTanksAreIgnored();
    void aStartLightOfOneOrEightChangesNoLight();
    void aPulledCableDisturbsNothingAndTheNextRaceOpensThePortAnew();

private:
    CRace& makeRace(int tracks, int sectors, const QString& port);
    int totalLaps() const;
    void compareLaps(const QVector<Crossing>& journal, int lapsEach);
    void raceInMemory(const ControlUnitSettings& settings, int latency, QVector<Crossing>* journal);

    CSettings m_settings;
    CRaceSettings m_raceSettings;
    std::unique_ptr<CRace> m_race;
    QList<int> m_lights;
};

void tst_control_unit_race::cleanup()
{
    m_race.reset();
    m_lights.clear();
}

/** Makes a race with a flying start and without an end. */
CRace& tst_control_unit_race::makeRace(int tracks, int sectors, const QString& port)
{
    CCarreraCuIo io;
    io.setPortName(port);
    CRaceway raceway(tracks);
    raceway.ioSettings = io.writeSettings();
    raceway.numberOfSectors = sectors;
    m_raceSettings = CRaceSettings();
    m_raceSettings.setRaceway(raceway);
    m_race = std::make_unique<CRace>(&m_settings, &m_raceSettings);
    connect(m_race.get(), &CRace::UpdateLights, this, [this](int action) { m_lights.append(action); });
    return *m_race;
}

int tst_control_unit_race::totalLaps() const
{
    int laps = 0;
    for (int track = 0; track < m_race->numberOfMembers(); ++track)
        laps += m_race->raceMember(track).numberOfLaps();
    return laps;
}

void tst_control_unit_race::compareLaps(const QVector<Crossing>& journal, int lapsEach)
{
    const QMap<int, QVector<JournalLap>> laps = lapsOf(journal);
    QCOMPARE(laps.size(), m_race->numberOfMembers());
    for (int track = 0; track < m_race->numberOfMembers(); ++track) {
        const CRaceMember member = m_race->raceMember(track);
        const QVector<JournalLap> expected = laps.value(track + 1);
        QCOMPARE(expected.size(), lapsEach);
        QCOMPARE(member.numberOfLaps(), lapsEach);
        for (int i = 0; i < lapsEach; ++i)
            QCOMPARE(member.lap(i).lapTime, expected.at(i).lap);
    }
}

void tst_control_unit_race::everyLapOfAThousandIsCountedOnce()
{
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    VirtualUnit unit;
    QVERIFY(
        unit.start({"--cars",         "8",  "--laps",     "125",   "--speed-up",   "32", "--light-step", "0",
                    "--seed",         "42", "--journal",  journal, "--repeat",     "10", "--noise",      "3",
                    "--bad-checksum", "3",  "--lost-end", "2",     "--long-status"}));
    CRace& race = makeRace(8, 1, unit.path());
    race.vStartQuickRace();
    unit.command("start");
    QTRY_VERIFY_WITH_TIMEOUT(unit.hasSaid(QStringLiteral("finished")), 200000);
    QTRY_COMPARE(totalLaps(), 1000);
    race.vStop();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(totalLaps(), 1000);
    compareLaps(VirtualUnit::journal(journal), 125);
}

void tst_control_unit_race::sectorTimesAreThoseOfTheUnit()
{
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    VirtualUnit unit;
    QVERIFY(unit.start({"--cars", "4", "--laps", "10", "--sectors", "3", "--speed-up", "25", "--light-step",
                        "0", "--journal", journal, "--repeat", "10"}));
    CRace& race = makeRace(4, 3, unit.path());
    race.vStartQuickRace();
    unit.command("start");
    QTRY_COMPARE_WITH_TIMEOUT(totalLaps(), 40, 60000);
    race.vStop();

    const QVector<Crossing> crossings = VirtualUnit::journal(journal);
    compareLaps(crossings, 10);
    const QMap<int, QVector<JournalLap>> laps = lapsOf(crossings);
    for (int track = 0; track < 4; ++track) {
        for (int i = 0; i < 10; ++i) {
            const CLapTime lap = race.raceMember(track).lap(i);
            const JournalLap expected = laps.value(track + 1).at(i);
            QCOMPARE(lap.sector1Time, expected.sector2);
            QCOMPARE(lap.sector2Time, expected.sector3 - expected.sector2);
            QCOMPARE(lap.sector3Time, expected.lap - expected.sector3);
        }
    }
}

/** Drives a race on a unit in memory, whose clock runs while the reading thread waits for it. */
void tst_control_unit_race::raceInMemory(const ControlUnitSettings& settings, int latency,
                                         QVector<Crossing>* journal)
{
    WaitingClock clock;
    ControlUnitModel model(settings, [&clock] { return clock.now; });
    QSemaphore finished;
    bool isFinished = false;
    model.setJournal([&](const Crossing& crossing) { journal->append(crossing); });
    clock.atWait = [&] {
        if (!isFinished && model.isFinished())
            finished.release();
        isFinished = model.isFinished();
    };
    CCarreraCu::instance()->setPortMaker(
        [&](const QString&) { return std::make_unique<ControlUnitDevice>(&model, &clock, latency); });
    CRace& race = makeRace(settings.cars.size(), settings.sectors, QStringLiteral("memory"));
    const auto stopReading = qScopeGuard([&race] {
        race.vStop();
        QCoreApplication::sendPostedEvents();
        CCarreraCu::release();
    });
    model.pressStart();
    race.vStartQuickRace();
    QTRY_VERIFY_WITH_TIMEOUT(finished.available() > 0, 60000);
    QTRY_COMPARE(totalLaps(), settings.cars.size() * settings.laps);
}

void tst_control_unit_race::alternatelyRepeatedFramesCountEachLapOnce()
{
    ControlUnitSettings settings;
    settings.cars = QVector<ControlUnitSettings::Car>(2);
    settings.laps = 50;
    settings.speedUp = 20;
    settings.lightStep = 0;
    settings.faults.repeat = 100; // A, B, A, B, A, B: each frame differs from the one before
    QVector<Crossing> journal;
    raceInMemory(settings, 0, &journal);
    compareLaps(journal, 50);
}

void tst_control_unit_race::faultsOfEveryKindLoseNoLap_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<int>("noise");
    QTest::addColumn<int>("lostEnd");
    QTest::addColumn<int>("badChecksum");
    QTest::addColumn<int>("latency");
    QTest::addColumn<quint32>("firstStamp");

    QTest::newRow("none") << 1 << 0 << 0 << 0 << 0 << quint32(1000);
    QTest::newRow("noise") << 2 << 50 << 0 << 0 << 0 << quint32(1000);
    QTest::newRow("lost ends") << 3 << 0 << 50 << 0 << 0 << quint32(1000);
    QTest::newRow("bad checksums") << 4 << 0 << 0 << 50 << 0 << quint32(1000);
    QTest::newRow("all of them") << 5 << 15 << 15 << 15 << 0 << quint32(1000);
    QTest::newRow("all, adapter with 16 ms") << 6 << 15 << 15 << 15 << 16000 << quint32(1000);
    QTest::newRow("all, adapter with 250 ms") << 7 << 15 << 15 << 15 << 250000 << quint32(1000);
    QTest::newRow("the unit's clock passes 2^31") << 8 << 0 << 0 << 0 << 0 << quint32(0x7fffffff - 60000);
    QTest::newRow("the unit's clock begins anew") << 9 << 0 << 0 << 0 << 0 << quint32(0xffffffff - 60000);
}

void tst_control_unit_race::faultsOfEveryKindLoseNoLap()
{
    QFETCH(int, seed);
    QFETCH(int, noise);
    QFETCH(int, lostEnd);
    QFETCH(int, badChecksum);
    QFETCH(int, latency);
    QFETCH(quint32, firstStamp);

    ControlUnitSettings settings;
    settings.cars = QVector<ControlUnitSettings::Car>(8);
    settings.laps = 25;
    settings.seed = quint32(seed);
    settings.speedUp = 20;
    settings.firstStamp = firstStamp;
    settings.lightStep = 0;
    settings.faults.noise = noise;
    settings.faults.lostEnd = lostEnd;
    settings.faults.badChecksum = badChecksum;
    settings.faults.repeat = 10;
    QVector<Crossing> journal;
    raceInMemory(settings, latency, &journal);
    compareLaps(journal, 25);
}

void tst_control_unit_race::theLightsFollowTheUnit()
{
    VirtualUnit unit;
    QVERIFY(unit.start({"--cars", "2", "--speed-up", "5", "--light-step", "1000"}));
    makeRace(2, 1, unit.path()).vStartQuickRace();
    m_lights.clear();
    unit.command("start");
    QTRY_VERIFY(m_lights.contains(CLightAction::AllOff));
    const QList<int> expected{CLightAction::NextRed, CLightAction::NextRed, CLightAction::NextRed,
                              CLightAction::NextRed, CLightAction::NextRed, CLightAction::AllOff};
    QCOMPARE(m_lights.mid(0, 6), expected);
    QTRY_VERIFY(totalLaps() > 0);
    QCOMPARE(m_lights.count(CLightAction::NextRed), 5);
}

void tst_control_unit_race::theTanksFollowTheUnitWhileARaceRuns()
{
    VirtualUnit unit;
    QVERIFY(unit.start({"--car", "6000:0:15", "--car", "6000:0:9", "--car", "6000:0:4"}));
    CRace& race = makeRace(3, 1, unit.path());
    race.vStartQuickRace();
    QTRY_COMPARE(race.raceMember(1).fuelPercent(), 60);
    QCOMPARE(race.raceMember(0).fuelPercent(), 100);
    QCOMPARE(race.raceMember(2).fuelPercent(), 26); // 4 * 100 / 15, in whole percent
    unit.command("fuel 1 0");
    QTRY_COMPARE(race.raceMember(0).fuelPercent(), 0);
}

void tst_control_unit_race::withThreeMembersTheOtherTanksAreIgnored()
{
    CRace& race = makeRace(3, 1, QString());
    race.vStartQuickRace();
    CCarreraCuStatusEvent status({3, 6, 9, 12, 15, 0}, 0);
    QCoreApplication::sendEvent(&race, &status);
    QCOMPARE(race.numberOfMembers(), 3);
    QCOMPARE(race.raceMember(0).fuelPercent(), 20);
    QCOMPARE(race.raceMember(1).fuelPercent(), 40);
    QCOMPARE(race.raceMember(2).fuelPercent(), 60);
}

void tst_control_unit_race::aStartLightOfOneOrEightChangesNoLight()
{
    CRace& race = makeRace(2, 1, QString());
    for (int light : {0, 1, 8, 9, 15}) {
        CCarreraCuStatusEvent status({}, quint8(light));
        QCoreApplication::sendEvent(&race, &status);
    }
    QVERIFY(m_lights.isEmpty());
    CCarreraCuStatusEvent status({}, 2);
    QCoreApplication::sendEvent(&race, &status);
    QCOMPARE(m_lights, QList<int>{CLightAction::NextRed});
}

void tst_control_unit_race::aPulledCableDisturbsNothingAndTheNextRaceOpensThePortAnew()
{
    const QString link = QDir::current().filePath(QStringLiteral("unit"));
    VirtualUnit unit;
    QVERIFY(unit.start({"--cars", "2", "--speed-up", "20", "--light-step", "0", "--link", link}));
    CRace& race = makeRace(2, 1, link);
    race.vStartQuickRace();
    unit.command("start");
    QTRY_VERIFY_WITH_TIMEOUT(totalLaps() >= 4, 30000);
    unit.command("pull");
    QVERIFY(unit.polls() > 0); // the command before this one is carried out by now

    const MainThreadWatch watch = MainThreadWatch::during(2000);
    QVERIFY2(watch.processorShare < 0.2, qPrintable(QString::number(watch.processorShare)));
    QVERIFY2(watch.longestGap < 500, qPrintable(QString::number(watch.longestGap)));
    QVERIFY(race.isRaceActive());

    const int laps = totalLaps();
    race.vStop();
    QVERIFY(!race.isRaceActive());
    QCOMPARE(totalLaps(), laps);

    QVERIFY(unit.plug());
    race.vStartQuickRace();
    QCOMPARE(totalLaps(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(totalLaps() >= 4, 30000);
}

QTEST_GUILESS_MAIN(tst_control_unit_race)
#include "tst_control_unit_race.moc"
