#include "VirtualControlUnit.h"

VirtualControlUnit::VirtualControlUnit(const CommandLine& commandLine)
    : TerminalProgram(commandLine.files),
      m_startAtOnce(commandLine.startAtOnce),
      m_model(commandLine.unit, [this] { return now(); })
{
    m_model.setJournal([this](const Crossing& crossing) { noteCrossing(crossing); });
}

bool VirtualControlUnit::begin()
{
    if (m_startAtOnce)
        m_model.pressStart();
    return true;
}

QString VirtualControlUnit::help() const
{
    return "start            press the start button\n"
           "stop             take the cars off the track\n"
           "fuel CAR LEVEL   set a tank, 0 to 15\n"
           "status           print what was read and what the lights show\n"
           "silence MS       don't hear polls for a while\n"
           "late MS          answer the polls of the next while at its end\n"
           "noise            put junk into the next answer\n"
           "lost-end         leave the end of the next answer out\n"
           "bad-checksum     send the next answer with a wrong checksum\n"
           "repeat           repeat the next two cars' crossings alternately\n"
           "long-status      send status frames of 19 characters\n"
           "short-status     send status frames of 17 characters\n";
}

void VirtualControlUnit::work()
{
    send(m_model.transmit());
    if (m_model.isFinished() && !m_finishSaid)
        say("finished");
    m_finishSaid = m_model.isFinished();
}

void VirtualControlUnit::noteCrossing(const Crossing& crossing)
{
    ++m_crossings;
    note(QStringLiteral("%1 %2 %3").arg(crossing.car).arg(crossing.stamp).arg(crossing.group));
}

bool VirtualControlUnit::command(const QStringList& words)
{
    const QString& word = words.first();
    const int first = words.value(1).toInt();
    if (word == "status") {
        printStatus();
        return true;
    }
    return commandRace(word, first, words.value(2).toInt()) || commandFault(word, first);
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
