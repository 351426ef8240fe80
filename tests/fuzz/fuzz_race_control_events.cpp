#include "fuzz/FuzzTarget.h"
#include "io/CRaceControl.h"
#include "io/CRaceControlIo.h"
#include "io/CRacewayIoEvent.h"
#include "io/EventRecorder.h"
#include "io/FakeBoxes.h"

#include <QtEndian>

namespace {

constexpr int MostBytesToSend = 16;

/** @return the events that the library makes of foreign bytes, eight bytes each. */
QList<CJnutl::Event> eventsOf(const QByteArray& bytes)
{
    QList<CJnutl::Event> events;
    for (int at = 0; at + 8 <= bytes.size(); at += 8)
        events.append({qFromBigEndian<quint32>(bytes.constData() + at),
                       qFromBigEndian<quint32>(bytes.constData() + at + 4)});
    return events;
}

bool isSensorEvent(quint32 code)
{
    return (code & 0xFF00U) == 0x0200 || (code & 0xFF00U) == 0x0300;
}

/** Boxes on which bytes arrive by turns; what the library says of them is foreign as well. */
class Boxes
{
public:
    explicit Boxes(const QByteArray& bytes)
        : m_control(FakeJnutl::make()), m_count(1 + int(quint8(bytes.at(0))) % CRaceControl::MostBoxes)
    {
        m_control.setPortMaker([this] { return std::make_unique<FakeBoxPort>(&m_lines); });
        QObject::connect(&m_control, &CRaceControl::debugMessage, [](const QString& message) {
            FUZZ_VERIFY(!message.isEmpty() && !message.contains('%'));
        });
        for (int box = 0; box < m_count; ++box)
            FUZZ_VERIFY(m_control.openBox(QString::number(box)));
        for (int i = 0; i < bytes.size(); ++i)
            m_lines[i % m_count].arriving.append(bytes.at(i));
    }

    /** One pass. @return whether it brought a sensor event. */
    bool poll()
    {
        const bool isSensor = m_control.poll();
        FUZZ_VERIFY(!isSensor || isSensorEvent(m_control.lastEvent()));
        for (const FakeBoxLine& line : m_lines)
            FUZZ_VERIFY(line.log.isEmpty() || line.log.last() == "DTR on");
        return isSensor;
    }

    bool isSilent() const
    {
        return std::all_of(m_lines.begin(), m_lines.end(),
                           [](const FakeBoxLine& line) { return line.arriving.isEmpty(); });
    }
    const CRaceControl& control() const { return m_control; }

private:
    QList<FakeBoxLine> m_lines;
    CRaceControl m_control;
    int m_count;
};

/** An interface with a sensor for each bit of an event code. */
class WiredIo : public CRaceControlIo
{
public:
    WiredIo()
    {
        setPortState(PortId::Open, 0x0300, false);
        for (int id = 1; id < PortId::Count; ++id)
            setPortState(id, 0x0300 ^ (1 << (id % 16)), false);
    }
};

void checkPass(WiredIo* io, const CRaceControl& control)
{
    EventRecorder receiver;
    io->setReceiver(&receiver);
    CRacewayIoEvent event(int(control.lastEvent() & 0xFFFFU), int(control.lastTimeStamp()));
    io->processIoEvent(&event);
    FuzzTarget::deliver();
    FUZZ_VERIFY(receiver.passes().size() == 1);
    const EventRecorder::Pass& pass = receiver.passes().first();
    FUZZ_VERIFY(quint32(pass.time) == control.lastTimeStamp());
    FUZZ_VERIFY(pass.sensors.size() == PortId::Count && !pass.sensors.testBit(PortId::Open));
    const quint32 changed = 0x0300U ^ (control.lastEvent() & 0xFFFFU);
    for (int id = 1; id < PortId::Count; ++id) {
        const bool isClosed = !PortId::isOutput(id) && (changed & (1U << (id % 16))) != 0;
        FUZZ_VERIFY(pass.sensors.testBit(id) == isClosed);
    }
}

} // namespace

void FuzzTarget::read(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    FakeJnutl::reset();
    FakeJnutl::events = eventsOf(bytes);
    FakeJnutl::bytesToSend = bytes.left(MostBytesToSend);
    static WiredIo io;
    Boxes boxes(bytes);
    while (!boxes.isSilent()) {
        if (boxes.poll())
            checkPass(&io, boxes.control());
    }
    FUZZ_VERIFY(!boxes.poll());
}
