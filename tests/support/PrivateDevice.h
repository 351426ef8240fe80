#ifndef TORNIK_TESTS_SUPPORT_PRIVATEDEVICE_H
#define TORNIK_TESTS_SUPPORT_PRIVATEDEVICE_H

#include <QByteArray>
#include <QCoreApplication>

#include <string>

/** A virtual device in shared memory of this process alone, which a stand-in library shows. */
template <typename Device>
class PrivateDevice
{
public:
    /** @param variable the environment variable in which the library looks for the name */
    explicit PrivateDevice(const char* variable) : m_name(makeName(variable)), m_device(m_name) {}
    ~PrivateDevice() { Device::remove(m_name); }
    PrivateDevice(const PrivateDevice&) = delete;
    PrivateDevice& operator=(const PrivateDevice&) = delete;

    Device* operator->() { return &m_device; }

private:
    static std::string makeName(const char* variable)
    {
        const std::string name =
            "/" + std::string(variable) + "-" + std::to_string(QCoreApplication::applicationPid());
        qputenv(variable, QByteArray::fromStdString(name));
        Device::remove(name);
        return name;
    }

    std::string m_name;
    Device m_device;
};

#endif
