#include "io/CRaceControl.h"

#include "io/CBoxPort.h"
#include "io/SharedDevice.h"

#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTime>

#include <algorithm>

namespace {

/** Several lines for each car that passes: only for those who ask for them. */
Q_LOGGING_CATEGORY(boxLog, "tornik.io.boxes", QtInfoMsg)

constexpr int SendTimeout = 1000; // milliseconds

/** The high byte of an event code. */
enum EventKind : quint32
{
    SensorActivated = 0x0200,
    SensorDeactivated = 0x0300,
    BoxFound = 0x0400,
    BoxLost = 0x0500,
    DataToSend = 0x0600
};

EventKind kindOf(quint32 code)
{
    return EventKind(code & 0xFF00U);
}

quint16 numberOf(quint32 code)
{
    return quint16((code & 252U) >> 2U);
}

/** @param timeStamp ticks, 4800 a second */
QString timeText(quint32 timeStamp)
{
    const int milliseconds = int(quint64(timeStamp) * 10 / 48);
    return QTime(0, 0).addMSecs(milliseconds).toString(QStringLiteral("hh:mm:ss:zzz"));
}

bool isBox(int box)
{
    return box >= 0 && box < CRaceControl::MostBoxes;
}

} // namespace

CRaceControl* CRaceControl::instance()
{
    return SharedDevice<CRaceControl>::take();
}

void CRaceControl::release()
{
    SharedDevice<CRaceControl>::giveBack();
}

CRaceControl::CRaceControl(std::unique_ptr<CJnutl> library, QObject* parent)
    : QObject(parent), m_portMaker([] { return std::make_unique<CBoxPort>(); }), m_library(std::move(library))
{
    connect(this, &CRaceControl::debugMessage,
            [](const QString& message) { qCDebug(boxLog).noquote() << message; });
}

CRaceControl::~CRaceControl() = default;

// --- Boxes ----------------------------------------------------------------------------------

bool CRaceControl::openBox(const QString& name)
{
    if (boxCount() >= MostBoxes || !isLibraryLoaded())
        return false;
    auto box = m_portMaker();
    if (!box->open(name))
        return false;
    m_boxes.push_back(std::move(box));
    setPortName(boxCount() - 1, name);
    return true;
}

bool CRaceControl::openAllBoxes()
{
    bool allOpen = true;
    for (int box = 0; box < MostBoxes; ++box) {
        if (!portName(box).isEmpty())
            allOpen = openBox(portName(box)) && allOpen;
    }
    return allOpen;
}

bool CRaceControl::hasLine() const
{
    return std::any_of(m_boxes.begin(), m_boxes.end(), [](const auto& box) { return box->isOpen(); });
}

void CRaceControl::setPortName(int box, const QString& name)
{
    if (isBox(box))
        m_portNames[std::size_t(box)] = name;
}

QString CRaceControl::portName(int box) const
{
    return isBox(box) ? m_portNames[std::size_t(box)] : QString();
}

// --- Parameters -----------------------------------------------------------------------------

void CRaceControl::setWord2(int value, int box)
{
    setWord(2, 130, value, box);
}

void CRaceControl::setWord3(int value, int box)
{
    setWord(3, 50, value, box);
}

void CRaceControl::setWord4(int value, int box)
{
    setWord(4, 15, value, box);
}

void CRaceControl::setFlag5(bool on, int box)
{
    setWord(5, 1, on ? 1 : 0, box);
}

void CRaceControl::setFlag6(bool on, int box)
{
    setWord(6, 1, on ? 1 : 0, box);
}

int CRaceControl::word2(int box) const
{
    return word(2, box);
}

int CRaceControl::word3(int box) const
{
    return word(3, box);
}

int CRaceControl::word4(int box) const
{
    return word(4, box);
}

bool CRaceControl::flag5(int box) const
{
    return word(5, box) == 1;
}

bool CRaceControl::flag6(int box) const
{
    return word(6, box) == 1;
}

void CRaceControl::setWord(std::size_t word, int most, int value, int box)
{
    if (!isBox(box) || value < 0 || value > most)
        return;
    auto& record = m_boxConfig[std::size_t(box)];
    record[word] = quint16(value);
    m_library->openBox(quint16(box), record.data());
}

int CRaceControl::word(std::size_t word, int box) const
{
    return isBox(box) ? m_boxConfig[std::size_t(box)][word] : -1;
}

// --- Events ---------------------------------------------------------------------------------

bool CRaceControl::poll()
{
    bool isSensorEvent = false;
    for (int box = 0; box < boxCount(); ++box) {
        const std::optional<CJnutl::Event> event = readEvent(box);
        if (!event)
            continue;
        // Required: of two events in one pass the caller sees the last one alone.
        isSensorEvent = decodeEvent(*event);
        m_last = *event;
    }
    return isSensorEvent;
}

/** @return the event that the next byte of a box completes, if it does. */
std::optional<CJnutl::Event> CRaceControl::readEvent(int box)
{
    quint8 byte = 0;
    if (!m_boxes[std::size_t(box)]->read(&byte))
        return {};
    const quint16 progress = m_library->rxData(quint16(box), byte);
    if (progress == CJnutl::NothingYet)
        return {};
    if (progress != CJnutl::EventComplete) {
        tellError(progress, box);
        return {};
    }
    CJnutl::Event event;
    const quint16 result = m_library->getEvent(&event);
    if (result != CJnutl::Success) {
        tellError(result, box);
        return {};
    }
    Q_EMIT debugMessage(QStringLiteral("Event from Box %1:").arg(box + 1));
    return event;
}

void CRaceControl::tellError(quint16 code, int box)
{
    Q_EMIT debugMessage(QStringLiteral("Library threw error %1 for Box %2").arg(code).arg(box + 1));
}

bool CRaceControl::decodeEvent(const CJnutl::Event& event)
{
    const quint16 number = numberOf(event.code);
    switch (kindOf(event.code)) {
    case SensorActivated:
        tellSensor(event, QStringLiteral("activated"));
        return true;
    case SensorDeactivated:
        tellSensor(event, QStringLiteral("deactivated"));
        return true;
    case BoxFound:
        Q_EMIT debugMessage(QStringLiteral("Box %1 found").arg(number));
        return false;
    case BoxLost:
        Q_EMIT debugMessage(QStringLiteral("Box %1 lost").arg(number));
        return false;
    case DataToSend:
        Q_EMIT debugMessage(QStringLiteral("data to be transferred to Box %1").arg(number));
        sendToBox(number);
        return false;
    default:
        Q_EMIT debugMessage(QStringLiteral("Invalid event!"));
        return false;
    }
}

void CRaceControl::tellSensor(const CJnutl::Event& event, const QString& change)
{
    const QString side = (event.code & 1U) != 0 ? QStringLiteral("right") : QStringLiteral("left");
    const QString position =
        (event.code & 2U) != 0 ? QStringLiteral("start/end") : QStringLiteral("intermediate");
    Q_EMIT debugMessage(
        QStringLiteral("%1 Sensor %2 of Box %3 %4 at %5")
            .arg(side, position, QString::number(numberOf(event.code)), change, timeText(event.timeStamp)));
}

void CRaceControl::sendToBox(quint16 box)
{
    if (box >= boxCount()) {
        Q_EMIT debugMessage(QStringLiteral("send attempt to unknown box number %1").arg(box));
        return;
    }
    CBoxPort& port = *m_boxes[box];
    QElapsedTimer sinceByte;
    sinceByte.start();
    quint16 byte = m_library->txData(box);
    port.setDtr(false);
    while (byte < CJnutl::NoByte) {
        if (port.write(quint8(byte))) {
            byte = m_library->txData(box);
            sinceByte.restart();
        } else if (sinceByte.elapsed() > SendTimeout) {
            Q_EMIT debugMessage(QStringLiteral("sending timed out after 1000ms"));
            break;
        }
    }
    port.setDtr(true);
}

void CRaceControl::logTimeStamps()
{
    for (int box = 0; box < boxCount(); ++box) {
        const QString time = timeText(m_library->timeStamp(quint16(box)));
        Q_EMIT debugMessage(QStringLiteral("Timestamp box %1: %2").arg(box).arg(time));
    }
}
