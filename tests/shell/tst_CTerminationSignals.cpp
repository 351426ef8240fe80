#include "shell/CTerminationSignals.h"

#include <QSignalSpy>
#include <QTest>

#include <signal.h>

class tst_CTerminationSignals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signalOfTheSystemArrivesInTheEventLoop_data();
    void signalOfTheSystemArrivesInTheEventLoop();
    void systemGetsItsSignalsBack();
};

void tst_CTerminationSignals::signalOfTheSystemArrivesInTheEventLoop_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void tst_CTerminationSignals::signalOfTheSystemArrivesInTheEventLoop()
{
    QFETCH(int, signal);
    const CTerminationSignals signalsOfSystem;
    QSignalSpy requested(&signalsOfSystem, &CTerminationSignals::terminationRequested);
    QCOMPARE(raise(signal), 0);
    QCOMPARE(requested.count(), 0);
    QTRY_COMPARE(requested.count(), 1);
}

void tst_CTerminationSignals::systemGetsItsSignalsBack()
{
    {
        const CTerminationSignals signalsOfSystem;
    }
    struct sigaction action = {};
    QCOMPARE(sigaction(SIGTERM, nullptr, &action), 0);
    QVERIFY(action.sa_handler == SIG_DFL);
}

QTEST_GUILESS_MAIN(tst_CTerminationSignals)
#include "tst_CTerminationSignals.moc"
