#include "io/CRacewayIo.h"

#include "io/CCarreraCuEvents.h"
#include "io/CDriveThroughEvent.h"
#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>
#include <QDataStream>

namespace {

bool isValid(int portId)
{
    return portId >= 0 && portId < PortId::Count;
}

} // namespace

CRacewayIo::CRacewayIo(int interfaceType, QObject* parent)
    : QObject(parent), sensors(PortId::Count), m_interfaceType(interfaceType)
{
}

void CRacewayIo::customEvent(QEvent* event)
{
    if (event->type() == CRacewayIoEvent::EventType || event->type() == CCarreraCuEvent::EventType)
        processIoEvent(event);
    else
        QObject::customEvent(event);
}

int CRacewayIo::portState(int portId) const
{
    return isValid(portId) ? m_masks[std::size_t(portId)] : 0;
}

int CRacewayIo::setPortState(int portId, int value, bool inverted)
{
    if (!isValid(portId))
        return value;
    m_masks[std::size_t(portId)] = value;
    if (PortId::isOutput(portId))
        m_inverted[std::size_t(portId)] = inverted;
    if (portId == PortId::Open)
        m_outputShadow = value;
    return value;
}

bool CRacewayIo::isInverted(int portId) const
{
    return PortId::isOutput(portId) && m_inverted[std::size_t(portId)];
}

int CRacewayIo::outputMask(int portId) const
{
    const int state = portState(portId);
    return state == -1 ? 0 : state;
}

int CRacewayIo::switchOutputShadow(int portId, bool on)
{
    const int mask = outputMask(portId);
    const bool level = on != isInverted(portId);
    m_outputShadow = level ? m_outputShadow | mask : m_outputShadow & ~mask;
    return m_outputShadow;
}

bool CRacewayIo::isSensorClosed(int value, int mask) const
{
    const int open = portState(PortId::Open);
    const int changed = open ^ value;
    return (mask & changed) != (open & changed);
}

QBitArray CRacewayIo::decodePortValue(int value)
{
    sensors.fill(false);
    const int changed = m_masks[PortId::Open] ^ value;
    if (changed != 0) {
        decodeInputs(PortId::FirstLapSensor, PortId::ChaosButton, changed);
        decodeInputs(PortId::FirstFuelSensor, PortId::Count - 1, changed);
    }
    return sensors;
}

// isSensorClosed() for a run of inputs, with what they share taken out of the loop.
void CRacewayIo::decodeInputs(int first, int last, int changed)
{
    const int open = m_masks[PortId::Open];
    for (int id = first; id <= last; ++id) {
        if (((m_masks[std::size_t(id)] ^ open) & changed) != 0)
            sensors.setBit(id);
    }
}

void CRacewayIo::processPortEvent(QEvent* event)
{
    if (event->type() != CRacewayIoEvent::EventType)
        return;
    const auto* raw = static_cast<const CRacewayIoEvent*>(event);
    QCoreApplication::postEvent(m_receiver,
                                new CDriveThroughEvent(decodePortValue(raw->value()), raw->time()));
}

void CRacewayIo::setAllMasks(int portOpen, int inputs, int outputs)
{
    setPortState(PortId::Open, portOpen, false);
    for (int id = PortId::Open + 1; id < PortId::Count; ++id)
        setPortState(id, PortId::isOutput(id) ? outputs : inputs, false);
}

void CRacewayIo::readMask(QDataStream& stream, int portId)
{
    qint32 mask = 0;
    stream >> mask;
    setPortState(portId, mask, false);
}

void CRacewayIo::readMasks(QDataStream& stream)
{
    readMask(stream, PortId::Open);
    readMask(stream, PortId::ChaosButton);
    for (int id = PortId::FirstLapSensor; id < PortId::ChaosButton; ++id)
        readMask(stream, id);
    for (int id = PortId::FirstTrackPower; id <= PortId::ChaosSignal; ++id)
        readMask(stream, id);
    for (int id = PortId::FirstTrackPower; id <= PortId::ChaosSignal; ++id)
        stream >> m_inverted[std::size_t(id)];
}

void CRacewayIo::writeMasks(QDataStream& stream) const
{
    stream << qint32(portState(PortId::Open)) << qint32(portState(PortId::ChaosButton));
    for (int id = PortId::FirstLapSensor; id < PortId::ChaosButton; ++id)
        stream << qint32(portState(id));
    for (int id = PortId::FirstTrackPower; id <= PortId::ChaosSignal; ++id)
        stream << qint32(portState(id));
    for (int id = PortId::FirstTrackPower; id <= PortId::ChaosSignal; ++id)
        stream << isInverted(id);
}

void CRacewayIo::readTimingMasks(QDataStream& stream)
{
    for (int id = PortId::FirstFuelSensor; id < PortId::Count; ++id)
        readMask(stream, id);
}

void CRacewayIo::writeTimingMasks(QDataStream& stream) const
{
    for (int id = PortId::FirstFuelSensor; id < PortId::Count; ++id)
        stream << qint32(portState(id));
}

void CRacewayIo::readSerialSettings(const QByteArray& blob, QString* portName)
{
    QDataStream stream(blob);
    stream.setVersion(QDataStream::Qt_5_5);
    qint32 type = 0;
    stream >> type >> *portName;
    readMasks(stream);
    readTimingMasks(stream);
}

QByteArray CRacewayIo::writeSerialSettings(const QString& portName) const
{
    QByteArray blob;
    QDataStream stream(&blob, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << qint32(interfaceType()) << portName;
    writeMasks(stream);
    writeTimingMasks(stream);
    return blob;
}
