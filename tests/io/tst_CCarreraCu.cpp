#include "io/CCarreraCu.h"
#include "io/FakeLine.h"

#include <QtTest>

namespace {

const QByteArray Lap1 = "?10000000012$";
const QByteArray Lap2 = "?20000000013$";
const QByteArray Status = "?:??????00700083$";

} // namespace

class tst_CCarreraCu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aPortThatCannotBeOpenedIsSaidSo();
    void openingForgetsWhatAnEarlierLineLeftBehind();
    void aWholeFrameIsReceived();
    void silenceIsNoFrame();
    void aFrameInPiecesIsPutTogether();
    void aFrameInPiecesIsPutTogetherAcrossSilence();
    void anUnfinishedFrameIsKeptAndShownButNotReported();
    void aWrongChecksumIsDroppedAndTheNextFrameIsRead();
    void aLostEndOfFrameJoinsTheNextFrameAndBothAreDropped();
    void joinedFramesComeOutOneByOne();
    void joinedFramesAreReadWithoutAnotherWait();
    void aGoodFrameBesideABadOneInOneReadIsKept();
    void aFinishedFrameIsDeliveredBeforeTheUnfinishedOneBehindIt();
    void aFrameOfOneOrTwoCharactersIsIgnored_data();
    void aFrameOfOneOrTwoCharactersIsIgnored();
    void aFrameOfThreeCharactersIsAFrame();
    void bytesThatArriveWhileThePollLeavesAreNotWaitedFor();
    void junkWithoutAnEndDoesNotGrowWithoutBound();
    void randomBytesNeverHideTheFramesAfterThem();
    void nothingToSendIsNoSuccess();
    void queuedTextGoesOutWholeAndOnce();
    void whatCannotLeaveIsKept();
    void whatALineTakesOnlyInPartIsNoSuccess();
    void aLineThatTakesNothingDoesNotGrowTheBuffer();
    void aClosedPortReceivesAndSendsNothing();
    void oneObjectIsSharedAndFreedWithItsLastUser();

private:
    bool receive(const QList<QByteArray>& reads);

    FakeLineScript m_script;
    std::unique_ptr<CCarreraCu> m_cu;
};

void tst_CCarreraCu::init()
{
    m_script = FakeLineScript();
    m_cu = std::make_unique<CCarreraCu>();
    m_cu->setPortMaker([this](const QString&) { return std::make_unique<FakeLine>(&m_script); });
    QVERIFY(m_cu->openPort(QStringLiteral("fake")));
}

bool tst_CCarreraCu::receive(const QList<QByteArray>& reads)
{
    m_script.reads += reads;
    return m_cu->receiveFrame();
}

void tst_CCarreraCu::aPortThatCannotBeOpenedIsSaidSo()
{
    m_script.opens = false;
    QVERIFY(!m_cu->openPort(QStringLiteral("fake")));
    QVERIFY(!m_cu->isOpen());

    CCarreraCu real;
    QVERIFY(!real.openPort(QDir::currentPath() + QStringLiteral("/no-such-port")));
    QVERIFY(!real.isOpen());
}

void tst_CCarreraCu::openingForgetsWhatAnEarlierLineLeftBehind()
{
    QVERIFY(!receive({"?10000"}));
    m_cu->queueText(QStringLiteral("\"?"));
    m_cu->closePort();
    QVERIFY(!m_cu->isOpen());
    QVERIFY(m_cu->openPort(QStringLiteral("fake")));
    QVERIFY(m_cu->isOpen());
    QVERIFY(!m_cu->sendPending());
    QVERIFY(receive({Lap2}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap2);
}

void tst_CCarreraCu::aWholeFrameIsReceived()
{
    QVERIFY(receive({Lap1}));
    QCOMPARE(m_cu->lastFrameText(), QString::fromLatin1(Lap1));
    QVERIFY(!receive({}));
}

void tst_CCarreraCu::silenceIsNoFrame()
{
    QVERIFY(!receive({}));
    QVERIFY(m_cu->lastFrame().isEmpty());
}

void tst_CCarreraCu::aFrameInPiecesIsPutTogether()
{
    QList<QByteArray> pieces;
    for (const char byte : Lap1)
        pieces += QByteArray(1, byte);
    QVERIFY(receive(pieces));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
    QCOMPARE(m_script.writes, 0);
}

void tst_CCarreraCu::aFrameInPiecesIsPutTogetherAcrossSilence()
{
    QVERIFY(!receive({"?1000", ""}));
    QVERIFY(receive({"0000012$"}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
}

void tst_CCarreraCu::anUnfinishedFrameIsKeptAndShownButNotReported()
{
    QVERIFY(!receive({"?1000"}));
    QCOMPARE(m_cu->lastFrame().bytes(), QByteArray("?1000"));
}

void tst_CCarreraCu::aWrongChecksumIsDroppedAndTheNextFrameIsRead()
{
    QVERIFY(!receive({"?10000000013$"}));
    QVERIFY(receive({Lap1}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
}

void tst_CCarreraCu::aLostEndOfFrameJoinsTheNextFrameAndBothAreDropped()
{
    QVERIFY(!receive({"?20000000013"}));
    QVERIFY(!receive({Lap1}));
    QVERIFY(receive({Lap1}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
}

void tst_CCarreraCu::joinedFramesComeOutOneByOne()
{
    QVERIFY(receive({Status + Lap1 + Lap2}));
    QCOMPARE(m_cu->lastFrame().bytes(), Status);
    QVERIFY(receive({}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
    QVERIFY(receive({}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap2);
    QVERIFY(!receive({}));
}

void tst_CCarreraCu::joinedFramesAreReadWithoutAnotherWait()
{
    QVERIFY(receive({Lap1 + Lap2}));
    QVERIFY(receive({Status}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap2);
    QCOMPARE(m_script.reads.size(), 1);
}

void tst_CCarreraCu::aGoodFrameBesideABadOneInOneReadIsKept()
{
    QVERIFY(receive({"?10000000013$" + Lap2 + "?10000000014$"}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap2);
    QVERIFY(!receive({}));
    QVERIFY(receive({Lap1}));
}

void tst_CCarreraCu::aFinishedFrameIsDeliveredBeforeTheUnfinishedOneBehindIt()
{
    QVERIFY(receive({Lap1 + "?200000"}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
    QVERIFY(receive({"00013$"}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap2);
}

void tst_CCarreraCu::aFrameOfOneOrTwoCharactersIsIgnored_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("one") << QByteArray("$");
    QTest::newRow("two, the checksum would hold") << QByteArray("0$");
    QTest::newRow("two") << QByteArray("?$");
}

void tst_CCarreraCu::aFrameOfOneOrTwoCharactersIsIgnored()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!receive({bytes}));
    QVERIFY(m_cu->lastFrame().isEmpty());
    QVERIFY(receive({Lap1}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
}

void tst_CCarreraCu::aFrameOfThreeCharactersIsAFrame()
{
    QVERIFY(receive({"?0$"}));
    QVERIFY(!receive({"?1$"}));
}

void tst_CCarreraCu::bytesThatArriveWhileThePollLeavesAreNotWaitedFor()
{
    m_script.readsWhileWriting = Lap1;
    m_cu->queueText(QStringLiteral("\"?"));
    QVERIFY(m_cu->sendPending());
    QVERIFY(receive({}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap1);
}

void tst_CCarreraCu::junkWithoutAnEndDoesNotGrowWithoutBound()
{
    for (int round = 0; round < 1000; ++round) {
        m_script.reads = {QByteArray(100, 'x'), ""};
        QVERIFY(!m_cu->receiveFrame());
        QVERIFY(m_cu->lastFrame().size() <= CCarreraCu::MaxBuffered + 100);
    }
    m_script.reads = {Lap1};
    QVERIFY(!m_cu->receiveFrame()); // joins what is left of the junk
    QVERIFY(receive({Lap2}));
    QCOMPARE(m_cu->lastFrame().bytes(), Lap2);
}

void tst_CCarreraCu::randomBytesNeverHideTheFramesAfterThem()
{
    QRandomGenerator random(20240607);
    for (int round = 0; round < 2000; ++round) {
        QByteArray junk(random.bounded(400), Qt::Uninitialized);
        for (char& byte : junk)
            byte = char(random.bounded(256));
        m_script.reads = {junk, QByteArray()};
        while (m_cu->receiveFrame()) {
        }
        m_script.reads = {"$", Lap1};
        bool seen = false;
        for (int pass = 0; pass < 3 && !seen; ++pass)
            seen = m_cu->receiveFrame() && m_cu->lastFrame().bytes() == Lap1;
        QVERIFY(seen);
    }
}

void tst_CCarreraCu::nothingToSendIsNoSuccess()
{
    QVERIFY(!m_cu->sendPending());
    QCOMPARE(m_script.writes, 0);
}

void tst_CCarreraCu::queuedTextGoesOutWholeAndOnce()
{
    m_cu->queueText(QStringLiteral("\"?"));
    m_cu->queueText(QStringLiteral("ä"));
    QVERIFY(m_cu->sendPending());
    QCOMPARE(m_script.written, QByteArray("\"?\xc3\xa4"));
    QVERIFY(!m_cu->sendPending());
}

void tst_CCarreraCu::whatCannotLeaveIsKept()
{
    m_script.takesBytes = false;
    m_cu->queueText(QStringLiteral("\"0"));
    QVERIFY(!m_cu->sendPending());
    m_script.takesBytes = true;
    QVERIFY(m_cu->sendPending());
    QCOMPARE(m_script.written, QByteArray("\"0"));
}

void tst_CCarreraCu::whatALineTakesOnlyInPartIsNoSuccess()
{
    m_script.mostBytesAWrite = 1;
    m_cu->queueText(QStringLiteral("\"?"));
    QVERIFY(!m_cu->sendPending());
    m_script.mostBytesAWrite = 1000;
    QVERIFY(!m_cu->sendPending()); // the rest is gone
}

void tst_CCarreraCu::aLineThatTakesNothingDoesNotGrowTheBuffer()
{
    m_script.takesBytes = false;
    for (int pass = 0; pass < 1000; ++pass)
        m_cu->queueText(QStringLiteral("\"?"));
    QVERIFY(!m_cu->sendPending());
    m_script.takesBytes = true;
    QVERIFY(m_cu->sendPending());
    QCOMPARE(m_script.written.size(), CCarreraCu::MaxBuffered);
}

void tst_CCarreraCu::aClosedPortReceivesAndSendsNothing()
{
    m_cu->closePort();
    m_cu->queueText(QStringLiteral("\"?"));
    QVERIFY(!m_cu->sendPending());
    QVERIFY(!receive({Lap1}));
    QCOMPARE(m_script.reads.size(), 1);
    QCOMPARE(m_script.writes, 0);
}

void tst_CCarreraCu::oneObjectIsSharedAndFreedWithItsLastUser()
{
    QPointer<CCarreraCu> first = CCarreraCu::instance();
    QCOMPARE(CCarreraCu::instance(), first.data());
    CCarreraCu::release();
    QVERIFY(first);
    CCarreraCu::release();
    QVERIFY(!first);
    CCarreraCu::release(); // one too many is no harm
    QVERIFY(CCarreraCu::instance());
    CCarreraCu::release();
}

QTEST_GUILESS_MAIN(tst_CCarreraCu)
#include "tst_CCarreraCu.moc"
