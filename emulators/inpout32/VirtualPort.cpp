#include "VirtualPort.h"

#include <atomic>

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
 * A register is kept as its difference from its value at rest, so that zero bits are a port at rest.
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
    return SharedMemory::nameFrom("TORNIK_VIRTUAL_PORT", "/tornik-virtual-port");
}

VirtualPort::VirtualPort(const std::string& name)
    : m_sharedMemory(name, sizeof(Memory)), m_memory(static_cast<Memory*>(m_sharedMemory.data()))
{
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
    return SharedMemory::remove(name);
}
