#include "VirtualPort.h"

#include <atomic>
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr std::size_t AddressCount = 65536;

short valueAtRest(unsigned short address)
{
    for (const int base : {0x278, 0x378, 0x3BC}) {
        const int offset = address - base;
        if (offset == 0 || offset == 2)
            return 0;
        if (offset == 1)
            return 127;
    }
    return 255;
}

} // namespace

/**
 * New shared memory is all zero bits. A register is kept as its difference from its value at rest,
 * so that zero bits are a port at rest and nobody has to be the first to fill it.
 */
struct VirtualPort::Memory
{
    std::atomic<unsigned> reads;
    std::atomic<unsigned> writes;
    std::atomic<unsigned short> differences[AddressCount];

    static_assert(std::atomic<unsigned short>::is_always_lock_free, "a lock would not be shared");
};

std::string VirtualPort::defaultName()
{
    const char* name = std::getenv("TORNIK_VIRTUAL_PORT");
    return name && *name ? name : "/tornik-virtual-port";
}

VirtualPort::VirtualPort(const std::string& name) : m_memory(nullptr)
{
    const int descriptor = ::shm_open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return;
    if (::ftruncate(descriptor, sizeof(Memory)) == 0) {
        void* memory = ::mmap(nullptr, sizeof(Memory), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
        m_memory = memory == MAP_FAILED ? nullptr : static_cast<Memory*>(memory);
    }
    ::close(descriptor);
}

VirtualPort::~VirtualPort()
{
    if (m_memory)
        ::munmap(m_memory, sizeof(Memory));
}

short VirtualPort::read(unsigned short address) const
{
    if (!m_memory)
        return 255;
    return short(m_memory->differences[address].load() ^ valueAtRest(address));
}

void VirtualPort::write(unsigned short address, short value)
{
    if (m_memory)
        m_memory->differences[address].store(static_cast<unsigned short>(value ^ valueAtRest(address)));
}

void VirtualPort::setBits(unsigned short address, short bits)
{
    change(address, [bits](int value) { return value | bits; });
}

void VirtualPort::clearBits(unsigned short address, short bits)
{
    change(address, [bits](int value) { return value & ~bits; });
}

void VirtualPort::flipBits(unsigned short address, short bits)
{
    change(address, [bits](int value) { return value ^ bits; });
}

template <typename Function>
void VirtualPort::change(unsigned short address, Function function)
{
    if (!m_memory)
        return;
    const int rest = valueAtRest(address);
    auto& difference = m_memory->differences[address];
    unsigned short before = difference.load();
    while (!difference.compare_exchange_weak(before,
                                             static_cast<unsigned short>(function(before ^ rest) ^ rest))) {
    }
}

unsigned VirtualPort::reads() const
{
    return m_memory ? m_memory->reads.load() : 0;
}

unsigned VirtualPort::writes() const
{
    return m_memory ? m_memory->writes.load() : 0;
}

void VirtualPort::countRead()
{
    if (m_memory)
        m_memory->reads.fetch_add(1, std::memory_order_relaxed);
}

void VirtualPort::countWrite()
{
    if (m_memory)
        m_memory->writes.fetch_add(1, std::memory_order_relaxed);
}

bool VirtualPort::remove(const std::string& name)
{
    return ::shm_unlink(name.c_str()) == 0;
}
