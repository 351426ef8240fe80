#include "FrameGate.h"
#include "data/CRacewayList.h"
#include "race/CRace.h"
#include "support/DatabaseFile.h"
#include "support/LoginManager.h"
#include "support/LoopbackNetwork.h"
#include "support/ProbedProgram.h"
#include "support/StoredSetup.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QTest>

namespace {

bool isNetworkOurOwn = false;

constexpr quint16 Port = 47624;
const QString Screen = QStringLiteral("1920x1080");
constexpr int Patience = 60000; // milliseconds

enum RecordType
{
    InfoText = 100,
    Event = 101,
    Lights = 102,
    RaceTime = 103,
    RaceSettings = 111
};

/** Everything that a dashboard can show, on a raceway where everything can happen. */
StoredSetup setupWithEverything(int tracks)
{
    StoredSetup setup(tracks);
    setup.raceway.chaosButtonAvailable = true;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.raceway.numberOfSectors = 3;
    for (CRacewayTrack& track : setup.raceway.tracks)
        track.length = 500;
    setup.settings.setDisplayShowAverageLapTime(true);
    setup.settings.setDisplayShowSectorTimes(true);
    setup.settings.setDisplaySpeed(true);
    setup.settings.setDisplayFuel(true);
    setup.settings.setDisplaySize(CSettings::Small);
    setup.settings.setShutdownWaitTime(1);
    CFuelSettings fuel = setup.rules.fuelSettings();
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    fuel.setTankSize(3.0);
    fuel.setReserveLevel(1.5);
    fuel.setMaxFuelUsageAmount(1.0);
    fuel.setMinFuelUsageAmount(1.0); // however long a loaded machine takes for a lap
    setup.rules.setFuelSettings(fuel);
    setup.rules.setWinningCondition(1);
    return setup;
}

/** @return the lines of one list that the other doesn't have at their place, both ways. */
QStringList differences(const QStringList& one, const QStringList& other)
{
    QStringList lines;
    for (int i = 0; i < qMax(one.size(), other.size()); ++i) {
        if (one.value(i) != other.value(i))
            lines.append(QStringLiteral("'%1' against '%2'").arg(one.value(i), other.value(i)));
    }
    return lines;
}

QStringList without(const QString& word, QStringList lines)
{
    for (int i = lines.size() - 1; i >= 0; --i) {
        if (lines.at(i).contains(word))
            lines.removeAt(i);
    }
    return lines;
}

QString lineWith(const QString& word, const QStringList& lines)
{
    const QStringList found = lines.filter(word);
    return found.isEmpty() ? QString() : found.first();
}

/** @return the smallest rectangle around the pixels that differ; empty if none does. */
QRect differentPart(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return one.rect() | other.rect();
    QRect part;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y))
                part |= QRect(x, y, 1, 1);
        }
    }
    return part;
}

/** @return the rectangle at the end of a line of places. */
QRect placeIn(const QString& line)
{
    const QStringList words = line.split(' ');
    const QStringList corner = words.value(words.size() - 2).split(',');
    const QStringList size = words.last().split('x');
    return {corner.value(0).toInt(), corner.value(1).toInt(), size.value(0).toInt(), size.value(1).toInt()};
}

QString pictureFile(const QString& name, const QString& screen)
{
    return QDir::current().filePath(QStringLiteral("%1-%2.png").arg(name, screen));
}

/** Blackens what two screens of a race don't have in common: the menu, and the boxes with their arrows. */
void maskMenuAndBoxes(QImage& picture, const QStringList& places)
{
    constexpr int MenuHeight = 40;
    QPainter painter(&picture);
    painter.fillRect(0, 0, picture.width(), MenuHeight, Qt::black);
    for (const QString& line : places.filter("Box "))
        painter.fillRect(placeIn(line), Qt::black);
}

/**
 * A race computer and its display, both processes of their own. Each record goes through a gate, so
 * that the display's dashboard behind each of them is known: it is held against that of the race
 * computer at the moment when the record was sent.
 */
class TwoScreens
{
public:
    TwoScreens() : raceComputer(ProbedProgram::OfTheTest), display(ProbedProgram::Fresh), gate(Port) {}

    bool start()
    {
        return raceComputer.start({"--windowed"}) &&
               display.start({"--windowed", "--connect", QStringLiteral("127.0.0.1:%1").arg(gate.port())}) &&
               raceComputer.resize(Screen) && display.resize(Screen) &&
               QTest::qWaitFor([this] { return gate.frames().size() == 2; }, Patience);
    }

    /** Hands the records on that have come so far, and compares behind each of them. */
    bool follow()
    {
        while (m_faults.isEmpty() && m_next < gate.frames().size())
            handOn(gate.frames().at(m_next++));
        return m_faults.isEmpty();
    }

    /** Follows until a condition is met. */
    template <typename Condition>
    bool followUntil(Condition condition)
    {
        return QTest::qWaitFor([&] { return !follow() || condition(); }, Patience) && m_faults.isEmpty();
    }

    /** Goes on until both sides have seen all. */
    bool followToTheEnd()
    {
        return followUntil([this] {
            return !raceComputer.dashboard().isEmpty() && m_next == gate.frames().size() &&
                   m_next == raceComputer.moments().size() + 1;
        });
    }

    /** Presses a button of the simulator of the race computer. */
    bool tap(const QString& button, int atLeast = 15)
    {
        const QElapsedTimer last = m_lastPress.value(button);
        const auto isTime = [&] {
            return (!last.isValid() || last.elapsed() > atLeast) &&
                   (!m_anyPress.isValid() || m_anyPress.elapsed() > 3);
        };
        const bool isPressed = QTest::qWaitFor(isTime) && raceComputer.hold(button);
        m_lastPress[button].start();
        m_anyPress.start();
        raceComputer.release(button); // there no more if this press ended the race
        return isPressed && follow();
    }

    /** Paints both screens at the next record that the race computer sends from now on. */
    void paintNextRecord(const QString& raceComputerFile, const QString& displayFile)
    {
        m_displayFile = raceComputer.paintNext(raceComputerFile) ? displayFile : QString();
        m_recordToPaint = raceComputer.moments().size() + 1; // what it has told before that answer is over
    }
    bool isPainted() const { return m_next > m_recordToPaint; }

    /** So many records of this type don't reach the display. */
    void swallow(int type, int count)
    {
        m_swallowedType = type;
        m_toSwallow = count;
    }
    /** Between a change of the raceway and the record of it only the race computer knows. */
    void expectNewRaceway() { m_knowsRaceway = false; }

    const QStringList& faults() const { return m_faults; }
    int compared() const { return m_compared; }
    /** @return which types of records have come. */
    QList<int> types() const
    {
        QMap<int, bool> seen;
        for (const QByteArray& frame : gate.frames())
            seen[FrameGate::typeOf(frame)] = true;
        return seen.keys();
    }
    /** @return whether a record, which has been compared, came with this line, from a moment of the race
     * computer on. */
    bool hasShown(const QString& line, int moment)
    {
        const auto& moments = raceComputer.moments();
        return std::any_of(moments.begin() + moment, moments.end(),
                           [&line](const auto& shown) { return shown.dashboard.contains(line); });
    }
    QString raceComputerShows(const QString& word) { return lineWith(word, raceComputer.dashboard()); }

    ProbedProgram raceComputer;
    ProbedProgram display;
    FrameGate gate;

private:
    void handOn(const QByteArray& frame)
    {
        const int number = m_next - 1;
        const int type = FrameGate::typeOf(frame);
        if (type == m_swallowedType && m_toSwallow-- > 0)
            return;
        if (number == m_recordToPaint)
            display.paintNext(m_displayFile);
        gate.handOn(frame);
        ++m_handedOn;
        const auto isSeen = [this, number] {
            return raceComputer.moments().size() > momentOf(number) && display.moments().size() >= m_handedOn;
        };
        if (!QTest::qWaitFor(isSeen, Patience)) {
            m_faults.append(QStringLiteral("record %1 of type %2 was not seen").arg(number).arg(type));
            return;
        }
        m_knowsInfo = type == InfoText || (m_knowsInfo && type != RaceSettings); // which tells its size there
        m_knowsRaceway = m_knowsRaceway || type == RaceSettings;
        if (m_knowsRaceway)
            compare(number, type);
    }

    /** @return the number of the race computer's moment: the first two records go out with the connection. */
    static int momentOf(int number) { return qMax(0, number - 1); }

    void compare(int number, int type)
    {
        const ProbedProgram::Moment& sent = raceComputer.moments().at(momentOf(number));
        QStringList expected = sent.dashboard;
        QStringList shown = display.moments().at(m_handedOn - 1).dashboard;
        if (!m_knowsInfo) { // until the race tells another line, each screen has its own
            expected = without("info additionalInfo", expected);
            shown = without("info additionalInfo", shown);
        }
        QStringList found = differences(shown, expected);
        if (number >= 2 && sent.bytes != gate.frames().at(number).size())
            found.append("records and moments are out of step");
        if (!found.isEmpty())
            m_faults.append(QStringLiteral("behind record %1 of type %2:\n  ").arg(number).arg(type) +
                            found.join("\n  "));
        ++m_compared;
    }

    QMap<QString, QElapsedTimer> m_lastPress;
    QElapsedTimer m_anyPress;
    int m_next = 0; ///< record to be handed on
    int m_handedOn = 0;
    int m_compared = 0;
    int m_swallowedType = 0;
    int m_toSwallow = 0;
    int m_recordToPaint = -1;
    QString m_displayFile;
    bool m_knowsInfo = false;
    bool m_knowsRaceway = false;
    QStringList m_faults;
};

/** Stores another raceway as the one that races run on. */
void storeRaceway(const CRaceway& raceway)
{
    CRacewayList raceways;
    raceways.updateRaceway(raceways.currentRow(), raceway);
}

} // namespace

/** The race computer and its display, as their users see them: both are processes of their own. */
class tst_second_screen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void behindEveryRecordOfTwoRacesTheDisplayShowsWhatTheRaceComputerShows();
    void aRecordThatDoesNotReachTheDisplayIsNoticed_data();
    void aRecordThatDoesNotReachTheDisplayIsNoticed();
    void aDisplayThatComesInARaceShowsTheRaceWithTheNextEvents();
    void aDisplayFindsItsRaceComputerLosesItAndFindsItAgain();
    void theRaceComputerShutsTheComputerOfTheDisplayDown();
    void aShutdownCanBeCancelledOnTheDisplayOrCarriedOutAtOnce();

private:
    bool followsDirectly(ProbedProgram& raceComputer, ProbedProgram& display) const;
    void compareStillPictures(TwoScreens& screens, const QString& name);
    void compareMovingPictures(TwoScreens& screens, const QString& name);
    void comparePictures(TwoScreens& screens, const QString& name);
    void driveLaps(TwoScreens& screens, int tracks, int laps);
    void waitForStatus(TwoScreens& screens, const QString& status);
    void startByLights(TwoScreens& screens, const QString& picture);
    void interruptByChaosAndByPause(TwoScreens& screens);
    void driveUntilTanksAreEmpty(TwoScreens& screens);
    void changeRaceway(TwoScreens& screens);
    void stopRace(TwoScreens& screens, const QString& picture);
    void triggerShutdown(ProbedProgram& raceComputer, ProbedProgram& display, int waitTime);

    std::unique_ptr<LoginManager> m_loginManager;
};

void tst_second_screen::initTestCase()
{
    m_loginManager = std::make_unique<LoginManager>(); // no process of this test knows another system bus
    QVERIFY2(m_loginManager->start(), qPrintable(m_loginManager->error()));
}

void tst_second_screen::init()
{
    if (!isNetworkOurOwn)
        QSKIP("this system allows no network of one's own");
    closeDatabase();
}

/** Both windows while nothing changes, pixel by pixel; the pictures stay for a person to look at. */
void tst_second_screen::compareStillPictures(TwoScreens& screens, const QString& name)
{
    QVERIFY2(screens.followToTheEnd(), qPrintable(screens.faults().join('\n')));
    QVERIFY(screens.raceComputer.paint(pictureFile(name, "race-computer")));
    QVERIFY(screens.display.paint(pictureFile(name, "display")));
    comparePictures(screens, name);
}

/** Both windows at the next record of a race that goes on. */
void tst_second_screen::compareMovingPictures(TwoScreens& screens, const QString& name)
{
    screens.paintNextRecord(pictureFile(name, "race-computer"), pictureFile(name, "display"));
    QVERIFY2(screens.followUntil([&] { return screens.isPainted(); }),
             qPrintable(screens.faults().join('\n')));
    comparePictures(screens, name);
}

void tst_second_screen::comparePictures(TwoScreens& screens, const QString& name)
{
    // A box of the display can be typed in, as far as its layout knows, and takes more room.
    QCOMPARE(differences(without("Box ", screens.display.places()),
                         without("Box ", screens.raceComputer.places())),
             QStringList());
    const QStringList places = screens.display.places() + screens.raceComputer.places();
    QImage raceComputer(pictureFile(name, "race-computer"));
    QImage display(pictureFile(name, "display"));
    QVERIFY(!raceComputer.isNull());
    maskMenuAndBoxes(raceComputer, places);
    maskMenuAndBoxes(display, places);
    QCOMPARE(differentPart(raceComputer, display), QRect());
}

#define FOLLOWED(expression) QVERIFY2(expression, qPrintable(screens.faults().join('\n')))

void tst_second_screen::driveLaps(TwoScreens& screens, int tracks, int laps)
{
    for (int lap = 0; lap < laps; ++lap) {
        for (const char* sensor : {"", "Sector2Begin", "Sector3Begin"}) {
            for (int track = 1; track <= tracks; ++track)
                FOLLOWED(screens.tap(QStringLiteral("slot%1").arg(track) + sensor));
        }
    }
}

void tst_second_screen::waitForStatus(TwoScreens& screens, const QString& status)
{
    FOLLOWED(screens.followUntil(
        [&] { return screens.raceComputerShows("track8 status").contains(' ' + status + ' '); }));
}

void tst_second_screen::startByLights(TwoScreens& screens, const QString& picture)
{
    const int before = screens.raceComputer.moments().size();
    QVERIFY(screens.raceComputer.press("Ctrl+S"));
    FOLLOWED(screens.followUntil([&] { return screens.raceComputerShows("lights") != "lights ooooo"; }));
    compareMovingPictures(screens, picture);
    FOLLOWED(screens.followUntil([&] { return screens.raceComputerShows("lights") == "lights GGGGG"; }));
    for (const char* lights :
         {"lights Roooo", "lights RRooo", "lights RRRoo", "lights RRRRo", "lights RRRRR"})
        QVERIFY2(screens.hasShown(lights, before), lights);
}

void tst_second_screen::interruptByChaosAndByPause(TwoScreens& screens)
{
    FOLLOWED(screens.tap("chaosButton", 250));
    waitForStatus(screens, "pause");
    FOLLOWED(screens.tap("chaosButton", 250));
    waitForStatus(screens, "warten");
    QVERIFY(screens.raceComputer.press("Ctrl+P"));
    waitForStatus(screens, "pause");
    compareStillPictures(screens, "pause");
    QVERIFY(screens.raceComputer.press("Ctrl+P"));
    waitForStatus(screens, "warten");
}

void tst_second_screen::driveUntilTanksAreEmpty(TwoScreens& screens)
{
    QVERIFY(screens.raceComputer.press("F2"));
    driveLaps(screens, 2, 3);
    FOLLOWED(screens.followToTheEnd());
    QVERIFY(screens.raceComputerShows("track2 fuelBar").contains(" 0%"));
    compareMovingPictures(screens, "empty-tank");
}

/** What the user's choice of another raceway does. */
void tst_second_screen::changeRaceway(TwoScreens& screens)
{
    CRaceway another(3);
    another.name = "Andere Bahn";
    another.minTime = 5;
    another.numberOfSectors = 2;
    storeRaceway(another);
    screens.expectNewRaceway();
    for (const char* step : {"newRacewaySelected", "settingsChanged", "raceSettingsChanged"})
        QVERIFY(screens.raceComputer.call(step));
    FOLLOWED(screens.followToTheEnd());
    QVERIFY(lineWith("info racewayName", screens.display.dashboard()).contains("Andere Bahn"));
}

void tst_second_screen::stopRace(TwoScreens& screens, const QString& picture)
{
    QVERIFY(screens.raceComputer.press("Ctrl+S"));
    FOLLOWED(screens.followToTheEnd());
    compareStillPictures(screens, picture);
}

void tst_second_screen::behindEveryRecordOfTwoRacesTheDisplayShowsWhatTheRaceComputerShows()
{
    StoredSetup setup = setupWithEverything(8);
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.rules.setStartDelay(QTime(0, 0, 5));
    setup.rules.setStartLightsMinDelay(500);
    setup.rules.setStartLightsMaxDelay(0);
    setup.write();
    TwoScreens screens;
    QVERIFY2(screens.start(), screens.raceComputer.output() + screens.display.output());
    FOLLOWED(screens.followToTheEnd());
    QVERIFY(lineWith("info additionalInfo ", screens.display.dashboard()).contains("RaceSettings falsch!"));
    QVERIFY2(lineWith("track2 driverBox", screens.display.dashboard()).contains("Ben"),
             "names are there before the first race");

    QVERIFY(screens.raceComputer.press("Ctrl+D"));
    startByLights(screens, "start");
    driveLaps(screens, 8, 3);
    compareMovingPictures(screens, "race");
    interruptByChaosAndByPause(screens);
    driveUntilTanksAreEmpty(screens);
    stopRace(screens, "end");
    changeRaceway(screens);
    startByLights(screens, "start-on-another-raceway");
    for (int crossing = 0; crossing < 3; ++crossing)
        FOLLOWED(screens.tap("all"));
    stopRace(screens, "end-on-another-raceway");

    QCOMPARE(screens.types(), (QList<int>{100, 101, 102, 103, 104, 105, 107, 108, 109, 110, 111, 112}));
    qInfo("%d records compared", screens.compared());
    QVERIFY2(screens.display.end(), screens.display.output());
    QVERIFY2(screens.raceComputer.end(), screens.raceComputer.output());
}

void tst_second_screen::aRecordThatDoesNotReachTheDisplayIsNoticed_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("field");
    QTest::newRow("lights") << int(Lights) << 1000 << "lights";
    QTest::newRow("figures") << int(Event) << 1000 << "track1 status";
    QTest::newRow("clock") << int(RaceTime) << 1000 << "info raceTime";
}

/** Checks the comparison itself. */
void tst_second_screen::aRecordThatDoesNotReachTheDisplayIsNoticed()
{
    QFETCH(int, type);
    QFETCH(int, count);
    QFETCH(QString, field);
    setupWithEverything(2).write();
    TwoScreens screens;
    QVERIFY2(screens.start(), screens.raceComputer.output() + screens.display.output());
    FOLLOWED(screens.followToTheEnd());
    screens.swallow(type, count);
    QVERIFY(screens.raceComputer.press("Ctrl+D"));
    QVERIFY(screens.raceComputer.press("Ctrl+S"));
    QElapsedTimer sinceStart;
    sinceStart.start();
    while (sinceStart.elapsed() < Patience / 3 && screens.tap("slot1"))
        ;
    QVERIFY2(screens.faults().join('\n').contains(field), qPrintable(screens.faults().join('\n')));
}

/** @return whether the display has the dashboard of the race computer, but for the line of its connection. */
bool tst_second_screen::followsDirectly(ProbedProgram& raceComputer, ProbedProgram& display) const
{
    const QString ownLine = QStringLiteral("info additionalInfo");
    const auto isEqual = [&] {
        return without(ownLine, display.dashboard()) == without(ownLine, raceComputer.dashboard());
    };
    return QTest::qWaitFor(isEqual, Patience);
}

void tst_second_screen::aDisplayThatComesInARaceShowsTheRaceWithTheNextEvents()
{
    setupWithEverything(2).write();
    ProbedProgram raceComputer(ProbedProgram::OfTheTest);
    QVERIFY2(raceComputer.start({"--windowed"}), raceComputer.output());
    QVERIFY(raceComputer.press("Ctrl+D"));
    QVERIFY(raceComputer.press("Ctrl+S"));
    const auto crossAll = [&raceComputer] {
        QElapsedTimer sinceLast;
        sinceLast.start();
        return QTest::qWaitFor([&] { return sinceLast.elapsed() > 20; }) && raceComputer.hold("all") &&
               raceComputer.release("all");
    };
    for (int crossing = 0; crossing < 3; ++crossing)
        QVERIFY(crossAll());
    ProbedProgram display(ProbedProgram::Fresh);
    QVERIFY2(display.start({"--windowed", "--connect", "127.0.0.1"}), display.output());
    QTRY_VERIFY_WITH_TIMEOUT(!display.dashboard().filter("info racewayName Testbahn").isEmpty(), Patience);
    QVERIFY(lineWith("track2 lapCount", display.dashboard()).contains("000"));
    QVERIFY(crossAll());
    QTRY_COMPARE_WITH_TIMEOUT(lineWith("track2 lapCount", display.dashboard()),
                              QString("track2 lapCount 003 #ffc80a"), 5000);
    QCOMPARE(lineWith("track1 lastLap", display.dashboard()),
             lineWith("track1 lastLap", raceComputer.dashboard()));
    QVERIFY(raceComputer.press("Ctrl+S"));
    QTRY_VERIFY_WITH_TIMEOUT(lineWith("track1 status", display.dashboard()).contains("beendet"), Patience);
}

void tst_second_screen::aDisplayFindsItsRaceComputerLosesItAndFindsItAgain()
{
    StoredSetup setup = setupWithEverything(4);
    setup.write();
    closeDatabase();
    ProbedProgram display(ProbedProgram::Fresh);
    int told = 0;
    const auto tells = [&](const QString& text) { // the next line that it shows begins so
        const bool hasCome = QTest::qWaitFor([&] { return display.messages().size() > told; }, Patience);
        return hasCome && display.messages().at(told++).startsWith(text);
    };
    QVERIFY2(display.start({"--windowed", "--connect", "127.0.0.1"}), display.output());
    QVERIFY(tells("Verbindungsanfrage wurde von der Gegenstelle abgelehnt."));
    {
        ProbedProgram raceComputer(ProbedProgram::OfTheTest);
        QVERIFY2(raceComputer.start({"--windowed"}), raceComputer.output());
        QVERIFY(tells("RaceSettings falsch!"));
        QVERIFY(followsDirectly(raceComputer, display));
        raceComputer.kill();
    }
    QVERIFY(tells("Verbindung wurde unterbrochen."));
    QVERIFY(tells("Verbindungsanfrage wurde von der Gegenstelle abgelehnt."));
    QVERIFY2(lineWith("track4 driverBox", display.dashboard()).contains("David"), "what was shown stays");
    setup.raceway.name = "Umgebaute Bahn";
    storeRaceway(setup.raceway);
    closeDatabase();
    ProbedProgram raceComputer(ProbedProgram::OfTheTest);
    QVERIFY2(raceComputer.start({"--windowed"}), raceComputer.output());
    QVERIFY(tells("RaceSettings falsch!"));
    QVERIFY(followsDirectly(raceComputer, display));
    QVERIFY(lineWith("info racewayName", display.dashboard()).contains("Umgebaute Bahn"));
    QCOMPARE(display.messages().size(), told);
    QVERIFY2(display.end(), display.output());
}

/** Brings both up, and lets the race computer shut the display's down. */
void tst_second_screen::triggerShutdown(ProbedProgram& raceComputer, ProbedProgram& display, int waitTime)
{
    StoredSetup setup(2);
    setup.settings.setShutdownWaitTime(waitTime);
    setup.write();
    closeDatabase();
    QVERIFY2(raceComputer.start({"--windowed"}), raceComputer.output());
    QVERIFY2(display.start({"--windowed", "--connect", "127.0.0.1"}), display.output());
    QTRY_VERIFY_WITH_TIMEOUT(raceComputer.window().contains("menu Client &herunterfahren"), Patience);
    QVERIFY(raceComputer.press("Ctrl+H"));
    QTRY_VERIFY_WITH_TIMEOUT(!display.boxes().isEmpty(), Patience);
}

void tst_second_screen::theRaceComputerShutsTheComputerOfTheDisplayDown()
{
    const QStringList before = m_loginManager->calls();
    ProbedProgram raceComputer(ProbedProgram::OfTheTest);
    ProbedProgram display(ProbedProgram::Fresh);
    triggerShutdown(raceComputer, display, 1);
    QFile environment(QStringLiteral("/proc/%1/environ").arg(display.processId()));
    QVERIFY(environment.open(QIODevice::ReadOnly));
    QVERIFY2(environment.readAll().contains("DBUS_SYSTEM_BUS_ADDRESS=" + qgetenv("DBUS_SYSTEM_BUS_ADDRESS")),
             "the machine's own bus is not the one");
    QTRY_VERIFY_WITH_TIMEOUT(display.boxes().contains("box Das System wird in 0 Sekunden heruntergefahren"),
                             Patience);
    QCOMPARE(raceComputer.boxes(), QStringList());
    QTRY_VERIFY_WITH_TIMEOUT(m_loginManager->calls() != before, Patience);
    QCOMPARE(m_loginManager->calls().value(before.size()), QString("PowerOff True"));
}

void tst_second_screen::aShutdownCanBeCancelledOnTheDisplayOrCarriedOutAtOnce()
{
    const QStringList before = m_loginManager->calls();
    ProbedProgram raceComputer(ProbedProgram::OfTheTest);
    ProbedProgram display(ProbedProgram::Fresh);
    triggerShutdown(raceComputer, display, 60);
    QStringList buttons = display.boxes().mid(1);
    buttons.sort(); // each desktop has an order of its own
    QCOMPARE(buttons, (QStringList{"button Abbrechen", "button Sofort herunterfahren"}));
    QVERIFY(display.hold("Abbrechen"));
    QVERIFY(display.release("Abbrechen"));
    QTRY_COMPARE_WITH_TIMEOUT(display.boxes().join("\n"), QString(), Patience);
    QCOMPARE(m_loginManager->calls().join("\n"), before.join("\n"));

    QVERIFY(raceComputer.press("Ctrl+H"));
    QTRY_VERIFY_WITH_TIMEOUT(!display.boxes().isEmpty(), Patience);
    QVERIFY(raceComputer.press("Ctrl+H")); // while it counts
    const QString count = display.boxes().value(0);
    QTRY_VERIFY_WITH_TIMEOUT(display.boxes().value(0) != count, Patience); // it goes on
    QVERIFY(display.hold("Sofort herunterfahren"));
    QVERIFY(display.release("Sofort herunterfahren"));
    QTRY_COMPARE_WITH_TIMEOUT(m_loginManager->calls(), before + QStringList("PowerOff True"), Patience);
}

int main(int argc, char* argv[])
{
    isNetworkOurOwn = LoopbackNetwork::enter();
    const QCoreApplication application(argc, argv);
    tst_second_screen test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_second_screen.moc"
