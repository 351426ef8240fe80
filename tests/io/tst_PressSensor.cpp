#include "TestPort.h"
#include "support/TestChip.h"

#include <QtTest>

#include <array>
#include <optional>

/** The command press-sensor, run as a person runs it. */
class tst_PressSensor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void registersAtRest();
    void showPrintsTheRegisters();
    void setAndClearChangeTheStatusRegister();
    void pressClosesASensorAndOpensItAgain();
    void waitEndsWhenTheOutputIsSwitched();
    void waitTimesOut();
    void baseChoosesThePort();
    void removeTakesThePortAway();
    void chipAtRest();
    void showPrintsThePinsOfTheChip();
    void pinsAreLetGoAndPulledLow();
    void pressPullsAPinLowAndLetsItGo();
    void waitEndsWhenTheProgramHasWrittenThePin();
    void chipIsUnpluggedAndPluggedIn();
    void removeTakesTheChipAway();
    void helpIsPrinted();
    void wrongUseIsRefused_data();
    void wrongUseIsRefused();

private:
    static void start(QProcess& process, const QStringList& arguments);
    static int run(const QStringList& arguments, QByteArray* output = nullptr);

    /** Writes the pins as the program does, with one byte on which it depends. */
    void writePins(char lowest);

    std::optional<TestPort> m_port;
    std::optional<TestChip> m_chip;
};

void tst_PressSensor::initTestCase()
{
    m_port.emplace();
    m_chip.emplace();
}

void tst_PressSensor::init()
{
    m_port->reset();
    QVERIFY(m_chip->plug(TestChip::Warrior40));
}

void tst_PressSensor::start(QProcess& process, const QStringList& arguments)
{
    process.start(QStringLiteral(TORNIK_BIN_DIR "/press-sensor"), arguments);
    QVERIFY(process.waitForStarted());
}

int tst_PressSensor::run(const QStringList& arguments, QByteArray* output)
{
    QProcess process;
    start(process, arguments);
    if (!process.waitForFinished())
        return -1;
    if (output)
        *output = process.readAllStandardOutput();
    return process.exitCode();
}

void tst_PressSensor::registersAtRest()
{
    const std::string name = "/tornik-test-rest-" + std::to_string(QCoreApplication::applicationPid());
    {
        const VirtualPort port(name);
        for (const unsigned short base : {0x278, 0x378, 0x3BC}) {
            QCOMPARE(port.read(base), short(0));
            QCOMPARE(port.read(static_cast<unsigned short>(base + 1)), short(127));
            QCOMPARE(port.read(static_cast<unsigned short>(base + 2)), short(0));
        }
        for (const unsigned short address : {0, 0x277, 0x27B, 0xFFFF})
            QCOMPARE(port.read(address), short(255));
    }
    QVERIFY(VirtualPort::remove(name));
}

void tst_PressSensor::showPrintsTheRegisters()
{
    (*m_port)->write(TestPort::Data, 0x1E);
    (*m_port)->write(TestPort::Control, 4);
    QByteArray output;
    QCOMPARE(run({"show"}, &output), 0);
    QCOMPARE(output, QByteArray("data    0x1e\nstatus  0x7f\ncontrol 0x4\n"));
}

void tst_PressSensor::setAndClearChangeTheStatusRegister()
{
    QCOMPARE(run({"clear", "0x09"}), 0);
    QCOMPARE((*m_port)->read(TestPort::Status), short(0x76));
    QCOMPARE(run({"clear", "8"}), 0);
    QCOMPARE((*m_port)->read(TestPort::Status), short(0x76));
    QCOMPARE(run({"set", "0x88"}), 0);
    QCOMPARE((*m_port)->read(TestPort::Status), short(0xFE));
}

void tst_PressSensor::pressClosesASensorAndOpensItAgain()
{
    QProcess process;
    start(process, {"press", "0x81", "--for", "500"});
    QTRY_COMPARE((*m_port)->read(TestPort::Status), short(0xFE));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE((*m_port)->read(TestPort::Status), short(127));
}

void tst_PressSensor::waitEndsWhenTheOutputIsSwitched()
{
    QProcess process;
    start(process, {"wait", "0x20", "on"});
    (*m_port)->write(TestPort::Data, 0x21);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(run({"wait", "0x20", "on"}), 0);
    QCOMPARE(run({"wait", "0x12", "off"}), 0);
}

void tst_PressSensor::waitTimesOut()
{
    QCOMPARE(run({"wait", "1", "on", "--for", "20"}), 1);
    (*m_port)->write(TestPort::Data, 1);
    QCOMPARE(run({"wait", "3", "on", "--for", "20"}), 1); // one of the two bits alone
    QCOMPARE(run({"wait", "3", "off", "--for", "20"}), 1);
}

void tst_PressSensor::baseChoosesThePort()
{
    QCOMPARE(run({"clear", "1", "--base", "0x278"}), 0);
    QCOMPARE((*m_port)->read(0x279), short(126));
    QCOMPARE((*m_port)->read(TestPort::Status), short(127));
}

void tst_PressSensor::removeTakesThePortAway()
{
    const QString name = QStringLiteral("/tornik-test-remove-%1").arg(QCoreApplication::applicationPid());
    QCOMPARE(run({"clear", "1", "--port", name}), 0);
    QCOMPARE(run({"remove", "--port", name}), 0);
    QCOMPARE(run({"remove", "--port", name}), 1);
}

void tst_PressSensor::writePins(char lowest)
{
    const std::array<char, 5> report{0, lowest, char(0xFF), char(0xFF), char(0xFF)};
    QVERIFY((*m_chip)->takePins(report.data(), report.size()));
}

void tst_PressSensor::chipAtRest()
{
    const std::string name = "/tornik-test-rest-" + std::to_string(QCoreApplication::applicationPid());
    {
        const VirtualIoWarrior chip(name);
        QVERIFY(chip.isPlugged());
        QCOMPARE(chip.kind().productId, TestChip::Warrior40);
        QCOMPARE(chip.pins(), ~0U);
        QCOMPARE(chip.written(), ~0U);
    }
    QVERIFY(VirtualIoWarrior::remove(name));
}

void tst_PressSensor::showPrintsThePinsOfTheChip()
{
    writePins(char(0xFE));
    (*m_chip)->pullLow(0x80000000);
    QByteArray output;
    QCOMPARE(run({"show", "--io-warrior"}, &output), 0);
    QCOMPARE(output, QByteArray("product 0x1500\npins    0x7ffffffe\nwritten 0xfffffffe\n"));
}

void tst_PressSensor::pinsAreLetGoAndPulledLow()
{
    QCOMPARE(run({"clear", "0x80000009", "--io-warrior"}), 0);
    QCOMPARE((*m_chip)->pins(), 0x7FFFFFF6U);
    QCOMPARE(run({"set", "8", "--io-warrior"}), 0);
    QCOMPARE((*m_chip)->pins(), 0x7FFFFFFEU);
    QCOMPARE((*m_port)->read(TestPort::Status), short(127));
}

void tst_PressSensor::pressPullsAPinLowAndLetsItGo()
{
    QProcess process;
    start(process, {"press", "0x10000", "--for", "500", "--io-warrior"});
    QTRY_COMPARE((*m_chip)->pins(), 0xFFFEFFFFU);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE((*m_chip)->pins(), ~0U);
}

void tst_PressSensor::waitEndsWhenTheProgramHasWrittenThePin()
{
    QProcess process;
    start(process, {"wait", "0x20", "off", "--io-warrior"});
    writePins(char(0xDF));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(run({"wait", "0x12", "on", "--io-warrior"}), 0);
    QCOMPARE(run({"wait", "0x30", "on", "--io-warrior", "--for", "20"}), 1);
}

void tst_PressSensor::chipIsUnpluggedAndPluggedIn()
{
    QCOMPARE(run({"unplug", "--io-warrior"}), 0);
    QVERIFY(!(*m_chip)->isPlugged());
    QByteArray output;
    QCOMPARE(run({"show", "--io-warrior"}, &output), 0);
    QCOMPARE(output, QByteArray("unplugged\n"));
    QCOMPARE(run({"plug", "0x1503", "--io-warrior"}), 0);
    QVERIFY((*m_chip)->isPlugged());
    QCOMPARE((*m_chip)->kind().productId, TestChip::Warrior56);
}

void tst_PressSensor::removeTakesTheChipAway()
{
    const QString name = QStringLiteral("/tornik-test-remove-%1").arg(QCoreApplication::applicationPid());
    QCOMPARE(run({"clear", "1", "--port", name, "--io-warrior"}), 0);
    QCOMPARE(run({"remove", "--port", name, "--io-warrior"}), 0);
    QCOMPARE(run({"remove", "--port", name, "--io-warrior"}), 1);
}

void tst_PressSensor::helpIsPrinted()
{
    QByteArray output;
    QCOMPARE(run({"--help"}, &output), 0);
    for (const char* word : {"show", "set", "clear", "press", "wait", "plug", "unplug", "remove",
                             "--io-warrior", "--port", "--base", "--for"})
        QVERIFY2(output.contains(word), word);
}

void tst_PressSensor::wrongUseIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("unknown command") << QStringList{"push", "1"};
    QTest::newRow("no bits") << QStringList{"press"};
    QTest::newRow("bits are no number") << QStringList{"press", "one"};
    QTest::newRow("bits are negative") << QStringList{"press", "--", "-1"};
    QTest::newRow("bits are too large") << QStringList{"set", "0x10000"};
    QTest::newRow("neither on nor off") << QStringList{"wait", "1", "maybe"};
    QTest::newRow("too many words") << QStringList{"show", "1"};
    QTest::newRow("time is no number") << QStringList{"press", "1", "--for", "ever"};
    QTest::newRow("plug of the port") << QStringList{"plug", "0x1500"};
    QTest::newRow("unplug of the port") << QStringList{"unplug"};
    QTest::newRow("plug of nothing") << QStringList{"plug", "--io-warrior"};
    QTest::newRow("plug of another product") << QStringList{"plug", "0x1507", "--io-warrior"};
    QTest::newRow("pins are too large") << QStringList{"set", "0x100000000", "--io-warrior"};
    QTest::newRow("base is no number") << QStringList{"press", "1", "--base", "lpt1"};
}

void tst_PressSensor::wrongUseIsRefused()
{
    QFETCH(QStringList, arguments);
    QCOMPARE(run(arguments), 2);
    QVERIFY((*m_chip)->isPlugged());
    QCOMPARE((*m_chip)->pins(), ~0U);
    QCOMPARE((*m_port)->read(TestPort::Status), short(127));
}

QTEST_GUILESS_MAIN(tst_PressSensor)
#include "tst_PressSensor.moc"
