#include "io/CCarreraCu.h"
#include "io/CCarreraCuEvents.h"
#include "io/CCarreraCuIo.h"
#include "race/CLightAction.h"
#include "race/CRace.h"
#include "shell/CSettings.h"
#include "support/ControlUnitDevice.h"
#include "support/JournalLaps.h"
#include "support/MainThreadWatch.h"
#include "support/PaperResult.h"
#include "support/VirtualUnit.h"

#include <QtTest>

namespace {

/** The unit in the memory of this process, whose clock runs while the reading thread waits for it. */
class UnitInMemory
{
public:
    explicit UnitInMemory(const ControlUnitSettings& settings, int latency = 0)
        : m_model(settings, [this] { return m_clock.now; })
    {
        m_model.setJournal([this](const Crossing& crossing) { m_journal.append(crossing); });
        m_clock.atWait = [this] {
            if (!m_isFinished && m_model.isFinished())
                m_finished.release();
            m_isFinished = m_model.isFinished();
        };
        CCarreraCu::instance()->setPortMaker([this, latency](const QString&) {
            return std::make_unique<ControlUnitDevice>(&m_model, &m_clock, latency);
        });
    }
    ~UnitInMemory() { CCarreraCu::release(); } // nobody may read any more

    void pressStart() { m_model.pressStart(); }
    /** @return whether all laps are driven and read. */
    bool isFinished() const { return m_finished.available() > 0; }
    /** Not while somebody reads. */
    QVector<Crossing> journal() const { return m_journal; }
    QList<QByteArray> commands() const { return m_model.commands(); }
    int polls() const { return m_model.polls(); }

private:
    Q_DISABLE_COPY(UnitInMemory)

    WaitingClock m_clock;
    ControlUnitModel m_model;
    QVector<Crossing> m_journal;
    QSemaphore m_finished;
    bool m_isFinished = false;
};

const QStringList DriverNames{"Anna", "Ben", "Carla", "David", "Emma", "Felix", "Greta", "Hans"};

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
    void theWinnerIsThatOfTheUnitsRecord_data();
    void theWinnerIsThatOfTheUnitsRecord();
    void theFirstCarOfTheRecordAtTheLapLimitWinsAndEndsTheRace();
    void aRaceSwitchesNothingOnTheUnitThoughThePowerIsToldAsSwitched();
    void theLightsFollowTheUnit();
    void theTanksFollowTheUnitWhileARaceRuns();
    void withThreeMembersTheOtherTanksAreIgnored();
    void aStartLightOfOneOrEightChangesNoLight();
    void aPulledCableDisturbsNothingAndTheNextRaceOpensThePortAnew();

private:
    CRace& makeRace(int tracks, int sectors, const QString& port);
    int totalLaps() const;
    void compareLaps(const QVector<Crossing>& journal, int lapsEach);
    CRace& startRaceInMemory(const ControlUnitSettings& settings, int latency = 0);
    void driveAllLaps(const ControlUnitSettings& settings, int latency = 0);
    QVector<int> winners() const;
    void letTimeRunOut();

    CSettings m_settings;
    CRaceway m_raceway; ///< what makeRace() adds tracks and interface to
    CRaceSettings m_raceSettings;
    std::unique_ptr<UnitInMemory> m_unit;
    std::unique_ptr<CRace> m_race;
    QList<int> m_lights;
    QStringList m_texts;
};

void tst_control_unit_race::cleanup()
{
    m_race.reset();
    m_unit.reset();
    m_lights.clear();
    m_texts.clear();
    m_raceway = CRaceway();
    m_raceSettings = CRaceSettings();
}

/** Makes a race with a flying start and without an end, unless the settings tell another. */
CRace& tst_control_unit_race::makeRace(int tracks, int sectors, const QString& port)
{
    CCarreraCuIo io;
    io.setPortName(port);
    m_raceway.tracks = CRaceway(tracks).tracks;
    m_raceway.ioSettings = io.writeSettings();
    m_raceway.numberOfSectors = sectors;
    m_raceSettings.setRaceway(m_raceway);
    for (int track = 0; track < tracks; ++track) {
        CDriver driver;
        driver.setName(DriverNames[track]);
        m_raceSettings.setDriver(track, driver);
    }
    m_race = std::make_unique<CRace>(&m_settings, &m_raceSettings);
    connect(m_race.get(), &CRace::UpdateLights, this, [this](int action) { m_lights.append(action); });
    connect(m_race.get(), &CRace::raceInfoText, this, [this](const QString& text) { m_texts.append(text); });
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

CRace& tst_control_unit_race::startRaceInMemory(const ControlUnitSettings& settings, int latency)
{
    m_unit = std::make_unique<UnitInMemory>(settings, latency);
    CRace& race = makeRace(settings.cars.size(), settings.sectors, QStringLiteral("memory"));
    m_unit->pressStart();
    race.vStartQuickRace();
    return race;
}

/** Waits until all laps are driven, and stops the reading, so that the journal can be looked at. */
void tst_control_unit_race::driveAllLaps(const ControlUnitSettings& settings, int latency)
{
    CRace& race = startRaceInMemory(settings, latency);
    QTRY_VERIFY_WITH_TIMEOUT(m_unit->isFinished(), 60000);
    QTRY_COMPARE(totalLaps(), settings.cars.size() * settings.laps);
    race.vStop();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(totalLaps(), settings.cars.size() * settings.laps);
}

/** The race only lends its end condition. */
void tst_control_unit_race::letTimeRunOut()
{
    auto* end = const_cast<CEndCondition*>(m_race->endCondition());
    QVERIFY(QMetaObject::invokeMethod(end, "endTimerEventOccured", Qt::DirectConnection));
}

QVector<int> tst_control_unit_race::winners() const
{
    QVector<int> winners;
    for (int track = 0; track < m_race->numberOfMembers(); ++track) {
        if (m_race->raceMember(track).status() == CRaceMemberStatus::Winner)
            winners.append(track);
    }
    return winners;
}

void tst_control_unit_race::alternatelyRepeatedFramesCountEachLapOnce()
{
    ControlUnitSettings settings;
    settings.cars = QVector<ControlUnitSettings::Car>(2);
    settings.laps = 50;
    settings.speedUp = 20;
    settings.lightStep = 0;
    settings.faults.repeat = 100; // A, B, A, B, A, B: each frame differs from the one before
    driveAllLaps(settings);
    compareLaps(m_unit->journal(), 50);
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
    driveAllLaps(settings, latency);
    compareLaps(m_unit->journal(), 25);
}

void tst_control_unit_race::theWinnerIsThatOfTheUnitsRecord_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<bool>("useTarget");
    QTest::addColumn<int>("ignoredLaps");
    QTest::newRow("no winner") << 0 << false << 0;
    QTest::newRow("most laps") << 1 << false << 0;
    QTest::newRow("fastest lap") << 2 << false << 0;
    QTest::newRow("lowest average") << 3 << false << 0;
    QTest::newRow("closest to the target") << 4 << false << 0;
    QTest::newRow("average closest to the target") << 5 << false << 0;
    QTest::newRow("constancy") << 6 << false << 0;
    QTest::newRow("constancy without the worst laps") << 6 << false << 3;
    QTest::newRow("constancy around a target") << 6 << true << 0;
    QTest::newRow("constancy around a target without the worst laps") << 6 << true << 3;
}

void tst_control_unit_race::theWinnerIsThatOfTheUnitsRecord()
{
    QFETCH(int, rule);
    QFETCH(bool, useTarget);
    QFETCH(int, ignoredLaps);
    m_raceSettings.setEndType(CRaceSettings::TimeLimit);
    m_raceSettings.setEndTime(QTime(1, 0));
    m_raceSettings.setWinningCondition(rule);
    m_raceSettings.setWinningTargetTime(QTime(0, 0, 6, 200));
    m_raceSettings.setUseTargetTime(useTarget);
    m_raceSettings.setNumOfWorstLapsToIgnore(ignoredLaps);
    ControlUnitSettings settings;
    settings.cars = {{{6300, 900}, 15}, {{6100, 300}, 15}, {{6400, 100}, 15}, {{6000, 700}, 15}};
    settings.laps = 12;
    settings.speedUp = 20;
    settings.lightStep = 0;
    settings.faults = {10, 10, 10, 20};
    CRace& race = startRaceInMemory(settings);
    QTRY_VERIFY_WITH_TIMEOUT(m_unit->isFinished(), 60000);
    QTRY_COMPARE(totalLaps(), 48);
    QVERIFY(race.isRaceActive());
    QVERIFY(winners().isEmpty());
    letTimeRunOut();
    QVERIFY(!race.isRaceActive());

    const PaperResult result(m_raceSettings, lapTimesOf(m_unit->journal(), 4), DriverNames);
    QCOMPARE(winners(), result.winners());
    QCOMPARE(winners().isEmpty(), rule == 0);
    QCOMPARE(m_texts, QStringList({"", "Rennen wurde beendet", result.text()}));
}

void tst_control_unit_race::theFirstCarOfTheRecordAtTheLapLimitWinsAndEndsTheRace()
{
    constexpr int Limit = 10;
    m_raceSettings.setEndType(CRaceSettings::LapLimit);
    m_raceSettings.setNumberOfLaps(Limit);
    m_raceSettings.setWinningCondition(1);
    ControlUnitSettings settings;
    settings.cars = {{{6300, 200}, 15}, {{6250, 200}, 15}, {{6000, 200}, 15}, {{6050, 200}, 15}};
    settings.speedUp = 20;
    settings.lightStep = 0;
    settings.faults = {10, 10, 10, 20};
    CRace& race = startRaceInMemory(settings);
    QTRY_VERIFY_WITH_TIMEOUT(!race.isRaceActive(), 60000);
    QCoreApplication::sendPostedEvents(); // what was read until then counts no more

    QVector<Crossing> journal = m_unit->journal();
    QVector<int> crossings(settings.cars.size());
    const auto isLastLap = [&](const Crossing& crossing) { return ++crossings[crossing.car - 1] > Limit; };
    const auto end = std::find_if(journal.begin(), journal.end(), isLastLap);
    QVERIFY(end != journal.end());
    const int winner = end->car - 1;
    journal.erase(end + 1, journal.end());
    QCOMPARE(winners(), QVector<int>{winner});
    QCOMPARE(m_texts.last(), QString("Die meisten Runden gefahren hat %1.").arg(DriverNames[winner]));
    const QVector<QVector<int>> laps = lapTimesOf(journal, settings.cars.size());
    for (int track = 0; track < laps.size(); ++track) {
        const CRaceMember member = race.raceMember(track);
        QCOMPARE(member.numberOfLaps(), laps[track].size());
        for (int lap = 0; lap < laps[track].size(); ++lap)
            QCOMPARE(member.lap(lap).lapTime, laps[track][lap]);
    }
}

/** The unit has its own switches for the track and its own lamps. */
void tst_control_unit_race::aRaceSwitchesNothingOnTheUnitThoughThePowerIsToldAsSwitched()
{
    m_raceway.pwrOffFeatureAvailable = true;
    m_raceway.externalLightsAvailable = true;
    m_raceway.chaosPhaseOutputAvailable = true;
    ControlUnitSettings settings;
    settings.speedUp = 20;
    settings.lightStep = 0;
    m_unit = std::make_unique<UnitInMemory>(settings);
    CRace& race = makeRace(2, 1, QStringLiteral("memory"));
    QStringList power;
    connect(&race, &CRace::trackPowerStateChanged, this, [&power](int track, bool on) {
        power.append(QString::number(track + 1) + (on ? " on" : " off"));
    });
    m_unit->pressStart();
    race.vStartQuickRace();
    QTRY_VERIFY(totalLaps() >= 4);
    race.trackPowerToggle(1);
    race.vPause();
    race.vResume();
    race.vStop();
    QCOMPARE(power, QStringList({"1 on", "2 on", "2 off", "1 off", "2 off"}));
    QVERIFY(m_unit->polls() > 0);
    QCOMPARE(m_unit->commands(), QList<QByteArray>());
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

    QCOMPARE(MainThreadWatch::during(2000).complaints(), QString());
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
