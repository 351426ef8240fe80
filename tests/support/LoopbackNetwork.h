#ifndef TORNIK_TESTS_SUPPORT_LOOPBACKNETWORK_H
#define TORNIK_TESTS_SUPPORT_LOOPBACKNETWORK_H

#include <QByteArray>
#include <QFile>

#include <cstring>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

/**
 * A network for this process and its children that has the loopback interface alone: what listens,
 * listens there, and nothing leaves the machine.
 */
namespace LoopbackNetwork {

inline void writeLine(const char* fileName, const QByteArray& line)
{
    QFile file(QString::fromLatin1(fileName));
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        file.write(line);
}

/** Keeps user and group as they are, in a space where this process may make a network. */
inline bool enterUserSpace()
{
    const QByteArray user = QByteArray::number(getuid());
    const QByteArray group = QByteArray::number(getgid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return false;
    writeLine("/proc/self/setgroups", "deny");
    writeLine("/proc/self/uid_map", user + ' ' + user + " 1");
    writeLine("/proc/self/gid_map", group + ' ' + group + " 1");
    return true;
}

inline bool bringLoopbackUp()
{
    const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    std::strncpy(request.ifr_name, "lo", IFNAMSIZ - 1);
    request.ifr_flags = IFF_UP | IFF_RUNNING;
    const bool isUp = ioctl(descriptor, SIOCSIFFLAGS, &request) == 0;
    close(descriptor);
    return isUp;
}

/**
 * To be called first of all, while the process has one thread.
 * @return false where the system doesn't allow it
 */
inline bool enter()
{
    return (unshare(CLONE_NEWNET) == 0 || enterUserSpace()) && bringLoopbackUp();
}

} // namespace LoopbackNetwork

#endif
