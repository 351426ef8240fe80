#include "io/CPpdevRegisters.h"

#include "io/IoLog.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <linux/ppdev.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

/** @return the base address, the first of the two decimal numbers in the file; 0 for none. */
int readBaseAddress(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.read(64).simplified().split(' ').value(0).toInt();
}

} // namespace

CPpdevRegisters::CPpdevRegisters(const QString& devices, const QString& ports)
{
    const QDir directory(ports);
    const QStringList names = directory.entryList({QStringLiteral("parport*")}, QDir::Dirs, QDir::Name);
    for (const QString& name : names) {
        const int base = readBaseAddress(directory.filePath(name + QStringLiteral("/base-addr")));
        if (base <= 0)
            continue;
        auto port = std::make_unique<Port>();
        for (std::atomic<short>& value : port->lastRead)
            value = CNoPortRegisters::ReadValue;
        port->base = base;
        port->device = QDir(devices).filePath(name);
        m_ports.push_back(std::move(port));
    }
}

CPpdevRegisters::~CPpdevRegisters()
{
    for (const auto& port : m_ports) {
        if (port->descriptor >= 0)
            ::close(port->descriptor); // gives the claim back
    }
}

short CPpdevRegisters::read(short address)
{
    Port* port = openedPort(address);
    if (!port)
        return m_absent.read(address);
    static constexpr unsigned long requests[RegisterCount] = {PPRDATA, PPRSTATUS, PPRCONTROL};
    const int index = offset(*port, address);
    std::atomic<short>& lastRead = port->lastRead[std::size_t(index)];
    unsigned char value = 0;
    if (control(port->descriptor, requests[index], &value) < 0)
        return lastRead; // any other value might be that of a car on a sensor
    lastRead = value;
    return value;
}

void CPpdevRegisters::write(short address, short value)
{
    Port* port = openedPort(address);
    if (!port)
        return m_absent.write(address, value);
    auto byte = static_cast<unsigned char>(value);
    switch (offset(*port, address)) {
    case Data:
        control(port->descriptor, PPWDATA, &byte);
        break;
    case Control:
        control(port->descriptor, PPWCONTROL, &byte);
        break;
    default: // the status register can't be written
        break;
    }
}

int CPpdevRegisters::control(int descriptor, unsigned long request, void* argument)
{
    return ::ioctl(descriptor, request, argument);
}

CPpdevRegisters::Port* CPpdevRegisters::openedPort(short address)
{
    for (const auto& port : m_ports) {
        if (offset(*port, address) < 0)
            continue;
        std::call_once(port->opened, [this, &port] { open(*port); });
        return port->descriptor >= 0 ? port.get() : nullptr;
    }
    return nullptr;
}

void CPpdevRegisters::open(Port& port)
{
    // A printer driver on the same port forbids the exclusive claim; the shared one will do then.
    if (claim(port, true) || claim(port, false))
        return;
    qCDebug(ioLog) << "cannot claim" << port.device;
}

bool CPpdevRegisters::claim(Port& port, bool exclusive)
{
    const int descriptor = ::open(QFile::encodeName(port.device).constData(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    if ((exclusive && control(descriptor, PPEXCL, nullptr) < 0) ||
        control(descriptor, PPCLAIM, nullptr) < 0) {
        ::close(descriptor);
        return false;
    }
    port.descriptor = descriptor;
    return true;
}

int CPpdevRegisters::offset(const Port& port, short address)
{
    const int distance = int(quint16(address)) - port.base;
    return distance >= 0 && distance < RegisterCount ? distance : -1;
}
