#include "race/CRaceSettings.h"
#include "shell/CClickableLabel.h"
#include "shell/CInfoFrame.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QSignalSpy>
#include <QTest>

class tst_CInfoFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frameHasItsTitleAndAGridWithoutSpacing()
    {
        const CInfoFrame frame;
        const auto* box = frame.findChild<QGroupBox*>();
        QVERIFY(box);
        QCOMPARE(box->title(), QStringLiteral(" Renninformationen "));
        QCOMPARE(box->alignment() & int(Qt::AlignHorizontal_Mask), int(Qt::AlignHCenter));
        QCOMPARE(box->minimumWidth(), 300);
        QCOMPARE(box->layout()->contentsMargins(), QMargins(5, 5, 5, 5));
        QCOMPARE(box->layout()->spacing(), 0);
    }

    void captionsStandInOrderAndBold()
    {
        const CInfoFrame frame;
        const QStringList captions{
            "Rennstrecke: ", "Startbedingung: ", "Endebedingung: ", "Siegbedingung: ", "Renndauer: ", ""};
        for (int row = 0; row < captions.size(); ++row) {
            const QLabel* label = cell(frame, row, 0);
            QVERIFY(label);
            QCOMPARE(label->text(), captions.at(row));
            QCOMPARE(label->font().weight(), 75);
            QVERIFY(cell(frame, row, 1));
        }
    }

    void additionalRowIsRedWrappedAndHighEnough()
    {
        const CInfoFrame frame;
        const QLabel* value = cell(frame, 5, 1);
        QVERIFY(qobject_cast<const CClickableLabel*>(value));
        QCOMPARE(value->styleSheet(), QStringLiteral("QLabel {color: red}"));
        QCOMPARE(cell(frame, 5, 0)->styleSheet(), QStringLiteral("QLabel {color: red}"));
        QVERIFY(value->wordWrap());
        QCOMPARE(value->minimumHeight(), 27);
    }

    void nameAndTimeStandInTheirRows()
    {
        CInfoFrame frame;
        frame.setRacewayName(QStringLiteral("Nordschleife"));
        frame.setRaceTime(QStringLiteral("00:12:34"));
        QCOMPARE(cell(frame, 0, 1)->text(), QStringLiteral("Nordschleife"));
        QCOMPARE(cell(frame, 4, 1)->text(), QStringLiteral("00:12:34"));
    }

    void startConditionInWords_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QTime>("delay");
        QTest::addColumn<QString>("expected");
        QTest::newRow("flying") << 0 << QTime(0, 0, 5) << "fliegender Start";
        QTest::newRow("timed") << 1 << QTime(0, 1, 5) << "Start in 01:05 Minuten";
        QTest::newRow("hours don't show") << 1 << QTime(2, 0, 30) << "Start in 00:30 Minuten";
        QTest::newRow("unknown") << 2 << QTime(0, 0, 5) << "Unbekannt";
        QTest::newRow("negative") << -1 << QTime(0, 0, 5) << "Unbekannt";
    }

    void startConditionInWords()
    {
        QFETCH(int, type);
        QFETCH(QTime, delay);
        CRaceSettings settings;
        settings.setStartType(type);
        settings.setStartDelay(delay);
        CInfoFrame frame;
        frame.setRaceSettings(&settings);
        QTEST(cell(frame, 1, 1)->text(), "expected");
    }

    void endConditionInWords_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("laps");
        QTest::addColumn<QString>("expected");
        QTest::newRow("none") << 0 << 17 << "keine Endebedingung";
        QTest::newRow("time") << 1 << 17 << "Zeitlimit 01:02:03";
        QTest::newRow("laps") << 2 << 17 << "Ende nach 17 Runden";
        QTest::newRow("one lap") << 2 << 1 << "Ende nach 1 Runden";
        QTest::newRow("no lap") << 2 << 0 << "Ende nach 0 Runden";
        QTest::newRow("a damaged number of laps") << 2 << -1 << "Ende nach -1 Runden";
        QTest::newRow("thousands have no separator") << 2 << 1000 << "Ende nach 1000 Runden";
        QTest::newRow("unknown") << 3 << 17 << "Unbekannt";
    }

    void endConditionInWords()
    {
        QFETCH(int, type);
        QFETCH(int, laps);
        CRaceSettings settings;
        settings.setEndType(type);
        settings.setEndTime(QTime(1, 2, 3));
        settings.setNumberOfLaps(laps);
        CInfoFrame frame;
        frame.setRaceSettings(&settings);
        QTEST(cell(frame, 2, 1)->text(), "expected");
    }

    void winningConditionInWords_data()
    {
        QTest::addColumn<int>("condition");
        QTest::addColumn<QString>("expected");
        QTest::newRow("0") << 0 << "die meisten Runden";
        QTest::newRow("1") << 1 << "die meisten Runden";
        QTest::newRow("2") << 2 << "die schnellste Runde";
        QTest::newRow("3") << 3 << "die beste Durchschnittszeit";
        QTest::newRow("4") << 4 << "die Zielzeit möglichst genau erreicht";
        QTest::newRow("5") << 5 << "die Durchschnittszeit möglichst nahe an Zielzeit";
        QTest::newRow("6") << 6 << "die konsistentesten Rundenzeiten";
        QTest::newRow("7") << 7 << "Unbekannt";
        QTest::newRow("-1") << -1 << "Unbekannt";
    }

    void winningConditionInWords()
    {
        QFETCH(int, condition);
        CRaceSettings settings;
        settings.setWinningCondition(condition);
        CInfoFrame frame;
        frame.setRaceSettings(&settings);
        QTEST(cell(frame, 3, 1)->text(), "expected");
    }

    void emptyTextAfterAMessageClearsTheRedRow()
    {
        CInfoFrame frame;
        frame.setAdditionalInfo(QStringLiteral("Fahrer Anna hat gewonnen"));
        QCOMPARE(cell(frame, 5, 1)->text(), QStringLiteral("Fahrer Anna hat gewonnen"));
        QVERIFY(!cell(frame, 5, 0)->isHidden());
        frame.setAdditionalInfo(QString());
        QCOMPARE(cell(frame, 5, 1)->text(), QString());
        QVERIFY(cell(frame, 5, 0)->isHidden());
        frame.setAdditionalInfo(QStringLiteral("noch eine"));
        QVERIFY(!cell(frame, 5, 0)->isHidden());
    }

    void namesAndMessagesAreNoMarkup()
    {
        const QString name = QStringLiteral("<b></b><i></i>");
        CInfoFrame frame;
        frame.setRacewayName(name);
        frame.setRaceTime(name);
        frame.setAdditionalInfo(name);
        for (const int row : {0, 4, 5}) {
            const QLabel* value = cell(frame, row, 1);
            QVERIFY(value->sizeHint().width() >= value->fontMetrics().horizontalAdvance(name) / 2);
        }
    }

    void messageLeavesTheBoxAsLargeAsItIs()
    {
        CInfoFrame frame;
        const QSize without = frame.sizeHint();
        frame.setAdditionalInfo(QStringLiteral("Rennen wurde beendet"));
        QCOMPARE(frame.sizeHint(), without);
        frame.setAdditionalInfo(
            QStringLiteral("Fahrer 1 hat mit einer max. Abweichung von 00:00:443 gewonnen. Die schnellste "
                           "Rundenzeit war 00:08:088, die langsamste 00:08:531."));
        QCOMPARE(frame.sizeHint(), without);
    }

    void longWordOfAMessageIsShownWhole()
    {
        CInfoFrame frame;
        const QString word(100, QLatin1Char('W'));
        frame.setAdditionalInfo(word);
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        const QLabel* label = cell(frame, 5, 1);
        QTRY_VERIFY(label->width() >= label->fontMetrics().horizontalAdvance(word));
        frame.setAdditionalInfo(QStringLiteral("Rennen beendet"));
        QVERIFY(frame.minimumSizeHint().width() < label->fontMetrics().horizontalAdvance(word));
    }

    void clickOnTheRedRowTellsIt()
    {
        CInfoFrame frame;
        frame.setAdditionalInfo(QStringLiteral("Rennen beendet"));
        QSignalSpy clicked(&frame, &CInfoFrame::infoClicked);
        frame.show();
        QTest::mouseClick(const_cast<QLabel*>(cell(frame, 5, 1)), Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QTest::mouseClick(const_cast<QLabel*>(cell(frame, 4, 1)), Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
    }

private:
    static const QLabel* cell(const CInfoFrame& frame, int row, int column)
    {
        auto* grid = frame.findChild<QGridLayout*>();
        QLayoutItem* item = grid ? grid->itemAtPosition(row, column) : nullptr;
        return item ? qobject_cast<QLabel*>(item->widget()) : nullptr;
    }
};

QTEST_MAIN(tst_CInfoFrame)
#include "tst_CInfoFrame.moc"
