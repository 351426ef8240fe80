#include "support/PseudoTerminal.h"

#include <QFile>
#include <QSocketNotifier>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

PseudoTerminal::PseudoTerminal(QObject* parent) : QObject(parent) {}

PseudoTerminal::~PseudoTerminal()
{
    close();
}

bool PseudoTerminal::open()
{
    close();
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_master < 0)
        return false;
    if (::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0 || !openSlave()) {
        close();
        return false;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_master, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { read(); });
    return true;
}

bool PseudoTerminal::openSlave()
{
    std::array<char, 128> name{};
    if (::ptsname_r(m_master, name.data(), name.size()) != 0)
        return false;
    m_slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    if (m_slave < 0 || ::tcgetattr(m_slave, &settings) != 0)
        return false;
    ::cfmakeraw(&settings);
    m_path = QFile::decodeName(name.data());
    return ::tcsetattr(m_slave, TCSANOW, &settings) == 0;
}

void PseudoTerminal::close()
{
    m_notifier.reset();
    if (m_master >= 0)
        ::close(m_master);
    if (m_slave >= 0)
        ::close(m_slave);
    m_master = -1;
    m_slave = -1;
    m_path.clear();
}

void PseudoTerminal::write(const QByteArray& bytes)
{
    int sent = 0;
    while (isOpen() && sent < bytes.size()) {
        const ssize_t written = ::write(m_master, bytes.constData() + sent, std::size_t(bytes.size() - sent));
        if (written <= 0)
            return;
        sent += int(written);
    }
}

bool PseudoTerminal::linkFrom(const QString& link) const
{
    const QByteArray name = QFile::encodeName(link);
    const QByteArray fresh = name + ".new";
    ::unlink(fresh.constData());
    return ::symlink(QFile::encodeName(m_path).constData(), fresh.constData()) == 0 &&
           std::rename(fresh.constData(), name.constData()) == 0;
}

void PseudoTerminal::read()
{
    std::array<char, 1024> buffer{};
    const ssize_t size = ::read(m_master, buffer.data(), buffer.size());
    if (size > 0)
        Q_EMIT received(QByteArray(buffer.data(), int(size)));
}
