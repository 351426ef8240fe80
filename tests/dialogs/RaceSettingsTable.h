#ifndef TORNIK_TESTS_DIALOGS_RACESETTINGSTABLE_H
#define TORNIK_TESTS_DIALOGS_RACESETTINGSTABLE_H

#include "dialogs/ControlTable.h"
#include "dialogs/RaceSettingsFixture.h"

/** Every control of the race settings: its text, range, first value, rule and field. */
namespace RaceSettingsTable {

using Rules = CRaceSettings;
using Fuel = CFuelSettings;
using Table = ControlTable<CRaceSettings>;

/** A change of one value. */
template <typename Value>
Change to(void (CRaceSettings::*set)(Value), const std::decay_t<Value>& value)
{
    return [set, value](CRaceSettings& rules) { (rules.*set)(value); };
}

inline Change both(const Change& one, const Change& other)
{
    return [one, other](CRaceSettings& rules) {
        one(rules);
        other(rules);
    };
}

inline void addStart(Table& table)
{
    const auto isTimed = [](const Rules& rules) { return rules.startType() == Rules::TimedStart; };
    const Change timed = to(&Rules::setStartType, int(Rules::TimedStart));
    const QString lightDelay = "ms warten bevor die Ampel von Rot auf Grün umschaltet";
    table.place("Start/Ende", "Startbedingung");
    table.radio("startTypeNone", "Keine")
        .shows(true)
        .from(timed)
        .takes(true, to(&Rules::setStartType, int(Rules::FlyingStart)));
    table.radio("startTypeTimed", "Start in ").takes(true, timed);
    table.time("startDelay", "", "mm:ss", QTime(0, 0, 5), QTime(0, 10), "Minuten")
        .shows(QTime(0, 0, 5))
        .when(isTimed)
        .from(timed)
        .takes(QTime(0, 1, 30), to(&Rules::setStartDelay, QTime(0, 1, 30)));
    table.number("startLightsMinDelay", "Minimum", "500 to 5000", lightDelay)
        .shows(500)
        .when(isTimed)
        .from(timed)
        .takes(700, to(&Rules::setStartLightsMinDelay, 700U));
    table.number("startLightsMaxDelay", "Maximum", "500 to 5000", lightDelay)
        .shows(2500)
        .when(isTimed)
        .from(timed)
        .takes(4200, to(&Rules::setStartLightsMaxDelay, 4200U));
}

inline void addEnd(Table& table)
{
    const auto isTimeLimit = [](const Rules& rules) { return rules.endType() == Rules::TimeLimit; };
    const auto isLapLimit = [](const Rules& rules) { return rules.endType() == Rules::LapLimit; };
    const Change timeLimit = to(&Rules::setEndType, int(Rules::TimeLimit));
    const Change lapLimit = to(&Rules::setEndType, int(Rules::LapLimit));
    table.place("Start/Ende", "Endebedingung");
    table.radio("endTypeNone", "Keine")
        .shows(true)
        .from(lapLimit)
        .takes(true, to(&Rules::setEndType, int(Rules::NoEnd)));
    table.radio("endTypeTime", "Ende nach ").takes(true, timeLimit);
    table.time("endTime", "", "hh:mm:ss", QTime(0, 0), QTime(23, 59, 59), "Stunden")
        .shows(QTime(0, 5))
        .when(isTimeLimit)
        .from(timeLimit)
        .takes(QTime(1, 2, 3), to(&Rules::setEndTime, QTime(1, 2, 3)));
    table.radio("endTypeLaps", "Ende nach ").takes(true, lapLimit);
    table.number("numberOfLaps", "", "1 to 9999", "Runden")
        .shows(10)
        .when(isLapLimit)
        .from(lapLimit)
        .takes(1234, to(&Rules::setNumberOfLaps, 1234));
    table.check("allMaxRounds", "auf allen Spuren")
        .when(isLapLimit)
        .from(lapLimit)
        .takes(true, to(&Rules::setAllMaxRounds, true));
    table.check("maxRoundsStopCounting", "bei erreichen der max. Runden Spurzähler anhalten")
        .when(isLapLimit)
        .from(lapLimit)
        .takes(true, to(&Rules::setMaxRoundsStopCounting, true));
    table.check("lapsCountDown", "Runden abwärts zählen")
        .when(isLapLimit)
        .from(lapLimit)
        .takes(true, to(&Rules::setLapsCountDown, true));
}

inline bool needsTargetTime(const CRaceSettings& rules)
{
    const int condition = rules.winningCondition();
    return condition == 4 || condition == 5 || (condition == 6 && rules.useTargetTime());
}

inline void addWinner(Table& table)
{
    const auto isConsistent = [](const Rules& rules) { return rules.winningCondition() == 6; };
    const Change consistent = to(&Rules::setWinningCondition, 6);
    const QStringList texts{"die meisten gefahrenen Runden",
                            "die schnellste Runde",
                            "die beste Durchschnittszeit",
                            "eine Rundenzeit möglichst nahe der Zielzeit",
                            "die Durchschnittszeit möglichst nahe der Zielzeit",
                            "die konsistentesten Rundenzeiten, ignoriere die schlechtesten "};
    table.place("Start/Ende", "Siegbedingung");
    for (int id = 0; id < texts.size(); ++id)
        table.radio(QStringLiteral("winningCondition%1").arg(id), texts[id])
            .shows(id == 0)
            .from(to(&Rules::setWinningCondition, id == 0 ? 2 : 1))
            .takes(true, to(&Rules::setWinningCondition, id + 1));
    table.number("numOfWorstLapsToIgnore", "", "0 to 999", "Runden")
        .shows(0)
        .when(isConsistent)
        .from(consistent)
        .takes(3, to(&Rules::setNumOfWorstLapsToIgnore, 3));
    table.check("useTargetTime", "Zielzeit verwenden")
        .when(isConsistent)
        .from(consistent)
        .takes(true, to(&Rules::setUseTargetTime, true));
    table.lapTime("winningTargetTime", "verwendete Zielzeit (im Format mm:ss:zzz): ", "Minuten")
        .shows(QTime(0, 0, 10))
        .when(needsTargetTime)
        .from(to(&Rules::setWinningCondition, 4))
        .takes(QTime(0, 0, 8, 531), to(&Rules::setWinningTargetTime, QTime(0, 0, 8, 531)));
}

inline void addSignals(Table& table)
{
    table.place("Start/Ende", "Signalsteuerung");
    table.check("redLightsOnRaceStopped", "Ampel auf rot schalten bei Rennende")
        .takes(true, to(&Rules::setRedLightsOnRaceStopped, true));
    table.check("leavePowerOnWhenRaceStopped", "Bahnstrom angeschaltet lassen bei Rennende")
        .takes(true, to(&Rules::setLeavePowerOnWhenRaceStopped, true));
}

inline void addFuelFunction(Table& table)
{
    table.place("Tankfunktion", "Tankfunktion");
    table.radio("fuelFunction0", "Keine Tankfunktion oder Tankfunktion durch Control Unit gesteuert")
        .shows(true)
        .from(fuel(&Fuel::setFuelFunction, 2))
        .takes(true, fuel(&Fuel::setFuelFunction, 0));
    table.radio("fuelFunction1", "Fahrzeugspezifische Tankeinstellungen verwenden")
        .takes(true, fuel(&Fuel::setFuelFunction, 1));
    table.radio("fuelFunction2", "Tankeinstellungen für alle gleich")
        .takes(true, fuel(&Fuel::setFuelFunction, 2));
}

/** What the race says whosever tank it is. */
inline void addRaceRows(Table& table)
{
    const auto hasFuel = [](const Rules& rules) { return rules.fuelSettings().fuelFunction() != 0; };
    const Change ofEachCar = fuel(&Fuel::setFuelFunction, 1);
    const QTime interval(0, 0, 1, 250);
    const QTime slow(0, 1, 0, 7);
    const QTime fast(0, 0, 3, 21);
    table.place("Tankfunktion", "Tankeinstellungen");
    table
        .time("refuelInterval", "Zeitintervall beim Tanken (im Format s:zzz): ", "s:zzz", QTime(0, 0),
              QTime(0, 0, 9, 999))
        .shows(QTime(0, 0, 0, 500))
        .when(hasFuel)
        .from(ofEachCar)
        .takes(interval, fuel<const QTime&>(&Fuel::setRefuelInterval, interval));
    table.amount("refuelAmount", "Füllmenge pro Zeitintervall beim Tanken:")
        .shows(20.0)
        .when(hasFuel)
        .from(ofEachCar)
        .takes(12.5, fuel(&Fuel::setRefuelAmount, 12.5));
    table.lapTime("minFuelUsageTime", "Rundenzeit für minimalen Verbrauch (im Format mm:ss:zzz):")
        .shows(QTime(0, 0, 7, 500))
        .when(hasFuel)
        .from(ofEachCar)
        .takes(slow, fuel<const QTime&>(&Fuel::setMinFuelUsageTime, slow));
    table.lapTime("maxFuelUsageTime", "Rundenzeit für maximalen Verbrauch (im Format mm:ss:zzz):")
        .shows(QTime(0, 0, 4, 500))
        .when(hasFuel)
        .from(ofEachCar)
        .takes(fast, fuel<const QTime&>(&Fuel::setMaxFuelUsageTime, fast));
}

/** What a car's own tank has instead. */
inline void addTankRows(Table& table)
{
    const auto isCommon = [](const Rules& rules) { return rules.fuelSettings().fuelFunction() == 2; };
    const Change common = fuel(&Fuel::setFuelFunction, 2);
    table.amount("minFuelUsageAmount", "Minimaler Verbrauch pro Runde:")
        .shows(1.0)
        .when(isCommon)
        .from(common)
        .takes(0.3, fuel(&Fuel::setMinFuelUsageAmount, 0.3));
    table.amount("maxFuelUsageAmount", "Maximaler Verbrauch pro Runde:")
        .shows(5.0)
        .when(isCommon)
        .from(common)
        .takes(7.25, fuel(&Fuel::setMaxFuelUsageAmount, 7.25));
    table.amount("tankSize", "Größe des Tanks:")
        .shows(20.0)
        .when(isCommon)
        .from(common)
        .takes(999.99, fuel(&Fuel::setTankSize, 999.99));
    table.amount("reserveLevel", "Warnschwelle Tankreserve:")
        .shows(20.0)
        .when(isCommon)
        .from(common)
        .takes(33.3, fuel(&Fuel::setReserveLevel, 33.3));
    table.otherTexts = QStringList{"Solange ein Fahrzeug beim Tanken steht, kommt nach jedem Zeitintervall "
                                   "die Füllmenge hinzu, bis der Tank voll ist.",
                                   "Der Verbrauch steigt zwischen den beiden Rundenzeiten linear vom "
                                   "minimalen zum maximalen an; darüber und darunter bleibt er gleich."};
}

/** Whether a reaction can be chosen. */
inline bool canReact(const CRaceSettings& rules, int reaction)
{
    const bool needsPower = reaction == 1 || reaction == 3;
    return rules.fuelSettings().fuelFunction() != 0 &&
           (!needsPower || rules.raceway().pwrOffFeatureAvailable);
}

inline void addReactions(Table& table)
{
    const auto reaction = [](int which) {
        return both(fuel(&Fuel::setFuelFunction, 2), fuel(&Fuel::setEmptyFuelReaction, which));
    };
    const auto reactsBy = [](int which) {
        return [which](const Rules& rules) {
            return canReact(rules, which) && rules.fuelSettings().emptyFuelReaction() == which;
        };
    };
    const QStringList texts{"Runden nicht zählen", "Spurabschaltung",
                            "Zeitstrafe pro Runde:", "Stottern mit Frequenz:"};
    const QTime penalty(0, 0, 2, 500);
    table.place("Tankfunktion", "Reaktion bei leerem Tank");
    for (int id = 0; id < texts.size(); ++id)
        table.radio(QStringLiteral("emptyFuelReaction%1").arg(id), texts[id])
            .shows(id == 0)
            .when([id](const Rules& rules) { return canReact(rules, id); })
            .from(reaction(id == 0 ? 2 : 0))
            .takes(true, fuel(&Fuel::setEmptyFuelReaction, id));
    table.lapTime("emptyFuelPenaltyTime", "", "Minuten")
        .shows(QTime(0, 0, 5))
        .when(reactsBy(2))
        .from(reaction(2))
        .takes(penalty, fuel<const QTime&>(&Fuel::setEmptyFuelPenaltyTime, penalty));
    table.slider("emptyFuelStutterFrequency", "1 to 10, tick each 1", "5Hz")
        .shows(5)
        .when(reactsBy(3))
        .from(reaction(3))
        .takes(8, fuel(&Fuel::setEmptyFuelStutterFrequency, 8));
}

inline void addDataAndButtons(Table& table)
{
    table.place("Datenerfassung", "Fahrzeugbezogene Datenerfassung");
    table.check("monitorDistanceDriven", "gefahrene Strecke je Fahrzeug erfassen")
        .takes(true, to(&Rules::setMonitorDistanceDriven, true));
    table.check("monitorFastestLap", "schnellste Rundenzeit erfassen")
        .takes(true, to(&Rules::setMonitorFastestLap, true));
    table.place(QString());
    table.push("okButton", "&Ok");
    table.push("cancelButton", "&Abbrechen");
    table.push("defaultsButton", "&Standard laden");
    table.push("exportButton", "&Exportiern");
    table.push("importButton", "&Importieren");
    table.check("saveAsDefaults", "Diese Einstellungen als Standardeinstellungen speichern");
}

inline Table all()
{
    Table table;
    addStart(table);
    addEnd(table);
    addWinner(table);
    addSignals(table);
    addFuelFunction(table);
    addRaceRows(table);
    addTankRows(table);
    addReactions(table);
    addDataAndButtons(table);
    return table;
}

} // namespace RaceSettingsTable

#endif
