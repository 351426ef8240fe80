#include "io/CIoWarriorDevice.h"

#include "io/SharedDevice.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

constexpr int PinPipe = 0;
constexpr int SpecialPipe = 1;
constexpr char PinReportId = 0;
constexpr char SpecialReportId = char(0xFF);
constexpr int WriteTimeout = 1000;  // milliseconds
constexpr int LongestAnswer = 1000; // milliseconds
constexpr int AllPinsHigh = -1;
constexpr std::size_t ReportCapacity = 64;

using Report = std::array<char, ReportCapacity>;

/** How a member of the family is read and written, sizes in bytes. */
struct Chip
{
    quint32 productId;
    int specialSize; ///< of a report on the special pipe; 0: it tells no pins
    int valueSize;   ///< of the part of a pin report that the value fills
    int pinSize;     ///< of a whole pin report; 0: it takes none
    int pins;
};

constexpr Chip Chips[] = {
    {0x1500, 8, 4, 5, 32},  // IO-Warrior40
    {0x1501, 8, 2, 3, 16},  // IO-Warrior24
    {0x1502, 0, 0, 0, 0},   // no pins
    {0x1503, 64, 4, 8, 50}, // IO-Warrior56
    {0x1504, 64, 4, 5, 19}, // IO-Warrior28
    {0x1505, 64, 4, 5, 17}, // IO-Warrior28
    {0x1506, 64, 4, 13, 82} // IO-Warrior100
};

/** Any other chip, and none at all. */
constexpr Chip UnknownChip{0, 0, 4, 5, 0};

Chip chipOf(quint32 productId)
{
    const auto* chip = std::find_if(std::begin(Chips), std::end(Chips),
                                    [productId](const Chip& other) { return other.productId == productId; });
    return chip == std::end(Chips) ? UnknownChip : *chip;
}

/** @return a report with the lowest bytes of the value, and zeros behind it. */
Report makeReport(char id, int value, int valueSize)
{
    std::array<char, sizeof(qint32)> bytes{};
    qToLittleEndian<qint32>(value, bytes.data());
    Report report{};
    report[0] = id;
    std::copy_n(bytes.begin(), valueSize, report.begin() + 1);
    return report;
}

} // namespace

CIoWarriorDevice* CIoWarriorDevice::instance()
{
    return SharedDevice<CIoWarriorDevice>::take();
}

void CIoWarriorDevice::release()
{
    SharedDevice<CIoWarriorDevice>::giveBack();
}

CIoWarriorDevice::CIoWarriorDevice()
    : m_handle(m_library.openDevice()), m_productId(m_handle ? m_library.productId(m_handle) : 0)
{
    write(AllPinsHigh); // so that they can act as inputs
}

CIoWarriorDevice::~CIoWarriorDevice()
{
    if (m_handle)
        m_library.closeDevice(m_handle);
}

int CIoWarriorDevice::read()
{
    ask();
    return takeAnswer(LongestAnswer);
}

void CIoWarriorDevice::ask()
{
    const Chip chip = chipOf(m_productId);
    if (!m_handle || chip.specialSize == 0)
        return;
    Report report = makeReport(SpecialReportId, 0, 0);
    m_library.write(m_handle, SpecialPipe, report.data(), chip.specialSize);
}

int CIoWarriorDevice::takeAnswer(int longestWait)
{
    const Chip chip = chipOf(m_productId);
    if (!m_handle || chip.specialSize == 0)
        return AllPinsHigh;
    // In a report of its own, so that nobody else's call meets half an answer. It holds the pins of
    // the answer before, which stay there if none comes.
    const int before = m_lastReport;
    Report report = makeReport(SpecialReportId, before, sizeof(qint32));
    m_library.setReadTimeout(m_handle, longestWait); // a lost answer must not end the reading
    const quint32 size = m_library.read(m_handle, SpecialPipe, report.data(), chip.specialSize);
    const int value = qFromLittleEndian<qint32>(report.data() + 1);
    m_answering = size > 0 || value != before;
    m_lastReport = value;
    return value;
}

void CIoWarriorDevice::write(int value)
{
    const Chip chip = chipOf(m_productId);
    if (chip.pinSize == 0)
        return;
    Report report = makeReport(PinReportId, value, chip.valueSize);
    m_library.setWriteTimeout(m_handle, WriteTimeout);
    m_library.write(m_handle, PinPipe, report.data(), chip.pinSize);
}

int CIoWarriorDevice::pinCount()
{
    return m_handle ? chipOf(m_library.productId(m_handle)).pins : 0;
}
