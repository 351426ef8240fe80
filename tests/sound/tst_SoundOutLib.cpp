#include "sound/FakeSoundWorker.h"
#include "sound/SoundOutLib.h"

#include <QLocale>
#include <QTest>

class tst_SoundOutLib : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); }

    void theQueueWaitsForPlay();
    void whatIsAddedAfterPlayWaitsForTheNextPlay();
    void stopEmptiesTheQueue();
    void stopEndsWhatIsBeingSpoken();
    void playersDoNotCutEachOther();
    void idsAreNeverGivenTwice();
    void unloadedIdsAreSilent();
    void unknownIdsAreSilent();
    void aMissingFileIsSilent();
    void noFileIsSilent();
    void textsAreSpokenInTheLanguageOfTheProgram();
    void textsWithNothingToSayAreLeftOut();
    void playWithAnEmptyQueueDoesNothing();
    void theEndOfAPlayerEndsItsOutput();
    void aPlayerThatOutlivesTheWorkerIsSilent();
};

void tst_SoundOutLib::theQueueWaitsForPlay()
{
    CFakeSoundWorker fake;
    SoundOutLib waiting(fake.worker());
    waiting.enqueue("012");
    SoundOutLib playing(fake.worker());
    const int id = playing.load("a.wav");
    playing.enqueue("001");
    playing.enqueue(id);
    playing.play();
    const QStringList expected{"read a.wav", "speak eins", "heard eins", "heard a.wav"};
    QTRY_COMPARE(fake.log(), expected);
    waiting.play();
    QTRY_COMPARE(fake.log(), expected + QStringList({"speak zwölf", "heard zwölf"}));
}

void tst_SoundOutLib::whatIsAddedAfterPlayWaitsForTheNextPlay()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.enqueue("1");
    lib.play();
    lib.enqueue("2");
    QTRY_COMPARE(fake.log(), QStringList({"speak eins", "heard eins"}));
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak eins", "heard eins", "speak zwei", "heard zwei"}));
}

void tst_SoundOutLib::stopEmptiesTheQueue()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.enqueue("1");
    lib.enqueue("2");
    lib.stop();
    lib.play();
    lib.enqueue("3");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak drei", "heard drei"}));
}

void tst_SoundOutLib::stopEndsWhatIsBeingSpoken()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    const int id = lib.load("wait.wav"); // holds the worker until the player is stopped
    lib.enqueue(id);
    lib.enqueue("1");
    lib.play();
    lib.stop();
    fake.release();
    lib.enqueue("2");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"read wait.wav", "speak zwei", "heard zwei"}));
}

void tst_SoundOutLib::playersDoNotCutEachOther()
{
    CFakeSoundWorker fake;
    SoundOutLib first(fake.worker());
    SoundOutLib second(fake.worker());
    first.load("wait.wav");
    first.enqueue("1");
    first.play();
    second.enqueue("2");
    second.play();
    second.stop();
    fake.release();
    QTRY_VERIFY(fake.log().contains("heard eins"));
    first.enqueue("3");
    first.play();
    QTRY_COMPARE(fake.log(),
                 QStringList({"read wait.wav", "speak eins", "heard eins", "speak drei", "heard drei"}));
}

void tst_SoundOutLib::idsAreNeverGivenTwice()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    const int first = lib.load("a.wav");
    const int second = lib.load("a.wav");
    lib.unloadAll();
    const int third = lib.load("a.wav");
    QVERIFY(first != second);
    QVERIFY(third != first && third != second);
}

void tst_SoundOutLib::unloadedIdsAreSilent()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    const int before = lib.load("before.wav");
    lib.unloadAll();
    const int after = lib.load("after.wav");
    lib.enqueue(before);
    lib.enqueue(after);
    lib.play();
    QTRY_VERIFY(fake.log().contains("heard after.wav"));
    QVERIFY(!fake.log().contains("heard before.wav"));
}

void tst_SoundOutLib::unknownIdsAreSilent()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.enqueue(-1);
    lib.enqueue(0);
    lib.enqueue(4711);
    lib.enqueue("1");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak eins", "heard eins"}));
}

void tst_SoundOutLib::aMissingFileIsSilent()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.enqueue(lib.load("missing.wav"));
    lib.enqueue("1");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"read missing.wav", "speak eins", "heard eins"}));
}

void tst_SoundOutLib::noFileIsSilent()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.enqueue(lib.load(""));
    lib.enqueue(lib.load(nullptr));
    lib.enqueue(static_cast<const char*>(nullptr));
    lib.enqueue("1");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak eins", "heard eins"}));
}

void tst_SoundOutLib::textsAreSpokenInTheLanguageOfTheProgram()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.enqueue("12");
    QLocale::setDefault(QLocale(QStringLiteral("en_GB")));
    lib.enqueue("12");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak zwölf", "heard zwölf", "speak twelve", "heard twelve"}));
    QCOMPARE(fake.languages(), (QVector<SpeechLanguage>{SpeechLanguage::German, SpeechLanguage::English}));
}

void tst_SoundOutLib::textsWithNothingToSayAreLeftOut()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.enqueue("");
    lib.enqueue("--:--");
    lib.enqueue("\xff\xfe\xe4");
    lib.enqueue("1");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak eins", "heard eins"}));
}

void tst_SoundOutLib::playWithAnEmptyQueueDoesNothing()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    lib.play();
    lib.stop();
    lib.play();
    lib.enqueue("1");
    lib.play();
    QTRY_COMPARE(fake.log(), QStringList({"speak eins", "heard eins"}));
}

void tst_SoundOutLib::theEndOfAPlayerEndsItsOutput()
{
    CFakeSoundWorker fake;
    SoundOutLib survivor(fake.worker());
    {
        SoundOutLib lib(fake.worker());
        lib.load("wait.wav");
        survivor.load("other.wav");
        lib.enqueue("1");
        lib.play();
    }
    fake.release();
    survivor.enqueue("2");
    survivor.play();
    QTRY_VERIFY(fake.log().contains("heard zwei"));
    QVERIFY(!fake.log().contains("speak eins"));
}

void tst_SoundOutLib::aPlayerThatOutlivesTheWorkerIsSilent()
{
    CFakeSoundWorker fake;
    SoundOutLib lib(fake.worker());
    fake.worker()->finish();
    lib.enqueue(lib.load("a.wav"));
    lib.enqueue("1");
    lib.play();
    lib.stop();
    QCOMPARE(fake.log(), QStringList());
}

QTEST_GUILESS_MAIN(tst_SoundOutLib)
#include "tst_SoundOutLib.moc"
