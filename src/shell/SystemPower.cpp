#include "shell/SystemPower.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>

void powerMachineOff()
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PowerOff"));
    const bool mayAskTheUser = true;
    call << mayAskTheUser;
    QDBusConnection::systemBus().asyncCall(call);
}
