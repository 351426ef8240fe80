#ifndef TORNIK_NETWORK_REQUIREDNETWORKSESSION_H
#define TORNIK_NETWORK_REQUIREDNETWORKSESSION_H

#include <functional>

class QNetworkSession;
class QObject;

/**
 * Opens a session where the system wants one before the network is used.
 * @param parent owner of the session
 * @param opened called each time when the session has opened; must stay callable as long as the parent
 * @return null where no session is needed: then nothing is called
 */
QNetworkSession* openRequiredNetworkSession(QObject* parent, const std::function<void()>& opened);

#endif
