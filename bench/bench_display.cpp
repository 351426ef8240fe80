/**
 * How far a display is behind its race computer: from the RaceEventHappened of the race to the end of
 * the painting in which the panel of the display shows it. Both are processes with a window of their
 * own, connected over the loopback interface of a network without any other.
 *
 * oneEvent: an event at a time. eightTracks: all cars cross the line at once, until the last panel
 * shows it. Beside each, in turn with it in the same run, the yardstick: the round trip of a frame of
 * the same size between the two processes, with nothing but send() and recv(). `over_a_frame` counts
 * what took longer than one picture of a screen, `at_most_ms`.
 */
#include "network/CKelmoNetworkServer.h"
#include "network/DisplayRecord.h"
#include "race/CRace.h"
#include "shell/CCommandLineParameters.h"
#include "shell/CKelmoMain.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CRichLabel.h"
#include "shell/CTrackDisplay.h"
#include "support/BoundProcess.h"
#include "support/LoopbackNetwork.h"
#include "support/StoredSetup.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <benchmark/benchmark.h>
#include <csignal>
#include <ctime>
#include <netinet/tcp.h>
#include <poll.h>
#include <random>
#include <thread>
#include <vector>

namespace {

constexpr int Tracks = 8;
constexpr int Rounds = 1500;
constexpr double Frame = 1000.0 / 60; ///< milliseconds
constexpr int Patience = 30000;       ///< milliseconds
const char* const MeterPort = "TORNIK_BENCH_METER_PORT";

double now()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time); // the same for all processes
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/** What the panels of the display show from a moment on. */
struct Painting
{
    double moment = 0;
    std::array<int, Tracks> laps{};
};

/** A TCP connection between the two processes, of bare sockets. */
class Wire
{
public:
    explicit Wire(int descriptor) : m_descriptor(descriptor)
    {
        const int on = 1;
        setsockopt(m_descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    ~Wire() { close(m_descriptor); }
    Q_DISABLE_COPY(Wire)

    static sockaddr_in address(quint16 port)
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return address;
    }
    static int connectTo(quint16 port)
    {
        const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const sockaddr_in to = address(port);
        return connect(descriptor, reinterpret_cast<const sockaddr*>(&to), sizeof to) == 0 ? descriptor : -1;
    }

    bool write(const void* bytes, std::size_t size)
    {
        return send(m_descriptor, bytes, size, MSG_NOSIGNAL) == ssize_t(size);
    }
    bool read(void* bytes, std::size_t size)
    {
        return recv(m_descriptor, bytes, size, MSG_WAITALL) == ssize_t(size);
    }
    bool hasBytes(int timeout) const
    {
        pollfd waiting{m_descriptor, POLLIN, 0};
        return poll(&waiting, 1, timeout) > 0;
    }

private:
    int m_descriptor;
};

QByteArray frameOfAnEvent()
{
    return DisplayRecord::framed(DisplayRecord::raceEvent(CRaceEvent()));
}

/** The display: the program as a client, that tells of each of its paintings. */
class CDisplay : public QApplication
{
public:
    CDisplay(int& argc, char** argv, quint16 port)
        : QApplication(argc, argv), m_meter(Wire::connectTo(port)), m_echo([port] { echo(port); })
    {
        m_echo.detach(); // until the process is ended
    }

    void watch(CKelmoMainDialog* dialog) { m_dialog = dialog; }

    bool notify(QObject* receiver, QEvent* event) override
    {
        const bool isPainting = event->type() == QEvent::UpdateRequest;
        const bool result = QApplication::notify(receiver, event);
        if (isPainting && m_dialog)
            tell();
        return result;
    }

private:
    void tell()
    {
        Painting painting;
        painting.moment = now();
        for (std::size_t track = 0; track < Tracks; ++track) {
            const auto* panel = m_dialog->findChild<CTrackDisplay*>(QStringLiteral("track%1").arg(track + 1));
            painting.laps[track] = panel ? panel->findChild<CRichLabel*>("lapCount")->text().toInt() : -1;
        }
        m_meter.write(&painting, sizeof painting);
    }

    static void echo(quint16 port)
    {
        Wire wire(Wire::connectTo(port));
        QByteArray bytes = frameOfAnEvent();
        while (wire.read(bytes.data(), std::size_t(bytes.size())))
            wire.write(bytes.constData(), std::size_t(bytes.size()));
    }

    Wire m_meter;
    std::thread m_echo;
    CKelmoMainDialog* m_dialog = nullptr;
};

/** The race computer and the process of the display. */
class CTwoScreens
{
public:
    CTwoScreens() : m_main(qApp, CCommandLineParameters()) {}
    ~CTwoScreens()
    {
        m_display.kill();
        m_display.waitForFinished();
    }
    Q_DISABLE_COPY(CTwoScreens)

    bool start(const QString& directory)
    {
        const int listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in here = Wire::address(0);
        socklen_t size = sizeof here;
        if (bind(listening, reinterpret_cast<const sockaddr*>(&here), size) != 0 || listen(listening, 2) != 0)
            return false;
        getsockname(listening, reinterpret_cast<sockaddr*>(&here), &size);
        startDisplay(directory, ntohs(here.sin_port));
        m_meter = std::make_unique<Wire>(accept(listening, nullptr, nullptr));
        m_echo = std::make_unique<Wire>(accept(listening, nullptr, nullptr));
        close(listening);
        return waitFor([](const Painting& painting) { return painting.laps[Tracks - 1] >= 0; }).moment > 0;
    }

    /** @return milliseconds until the display has painted an event of the first tracks; negative if it hasn't
     */
    double delay(int tracks)
    {
        m_laps = m_laps % 900 + 1;
        CRaceEvent event(CRaceEvent::MemberChanged);
        event.laps = m_laps;
        event.lastLapTime = event.bestLapTime = QTime::fromMSecsSinceStartOfDay(5000 + m_laps);
        event.status = 4;
        event.raceRunning = true;
        const double begin = now();
        for (event.track = 0; event.track < tracks; ++event.track)
            Q_EMIT m_main.race()->RaceEventHappened(event);
        const auto isPainted = [this, tracks](const Painting& painting) {
            return std::count(painting.laps.begin(), painting.laps.begin() + tracks, m_laps) == tracks;
        };
        return waitFor(isPainted).moment - begin;
    }

    /** @return milliseconds to the other process and back */
    double roundTrip()
    {
        QByteArray bytes = frameOfAnEvent();
        const double begin = now();
        m_echo->write(bytes.constData(), std::size_t(bytes.size()));
        m_echo->read(bytes.data(), std::size_t(bytes.size()));
        return now() - begin;
    }

private:
    void startDisplay(const QString& directory, quint16 meterPort)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(MeterPort, QString::number(meterPort));
        environment.insert("XDG_CONFIG_HOME", directory);
        m_display.setProcessEnvironment(environment);
        m_display.setWorkingDirectory(directory);
        m_display.setStandardErrorFile(QProcess::nullDevice());
        m_display.start(QCoreApplication::applicationFilePath(), {"--windowed", "--connect", "127.0.0.1"});
    }

    /** Lets this side go on, painting included, until the display has painted what is waited for. */
    template <typename Condition>
    Painting waitFor(Condition condition)
    {
        QElapsedTimer waiting;
        waiting.start();
        while (waiting.elapsed() < Patience) {
            QCoreApplication::processEvents();
            Painting painting;
            while (m_meter->hasBytes(1) && m_meter->read(&painting, sizeof painting)) {
                if (condition(painting))
                    return painting;
            }
        }
        return {};
    }

    CKelmoMain m_main;
    CBoundProcess m_display;
    std::unique_ptr<Wire> m_meter;
    std::unique_ptr<Wire> m_echo;
    int m_laps = 0;
};

CTwoScreens* screens = nullptr;

void report(benchmark::State& state, const char* prefix, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    const std::string name(prefix);
    state.counters[name + "median_ms"] = times[times.size() / 2];
    state.counters[name + "p99_ms"] = times[times.size() * 99 / 100];
    state.counters[name + "max_ms"] = times.back();
}

void measure(benchmark::State& state, int tracks)
{
    std::mt19937 random(1);
    std::vector<double> delays;
    std::vector<double> roundTrips;
    for (auto _ : state) {
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000)); // not in step with anything
        delays.push_back(screens->delay(tracks));
        roundTrips.push_back(screens->roundTrip());
        if (delays.back() < 0) {
            state.SkipWithError("an event was never painted");
            return;
        }
    }
    const auto over = std::count_if(delays.begin(), delays.end(), [](double time) { return time > Frame; });
    report(state, "", delays);
    report(state, "bare_", roundTrips);
    state.counters["over_a_frame"] = double(over);
    state.counters["at_most_ms"] = Frame;
}

void oneEvent(benchmark::State& state)
{
    measure(state, 1);
}

void eightTracks(benchmark::State& state)
{
    measure(state, Tracks);
}

BENCHMARK(oneEvent)->Iterations(Rounds)->Unit(benchmark::kMillisecond);
BENCHMARK(eightTracks)->Iterations(Rounds)->Unit(benchmark::kMillisecond);

int runDisplay(int argc, char* argv[])
{
    CDisplay application(argc, argv, quint16(qEnvironmentVariableIntValue(MeterPort)));
    const CKelmoMain program(&application, CCommandLineParameters());
    application.watch(program.mainDialog());
    return QApplication::exec();
}

int runRaceComputer(int argc, char* argv[])
{
    const QTemporaryDir ownDirectory;
    const QTemporaryDir directoryOfDisplay;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(ownDirectory.path()));
    QDir::setCurrent(ownDirectory.path());
    StoredSetup(Tracks).write();
    QByteArray words[] = {argv[0], "--windowed"};
    char* arguments[] = {words[0].data(), words[1].data(), nullptr};
    int count = 2;
    const QApplication application(count, arguments);
    CTwoScreens both;
    if (!both.start(directoryOfDisplay.path()))
        return 1;
    screens = &both;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsSet(MeterPort))
        return runDisplay(argc, argv);
    if (!LoopbackNetwork::enter()) {
        qCritical("this system allows no network of one's own");
        return 1;
    }
    return runRaceComputer(argc, argv);
}
