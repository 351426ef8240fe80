#include "sound/SoundClip.h"

#include <QTest>

class tst_SoundClip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void monoGoesToBothSides();
    void stereoStaysAsItIs();
    void ofMoreChannelsTheFirstTwoAreTaken();
    void aLowerRateIsFilledInBetween();
    void aHigherRateGetsFewerFrames();
    void theExtremesDoNotOverflow();
    void noWholeFrameIsNoClip();
};

void tst_SoundClip::monoGoesToBothSides()
{
    QCOMPARE(*makeSoundClip({1, -2}, 1, MixRate), (QVector<qint16>{1, 1, -2, -2}));
}

void tst_SoundClip::stereoStaysAsItIs()
{
    QCOMPARE(*makeSoundClip({1, 2, 3, 4}, 2, MixRate), (QVector<qint16>{1, 2, 3, 4}));
    QCOMPARE(*makeSoundClip({1, 2, 3, 4, 5}, 2, MixRate), (QVector<qint16>{1, 2, 3, 4}));
}

void tst_SoundClip::ofMoreChannelsTheFirstTwoAreTaken()
{
    QCOMPARE(*makeSoundClip({1, 2, 3, 4, 5, 6}, 3, MixRate), (QVector<qint16>{1, 2, 4, 5}));
}

void tst_SoundClip::aLowerRateIsFilledInBetween()
{
    QCOMPARE(*makeSoundClip({0, 100}, 1, MixRate / 2), (QVector<qint16>{0, 0, 50, 50, 100, 100, 100, 100}));
}

void tst_SoundClip::aHigherRateGetsFewerFrames()
{
    QCOMPARE(*makeSoundClip({10, 20, 30, 40}, 1, MixRate * 2), (QVector<qint16>{10, 10, 30, 30}));
}

void tst_SoundClip::theExtremesDoNotOverflow()
{
    QCOMPARE(*makeSoundClip({-32768, 32767}, 1, MixRate / 2),
             (QVector<qint16>{-32768, -32768, -1, -1, 32767, 32767, 32767, 32767}));
}

void tst_SoundClip::noWholeFrameIsNoClip()
{
    QVERIFY(!makeSoundClip({}, 1, MixRate));
    QVERIFY(!makeSoundClip({1}, 2, MixRate));
}

QTEST_APPLESS_MAIN(tst_SoundClip)
#include "tst_SoundClip.moc"
