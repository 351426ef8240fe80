#include "dialogs/RaceSettingsFixture.h"

/** Which controls of the race settings can be used, and how they hold each other. */
class tst_CKelmoRaceSettingsControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void enableRulesFollowTheUser();
    void fuelRulesFollowTheUser();
    void reactionsOfPowerStayDisabledWithoutPowerSwitching();
    void frequencyIsWrittenBesideTheSlider();
    void sliderHasATickUnderEachFrequency();
    void minimumLightDelayCanNotBeRaisedOverTheMaximumByTyping();
    void maximumLightDelayCanNotBeLoweredUnderTheMinimumByTyping();
    void lightDelayIsHeldAlsoWhereOkComesRightBehindTheTyping();
    void firstDigitsOfALightDelayAreNotTakenForIt();
    void lightDelaysAreShownWhateverStoodThereBefore();
    void timesAreTypedPartByPart_data();
    void timesAreTypedPartByPart();
    void keyboardWalksFromTheTopToTheBottom();
};

void tst_CKelmoRaceSettingsControls::init()
{
    QSettings("Tornik", "Tornik").clear();
    QFile::remove("rules.rsf");
}

void tst_CKelmoRaceSettingsControls::enableRulesFollowTheUser()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    const auto enabledLabels = [&dialog](const QString& title) {
        QStringList texts;
        for (const auto* label : group(dialog, title, 0)->findChildren<QLabel*>()) {
            if (label->isEnabled())
                texts.append(label->text());
        }
        return texts;
    };
    open(dialog, [&](const DialogUser& user) {
        QCOMPARE(enabledLabels("Startbedingung"), QStringList());
        user.enter("startTypeTimed", true);
        QVERIFY(user.isEnabled("startDelay") && user.isEnabled("startLightsMaxDelay"));
        QCOMPARE(enabledLabels("Startbedingung").size(), 5);
        user.enter("startTypeNone", true);
        QVERIFY(!user.isEnabled("startDelay") && !user.isEnabled("startLightsMinDelay"));

        QCOMPARE(enabledLabels("Endebedingung"), QStringList());
        user.enter("endTypeTime", true);
        QVERIFY(user.isEnabled("endTime") && !user.isEnabled("numberOfLaps"));
        QCOMPARE(enabledLabels("Endebedingung"), QStringList("Stunden"));
        user.enter("endTypeLaps", true);
        QVERIFY(!user.isEnabled("endTime") && user.isEnabled("lapsCountDown"));
        QCOMPARE(enabledLabels("Endebedingung"), QStringList("Runden"));

        user.enter("winningCondition5", true);
        QCOMPARE(enabledLabels("Siegbedingung"), QStringList("Runden"));
        user.enter("useTargetTime", true);
        QVERIFY(user.isEnabled("winningTargetTime"));
        user.enter("useTargetTime", false);
        QVERIFY(!user.isEnabled("winningTargetTime"));
        user.enter("winningCondition3", true);
        QVERIFY(user.isEnabled("winningTargetTime") && !user.isEnabled("useTargetTime"));
        QCOMPARE(enabledLabels("Siegbedingung"),
                 QStringList({"verwendete Zielzeit (im Format mm:ss:zzz): ", "Minuten"}));
        user.enter("winningCondition0", true);
        QVERIFY(!user.isEnabled("winningTargetTime"));
    });
}

void tst_CKelmoRaceSettingsControls::fuelRulesFollowTheUser()
{
    CRaceSettings rules = ordinaryRules();
    open(rules, [](const DialogUser& user) {
        user.enter("fuelFunction1", true);
        QVERIFY(user.isEnabled("refuelInterval") && !user.isEnabled("tankSize"));
        QVERIFY(user.isEnabled("emptyFuelReaction3") && !user.isEnabled("emptyFuelStutterFrequency"));
        user.enter("emptyFuelReaction3", true);
        QVERIFY(user.isEnabled("emptyFuelStutterFrequency") && !user.isEnabled("emptyFuelPenaltyTime"));
        user.enter("emptyFuelReaction2", true);
        QVERIFY(!user.isEnabled("emptyFuelStutterFrequency") && user.isEnabled("emptyFuelPenaltyTime"));
        user.enter("fuelFunction2", true);
        QVERIFY(user.isEnabled("tankSize") && user.isEnabled("emptyFuelPenaltyTime"));
        user.enter("fuelFunction1", true);
        QVERIFY(!user.isEnabled("tankSize") && user.isEnabled("refuelInterval"));
        user.enter("fuelFunction0", true);
        QVERIFY(!user.isEnabled("tankSize") && !user.isEnabled("refuelInterval"));
        QVERIFY(!user.isEnabled("emptyFuelReaction0") && !user.isEnabled("emptyFuelPenaltyTime"));
        user.enter("fuelFunction2", true);
        QVERIFY(user.isEnabled("refuelInterval") && user.isEnabled("emptyFuelPenaltyTime"));
    });
}

void tst_CKelmoRaceSettingsControls::reactionsOfPowerStayDisabledWithoutPowerSwitching()
{
    for (const int reaction : {0, 1, 2, 3}) {
        CRaceSettings rules = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll, reaction);
        CRaceway raceway = rules.raceway();
        raceway.pwrOffFeatureAvailable = false;
        rules.setRaceway(raceway);
        open(
            rules,
            [](const DialogUser& user) {
                for (const char* function :
                     {"fuelFunction1", "fuelFunction2", "fuelFunction0", "fuelFunction2"}) {
                    user.enter(function, true);
                    QVERIFY(!user.isEnabled("emptyFuelReaction1"));
                    QVERIFY(!user.isEnabled("emptyFuelReaction3"));
                    QVERIFY(!user.isEnabled("emptyFuelStutterFrequency"));
                }
                QVERIFY(user.isEnabled("emptyFuelReaction0"));
                QVERIFY(user.isEnabled("emptyFuelReaction2"));
                user.press("defaultsButton");
                QVERIFY(!user.isEnabled("emptyFuelReaction1"));
            },
            "cancelButton");
    }
}

void tst_CKelmoRaceSettingsControls::frequencyIsWrittenBesideTheSlider()
{
    CRaceSettings rules = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll, 3);
    open(rules, [](const DialogUser& user) {
        const auto* text = user.control<QLabel>("emptyFuelStutterFrequencyText");
        QCOMPARE(text->text(), QString("5Hz"));
        user.enter("emptyFuelStutterFrequency", 10);
        QCOMPARE(text->text(), QString("10Hz"));
        user.enter("emptyFuelStutterFrequency", 1);
        QCOMPARE(text->text(), QString("1Hz"));
    });
}

void tst_CKelmoRaceSettingsControls::sliderHasATickUnderEachFrequency()
{
    CRaceSettings rules = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll, 3);
    open(rules, [](const DialogUser& user) {
        user.control<QTabWidget>("tabs")->setCurrentIndex(1);
        QWidget* slider = user.control("emptyFuelStutterFrequency");
        const QImage picture = slider->grab().toImage();
        const QRgb ground = picture.pixel(0, 0);
        QList<int> ticks;
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, picture.height() - 1) != ground)
                ticks.append(x);
        }
        QCOMPARE(ticks.size(), 10);
        for (int tick = 2; tick < ticks.size(); ++tick)
            QVERIFY(qAbs((ticks[tick] - ticks[tick - 1]) - (ticks[1] - ticks[0])) <= 1);
    });
}

void tst_CKelmoRaceSettingsControls::minimumLightDelayCanNotBeRaisedOverTheMaximumByTyping()
{
    CRaceSettings rules = ordinaryRules();
    rules.setStartType(CRaceSettings::TimedStart);
    open(rules, [](const DialogUser& user) {
        user.enter("startLightsMinDelay", 3000);
        QCOMPARE(user.value("startLightsMinDelay").toInt(), 2500);
        QCOMPARE(user.value("startLightsMaxDelay").toInt(), 2500);
        user.control<QSpinBox>("startLightsMinDelay")->stepUp();
        QCOMPARE(user.value("startLightsMinDelay").toInt(), 2500);
    });
    QCOMPARE(rules.startLightsMinDelay(), 2500U);
}

void tst_CKelmoRaceSettingsControls::maximumLightDelayCanNotBeLoweredUnderTheMinimumByTyping()
{
    CRaceSettings rules = ordinaryRules();
    rules.setStartType(CRaceSettings::TimedStart);
    rules.setStartLightsMinDelay(2000);
    open(rules, [](const DialogUser& user) {
        user.enter("startLightsMaxDelay", 1500);
        QCOMPARE(user.value("startLightsMaxDelay").toInt(), 2000);
        user.control<QSpinBox>("startLightsMaxDelay")->stepDown();
        QCOMPARE(user.value("startLightsMaxDelay").toInt(), 2000);
    });
}

void tst_CKelmoRaceSettingsControls::lightDelayIsHeldAlsoWhereOkComesRightBehindTheTyping()
{
    CRaceSettings rules = ordinaryRules();
    rules.setStartType(CRaceSettings::TimedStart);
    CKelmoRaceSettings dialog(&rules);
    ModalAnswers answers;
    answers.expect([](QDialog* window) {
        const DialogUser user(window);
        auto* box = user.control<QSpinBox>("startLightsMinDelay");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, "3000");
        user.control<QPushButton>("okButton")->click(); // as its shortcut does: the box keeps the focus
    });
    QCOMPARE(dialog.run(), int(QDialog::Accepted));
    QCOMPARE(rules.startLightsMinDelay(), 2500U);
}

/** "500" is a delay by itself, and lower than the minimum. */
void tst_CKelmoRaceSettingsControls::firstDigitsOfALightDelayAreNotTakenForIt()
{
    CRaceSettings rules = ordinaryRules();
    rules.setStartType(CRaceSettings::TimedStart);
    rules.setStartLightsMinDelay(1000);
    open(rules, [](const DialogUser& user) { user.enter("startLightsMaxDelay", 5000); });
    QCOMPARE(rules.startLightsMaxDelay(), 5000U);
    QCOMPARE(rules.startLightsMinDelay(), 1000U);
}

void tst_CKelmoRaceSettingsControls::lightDelaysAreShownWhateverStoodThereBefore()
{
    CRaceSettings rules = ordinaryRules();
    CKelmoRaceSettings dialog(&rules);
    const std::pair<quint32, quint32> delays[] = {{4000, 4500}, {500, 600}, {5000, 5000}, {500, 500}};
    for (const auto& [minimum, maximum] : delays) {
        rules.setStartLightsMinDelay(minimum);
        rules.setStartLightsMaxDelay(maximum);
        open(dialog, [](const DialogUser&) {});
        QCOMPARE(rules.startLightsMinDelay(), minimum);
        QCOMPARE(rules.startLightsMaxDelay(), maximum);
    }
}

void tst_CKelmoRaceSettingsControls::timesAreTypedPartByPart_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QTime>("time");
    const auto row = [](const char* field, const char* typed, const QTime& time) {
        QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(field, typed))) << field << typed << time;
    };
    row("startDelay", "0007", QTime(0, 0, 7));
    row("startDelay", "0130", QTime(0, 1, 30));
    row("startDelay", "1000", QTime(0, 10));
    row("startDelay", "1030", QTime(0, 10)); // that is the longest
    row("startDelay", "0930", QTime(0, 9, 30));
    row("startDelay", "0002", QTime(0, 0, 5)); // that is the shortest
    row("endTime", "000100", QTime(0, 1));
    row("endTime", "012345", QTime(1, 23, 45));
    row("endTime", "235959", QTime(23, 59, 59));
    row("winningTargetTime", "0008531", QTime(0, 0, 8, 531));
    row("winningTargetTime", "5959999", QTime(0, 59, 59, 999));
    row("refuelInterval", "1:250", QTime(0, 0, 1, 250));
    row("refuelInterval", "0:020", QTime(0, 0, 0, 20));
    row("refuelInterval", "9:999", QTime(0, 0, 9, 999));
    row("minFuelUsageTime", "0100007", QTime(0, 1, 0, 7));
    row("maxFuelUsageTime", "0003021", QTime(0, 0, 3, 21));
    row("emptyFuelPenaltyTime", "0002500", QTime(0, 0, 2, 500));
}

void tst_CKelmoRaceSettingsControls::timesAreTypedPartByPart()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    QFETCH(QTime, time);
    CRaceSettings rules = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll, 2);
    rules.setStartType(CRaceSettings::TimedStart);
    rules.setEndType(CRaceSettings::TimeLimit);
    rules.setWinningCondition(4);
    CKelmoRaceSettings dialog(&rules);
    const auto work = [&](const DialogUser& user) {
        auto* edit = user.control<QTimeEdit>(qPrintable(field));
        auto* tabs = user.control<QTabWidget>("tabs");
        tabs->setCurrentIndex(tabs->widget(0)->isAncestorOf(edit) ? 0 : 1);
        edit->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(edit, typed);
    };
    open(dialog, work);
    open(dialog, [&](const DialogUser& user) { QCOMPARE(user.value(qPrintable(field)).toTime(), time); });
}

void tst_CKelmoRaceSettingsControls::keyboardWalksFromTheTopToTheBottom()
{
    CRaceSettings rules = withFuel(ordinaryRules(), CFuelSettings::FuelSameForAll, 2);
    rules.setStartType(CRaceSettings::TimedStart);
    rules.setEndType(CRaceSettings::LapLimit);
    rules.setWinningCondition(6);
    open(rules, [](const DialogUser& user) {
        const QStringList tabs[] = {
            {"startTypeTimed", "startDelay", "startLightsMinDelay", "startLightsMaxDelay", "endTypeLaps",
             "numberOfLaps", "allMaxRounds", "maxRoundsStopCounting", "lapsCountDown", "winningCondition5",
             "numOfWorstLapsToIgnore", "useTargetTime", "redLightsOnRaceStopped",
             "leavePowerOnWhenRaceStopped"},
            {"fuelFunction2", "refuelInterval", "refuelAmount", "minFuelUsageTime", "maxFuelUsageTime",
             "minFuelUsageAmount", "maxFuelUsageAmount", "tankSize", "reserveLevel", "emptyFuelReaction2",
             "emptyFuelPenaltyTime"},
            {"monitorDistanceDriven", "monitorFastestLap"}};
        const QStringList buttons{"okButton",     "cancelButton",   "defaultsButton",     "exportButton",
                                  "importButton", "saveAsDefaults", "qt_tabwidget_tabbar"};
        auto* tabWidget = user.control<QTabWidget>("tabs");
        for (int tab = 0; tab < 3; ++tab) {
            tabWidget->setCurrentIndex(tab);
            const QStringList expected = tabs[tab] + buttons;
            QCOMPARE(user.walkFrom(expected.first()), expected);
        }
    });
}

QTEST_MAIN(tst_CKelmoRaceSettingsControls)
#include "tst_CKelmoRaceSettingsControls.moc"
