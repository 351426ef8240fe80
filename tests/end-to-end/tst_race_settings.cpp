#include "data/CCarList.h"
#include "dialogs/CKelmoRaceSettings.h"
#include "io/CKelmoPortSimulator.h"
#include "io/PortIds.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CTrackDisplay.h"
#include "support/DatabaseFile.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"
#include "support/RunningProgram.h"
#include "support/ScriptedQuestions.h"
#include "support/StoredSetup.h"

#include <QAction>
#include <QFile>

namespace {

using Work = std::function<void(const DialogUser&)>;

/** Opens the race settings by their key, lets the user work there and closes them by a button. */
void inRaceSettings(RunningProgram& program, const Work& work, const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([work, button](QDialog* dialog) {
        QCOMPARE(dialog->objectName(), QString("raceSettingsDialog"));
        const DialogUser user(dialog);
        work(user);
        user.press(button);
    });
    program.pressKey(Qt::Key_R, Qt::ControlModifier);
}

/** Answers each file box of the race settings, which are open. */
void answerFileBoxes(RunningProgram& program, const QString& fileName)
{
    auto questions = std::make_unique<CScriptedQuestions>();
    questions->fileName = fileName;
    program.dialog().findChild<CKelmoRaceSettings*>()->setUserQuestions(std::move(questions));
}

/** Drives the laps of each track, in milliseconds, on the stamps of an interface. */
void drive(RunningProgram& program, const QVector<QVector<int>>& laps)
{
    for (int track = 0; track < laps.size(); ++track) {
        int time = 1000;
        program.sensorAt(time, PortId::lapSensor(track));
        for (const int lap : laps[track])
            program.sensorAt(time += lap, PortId::lapSensor(track));
    }
}

/** A raceway that can switch power, with a refuelling sensor, for a user without any rule. */
StoredSetup setupWithPower()
{
    StoredSetup setup;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.raceway.fuelSensorSetup = 1;
    setup.settings.setDisplayFuel(true);
    return setup;
}

/** Tanks that two short laps empty, the same for all. */
void enterSmallTanks(const DialogUser& user)
{
    user.enter("fuelFunction2", true);
    user.enter("tankSize", 10);
    user.enter("reserveLevel", 2);
    user.enter("maxFuelUsageAmount", 6);
    user.enter("refuelInterval", QTime(0, 0, 0, 20));
    user.enter("refuelAmount", 10);
}

bool isOn(const RunningProgram& program, int track)
{
    return program.powerText(track) == QStringLiteral("Spur &%1 ausschalten").arg(track);
}

} // namespace

/** What the user sets in the race settings counts in the next race of the running program. */
class tst_race_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startByLightsAfterATime();
    void whileBeforeGreenLiesInItsLimits_data();
    void whileBeforeGreenLiesInItsLimits();
    void flyingStart();
    void timeLimit();
    void lapLimitWithAllItsBoxes();
    void winnerIsTheOneOfTheRule_data();
    void winnerIsTheOneOfTheRule();
    void signalsAtTheEnd();
    void commonTanksEmptyAndFill();
    void reactionToAnEmptyTank_data();
    void reactionToAnEmptyTank();
    void tanksOfTheCars();
    void noFuel();
    void dataCapture_data();
    void dataCapture();
    void cancelledSettingsHaveNoEffect();
    void settingsOfOneOpeningShowInTheNext();
    void savedDefaultsAreThereInTheNextRun();
    void exportedRulesCanBeImportedAndRaced();
    void runningRaceLocksTheEntry();
};

void tst_race_settings::startByLightsAfterATime()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        user.enter("startTypeTimed", true);
        user.enter("startDelay", QTime(0, 0, 7));
    });
    QCOMPARE(program.infoText("startCondition"), QString("Start in 00:07 Minuten"));
    QVERIFY(program.startRace());
    QStringList lights{program.lights()};
    for (int second = 0; second < 3; ++second) {
        program.letStartSecondPass();
        lights.append(program.lights());
    }
    QCOMPARE(lights, QStringList({"ooooo", "ooooo", "Roooo", "RRooo"}));
    program.cross(1);
    QCOMPARE(program.status(1), QString("frühstart"));
}

void tst_race_settings::whileBeforeGreenLiesInItsLimits_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<bool>("greenWithinTwoSeconds");
    QTest::newRow("short") << 500 << true;
    QTest::newRow("long") << 5000 << false;
}

/** The while is the minimum and, by chance, up to the maximum more. */
void tst_race_settings::whileBeforeGreenLiesInItsLimits()
{
    QFETCH(int, delay);
    QFETCH(bool, greenWithinTwoSeconds);
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [delay](const DialogUser& user) {
        user.enter("startTypeTimed", true);
        user.enter("startLightsMaxDelay", 5000);
        user.enter("startLightsMinDelay", delay);
        user.enter("startLightsMaxDelay", delay);
    });
    QVERIFY(program.startRace());
    for (int second = 0; second < 4; ++second)
        program.letStartSecondPass();
    QCOMPARE(program.lights(), QString("RRRRR"));
    const bool green = QTest::qWaitFor([&] { return program.lights() == "GGGGG"; }, 2000);
    QCOMPARE(green, greenWithinTwoSeconds);
}

void tst_race_settings::flyingStart()
{
    StoredSetup setup;
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) { user.enter("startTypeNone", true); });
    QCOMPARE(program.infoText("startCondition"), QString("fliegender Start"));
    QVERIFY(program.startRace());
    QCOMPARE(program.lights(), QString("GGGGG"));
}

void tst_race_settings::timeLimit()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        user.enter("endTypeTime", true);
        user.enter("endTime", QTime(0, 0, 1));
    });
    QCOMPARE(program.infoText("endCondition"), QString("Zeitlimit 00:00:01"));
    QVERIFY(program.startRace());
    QTRY_COMPARE(program.statuses(), QStringList({"beendet", "beendet"}));
}

void tst_race_settings::lapLimitWithAllItsBoxes()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 2);
        user.enter("allMaxRounds", true);
        user.enter("maxRoundsStopCounting", true);
        user.enter("lapsCountDown", true);
    });
    QCOMPARE(program.infoText("endCondition"), QString("Ende nach 2 Runden"));
    QVERIFY(program.startRace());
    QCOMPARE(program.laps(1), QString("002"));
    for (const int track : {1, 1, 1, 2})
        program.cross(track);
    QCOMPARE(program.laps(1), QString("000"));
    QCOMPARE(program.statuses(), QStringList({"beendet", "läuft"}));
    program.cross(1);
    QCOMPARE(program.laps(1), QString("000"));
    program.cross(2);
    program.cross(2);
    QVERIFY(!program.statuses().contains("läuft"));

    inRaceSettings(program, [](const DialogUser& user) {
        user.enter("allMaxRounds", false);
        user.enter("lapsCountDown", false);
    });
    QVERIFY(program.startRace());
    for (const int track : {1, 2, 1, 1})
        program.cross(track);
    QCOMPARE(program.laps(1), QString("002"));
    QVERIFY(!program.statuses().contains("läuft")); // the first at the limit ends it
}

void tst_race_settings::winnerIsTheOneOfTheRule_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QTime>("target");
    QTest::addColumn<bool>("useTarget");
    QTest::addColumn<int>("ignoredLaps");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, const char* rule, const QString& result,
                        const QTime& target = QTime(0, 0, 10), bool useTarget = false, int ignoredLaps = 0) {
        QTest::newRow(name) << QString(rule) << target << useTarget << ignoredLaps << result;
    };
    row("most laps", "winningCondition0", "Die meisten Runden gefahren hat Anna.");
    row("fastest lap", "winningCondition1",
        "Die schnellste Runde war die 1. Runde von Ben mit einer Zeit von 00:09:000.");
    row("average", "winningCondition2",
        "Die beste Durchschnittszeit hatte Anna mit einer Zeit von 00:11:000.");
    row("lap at target", "winningCondition3",
        "Die siegreiche Runde war die 2. Runde mit einer Zeit von 00:14:000.", QTime(0, 0, 13, 500));
    row("average at target", "winningCondition4",
        "Fahrer 2 lag mit einer Durchschnittszeit von 00:11:500 am nächsten an der Zielzeit 00:11:600.",
        QTime(0, 0, 11, 600));
    row("consistent", "winningCondition5",
        "Fahrer 1 hat mit einer max. Abweichung von 00:02:000 gewonnen. Die schnellste Rundenzeit war "
        "00:10:000, die langsamste 00:12:000.");
    row("consistent but for one lap", "winningCondition5",
        "Fahrer 2 hat mit einer max. Abweichung von 00:00:000 gewonnen. Die schnellste Rundenzeit war "
        "00:09:000, die langsamste 00:09:000.",
        QTime(0, 0, 10), false, 1);
    row("consistent around the target", "winningCondition5",
        "Fahrer 1 hat mit einer max. Abweichung von 00:04:000 gewonnen. Die schnellste Rundenzeit war "
        "00:10:000, die langsamste 00:12:000.",
        QTime(0, 0, 14), true);
}

void tst_race_settings::winnerIsTheOneOfTheRule()
{
    QFETCH(QString, rule);
    QFETCH(QTime, target);
    QFETCH(bool, useTarget);
    QFETCH(int, ignoredLaps);
    QFETCH(QString, result);
    StoredSetup setup;
    setup.rules.setEndType(CRaceSettings::TimeLimit);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [&](const DialogUser& user) {
        user.enter(qPrintable(rule), true);
        user.enter("numOfWorstLapsToIgnore", ignoredLaps);
        user.enter("useTargetTime", useTarget);
        user.enter("winningTargetTime", target);
    });
    QVERIFY(program.startRace());
    drive(program, {{10000, 12000, 11000}, {9000, 14000}});
    program.letTimeRunOut();
    QCOMPARE(program.message(), result);
}

void tst_race_settings::signalsAtTheEnd()
{
    setupWithPower().write();
    RunningProgram program;
    for (const bool on : {true, false}) {
        inRaceSettings(program, [on](const DialogUser& user) {
            user.enter("redLightsOnRaceStopped", on);
            user.enter("leavePowerOnWhenRaceStopped", on);
        });
        QVERIFY(program.startRace());
        QVERIFY(isOn(program, 1));
        program.stopRace();
        QCOMPARE(program.lights(), QString(on ? "RRRRR" : "ooooo"));
        QCOMPARE(isOn(program, 1), on);
    }
}

void tst_race_settings::commonTanksEmptyAndFill()
{
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, enterSmallTanks);
    QVERIFY(program.startRace());
    QCOMPARE(program.fuel(1), 100);
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.fuel(1), 40);
    QCOMPARE(program.fuel(2), 100);
    program.hold("slot1Fuel");
    QTRY_COMPARE(program.fuel(1), 100);
    program.release("slot1Fuel");
}

void tst_race_settings::reactionToAnEmptyTank_data()
{
    QTest::addColumn<int>("reaction");
    QTest::newRow("laps don't count") << 0;
    QTest::newRow("power off") << 1;
    QTest::newRow("penalty") << 2;
    QTest::newRow("stutter") << 3;
}

void tst_race_settings::reactionToAnEmptyTank()
{
    QFETCH(int, reaction);
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [reaction](const DialogUser& user) {
        enterSmallTanks(user);
        user.enter(qPrintable(QStringLiteral("emptyFuelReaction%1").arg(reaction)), true);
        user.enter("emptyFuelPenaltyTime", QTime(0, 0, 30));
        user.enter("emptyFuelStutterFrequency", 10);
    });
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 3; ++crossing)
        program.cross(1);
    QCOMPARE(program.fuel(1), 0);
    QCOMPARE(isOn(program, 1), reaction != 1);
    program.cross(1);
    QCOMPARE(program.laps(1), QString(reaction == 0 ? "002" : "003"));
    QCOMPARE(RunningProgram::milliseconds(program.trackText(1, "lastLap")) > 30000, reaction == 2);
    if (reaction == 3) {
        QTRY_VERIFY(!isOn(program, 1));
        QTRY_VERIFY(isOn(program, 1));
    }
}

void tst_race_settings::tanksOfTheCars()
{
    setupWithPower().write();
    {
        CCarList cars;
        CCar car = cars.carAt(0);
        CFuelTank tank = car.fuelTank();
        tank.setTankSizeAndReserveLevel(20, 2);
        tank.setMaxUsage(5, CCarList::MaxUsageTime);
        car.setFuelTank(tank);
        cars.updateCar(0, car);
    }
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        enterSmallTanks(user);
        user.enter("fuelFunction1", true);
    });
    QVERIFY(program.startRace());
    program.cross(1);
    program.cross(1);
    QCOMPARE(program.fuel(1), 75);
}

void tst_race_settings::noFuel()
{
    StoredSetup setup = setupWithPower();
    CFuelSettings fuel = setup.rules.fuelSettings();
    fuel.setFuelFunction(CFuelSettings::FuelSameForAll);
    setup.rules.setFuelSettings(fuel);
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) { user.enter("fuelFunction0", true); });
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 4; ++crossing)
        program.cross(1);
    QCOMPARE(program.fuel(1), 100);
    QCOMPARE(program.laps(1), QString("003"));
}

void tst_race_settings::dataCapture_data()
{
    QTest::addColumn<bool>("distance");
    QTest::addColumn<bool>("fastestLap");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("distance") << true << false;
    QTest::newRow("fastest lap") << false << true;
}

void tst_race_settings::dataCapture()
{
    QFETCH(bool, distance);
    QFETCH(bool, fastestLap);
    StoredSetup setup(1);
    setup.raceway.tracks[0].length = 500;
    setup.write();
    RunningProgram program;
    inRaceSettings(program, [=](const DialogUser& user) {
        user.enter("monitorDistanceDriven", distance);
        user.enter("monitorFastestLap", fastestLap);
    });
    QVERIFY(program.startRace());
    drive(program, {{10000, 9000}});
    program.stopRace();
    DatabaseFile database;
    QCOMPARE(database.value("SELECT distanceDriven FROM cars"), QString(distance ? "1000" : "0"));
    QCOMPARE(database.rows("SELECT time FROM fastestLapTimes"),
             fastestLap ? QStringList("9000") : QStringList());
}

void tst_race_settings::cancelledSettingsHaveNoEffect()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(
        program, [](const DialogUser& user) { user.enter("startTypeTimed", true); }, "cancelButton");
    QCOMPARE(program.infoText("startCondition"), QString("fliegender Start"));
    QVERIFY(program.startRace());
    QCOMPARE(program.lights(), QString("GGGGG"));
}

void tst_race_settings::settingsOfOneOpeningShowInTheNext()
{
    StoredSetup().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        user.enter("winningCondition5", true);
        user.enter("numOfWorstLapsToIgnore", 4);
        user.enter("monitorFastestLap", true);
    });
    QVERIFY(program.startRace());
    program.stopRace();
    inRaceSettings(program, [](const DialogUser& user) {
        QCOMPARE(user.value("winningCondition5").toBool(), true);
        QCOMPARE(user.value("numOfWorstLapsToIgnore").toInt(), 4);
        QCOMPARE(user.value("monitorFastestLap").toBool(), true);
    });
}

void tst_race_settings::savedDefaultsAreThereInTheNextRun()
{
    StoredSetup().write();
    {
        RunningProgram program;
        inRaceSettings(program, [](const DialogUser& user) {
            user.enter("endTypeLaps", true);
            user.enter("numberOfLaps", 33);
            user.enter("saveAsDefaults", true);
        });
        inRaceSettings(program, [](const DialogUser& user) { user.enter("numberOfLaps", 44); });
        QCOMPARE(program.infoText("endCondition"), QString("Ende nach 44 Runden"));
    }
    RunningProgram program;
    QCOMPARE(program.infoText("endCondition"), QString("Ende nach 33 Runden"));
    // The drivers of the panels were saved with the rules.
    QCOMPARE(program.track(2)->driverName(), QString("Ben"));
}

void tst_race_settings::exportedRulesCanBeImportedAndRaced()
{
    StoredSetup().write();
    QFile::remove("two-laps.rsf");
    RunningProgram program;
    const auto enterAndExport = [&program](const DialogUser& user) {
        answerFileBoxes(program, "two-laps.rsf");
        user.enter("endTypeLaps", true);
        user.enter("numberOfLaps", 2);
        user.press("exportButton");
    };
    inRaceSettings(program, enterAndExport, "cancelButton");
    QVERIFY(QFile::exists("two-laps.rsf"));
    QCOMPARE(program.infoText("endCondition"), QString("keine Endebedingung"));
    inRaceSettings(program, [](const DialogUser& user) { user.press("importButton"); });
    QCOMPARE(program.infoText("endCondition"), QString("Ende nach 2 Runden"));
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 3; ++crossing)
        program.cross(1);
    QCOMPARE(program.menuText(CMainMenu::QuickRace), QString("&schnelles Rennen starten"));
}

void tst_race_settings::runningRaceLocksTheEntry()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    const ModalAnswers answers; // nothing may open
    program.pressKey(Qt::Key_R, Qt::ControlModifier);
    QVERIFY(!program.menu()->action(CMainMenu::RaceSettings)->isEnabled());
    program.stopRace();
    QVERIFY(program.menu()->action(CMainMenu::RaceSettings)->isEnabled());
}

QTEST_APPLESS_MAIN(tst_race_settings)
#include "tst_race_settings.moc"
