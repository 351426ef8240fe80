#include "io/CCarreraCu.h"
#include "io/CCarreraCuEvents.h"
#include "io/CCarreraCuIo.h"
#include "io/CCarreraCuThread.h"
#include "io/CRacewayIoEvent.h"
#include "io/CRacewayIoFactory.h"
#include "io/EventRecorder.h"
#include "io/FakeLine.h"

#include <QtTest>

using Bits = QList<int>;

class tst_CCarreraCuIo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aNewInterfaceHasNothingAssigned();
    void outputsAndLearningDoNothing();
    void aLapFrameYieldsTheLapSensorOfItsCar();
    void theSameLapFrameASecondTimeYieldsNothing();
    void aGroupOfOneFourOrZeroYieldsTheLapSensor_data();
    void aGroupOfOneFourOrZeroYieldsTheLapSensor();
    void groupsTwoAndThreeYieldTheSectorSensors();
    void theTimeStampGoesThroughUnchanged();
    void aFrameWithTheCharacterNineIsIgnored();
    void aFrameThatDoesNotBeginWithAQuestionMarkIsIgnored();
    void aFrameTooShortForTheGroupIsIgnored();
    void anEmptyFrameIsIgnored();
    void eventsOfAnotherTypeAreIgnored();
    void aStatusFrameYieldsTanksAndStartLight();
    void aLongerStatusFrameYieldsTheSame();
    void bitsOfAnEarlierFrameAreGone();
    void randomFramesAreReadWithoutHarm();
    void blobCarriesThePortNameAndAllMasks();
    void anEmptyBlobLeavesZeros();
    void aBlobCutAnywhereIsReadWithoutHarm();
    void thePortNameReachesTheThreadByABlobAlone();
    void theFactoryMakesItFromABlob();
    void withoutAPortTheThreadEndsAtOnce();
    void aPortThatCannotBeOpenedEndsTheThreadAtOnce();
    void aStartRightAfterAStopIsNotSwallowed();
    void aStopRightAfterAStartIsNotLost();
    void anInterfaceThatDiesWhileReadingStopsTheThread();
    void aSecondInterfaceDoesNotDisturbTheOneThatReads();
    void aStartReadsOnItsOwnPortWhateverAnotherInterfaceHasRead();
    void aPortNameThatIsNotYetInABlobDoesNotMoveTheStart();

private:
    void deliver(const QByteArray& frame);
    QByteArray blobWithPort(const QString& name) const;
    void useFakeLine();
    QString portOfTheNextOpening();

    std::unique_ptr<EventRecorder> m_receiver;
    std::unique_ptr<CCarreraCuIo> m_io;
    FakeLineScript m_script;
    QStringList m_openedPorts;
};

void tst_CCarreraCuIo::init()
{
    m_script = FakeLineScript();
    m_openedPorts.clear();
    m_receiver = std::make_unique<EventRecorder>();
    m_io = std::make_unique<CCarreraCuIo>();
    m_io->setReceiver(m_receiver.get());
}

void tst_CCarreraCuIo::cleanup()
{
    m_io.reset();
    m_receiver.reset();
}

void tst_CCarreraCuIo::deliver(const QByteArray& frame)
{
    QCoreApplication::postEvent(m_io.get(), new CCarreraCuEvent(QString::fromLatin1(frame)));
    QCoreApplication::sendPostedEvents(m_io.get());
    QCoreApplication::sendPostedEvents(m_receiver.get());
}

QByteArray tst_CCarreraCuIo::blobWithPort(const QString& name) const
{
    CCarreraCuIo io;
    io.setPortName(name);
    return io.writeSettings();
}

void tst_CCarreraCuIo::useFakeLine()
{
    CCarreraCu::instance()->setPortMaker([this](const QString& name) {
        m_openedPorts.append(name);
        return std::make_unique<FakeLine>(&m_script);
    });
    CCarreraCu::release(); // the thread of m_io holds it
}

/** Starts the interface and stops it. @return the port on which it read */
QString tst_CCarreraCuIo::portOfTheNextOpening()
{
    m_io->start();
    m_io->stop();
    while (m_io->isRunning())
        QThread::yieldCurrentThread();
    return m_openedPorts.isEmpty() ? QString() : m_openedPorts.takeLast();
}

void tst_CCarreraCuIo::aNewInterfaceHasNothingAssigned()
{
    QCOMPARE(m_io->interfaceType(), 5);
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(m_io->portState(id), -1);
        QVERIFY(!m_io->isInverted(id));
    }
    QVERIFY(m_io->portName().isEmpty());
    QVERIFY(!m_io->isRunning());
}

void tst_CCarreraCuIo::outputsAndLearningDoNothing()
{
    const QByteArray before = m_io->writeSettings();
    m_io->setOutput(PortId::redLamp(0), true);
    QCOMPARE(m_io->capturePortState(PortId::lapSensor(0)), 0);
    QCOMPARE(m_io->writeSettings(), before);
    deliver("?10000000012$");
    QCOMPARE(m_io->sensorStates(), QBitArray(65));
}

void tst_CCarreraCuIo::aLapFrameYieldsTheLapSensorOfItsCar()
{
    deliver("?10000000012$");
    QCOMPARE(m_receiver->passes().size(), 1);
    QCOMPARE(m_receiver->passes().first().sensors.size(), 65);
    QCOMPARE(EventRecorder::closed(m_receiver->passes().first()), Bits{1});
    QCOMPARE(m_receiver->passes().first().time, 0);

    for (char car = '2'; car <= '8'; ++car) {
        deliver("?" + QByteArray(1, car) + "0000000010$");
        QCOMPARE(EventRecorder::closed(m_receiver->passes().last()), Bits{car - '0'});
    }
    QCOMPARE(m_receiver->passes().size(), 8);
}

void tst_CCarreraCuIo::theSameLapFrameASecondTimeYieldsNothing()
{
    useFakeLine();
    m_script.reads = {"?10000000012$", "?10000000012$", "?20000000013$"};
    m_io->readSettings(blobWithPort(QStringLiteral("fake")));
    m_io->start();
    QTRY_VERIFY(m_receiver->passes().size() >= 2);
    QCOMPARE(EventRecorder::closed(m_receiver->passes().at(0)), Bits{1});
    QCOMPARE(m_receiver->passes().at(0).time, 0);
    QCOMPARE(EventRecorder::closed(m_receiver->passes().at(1)), Bits{2});
}

void tst_CCarreraCuIo::aGroupOfOneFourOrZeroYieldsTheLapSensor_data()
{
    QTest::addColumn<char>("group");
    QTest::newRow("1") << '1';
    QTest::newRow("4") << '4';
    QTest::newRow("0") << '0';
    QTest::newRow("15") << '?';
}

void tst_CCarreraCuIo::aGroupOfOneFourOrZeroYieldsTheLapSensor()
{
    QFETCH(char, group);
    deliver("?300000000" + QByteArray(1, group) + "0$");
    QCOMPARE(m_receiver->passes().size(), 1);
    QCOMPARE(EventRecorder::closed(m_receiver->passes().first()), Bits{3});
}

void tst_CCarreraCuIo::groupsTwoAndThreeYieldTheSectorSensors()
{
    for (int car = 1; car <= 8; ++car) {
        deliver("?" + QByteArray::number(car) + "0000000020$");
        QCOMPARE(EventRecorder::closed(m_receiver->passes().last()), Bits{40 + car});
        deliver("?" + QByteArray::number(car) + "0000000030$");
        QCOMPARE(EventRecorder::closed(m_receiver->passes().last()), Bits{48 + car});
    }
    QCOMPARE(m_receiver->passes().size(), 16);
}

void tst_CCarreraCuIo::theTimeStampGoesThroughUnchanged()
{
    deliver("?1000061>210$"); // 0x162e
    QCOMPARE(m_receiver->passes().last().time, 5678);
    deliver("?1????????10$"); // the unit's clock has 32 bits without a sign
    QCOMPARE(quint32(m_receiver->passes().last().time), quint32(0xffffffff));
}

void tst_CCarreraCuIo::aFrameWithTheCharacterNineIsIgnored()
{
    deliver("?9000000001:$");
    deliver("?00000000011$");
    QVERIFY(m_receiver->passes().isEmpty());
    QVERIFY(m_receiver->states().isEmpty());
}

void tst_CCarreraCuIo::aFrameThatDoesNotBeginWithAQuestionMarkIsIgnored()
{
    deliver("x10000000012$");
    deliver("x:??????00700083$");
    deliver("0533781$");
    QVERIFY(m_receiver->passes().isEmpty());
    QVERIFY(m_receiver->states().isEmpty());
}

void tst_CCarreraCuIo::aFrameTooShortForTheGroupIsIgnored()
{
    deliver("?0$");
    deliver("?1$");
    deliver("?100000001$");
    deliver("?1000000012$");
    deliver("?1");
    deliver("?:?????$");
    QVERIFY(m_receiver->passes().isEmpty());
    QVERIFY(m_receiver->states().isEmpty());
}

void tst_CCarreraCuIo::anEmptyFrameIsIgnored()
{
    deliver("");
    deliver("?");
    QVERIFY(m_receiver->passes().isEmpty());
    QVERIFY(m_receiver->states().isEmpty());
}

void tst_CCarreraCuIo::eventsOfAnotherTypeAreIgnored()
{
    CRacewayIoEvent raw(1, 1);
    m_io->processIoEvent(&raw);
    QEvent other(QEvent::User);
    m_io->processIoEvent(&other);
    QCoreApplication::sendPostedEvents(m_receiver.get());
    QVERIFY(m_receiver->passes().isEmpty());
    QVERIFY(m_receiver->states().isEmpty());
    QCOMPARE(m_receiver->others(), 0);
}

void tst_CCarreraCuIo::aStatusFrameYieldsTanksAndStartLight()
{
    deliver("?:0159<?==4000080$");
    QCOMPARE(m_receiver->states().size(), 1);
    const std::array<quint8, 6> levels{{0, 1, 5, 9, 12, 15}};
    QVERIFY(m_receiver->states().first().fuel() == levels);
    QCOMPARE(int(m_receiver->states().first().startLight()), 4);
    QVERIFY(m_receiver->passes().isEmpty());
}

void tst_CCarreraCuIo::aLongerStatusFrameYieldsTheSame()
{
    deliver("?:??????0070008003$");
    QCOMPARE(m_receiver->states().size(), 1);
    const std::array<quint8, 6> levels{{15, 15, 15, 15, 15, 15}};
    QVERIFY(m_receiver->states().first().fuel() == levels);
    QCOMPARE(int(m_receiver->states().first().startLight()), 7);
}

void tst_CCarreraCuIo::bitsOfAnEarlierFrameAreGone()
{
    deliver("?10000000012$");
    deliver("?20000000013$");
    QCOMPARE(EventRecorder::closed(m_receiver->passes().last()), Bits{2});
    QCOMPARE(EventRecorder::closed(m_receiver->passes().first()), Bits{1});
}

void tst_CCarreraCuIo::randomFramesAreReadWithoutHarm()
{
    QRandomGenerator random(1028);
    for (int round = 0; round < 5000; ++round) {
        QByteArray frame("?");
        const int length = random.bounded(25);
        for (int i = 0; i < length; ++i)
            frame += char(random.bounded(256));
        deliver(frame + '$');
    }
    QVERIFY(!m_receiver->passes().isEmpty());
    for (const EventRecorder::Pass& pass : m_receiver->passes()) {
        QCOMPARE(pass.sensors.count(true), 1);
        const int bit = EventRecorder::closed(pass).first();
        QVERIFY((bit >= 1 && bit <= 8) || (bit >= 41 && bit <= 56));
    }
    for (const CCarreraCuStatusEvent& state : m_receiver->states())
        QVERIFY(state.startLight() <= 15 && state.fuel()[0] <= 15);
}

void tst_CCarreraCuIo::blobCarriesThePortNameAndAllMasks()
{
    const QString name = QStringLiteral("ttyUSB0");
    m_io->setPortName(name);
    for (int id = 0; id < PortId::Count; ++id)
        m_io->setPortState(id, 1000 + id, id % 2 == 0);
    const QByteArray blob = m_io->writeSettings();
    QCOMPARE(blob.size(), 279 + 4 + 2 * name.size());
    QCOMPARE(blob.left(8), QByteArray("\0\0\0\5\0\0\0\016", 8));

    CCarreraCuIo copy;
    copy.readSettings(blob);
    QCOMPARE(copy.portName(), name);
    QCOMPARE(copy.interfaceType(), 5);
    for (int id = 0; id < PortId::Count; ++id) {
        QCOMPARE(copy.portState(id), 1000 + id);
        QCOMPARE(copy.isInverted(id), PortId::isOutput(id) && id % 2 == 0);
    }
    QCOMPARE(copy.writeSettings(), blob);
}

void tst_CCarreraCuIo::anEmptyBlobLeavesZeros()
{
    m_io->setPortName(QStringLiteral("before"));
    m_io->readSettings(QByteArray());
    QVERIFY(m_io->portName().isEmpty());
    for (int id = 0; id < PortId::Count; ++id)
        QCOMPARE(m_io->portState(id), 0);
    QCOMPARE(m_io->interfaceType(), 5);
}

void tst_CCarreraCuIo::aBlobCutAnywhereIsReadWithoutHarm()
{
    const QByteArray blob = blobWithPort(QStringLiteral("/dev/ttyUSB0"));
    for (int size = 0; size < blob.size(); ++size) {
        m_io->readSettings(blob.left(size));
        QCOMPARE(m_io->portState(64), 0);
        QCOMPARE(m_io->interfaceType(), 5);
    }
    m_io->readSettings(blob);
    QCOMPARE(m_io->portState(64), -1);
    QCOMPARE(m_io->portName(), QStringLiteral("/dev/ttyUSB0"));
}

void tst_CCarreraCuIo::thePortNameReachesTheThreadByABlobAlone()
{
    const CCarreraCuThread* thread = CCarreraCuThread::instance();
    m_io->readSettings(blobWithPort(QStringLiteral("ttyS1")));
    QCOMPARE(thread->portName(), QStringLiteral("ttyS1"));
    m_io->setPortName(QStringLiteral("ttyS2"));
    QCOMPARE(thread->portName(), QStringLiteral("ttyS1"));
    CCarreraCuThread::release();
}

void tst_CCarreraCuIo::theFactoryMakesItFromABlob()
{
    const auto io = CRacewayIoFactory::createFromSettings(blobWithPort(QStringLiteral("ttyS3")));
    const auto* carreraCu = qobject_cast<const CCarreraCuIo*>(io.get());
    QVERIFY(carreraCu);
    QCOMPARE(carreraCu->portName(), QStringLiteral("ttyS3"));
    QCOMPARE(CRacewayIoFactory::createCarreraCu()->interfaceType(), 5);
}

void tst_CCarreraCuIo::withoutAPortTheThreadEndsAtOnce()
{
    m_io->start();
    QTRY_VERIFY(!m_io->isRunning());
}

void tst_CCarreraCuIo::aPortThatCannotBeOpenedEndsTheThreadAtOnce()
{
    useFakeLine();
    m_script.opens = false;
    m_io->readSettings(blobWithPort(QStringLiteral("fake")));
    m_io->start();
    QTRY_VERIFY(!m_io->isRunning());
    QCOMPARE(m_script.writes, 0);

    m_script.opens = true;
    m_script.reads = {"?10000000012$"};
    m_io->start();
    QTRY_COMPARE(m_receiver->passes().size(), 1);
}

void tst_CCarreraCuIo::aStartRightAfterAStopIsNotSwallowed()
{
    useFakeLine();
    m_io->readSettings(blobWithPort(QStringLiteral("fake")));
    for (int round = 0; round < 20; ++round) {
        m_io->start();
        QVERIFY(m_io->isRunning());
        m_io->stop();
    }
    m_io->start();
    QVERIFY(m_io->isRunning());
    m_io->stop();
    QTRY_VERIFY(!m_io->isRunning());
}

void tst_CCarreraCuIo::aStopRightAfterAStartIsNotLost()
{
    useFakeLine();
    m_io->readSettings(blobWithPort(QStringLiteral("fake")));
    for (int round = 0; round < 50; ++round) {
        m_io->start();
        m_io->stop();
        QTRY_VERIFY(!m_io->isRunning());
    }
}

void tst_CCarreraCuIo::anInterfaceThatDiesWhileReadingStopsTheThread()
{
    useFakeLine();
    CCarreraCuThread* thread = CCarreraCuThread::instance();
    m_io->readSettings(blobWithPort(QStringLiteral("fake")));
    m_io->start();
    QVERIFY(thread->isRunning());
    m_io.reset();
    QVERIFY(!thread->isRunning());
    QVERIFY(!thread->target());
    CCarreraCuThread::release();
}

void tst_CCarreraCuIo::aSecondInterfaceDoesNotDisturbTheOneThatReads()
{
    useFakeLine();
    m_script.reads = {"?10000000012$"};
    m_io->readSettings(blobWithPort(QStringLiteral("fake")));
    m_io->start();
    {
        CCarreraCuIo second;
        second.start();
        QVERIFY(second.isRunning());
    }
    QVERIFY(m_io->isRunning());
    QTRY_COMPARE(m_receiver->passes().size(), 1);
}

void tst_CCarreraCuIo::aStartReadsOnItsOwnPortWhateverAnotherInterfaceHasRead()
{
    useFakeLine();
    m_io->readSettings(blobWithPort(QStringLiteral("mine")));
    {
        CCarreraCuIo other;
        other.readSettings(blobWithPort(QStringLiteral("other's")));
        QCOMPARE(portOfTheNextOpening(), QStringLiteral("mine"));
        other.readSettings(blobWithPort(QString()));
    }
    QCOMPARE(portOfTheNextOpening(), QStringLiteral("mine"));
}

void tst_CCarreraCuIo::aPortNameThatIsNotYetInABlobDoesNotMoveTheStart()
{
    useFakeLine();
    m_io->readSettings(blobWithPort(QStringLiteral("read")));
    m_io->setPortName(QStringLiteral("chosen"));
    QCOMPARE(portOfTheNextOpening(), QStringLiteral("read"));
    m_io->readSettings(m_io->writeSettings());
    QCOMPARE(portOfTheNextOpening(), QStringLiteral("chosen"));
}

QTEST_GUILESS_MAIN(tst_CCarreraCuIo)
#include "tst_CCarreraCuIo.moc"
