#ifndef TORNIK_EMULATORS_VIRTUALPORT_H
#define TORNIK_EMULATORS_VIRTUALPORT_H

#include "support/SharedMemory.h"

#include <string>

/**
 * The registers of a virtual parallel port, in shared memory: the stand-in library shows them to
 * the program as those of the hardware, and any other process can press its sensors.
 *
 * A register is as wide as the values of the library, 16 bits. One that nobody has written has its
 * value at rest: 127 in the status register of the three usual ports (0x278, 0x378, 0x3BC), 0 in
 * their data and control registers, and 255 elsewhere, where nothing answers.
 *
 * Every operation is safe to call from any thread and process.
 */
class VirtualPort
{
public:
    /** @return the environment variable TORNIK_VIRTUAL_PORT, or "/tornik-virtual-port". */
    static std::string defaultName();

    /** Opens the shared memory of that name, and makes it if there is none. */
    explicit VirtualPort(const std::string& name = defaultName());

    /** @return false where the shared memory can't be had: all registers read 255 then. */
    bool isOpen() const { return m_memory != nullptr; }

    short read(unsigned short address) const;
    void write(unsigned short address, short value);
    void setBits(unsigned short address, short bits);
    void clearBits(unsigned short address, short bits);
    void flipBits(unsigned short address, short bits);

    /** How often the library has been read and written; what this class does doesn't count. */
    unsigned reads() const;
    unsigned writes() const;
    void countRead();
    void countWrite();

    /** Removes the name; processes that have it open keep their memory. */
    static bool remove(const std::string& name = defaultName());

private:
    struct Memory;

    template <typename Function>
    void change(unsigned short address, Function function);

    SharedMemory m_sharedMemory;
    Memory* m_memory;
};

#endif
