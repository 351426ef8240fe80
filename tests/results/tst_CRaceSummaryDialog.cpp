#include "race/RaceFixture.h"
#include "results/CRaceSummaryDialog.h"
#include "results/CTrackSummary.h"
#include "support/ModalAnswers.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeView>

namespace {

/** Titles of the visible summaries, row by row. */
QList<QStringList> visibleRows(const QDialog* dialog)
{
    QList<QStringList> rows{{}, {}};
    const auto* grid = dialog->findChild<QGridLayout*>();
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 4; ++column) {
            const QWidget* summary = grid->itemAtPosition(row, column)->widget();
            if (summary->isVisible())
                rows[row].append(summary->findChild<QGroupBox*>("box")->title());
        }
    }
    return rows;
}

const QAbstractItemModel* lapsOf(const QDialog* dialog, int track)
{
    return dialog->findChild<CTrackSummary*>(QStringLiteral("summary%1").arg(track))
        ->findChild<QTreeView*>("lapView")
        ->model();
}

} // namespace

class tst_CRaceSummaryDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsItsNameAndItsButtons();
    void withoutARaceNothingIsShown();
    void withoutMembersItReturnsZeroAtOnce();
    void summariesFillTheFirstRowFirst_data();
    void summariesFillTheFirstRowFirst();
    void showsTheLapsDrivenSoFar();
    void showsTheLapsAsTheyAreAtEachOpening();
    void sectorsComeFromTheRaceway();
    void shownLapsDoNotChangeWithTheRace();
    void csvButtonAsksToStoreAndLeavesTheDialogOpen();
    void closeButtonEndsTheDialog();
    void fiveHundredLapsOnEightTracksAreAllShown();
};

void tst_CRaceSummaryDialog::tellsItsNameAndItsButtons()
{
    const CRaceSummaryDialog dialog;
    QCOMPARE(dialog.windowTitle(), QString("Ergebnisübersicht"));
    QCOMPARE(dialog.findChild<QPushButton*>("closeButton")->text(), QString("&Schliessen"));
    QCOMPARE(dialog.findChild<QPushButton*>("csvButton")->text(), QString("Als &CSV-Datei speichern"));
    QCOMPARE(dialog.findChildren<CTrackSummary*>().size(), 8);
}

void tst_CRaceSummaryDialog::withoutARaceNothingIsShown()
{
    const ModalAnswers answers;
    CRaceSummaryDialog dialog;
    QVERIFY(!dialog.hasRaceData());
    QCOMPARE(dialog.updateAndShow(), 0);
    QCOMPARE(answers.numberOfWindows(), 0);
}

void tst_CRaceSummaryDialog::withoutMembersItReturnsZeroAtOnce()
{
    const ModalAnswers answers;
    RaceFixture fixture(0);
    CRaceSummaryDialog dialog;
    dialog.setRace(&fixture.make());
    QVERIFY(!dialog.hasRaceData());
    QCOMPARE(dialog.updateAndShow(), 0);
    QCOMPARE(answers.numberOfWindows(), 0);
}

void tst_CRaceSummaryDialog::summariesFillTheFirstRowFirst_data()
{
    QTest::addColumn<int>("tracks");
    QTest::addColumn<QStringList>("firstRow");
    QTest::addColumn<QStringList>("secondRow");
    QTest::newRow("one track") << 1 << QStringList{"Spur 1"} << QStringList();
    QTest::newRow("three tracks leave the second row empty")
        << 3 << QStringList{"Spur 1", "Spur 2", "Spur 3"} << QStringList();
    QTest::newRow("five tracks put one into the second row")
        << 5 << QStringList{"Spur 1", "Spur 2", "Spur 3", "Spur 4"} << QStringList{"Spur 5"};
    QTest::newRow("eight tracks") << 8 << QStringList{"Spur 1", "Spur 2", "Spur 3", "Spur 4"}
                                  << QStringList{"Spur 5", "Spur 6", "Spur 7", "Spur 8"};
}

void tst_CRaceSummaryDialog::summariesFillTheFirstRowFirst()
{
    QFETCH(int, tracks);
    QFETCH(QStringList, firstRow);
    QFETCH(QStringList, secondRow);
    RaceFixture fixture(tracks);
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.make());
    ModalAnswers answers;
    answers.expect([&](QDialog* dialog) {
        QCOMPARE(visibleRows(dialog), QList<QStringList>({firstRow, secondRow}));
        dialog->reject();
    });
    summary.updateAndShow();
    QCOMPARE(answers.numberOfWindows(), 1);
}

void tst_CRaceSummaryDialog::showsTheLapsDrivenSoFar()
{
    RaceFixture fixture(2);
    fixture.start();
    fixture.drive(1, {5000, 4500});
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.race());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QCOMPARE(lapsOf(dialog, 1)->rowCount(), 0);
        QCOMPARE(lapsOf(dialog, 2)->rowCount(), 2);
        QCOMPARE(lapsOf(dialog, 2)->index(1, 1).data().toString(), QString("00:04:500"));
        const auto* track = dialog->findChild<CTrackSummary*>("summary2");
        QVERIFY(track->findChild<QLabel*>("driverLabel")->text().contains("Driver 2"));
        QVERIFY(track->findChild<QLabel*>("averageLabel")->text().contains("00:04:750"));
        dialog->accept();
    });
    QCOMPARE(summary.updateAndShow(), int(QDialog::Accepted));
}

void tst_CRaceSummaryDialog::showsTheLapsAsTheyAreAtEachOpening()
{
    RaceFixture fixture(3);
    fixture.start();
    fixture.drive(0, {5000});
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.race());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QCOMPARE(lapsOf(dialog, 1)->rowCount(), 1);
        dialog->reject();
    });
    summary.updateAndShow();

    fixture.changeRaceway([](CRaceway& raceway) { raceway.tracks.removeLast(); });
    fixture.race().vStop();
    fixture.race().vStartQuickRace();
    fixture.drive(0, {5000, 5000, 5000});
    answers.expect([](QDialog* dialog) {
        QCOMPARE(lapsOf(dialog, 1)->rowCount(), 3);
        QCOMPARE(visibleRows(dialog)[0], QStringList({"Spur 1", "Spur 2"}));
        dialog->reject();
    });
    summary.updateAndShow();
    QCOMPARE(answers.numberOfWindows(), 2);
}

void tst_CRaceSummaryDialog::sectorsComeFromTheRaceway()
{
    RaceFixture fixture(1);
    fixture.changeRaceway([](CRaceway& raceway) { raceway.numberOfSectors = 3; });
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.make());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        QCOMPARE(lapsOf(dialog, 1)->columnCount(), 5);
        dialog->reject();
    });
    summary.updateAndShow();
}

void tst_CRaceSummaryDialog::shownLapsDoNotChangeWithTheRace()
{
    RaceFixture fixture(1);
    fixture.start();
    fixture.drive(0, {5000});
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.race());
    ModalAnswers answers;
    answers.expect([&fixture](QDialog* dialog) {
        fixture.sensorsAt(12000, {PortId::lapSensor(0)});
        QCOMPARE(fixture.laps(0), 2);
        QCOMPARE(lapsOf(dialog, 1)->rowCount(), 1);
        dialog->reject();
    });
    summary.updateAndShow();
}

void tst_CRaceSummaryDialog::csvButtonAsksToStoreAndLeavesTheDialogOpen()
{
    RaceFixture fixture(1);
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.make());
    const QSignalSpy stored(&summary, &CRaceSummaryDialog::storeToCSVTriggered);
    ModalAnswers answers;
    answers.expect([&stored](QDialog* dialog) {
        dialog->findChild<QPushButton*>("csvButton")->click();
        QCOMPARE(stored.count(), 1);
        QVERIFY(dialog->isVisible());
        dialog->reject();
    });
    summary.updateAndShow();
}

void tst_CRaceSummaryDialog::closeButtonEndsTheDialog()
{
    RaceFixture fixture(1);
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.make());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) { dialog->findChild<QPushButton*>("closeButton")->click(); });
    QCOMPARE(summary.updateAndShow(), int(QDialog::Rejected));
    QVERIFY(!summary.isVisible());
}

void tst_CRaceSummaryDialog::fiveHundredLapsOnEightTracksAreAllShown()
{
    RaceFixture fixture(8);
    fixture.changeRaceway([](CRaceway& raceway) { raceway.numberOfSectors = 3; });
    fixture.start();
    for (int track = 0; track < 8; ++track)
        fixture.drive(track, std::vector<int>(500, 5000 + track));
    CRaceSummaryDialog summary;
    summary.setRace(&fixture.race());
    ModalAnswers answers;
    answers.expect([](QDialog* dialog) {
        for (int track = 1; track <= 8; ++track)
            QCOMPARE(lapsOf(dialog, track)->rowCount(), 500);
        dialog->reject();
    });
    summary.updateAndShow();
}

QTEST_MAIN(tst_CRaceSummaryDialog)
#include "tst_CRaceSummaryDialog.moc"
