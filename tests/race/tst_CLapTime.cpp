#include "race/CLapTime.h"
#include "support/StreamBytes.h"

#include <QTest>

namespace {

/** The fields in their order. */
QVector<int> fieldsOf(const CLapTime& lap)
{
    return {lap.lapEndTime,  lap.lapTime,      lap.sector1Time,      lap.sector2Time,
            lap.sector3Time, lap.lapStartTime, lap.sector2BeginTime, lap.sector3BeginTime};
}

CLapTime lapWithAllSectors()
{
    CLapTime lap;
    lap.setLapStart(1000);
    lap.setSector2Begin(1100);
    lap.setSector3Begin(1300);
    lap.setLapEnd(1600);
    return lap;
}

} // namespace

class tst_CLapTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewLapIsAllZero();
    void oneSectorIsTheWholeLap();
    void twoSectors();
    void threeSectors();
    void aSector3SensorWithoutSector2LeavesTheStampAsSector2Time();
    void theStartForgetsTheSectorsOnly();
    void aLaterSectorStampReplacesTheEarlierOne();
    void durationsAreRightAcrossTheWrapOfTheClock();
    void anEndBeforeTheStartIsNegative();
    void clearZeroesAllFields();
    void streamFormByteForByte();
    void streamKeepsAllFields();
    void isSmall();
};

void tst_CLapTime::aNewLapIsAllZero()
{
    QCOMPARE(fieldsOf(CLapTime()), QVector<int>(8, 0));
}

void tst_CLapTime::oneSectorIsTheWholeLap()
{
    CLapTime lap;
    lap.setLapStart(1000);
    lap.setLapEnd(4500);
    QCOMPARE(fieldsOf(lap), QVector<int>({4500, 3500, 3500, 0, 0, 1000, 0, 0}));
}

void tst_CLapTime::twoSectors()
{
    CLapTime lap;
    lap.setLapStart(1000);
    lap.setSector2Begin(1100);
    QCOMPARE(fieldsOf(lap), QVector<int>({0, 0, 100, 0, 0, 1000, 1100, 0}));
    lap.setLapEnd(1500);
    QCOMPARE(fieldsOf(lap), QVector<int>({1500, 500, 100, 400, 0, 1000, 1100, 0}));
}

void tst_CLapTime::threeSectors()
{
    QCOMPARE(fieldsOf(lapWithAllSectors()), QVector<int>({1600, 600, 100, 200, 300, 1000, 1100, 1300}));
}

void tst_CLapTime::aSector3SensorWithoutSector2LeavesTheStampAsSector2Time()
{
    CLapTime lap;
    lap.setLapStart(1000);
    lap.setSector3Begin(1300);
    lap.setLapEnd(1600);
    QCOMPARE(fieldsOf(lap), QVector<int>({1600, 600, 600, 1300, 0, 1000, 0, 1300}));
}

void tst_CLapTime::theStartForgetsTheSectorsOnly()
{
    CLapTime lap = lapWithAllSectors();
    lap.setLapStart(2000);
    QCOMPARE(fieldsOf(lap), QVector<int>({1600, 600, 0, 0, 0, 2000, 0, 0}));
}

void tst_CLapTime::aLaterSectorStampReplacesTheEarlierOne()
{
    CLapTime lap;
    lap.setLapStart(1000);
    lap.setSector2Begin(1100);
    lap.setSector2Begin(1150);
    QCOMPARE(lap.sector2BeginTime, 1150);
    QCOMPARE(lap.sector1Time, 150);
}

void tst_CLapTime::durationsAreRightAcrossTheWrapOfTheClock()
{
    CLapTime unsignedWrap;
    unsignedWrap.setLapStart(0xfffffff0U);
    unsignedWrap.setSector2Begin(0x10U);
    unsignedWrap.setLapEnd(0x30U);
    QCOMPARE(unsignedWrap.sector1Time, 0x20);
    QCOMPARE(unsignedWrap.sector2Time, 0x20);
    QCOMPARE(unsignedWrap.lapTime, 0x40);

    CLapTime signedWrap;
    signedWrap.setLapStart(0x7ffffff0U);
    signedWrap.setSector2Begin(0x80000010U);
    signedWrap.setSector3Begin(0x80000020U);
    signedWrap.setLapEnd(0x80000050U);
    QCOMPARE(signedWrap.sector1Time, 0x20);
    QCOMPARE(signedWrap.sector2Time, 0x10);
    QCOMPARE(signedWrap.sector3Time, 0x30);
    QCOMPARE(signedWrap.lapTime, 0x60);
}

void tst_CLapTime::anEndBeforeTheStartIsNegative()
{
    CLapTime lap;
    lap.setLapStart(5000);
    lap.setLapEnd(4000);
    QCOMPARE(lap.lapTime, -1000);
}

void tst_CLapTime::clearZeroesAllFields()
{
    CLapTime lap = lapWithAllSectors();
    lap.clear();
    QCOMPARE(fieldsOf(lap), QVector<int>(8, 0));
}

void tst_CLapTime::streamFormByteForByte()
{
    StreamBytes expected;
    expected.int32(1000).int32(1100).int32(1300).int32(1600);
    expected.int32(600).int32(100).int32(200).int32(300);
    QCOMPARE(streamForm(lapWithAllSectors()), expected.bytes());
    QCOMPARE(expected.bytes().left(8), QByteArray::fromHex("000003e80000044c"));
}

void tst_CLapTime::streamKeepsAllFields()
{
    const CLapTime lap = lapWithAllSectors();
    QCOMPARE(fieldsOf(fromStreamForm<CLapTime>(streamForm(lap))), fieldsOf(lap));
}

void tst_CLapTime::isSmall()
{
    QCOMPARE(sizeof(CLapTime), std::size_t(32));
}

QTEST_APPLESS_MAIN(tst_CLapTime)
#include "tst_CLapTime.moc"
