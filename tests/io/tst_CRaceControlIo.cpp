#include "BoxLine.h"
#include "BoxTelegrams.h"
#include "EventSink.h"
#include "io/CCarreraCuEvents.h"
#include "io/CRaceControl.h"
#include "io/CRaceControlIo.h"
#include "io/CRacewayIoEvent.h"
#include "io/CRacewayIoFactory.h"
#include "support/StreamBytes.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <optional>

/** The interface on a pseudo-terminal, with the stand-in library. */
class tst_CRaceControlIo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingIsAssignedAtFirst();
    void theFactoryMakesItOfTypeCode4();
    void theBlobHasFourRecordsBehindTheTypeCode();
    void aBlobIsReadBackByteForByte();
    void aShortBlobLeavesZeros();
    void aBlobOfJunkIsReadToAStateThatLasts();
    void theBlobReachesTheDevice();
    void aParameterOutOfRangeStaysInTheBlobAndOffTheDevice();
    void aPortNameOpensNothingByItself();
    void aBoxOutsideHasNoName();

    void startOpensTheBoxes();
    void withNoBoxOpenStartDoesNothing();
    void startingAgainOpensNothingTwice();
    void theNextInterfaceOpensTheLineAnew();
    void startOpensItsOwnBoxesWhateverAnotherInterfaceHasRead();
    void parametersAreThoseOfTheInterfaceThatStarts();
    void anEventReachesTheReceiverByItsMask();
    void aDeactivationIsAPortValueLikeAnyOther();
    void theMaskTestSeesWhichBitDiffersFromRest_data();
    void theMaskTestSeesWhichBitDiffersFromRest();
    void eventsOfOtherTypesAreIgnored();
    void outputsAndLearningDoNothing();

private:
    void useLine();
    void send(const BoxTelegrams::Event& event);

    std::optional<BoxLine> m_line;
    std::optional<EventSink> m_sink;
    std::unique_ptr<CRaceControlIo> m_io;
    CRaceControl* m_device = nullptr;
};

void tst_CRaceControlIo::init()
{
    m_device = CRaceControl::instance();
    m_line.emplace();
    m_sink.emplace();
    m_io = std::make_unique<CRaceControlIo>();
    m_io->setReceiver(&*m_sink);
}

void tst_CRaceControlIo::cleanup()
{
    m_io.reset();
    CRaceControl::release();
}

/** Lets box 1 use the line, and track 1 and 2 its sensors on the right and at the start. */
void tst_CRaceControlIo::useLine()
{
    m_io->setPortName(0, m_line->path());
    m_io->setPortState(PortId::Open, 0x0300, false);
    for (int id = PortId::Open + 1; id < PortId::Count; ++id)
        m_io->setPortState(id, 0x0300, false);
    m_io->setPortState(PortId::lapSensor(0), 0x0301, false);
    m_io->setPortState(PortId::lapSensor(1), 0x0302, false);
    m_io->readSettings(m_io->writeSettings());
}

void tst_CRaceControlIo::send(const BoxTelegrams::Event& event)
{
    m_line->send(QByteArray::fromStdString(BoxTelegrams::encode(event)));
}

// --- Settings -------------------------------------------------------------------------------

void tst_CRaceControlIo::nothingIsAssignedAtFirst()
{
    QCOMPARE(m_io->interfaceType(), 4);
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(m_io->portState(id), -1);
        QVERIFY(!m_io->isInverted(id));
    }
    QVERIFY(!m_io->isRunning());
    QVERIFY(!m_io->decodePortValue(0x0203).count(true));
}

void tst_CRaceControlIo::theFactoryMakesItOfTypeCode4()
{
    const auto fresh = CRacewayIoFactory::createRaceControl();
    QVERIFY(qobject_cast<CRaceControlIo*>(fresh.get()));
    m_io->setPortName(3, "ttyS3");
    m_io->setPortState(PortId::FirstTrackPower, 77, true);
    const auto io = CRacewayIoFactory::createFromSettings(m_io->writeSettings());
    const auto* boxes = qobject_cast<CRaceControlIo*>(io.get());
    QVERIFY(boxes);
    QCOMPARE(boxes->portName(3), QString("ttyS3"));
    QCOMPARE(io->writeSettings(), m_io->writeSettings());
}

void tst_CRaceControlIo::theBlobHasFourRecordsBehindTheTypeCode()
{
    for (int id = 0; id < PortId::Count; ++id)
        m_io->setPortState(id, 1000 + id, id % 2 == 0);
    const QStringList names{"ttyS0", "", "ttyUSB1", "/dev/box"};
    for (int box = 0; box < 4; ++box)
        m_io->setPortName(box, names.at(box));

    StreamBytes expected;
    expected.int32(4);
    for (int box = 0; box < 4; ++box)
        expected.int16(0).int16(0).int16(0).text(names.at(box));
    expected.int32(1000).int32(1009);
    for (int id = 1; id <= 8; ++id)
        expected.int32(1000 + id);
    for (int id = 10; id <= 24; ++id)
        expected.int32(1000 + id);
    for (int id = 10; id <= 24; ++id)
        expected.boolean(id % 2 == 0);
    for (int id = 25; id <= 64; ++id)
        expected.int32(1000 + id);
    QCOMPARE(m_io->writeSettings(), expected.bytes());
}

void tst_CRaceControlIo::aBlobIsReadBackByteForByte()
{
    StreamBytes blob;
    blob.int32(4);
    for (int box = 0; box < 4; ++box)
        blob.int16(qint16(box + 1)).int16(qint16(box + 11)).int16(qint16(0xFFF0 + box)).text("port");
    blob.raw(QByteArray(40 + 60 + 15 + 64 + 96, '\1'));
    m_io->readSettings(blob.bytes());
    QCOMPARE(m_io->portState(PortId::Open), 0x01010101);
    QCOMPARE(m_io->writeSettings(), blob.bytes());
}

void tst_CRaceControlIo::aShortBlobLeavesZeros()
{
    m_io->readSettings(StreamBytes().int32(4).int16(5).bytes());
    QCOMPARE(m_io->interfaceType(), 4);
    QVERIFY(m_io->portName(0).isEmpty());
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(m_io->portState(id), 0);
        QVERIFY(!m_io->isInverted(id));
    }
    QCOMPARE(m_device->word2(0), 5);
    QCOMPARE(m_device->word2(1), 0);
}

void tst_CRaceControlIo::aBlobOfJunkIsReadToAStateThatLasts()
{
    QRandomGenerator random(26);
    for (int run = 0; run < 300; ++run) {
        QByteArray junk(random.bounded(400), Qt::Uninitialized);
        std::generate(junk.begin(), junk.end(), [&] { return char(random.bounded(run < 150 ? 4 : 256)); });
        m_io->readSettings(StreamBytes().int32(4).raw(junk).bytes());
        const QByteArray blob = m_io->writeSettings();
        m_io->readSettings(blob);
        QCOMPARE(m_io->writeSettings(), blob);
        QVERIFY(m_device->word2(0) <= 130);
    }
}

void tst_CRaceControlIo::theBlobReachesTheDevice()
{
    StreamBytes blob;
    blob.int32(4);
    for (int box = 0; box < 4; ++box)
        blob.int16(qint16(100 + box))
            .int16(qint16(20 + box))
            .int16(qint16(5 + box))
            .text("b" + QString::number(box));
    m_io->readSettings(blob.bytes());
    for (int box = 0; box < 4; ++box) {
        QCOMPARE(m_device->word2(box), 100 + box);
        QCOMPARE(m_device->word3(box), 20 + box);
        QCOMPARE(m_device->word4(box), 5 + box);
        QCOMPARE(m_device->portName(box), "b" + QString::number(box));
    }
}

void tst_CRaceControlIo::aParameterOutOfRangeStaysInTheBlobAndOffTheDevice()
{
    const QByteArray blob = StreamBytes().int32(4).int16(131).int16(51).int16(-1).text("x").bytes();
    m_io->readSettings(blob);
    QCOMPARE(m_device->word2(0), 0);
    QCOMPARE(m_device->word3(0), 0);
    QCOMPARE(m_device->word4(0), 0);
    QVERIFY(m_io->writeSettings().startsWith(blob));
}

void tst_CRaceControlIo::aPortNameOpensNothingByItself()
{
    useLine();
    QCOMPARE(m_device->portName(0), m_line->path());
    QCOMPARE(m_device->boxCount(), 0);
}

void tst_CRaceControlIo::aBoxOutsideHasNoName()
{
    m_io->setPortName(4, "x");
    m_io->setPortName(-1, "x");
    QVERIFY(m_io->portName(4).isEmpty());
    QVERIFY(m_io->portName(-1).isEmpty());
}

// --- Running --------------------------------------------------------------------------------

void tst_CRaceControlIo::startOpensTheBoxes()
{
    useLine();
    m_io->start();
    QVERIFY(m_io->isRunning());
    QCOMPARE(m_device->boxCount(), 1);
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());
    QCOMPARE(m_device->boxCount(), 1);
}

void tst_CRaceControlIo::withNoBoxOpenStartDoesNothing()
{
    m_io->start();
    QVERIFY(!m_io->isRunning());
    m_io->setPortName(0, "/no/such/port");
    m_io->readSettings(m_io->writeSettings());
    m_io->start();
    QVERIFY(!m_io->isRunning());
    QVERIFY(!m_device->anyBoxOpen());
    m_io->stop();
}

void tst_CRaceControlIo::startingAgainOpensNothingTwice()
{
    useLine();
    for (int run = 1; run <= 3; ++run) {
        m_io->start();
        send({0x0201, quint32(run)});
        QTRY_COMPARE(m_sink->events.size(), run);
        m_io->stop();
        QTRY_VERIFY(!m_io->isRunning());
        QCOMPARE(m_device->boxCount(), 1);
    }
}

void tst_CRaceControlIo::theNextInterfaceOpensTheLineAnew()
{
    useLine();
    m_io->start();
    m_line->pull();
    cleanup();
    init();
    useLine();
    m_io->start();
    QVERIFY(m_io->isRunning());
    send({0x0201, 5});
    QTRY_COMPARE(m_sink->events.size(), 1);
}

void tst_CRaceControlIo::startOpensItsOwnBoxesWhateverAnotherInterfaceHasRead()
{
    useLine();
    const BoxLine otherLine;
    CRaceControlIo other;
    other.setPortName(0, otherLine.path());
    other.setPortName(1, "/no/such/port");
    other.readSettings(other.writeSettings());
    QCOMPARE(m_device->portName(0), otherLine.path());
    m_io->start();
    QCOMPARE(m_device->boxCount(), 1);
    send({0x0201, 5});
    QTRY_COMPARE(m_sink->events.size(), 1);
}

void tst_CRaceControlIo::parametersAreThoseOfTheInterfaceThatStarts()
{
    m_io->readSettings(StreamBytes().int32(4).int16(7).int16(8).int16(9).text(m_line->path()).bytes());
    m_io->start();
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());

    CRaceControlIo other;
    other.readSettings(StreamBytes().int32(4).int16(100).int16(40).int16(10).text("other's").bytes());
    QCOMPARE(m_device->word2(0), 100);
    m_io->start();
    QVERIFY(m_io->isRunning());
    QCOMPARE(m_device->word2(0), 7);
    QCOMPARE(m_device->word3(0), 8);
    QCOMPARE(m_device->word4(0), 9);
}

void tst_CRaceControlIo::anEventReachesTheReceiverByItsMask()
{
    useLine();
    m_io->start();
    send({0x0201, 4800});
    QTRY_COMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->closed(0), QList<int>{PortId::lapSensor(0)});
    QCOMPARE(m_sink->events.at(0).time, 4800); // a second, in ticks of the box
    send({0x0202, 9600});
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->closed(1), QList<int>{PortId::lapSensor(1)});
    send({0x0203, 9601});
    QTRY_COMPARE(m_sink->events.size(), 3);
    QCOMPARE(m_sink->closed(2), (QList<int>{PortId::lapSensor(0), PortId::lapSensor(1)}));
}

void tst_CRaceControlIo::aDeactivationIsAPortValueLikeAnyOther()
{
    useLine();
    m_io->start();
    send({0x0301, 100});
    send({0x0300, 200});
    QTRY_COMPARE(m_sink->events.size(), 2);
    QCOMPARE(m_sink->closed(0), QList<int>{PortId::lapSensor(0)});
    QVERIFY(m_sink->closed(1).isEmpty());
    QCOMPARE(m_sink->events.at(1).time, 200);
}

void tst_CRaceControlIo::theMaskTestSeesWhichBitDiffersFromRest_data()
{
    QTest::addColumn<int>("rest");
    QTest::addColumn<int>("mask");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("closed");
    QTest::newRow("the bit of the mask") << 0x0300 << 0x0304 << 0x0204 << true;
    QTest::newRow("another bit") << 0x0300 << 0x0304 << 0x0208 << false;
    QTest::newRow("the code of rest") << 0x0300 << 0x0304 << 0x0300 << false;
    QTest::newRow("a mask like rest") << 0x0300 << 0x0300 << 0x02FF << false;
    QTest::newRow("not assigned") << -1 << -1 << 0x0203 << false;
    QTest::newRow("a whole code as mask") << 0 << 0x0207 << 0x0204 << true;
}

void tst_CRaceControlIo::theMaskTestSeesWhichBitDiffersFromRest()
{
    QFETCH(int, rest);
    QFETCH(int, mask);
    QFETCH(int, code);
    QFETCH(bool, closed);
    for (int id = 0; id < PortId::Count; ++id)
        m_io->setPortState(id, rest, false);
    m_io->setPortState(PortId::sector2Sensor(3), mask, false);
    CRacewayIoEvent event(code, 17);
    m_io->processIoEvent(&event);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->closed(0), closed ? QList<int>{PortId::sector2Sensor(3)} : QList<int>());
    QCOMPARE(m_sink->events.at(0).time, 17);
}

void tst_CRaceControlIo::eventsOfOtherTypesAreIgnored()
{
    CCarreraCuEvent frame("?1000000011");
    QCoreApplication::sendEvent(m_io.get(), &frame);
    QEvent user(QEvent::Type(1029));
    m_io->processIoEvent(&user);
    QCoreApplication::sendPostedEvents();
    QVERIFY(m_sink->events.isEmpty());
}

void tst_CRaceControlIo::outputsAndLearningDoNothing()
{
    useLine();
    const QByteArray before = m_io->writeSettings();
    for (int id = 0; id < PortId::Count; ++id) {
        m_io->setOutput(id, true);
        QCOMPARE(m_io->capturePortState(id), 0);
    }
    QCOMPARE(m_io->writeSettings(), before);
    m_io->decodePortValue(0x0201);
    QCOMPARE(m_io->sensorStates(), QBitArray(65));
    QVERIFY(m_line->received().isEmpty());
}

QTEST_GUILESS_MAIN(tst_CRaceControlIo)
#include "tst_CRaceControlIo.moc"
