#include "shell/CCommandLineParameters.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <vector>

namespace {

/** The parameters of a program started with these arguments. */
CCommandLineParameters parametersOf(const QStringList& arguments)
{
    std::vector<QByteArray> bytes{"tornik"};
    for (const QString& argument : arguments)
        bytes.push_back(argument.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& argument : bytes)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    int argc = int(bytes.size());
    const QCoreApplication application(argc, argv.data());
    return {};
}

struct ProgramOutput
{
    int exitCode = -1;
    QString out;
    QString err;
};

/** Runs the real program to its end. */
ProgramOutput runProgram(const QStringList& arguments)
{
    QProcess program;
    program.start(TORNIK_BIN_DIR "/tornik", arguments);
    ProgramOutput output;
    if (program.waitForFinished() && program.exitStatus() == QProcess::NormalExit)
        output.exitCode = program.exitCode();
    output.out = QString::fromUtf8(program.readAllStandardOutput()).simplified();
    output.err = QString::fromUtf8(program.readAllStandardError());
    return output;
}

} // namespace

class tst_CCommandLineParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noOptionGivesTheDefaults();
    void everyOptionArrives();
    void connectTogetherWithQuickRaceGivesNoQuickRace();
    void portIsReadAsDecimalNumber_data();
    void portIsReadAsDecimalNumber();
    void connectKeepsThePortInTheAddress();
    void helpTellsTheOptionsInTheirOrderAndEndsTheProgram();
    void unknownOptionEndsTheProgramWithAnError();
};

void tst_CCommandLineParameters::noOptionGivesTheDefaults()
{
    const CCommandLineParameters parameters = parametersOf({});
    QVERIFY(!parameters.quickRace());
    QVERIFY(!parameters.clientMode());
    QVERIFY(parameters.serverAddress().isEmpty());
    QVERIFY(!parameters.windowed());
    QCOMPARE(parameters.port(), quint16(0));
    QVERIFY(parameters.language().isEmpty());
}

void tst_CCommandLineParameters::everyOptionArrives()
{
    const CCommandLineParameters parameters =
        parametersOf({"--quickRace", "--windowed", "--port", "5000", "--language", "en"});
    QVERIFY(parameters.quickRace());
    QVERIFY(!parameters.clientMode());
    QVERIFY(parameters.windowed());
    QCOMPARE(parameters.port(), quint16(5000));
    QCOMPARE(parameters.language(), QString("en"));
}

void tst_CCommandLineParameters::connectTogetherWithQuickRaceGivesNoQuickRace()
{
    const CCommandLineParameters parameters = parametersOf({"--connect", "rechner", "--quickRace"});
    QVERIFY(parameters.clientMode());
    QVERIFY(!parameters.quickRace());
    QCOMPARE(parameters.serverAddress(), QString("rechner"));
}

void tst_CCommandLineParameters::portIsReadAsDecimalNumber_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<quint16>("port");
    QTest::newRow("absent") << QStringList() << quint16(0);
    QTest::newRow("empty") << QStringList{"--port", ""} << quint16(0);
    QTest::newRow("zero") << QStringList{"--port", "0"} << quint16(0);
    QTest::newRow("largest") << QStringList{"--port=65535"} << quint16(65535);
    QTest::newRow("too large") << QStringList{"--port", "65536"} << quint16(0);
    QTest::newRow("negative") << QStringList{"--port=-1"} << quint16(0);
    QTest::newRow("hexadecimal") << QStringList{"--port", "0x50"} << quint16(0);
    QTest::newRow("leading zero is no octal") << QStringList{"--port", "010"} << quint16(10);
    QTest::newRow("words") << QStringList{"--port", "http"} << quint16(0);
    QTest::newRow("with connect") << QStringList{"--connect", "rechner", "--port", "80"} << quint16(80);
}

void tst_CCommandLineParameters::portIsReadAsDecimalNumber()
{
    QFETCH(QStringList, arguments);
    QFETCH(quint16, port);
    QCOMPARE(parametersOf(arguments).port(), port);
}

void tst_CCommandLineParameters::connectKeepsThePortInTheAddress()
{
    QCOMPARE(parametersOf({"--connect", "rechner:5000"}).serverAddress(), QString("rechner:5000"));
}

void tst_CCommandLineParameters::helpTellsTheOptionsInTheirOrderAndEndsTheProgram()
{
    const ProgramOutput output = runProgram({"--help"});
    QCOMPARE(output.exitCode, 0);
    QVERIFY(output.out.contains(" Tornik "));
    int position = 0;
    for (const char* text :
         {"--help", "--quickRace", "startet direkt ein schnelles Rennen mit Default Einstellungen",
          "--windowed", "--connect <server_adresse>", "ip-Adresse oder der Hostname", "--port <server_port>",
          "Anzeige Clients.", "--language <locale>", "\"de\" für deutsch"}) {
        const int found = output.out.indexOf(QString::fromUtf8(text), position);
        QVERIFY2(found >= position, text);
        position = found;
    }
    QVERIFY(!output.out.contains("--version"));
}

void tst_CCommandLineParameters::unknownOptionEndsTheProgramWithAnError()
{
    const ProgramOutput output = runProgram({"--schnell"});
    QCOMPARE(output.exitCode, 1);
    QVERIFY(output.err.contains("schnell"));
}

QTEST_APPLESS_MAIN(tst_CCommandLineParameters)
#include "tst_CCommandLineParameters.moc"
