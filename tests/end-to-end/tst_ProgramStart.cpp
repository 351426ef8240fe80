#include "support/TornikProcess.h"

#include <QTest>

/** Starts the real program, looks into its window, and ends it. */
class tst_ProgramStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void programShowsItsWindowAndEnds_data();
    void programShowsItsWindowAndEnds();
    void quickRaceRuns();
    void displayClientHasNoRaceMenu();
};

void tst_ProgramStart::init()
{
    QFile::remove("tornik.db");
    TornikProcess::forgetWindow();
}

void tst_ProgramStart::programShowsItsWindowAndEnds_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("lines");
    const QStringList german{"menu &Rennen", "menu &schnelles Rennen starten", "menu &Beenden",
                             "label startCondition fliegender Start"};
    const QStringList english{"menu &Start quick race", "menu Show su&mmary",
                              "label startCondition flying start"};
    QTest::newRow("full screen") << QStringList() << german + QStringList("window full screen");
    QTest::newRow("in a window") << QStringList("--windowed") << german + QStringList("window framed");
    QTest::newRow("in English") << QStringList{"--windowed", "--language", "en"} << english;
    QTest::newRow("in German") << QStringList{"--windowed", "--language", "de"} << german;
    QTest::newRow("in an unknown language") << QStringList{"--windowed", "--language", "xx"} << german;
}

void tst_ProgramStart::programShowsItsWindowAndEnds()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, lines);
    TornikProcess program(arguments);
    QTRY_VERIFY_WITH_TIMEOUT(program.hasWindow(), 30000);
    for (const QString& line : lines)
        QVERIFY2(program.shows(line), qPrintable(line + " is not in\n" + program.window().join('\n')));
    QVERIFY2(program.end(), program.output().constData());
}

void tst_ProgramStart::quickRaceRuns()
{
    TornikProcess program({"--windowed", "--quickRace"});
    QTRY_VERIFY_WITH_TIMEOUT(program.shows("menu &schnelles Rennen beenden"), 30000);
    QVERIFY(program.shows("box driverBox locked Default"));
    QTRY_VERIFY(!program.shows("label raceTime 00:00:00")); // the clock goes
    QVERIFY(program.runs());
    QVERIFY2(program.end(), program.output().constData());
}

void tst_ProgramStart::displayClientHasNoRaceMenu()
{
    TornikProcess program({"--windowed", "--connect", "127.0.0.1:9", "--quickRace"});
    QTRY_VERIFY_WITH_TIMEOUT(program.hasWindow(), 30000);
    QVERIFY(program.shows("menu &Beenden"));
    QVERIFY(!program.shows("menu &Rennen"));
    QVERIFY(!program.shows("menu &schnelles Rennen beenden"));
    QVERIFY2(program.end(), program.output().constData());
}

QTEST_GUILESS_MAIN(tst_ProgramStart)
#include "tst_ProgramStart.moc"
