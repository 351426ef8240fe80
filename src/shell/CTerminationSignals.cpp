#include "shell/CTerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> Signals{SIGTERM, SIGINT, SIGHUP};

int wakeUpPipe[2] = {-1, -1}; ///< a signal handler may do little more than write to a pipe

void handleSignal(int)
{
    const int savedError = errno;
    const char byte = 0;
    const ssize_t written = write(wakeUpPipe[1], &byte, 1);
    static_cast<void>(written); // a full pipe wakes up all the same
    errno = savedError;
}

void setHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : Signals)
        sigaction(signal, &action, nullptr);
}

} // namespace

CTerminationSignals::CTerminationSignals(QObject* parent) : QObject(parent)
{
    if (pipe2(wakeUpPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(wakeUpPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { readWakeUp(); });
    setHandlers(handleSignal);
}

CTerminationSignals::~CTerminationSignals()
{
    if (wakeUpPipe[0] < 0)
        return;
    setHandlers(SIG_DFL);
    for (int& end : wakeUpPipe) {
        close(end);
        end = -1;
    }
}

void CTerminationSignals::readWakeUp()
{
    char bytes[64];
    if (read(wakeUpPipe[0], bytes, sizeof bytes) > 0)
        Q_EMIT terminationRequested();
}
