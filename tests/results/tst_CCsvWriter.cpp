#include "results/CCsvWriter.h"
#include "support/DatabaseFile.h"

#include <QtTest>

namespace {

/** @return the lines of the written file; the text behind the last line end is the last of them. */
QStringList written(CCsvWriter& writer)
{
    writer.writeToFile("out.csv");
    return QString::fromUtf8(contentOf("out.csv")).split('\n');
}

} // namespace

class tst_CCsvWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewTableHasOneEmptyRow();
    void aRowWithTwoCellsGetsNoBlankCell();
    void aRowWithThreeCellsGetsAFourthWithABlank();
    void aTableGrowsOneRowFurtherThanAsked();
    void cellsBetweenAreBlank();
    void aCellCanBeOverwritten();
    void numbersAndFlagsBecomeText();
    void textIsWrittenAsItIs();
    void theFileIsUtf8WithoutAByteOrderMark();
    void aNegativePlaceIsIgnored();
    void aFileThatCannotBeOpenedIsPassedOver();
    void anOlderFileIsReplaced();

private:
    ScratchDirectory m_scratch;
};

void tst_CCsvWriter::aNewTableHasOneEmptyRow()
{
    CCsvWriter writer;

    QCOMPARE(written(writer), (QStringList{"", ""}));
}

void tst_CCsvWriter::aRowWithTwoCellsGetsNoBlankCell()
{
    CCsvWriter writer;
    writer.setCell(0, 0, QString("a"));
    writer.setCell(1, 0, QString("b"));

    QCOMPARE(written(writer), (QStringList{"a;b", ""}));
}

void tst_CCsvWriter::aRowWithThreeCellsGetsAFourthWithABlank()
{
    CCsvWriter writer;
    writer.setCell(0, 0, QString("a"));
    writer.setCell(1, 0, QString("b"));
    writer.setCell(2, 0, QString("c"));

    QCOMPARE(written(writer), (QStringList{"a;b;c; ", ""}));
}

void tst_CCsvWriter::aTableGrowsOneRowFurtherThanAsked()
{
    CCsvWriter writer;
    writer.setCell(0, 3, QString("a"));
    QCOMPARE(written(writer), (QStringList{"", "", "", "a; ", "", ""}));

    writer.setCell(0, 4, QString("b"));
    QCOMPARE(written(writer), (QStringList{"", "", "", "a; ", "b; ", ""}));

    writer.setCell(0, 5, QString("c"));
    QCOMPARE(written(writer), (QStringList{"", "", "", "a; ", "b; ", "c; ", "", ""}));
}

void tst_CCsvWriter::cellsBetweenAreBlank()
{
    CCsvWriter writer;
    writer.setCell(3, 0, QString("d"));

    QCOMPARE(written(writer), (QStringList{" ; ; ;d; ", ""}));
}

void tst_CCsvWriter::aCellCanBeOverwritten()
{
    CCsvWriter writer;
    writer.setCell(0, 0, QString("old"));
    writer.setCell(0, 0, QString("new"));

    QCOMPARE(written(writer), (QStringList{"new; ", ""}));
}

void tst_CCsvWriter::numbersAndFlagsBecomeText()
{
    CCsvWriter writer;
    writer.setCell(0, 0, -42);
    writer.setCell(1, 0, 1234567.5);
    writer.setCell(2, 0, 0.125);
    writer.setCell(3, 0, true);
    writer.setCell(4, 0, false);
    writer.setCell(5, 0, 100.0);

    QCOMPARE(written(writer), (QStringList{"-42;1.23457e+06;0.125;ja;nein;100", ""}));
}

void tst_CCsvWriter::textIsWrittenAsItIs()
{
    CCsvWriter writer;
    writer.setCell(0, 0, QString("a;\"b\""));
    writer.setCell(1, 0, QString("c\td"));

    QCOMPARE(written(writer), (QStringList{"a;\"b\";c\td", ""}));
}

void tst_CCsvWriter::theFileIsUtf8WithoutAByteOrderMark()
{
    CCsvWriter writer;
    writer.setCell(0, 0, QString("Größe €"));
    writer.setCell(1, 0, QString());
    writer.writeToFile("out.csv");

    QCOMPARE(contentOf("out.csv"), QByteArray("Gr\xC3\xB6\xC3\x9F"
                                              "e \xE2\x82\xAC;\n"));
}

void tst_CCsvWriter::aNegativePlaceIsIgnored()
{
    CCsvWriter writer;
    writer.setCell(-1, 0, QString("a"));
    writer.setCell(0, -1, QString("b"));

    QCOMPARE(written(writer), (QStringList{"", ""}));
}

void tst_CCsvWriter::aFileThatCannotBeOpenedIsPassedOver()
{
    CCsvWriter writer;
    writer.setCell(0, 0, QString("a"));
    QVERIFY(QDir().mkpath("directory"));

    writer.writeToFile("no/such/directory/out.csv");
    writer.writeToFile("directory");
    writer.writeToFile("");

    QVERIFY(!QFile::exists("no"));
    QVERIFY(QDir("directory").isEmpty());
}

void tst_CCsvWriter::anOlderFileIsReplaced()
{
    QVERIFY(writeContent("out.csv", QByteArray(1000, 'x')));
    CCsvWriter writer;

    QCOMPARE(written(writer), (QStringList{"", ""}));
}

QTEST_GUILESS_MAIN(tst_CCsvWriter)
#include "tst_CCsvWriter.moc"
