#include "network/CDisplayFrameReader.h"
#include "network/DisplayRecord.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

/** What the receiver does with what has come in at once. */
QList<QByteArray> recordsOf(CDisplayFrameReader& reader, const QByteArray& bytes)
{
    reader.append(bytes);
    QList<QByteArray> records;
    QByteArray record;
    while (reader.takeRecord(&record))
        records.append(record);
    return records;
}

} // namespace

class tst_CDisplayFrameReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewReaderHasNoRecord();
    void aFrameIsOneRecord();
    void twoFramesInOneSegmentAreTwoRecords();
    void aRecordOfAnUnknownTypeIsSkippedWithoutLosingTheNextOne();
    void aFrameOfLengthZeroIsAnEmptyRecord();
    void theLengthIsUnsigned();
    void aSingleByteWaitsForTheNextOne();
    void aFrameSplitBehindItsLengthIsHandedOnShort();
    void aFrameSplitInItsRecordIsHandedOnShort();
    void theRestOfASplitFrameIsReadAsANewFrame();
    void whatArrivesBetweenTwoRecordsIsReadInOrder();
    void aMillionEmptyFramesAreTaken();
    void randomBytesAreAlwaysTakenToTheLastByte();
};

void tst_CDisplayFrameReader::aNewReaderHasNoRecord()
{
    CDisplayFrameReader reader;
    QByteArray record("kept");
    QVERIFY(!reader.takeRecord(&record));
    QCOMPARE(record, QByteArray("kept"));
    QVERIFY(reader.isEmpty());
}

void tst_CDisplayFrameReader::aFrameIsOneRecord()
{
    CDisplayFrameReader reader;
    QCOMPARE(recordsOf(reader, QByteArray::fromHex("0006006600000008")),
             QList<QByteArray>{QByteArray::fromHex("006600000008")});
    QVERIFY(reader.isEmpty());
}

void tst_CDisplayFrameReader::twoFramesInOneSegmentAreTwoRecords()
{
    const QByteArray lights = DisplayRecord::lights(8);
    const QByteArray stopped = DisplayRecord::notice(DisplayRecord::RaceStopped);
    CDisplayFrameReader reader;
    const QByteArray segment = DisplayRecord::framed(lights) + DisplayRecord::framed(stopped);
    QCOMPARE(recordsOf(reader, segment), (QList<QByteArray>{lights, stopped}));
}

void tst_CDisplayFrameReader::aRecordOfAnUnknownTypeIsSkippedWithoutLosingTheNextOne()
{
    const QByteArray unknown = QByteArray::fromHex("0099") + "abc";
    const QByteArray lights = DisplayRecord::lights(8);
    CDisplayFrameReader reader;
    const auto records = recordsOf(reader, DisplayRecord::framed(unknown) + DisplayRecord::framed(lights));
    QCOMPARE(records, (QList<QByteArray>{unknown, lights}));
}

void tst_CDisplayFrameReader::aFrameOfLengthZeroIsAnEmptyRecord()
{
    CDisplayFrameReader reader;
    const auto records = recordsOf(reader, QByteArray::fromHex("0000") + QByteArray::fromHex("00020069"));
    QCOMPARE(records, (QList<QByteArray>{QByteArray(), QByteArray::fromHex("0069")}));
}

void tst_CDisplayFrameReader::theLengthIsUnsigned()
{
    const QByteArray largest(65535, 'x');
    CDisplayFrameReader reader;
    QCOMPARE(recordsOf(reader, QByteArray::fromHex("ffff") + largest), QList<QByteArray>{largest});
    QVERIFY(reader.isEmpty());
}

void tst_CDisplayFrameReader::aSingleByteWaitsForTheNextOne()
{
    CDisplayFrameReader reader;
    QVERIFY(recordsOf(reader, QByteArray(1, '\0')).isEmpty());
    QVERIFY(!reader.isEmpty());
    QCOMPARE(recordsOf(reader, QByteArray::fromHex("020069")),
             QList<QByteArray>{QByteArray::fromHex("0069")});
    QVERIFY(reader.isEmpty());
}

void tst_CDisplayFrameReader::aFrameSplitBehindItsLengthIsHandedOnShort()
{
    CDisplayFrameReader reader;
    QCOMPARE(recordsOf(reader, QByteArray::fromHex("0006")), QList<QByteArray>{QByteArray()});
    QVERIFY(reader.isEmpty());
}

void tst_CDisplayFrameReader::aFrameSplitInItsRecordIsHandedOnShort()
{
    CDisplayFrameReader reader;
    QCOMPARE(recordsOf(reader, QByteArray::fromHex("0006006600")),
             QList<QByteArray>{QByteArray::fromHex("006600")});
}

void tst_CDisplayFrameReader::theRestOfASplitFrameIsReadAsANewFrame()
{
    CDisplayFrameReader reader;
    recordsOf(reader, QByteArray::fromHex("0006"));
    // The rest begins with a type; read as a length, it takes what there is.
    QCOMPARE(recordsOf(reader, QByteArray::fromHex("006600000008")),
             QList<QByteArray>{QByteArray::fromHex("00000008")});
}

void tst_CDisplayFrameReader::whatArrivesBetweenTwoRecordsIsReadInOrder()
{
    CDisplayFrameReader reader;
    reader.append(QByteArray::fromHex("000200690002"));
    QByteArray record;
    QVERIFY(reader.takeRecord(&record));
    QCOMPARE(record, QByteArray::fromHex("0069"));
    reader.append(QByteArray::fromHex("006b"));
    QVERIFY(reader.takeRecord(&record));
    QCOMPARE(record, QByteArray::fromHex("006b"));
    QVERIFY(reader.isEmpty());
}

void tst_CDisplayFrameReader::aMillionEmptyFramesAreTaken()
{
    CDisplayFrameReader reader;
    reader.append(QByteArray(2000000, '\0'));
    int records = 0;
    QByteArray record;
    while (reader.takeRecord(&record))
        ++records;
    QCOMPARE(records, 1000000);
    QVERIFY(reader.isEmpty());
}

void tst_CDisplayFrameReader::randomBytesAreAlwaysTakenToTheLastByte()
{
    QRandomGenerator random(20260131);
    CDisplayFrameReader reader;
    qint64 given = 0;
    qint64 taken = 0;
    for (int turn = 0; turn < 2000; ++turn) {
        QByteArray bytes(int(random.bounded(1, 3000)), Qt::Uninitialized);
        for (char& byte : bytes)
            byte = char(random.bounded(256));
        given += bytes.size();
        for (const QByteArray& record : recordsOf(reader, bytes))
            taken += 2 + record.size();
        QCOMPARE(given - taken, reader.isEmpty() ? 0 : 1);
    }
}

QTEST_GUILESS_MAIN(tst_CDisplayFrameReader)
#include "tst_CDisplayFrameReader.moc"
