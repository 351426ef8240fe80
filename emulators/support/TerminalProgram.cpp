#include "support/TerminalProgram.h"

#include <QCoreApplication>
#include <QTextStream>

#include <array>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int LongestWait = 100; ///< milliseconds until the device is looked at again

const char* const CommonHelp = "pull             pull the cable\n"
                               "plug             plug it in again, on a new terminal\n"
                               "quit             leave";

} // namespace

TerminalProgram::TerminalProgram(const Files& files)
    : m_files(files), m_input(STDIN_FILENO, QSocketNotifier::Read)
{
    m_clock.start();
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    m_input.setEnabled(false);
    connect(&m_timer, &QTimer::timeout, this, [this] { workAndWait(); });
    connect(&m_input, &QSocketNotifier::activated, this, [this] { readInput(); });
    connect(&m_terminal, &PseudoTerminal::received, this, [this](const QByteArray& bytes) {
        receive(bytes);
        workAndWait();
    });
}

TerminalProgram::~TerminalProgram()
{
    removeLink();
}

int TerminalProgram::run()
{
    if (!prepare())
        return 1;
    m_input.setEnabled(true);
    workAndWait();
    return QCoreApplication::exec();
}

bool TerminalProgram::prepare()
{
    m_journal.setFileName(m_files.journal);
    if (!m_files.journal.isEmpty() && !m_journal.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(m_files.journal), qPrintable(m_journal.errorString()));
        return false;
    }
    return begin() && plug();
}

bool TerminalProgram::plug()
{
    if (!m_terminal.open()) {
        std::fprintf(stderr, "no pseudo-terminal\n");
        return false;
    }
    if (!m_files.link.isEmpty() && !m_terminal.linkFrom(m_files.link)) {
        std::fprintf(stderr, "%s: no link possible\n", qPrintable(m_files.link));
        return false;
    }
    say(m_terminal.path());
    plugged();
    return true;
}

void TerminalProgram::pull()
{
    removeLink(); // before its target can be another program's terminal
    m_terminal.close();
    unplugged();
}

void TerminalProgram::removeLink()
{
    if (!m_files.link.isEmpty())
        QFile::remove(m_files.link);
}

void TerminalProgram::workAndWait()
{
    work();
    const qint64 next = nextChange();
    const qint64 wait = next < 0 ? LongestWait : (next - now() + 999) / 1000;
    m_timer.start(int(qBound<qint64>(0, wait, LongestWait)));
}

void TerminalProgram::execute(const QString& line)
{
    const QStringList words = line.split(' ', Qt::SkipEmptyParts);
    if (!words.isEmpty() && !commonCommand(words.first()) && !command(words))
        say(QStringLiteral("unknown: %1").arg(line));
}

bool TerminalProgram::commonCommand(const QString& word)
{
    if (word == "quit")
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    else if (word == "help")
        say(help() + CommonHelp);
    else if (word == "pull")
        pull();
    else if (word == "plug")
        plug();
    else
        return false;
    return true;
}

void TerminalProgram::readInput()
{
    std::array<char, 4096> buffer{};
    const ssize_t size = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (size <= 0)
        return endInput();
    m_inputLine.append(buffer.data(), int(size));
    int length = 0;
    while ((length = m_inputLine.indexOf('\n')) >= 0) {
        execute(QString::fromUtf8(m_inputLine.left(length)).trimmed());
        m_inputLine.remove(0, length + 1);
        workAndWait();
    }
}

void TerminalProgram::endInput()
{
    // Only where a program holds the other side does its end mean anything.
    m_input.setEnabled(false);
    struct stat status = {};
    if (::fstat(STDIN_FILENO, &status) == 0 && S_ISFIFO(status.st_mode))
        QCoreApplication::quit();
}

void TerminalProgram::say(const QString& text)
{
    QTextStream(stdout) << text << '\n';
    std::fflush(stdout);
}

void TerminalProgram::note(const QString& line)
{
    if (!m_journal.isOpen())
        return;
    m_journal.write(line.toUtf8() + '\n');
    m_journal.flush();
}
