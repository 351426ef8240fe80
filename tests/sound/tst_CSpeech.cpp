#include "sound/CSpeech.h"

#include <QTest>

#include <atomic>
#include <pthread.h>
#include <thread>
#include <time.h>
#include <vector>

class tst_CSpeech : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void speaksWords();
    void theLanguagesSoundDifferent();
    void theSameWordsTakeTheSameTime();
    void noWordsAreNoClip();
    void aStoppedTicketIsNotSpoken();
    void aStopWhileSpeakingEndsIt();
    void manyThreadsTakeTurns();
};

namespace {

SoundClip speak(const QString& words, SpeechLanguage language = SpeechLanguage::German)
{
    return CSpeech::speak(words, language, CSoundTicket());
}

/** @return how long a thread has worked, not counting its waits. */
qint64 processorMs(pthread_t thread)
{
    clockid_t clock = 0;
    timespec time{};
    pthread_getcpuclockid(thread, &clock);
    clock_gettime(clock, &time);
    return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
}

} // namespace

void tst_CSpeech::speaksWords()
{
    const SoundClip clip = speak(QStringLiteral("zwölf"));
    QVERIFY(clip);
    QVERIFY(clip->size() > MixRate * MixChannels / 5);
    QVERIFY(clip->size() < MixRate * MixChannels * 2);
    qint16 loudest = 0;
    for (const qint16 sample : *clip)
        loudest = qMax(loudest, sample);
    QVERIFY(loudest > 3000);
}

void tst_CSpeech::theLanguagesSoundDifferent()
{
    const SoundClip german = speak(QStringLiteral("fünf"), SpeechLanguage::German);
    const SoundClip english = speak(QStringLiteral("fünf"), SpeechLanguage::English);
    QVERIFY(german && english);
    QVERIFY(*german != *english);
}

void tst_CSpeech::theSameWordsTakeTheSameTime()
{
    const SoundClip first =
        CSpeech::speak(QStringLiteral("eins zwei"), SpeechLanguage::German, CSoundTicket());
    const SoundClip second =
        CSpeech::speak(QStringLiteral("eins zwei"), SpeechLanguage::German, CSoundTicket());
    QVERIFY(first && second);
    QVERIFY(qAbs(first->size() - second->size()) < MixRate * MixChannels / 10);
}

void tst_CSpeech::noWordsAreNoClip()
{
    QVERIFY(!speak(QString()));
    QVERIFY(!speak(QStringLiteral("   ")));
}

void tst_CSpeech::aStoppedTicketIsNotSpoken()
{
    CSoundTicket ticket;
    ticket.stopped = true;
    QVERIFY(!CSpeech::speak(QStringLiteral("zwölf"), SpeechLanguage::German, ticket));
}

void tst_CSpeech::aStopWhileSpeakingEndsIt()
{
    QVERIFY(speak(QStringLiteral("eins"))); // the library is loaded
    // Spoken to the end this would be hours of sound and more memory than there is.
    const QString endless = QStringLiteral("einhundertelf ").repeated(100000);
    CSoundTicket ticket;
    const pthread_t speaker = pthread_self();
    std::thread stopper([&ticket, speaker, begin = processorMs(speaker)] {
        while (processorMs(speaker) < begin + 50) // then it is in the middle of it
            std::this_thread::yield();
        ticket.stopped = true;
    });
    const SoundClip clip = CSpeech::speak(endless, SpeechLanguage::German, ticket);
    stopper.join();
    QVERIFY(!clip);
}

void tst_CSpeech::manyThreadsTakeTurns()
{
    std::atomic<int> spoken{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&spoken, i] {
            const SpeechLanguage language = i % 2 ? SpeechLanguage::English : SpeechLanguage::German;
            for (int k = 0; k < 5; ++k)
                spoken += speak(QStringLiteral("null"), language) ? 1 : 0;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(spoken.load(), 40);
}

QTEST_APPLESS_MAIN(tst_CSpeech)
#include "tst_CSpeech.moc"
