#include "fuzz/FuzzTarget.h"
#include "io/CCarreraCu.h"
#include "io/CCarreraCuIo.h"
#include "io/EventRecorder.h"
#include "io/FakeLine.h"

namespace {

/** @return the valid frames of a line that hands over bytes in these pieces. */
QStringList framesOf(const QList<QByteArray>& pieces)
{
    FakeLineScript script;
    script.reads = pieces;
    CCarreraCu unit;
    unit.setPortMaker([&script](const QString&) { return std::make_unique<FakeLine>(&script); });
    FUZZ_VERIFY(unit.openPort(QStringLiteral("fuzz")));
    QStringList frames;
    bool received = true;
    while (received || !script.reads.isEmpty()) {
        received = unit.receiveFrame();
        if (!received)
            continue;
        FUZZ_VERIFY(unit.lastFrame().isComplete() && unit.lastFrame().checksumValid());
        frames.append(unit.lastFrameText());
    }
    return frames;
}

void checkFrame(CCarreraCuIo* io, const QString& frame)
{
    EventRecorder receiver;
    io->setReceiver(&receiver);
    CCarreraCuEvent event(frame);
    io->processIoEvent(&event);
    FuzzTarget::deliver();
    FUZZ_VERIFY(receiver.passes().size() + receiver.states().size() <= 1);
    for (const EventRecorder::Pass& pass : receiver.passes()) {
        FUZZ_VERIFY(pass.sensors.size() == PortId::Count && pass.sensors.count(true) == 1);
        const int bit = EventRecorder::closed(pass).first();
        FUZZ_VERIFY((bit >= 1 && bit <= 8) || (bit >= 41 && bit <= 56));
    }
    for (const CCarreraCuStatusEvent& state : receiver.states()) {
        FUZZ_VERIFY(state.startLight() <= 15);
        for (const quint8 level : state.fuel())
            FUZZ_VERIFY(level <= 15);
    }
}

} // namespace

void FuzzTarget::read(const QByteArray& bytes)
{
    static CCarreraCuIo io;
    for (const QString& frame : framesOf({bytes}))
        checkFrame(&io, frame);
    for (const QString& frame : framesOf(FuzzTarget::pieces(bytes)))
        checkFrame(&io, frame);
    for (const QByteArray& frame : bytes.split('\n')) // whatever its checksum is
        checkFrame(&io, QString::fromLatin1(frame));
}
