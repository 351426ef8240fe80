#include "support/PaperResult.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QTest>

namespace {

enum Driving
{
    EachForHimself,
    SideBySide,
    SecondStaysAway,
    NobodyDrives
};

constexpr int Target = 40; ///< milliseconds, as long as a lap by hand of two presses

/** The seven rules that name a winner in some way or other; constancy twice, and once leaving laps out. */
struct Rule
{
    const char* name;
    int number;
    bool useTarget = false;
    int ignoredLaps = 0;
};

const Rule Rules[] = {{"no winner", 0},
                      {"most laps", 1},
                      {"fastest lap", 2},
                      {"lowest average", 3},
                      {"closest to the target", 4},
                      {"average closest to the target", 5},
                      {"constancy", 6},
                      {"constancy without the worst lap", 6, false, 1},
                      {"constancy with more laps to ignore than driven", 6, false, 9},
                      {"constancy around a target", 6, true},
                      {"constancy around a target without the worst lap", 6, true, 1}};

const QStringList nobody{"beendet", "beendet"};
const QStringList first{"sieger", "beendet"};
const QStringList second{"beendet", "sieger"};
const QStringList both{"sieger", "sieger"};

/** @return the words on equal laps: of some rules the lower track wins, of others both. */
QStringList wordsOnEqualLaps(int rule)
{
    if (rule == 0)
        return nobody;
    return rule == 2 || rule == 3 ? both : first;
}

/** @return the words where the second track has no lap, which is better than any; empty where the times
 * decide. */
QStringList wordsWithOneDriver(int rule)
{
    if (rule == 0)
        return nobody;
    if (rule == 5)
        return {};
    return rule == 1 || rule == 4 ? first : second;
}

/** @return the words where no track has a lap; most laps need one. */
QStringList wordsWithoutLaps(int rule)
{
    return rule == 1 ? nobody : wordsOnEqualLaps(rule);
}

/** Six laps, if anybody drives. */
void drive(RunningProgram& program, int driving)
{
    if (driving == SideBySide) {
        for (int crossing = 0; crossing < 4; ++crossing)
            program.crossAll();
    } else if (driving == SecondStaysAway) {
        for (const int atLeast : {0, 50, 20, 35, 20, 50, 30})
            program.cross(1, atLeast);
    } else if (driving == EachForHimself) {
        for (const int atLeast : {0, 50, 20, 35}) {
            program.cross(1, atLeast);
            program.cross(2, 70 - atLeast);
        }
    }
}

} // namespace

/** Each rule over laps that were driven by pressing the buttons of the simulator. */
class tst_race_rules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pressedButtonsGiveTheWinnerOfTheRule_data();
    void pressedButtonsGiveTheWinnerOfTheRule();
};

void tst_race_rules::pressedButtonsGiveTheWinnerOfTheRule_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<bool>("useTarget");
    QTest::addColumn<int>("ignoredLaps");
    QTest::addColumn<int>("driving");
    QTest::addColumn<QStringList>("words"); // empty where the times decide
    const auto row = [](const Rule& rule, const char* driving, int how, const QStringList& words) {
        QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(rule.name, driving)))
            << rule.number << rule.useTarget << rule.ignoredLaps << how << words;
    };
    for (const Rule& rule : Rules) {
        row(rule, "each for himself", EachForHimself, rule.number == 0 ? nobody : QStringList());
        row(rule, "side by side", SideBySide, wordsOnEqualLaps(rule.number));
        row(rule, "the second stays away", SecondStaysAway, wordsWithOneDriver(rule.number));
        row(rule, "nobody drives", NobodyDrives, wordsWithoutLaps(rule.number));
    }
}

void tst_race_rules::pressedButtonsGiveTheWinnerOfTheRule()
{
    QFETCH(int, rule);
    QFETCH(bool, useTarget);
    QFETCH(int, ignoredLaps);
    QFETCH(int, driving);
    QFETCH(QStringList, words);
    StoredSetup setup;
    setup.rules.setEndType(CRaceSettings::TimeLimit);
    setup.rules.setWinningCondition(rule);
    setup.rules.setWinningTargetTime(QTime(0, 0, 0, Target));
    setup.rules.setUseTargetTime(useTarget);
    setup.rules.setNumOfWorstLapsToIgnore(ignoredLaps);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    drive(program, driving);
    program.letTimeRunOut();

    const QVector<QVector<int>> laps{program.shownLaps(1), program.shownLaps(2)};
    QCOMPARE(laps[0].size() + laps[1].size(), driving == NobodyDrives ? 0 : 6);
    if (driving == SideBySide)
        QCOMPARE(laps[0], laps[1]);
    const PaperResult result(setup.rules, laps, setup.names);
    if (words.isEmpty()) {
        words = nobody;
        for (const int winner : result.winners())
            words[winner] = QStringLiteral("sieger");
        QVERIFY(words.contains("sieger"));
    }
    QCOMPARE(program.statuses(), words);
    QCOMPARE(program.message(), result.text());
}

QTEST_APPLESS_MAIN(tst_race_rules)
#include "tst_race_rules.moc"
