#include "network/RequiredNetworkSession.h"

#include <QNetworkConfigurationManager>
#include <QNetworkSession>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED // sessions are gone with the next Qt, and with it the systems that need them

    QNetworkSession*
    openRequiredNetworkSession(QObject* parent, const std::function<void()>& opened)
{
    const QNetworkConfigurationManager manager;
    if (!(manager.capabilities() & QNetworkConfigurationManager::NetworkSessionRequired))
        return nullptr;
    auto* session = new QNetworkSession(manager.defaultConfiguration(), parent);
    QObject::connect(session, &QNetworkSession::opened, parent, opened);
    session->open();
    return session;
}

QT_WARNING_POP
