#include "fuzz/FuzzTarget.h"
#include "io/CIoWarriorIo.h"
#include "io/CParallelPortIo.h"
#include "io/CRaceControlIo.h"
#include "io/CRacewayIoFactory.h"

namespace {

/** Holds the shared devices, which look for their libraries whenever they are made. */
struct HeldDevices
{
    CParallelPortIo port;
    CIoWarriorIo chip;
    CRaceControlIo boxes;
};

void checkMasks(CRacewayIo* io)
{
    for (int id = 0; id < PortId::Count; ++id)
        FUZZ_VERIFY(!io->isInverted(id) || PortId::isOutput(id));
    for (const int value : {0, -1, 127, io->portState(PortId::Open), io->portState(PortId::lapSensor(0))}) {
        const QBitArray closed = io->decodePortValue(value);
        FUZZ_VERIFY(closed.size() == PortId::Count && !closed.testBit(PortId::Open));
        for (int id = 1; id < PortId::Count; ++id) {
            const bool isClosed = !PortId::isOutput(id) && io->isSensorClosed(value, io->portState(id));
            FUZZ_VERIFY(closed.testBit(id) == isClosed);
        }
    }
}

} // namespace

void FuzzTarget::read(const QByteArray& blob)
{
    static const HeldDevices devices;
    const std::unique_ptr<CRacewayIo> io = CRacewayIoFactory::createFromSettings(blob);
    FUZZ_VERIFY(io && io->interfaceType() >= CRacewayIo::ParallelPort &&
                io->interfaceType() <= CRacewayIo::LtAt2560);
    checkMasks(io.get());
    for (int id = -1; id <= PortId::Count; ++id)
        io->setOutput(id, id % 2 == 0);
    const QByteArray written = io->writeSettings();
    FUZZ_VERIFY(CRacewayIoFactory::createFromSettings(written)->writeSettings() == written);
}
