#include "io/BoxLine.h"
#include "io/CLtAt2560.h"
#include "io/EventRecorder.h"
#include "support/DebugLines.h"

#include <QRandomGenerator>
#include <QtTest>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

const QString Opened = QStringLiteral("serial->open() in connect() was successful");
const QString TooLong = QStringLiteral("string size in CLtAt2560::processSerialData(void)");

} // namespace

class tst_CLtAt2560 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void twoFramesInOneReadGiveTwoEventsInOrder();
    void aFrameSplitOverTwoReadsGivesOneEventAfterTheSecondRead();
    void bytesAheadOfTheFirstColonAreDropped();
    void junkBetweenTwoFramesLosesNone();
    void anEndAheadOfAFrameGivesNoEvent();
    void aFrameOf31BytesIsWhole();
    void aFrameOf32BytesIsCutTo31AndTold();
    void aFrameThatNeverEndsFillsNoMemory();
    void bytesBehindANulCharacterAreNotText();
    void framesInPiecesOfAnySizeGiveTheSameEvents();
    void randomBytesAreReadWithoutHarm();
    void withoutATargetFramesAreDropped();
    void aTargetThatDiedGetsNothing();

    void theLineIsOpenedAt57600Baud();
    void bytesOfTheLineReachTheTarget();
    void aFrameIsSentAsUtf8();
    void withoutALineNothingIsSent();
    void anUnchangedPortNameDoesNotReopenThePort();
    void anotherPortNameOpensTheOtherLine();
    void reconnectingOpensTheLineAfresh();
    void aNewLineForgetsHalfAFrameOfTheOldOne();
    void bytesFromBeforeTheOpenAreDropped();
    void aFailedOpenIsTriedAgain();
    void disconnectingOnlyTellsSo();
    void aLineThatHangsUpIsClosedOnce();
    void afterAHangUpOnlyAnotherPortNameReachesTheBox();
    void aBoxThatTakesNoBytesForAMomentIsNotLost();
    void oneObjectIsSharedAndClosesItsLineWithTheLastReference();

private:
    QStringList frames();
    bool opens(const BoxLine& line);

    std::unique_ptr<DebugLines> m_log;
    std::unique_ptr<EventRecorder> m_target;
    std::unique_ptr<CLtAt2560> m_box;
};

void tst_CLtAt2560::init()
{
    m_log = std::make_unique<DebugLines>();
    m_target = std::make_unique<EventRecorder>();
    m_box = std::make_unique<CLtAt2560>();
    m_box->setTarget(m_target.get());
}

void tst_CLtAt2560::cleanup()
{
    m_box.reset();
    m_target.reset();
    m_log.reset();
}

QStringList tst_CLtAt2560::frames()
{
    QCoreApplication::sendPostedEvents(m_target.get());
    return m_target->frames();
}

bool tst_CLtAt2560::opens(const BoxLine& line)
{
    return m_box->openOnPort(line.path()) && m_box->isConnected();
}

void tst_CLtAt2560::twoFramesInOneReadGiveTwoEventsInOrder()
{
    m_box->processBytes(":S1,100;:S2,105;");
    QCOMPARE(frames(), QStringList({":S1,100;", ":S2,105;"}));
}

void tst_CLtAt2560::aFrameSplitOverTwoReadsGivesOneEventAfterTheSecondRead()
{
    m_box->processBytes(":S12,34");
    QCOMPARE(frames(), QStringList());
    m_box->processBytes("567;");
    QCOMPARE(frames(), QStringList({":S12,34567;"}));
}

void tst_CLtAt2560::bytesAheadOfTheFirstColonAreDropped()
{
    m_box->processBytes("\r\nready 1,2 \xff:S1,100;");
    QCOMPARE(frames(), QStringList({":S1,100;"}));
}

void tst_CLtAt2560::junkBetweenTwoFramesLosesNone()
{
    m_box->processBytes(":S1,100;\r\n;;17;:S2,105;\r\n");
    m_box->processBytes("xyz");
    QCOMPARE(m_box->pendingBytes(), 0);
    m_box->processBytes("xyz:S3,110;");
    QCOMPARE(frames(), QStringList({":S1,100;", ":S2,105;", ":S3,110;"}));
}

void tst_CLtAt2560::anEndAheadOfAFrameGivesNoEvent()
{
    m_box->processBytes("00;:S1,1");
    QCOMPARE(frames(), QStringList());
    m_box->processBytes("00;");
    QCOMPARE(frames(), QStringList({":S1,100;"}));
}

void tst_CLtAt2560::aFrameOf31BytesIsWhole()
{
    const QByteArray frame = ":S1," + QByteArray(26, '7') + ';';
    m_box->processBytes(frame);
    QCOMPARE(frame.size(), 31);
    QCOMPARE(frames(), QStringList({frame}));
    QCOMPARE(m_log->count(TooLong), 0);
}

void tst_CLtAt2560::aFrameOf32BytesIsCutTo31AndTold()
{
    const QByteArray frame = ":S1," + QByteArray(27, '7') + ';';
    m_box->processBytes(frame + ":S2,105;");
    QCOMPARE(frames(), QStringList({frame.left(31), ":S2,105;"}));
    QCOMPARE(m_log->count(TooLong), 1);
}

void tst_CLtAt2560::aFrameThatNeverEndsFillsNoMemory()
{
    m_box->processBytes(":S1,");
    for (int i = 0; i < 10000; ++i) {
        m_box->processBytes(QByteArray(1000, '7'));
        QVERIFY(m_box->pendingBytes() <= 32);
    }
    QCOMPARE(frames(), QStringList());
    m_box->processBytes(";:S2,105;");
    QCOMPARE(frames(), QStringList({":S1," + QByteArray(27, '7'), ":S2,105;"}));
    QCOMPARE(m_log->count(TooLong), 1);
}

void tst_CLtAt2560::bytesBehindANulCharacterAreNotText()
{
    m_box->processBytes(QByteArray(":S1,\0005;", 7));
    QCOMPARE(frames(), QStringList({":S1,"}));
}

void tst_CLtAt2560::framesInPiecesOfAnySizeGiveTheSameEvents()
{
    QRandomGenerator random(57600);
    QByteArray line;
    QStringList expected;
    for (int i = 0; i < 2000; ++i) {
        const QString frame = QStringLiteral(":S%1,%2;").arg(random.bounded(54)).arg(random.bounded(1 << 30));
        expected.append(frame);
        line += frame.toLatin1() + QByteArray(random.bounded(4), '\n');
    }
    while (!line.isEmpty()) {
        const int size = 1 + random.bounded(40);
        m_box->processBytes(line.left(size));
        line.remove(0, size);
    }
    QCOMPARE(frames(), expected);
}

void tst_CLtAt2560::randomBytesAreReadWithoutHarm()
{
    QRandomGenerator random(2560);
    const QByteArray alphabet(":;S,0123456789\0\xff", 16);
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes;
        for (int i = random.bounded(30); i > 0; --i)
            bytes += alphabet.at(random.bounded(alphabet.size()));
        m_box->processBytes(bytes);
    }
    QVERIFY(!frames().isEmpty());
    for (const QString& frame : frames())
        QVERIFY(frame.startsWith(':') && frame.size() <= 31);
}

void tst_CLtAt2560::withoutATargetFramesAreDropped()
{
    m_box->setTarget(nullptr);
    m_box->processBytes(":S1,100;");
    m_box->setTarget(m_target.get());
    m_box->processBytes(":S2,105;");
    QCOMPARE(frames(), QStringList({":S2,105;"}));
}

void tst_CLtAt2560::aTargetThatDiedGetsNothing()
{
    m_target.reset();
    m_box->processBytes(":S1,100;");
    QVERIFY(!m_box->target());
}

void tst_CLtAt2560::theLineIsOpenedAt57600Baud()
{
    BoxLine line;
    QVERIFY(opens(line));
    QCOMPARE(m_log->count(Opened), 1);
    const int descriptor = ::open(qPrintable(line.path()), O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(descriptor >= 0);
    termios settings{};
    QCOMPARE(::tcgetattr(descriptor, &settings), 0);
    ::close(descriptor);
    QCOMPARE(::cfgetispeed(&settings), speed_t(B57600));
    QCOMPARE(::cfgetospeed(&settings), speed_t(B57600));
    QCOMPARE(settings.c_cflag & (CSIZE | PARENB | CSTOPB), tcflag_t(CS8));
    QCOMPARE(settings.c_lflag & (ICANON | ECHO), tcflag_t(0));
}

void tst_CLtAt2560::bytesOfTheLineReachTheTarget()
{
    BoxLine line;
    QVERIFY(opens(line));
    line.send(":S1,1");
    line.send("00;:S2,105;");
    QTRY_COMPARE(m_target->frames(), QStringList({":S1,100;", ":S2,105;"}));
}

void tst_CLtAt2560::aFrameIsSentAsUtf8()
{
    BoxLine line;
    QVERIFY(opens(line));
    m_box->sendFrame(QStringLiteral(":A10;"));
    m_box->sendFrame(QStringLiteral(":ü;"));
    QTRY_COMPARE(line.received(), QByteArray(":A10;:\xc3\xbc;"));
}

void tst_CLtAt2560::withoutALineNothingIsSent()
{
    m_box->sendFrame(QStringLiteral(":A10;"));
    QVERIFY(!m_box->isConnected());
    QCOMPARE(m_log->lines(), QStringList());
}

void tst_CLtAt2560::anUnchangedPortNameDoesNotReopenThePort()
{
    BoxLine line;
    QVERIFY(opens(line));
    m_log->forget();
    QVERIFY(opens(line));
    QVERIFY(m_box->setPortName(line.path()));
    QCOMPARE(m_log->lines(), QStringList());
}

void tst_CLtAt2560::anotherPortNameOpensTheOtherLine()
{
    BoxLine first;
    BoxLine second;
    QVERIFY(opens(first));
    m_log->forget();
    QVERIFY(opens(second));
    QCOMPARE(m_log->count(QStringLiteral("COM Port changed, reconnect()")), 1);
    QCOMPARE(m_log->count(QStringLiteral("reconnect() was called")), 1);
    QCOMPARE(m_log->count(Opened), 1);
    first.send(":S1,100;");
    second.send(":S2,105;");
    QTRY_COMPARE(m_target->frames(), QStringList({":S2,105;"}));
    m_box->sendFrame(QStringLiteral(":A10;"));
    QTRY_COMPARE(second.received(), QByteArray(":A10;"));
    QCOMPARE(first.received(), QByteArray());
}

void tst_CLtAt2560::reconnectingOpensTheLineAfresh()
{
    BoxLine line;
    QVERIFY(opens(line));
    m_log->forget();
    QVERIFY(m_box->reconnectPort());
    QCOMPARE(m_log->count(Opened), 1);
    line.send(":S1,100;");
    QTRY_COMPARE(m_target->frames(), QStringList({":S1,100;"}));
}

void tst_CLtAt2560::aNewLineForgetsHalfAFrameOfTheOldOne()
{
    BoxLine line;
    QVERIFY(opens(line));
    m_box->processBytes(":S1,12");
    QVERIFY(m_box->reconnectPort());
    m_box->processBytes(":S2,105;");
    QCOMPARE(frames(), QStringList({":S2,105;"}));
}

void tst_CLtAt2560::bytesFromBeforeTheOpenAreDropped()
{
    BoxLine line;
    line.send(":S1,100;");
    QVERIFY(opens(line));
    line.send(":S2,105;");
    QTRY_COMPARE(m_target->frames(), QStringList({":S2,105;"}));
}

void tst_CLtAt2560::aFailedOpenIsTriedAgain()
{
    const QString link = QDir::current().filePath(QStringLiteral("box"));
    QVERIFY(!m_box->openOnPort(link));
    QVERIFY(!m_box->isConnected());
    QVERIFY(!m_box->connectPort());
    QCOMPARE(m_log->count(Opened), 0);

    PseudoTerminal terminal;
    QVERIFY(terminal.open() && terminal.linkFrom(link));
    QVERIFY(m_box->openOnPort(link));
    QCOMPARE(m_log->count(Opened), 1);
}

void tst_CLtAt2560::disconnectingOnlyTellsSo()
{
    BoxLine line;
    QVERIFY(opens(line));
    m_log->forget();
    m_box->disconnectPort();
    QCOMPARE(m_log->lines(), QStringList({"disconnect attempt"}));
    QVERIFY(m_box->isConnected());
    line.send(":S1,100;");
    QTRY_COMPARE(m_target->frames().size(), 1);
}

void tst_CLtAt2560::aLineThatHangsUpIsClosedOnce()
{
    BoxLine line;
    QVERIFY(opens(line));
    const QString lost = "AT2560: lost, \"" + line.path() + '"';
    line.pull();
    QTRY_COMPARE(m_log->count(lost), 1);
    QVERIFY(m_box->isConnected());
    m_log->forget();
    m_box->sendFrame(QStringLiteral(":A10;"));
    QCOMPARE(m_log->lines(),
             QStringList({"serial->write(s) was not successful", "serial->flush() was not successful"}));
    QCoreApplication::processEvents();
    QCOMPARE(m_log->count(lost), 0);
}

void tst_CLtAt2560::afterAHangUpOnlyAnotherPortNameReachesTheBox()
{
    const QString link = QDir::current().filePath(QStringLiteral("lost"));
    PseudoTerminal terminal;
    QVERIFY(terminal.open() && terminal.linkFrom(link));
    QVERIFY(m_box->openOnPort(link));
    terminal.close();
    QTRY_VERIFY(m_log->lines().last().startsWith("AT2560: lost"));

    BoxLine back;
    QVERIFY(QFile::remove(link) && QFile::link(back.path(), link));
    m_log->forget();
    QVERIFY(m_box->openOnPort(link));
    QCOMPARE(m_log->count(Opened), 0);
    QVERIFY(opens(back));
    QCOMPARE(m_log->count(Opened), 1);
    back.send(":S1,100;");
    QTRY_COMPARE(m_target->frames(), QStringList({":S1,100;"}));
}

void tst_CLtAt2560::aBoxThatTakesNoBytesForAMomentIsNotLost()
{
    BoxLine line;
    QVERIFY(opens(line));
    QByteArray sent;
    for (int i = 0; i < 20000; ++i) { // more than the system keeps for a reader
        m_box->sendFrame(QStringLiteral(":A10;"));
        sent += ":A10;";
    }
    QVERIFY(m_log->count(QStringLiteral("serial->flush() was not successful")) > 0);
    QTRY_COMPARE(line.received().size(), sent.size());
    QCOMPARE(line.received(), sent);
    line.send(":S1,100;");
    QTRY_COMPARE(m_target->frames(), QStringList({":S1,100;"}));
}

void tst_CLtAt2560::oneObjectIsSharedAndClosesItsLineWithTheLastReference()
{
    BoxLine line;
    CLtAt2560* box = CLtAt2560::instance();
    QCOMPARE(CLtAt2560::instance(), box);
    QVERIFY(box->openOnPort(line.path()));
    CLtAt2560::release();
    QVERIFY(CLtAt2560::instance()->isConnected());
    CLtAt2560::release();
    CLtAt2560::release();
    QVERIFY(!CLtAt2560::instance()->isConnected());
    CLtAt2560::release();
    CLtAt2560::release(); // one too many does no harm
}

QTEST_GUILESS_MAIN(tst_CLtAt2560)
#include "tst_CLtAt2560.moc"
