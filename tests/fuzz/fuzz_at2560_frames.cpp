#include "fuzz/FuzzTarget.h"
#include "io/CLtAt2560.h"
#include "io/CLtAt2560Io.h"
#include "io/EventRecorder.h"

namespace {

constexpr int LongestFrame = 31;

/** @return the frames that are cut out of bytes that come in these pieces. */
QStringList framesOf(const QList<QByteArray>& pieces)
{
    CLtAt2560 box;
    EventRecorder target;
    box.setTarget(&target);
    for (const QByteArray& piece : pieces)
        box.processBytes(piece);
    FuzzTarget::deliver();
    return target.frames();
}

/** An interface on which half of the sensors are assigned, input 0 among them. */
class HalfAssignedIo : public CLtAt2560Io
{
public:
    HalfAssignedIo()
    {
        for (int id = 1; id < PortId::Count; id += 2)
            setPortState(id, id / 2, false);
    }
};

EventRecorder::Pass passOf(HalfAssignedIo* io, const QString& frame)
{
    EventRecorder receiver;
    io->setReceiver(&receiver);
    CRacewayIoEvent event(0, 0);
    event.setText(frame.toLatin1().constData());
    io->processIoEvent(&event);
    FuzzTarget::deliver();
    FUZZ_VERIFY(receiver.passes().size() == 1);
    return receiver.passes().first();
}

void checkPass(const EventRecorder::Pass& pass)
{
    FUZZ_VERIFY(pass.sensors.size() == PortId::Count);
    const bool isUnreadable = pass.sensors.testBit(2);
    FUZZ_VERIFY(!isUnreadable || pass.time == -1);
    for (const int bit : EventRecorder::closed(pass))
        FUZZ_VERIFY(bit != 0 && !PortId::isOutput(bit) && (bit % 2 == 0) == isUnreadable);
}

} // namespace

void FuzzTarget::read(const QByteArray& bytes)
{
    const QStringList frames = framesOf({bytes});
    FUZZ_VERIFY(frames == framesOf(FuzzTarget::pieces(bytes)));
    static HalfAssignedIo io;
    for (const QString& frame : frames) {
        FUZZ_VERIFY(frame.startsWith(':') && frame.size() <= LongestFrame);
        checkPass(passOf(&io, frame));
    }
}
