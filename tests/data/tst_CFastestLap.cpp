#include "data/CFastestLap.h"
#include "support/StreamBytes.h"

#include <QTest>

class tst_CFastestLap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewRecordHasNoIdsAndNoTime();
    void keepsWhatIsSet();
    void streamFormIsTheSixFieldsInOrder();
    void streamKeepsAllFields();
};

void tst_CFastestLap::aNewRecordHasNoIdsAndNoTime()
{
    const CFastestLap record;
    QCOMPARE(record.id(), -1);
    QCOMPARE(record.racewayId(), -1);
    QCOMPARE(record.trackId(), -1);
    QCOMPARE(record.driverId(), -1);
    QCOMPARE(record.carId(), -1);
    QCOMPARE(record.time(), 0U);
}

namespace {

CFastestLap fullRecord()
{
    CFastestLap record;
    record.setId(1);
    record.setRacewayId(2);
    record.setTrackId(3);
    record.setDriverId(4);
    record.setCarId(5);
    record.setTime(4000000000U);
    return record;
}

} // namespace

void tst_CFastestLap::keepsWhatIsSet()
{
    const CFastestLap record = fullRecord();
    QCOMPARE(record.id(), 1);
    QCOMPARE(record.racewayId(), 2);
    QCOMPARE(record.trackId(), 3);
    QCOMPARE(record.driverId(), 4);
    QCOMPARE(record.carId(), 5);
    QCOMPARE(record.time(), 4000000000U);
}

void tst_CFastestLap::streamFormIsTheSixFieldsInOrder()
{
    QCOMPARE(streamForm(fullRecord()),
             StreamBytes().int32(1).int32(2).int32(3).int32(4).int32(5).int32(qint32(4000000000U)).bytes());
}

void tst_CFastestLap::streamKeepsAllFields()
{
    const auto copy = fromStreamForm<CFastestLap>(streamForm(fullRecord()));
    QCOMPARE(copy.id(), 1);
    QCOMPARE(copy.racewayId(), 2);
    QCOMPARE(copy.trackId(), 3);
    QCOMPARE(copy.driverId(), 4);
    QCOMPARE(copy.carId(), 5);
    QCOMPARE(copy.time(), 4000000000U);
}

QTEST_APPLESS_MAIN(tst_CFastestLap)
#include "tst_CFastestLap.moc"
