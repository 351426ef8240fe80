#include "dialogs/RaceSettingsFixture.h"

namespace {

QStringList textsOfButtons(const QWidget& parent)
{
    QStringList texts;
    for (const auto* button : parent.findChildren<QAbstractButton*>())
        texts.append(button->text());
    return texts;
}

QStringList textsOfLabels(const QWidget& parent)
{
    QStringList texts;
    for (const auto* label : parent.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(Change)

/** What the dialog of the race settings shows, and where each control goes. */
class tst_CKelmoRaceSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void titleTabsAndButtons();
    void groupsHaveTheirTexts_data();
    void groupsHaveTheirTexts();
    void fieldsHaveTheirRange_data();
    void fieldsHaveTheirRange();
    void controlsShowARecordOfDefaults_data();
    void controlsShowARecordOfDefaults();
    void raceWithoutAWinnerIsShownLikeTheMostLaps();
    void valuesOutOfRangeAreShownAsTheNearest();
    void controlGoesToItsFieldAlone_data();
    void controlGoesToItsFieldAlone();
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

void tst_CKelmoRaceSettings::groupsHaveTheirTexts_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<QStringList>("labels");
    const QString lightDelay = "ms warten bevor die Ampel von Rot auf Grün umschaltet";
    QTest::newRow("Startbedingung") << 0 << QStringList{"Keine", "Start in "}
                                    << QStringList{"Minuten", "Minimum", lightDelay, "Maximum", lightDelay};
    QTest::newRow("Endebedingung") << 0
                                   << QStringList{"Keine",
                                                  "Ende nach ",
                                                  "Ende nach ",
                                                  "auf allen Spuren",
                                                  "bei erreichen der max. Runden Spurzähler anhalten",
                                                  "Runden abwärts zählen"}
                                   << QStringList{"Stunden", "Runden"};
    QTest::newRow("Siegbedingung")
        << 0
        << QStringList{"die meisten gefahrenen Runden",
                       "die schnellste Runde",
                       "die beste Durchschnittszeit",
                       "eine Rundenzeit möglichst nahe der Zielzeit",
                       "die Durchschnittszeit möglichst nahe der Zielzeit",
                       "die konsistentesten Rundenzeiten, ignoriere die schlechtesten ",
                       "Zielzeit verwenden"}
        << QStringList{"Runden", "verwendete Zielzeit (im Format mm:ss:zzz): ", "Minuten"};
    QTest::newRow("Signalsteuerung") << 0
                                     << QStringList{"Ampel auf rot schalten bei Rennende",
                                                    "Bahnstrom angeschaltet lassen bei Rennende"}
                                     << QStringList{};
    QTest::newRow("Tankfunktion") << 1
                                  << QStringList{"Keine Tankfunktion oder Tankfunktion durch Control Unit "
                                                 "gesteuert",
                                                 "Fahrzeugspezifische Tankeinstellungen verwenden",
                                                 "Tankeinstellungen für alle gleich"}
                                  << QStringList{};
    QTest::newRow("Tankeinstellungen")
        << 1 << QStringList{}
        << QStringList{"Zeitintervall beim Tanken (im Format s:zzz): ",
                       "Füllmenge pro Zeitintervall beim Tanken:",
                       "Rundenzeit für minimalen Verbrauch (im Format mm:ss:zzz):",
                       "Rundenzeit für maximalen Verbrauch (im Format mm:ss:zzz):",
                       "Minimaler Verbrauch pro Runde:",
                       "Maximaler Verbrauch pro Runde:",
                       "Größe des Tanks:",
                       "Warnschwelle Tankreserve:",
                       "Solange ein Fahrzeug beim Tanken steht, kommt nach jedem Zeitintervall die Füllmenge "
                       "hinzu, bis der Tank voll ist.",
                       "Der Verbrauch steigt zwischen den beiden Rundenzeiten linear vom minimalen zum "
                       "maximalen an; darüber und darunter bleibt er gleich."};
    QTest::newRow("Reaktion bei leerem Tank")
        << 1
        << QStringList{"Runden nicht zählen", "Spurabschaltung",
                       "Zeitstrafe pro Runde:", "Stottern mit Frequenz:"}
        << QStringList{"Minuten", ""};
    QTest::newRow("Fahrzeugbezogene Datenerfassung")
        << 2 << QStringList{"gefahrene Strecke je Fahrzeug erfassen", "schnellste Rundenzeit erfassen"}
        << QStringList{};
}

void tst_CKelmoRaceSettings::groupsHaveTheirTexts()
{
    QFETCH(int, tab);
    QFETCH(QStringList, buttons);
    QFETCH(QStringList, labels);
    CRaceSettings rules;
    const CKelmoRaceSettings dialog(&rules);
    const QGroupBox* box = group(dialog, QString::fromUtf8(QTest::currentDataTag()), tab);
    QVERIFY(box);
    QCOMPARE(textsOfButtons(*box), buttons);
    QCOMPARE(textsOfLabels(*box), labels);
}

void tst_CKelmoRaceSettings::fieldsHaveTheirRange_data()
{
    QTest::addColumn<QVariant>("first");
    QTest::addColumn<QVariant>("last");
    QTest::addColumn<QString>("format"); // of a time
    const QTime lastLapTime(0, 59, 59, 999);
    QTest::newRow("startDelay") << QVariant(QTime(0, 0, 5)) << QVariant(QTime(0, 10)) << "mm:ss";
    QTest::newRow("startLightsMinDelay") << QVariant(500) << QVariant(5000) << "";
    QTest::newRow("startLightsMaxDelay") << QVariant(500) << QVariant(5000) << "";
    QTest::newRow("endTime") << QVariant(QTime(0, 0)) << QVariant(QTime(23, 59, 59)) << "hh:mm:ss";
    QTest::newRow("numberOfLaps") << QVariant(1) << QVariant(9999) << "";
    QTest::newRow("numOfWorstLapsToIgnore") << QVariant(0) << QVariant(999) << "";
    QTest::newRow("winningTargetTime") << QVariant(QTime(0, 0)) << QVariant(lastLapTime) << "mm:ss:zzz";
    QTest::newRow("refuelInterval") << QVariant(QTime(0, 0)) << QVariant(QTime(0, 0, 9, 999)) << "s:zzz";
    QTest::newRow("minFuelUsageTime") << QVariant(QTime(0, 0)) << QVariant(lastLapTime) << "mm:ss:zzz";
    QTest::newRow("maxFuelUsageTime") << QVariant(QTime(0, 0)) << QVariant(lastLapTime) << "mm:ss:zzz";
    QTest::newRow("emptyFuelPenaltyTime") << QVariant(QTime(0, 0)) << QVariant(lastLapTime) << "mm:ss:zzz";
    for (const char* amount :
         {"refuelAmount", "minFuelUsageAmount", "maxFuelUsageAmount", "tankSize", "reserveLevel"})
        QTest::newRow(amount) << QVariant(0.1) << QVariant(999.99) << "";
    QTest::newRow("emptyFuelStutterFrequency") << QVariant(1) << QVariant(10) << "";
}

void tst_CKelmoRaceSettings::fieldsHaveTheirRange()
{
    QFETCH(QVariant, first);
    QFETCH(QVariant, last);
    QFETCH(QString, format);
    CRaceSettings rules;
    const CKelmoRaceSettings dialog(&rules);
    const auto* field = dialog.findChild<QWidget*>(QTest::currentDataTag());
    QVERIFY(field);
    if (const auto* time = qobject_cast<const QTimeEdit*>(field)) {
        QCOMPARE(time->displayFormat(), format);
        QCOMPARE(QVariant(time->minimumTime()), first);
        QCOMPARE(QVariant(time->maximumTime()), last);
        return;
    }
    QCOMPARE(field->property("minimum"), first);
    QCOMPARE(field->property("maximum"), last);
    if (qobject_cast<const QDoubleSpinBox*>(field))
        QCOMPARE(field->property("singleStep").toDouble(), 0.1);
    if (const auto* slider = qobject_cast<const QSlider*>(field))
        QCOMPARE(slider->tickInterval(), 1);
}

void tst_CKelmoRaceSettings::controlsShowARecordOfDefaults_data()
{
    QTest::addColumn<QVariant>("value");
    for (const char* on :
         {"startTypeNone", "endTypeNone", "winningCondition0", "fuelFunction0", "emptyFuelReaction0"})
        QTest::newRow(on) << QVariant(true);
    for (const char* off : {"startTypeTimed",
                            "endTypeTime",
                            "endTypeLaps",
                            "winningCondition1",
                            "winningCondition2",
                            "winningCondition3",
                            "winningCondition4",
                            "winningCondition5",
                            "fuelFunction1",
                            "fuelFunction2",
                            "emptyFuelReaction1",
                            "emptyFuelReaction2",
                            "emptyFuelReaction3",
                            "allMaxRounds",
                            "maxRoundsStopCounting",
                            "lapsCountDown",
                            "useTargetTime",
                            "redLightsOnRaceStopped",
                            "leavePowerOnWhenRaceStopped",
                            "monitorDistanceDriven",
                            "monitorFastestLap",
                            "saveAsDefaults"})
        QTest::newRow(off) << QVariant(false);
    QTest::newRow("startDelay") << QVariant(QTime(0, 0, 5));
    QTest::newRow("startLightsMinDelay") << QVariant(500);
    QTest::newRow("startLightsMaxDelay") << QVariant(2500);
    QTest::newRow("endTime") << QVariant(QTime(0, 5));
    QTest::newRow("numberOfLaps") << QVariant(25);
    QTest::newRow("numOfWorstLapsToIgnore") << QVariant(0);
    QTest::newRow("winningTargetTime") << QVariant(QTime(0, 0, 10));
    QTest::newRow("refuelInterval") << QVariant(QTime(0, 0, 0, 500));
    QTest::newRow("refuelAmount") << QVariant(20.0);
    QTest::newRow("minFuelUsageTime") << QVariant(QTime(0, 0, 7, 500));
    QTest::newRow("maxFuelUsageTime") << QVariant(QTime(0, 0, 4, 500));
    QTest::newRow("minFuelUsageAmount") << QVariant(1.0);
    QTest::newRow("maxFuelUsageAmount") << QVariant(5.0);
    QTest::newRow("tankSize") << QVariant(100.0);
    QTest::newRow("reserveLevel") << QVariant(20.0);
    QTest::newRow("emptyFuelPenaltyTime") << QVariant(QTime(0, 0, 5));
    QTest::newRow("emptyFuelStutterFrequency") << QVariant(5);
}

void tst_CKelmoRaceSettings::controlsShowARecordOfDefaults()
{
    QFETCH(QVariant, value);
    CRaceSettings rules;
    open(rules, [&](const DialogUser& user) { QCOMPARE(user.value(QTest::currentDataTag()), value); });
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

void tst_CKelmoRaceSettings::controlGoesToItsFieldAlone_data()
{
    using Rules = CRaceSettings;
    using Fuel = CFuelSettings;
    QTest::addColumn<Change>("before"); // that the control can be used
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<Change>("change");
    const auto row = [](const char* control, const Change& before, const QVariant& value,
                        const Change& change) { QTest::newRow(control) << before << value << change; };
    const auto nothing = [](Rules&) {};
    const auto timed = [](Rules& rules) { rules.setStartType(Rules::TimedStart); };
    const auto lapLimit = [](Rules& rules) { rules.setEndType(Rules::LapLimit); };
    const auto consistent = [](Rules& rules) { rules.setWinningCondition(6); };
    const auto common = fuel(&Fuel::setFuelFunction, 2);
    const auto reaction = [common](int which) {
        return [common, which](Rules& rules) {
            common(rules);
            fuel(&Fuel::setEmptyFuelReaction, which)(rules);
        };
    };

    row("startTypeTimed", nothing, true, timed);
    row("startTypeNone", timed, true, [](Rules& rules) { rules.setStartType(Rules::FlyingStart); });
    row("startDelay", timed, QTime(0, 1, 30), [](Rules& rules) { rules.setStartDelay({0, 1, 30}); });
    row("startLightsMinDelay", timed, 700, [](Rules& rules) { rules.setStartLightsMinDelay(700); });
    row("startLightsMaxDelay", timed, 4200, [](Rules& rules) { rules.setStartLightsMaxDelay(4200); });
    row("endTypeTime", nothing, true, [](Rules& rules) { rules.setEndType(Rules::TimeLimit); });
    row("endTypeLaps", nothing, true, lapLimit);
    row("endTypeNone", lapLimit, true, [](Rules& rules) { rules.setEndType(Rules::NoEnd); });
    row(
        "endTime", [](Rules& rules) { rules.setEndType(Rules::TimeLimit); }, QTime(1, 2, 3),
        [](Rules& rules) {
            rules.setEndTime({1, 2, 3});
        });
    row("numberOfLaps", lapLimit, 1234, [](Rules& rules) { rules.setNumberOfLaps(1234); });
    row("allMaxRounds", lapLimit, true, [](Rules& rules) { rules.setAllMaxRounds(true); });
    row("maxRoundsStopCounting", lapLimit, true, [](Rules& rules) { rules.setMaxRoundsStopCounting(true); });
    row("lapsCountDown", lapLimit, true, [](Rules& rules) { rules.setLapsCountDown(true); });
    const char* const conditions[] = {"winningCondition0", "winningCondition1", "winningCondition2",
                                      "winningCondition3", "winningCondition4", "winningCondition5"};
    int condition = 0;
    for (const char* control : conditions) {
        ++condition;
        row(control, nothing, true, [condition](Rules& rules) { rules.setWinningCondition(condition); });
    }
    row("numOfWorstLapsToIgnore", consistent, 3, [](Rules& rules) { rules.setNumOfWorstLapsToIgnore(3); });
    row("useTargetTime", consistent, true, [](Rules& rules) { rules.setUseTargetTime(true); });
    row(
        "winningTargetTime", [](Rules& rules) { rules.setWinningCondition(4); }, QTime(0, 0, 8, 531),
        [](Rules& rules) {
            rules.setWinningTargetTime({0, 0, 8, 531});
        });
    row("redLightsOnRaceStopped", nothing, true, [](Rules& rules) { rules.setRedLightsOnRaceStopped(true); });
    row("leavePowerOnWhenRaceStopped", nothing, true,
        [](Rules& rules) { rules.setLeavePowerOnWhenRaceStopped(true); });

    row("fuelFunction0", common, true, fuel(&Fuel::setFuelFunction, 0));
    row("fuelFunction1", nothing, true, fuel(&Fuel::setFuelFunction, 1));
    row("fuelFunction2", nothing, true, common);
    row("refuelInterval", common, QTime(0, 0, 1, 250),
        fuel<const QTime&>(&Fuel::setRefuelInterval, {0, 0, 1, 250}));
    row("refuelAmount", common, 12.5, fuel(&Fuel::setRefuelAmount, 12.5));
    row("minFuelUsageTime", common, QTime(0, 1, 0, 7),
        fuel<const QTime&>(&Fuel::setMinFuelUsageTime, {0, 1, 0, 7}));
    row("maxFuelUsageTime", common, QTime(0, 0, 3, 21),
        fuel<const QTime&>(&Fuel::setMaxFuelUsageTime, {0, 0, 3, 21}));
    row("minFuelUsageAmount", common, 0.3, fuel(&Fuel::setMinFuelUsageAmount, 0.3));
    row("maxFuelUsageAmount", common, 7.25, fuel(&Fuel::setMaxFuelUsageAmount, 7.25));
    row("tankSize", common, 999.99, fuel(&Fuel::setTankSize, 999.99));
    row("reserveLevel", common, 33.3, fuel(&Fuel::setReserveLevel, 33.3));
    row("emptyFuelReaction0", reaction(2), true, fuel(&Fuel::setEmptyFuelReaction, 0));
    row("emptyFuelReaction1", common, true, fuel(&Fuel::setEmptyFuelReaction, 1));
    row("emptyFuelReaction2", common, true, fuel(&Fuel::setEmptyFuelReaction, 2));
    row("emptyFuelReaction3", common, true, fuel(&Fuel::setEmptyFuelReaction, 3));
    row("emptyFuelPenaltyTime", reaction(2), QTime(0, 0, 2, 500),
        fuel<const QTime&>(&Fuel::setEmptyFuelPenaltyTime, {0, 0, 2, 500}));
    row("emptyFuelStutterFrequency", reaction(3), 8, fuel(&Fuel::setEmptyFuelStutterFrequency, 8));

    row("monitorDistanceDriven", nothing, true, [](Rules& rules) { rules.setMonitorDistanceDriven(true); });
    row("monitorFastestLap", nothing, true, [](Rules& rules) { rules.setMonitorFastestLap(true); });
}

void tst_CKelmoRaceSettings::controlGoesToItsFieldAlone()
{
    QFETCH(Change, before);
    QFETCH(QVariant, value);
    QFETCH(Change, change);
    const char* control = QTest::currentDataTag();
    CRaceSettings rules = ordinaryRules();
    before(rules);
    CRaceSettings expected = rules;
    change(expected);
    CKelmoRaceSettings dialog(&rules);
    QCOMPARE(open(dialog, [&](const DialogUser& user) { user.enter(control, value); }),
             int(QDialog::Accepted));
    QCOMPARE(bytesOf(rules), bytesOf(expected));
    open(dialog, [&](const DialogUser& user) { QCOMPARE(user.value(control), value); });
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
