#include "results/CTrackSummary.h"
#include "results/DrivenMember.h"
#include "support/ModelTexts.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTest>
#include <QTreeView>

namespace {

QString labelText(const CTrackSummary& summary, const char* name)
{
    return summary.findChild<QLabel*>(name)->text();
}

QTreeView* lapView(const CTrackSummary& summary)
{
    return summary.findChild<QTreeView*>("lapView");
}

QVariant cell(const CTrackSummary& summary, int row, int column, int role = Qt::DisplayRole)
{
    const QAbstractItemModel* model = lapView(summary)->model();
    return model->data(model->index(row, column), role);
}

QStringList column(const CTrackSummary& summary, int column)
{
    QStringList texts;
    for (int row = 0; row < lapView(summary)->model()->rowCount(); ++row)
        texts.append(cell(summary, row, column).toString());
    return texts;
}

QStringList headers(const CTrackSummary& summary)
{
    return headersOf(lapView(summary)->model());
}

/** The rows whose every cell is marked red and bold; a row marked only in part gives -1. */
QList<int> markedRows(const CTrackSummary& summary)
{
    QList<int> rows;
    const QAbstractItemModel* model = lapView(summary)->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        int marked = 0;
        for (int col = 0; col < model->columnCount(); ++col)
            marked += cell(summary, row, col, Qt::ForegroundRole).value<QBrush>().color() == Qt::red &&
                      cell(summary, row, col, Qt::FontRole).value<QFont>().weight() == 75;
        if (marked > 0)
            rows.append(marked == model->columnCount() ? row : -1);
    }
    return rows;
}

void clickHeader(const CTrackSummary& summary, int section)
{
    QHeaderView* header = lapView(summary)->header();
    const QPoint middle(header->sectionViewportPosition(section) + 5, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
}

} // namespace

class tst_CTrackSummary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsCaptions();
    void titleTellsTheTrack();
    void showsDriverCarAndAverageWithTheRequiredTags();
    void namesAreNoMarkup();
    void showsEveryLapWithItsNumberAndTime();
    void sectorsShowAsTheRacewayHasThem_data();
    void sectorsShowAsTheRacewayHasThem();
    void nothingCanBeEdited();
    void bestLapIsMarkedInAllItsCells();
    void firstLapIsMarkedAsBestWhileNoLaterLapIsFaster();
    void trackWithoutLapsShowsZeroAverageAndEmptyTable();
    void lapNumbersSortAsNumbers();
    void sortingByTimeSortsTheTexts();
    void startsSortedByLapNumberAgainAtEachShow();
    void showingAnotherMemberForgetsTheFirst();
};

void tst_CTrackSummary::startsWithItsCaptions()
{
    const CTrackSummary summary;
    const auto* box = summary.findChild<QGroupBox*>("box");
    QCOMPARE(box->title(), QString(" Spur "));
    QCOMPARE(box->minimumWidth(), 240);
    QVERIFY(box->alignment() & Qt::AlignHCenter);
    QCOMPARE(labelText(summary, "driverLabel"), QString("Fahrer: "));
    QCOMPARE(labelText(summary, "carLabel"), QString("Fahrzeug: "));
    QCOMPARE(labelText(summary, "averageLabel"), QString("Durchschnittszeit: "));
    QCOMPARE(summary.findChild<QLabel*>("carLabel")->margin(), 5);
}

void tst_CTrackSummary::titleTellsTheTrack()
{
    CTrackSummary summary;
    summary.setTrackNumber(7);
    QCOMPARE(summary.findChild<QGroupBox*>("box")->title(), QString("Spur 7"));
}

void tst_CTrackSummary::showsDriverCarAndAverageWithTheRequiredTags()
{
    CTrackSummary summary;
    summary.showMember(drivenMember({5000, 6001}, "Anna", "Porsche 917"));
    QCOMPARE(labelText(summary, "driverLabel"), QString("Fahrer: <b style=\"color: #FF9933\">Anna<b>"));
    QCOMPARE(labelText(summary, "carLabel"), QString("Fahrzeug: <b style=\"color: #FF9933\">Porsche 917<b>"));
    QCOMPARE(labelText(summary, "averageLabel"),
             QString("Durchschnittszeit: <b style=\"color: #FF9933\">00:05:500<b>"));
}

void tst_CTrackSummary::namesAreNoMarkup()
{
    CTrackSummary summary;
    summary.setDriver("<i>Max & Co");
    QCOMPARE(labelText(summary, "driverLabel"),
             QString("Fahrer: <b style=\"color: #FF9933\">&lt;i&gt;Max &amp; Co<b>"));
}

void tst_CTrackSummary::showsEveryLapWithItsNumberAndTime()
{
    CTrackSummary summary;
    summary.setNumberOfSectors(1);
    summary.showMember(drivenMember({8531, 62034, 5734}));
    QCOMPARE(headers(summary), QStringList({"Runde", "Zeit"}));
    QCOMPARE(column(summary, 0), QStringList({"1", "2", "3"}));
    QCOMPARE(column(summary, 1), QStringList({"00:08:531", "01:02:034", "00:05:734"}));
    QCOMPARE(cell(summary, 0, 0, Qt::EditRole).type(), QVariant::Int);
}

void tst_CTrackSummary::sectorsShowAsTheRacewayHasThem_data()
{
    QTest::addColumn<int>("sectors");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QStringList>("row");
    const QStringList titles{"Runde", "Zeit", "Zeit Sektor 1", "Zeit Sektor 2", "Zeit Sektor 3"};
    const QStringList row{"1", "00:10:000", "00:01:000", "00:02:000", "00:07:000"};
    QTest::newRow("none") << 0 << QStringList(titles.mid(0, 2)) << QStringList(row.mid(0, 2));
    QTest::newRow("one") << 1 << QStringList(titles.mid(0, 2)) << QStringList(row.mid(0, 2));
    QTest::newRow("two") << 2 << QStringList(titles.mid(0, 4)) << QStringList(row.mid(0, 4));
    QTest::newRow("three") << 3 << titles << row;
}

void tst_CTrackSummary::sectorsShowAsTheRacewayHasThem()
{
    QFETCH(int, sectors);
    QFETCH(QStringList, titles);
    QFETCH(QStringList, row);
    CTrackSummary summary;
    summary.setNumberOfSectors(sectors);
    summary.showMember(drivenMember({10000}));
    QCOMPARE(headers(summary), titles);
    QStringList shown;
    for (int col = 0; col < titles.size(); ++col)
        shown.append(cell(summary, 0, col).toString());
    QCOMPARE(shown, row);
}

void tst_CTrackSummary::nothingCanBeEdited()
{
    CTrackSummary summary;
    summary.setNumberOfSectors(3);
    summary.showMember(drivenMember({10000, 9000}));
    const QAbstractItemModel* model = lapView(summary)->model();
    for (int row = 0; row < 2; ++row)
        for (int col = 0; col < 5; ++col)
            QVERIFY(!(model->flags(model->index(row, col)) & Qt::ItemIsEditable));
}

void tst_CTrackSummary::bestLapIsMarkedInAllItsCells()
{
    CTrackSummary summary;
    summary.setNumberOfSectors(3);
    summary.showMember(drivenMember({10000, 9000, 9500}));
    QCOMPARE(markedRows(summary), QList<int>{1});
}

void tst_CTrackSummary::firstLapIsMarkedAsBestWhileNoLaterLapIsFaster()
{
    CTrackSummary summary;
    summary.showMember(drivenMember({9000, 9000, 9500}));
    QCOMPARE(markedRows(summary), QList<int>{0});
}

void tst_CTrackSummary::trackWithoutLapsShowsZeroAverageAndEmptyTable()
{
    CTrackSummary summary;
    summary.setNumberOfSectors(2);
    summary.showMember(drivenMember({}));
    QVERIFY(labelText(summary, "averageLabel").contains("00:00:000"));
    QCOMPARE(lapView(summary)->model()->rowCount(), 0);
    QCOMPARE(headers(summary).size(), 4);
}

void tst_CTrackSummary::lapNumbersSortAsNumbers()
{
    CTrackSummary summary;
    summary.showMember(drivenMember(QVector<int>(12, 5000)));
    summary.show();
    QVERIFY(QTest::qWaitForWindowExposed(&summary));
    QVERIFY(lapView(summary)->header()->isSortIndicatorShown());
    clickHeader(summary, 0);
    QCOMPARE(column(summary, 0).mid(0, 4), QStringList({"12", "11", "10", "9"}));
}

void tst_CTrackSummary::sortingByTimeSortsTheTexts()
{
    CTrackSummary summary;
    summary.showMember(drivenMember({62034, 5734, 10000, 9999}));
    summary.show();
    QVERIFY(QTest::qWaitForWindowExposed(&summary));
    const QStringList ascending{"00:05:734", "00:09:999", "00:10:000", "01:02:034"};
    const QStringList descending{"01:02:034", "00:10:000", "00:09:999", "00:05:734"};
    const QHeaderView* header = lapView(summary)->header();
    for (int click = 0; click < 2; ++click) {
        clickHeader(summary, 1);
        QCOMPARE(header->sortIndicatorSection(), 1);
        QCOMPARE(column(summary, 1),
                 header->sortIndicatorOrder() == Qt::AscendingOrder ? ascending : descending);
    }
    lapView(summary)->sortByColumn(1, Qt::AscendingOrder);
    QCOMPARE(column(summary, 1), ascending);
    QCOMPARE(column(summary, 0), QStringList({"2", "4", "3", "1"}));
    QCOMPARE(markedRows(summary), QList<int>{0});
}

void tst_CTrackSummary::startsSortedByLapNumberAgainAtEachShow()
{
    CTrackSummary summary;
    summary.showMember(drivenMember({9000, 8000}));
    lapView(summary)->sortByColumn(1, Qt::AscendingOrder);
    QCOMPARE(column(summary, 0), QStringList({"2", "1"}));
    summary.showMember(drivenMember({9000, 8000, 7000}));
    QCOMPARE(column(summary, 0), QStringList({"1", "2", "3"}));
    QCOMPARE(lapView(summary)->header()->sortIndicatorSection(), 0);
    QCOMPARE(lapView(summary)->header()->sortIndicatorOrder(), Qt::AscendingOrder);
}

void tst_CTrackSummary::showingAnotherMemberForgetsTheFirst()
{
    CTrackSummary summary;
    summary.setNumberOfSectors(3);
    summary.showMember(drivenMember({9000, 8000}));
    summary.setNumberOfSectors(1);
    summary.showMember(drivenMember({7000}, "Ben", "Pfeil"));
    QCOMPARE(headers(summary), QStringList({"Runde", "Zeit"}));
    QCOMPARE(column(summary, 1), QStringList{"00:07:000"});
    QVERIFY(labelText(summary, "driverLabel").contains("Ben"));
}

QTEST_MAIN(tst_CTrackSummary)
#include "tst_CTrackSummary.moc"
