#include "io/CIoWarriorIo.h"
#include "io/CParallelPortIo.h"
#include "io/CRacewayIoFactory.h"

#include <QDataStream>
#include <QLibrary>
#include <QRandomGenerator>
#include <QtTest>

class tst_CRacewayIoFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parallelPortHasTheDefaultRegisters();
    void parallelPortWithAddressAndOffsets();
    void blobOfAParallelPortMakesItAgainByteForByte();
    void blobThatNamesNoInterfaceMakesAParallelPort_data();
    void blobThatNamesNoInterfaceMakesAParallelPort();
    void emptyBlobLeavesZerosInEveryField();
    void ioWarriorWithoutItsLibraryIsQuiet_data();
    void ioWarriorWithoutItsLibraryIsQuiet();
    void randomBlobsMakeAnInterfaceEachTime();
};

namespace {

QByteArray blobOfType(qint32 type)
{
    QByteArray blob;
    QDataStream stream(&blob, QIODevice::WriteOnly);
    stream << type;
    return blob;
}

} // namespace

void tst_CRacewayIoFactory::parallelPortHasTheDefaultRegisters()
{
    const auto io = CRacewayIoFactory::createParallelPort();
    const auto* port = qobject_cast<CParallelPortIo*>(io.get());
    QVERIFY(port);
    QCOMPARE(io->interfaceType(), 1);
    QCOMPARE(port->baseAddress(), 888);
    QCOMPARE(port->inputOffset(), 1);
    QCOMPARE(port->outputOffset(), 0);
}

void tst_CRacewayIoFactory::parallelPortWithAddressAndOffsets()
{
    const auto io = CRacewayIoFactory::createParallelPort(0x278, 0, 2);
    const auto* port = qobject_cast<CParallelPortIo*>(io.get());
    QVERIFY(port);
    QCOMPARE(port->baseAddress(), 0x278);
    QCOMPARE(port->inputOffset(), 0);
    QCOMPARE(port->outputOffset(), 2);
    QCOMPARE(io->portState(PortId::Open), 127);
}

void tst_CRacewayIoFactory::blobOfAParallelPortMakesItAgainByteForByte()
{
    CParallelPortIo io(0x3BC, 2, 1);
    for (int id = 0; id < PortId::Count; ++id)
        io.setPortState(id, id * 3, id % 2 == 0);
    const QByteArray blob = io.writeSettings();
    const auto made = CRacewayIoFactory::createFromSettings(blob);
    QVERIFY(qobject_cast<CParallelPortIo*>(made.get()));
    QCOMPARE(made->writeSettings(), blob);
    QVERIFY(!made->isRunning());
}

void tst_CRacewayIoFactory::blobThatNamesNoInterfaceMakesAParallelPort_data()
{
    QTest::addColumn<QByteArray>("blob");
    QTest::newRow("no blob") << QByteArray();
    QTest::newRow("type code 0") << blobOfType(0);
    QTest::newRow("type code 10") << blobOfType(10);
    QTest::newRow("type code -1") << blobOfType(-1);
    QTest::newRow("largest number") << blobOfType(INT_MAX);
    QTest::newRow("less than a type code") << QByteArray::fromHex("000005");
    QTest::newRow("junk") << QByteArray("\xff\x00 junk \x7f", 9);
}

void tst_CRacewayIoFactory::blobThatNamesNoInterfaceMakesAParallelPort()
{
    QFETCH(QByteArray, blob);
    const auto io = CRacewayIoFactory::createFromSettings(blob);
    QVERIFY(qobject_cast<CParallelPortIo*>(io.get()));
    QCOMPARE(io->interfaceType(), 1);
}

void tst_CRacewayIoFactory::emptyBlobLeavesZerosInEveryField()
{
    const auto io = CRacewayIoFactory::createFromSettings(QByteArray());
    const QByteArray blob = io->writeSettings();
    QCOMPARE(blob.size(), 291);
    QCOMPARE(blob, blobOfType(1) + QByteArray(287, '\0'));
}

void tst_CRacewayIoFactory::ioWarriorWithoutItsLibraryIsQuiet_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("IO-Warrior24") << 2;
    QTest::newRow("IO-Warrior40") << 3;
    QTest::newRow("IO-Warrior28") << 6;
    QTest::newRow("IO-Warrior56") << 7;
    QTest::newRow("IO-Warrior100") << 8;
}

void tst_CRacewayIoFactory::ioWarriorWithoutItsLibraryIsQuiet()
{
    if (QLibrary(QStringLiteral("iowkit")).load())
        QSKIP("the library is installed here");
    QFETCH(int, type);
    const QByteArray blob = blobOfType(type) + QByteArray(275, '\xFF');
    const auto io = CRacewayIoFactory::createFromSettings(blob);
    QVERIFY(qobject_cast<CIoWarriorIo*>(io.get()));
    QCOMPARE(io->interfaceType(), type);
    QCOMPARE(io->sensorStates(), QBitArray(65));
    QCOMPARE(io->capturePortState(1), -1);
    io->setOutput(10, true);
    io->start();
    QVERIFY(!io->isRunning());
    io->stop();
}

void tst_CRacewayIoFactory::randomBlobsMakeAnInterfaceEachTime()
{
    QRandomGenerator random(20);
    for (int run = 0; run < 500; ++run) {
        QByteArray blob(random.bounded(400), Qt::Uninitialized);
        std::generate(blob.begin(), blob.end(), [&random] { return char(random.bounded(256)); });
        const auto io = CRacewayIoFactory::createFromSettings(blob);
        QVERIFY(io);
        for (int id = 0; id < PortId::Count; ++id)
            io->setOutput(id, true);
        QCOMPARE(io->sensorStates().size(), 65);
        QCOMPARE(CRacewayIoFactory::createFromSettings(io->writeSettings())->writeSettings(),
                 io->writeSettings());
    }
}

QTEST_GUILESS_MAIN(tst_CRacewayIoFactory)
#include "tst_CRacewayIoFactory.moc"
