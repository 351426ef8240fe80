#ifndef TORNIK_TESTS_LOOPBACKSOCKET_H
#define TORNIK_TESTS_LOOPBACKSOCKET_H

#include <QByteArray>
#include <QTest>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/** A bare socket on the loopback address that does nothing by itself: it reads only when it is told. */
class LoopbackSocket
{
public:
    /** Connects. @param receiveBuffer bytes that the system may keep for it; 0 for what is usual */
    explicit LoopbackSocket(quint16 port, int receiveBuffer = 0)
        : m_descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        if (receiveBuffer)
            ::setsockopt(m_descriptor, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_isConnected =
            ::connect(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    ~LoopbackSocket() { ::close(m_descriptor); }
    Q_DISABLE_COPY(LoopbackSocket)

    bool isConnected() const { return m_isConnected; }

    /** Lets the closing break the connection off instead of ending it in order. */
    void breakOffWhenClosed()
    {
        const linger atOnce{1, 0};
        ::setsockopt(m_descriptor, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }

    /** Sends what the system takes now. @return number of bytes */
    qint64 send(const QByteArray& bytes)
    {
        const auto sent =
            ::send(m_descriptor, bytes.constData(), std::size_t(bytes.size()), MSG_DONTWAIT | MSG_NOSIGNAL);
        return sent < 0 ? 0 : sent;
    }

    /** @return all that is there now */
    QByteArray read()
    {
        QByteArray bytes;
        QByteArray piece(0x10000, Qt::Uninitialized);
        ssize_t received = 0;
        while ((received = ::recv(m_descriptor, piece.data(), std::size_t(piece.size()), MSG_DONTWAIT)) > 0)
            bytes += piece.left(int(received));
        m_hasEnded = m_hasEnded || received == 0 || (errno != EAGAIN && errno != EWOULDBLOCK);
        return bytes;
    }

    /** Reads until some bytes have come, for as long as a test waits. @return whether they came last */
    bool receive(const QByteArray& end)
    {
        QByteArray received;
        const auto isThere = [&] {
            received = received.right(end.size()) + read();
            return received.endsWith(end);
        };
        return QTest::qWaitFor(isThere);
    }

    /** Reads all that is there. @return whether the other side has ended or broken off the connection */
    bool hasEnded()
    {
        read();
        return m_hasEnded;
    }

private:
    int m_descriptor;
    bool m_isConnected = false;
    bool m_hasEnded = false;
};

#endif
