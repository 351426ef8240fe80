#include "VirtualAt2560.h"

#include <QFile>

#include <cstdio>

VirtualAt2560::VirtualAt2560(const At2560CommandLine& commandLine)
    : TerminalProgram(commandLine.files),
      m_script(commandLine.script),
      m_model(commandLine.box, [this] { return now(); })
{
    m_model.setJournal([this](const Activation& activation) {
        note(QStringLiteral("%1 %2").arg(activation.input).arg(activation.stamp));
    });
    m_model.setMonitor([](const QString& text) { say(text); });
}

bool VirtualAt2560::begin()
{
    return m_script.isEmpty() || runScript(m_script);
}

QString VirtualAt2560::help() const
{
    return "press INPUT      activate an input now\n"
           "press INPUT MS   when the box's clock shows this; at once if that has been\n"
           "at MS COMMAND    carry out any command when the box's clock shows this\n"
           "script FILE      carry out the commands of a file\n"
           "clock MS         set the box's clock\n"
           "start, stop      let the cars of --cars drive, take them off the track\n"
           "status           print the clock, the inputs in use and what was reported\n"
           "outputs          print which lamps, power lines and signals are on\n"
           "split            send the next frame in pieces\n"
           "join N           send the next N frames in one write\n"
           "junk             send bytes that are no frame ahead of the next frame\n"
           "nonsense         send a meaningless or overlong frame ahead of the next frame\n"
           "send TEXT        send a text as it is\n"
           "reset            switch the box off and on\n";
}

void VirtualAt2560::work()
{
    runPlanned();
    const bool wasBusy = m_isBusy || !m_model.isIdle();
    QByteArray bytes;
    while (!(bytes = m_model.transmit()).isEmpty())
        send(bytes);
    m_isBusy = !m_model.isIdle();
    if (wasBusy && !m_isBusy)
        say("finished");
}

qint64 VirtualAt2560::nextChange() const
{
    const qint64 next = m_model.nextChange();
    if (m_planned.empty())
        return next;
    const qint64 planned = m_model.timeOf(m_planned.begin()->first);
    return next < 0 ? planned : qMin(next, planned);
}

void VirtualAt2560::runPlanned()
{
    while (!m_planned.empty() && m_planned.begin()->first <= m_model.stamp()) {
        const QString line = m_planned.begin()->second;
        m_planned.erase(m_planned.begin());
        execute(line);
    }
}

bool VirtualAt2560::command(const QStringList& words)
{
    const QString& word = words.first();
    if (word == "status")
        printStatus();
    else if (word == "outputs")
        say(m_model.outputs());
    else if (word == "start")
        m_model.startCars();
    else if (word == "stop")
        m_model.stopCars();
    else if (word == "reset")
        m_model.reset();
    else
        return commandInput(words) || commandLine(words);
    return true;
}

bool VirtualAt2560::commandInput(const QStringList& words)
{
    const QString& word = words.first();
    bool isNumber = false;
    const uint number = words.value(1).toUInt(&isNumber);
    if (word == "press" && isNumber)
        m_model.pressAt(int(number), words.size() > 2 ? words.at(2).toUInt() : m_model.stamp());
    else if (word == "clock" && isNumber)
        m_model.setStamp(number);
    else if (word == "at" && isNumber && words.size() > 2)
        m_planned.emplace(number, words.mid(2).join(' '));
    else if (word == "script" && words.size() > 1)
        return runScript(words.mid(1).join(' '));
    else
        return false;
    return true;
}

bool VirtualAt2560::commandLine(const QStringList& words)
{
    const QString& word = words.first();
    if (word == "split")
        m_model.line().splitNext();
    else if (word == "join")
        m_model.line().joinNext(words.value(1).toInt());
    else if (word == "junk")
        m_model.line().junkNext();
    else if (word == "nonsense")
        m_model.line().nonsenseNext();
    else if (word == "send" && words.size() > 1)
        m_model.sendRaw(words.mid(1).join(' ').toUtf8());
    else
        return false;
    return true;
}

bool VirtualAt2560::runScript(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(fileName), qPrintable(file.errorString()));
        return false;
    }
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (!line.startsWith('#'))
            execute(line);
    }
    return true;
}

void VirtualAt2560::printStatus()
{
    QStringList inputs;
    for (const int input : m_model.inputs())
        inputs.append(QString::number(input));
    say(QStringLiteral("clock %1 reported %2 pending %3 inputs %4")
            .arg(m_model.stamp())
            .arg(m_model.reported())
            .arg(m_model.pending())
            .arg(inputs.join('.')));
}
