#include "io/CIowKit.h"
#include "support/DebugLines.h"
#include "support/TestChip.h"

#include <QtTest>

#include <array>

class tst_CIowKit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingLibraryIsQuiet();
    void libraryWithoutTheEntriesIsQuiet();
    void missingLibraryIsADebugLine();
    void standInIsLoaded();
};

namespace {

void callEverything(CIowKit& library)
{
    std::array<char, 8> report{1, 2, 3};
    const std::array<char, 8> before = report;
    QVERIFY(!library.isLoaded());
    QVERIFY(!library.openDevice());
    library.setWriteTimeout(nullptr, 1000);
    library.write(nullptr, 0, report.data(), 5);
    QCOMPARE(library.read(nullptr, 1, report.data(), 8), 0U);
    QVERIFY(report == before);
    QCOMPARE(library.productId(nullptr), 0U);
    library.closeDevice(nullptr);
}

} // namespace

void tst_CIowKit::missingLibraryIsQuiet()
{
    CIowKit library(QStringLiteral("no-such-iowkit"));
    callEverything(library);
}

void tst_CIowKit::libraryWithoutTheEntriesIsQuiet()
{
    QTemporaryDir directory;
    const QString fileName = directory.filePath(QStringLiteral("libiowkit.so"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no library");
    file.close();
    CIowKit library(fileName);
    callEverything(library);
    CIowKit mathematics(QStringLiteral("libm.so.6"));
    callEverything(mathematics);
}

void tst_CIowKit::missingLibraryIsADebugLine()
{
    const DebugLines log("tornik.io");
    const CIowKit library(QStringLiteral("no-such-iowkit"));
    QCOMPARE(log.lines(), QStringList{"no usable library \"no-such-iowkit\""});
}

void tst_CIowKit::standInIsLoaded()
{
    TestChip chip;
    CIowKit library;
    QVERIFY(library.isLoaded());
    void* handle = library.openDevice();
    QVERIFY(handle);
    QCOMPARE(library.productId(handle), TestChip::Warrior40);
    library.closeDevice(handle);
    QCOMPARE(chip.count(VirtualIoWarrior::Closed), 1U);
}

QTEST_GUILESS_MAIN(tst_CIowKit)
#include "tst_CIowKit.moc"
