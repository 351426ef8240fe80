#ifndef TORNIK_NETWORK_CUNREADBYTES_H
#define TORNIK_NETWORK_CUNREADBYTES_H

#include <QTimer>

class QAbstractSocket;

/**
 * Throws away what comes in on a socket. Owned by the socket, whose end is still noticed.
 *
 * A stranger may send as fast as the line can: then the bytes are left to the system, which stops the
 * stranger, but for a few of them ten times a second.
 */
class CUnreadBytes : public QObject
{
    Q_OBJECT

public:
    explicit CUnreadBytes(QAbstractSocket* socket);

private Q_SLOTS:
    void noticeBytes();
    void throwAway();

private:
    QAbstractSocket* m_socket;
    QTimer m_timer;
};

#endif
