#include "shell/CTranslationCatalogue.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <memory>

class tst_CTranslationCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void looksBesideTheProgramFirst();
    void onlyEnglishHasACatalogue_data();
    void onlyEnglishHasACatalogue();
    void takesTheSecondDirectoryIfTheFirstHasNone();
    void germanWithEnglishBehindItStaysGerman();

private:
    /** A directory with the program's English catalogue. */
    QString catalogueDirectory() const { return m_directory->path(); }

    std::unique_ptr<QTemporaryDir> m_directory;
};

void tst_CTranslationCatalogue::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    const QString file = "/Tornik_en.qm";
    QVERIFY(QFile::copy(TORNIK_BIN_DIR "/languages" + file, m_directory->path() + file));
}

void tst_CTranslationCatalogue::looksBesideTheProgramFirst()
{
    const QStringList directories = CTranslationCatalogue::directories();
    QCOMPARE(directories.size(), 2);
    QCOMPARE(directories[0], QCoreApplication::applicationDirPath() + "/languages");
    QVERIFY(directories[1].endsWith("/share/tornik/languages"));
}

void tst_CTranslationCatalogue::onlyEnglishHasACatalogue_data()
{
    QTest::addColumn<bool>("found");
    QTest::newRow("en") << true;
    QTest::newRow("en_US") << true;
    QTest::newRow("de") << false;
    QTest::newRow("de_AT") << false;
    QTest::newRow("xx") << false;
    QTest::newRow("C") << false;
    QTest::newRow("../en") << false;
}

void tst_CTranslationCatalogue::onlyEnglishHasACatalogue()
{
    QFETCH(bool, found);
    QTranslator translator;
    QCOMPARE(
        CTranslationCatalogue::load(translator, QLocale(QTest::currentDataTag()), {catalogueDirectory()}),
        found);
}

void tst_CTranslationCatalogue::takesTheSecondDirectoryIfTheFirstHasNone()
{
    QTranslator translator;
    QVERIFY(CTranslationCatalogue::load(translator, QLocale("en"), {"/nonexistent", catalogueDirectory()}));
}

void tst_CTranslationCatalogue::germanWithEnglishBehindItStaysGerman()
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    qputenv("LANGUAGE", "de_DE:de:en_US:en");
    QTranslator translator;
    QVERIFY(!CTranslationCatalogue::load(translator, QLocale::system(), {catalogueDirectory()}));
}

QTEST_GUILESS_MAIN(tst_CTranslationCatalogue)
#include "tst_CTranslationCatalogue.moc"
