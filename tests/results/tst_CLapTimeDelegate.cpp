#include "results/CLapTimeDelegate.h"

#include <QTest>

class tst_CLapTimeDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsMillisecondsAsLapTime_data();
    void showsMillisecondsAsLapTime();
};

void tst_CLapTimeDelegate::showsMillisecondsAsLapTime_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QVariant(0) << "00:00:000";
    QTest::newRow("usual lap") << QVariant(5734) << "00:05:734";
    QTest::newRow("over a minute") << QVariant(62034) << "01:02:034";
    QTest::newRow("number as text") << QVariant("8531") << "00:08:531";
    QTest::newRow("no number") << QVariant("schnell") << "00:00:000";
    QTest::newRow("hours fall away") << QVariant(3600001) << "00:00:001";
}

void tst_CLapTimeDelegate::showsMillisecondsAsLapTime()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    const CLapTimeDelegate delegate;
    QCOMPARE(delegate.displayText(value, QLocale(QLocale::German)), text);
    QCOMPARE(delegate.displayText(value, QLocale(QLocale::Arabic)), text);
}

QTEST_MAIN(tst_CLapTimeDelegate)
#include "tst_CLapTimeDelegate.moc"
