#include "VirtualRaceBox.h"

namespace {

constexpr int Activated = 0x0200;
constexpr int Deactivated = 0x0300;
constexpr int Lost = 0x0500;
constexpr int DataWanted = 0x0600;
constexpr int Found = 0x0400;
constexpr int AtStart = 2;            ///< bit of a code; clear for an intermediate sensor
constexpr int Right = 1;              ///< bit of a code; clear for the left one
constexpr quint32 TicksOfAPress = 96; ///< 20 ms

} // namespace

VirtualRaceBox::VirtualRaceBox(const RaceBoxSettings& settings)
    : TerminalProgram(settings.files),
      m_settings(settings),
      m_reader(BoxTelegrams::ParametersBegin, BoxTelegrams::ParametersSize)
{
}

QString VirtualRaceBox::help() const
{
    return "press left|right [intermediate] [TICKS]\n"
           "                 a car passes a sensor, now or at a time of the box's clock\n"
           "event CODE [TICKS]\n"
           "                 send any event, as a number or as 0x number\n"
           "found, lost      tell that the box is found or lost\n"
           "request          ask for the parameters of the box\n"
           "bytes HEX        send bytes as they are\n"
           "status           print the clock and how many events were sent\n";
}

quint32 VirtualRaceBox::stamp() const
{
    return quint32(m_settings.firstStamp + now() * 48 / 10000);
}

void VirtualRaceBox::receive(const QByteArray& bytes)
{
    for (const char byte : bytes) {
        if (m_reader.take(quint8(byte)) != BoxTelegrams::Reader::Complete)
            continue;
        QStringList words{QStringLiteral("parameters")};
        for (const quint16 word : BoxTelegrams::parametersOf(m_reader))
            words.append(QString::number(word));
        say(words.join(' '));
    }
}

bool VirtualRaceBox::command(const QStringList& words)
{
    const QString& word = words.first();
    if (word == "press")
        return press(words.mid(1));
    if (word == "event")
        return sendCode(words);
    if (word == "bytes")
        return sendBytes(words.value(1));
    if (word == "status")
        printStatus();
    else if (word == "found")
        tell(Found | numberBits(), stamp());
    else if (word == "lost")
        tell(Lost | numberBits(), stamp());
    else if (word == "request")
        tell(DataWanted | numberBits(), stamp());
    else
        return false;
    return true;
}

bool VirtualRaceBox::press(QStringList words)
{
    const QString side = words.isEmpty() ? QString() : words.takeFirst();
    if (side != "left" && side != "right")
        return false;
    const bool isIntermediate = !words.isEmpty() && words.first() == "intermediate";
    if (isIntermediate)
        words.removeFirst();
    bool isNumber = true;
    const quint32 time = words.isEmpty() ? stamp() : words.first().toUInt(&isNumber);
    if (!isNumber || words.size() > 1)
        return false;
    const int sensor = numberBits() | (isIntermediate ? 0 : AtStart) | (side == "right" ? Right : 0);
    tell(Activated | sensor, time);
    tell(Deactivated | sensor, time + TicksOfAPress);
    return true;
}

bool VirtualRaceBox::sendCode(const QStringList& words)
{
    bool isCode = false;
    bool isTime = true;
    const ushort code = words.value(1).toUShort(&isCode, 0);
    const quint32 time = words.size() > 2 ? words.at(2).toUInt(&isTime) : stamp();
    if (isCode && isTime)
        tell(code, time);
    return isCode && isTime;
}

bool VirtualRaceBox::sendBytes(const QString& hexadecimal)
{
    const QByteArray bytes = QByteArray::fromHex(hexadecimal.toLatin1());
    send(bytes);
    return !bytes.isEmpty();
}

void VirtualRaceBox::tell(int code, quint32 stamp)
{
    ++m_events;
    send(QByteArray::fromStdString(BoxTelegrams::encode(BoxTelegrams::Event{quint16(code), stamp})));
    note(QStringLiteral("%1 %2").arg(code).arg(stamp));
}

void VirtualRaceBox::printStatus() const
{
    say(QStringLiteral("clock %1 events %2").arg(stamp()).arg(m_events));
}
