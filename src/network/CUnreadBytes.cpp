#include "network/CUnreadBytes.h"

#include <QAbstractSocket>

namespace {

constexpr int Interval = 100;       ///< milliseconds
constexpr int BytesAtOnce = 0x4000; ///< kept in memory at most

} // namespace

CUnreadBytes::CUnreadBytes(QAbstractSocket* socket) : QObject(socket), m_socket(socket)
{
    m_socket->setReadBufferSize(BytesAtOnce);
    m_timer.setSingleShot(true);
    m_timer.setInterval(Interval);
    connect(m_socket, &QAbstractSocket::readyRead, this, &CUnreadBytes::noticeBytes);
    connect(&m_timer, &QTimer::timeout, this, &CUnreadBytes::throwAway);
}

void CUnreadBytes::noticeBytes()
{
    if (!m_timer.isActive())
        m_timer.start();
}

void CUnreadBytes::throwAway()
{
    m_socket->readAll();
}
