#include "io/CIoWarriorIo.h"

#include "io/CIoWarriorDevice.h"
#include "io/CIoWarriorThread.h"

#include <QDataStream>

namespace {

constexpr int NotAssigned = -1;

CRacewayIo::InterfaceType typeOfChip(int pinCount)
{
    switch (pinCount) {
    case 32:
        return CRacewayIo::IoWarrior40;
    case 50:
        return CRacewayIo::IoWarrior56;
    case 19:
    case 17:
        return CRacewayIo::IoWarrior28;
    case 82:
        return CRacewayIo::IoWarrior100;
    default:
        return CRacewayIo::IoWarrior24;
    }
}

} // namespace

CIoWarriorIo::CIoWarriorIo(QObject* parent)
    : CRacewayIo(IoWarrior24, parent),
      m_device(CIoWarriorDevice::instance()),
      m_thread(std::make_unique<CIoWarriorThread>())
{
    setInterfaceType(typeOfChip(m_device->pinCount()));
    setAllMasks(NotAssigned, NotAssigned, NotAssigned);
    m_thread->setTarget(this);
}

CIoWarriorIo::~CIoWarriorIo()
{
    m_thread.reset();
    CIoWarriorDevice::release();
}

bool CIoWarriorIo::isIoWarrior(int interfaceType)
{
    switch (interfaceType) {
    case IoWarrior24:
    case IoWarrior40:
    case IoWarrior28:
    case IoWarrior56:
    case IoWarrior100:
        return true;
    default:
        return false;
    }
}

QBitArray CIoWarriorIo::sensorStates()
{
    return decodePortValue(m_device->read());
}

void CIoWarriorIo::setOutput(int portId, bool on)
{
    const int levels = switchOutputShadow(portId, on);
    if (isRunning())
        m_thread->queueOutput(levels, outputMask(portId));
    else
        m_thread->writeOutput(levels, outputMask(portId));
}

int CIoWarriorIo::capturePortState(int portId)
{
    return setPortState(portId, m_device->read(), false);
}

void CIoWarriorIo::start()
{
    if (m_device->isOpen())
        m_thread->start();
}

void CIoWarriorIo::stop()
{
    m_thread->requestStop();
}

bool CIoWarriorIo::isRunning() const
{
    return m_thread->isRunning();
}

void CIoWarriorIo::readSettings(const QByteArray& blob)
{
    QDataStream stream(blob);
    stream.setVersion(QDataStream::Qt_5_5);
    qint32 type = 0;
    stream >> type;
    if (isIoWarrior(type))
        setInterfaceType(type);
    readMasks(stream);
    readTimingMasks(stream);
}

QByteArray CIoWarriorIo::writeSettings() const
{
    QByteArray blob;
    QDataStream stream(&blob, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << qint32(interfaceType());
    writeMasks(stream);
    writeTimingMasks(stream);
    return blob;
}

void CIoWarriorIo::processIoEvent(QEvent* event)
{
    processPortEvent(event);
}
