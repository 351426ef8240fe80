#include "race/CRaceSettings.h"
#include "race/CWinningCondition.h"
#include "support/RaceMembers.h"

#include <QtTest>

#include <limits>

using TestSupport::membersWithLaps;
using Condition = std::unique_ptr<CWinningCondition>;

namespace {

enum Rule
{
    Nobody = 0,
    NumOfLaps = 1,
    FastestLap = 2,
    LowestAvgTime = 3,
    ClosestToTargetTime = 4,
    AverageClosestToTargetTime = 5,
    MostConstantTimes = 6
};

CRaceSettings settingsOf(int rule)
{
    CRaceSettings settings;
    settings.setWinningCondition(rule);
    settings.setWinningTargetTime(QTime(0, 0, 10));
    return settings;
}

CRaceSettings lapsWithLimit(int numberOfLaps)
{
    CRaceSettings settings = settingsOf(NumOfLaps);
    settings.setEndType(CRaceSettings::LapLimit);
    settings.setNumberOfLaps(numberOfLaps);
    return settings;
}

CRaceSettings constancy(int lapsToIgnore)
{
    CRaceSettings settings = settingsOf(MostConstantTimes);
    settings.setNumOfWorstLapsToIgnore(lapsToIgnore);
    return settings;
}

CRaceSettings constancyAroundTarget(int lapsToIgnore, const QTime& target = QTime(0, 0, 10))
{
    CRaceSettings settings = constancy(lapsToIgnore);
    settings.setUseTargetTime(true);
    settings.setWinningTargetTime(target);
    return settings;
}

Condition decide(const CRaceSettings& settings, const CRaceMembers& members)
{
    Condition condition = createWinningCondition(settings, &members);
    condition->update();
    condition->determineWinner();
    return condition;
}

/** @return the tracks, from 0, with the status Winner. */
QList<int> winners(const CRaceMembers& members)
{
    QList<int> tracks;
    for (const auto& member : members) {
        if (member->status() == CRaceMemberStatus::Winner)
            tracks << member->trackIndex();
    }
    return tracks;
}

QString constancyText(int driver, const QString& deviation, const QString& fastest, const QString& slowest)
{
    return QStringLiteral("Fahrer %1 hat mit einer max. Abweichung von %2 gewonnen. "
                          "Die schnellste Rundenzeit war %3, die langsamste %4.")
        .arg(QString::number(driver), deviation, fastest, slowest);
}

} // namespace

class tst_CWinningCondition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsChooseTheRule_data();
    void settingsChooseTheRule();
    void descriptions_data();
    void descriptions();
    void everyRuleSurvivesARaceWithoutMembers_data();
    void everyRuleSurvivesARaceWithoutMembers();
    void absoluteDifferences();

    void noneNamesNoWinner();

    void mostLapsWins();
    void mostLapsTieGoesToTheLowerTrack();
    void mostLapsWithoutAnyLapHasNoWinnerAndNamesTheDriverOfTrack1();
    void lapLimitFirstAtTheLimitWinsEvenIfAnotherReachesItLater();
    void lapLimitWithinOneEventGoesToTheLowerTrack();
    void lapLimitNotReachedHasNoWinner();
    void lapLimitBelongsToTheLapLimitEndOnly();
    void lapLimitResetForgetsTheFirst();

    void fastestLapWins();
    void fastestLapTrackWithoutLapsIsWinner();
    void fastestLapTieHasTwoWinnersAndTheTextNamesTheHigherTrack();

    void lowestAverageWins();
    void lowestAverageTrackWithoutLapsIsWinner();
    void lowestAverageTieHasTwoWinners();

    void closestLapToTargetWins();
    void closestLapTieGoesToTheEarlierLapAndTheLowerTrack();
    void closestLapWithoutLapsCrownsTrack1AndSpeaksOfLap1();
    void closestLapIgnoresTheHoursOfTheTarget();
    void closestLapAnHourAwayDoesNotCount();

    void averageClosestToTargetWins();
    void averageClosestToTargetTieGoesToTheLowerTrack();
    void averageClosestToTargetCountsAMemberWithoutLapsAsZero();
    void averageClosestToTargetAnHourAwayDoesNotCount();

    void smallestSpreadWins();
    void spreadLeavesOutTheSlowestLaps();
    void spreadWithAsManyLapsToIgnoreAsLapsComparesOneTimeWithItself_data();
    void spreadWithAsManyLapsToIgnoreAsLapsComparesOneTimeWithItself();
    void spreadTieGoesToTheSmallerSlowestLap();
    void spreadTieOfBothStaysWithTheEarlierTrack();
    void spreadOfAMemberWithoutLapsCannotBeBeaten();
    void spreadWithMoreThan8MembersIsAnError();
    void spreadOf8MembersIsMeasured();
    void spreadWithANegativeNumberOfLapsToIgnoreIgnoresNone();

    void targetConstancyDropsTheLapFurthestFromTheTarget();
    void targetConstancyDropsTheFastEndToo();
    void targetConstancyTieDropsTheSlowEnd();
    void targetConstancyWithFewerLapsThanToIgnoreKeepsTheFastest();
    void targetConstancyWithAsManyLapsAsToIgnoreKeepsOneLap();
    void targetConstancyOfAMemberWithoutLapsIsZero();
    void targetConstancyIgnoresTheHoursOfTheTarget();
    void targetConstancyWithAHugeNumberToIgnoreEnds();
};

void tst_CWinningCondition::settingsChooseTheRule_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<bool>("useTargetTime");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("0") << 0 << false << QByteArray("CWinningConditionNone");
    QTest::newRow("1") << 1 << false << QByteArray("CWinningConditionNumOfLaps");
    QTest::newRow("2") << 2 << false << QByteArray("CWinningConditionFastestLap");
    QTest::newRow("3") << 3 << false << QByteArray("CWinningConditionLowestAvgTime");
    QTest::newRow("4") << 4 << false << QByteArray("CWinningConditionClosestToTargetTime");
    QTest::newRow("5") << 5 << true << QByteArray("CWinningConditionAverageClosestToTargetTime");
    QTest::newRow("6") << 6 << false << QByteArray("CWinningConditionMostConstantTimes");
    QTest::newRow("6, target") << 6 << true << QByteArray("CWinningConditionMostConstantTimesWithTarget");
    QTest::newRow("7, unknown") << 7 << false << QByteArray("CWinningConditionNone");
    QTest::newRow("-1, unknown") << -1 << false << QByteArray("CWinningConditionNone");
}

void tst_CWinningCondition::settingsChooseTheRule()
{
    QFETCH(int, rule);
    QFETCH(bool, useTargetTime);
    QFETCH(QByteArray, className);
    CRaceSettings settings = settingsOf(rule);
    settings.setUseTargetTime(useTargetTime);
    const CRaceMembers members;
    const Condition condition = createWinningCondition(settings, &members);
    QCOMPARE(QByteArray(condition->metaObject()->className()), className);
}

void tst_CWinningCondition::descriptions_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<int>("lapsToIgnore");
    QTest::addColumn<bool>("useTargetTime");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << 0 << false << QStringLiteral("Keine Siegbedingung");
    QTest::newRow("laps") << 1 << 0 << false
                          << QStringLiteral(
                                 "Die meisten gefahrenen Runden bzw. Rundenlimit als erster erreicht");
    QTest::newRow("fastest") << 2 << 0 << false << QStringLiteral("schnellste Runde");
    QTest::newRow("average") << 3 << 0 << false << QStringLiteral("geringste Durchschnittszeit");
    QTest::newRow("target") << 4 << 0 << false << QStringLiteral("am nächsten an Zielzeit 01:10:250");
    QTest::newRow("average target") << 5 << 0 << false
                                    << QStringLiteral("Durchschnittszeit am nächsten an Zielzeit 01:10:250");
    QTest::newRow("constant") << 6 << 0 << false << QStringLiteral("Konstanteste Rundenzeit");
    QTest::newRow("constant, ignoring")
        << 6 << 2 << false
        << QStringLiteral("Konstanteste Rundenzeit, die schlechtesten 2 Runden ignorieren");
    QTest::newRow("constant, target: the time stays empty")
        << 6 << 2 << true << QStringLiteral("Rundenzeit möglichst nahe an der Zielzeit ");
}

void tst_CWinningCondition::descriptions()
{
    QFETCH(int, rule);
    QFETCH(int, lapsToIgnore);
    QFETCH(bool, useTargetTime);
    QFETCH(QString, text);
    CRaceSettings settings = settingsOf(rule);
    settings.setNumOfWorstLapsToIgnore(lapsToIgnore);
    settings.setUseTargetTime(useTargetTime);
    settings.setWinningTargetTime(QTime(0, 1, 10, 250));
    const CRaceMembers members;
    QCOMPARE(createWinningCondition(settings, &members)->description(), text);
}

void tst_CWinningCondition::everyRuleSurvivesARaceWithoutMembers_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<bool>("useTargetTime");
    for (int rule = Nobody; rule <= MostConstantTimes; ++rule)
        QTest::addRow("%d", rule) << rule << false;
    QTest::addRow("%d with target", MostConstantTimes) << int(MostConstantTimes) << true;
}

void tst_CWinningCondition::everyRuleSurvivesARaceWithoutMembers()
{
    QFETCH(int, rule);
    QFETCH(bool, useTargetTime);
    CRaceSettings settings = settingsOf(rule);
    settings.setUseTargetTime(useTargetTime);
    const CRaceMembers members;
    const Condition condition = decide(settings, members);
    QCOMPARE(condition->winner(), 0);
    QVERIFY(!condition->resultText().isEmpty());
}

void tst_CWinningCondition::absoluteDifferences()
{
    QCOMPARE(absoluteDifference(3, 5), 2);
    QCOMPARE(absoluteDifference(5, 3), 2);
    QCOMPARE(absoluteDifference(-5, 3), 8);
    constexpr int largest = std::numeric_limits<int>::max();
    QCOMPARE(absoluteDifference(-largest, largest), largest);
    QCOMPARE(absoluteDifference(QTime(0, 0, 1), QTime(0, 0, 3, 5)), 2005);
    QCOMPARE(absoluteDifference(QTime(1, 0, 0), QTime(0, 59, 0)), 60000);
}

void tst_CWinningCondition::noneNamesNoWinner()
{
    const CRaceMembers members = membersWithLaps({{5000}, {}});
    const Condition condition = decide(settingsOf(Nobody), members);
    QCOMPARE(winners(members), QList<int>());
    QCOMPARE(condition->resultText(), QStringLiteral("Rennen beendet"));
}

void tst_CWinningCondition::mostLapsWins()
{
    const CRaceMembers members = membersWithLaps({{5000}, {9000, 9000, 9000}, {4000, 4000}});
    const Condition condition = decide(settingsOf(NumOfLaps), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(), QStringLiteral("Die meisten Runden gefahren hat Driver 2."));
}

void tst_CWinningCondition::mostLapsTieGoesToTheLowerTrack()
{
    const CRaceMembers members = membersWithLaps({{}, {9000, 9000}, {4000, 4000}});
    const Condition condition = decide(settingsOf(NumOfLaps), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->winner(), 1);
}

void tst_CWinningCondition::mostLapsWithoutAnyLapHasNoWinnerAndNamesTheDriverOfTrack1()
{
    const CRaceMembers members = membersWithLaps({{}, {}});
    const Condition condition = decide(settingsOf(NumOfLaps), members);
    QCOMPARE(winners(members), QList<int>());
    QCOMPARE(condition->resultText(), QStringLiteral("Die meisten Runden gefahren hat Driver 1."));
}

void tst_CWinningCondition::lapLimitFirstAtTheLimitWinsEvenIfAnotherReachesItLater()
{
    CRaceMembers members = membersWithLaps({{5000}, {5000, 5000}});
    const Condition condition = createWinningCondition(lapsWithLimit(2), &members);
    condition->update();
    members[0] = TestSupport::memberWithLaps(0, {5000, 5000});
    condition->update();
    condition->determineWinner();
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(), QStringLiteral("Die meisten Runden gefahren hat Driver 2."));
}

void tst_CWinningCondition::lapLimitWithinOneEventGoesToTheLowerTrack()
{
    const CRaceMembers members = membersWithLaps({{}, {5000, 5000}, {4000, 4000}});
    decide(lapsWithLimit(2), members);
    QCOMPARE(winners(members), QList<int>({1}));
}

void tst_CWinningCondition::lapLimitNotReachedHasNoWinner()
{
    const CRaceMembers members = membersWithLaps({{5000, 5000}, {5000}});
    const Condition condition = decide(lapsWithLimit(3), members);
    QCOMPARE(winners(members), QList<int>());
    QCOMPARE(condition->winner(), 0);
}

void tst_CWinningCondition::lapLimitBelongsToTheLapLimitEndOnly()
{
    CRaceSettings settings = lapsWithLimit(3);
    settings.setEndType(CRaceSettings::TimeLimit);
    const CRaceMembers members = membersWithLaps({{5000}, {5000, 5000}});
    decide(settings, members);
    QCOMPARE(winners(members), QList<int>({1}));
}

void tst_CWinningCondition::lapLimitResetForgetsTheFirst()
{
    const CRaceMembers members = membersWithLaps({{5000, 5000}});
    const Condition condition = createWinningCondition(lapsWithLimit(2), &members);
    condition->update();
    condition->reset();
    condition->determineWinner();
    QCOMPARE(winners(members), QList<int>());
}

void tst_CWinningCondition::fastestLapWins()
{
    const CRaceMembers members = membersWithLaps({{5000, 4500}, {6000, 4321, 7000}, {9000}});
    const Condition condition = decide(settingsOf(FastestLap), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(
        condition->resultText(),
        QStringLiteral("Die schnellste Runde war die 2. Runde von Driver 2 mit einer Zeit von 00:04:321."));
}

void tst_CWinningCondition::fastestLapTrackWithoutLapsIsWinner()
{
    const CRaceMembers members = membersWithLaps({{5000, 4500}, {}});
    const Condition condition = decide(settingsOf(FastestLap), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(
        condition->resultText(),
        QStringLiteral("Die schnellste Runde war die 1. Runde von Driver 2 mit einer Zeit von 00:00:000."));
}

void tst_CWinningCondition::fastestLapTieHasTwoWinnersAndTheTextNamesTheHigherTrack()
{
    const CRaceMembers members = membersWithLaps({{4500}, {5000}, {6000, 4500}});
    const Condition condition = decide(settingsOf(FastestLap), members);
    QCOMPARE(winners(members), QList<int>({0, 2}));
    QCOMPARE(condition->winner(), 2);
    QCOMPARE(
        condition->resultText(),
        QStringLiteral("Die schnellste Runde war die 2. Runde von Driver 3 mit einer Zeit von 00:04:500."));
}

void tst_CWinningCondition::lowestAverageWins()
{
    const CRaceMembers members = membersWithLaps({{5000, 6000}, {2000, 9500}, {70000}});
    const Condition condition = decide(settingsOf(LowestAvgTime), members);
    QCOMPARE(winners(members), QList<int>({0}));
    QCOMPARE(condition->resultText(),
             QStringLiteral("Die beste Durchschnittszeit hatte Driver 1 mit einer Zeit von 00:05:500."));
}

void tst_CWinningCondition::lowestAverageTrackWithoutLapsIsWinner()
{
    const CRaceMembers members = membersWithLaps({{}, {5000}});
    decide(settingsOf(LowestAvgTime), members);
    QCOMPARE(winners(members), QList<int>({0}));
}

void tst_CWinningCondition::lowestAverageTieHasTwoWinners()
{
    const CRaceMembers members = membersWithLaps({{5000, 6000}, {6000, 5000}, {7000}});
    const Condition condition = decide(settingsOf(LowestAvgTime), members);
    QCOMPARE(winners(members), QList<int>({0, 1}));
    QCOMPARE(condition->winner(), 1);
}

void tst_CWinningCondition::closestLapToTargetWins()
{
    const CRaceMembers members = membersWithLaps({{9000, 11500}, {13000, 7000, 10400}});
    const Condition condition = decide(settingsOf(ClosestToTargetTime), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(),
             QStringLiteral("Die siegreiche Runde war die 3. Runde mit einer Zeit von 00:10:400."));
}

void tst_CWinningCondition::closestLapTieGoesToTheEarlierLapAndTheLowerTrack()
{
    const CRaceMembers members = membersWithLaps({{15000, 11000, 9000}, {9000}});
    const Condition condition = decide(settingsOf(ClosestToTargetTime), members);
    QCOMPARE(winners(members), QList<int>({0}));
    QCOMPARE(condition->resultText(),
             QStringLiteral("Die siegreiche Runde war die 2. Runde mit einer Zeit von 00:11:000."));
}

void tst_CWinningCondition::closestLapWithoutLapsCrownsTrack1AndSpeaksOfLap1()
{
    const CRaceMembers members = membersWithLaps({{}, {}});
    const Condition condition = decide(settingsOf(ClosestToTargetTime), members);
    QCOMPARE(winners(members), QList<int>({0}));
    QCOMPARE(condition->resultText(),
             QStringLiteral("Die siegreiche Runde war die 1. Runde mit einer Zeit von 00:00:000."));
}

void tst_CWinningCondition::closestLapIgnoresTheHoursOfTheTarget()
{
    CRaceSettings settings = settingsOf(ClosestToTargetTime);
    settings.setWinningTargetTime(QTime(5, 1, 2, 300));
    const CRaceMembers members = membersWithLaps({{60000}, {62000}});
    decide(settings, members);
    QCOMPARE(winners(members), QList<int>({1}));
}

void tst_CWinningCondition::closestLapAnHourAwayDoesNotCount()
{
    CRaceSettings settings = settingsOf(ClosestToTargetTime);
    settings.setWinningTargetTime(QTime(0, 0));
    const CRaceMembers tooFar = membersWithLaps({{3700000}, {3600000, 3599999}});
    decide(settings, tooFar);
    QCOMPARE(winners(tooFar), QList<int>({0}));
    const CRaceMembers members = membersWithLaps({{3700000}, {3600000, 3599999}, {3650000, 3599998}});
    decide(settings, members);
    QCOMPARE(winners(members), QList<int>({2}));
}

void tst_CWinningCondition::averageClosestToTargetWins()
{
    const CRaceMembers members = membersWithLaps({{10000, 20000}, {9000, 10000}, {8000}});
    const Condition condition = decide(settingsOf(AverageClosestToTargetTime), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(),
             QStringLiteral("Fahrer 2 lag mit einer Durchschnittszeit von 00:09:500 am nächsten an der "
                            "Zielzeit 00:10:000."));
}

void tst_CWinningCondition::averageClosestToTargetTieGoesToTheLowerTrack()
{
    const CRaceMembers members = membersWithLaps({{20000}, {11000}, {9000}});
    decide(settingsOf(AverageClosestToTargetTime), members);
    QCOMPARE(winners(members), QList<int>({1}));
}

void tst_CWinningCondition::averageClosestToTargetCountsAMemberWithoutLapsAsZero()
{
    const CRaceMembers members = membersWithLaps({{30000}, {}});
    const Condition condition = decide(settingsOf(AverageClosestToTargetTime), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QVERIFY(condition->resultText().startsWith(
        QStringLiteral("Fahrer 2 lag mit einer Durchschnittszeit von 00:00:000 ")));
}

void tst_CWinningCondition::averageClosestToTargetAnHourAwayDoesNotCount()
{
    CRaceSettings settings = settingsOf(AverageClosestToTargetTime);
    settings.setWinningTargetTime(QTime(0, 0));
    const CRaceMembers members = membersWithLaps({{3700000}, {3599999}});
    decide(settings, members);
    QCOMPARE(winners(members), QList<int>({0}));
    // The hours of this target count.
    settings.setWinningTargetTime(QTime(1, 0));
    decide(settings, members);
    QCOMPARE(members[1]->status(), CRaceMemberStatus::Winner);
}

void tst_CWinningCondition::smallestSpreadWins()
{
    const CRaceMembers members = membersWithLaps({{9000, 12000}, {10500, 9800, 10000}, {9000, 11000}});
    const Condition condition = decide(constancy(0), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(),
             constancyText(2, QStringLiteral("00:00:700"), QStringLiteral("00:09:800"),
                           QStringLiteral("00:10:500")));
}

void tst_CWinningCondition::spreadLeavesOutTheSlowestLaps()
{
    const CRaceMembers members = membersWithLaps({{9000, 10000}, {20000, 9000, 9100, 30000}});
    const Condition condition = decide(constancy(2), members);
    // Track 1 has no more laps than are to be ignored, and so compares one lap with itself.
    QCOMPARE(winners(members), QList<int>({0}));
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:00:000"), QStringLiteral("00:09:000"),
                           QStringLiteral("00:09:000")));

    const CRaceMembers others = membersWithLaps({{9000, 10000, 12000, 9500}, {20000, 9000, 9100, 30000}});
    const Condition second = decide(constancy(2), others);
    QCOMPARE(winners(others), QList<int>({1}));
    QCOMPARE(second->resultText(), constancyText(2, QStringLiteral("00:00:100"), QStringLiteral("00:09:000"),
                                                 QStringLiteral("00:09:100")));
}

void tst_CWinningCondition::spreadWithAsManyLapsToIgnoreAsLapsComparesOneTimeWithItself_data()
{
    QTest::addColumn<int>("lapsToIgnore");
    QTest::newRow("equal to the laps") << 3;
    QTest::newRow("above the laps") << 4;
    QTest::newRow("one less leaves the fastest") << 2;
}

void tst_CWinningCondition::spreadWithAsManyLapsToIgnoreAsLapsComparesOneTimeWithItself()
{
    QFETCH(int, lapsToIgnore);
    const CRaceMembers members = membersWithLaps({{13000, 9000, 10000}});
    const Condition condition = decide(constancy(lapsToIgnore), members);
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:00:000"), QStringLiteral("00:09:000"),
                           QStringLiteral("00:09:000")));
}

void tst_CWinningCondition::spreadTieGoesToTheSmallerSlowestLap()
{
    const CRaceMembers members = membersWithLaps({{10000, 11000}, {9000, 10000}, {9500, 10500}});
    const Condition condition = decide(constancy(0), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(),
             constancyText(2, QStringLiteral("00:01:000"), QStringLiteral("00:09:000"),
                           QStringLiteral("00:10:000")));
}

void tst_CWinningCondition::spreadTieOfBothStaysWithTheEarlierTrack()
{
    const CRaceMembers members = membersWithLaps({{9000, 12000}, {9000, 10000}, {10000, 9000}});
    decide(constancy(0), members);
    QCOMPARE(winners(members), QList<int>({1}));
}

void tst_CWinningCondition::spreadOfAMemberWithoutLapsCannotBeBeaten()
{
    const CRaceMembers members = membersWithLaps({{9000}, {}});
    const Condition condition = decide(constancy(0), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(),
             constancyText(2, QStringLiteral("00:00:000"), QStringLiteral("00:00:000"),
                           QStringLiteral("00:00:000")));
}

void tst_CWinningCondition::spreadWithMoreThan8MembersIsAnError()
{
    const CRaceMembers members = membersWithLaps(std::vector<std::vector<int>>(9, {9000, 9500}));
    for (const CRaceSettings& settings : {constancy(0), constancyAroundTarget(0)}) {
        const Condition condition = decide(settings, members);
        QCOMPARE(condition->resultText(),
                 QStringLiteral("Fehler: Diese Siegbedingung kann nicht auf mehr als 8 Rennteilnehmer "
                                "angewendet werden."));
    }
}

void tst_CWinningCondition::spreadOf8MembersIsMeasured()
{
    std::vector<std::vector<int>> laps(8, {9000, 9500});
    laps[7] = {9000, 9001};
    const CRaceMembers members = membersWithLaps(laps);
    decide(constancy(0), members);
    QCOMPARE(winners(members), QList<int>({7}));
}

void tst_CWinningCondition::spreadWithANegativeNumberOfLapsToIgnoreIgnoresNone()
{
    const CRaceMembers members = membersWithLaps({{9000, 9500}});
    const Condition condition = decide(constancy(-3), members);
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:00:500"), QStringLiteral("00:09:000"),
                           QStringLiteral("00:09:500")));
}

void tst_CWinningCondition::targetConstancyDropsTheLapFurthestFromTheTarget()
{
    const CRaceMembers members = membersWithLaps({{9000, 10500, 13000}});
    const Condition condition = decide(constancyAroundTarget(1), members);
    QCOMPARE(winners(members), QList<int>({0}));
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:01:000"), QStringLiteral("00:09:000"),
                           QStringLiteral("00:10:500")));
}

void tst_CWinningCondition::targetConstancyDropsTheFastEndToo()
{
    const CRaceMembers members = membersWithLaps({{10500, 11000, 5000, 9800}, {12000, 12000, 12000}});
    const Condition condition = decide(constancyAroundTarget(1), members);
    QCOMPARE(winners(members), QList<int>({0}));
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:01:000"), QStringLiteral("00:09:800"),
                           QStringLiteral("00:11:000")));
}

void tst_CWinningCondition::targetConstancyTieDropsTheSlowEnd()
{
    const CRaceMembers members = membersWithLaps({{8000, 10000, 12000}});
    const Condition condition = decide(constancyAroundTarget(1), members);
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:02:000"), QStringLiteral("00:08:000"),
                           QStringLiteral("00:10:000")));
}

void tst_CWinningCondition::targetConstancyWithFewerLapsThanToIgnoreKeepsTheFastest()
{
    const CRaceMembers members = membersWithLaps({{10000, 9000}});
    const Condition condition = decide(constancyAroundTarget(2), members);
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:01:000"), QStringLiteral("00:09:000"),
                           QStringLiteral("00:09:000")));
}

void tst_CWinningCondition::targetConstancyWithAsManyLapsAsToIgnoreKeepsOneLap()
{
    const CRaceMembers members = membersWithLaps({{10000, 9000, 9800}});
    const Condition condition = decide(constancyAroundTarget(2), members);
    QCOMPARE(condition->resultText(),
             constancyText(1, QStringLiteral("00:00:000"), QStringLiteral("00:10:000"),
                           QStringLiteral("00:10:000")));
}

void tst_CWinningCondition::targetConstancyOfAMemberWithoutLapsIsZero()
{
    const CRaceMembers members = membersWithLaps({{10001}, {}});
    const Condition condition = decide(constancyAroundTarget(0), members);
    QCOMPARE(winners(members), QList<int>({1}));
    QCOMPARE(condition->resultText(),
             constancyText(2, QStringLiteral("00:00:000"), QStringLiteral("00:00:000"),
                           QStringLiteral("00:00:000")));
}

void tst_CWinningCondition::targetConstancyIgnoresTheHoursOfTheTarget()
{
    const CRaceMembers members = membersWithLaps({{70000}, {71000}});
    decide(constancyAroundTarget(0, QTime(3, 1, 11)), members);
    QCOMPARE(winners(members), QList<int>({1}));
}

void tst_CWinningCondition::targetConstancyWithAHugeNumberToIgnoreEnds()
{
    const CRaceMembers members = membersWithLaps({{9000, 10000}});
    const Condition condition = decide(constancyAroundTarget(std::numeric_limits<int>::max()), members);
    QCOMPARE(condition->winner(), 0);
    QVERIFY(condition->resultText().startsWith(QStringLiteral("Fahrer 1 hat")));
}

QTEST_GUILESS_MAIN(tst_CWinningCondition)
#include "tst_CWinningCondition.moc"
