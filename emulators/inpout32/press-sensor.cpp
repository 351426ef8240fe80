/** Works a virtual parallel port from the command line: see the help text. */
#include "VirtualPort.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <QThread>

namespace {

constexpr int Failure = 1;
constexpr int WrongUse = 2;

const char* const description =
    "Works a virtual parallel port, the one that the stand-in library inpout32 shows.\n"
    "\n"
    "  show                print the data, status and control register\n"
    "  set BITS            set bits of the status register\n"
    "  clear BITS          clear bits of the status register\n"
    "  press BITS          close a sensor: invert the bits for a time, then invert them back\n"
    "  wait BITS on|off    wait until all the bits of the data register are on, or all off\n"
    "  remove              remove the virtual port\n"
    "\n"
    "Numbers are decimal, or hexadecimal with 0x. BITS is a mask: 0x08 is the bit 3.\n"
    "The exit code is 0 for done, 1 for a time-out or no port, 2 for a wrong use.";

/** The command and the options, read from the command line. */
struct Task
{
    QString command;
    QString word;
    short bits = 0;
    unsigned short base = 0;
    int milliseconds = 0;
    bool valid = true;

    unsigned short data() const { return base; }
    unsigned short status() const { return static_cast<unsigned short>(base + 1); }
    unsigned short control() const { return static_cast<unsigned short>(base + 2); }
};

int number(const QString& text, bool* valid)
{
    bool ok = false;
    const int value = text.toInt(&ok, 0);
    *valid = *valid && ok && value >= 0 && value <= 0xFFFF;
    return *valid ? value : 0;
}

int show(const VirtualPort& port, const Task& task)
{
    QTextStream out(stdout);
    out << "data    0x" << QString::number(port.read(task.data()) & 0xFF, 16) << '\n'
        << "status  0x" << QString::number(port.read(task.status()) & 0xFF, 16) << '\n'
        << "control 0x" << QString::number(port.read(task.control()) & 0xFF, 16) << '\n';
    return 0;
}

int press(VirtualPort& port, const Task& task)
{
    port.flipBits(task.status(), task.bits);
    QThread::msleep(static_cast<unsigned long>(task.milliseconds));
    port.flipBits(task.status(), task.bits);
    return 0;
}

int waitForOutput(const VirtualPort& port, const Task& task)
{
    const short wanted = task.word == QLatin1String("on") ? task.bits : short(0);
    QElapsedTimer clock;
    clock.start();
    while ((port.read(task.data()) & task.bits) != wanted) {
        if (clock.hasExpired(task.milliseconds))
            return Failure;
        QThread::msleep(1);
    }
    return 0;
}

bool isComplete(const Task& task, int words)
{
    if (task.command == QLatin1String("show") || task.command == QLatin1String("remove"))
        return words == 1;
    if (task.command == QLatin1String("wait"))
        return words == 3 && (task.word == QLatin1String("on") || task.word == QLatin1String("off"));
    const QStringList others{QStringLiteral("set"), QStringLiteral("clear"), QStringLiteral("press")};
    return words == 2 && others.contains(task.command);
}

int run(VirtualPort& port, const Task& task)
{
    if (task.command == QLatin1String("show"))
        return show(port, task);
    if (task.command == QLatin1String("press"))
        return press(port, task);
    if (task.command == QLatin1String("wait"))
        return waitForOutput(port, task);
    if (task.command == QLatin1String("set"))
        port.setBits(task.status(), task.bits);
    else
        port.clearBits(task.status(), task.bits);
    return 0;
}

Task readTask(const QCommandLineParser& parser)
{
    const QStringList words = parser.positionalArguments();
    Task task;
    task.command = words.value(0);
    task.word = words.value(2);
    task.milliseconds = task.command == QLatin1String("wait") ? 10000 : 50;
    task.base = static_cast<unsigned short>(number(parser.value(QStringLiteral("base")), &task.valid));
    if (words.size() > 1)
        task.bits = short(number(words.at(1), &task.valid));
    if (parser.isSet(QStringLiteral("for")))
        task.milliseconds = number(parser.value(QStringLiteral("for")), &task.valid);
    task.valid = task.valid && isComplete(task, words.size());
    return task;
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("port"),
         QStringLiteral("Name of the shared memory; TORNIK_VIRTUAL_PORT names it too."),
         QStringLiteral("name"), QString::fromStdString(VirtualPort::defaultName())},
        {QStringLiteral("base"), QStringLiteral("Base address of the port, 0x378 by default."),
         QStringLiteral("address"), QStringLiteral("0x378")},
        {QStringLiteral("for"), QStringLiteral("How long to press (50 by default), or to wait (10000)."),
         QStringLiteral("ms")},
    });
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("What to do."));
    parser.addPositionalArgument(QStringLiteral("bits"), QStringLiteral("Mask of the bits."),
                                 QStringLiteral("[bits [on|off]]"));
}

int complain(const QString& message, int result)
{
    QTextStream(stderr) << "press-sensor: " << message << '\n';
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    describe(parser);
    parser.process(app);
    const Task task = readTask(parser);
    if (!task.valid)
        return complain(QStringLiteral("see press-sensor --help"), WrongUse);

    const std::string name = parser.value(QStringLiteral("port")).toStdString();
    if (task.command == QLatin1String("remove"))
        return VirtualPort::remove(name) ? 0 : complain(QStringLiteral("no such port"), Failure);
    VirtualPort port(name);
    return port.isOpen() ? run(port, task) : complain(QStringLiteral("cannot make the port"), Failure);
}
