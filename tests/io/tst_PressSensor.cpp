#include "TestPort.h"

#include <QtTest>

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
    void helpIsPrinted();
    void wrongUseIsRefused_data();
    void wrongUseIsRefused();

private:
    static void start(QProcess& process, const QStringList& arguments);
    static int run(const QStringList& arguments, QByteArray* output = nullptr);

    std::optional<TestPort> m_port;
};

void tst_PressSensor::initTestCase()
{
    m_port.emplace();
}

void tst_PressSensor::init()
{
    m_port->reset();
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

void tst_PressSensor::helpIsPrinted()
{
    QByteArray output;
    QCOMPARE(run({"--help"}, &output), 0);
    for (const char* word : {"show", "set", "clear", "press", "wait", "remove", "--port", "--base", "--for"})
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
    QTest::newRow("base is no number") << QStringList{"press", "1", "--base", "lpt1"};
}

void tst_PressSensor::wrongUseIsRefused()
{
    QFETCH(QStringList, arguments);
    QCOMPARE(run(arguments), 2);
    QCOMPARE((*m_port)->read(TestPort::Status), short(127));
}

QTEST_GUILESS_MAIN(tst_PressSensor)
#include "tst_PressSensor.moc"
