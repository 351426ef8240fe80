#include "NetworkWatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLocalSocket>
#include <QTcpServer>
#include <QTcpSocket>

NetworkWatch::NetworkWatch()
{
    QCoreApplication::instance()->installEventFilter(this);
}

/** Whatever happens on a socket comes to its notifier first, whose owners lead to the socket. */
bool NetworkWatch::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::SockAct)
        return false;
    for (const QObject* owner = object->parent(); owner; owner = owner->parent()) {
        if (qobject_cast<const QLocalSocket*>(owner->parent()))
            break; // a local socket, which has a TCP one inside
        if (const auto* server = qobject_cast<const QTcpServer*>(owner))
            watchServer(server);
        else if (const auto* socket = qobject_cast<const QTcpSocket*>(owner))
            watchSocket(socket);
    }
    return false;
}

/** Signals come here behind the slots of the program, which were connected before. */
void NetworkWatch::watchServer(const QTcpServer* server)
{
    if (m_known.contains(server))
        return;
    m_known.insert(server);
    connect(server, &QTcpServer::newConnection, this, [this, server] {
        for (const QTcpSocket* socket : server->findChildren<QTcpSocket*>())
            watchSocket(socket);
        Q_EMIT accepted();
    });
}

void NetworkWatch::watchSocket(const QTcpSocket* socket)
{
    if (m_known.contains(socket))
        return;
    m_known.insert(socket);
    connect(socket, &QObject::destroyed, this, [this, socket] { m_known.remove(socket); });
    connect(socket, &QTcpSocket::bytesWritten, this, &NetworkWatch::sent);
    connect(socket, &QTcpSocket::readyRead, this, &NetworkWatch::received);
}
