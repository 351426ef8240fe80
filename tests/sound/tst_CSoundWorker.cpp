#include "sound/CSoundWorker.h"
#include "sound/FakeSoundWorker.h"

#include <QTest>

class tst_CSoundWorker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesAndWordsComeInTheirOrder();
    void aMissingFileIsLeftOut();
    void aSampleThatWasUnloadedIsNotRead();
    void aStoppedTicketIsNotSpoken();
    void aStopEndsTheWordsInWorkAndDropsTheRest();
    void aStopLetsTheNextTicketThrough();
    void finishEndsTheWordsInWork();
    void afterFinishNothingIsDone();
    void finishWithoutAnythingToDo();
    void aFileThatHangsIsLeftBehind();
};

namespace {

SoundTicket newTicket()
{
    return std::make_shared<CSoundTicket>();
}

std::shared_ptr<CSoundSample> sample(const QString& name)
{
    return std::make_shared<CSoundSample>(CSoundSample{name, {}, nullptr});
}

CSoundItem words(const QString& text)
{
    return {nullptr, text, SpeechLanguage::German};
}

CSoundItem item(const std::shared_ptr<CSoundSample>& loaded)
{
    return {loaded, QString(), SpeechLanguage::German};
}

} // namespace

void tst_CSoundWorker::samplesAndWordsComeInTheirOrder()
{
    CFakeSoundWorker fake;
    const auto loaded = sample("a.wav");
    fake.worker()->load(loaded);
    fake.worker()->play(newTicket(), {words("one"), item(loaded), words("two")});
    const QStringList expected{"read a.wav",  "speak one", "heard one",
                               "heard a.wav", "speak two", "heard two"};
    QTRY_COMPARE(fake.log(), expected);
}

void tst_CSoundWorker::aMissingFileIsLeftOut()
{
    CFakeSoundWorker fake;
    const auto loaded = sample("missing.wav");
    fake.worker()->load(loaded);
    fake.worker()->play(newTicket(), {item(loaded), words("end")});
    const QStringList expected{"read missing.wav", "speak end", "heard end"};
    QTRY_COMPARE(fake.log(), expected);
}

void tst_CSoundWorker::aSampleThatWasUnloadedIsNotRead()
{
    CFakeSoundWorker fake;
    const auto ahead = sample("wait.wav");
    fake.worker()->load(ahead);
    fake.worker()->load(sample("forgotten.wav"));
    fake.release();
    fake.worker()->play(newTicket(), {words("end")});
    const QStringList expected{"read wait.wav", "speak end", "heard end"};
    QTRY_COMPARE(fake.log(), expected);
}

void tst_CSoundWorker::aStoppedTicketIsNotSpoken()
{
    CFakeSoundWorker fake;
    const SoundTicket stopped = newTicket();
    stopped->stopped = true;
    fake.worker()->play(stopped, {words("one")});
    fake.worker()->play(newTicket(), {words("end")});
    const QStringList expected{"speak end", "heard end"};
    QTRY_COMPARE(fake.log(), expected);
}

void tst_CSoundWorker::aStopEndsTheWordsInWorkAndDropsTheRest()
{
    CFakeSoundWorker fake;
    const SoundTicket ticket = newTicket();
    fake.worker()->play(ticket, {words("wait"), words("one")});
    QTRY_COMPARE(fake.log(), QStringList{"speak wait"});
    ticket->stopped = true;
    fake.worker()->play(newTicket(), {words("end")});
    const QStringList expected{"speak wait", "speak end", "heard end"};
    QTRY_COMPARE(fake.log(), expected);
}

void tst_CSoundWorker::aStopLetsTheNextTicketThrough()
{
    CFakeSoundWorker fake;
    const SoundTicket ticket = newTicket();
    const SoundTicket other = newTicket();
    fake.worker()->play(ticket, {words("wait")});
    fake.worker()->play(other, {words("other track")});
    ticket->stopped = true;
    QTRY_VERIFY(fake.log().contains("heard other track"));
    QVERIFY(!other->stopped);
}

void tst_CSoundWorker::finishEndsTheWordsInWork()
{
    CFakeSoundWorker fake;
    const SoundTicket ticket = newTicket();
    fake.worker()->play(ticket, {words("wait"), words("never")});
    fake.worker()->play(newTicket(), {words("never")});
    QTRY_COMPARE(fake.log(), QStringList{"speak wait"});
    fake.worker()->finish();
    QVERIFY(ticket->stopped);
    QCOMPARE(fake.log(), QStringList{"speak wait"});
}

void tst_CSoundWorker::afterFinishNothingIsDone()
{
    CFakeSoundWorker fake;
    fake.worker()->finish();
    fake.worker()->load(sample("a.wav"));
    fake.worker()->play(newTicket(), {words("one")});
    fake.worker()->finish();
    QCOMPARE(fake.log(), QStringList());
}

void tst_CSoundWorker::finishWithoutAnythingToDo()
{
    CFakeSoundWorker fake;
    fake.worker()->finish();
    fake.worker()->finish();
    QCOMPARE(fake.log(), QStringList());
}

void tst_CSoundWorker::aFileThatHangsIsLeftBehind()
{
    CFakeSoundWorker fake;
    const auto loaded = sample("wait.wav");
    fake.worker()->load(loaded);
    QTRY_COMPARE(fake.log(), QStringList{"read wait.wav"});
    QTest::ignoreMessage(QtWarningMsg, "the sound worker hangs and is left behind");
    fake.worker()->finish(); // returns at all
    fake.release();
    QTRY_COMPARE(loaded.use_count(), 1L); // the thread has ended, the fake may go
}

QTEST_GUILESS_MAIN(tst_CSoundWorker)
#include "tst_CSoundWorker.moc"
