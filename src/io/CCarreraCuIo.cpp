#include "io/CCarreraCuIo.h"

#include "io/CCarreraCuEvents.h"
#include "io/CCarreraCuMessage.h"
#include "io/CCarreraCuThread.h"
#include "io/CDriveThroughEvent.h"

#include <QCoreApplication>

namespace {

int sensorOf(int car, int group)
{
    switch (group) {
    case 2:
        return PortId::sector2Sensor(car - 1);
    case 3:
        return PortId::sector3Sensor(car - 1);
    default:
        return PortId::lapSensor(car - 1);
    }
}

} // namespace

CCarreraCuIo::CCarreraCuIo(QObject* parent)
    : CRacewayIo(CarreraCu, parent), m_thread(CCarreraCuThread::instance())
{
    setAllMasks(-1, -1, -1);
}

CCarreraCuIo::~CCarreraCuIo()
{
    if (m_thread->target() == this) {
        m_thread->stop();
        m_thread->wait();
        m_thread->setTarget(nullptr);
    }
    CCarreraCuThread::release();
}

QBitArray CCarreraCuIo::sensorStates()
{
    return QBitArray(PortId::Count);
}

void CCarreraCuIo::setOutput(int /*portId*/, bool /*on*/) {}

int CCarreraCuIo::capturePortState(int /*portId*/)
{
    return 0;
}

void CCarreraCuIo::start()
{
    // A reader on its last pass still counts as running and would swallow this start.
    if (m_thread->isStopping())
        m_thread->wait();
    if (m_thread->isRunning())
        return;
    m_thread->setTarget(this);
    m_thread->setPortName(m_portOfBlob); // another interface may have had the thread meanwhile
    m_thread->start();
}

void CCarreraCuIo::stop()
{
    m_thread->stop();
}

bool CCarreraCuIo::isRunning() const
{
    return m_thread->isRunning();
}

void CCarreraCuIo::readSettings(const QByteArray& blob)
{
    readSerialSettings(blob, &m_portName);
    m_portOfBlob = m_portName;
    m_thread->setPortName(m_portOfBlob);
}

QByteArray CCarreraCuIo::writeSettings() const
{
    return writeSerialSettings(m_portName);
}

void CCarreraCuIo::processIoEvent(QEvent* event)
{
    if (event->type() != CCarreraCuEvent::EventType)
        return;
    const CCarreraCuMessage frame(static_cast<const CCarreraCuEvent*>(event)->data().toLatin1());
    if (frame.isLapFrame())
        postDriveThrough(frame);
    else if (frame.isStatusFrame())
        postStatus(frame);
}

void CCarreraCuIo::postDriveThrough(const CCarreraCuMessage& frame)
{
    sensors.fill(false);
    sensors.setBit(sensorOf(frame.car(), frame.sensorGroup()));
    QCoreApplication::postEvent(receiver(), new CDriveThroughEvent(sensors, int(frame.timeStamp())));
}

void CCarreraCuIo::postStatus(const CCarreraCuMessage& frame)
{
    std::array<quint8, CCarreraCuStatusEvent::Cars> fuel{};
    for (int car = 0; car < CCarreraCuStatusEvent::Cars; ++car)
        fuel[std::size_t(car)] = frame.tankLevel(car);
    QCoreApplication::postEvent(receiver(), new CCarreraCuStatusEvent(fuel, frame.startLight()));
}
