#include "images/Images.h"
#include "shell/CLights.h"
#include "support/LampLetters.h"

#include <QTest>

class tst_CLights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        initImages();
        m_red = load(":/images/ampel_rot.bmp");
        m_green = load(":/images/ampel_gruen.bmp");
        m_off = load(":/images/ampel_aus.bmp");
    }

    void picturesAreOfEqualSizeAndDiffer()
    {
        QVERIFY(!m_red.isNull());
        QCOMPARE(m_red.size(), m_green.size());
        QCOMPARE(m_red.size(), m_off.size());
        QVERIFY(m_red != m_green);
        QVERIFY(m_red != m_off);
        QVERIFY(m_green != m_off);
    }

    void picturesHaveBlackCorners()
    {
        for (const QImage& picture : {m_red, m_green, m_off}) {
            QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::black));
            QCOMPARE(picture.pixelColor(picture.width() - 1, picture.height() - 1), QColor(Qt::black));
        }
    }

    void countIsClampedToOneToTen_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("expected");
        QTest::newRow("-3") << -3 << 1;
        QTest::newRow("0") << 0 << 1;
        QTest::newRow("1") << 1 << 1;
        QTest::newRow("5") << 5 << 5;
        QTest::newRow("10") << 10 << 10;
        QTest::newRow("11") << 11 << 10;
    }

    void countIsClampedToOneToTen()
    {
        QFETCH(int, count);
        QFETCH(int, expected);
        const CLights lights(count);
        QCOMPARE(lights.sizeHint(), QSize(m_off.width() * expected, m_off.height()));
        QCOMPARE(lights.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    }

    void allLampsAreOffAtFirst()
    {
        CLights lights(5);
        QCOMPARE(lampLetters(lights), QStringLiteral("ooooo"));
    }

    void sixNextRedOnFiveLampsShowFiveRedAndNothingMore()
    {
        CLights lights(5);
        const QStringList expected{"Roooo", "RRooo", "RRRoo", "RRRRo", "RRRRR", "RRRRR"};
        for (const QString& step : expected) {
            lights.nextRed();
            QCOMPARE(lampLetters(lights), step);
        }
    }

    void nextRedAfterAllGreenStartsAtTheFirstLamp()
    {
        CLights lights(5);
        lights.nextRed();
        lights.nextRed();
        lights.nextRed();
        lights.allGreen();
        QCOMPARE(lampLetters(lights), QStringLiteral("GGGGG"));
        lights.nextRed();
        QCOMPARE(lampLetters(lights), QStringLiteral("RGGGG"));
    }

    void nextRedAfterAllOffOrAllRedStartsAtTheFirstLamp()
    {
        CLights lights(3);
        lights.nextRed();
        lights.allOff();
        QCOMPARE(lampLetters(lights), QStringLiteral("ooo"));
        lights.nextRed();
        QCOMPARE(lampLetters(lights), QStringLiteral("Roo"));
        lights.allRed();
        QCOMPARE(lampLetters(lights), QStringLiteral("RRR"));
        lights.nextRed();
        lights.setOff(1);
        QCOMPARE(lampLetters(lights), QStringLiteral("RoR"));
        lights.nextRed();
        QCOMPARE(lampLetters(lights), QStringLiteral("RRR"));
    }

    void setRedActsOnAFreshRowOnly()
    {
        CLights lights(5);
        lights.setRed(2);
        QCOMPARE(lampLetters(lights), QStringLiteral("ooRoo"));
        lights.setRed(4);
        QCOMPARE(lampLetters(lights), QStringLiteral("ooRoR"));
        lights.allOff();
        lights.nextRed();
        lights.setRed(3);
        QCOMPARE(lampLetters(lights), QStringLiteral("Roooo"));
    }

    void nextRedDoesNothingAfterLampsWereSetOneByOne()
    {
        CLights lights(5);
        lights.setRed(2);
        lights.nextRed();
        QCOMPARE(lampLetters(lights), QStringLiteral("ooRoo"));
        lights.allOff();
        lights.nextRed();
        QCOMPARE(lampLetters(lights), QStringLiteral("Roooo"));
    }

    void setOffActsWhateverWasCounted()
    {
        CLights lights(3);
        lights.nextRed();
        lights.nextRed();
        lights.setOff(0);
        QCOMPARE(lampLetters(lights), QStringLiteral("oRo"));
        lights.nextRed(); // the count goes on where it was
        QCOMPARE(lampLetters(lights), QStringLiteral("oRR"));
    }

    void indexOutsideTheRowIsClampedToIt()
    {
        CLights lights(3);
        lights.setRed(-1);
        QCOMPARE(lampLetters(lights), QStringLiteral("Roo"));
        lights.setRed(3);
        QCOMPARE(lampLetters(lights), QStringLiteral("RoR"));
        lights.setRed(65535);
        QCOMPARE(lampLetters(lights), QStringLiteral("RoR"));
        lights.setOff(99);
        QCOMPARE(lampLetters(lights), QStringLiteral("Roo"));
        lights.setOff(-99);
        QCOMPARE(lampLetters(lights), QStringLiteral("ooo"));
    }

private:
    static QImage load(const char* name)
    {
        return QImage(QLatin1String(name)).convertToFormat(QImage::Format_RGB32);
    }

    QImage m_red;
    QImage m_green;
    QImage m_off;
};

QTEST_MAIN(tst_CLights)
#include "tst_CLights.moc"
