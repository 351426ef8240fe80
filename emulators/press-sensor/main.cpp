/** Works a virtual parallel port or IO-Warrior from the command line: see the help text. */
#include "PressableDevice.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <QThread>

#include <limits>
#include <memory>

namespace {

constexpr int Failure = 1;
constexpr int WrongUse = 2;

const char* const description =
    "Works a virtual parallel port, the one that the stand-in library inpout32 shows, or with\n"
    "--io-warrior a virtual IO-Warrior, that of the stand-in library iowkit.\n"
    "\n"
    "  show                print the registers of the port, or the pins of the chip\n"
    "  set BITS            set bits of the status register, or let pins go\n"
    "  clear BITS          clear bits of the status register, or pull pins low\n"
    "  press BITS          close a sensor: invert the bits for a time, then invert them back\n"
    "  wait BITS on|off    wait until all these outputs are on, or all off: bits of the data\n"
    "                      register, or pins as the program has written them\n"
    "  plug PRODUCT        plug a fresh chip in: 0x1500 to 0x1506\n"
    "  unplug              pull its plug\n"
    "  remove              remove the virtual device\n"
    "\n"
    "Numbers are decimal, or hexadecimal with 0x. BITS is a mask: 0x08 is the bit 3.\n"
    "The exit code is 0 for done, 1 for a time-out or no device, 2 for a wrong use.";

/** The command and the options, read from the command line. */
struct Task
{
    QString command;
    QString word;
    quint32 number = 0;
    unsigned short base = 0;
    int milliseconds = 0;
    bool chip = false;
    bool valid = true;
};

quint32 number(const QString& text, quint32 largest, bool* valid)
{
    bool ok = false;
    const quint32 value = text.toUInt(&ok, 0);
    *valid = *valid && ok && value <= largest;
    return *valid ? value : 0;
}

int show(const PressableDevice& device)
{
    QTextStream(stdout) << device.description();
    return 0;
}

int press(PressableDevice& device, const Task& task)
{
    device.invertInputs(task.number);
    QThread::msleep(static_cast<unsigned long>(task.milliseconds));
    device.invertInputs(task.number);
    return 0;
}

int waitForOutput(const PressableDevice& device, const Task& task)
{
    const quint32 wanted = task.word == QLatin1String("on") ? task.number : 0;
    QElapsedTimer clock;
    clock.start();
    while ((device.outputs() & task.number) != wanted) {
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
    if (task.command == QLatin1String("unplug"))
        return task.chip && words == 1;
    if (task.command == QLatin1String("plug"))
        return task.chip && words == 2;
    const QStringList others{QStringLiteral("set"), QStringLiteral("clear"), QStringLiteral("press")};
    return words == 2 && others.contains(task.command);
}

int run(PressableDevice& device, const Task& task)
{
    if (task.command == QLatin1String("show"))
        return show(device);
    if (task.command == QLatin1String("press"))
        return press(device, task);
    if (task.command == QLatin1String("wait"))
        return waitForOutput(device, task);
    if (task.command == QLatin1String("plug"))
        return device.plug(task.number) ? 0 : WrongUse;
    if (task.command == QLatin1String("unplug"))
        return device.unplug() ? 0 : WrongUse;
    if (task.command == QLatin1String("set"))
        device.setInputs(task.number);
    else
        device.clearInputs(task.number);
    return 0;
}

Task readTask(const QCommandLineParser& parser)
{
    const QStringList words = parser.positionalArguments();
    Task task;
    task.command = words.value(0);
    task.word = words.value(2);
    task.chip = parser.isSet(QStringLiteral("io-warrior"));
    task.milliseconds = task.command == QLatin1String("wait") ? 10000 : 50;
    const QString base = parser.value(QStringLiteral("base"));
    task.base = static_cast<unsigned short>(number(base, 0xFFFF, &task.valid));
    const quint32 largest = task.chip ? std::numeric_limits<quint32>::max() : 0xFFFF;
    if (words.size() > 1)
        task.number = number(words.at(1), largest, &task.valid);
    if (parser.isSet(QStringLiteral("for")))
        task.milliseconds = int(number(parser.value(QStringLiteral("for")), 0xFFFF, &task.valid));
    task.valid = task.valid && isComplete(task, words.size());
    return task;
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("io-warrior"), QStringLiteral("Work the IO-Warrior, not the parallel port.")},
        {QStringLiteral("port"),
         QStringLiteral("Name of the shared memory; TORNIK_VIRTUAL_PORT and TORNIK_VIRTUAL_IOWARRIOR "
                        "name it too."),
         QStringLiteral("name")},
        {QStringLiteral("base"), QStringLiteral("Base address of the parallel port, 0x378 by default."),
         QStringLiteral("address"), QStringLiteral("0x378")},
        {QStringLiteral("for"), QStringLiteral("How long to press (50 by default), or to wait (10000)."),
         QStringLiteral("ms")},
    });
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("What to do."));
    parser.addPositionalArgument(QStringLiteral("bits"), QStringLiteral("Mask of the bits."),
                                 QStringLiteral("[bits [on|off]]"));
}

std::string memoryName(const QCommandLineParser& parser, const Task& task)
{
    if (parser.isSet(QStringLiteral("port")))
        return parser.value(QStringLiteral("port")).toStdString();
    return task.chip ? VirtualIoWarrior::defaultName() : VirtualPort::defaultName();
}

std::unique_ptr<PressableDevice> makeDevice(const std::string& name, const Task& task)
{
    if (task.chip)
        return std::make_unique<PressableChip>(name);
    return std::make_unique<PressablePort>(name, task.base);
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

    const std::string name = memoryName(parser, task);
    if (task.command == QLatin1String("remove"))
        return SharedMemory::remove(name) ? 0 : complain(QStringLiteral("no such device"), Failure);
    const std::unique_ptr<PressableDevice> device = makeDevice(name, task);
    return device->isOpen() ? run(*device, task)
                            : complain(QStringLiteral("cannot make the device"), Failure);
}
