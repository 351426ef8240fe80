#include "EventSink.h"
#include "io/CIoWarriorIo.h"
#include "io/CRacewayIoEvent.h"
#include "io/CRacewayIoFactory.h"
#include "support/StreamBytes.h"
#include "support/TestChip.h"

#include <QRandomGenerator>
#include <QThread>
#include <QtTest>

#include <optional>

namespace {

constexpr int BlobSize = 279;

} // namespace

class tst_CIoWarriorIo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void typeIsThatOfTheChip_data();
    void typeIsThatOfTheChip();
    void withoutAChipTheTypeIs2();
    void newInterfaceHasNothingAssigned();
    void factoryForcesTheNamedKindWhateverIsAttached();
    void interfacesShareOneChip();
    void lastInterfaceClosesTheChip();

    void sensorStatesReadTheChip();
    void capturingStoresThePinsAndClearsTheInvertFlag();
    void capturedOpenStateIsWhereTheOutputsReturn();

    void outputSetsAndClearsItsPin();
    void outputOfAnUnassignedPortIdWritesThePinsUnchanged();
    void invertedOutputWithOnTrueClearsItsPin();
    void everyOutputCallWrites();
    void outputOfAnIdOutOfRangeWritesThePinsUnchanged();

    void blobOf279BytesHasItsNumbersInOrder();
    void blobRoundTripKeepsEverything();
    void blobOfTypeCode6OnAMachineWithAnIoWarrior40KeepsItsTypeAndTheReportsOfTheChip();
    void blobThatNamesNoChipOfTheFamilyLeavesTheType();
    void cutBlobLeavesZeros();

    void eachPassOfACarGivesTwoEvents();
    void twoSensorsClosedAtOnceGiveOneEvent();
    void otherEventsAreIgnored();
    void outputChangeWhileTheThreadRunsPostsNoEvent();
    void outputChangeBeforeTheStartPostsNoEvent();
    void outputsWhileTheThreadRunsAreWrittenByTheThread();
    void tenThousandOutputChangesBetweenSensorChangesPostNoEvent_data();
    void tenThousandOutputChangesBetweenSensorChangesPostNoEvent();

    void startWithoutAChipDoesNothing();
    void chipWithoutPinsIsReadInPeace();
    void stopReturnsAtOnceAndTheThreadEnds();
    void deletingARunningInterfaceEndsItsThread();
    void outputsAfterThePulledCableAreHarmless();
    void chipThatAnswersLateDoesNotHoldTheMainThreadUp();
    void secondInterfaceMayBeMadeWhileTheFirstOneReads();

private:
    void make();
    void plug(unsigned productId);
    void startAndRead();
    void letTheThreadRead();
    unsigned count(VirtualIoWarrior::Happening happening) { return m_chip->count(happening); }

    std::optional<TestChip> m_chip;
    std::unique_ptr<EventSink> m_sink;
    std::unique_ptr<CIoWarriorIo> m_io;
};

void tst_CIoWarriorIo::initTestCase()
{
    m_chip.emplace();
}

void tst_CIoWarriorIo::init()
{
    m_sink = std::make_unique<EventSink>();
    plug(TestChip::Warrior56);
}

void tst_CIoWarriorIo::cleanup()
{
    (*m_chip)->setHeld(false);
    m_io.reset();
    m_sink.reset();
}

void tst_CIoWarriorIo::make()
{
    m_io = std::make_unique<CIoWarriorIo>();
    m_io->setReceiver(m_sink.get());
}

void tst_CIoWarriorIo::plug(unsigned productId)
{
    m_io.reset();
    QVERIFY(m_chip->plug(productId));
    make();
}

void tst_CIoWarriorIo::letTheThreadRead()
{
    const unsigned before = count(VirtualIoWarrior::Answered);
    QTRY_VERIFY(count(VirtualIoWarrior::Answered) - before >= 3);
    QCoreApplication::processEvents();
}

void tst_CIoWarriorIo::startAndRead()
{
    m_io->start();
    letTheThreadRead();
}

void tst_CIoWarriorIo::typeIsThatOfTheChip_data()
{
    QTest::addColumn<unsigned>("productId");
    QTest::addColumn<int>("type");
    QTest::newRow("0x1500") << TestChip::Warrior40 << 3;
    QTest::newRow("0x1501") << TestChip::Warrior24 << 2;
    QTest::newRow("0x1502") << TestChip::WithoutPins << 2;
    QTest::newRow("0x1503") << TestChip::Warrior56 << 7;
    QTest::newRow("0x1504") << TestChip::Warrior28 << 6;
    QTest::newRow("0x1505") << TestChip::SmallWarrior28 << 6;
    QTest::newRow("0x1506") << TestChip::Warrior100 << 8;
}

void tst_CIoWarriorIo::typeIsThatOfTheChip()
{
    QFETCH(unsigned, productId);
    QFETCH(int, type);
    plug(productId);
    QCOMPARE(m_io->interfaceType(), type);
}

void tst_CIoWarriorIo::withoutAChipTheTypeIs2()
{
    m_io.reset();
    (*m_chip)->unplug();
    make();
    QCOMPARE(m_io->interfaceType(), 2);
}

void tst_CIoWarriorIo::newInterfaceHasNothingAssigned()
{
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(m_io->portState(id), -1);
        QVERIFY(!m_io->isInverted(id));
    }
    QVERIFY(!m_io->isRunning());
    m_io->setOutput(10, false);
    QCOMPARE((*m_chip)->written(), ~0U);
}

void tst_CIoWarriorIo::factoryForcesTheNamedKindWhateverIsAttached()
{
    for (const unsigned product : {TestChip::Warrior24, TestChip::Warrior56}) {
        plug(product);
        QCOMPARE(CRacewayIoFactory::createIoWarrior24()->interfaceType(), 2);
        QCOMPARE(CRacewayIoFactory::createIoWarrior40()->interfaceType(), 3);
        QCOMPARE(CRacewayIoFactory::createIoWarrior28()->interfaceType(), 6);
        QCOMPARE(CRacewayIoFactory::createIoWarrior56()->interfaceType(), 7);
        QCOMPARE(CRacewayIoFactory::createIoWarrior100()->interfaceType(), 8);
        const auto io = CRacewayIoFactory::createIoWarrior100();
        QVERIFY(qobject_cast<CIoWarriorIo*>(io.get()));
    }
}

void tst_CIoWarriorIo::interfacesShareOneChip()
{
    const unsigned opened = count(VirtualIoWarrior::Opened);
    CIoWarriorIo other;
    other.setPortState(10, 1, false);
    other.setOutput(10, false);
    QCOMPARE(m_io->capturePortState(1), ~1);
    QCOMPARE(count(VirtualIoWarrior::Opened), opened);
}

void tst_CIoWarriorIo::lastInterfaceClosesTheChip()
{
    auto other = std::make_unique<CIoWarriorIo>();
    const unsigned closed = count(VirtualIoWarrior::Closed);
    m_io.reset();
    QCOMPARE(count(VirtualIoWarrior::Closed), closed);
    other.reset();
    QCOMPARE(count(VirtualIoWarrior::Closed), closed + 1);
}

void tst_CIoWarriorIo::sensorStatesReadTheChip()
{
    m_io->setPortState(9, ~0x40, false);
    QCOMPARE(m_io->sensorStates(), QBitArray(65));
    (*m_chip)->pullLow(0x40);
    QCOMPARE(m_io->sensorStates().count(true), 1);
    QVERIFY(m_io->sensorStates().testBit(9));
}

void tst_CIoWarriorIo::capturingStoresThePinsAndClearsTheInvertFlag()
{
    m_io->setPortState(10, 1, true);
    (*m_chip)->pullLow(0x80000010);
    QCOMPARE(m_io->capturePortState(10), 0x7FFFFFEF);
    QCOMPARE(m_io->portState(10), 0x7FFFFFEF);
    QVERIFY(!m_io->isInverted(10));
}

void tst_CIoWarriorIo::capturedOpenStateIsWhereTheOutputsReturn()
{
    (*m_chip)->pullLow(0x30);
    m_io->capturePortState(0);
    (*m_chip)->letGo(0x30);
    m_io->setPortState(10, 1, false);
    m_io->setOutput(10, false);
    QCOMPARE((*m_chip)->written(), ~0x31U);
}

void tst_CIoWarriorIo::outputSetsAndClearsItsPin()
{
    m_io->setPortState(10, 0x01, false);
    m_io->setPortState(11, 0x04, false);
    m_io->setOutput(10, false);
    QCOMPARE((*m_chip)->written(), ~0x01U);
    m_io->setOutput(11, false);
    QCOMPARE((*m_chip)->written(), ~0x05U);
    m_io->setOutput(10, true);
    QCOMPARE((*m_chip)->written(), ~0x04U);
}

void tst_CIoWarriorIo::outputOfAnUnassignedPortIdWritesThePinsUnchanged()
{
    for (const int unassigned : {-1, 0}) {
        for (const bool on : {true, false}) {
            m_io->setPortState(12, unassigned, false);
            m_io->setOutput(12, on);
            QCOMPARE((*m_chip)->written(), ~0U);
        }
    }
}

void tst_CIoWarriorIo::invertedOutputWithOnTrueClearsItsPin()
{
    m_io->setPortState(23, 0x0C, true);
    m_io->setOutput(23, true);
    QCOMPARE((*m_chip)->written(), ~0x0CU);
    m_io->setOutput(23, false);
    QCOMPARE((*m_chip)->written(), ~0U);
}

void tst_CIoWarriorIo::everyOutputCallWrites()
{
    m_io->setPortState(10, 1, false);
    const unsigned before = count(VirtualIoWarrior::Written);
    for (int call = 0; call < 5; ++call)
        m_io->setOutput(10, true);
    QCOMPARE(count(VirtualIoWarrior::Written) - before, 5U);
}

void tst_CIoWarriorIo::outputOfAnIdOutOfRangeWritesThePinsUnchanged()
{
    for (const int id : {65, -1, INT_MAX}) {
        m_io->setOutput(id, false);
        QCOMPARE((*m_chip)->written(), ~0U);
    }
}

void tst_CIoWarriorIo::blobOf279BytesHasItsNumbersInOrder()
{
    for (int id = 0; id < PortId::Count; ++id)
        m_io->setPortState(id, 0x7F000000 + id, id % 2 == 0);
    const QByteArray blob = m_io->writeSettings();
    QCOMPARE(blob.size(), BlobSize);
    QCOMPARE(numberAt(blob, 0), 7);
    QCOMPARE(numberAt(blob, 4), 0x7F000000);
    QCOMPARE(numberAt(blob, 8), 0x7F000009);
    for (int id = 1; id <= 8; ++id)
        QCOMPARE(numberAt(blob, 12 + 4 * (id - 1)), 0x7F000000 + id);
    for (int id = 10; id <= 24; ++id) {
        QCOMPARE(numberAt(blob, 44 + 4 * (id - 10)), 0x7F000000 + id);
        QCOMPARE(int(blob.at(104 + id - 10)), id % 2 == 0 ? 1 : 0);
    }
    for (int id = 25; id <= 64; ++id)
        QCOMPARE(numberAt(blob, 119 + 4 * (id - 25)), 0x7F000000 + id);
}

void tst_CIoWarriorIo::blobRoundTripKeepsEverything()
{
    for (const int type : {2, 3, 6, 7, 8}) {
        QByteArray blob = m_io->writeSettings();
        qToBigEndian<qint32>(type, blob.data());
        for (int i = 4; i < blob.size(); ++i)
            blob[i] = i >= 104 && i < 119 ? char(i % 2) : char(i * type);
        const auto made = CRacewayIoFactory::createFromSettings(blob);
        QVERIFY(qobject_cast<CIoWarriorIo*>(made.get()));
        QCOMPARE(made->interfaceType(), type);
        QCOMPARE(made->writeSettings(), blob);
    }
}

void tst_CIoWarriorIo::blobOfTypeCode6OnAMachineWithAnIoWarrior40KeepsItsTypeAndTheReportsOfTheChip()
{
    plug(TestChip::Warrior40);
    m_io->setPortState(1, ~0x02000000, false);
    m_io->setPortState(10, 0x01000000, false);
    QByteArray blob = m_io->writeSettings();
    qToBigEndian<qint32>(6, blob.data());
    m_io.reset();

    const unsigned refused = count(VirtualIoWarrior::Refused);
    const auto made = CRacewayIoFactory::createFromSettings(blob);
    made->setReceiver(m_sink.get());
    QCOMPARE(made->interfaceType(), 6);
    QCOMPARE(made->writeSettings(), blob);
    made->setOutput(10, false);
    QCOMPARE((*m_chip)->written(), ~0x01000000U);
    made->start();
    letTheThreadRead();
    (*m_chip)->pullLow(0x02000000);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QVERIFY(m_sink->events.at(0).sensors.testBit(1));
    QCOMPARE(count(VirtualIoWarrior::Refused), refused);
}

void tst_CIoWarriorIo::blobThatNamesNoChipOfTheFamilyLeavesTheType()
{
    QByteArray blob = m_io->writeSettings();
    for (const int type : {0, 1, 4, 5, 9, 10, -1, INT_MAX}) {
        qToBigEndian<qint32>(type, blob.data());
        m_io->readSettings(blob);
        QCOMPARE(m_io->interfaceType(), 7);
    }
}

void tst_CIoWarriorIo::cutBlobLeavesZeros()
{
    const QByteArray whole = m_io->writeSettings();
    for (int size = 0; size < whole.size(); ++size) {
        m_io->readSettings(whole.left(size));
        QCOMPARE(m_io->portState(64), 0);
        QCOMPARE(m_io->portState(0), size >= 8 ? -1 : 0);
        QCOMPARE(m_io->portState(24), size >= 104 ? -1 : 0);
        QCOMPARE(m_io->interfaceType(), 7);
    }
}

void tst_CIoWarriorIo::eachPassOfACarGivesTwoEvents()
{
    m_io->setPortState(1, ~0x08, false);
    startAndRead();
    (*m_chip)->pullLow(0x08);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QVERIFY(m_sink->events.at(0).sensors.testBit(1));
    (*m_chip)->letGo(0x08);
    QTRY_COMPARE(m_sink->events.size(), 2);
    QVERIFY(!m_sink->events.at(1).sensors.testBit(1));
    QVERIFY(m_sink->events.at(1).time >= m_sink->events.at(0).time);
}

void tst_CIoWarriorIo::twoSensorsClosedAtOnceGiveOneEvent()
{
    m_io->setPortState(1, ~0x08, false);
    m_io->setPortState(2, ~0x10, false);
    startAndRead();
    (*m_chip)->pullLow(0x18);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->closed(0).mid(0, 2), (QList<int>{1, 2}));
}

void tst_CIoWarriorIo::otherEventsAreIgnored()
{
    QEvent other(QEvent::Type(1027));
    m_io->processIoEvent(&other);
    CRacewayIoEvent raw(~1, 55);
    m_io->processIoEvent(&raw);
    QTRY_COMPARE(m_sink->events.size(), 1);
    QCOMPARE(m_sink->events.at(0).time, 55);
}

void tst_CIoWarriorIo::outputChangeWhileTheThreadRunsPostsNoEvent()
{
    m_io->setPortState(10, 0x01, false);
    startAndRead();
    for (const bool on : {false, true, false}) {
        m_io->setOutput(10, on);
        QTRY_COMPARE((*m_chip)->written(), on ? ~0U : ~0x01U);
        letTheThreadRead();
    }
    QCOMPARE(m_sink->events.size(), 0);
}

void tst_CIoWarriorIo::outputChangeBeforeTheStartPostsNoEvent()
{
    m_io->setPortState(1, ~0x08, false);
    m_io->setPortState(10, 0x01, false);
    (*m_chip)->pullLow(0x10);
    m_io->setOutput(10, false);
    m_io->setOutput(10, false);
    (*m_chip)->pullLow(0x08);
    m_io->start();
    QTRY_COMPARE(m_sink->events.size(), 1); // the sensors alone
    QCOMPARE(m_sink->closed(0), QList<int>{1});
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());
    m_io->setOutput(10, true);
    startAndRead();
    QCOMPARE(m_sink->events.size(), 1);
}

void tst_CIoWarriorIo::outputsWhileTheThreadRunsAreWrittenByTheThread()
{
    m_io->setPortState(10, 0x01, false);
    m_io->setPortState(11, 0x02, false);
    startAndRead();
    const unsigned held = count(VirtualIoWarrior::Held);
    (*m_chip)->setHeld(true);
    QTRY_COMPARE(count(VirtualIoWarrior::Held), held + 1);
    const unsigned written = count(VirtualIoWarrior::Written);
    m_io->setOutput(10, false);
    m_io->setOutput(11, false);
    QCOMPARE(count(VirtualIoWarrior::Written), written);
    (*m_chip)->setHeld(false);
    QTRY_COMPARE((*m_chip)->written(), ~0x03U);
    letTheThreadRead();
    QCOMPARE(count(VirtualIoWarrior::Written), written + 1);
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());
    m_io->setOutput(10, true);
    QCOMPARE((*m_chip)->written(), ~0x02U);
}

void tst_CIoWarriorIo::tenThousandOutputChangesBetweenSensorChangesPostNoEvent_data()
{
    QTest::addColumn<unsigned>("productId");
    QTest::addColumn<unsigned>("seed");
    QTest::newRow("IO-Warrior56") << TestChip::Warrior56 << 1U;
    QTest::newRow("IO-Warrior40, eight times slower") << TestChip::Warrior40 << 2U;
}

void tst_CIoWarriorIo::tenThousandOutputChangesBetweenSensorChangesPostNoEvent()
{
    constexpr int Changes = 10000;
    constexpr int SensorChances = 100; // one in so many steps
    constexpr int LongPauses = 10;     // one in so many
    constexpr quint32 Sensor = 0x00800000;
    QFETCH(unsigned, productId);
    QFETCH(unsigned, seed);
    plug(productId);
    for (int id = 1; id < PortId::Count; ++id)
        m_io->setPortState(id, PortId::isOutput(id) ? 1 << (id - 10) : -1, id % 3 == 0);
    m_io->setPortState(1, int(~Sensor), false);
    startAndRead();

    QRandomGenerator random(seed);
    int sensorChanges = 0;
    for (int change = 0; change < Changes; ++change) {
        m_io->setOutput(10 + random.bounded(15), random.bounded(2) == 1);
        // The next change of the sensor waits until this one has been seen, the outputs don't.
        if (m_sink->events.size() == sensorChanges && random.bounded(SensorChances) == 0) {
            (*m_chip)->flip(Sensor);
            ++sensorChanges;
        }
        // Mostly several changes in a pass, now and then some passes without one.
        QThread::usleep(random.bounded(random.bounded(LongPauses) == 0 ? 5000U : 200U));
        QCoreApplication::processEvents();
        QVERIFY(m_sink->events.size() <= sensorChanges);
    }
    QTRY_COMPARE(m_sink->events.size(), sensorChanges);
    letTheThreadRead();
    QCOMPARE(m_sink->events.size(), sensorChanges);
    QVERIFY2(sensorChanges > 20, qPrintable(QString::number(sensorChanges)));
    for (int i = 0; i < sensorChanges; ++i)
        QCOMPARE(m_sink->events.at(i).sensors.testBit(1), i % 2 == 0);
}

void tst_CIoWarriorIo::startWithoutAChipDoesNothing()
{
    m_io.reset();
    (*m_chip)->unplug();
    make();
    m_io->start();
    QVERIFY(!m_io->isRunning());
    m_io->stop();
    m_io->setPortState(10, 1, false);
    m_io->setOutput(10, true);
    QCOMPARE(m_io->capturePortState(1), -1);
    QCOMPARE(m_io->sensorStates(), QBitArray(65));
}

void tst_CIoWarriorIo::chipWithoutPinsIsReadInPeace()
{
    plug(TestChip::WithoutPins);
    m_io->start();
    QVERIFY(m_io->isRunning());
    m_io->setPortState(10, 1, false);
    m_io->setOutput(10, false);
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());
    QCOMPARE(m_sink->events.size(), 0);
}

void tst_CIoWarriorIo::stopReturnsAtOnceAndTheThreadEnds()
{
    startAndRead();
    const unsigned held = count(VirtualIoWarrior::Held);
    (*m_chip)->setHeld(true);
    QTRY_COMPARE(count(VirtualIoWarrior::Held), held + 1);
    m_io->stop();
    QVERIFY(m_io->isRunning());
    (*m_chip)->setHeld(false);
    QTRY_VERIFY(!m_io->isRunning());
}

void tst_CIoWarriorIo::deletingARunningInterfaceEndsItsThread()
{
    startAndRead();
    const unsigned closed = count(VirtualIoWarrior::Closed);
    m_io.reset();
    QCOMPARE(count(VirtualIoWarrior::Closed), closed + 1);
}

void tst_CIoWarriorIo::outputsAfterThePulledCableAreHarmless()
{
    m_io->setPortState(10, 1, false);
    startAndRead();
    (*m_chip)->unplug();
    for (int change = 0; change < 50; ++change) {
        m_io->setOutput(10, change % 2 == 0);
        QCoreApplication::processEvents();
    }
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());
    m_io->setOutput(10, false);
    QCOMPARE(m_sink->events.size(), 0);
}

void tst_CIoWarriorIo::chipThatAnswersLateDoesNotHoldTheMainThreadUp()
{
    m_io->setPortState(10, 1, false);
    startAndRead();
    const unsigned held = count(VirtualIoWarrior::Held);
    (*m_chip)->setHeld(true);
    QTRY_COMPARE(count(VirtualIoWarrior::Held), held + 1);
    for (int change = 0; change < 50; ++change)
        m_io->setOutput(10, change % 2 == 0);
    QVERIFY(m_io->isRunning());
    QCOMPARE(count(VirtualIoWarrior::Held), held + 1); // the thread is still in the same read
}

void tst_CIoWarriorIo::secondInterfaceMayBeMadeWhileTheFirstOneReads()
{
    m_io->setPortState(1, ~0x08, false);
    startAndRead();
    for (int i = 0; i < 20; ++i) {
        CIoWarriorIo other;
        QCOMPARE(other.capturePortState(1), -1);
    }
    letTheThreadRead();
    QCOMPARE(m_sink->events.size(), 0);
    (*m_chip)->pullLow(0x08);
    QTRY_COMPARE(m_sink->events.size(), 1);
}

QTEST_GUILESS_MAIN(tst_CIoWarriorIo)
#include "tst_CIoWarriorIo.moc"
