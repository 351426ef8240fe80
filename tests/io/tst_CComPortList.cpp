#include "io/CComPortList.h"

#include <QSerialPortInfo>
#include <QtTest>

class tst_CComPortList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreEmptyBeforeTheFirstProbe();
    void namesAreInAscendingOrder();
    void probingGivesThePortsOfTheMachine();
};

void tst_CComPortList::namesAreEmptyBeforeTheFirstProbe()
{
    QVERIFY(CComPortList().names().isEmpty());
}

void tst_CComPortList::namesAreInAscendingOrder()
{
    CComPortList list;
    list.setNames({"ttyUSB1", "ttyS10", "ttyS2", "ttyUSB0", "ttyACM0"});
    QCOMPARE(list.names(), (QStringList{"ttyACM0", "ttyS2", "ttyS10", "ttyUSB0", "ttyUSB1"}));
}

void tst_CComPortList::probingGivesThePortsOfTheMachine()
{
    CComPortList list;
    list.setNames({"gone"});
    list.probeComPorts();
    QCOMPARE(list.names().size(), QSerialPortInfo::availablePorts().size());
    QVERIFY(!list.names().contains("gone"));
}

QTEST_GUILESS_MAIN(tst_CComPortList)
#include "tst_CComPortList.moc"
