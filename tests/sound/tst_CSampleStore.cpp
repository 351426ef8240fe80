#include "sound/CSampleStore.h"
#include "sound/WaveFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

class tst_CSampleStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSameFileIsTheSameClip();
    void aChangedFileIsReadAgain();
    void aFileThatCannotBeReadIsSilent();
    void aPipeIsNotWaitedFor();

private:
    QTemporaryDir m_directory;
};

namespace {

QString write(const QTemporaryDir& directory, const char* name, const QByteArray& content)
{
    QFile file(directory.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                    : QString();
}

} // namespace

void tst_CSampleStore::theSameFileIsTheSameClip()
{
    CSampleStore store;
    const QString path = write(m_directory, "same.wav", WaveFile::plain({1, 2}));
    const SoundClip clip = store.read(path);
    QVERIFY(clip);
    QCOMPARE(store.read(path), clip);
}

void tst_CSampleStore::aChangedFileIsReadAgain()
{
    CSampleStore store;
    const SoundClip before = store.read(write(m_directory, "changed.wav", WaveFile::plain({1, 2})));
    const SoundClip after = store.read(write(m_directory, "changed.wav", WaveFile::plain({1, 2, 3})));
    QVERIFY(before && after);
    QCOMPARE(before->size(), 2 * MixChannels);
    QCOMPARE(after->size(), 3 * MixChannels);
}

void tst_CSampleStore::aFileThatCannotBeReadIsSilent()
{
    CSampleStore store;
    QVERIFY(!store.read(m_directory.filePath("missing.wav")));
    QVERIFY(!store.read(write(m_directory, "junk.wav", "junk")));
    QVERIFY(!store.read(m_directory.path()));
    QVERIFY(!store.read(QString()));
}

void tst_CSampleStore::aPipeIsNotWaitedFor()
{
    CSampleStore store;
    const QString path = m_directory.filePath("pipe.wav");
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(!store.read(path));
}

QTEST_GUILESS_MAIN(tst_CSampleStore)
#include "tst_CSampleStore.moc"
