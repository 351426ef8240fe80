#include "sound/CSoundHandler.h"
#include "sound/EffectFile.h"
#include "sound/WaveFile.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace WaveFile;

namespace {

const QByteArray Format = format(1, 1, 44100, 16);
const QByteArray Sound = chunk("data", QByteArray(1000, '\1'));

bool isEffect(const QByteArray& content)
{
    QBuffer buffer;
    buffer.setData(content);
    return buffer.open(QIODevice::ReadOnly) && isEffectFile(buffer);
}

bool writeFile(const QString& name, const QByteArray& content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/** Has all effects of a program on one file, plays them, and ends: what a hang would stop. */
void playAndEnd(const QString& file)
{
    CSoundHandler handler;
    for (int round = 0; round < 2; ++round) {
        handler.setNewBestLapSound(file);
        handler.setDriveThroughSound(file);
        handler.playNewBestLap();
        handler.playDriveThrough();
        QCoreApplication::processEvents();
    }
}

} // namespace

/** Which files the effects are played from. */
class tst_EffectFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFileIsWholeOrNot_data();
    void aFileIsWholeOrNot();
    void aFileCutAnywhereIsNotWhole();
    void onlyAFileIsOpened();
    void theProgramEndsWhateverTheFileHolds_data();
    void theProgramEndsWhateverTheFileHolds();
};

void tst_EffectFile::aFileIsWholeOrNot_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isWhole");

    const QByteArray bigSound = QByteArray("data") + number(quint32(0x7fffffff)) + QByteArray(1000, '\1');
    const QByteArray otherBytes = chunk("LIST", QByteArray(26, 'x'));
    QTest::newRow("a whole file") << riff(Format + Sound) << true;
    QTest::newRow("with other chunks") << riff(otherBytes + Format + otherBytes + Sound + otherBytes) << true;
    QTest::newRow("with something behind it") << riff(Format + Sound) + QByteArray(100, 'x') << true;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("a few bytes") << QByteArray("RIFF") << false;
    QTest::newRow("no wave file") << QByteArray("Name;Startnummer\n").repeated(100) << false;
    QTest::newRow("another kind of RIFF") << chunk("RIFF", "AVI " + Format + Sound) << false;
    QTest::newRow("no chunk") << riff(QByteArray()) << false;
    QTest::newRow("no format") << riff(Sound) << false;
    QTest::newRow("a format too short") << riff(chunk("fmt ", QByteArray(8, '\1')) + Sound) << false;
    QTest::newRow("the format behind the sound") << riff(Sound + Format) << false;
    QTest::newRow("no sound") << riff(Format) << false;
    QTest::newRow("an empty sound") << riff(Format + chunk("data", QByteArray())) << false;
    QTest::newRow("more sound told than there is") << riff(Format + bigSound) << false;
    QTest::newRow("a size that was never filled in")
        << riff(Format + "data" + number(quint32(0xffffffff)) + QByteArray(1000, '\1')) << false;
    QTest::newRow("a chunk that leads out of the file")
        << riff(Format + "LIST" + number(quint32(5000)) + QByteArray(10, 'x')) << false;
    QTest::newRow("a chunk of an odd size")
        << riff(Format + chunk("LIST", QByteArray(25, 'x')) + Sound) << false;
    QTest::newRow("junk behind the head") << QByteArray("RIFF\xff\xff\xff\x7fWAVEfmt ").repeated(10) << false;
}

void tst_EffectFile::aFileIsWholeOrNot()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isWhole);
    QCOMPARE(isEffect(content), isWhole);
}

void tst_EffectFile::aFileCutAnywhereIsNotWhole()
{
    const QByteArray whole = riff(Format + Sound);
    QVERIFY(isEffect(whole));
    for (int size = 0; size < whole.size(); ++size)
        QVERIFY2(!isEffect(whole.left(size)), qPrintable(QString::number(size)));
}

void tst_EffectFile::onlyAFileIsOpened()
{
    QVERIFY(!isEffectFile(QString()));
    QVERIFY(!isEffectFile(QStringLiteral("missing.wav")));
    QVERIFY(!isEffectFile(QDir::currentPath()));
    QCOMPARE(mkfifo("pipe.wav", 0600), 0);
    QVERIFY(!isEffectFile(QStringLiteral("pipe.wav")));
    QVERIFY(writeFile("whole.wav", riff(Format + Sound)));
    QVERIFY(isEffectFile(QStringLiteral("whole.wav")));
}

void tst_EffectFile::theProgramEndsWhateverTheFileHolds_data()
{
    aFileIsWholeOrNot_data();
    const auto addFormat = [](const char* name, const QByteArray& format) {
        QTest::newRow(name) << riff(format + Sound) << true;
    };
    addFormat("no channels", format(1, 0, 44100, 16));
    addFormat("no rate", format(1, 1, 0, 16));
    addFormat("no bits", format(1, 1, 44100, 0));
    addFormat("more channels than anybody has", format(1, 65535, 44100, 16));
    addFormat("more bits than anybody has", format(1, 1, 44100, 65535));
    addFormat("the highest rate", format(1, 1, 0xffffffff, 16));
    addFormat("floats", format(3, 1, 44100, 32));
    addFormat("an unknown encoding", format(4711, 1, 44100, 16));
}

void tst_EffectFile::theProgramEndsWhateverTheFileHolds()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeFile("effect.wav", content));
    playAndEnd("effect.wav");
}

QTEST_GUILESS_MAIN(tst_EffectFile)
#include "tst_EffectFile.moc"
