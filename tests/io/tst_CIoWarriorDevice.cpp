#include "io/CIoWarriorDevice.h"
#include "support/TestChip.h"

#include <QtTest>

#include <array>
#include <optional>

class tst_CIoWarriorDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void openingRaisesAllPins();
    void everyUserGetsTheSameObject();
    void lastReleaseClosesTheHandle();
    void releaseTooManyIsHarmless();

    void chipIsReadAndWrittenInItsOwnSizes_data();
    void chipIsReadAndWrittenInItsOwnSizes();
    void valueGoesOutAndComesInLowestByteFirst();
    void pinWrittenHighReadsWhatTheOutsideDoes();
    void pinWrittenLowReadsLow();
    void everyWriteSetsTheTimeoutBefore();
    void readingAsksOnceAndTakesOneAnswer();
    void bytesBehindTheValueAreZero_data();
    void bytesBehindTheValueAreZero();
    void pinCountOf0x1502Is0();
    void chipWithoutPinsReadsMinusOneAndTakesNoWrite();
    void pinCountAsksTheDeviceEachTime();

    void withoutADeviceReadingGivesMinusOne();
    void withoutADeviceWritingCallsTheLibraryAllTheSame();
    void pulledCableGivesTheLastValue();
    void cableThatIsPulledBeforeTheFirstAnswerReadsAllPinsHigh();
    void cablePulledDuringAReadEndsIt();
    void lostAnswerEndsTheReadAfterASecond();
    void answerThatDoesNotComeInTimeIsThatOfTheNextCall();
    void devicePluggedInLaterIsFoundByANewObject();
    void deviceThatCameBackIsFoundByANewObject();

private:
    /** Opens the chip that is plugged in now. */
    CIoWarriorDevice& open();
    void close();

    std::optional<TestChip> m_chip;
    CIoWarriorDevice* m_device = nullptr;
};

void tst_CIoWarriorDevice::initTestCase()
{
    m_chip.emplace();
}

void tst_CIoWarriorDevice::init()
{
    QVERIFY(m_chip->plug(TestChip::Warrior40));
}

void tst_CIoWarriorDevice::cleanup()
{
    close();
}

CIoWarriorDevice& tst_CIoWarriorDevice::open()
{
    close();
    m_device = CIoWarriorDevice::instance();
    return *m_device;
}

void tst_CIoWarriorDevice::close()
{
    if (m_device)
        CIoWarriorDevice::release();
    m_device = nullptr;
}

void tst_CIoWarriorDevice::openingRaisesAllPins()
{
    const std::array<char, 5> allLow{};
    QVERIFY((*m_chip)->takePins(allLow.data(), allLow.size()));
    QCOMPARE((*m_chip)->written(), 0U);
    QVERIFY(open().isOpen());
    QCOMPARE((*m_chip)->written(), 0xFFFFFFFFU);
}

void tst_CIoWarriorDevice::everyUserGetsTheSameObject()
{
    CIoWarriorDevice& device = open();
    const unsigned opened = m_chip->count(VirtualIoWarrior::Opened);
    QCOMPARE(CIoWarriorDevice::instance(), &device);
    CIoWarriorDevice::release();
    QCOMPARE(m_chip->count(VirtualIoWarrior::Opened), opened);
    QCOMPARE(device.read(), -1);
}

void tst_CIoWarriorDevice::lastReleaseClosesTheHandle()
{
    open();
    CIoWarriorDevice::instance();
    const unsigned closed = m_chip->count(VirtualIoWarrior::Closed);
    CIoWarriorDevice::release();
    QCOMPARE(m_chip->count(VirtualIoWarrior::Closed), closed);
    close();
    QCOMPARE(m_chip->count(VirtualIoWarrior::Closed), closed + 1);
}

void tst_CIoWarriorDevice::releaseTooManyIsHarmless()
{
    CIoWarriorDevice::release();
    CIoWarriorDevice::release();
    QVERIFY(open().isOpen());
}

void tst_CIoWarriorDevice::chipIsReadAndWrittenInItsOwnSizes_data()
{
    QTest::addColumn<unsigned>("productId");
    QTest::addColumn<unsigned>("pins"); // those of the first 32 that the chip has
    QTest::addColumn<int>("pinCount");
    QTest::newRow("IO-Warrior40") << TestChip::Warrior40 << 0xFFFFFFFFU << 32;
    QTest::newRow("IO-Warrior24") << TestChip::Warrior24 << 0x0000FFFFU << 16;
    QTest::newRow("IO-Warrior56") << TestChip::Warrior56 << 0xFFFFFFFFU << 50;
    QTest::newRow("IO-Warrior28") << TestChip::Warrior28 << 0x8003FFFFU << 19;
    QTest::newRow("small IO-Warrior28") << TestChip::SmallWarrior28 << 0x8000FFFFU << 17;
    QTest::newRow("IO-Warrior100") << TestChip::Warrior100 << 0xFFFFFFFFU << 82;
}

void tst_CIoWarriorDevice::chipIsReadAndWrittenInItsOwnSizes()
{
    QFETCH(unsigned, productId);
    QFETCH(unsigned, pins);
    QFETCH(int, pinCount);
    QVERIFY(m_chip->plug(productId));
    const unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    CIoWarriorDevice& device = open();
    QVERIFY(device.isOpen());
    QCOMPARE(device.pinCount(), pinCount);
    QCOMPARE(quint32(device.read()), pins);
    QVERIFY(device.isAnswering());
    device.write(0x12345678);
    QCOMPARE((*m_chip)->written() & pins, 0x12345678U & pins);
    QCOMPARE(quint32(device.read()), 0x12345678U & pins);
    QCOMPARE(m_chip->count(VirtualIoWarrior::Refused), refused);
}

void tst_CIoWarriorDevice::valueGoesOutAndComesInLowestByteFirst()
{
    CIoWarriorDevice& device = open();
    device.write(~0x0A000001);
    QCOMPARE((*m_chip)->pins(), ~0x0A000001U);
    QCOMPARE(device.read(), ~0x0A000001);
    (*m_chip)->pullLow(0x00800200);
    QCOMPARE(device.read(), ~0x0A800201);
    (*m_chip)->pullLow(0x80000000);
    QCOMPARE(device.read(), 0x757FFDFE);
}

void tst_CIoWarriorDevice::pinWrittenHighReadsWhatTheOutsideDoes()
{
    CIoWarriorDevice& device = open();
    (*m_chip)->pullLow(4);
    QCOMPARE(device.read(), ~4);
    device.write(-1);
    QCOMPARE(device.read(), ~4);
    (*m_chip)->letGo(4);
    QCOMPARE(device.read(), -1);
}

void tst_CIoWarriorDevice::pinWrittenLowReadsLow()
{
    CIoWarriorDevice& device = open();
    device.write(~2);
    QCOMPARE(device.read(), ~2);
    (*m_chip)->pullLow(2);
    QCOMPARE(device.read(), ~2);
    (*m_chip)->letGo(2);
    QCOMPARE(device.read(), ~2);
}

void tst_CIoWarriorDevice::everyWriteSetsTheTimeoutBefore()
{
    CIoWarriorDevice& device = open();
    (*m_chip)->setWriteTimeout(1);
    device.write(-1);
    QCOMPARE((*m_chip)->writeTimeout(), 1000U);
}

void tst_CIoWarriorDevice::readingAsksOnceAndTakesOneAnswer()
{
    CIoWarriorDevice& device = open();
    const unsigned asked = m_chip->count(VirtualIoWarrior::Asked);
    const unsigned answered = m_chip->count(VirtualIoWarrior::Answered);
    const unsigned written = m_chip->count(VirtualIoWarrior::Written);
    device.read();
    device.read();
    QCOMPARE(m_chip->count(VirtualIoWarrior::Asked), asked + 2);
    QCOMPARE(m_chip->count(VirtualIoWarrior::Answered), answered + 2);
    QCOMPARE(m_chip->count(VirtualIoWarrior::Written), written);
}

void tst_CIoWarriorDevice::bytesBehindTheValueAreZero_data()
{
    QTest::addColumn<unsigned>("productId");
    QTest::addColumn<quint64>("highPins"); // from pin 32 on: those that the report doesn't reach
    QTest::newRow("IO-Warrior40") << TestChip::Warrior40 << ~quint64(0);
    QTest::newRow("IO-Warrior56") << TestChip::Warrior56 << ~quint64(0xFFFFFF);
    QTest::newRow("IO-Warrior100") << TestChip::Warrior100 << quint64(0);
}

void tst_CIoWarriorDevice::bytesBehindTheValueAreZero()
{
    QFETCH(unsigned, productId);
    QFETCH(quint64, highPins);
    QVERIFY(m_chip->plug(productId));
    QCOMPARE((*m_chip)->writtenAbove(), ~quint64(0));
    open().write(-1);
    QCOMPARE((*m_chip)->written(), 0xFFFFFFFFU);
    QCOMPARE((*m_chip)->writtenAbove(), highPins);
}

void tst_CIoWarriorDevice::pinCountOf0x1502Is0()
{
    QVERIFY(m_chip->plug(TestChip::WithoutPins));
    CIoWarriorDevice& device = open();
    QVERIFY(device.isOpen());
    QCOMPARE(device.pinCount(), 0);
}

void tst_CIoWarriorDevice::chipWithoutPinsReadsMinusOneAndTakesNoWrite()
{
    QVERIFY(m_chip->plug(TestChip::WithoutPins));
    const unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    CIoWarriorDevice& device = open();
    device.write(0);
    QCOMPARE(device.read(), -1);
    QVERIFY(!device.isAnswering());
    QCOMPARE((*m_chip)->writeTimeout(), 0U);
    QCOMPARE(m_chip->count(VirtualIoWarrior::Refused), refused);
}

void tst_CIoWarriorDevice::pinCountAsksTheDeviceEachTime()
{
    CIoWarriorDevice& device = open();
    QCOMPARE(device.pinCount(), 32);
    (*m_chip)->unplug();
    QCOMPARE(device.pinCount(), 0);
}

void tst_CIoWarriorDevice::withoutADeviceReadingGivesMinusOne()
{
    (*m_chip)->unplug();
    const unsigned asked = m_chip->count(VirtualIoWarrior::Asked);
    CIoWarriorDevice& device = open();
    QVERIFY(!device.isOpen());
    QCOMPARE(device.read(), -1);
    QCOMPARE(device.pinCount(), 0);
    QCOMPARE(m_chip->count(VirtualIoWarrior::Asked), asked);
}

void tst_CIoWarriorDevice::withoutADeviceWritingCallsTheLibraryAllTheSame()
{
    (*m_chip)->unplug();
    CIoWarriorDevice& device = open();
    const unsigned refused = m_chip->count(VirtualIoWarrior::Refused);
    device.write(5);
    QCOMPARE(m_chip->count(VirtualIoWarrior::Refused), refused + 2); // the time-out and the report
    close();
}

void tst_CIoWarriorDevice::pulledCableGivesTheLastValue()
{
    CIoWarriorDevice& device = open();
    (*m_chip)->pullLow(0x40);
    QCOMPARE(device.read(), ~0x40);
    (*m_chip)->unplug();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(device.read(), ~0x40);
        QVERIFY(!device.isAnswering());
    }
    QVERIFY(device.isOpen());
    device.write(0);
    QCOMPARE(device.read(), ~0x40);
}

void tst_CIoWarriorDevice::cableThatIsPulledBeforeTheFirstAnswerReadsAllPinsHigh()
{
    CIoWarriorDevice& device = open();
    (*m_chip)->pullLow(0x40);
    (*m_chip)->unplug();
    QCOMPARE(device.read(), -1);
}

void tst_CIoWarriorDevice::cablePulledDuringAReadEndsIt()
{
    CIoWarriorDevice& device = open();
    const unsigned held = m_chip->count(VirtualIoWarrior::Held);
    (*m_chip)->setHeld(true);
    std::atomic<int> value{0};
    const std::unique_ptr<QThread> reader(QThread::create([&] { value = device.read(); }));
    reader->start();
    QTRY_COMPARE(m_chip->count(VirtualIoWarrior::Held), held + 1);
    QVERIFY(reader->isRunning());
    (*m_chip)->unplug();
    QVERIFY(reader->wait());
    QCOMPARE(value.load(), -1);
}

void tst_CIoWarriorDevice::lostAnswerEndsTheReadAfterASecond()
{
    CIoWarriorDevice& device = open();
    (*m_chip)->pullLow(2);
    QCOMPARE(device.read(), ~2);
    QCOMPARE((*m_chip)->readTimeout(), 1000U);
    (*m_chip)->setSilent(true);
    (*m_chip)->letGo(2);
    QCOMPARE(device.read(), ~2);
    QVERIFY(!device.isAnswering());
    (*m_chip)->setSilent(false);
    QCOMPARE(device.read(), -1);
    QVERIFY(device.isAnswering());
}

void tst_CIoWarriorDevice::answerThatDoesNotComeInTimeIsThatOfTheNextCall()
{
    CIoWarriorDevice& device = open();
    (*m_chip)->pullLow(2);
    (*m_chip)->setAnswerTime(200);
    device.ask();
    QCOMPARE(device.takeAnswer(5), -1);
    QVERIFY(!device.isAnswering());
    QCOMPARE((*m_chip)->readTimeout(), 5U);
    QCOMPARE(device.takeAnswer(5000), ~2);
    QVERIFY(device.isAnswering());
}

void tst_CIoWarriorDevice::devicePluggedInLaterIsFoundByANewObject()
{
    (*m_chip)->unplug();
    CIoWarriorDevice& device = open();
    QVERIFY(m_chip->plug(TestChip::Warrior24));
    QVERIFY(!device.isOpen());
    QCOMPARE(device.read(), -1);
    CIoWarriorDevice::instance();
    CIoWarriorDevice::release();
    QVERIFY(!device.isOpen());
    QVERIFY(open().isOpen());
    QCOMPARE(m_device->read(), 0xFFFF);
}

void tst_CIoWarriorDevice::deviceThatCameBackIsFoundByANewObject()
{
    CIoWarriorDevice& device = open();
    QCOMPARE(device.read(), -1);
    (*m_chip)->unplug();
    QVERIFY(m_chip->plug(TestChip::Warrior40));
    (*m_chip)->pullLow(8);
    QCOMPARE(device.read(), -1);
    QCOMPARE(open().read(), ~8);
}

QTEST_GUILESS_MAIN(tst_CIoWarriorDevice)
#include "tst_CIoWarriorDevice.moc"
