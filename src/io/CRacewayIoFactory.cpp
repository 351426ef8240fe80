#include "io/CRacewayIoFactory.h"

#include "io/CParallelPortIo.h"

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

std::unique_ptr<CRacewayIo> CRacewayIoFactory::createFromSettings(const QByteArray& blob)
{
    switch (typeOf(blob)) {
    default:
        return std::make_unique<CParallelPortIo>(blob);
    }
}
