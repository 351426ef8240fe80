#include "sound/CSoundMixer.h"

#include <QTest>

class tst_CSoundMixer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsSilence();
    void clipsOfOneTicketFollowEachOther();
    void clipsOfTwoTicketsAreHeardTogether();
    void aLoudSumIsClipped();
    void aStoppedTicketFadesOutAndLeavesTheOthersAlone();
    void aStoppedTicketThatWasNotBegunIsNotHeard();
    void aStoppedTicketTakesNothing();
    void aNullClipIsIgnored();
    void clearDropsEverything();
    void aDeviceThatNeverFetchesDoesNotFillTheMemory();
};

namespace {

constexpr int FadeFrames = MixRate / 200;

SoundTicket newTicket()
{
    return std::make_shared<CSoundTicket>();
}

/** A clip that holds one value in all frames. */
SoundClip flat(qint16 value, int frames)
{
    return makeSoundClip(QVector<qint16>(frames, value), 1, MixRate);
}

/** The left side of the next frames; the right one must be the same. */
QVector<qint16> fetch(CSoundMixer& mixer, int frames)
{
    QVector<qint16> samples(frames * MixChannels, 99);
    mixer.mix(samples.data(), frames);
    QVector<qint16> left;
    for (int i = 0; i < samples.size(); i += MixChannels) {
        left << samples.at(i);
        if (samples.at(i) != samples.at(i + 1))
            qFatal("the sides differ");
    }
    return left;
}

} // namespace

void tst_CSoundMixer::nothingIsSilence()
{
    CSoundMixer mixer;
    QVERIFY(mixer.isIdle());
    QCOMPARE(fetch(mixer, 3), (QVector<qint16>{0, 0, 0}));
}

void tst_CSoundMixer::clipsOfOneTicketFollowEachOther()
{
    CSoundMixer mixer;
    const SoundTicket ticket = newTicket();
    mixer.add(ticket, flat(1, 2));
    mixer.add(ticket, flat(2, 3));
    QVERIFY(!mixer.isIdle());
    QCOMPARE(fetch(mixer, 1), (QVector<qint16>{1}));
    QCOMPARE(fetch(mixer, 3), (QVector<qint16>{1, 2, 2}));
    QCOMPARE(fetch(mixer, 3), (QVector<qint16>{2, 0, 0}));
    QVERIFY(mixer.isIdle());
}

void tst_CSoundMixer::clipsOfTwoTicketsAreHeardTogether()
{
    CSoundMixer mixer;
    mixer.add(newTicket(), flat(1, 2));
    mixer.add(newTicket(), flat(10, 3));
    QCOMPARE(fetch(mixer, 4), (QVector<qint16>{11, 11, 10, 0}));
}

void tst_CSoundMixer::aLoudSumIsClipped()
{
    CSoundMixer mixer;
    for (int i = 0; i < 8; ++i)
        mixer.add(newTicket(), flat(32767, 1));
    QCOMPARE(fetch(mixer, 1), (QVector<qint16>{32767}));
    for (int i = 0; i < 8; ++i)
        mixer.add(newTicket(), flat(-32768, 1));
    QCOMPARE(fetch(mixer, 1), (QVector<qint16>{-32768}));
}

void tst_CSoundMixer::aStoppedTicketFadesOutAndLeavesTheOthersAlone()
{
    CSoundMixer mixer;
    const SoundTicket stopped = newTicket();
    const SoundTicket other = newTicket();
    mixer.add(stopped, flat(10000, MixRate));
    mixer.add(stopped, flat(20000, MixRate));
    mixer.add(other, flat(5, MixRate));
    QCOMPARE(fetch(mixer, 2), (QVector<qint16>{10005, 10005}));
    stopped->stopped = true;
    const QVector<qint16> after = fetch(mixer, 2 * FadeFrames);
    QCOMPARE(after.first(), qint16(10005));
    QVERIFY(after.at(FadeFrames / 2) < 6000);
    QVERIFY(after.at(FadeFrames - 1) < 200);
    for (int i = FadeFrames; i < after.size(); ++i)
        QCOMPARE(after.at(i), qint16(5));
}

void tst_CSoundMixer::aStoppedTicketThatWasNotBegunIsNotHeard()
{
    CSoundMixer mixer;
    const SoundTicket ticket = newTicket();
    mixer.add(ticket, flat(10000, 5));
    ticket->stopped = true;
    QCOMPARE(fetch(mixer, 3), (QVector<qint16>{0, 0, 0}));
    QVERIFY(mixer.isIdle());
}

void tst_CSoundMixer::aStoppedTicketTakesNothing()
{
    CSoundMixer mixer;
    const SoundTicket ticket = newTicket();
    ticket->stopped = true;
    mixer.add(ticket, flat(1, 1));
    QVERIFY(mixer.isIdle());
}

void tst_CSoundMixer::aNullClipIsIgnored()
{
    CSoundMixer mixer;
    mixer.add(newTicket(), nullptr);
    QVERIFY(mixer.isIdle());
}

void tst_CSoundMixer::clearDropsEverything()
{
    CSoundMixer mixer;
    mixer.add(newTicket(), flat(1, 5));
    mixer.clear();
    QVERIFY(mixer.isIdle());
    QCOMPARE(fetch(mixer, 1), (QVector<qint16>{0}));
}

void tst_CSoundMixer::aDeviceThatNeverFetchesDoesNotFillTheMemory()
{
    CSoundMixer mixer;
    const SoundClip clip = flat(1, 1);
    const SoundTicket busy = newTicket();
    for (int i = 0; i < 1000; ++i) {
        mixer.add(busy, clip);
        const SoundTicket lap = newTicket();
        mixer.add(lap, clip);
        lap->stopped = true;
    }
    QVERIFY2(clip.use_count() < 100, qPrintable(QString::number(clip.use_count())));
}

QTEST_APPLESS_MAIN(tst_CSoundMixer)
#include "tst_CSoundMixer.moc"
