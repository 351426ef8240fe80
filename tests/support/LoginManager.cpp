#include "support/LoginManager.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFile>
#include <QTest>

namespace {

const char* const Service = "org.freedesktop.login1";
/** The interpreter of the system: it has the packages of the system. */
const char* const Python = "/usr/bin/python3";

const char Configuration[] =
    "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN\"\n"
    " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
    "<busconfig>\n"
    "  <listen>%1</listen>\n"
    "  <policy context=\"default\">\n"
    "    <allow own=\"*\"/><allow send_destination=\"*\"/><allow receive_sender=\"*\"/>\n"
    "  </policy>\n"
    "</busconfig>\n";

bool isThere()
{
    const QDBusConnection bus = QDBusConnection::systemBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered(Service);
}

} // namespace

LoginManager::LoginManager()
{
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + QFile::encodeName(m_directory.filePath("bus")));
    m_manager.setProcessChannelMode(QProcess::MergedChannels);
}

LoginManager::~LoginManager()
{
    leave();
    m_bus.kill();
    m_bus.waitForFinished();
}

bool LoginManager::start()
{
    if (!startBus()) {
        m_error = "no bus: " + m_bus.errorString() + ' ' + m_bus.readAllStandardError();
        return false;
    }
    m_manager.start(Python, {"-m", "dbusmock", "--system", "--template", "logind"});
    if (QTest::qWaitFor(isThere, 20000))
        return true;
    m_error = "nobody on the bus: " + m_manager.errorString() + ' ' + m_manager.readAll();
    return false;
}

bool LoginManager::startBus()
{
    if (m_bus.state() == QProcess::Running)
        return true;
    if (!writeConfiguration())
        return false;
    m_bus.start("dbus-daemon", {"--config-file=" + m_directory.filePath("bus.conf"), "--nofork",
                                "--nopidfile", "--nosyslog", "--print-address=1"});
    return m_bus.waitForStarted() && m_bus.waitForReadyRead(20000);
}

bool LoginManager::writeConfiguration() const
{
    QFile file(m_directory.filePath("bus.conf"));
    return file.open(QIODevice::WriteOnly) &&
           file.write(QString(Configuration).arg(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS")).toUtf8()) >
               0;
}

bool LoginManager::leave()
{
    m_manager.kill();
    m_manager.waitForFinished();
    return m_bus.state() != QProcess::Running || QTest::qWaitFor([] { return !isThere(); }, 20000);
}

QStringList LoginManager::calls()
{
    m_manager.waitForReadyRead(0);
    while (m_manager.canReadLine()) // "1700000000.123 PowerOff True"
        m_calls.append(QString::fromUtf8(m_manager.readLine()).section(' ', 1).trimmed());
    return m_calls;
}
