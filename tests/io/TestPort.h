#ifndef TORNIK_TESTS_IO_TESTPORT_H
#define TORNIK_TESTS_IO_TESTPORT_H

#include "VirtualPort.h"

#include <QCoreApplication>

/**
 * A virtual parallel port of this process alone. Make it before the first parallel port object; the
 * stand-in library shows its registers as long as the shared CInpOutLibrary lives.
 */
class TestPort
{
public:
    static constexpr unsigned short Data = 0x378;
    static constexpr unsigned short Status = 0x379;
    static constexpr unsigned short Control = 0x37A;

    TestPort()
        : m_name("/tornik-test-" + std::to_string(QCoreApplication::applicationPid())), m_port(use(m_name))
    {
    }
    ~TestPort() { VirtualPort::remove(m_name); }

    VirtualPort* operator->() { return &m_port; }

    void reset()
    {
        m_port.write(Data, 0);
        m_port.write(Status, 127);
        m_port.write(Control, 0);
    }

private:
    static const std::string& use(const std::string& name)
    {
        qputenv("TORNIK_VIRTUAL_PORT", QByteArray::fromStdString(name));
        VirtualPort::remove(name);
        return name;
    }

    std::string m_name;
    VirtualPort m_port;
};

#endif
