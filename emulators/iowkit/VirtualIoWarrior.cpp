#include "VirtualIoWarrior.h"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace {

constexpr unsigned RestProductId = 0x1500;
constexpr char PinReportId = 0;
constexpr char SpecialReportId = char(0xFF);
constexpr std::size_t FirstValueByte = 1;
constexpr std::size_t ValueSize = 4;

constexpr VirtualIoWarrior::Kind Family[] = {
    {0x1500, 8, 5, 0xFFFFFFFF, 8}, // IO-Warrior40
    {0x1501, 8, 3, 0x0000FFFF, 8}, // IO-Warrior24
    {0x1502, 0, 0, 0, 1},
    {0x1503, 64, 8, 0xFFFFFFFF, 1},  // IO-Warrior56
    {0x1504, 64, 5, 0x8003FFFF, 1},  // IO-Warrior28: ports 0 and 1, P2.0, P2.1, P3.7
    {0x1505, 64, 5, 0x8000FFFF, 1},  // IO-Warrior28 without those of port 2
    {0x1506, 64, 13, 0xFFFFFFFF, 1}, // IO-Warrior100
};

const VirtualIoWarrior::Kind* findKind(unsigned productId)
{
    const auto* end = std::end(Family);
    const auto* kind =
        std::find_if(std::begin(Family), end, [productId](const VirtualIoWarrior::Kind& other) {
            return other.productId == productId;
        });
    return kind == end ? nullptr : kind;
}

/** @return bytes of a report as a number, the first one lowest. */
std::uint64_t number(const char* report, std::size_t begin, std::size_t end)
{
    std::uint64_t value = 0;
    for (std::size_t i = begin; i < end; ++i)
        value |= std::uint64_t(static_cast<unsigned char>(report[i])) << (8 * (i - begin));
    return value;
}

} // namespace

/** Kept so that zero bits are a chip at rest: levels as what is low, the product as a difference. */
struct VirtualIoWarrior::Memory
{
    std::atomic<unsigned> productDifference;
    std::atomic<unsigned> unplugged;
    std::atomic<unsigned> silent;
    std::atomic<unsigned> held;
    std::atomic<unsigned> answerTime;
    std::atomic<unsigned> plugging;
    std::atomic<std::uint32_t> pulledLow;
    std::atomic<std::uint32_t> writtenLow;
    std::atomic<std::uint64_t> writtenLowAbove;
    std::atomic<unsigned> writeTimeout;
    std::atomic<unsigned> readTimeout;
    std::atomic<unsigned> counts[HappeningCount];

    static_assert(std::atomic<std::uint64_t>::is_always_lock_free, "a lock would not be shared");
};

std::string VirtualIoWarrior::defaultName()
{
    return SharedMemory::nameFrom("TORNIK_VIRTUAL_IOWARRIOR", "/tornik-virtual-iowarrior");
}

VirtualIoWarrior::VirtualIoWarrior(const std::string& name)
    : m_sharedMemory(name, sizeof(Memory)), m_memory(static_cast<Memory*>(m_sharedMemory.data()))
{
}

bool VirtualIoWarrior::remove(const std::string& name)
{
    return SharedMemory::remove(name);
}

bool VirtualIoWarrior::plug(unsigned productId)
{
    if (!m_memory || !findKind(productId))
        return false;
    m_memory->unplugged = 1;
    m_memory->productDifference = productId ^ RestProductId;
    m_memory->writtenLow = 0;
    m_memory->writtenLowAbove = 0;
    m_memory->writeTimeout = 0;
    m_memory->readTimeout = 0;
    m_memory->silent = 0;
    m_memory->held = 0;
    m_memory->answerTime = 0;
    ++m_memory->plugging;
    m_memory->unplugged = 0;
    return true;
}

void VirtualIoWarrior::unplug()
{
    if (m_memory)
        m_memory->unplugged = 1;
}

void VirtualIoWarrior::setSilent(bool silent)
{
    if (m_memory)
        m_memory->silent = silent;
}

void VirtualIoWarrior::pullLow(std::uint32_t pins)
{
    if (m_memory)
        m_memory->pulledLow |= pins;
}

void VirtualIoWarrior::letGo(std::uint32_t pins)
{
    if (m_memory)
        m_memory->pulledLow &= ~pins;
}

void VirtualIoWarrior::flip(std::uint32_t pins)
{
    if (m_memory)
        m_memory->pulledLow ^= pins;
}

void VirtualIoWarrior::setHeld(bool held)
{
    if (m_memory)
        m_memory->held = held;
}

void VirtualIoWarrior::setAnswerTime(unsigned milliseconds)
{
    if (m_memory)
        m_memory->answerTime = milliseconds;
}

bool VirtualIoWarrior::isPlugged() const
{
    return m_memory && m_memory->unplugged == 0;
}

bool VirtualIoWarrior::isSilent() const
{
    return m_memory && m_memory->silent != 0;
}

bool VirtualIoWarrior::isHeld() const
{
    return m_memory && m_memory->held != 0;
}

bool VirtualIoWarrior::isLate() const
{
    return m_memory && m_memory->answerTime != 0;
}

unsigned VirtualIoWarrior::answerTime() const
{
    return isLate() ? m_memory->answerTime.load() : unsigned(kind().answerMilliseconds);
}

unsigned VirtualIoWarrior::plugging() const
{
    return m_memory ? m_memory->plugging.load() : 0;
}

VirtualIoWarrior::Kind VirtualIoWarrior::kind() const
{
    const Kind* kind = m_memory ? findKind(m_memory->productDifference ^ RestProductId) : nullptr;
    return kind ? *kind : Kind{};
}

std::uint32_t VirtualIoWarrior::pins() const
{
    return m_memory ? written() & ~m_memory->pulledLow & kind().pins : 0;
}

std::uint32_t VirtualIoWarrior::written() const
{
    return m_memory ? ~m_memory->writtenLow : 0;
}

std::uint64_t VirtualIoWarrior::writtenAbove() const
{
    return m_memory ? ~m_memory->writtenLowAbove : 0;
}

bool VirtualIoWarrior::takePins(const char* report, std::size_t size)
{
    if (!m_memory || size == 0 || size != kind().pinSize || report[0] != PinReportId)
        return false;
    const std::size_t valueEnd = std::min(size, FirstValueByte + ValueSize);
    const auto low = std::uint32_t(~number(report, FirstValueByte, valueEnd));
    m_memory->writtenLow = low & kind().pins;
    const std::uint64_t bitsAbove = size > valueEnd ? ~std::uint64_t(0) >> (64 - 8 * (size - valueEnd)) : 0;
    m_memory->writtenLowAbove = ~number(report, valueEnd, size) & bitsAbove;
    add(Written);
    return true;
}

bool VirtualIoWarrior::isQuestion(const char* report, std::size_t size) const
{
    return size > 0 && size == kind().specialSize && report[0] == SpecialReportId;
}

std::size_t VirtualIoWarrior::answer(std::uint32_t levels, char* report, std::size_t size)
{
    if (!m_memory || size == 0 || size != kind().specialSize)
        return 0;
    std::fill_n(report, size, char(0));
    report[0] = SpecialReportId;
    for (std::size_t i = 0; i < ValueSize; ++i)
        report[FirstValueByte + i] = char(levels >> (8 * i));
    add(Answered);
    return size;
}

unsigned VirtualIoWarrior::count(Happening happening) const
{
    return m_memory ? m_memory->counts[happening].load() : 0;
}

void VirtualIoWarrior::add(Happening happening)
{
    if (m_memory)
        ++m_memory->counts[happening];
}

unsigned VirtualIoWarrior::writeTimeout() const
{
    return m_memory ? m_memory->writeTimeout.load() : 0;
}

void VirtualIoWarrior::setWriteTimeout(unsigned milliseconds)
{
    if (m_memory)
        m_memory->writeTimeout = milliseconds;
}

unsigned VirtualIoWarrior::readTimeout() const
{
    return m_memory ? m_memory->readTimeout.load() : 0;
}

void VirtualIoWarrior::setReadTimeout(unsigned milliseconds)
{
    if (m_memory)
        m_memory->readTimeout = milliseconds;
}
