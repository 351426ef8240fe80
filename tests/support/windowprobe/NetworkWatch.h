#ifndef TORNIK_TESTS_NETWORKWATCH_H
#define TORNIK_TESTS_NETWORKWATCH_H

#include <QObject>
#include <QSet>

class QTcpServer;
class QTcpSocket;

/** Finds the TCP sockets of the program it is in, and tells what happens on them when the program has seen
 * it. */
class NetworkWatch : public QObject
{
    Q_OBJECT

public:
    NetworkWatch();

Q_SIGNALS:
    /** A server of the program has taken a connection, and has sent its first bytes. */
    void accepted();
    /** Emitted while the program sends. @param bytes the number that has been sent at once */
    void sent(qint64 bytes);
    void received();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void watchServer(const QTcpServer* server);
    void watchSocket(const QTcpSocket* socket);

    QSet<const QObject*> m_known;
};

#endif
