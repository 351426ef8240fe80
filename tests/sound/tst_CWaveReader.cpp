#include "sound/CWaveReader.h"
#include "sound/WaveFile.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QTest>

#include <limits>

using namespace WaveFile;

class tst_CWaveReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void encodings_data();
    void encodings();
    void floats();
    void stereo();
    void otherChunksAreSkipped();
    void aFileThatEndsEarlyGivesWhatIsThere();
    void aSizeThatWasNeverFilledInGivesWhatIsThere();
    void whatIsNoWaveFileIsSilent_data();
    void whatIsNoWaveFileIsSilent();
    void aCutAtEveryByteSurvives();
    void junkAtEveryByteSurvives();
    void aVeryLongSoundIsCut();
    void aDeviceThatFailsIsSilent();
};

namespace {

SoundClip read(QByteArray file)
{
    QBuffer buffer(&file);
    if (!buffer.open(QIODevice::ReadOnly))
        return nullptr;
    return CWaveReader::read(buffer);
}

/** Claims to have bytes and fails after some of them. */
class CFailingDevice : public QIODevice
{
public:
    explicit CFailingDevice(QByteArray good) : m_good(std::move(good)) { open(QIODevice::ReadOnly); }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        if (m_good.isEmpty())
            return -1;
        const QByteArray part = m_good.left(int(maxSize));
        m_good.remove(0, part.size());
        std::copy(part.begin(), part.end(), data);
        return part.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_good;
};

/** A second of silence in many bytes, without end. */
class CEndlessDevice : public QIODevice
{
public:
    explicit CEndlessDevice(QByteArray head) : m_head(std::move(head)) { open(QIODevice::ReadOnly); }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const QByteArray part = m_head.left(int(qMin<qint64>(maxSize, m_head.size())));
        m_head.remove(0, part.size());
        std::copy(part.begin(), part.end(), data);
        std::fill(data + part.size(), data + maxSize, 0);
        return maxSize;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_head;
};

} // namespace

void tst_CWaveReader::encodings_data()
{
    QTest::addColumn<QByteArray>("file");
    const auto row = [](const char* name, quint16 encoding, quint16 bits, const QByteArray& data) {
        QTest::newRow(name) << riff(format(encoding, 1, MixRate, bits) + chunk("data", data));
    };
    row("8 bits", 1, 8, QByteArray::fromHex("8000c0"));
    row("16 bits", 1, 16, QByteArray::fromHex("000000800040"));
    row("24 bits", 1, 24, QByteArray::fromHex("ff0000000080000040"));
    row("32 bits", 1, 32, QByteArray::fromHex("000000000000008000000040"));
    const QByteArray extensible = number(quint16(0xFFFE)) + number(quint16(1)) + number(quint32(MixRate)) +
                                  number(quint32(MixRate * 2)) + number(quint16(2)) + number(quint16(16)) +
                                  number(quint16(22)) + number(quint16(16)) + number(quint32(4)) +
                                  QByteArray::fromHex("0100000000001000800000aa00389b71");
    QTest::newRow("extensible") << riff(chunk("fmt ", extensible) +
                                        chunk("data", QByteArray::fromHex("000000800040")));
}

void tst_CWaveReader::encodings()
{
    QFETCH(QByteArray, file);
    const SoundClip clip = read(file);
    QVERIFY(clip);
    QCOMPARE(*clip, (QVector<qint16>{0, 0, -32768, -32768, 16384, 16384}));
}

void tst_CWaveReader::floats()
{
    QByteArray data;
    for (const float value : {0.0F, -0.5F, 1.0F, 2.0F, std::numeric_limits<float>::quiet_NaN(),
                              -std::numeric_limits<float>::infinity()})
        data += number(value);
    const SoundClip clip = read(riff(format(3, 1, MixRate, 32) + chunk("data", data)));
    QVERIFY(clip);
    QVector<qint16> left;
    for (int i = 0; i < clip->size(); i += MixChannels)
        left << clip->at(i);
    QCOMPARE(left, (QVector<qint16>{0, -16383, 32767, 32767, 0, -32767}));
}

void tst_CWaveReader::stereo()
{
    QCOMPARE(*read(plain({1, 2, 3, 4}, 2)), (QVector<qint16>{1, 2, 3, 4}));
}

void tst_CWaveReader::otherChunksAreSkipped()
{
    const QByteArray data = chunk("data", number(qint16(7)));
    const QByteArray odd = chunk("LIST", "odd"); // with its byte of padding
    QCOMPARE(*read(riff(odd + format(1, 1, MixRate, 16) + odd + data + odd)), (QVector<qint16>{7, 7}));
}

void tst_CWaveReader::aFileThatEndsEarlyGivesWhatIsThere()
{
    const QByteArray file = plain({1, 2, 3});
    QCOMPARE(*read(file.left(file.size() - 1)), (QVector<qint16>{1, 1, 2, 2}));
}

void tst_CWaveReader::aSizeThatWasNeverFilledInGivesWhatIsThere()
{
    const QByteArray head = riff(format(1, 1, MixRate, 16));
    QCOMPARE(*read(head + "data" + number(quint32(0xFFFFFFFF)) + number(qint16(5))), (QVector<qint16>{5, 5}));
}

void tst_CWaveReader::whatIsNoWaveFileIsSilent_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray data = chunk("data", number(qint16(7)));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("This is no sound, it is a text.");
    QTest::newRow("other RIFF") << chunk("RIFF", "AVI " + format(1, 1, MixRate, 16) + data);
    QTest::newRow("no chunks") << riff(QByteArray());
    QTest::newRow("no data") << riff(format(1, 1, MixRate, 16));
    QTest::newRow("data of nothing") << riff(format(1, 1, MixRate, 16) + chunk("data", QByteArray()));
    QTest::newRow("no format") << riff(data);
    QTest::newRow("format too short") << riff(chunk("fmt ", "1234") + data);
    QTest::newRow("format behind the data") << riff(data + format(1, 1, MixRate, 16));
    QTest::newRow("compressed") << riff(format(2, 1, MixRate, 4) + data);
    QTest::newRow("no channels") << riff(format(1, 0, MixRate, 16) + data);
    QTest::newRow("65535 channels") << riff(format(1, 65535, MixRate, 16) + data);
    QTest::newRow("no rate") << riff(format(1, 1, 0, 16) + data);
    QTest::newRow("rate without end") << riff(format(1, 1, 0xFFFFFFFF, 16) + data);
    QTest::newRow("no bits") << riff(format(1, 1, MixRate, 0) + data);
    QTest::newRow("12 bits") << riff(format(1, 1, MixRate, 12) + data);
    QTest::newRow("float of 64 bits") << riff(format(3, 1, MixRate, 64) + chunk("data", QByteArray(8, 0)));
    QTest::newRow("chunk larger than the file") << riff("LIST" + number(quint32(0xFFFFFFF0)));
}

void tst_CWaveReader::whatIsNoWaveFileIsSilent()
{
    QFETCH(QByteArray, file);
    QVERIFY(!read(file));
}

void tst_CWaveReader::aCutAtEveryByteSurvives()
{
    const QByteArray file = plain({1, 2, 3}, 1);
    const int head = file.size() - 6;
    for (int size = 0; size <= file.size(); ++size) {
        const SoundClip clip = read(file.left(size));
        QCOMPARE(clip ? clip->size() : 0, size < head ? 0 : (size - head) / 2 * MixChannels);
    }
}

void tst_CWaveReader::junkAtEveryByteSurvives()
{
    const QByteArray file = plain({1, 2, 3, 4, 5, 6}, 1);
    QRandomGenerator random(1);
    int readable = 0;
    for (int pass = 0; pass < 2000; ++pass) {
        QByteArray broken = file;
        for (int i = 0; i < 3; ++i)
            broken[int(random.bounded(quint32(file.size())))] = char(random.bounded(256));
        readable += read(broken) ? 1 : 0;
    }
    QVERIFY(readable > 0);
    QVERIFY(readable < 2000);
}

void tst_CWaveReader::aVeryLongSoundIsCut()
{
    constexpr quint32 Rate = 1000;
    const QByteArray head = riff(format(1, 1, Rate, 8)) + "data" + number(quint32(0xFFFFFFFF));
    CEndlessDevice device(head);
    const SoundClip clip = CWaveReader::read(device);
    QVERIFY(clip);
    QCOMPARE(clip->size(), CWaveReader::LongestSeconds * MixRate * MixChannels);
}

void tst_CWaveReader::aDeviceThatFailsIsSilent()
{
    const QByteArray file = plain({1, 2, 3}, 1);
    CFailingDevice atOnce{QByteArray()};
    QVERIFY(!CWaveReader::read(atOnce));
    CFailingDevice inTheFormat(file.left(20));
    QVERIFY(!CWaveReader::read(inTheFormat));
}

QTEST_APPLESS_MAIN(tst_CWaveReader)
#include "tst_CWaveReader.moc"
