#include "data/CRacewayList.h"
#include "dialogs/SettingsFixture.h"
#include "wizard/WizardDriver.h"

#include <QLabel>
#include <QSignalSpy>

namespace {

const char Tree[] = "racewayTree";

/** Lets the next wizard set up a raceway with everything as proposed. */
void expectWizard(SettingsFixture& fixture, const QString& name, int tracks)
{
    WizardDriver::expect(*fixture.answers, [name, tracks](WizardDriver& wizard) {
        wizard.describe(name, tracks);
        wizard.goToTheEnd();
        wizard.finish();
    });
}

void addRaceway(const QString& name, int tracks)
{
    CRaceway raceway(tracks);
    raceway.name = name;
    CRacewayList().addRaceway(raceway);
}

/** @return the number of panels for tracks. */
int panels(const SettingsFixture& fixture)
{
    int number = 0;
    while (fixture.main.track(number + 1))
        ++number;
    return number;
}

} // namespace

/** The raceways in the settings, opened from the menu of the main dialog. */
class tst_CKelmoSettingsRaceways : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tabHasItsTexts();
    void listShowsTheRacewaysByName();
    void newRacewayIsThereAtOnceAndStaysWhereTheSettingsAreCancelled();
    void cancelledWizardAddsNothing();
    void editedRacewayTakesItsRow();
    void editedRacewayStaysSelectedUnderItsNewName();
    void cancelledEditingChangesNothing();
    void doubleClickEdits();
    void deletingAsks_data();
    void deletingAsks();
    void deletingTheLastRacewayLeavesTheDefault();
    void deletingTheCurrentRacewayRacesOnTheFirst();
    void usedRacewayIsOnTheDashboardAtOnce();
    void nothingHappensWithoutASelectedRow();
    void nameOfMarkupIsShownAsItIs();
};

void tst_CKelmoSettingsRaceways::init()
{
    SettingsFixture::startAnew();
}

void tst_CKelmoSettingsRaceways::tabHasItsTexts()
{
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        const auto* tabs = user.control<QTabWidget>("tabs");
        QCOMPARE(tabs->tabText(0), QString("Rennstrecken"));
        QStringList labels;
        for (const auto* label : tabs->widget(0)->findChildren<QLabel*>())
            labels.append(label->text());
        QCOMPARE(labels, QStringList({"Vorhandene Strecken:",
                                      "Die aktuell ausgewählte Strecke ist mit \"x\" markiert."}));
        QStringList buttons;
        for (const auto* button : tabs->widget(0)->findChildren<QPushButton*>())
            buttons.append(button->text());
        QCOMPARE(buttons, QStringList({"&Neu", "&Bearbeiten", "&Löschen", "Ben&utzen"}));
    });
}

void tst_CKelmoSettingsRaceways::listShowsTheRacewaysByName()
{
    addRaceway("Zandvoort", 4);
    addRaceway("Aachen", 2);
    SettingsFixture fixture;
    fixture.open([](const DialogUser& user) {
        QCOMPARE(user.rows(Tree), QStringList({"|Aachen|2", "x|Default|2", "|Zandvoort|4"}));
        const auto* model = user.control<QTreeView>(Tree)->model();
        QStringList headers;
        for (int column = 0; column < model->columnCount(); ++column)
            headers.append(model->headerData(column, Qt::Horizontal).toString());
        QCOMPARE(headers, QStringList({"Aktiv", "Name", "Slots"}));
        QCOMPARE(user.selectedRow(Tree), -1);
    });
}

void tst_CKelmoSettingsRaceways::newRacewayIsThereAtOnceAndStaysWhereTheSettingsAreCancelled()
{
    SettingsFixture fixture;
    QSignalSpy raceTrackChanged(fixture.dialog(), &CKelmoSettings::raceTrackChanged);
    fixture.openAndCancel([&fixture](const DialogUser& user) {
        expectWizard(fixture, "Keller", 3);
        user.press("newRaceway");
        QCOMPARE(user.rows(Tree), QStringList({"x|Default|2", "|Keller|3"}));
        QCOMPARE(user.selectedRow(Tree), 1);
        QCOMPARE(DatabaseFile().value("SELECT name FROM raceways ORDER BY id DESC"), QString("Keller"));
    });
    QCOMPARE(raceTrackChanged.size(), 0);
    fixture.open([](const DialogUser& user) { QCOMPARE(user.rows(Tree).size(), 2); });
    QCOMPARE(DatabaseFile().rows("SELECT noOfTrack FROM tracks WHERE racewayId = 2").size(), 3);
}

void tst_CKelmoSettingsRaceways::cancelledWizardAddsNothing()
{
    SettingsFixture fixture;
    fixture.open([&fixture](const DialogUser& user) {
        WizardDriver::expect(*fixture.answers, [](WizardDriver& wizard) {
            wizard.describe("Keller", 3);
            wizard.goToTheEnd();
            wizard.cancel();
        });
        user.press("newRaceway");
        QCOMPARE(user.rows(Tree), QStringList("x|Default|2"));
    });
    QCOMPARE(DatabaseFile().rows("SELECT name FROM raceways"), QStringList("Default"));
}

void tst_CKelmoSettingsRaceways::editedRacewayTakesItsRow()
{
    addRaceway("Keller", 3);
    SettingsFixture fixture;
    QSignalSpy raceTrackChanged(fixture.dialog(), &CKelmoSettings::raceTrackChanged);
    fixture.openAndCancel([&](const DialogUser& user) {
        user.selectRow(Tree, 0);
        WizardDriver::expect(*fixture.answers, [](WizardDriver& wizard) {
            QCOMPARE(wizard.field<QLineEdit>("nameEdit")->text(), QString("Default"));
            QCOMPARE(wizard.field<QComboBox>("tracksBox")->currentIndex(), 1);
            wizard.describe("Default", 5);
            wizard.goToTheEnd();
            wizard.finish();
        });
        user.press("editRaceway");
        QCOMPARE(user.rows(Tree), QStringList({"x|Default|5", "|Keller|3"}));
        QCOMPARE(raceTrackChanged.size(), 1);
        QCOMPARE(panels(fixture), 5); // behind the dialog that is still open
    });
    QCOMPARE(panels(fixture), 5);
    QCOMPARE(DatabaseFile().rows("SELECT noOfTracks FROM raceways ORDER BY name"), QStringList({"5", "3"}));
}

void tst_CKelmoSettingsRaceways::editedRacewayStaysSelectedUnderItsNewName()
{
    addRaceway("Keller", 3);
    SettingsFixture fixture;
    fixture.open([&fixture](const DialogUser& user) {
        user.selectRow(Tree, 1);
        expectWizard(fixture, "Aachen", 3);
        user.press("editRaceway");
        QCOMPARE(user.rows(Tree), QStringList({"|Aachen|3", "x|Default|2"}));
        QCOMPARE(user.selectedRow(Tree), 0);
    });
}

void tst_CKelmoSettingsRaceways::cancelledEditingChangesNothing()
{
    SettingsFixture fixture;
    QSignalSpy raceTrackChanged(fixture.dialog(), &CKelmoSettings::raceTrackChanged);
    fixture.open([&fixture](const DialogUser& user) {
        user.selectRow(Tree, 0);
        WizardDriver::expect(*fixture.answers, [](WizardDriver& wizard) {
            wizard.describe("Keller", 8);
            wizard.next();
            wizard.cancel();
        });
        user.press("editRaceway");
        QCOMPARE(user.rows(Tree), QStringList("x|Default|2"));
    });
    QCOMPARE(raceTrackChanged.size(), 0);
    QCOMPARE(panels(fixture), 2);
}

void tst_CKelmoSettingsRaceways::doubleClickEdits()
{
    SettingsFixture fixture;
    fixture.open([&fixture](const DialogUser& user) {
        expectWizard(fixture, "Keller", 4);
        auto* view = user.control<QTreeView>(Tree);
        const QPoint place = view->visualRect(view->model()->index(0, 1)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QCOMPARE(user.rows(Tree), QStringList("x|Keller|4"));
    });
}

void tst_CKelmoSettingsRaceways::deletingAsks_data()
{
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("yes") << true << QStringList("x|Default|2");
    QTest::newRow("no") << false << QStringList({"x|Default|2", "|Keller|3"});
}

void tst_CKelmoSettingsRaceways::deletingAsks()
{
    QFETCH(bool, yes);
    QFETCH(QStringList, rows);
    addRaceway("Keller", 3);
    SettingsFixture fixture;
    fixture.user->answerIsYes = yes;
    QSignalSpy raceTrackChanged(fixture.dialog(), &CKelmoSettings::raceTrackChanged);
    fixture.openAndCancel([&](const DialogUser& user) {
        user.selectRow(Tree, 1);
        user.press("deleteRaceway");
        QCOMPARE(user.rows(Tree), rows);
    });
    const QStringList question{"Rennstrecke löschen",
                               "Sind Sie sicher, dass Sie die Rennstrecke Keller löschen möchten?", "&Ja",
                               "&Nein"};
    QCOMPARE(fixture.user->questions, QList<QStringList>{question});
    QCOMPARE(raceTrackChanged.size(), yes ? 1 : 0);
    QCOMPARE(DatabaseFile().rows("SELECT name FROM raceways").size(), rows.size());
    QCOMPARE(DatabaseFile().rows("SELECT id FROM tracks WHERE racewayId = 2").size(), yes ? 0 : 3);
}

void tst_CKelmoSettingsRaceways::deletingTheLastRacewayLeavesTheDefault()
{
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.open([&fixture](const DialogUser& user) {
        user.selectRow(Tree, 0);
        expectWizard(fixture, "Keller", 6);
        user.press("editRaceway");
        QCOMPARE(user.rows(Tree), QStringList("x|Keller|6"));
        user.press("deleteRaceway");
        QCOMPARE(user.rows(Tree), QStringList("x|Default|2"));
        QCOMPARE(user.selectedRow(Tree), -1);
    });
    QCOMPARE(panels(fixture), 2);
}

void tst_CKelmoSettingsRaceways::deletingTheCurrentRacewayRacesOnTheFirst()
{
    addRaceway("Aachen", 3);
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    fixture.openAndCancel([](const DialogUser& user) {
        user.selectRow(Tree, 1);
        user.press("deleteRaceway");
        QCOMPARE(user.rows(Tree), QStringList("x|Aachen|3"));
    });
    QCOMPARE(panels(fixture), 3);
    QCOMPARE(fixture.main.raceSettings.raceway().name, QString("Aachen"));
}

void tst_CKelmoSettingsRaceways::usedRacewayIsOnTheDashboardAtOnce()
{
    addRaceway("Keller", 7);
    SettingsFixture fixture;
    QSignalSpy raceTrackChanged(fixture.dialog(), &CKelmoSettings::raceTrackChanged);
    QSignalSpy racewayChanged(&fixture.main.dialog, &CKelmoMainDialog::racewayChanged);
    fixture.openAndCancel([&](const DialogUser& user) {
        user.selectRow(Tree, 1);
        user.press("useRaceway");
        QCOMPARE(user.rows(Tree), QStringList({"|Default|2", "x|Keller|7"}));
        QCOMPARE(user.selectedRow(Tree), 1);
        QCOMPARE(raceTrackChanged.size(), 1);
        QCOMPARE(racewayChanged.size(), 1);
        QCOMPARE(panels(fixture), 7);
    });
    QCOMPARE(racewayChanged.size(), 1); // a race that was driven is still there behind a cancel
    QCOMPARE(CRacewayList().currentRaceway().name, QString("Keller"));
}

void tst_CKelmoSettingsRaceways::nothingHappensWithoutASelectedRow()
{
    SettingsFixture fixture;
    fixture.user->answerIsYes = true;
    QSignalSpy raceTrackChanged(fixture.dialog(), &CKelmoSettings::raceTrackChanged);
    fixture.open([](const DialogUser& user) {
        for (const char* button : {"editRaceway", "deleteRaceway", "useRaceway"})
            user.press(button);
    });
    QCOMPARE(fixture.user->questions.size(), 0);
    QCOMPARE(raceTrackChanged.size(), 0);
}

void tst_CKelmoSettingsRaceways::nameOfMarkupIsShownAsItIs()
{
    addRaceway("<b>O'Hara</b> & %1", 1);
    SettingsFixture fixture;
    fixture.dialog()->setUserQuestions(std::make_unique<CUserQuestions>());
    fixture.open([&fixture](const DialogUser& user) {
        user.selectRow(Tree, 0);
        QString question;
        fixture.answers->expect([&question](QDialog* box) {
            const auto* label = box->findChild<QLabel*>("qt_msgbox_label");
            question = label->text();
            QCOMPARE(label->textFormat(), Qt::PlainText);
            QTest::keyClick(box, Qt::Key_Escape);
        });
        user.press("deleteRaceway");
        QCOMPARE(question, QString("Sind Sie sicher, dass Sie die Rennstrecke <b>O'Hara</b> & %1 löschen "
                                   "möchten?"));
        QCOMPARE(user.rows(Tree).size(), 2);
    });
}

QTEST_MAIN(tst_CKelmoSettingsRaceways)
#include "tst_CKelmoSettingsRaceways.moc"
