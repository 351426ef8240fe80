#include "results/AnalyzerFixture.h"
#include "results/CLapTimeDelegate.h"
#include "shell/CQrReaderButton.h"
#include "shell/CTranslationCatalogue.h"
#include "support/FunctionReader.h"

#include <QGridLayout>
#include <QLabel>
#include <QTranslator>

namespace {

const QStringList TestbahnLaps{"Özil|LMP|2|00:08:100", "Anna|GT|1|00:08:531", "Ben|LMP|1|00:09:000",
                               "Anna|GT|2|01:15:400"};

QPair<int, int> cellOf(const QGridLayout* grid, QWidget* widget)
{
    int row = -1;
    int column = -1;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(widget), &row, &column, &rows, &columns);
    return {row, column};
}

} // namespace

class tst_CKelmoRaceAnalyzer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePartsStandInTheirPlaces();
    void theBoxesShowWhatThereIs();
    void theLapsOfTheActiveRacewayAreShownTheFastestFirst();
    void theListIsThereAgainAfterARaceHasAddedALap();

    void eachFilterTakesWhatFits_data();
    void eachFilterTakesWhatFits();
    void filtersAreUsedTogether();
    void aChangeOfRacewayResetsTheTrackAlone();
    void showingTheDialogTwiceRefillsAllBoxesAndForgetsTheFilters();
    void aNewActiveRacewayIsChosenAtTheNextShow();
    void namesThatWereDeletedAreEmptyInTheList();

    void aClickOnAColumnSortsByIt_data();
    void aClickOnAColumnSortsByIt();
    void theOrderOfTheUserStaysWithANewFilter();
    void theTimeColumnShowsTheDisplayFormatWhateverTheFilesHave_data();
    void theTimeColumnShowsTheDisplayFormatWhateverTheFilesHave();

    void anExportFollowsTheFilterInEachTimeFormat_data();
    void anExportFollowsTheFilterInEachTimeFormat();
    void anExportAsksForTheFile();
    void anExportIsSortedByTimeNotByTheColumnOfTheClick();
    void anExportWithNoMatchingRowsIsTheHeaderAlone();
    void anExportThatIsCancelledOrFailsWritesNothing();
    void anExportLeavesTheListAsItIs();
    void anExportBeforeTheFirstShowTakesTheFirstFormat();

    void withoutCodeHandlingTheButtonIsHiddenAndTheFiltersWorkByHand();
    void theCodeButtonHasTheColourOfTheText();
    void aCodeSetsItsFilter_data();
    void aCodeSetsItsFilter();
    void aCodeThatFitsNothingChangesNothing_data();
    void aCodeThatFitsNothingChangesNothing();
    void aCodeOfACarThatWasDeletedLeavesTheFilters();
    void withoutAReaderTheButtonDoesNothing();

    void theKeyOfTheMenuOpensIt();
    void everythingIsReadableInTheWindow_data();
    void everythingIsReadableInTheWindow();
};

void tst_CKelmoRaceAnalyzer::thePartsStandInTheirPlaces()
{
    AnalyzerFixture fixture;
    QCOMPARE(fixture.analyzer->windowTitle(), QString("Schnellsten Runden"));
    QCOMPARE(fixture.button("closeButton")->text(), QString("&Schliessen"));
    QCOMPARE(fixture.button("exportButton")->text(), QString("E&xportieren"));
    QCOMPARE(fixture.tree()->selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(fixture.tree()->indentation(), 0);
    QVERIFY(qobject_cast<CLapTimeDelegate*>(fixture.tree()->itemDelegateForColumn(3)));

    auto* layout = qobject_cast<QVBoxLayout*>(fixture.analyzer->layout());
    auto* grid = qobject_cast<QGridLayout*>(layout->itemAt(0)->layout());
    const QStringList captions{"<b>Filter: </b>", "<b>Rennstrecke&nbsp;</b>", "<b>Fahrspur&nbsp;</b>",
                               "<b>Fahrer&nbsp;</b>", "<b>Fahrzeug&nbsp;</b>"};
    for (int column = 0; column < captions.size(); ++column)
        QCOMPARE(qobject_cast<QLabel*>(grid->itemAtPosition(0, column)->widget())->text(),
                 captions.at(column));
    const char* const boxes[] = {"racewayFilter", "trackFilter", "driverFilter", "carFilter"};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(cellOf(grid, fixture.box(boxes[i])), qMakePair(1, i + 1));
    QCOMPARE(cellOf(grid, fixture.analyzer->findChild<CQrReaderButton*>("qrButton")), qMakePair(1, 5));
    for (const int column : {0, 5})
        QCOMPARE(grid->itemAtPosition(2, column)->widget(), fixture.tree());
    QCOMPARE(grid->columnCount(), 6);

    auto* row = qobject_cast<QHBoxLayout*>(layout->itemAt(1)->layout());
    QCOMPARE(row->itemAt(0)->widget(), fixture.button("exportButton"));
    QVERIFY(row->itemAt(1)->spacerItem());
    QCOMPARE(row->itemAt(2)->widget(), fixture.button("closeButton"));
}

void tst_CKelmoRaceAnalyzer::theBoxesShowWhatThereIs()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        QCOMPARE(fixture.entries("racewayFilter"), (QStringList{"Ausweichbahn", "Testbahn"}));
        QCOMPARE(fixture.box("racewayFilter")->currentText(), QString("Testbahn"));
        QCOMPARE(fixture.entries("trackFilter"), (QStringList{"<beliebig>", "Spur 1", "Spur 2"}));
        QCOMPARE(fixture.entries("driverFilter"), (QStringList{"<beliebig>", "Anna", "Ben", "Özil"}));
        QCOMPARE(fixture.entries("carFilter"), (QStringList{"<beliebig>", "GT", "LMP"}));
        for (const char* name : {"trackFilter", "driverFilter", "carFilter"}) {
            QCOMPARE(fixture.box(name)->currentIndex(), 0);
            QCOMPARE(fixture.box(name)->currentData().toInt(), -1);
        }
        const CRaceway raceway = CRacewayList().currentRaceway();
        QCOMPARE(fixture.box("trackFilter")->itemData(2).toInt(), raceway.tracks[1].id);
        QCOMPARE(fixture.box("driverFilter")->itemData(1).toInt(), 12);
        QCOMPARE(fixture.box("carFilter")->itemData(2).toInt(), 21);
    });
}

void tst_CKelmoRaceAnalyzer::theLapsOfTheActiveRacewayAreShownTheFastestFirst()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        QCOMPARE(fixture.rows(), TestbahnLaps);
        QCOMPARE(headersOf(fixture.tree()->model()), (QStringList{"Fahrer", "Fahrzeug", "Spur", "Zeit"}));
        QVERIFY(fixture.header()->isSortIndicatorShown());
        QCOMPARE(fixture.header()->sortIndicatorSection(), 3);
        QCOMPARE(fixture.header()->sortIndicatorOrder(), Qt::AscendingOrder);
    });
}

void tst_CKelmoRaceAnalyzer::theListIsThereAgainAfterARaceHasAddedALap()
{
    AnalyzerFixture fixture;
    fixture.show([&] { QCOMPARE(fixture.rows().size(), 4); });
    QVERIFY(DatabaseFile().exec("UPDATE fastestLapTimes SET time = 7000 WHERE time = 9000"));
    QStringList expected = TestbahnLaps;
    expected.removeAt(2);
    expected.prepend("Ben|LMP|1|00:07:000");
    fixture.show([&] { QCOMPARE(fixture.rows(), expected); });
}

void tst_CKelmoRaceAnalyzer::eachFilterTakesWhatFits_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("raceway") << "racewayFilter"
                             << "Ausweichbahn" << QStringList{"Ben|GT|3|00:06:000"};
    QTest::newRow("track") << "trackFilter"
                           << "Spur 2" << QStringList{"Özil|LMP|2|00:08:100", "Anna|GT|2|01:15:400"};
    QTest::newRow("driver") << "driverFilter"
                            << "Anna" << QStringList{"Anna|GT|1|00:08:531", "Anna|GT|2|01:15:400"};
    QTest::newRow("driver with an umlaut") << "driverFilter"
                                           << "Özil" << QStringList{"Özil|LMP|2|00:08:100"};
    QTest::newRow("car") << "carFilter"
                         << "LMP" << QStringList{"Özil|LMP|2|00:08:100", "Ben|LMP|1|00:09:000"};
}

void tst_CKelmoRaceAnalyzer::eachFilterTakesWhatFits()
{
    QFETCH(const QString, box);
    QFETCH(const QString, entry);
    QFETCH(const QStringList, rows);
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.choose(box.toLatin1(), entry);
        QCOMPARE(fixture.rows(), rows);
        fixture.box(box.toLatin1())->setCurrentIndex(box == "racewayFilter" ? 1 : 0);
        QCOMPARE(fixture.rows(), TestbahnLaps);
    });
}

void tst_CKelmoRaceAnalyzer::filtersAreUsedTogether()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.choose("trackFilter", "Spur 2");
        fixture.choose("driverFilter", "Anna");
        QCOMPARE(fixture.rows(), QStringList{"Anna|GT|2|01:15:400"});
        fixture.choose("carFilter", "LMP");
        QCOMPARE(fixture.rows(), QStringList());
        fixture.choose("driverFilter", "Özil");
        QCOMPARE(fixture.rows(), QStringList{"Özil|LMP|2|00:08:100"});
        fixture.choose("trackFilter", "<beliebig>");
        fixture.choose("driverFilter", "<beliebig>");
        QCOMPARE(fixture.rows(), (QStringList{"Özil|LMP|2|00:08:100", "Ben|LMP|1|00:09:000"}));
    });
}

void tst_CKelmoRaceAnalyzer::aChangeOfRacewayResetsTheTrackAlone()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.choose("trackFilter", "Spur 1");
        fixture.choose("driverFilter", "Ben");
        fixture.choose("racewayFilter", "Ausweichbahn");
        QCOMPARE(fixture.entries("trackFilter"), (QStringList{"<beliebig>", "Spur 1", "Spur 2", "Spur 3"}));
        QCOMPARE(fixture.box("trackFilter")->currentText(), QString("<beliebig>"));
        QCOMPARE(fixture.box("driverFilter")->currentText(), QString("Ben"));
        QCOMPARE(fixture.rows(), QStringList{"Ben|GT|3|00:06:000"});
        fixture.choose("trackFilter", "Spur 1");
        QCOMPARE(fixture.rows(), QStringList());
        fixture.choose("trackFilter", "Spur 3");
        QCOMPARE(fixture.rows(), QStringList{"Ben|GT|3|00:06:000"});
    });
}

void tst_CKelmoRaceAnalyzer::showingTheDialogTwiceRefillsAllBoxesAndForgetsTheFilters()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.choose("racewayFilter", "Ausweichbahn");
        fixture.choose("trackFilter", "Spur 3");
        fixture.choose("driverFilter", "Ben");
        fixture.choose("carFilter", "GT");
        fixture.clickHeader(0);
    });
    QVERIFY(DatabaseFile().exec("INSERT INTO driver(name) VALUES('Carla')"));
    QVERIFY(DatabaseFile().exec("UPDATE cars SET name = 'DTM' WHERE name = 'LMP'"));
    CRacewayList().removeRaceway(0);

    fixture.show([&] {
        QCOMPARE(fixture.entries("racewayFilter"), QStringList{"Testbahn"});
        QCOMPARE(fixture.entries("trackFilter"), (QStringList{"<beliebig>", "Spur 1", "Spur 2"}));
        QCOMPARE(fixture.entries("driverFilter"),
                 (QStringList{"<beliebig>", "Anna", "Ben", "Carla", "Özil"}));
        QCOMPARE(fixture.entries("carFilter"), (QStringList{"<beliebig>", "DTM", "GT"}));
        for (const char* name : {"racewayFilter", "trackFilter", "driverFilter", "carFilter"})
            QCOMPARE(fixture.box(name)->currentIndex(), 0);
        QStringList expected = TestbahnLaps;
        QCOMPARE(fixture.rows(), expected.replaceInStrings("LMP", "DTM"));
    });
}

void tst_CKelmoRaceAnalyzer::aNewActiveRacewayIsChosenAtTheNextShow()
{
    AnalyzerFixture fixture;
    fixture.show([&] { QCOMPARE(fixture.box("racewayFilter")->currentText(), QString("Testbahn")); });
    CRacewayList().setCurrentRow(0);
    fixture.show([&] {
        QCOMPARE(fixture.box("racewayFilter")->currentText(), QString("Ausweichbahn"));
        QCOMPARE(fixture.box("trackFilter")->count(), 4);
        QCOMPARE(fixture.rows(), QStringList{"Ben|GT|3|00:06:000"});
    });
}

void tst_CKelmoRaceAnalyzer::namesThatWereDeletedAreEmptyInTheList()
{
    AnalyzerFixture fixture;
    QVERIFY(DatabaseFile().exec("DELETE FROM driver WHERE name = 'Anna'"));
    QVERIFY(DatabaseFile().exec("DELETE FROM cars WHERE name = 'LMP'"));
    fixture.show([&] {
        QCOMPARE(fixture.rows(), (QStringList{"Özil||2|00:08:100", "|GT|1|00:08:531", "Ben||1|00:09:000",
                                              "|GT|2|01:15:400"}));
    });
}

void tst_CKelmoRaceAnalyzer::aClickOnAColumnSortsByIt_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QList<int>>("first");
    QTest::addColumn<QList<int>>("second");
    // Rows of TestbahnLaps. The first click sorts upwards, apart from the column that is sorted so already.
    QTest::newRow("driver") << 0 << QList<int>{1, 3, 2, 0} << QList<int>{0, 2, 1, 3};
    QTest::newRow("car") << 1 << QList<int>{1, 3, 0, 2} << QList<int>{0, 2, 1, 3};
    QTest::newRow("track") << 2 << QList<int>{1, 2, 0, 3} << QList<int>{0, 3, 1, 2};
    QTest::newRow("time") << 3 << QList<int>{3, 2, 1, 0} << QList<int>{0, 1, 2, 3};
}

void tst_CKelmoRaceAnalyzer::aClickOnAColumnSortsByIt()
{
    QFETCH(const int, column);
    QFETCH(const QList<int>, first);
    QFETCH(const QList<int>, second);
    AnalyzerFixture fixture;
    fixture.show([&] {
        for (const QList<int>& order : {first, second}) {
            fixture.clickHeader(column);
            QStringList expected;
            for (const int row : order)
                expected << TestbahnLaps.at(row);
            QCOMPARE(fixture.rows(), expected);
            QCOMPARE(fixture.header()->sortIndicatorSection(), column);
        }
    });
}

void tst_CKelmoRaceAnalyzer::theOrderOfTheUserStaysWithANewFilter()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.clickHeader(0);
        fixture.clickHeader(0);
        fixture.choose("trackFilter", "Spur 1");
        QCOMPARE(fixture.rows(), (QStringList{"Ben|LMP|1|00:09:000", "Anna|GT|1|00:08:531"}));
        QCOMPARE(fixture.header()->sortIndicatorSection(), 0);
        QCOMPARE(fixture.header()->sortIndicatorOrder(), Qt::DescendingOrder);
    });
}

void tst_CKelmoRaceAnalyzer::theTimeColumnShowsTheDisplayFormatWhateverTheFilesHave_data()
{
    QTest::addColumn<int>("format");
    for (int format = 0; format < 3; ++format)
        QTest::addRow("format %d", format) << format;
}

void tst_CKelmoRaceAnalyzer::theTimeColumnShowsTheDisplayFormatWhateverTheFilesHave()
{
    QFETCH(const int, format);
    AnalyzerFixture fixture;
    fixture.settings().setStorageCsvTimeFormat(format);
    fixture.show([&] { QCOMPARE(fixture.rows(), TestbahnLaps); });
}

void tst_CKelmoRaceAnalyzer::anExportFollowsTheFilterInEachTimeFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("quoted, with a tab") << 0 << "\"00:08:531\t\""
                                        << "\"01:15:400\t\"";
    QTest::newRow("seconds alone lose the minutes") << 1 << "8,531"
                                                    << "15,400";
    QTest::newRow("minutes") << 2 << "00:08,531"
                             << "01:15,400";
    QTest::newRow("any other") << 7 << "00:08,531"
                               << "01:15,400";
}

void tst_CKelmoRaceAnalyzer::anExportFollowsTheFilterInEachTimeFormat()
{
    QFETCH(const int, format);
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    AnalyzerFixture fixture;
    fixture.settings().setStorageCsvTimeFormat(format);
    fixture.show([&] {
        fixture.choose("driverFilter", "Anna");
        QCOMPARE(fixture.exported(), (QStringList{"Rennstrecke;Fahrer;Fahrzeug;Spur;Bestzeit; ",
                                                  "Testbahn;Anna;GT;1;" + first + "; ",
                                                  "Testbahn;Anna;GT;2;" + second + "; ", ""}));
    });
}

void tst_CKelmoRaceAnalyzer::anExportAsksForTheFile()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.exported("");
        QCOMPARE(fixture.user->questions,
                 (QList<QStringList>{{"Liste der schnellsten Runden exportieren nach ...",
                                      "fastestLapList.csv", "CSV-Datei (*.csv)"}}));
    });
}

void tst_CKelmoRaceAnalyzer::anExportIsSortedByTimeNotByTheColumnOfTheClick()
{
    AnalyzerFixture fixture;
    fixture.settings().setStorageCsvTimeFormat(CSettings::MinutesComma);
    fixture.show([&] {
        fixture.clickHeader(0);
        QCOMPARE(fixture.rows().first(), TestbahnLaps.at(1));
        QCOMPARE(fixture.exported().mid(1, 4),
                 (QStringList{"Testbahn;Özil;LMP;2;00:08,100; ", "Testbahn;Anna;GT;1;00:08,531; ",
                              "Testbahn;Ben;LMP;1;00:09,000; ", "Testbahn;Anna;GT;2;01:15,400; "}));
    });
}

void tst_CKelmoRaceAnalyzer::anExportWithNoMatchingRowsIsTheHeaderAlone()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.choose("driverFilter", "Özil");
        fixture.choose("carFilter", "GT");
        QCOMPARE(fixture.exported(), (QStringList{"Rennstrecke;Fahrer;Fahrzeug;Spur;Bestzeit; ", ""}));
    });
}

void tst_CKelmoRaceAnalyzer::anExportThatIsCancelledOrFailsWritesNothing()
{
    AnalyzerFixture fixture;
    const QStringList before = QDir().entryList();
    fixture.show([&] {
        fixture.exported("");
        fixture.exported("no/such/directory/list.csv");
        QCOMPARE(QDir().entryList(), before);
        QCOMPARE(fixture.rows(), TestbahnLaps);
    });
}

void tst_CKelmoRaceAnalyzer::anExportLeavesTheListAsItIs()
{
    AnalyzerFixture fixture;
    fixture.show([&] {
        fixture.clickHeader(1);
        const QStringList before = fixture.rows();
        fixture.tree()->setCurrentIndex(fixture.tree()->model()->index(2, 0));
        fixture.exported();
        QCOMPARE(fixture.rows(), before);
        QCOMPARE(fixture.tree()->currentIndex().row(), 2);
    });
}

void tst_CKelmoRaceAnalyzer::anExportBeforeTheFirstShowTakesTheFirstFormat()
{
    AnalyzerFixture fixture;
    fixture.settings().setStorageCsvTimeFormat(CSettings::SecondsComma);
    fixture.user->fileName = "list.csv";
    QVERIFY(QMetaObject::invokeMethod(fixture.analyzer, "vExportFastestLapList", Qt::DirectConnection));
    const QStringList lines = QString::fromUtf8(contentOf("list.csv")).split('\n');
    QCOMPARE(lines.at(1), QString(";Ben;GT;3;\"00:06:000\t\"; "));
}

void tst_CKelmoRaceAnalyzer::withoutCodeHandlingTheButtonIsHiddenAndTheFiltersWorkByHand()
{
    AnalyzerFixture fixture;
    const auto* qrButton = fixture.analyzer->findChild<CQrReaderButton*>("qrButton");
    fixture.settings().setQrCodeHandlingEnabled(false);
    fixture.show([&] {
        QVERIFY(!qrButton->isVisible());
        fixture.choose("carFilter", "LMP");
        fixture.choose("trackFilter", "Spur 1");
        QCOMPARE(fixture.rows(), QStringList{"Ben|LMP|1|00:09:000"});
    });
    fixture.settings().setQrCodeHandlingEnabled(true);
    fixture.show([&] { QVERIFY(qrButton->isVisible()); });
}

void tst_CKelmoRaceAnalyzer::theCodeButtonHasTheColourOfTheText()
{
    AnalyzerFixture fixture;
    fixture.settings().setQrCodeHandlingEnabled(true);
    fixture.show([&] {
        const auto* qrButton = fixture.analyzer->findChild<CQrReaderButton*>("qrButton");
        QCOMPARE(fixture.analyzer->palette().color(QPalette::WindowText).name(), QString("#646464"));
        QCOMPARE(qrButton->styleSheet(), QString("background-color: #646464; padding: 0px;"));
    });
}

void tst_CKelmoRaceAnalyzer::aCodeSetsItsFilter_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QString>("car");
    QTest::newRow("car") << "<car>LMP"
                         << "<beliebig>"
                         << "LMP";
    QTest::newRow("driver") << "<drv>Anna"
                            << "Anna"
                            << "<beliebig>";
    QTest::newRow("driver with an umlaut") << "<drv>Özil"
                                           << "Özil"
                                           << "<beliebig>";
}

void tst_CKelmoRaceAnalyzer::aCodeSetsItsFilter()
{
    QFETCH(const QString, code);
    QFETCH(const QString, driver);
    QFETCH(const QString, car);
    AnalyzerFixture fixture;
    fixture.settings().setQrCodeHandlingEnabled(true);
    fixture.window().setQrCodeReaderDialog(std::make_unique<FunctionReader>([&] { return code; }));
    fixture.show([&] {
        auto* qrButton = fixture.analyzer->findChild<CQrReaderButton*>("qrButton");
        QTest::mouseClick(qrButton, Qt::LeftButton);
        QCOMPARE(fixture.box("driverFilter")->currentText(), driver);
        QCOMPARE(fixture.box("carFilter")->currentText(), car);
        QStringList expected = TestbahnLaps;
        if (car != "<beliebig>")
            expected = expected.filter("|" + car + "|");
        if (driver != "<beliebig>")
            expected = expected.filter(driver + "|");
        QVERIFY(expected.size() < TestbahnLaps.size());
        QCOMPARE(fixture.rows(), expected);
    });
}

void tst_CKelmoRaceAnalyzer::aCodeThatFitsNothingChangesNothing_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("nothing read") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("no such car") << "<car>Anna";
    QTest::newRow("no such driver") << "<drv>GT";
    QTest::newRow("the tag alone") << "<car>";
    QTest::newRow("tag in capitals") << "<CAR>LMP";
    QTest::newRow("name in another case") << "<car>lmp";
    QTest::newRow("no tag") << "LMP";
    QTest::newRow("tag behind a blank") << " <car>LMP";
}

void tst_CKelmoRaceAnalyzer::aCodeThatFitsNothingChangesNothing()
{
    QFETCH(const QString, code);
    AnalyzerFixture fixture;
    fixture.settings().setQrCodeHandlingEnabled(true);
    int readings = 0;
    fixture.window().setQrCodeReaderDialog(std::make_unique<FunctionReader>([&] {
        ++readings;
        return code;
    }));
    fixture.show([&] {
        fixture.choose("driverFilter", "Anna");
        fixture.choose("carFilter", "GT");
        const QStringList before = fixture.rows();
        QTest::mouseClick(fixture.analyzer->findChild<CQrReaderButton*>("qrButton"), Qt::LeftButton);
        QCOMPARE(readings, 1);
        QCOMPARE(fixture.box("driverFilter")->currentText(), QString("Anna"));
        QCOMPARE(fixture.box("carFilter")->currentText(), QString("GT"));
        QCOMPARE(fixture.rows(), before);
    });
}

void tst_CKelmoRaceAnalyzer::aCodeOfACarThatWasDeletedLeavesTheFilters()
{
    AnalyzerFixture fixture;
    fixture.settings().setQrCodeHandlingEnabled(true);
    fixture.window().setQrCodeReaderDialog(
        std::make_unique<FunctionReader>([] { return QString("<car>LMP"); }));
    QVERIFY(DatabaseFile().exec("DELETE FROM cars WHERE name = 'LMP'"));
    fixture.show([&] {
        fixture.choose("carFilter", "GT");
        QTest::mouseClick(fixture.analyzer->findChild<CQrReaderButton*>("qrButton"), Qt::LeftButton);
        QCOMPARE(fixture.box("carFilter")->currentText(), QString("GT"));
        QCOMPARE(fixture.rows().size(), 2);
    });
}

void tst_CKelmoRaceAnalyzer::withoutAReaderTheButtonDoesNothing()
{
    AnalyzerFixture fixture;
    fixture.settings().setQrCodeHandlingEnabled(true);
    fixture.modal.expect([&](QDialog* dialog) {
        QTest::mouseClick(fixture.analyzer->findChild<CQrReaderButton*>("qrButton"), Qt::LeftButton);
        QCOMPARE(fixture.rows(), TestbahnLaps);
        dialog->close();
    });
    fixture.analyzer->showAnalyzer(&fixture.settings(), nullptr);
    QCOMPARE(fixture.modal.numberOfWindows(), 1);
}

void tst_CKelmoRaceAnalyzer::theKeyOfTheMenuOpensIt()
{
    AnalyzerFixture fixture;
    fixture.window().show();
    fixture.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.window()));
    bool opened = false;
    fixture.modal.expect([&](QDialog* dialog) {
        opened = dialog == fixture.analyzer;
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::keyClick(&fixture.window(), Qt::Key_A, Qt::ControlModifier);
    QVERIFY(opened);
    QVERIFY(!fixture.analyzer->isVisible());
    QVERIFY(fixture.window().isVisible());
}

void tst_CKelmoRaceAnalyzer::everythingIsReadableInTheWindow_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("german") << "de_DE";
    QTest::newRow("english") << "en_GB";
}

/** With TORNIK_PICTURES set, the picture is there for a person to look at. */
void tst_CKelmoRaceAnalyzer::everythingIsReadableInTheWindow()
{
    QFETCH(const QString, locale);
    QTranslator translator;
    CTranslationCatalogue::load(translator, QLocale(locale), {TORNIK_BIN_DIR "/languages"});
    QCoreApplication::installTranslator(&translator);
    AnalyzerFixture fixture;
    fixture.settings().setQrCodeHandlingEnabled(true);
    fixture.window().resize(1920, 1080);
    fixture.window().show();
    fixture.show([&] {
        QVERIFY(QTest::qWaitForWindowExposed(fixture.analyzer));
        fixture.tree()->setCurrentIndex(fixture.tree()->model()->index(1, 0));
        for (const QWidget* part : fixture.analyzer->findChildren<QWidget*>()) {
            if (part->parentWidget() != fixture.analyzer)
                continue;
            QVERIFY2(fixture.analyzer->rect().contains(part->geometry()), qPrintable(part->objectName()));
            QVERIFY2(part->width() >= part->minimumSizeHint().width(), qPrintable(part->objectName()));
        }
        for (int column = 0; column < 4; ++column)
            QVERIFY(fixture.header()->sectionSize(column) >= fixture.header()->sectionSizeHint(column));
        const QString directory = qEnvironmentVariable("TORNIK_PICTURES");
        if (!directory.isEmpty())
            QVERIFY(fixture.analyzer->grab().save(
                QDir(directory).filePath(QString("analyzer-%1.png").arg(QTest::currentDataTag()))));
    });
}

QTEST_MAIN(tst_CKelmoRaceAnalyzer)
#include "tst_CKelmoRaceAnalyzer.moc"
