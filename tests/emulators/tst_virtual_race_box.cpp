#include "BoxTelegrams.h"
#include "support/RaceBox.h"

#include <QSerialPort>
#include <QtTest>

using BoxTelegrams::Event;
using BoxTelegrams::Parameters;
using BoxTelegrams::Reader;

/** The telegrams of the virtual box, and the program that sends them. */
class tst_virtual_race_box : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEventIsReadAsItWasSent();
    void parametersAreReadAsTheyWereSent();
    void aSpoiltTelegramIsRefusedAndTheNextOneIsRead();
    void aPressSendsAnActivationAndADeactivation_data();
    void aPressSendsAnActivationAndADeactivation();
    void everyEventCanBeSent();
    void bytesAreSentAsTheyAre();
    void theClockRunsAtItsTicks();
    void parametersAreSaid();
    void theJournalHoldsWhatWasSent();
    void wrongWordsAreSaidSo_data();
    void wrongWordsAreSaidSo();
    void wrongOptionsAreRefused_data();
    void wrongOptionsAreRefused();

private:
    static QByteArray bytesAfter(RaceBox& box, const QByteArray& command, int size);
};

namespace {

Reader readerOfEvents()
{
    return {BoxTelegrams::EventBegin, BoxTelegrams::EventSize};
}

QByteArray telegram(quint16 code, quint32 ticks)
{
    return QByteArray::fromStdString(BoxTelegrams::encode(Event{code, ticks}));
}

} // namespace

/** @return what arrives behind a command, as many bytes as expected. */
QByteArray tst_virtual_race_box::bytesAfter(RaceBox& box, const QByteArray& command, int size)
{
    QSerialPort port;
    port.setPortName(box.path());
    if (!port.open(QIODevice::ReadWrite))
        return {};
    box.command(command);
    QByteArray bytes;
    while (bytes.size() < size && port.waitForReadyRead(5000))
        bytes += port.readAll();
    return bytes;
}

void tst_virtual_race_box::anEventIsReadAsItWasSent()
{
    Reader reader = readerOfEvents();
    const std::string bytes = BoxTelegrams::encode(Event{0x02FF, 0x89ABCDEF});
    QCOMPARE(bytes.size(), BoxTelegrams::EventSize);
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i)
        QCOMPARE(reader.take(quint8(bytes.at(i))), Reader::Unfinished);
    QCOMPARE(reader.take(quint8(bytes.back())), Reader::Complete);
    QCOMPARE(BoxTelegrams::eventOf(reader).code, quint16(0x02FF));
    QCOMPARE(BoxTelegrams::eventOf(reader).timeStamp, 0x89ABCDEFU);
}

void tst_virtual_race_box::parametersAreReadAsTheyWereSent()
{
    Reader reader(BoxTelegrams::ParametersBegin, BoxTelegrams::ParametersSize);
    const Parameters parameters{130, 50, 15, 1, 0};
    Reader::Progress progress = Reader::NoBegin;
    for (const char byte : BoxTelegrams::encode(parameters))
        progress = reader.take(quint8(byte));
    QCOMPARE(progress, Reader::Complete);
    QVERIFY(BoxTelegrams::parametersOf(reader) == parameters);
}

void tst_virtual_race_box::aSpoiltTelegramIsRefusedAndTheNextOneIsRead()
{
    Reader reader = readerOfEvents();
    QCOMPARE(reader.take(0), Reader::NoBegin);
    std::string bytes = BoxTelegrams::encode(Event{0x0200, 1});
    bytes.back() = char(bytes.back() ^ 1);
    Reader::Progress progress = Reader::NoBegin;
    for (const char byte : bytes)
        progress = reader.take(quint8(byte));
    QCOMPARE(progress, Reader::WrongSum);
    for (const char byte : BoxTelegrams::encode(Event{0x0200, 2}))
        progress = reader.take(quint8(byte));
    QCOMPARE(progress, Reader::Complete);
    QCOMPARE(BoxTelegrams::eventOf(reader).timeStamp, 2U);
}

void tst_virtual_race_box::aPressSendsAnActivationAndADeactivation_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("sensor");
    QTest::newRow("left") << QByteArray("press left 1000") << 2;
    QTest::newRow("right") << QByteArray("press right 1000") << 3;
    QTest::newRow("left intermediate") << QByteArray("press left intermediate 1000") << 0;
    QTest::newRow("right intermediate") << QByteArray("press right intermediate 1000") << 1;
}

void tst_virtual_race_box::aPressSendsAnActivationAndADeactivation()
{
    QFETCH(QByteArray, command);
    QFETCH(int, sensor);
    RaceBox box;
    QVERIFY(box.start({"--number", "3"}));
    const QByteArray expected =
        telegram(quint16(0x020C | sensor), 1000) + telegram(quint16(0x030C | sensor), 1096);
    QCOMPARE(bytesAfter(box, command, expected.size()), expected);
    QCOMPARE(box.events(), 2);
}

void tst_virtual_race_box::everyEventCanBeSent()
{
    RaceBox box;
    QVERIFY(box.start({}));
    QCOMPARE(bytesAfter(box, "event 0xFFFF 4294967295", 8), telegram(0xFFFF, 0xFFFFFFFF));
    QCOMPARE(bytesAfter(box, "event 513 0", 8), telegram(0x0201, 0));
}

void tst_virtual_race_box::bytesAreSentAsTheyAre()
{
    RaceBox box;
    QVERIFY(box.start({}));
    QCOMPARE(bytesAfter(box, "bytes 00b0ff", 3), QByteArray("\x00\xb0\xff", 3));
}

void tst_virtual_race_box::theClockRunsAtItsTicks()
{
    RaceBox box;
    QElapsedTimer sinceStart;
    sinceStart.start();
    QVERIFY(box.start({"--clock", "4294960000"}));
    const quint32 ticks = box.ask("status", "clock").section(' ', 1, 1).toUInt() - 4294960000U;
    QVERIFY2(ticks <= sinceStart.elapsed() * 4.8 + 5, qPrintable(QString::number(ticks)));
    const auto later = [&box] { return box.ask("status", "clock").section(' ', 1, 1).toUInt(); };
    QTRY_VERIFY(later() - 4294960000U > ticks);
}

void tst_virtual_race_box::parametersAreSaid()
{
    RaceBox box;
    QVERIFY(box.start({}));
    QSerialPort port;
    port.setPortName(box.path());
    QVERIFY(port.open(QIODevice::ReadWrite));
    port.write(QByteArray("junk") +
               QByteArray::fromStdString(BoxTelegrams::encode(Parameters{130, 50, 15, 1, 0})));
    QVERIFY(port.waitForBytesWritten(5000));
    QTRY_VERIFY(box.hasSaid("parameters 130 50 15 1 0"));
}

void tst_virtual_race_box::theJournalHoldsWhatWasSent()
{
    const QString journal = QDir::current().filePath(QStringLiteral("journal"));
    RaceBox box;
    QVERIFY(box.start({"--journal", journal}));
    box.command("press left 5");
    box.command("event 1024 7");
    QCOMPARE(box.events(), 3);
    const QVector<QList<QByteArray>> expected{{"514", "5"}, {"770", "101"}, {"1024", "7"}};
    QCOMPARE(RaceBox::journalWords(journal), expected);
}

void tst_virtual_race_box::wrongWordsAreSaidSo_data()
{
    QTest::addColumn<QByteArray>("line");
    for (const char* line : {"jump", "press", "press up", "press left soon", "press left 5 6", "event",
                             "event 65536", "event 1 soon", "bytes", "bytes xyz"})
        QTest::newRow(line) << QByteArray(line);
}

void tst_virtual_race_box::wrongWordsAreSaidSo()
{
    QFETCH(QByteArray, line);
    RaceBox box;
    QVERIFY(box.start({}));
    QCOMPARE(box.ask(line, "unknown"), "unknown: " + QString::fromLatin1(line));
    QCOMPARE(box.events(), 0);
}

void tst_virtual_race_box::wrongOptionsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("number too high") << QStringList{"--number", "4"};
    QTest::newRow("number below 0") << QStringList{"--number", "-1"};
    QTest::newRow("no number") << QStringList{"--number", "x"};
    QTest::newRow("clock") << QStringList{"--clock", "4294967296"};
}

void tst_virtual_race_box::wrongOptionsAreRefused()
{
    QFETCH(QStringList, arguments);
    QProcess process;
    process.start(QStringLiteral(TORNIK_BIN_DIR "/virtual-race-box"), arguments);
    QVERIFY(process.waitForFinished(10000));
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().startsWith("not understood: "));
}

QTEST_GUILESS_MAIN(tst_virtual_race_box)
#include "tst_virtual_race_box.moc"
