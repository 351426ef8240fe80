#include "data/CCarList.h"
#include "race/CRace.h"
#include "race/CRaceMember.h"
#include "support/RunningProgram.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"

namespace {

constexpr int Lap = 6000; ///< milliseconds, driven on stamps

/** A raceway that can switch power, with a refuelling sensor, for a user without any rule. */
StoredSetup setupWithPower()
{
    StoredSetup setup;
    setup.raceway.pwrOffFeatureAvailable = true;
    setup.raceway.fuelSensorSetup = 1;
    setup.settings.setDisplayFuel(true);
    return setup;
}

/** The same tank for all: ten units for a lap of six seconds or less, two for one of eight or more. */
void enterTank(const DialogUser& user)
{
    user.enter("fuelFunction2", true);
    user.enter("tankSize", 100);
    user.enter("reserveLevel", 20);
    user.enter("maxFuelUsageAmount", 10);
    user.enter("maxFuelUsageTime", QTime(0, 0, 6));
    user.enter("minFuelUsageAmount", 2);
    user.enter("minFuelUsageTime", QTime(0, 0, 8));
}

/** A tank that one lap leaves with a tenth, and two laps empty. */
void enterThirstyTank(const DialogUser& user)
{
    enterTank(user);
    user.enter("maxFuelUsageAmount", 90);
}

/** @return the levels of track 1, in percent, behind each lap. */
QVector<int> levelsBehind(RunningProgram& program, const QVector<int>& laps)
{
    QVector<int> levels;
    for (const int lap : laps) {
        program.driveLaps({{lap}});
        levels.append(program.fuel(1));
    }
    return levels;
}

/** Opens the editor of the car of track 1 from the settings, and lets the user work there. */
void inCarEditor(RunningProgram& program, const std::function<void(const DialogUser&)>& work)
{
    inSettings(program, [work](const DialogUser& user, ModalAnswers& answers) {
        answers.expect([work](QDialog* window) {
            const DialogUser editor(window);
            work(editor);
            editor.press("okButton");
        });
        user.selectRow("carTree", 0);
        user.press("editCar");
    });
}

/** Notes how the level of track 1 rises, and when for the first time. */
class FillingWatch : public QObject
{
public:
    explicit FillingWatch(const RunningProgram& program) : m_level(program.fuel(1))
    {
        m_sinceBegin.start();
        connect(&program.race(), &CRace::RaceEventHappened, this, &FillingWatch::note);
    }

    const QVector<int>& levels() const { return m_levels; }
    qint64 firstRise() const { return m_firstRise; }

private:
    void note(const CRaceEvent& event)
    {
        if (event.type != CRaceEvent::MemberChanged || event.track != 0 || event.fuelPercent == m_level)
            return;
        if (m_levels.isEmpty())
            m_firstRise = m_sinceBegin.elapsed();
        m_level = event.fuelPercent;
        m_levels.append(m_level);
    }

    int m_level;
    QElapsedTimer m_sinceBegin;
    qint64 m_firstRise = 0;
    QVector<int> m_levels;
};

/** Notes when the power of track 1 is switched. */
class PowerWatch : public QObject
{
public:
    explicit PowerWatch(const CRace& race)
    {
        m_clock.start();
        connect(&race, &CRace::trackPowerStateChanged, this, [this](int track) {
            if (track == 0)
                m_times.append(m_clock.elapsed());
        });
    }

    /** @return milliseconds since this watch began. */
    const QVector<qint64>& times() const { return m_times; }
    qint64 shortestPause() const
    {
        qint64 shortest = m_times.size() > 1 ? m_times[1] - m_times[0] : 1000000;
        for (int change = 2; change < m_times.size(); ++change)
            shortest = qMin(shortest, m_times[change] - m_times[change - 1]);
        return shortest;
    }

private:
    QElapsedTimer m_clock;
    QVector<qint64> m_times;
};

} // namespace

/** What each control of the tab for fuel does to the next race of the running program. */
class tst_effects_fuel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lapsConsumeByTheirTime_data();
    void lapsConsumeByTheirTime();
    void lapsConsumeWhatTheFunctionSays_data();
    void lapsConsumeWhatTheFunctionSays();
    void tankOfTheCarEditorIsThatOfTheNextRace();
    void distanceOfTheCarEditorIsDrivenOn();
    void reserveBeginsBelowItsLevel_data();
    void reserveBeginsBelowItsLevel();
    void refuellingAddsItsAmount_data();
    void refuellingAddsItsAmount();
    void refuellingTakesItsInterval_data();
    void refuellingTakesItsInterval();
    void emptyTankHasItsReaction_data();
    void emptyTankHasItsReaction();
    void penaltyIsAddedToTheLap_data();
    void penaltyIsAddedToTheLap();
    void slowStutter();
    void fastStutter();
};

void tst_effects_fuel::lapsConsumeByTheirTime_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVector<int>>("levels"); // behind laps of 6, 7 and 8 seconds
    const auto row = [](const char* name, const char* control, const QVariant& value,
                        const QVector<int>& levels) {
        QTest::newRow(name) << QString(control) << value << levels;
    };
    row("as entered", "tankSize", 100, {90, 84, 82});
    row("size of the tank", "tankSize", 50, {80, 68, 64});
    row("greatest consumption", "maxFuelUsageAmount", 20, {80, 69, 67});
    row("least consumption", "minFuelUsageAmount", 6, {90, 82, 76});
    row("lap time of the greatest consumption", "maxFuelUsageTime", QTime(0, 0, 7), {90, 80, 78});
    row("lap time of the least consumption", "minFuelUsageTime", QTime(0, 0, 7), {90, 88, 86});
    row("no lap is fast or slow enough to matter", "minFuelUsageTime", QTime(0, 59, 59), {90, 80, 70});
}

void tst_effects_fuel::lapsConsumeByTheirTime()
{
    QFETCH(QString, control);
    QFETCH(QVariant, value);
    QFETCH(QVector<int>, levels);
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [&](const DialogUser& user) {
        enterTank(user);
        user.enter(qPrintable(control), value);
    });
    QVERIFY(program.startRace());
    QCOMPARE(program.fuel(1), 100);
    QCOMPARE(levelsBehind(program, {6000, 7000, 8000}), levels);
    QCOMPARE(program.fuel(2), 100);
}

void tst_effects_fuel::lapsConsumeWhatTheFunctionSays_data()
{
    QTest::addColumn<QVector<int>>("levels"); // behind two laps of six seconds
    QTest::newRow("fuelFunction0") << QVector<int>{100, 100};
    QTest::newRow("fuelFunction1") << QVector<int>{70, 40};
    QTest::newRow("fuelFunction2") << QVector<int>{90, 80};
}

/** A car has lap times of consumption of its own, whatever is entered. */
void tst_effects_fuel::lapsConsumeWhatTheFunctionSays()
{
    QFETCH(QVector<int>, levels);
    StoredSetup setup = setupWithPower();
    CFuelSettings fuel;
    fuel.setFuelFunction(QByteArray(QTest::currentDataTag()) == "fuelFunction0" ? 2 : 0);
    setup.rules.setFuelSettings(fuel);
    setup.write();
    {
        CCarList cars;
        CCar car = cars.carAt(0);
        CFuelTank tank = car.fuelTank();
        tank.setTankSizeAndReserveLevel(10, 2);
        tank.setMaxUsage(3, CCarList::MaxUsageTime);
        tank.setMinUsage(3, CCarList::MinUsageTime);
        car.setFuelTank(tank);
        cars.updateCar(0, car);
    }
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        enterTank(user);
        user.enter(QTest::currentDataTag(), true);
    });
    QVERIFY(program.startRace());
    QCOMPARE(levelsBehind(program, {Lap, Lap}), levels);
}

void tst_effects_fuel::tankOfTheCarEditorIsThatOfTheNextRace()
{
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) { user.enter("fuelFunction1", true); });
    QVector<int> reserveBehind;
    int laps = 0;
    const QObject watch;
    connect(&program.race(), &CRace::RaceEventHappened, &watch, [&](const CRaceEvent& event) {
        if (event.type == CRaceEvent::TankOnReserve && event.track == 0)
            reserveBehind.append(laps);
    });
    // The consumption of 5.5 seconds lies in the middle between that of 1 and that of 10 seconds.
    for (const auto& [greatest, levels] :
         {std::pair(3, QVector<int>{80, 60, 40}), std::pair(7, QVector<int>{60, 20, 0})}) {
        inCarEditor(program, [greatest = greatest](const DialogUser& editor) {
            editor.enter("tankSize", 10);
            editor.enter("reserveLevel", 5);
            editor.enter("minUsage", 1);
            editor.enter("maxUsage", greatest);
        });
        QVERIFY(program.startRace());
        reserveBehind.clear();
        QVector<int> shown;
        for (laps = 1; laps <= 3; ++laps)
            shown += levelsBehind(program, {5500});
        program.stopRace();
        QCOMPARE(shown, levels);
        QCOMPARE(reserveBehind.value(0), greatest == 3 ? 3 : 2);
    }
}

void tst_effects_fuel::distanceOfTheCarEditorIsDrivenOn()
{
    StoredSetup setup(1);
    setup.raceway.tracks[0].length = 500;
    setup.rules.setMonitorDistanceDriven(true);
    setup.write();
    RunningProgram program;
    inCarEditor(program, [](const DialogUser& editor) {
        editor.press("changeDistance");
        editor.enter("distanceDriven", "70000");
    });
    QVERIFY(program.startRace());
    program.driveLaps({{Lap, Lap}});
    program.stopRace();
    QCOMPARE(CCarList().carAt(0).distanceDriven(), 71000);
}

void tst_effects_fuel::reserveBeginsBelowItsLevel_data()
{
    QTest::addColumn<double>("reserve");
    QTest::addColumn<QVector<int>>("reports"); // behind each of three laps
    QTest::newRow("more than the tank holds") << 200.0 << QVector<int>{1, 2, 3};
    QTest::newRow("the level itself is not below") << 90.0 << QVector<int>{0, 1, 2};
    QTest::newRow("behind the third lap") << 75.0 << QVector<int>{0, 0, 1};
    QTest::newRow("least") << 0.1 << QVector<int>{0, 0, 0};
}

void tst_effects_fuel::reserveBeginsBelowItsLevel()
{
    QFETCH(double, reserve);
    QFETCH(QVector<int>, reports);
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [reserve](const DialogUser& user) {
        enterTank(user);
        user.enter("reserveLevel", reserve);
    });
    int told = 0;
    const QObject watch;
    connect(&program.race(), &CRace::RaceEventHappened, &watch, [&told](const CRaceEvent& event) {
        if (event.type == CRaceEvent::TankOnReserve)
            ++told;
    });
    QVERIFY(program.startRace());
    QVector<int> toldBehind;
    for (int lap = 0; lap < 3; ++lap) {
        program.driveLaps({{Lap}});
        toldBehind.append(told);
    }
    QCOMPARE(toldBehind, reports);
}

void tst_effects_fuel::refuellingAddsItsAmount_data()
{
    QTest::addColumn<int>("amount");
    QTest::addColumn<QVector<int>>("levels");
    QTest::newRow("seven") << 7 << QVector<int>{17, 24, 31};
    QTest::newRow("thirty") << 30 << QVector<int>{40, 70, 100};
    QTest::newRow("more than the tank holds") << 999 << QVector<int>{100};
}

void tst_effects_fuel::refuellingAddsItsAmount()
{
    QFETCH(int, amount);
    QFETCH(QVector<int>, levels);
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [amount](const DialogUser& user) {
        enterThirstyTank(user);
        user.enter("refuelInterval", QTime(0, 0, 0, 20));
        user.enter("refuelAmount", amount);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{Lap}});
    QCOMPARE(program.fuel(1), 10);
    const FillingWatch filling(program);
    program.hold("slot1Fuel");
    QTRY_VERIFY(filling.levels().size() >= levels.size());
    program.release("slot1Fuel");
    QCOMPARE(filling.levels().mid(0, levels.size()), levels);
}

void tst_effects_fuel::refuellingTakesItsInterval_data()
{
    QTest::addColumn<QTime>("interval");
    QTest::addColumn<int>("ticksToWaitFor"); // they would take too long at any longer interval
    QTest::newRow("short") << QTime(0, 0, 0, 20) << 15;
    QTest::newRow("long") << QTime(0, 0, 0, 900) << 1;
}

void tst_effects_fuel::refuellingTakesItsInterval()
{
    QFETCH(QTime, interval);
    QFETCH(int, ticksToWaitFor);
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [interval](const DialogUser& user) {
        enterThirstyTank(user);
        user.enter("refuelInterval", interval);
        user.enter("refuelAmount", 1);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{Lap}});
    const FillingWatch filling(program);
    program.hold("slot1Fuel");
    QTRY_VERIFY(filling.levels().size() >= ticksToWaitFor);
    program.release("slot1Fuel");
    QVERIFY(filling.firstRise() >= interval.msecsSinceStartOfDay() * 9 / 10); // a timer may be early
}

void tst_effects_fuel::emptyTankHasItsReaction_data()
{
    QTest::addColumn<QString>("laps");
    QTest::addColumn<bool>("powerIsOff");
    QTest::addColumn<int>("lastLap");
    QTest::addColumn<bool>("stutters");
    QTest::newRow("emptyFuelReaction0") << "002" << false << Lap << false;
    QTest::newRow("emptyFuelReaction1") << "003" << true << Lap + 1000 << false;
    QTest::newRow("emptyFuelReaction2") << "003" << false << Lap + 1000 + 30000 << false;
    QTest::newRow("emptyFuelReaction3") << "003" << false << Lap + 1000 << true;
}

void tst_effects_fuel::emptyTankHasItsReaction()
{
    QFETCH(QString, laps);
    QFETCH(bool, powerIsOff);
    QFETCH(int, lastLap);
    QFETCH(bool, stutters);
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [](const DialogUser& user) {
        enterThirstyTank(user);
        user.enter("emptyFuelReaction2", true);
        user.enter("emptyFuelPenaltyTime", QTime(0, 0, 30));
        user.enter("emptyFuelReaction0", true);
        user.enter(QTest::currentDataTag(), true);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{Lap, Lap}});
    QCOMPARE(program.fuel(1), 0);
    const PowerWatch power(program.race());
    program.driveLaps({{Lap + 1000}});
    QCOMPARE(program.laps(1), laps);
    QCOMPARE(program.trackText(1, "lastLap"), RunningProgram::timeText(lastLap));
    QCOMPARE(program.powerText(1), QString(powerIsOff ? "Spur &1 einschalten" : "Spur &1 ausschalten"));
    QCOMPARE(program.powerText(2), QString("Spur &2 ausschalten"));
    QCOMPARE(power.times().size(), powerIsOff ? 1 : 0); // switched off once more
    if (stutters)
        QTRY_VERIFY(power.times().size() >= 2);
    else
        QVERIFY(!QTest::qWaitFor([&] { return power.times().size() >= 2; }, 250));
}

void tst_effects_fuel::penaltyIsAddedToTheLap_data()
{
    QTest::addColumn<QTime>("penalty");
    QTest::addColumn<QString>("lastLap");
    QTest::newRow("none") << QTime(0, 0) << "00:06:000";
    QTest::newRow("milliseconds") << QTime(0, 0, 2, 345) << "00:08:345";
    QTest::newRow("minutes") << QTime(0, 50, 7) << "50:13:000";
}

void tst_effects_fuel::penaltyIsAddedToTheLap()
{
    QFETCH(QTime, penalty);
    QFETCH(QString, lastLap);
    setupWithPower().write();
    RunningProgram program;
    inRaceSettings(program, [penalty](const DialogUser& user) {
        enterThirstyTank(user);
        user.enter("emptyFuelReaction2", true);
        user.enter("emptyFuelPenaltyTime", penalty);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{Lap, Lap}});
    QCOMPARE(program.trackText(1, "lastLap"), QString("00:06:000"));
    program.driveLaps({{Lap}});
    QCOMPARE(program.trackText(1, "lastLap"), lastLap);
}

namespace {

/** Enters a frequency of the stutter and drives all laps but the one that empties the tank. */
void driveUntilOneLapIsLeft(RunningProgram& program, int frequency)
{
    inRaceSettings(program, [frequency](const DialogUser& user) {
        enterThirstyTank(user);
        user.enter("emptyFuelReaction3", true);
        user.enter("emptyFuelStutterFrequency", frequency);
    });
    QVERIFY(program.startRace());
    program.driveLaps({{Lap}});
}

} // namespace

void tst_effects_fuel::slowStutter()
{
    setupWithPower().write();
    RunningProgram program;
    driveUntilOneLapIsLeft(program, 1);
    const PowerWatch power(program.race());
    program.driveLaps({{Lap}});
    QTRY_COMPARE(power.times().size(), 2);
    QVERIFY2(power.times().at(1) >= 2 * 900, qPrintable(QString::number(power.times().at(1))));
}

void tst_effects_fuel::fastStutter()
{
    setupWithPower().write();
    RunningProgram program;
    driveUntilOneLapIsLeft(program, 10);
    const PowerWatch power(program.race());
    program.driveLaps({{Lap}});
    QTRY_VERIFY(power.shortestPause() < 130);
}

QTEST_APPLESS_MAIN(tst_effects_fuel)
#include "tst_effects_fuel.moc"
