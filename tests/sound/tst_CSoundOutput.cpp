#include "sound/CSoundOutput.h"
#include "sound/FakeSoundWorker.h"
#include "sound/RecordingSoundOutLib.h"
#include "sound/SoundOutLib.h"

#include <QLocale>
#include <QTest>

/** The voice of a track. The rules by which a panel queues are the panel's; here it is called as a panel
 * does. */
class tst_CSoundOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); }

    void aChangeOfOneFileLoadsAllThreeAgainAndTheirIdsAreNew();
    void aSampleIsOnlyQueued();
    void aSampleBeforeAnyFileIsSilent();
    void textsGoOutInLatin1();
    void stopAndPlayAreForwarded();
    void theEndStopsTheOutput();

    void withoutVoiceOptionsALapPlaysItsSampleThroughThePlayer();
    void anEventInTheMiddleOfALapStopsTheAnnouncementAndPlaysAnEmptyQueue();
    void onlyNewBestTimesWithTheCountANormalLapSpeaksTheCountABestLapBoth();
    void onlyNewBestTimesWithoutTheCountANormalLapPlaysItsSampleABestLapSpeaks();

private:
    static std::unique_ptr<CSoundOutput> panelVoice(std::unique_ptr<SoundOutLib> lib);
};

/** With the files that a panel gives it. */
std::unique_ptr<CSoundOutput> tst_CSoundOutput::panelVoice(std::unique_ptr<SoundOutLib> lib)
{
    auto output = std::make_unique<CSoundOutput>(std::move(lib));
    output->setSample1File(QStringLiteral("driveThrough.wav"));
    output->setSample2File(QStringLiteral("newBestLap.wav"));
    output->setSample3File(QStringLiteral("newBestLap.wav"));
    return output;
}

void tst_CSoundOutput::aChangeOfOneFileLoadsAllThreeAgainAndTheirIdsAreNew()
{
    QStringList calls;
    CSoundOutput output(std::make_unique<CRecordingSoundOutLib>(&calls));
    output.setSample1File(QStringLiteral("a.wav"));
    QCOMPARE(calls, QStringList({"unloadAll", "load a.wav -> 1", "load  -> 2", "load  -> 3"}));
    calls.clear();
    output.setSample3File(QString::fromUtf8("größe.wav"));
    QCOMPARE(calls, QStringList({"unloadAll", "load a.wav -> 4", "load  -> 5",
                                 QString::fromUtf8("load größe.wav -> 6")}));
    calls.clear();
    output.setSample2File(QStringLiteral("b.wav"));
    QCOMPARE(calls, QStringList({"unloadAll", "load a.wav -> 7", "load b.wav -> 8",
                                 QString::fromUtf8("load größe.wav -> 9")}));
    calls.clear();
    output.playSample1();
    output.playSample2();
    output.playSample3();
    QCOMPARE(calls, QStringList({"id 7", "id 8", "id 9"}));
}

void tst_CSoundOutput::aSampleIsOnlyQueued()
{
    CFakeSoundWorker fake;
    const auto output = panelVoice(std::make_unique<SoundOutLib>(fake.worker()));
    output->playSample1();
    output->playSample3();
    SoundOutLib other(fake.worker());
    other.enqueue("001");
    other.play();
    QTRY_COMPARE(fake.log().filter("heard"), QStringList{"heard eins"}); // the worker keeps the order
    output->play();
    QTRY_COMPARE(fake.log().filter("heard").mid(1),
                 QStringList({"heard driveThrough.wav", "heard newBestLap.wav"}));
}

void tst_CSoundOutput::aSampleBeforeAnyFileIsSilent()
{
    CFakeSoundWorker fake;
    CSoundOutput output(std::make_unique<SoundOutLib>(fake.worker()));
    output.playSample1();
    output.playSample2();
    output.playSample3();
    output.enqueueText(QStringLiteral("001"));
    output.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak eins", "heard eins"}));
}

void tst_CSoundOutput::textsGoOutInLatin1()
{
    QStringList calls;
    CSoundOutput output(std::make_unique<CRecordingSoundOutLib>(&calls));
    output.enqueueText(QStringLiteral("B00:05:734"));
    output.enqueueText(QString::fromUtf8("ä€"));
    QCOMPARE(calls, QStringList({"text B00:05:734", QString::fromUtf8("text ä?")}));
}

void tst_CSoundOutput::stopAndPlayAreForwarded()
{
    QStringList calls;
    CSoundOutput output(std::make_unique<CRecordingSoundOutLib>(&calls));
    output.stop();
    output.play();
    QCOMPARE(calls, QStringList({"stop", "play"}));
}

void tst_CSoundOutput::theEndStopsTheOutput()
{
    QStringList calls;
    {
        CSoundOutput output(std::make_unique<CRecordingSoundOutLib>(&calls));
        QCOMPARE(calls, QStringList());
    }
    QCOMPARE(calls, QStringList({"stop"}));
}

void tst_CSoundOutput::withoutVoiceOptionsALapPlaysItsSampleThroughThePlayer()
{
    QStringList calls;
    const auto output = panelVoice(std::make_unique<CRecordingSoundOutLib>(&calls));
    const QString loaded = calls.at(calls.size() - 3);
    calls.clear();
    output->stop();
    output->playSample1(); // a finished lap
    output->play();
    output->stop();
    output->playSample2(); // a new best lap
    output->play();
    QCOMPARE(loaded, QStringLiteral("load driveThrough.wav -> 7"));
    QCOMPARE(calls, QStringList({"stop", "id 7", "play", "stop", "id 8", "play"}));
}

void tst_CSoundOutput::anEventInTheMiddleOfALapStopsTheAnnouncementAndPlaysAnEmptyQueue()
{
    CFakeSoundWorker fake;
    auto lib = std::make_unique<SoundOutLib>(fake.worker());
    lib->load("wait.wav"); // the worker is busy, so that the announcement is not over yet
    CSoundOutput output(std::move(lib));
    output.enqueueText(QStringLiteral("012"));
    output.enqueueText(QStringLiteral("00:05:734"));
    output.play();
    output.stop();
    output.play();
    fake.release();
    output.enqueueText(QStringLiteral("013"));
    output.play();
    QTRY_VERIFY(fake.log().contains("heard dreizehn"));
    QCOMPARE(fake.log().filter("speak"), QStringList{"speak dreizehn"});
}

void tst_CSoundOutput::onlyNewBestTimesWithTheCountANormalLapSpeaksTheCountABestLapBoth()
{
    CFakeSoundWorker fake;
    const auto output = panelVoice(std::make_unique<SoundOutLib>(fake.worker()));
    output->stop();
    output->enqueueText(QStringLiteral("012"));
    output->play();
    QTRY_COMPARE(fake.log().filter("heard"), QStringList{QString::fromUtf8("heard zwölf")});
    output->stop();
    output->enqueueText(QStringLiteral("013"));
    output->enqueueText(QStringLiteral("B00:05:734"));
    output->play();
    QTRY_COMPARE(
        fake.log().filter("heard").mid(1),
        QStringList({"heard dreizehn", QString::fromUtf8("heard Bestzeit fünf Komma sieben drei vier")}));
}

void tst_CSoundOutput::onlyNewBestTimesWithoutTheCountANormalLapPlaysItsSampleABestLapSpeaks()
{
    CFakeSoundWorker fake;
    const auto output = panelVoice(std::make_unique<SoundOutLib>(fake.worker()));
    output->stop();
    output->playSample1();
    output->play();
    QTRY_COMPARE(fake.log().filter("heard"), QStringList{"heard driveThrough.wav"});
    output->stop();
    output->enqueueText(QStringLiteral("B01:02:034"));
    output->play();
    QTRY_COMPARE(fake.log().filter("heard").mid(1),
                 QStringList{"heard Bestzeit eine Minute zwei Komma null drei vier"});
}

QTEST_GUILESS_MAIN(tst_CSoundOutput)
#include "tst_CSoundOutput.moc"
