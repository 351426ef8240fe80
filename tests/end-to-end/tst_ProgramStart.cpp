#include <QFile>
#include <QProcess>
#include <QTest>

/** Starts the real program, sees that it lives, and ends it as the system does at the end of a session. */
class tst_ProgramStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void programStartsAndEnds_data();
    void programStartsAndEnds();
};

void tst_ProgramStart::init()
{
    QFile::remove("tornik.db");
}

void tst_ProgramStart::programStartsAndEnds_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("with a running race") << QStringList{"--windowed", "--quickRace"};
    QTest::newRow("full screen") << QStringList();
    QTest::newRow("in English") << QStringList{"--windowed", "--language", "en"};
    QTest::newRow("in an unknown language") << QStringList{"--windowed", "--language", "xx"};
    QTest::newRow("as a display client without a server")
        << QStringList{"--windowed", "--connect", "127.0.0.1:9", "--quickRace"};
}

void tst_ProgramStart::programStartsAndEnds()
{
    QFETCH(QStringList, arguments);
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(TORNIK_BIN_DIR "/tornik", arguments);
    QVERIFY(program.waitForStarted());
    // Made on the way to the first window, behind the point where the program can be asked to end.
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists("tornik.db"), 30000);
    program.terminate();
    QVERIFY(program.waitForFinished());
    const QByteArray output = program.readAll();
    QVERIFY2(program.exitStatus() == QProcess::NormalExit, output.constData());
    QVERIFY2(program.exitCode() == 0, output.constData());
}

QTEST_GUILESS_MAIN(tst_ProgramStart)
#include "tst_ProgramStart.moc"
