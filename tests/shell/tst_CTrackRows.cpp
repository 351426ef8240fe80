#include "shell/CTrackRows.h"

#include <QTest>

class tst_CTrackRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void panelsAndRowsOfARaceway_data()
    {
        QTest::addColumn<int>("tracks");
        QTest::addColumn<int>("panels");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("hidden");
        QTest::addColumn<QVector<int>>("first");
        QTest::addColumn<QVector<int>>("second");
        using Panels = QVector<int>;
        QTest::newRow("a negative number is one track") << -1 << 2 << 1 << -1 << Panels{0, 1} << Panels{};
        QTest::newRow("no track is one track") << 0 << 2 << 1 << -1 << Panels{0, 1} << Panels{};
        QTest::newRow("1 track gives one track panel and one legend")
            << 1 << 2 << 1 << -1 << Panels{0, 1} << Panels{};
        QTest::newRow("2 tracks") << 2 << 3 << 1 << -1 << Panels{0, 1, 2} << Panels{};
        QTest::newRow("3 tracks stand in one row") << 3 << 5 << 1 << -1 << Panels{0, 1, 2, 3, 4} << Panels{};
        QTest::newRow("4 tracks: three and one") << 4 << 7 << 1 << 5 << Panels{0, 1, 2, 3, 4} << Panels{6};
        QTest::newRow("5 tracks: three and two")
            << 5 << 9 << 1 << 5 << Panels{0, 1, 2, 3, 4} << Panels{6, 7, 8};
        QTest::newRow("6 tracks: three and three")
            << 6 << 11 << 1 << 5 << Panels{0, 1, 2, 3, 4} << Panels{6, 7, 8, 9, 10};
        QTest::newRow("7 tracks: the legend at 7 is hidden, four and three")
            << 7 << 13 << 2 << 7 << Panels{0, 1, 2, 3, 4, 5, 6} << Panels{8, 9, 10, 11, 12};
        QTest::newRow("8 tracks: four and four")
            << 8 << 15 << 2 << 7 << Panels{0, 1, 2, 3, 4, 5, 6} << Panels{8, 9, 10, 11, 12, 13, 14};
    }

    void panelsAndRowsOfARaceway()
    {
        QFETCH(int, tracks);
        const CTrackRows rows(tracks);
        QTEST(rows.panelCount(), "panels");
        QTEST(rows.rows(), "rows");
        QTEST(rows.hiddenPanel(), "hidden");
        QTEST(rows.firstRow(), "first");
        QTEST(rows.secondRow(), "second");
    }

    void everyPanelIsShownOnceOrHiddenAndOnlyALegendIsHidden()
    {
        for (int tracks = 1; tracks <= 8; ++tracks) {
            const CTrackRows rows(tracks);
            QVector<int> panels = rows.firstRow() + rows.secondRow();
            if (rows.hiddenPanel() >= 0)
                panels.insert(rows.firstRow().size(), rows.hiddenPanel());
            QCOMPARE(panels.size(), rows.panelCount());
            int trackPanels = 0;
            for (int i = 0; i < panels.size(); ++i) {
                QCOMPARE(panels.at(i), i);
                trackPanels += CTrackRows::isTrackPanel(i) ? 1 : 0;
            }
            QCOMPARE(trackPanels, tracks);
            QVERIFY(rows.hiddenPanel() < 0 || !CTrackRows::isTrackPanel(rows.hiddenPanel()));
        }
    }
};

QTEST_MAIN(tst_CTrackRows)
#include "tst_CTrackRows.moc"
