#include "ControlUnitModel.h"

#include <algorithm>
#include <utility>

namespace {

constexpr char CommandBegin = '"';
constexpr char CommandEnd = '$';
constexpr char Poll = '?';
constexpr int RedLamps = 5;
constexpr int AlternateRounds = 2;

QVector<CarsOnTrack::Car> pacesOf(const QVector<ControlUnitSettings::Car>& cars)
{
    QVector<CarsOnTrack::Car> paces;
    for (const ControlUnitSettings::Car& car : cars)
        paces.append(car.pace);
    return paces;
}

} // namespace

ControlUnitModel::ControlUnitModel(const ControlUnitSettings& settings, const Clock& clock)
    : m_settings(settings),
      m_clock(clock),
      m_switchedOn(clock()),
      m_cars(pacesOf(settings.cars), settings.sectors, settings.laps, settings.seed),
      m_random(settings.seed + 1)
{
}

int ControlUnitModel::chance(int from, int to)
{
    return from + int(m_random() % unsigned(to - from + 1));
}

qint64 ControlUnitModel::raceTime(qint64 now) const
{
    return m_settings.firstStamp + qint64(double(now - m_switchedOn) * m_settings.speedUp / 1000.0);
}

// The host's side

void ControlUnitModel::receive(const QByteArray& bytes)
{
    const qint64 now = m_clock();
    m_inputFree = std::max(m_inputFree, now);
    for (const char byte : bytes) {
        m_inputFree += byteTime();
        hear(byte, m_inputFree);
    }
}

void ControlUnitModel::hear(char byte, qint64 now)
{
    if (byte == CommandBegin) {
        if (m_command.size() > 1)
            m_commands.append(m_command); // a command without an end, such as "0
        m_command = QByteArray(1, byte);
    } else if (m_command.isEmpty()) {
        return; // also the end of a poll that carries one
    } else if (byte == CommandEnd) {
        m_commands.append(m_command + byte);
        m_command.clear();
    } else if (m_command.size() == 1 && byte == Poll) {
        m_command.clear();
        hearPoll(now);
    } else {
        m_command += byte;
    }
}

void ControlUnitModel::hearPoll(qint64 now)
{
    ++m_pollCount;
    if (now >= m_silentUntil)
        m_polls.append(now);
}

// The unit's side

QByteArray ControlUnitModel::transmit()
{
    const qint64 now = m_clock();
    while (advanceAnswer(now) && !m_polls.isEmpty()) {
        const qint64 begin = std::max({m_polls.first(), m_outputFree, m_lateUntil});
        if (begin > now)
            break;
        m_polls.removeFirst();
        beginAnswer(begin);
    }
    return std::exchange(m_output, QByteArray());
}

qint64 ControlUnitModel::nextChange() const
{
    if (!m_answer.isEmpty())
        return m_answerBegin + (m_answerSent + 1) * byteTime();
    return m_polls.isEmpty() ? -1 : std::max({m_polls.first(), m_outputFree, m_lateUntil});
}

bool ControlUnitModel::advanceAnswer(qint64 now)
{
    if (m_answer.isEmpty())
        return true;
    const int size = m_answer.size();
    const int due = byteTime() > 0 ? int(std::min<qint64>(size, (now - m_answerBegin) / byteTime())) : size;
    m_output += m_answer.mid(m_answerSent, due - m_answerSent);
    m_answerSent = due;
    if (due < size)
        return false;
    finishAnswer();
    return true;
}

void ControlUnitModel::beginAnswer(qint64 now)
{
    collectCrossings(raceTime(now));
    const Fault fault = takeFault();
    m_answerIsCrossing = !m_queue.isEmpty();
    m_answer = spoilt(nextFrame(now), fault);
    m_answerSent = 0;
    m_answerBegin = now;
    m_answerReadable = fault == Fault::None && !m_unfinishedOnLine;
    m_unfinishedOnLine = fault == Fault::LostEnd;
}

void ControlUnitModel::finishAnswer()
{
    m_outputFree = m_answerBegin + m_answer.size() * byteTime();
    m_answer.clear();
    if (m_answerIsCrossing && m_answerReadable)
        crossingWasRead();
}

void ControlUnitModel::crossingWasRead()
{
    const Event event = m_queue.takeFirst();
    if (event.repeated)
        return;
    if (m_journal)
        m_journal(event.crossing);
    m_read.append(event.crossing);
    if (m_read.size() < 2)
        return;
    const Crossing before = m_read.takeFirst();
    if (before.car != event.crossing.car && (m_repeatNext || happens(m_settings.faults.repeat)))
        repeatAlternately(before, event.crossing);
}

void ControlUnitModel::repeatAlternately(const Crossing& first, const Crossing& second)
{
    m_repeatNext = false;
    for (int round = 0; round < AlternateRounds; ++round) {
        m_queue.prepend({second, true});
        m_queue.prepend({first, true});
    }
}

void ControlUnitModel::collectCrossings(qint64 now)
{
    while (const std::optional<Crossing> crossing = m_cars.takeCrossing(now))
        m_queue.append({*crossing, false});
}

QByteArray ControlUnitModel::nextFrame(qint64 now) const
{
    if (!m_queue.isEmpty())
        return ControlUnitFrames::lap(m_queue.first().crossing);
    QVector<int> fuel;
    for (const ControlUnitSettings::Car& car : m_settings.cars)
        fuel.append(car.fuel);
    return ControlUnitFrames::status(fuel, startLightAt(now),
                                     m_settings.longStatus ? ControlUnitFrames::LongStatusSize
                                                           : ControlUnitFrames::StatusSize);
}

// Faults

ControlUnitModel::Fault ControlUnitModel::takeFault()
{
    const Fault wanted = std::exchange(m_nextFault, Fault::None);
    if (wanted != Fault::None)
        return wanted;
    if (happens(m_settings.faults.noise))
        return Fault::Noise;
    if (happens(m_settings.faults.lostEnd))
        return Fault::LostEnd;
    return happens(m_settings.faults.badChecksum) ? Fault::BadChecksum : Fault::None;
}

QByteArray ControlUnitModel::spoilt(const QByteArray& frame, Fault fault)
{
    QByteArray bytes = frame;
    switch (fault) {
    case Fault::Noise:
        return withNoise(frame);
    case Fault::LostEnd:
        bytes.chop(1);
        return bytes;
    case Fault::BadChecksum:
        bytes[bytes.size() - 2] = char('0' + ((frame.at(frame.size() - 2) + chance(1, 15)) & 15));
        return bytes;
    case Fault::None:
        break;
    }
    return frame;
}

QByteArray ControlUnitModel::withNoise(const QByteArray& frame)
{
    // Noise that the checksum can't show, one in sixteen, is drawn anew: no host could tell it.
    QByteArray bytes;
    do {
        bytes = frame;
        const int place = chance(0, frame.size() - 1);
        for (int i = chance(1, 6); i > 0; --i) {
            const char junk = char(chance(0, 255));
            bytes.insert(place, junk == CommandEnd ? '#' : junk);
        }
    } while (ControlUnitFrames::looksValid(bytes));
    return bytes;
}

void ControlUnitModel::fallSilent(int milliseconds)
{
    m_silentUntil = m_clock() + milliseconds * qint64(1000);
}

void ControlUnitModel::answerLate(int milliseconds)
{
    m_lateUntil = m_clock() + milliseconds * qint64(1000);
}

void ControlUnitModel::unplug()
{
    m_command.clear();
    m_polls.clear();
    m_answer.clear();
    m_output.clear();
    m_unfinishedOnLine = false;
    m_inputFree = m_outputFree = 0;
}

// The race

void ControlUnitModel::pressStart()
{
    m_started = true;
    m_read.clear();
    m_startPressed = raceTime(m_clock());
    m_cars.start(m_startPressed + qint64(RedLamps + 1) * m_settings.lightStep);
}

void ControlUnitModel::stopCars()
{
    collectCrossings(raceTime(m_clock()));
    m_cars.stop();
}

void ControlUnitModel::setFuel(int car, int level)
{
    if (car >= 1 && car <= m_settings.cars.size())
        m_settings.cars[car - 1].fuel = qBound(0, level, 15);
}

int ControlUnitModel::startLight() const
{
    return startLightAt(m_clock());
}

int ControlUnitModel::startLightAt(qint64 now) const
{
    if (!m_started || m_settings.lightStep <= 0)
        return 0;
    const qint64 step = (raceTime(now) - m_startPressed) / m_settings.lightStep;
    if (step <= RedLamps)
        return int(step) + 1;
    return step <= RedLamps + 2 ? RedLamps + 2 : 0;
}
