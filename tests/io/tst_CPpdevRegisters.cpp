#include "io/CPpdevRegisters.h"

#include <QtTest>

#include <linux/ppdev.h>
#include <sys/ioctl.h>

namespace {

/** The registers of the ports in a temporary directory, which a test's own `ioctl` answers. */
class FakeKernel : public CPpdevRegisters
{
public:
    explicit FakeKernel(const QString& root)
        : CPpdevRegisters(root + QStringLiteral("/dev"), root + QStringLiteral("/proc"))
    {
    }

    QList<unsigned long> requests;
    QList<unsigned long> refused;
    int written = -1;
    unsigned char data = 1;
    unsigned char status = 2;
    unsigned char controlValue = 3;

    int count(unsigned long request) const { return requests.count(request); }

protected:
    int control(int descriptor, unsigned long request, void* argument) override
    {
        requests.append(request);
        if (descriptor < 0 || refused.contains(request))
            return -1;
        auto* byte = static_cast<unsigned char*>(argument);
        if (request == PPRDATA)
            *byte = data;
        else if (request == PPRSTATUS)
            *byte = status;
        else if (request == PPRCONTROL)
            *byte = controlValue;
        else if (request == PPWDATA || request == PPWCONTROL)
            written = *byte;
        return 0;
    }
};

void writeFile(const QString& name, const QByteArray& content)
{
    QFile file(name);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(name));
    file.write(content);
}

/** Adds a port as the kernel shows one. */
void addPort(const QTemporaryDir& root, const QString& name, const QByteArray& baseAddress)
{
    const QDir directory(root.path());
    QVERIFY(directory.mkpath(QStringLiteral("dev")));
    QVERIFY(directory.mkpath(QStringLiteral("proc/") + name));
    writeFile(directory.filePath(QStringLiteral("dev/") + name), QByteArray());
    writeFile(directory.filePath(QStringLiteral("proc/") + name + QStringLiteral("/base-addr")), baseAddress);
}

} // namespace

class tst_CPpdevRegisters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void machineWithoutPortsHasNone();
    void portWithoutABaseAddressDoesNotCount();
    void portIsClaimedAtTheFirstUseAndOnce();
    void eachRegisterIsReadByItsOwnRequest();
    void eachRegisterIsWrittenByItsOwnRequest();
    void readValuesAreNotNegative();
    void addressChoosesThePortThatHasIt();
    void addressOfNoPortReads255AndSwallowsWrites();
    void portThatRefusesTheExclusiveClaimIsSharedInstead();
    void portThatRefusesEveryClaimReads255AndSwallowsWrites();
    void missingDeviceFileReads255();
    void failedReadIs255();
    void portThatGoesAwayReadsAsItDidLast();
};

void tst_CPpdevRegisters::machineWithoutPortsHasNone()
{
    const QTemporaryDir root;
    FakeKernel kernel(root.path());
    QCOMPARE(kernel.portCount(), 0);
    QCOMPARE(kernel.read(0x379), short(255));
}

void tst_CPpdevRegisters::portWithoutABaseAddressDoesNotCount()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "0\t0\n");
    addPort(root, QStringLiteral("parport1"), "junk");
    addPort(root, QStringLiteral("parport2"), "");
    QCOMPARE(FakeKernel(root.path()).portCount(), 0);
}

void tst_CPpdevRegisters::portIsClaimedAtTheFirstUseAndOnce()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    QCOMPARE(kernel.portCount(), 1);
    QVERIFY(kernel.requests.isEmpty());
    kernel.read(0x379);
    QCOMPARE(kernel.requests, (QList<unsigned long>{PPEXCL, PPCLAIM, PPRSTATUS}));
    kernel.read(0x379);
    kernel.write(0x378, 1);
    QCOMPARE(kernel.count(PPCLAIM), 1);
}

void tst_CPpdevRegisters::eachRegisterIsReadByItsOwnRequest()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    QCOMPARE(kernel.read(0x378), short(1));
    QCOMPARE(kernel.read(0x379), short(2));
    QCOMPARE(kernel.read(0x37A), short(3));
}

void tst_CPpdevRegisters::eachRegisterIsWrittenByItsOwnRequest()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    kernel.write(0x378, 0x1FE);
    QCOMPARE(kernel.requests.last(), PPWDATA);
    QCOMPARE(kernel.written, 0xFE);
    kernel.write(0x37A, 4);
    QCOMPARE(kernel.requests.last(), PPWCONTROL);
    QCOMPARE(kernel.written, 4);
    kernel.write(0x379, 5); // the status register can only be read
    QCOMPARE(kernel.written, 4);
}

void tst_CPpdevRegisters::readValuesAreNotNegative()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    kernel.status = 0xFF;
    QCOMPARE(kernel.read(0x379), short(255));
    kernel.status = 0x80;
    QCOMPARE(kernel.read(0x379), short(128));
}

void tst_CPpdevRegisters::addressChoosesThePortThatHasIt()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    addPort(root, QStringLiteral("parport1"), "57344\t0\n"); // 0xE000: negative as a short
    FakeKernel kernel(root.path());
    QCOMPARE(kernel.portCount(), 2);
    QCOMPARE(kernel.read(short(0xE001)), short(2));
    QCOMPARE(kernel.count(PPCLAIM), 1);
    QCOMPARE(kernel.read(0x379), short(2));
    QCOMPARE(kernel.count(PPCLAIM), 2);
}

void tst_CPpdevRegisters::addressOfNoPortReads255AndSwallowsWrites()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    for (const short address : {short(0x377), short(0x37B), short(0), short(-1)}) {
        kernel.write(address, 1);
        QCOMPARE(kernel.read(address), short(255));
    }
    QVERIFY(kernel.requests.isEmpty());
}

void tst_CPpdevRegisters::portThatRefusesTheExclusiveClaimIsSharedInstead()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    kernel.refused = {PPEXCL};
    QCOMPARE(kernel.read(0x379), short(2));
    QCOMPARE(kernel.requests, (QList<unsigned long>{PPEXCL, PPCLAIM, PPRSTATUS}));
}

void tst_CPpdevRegisters::portThatRefusesEveryClaimReads255AndSwallowsWrites()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    kernel.refused = {PPCLAIM};
    QCOMPARE(kernel.read(0x379), short(255));
    kernel.write(0x378, 1);
    QCOMPARE(kernel.written, -1);
    QCOMPARE(kernel.count(PPCLAIM), 2); // exclusive and shared, and not again at each pass
}

void tst_CPpdevRegisters::missingDeviceFileReads255()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    QVERIFY(QFile::remove(root.filePath(QStringLiteral("dev/parport0"))));
    FakeKernel kernel(root.path());
    QCOMPARE(kernel.read(0x379), short(255));
    QVERIFY(kernel.requests.isEmpty());
}

void tst_CPpdevRegisters::failedReadIs255()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    kernel.refused = {PPRSTATUS};
    QCOMPARE(kernel.read(0x379), short(255));
}

void tst_CPpdevRegisters::portThatGoesAwayReadsAsItDidLast()
{
    const QTemporaryDir root;
    addPort(root, QStringLiteral("parport0"), "888\t1912\n");
    FakeKernel kernel(root.path());
    kernel.status = 0x70;
    QCOMPARE(kernel.read(0x379), short(0x70));
    QCOMPARE(kernel.read(0x378), short(1));
    kernel.refused = {PPRDATA, PPRSTATUS, PPWDATA};
    kernel.status = 0x7F;
    QCOMPARE(kernel.read(0x379), short(0x70));
    QCOMPARE(kernel.read(0x378), short(1));
    kernel.write(0x378, 5);
    QCOMPARE(kernel.read(0x379), short(0x70));
    kernel.refused.clear();
    QCOMPARE(kernel.read(0x379), short(0x7F));
}

QTEST_GUILESS_MAIN(tst_CPpdevRegisters)
#include "tst_CPpdevRegisters.moc"
