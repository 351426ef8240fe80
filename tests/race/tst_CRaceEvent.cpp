#include "race/CRaceEvent.h"

#include <QDataStream>
#include <QtTest>

namespace {

QByteArray written(const CRaceEvent& event)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << event;
    return bytes;
}

CRaceEvent readBack(const QByteArray& bytes, QDataStream::Status* status)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_5);
    CRaceEvent event;
    stream >> event;
    *status = stream.status();
    return event;
}

QTime duration(int milliseconds)
{
    return QTime(0, 0).addMSecs(milliseconds);
}

/** Every field with a value of its own. */
CRaceEvent fullEvent()
{
    CRaceEvent event;
    event.type = CRaceEvent::MemberChanged;
    event.subType = CRaceEvent::BestLap;
    event.track = 3;
    event.laps = 258;
    event.lastLapTime = duration(0x1001);
    event.sector1Time = duration(0x1002);
    event.sector2Time = duration(0x1003);
    event.sector3Time = duration(0x1004);
    event.split1Time = duration(0x1005);
    event.split2Time = duration(0x1006);
    event.split3Time = duration(0x1007);
    event.bestLapTime = duration(0x1008);
    event.status = 4;
    event.averageLapTime = duration(0x1009);
    event.speed = 1.5;
    event.fuelPercent = 66;
    event.raceRunning = true;
    return event;
}

QByteArray fullEventBytes()
{
    return QByteArray::fromHex("00000006"         // type
                               "00000002"         // subType
                               "00000003"         // track
                               "00000102"         // laps
                               "00001001"         // lastLapTime
                               "00001002"         // sector1Time
                               "00001003"         // sector2Time
                               "00001004"         // sector3Time
                               "00001005"         // split1Time
                               "00001006"         // split2Time
                               "00001007"         // split3Time
                               "00001008"         // bestLapTime
                               "00000004"         // status
                               "00001009"         // averageLapTime
                               "3ff8000000000000" // speed
                               "00000042"         // fuelPercent
                               "01");             // raceRunning
}

QList<QTime> timesOf(const CRaceEvent& event)
{
    return {event.lastLapTime, event.sector1Time, event.sector2Time, event.sector3Time,   event.split1Time,
            event.split2Time,  event.split3Time,  event.bestLapTime, event.averageLapTime};
}

} // namespace

class tst_CRaceEvent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultEventIsZeroEverywhere();
    void eventOfATypeHasNullTimes();
    void streamFormIsPinnedByteForByte();
    void streamFormOfNullTimesIsPinned();
    void streamFormIsReadBack();
    void nullTimesComeBackNull();
    void cutStreamLeavesTheRestAtZero();
    void travelsInAVariant();
};

void tst_CRaceEvent::defaultEventIsZeroEverywhere()
{
    const CRaceEvent event;
    QCOMPARE(event.type, 0);
    QCOMPARE(event.subType, 0);
    QCOMPARE(event.track, 0);
    QCOMPARE(event.laps, 0);
    for (const QTime& time : timesOf(event))
        QCOMPARE(time, QTime(0, 0, 0, 0));
    QCOMPARE(event.status, 0);
    QCOMPARE(event.speed, 0.0);
    QCOMPARE(event.fuelPercent, 0);
    QCOMPARE(event.raceRunning, false);
}

void tst_CRaceEvent::eventOfATypeHasNullTimes()
{
    const CRaceEvent event(CRaceEvent::TankEmpty);
    QCOMPARE(event.type, 11);
    QCOMPARE(event.subType, 0);
    for (const QTime& time : timesOf(event))
        QVERIFY(time.isNull());
}

void tst_CRaceEvent::streamFormIsPinnedByteForByte()
{
    QCOMPARE(written(fullEvent()).toHex(), fullEventBytes().toHex());
}

void tst_CRaceEvent::streamFormOfNullTimesIsPinned()
{
    const QByteArray null("ffffffff");
    const QByteArray zero("00000000");
    const QByteArray expected =
        "00000001" + zero.repeated(3) + null.repeated(8) + zero + null + zero.repeated(2) + zero + "00";
    QCOMPARE(written(CRaceEvent(CRaceEvent::LapEnded)).toHex(), expected);
}

void tst_CRaceEvent::streamFormIsReadBack()
{
    QDataStream::Status status = QDataStream::ReadPastEnd;
    const CRaceEvent event = readBack(fullEventBytes(), &status);
    QCOMPARE(status, QDataStream::Ok);
    QCOMPARE(event.speed, 1.5);
    QVERIFY(event.raceRunning);
    QCOMPARE(timesOf(event), timesOf(fullEvent()));
    QCOMPARE(written(event), fullEventBytes());
}

void tst_CRaceEvent::nullTimesComeBackNull()
{
    QDataStream::Status status = QDataStream::ReadPastEnd;
    const CRaceEvent event = readBack(written(CRaceEvent(CRaceEvent::NewBestLap)), &status);
    QCOMPARE(event.type, 2);
    for (const QTime& time : timesOf(event))
        QVERIFY(time.isNull());
}

void tst_CRaceEvent::cutStreamLeavesTheRestAtZero()
{
    QDataStream::Status status = QDataStream::Ok;
    const CRaceEvent event = readBack(fullEventBytes().left(12), &status);
    QCOMPARE(status, QDataStream::ReadPastEnd);
    QCOMPARE(event.track, 3);
    QCOMPARE(event.laps, 0);
    QCOMPARE(event.fuelPercent, 0);
    QCOMPARE(event.raceRunning, false);
}

void tst_CRaceEvent::travelsInAVariant()
{
    const QVariant variant = QVariant::fromValue(fullEvent());
    QCOMPARE(written(variant.value<CRaceEvent>()), fullEventBytes());
}

QTEST_GUILESS_MAIN(tst_CRaceEvent)
#include "tst_CRaceEvent.moc"
