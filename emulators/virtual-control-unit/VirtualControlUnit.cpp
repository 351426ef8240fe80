#include "VirtualControlUnit.h"

#include <QTextStream>

#include <cstdio>

namespace {

constexpr int LongestWait = 100; ///< milliseconds until the end of the race is looked for again

void say(const QString& text)
{
    QTextStream(stdout) << text << '\n';
    std::fflush(stdout);
}

const char* const Help = "start            press the start button\n"
                         "stop             take the cars off the track\n"
                         "fuel CAR LEVEL   set a tank, 0 to 15\n"
                         "status           print what was read and what the lights show\n"
                         "pull             pull the cable\n"
                         "plug             plug it in again, on a new terminal\n"
                         "silence MS       don't hear polls for a while\n"
                         "late MS          answer the polls of the next while at its end\n"
                         "noise            put junk into the next answer\n"
                         "lost-end         leave the end of the next answer out\n"
                         "bad-checksum     send the next answer with a wrong checksum\n"
                         "repeat           repeat the next two cars' crossings alternately\n"
                         "long-status      send status frames of 19 characters\n"
                         "short-status     send status frames of 17 characters\n"
                         "quit             leave";

} // namespace

VirtualControlUnit::VirtualControlUnit(const CommandLine& commandLine)
    : m_settings(commandLine), m_model(commandLine.unit, [this] {
          if (!m_clock.isValid())
              m_clock.start();
          return m_clock.nsecsElapsed() / 1000;
      })
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { work(); });
    connect(&m_terminal, &PseudoTerminal::received, this, [this](const QByteArray& bytes) {
        m_model.receive(bytes);
        work();
    });
    m_model.setJournal([this](const Crossing& crossing) { note(crossing); });
}

VirtualControlUnit::~VirtualControlUnit()
{
    if (!m_settings.link.isEmpty())
        QFile::remove(m_settings.link);
}

bool VirtualControlUnit::begin()
{
    m_journal.setFileName(m_settings.journal);
    if (!m_settings.journal.isEmpty() && !m_journal.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(m_settings.journal), qPrintable(m_journal.errorString()));
        return false;
    }
    if (!plug())
        return false;
    if (m_settings.startAtOnce)
        m_model.pressStart();
    work();
    return true;
}

bool VirtualControlUnit::plug()
{
    if (!m_terminal.open()) {
        std::fprintf(stderr, "no pseudo-terminal\n");
        return false;
    }
    if (!m_settings.link.isEmpty() && !m_terminal.linkFrom(m_settings.link)) {
        std::fprintf(stderr, "%s: no link possible\n", qPrintable(m_settings.link));
        return false;
    }
    say(m_terminal.path());
    return true;
}

void VirtualControlUnit::pull()
{
    m_terminal.close();
    m_model.unplug();
}

void VirtualControlUnit::work()
{
    m_terminal.write(m_model.transmit());
    if (m_model.isFinished() && !m_finishSaid)
        say("finished");
    m_finishSaid = m_model.isFinished();
    const qint64 next = m_model.nextChange();
    const qint64 wait = next < 0 ? LongestWait : (next - m_clock.nsecsElapsed() / 1000 + 999) / 1000;
    m_timer.start(int(qBound<qint64>(0, wait, LongestWait)));
}

void VirtualControlUnit::note(const Crossing& crossing)
{
    ++m_crossings;
    if (!m_journal.isOpen())
        return;
    m_journal.write(
        QStringLiteral("%1 %2 %3\n").arg(crossing.car).arg(crossing.stamp).arg(crossing.group).toLatin1());
    m_journal.flush();
}

void VirtualControlUnit::command(const QString& line)
{
    const QStringList words = line.split(' ', Qt::SkipEmptyParts);
    if (!words.isEmpty() && !commandLine(words))
        say(QStringLiteral("unknown: %1").arg(line));
    work();
}

bool VirtualControlUnit::commandLine(const QStringList& words)
{
    const QString& word = words.first();
    const int first = words.value(1).toInt();
    if (word == "quit")
        Q_EMIT quit();
    else if (word == "help")
        say(Help);
    else if (word == "status")
        printStatus();
    else if (word == "pull")
        pull();
    else if (word == "plug")
        plug();
    else
        return commandRace(word, first, words.value(2).toInt()) || commandFault(word, first);
    return true;
}

bool VirtualControlUnit::commandRace(const QString& word, int first, int second)
{
    if (word == "start")
        m_model.pressStart();
    else if (word == "stop")
        m_model.stopCars();
    else if (word == "fuel")
        m_model.setFuel(first, second);
    else if (word == "long-status" || word == "short-status")
        m_model.setLongStatus(word == "long-status");
    else
        return false;
    return true;
}

bool VirtualControlUnit::commandFault(const QString& word, int milliseconds)
{
    if (word == "silence")
        m_model.fallSilent(milliseconds);
    else if (word == "late")
        m_model.answerLate(milliseconds);
    else if (word == "noise")
        m_model.spoilNext(ControlUnitModel::Fault::Noise);
    else if (word == "lost-end")
        m_model.spoilNext(ControlUnitModel::Fault::LostEnd);
    else if (word == "bad-checksum")
        m_model.spoilNext(ControlUnitModel::Fault::BadChecksum);
    else if (word == "repeat")
        m_model.repeatNext();
    else
        return false;
    return true;
}

void VirtualControlUnit::printStatus()
{
    say(QStringLiteral("crossings %1 polls %2 light %3 %4")
            .arg(m_crossings)
            .arg(m_model.polls())
            .arg(m_model.startLight())
            .arg(m_model.isFinished() ? "finished" : "open"));
}
