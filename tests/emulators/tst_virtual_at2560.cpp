#include "support/VirtualBox.h"

#include <QSerialPort>
#include <QtTest>

#include <algorithm>

class tst_virtual_at2560 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inputsAndOutputsGoOverTheTerminal();
    void aScriptPressesAtGivenTimes();
    void commandsCanBePlanned();
    void theJournalHoldsWhatWasReported();
    void badWordsAreRefused_data();
    void badWordsAreRefused();
    void unknownCommandsAreSaidSo();
    void aPulledCableHangsUpAndTheLinkFollowsTheNewTerminal();
    void theProgramLeavesWithTheOneThatStartedIt();

private:
    static bool open(QSerialPort* port, const QString& path);
    static QByteArray read(QSerialPort* port, int frames);
};

bool tst_virtual_at2560::open(QSerialPort* port, const QString& path)
{
    port->setPortName(path);
    return port->setBaudRate(QSerialPort::Baud57600) && port->open(QIODevice::ReadWrite);
}

/** @return what arrives up to so many frames. */
QByteArray tst_virtual_at2560::read(QSerialPort* port, int frames)
{
    QByteArray bytes;
    while (bytes.count(';') < frames && (port->bytesAvailable() > 0 || port->waitForReadyRead(5000)))
        bytes += port->readAll();
    return bytes;
}

void tst_virtual_at2560::inputsAndOutputsGoOverTheTerminal()
{
    VirtualBox box;
    QVERIFY(box.start({}));
    QSerialPort port;
    QVERIFY(open(&port, box.path()));
    port.write(":IS,7.1.2;:A10;:P30;:C0;");
    QTRY_VERIFY(box.hasSaid("C on"));
    QCOMPARE(box.said().mid(1), QStringList({"IS 7.1.2", "A1 on", "P3 on", "C on"}));
    QCOMPARE(box.outputs(), QStringLiteral("lamps 1----- power --3--- chaos on e off"));
    box.command("press 2 34567");
    box.command("clock 34567");
    QCOMPARE(read(&port, 1), QByteArray(":S2,34567;"));
    QTRY_VERIFY(box.hasSaid("finished"));
    QVERIFY(box.ask("status", "clock").endsWith(" reported 1 pending 0 inputs 7.1.2"));
}

void tst_virtual_at2560::aScriptPressesAtGivenTimes()
{
    QFile script("script");
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("# two cars\npress 1 5000\n\npress 2 5100\npress 1 9000\n");
    script.close();
    VirtualBox box;
    QVERIFY(box.start({"--script", "script", "--clock", "0", "--speed-up", "10"}));
    QSerialPort port;
    QVERIFY(open(&port, box.path()));
    port.write(":IS,1.2;");
    QCOMPARE(read(&port, 3), QByteArray(":S1,5000;:S2,5100;:S1,9000;"));
}

void tst_virtual_at2560::commandsCanBePlanned()
{
    VirtualBox box;
    QVERIFY(box.start({"--clock", "0", "--speed-up", "10"}));
    QSerialPort port;
    QVERIFY(open(&port, box.path()));
    port.write(":IS,1;");
    QTRY_VERIFY(box.hasSaid("IS 1"));
    box.command("at 60000 send :hello;");
    box.command("press 1 50000");
    box.command("clock 49000");
    QCOMPARE(read(&port, 2), QByteArray(":S1,50000;:hello;"));
}

void tst_virtual_at2560::theJournalHoldsWhatWasReported()
{
    const QString fileName = QDir::current().filePath("journal");
    VirtualBox box;
    QVERIFY(box.start({"--cars", "2", "--laps", "2", "--speed-up", "100", "--journal", fileName, "--split",
                       "50", "--junk", "50"}));
    QSerialPort port;
    QVERIFY(open(&port, box.path()));
    port.write(":IS,1.2;");
    QTRY_VERIFY(box.hasSaid("IS 1.2"));
    box.command("start");
    QByteArray bytes;
    while (!box.hasSaid("finished") && port.waitForReadyRead(5000))
        bytes += port.readAll();
    const QVector<Activation> journal = VirtualBox::journal(fileName);
    QCOMPARE(journal.size(), 6);
    const auto isReported = [&bytes](const Activation& activation) {
        return bytes.contains(
            QStringLiteral(":S%1,%2;").arg(activation.input).arg(activation.stamp).toLatin1());
    };
    while (!std::all_of(journal.begin(), journal.end(), isReported) && port.waitForReadyRead(5000))
        bytes += port.readAll();
    for (const Activation& activation : journal)
        QVERIFY(isReported(activation));
}

void tst_virtual_at2560::badWordsAreRefused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("too many cars") << QStringList{"--cars", "9"};
    QTest::newRow("no number") << QStringList{"--split", "often"};
    QTest::newRow("no such input") << QStringList{"--lap-input", "54"};
    QTest::newRow("journal in no directory") << QStringList{"--journal", "no-such/directory"};
    QTest::newRow("no script") << QStringList{"--script", "no-such-script"};
}

void tst_virtual_at2560::badWordsAreRefused()
{
    QFETCH(QStringList, words);
    QProcess process;
    process.start(QStringLiteral(TORNIK_BIN_DIR "/virtual-at2560"), words);
    QVERIFY(process.waitForFinished());
    QVERIFY(process.exitCode() != 0);
    QVERIFY(process.readAllStandardOutput().isEmpty());
    QVERIFY(!process.readAllStandardError().isEmpty());
}

void tst_virtual_at2560::unknownCommandsAreSaidSo()
{
    VirtualBox box;
    QVERIFY(box.start({}));
    for (const QByteArray line : {"drive faster", "press", "press x", "at 5", "script no-such-script"})
        QCOMPARE(box.ask(line, "unknown"), "unknown: " + QString::fromLatin1(line));
}

void tst_virtual_at2560::aPulledCableHangsUpAndTheLinkFollowsTheNewTerminal()
{
    const QString link = QDir::current().filePath("box");
    VirtualBox box;
    QVERIFY(box.start({"--link", link}));
    QSerialPort port;
    QVERIFY(open(&port, link));
    port.write(":IS,1;");
    QTRY_VERIFY(box.hasSaid("IS 1"));
    box.command("pull");
    QTRY_VERIFY(port.error() == QSerialPort::ReadError || port.error() == QSerialPort::ResourceError);
    port.close();

    QVERIFY(box.plug());
    QCOMPARE(QFile::symLinkTarget(link), box.path());
    QVERIFY(open(&port, link));
    box.command("press 1");
    QVERIFY(read(&port, 1).startsWith(":S1,"));
}

void tst_virtual_at2560::theProgramLeavesWithTheOneThatStartedIt()
{
    QProcess process;
    process.start(QStringLiteral(TORNIK_BIN_DIR "/virtual-at2560"), QStringList());
    QVERIFY(process.waitForReadyRead());
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_virtual_at2560)
#include "tst_virtual_at2560.moc"
