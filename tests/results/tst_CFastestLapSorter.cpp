#include "results/CFastestLapSorter.h"

#include <QStandardItemModel>
#include <QStringListModel>
#include <QtTest>

namespace {

/** A model of one column of values and one of their numbers, from 0. */
void fill(QStandardItemModel& model, const QVariantList& values)
{
    model.clear();
    for (int row = 0; row < values.size(); ++row) {
        auto* value = new QStandardItem;
        value->setData(values.at(row), Qt::DisplayRole);
        auto* number = new QStandardItem;
        number->setData(row, Qt::DisplayRole);
        model.appendRow({value, number});
    }
}

QList<int> order(const CFastestLapSorter& sorter)
{
    QList<int> numbers;
    for (int row = 0; row < sorter.rowCount(); ++row)
        numbers << sorter.index(row, 1).data().toInt();
    return numbers;
}

} // namespace

class tst_CFastestLapSorter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale("de_DE")); }

    void sortsByTheKindOfTheValues_data();
    void sortsByTheKindOfTheValues();
    void equalRowsKeepTheOrderOfTheSource();
    void anEmptyListIsSortedToo();
    void aResetOfTheSourceIsSortedAnew();
    void anotherSourceIsSortedAnew();
};

void tst_CFastestLapSorter::sortsByTheKindOfTheValues_data()
{
    QTest::addColumn<QVariantList>("values");
    QTest::addColumn<QList<int>>("ascending");
    QTest::newRow("umlauts stand beside their vowels")
        << QVariantList{"Zoe", "Özil", "Otto", "Ärmel", "Bernd"} << QList<int>{3, 4, 2, 1, 0};
    QTest::newRow("capitals mean nothing")
        << QVariantList{"berta", "Carl", "anna", "Anton"} << QList<int>{2, 3, 0, 1};
    QTest::newRow("a name that is gone comes first")
        << QVariantList{"Ben", QVariant(QVariant::String), "Anna"} << QList<int>{1, 2, 0};
    QTest::newRow("numbers") << QVariantList{100, 20, 3} << QList<int>{2, 1, 0};
    QTest::newRow("times beyond the signed range")
        << QVariantList{4294967295u, 5, 2147483648u} << QList<int>{1, 2, 0};
    QTest::newRow("a number that is gone comes first")
        << QVariantList{2, QVariant(QVariant::Int), 1} << QList<int>{1, 2, 0};
    QTest::newRow("digits in a name are text") << QVariantList{"A 10", "A 9"} << QList<int>{0, 1};
}

void tst_CFastestLapSorter::sortsByTheKindOfTheValues()
{
    QFETCH(const QVariantList, values);
    QFETCH(const QList<int>, ascending);
    QStandardItemModel model;
    fill(model, values);
    CFastestLapSorter sorter;
    sorter.setSourceModel(&model);

    sorter.sort(0, Qt::AscendingOrder);
    QCOMPARE(order(sorter), ascending);

    sorter.sort(0, Qt::DescendingOrder);
    QList<int> descending = ascending;
    std::reverse(descending.begin(), descending.end());
    QCOMPARE(order(sorter), descending);

    sorter.sort(1, Qt::DescendingOrder);
    QCOMPARE(order(sorter).first(), values.size() - 1);
}

void tst_CFastestLapSorter::equalRowsKeepTheOrderOfTheSource()
{
    QStandardItemModel model;
    fill(model, {"b", "a", "B", "A", "b", "a"});
    CFastestLapSorter sorter;
    sorter.setSourceModel(&model);
    sorter.sort(0, Qt::AscendingOrder);
    QCOMPARE(order(sorter), (QList<int>{1, 3, 5, 0, 2, 4}));
    sorter.sort(0, Qt::DescendingOrder);
    QCOMPARE(order(sorter), (QList<int>{0, 2, 4, 1, 3, 5}));
}

void tst_CFastestLapSorter::anEmptyListIsSortedToo()
{
    CFastestLapSorter sorter;
    sorter.sort(0, Qt::AscendingOrder);
    QCOMPARE(sorter.rowCount(), 0);
    QStandardItemModel model;
    sorter.setSourceModel(&model);
    sorter.sort(0, Qt::AscendingOrder);
    QCOMPARE(sorter.rowCount(), 0);
    sorter.setSourceModel(nullptr);
    QCOMPARE(sorter.rowCount(), 0);
}

void tst_CFastestLapSorter::aResetOfTheSourceIsSortedAnew()
{
    QStringListModel model({"c", "b", "a"});
    CFastestLapSorter sorter;
    sorter.setSourceModel(&model);
    sorter.sort(0, Qt::AscendingOrder);
    QCOMPARE(sorter.index(0, 0).data().toString(), QString("a"));
    model.setStringList({"x", "z", "y"}); // as many as before
    QCOMPARE(sorter.index(0, 0).data().toString(), QString("x"));
    QCOMPARE(sorter.index(2, 0).data().toString(), QString("z"));
    model.setStringList({"m", "l"});
    QCOMPARE(sorter.index(0, 0).data().toString(), QString("l"));
}

void tst_CFastestLapSorter::anotherSourceIsSortedAnew()
{
    QStringListModel first({"a", "b", "c"});
    QStringListModel second({"z", "y", "x"});
    CFastestLapSorter sorter;
    sorter.setSourceModel(&first);
    sorter.sort(0, Qt::AscendingOrder);
    QCOMPARE(sorter.index(0, 0).data().toString(), QString("a"));
    sorter.setSourceModel(&second);
    QCOMPARE(sorter.index(0, 0).data().toString(), QString("x"));
    QCOMPARE(sorter.index(2, 0).data().toString(), QString("z"));
}

QTEST_GUILESS_MAIN(tst_CFastestLapSorter)
#include "tst_CFastestLapSorter.moc"
