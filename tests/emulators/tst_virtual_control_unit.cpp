#include "support/VirtualUnit.h"

#include <QSerialPort>
#include <QtTest>

class tst_virtual_control_unit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstLineIsThePathOfATerminal();
    void pollsAreAnsweredOverTheTerminal();
    void badWordsAreRefused_data();
    void badWordsAreRefused();
    void unknownCommandsAreSaidSo();
    void theJournalHoldsWhatWasRead();
    void aPulledCableHangsUpAndTheLinkFollowsTheNewTerminal();
    void theProgramLeavesWithTheOneThatStartedIt();

private:
    static QByteArray answer(QSerialPort* port);
    static bool open(QSerialPort* port, const QString& path);
};

bool tst_virtual_control_unit::open(QSerialPort* port, const QString& path)
{
    port->setPortName(path);
    return port->setBaudRate(QSerialPort::Baud19200) && port->open(QIODevice::ReadWrite);
}

QByteArray tst_virtual_control_unit::answer(QSerialPort* port)
{
    port->write("\"?");
    QByteArray bytes;
    while (!bytes.endsWith('$') && (port->bytesAvailable() > 0 || port->waitForReadyRead(5000)))
        bytes += port->readAll();
    return bytes;
}

void tst_virtual_control_unit::theFirstLineIsThePathOfATerminal()
{
    VirtualUnit unit;
    QVERIFY(unit.start({}));
    QVERIFY(QFileInfo::exists(unit.path()));
}

void tst_virtual_control_unit::pollsAreAnsweredOverTheTerminal()
{
    VirtualUnit unit;
    QVERIFY(unit.start({"--car", "5000:100:9", "--car", "5000:100:3"}));
    QSerialPort port;
    QVERIFY(open(&port, unit.path()));
    for (int round = 0; round < 5; ++round) {
        const QByteArray bytes = answer(&port);
        QCOMPARE(bytes.left(11), QByteArray("?:930000000"));
        QVERIFY(ControlUnitFrames::looksValid(bytes));
    }
    QCOMPARE(unit.ask("status", "crossings"), QStringLiteral("crossings 0 polls 5 light 0 open"));
}

void tst_virtual_control_unit::badWordsAreRefused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("too many cars") << QStringList{"--cars", "9"};
    QTest::newRow("no number") << QStringList{"--laps", "many"};
    QTest::newRow("half a car") << QStringList{"--car", "6000:100"};
    QTest::newRow("too much fuel") << QStringList{"--car", "6000:100:16"};
    QTest::newRow("no speed") << QStringList{"--speed-up", "0"};
    QTest::newRow("journal in no directory") << QStringList{"--journal", "no-such/directory"};
}

void tst_virtual_control_unit::badWordsAreRefused()
{
    QFETCH(QStringList, words);
    QProcess process;
    process.start(QStringLiteral(TORNIK_BIN_DIR "/virtual-control-unit"), words);
    QVERIFY(process.waitForFinished());
    QVERIFY(process.exitCode() != 0);
    QVERIFY(process.readAllStandardOutput().isEmpty());
    QVERIFY(!process.readAllStandardError().isEmpty());
}

void tst_virtual_control_unit::unknownCommandsAreSaidSo()
{
    VirtualUnit unit;
    QVERIFY(unit.start({}));
    QCOMPARE(unit.ask("drive faster", "unknown"), QStringLiteral("unknown: drive faster"));
}

void tst_virtual_control_unit::theJournalHoldsWhatWasRead()
{
    const QString fileName = QDir::current().filePath("journal");
    VirtualUnit unit;
    QVERIFY(unit.start({"--cars", "2", "--laps", "2", "--speed-up", "100", "--light-step", "0", "--journal",
                        fileName, "--repeat", "50", "--bad-checksum", "20"}));
    QSerialPort port;
    QVERIFY(open(&port, unit.path()));
    unit.command("start");
    QSet<QByteArray> seen;
    for (int round = 0; round < 2000 && !unit.hasSaid("finished"); ++round) {
        const QByteArray bytes = answer(&port);
        if (ControlUnitFrames::looksValid(bytes) && !bytes.startsWith("?:"))
            seen.insert(bytes);
    }
    const QVector<Crossing> journal = VirtualUnit::journal(fileName);
    QCOMPARE(journal.size(), 6);
    QCOMPARE(seen.size(), 6);
    for (const Crossing& crossing : journal)
        QVERIFY(seen.contains(ControlUnitFrames::lap(crossing)));
}

void tst_virtual_control_unit::aPulledCableHangsUpAndTheLinkFollowsTheNewTerminal()
{
    const QString link = QDir::current().filePath("unit");
    VirtualUnit unit;
    QVERIFY(unit.start({"--link", link}));
    QCOMPARE(QFile::symLinkTarget(link), unit.path());
    QSerialPort port;
    QVERIFY(open(&port, link));
    QVERIFY(!answer(&port).isEmpty());
    unit.command("pull");
    QTRY_VERIFY(port.error() == QSerialPort::ReadError || port.error() == QSerialPort::ResourceError);
    port.close();

    QVERIFY(unit.plug());
    QCOMPARE(QFile::symLinkTarget(link), unit.path());
    QVERIFY(open(&port, link));
    QVERIFY(!answer(&port).isEmpty());
}

void tst_virtual_control_unit::theProgramLeavesWithTheOneThatStartedIt()
{
    QProcess process;
    process.start(QStringLiteral(TORNIK_BIN_DIR "/virtual-control-unit"), QStringList());
    QVERIFY(process.waitForReadyRead());
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_virtual_control_unit)
#include "tst_virtual_control_unit.moc"
