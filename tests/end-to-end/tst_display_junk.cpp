#include "network/DisplayRecord.h"
#include "network/FullRecords.h"
#include "network/LoopbackSocket.h"
#include "support/DatabaseFile.h"
#include "support/LoginManager.h"
#include "support/LoopbackNetwork.h"
#include "support/ProbedProgram.h"
#include "support/StoredSetup.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTime>

namespace {

bool isNetworkOurOwn = false;

constexpr int Patience = 60000;         ///< milliseconds
constexpr int Duration = 60000;         ///< milliseconds of junk
constexpr int HangTime = 10000;         ///< milliseconds in which a loaded machine answers, too
constexpr qint64 MostMemory = 96 << 20; ///< bytes that the process may have more behind the junk

QByteArray randomBytes(QRandomGenerator& random, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

/** @return a frame that is as it should be, of any type. */
QByteArray goodFrame(QRandomGenerator& random)
{
    using namespace DisplayRecord;
    const QByteArray records[] = {raceInfoText("Text"),
                                  raceEvent(FullRecords::event()),
                                  lights(7 + random.bounded(4)),
                                  raceTime(QTime(0, 0, 1)),
                                  trackPower(1, true),
                                  notice(RaceStarted),
                                  notice(RaceStopped),
                                  settings(FullRecords::settings()),
                                  raceSettings(FullRecords::raceSettings()),
                                  raceSettingsWithDrivers(FullRecords::raceSettings()),
                                  shutdown(15)};
    return framed(records[random.bounded(int(std::size(records)))]);
}

QByteArray damagedFrame(QRandomGenerator& random)
{
    QByteArray frame = goodFrame(random);
    for (int damage = random.bounded(1, 5); damage > 0; --damage)
        frame[2 + random.bounded(frame.size() - 2)] = char(random.bounded(256));
    return frame;
}

QByteArray frameOfRandomPayload(QRandomGenerator& random)
{
    QByteArray record = randomBytes(random, 2 + random.bounded(3000));
    record[0] = 0;
    record[1] = char(98 + random.bounded(18));
    return DisplayRecord::framed(record);
}

/** @return frames of a kind that a stranger may send. */
QByteArray junk(QRandomGenerator& random)
{
    switch (random.bounded(6)) {
    case 0:
        return randomBytes(random, random.bounded(5000));
    case 1:
        return frameOfRandomPayload(random);
    case 2:
        return goodFrame(random).left(random.bounded(60)); // cut anywhere
    case 3:
        return QByteArray::fromHex("ffff0065") + randomBytes(random, 500); // longer than what comes
    default:
        return damagedFrame(random);
    }
}

CRaceSettings raceSettingsOnRaceway(const QString& name)
{
    CRaceSettings settings;
    CRaceway raceway(2);
    raceway.name = name;
    settings.setRaceway(raceway);
    return settings;
}

/** @return whether a lap of the simulator has been driven. */
bool driveLap(ProbedProgram& raceComputer)
{
    QElapsedTimer sinceLast;
    sinceLast.start();
    return QTest::qWaitFor([&sinceLast] { return sinceLast.elapsed() > 20; }) && raceComputer.hold("slot1") &&
           raceComputer.release("slot1");
}

/** Connects so many times and leaves at once, in order or breaking off. */
void comeAndGo(quint16 port, int times)
{
    for (int i = 0; i < times; ++i) {
        LoopbackSocket visitor(port);
        if (i % 2)
            visitor.breakOffWhenClosed();
    }
}

} // namespace

/** Displays and race computers whose other side is none: it must never bring them down. */
class tst_display_junk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aMinuteOfJunkIsSurvived();
    void endlessTextsLeaveTheWindowAsLargeAsItIs_data();
    void endlessTextsLeaveTheWindowAsLargeAsItIs();
    void aRaceGoesOnWhileStrangersSendNeverReadComeAndGo();

private:
    void startDisplay();
    void send(const QByteArray& frames);
    bool isInStep();
    qint64 memory() const;

    std::unique_ptr<LoginManager> m_loginManager; ///< junk may shut the computer down
    QTcpServer m_server;
    std::unique_ptr<QTcpSocket> m_line;
    std::unique_ptr<ProbedProgram> m_display;
    int m_step = 0;
};

void tst_display_junk::initTestCase()
{
    m_loginManager = std::make_unique<LoginManager>();
    QVERIFY2(m_loginManager->start(), qPrintable(m_loginManager->error()));
    // The sanitizer keeps what has been freed; that isn't the memory of the program.
    qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":quarantine_size_mb=8:malloc_context_size=4");
}

void tst_display_junk::init()
{
    if (!isNetworkOurOwn)
        QSKIP("this system allows no network of one's own");
    closeDatabase();
}

void tst_display_junk::startDisplay()
{
    QVERIFY(m_server.isListening() || m_server.listen(QHostAddress::LocalHost));
    m_display = std::make_unique<ProbedProgram>(ProbedProgram::Fresh);
    QVERIFY(m_display->start(
        {"--windowed", "--connect", QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort())}));
    QVERIFY(QTest::qWaitFor([this] { return m_server.hasPendingConnections(); }, Patience));
    m_line.reset(m_server.nextPendingConnection());
    m_line->setParent(nullptr);
}

void tst_display_junk::cleanup()
{
    m_line.reset();
    m_display.reset();
}

void tst_display_junk::send(const QByteArray& frames)
{
    m_line->write(frames);
    QTRY_COMPARE_WITH_TIMEOUT(m_line->bytesToWrite(), qint64(0), HangTime);
}

/** Junk may swallow a record behind it. @return whether the display shows what it is sent in the end */
bool tst_display_junk::isInStep()
{
    const QString name = QStringLiteral("Bahn %1").arg(++m_step);
    for (int attempt = 0; attempt < 50 && m_display->runs(); ++attempt) {
        m_line->write(DisplayRecord::framed(DisplayRecord::raceSettings(raceSettingsOnRaceway(name))));
        const QElapsedTimer sinceSent = [] {
            QElapsedTimer timer;
            timer.start();
            return timer;
        }();
        do {
            if (!m_display->dashboard().filter("info racewayName " + name).isEmpty())
                return true;
        } while (sinceSent.elapsed() < 500);
    }
    return false;
}

/** @return bytes that the process of the display has in memory now. */
qint64 tst_display_junk::memory() const
{
    QFile file(QStringLiteral("/proc/%1/statm").arg(m_display->processId()));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * 4096 : -1;
}

void tst_display_junk::aMinuteOfJunkIsSurvived()
{
    startDisplay();
    QRandomGenerator random(47624);
    QElapsedTimer sinceBegin;
    sinceBegin.start();
    qint64 memoryBefore = 0;
    qint64 bytes = 0;
    while (sinceBegin.elapsed() < Duration) {
        for (int piece = 0; piece < 20; ++piece) {
            const QByteArray frames = junk(random);
            bytes += frames.size();
            send(frames);
        }
        QElapsedTimer sinceAsked;
        sinceAsked.start();
        QVERIFY2(!m_display->dashboard().isEmpty(), m_display->output());
        QVERIFY2(sinceAsked.elapsed() < HangTime, qPrintable(QString::number(sinceAsked.elapsed())));
        if (!memoryBefore && sinceBegin.elapsed() > Duration / 6) // caches are full then
            memoryBefore = memory();
    }
    QVERIFY2(isInStep(), m_display->output());
    qInfo("%lld KiB of junk, %lld KiB more in memory", bytes >> 10, (memory() - memoryBefore) >> 10);
    QVERIFY(memory() - memoryBefore < MostMemory);
}

void tst_display_junk::endlessTextsLeaveTheWindowAsLargeAsItIs_data()
{
    QTest::addColumn<QByteArray>("record");
    const QString text(25000, 'W');
    CRaceSettings settings = raceSettingsOnRaceway(text);
    QTest::newRow("raceway") << DisplayRecord::raceSettings(settings);
    settings = raceSettingsOnRaceway("Bahn");
    CDriver driver;
    driver.setName(text);
    settings.setDriver(0, driver);
    QTest::newRow("driver") << DisplayRecord::raceSettings(settings);
    settings = raceSettingsOnRaceway("Bahn");
    CCar car;
    car.setName(text);
    settings.setCar(1, car);
    QTest::newRow("car") << DisplayRecord::raceSettingsWithDrivers(settings);
    QTest::newRow("line for the spectators") << DisplayRecord::raceInfoText(text);
}

void tst_display_junk::endlessTextsLeaveTheWindowAsLargeAsItIs()
{
    startDisplay();
    QFETCH(QByteArray, record);
    QVERIFY(m_display->resize("1920x1080"));
    QVERIFY(isInStep());
    const QString window = m_display->places().value(0);
    QCOMPARE(window, QString("window 0,0 1920x1080"));
    const qint64 before = memory();
    send(DisplayRecord::framed(record));
    QTRY_VERIFY_WITH_TIMEOUT(m_display->dashboard().join(' ').contains("WWWW"), Patience);
    QCOMPARE(m_display->places().value(0), window);
    QVERIFY(isInStep());
    QCOMPARE(m_display->places().value(0), window);
    QVERIFY2(memory() - before < MostMemory, qPrintable(QString::number((memory() - before) >> 20)));
}

void tst_display_junk::aRaceGoesOnWhileStrangersSendNeverReadComeAndGo()
{
    constexpr int Laps = 20;
    constexpr quint16 Port = 47624;
    StoredSetup(2).write();
    closeDatabase();
    ProbedProgram raceComputer(ProbedProgram::OfTheTest);
    QVERIFY2(raceComputer.start({"--windowed"}), raceComputer.output());
    QVERIFY(raceComputer.press("Ctrl+D"));
    QVERIFY(raceComputer.press("Ctrl+S"));
    QVERIFY(driveLap(raceComputer)); // over the line for the first time
    const QByteArray bytes(0x10000, 'x');
    LoopbackSocket stranger(Port, 4096); // never reads
    qint64 sent = 0;
    for (int lap = 1; lap <= Laps; ++lap) {
        for (int piece = 0; piece < 20; ++piece)
            sent += stranger.send(bytes);
        comeAndGo(Port, 1000 / Laps);
        QVERIFY(driveLap(raceComputer));
        const QString laps = QStringLiteral("track1 lapCount %1 ").arg(lap, 3, 10, QLatin1Char('0'));
        QTRY_VERIFY2_WITH_TIMEOUT(!raceComputer.dashboard().filter(laps).isEmpty(), qPrintable(laps),
                                  Patience);
    }
    QVERIFY(sent > bytes.size());
    ProbedProgram display(ProbedProgram::Fresh);
    QVERIFY2(display.start({"--windowed", "--connect", "127.0.0.1"}), display.output());
    QTRY_VERIFY_WITH_TIMEOUT(!display.dashboard().filter("track1 driverBox Anna").isEmpty(), Patience);
    QVERIFY2(raceComputer.end(), raceComputer.output());
}

int main(int argc, char* argv[])
{
    isNetworkOurOwn = LoopbackNetwork::enter();
    const QCoreApplication application(argc, argv);
    tst_display_junk test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_display_junk.moc"
