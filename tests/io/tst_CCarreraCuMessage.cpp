#include "io/CCarreraCuMessage.h"

#include <QtTest>

Q_DECLARE_METATYPE(CCarreraCuMessage)

class tst_CCarreraCuMessage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checksumOfAFrame_data();
    void checksumOfAFrame();
    void aFrameOfThreeBytesOrFewerIsValidOnlyWithAZeroBeforeItsEnd_data();
    void aFrameOfThreeBytesOrFewerIsValidOnlyWithAZeroBeforeItsEnd();
    void checksumLooksAtTheLowNibblesAlone();
    void completeIsWhatEndsWithADollar();
    void nibbleMasksTheHighBitsAndIsZeroOutside();
    void textEndsAtTheFirstNul();
    void textHasOneCharacterAByte();
    void framesAreCutAtEachDollar();
    void timeStamp_data();
    void timeStamp();
    void theEightNibblesEachHaveTheirBits();
    void kindOfFrame_data();
    void kindOfFrame();
    void fieldsOfAStatusFrame();
    void randomBytesAreReadWithoutHarm();
};

void tst_CCarreraCuMessage::checksumOfAFrame_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("valid");

    QTest::newRow("lap frame of car 1") << QByteArray("?10000000012$") << true;
    QTest::newRow("one off") << QByteArray("?10000000013$") << false;
    QTest::newRow("right nibble, wrong high bits") << QByteArray("?1000000001B$") << false;
    QTest::newRow("status, 17 characters") << QByteArray("?:??????00700008;$") << false;
    // 10 + 6 * 15 + 7 + 8 = 115 = 7 * 16 + 3
    QTest::newRow("status with full tanks") << QByteArray("?:??????0070008"
                                                          "3$")
                                            << true;
    // 10 + 6 * 15 + 2 + 1 + 8 = 111 = 6 * 16 + 15
    QTest::newRow("status with 19 characters") << QByteArray("?:??????002001000"
                                                             "8?$")
                                               << true;
    QTest::newRow("its checksum one off") << QByteArray("?:??????002001000"
                                                        "8>$")
                                          << false;
    QTest::newRow("two frames joined") << QByteArray("?10000000012$?20000000013$") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("one byte") << QByteArray("$") << false;
}

void tst_CCarreraCuMessage::checksumOfAFrame()
{
    QFETCH(QByteArray, bytes);
    QTEST(CCarreraCuMessage(bytes).checksumValid(), "valid");
}

void tst_CCarreraCuMessage::aFrameOfThreeBytesOrFewerIsValidOnlyWithAZeroBeforeItsEnd_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("valid");

    QTest::newRow("three with a zero") << QByteArray("?0$") << true;
    QTest::newRow("three with a one") << QByteArray("?1$") << false;
    QTest::newRow("two with a zero") << QByteArray("0$") << true;
    QTest::newRow("two without") << QByteArray("?$") << false;
    QTest::newRow("one") << QByteArray("$") << false;
    QTest::newRow("four count what lies between") << QByteArray("?55$") << true;
    QTest::newRow("four with a zero") << QByteArray("?50$") << false;
}

void tst_CCarreraCuMessage::aFrameOfThreeBytesOrFewerIsValidOnlyWithAZeroBeforeItsEnd()
{
    QFETCH(QByteArray, bytes);
    QTEST(CCarreraCuMessage(bytes).checksumValid(), "valid");
}

void tst_CCarreraCuMessage::checksumLooksAtTheLowNibblesAlone()
{
    QVERIFY(CCarreraCuMessage("?a00000000a2$").checksumValid());
    QVERIFY(CCarreraCuMessage("x\xf1"
                              "0000000012$")
                .checksumValid());
}

void tst_CCarreraCuMessage::completeIsWhatEndsWithADollar()
{
    QVERIFY(CCarreraCuMessage("?10000000012$").isComplete());
    QVERIFY(CCarreraCuMessage("$").isComplete());
    QVERIFY(!CCarreraCuMessage("?10000000012").isComplete());
    QVERIFY(!CCarreraCuMessage("?10000000012$?").isComplete());
    QVERIFY(!CCarreraCuMessage().isComplete());
}

void tst_CCarreraCuMessage::nibbleMasksTheHighBitsAndIsZeroOutside()
{
    const CCarreraCuMessage message("?:\xff"
                                    "1");
    QCOMPARE(int(message.nibble(0)), 15);
    QCOMPARE(int(message.nibble(1)), 10);
    QCOMPARE(int(message.nibble(2)), 15);
    QCOMPARE(int(message.nibble(3)), 1);
    QCOMPARE(int(message.nibble(4)), 0);
    QCOMPARE(int(message.nibble(-1)), 0);
}

void tst_CCarreraCuMessage::textEndsAtTheFirstNul()
{
    QCOMPARE(CCarreraCuMessage("?12$").toString(), QStringLiteral("?12$"));
    QCOMPARE(CCarreraCuMessage(QByteArray("?1\0002$", 5)).toString(), QStringLiteral("?1"));
    QCOMPARE(CCarreraCuMessage().toString(), QString());
}

void tst_CCarreraCuMessage::textHasOneCharacterAByte()
{
    const QString text = CCarreraCuMessage("?\xc3\xa4$").toString();
    QCOMPARE(text.size(), 4);
    QCOMPARE(text.toLatin1(), QByteArray("?\xc3\xa4$"));
}

void tst_CCarreraCuMessage::framesAreCutAtEachDollar()
{
    CCarreraCuMessage message("?1$$?22$rest");
    QVERIFY(message.containsFrame());
    QCOMPARE(message.takeFrame().bytes(), QByteArray("?1$"));
    QCOMPARE(message.takeFrame().bytes(), QByteArray("$"));
    QCOMPARE(message.takeFrame().bytes(), QByteArray("?22$"));
    QVERIFY(!message.containsFrame());
    QVERIFY(message.takeFrame().isEmpty());
    QCOMPARE(message.bytes(), QByteArray("rest"));
}

void tst_CCarreraCuMessage::timeStamp_data()
{
    QTest::addColumn<QByteArray>("nibbles");
    QTest::addColumn<quint32>("stamp");

    QTest::newRow("zero") << QByteArray("00000000") << quint32(0);
    QTest::newRow("1") << QByteArray("00000010") << quint32(1);
    QTest::newRow("16") << QByteArray("00000001") << quint32(16);
    QTest::newRow("5678 = 0x162e") << QByteArray("000061>2") << quint32(0x162e);
    QTest::newRow("0x12345678") << QByteArray("21436587") << quint32(0x12345678);
    QTest::newRow("all bits") << QByteArray("????????") << quint32(0xffffffff);
}

void tst_CCarreraCuMessage::timeStamp()
{
    QFETCH(QByteArray, nibbles);
    QTEST(CCarreraCuMessage("?1" + nibbles + "10$").timeStamp(), "stamp");
}

void tst_CCarreraCuMessage::theEightNibblesEachHaveTheirBits()
{
    const int shifts[] = {24, 28, 16, 20, 8, 12, 0, 4};
    for (int i = 0; i < 8; ++i) {
        QByteArray nibbles(8, '0');
        nibbles[i] = '9';
        QCOMPARE(CCarreraCuMessage("?1" + nibbles + "10$").timeStamp(), quint32(9) << shifts[i]);
    }
}

void tst_CCarreraCuMessage::kindOfFrame_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("lap");
    QTest::addColumn<bool>("status");

    for (char car = '1'; car <= '8'; ++car)
        QTest::addRow("car %c", car) << "?" + QByteArray(1, car) + "0000000010$" << true << false;
    QTest::newRow("car 0") << QByteArray("?00000000010$") << false << false;
    QTest::newRow("car 9") << QByteArray("?90000000010$") << false << false;
    QTest::newRow("status") << QByteArray("?:??????000000000$") << false << true;
    QTest::newRow("longer status") << QByteArray("?:??????00000000000$") << false << true;
    QTest::newRow("another kind") << QByteArray("?;00000000010$") << false << false;
    QTest::newRow("not a frame") << QByteArray("x10000000012$") << false << false;
    QTest::newRow("lap with a byte lost") << QByteArray("?1000000012$") << false << false;
    QTest::newRow("lap with a byte added") << QByteArray("?100000000012$") << false << false;
    QTest::newRow("lap too short for the group") << QByteArray("?10000000$") << false << false;
    QTest::newRow("shortest status that can be read") << QByteArray("?:??????00700$") << false << true;
    QTest::newRow("status too short for the light") << QByteArray("?:??????00$") << false << false;
    QTest::newRow("valid but far too short") << QByteArray("?0$") << false << false;
    QTest::newRow("empty") << QByteArray() << false << false;
}

void tst_CCarreraCuMessage::kindOfFrame()
{
    QFETCH(QByteArray, bytes);
    QTEST(CCarreraCuMessage(bytes).isLapFrame(), "lap");
    QTEST(CCarreraCuMessage(bytes).isStatusFrame(), "status");
}

void tst_CCarreraCuMessage::fieldsOfAStatusFrame()
{
    const CCarreraCuMessage message("?:0159<?==700000$");
    const int levels[] = {0, 1, 5, 9, 12, 15};
    for (int car = 0; car < 6; ++car)
        QCOMPARE(int(message.tankLevel(car)), levels[car]);
    QCOMPARE(int(message.startLight()), 7);
}

void tst_CCarreraCuMessage::randomBytesAreReadWithoutHarm()
{
    QRandomGenerator random(4711);
    int valid = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes(random.bounded(30), Qt::Uninitialized);
        for (char& byte : bytes)
            byte = char(random.bounded(256));
        bytes += '$';
        const CCarreraCuMessage message(bytes);
        QVERIFY(message.isComplete());
        valid += message.checksumValid();
        QVERIFY(message.sensorGroup() <= 15 && message.car() <= 15 && message.startLight() <= 15);
        QVERIFY(message.toString().size() <= bytes.size());
        QVERIFY(!(message.isLapFrame() && message.isStatusFrame()));
    }
    // One character in 256 is the right one.
    QVERIFY2(valid > 20 && valid < 250, qPrintable(QString::number(valid)));
}

QTEST_GUILESS_MAIN(tst_CCarreraCuMessage)
#include "tst_CCarreraCuMessage.moc"
