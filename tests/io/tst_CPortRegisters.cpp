#include "io/CInpOutRegisters.h"
#include "io/CPortRegisters.h"
#include "support/DebugLines.h"

#include <QtTest>

namespace {

/** @return the number of debug lines of many uses. */
int useNoPort()
{
    const DebugLines debug("tornik.io");
    for (int run = 0; run < 3; ++run) {
        CNoPortRegisters registers;
        registers.write(1, 1);
        registers.read(2);
        registers.read(2);
    }
    return debug.lines().size();
}

} // namespace

class tst_CPortRegisters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAPortEveryRegisterReads255AndSwallowsWrites();
    void withoutAPortThereIsOneDebugLine();
    void libraryThatIsNotThereIsNotLoaded();
    void libraryWithoutTheEntriesIsNotLoaded();
    void aMachineHasOneWayToItsRegistersAtLeast();
};

void tst_CPortRegisters::withoutAPortEveryRegisterReads255AndSwallowsWrites()
{
    CNoPortRegisters registers;
    for (const short address : {short(0), short(0x378), short(-1)}) {
        registers.write(address, 1);
        QCOMPARE(registers.read(address), short(255));
    }
}

void tst_CPortRegisters::withoutAPortThereIsOneDebugLine()
{
    // The line comes once in a process: a process of its own for it.
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--use-no-port")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
}

void tst_CPortRegisters::libraryThatIsNotThereIsNotLoaded()
{
    QVERIFY(!CInpOutRegisters(QStringLiteral("no-such-library")).isLoaded());
}

void tst_CPortRegisters::libraryWithoutTheEntriesIsNotLoaded()
{
    QVERIFY(!CInpOutRegisters(QStringLiteral("libm.so.6")).isLoaded());
}

void tst_CPortRegisters::aMachineHasOneWayToItsRegistersAtLeast()
{
    const auto registers = CPortRegisters::create();
    QVERIFY(registers);
    QCOMPARE(registers->read(1), short(255)); // no parallel port has its registers there
}

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    if (app.arguments().contains(QStringLiteral("--use-no-port")))
        return useNoPort();
    tst_CPortRegisters test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CPortRegisters.moc"
