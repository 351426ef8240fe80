#include "sound/SoundFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_SoundFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDirectories();
    void theFirstDirectoryCounts();
    void aNameWithADirectoryIsNotSearched();
    void aMissingFileIsLookedForInTheWorkingDirectory();
    void aDirectoryIsNoSoundFile();
    void anEmptyNameStaysEmpty();
};

namespace {

void touch(const QString& path)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

} // namespace

void tst_SoundFiles::theDirectories()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QStringList expected{QDir::currentPath(),
                               QDir::cleanPath(program.absoluteFilePath("../share/tornik/sounds")),
                               program.absoluteFilePath("sounds")};
    QCOMPARE(soundDirectories(), expected);
}

void tst_SoundFiles::theFirstDirectoryCounts()
{
    QTemporaryDir first;
    QTemporaryDir second;
    const QStringList directories{first.path(), second.path()};
    touch(second.filePath("a.wav"));
    QCOMPARE(soundFilePath("a.wav", directories), second.filePath("a.wav"));
    touch(first.filePath("a.wav"));
    QCOMPARE(soundFilePath("a.wav", directories), first.filePath("a.wav"));
}

void tst_SoundFiles::aNameWithADirectoryIsNotSearched()
{
    QTemporaryDir directory;
    touch(directory.filePath("sub/a.wav"));
    const QString absolute = directory.filePath("sub/a.wav");
    QCOMPARE(soundFilePath(absolute, {}), absolute);
    QCOMPARE(soundFilePath("sub/a.wav", {directory.path()}), QDir::current().absoluteFilePath("sub/a.wav"));
}

void tst_SoundFiles::aMissingFileIsLookedForInTheWorkingDirectory()
{
    QTemporaryDir directory;
    QCOMPARE(soundFilePath("none.wav", {directory.path()}), QDir::current().absoluteFilePath("none.wav"));
}

void tst_SoundFiles::aDirectoryIsNoSoundFile()
{
    QTemporaryDir first;
    QTemporaryDir second;
    QVERIFY(QDir(first.path()).mkdir("a.wav"));
    touch(second.filePath("a.wav"));
    QCOMPARE(soundFilePath("a.wav", {first.path(), second.path()}), second.filePath("a.wav"));
}

void tst_SoundFiles::anEmptyNameStaysEmpty()
{
    QCOMPARE(soundFilePath(QString()), QString());
}

QTEST_GUILESS_MAIN(tst_SoundFiles)
#include "tst_SoundFiles.moc"
