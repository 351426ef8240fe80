#include "shell/RaceFileName.h"

#include <QDateTime>
#include <QTest>

class tst_RaceFileName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void proposalHoldsMomentAndNames_data();
    void proposalHoldsMomentAndNames();
    void pathGetsOneSeparator_data();
    void pathGetsOneSeparator();
};

void tst_RaceFileName::proposalHoldsMomentAndNames_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("two drivers") << QStringList{"Anna", "Ben"} << "20260131_181502_Anna_Ben.csv";
    QTest::newRow("one driver") << QStringList{"Anna"} << "20260131_181502_Anna.csv";
    QTest::newRow("no name on the second panel")
        << QStringList{"Anna", "", "Ben"} << "20260131_181502_Anna__Ben.csv";
    QTest::newRow("no panel") << QStringList() << "20260131_181502_.csv";
    QTest::newRow("umlauts and blanks") << QStringList{"Jörg B."} << "20260131_181502_Jörg B..csv";
    QTest::newRow("a name is no path")
        << QStringList{"Anna/Ben", "a\\b"} << "20260131_181502_Anna-Ben_a-b.csv";
}

void tst_RaceFileName::proposalHoldsMomentAndNames()
{
    QFETCH(QStringList, names);
    QFETCH(QString, fileName);
    QCOMPARE(raceFileName(QDateTime(QDate(2026, 1, 31), QTime(18, 15, 2, 999)), names), fileName);
}

void tst_RaceFileName::pathGetsOneSeparator_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("path");
    QTest::newRow("without") << "/home/anna/Rennen"
                             << "/home/anna/Rennen/x.csv";
    QTest::newRow("with") << "/home/anna/Rennen/"
                          << "/home/anna/Rennen/x.csv";
    QTest::newRow("root") << "/"
                          << "/x.csv";
    QTest::newRow("no folder is the working one") << ""
                                                  << "x.csv";
}

void tst_RaceFileName::pathGetsOneSeparator()
{
    QFETCH(QString, folder);
    QFETCH(QString, path);
    QCOMPARE(pathInFolder(folder, "x.csv"), path);
}

QTEST_APPLESS_MAIN(tst_RaceFileName)
#include "tst_RaceFileName.moc"
