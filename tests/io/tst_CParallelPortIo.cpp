#include "EventSink.h"
#include "TestPort.h"
#include "io/CInpOutLibrary.h"
#include "io/CParallelPortIo.h"
#include "race/CLightAction.h"
#include "race/CRacewayOutputs.h"
#include "support/StreamBytes.h"

#include <QElapsedTimer>
#include <QtTest>

#include <optional>

namespace {

constexpr int SensorMask = 126; // lap sensor of track 1, on bit 0

} // namespace

class tst_CParallelPortIo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void newInterfaceHasItsDefaults();
    void newInterfaceLeavesThePortOfTheOthersAlone();
    void settersActOnThePortAtOnce();
    void sensorStatesReadThePort();
    void capturingStoresThePortAndClearsTheInvertFlag();
    void capturedOpenStateIsWhereTheOutputsReturn();

    void outputSetsAndClearsItsBits();
    void outputOfAnUnassignedPortIdWritesTheRegisterUnchanged();
    void everyOutputCallWritesTheRegister();
    void invertedOutputWithOnTrueClearsItsBits();
    void sixthRedLampWritesTheRegisterWithTheBitsOfTheOpenState();
    void outputOfAnIdOutOfRangeWritesTheRegisterUnchanged();

    void blobOf291BytesHasItsNumbersInOrder();
    void blobRoundTripKeepsEverything();
    void readSettingsPassTheRegistersToThePortAtOnce();
    void cutBlobLeavesZeros();

    void eachPassOfACarGivesTwoEvents();
    void twoSensorsClosedAtOnceGiveOneEvent();
    void unchangedPortPostsNothing();
    void stampsDoNotRunBackwards();
    void startAfterStopReportsTheChangeInBetweenAsTheFirstEventWithAStampNearZero();
    void startAfterStopWithoutAChangeInBetweenReportsNothing();
    void stopRightAfterStartEndsTheThread();
    void startRightAfterStopBeginsANewRun();
    void secondStartIsHarmless();
    void deletingARunningInterfaceEndsItsThread();
    void twoInterfacesShareOnePortAndTheLaterStartWins();
    void outputsSwitchWhileTheThreadReads();

private:
    /** Waits until the thread has seen the registers as they are now. */
    void letTheThreadRead();
    void startWithSensor();
    void stopAndWait();

    std::optional<TestPort> m_port;
    std::unique_ptr<CParallelPortIo> m_io;
    std::unique_ptr<EventSink> m_sink;
};

void tst_CParallelPortIo::initTestCase()
{
    m_port.emplace();
}

void tst_CParallelPortIo::init()
{
    m_port->reset();
    m_sink = std::make_unique<EventSink>();
    m_io = std::make_unique<CParallelPortIo>();
    m_io->setReceiver(m_sink.get());
}

void tst_CParallelPortIo::cleanup()
{
    m_io.reset();
    m_sink.reset();
}

void tst_CParallelPortIo::letTheThreadRead()
{
    const unsigned before = (*m_port)->reads();
    QTRY_VERIFY((*m_port)->reads() - before >= 3);
}

void tst_CParallelPortIo::startWithSensor()
{
    m_io->setPortState(1, SensorMask, false);
    m_io->start();
    letTheThreadRead();
}

void tst_CParallelPortIo::stopAndWait()
{
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());
}

void tst_CParallelPortIo::newInterfaceHasItsDefaults()
{
    QCOMPARE(m_io->interfaceType(), 1);
    QCOMPARE(m_io->portState(0), 127);
    for (int id = 1; id < PortId::Count; ++id) {
        QCOMPARE(m_io->portState(id), 0);
        QVERIFY(!m_io->isInverted(id));
    }
    QCOMPARE(m_io->baseAddress(), 888);
    QCOMPARE(m_io->inputOffset(), 1);
    QCOMPARE(m_io->outputOffset(), 0);
    QVERIFY(!m_io->isRunning());
    m_io->setOutput(10, true);
    QCOMPARE((*m_port)->read(TestPort::Data), short(127));
}

void tst_CParallelPortIo::newInterfaceLeavesThePortOfTheOthersAlone()
{
    m_io->setBaseAddress(0x278);
    (*m_port)->write(0x279, 5);
    const CParallelPortIo other;
    QCOMPARE(m_io->capturePortState(1), 5);
}

void tst_CParallelPortIo::settersActOnThePortAtOnce()
{
    (*m_port)->write(0x27A, 11);
    m_io->setBaseAddress(0x278);
    m_io->setInputOffset(2);
    m_io->setOutputOffset(1);
    QCOMPARE(m_io->baseAddress(), 0x278);
    QCOMPARE(m_io->inputOffset(), 2);
    QCOMPARE(m_io->outputOffset(), 1);
    QCOMPARE(m_io->capturePortState(1), 11);
    m_io->setOutput(10, true);
    QCOMPARE((*m_port)->read(0x279), short(127));
}

void tst_CParallelPortIo::sensorStatesReadThePort()
{
    m_io->setPortState(9, 95, false);
    for (int id = 1; id < PortId::Count; ++id) {
        if (id != 9)
            m_io->setPortState(id, 127, false);
    }
    QCOMPARE(m_io->sensorStates(), QBitArray(65));
    (*m_port)->write(TestPort::Status, 95);
    QCOMPARE(m_io->sensorStates().count(true), 1);
    QVERIFY(m_io->sensorStates().testBit(9));
}

void tst_CParallelPortIo::capturingStoresThePortAndClearsTheInvertFlag()
{
    m_io->setPortState(10, 1, true);
    (*m_port)->write(TestPort::Status, 63);
    QCOMPARE(m_io->capturePortState(10), 63);
    QCOMPARE(m_io->portState(10), 63);
    QVERIFY(!m_io->isInverted(10));
    QCOMPARE(m_io->capturePortState(65), 63);
    QCOMPARE(m_io->portState(65), 0);
}

void tst_CParallelPortIo::capturedOpenStateIsWhereTheOutputsReturn()
{
    (*m_port)->write(TestPort::Status, 0x30);
    m_io->capturePortState(0);
    m_io->setPortState(10, 1, false);
    m_io->setOutput(10, true);
    QCOMPARE((*m_port)->read(TestPort::Data), short(0x31));
}

void tst_CParallelPortIo::outputSetsAndClearsItsBits()
{
    m_io->setPortState(0, 0, false);
    m_io->setPortState(10, 1, false);
    m_io->setPortState(11, 4, false);
    m_io->setOutput(10, true);
    m_io->setOutput(11, true);
    QCOMPARE((*m_port)->read(TestPort::Data), short(5));
    m_io->setOutput(10, false);
    QCOMPARE((*m_port)->read(TestPort::Data), short(4));
}

void tst_CParallelPortIo::outputOfAnUnassignedPortIdWritesTheRegisterUnchanged()
{
    m_io->setPortState(0, 0x24, false);
    for (const int unassigned : {-1, 0}) {
        for (const bool on : {true, false}) {
            m_io->setPortState(12, unassigned, false);
            (*m_port)->write(TestPort::Data, 0);
            m_io->setOutput(12, on);
            QCOMPARE((*m_port)->read(TestPort::Data), short(0x24));
        }
    }
}

void tst_CParallelPortIo::everyOutputCallWritesTheRegister()
{
    m_io->setPortState(10, 1, false);
    const unsigned before = (*m_port)->writes();
    for (int call = 0; call < 5; ++call)
        m_io->setOutput(10, true);
    QCOMPARE((*m_port)->writes() - before, 5U);
}

void tst_CParallelPortIo::invertedOutputWithOnTrueClearsItsBits()
{
    m_io->setPortState(0, 0xFF, false);
    m_io->setPortState(23, 0x0C, true);
    m_io->setOutput(23, true);
    QCOMPARE((*m_port)->read(TestPort::Data), short(0xF3));
    m_io->setOutput(23, false);
    QCOMPARE((*m_port)->read(TestPort::Data), short(0xFF));
}

void tst_CParallelPortIo::sixthRedLampWritesTheRegisterWithTheBitsOfTheOpenState()
{
    m_io->setPortState(PortId::Open, 0x41, false);
    for (int lamp = 0; lamp < PortId::RedLamps; ++lamp)
        m_io->setPortState(PortId::redLamp(lamp), 2 << lamp, false);
    CRacewayOutputs outputs;
    outputs.setIo(m_io.get());
    outputs.setExternalLightsAvailable(true);
    outputs.updateLights(CLightAction::AllOff);
    for (int lamp = 0; lamp < PortId::RedLamps; ++lamp)
        outputs.updateLights(CLightAction::NextRed);
    QCOMPARE((*m_port)->read(TestPort::Data), short(0x7F));

    m_io->setPortState(PortId::Open, 0x81, false); // the outputs return to it with the next write
    const unsigned before = (*m_port)->writes();
    outputs.updateLights(CLightAction::NextRed);
    QCOMPARE((*m_port)->writes() - before, 1U);
    QCOMPARE((*m_port)->read(TestPort::Data), short(0x81));
    m_io->setOutput(PortId::Open, false);
    QCOMPARE((*m_port)->read(TestPort::Data), short(0));
}

void tst_CParallelPortIo::outputOfAnIdOutOfRangeWritesTheRegisterUnchanged()
{
    for (const int id : {65, -1, INT_MAX}) {
        m_io->setOutput(id, true);
        QCOMPARE((*m_port)->read(TestPort::Data), short(127));
    }
}

void tst_CParallelPortIo::blobOf291BytesHasItsNumbersInOrder()
{
    CParallelPortIo io(0x278, 2, 1);
    for (int id = 0; id < PortId::Count; ++id)
        io.setPortState(id, 0x7F000000 + id, id % 2 == 0);
    const QByteArray blob = io.writeSettings();
    QCOMPARE(blob.size(), 291);
    QCOMPARE(numberAt(blob, 0), 1);
    QCOMPARE(numberAt(blob, 4), 0x7F000000);
    QCOMPARE(numberAt(blob, 8), 0x7F000009);
    for (int id = 1; id <= 8; ++id)
        QCOMPARE(numberAt(blob, 12 + 4 * (id - 1)), 0x7F000000 + id);
    for (int id = 10; id <= 24; ++id) {
        QCOMPARE(numberAt(blob, 44 + 4 * (id - 10)), 0x7F000000 + id);
        QCOMPARE(int(blob.at(104 + id - 10)), id % 2 == 0 ? 1 : 0);
    }
    QCOMPARE(blob.mid(119, 12), QByteArray::fromHex("000002780000000200000001"));
    for (int id = 25; id <= 64; ++id)
        QCOMPARE(numberAt(blob, 131 + 4 * (id - 25)), 0x7F000000 + id);
}

void tst_CParallelPortIo::blobRoundTripKeepsEverything()
{
    CParallelPortIo io(0x3BC, 0, 2);
    for (int id = 0; id < PortId::Count; ++id)
        io.setPortState(id, id - 30, id % 3 == 0);
    const CParallelPortIo other(io.writeSettings());
    QCOMPARE(other.baseAddress(), 0x3BC);
    QCOMPARE(other.inputOffset(), 0);
    QCOMPARE(other.outputOffset(), 2);
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(other.portState(id), id - 30);
        QCOMPARE(other.isInverted(id), io.isInverted(id));
    }
    QCOMPARE(other.writeSettings(), io.writeSettings());
}

void tst_CParallelPortIo::readSettingsPassTheRegistersToThePortAtOnce()
{
    const QByteArray blob = CParallelPortIo(0x278, 2, 1).writeSettings();
    m_io->readSettings(CParallelPortIo(888, 1, 0).writeSettings());
    (*m_port)->write(0x27A, 33);
    QCOMPARE(m_io->capturePortState(1), 127);
    m_io->readSettings(blob);
    QCOMPARE(m_io->capturePortState(1), 33);
}

void tst_CParallelPortIo::cutBlobLeavesZeros()
{
    m_io->setPortState(64, 5, false);
    const QByteArray whole = m_io->writeSettings();
    for (int size = 0; size < whole.size(); ++size) {
        CParallelPortIo io(whole.left(size));
        QCOMPARE(io.portState(64), 0);
        QCOMPARE(io.portState(0), size >= 8 ? 127 : 0);
        QCOMPARE(io.baseAddress(), size >= 123 ? 888 : 0);
        QCOMPARE(io.interfaceType(), 1);
    }
}

void tst_CParallelPortIo::eachPassOfACarGivesTwoEvents()
{
    startWithSensor();
    (*m_port)->write(TestPort::Status, 126);
    QTRY_COMPARE(m_sink->events.size(), 1);
    (*m_port)->write(TestPort::Status, 127);
    QTRY_COMPARE(m_sink->events.size(), 2);
    QVERIFY(m_sink->events.at(0).sensors.testBit(1));
    QVERIFY(!m_sink->events.at(1).sensors.testBit(1));
}

void tst_CParallelPortIo::twoSensorsClosedAtOnceGiveOneEvent()
{
    m_io->setPortState(2, 125, false);
    startWithSensor();
    (*m_port)->write(TestPort::Status, 124);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QVERIFY(m_sink->events.at(0).sensors.testBit(1));
    QVERIFY(m_sink->events.at(0).sensors.testBit(2));
}

void tst_CParallelPortIo::unchangedPortPostsNothing()
{
    startWithSensor();
    (*m_port)->write(TestPort::Status, 126);
    QTRY_COMPARE(m_sink->events.size(), 1);
    letTheThreadRead();
    (*m_port)->write(TestPort::Status, 126);
    letTheThreadRead();
    QCoreApplication::processEvents();
    QCOMPARE(m_sink->events.size(), 1);
}

void tst_CParallelPortIo::stampsDoNotRunBackwards()
{
    startWithSensor();
    for (int change = 1; change <= 10; ++change) {
        (*m_port)->flipBits(TestPort::Status, 1);
        QTRY_COMPARE(m_sink->events.size(), change);
    }
    for (int i = 1; i < m_sink->events.size(); ++i)
        QVERIFY(m_sink->events.at(i).time >= m_sink->events.at(i - 1).time);
}

void tst_CParallelPortIo::startAfterStopReportsTheChangeInBetweenAsTheFirstEventWithAStampNearZero()
{
    startWithSensor();
    do { // let the stamps of the first run grow
        const int before = m_sink->events.size();
        (*m_port)->flipBits(TestPort::Status, 1);
        QTRY_VERIFY(m_sink->events.size() > before);
    } while (m_sink->events.last().time < 200);
    stopAndWait();
    m_sink->events.clear();
    (*m_port)->write(TestPort::Status, 111);

    QElapsedTimer sinceStart;
    sinceStart.start();
    m_io->start();
    QTRY_COMPARE(m_sink->events.size(), 1);
    QVERIFY(m_sink->events.at(0).time <= sinceStart.elapsed());
    QCOMPARE(m_io->capturePortState(2), 111);
}

void tst_CParallelPortIo::startAfterStopWithoutAChangeInBetweenReportsNothing()
{
    startWithSensor();
    (*m_port)->write(TestPort::Status, 126);
    QTRY_COMPARE(m_sink->events.size(), 1);
    stopAndWait();
    m_io->start();
    letTheThreadRead();
    QCoreApplication::processEvents();
    QCOMPARE(m_sink->events.size(), 1);
}

void tst_CParallelPortIo::stopRightAfterStartEndsTheThread()
{
    for (int run = 0; run < 20; ++run) {
        m_io->start();
        m_io->stop();
        QTRY_VERIFY(!m_io->isRunning());
    }
}

void tst_CParallelPortIo::startRightAfterStopBeginsANewRun()
{
    startWithSensor();
    for (int run = 0; run < 200; ++run) {
        m_io->stop();
        m_io->start();
        QVERIFY(m_io->isRunning());
    }
    letTheThreadRead();
    (*m_port)->write(TestPort::Status, 126);
    QTRY_COMPARE(m_sink->events.size(), 1);
}

void tst_CParallelPortIo::secondStartIsHarmless()
{
    startWithSensor();
    m_io->start();
    (*m_port)->write(TestPort::Status, 126);
    QTRY_COMPARE(m_sink->events.size(), 1);
    stopAndWait();
}

void tst_CParallelPortIo::deletingARunningInterfaceEndsItsThread()
{
    startWithSensor();
    m_io.reset();
    const unsigned reads = (*m_port)->reads();
    QCoreApplication::processEvents();
    QCOMPARE((*m_port)->reads(), reads);
}

void tst_CParallelPortIo::twoInterfacesShareOnePortAndTheLaterStartWins()
{
    CParallelPortIo other(0x278, 1, 0);
    EventSink otherSink;
    other.setReceiver(&otherSink);
    other.start();
    startWithSensor();
    (*m_port)->write(0x279, 1); // the address of the interface that was started first
    letTheThreadRead();
    letTheThreadRead();
    QCoreApplication::processEvents();
    QCOMPARE(m_sink->events.size(), 0);
    otherSink.events.clear();
    (*m_port)->write(TestPort::Status, 126);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QTRY_COMPARE(otherSink.events.size(), 1);
    other.setOutput(10, true);
    QCOMPARE((*m_port)->read(TestPort::Data), short(127));
    QCOMPARE((*m_port)->read(0x278), short(0));
}

void tst_CParallelPortIo::outputsSwitchWhileTheThreadReads()
{
    m_io->setPortState(10, 1, false);
    startWithSensor();
    for (int change = 0; change < 20; ++change) {
        m_io->setOutput(10, change % 2 == 0);
        QCOMPARE((*m_port)->read(TestPort::Data), short(change % 2 == 0 ? 127 : 126));
    }
    letTheThreadRead();
    QCoreApplication::processEvents();
    QCOMPARE(m_sink->events.size(), 0); // the outputs lie on another register
}

QTEST_GUILESS_MAIN(tst_CParallelPortIo)
#include "tst_CParallelPortIo.moc"
