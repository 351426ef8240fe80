#include "io/PortIds.h"

#include <QtTest>

class tst_PortIds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lookupGivesThePortIdOfItsIndex_data();
    void lookupGivesThePortIdOfItsIndex();
    void indexOutOfRangeGivesZero_data();
    void indexOutOfRangeGivesZero();
    void theFifteenIdsFrom10To24AreOutputs();
};

namespace {

struct Lookup
{
    const char* name;
    int (*function)(int);
    int first;
    int count;
};

const Lookup lookups[] = {
    {"lap sensor", PortId::lapSensor, 1, 8},
    {"track power", PortId::trackPower, 10, 8},
    {"red lamp", PortId::redLamp, 18, 5},
    {"fuel sensor", PortId::fuelSensor, 25, 8},
    {"end of the fuel zone", PortId::fuelFinishedSensor, 33, 8},
    {"sector 2", PortId::sector2Sensor, 41, 8},
    {"sector 3", PortId::sector3Sensor, 49, 8},
    {"lap end", PortId::endSensor, 57, 8},
};

void addLookups()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < int(std::size(lookups)); ++i)
        QTest::newRow(lookups[i].name) << i;
}

} // namespace

void tst_PortIds::lookupGivesThePortIdOfItsIndex_data()
{
    addLookups();
}

void tst_PortIds::lookupGivesThePortIdOfItsIndex()
{
    QFETCH(int, number);
    const Lookup& lookup = lookups[number];
    for (int index = 0; index < lookup.count; ++index)
        QCOMPARE(lookup.function(index), lookup.first + index);
}

void tst_PortIds::indexOutOfRangeGivesZero_data()
{
    addLookups();
}

void tst_PortIds::indexOutOfRangeGivesZero()
{
    QFETCH(int, number);
    const Lookup& lookup = lookups[number];
    for (const int index : {-1, lookup.count, lookup.count + 1, INT_MAX, INT_MIN})
        QCOMPARE(lookup.function(index), 0);
}

void tst_PortIds::theFifteenIdsFrom10To24AreOutputs()
{
    for (int id = -1; id <= PortId::Count; ++id)
        QCOMPARE(PortId::isOutput(id), id >= 10 && id <= 24);
    QCOMPARE(PortId::GreenLamp, 23);
    QCOMPARE(PortId::ChaosSignal, 24);
}

QTEST_APPLESS_MAIN(tst_PortIds)
#include "tst_PortIds.moc"
