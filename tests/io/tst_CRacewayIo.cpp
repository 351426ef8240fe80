#include "EventSink.h"
#include "io/CCarreraCuEvents.h"
#include "io/CDriveThroughEvent.h"
#include "io/CRacewayIo.h"
#include "io/CRacewayIoEvent.h"
#include "support/StreamBytes.h"

#include <QDataStream>
#include <QtTest>

#include <algorithm>

namespace {

/** An interface with masks and without hardware; its blob is that of an IO-Warrior. */
class MaskIo : public CRacewayIo
{
public:
    MaskIo() : CRacewayIo(IoWarrior24) { setAllMasks(127, 127, 0); }

    QBitArray sensorStates() override { return sensors; }
    void setOutput(int, bool) override {}
    int capturePortState(int) override { return 0; }
    void start() override {}
    void stop() override {}
    bool isRunning() const override { return false; }
    void processIoEvent(QEvent* event) override
    {
        processedTypes.append(int(event->type()));
        processPortEvent(event);
    }
    void readSettings(const QByteArray& blob) override
    {
        QDataStream stream(blob);
        stream.setVersion(QDataStream::Qt_5_5);
        qint32 type = 0;
        stream >> type;
        setInterfaceType(type);
        readMasks(stream);
        readTimingMasks(stream);
    }
    QByteArray writeSettings() const override
    {
        QByteArray blob;
        QDataStream stream(&blob, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_5_5);
        stream << qint32(interfaceType());
        writeMasks(stream);
        writeTimingMasks(stream);
        return blob;
    }

    using CRacewayIo::outputShadow;
    using CRacewayIo::setAllMasks;

    QList<int> processedTypes;
};

} // namespace

class tst_CRacewayIo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void maskOf126WithAnOpenStateOf127ReportsClosedAt126AndNothingAt127();
    void maskEqualToTheOpenStateNeverReportsClosed();
    void maskOfZeroReportsClosedWheneverAHighPinHasFallen();
    void openStateAndMaskOfMinusOneNeverReportClosed();
    void theTestIsOnAllBitsOfTheValue();
    void decodingSetsTheBitsOfThe49InputsAlone();
    void decodingForgetsTheSensorsOfTheValueBefore();
    void twoSensorsClosedAtOnceGiveOneEventWithBothBits();
    void releaseOfASensorGivesAnEventWithItsBitClear();
    void theTimeOfTheSourceReachesTheReceiver();
    void rawAndControlUnitEventsAreProcessedAndNoOthers();
    void anEventWithoutAReceiverIsDropped();
    void settingTheOpenStateSetsTheOutputShadowAndTheChaosButtonDoesNot();
    void portIdsOutOfRangeAreZeroAndStoreNothing();
    void invertFlagsBelongToTheOutputsAlone();
    void settingReturnsTheValueGiven();
    void blobOf279BytesHasItsNumbersInOrder();
    void blobRoundTripKeepsEveryMaskAndFlag();
    void openStateOfABlobSetsTheOutputShadow();
    void cutBlobLeavesZerosBehindItsEnd_data();
    void cutBlobLeavesZerosBehindItsEnd();
    void textOfARawEventIsCutAndEnded();
};

void tst_CRacewayIo::maskOf126WithAnOpenStateOf127ReportsClosedAt126AndNothingAt127()
{
    MaskIo io;
    QVERIFY(io.isSensorClosed(126, 126));
    QVERIFY(!io.isSensorClosed(127, 126));
    QVERIFY(!io.isSensorClosed(125, 126));
}

void tst_CRacewayIo::maskEqualToTheOpenStateNeverReportsClosed()
{
    MaskIo io;
    for (int value = -70000; value <= 70000; ++value)
        QVERIFY(!io.isSensorClosed(value, 127));
}

void tst_CRacewayIo::maskOfZeroReportsClosedWheneverAHighPinHasFallen()
{
    MaskIo io;
    for (int value = 0; value <= 255; ++value)
        QCOMPARE(io.isSensorClosed(value, 0), (value & 127) != 127);
}

void tst_CRacewayIo::openStateAndMaskOfMinusOneNeverReportClosed()
{
    MaskIo io;
    io.setAllMasks(-1, -1, -1);
    for (const int value : {0, -1, 1, 127, 255, INT_MAX, INT_MIN})
        QCOMPARE(io.decodePortValue(value).count(true), 0);
}

void tst_CRacewayIo::theTestIsOnAllBitsOfTheValue()
{
    MaskIo io;
    io.setPortState(PortId::Open, -1, false);
    QVERIFY(io.isSensorClosed(INT_MAX, INT_MAX));
    QVERIFY(!io.isSensorClosed(-1, INT_MAX));
    QVERIFY(!io.isSensorClosed(INT_MAX, ~1));
}

void tst_CRacewayIo::decodingSetsTheBitsOfThe49InputsAlone()
{
    MaskIo io;
    io.setAllMasks(127, 0, 0);
    const QBitArray bits = io.decodePortValue(0);
    QCOMPARE(bits.size(), 65);
    QCOMPARE(bits.count(true), 49);
    for (int id = 0; id < bits.size(); ++id)
        QCOMPARE(bits.testBit(id), id != 0 && (id < 10 || id > 24));
}

void tst_CRacewayIo::decodingForgetsTheSensorsOfTheValueBefore()
{
    MaskIo io;
    io.setPortState(1, 126, false);
    QVERIFY(io.decodePortValue(126).testBit(1));
    QVERIFY(io.sensorStates().testBit(1));
    QCOMPARE(io.decodePortValue(127).count(true), 0);
    QCOMPARE(io.sensorStates(), QBitArray(65));
}

void tst_CRacewayIo::twoSensorsClosedAtOnceGiveOneEventWithBothBits()
{
    MaskIo io;
    EventSink sink;
    io.setReceiver(&sink);
    io.setPortState(1, 126, false);
    io.setPortState(2, 125, false);
    QCoreApplication::postEvent(&io, new CRacewayIoEvent(124, 10));
    QTRY_COMPARE(sink.events.size(), 1);
    QCOMPARE(sink.closed(0), (QList<int>{1, 2}));
}

void tst_CRacewayIo::releaseOfASensorGivesAnEventWithItsBitClear()
{
    MaskIo io;
    EventSink sink;
    io.setReceiver(&sink);
    io.setPortState(3, 123, false);
    QCoreApplication::postEvent(&io, new CRacewayIoEvent(123, 10));
    QCoreApplication::postEvent(&io, new CRacewayIoEvent(127, 12));
    QTRY_COMPARE(sink.events.size(), 2);
    QCOMPARE(sink.closed(0), QList<int>{3});
    QCOMPARE(sink.closed(1), QList<int>());
}

void tst_CRacewayIo::theTimeOfTheSourceReachesTheReceiver()
{
    MaskIo io;
    EventSink sink;
    io.setReceiver(&sink);
    QCoreApplication::postEvent(&io, new CRacewayIoEvent(1, INT_MAX));
    QTRY_COMPARE(sink.events.size(), 1);
    QCOMPARE(sink.events.at(0).time, INT_MAX);
}

void tst_CRacewayIo::rawAndControlUnitEventsAreProcessedAndNoOthers()
{
    MaskIo io;
    EventSink sink;
    io.setReceiver(&sink);
    for (int type = 1020; type <= 1030; ++type) {
        if (type != 1026 && type != 1027)
            QCoreApplication::postEvent(&io, new QEvent(QEvent::Type(type)));
    }
    QCoreApplication::postEvent(&io, new CCarreraCuEvent(QStringLiteral("1")));
    QCoreApplication::postEvent(&io, new CRacewayIoEvent(127, 1));
    QTRY_COMPARE(io.processedTypes, (QList<int>{1027, 1026}));
    QCoreApplication::processEvents();
    QCOMPARE(sink.events.size(), 1); // the mask decoding leaves the frame of a Control Unit alone
}

void tst_CRacewayIo::anEventWithoutAReceiverIsDropped()
{
    MaskIo io;
    QTest::ignoreMessage(QtWarningMsg, "QCoreApplication::postEvent: Unexpected null receiver");
    CRacewayIoEvent event(1, 1);
    io.processIoEvent(&event);
    QCOMPARE(io.processedTypes.size(), 1);
}

void tst_CRacewayIo::settingTheOpenStateSetsTheOutputShadowAndTheChaosButtonDoesNot()
{
    MaskIo io;
    io.setPortState(0, 99, false);
    QCOMPARE(io.outputShadow(), 99);
    QCOMPARE(io.portState(0), 99);
    io.setPortState(9, 42, false);
    QCOMPARE(io.outputShadow(), 99);
    QCOMPARE(io.portState(9), 42);
}

void tst_CRacewayIo::portIdsOutOfRangeAreZeroAndStoreNothing()
{
    MaskIo io;
    const QByteArray before = io.writeSettings();
    for (const int id : {65, 66, -1, INT_MAX, INT_MIN}) {
        QCOMPARE(io.setPortState(id, 1, false), 1);
        QCOMPARE(io.portState(id), 0);
        QVERIFY(!io.isInverted(id));
    }
    QCOMPARE(io.writeSettings(), before);
    QCOMPARE(io.outputShadow(), 127);
}

void tst_CRacewayIo::invertFlagsBelongToTheOutputsAlone()
{
    MaskIo io;
    for (int id = 0; id < PortId::Count; ++id) {
        io.setPortState(id, 1, true);
        QCOMPARE(io.isInverted(id), id >= 10 && id <= 24);
    }
    QVERIFY(!io.isInverted(9));
    io.setPortState(10, 1, false);
    QVERIFY(!io.isInverted(10));
}

void tst_CRacewayIo::settingReturnsTheValueGiven()
{
    MaskIo io;
    for (int id = -1; id <= PortId::Count; ++id)
        QCOMPARE(io.setPortState(id, 1000 + id, false), 1000 + id);
}

void tst_CRacewayIo::blobOf279BytesHasItsNumbersInOrder()
{
    MaskIo io;
    for (int id = 0; id < PortId::Count; ++id)
        io.setPortState(id, 0x01020300 + id, id % 2 == 0);
    const QByteArray blob = io.writeSettings();
    QCOMPARE(blob.size(), 279);
    QCOMPARE(blob.left(8), QByteArray::fromHex("0000000201020300"));
    QCOMPARE(numberAt(blob, 8), 0x01020300 + 9);
    for (int id = 1; id <= 8; ++id)
        QCOMPARE(numberAt(blob, 12 + 4 * (id - 1)), 0x01020300 + id);
    for (int id = 10; id <= 24; ++id) {
        QCOMPARE(numberAt(blob, 44 + 4 * (id - 10)), 0x01020300 + id);
        QCOMPARE(int(blob.at(104 + id - 10)), id % 2 == 0 ? 1 : 0);
    }
    for (int id = 25; id <= 64; ++id)
        QCOMPARE(numberAt(blob, 119 + 4 * (id - 25)), 0x01020300 + id);
}

void tst_CRacewayIo::blobRoundTripKeepsEveryMaskAndFlag()
{
    MaskIo io;
    for (int id = 0; id < PortId::Count; ++id)
        io.setPortState(id, -id, id % 3 == 0);
    MaskIo other;
    other.readSettings(io.writeSettings());
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(other.portState(id), -id);
        QCOMPARE(other.isInverted(id), io.isInverted(id));
    }
    QCOMPARE(other.writeSettings(), io.writeSettings());
}

void tst_CRacewayIo::openStateOfABlobSetsTheOutputShadow()
{
    MaskIo io;
    io.setPortState(0, 77, false);
    MaskIo other;
    other.readSettings(io.writeSettings());
    QCOMPARE(other.outputShadow(), 77);
}

void tst_CRacewayIo::cutBlobLeavesZerosBehindItsEnd_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 3, 4, 8, 11, 44, 50, 104, 105, 118, 119, 121, 278})
        QTest::addRow("%d bytes", size) << size;
}

void tst_CRacewayIo::cutBlobLeavesZerosBehindItsEnd()
{
    QFETCH(int, size);
    MaskIo io;
    for (int id = 0; id < PortId::Count; ++id)
        io.setPortState(id, -1, true);
    const QByteArray whole = io.writeSettings();
    MaskIo other;
    other.readSettings(whole.left(size));
    const QByteArray read = other.writeSettings();
    QCOMPARE(read.size(), 279);
    // A number that the cut goes through is lost as a whole; a flag is one byte.
    const int numbersBehindFlags = size >= 119 ? 119 + (size - 119) / 4 * 4 : size;
    const int whole4 = size <= 104 ? size / 4 * 4 : numbersBehindFlags;
    QCOMPARE(read.left(whole4), whole.left(whole4));
    QCOMPARE(read.mid(whole4), QByteArray(279 - whole4, '\0'));
}

void tst_CRacewayIo::textOfARawEventIsCutAndEnded()
{
    CRacewayIoEvent event(1, 2);
    QCOMPARE(event.text()[0], '\0');
    event.setText("23,4567");
    QCOMPARE(event.text(), "23,4567");
    event.setText(QByteArray(100, 'x').constData());
    QCOMPARE(QByteArray(event.text()), QByteArray(31, 'x'));
}

QTEST_GUILESS_MAIN(tst_CRacewayIo)
#include "tst_CRacewayIo.moc"
