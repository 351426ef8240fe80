#include "io/CPortRegisters.h"

#include "io/CInpOutRegisters.h"
#include "io/CPpdevRegisters.h"
#include "io/IoLog.h"

#include <atomic>

namespace {

void tellOnce(short address)
{
    static std::atomic<bool> told{false};
    if (told.load(std::memory_order_relaxed) || told.exchange(true))
        return;
    qCDebug(ioLog).nospace() << "no parallel port with the register 0x" << Qt::hex << quint16(address);
}

} // namespace

std::unique_ptr<CPortRegisters> CPortRegisters::create()
{
    auto library = std::make_unique<CInpOutRegisters>();
    if (library->isLoaded())
        return library;
    auto kernel = std::make_unique<CPpdevRegisters>();
    if (kernel->portCount() > 0)
        return kernel;
    return std::make_unique<CNoPortRegisters>();
}

short CNoPortRegisters::read(short address)
{
    tellOnce(address);
    return ReadValue;
}

void CNoPortRegisters::write(short address, short)
{
    tellOnce(address);
}
