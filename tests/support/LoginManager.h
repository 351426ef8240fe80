#ifndef TORNIK_TESTS_SUPPORT_LOGINMANAGER_H
#define TORNIK_TESTS_SUPPORT_LOGINMANAGER_H

#include "support/BoundProcess.h"

#include <QStringList>
#include <QTemporaryDir>

/**
 * A system bus of the test's own and on it somebody who takes the calls to the system's login
 * manager and does nothing. From the constructor on, this process and all that it starts know no
 * other system bus, whether this one runs or not.
 */
class LoginManager
{
public:
    /** Before anything in this process has asked for the system bus. */
    LoginManager();
    ~LoginManager();

    /** @return false with a reason in error() where the bus or the one on it doesn't start. */
    bool start();
    /** Leaves the bus without a login manager. @return whether it is gone */
    bool leave();
    QString error() const { return m_error; }

    qint64 processId() const { return m_manager.processId(); }
    /** @return the calls so far, as "PowerOff True"; never waits. */
    QStringList calls();

private:
    bool writeConfiguration() const;
    bool startBus();

    QTemporaryDir m_directory;
    CBoundProcess m_bus;
    CBoundProcess m_manager;
    QStringList m_calls;
    QString m_error;
};

#endif
