#include "io/CLtAt2560Io.h"

#include "io/CDriveThroughEvent.h"
#include "io/CLtAt2560.h"
#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace {

constexpr int NotAssigned = -1;
constexpr std::array<int, PortId::Tracks> PowerOutputs{8, 9, 10, 11, 12, 13, NotAssigned, NotAssigned};
constexpr std::array<int, PortId::ChaosSignal - PortId::FirstRedLamp + 1> LampOutputs{5, 4, 3, 2, 1, 0, 6};
constexpr int SwitchableTracks = 6;

/** What a frame of the box tells; both are -1 if it can't be read. */
struct Activation
{
    int input = -1;
    int time = -1;
};

constexpr std::size_t LapInputs = PortId::ChaosButton - PortId::FirstLapSensor;
constexpr std::size_t TimingInputs = PortId::Count - PortId::FirstFuelSensor;
using InputIds = std::array<int, 1 + LapInputs + TimingInputs>;

/** @return the inputs in the order in which the box is told of them. */
constexpr InputIds inputIds()
{
    InputIds ids{PortId::ChaosButton};
    for (std::size_t i = 0; i < LapInputs; ++i)
        ids[1 + i] = PortId::FirstLapSensor + int(i);
    for (std::size_t i = 0; i < TimingInputs; ++i)
        ids[1 + LapInputs + i] = PortId::FirstFuelSensor + int(i);
    return ids;
}

constexpr InputIds AllInputs = inputIds();

/** @return the number that a text of digits is; nothing for any other text. */
std::optional<quint64> decimal(const QByteArray& text)
{
    const bool onlyDigits =
        std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    bool converted = false;
    const quint64 number = text.toULongLong(&converted);
    return onlyDigits && converted ? std::make_optional(number) : std::nullopt;
}

Activation activationOf(const QByteArray& frame)
{
    const int comma = frame.indexOf(',');
    if (!frame.startsWith(":S") || !frame.endsWith(';') || comma < 0)
        return {};
    // Text that is no number must not pass for input 0, which is a sensor.
    const auto input = decimal(frame.mid(2, comma - 2).trimmed());
    const auto time = decimal(frame.mid(comma + 1, frame.indexOf(';') - comma - 1).trimmed());
    if (!input || *input > quint64(std::numeric_limits<int>::max()) || !time)
        return {};
    return {int(*input), int(quint32(*time))}; // the box's clock runs on past 31 bits
}

/** @return the letters of an output; empty for a port id that the box doesn't switch. */
QString tokenOf(int portId)
{
    if (portId >= PortId::FirstRedLamp && portId <= PortId::GreenLamp)
        return QStringLiteral("A%1").arg(portId - PortId::FirstRedLamp + 1);
    if (portId >= PortId::FirstTrackPower && portId < PortId::FirstTrackPower + SwitchableTracks)
        return QStringLiteral("P%1").arg(portId - PortId::FirstTrackPower + 1);
    if (portId == PortId::ChaosSignal)
        return QStringLiteral("C");
    if (portId >= PortId::FirstEndSensor && portId < PortId::FirstEndSensor + SwitchableTracks)
        return QStringLiteral("E");
    return {};
}

} // namespace

CLtAt2560Io::CLtAt2560Io(QObject* parent) : CRacewayIo(LtAt2560, parent), m_device(CLtAt2560::instance())
{
    setAllMasks(NotAssigned, NotAssigned, NotAssigned);
    for (int track = 0; track < PortId::Tracks; ++track)
        setPortState(PortId::trackPower(track), PowerOutputs[std::size_t(track)], true);
    for (int id = PortId::FirstRedLamp; id <= PortId::ChaosSignal; ++id)
        setPortState(id, LampOutputs[std::size_t(id - PortId::FirstRedLamp)], true);
}

CLtAt2560Io::~CLtAt2560Io()
{
    CLtAt2560::release();
}

QBitArray CLtAt2560Io::sensorStates()
{
    return QBitArray(PortId::Count);
}

void CLtAt2560Io::setOutput(int portId, bool on)
{
    const QString token = tokenOf(portId);
    if (token.isEmpty())
        return;
    const bool level = on != isInverted(portId);
    m_device->sendFrame(QStringLiteral(":%1%2;").arg(token).arg(level ? '1' : '0'));
}

int CLtAt2560Io::capturePortState(int /*portId*/)
{
    return 0;
}

void CLtAt2560Io::start()
{
    m_device->openOnPort(m_portName);
    m_device->setTarget(this);
    sendInputSetup();
    m_running = true;
}

void CLtAt2560Io::stop()
{
    m_running = false;
}

void CLtAt2560Io::sendInputSetup()
{
    QStringList numbers;
    for (const int id : AllInputs) {
        if (portState(id) != NotAssigned)
            numbers.append(QString::number(portState(id)));
    }
    if (!numbers.isEmpty())
        m_device->sendFrame(QStringLiteral(":IS,%1;").arg(numbers.join('.')));
}

void CLtAt2560Io::readSettings(const QByteArray& blob)
{
    readSerialSettings(blob, &m_portName);
}

QByteArray CLtAt2560Io::writeSettings() const
{
    return writeSerialSettings(m_portName);
}

void CLtAt2560Io::processIoEvent(QEvent* event)
{
    if (event->type() != CRacewayIoEvent::EventType)
        return;
    const Activation activation = activationOf(static_cast<const CRacewayIoEvent*>(event)->text());
    decodeInput(activation.input);
    if (receiver())
        QCoreApplication::postEvent(receiver(), new CDriveThroughEvent(sensors, activation.time));
}

void CLtAt2560Io::decodeInput(int number)
{
    // Required: -1 is an input that isn't assigned as well as a frame that can't be read, so that
    // such a frame closes every sensor that isn't assigned.
    sensors.fill(false);
    for (const int id : AllInputs) {
        if (portState(id) == number)
            sensors.setBit(id);
    }
}
