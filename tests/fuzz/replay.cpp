#include "fuzz/FuzzTarget.h"

#include <QDir>
#include <QFile>
#include <QtTest>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const quint8* data, std::size_t size);

/** Feeds a fuzz target with its kept inputs, where there is no fuzzer. */
class ReplayCorpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyKeptInputIsReadWithoutHarm_data();
    void everyKeptInputIsReadWithoutHarm();
};

void ReplayCorpus::everyKeptInputIsReadWithoutHarm_data()
{
    QTest::addColumn<QString>("fileName");
    const QDir corpus(QStringLiteral(TORNIK_FUZZ_CORPUS));
    const QStringList names = corpus.entryList(QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << corpus.filePath(name);
}

void ReplayCorpus::everyKeptInputIsReadWithoutHarm()
{
    QFETCH(QString, fileName);
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const QByteArray doubled = bytes + bytes; // joined, and cut into other pieces
    for (const QByteArray& input : {bytes, doubled, QByteArray()}) {
        const auto* data = reinterpret_cast<const quint8*>(input.constData());
        QCOMPARE(LLVMFuzzerTestOneInput(data, std::size_t(input.size())), 0);
    }
}

int main(int argc, char* argv[])
{
    LLVMFuzzerInitialize(&argc, &argv);
    ReplayCorpus replay;
    return QTest::qExec(&replay, argc, argv);
}

#include "replay.moc"
