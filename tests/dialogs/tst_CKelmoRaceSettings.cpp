#include "dialogs/RaceSettingsFixture.h"

/** What the dialog of the race settings shows, and where each control goes. */
class tst_CKelmoRaceSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void titleTabsAndButtons();
    void raceWithoutAWinnerIsShownLikeTheMostLaps();
    void valuesOutOfRangeAreShownAsTheNearest();
    void okWithoutAChangeKeepsEverything();
    void openingShowsWhatTheOneBeforeChanged();
    void openingShowsNothingThatWasCancelled();
    void escapeCancels();
    void defaultsAreThoseOfTheStore();
    void okStoresDefaultsOnlyWhereTheBoxIsChecked_data();
    void okStoresDefaultsOnlyWhereTheBoxIsChecked();
    void boxOfTheDefaultsIsOffAtEachOpening();
};

void tst_CKelmoRaceSettings::init()
{
    QSettings("Tornik", "Tornik").clear();
    QFile::remove("rules.rsf");
}

void tst_CKelmoRaceSettings::titleTabsAndButtons()
{
    CRaceSettings rules;
    const CKelmoRaceSettings dialog(&rules);
    QCOMPARE(dialog.windowTitle(), QString("Renneinstellungen"));
    const auto* tabs = dialog.findChild<QTabWidget*>("tabs");
    QStringList titles;
    for (int tab = 0; tab < tabs->count(); ++tab)
        titles.append(tabs->tabText(tab));
    QCOMPARE(titles, QStringList({"Start/Ende", "Tankfunktion", "Datenerfassung"}));
    QStringList buttons;
    for (const auto* button : dialog.findChildren<QPushButton*>())
        buttons.append(button->text());
    QCOMPARE(buttons, QStringList({"&Ok", "&Abbrechen", "&Standard laden", "&Exportiern", "&Importieren"}));
    QCOMPARE(dialog.findChild<QAbstractButton*>("saveAsDefaults")->text(),
             QString("Diese Einstellungen als Standardeinstellungen speichern"));
    QVERIFY(dialog.findChild<QPushButton*>("okButton")->isDefault());
}

void tst_CKelmoRaceSettings::raceWithoutAWinnerIsShownLikeTheMostLaps()
{
    for (const int condition :
         {0, 1, 7, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        CRaceSettings rules;
        rules.setWinningCondition(condition);
        open(rules, [](const DialogUser& user) { QVERIFY(user.value("winningCondition0").toBool()); });
        QCOMPARE(rules.winningCondition(), 1);
    }
}

void tst_CKelmoRaceSettings::valuesOutOfRangeAreShownAsTheNearest()
{
    CRaceSettings rules = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll);
    rules.setStartType(9);
    rules.setEndType(-3);
    rules.setStartLightsMinDelay(0);
    rules.setStartLightsMaxDelay(std::numeric_limits<quint32>::max());
    rules.setNumberOfLaps(0);
    rules.setStartDelay(QTime(5, 0));
    CFuelSettings fuelSettings = rules.fuelSettings();
    fuelSettings.setEmptyFuelStutterFrequency(0);
    fuelSettings.setTankSize(-5);
    rules.setFuelSettings(fuelSettings);
    open(rules, [](const DialogUser&) {});
    QCOMPARE(rules.startType(), int(CRaceSettings::FlyingStart));
    QCOMPARE(rules.endType(), int(CRaceSettings::NoEnd));
    QCOMPARE(rules.startLightsMinDelay(), 500U);
    QCOMPARE(rules.startLightsMaxDelay(), 5000U);
    QCOMPARE(rules.numberOfLaps(), 1);
    QCOMPARE(rules.startDelay(), QTime(0, 10));
    QCOMPARE(rules.fuelSettings().emptyFuelStutterFrequency(), 1);
    QCOMPARE(rules.fuelSettings().tankSize(), 0.1);
}

void tst_CKelmoRaceSettings::okWithoutAChangeKeepsEverything()
{
    CRaceSettings rules = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll, 3);
    rules.setStartDelay(QTime(0, 0, 5, 250)); // the milliseconds are not on the screen
    const QByteArray before = bytesOf(rules);
    QCOMPARE(open(rules, [](const DialogUser&) {}), int(QDialog::Accepted));
    QCOMPARE(bytesOf(rules), before);
}

void tst_CKelmoRaceSettings::openingShowsWhatTheOneBeforeChanged()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    open(dialog, [](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 42);
    });
    open(dialog, [](const DialogUser& user) {
        QVERIFY(user.value("endTypeLaps").toBool());
        QCOMPARE(user.value("numberOfLaps").toInt(), 42);
        QVERIFY(user.isEnabled("numberOfLaps"));
    });
}

void tst_CKelmoRaceSettings::openingShowsNothingThatWasCancelled()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    const auto change = [](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 42);
    };
    QCOMPARE(open(dialog, change, "cancelButton"), int(QDialog::Rejected));
    open(dialog, [](const DialogUser& user) {
        QVERIFY(user.value("endTypeNone").toBool());
        QCOMPARE(user.value("numberOfLaps").toInt(), 25);
        QVERIFY(!user.isEnabled("numberOfLaps"));
    });
}

void tst_CKelmoRaceSettings::escapeCancels()
{
    CRaceSettings rules = ordinaryRules();
    const QByteArray before = bytesOf(rules);
    CKelmoRaceSettings dialog(&rules);
    ModalAnswers answers;
    answers.expect([](QDialog* window) {
        DialogUser(window).enter("startTypeTimed", true);
        QTest::keyClick(window, Qt::Key_Escape);
    });
    QCOMPARE(dialog.run(), int(QDialog::Rejected));
    QCOMPARE(bytesOf(rules), before);
}

void tst_CKelmoRaceSettings::defaultsAreThoseOfTheStore()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    open(dialog, [&](const DialogUser& user) {
        user.press("defaultsButton");
        QCOMPARE(user.value("numberOfLaps").toInt(), 10); // of a store that is empty
        QCOMPARE(user.value("tankSize").toDouble(), 20.0);
        CRaceSettings stored;
        stored.setEndType(CRaceSettings::LapLimit);
        stored.setNumberOfLaps(99);
        stored.writeDefaults();
        user.press("defaultsButton");
        QVERIFY(user.value("endTypeLaps").toBool());
        QCOMPARE(user.value("numberOfLaps").toInt(), 99);
        QVERIFY(user.isEnabled("numberOfLaps"));
        QCOMPARE(rules.numberOfLaps(), 25); // until Ok
    });
    QCOMPARE(rules.numberOfLaps(), 99);
    QCOMPARE(rules.endType(), int(CRaceSettings::LapLimit));
}

void tst_CKelmoRaceSettings::okStoresDefaultsOnlyWhereTheBoxIsChecked_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<int>("laps");
    QTest::newRow("checked") << true << 42;
    QTest::newRow("not checked") << false << 10;
}

void tst_CKelmoRaceSettings::okStoresDefaultsOnlyWhereTheBoxIsChecked()
{
    QFETCH(bool, checked);
    QFETCH(int, laps);
    CRaceSettings rules = ordinaryRules();
    open(rules, [checked](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 42);
        user.enter("saveAsDefaults", checked);
    });
    QCOMPARE(rules.numberOfLaps(), 42);
    CRaceSettings stored;
    stored.readDefaults();
    QCOMPARE(stored.numberOfLaps(), laps);
    QCOMPARE(stored.driver(1).id(), checked ? 7 : -1);
}

void tst_CKelmoRaceSettings::boxOfTheDefaultsIsOffAtEachOpening()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    open(dialog, [](const DialogUser& user) { user.enter("saveAsDefaults", true); });
    open(dialog, [](const DialogUser& user) { QVERIFY(!user.value("saveAsDefaults").toBool()); });
}

QTEST_MAIN(tst_CKelmoRaceSettings)
#include "tst_CKelmoRaceSettings.moc"
