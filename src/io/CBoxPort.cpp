#include "io/CBoxPort.h"

#include "io/IoLog.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

CBoxPort::~CBoxPort()
{
    close();
}

bool CBoxPort::open(const QString& name)
{
    close();
    m_name = name;
    const QString path = QDir(QStringLiteral("/dev")).absoluteFilePath(name);
    // Not blocking: opening would wait for a carrier, and no read or write may outlast its time.
    m_handle = ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_handle >= 0 && claim() && setLine() && setDtr(true))
        return true;
    qCDebug(ioLog) << "RaceControl: cannot open" << name << qt_error_string(errno);
    close();
    return false;
}

void CBoxPort::close()
{
    if (!isOpen())
        return;
    control(TIOCNXCL, nullptr);
    ::close(m_handle);
    m_handle = -1;
}

bool CBoxPort::claim()
{
    // The exclusive mode of a terminal doesn't keep the administrator out, the lock does.
    return ::flock(m_handle, LOCK_EX | LOCK_NB) == 0 && control(TIOCEXCL, nullptr) == 0;
}

bool CBoxPort::setLine()
{
    termios settings{};
    if (::tcgetattr(m_handle, &settings) != 0)
        return false;
    ::cfmakeraw(&settings); // 8 data bits, no parity
    settings.c_cflag &= ~tcflag_t(CSTOPB | CRTSCTS);
    settings.c_cflag |= tcflag_t(CREAD | CLOCAL);
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    // What came before the line was ours belongs to no race.
    return ::cfsetspeed(&settings, BaudRate) == 0 && ::tcsetattr(m_handle, TCSANOW, &settings) == 0 &&
           ::tcflush(m_handle, TCIOFLUSH) == 0;
}

bool CBoxPort::setDtr(bool on)
{
    int lines = TIOCM_DTR;
    return control(on ? TIOCMBIS : TIOCMBIC, &lines) >= 0 || errno == ENOTTY || errno == EINVAL;
}

int CBoxPort::control(unsigned long request, void* argument)
{
    return ::ioctl(m_handle, request, argument);
}

bool CBoxPort::read(quint8* byte)
{
    return isOpen() && waitFor(POLLIN, ReadTimeout) && isDone(::read(m_handle, byte, 1));
}

bool CBoxPort::write(quint8 byte)
{
    const QDeadlineTimer deadline(WriteTimeout);
    return waitFor(POLLOUT, WriteTimeout) && isDone(::write(m_handle, &byte, 1)) &&
           drain(int(deadline.remainingTime()));
}

/** Without an open port it waits in vain, so that a caller who tries again does so in peace. */
bool CBoxPort::waitFor(short events, int milliseconds)
{
    pollfd descriptor{m_handle, events, 0};
    if (::poll(&descriptor, 1, milliseconds) <= 0)
        return false;
    if ((descriptor.revents & events) != 0)
        return true;
    closeLost(); // it would report that without a pause for as long as it is asked
    return false;
}

bool CBoxPort::isDone(qint64 transferred)
{
    if (transferred == 1)
        return true;
    if (transferred == 0 || (errno != EAGAIN && errno != EINTR))
        closeLost();
    return false;
}

/** Waits until the byte is out: DTR must not change before. One that can't leave is dropped. */
bool CBoxPort::drain(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    int waiting = 0;
    while (control(TIOCOUTQ, &waiting) >= 0 && waiting > 0) {
        if (deadline.hasExpired()) {
            ::tcflush(m_handle, TCOFLUSH);
            return false;
        }
        QThread::msleep(1);
    }
    return ::tcdrain(m_handle) == 0; // what the chip has taken already
}

void CBoxPort::closeLost()
{
    qCDebug(ioLog) << "RaceControl: lost," << m_name;
    close();
}
