#include "io/CRacewayIoFactory.h"

#include "io/CCarreraCuIo.h"
#include "io/CIoWarriorIo.h"
#include "io/CLtAt2560Io.h"
#include "io/CParallelPortIo.h"
#include "io/CRaceControlIo.h"

#include <QDataStream>

namespace {

int typeOf(const QByteArray& blob)
{
    QDataStream stream(blob);
    stream.setVersion(QDataStream::Qt_5_5);
    qint32 type = 0;
    stream >> type;
    return type;
}

std::unique_ptr<CRacewayIo> loaded(std::unique_ptr<CRacewayIo> io, const QByteArray& blob)
{
    io->readSettings(blob);
    return io;
}

} // namespace

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createParallelPort()
{
    return std::make_unique<CParallelPortIo>();
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createParallelPort(int baseAddress, int inputOffset,
                                                                  int outputOffset)
{
    return std::make_unique<CParallelPortIo>(baseAddress, inputOffset, outputOffset);
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createIoWarrior(int interfaceType)
{
    std::unique_ptr<CRacewayIo> io = std::make_unique<CIoWarriorIo>();
    io->setInterfaceType(interfaceType);
    return io;
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createIoWarrior24()
{
    return createIoWarrior(CRacewayIo::IoWarrior24);
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createIoWarrior40()
{
    return createIoWarrior(CRacewayIo::IoWarrior40);
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createIoWarrior28()
{
    return createIoWarrior(CRacewayIo::IoWarrior28);
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createIoWarrior56()
{
    return createIoWarrior(CRacewayIo::IoWarrior56);
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createIoWarrior100()
{
    return createIoWarrior(CRacewayIo::IoWarrior100);
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createRaceControl()
{
    return std::make_unique<CRaceControlIo>();
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createCarreraCu()
{
    return std::make_unique<CCarreraCuIo>();
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createLtAt2560()
{
    return std::make_unique<CLtAt2560Io>();
}

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createFromSettings(const QByteArray& blob)
{
    switch (typeOf(blob)) {
    case CRacewayIo::IoWarrior24:
    case CRacewayIo::IoWarrior40:
    case CRacewayIo::IoWarrior28:
    case CRacewayIo::IoWarrior56:
    case CRacewayIo::IoWarrior100:
        return loaded(std::make_unique<CIoWarriorIo>(), blob);
    case CRacewayIo::RaceControl:
        return loaded(createRaceControl(), blob);
    case CRacewayIo::CarreraCu:
        return loaded(createCarreraCu(), blob);
    case CRacewayIo::LtAt2560:
        return loaded(createLtAt2560(), blob);
    default:
        return std::make_unique<CParallelPortIo>(blob);
    }
}
