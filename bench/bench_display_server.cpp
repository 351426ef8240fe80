/**
 * What a display client can do to the race: the time that the main thread spends in a slot of the
 * display server, or in a turn of its event loop, while the other side behaves badly. `max_own_ms` and
 * `over_5_ms`, which is to be 0, are time of this thread's own; `max_ms` and `over_5_ms_by_clock` are that
 * on the clock. What lies between was another's: `undisturbed_over_5_ms`, to be 0 as well, counts the
 * slow ones in which the system never took the processor away.
 *
 * hourOfRaceUnread: an hour of race, 20 events a second, as fast as possible, to a client that never
 * reads; and on until it is cut off. `waiting_MiB` is the most that waited for it.
 * readClient: the same with a client that reads. bareSend: the yardstick, the same bytes with send()
 * alone.
 * flood: turns of the event loop while a client sends without an end.
 * comeAndGo: turns of the event loop while 1,000 clients connect and leave; `most_in_a_turn` of them are
 * taken in one, which is how many had come while the thread had no processor.
 */
#include "network/CKelmoNetworkServer.h"
#include "network/DisplayRecord.h"
#include "network/FullRecords.h"
#include "network/LoopbackSocket.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <ctime>
#include <memory>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace {

constexpr int SecondsOfRace = 3600;
constexpr int EventsPerSecond = 20;
constexpr double Limit = 5.0; ///< milliseconds

double milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/** How long one thing takes again and again. */
class CDurations
{
public:
    template <typename Action>
    void measure(Action action)
    {
        const long lost = processorLosses();
        const double wall = milliseconds(CLOCK_MONOTONIC);
        const double own = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        action();
        m_own.push_back(milliseconds(CLOCK_THREAD_CPUTIME_ID) - own);
        m_wall.push_back(milliseconds(CLOCK_MONOTONIC) - wall);
        if (m_wall.back() <= Limit)
            return;
        ++m_slow;
        m_undisturbed += processorLosses() == lost ? 1 : 0;
    }

    void report(benchmark::State& state)
    {
        std::sort(m_wall.begin(), m_wall.end());
        std::sort(m_own.begin(), m_own.end());
        state.counters["calls"] = double(m_wall.size());
        state.counters["median_us"] = 1e3 * m_wall[m_wall.size() / 2];
        state.counters["p99_us"] = 1e3 * m_wall[m_wall.size() * 99 / 100];
        state.counters["max_ms"] = m_wall.back();
        state.counters["max_own_ms"] = m_own.back();
        const auto over = m_own.end() - std::upper_bound(m_own.begin(), m_own.end(), Limit);
        state.counters["over_5_ms"] = double(over);
        state.counters["over_5_ms_by_clock"] = double(m_slow);
        state.counters["undisturbed_over_5_ms"] = double(m_undisturbed);
    }

private:
    /** @return how often the system has taken the processor from this thread. */
    static long processorLosses()
    {
        rusage usage{};
        getrusage(RUSAGE_THREAD, &usage);
        return usage.ru_nivcsw + usage.ru_nvcsw;
    }

    int m_slow = 0;
    int m_undisturbed = 0;
    std::vector<double> m_wall;
    std::vector<double> m_own;
};

class CServer
{
public:
    CServer()
    {
        QTcpServer free;
        free.listen(QHostAddress::LocalHost);
        const quint16 port = free.serverPort();
        free.close();
        m_server = std::make_unique<CKelmoNetworkServer>(
            &m_settings, &m_raceSettings, port, QList<QHostAddress>{QHostAddress(QHostAddress::LocalHost)});
    }

    CKelmoNetworkServer& operator*() { return *m_server; }
    CKelmoNetworkServer* operator->() { return m_server.get(); }
    QTcpSocket* socket() const { return m_server->findChild<QTcpSocket*>(); }
    void waitForClient() const
    {
        while (!socket())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    CSettings m_settings = FullRecords::settings();
    CRaceSettings m_raceSettings = FullRecords::raceSettings();
    std::unique_ptr<CKelmoNetworkServer> m_server;
};

/** Reads all that comes for as long as it lives. */
class CReadingClient
{
public:
    explicit CReadingClient(quint16 port) : m_socket(port)
    {
        m_thread = std::thread([this] {
            while (!m_stopRequested) {
                if (m_socket.read().isEmpty())
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        });
    }
    ~CReadingClient()
    {
        m_stopRequested = true;
        m_thread.join();
    }

private:
    LoopbackSocket m_socket;
    std::atomic<bool> m_stopRequested{false};
    std::thread m_thread;
};

template <typename Note>
void sendAnHourOfRace(CServer& server, CDurations& durations, Note note)
{
    const CRaceEvent event = FullRecords::event();
    for (int second = 0; second < SecondsOfRace; ++second) {
        for (int i = 0; i < EventsPerSecond; ++i)
            durations.measure([&] { server->HandleEventRace(event); });
        durations.measure([&] { server->setRaceTime(QTime(0, 0).addSecs(second)); });
        note();
    }
}

void hourOfRaceUnread(benchmark::State& state)
{
    for (auto _ : state) {
        CServer server;
        const LoopbackSocket client(server->serverPort(), 4096);
        server.waitForClient();
        CDurations durations;
        qint64 waiting = 0;
        int hours = 0;
        while (server.socket() && hours++ < 100) {
            sendAnHourOfRace(server, durations, [&] {
                waiting = std::max(waiting, server.socket() ? server.socket()->bytesToWrite() : 0);
            });
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        durations.report(state);
        state.counters["waiting_MiB"] = double(waiting) / (1024 * 1024);
        state.counters["cut_off"] = server.socket() ? 0 : 1;
    }
}

void readClient(benchmark::State& state)
{
    for (auto _ : state) {
        CServer server;
        const CReadingClient client(server->serverPort());
        server.waitForClient();
        CDurations durations;
        sendAnHourOfRace(server, durations, [] { QCoreApplication::processEvents(); });
        durations.report(state);
    }
}

void bareSend(benchmark::State& state)
{
    QTcpServer listening;
    listening.listen(QHostAddress::LocalHost);
    const QByteArray frame = DisplayRecord::framed(DisplayRecord::raceEvent(FullRecords::event()));
    for (auto _ : state) {
        LoopbackSocket sender(listening.serverPort());
        listening.waitForNewConnection(1000);
        const std::unique_ptr<QTcpSocket> receiver(listening.nextPendingConnection());
        CDurations durations;
        for (int i = 0; i < SecondsOfRace * EventsPerSecond; ++i) {
            durations.measure([&] { sender.send(frame); });
            if (i % 1000 == 0) {
                QCoreApplication::processEvents();
                receiver->readAll();
            }
        }
        durations.report(state);
    }
}

void flood(benchmark::State& state)
{
    for (auto _ : state) {
        CServer server;
        LoopbackSocket client(server->serverPort());
        server.waitForClient();
        std::atomic<bool> stopRequested{false};
        std::atomic<qint64> sent{0};
        std::thread sender([&] {
            const QByteArray junk(0x10000, 'x');
            while (!stopRequested)
                sent += client.send(junk);
        });
        CDurations durations;
        const double end = milliseconds(CLOCK_MONOTONIC) + 5000;
        const double ownBefore = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        while (milliseconds(CLOCK_MONOTONIC) < end) {
            durations.measure([&] {
                server->HandleEventRace(FullRecords::event());
                QCoreApplication::processEvents();
            });
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        const double own = milliseconds(CLOCK_THREAD_CPUTIME_ID) - ownBefore;
        stopRequested = true;
        sender.join();
        durations.report(state);
        state.counters["own_share"] = own / 5000;
        state.counters["swallowed_MiB"] = double(sent) / (1024 * 1024);
    }
}

void comeAndGo(benchmark::State& state)
{
    for (auto _ : state) {
        CServer server;
        const quint16 port = server->serverPort();
        std::atomic<bool> ended{false};
        std::thread visitors([&] {
            for (int i = 0; i < 1000; ++i) {
                LoopbackSocket client(port);
                if (i % 2)
                    client.breakOffWhenClosed();
            }
            ended = true;
        });
        int taken = 0;
        int most = 0;
        QObject::connect(&*server, &CKelmoNetworkServer::clientConnected, [&taken] { ++taken; });
        CDurations durations;
        while (!ended || server.socket()) {
            taken = 0;
            durations.measure([&] {
                server->HandleEventRace(FullRecords::event());
                QCoreApplication::processEvents();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            });
            most = std::max(most, taken);
        }
        visitors.join();
        durations.report(state);
        state.counters["most_in_a_turn"] = most;
    }
}

void once(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Iterations(1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(hourOfRaceUnread)->Apply(once);
BENCHMARK(readClient)->Apply(once);
BENCHMARK(bareSend)->Apply(once);
BENCHMARK(flood)->Apply(once);
BENCHMARK(comeAndGo)->Apply(once);

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
