#include "BoxLine.h"
#include "io/CBoxPort.h"

#include <QtTest>

#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

/** A port that writes down how DTR is switched. */
class RecordingBoxPort : public CBoxPort
{
public:
    QStringList dtr;
    bool dtrFails = false;

protected:
    int control(unsigned long request, void* argument) override
    {
        if (request != TIOCMBIS && request != TIOCMBIC)
            return CBoxPort::control(request, argument);
        if (*static_cast<int*>(argument) == TIOCM_DTR)
            dtr.append(request == TIOCMBIS ? "on" : "off");
        errno = EIO;
        return dtrFails ? -1 : 0;
    }
};

} // namespace

/** The port on a pseudo-terminal. */
class tst_CBoxPort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLineHas4800Baud8DataBitsNoParityAnd1StopBit();
    void openingSwitchesDtrOn();
    void aPortWhoseDtrCannotBeSwitchedIsClosedAgain();
    void aPortIsOpenedForOneAlone();
    void aClosedPortCanBeOpenedAgain();
    void whatIsNoSerialPortIsRefused_data();
    void whatIsNoSerialPortIsRefused();
    void bytesAreReadOneByOne();
    void aSilentLineGivesNoByte();
    void whatCameBeforeTheOpeningIsDropped();
    void bytesArriveUnchanged();
    void aLineThatTakesNothingIsGivenUpForTheByteAlone();
    void aLineThatHangsUpIsClosedAtTheNextRead();
    void aLineThatHangsUpIsClosedAtTheNextWrite();
};

void tst_CBoxPort::theLineHas4800Baud8DataBitsNoParityAnd1StopBit()
{
    const BoxLine line;
    const int descriptor = ::open(qPrintable(line.path()), O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(descriptor >= 0);
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    termios settings{};
    QCOMPARE(::tcgetattr(descriptor, &settings), 0);
    ::close(descriptor);
    QCOMPARE(::cfgetispeed(&settings), speed_t(B4800));
    QCOMPARE(::cfgetospeed(&settings), speed_t(B4800));
    QCOMPARE(settings.c_cflag & tcflag_t(CSIZE), tcflag_t(CS8));
    QCOMPARE(settings.c_cflag & tcflag_t(PARENB | CSTOPB | CRTSCTS), tcflag_t(0));
    QCOMPARE(settings.c_cflag & tcflag_t(CREAD | CLOCAL), tcflag_t(CREAD | CLOCAL));
    QCOMPARE(settings.c_iflag & tcflag_t(IXON | ICRNL | ISTRIP), tcflag_t(0));
    QCOMPARE(settings.c_oflag & tcflag_t(OPOST), tcflag_t(0));
    QCOMPARE(settings.c_lflag & tcflag_t(ICANON | ECHO | ISIG), tcflag_t(0));
}

void tst_CBoxPort::openingSwitchesDtrOn()
{
    const BoxLine line;
    RecordingBoxPort port;
    QVERIFY(port.open(line.path()));
    QCOMPARE(port.dtr, QStringList{"on"});
    QVERIFY(port.setDtr(false));
    QVERIFY(port.setDtr(true));
    QCOMPARE(port.dtr, (QStringList{"on", "off", "on"}));
}

void tst_CBoxPort::aPortWhoseDtrCannotBeSwitchedIsClosedAgain()
{
    const BoxLine line;
    RecordingBoxPort port;
    port.dtrFails = true;
    QVERIFY(!port.open(line.path()));
    QVERIFY(!port.isOpen());
    port.dtrFails = false;
    QVERIFY(port.open(line.path()));
}

void tst_CBoxPort::aPortIsOpenedForOneAlone()
{
    const BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    CBoxPort second;
    QVERIFY(!second.open(line.path()));
    QVERIFY(!second.isOpen());
    QVERIFY(port.isOpen());
}

void tst_CBoxPort::aClosedPortCanBeOpenedAgain()
{
    const BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    port.close();
    QVERIFY(!port.isOpen());
    CBoxPort second;
    QVERIFY(second.open(line.path()));
}

void tst_CBoxPort::whatIsNoSerialPortIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("nothing in /dev") << "no-such-port";
    QTest::newRow("no such path") << "/no/such/port";
    QTest::newRow("directory") << "/tmp";
    QTest::newRow("no terminal") << "null";
    QTest::newRow("file") << QCoreApplication::applicationFilePath();
}

void tst_CBoxPort::whatIsNoSerialPortIsRefused()
{
    QFETCH(QString, name);
    CBoxPort port;
    QVERIFY(!port.open(name));
    QVERIFY(!port.isOpen());
    quint8 byte = 0;
    QVERIFY(!port.read(&byte));
    QVERIFY(!port.write(1));
}

void tst_CBoxPort::bytesAreReadOneByOne()
{
    BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    const QByteArray bytes("\x00\x03\x0a\x0d\x11\x13\xff", 7); // what a terminal might take for itself
    line.send(bytes);
    for (const char expected : bytes) {
        quint8 byte = 0x55;
        QVERIFY(port.read(&byte));
        QCOMPARE(byte, quint8(expected));
    }
    quint8 byte = 0;
    QVERIFY(!port.read(&byte));
}

void tst_CBoxPort::aSilentLineGivesNoByte()
{
    const BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    quint8 byte = 0x55;
    QVERIFY(!port.read(&byte));
    QVERIFY(port.isOpen());
}

void tst_CBoxPort::whatCameBeforeTheOpeningIsDropped()
{
    BoxLine line;
    line.send("stale");
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    quint8 byte = 0;
    QVERIFY(!port.read(&byte));
    line.send("x");
    QVERIFY(port.read(&byte));
    QCOMPARE(byte, quint8('x'));
}

void tst_CBoxPort::bytesArriveUnchanged()
{
    const BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    QByteArray sent;
    for (int byte = 0; byte < 256; ++byte) {
        QVERIFY(port.write(quint8(byte)));
        sent.append(char(byte));
    }
    QTRY_COMPARE(line.received(), sent);
}

void tst_CBoxPort::aLineThatTakesNothingIsGivenUpForTheByteAlone()
{
    const BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    QByteArray sent; // the other end is read by the event loop, which stands still here
    while (sent.size() < 1000000 && port.write(quint8(sent.size())))
        sent.append(char(sent.size()));
    QVERIFY(sent.size() < 1000000);
    QVERIFY(port.isOpen());
    QTRY_COMPARE(line.received(), sent);
    QVERIFY(port.write(0x55));
    QTRY_COMPARE(line.received(), sent + 'U');
}

void tst_CBoxPort::aLineThatHangsUpIsClosedAtTheNextRead()
{
    BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    line.pull();
    quint8 byte = 0;
    QVERIFY(!port.read(&byte));
    QVERIFY(!port.isOpen());
    QVERIFY(!port.read(&byte));
}

void tst_CBoxPort::aLineThatHangsUpIsClosedAtTheNextWrite()
{
    BoxLine line;
    CBoxPort port;
    QVERIFY(port.open(line.path()));
    line.pull();
    QVERIFY(!port.write(1));
    QVERIFY(!port.isOpen());
    QVERIFY(!port.write(1));
}

QTEST_GUILESS_MAIN(tst_CBoxPort)
#include "tst_CBoxPort.moc"
