#include "network/TcpKeepAlive.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace {

constexpr int SilenceBeforeAsking = 10; ///< seconds
constexpr int QuestionInterval = 5;     ///< seconds
constexpr int Questions = 3;

void setOption(int descriptor, int level, int option, int value)
{
    setsockopt(descriptor, level, option, &value, sizeof value);
}

} // namespace

void watchTcpPeer(qintptr descriptor)
{
    const int socket = int(descriptor);
    setOption(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(socket, IPPROTO_TCP, TCP_KEEPIDLE, SilenceBeforeAsking);
    setOption(socket, IPPROTO_TCP, TCP_KEEPINTVL, QuestionInterval);
    setOption(socket, IPPROTO_TCP, TCP_KEEPCNT, Questions);
}
