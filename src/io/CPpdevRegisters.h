#ifndef TORNIK_IO_CPPDEVREGISTERS_H
#define TORNIK_IO_CPPDEVREGISTERS_H

#include "io/CPortRegisters.h"

#include <QString>

#include <array>
#include <atomic>
#include <mutex>
#include <vector>

/**
 * Register access by the kernel's parallel port driver: the registers of a base address are those
 * of the `/dev/parportN` that has it. A port is opened and claimed at the first use of one of its
 * registers and kept until the object goes. A register of no port, or of one that can't be opened,
 * reads 255 and swallows writes; one of a port that goes away in use reads on as it did last.
 *
 * The driver answers the control register from its own copy, so that sensors can only be wired to
 * the data and the status register.
 */
class CPpdevRegisters : public CPortRegisters
{
public:
    /**
     * @param devices directory of the device files
     * @param ports directory with one directory a port, which holds its `base-addr`
     */
    explicit CPpdevRegisters(const QString& devices = QStringLiteral("/dev"),
                             const QString& ports = QStringLiteral("/proc/sys/dev/parport"));
    ~CPpdevRegisters() override;

    /** @return how many ports with a base address the machine has; none of them is opened by this. */
    int portCount() const { return int(m_ports.size()); }

    short read(short address) override;
    void write(short address, short value) override;

protected:
    /** The `ioctl` of a port. @return less than 0 for an error. */
    virtual int control(int descriptor, unsigned long request, void* argument);

private:
    /** The three registers of a port, in the order of their offsets from its base address. */
    enum Register
    {
        Data,
        Status,
        Control,
        RegisterCount
    };
    struct Port
    {
        int base = 0;
        QString device;
        int descriptor = -1;
        std::once_flag opened;
        std::array<std::atomic<short>, RegisterCount> lastRead;
    };

    Port* openedPort(short address);
    void open(Port& port);
    bool claim(Port& port, bool exclusive);
    static int offset(const Port& port, short address);

    std::vector<std::unique_ptr<Port>> m_ports;
    CNoPortRegisters m_absent;
};

#endif
