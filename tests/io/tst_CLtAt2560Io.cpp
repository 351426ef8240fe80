#include "io/BoxLine.h"
#include "io/CCarreraCuEvents.h"
#include "io/CLtAt2560.h"
#include "io/CLtAt2560Io.h"
#include "io/CRacewayIoEvent.h"
#include "io/CRacewayIoFactory.h"
#include "io/EventRecorder.h"
#include "support/DebugLines.h"

#include <QtTest>

using Bits = QList<int>;

namespace {

const QString Opened = QStringLiteral("serial->open() in connect() was successful");

bool isInput(int portId)
{
    return portId > 0 && !PortId::isOutput(portId);
}

} // namespace

class tst_CLtAt2560Io : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aNewInterfaceHasItsOutputsPreset();
    void sensorStatesAndLearningDoNothing();

    void aFrameOfInput12AtTheTime34567GivesBoth();
    void everyInputFiresItsSensor();
    void oneInputServesSeveralSensors();
    void inputZeroIsASensor();
    void bitsOfAnEarlierFrameAreGone();
    void frameTexts_data();
    void frameTexts();
    void anUnreadableFrameClosesEveryUnassignedSensorAtTheTimeMinusOne();
    void eventsOfAnotherTypeAreIgnored();
    void withoutAReceiverFramesAreDropped();

    void theInputSetupNamesEachAssignedInputInOrder_data();
    void theInputSetupNamesEachAssignedInputInOrder();
    void withNoInputAssignedNoSetupIsSent();
    void everyOutputHasItsToken();
    void theLevelFollowsTheInvertFlag();
    void trackPowerOfTracksSevenAndEightSendsNothing();
    void portIdsWithoutATokenSendNothing();

    void aStartOpensTheLineAndTellsTheInputs();
    void aStartWithAnUnchangedPortNameDoesNotReopenThePort();
    void aStopKeepsTheLineOpen();
    void withoutABoxItRunsAllTheSame();
    void theLineBelongsToTheInterfaceStartedLast();
    void theLastInterfaceClosesTheLine();

    void theBlobHasThePortNameInFront();
    void anEmptyBlobLeavesZeros();
    void aBlobCutAnywhereIsReadWithoutHarm();
    void theFactoryMakesItFromABlob();

private:
    void deliver(const QByteArray& frame);
    EventRecorder::Pass passOf(const QByteArray& frame);
    void startOnLine();
    QByteArray sentBy(int portId, bool on);

    std::unique_ptr<DebugLines> m_log;
    std::unique_ptr<BoxLine> m_line;
    std::unique_ptr<EventRecorder> m_receiver;
    std::unique_ptr<CLtAt2560Io> m_io;
};

void tst_CLtAt2560Io::init()
{
    m_log = std::make_unique<DebugLines>();
    m_line = std::make_unique<BoxLine>();
    m_receiver = std::make_unique<EventRecorder>();
    m_io = std::make_unique<CLtAt2560Io>();
    m_io->setReceiver(m_receiver.get());
}

void tst_CLtAt2560Io::cleanup()
{
    m_io.reset();
    m_receiver.reset();
    m_line.reset();
    m_log.reset();
}

void tst_CLtAt2560Io::deliver(const QByteArray& frame)
{
    auto* event = new CRacewayIoEvent(0, 0);
    event->setText(frame.constData());
    QCoreApplication::postEvent(m_io.get(), event);
    QCoreApplication::sendPostedEvents(m_io.get());
    QCoreApplication::sendPostedEvents(m_receiver.get());
}

EventRecorder::Pass tst_CLtAt2560Io::passOf(const QByteArray& frame)
{
    const int before = m_receiver->passes().size();
    deliver(frame);
    return m_receiver->passes().size() == before + 1 ? m_receiver->passes().last()
                                                     : EventRecorder::Pass{QBitArray(), 0};
}

void tst_CLtAt2560Io::startOnLine()
{
    m_io->setPortName(m_line->path());
    m_io->start();
}

/** @return what an output sends, told by a mark that is sent behind it. */
QByteArray tst_CLtAt2560Io::sentBy(int portId, bool on)
{
    m_line->forget();
    m_io->setOutput(portId, on);
    CLtAt2560::instance()->sendFrame(QStringLiteral("|"));
    CLtAt2560::release();
    if (!QTest::qWaitFor([this] { return m_line->received().endsWith('|'); }))
        return "nothing arrives";
    return m_line->received().chopped(1);
}

void tst_CLtAt2560Io::aNewInterfaceHasItsOutputsPreset()
{
    QCOMPARE(m_io->interfaceType(), 9);
    QVERIFY(m_io->portName().isEmpty());
    QVERIFY(!m_io->isRunning());
    const QVector<int> outputs{8, 9, 10, 11, 12, 13, -1, -1, 5, 4, 3, 2, 1, 0, 6};
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(m_io->isInverted(id), PortId::isOutput(id));
        QCOMPARE(m_io->portState(id), PortId::isOutput(id) ? outputs.at(id - 10) : -1);
    }
}

void tst_CLtAt2560Io::sensorStatesAndLearningDoNothing()
{
    m_io->setPortState(PortId::lapSensor(0), 3, false);
    QCOMPARE(EventRecorder::closed(passOf(":S3,100;")).first(), 1);
    QCOMPARE(m_io->sensorStates(), QBitArray(65));
    QCOMPARE(m_io->capturePortState(PortId::lapSensor(0)), 0);
    QCOMPARE(m_io->portState(PortId::lapSensor(0)), 3);
}

void tst_CLtAt2560Io::aFrameOfInput12AtTheTime34567GivesBoth()
{
    m_io->setPortState(PortId::lapSensor(2), 12, false);
    const EventRecorder::Pass pass = passOf(":S12,34567;");
    QCOMPARE(pass.sensors.size(), 65);
    QCOMPARE(EventRecorder::closed(pass), Bits{3});
    QCOMPARE(pass.time, 34567);
}

void tst_CLtAt2560Io::everyInputFiresItsSensor()
{
    for (int id = 0; id < PortId::Count; ++id)
        m_io->setPortState(id, 100 + id, false);
    for (int id = 0; id < PortId::Count; ++id) {
        const EventRecorder::Pass pass = passOf(":S" + QByteArray::number(100 + id) + ",7;");
        QCOMPARE(EventRecorder::closed(pass), isInput(id) ? Bits{id} : Bits());
        QCOMPARE(pass.time, 7);
    }
}

void tst_CLtAt2560Io::oneInputServesSeveralSensors()
{
    m_io->setPortState(PortId::lapSensor(0), 4, false);
    m_io->setPortState(PortId::fuelSensor(0), 4, false);
    m_io->setPortState(PortId::endSensor(0), 4, false);
    m_io->setPortState(PortId::lapSensor(1), 5, false);
    QCOMPARE(EventRecorder::closed(passOf(":S4,100;")), Bits({1, 25, 57}));
}

void tst_CLtAt2560Io::inputZeroIsASensor()
{
    m_io->setPortState(PortId::lapSensor(0), 0, false);
    QCOMPARE(EventRecorder::closed(passOf(":S0,100;")), Bits{1});
}

void tst_CLtAt2560Io::bitsOfAnEarlierFrameAreGone()
{
    m_io->setPortState(PortId::lapSensor(0), 1, false);
    m_io->setPortState(PortId::lapSensor(1), 2, false);
    QCOMPARE(EventRecorder::closed(passOf(":S1,100;")), Bits{1});
    QCOMPARE(EventRecorder::closed(passOf(":S2,105;")), Bits{2});
    QCOMPARE(EventRecorder::closed(passOf(":S54,110;")), Bits());
}

void tst_CLtAt2560Io::frameTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("input");
    QTest::addColumn<int>("time");
    const auto unreadable = [](const char* name, const QByteArray& text) {
        QTest::newRow(name) << text << -1 << -1;
    };
    QTest::newRow("one digit") << QByteArray(":S5,1;") << 5 << 1;
    QTest::newRow("leading zeros") << QByteArray(":S05,000100;") << 5 << 100;
    QTest::newRow("blanks around the numbers") << QByteArray(":S 5 , 100 ;") << 5 << 100;
    QTest::newRow("time 0") << QByteArray(":S5,0;") << 5 << 0;
    QTest::newRow("time of 31 bits") << QByteArray(":S5,2147483647;") << 5 << 2147483647;
    QTest::newRow("time of 32 bits") << QByteArray(":S5,2147483648;") << 5 << int(0x80000000U);
    QTest::newRow("time begins anew after 32 bits") << QByteArray(":S5,4294967301;") << 5 << 5;
    unreadable("no comma", ":S5100;");
    unreadable("another letter", ":X5,100;");
    unreadable("no letter", ":5,100;");
    unreadable("no colon", "S5,100;");
    unreadable("no end, since it was cut", ":S5,1000000000000000000000000000");
    unreadable("empty", "");
    unreadable("nothing but its ends", ":S;");
    unreadable("no input", ":S,100;");
    unreadable("no time", ":S5,;");
    unreadable("input is no number", ":Sx,100;");
    unreadable("time is no number", ":S5,1x0;");
    unreadable("input is below 0", ":S-1,100;");
    unreadable("input has a sign", ":S+5,100;");
    unreadable("time is below 0", ":S5,-100;");
    unreadable("input in hexadecimal digits", ":S0x5,100;");
    unreadable("input has too many digits", ":S4294967301,100;");
    unreadable("time has too many digits", ":S5,99999999999999999999999;");
    unreadable("two frames, the end between them lost", ":S5,10:S5,100;");
    unreadable("second comma", ":S5,100,1;");
}

void tst_CLtAt2560Io::frameTexts()
{
    QFETCH(QByteArray, text);
    QFETCH(int, input);
    QFETCH(int, time);
    for (int id = 0; id < PortId::Count; ++id)
        m_io->setPortState(id, -1, true);
    m_io->setPortState(PortId::lapSensor(0), 5, false);
    m_io->setPortState(PortId::lapSensor(1), 0, false);
    const EventRecorder::Pass pass = passOf(text);
    QCOMPARE(pass.time, time);
    QCOMPARE(pass.sensors.testBit(1), input == 5);
    QVERIFY(!pass.sensors.testBit(2));
    QCOMPARE(pass.sensors.testBit(3), input == -1);
}

void tst_CLtAt2560Io::anUnreadableFrameClosesEveryUnassignedSensorAtTheTimeMinusOne()
{
    m_io->setPortState(PortId::lapSensor(0), 5, false);
    m_io->setPortState(PortId::ChaosButton, 6, false);
    const EventRecorder::Pass pass = passOf(":nonsense;");
    QCOMPARE(pass.time, -1);
    for (int id = 0; id < PortId::Count; ++id)
        QCOMPARE(pass.sensors.testBit(id), isInput(id) && id != 1 && id != 9);
}

void tst_CLtAt2560Io::eventsOfAnotherTypeAreIgnored()
{
    CCarreraCuEvent foreign(QStringLiteral(":S1,100;"));
    m_io->processIoEvent(&foreign);
    QEvent other(QEvent::User);
    m_io->processIoEvent(&other);
    QCoreApplication::sendPostedEvents(m_receiver.get());
    QVERIFY(m_receiver->passes().isEmpty());
    QCOMPARE(m_receiver->others(), 0);
}

void tst_CLtAt2560Io::withoutAReceiverFramesAreDropped()
{
    m_io->setReceiver(nullptr);
    deliver(":S1,100;");
    m_io->setReceiver(m_receiver.get());
    deliver(":S1,105;");
    QCOMPARE(m_receiver->passes().size(), 1);
    QCOMPARE(m_receiver->passes().first().time, 105);
}

void tst_CLtAt2560Io::theInputSetupNamesEachAssignedInputInOrder_data()
{
    QTest::addColumn<Bits>("ids");
    QTest::addColumn<QByteArray>("setup");
    QTest::newRow("chaos button and two lap sensors") << Bits{9, 1, 2} << QByteArray(":IS,109.101.102;");
    QTest::newRow("one sensor") << Bits{64} << QByteArray(":IS,164;");
    QTest::newRow("first and last of each kind")
        << Bits{1, 8, 25, 32, 33, 40, 41, 48, 49, 56, 57, 64}
        << QByteArray(":IS,101.108.125.132.133.140.141.148.149.156.157.164;");
    QTest::newRow("no sensors, not named") << Bits{0, 10, 17, 18, 24, 3} << QByteArray(":IS,103;");
}

void tst_CLtAt2560Io::theInputSetupNamesEachAssignedInputInOrder()
{
    QFETCH(Bits, ids);
    QFETCH(QByteArray, setup);
    for (const int id : ids)
        m_io->setPortState(id, 100 + id, false);
    startOnLine();
    QTRY_COMPARE(m_line->received(), setup);
}

void tst_CLtAt2560Io::withNoInputAssignedNoSetupIsSent()
{
    startOnLine();
    QCOMPARE(sentBy(PortId::redLamp(0), true), QByteArray(":A10;"));
}

void tst_CLtAt2560Io::everyOutputHasItsToken()
{
    startOnLine();
    QMap<int, QByteArray> tokens{{24, "C"}};
    for (int i = 0; i < 6; ++i) {
        tokens[10 + i] = "P" + QByteArray::number(i + 1);
        tokens[18 + i] = "A" + QByteArray::number(i + 1);
        tokens[57 + i] = "E";
    }
    for (auto token = tokens.cbegin(); token != tokens.cend(); ++token) {
        const bool inverted = token.key() < 57;
        QCOMPARE(sentBy(token.key(), true), ':' + token.value() + (inverted ? "0;" : "1;"));
        QCOMPARE(sentBy(token.key(), false), ':' + token.value() + (inverted ? "1;" : "0;"));
    }
}

void tst_CLtAt2560Io::theLevelFollowsTheInvertFlag()
{
    startOnLine();
    QCOMPARE(sentBy(18, true), QByteArray(":A10;"));
    m_io->setPortState(18, 5, false);
    QCOMPARE(sentBy(18, true), QByteArray(":A11;"));
    QCOMPARE(sentBy(18, false), QByteArray(":A10;"));
}

void tst_CLtAt2560Io::trackPowerOfTracksSevenAndEightSendsNothing()
{
    startOnLine();
    QCOMPARE(sentBy(16, true), QByteArray());
    QCOMPARE(sentBy(17, true), QByteArray());
}

void tst_CLtAt2560Io::portIdsWithoutATokenSendNothing()
{
    startOnLine();
    for (int id = -1; id <= 66; ++id) {
        const bool switchable = (id >= 10 && id <= 15) || (id >= 18 && id <= 24) || (id >= 57 && id <= 62);
        QCOMPARE(sentBy(id, true).isEmpty(), !switchable);
    }
}

void tst_CLtAt2560Io::aStartOpensTheLineAndTellsTheInputs()
{
    m_io->setPortState(PortId::ChaosButton, 7, false);
    m_io->setPortState(PortId::lapSensor(0), 1, false);
    m_io->setPortState(PortId::lapSensor(1), 2, false);
    startOnLine();
    QVERIFY(m_io->isRunning());
    QTRY_COMPARE(m_line->received(), QByteArray(":IS,7.1.2;"));
    m_line->send(":S2,34567;");
    QTRY_COMPARE(m_receiver->passes().size(), 1);
    QCOMPARE(EventRecorder::closed(m_receiver->passes().first()), Bits{2});
}

void tst_CLtAt2560Io::aStartWithAnUnchangedPortNameDoesNotReopenThePort()
{
    m_io->setPortState(PortId::lapSensor(0), 1, false);
    startOnLine();
    startOnLine();
    m_io->stop();
    startOnLine();
    QTRY_COMPARE(m_line->received(), QByteArray(":IS,1;:IS,1;:IS,1;"));
    QCOMPARE(m_log->count(Opened), 1);
}

void tst_CLtAt2560Io::aStopKeepsTheLineOpen()
{
    startOnLine();
    m_io->stop();
    QVERIFY(!m_io->isRunning());
    m_line->send(":S2,34567;");
    QTRY_COMPARE(m_receiver->passes().size(), 1);
    QCOMPARE(sentBy(24, true), QByteArray(":C0;"));
}

void tst_CLtAt2560Io::withoutABoxItRunsAllTheSame()
{
    m_io->setPortName(QDir::current().filePath(QStringLiteral("no-box")));
    m_io->setPortState(PortId::lapSensor(0), 1, false);
    m_io->start();
    QVERIFY(m_io->isRunning());
    m_io->setOutput(18, true);
    m_io->stop();
    QVERIFY(!m_io->isRunning());
}

void tst_CLtAt2560Io::theLineBelongsToTheInterfaceStartedLast()
{
    startOnLine();
    {
        EventRecorder secondReceiver;
        CLtAt2560Io second;
        second.setReceiver(&secondReceiver);
        second.setPortName(m_line->path());
        second.start();
        m_line->send(":S1,100;");
        QTRY_COMPARE(secondReceiver.passes().size(), 1);
    }
    m_line->send(":S1,105;"); // for an interface that is gone
    QCOMPARE(sentBy(24, true), QByteArray(":C0;"));
    QVERIFY(m_receiver->passes().isEmpty());
    m_io->start();
    m_line->send(":S1,110;");
    QTRY_COMPARE(m_receiver->passes().size(), 1);
    QCOMPARE(m_receiver->passes().first().time, 110);
    QCOMPARE(m_log->count(Opened), 1);
}

void tst_CLtAt2560Io::theLastInterfaceClosesTheLine()
{
    startOnLine();
    m_io.reset();
    m_io = std::make_unique<CLtAt2560Io>();
    m_io->setReceiver(m_receiver.get());
    QCOMPARE(m_log->count(Opened), 1);
    startOnLine();
    QCOMPARE(m_log->count(Opened), 2);
    m_line->send(":S1,100;");
    QTRY_COMPARE(m_receiver->passes().size(), 1);
}

void tst_CLtAt2560Io::theBlobHasThePortNameInFront()
{
    const QString name = QStringLiteral("ttyACM0");
    m_io->setPortName(name);
    for (int id = 0; id < PortId::Count; ++id)
        m_io->setPortState(id, 1000 + id, id % 2 == 0);
    const QByteArray blob = m_io->writeSettings();
    QCOMPARE(blob.size(), 279 + 4 + 2 * name.size());
    QCOMPARE(blob.left(8), QByteArray("\0\0\0\x9\0\0\0\xe", 8));
    const int masks = 8 + 2 * name.size();
    QCOMPARE(blob.mid(masks, 12), QByteArray("\0\0\x3\xe8\0\0\x3\xf1\0\0\x3\xe9", 12)); // 0, 9, 1
    QCOMPARE(blob.right(4), QByteArray("\0\0\x4\x28", 4));                              // 64

    CLtAt2560Io copy;
    copy.readSettings(blob);
    QCOMPARE(copy.portName(), name);
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(copy.portState(id), 1000 + id);
        QCOMPARE(copy.isInverted(id), PortId::isOutput(id) && id % 2 == 0);
    }
    QCOMPARE(copy.writeSettings(), blob);
}

void tst_CLtAt2560Io::anEmptyBlobLeavesZeros()
{
    m_io->setPortName(QStringLiteral("before"));
    m_io->readSettings(QByteArray());
    QVERIFY(m_io->portName().isEmpty());
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(m_io->portState(id), 0);
        QVERIFY(!m_io->isInverted(id));
    }
    QCOMPARE(m_io->interfaceType(), 9);
}

void tst_CLtAt2560Io::aBlobCutAnywhereIsReadWithoutHarm()
{
    m_io->setPortName(QStringLiteral("ttyACM0"));
    const QByteArray blob = m_io->writeSettings();
    for (int size = 0; size < blob.size(); ++size) {
        CLtAt2560Io io;
        io.readSettings(blob.left(size));
        QCOMPARE(io.portState(64), 0);
    }
}

void tst_CLtAt2560Io::theFactoryMakesItFromABlob()
{
    m_io->setPortName(QStringLiteral("ttyACM0"));
    const auto io = CRacewayIoFactory::createFromSettings(m_io->writeSettings());
    const auto* box = qobject_cast<const CLtAt2560Io*>(io.get());
    QVERIFY(box);
    QCOMPARE(box->portName(), QStringLiteral("ttyACM0"));
    QCOMPARE(CRacewayIoFactory::createLtAt2560()->interfaceType(), 9);
}

QTEST_GUILESS_MAIN(tst_CLtAt2560Io)
#include "tst_CLtAt2560Io.moc"
