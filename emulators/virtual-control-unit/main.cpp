#include "CommandLine.h"
#include "VirtualControlUnit.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/** Cuts the standard input into lines; tells of its end only where a program holds the other side. */
class Input
{
public:
    explicit Input(VirtualControlUnit* unit) : m_unit(unit), m_notifier(STDIN_FILENO, QSocketNotifier::Read)
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, unit, [this] { read(); });
    }

private:
    void read()
    {
        std::array<char, 256> buffer{};
        const ssize_t size = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (size <= 0)
            return end();
        m_line.append(buffer.data(), int(size));
        int length = 0;
        while ((length = m_line.indexOf('\n')) >= 0) {
            m_unit->command(QString::fromUtf8(m_line.left(length)).trimmed());
            m_line.remove(0, length + 1);
        }
    }

    void end()
    {
        m_notifier.setEnabled(false);
        struct stat status = {};
        if (::fstat(STDIN_FILENO, &status) == 0 && S_ISFIFO(status.st_mode))
            Q_EMIT m_unit->quit(); // the program that started this one is gone
    }

    VirtualControlUnit* m_unit;
    QSocketNotifier m_notifier;
    QByteArray m_line;
};

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const CommandLine commandLine = CommandLine::parse(QCoreApplication::arguments());
    if (!commandLine.error.isEmpty()) {
        std::fprintf(stderr, "not understood: %s\n", qPrintable(commandLine.error));
        return 2;
    }
    VirtualControlUnit unit(commandLine);
    QObject::connect(&unit, &VirtualControlUnit::quit, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    if (!unit.begin())
        return 1;
    const Input input(&unit);
    return QCoreApplication::exec();
}
