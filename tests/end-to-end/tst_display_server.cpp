#include "io/PortIds.h"
#include "network/CKelmoNetworkServer.h"
#include "network/DisplayPeer.h"
#include "race/CRace.h"
#include "shell/CKelmoMain.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CTrackDisplay.h"
#include "support/LoopbackNetwork.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QAction>
#include <QComboBox>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

namespace {

bool isNetworkOurOwn = false;

const QStringList Windowed{"--windowed"};

/** A raceway on which everything can happen. */
StoredSetup setupWithEverything(int tracks)
{
    StoredSetup setup(tracks);
    setup.raceway.chaosButtonAvailable = true;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.raceway.numberOfSectors = 3;
    CFuelSettings fuel = setup.rules.fuelSettings();
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    fuel.setTankSize(3.0);
    fuel.setReserveLevel(1.5);
    fuel.setMaxFuelUsageAmount(1.0);
    setup.rules.setFuelSettings(fuel);
    return setup;
}

/** Writes down the records that a client must get from now on, from what the race tells. */
class ExpectedRecords : public QObject
{
public:
    explicit ExpectedRecords(const CRace& race) : m_race(race)
    {
        const auto note = [this](const QByteArray& record) { records.append(record); };
        const auto notice = [note](DisplayRecord::Type type) {
            return [note, type] { note(DisplayRecord::notice(type)); };
        };
        connect(&race, &CRace::raceInfoText, this,
                [note](const QString& text) { note(DisplayRecord::raceInfoText(text)); });
        connect(&race, &CRace::RaceEventHappened, this,
                [note](const CRaceEvent& event) { note(DisplayRecord::raceEvent(event)); });
        connect(&race, &CRace::UpdateLights, this,
                [note](int action) { note(DisplayRecord::lights(action)); });
        connect(&race, &CRace::UpdateRaceTime, this,
                [note](const QTime& time) { note(DisplayRecord::raceTime(time)); });
        connect(&race, &CRace::trackPowerStateChanged, this,
                [note](int track, bool on) { note(DisplayRecord::trackPower(track, on)); });
        connect(&race, &CRace::RaceStarted, this, [this, note] {
            note(DisplayRecord::raceSettingsWithDrivers(m_race.raceSettingsCopy()));
            note(DisplayRecord::notice(DisplayRecord::RaceStarted));
        });
        connect(&race, &CRace::RecordedRaceStarted, this, notice(DisplayRecord::RecordedRaceStarted));
        connect(&race, &CRace::RaceStopped, this, notice(DisplayRecord::RaceStopped));
        connect(&race, &CRace::RacePaused, this, notice(DisplayRecord::RacePaused));
        connect(&race, &CRace::RaceResumed, this, notice(DisplayRecord::RaceResumed));
    }

    QVector<QByteArray> records;

private:
    const CRace& m_race;
};

int typeOf(const QByteArray& record)
{
    return DisplayRecord::Payload(record).type();
}

bool contains(const QVector<QByteArray>& records, int type)
{
    return std::any_of(records.begin(), records.end(),
                       [type](const QByteArray& record) { return typeOf(record) == type; });
}

/** Laps with sectors on every track, an empty tank among them, and a chaos phase in between. */
void driveARace(RunningProgram& program, int tracks)
{
    for (int lap = 0; lap < 5; ++lap) {
        for (int track = 1; track <= tracks; ++track) {
            program.cross(track);
            program.tap(QStringLiteral("slot%1Sector2Begin").arg(track));
        }
        if (lap == 2) {
            program.tap("chaosButton", 250);
            program.tap("chaosButton", 250);
        }
    }
}

} // namespace

/** The whole program as a race computer, as a client sees it. */
class tst_display_server : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void withNoInterfaceButLoopbackTheProgramListensThere();
    void theProgramListensOnThePortOfItsOption();
    void theProgramListensOnThePortOfItsSettings();
    void aPortInUseLeavesTheProgramRunning();
    void everythingThatTheRaceTellsReachesTheClientInOrder();
    void aRecordedRaceReachesTheClient();
    void aRaceEventIsOnTheScreenOfTheRaceBeforeItIsSent();
    void changedSettingsReachTheClient();
    void theDriversOfAQuickRaceAreThoseOfTheBoxes();
    void aClientShowsItsMenuEntryAsLongAsItIsThere();
    void theMenuEntryShutsTheClientDownWithTheWaitTimeOfTheSettings();
    void theEndOfTheProgramStopsTheRaceAtTheClient();
    void aDisplayClientHasNoServer();
    void theTrackPowerOfTheRaceComputerGoesNowhereInADisplay();
};

void tst_display_server::init()
{
    if (!isNetworkOurOwn)
        QSKIP("this system allows no network of one's own");
    setupWithEverything(2).write();
}

void tst_display_server::withNoInterfaceButLoopbackTheProgramListensThere()
{
    const RunningProgram program(Windowed);
    QCOMPARE(program.server().serverAddress(), QString("127.0.0.1"));
    QCOMPARE(program.server().serverPort(), quint16(47624));
    const DisplayPeer client(47624);
    QTRY_COMPARE(client.types(), (QVector<int>{110, 111}));
}

void tst_display_server::theProgramListensOnThePortOfItsOption()
{
    const RunningProgram program(Windowed + QStringList{"--port", "5000"});
    QCOMPARE(program.server().serverPort(), quint16(5000));
}

void tst_display_server::theProgramListensOnThePortOfItsSettings()
{
    StoredSetup setup;
    setup.settings.setPort(5001);
    setup.write();
    const RunningProgram program(Windowed);
    QCOMPARE(program.server().serverPort(), quint16(5001));
}

void tst_display_server::aPortInUseLeavesTheProgramRunning()
{
    const RunningProgram first(Windowed);
    CSettings settings;
    settings.read();
    CRaceSettings raceSettings;
    const CKelmoNetworkServer second(&settings, &raceSettings, 0);
    QVERIFY(!second.isServerRunning());
    QVERIFY(first.server().isServerRunning());
}

void tst_display_server::everythingThatTheRaceTellsReachesTheClientInOrder()
{
    constexpr int Tracks = 8;
    setupWithEverything(Tracks).write();
    RunningProgram program(Windowed);
    DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    client.forget();
    const ExpectedRecords expected(program.race());

    QVERIFY(program.startRace());
    driveARace(program, Tracks);
    QTRY_VERIFY(program.infoText("raceTime") != "00:00:00");
    program.pressKey(Qt::Key_F2);
    program.stopRace();
    Q_EMIT program.race().UpdateLights(8);

    QTRY_COMPARE(client.records().size(), expected.records.size());
    QCOMPARE(client.records(), expected.records);
    for (const int type : {100, 101, 102, 103, 104, 105, 107, 108, 109, 112})
        QVERIFY2(contains(client.records(), type), qPrintable(QString::number(type)));
}

void tst_display_server::aRecordedRaceReachesTheClient()
{
    const RunningProgram program(Windowed);
    DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    client.forget();
    const ExpectedRecords expected(program.race());
    Q_EMIT program.dialog().raceStartRecordedRace("Finale");
    Q_EMIT program.dialog().raceStop();
    QTRY_COMPARE(client.records(), expected.records);
    QVERIFY(contains(client.records(), 106));
    QVERIFY(!contains(client.records(), 105));
    QVERIFY(!contains(client.records(), 112));
}

void tst_display_server::aRaceEventIsOnTheScreenOfTheRaceBeforeItIsSent()
{
    RunningProgram program(Windowed + QStringList{"--quickRace"});
    const DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    QStringList shownWhenSent;
    auto* socket = program.server().findChild<QTcpSocket*>();
    connect(socket, &QTcpSocket::bytesWritten, this, [&] { shownWhenSent.append(program.status(1)); });
    program.sensorAt(1000, PortId::lapSensor(0));
    QCOMPARE(shownWhenSent.value(0), QString("läuft"));
}

void tst_display_server::changedSettingsReachTheClient()
{
    const RunningProgram program(Windowed);
    DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    client.forget();
    Q_EMIT program.dialog().settingsChanged();
    Q_EMIT program.dialog().raceSettingsChanged();
    QTRY_COMPARE(client.types(), (QVector<int>{110, 111}));
    QCOMPARE(client.records().last(), DisplayRecord::raceSettings(program.race().raceSettingsCopy()));
}

void tst_display_server::theDriversOfAQuickRaceAreThoseOfTheBoxes()
{
    RunningProgram program(Windowed);
    DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    client.forget();
    QComboBox* box = program.track(2)->findChild<QComboBox*>("driverBox");
    box->setCurrentIndex(box->findText("Anna"));
    program.menu()->action(CMainMenu::QuickRace)->trigger();
    QTRY_VERIFY(contains(client.records(), 112));
    const auto isStart = [](const QByteArray& record) { return typeOf(record) == 112; };
    const auto start = std::find_if(client.records().begin(), client.records().end(), isStart);
    CRaceSettings sent;
    DisplayRecord::Payload(*start).read(sent);
    QCOMPARE(sent.driver(1).name(), QString("Anna"));
}

void tst_display_server::aClientShowsItsMenuEntryAsLongAsItIsThere()
{
    const RunningProgram program(Windowed);
    const QAction* entry = program.menu()->action(CMainMenu::ClientShutdown);
    QVERIFY(!entry->isVisible());
    auto client = std::make_unique<DisplayPeer>(program.server().serverPort());
    QTRY_VERIFY(entry->isVisible() && entry->isEnabled());
    client.reset();
    QTRY_VERIFY(!entry->isVisible() && !entry->isEnabled());
}

void tst_display_server::theMenuEntryShutsTheClientDownWithTheWaitTimeOfTheSettings()
{
    StoredSetup setup;
    setup.settings.setShutdownWaitTime(77);
    setup.write();
    const RunningProgram program(Windowed);
    DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    client.forget();
    program.menu()->action(CMainMenu::ClientShutdown)->trigger();
    QTRY_COMPARE(client.records(), QVector<QByteArray>{DisplayRecord::shutdown(77)});
}

void tst_display_server::theEndOfTheProgramStopsTheRaceAtTheClient()
{
    RunningProgram program(Windowed + QStringList{"--quickRace"});
    DisplayPeer client(program.server().serverPort());
    QTRY_COMPARE(client.records().size(), 2);
    program.destroyMain();
    QTRY_VERIFY(!client.isConnected());
    QCOMPARE(client.types().last(), 107);
}

void tst_display_server::aDisplayClientHasNoServer()
{
    RunningProgram program(Windowed + QStringList{"--connect", "127.0.0.1:9"});
    QVERIFY(!program.main().server());
}

void tst_display_server::theTrackPowerOfTheRaceComputerGoesNowhereInADisplay()
{
    RunningProgram program(Windowed + QStringList{"--connect", "127.0.0.1:5002"});
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost, 5002));
    QTRY_VERIFY_WITH_TIMEOUT(server.hasPendingConnections(), 20000);
    const QString before = program.powerText(1);
    QTcpSocket* line = server.nextPendingConnection();
    for (const bool on : {true, false}) {
        const QString next = QString("nach %1").arg(on);
        line->write(DisplayRecord::framed(DisplayRecord::trackPower(0, on)) +
                    DisplayRecord::framed(DisplayRecord::raceInfoText(next)));
        QTRY_COMPARE(program.message(), next);
        QCOMPARE(program.powerText(1), before);
    }
}

int main(int argc, char* argv[])
{
    isNetworkOurOwn = LoopbackNetwork::enter();
    tst_display_server test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_display_server.moc"
