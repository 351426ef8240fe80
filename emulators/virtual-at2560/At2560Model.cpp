#include "At2560Model.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int MaxHeard = 1000; ///< bytes of the host without an end
constexpr char LastOfGroup = '6';

QString onOff(bool on)
{
    return on ? QStringLiteral("on") : QStringLiteral("off");
}

bool isOutput(const QByteArray& name)
{
    if (name.size() == 1)
        return name == "C" || name == "E";
    return name.size() == 2 && (name.at(0) == 'A' || name.at(0) == 'P') && name.at(1) >= '1' &&
           name.at(1) <= LastOfGroup;
}

} // namespace

At2560Model::At2560Model(const At2560Settings& settings, const Clock& clock)
    : m_settings(settings),
      m_clock(clock),
      m_clockSet(clock()),
      m_firstStamp(settings.firstStamp),
      m_cars(settings.cars, settings.sectors, settings.laps, settings.seed),
      m_line(settings.faults, settings.seed)
{
}

quint32 At2560Model::stamp() const
{
    const double milliseconds = double(m_clock() - m_clockSet) / 1000.0 * m_settings.speedUp;
    return m_firstStamp + quint32(qint64(milliseconds));
}

void At2560Model::setStamp(quint32 stamp)
{
    m_firstStamp = stamp;
    m_clockSet = m_clock();
}

qint64 At2560Model::timeOf(quint32 stamp) const
{
    const double milliseconds = stamp > m_firstStamp ? double(stamp - m_firstStamp) : 0.0;
    return m_clockSet + qint64(std::ceil(milliseconds / m_settings.speedUp * 1000.0));
}

void At2560Model::receive(const QByteArray& bytes)
{
    m_heard += bytes;
    int end = 0;
    while ((end = m_heard.indexOf(';')) >= 0) {
        const int begin = m_heard.lastIndexOf(':', end);
        if (begin >= 0)
            hearFrame(m_heard.mid(begin + 1, end - begin - 1));
        m_heard.remove(0, end + 1);
    }
    m_heard = m_heard.right(MaxHeard);
}

void At2560Model::hearFrame(const QByteArray& frame)
{
    if (frame.startsWith("IS,"))
        hearInputs(frame.mid(3));
    else if (!hearOutput(frame))
        tell(QStringLiteral("unknown :%1;").arg(QString::fromUtf8(frame)));
}

void At2560Model::hearInputs(const QByteArray& list)
{
    m_inputs.clear();
    for (const QByteArray& number : list.split('.'))
        m_inputs.append(number.toInt());
    tell("IS " + QString::fromUtf8(list));
}

bool At2560Model::hearOutput(const QByteArray& text)
{
    const QByteArray name = text.chopped(std::min(1, text.size()));
    if (!isOutput(name) || !(text.endsWith('0') || text.endsWith('1')))
        return false;
    const bool isHigh = text.endsWith('1');
    // Lamps, power and chaos signal hang between the output and the supply, unless told otherwise.
    const bool on = name == "E" ? isHigh : isHigh == m_settings.activeHigh;
    m_outputs[name] = on;
    tell(QString::fromLatin1(name) + ' ' + onOff(on));
    return true;
}

void At2560Model::tell(const QString& text) const
{
    if (m_monitor)
        m_monitor(text);
}

void At2560Model::pressAt(int input, quint32 stamp)
{
    m_presses.emplace(stamp, input);
}

int At2560Model::inputOf(const Crossing& crossing) const
{
    switch (crossing.group) {
    case 2:
        return m_settings.firstSector2Input + crossing.car - 1;
    case 3:
        return m_settings.firstSector3Input + crossing.car - 1;
    default:
        return m_settings.firstLapInput + crossing.car - 1;
    }
}

void At2560Model::collectActivations()
{
    const qint64 now = m_clock();
    const quint32 present = stamp();
    while (const auto crossing = m_cars.takeCrossing(present))
        pressAt(inputOf(*crossing), crossing->stamp);
    while (!m_presses.empty() && m_presses.begin()->first <= present) {
        const Activation activation{m_presses.begin()->second, m_presses.begin()->first};
        m_presses.erase(m_presses.begin());
        if (m_plugged && m_inputs.contains(activation.input))
            m_line.report(activation, now);
        else
            tell(QStringLiteral("not reported: input %1").arg(activation.input));
    }
}

QByteArray At2560Model::transmit()
{
    collectActivations();
    const At2560Line::Write write = m_line.take(m_clock());
    for (const Activation& activation : write.completed) {
        ++m_reported;
        if (m_journal)
            m_journal(activation);
    }
    return write.bytes;
}

qint64 At2560Model::nextChange() const
{
    QVector<qint64> times;
    if (m_line.nextTime() >= 0)
        times.append(m_line.nextTime());
    if (!m_presses.empty())
        times.append(timeOf(m_presses.begin()->first));
    if (m_cars.isDriving())
        times.append(timeOf(quint32(m_cars.nextTime())));
    return times.isEmpty() ? -1 : *std::min_element(times.cbegin(), times.cend());
}

void At2560Model::unplug()
{
    m_plugged = false;
    m_line.clear();
    m_heard.clear();
}

void At2560Model::reset()
{
    m_inputs.clear();
    m_outputs.clear();
}

QString At2560Model::groupOf(char letter) const
{
    QString shown;
    for (char number = '1'; number <= LastOfGroup; ++number)
        shown += QLatin1Char(isOn(QByteArray(1, letter) + number) ? number : '-');
    return shown;
}

QString At2560Model::outputs() const
{
    return QStringLiteral("lamps %1 power %2 chaos %3 e %4")
        .arg(groupOf('A'), groupOf('P'), onOff(isOn("C")), onOff(isOn("E")));
}
