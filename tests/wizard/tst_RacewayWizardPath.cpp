#include "wizard/RacewayWizardPath.h"

#include <QSet>
#include <QStringList>
#include <QTest>

using namespace RacewayWizardPath;

namespace {

constexpr int Tracks = 8;

QString nameOf(const Step& step)
{
    static const QStringList names{"start",   "interface", "features",     "open",  "chaos",   "signal",
                                   "power",   "lights",    "slot",         "fuel",  "fuelEnd", "sector2",
                                   "sector3", "end",       "minimum time", "finish"};
    const bool isOfTrack = step.page >= Page::Slot && step.page <= Page::EndSensor;
    const QString name = names.at(int(step.page));
    return isOfTrack ? name + QString::number(step.track + 1) : name;
}

/** @return the way that the steps take, not longer than a way can be. */
QStringList wayOf(const Answers& answers)
{
    QStringList way;
    for (Step step; way.size() < 60; step = stepAfter(step, answers)) {
        way.append(nameOf(step));
        if (step.page == Page::Finish)
            break;
    }
    return way;
}

QStringList sensorsOfTrack(int number, const Answers& answers)
{
    QStringList sensors{"slot"};
    if (QVector<int>{1, 3, 4}.contains(answers.fuelIndex))
        sensors << "fuel";
    if (QVector<int>{2, 4}.contains(answers.fuelIndex))
        sensors << "fuelEnd";
    for (int sector = 2; sector <= answers.sectorIndex + 1; ++sector)
        sensors << QStringLiteral("sector%1").arg(sector);
    if (answers.separateEndSensors)
        sensors << "end";
    for (QString& sensor : sensors)
        sensor += QString::number(number);
    return sensors;
}

/** @return the way as the rules tell it. */
QStringList expectedWay(const Answers& answers)
{
    QStringList way{"start", "interface", "features"};
    if (answers.hasPortStates)
        way << "open";
    if (answers.chaosButton) {
        way << "chaos";
        if (answers.chaosPhaseOutput)
            way << "signal";
    }
    if (answers.powerOff)
        way << "power";
    if (answers.lights)
        way << "lights";
    for (int number = 1; number <= answers.tracks; ++number)
        way << sensorsOfTrack(number, answers);
    return way << "minimum time"
               << "finish";
}

/** @return every combination of answers. */
QVector<Answers> allAnswers()
{
    QVector<Answers> all;
    for (int flags = 0; flags < 64; ++flags) {
        Answers answers;
        answers.hasPortStates = flags & 1;
        answers.chaosButton = flags & 2;
        answers.chaosPhaseOutput = flags & 4;
        answers.powerOff = flags & 8;
        answers.lights = flags & 16;
        answers.separateEndSensors = flags & 32;
        for (answers.fuelIndex = 0; answers.fuelIndex <= 4; ++answers.fuelIndex) {
            for (answers.sectorIndex = 0; answers.sectorIndex <= 2; ++answers.sectorIndex) {
                for (answers.tracks = 1; answers.tracks <= Tracks; ++answers.tracks)
                    all.append(answers);
            }
        }
    }
    return all;
}

} // namespace

class tst_RacewayWizardPath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCombinationOfAnswersHasTheWayOfTheRules();
    void oneSlotWithoutFeaturesHasSevenPages();
    void withEverythingEachTrackHasSixPages();
    void anAt2560NeverShowsTheOpenPage();
    void fuelIndex2ShowsTheEndOfTheZoneButNoFuelSensor();
    void aSignalWithoutAChaosButtonHasNoPage();
    void nothingComesBehindTheLastPage();
};

void tst_RacewayWizardPath::everyCombinationOfAnswersHasTheWayOfTheRules()
{
    QSet<QStringList> ways;
    const QVector<Answers> all = allAnswers();
    for (const Answers& answers : all) {
        QCOMPARE(wayOf(answers), expectedWay(answers));
        ways.insert(wayOf(answers));
    }
    QCOMPARE(all.size(), 64 * 5 * 3 * Tracks);
    // The signal makes no difference without its button, and the indexes 1 and 3 are alike.
    QCOMPARE(ways.size(), 2 * 3 * 2 * 2 * 2 * 4 * 3 * Tracks);
}

void tst_RacewayWizardPath::oneSlotWithoutFeaturesHasSevenPages()
{
    QCOMPARE(wayOf(Answers()),
             QStringList({"start", "interface", "features", "open", "slot1", "minimum time", "finish"}));
}

void tst_RacewayWizardPath::withEverythingEachTrackHasSixPages()
{
    Answers answers;
    answers.tracks = 2;
    answers.fuelIndex = 4;
    answers.sectorIndex = 2;
    answers.separateEndSensors = true;
    QCOMPARE(wayOf(answers).mid(4, 12),
             QStringList({"slot1", "fuel1", "fuelEnd1", "sector21", "sector31", "end1", "slot2", "fuel2",
                          "fuelEnd2", "sector22", "sector32", "end2"}));
    QCOMPARE(wayOf(answers).mid(16), QStringList({"minimum time", "finish"}));
}

void tst_RacewayWizardPath::anAt2560NeverShowsTheOpenPage()
{
    int ways = 0;
    for (const Answers& answers : allAnswers()) {
        if (!answers.hasPortStates) {
            QVERIFY(!wayOf(answers).contains("open"));
            ++ways;
        }
    }
    QVERIFY(ways > 0);
}

void tst_RacewayWizardPath::fuelIndex2ShowsTheEndOfTheZoneButNoFuelSensor()
{
    Answers answers;
    answers.fuelIndex = 2;
    QVERIFY(wayOf(answers).contains("fuelEnd1"));
    QVERIFY(!wayOf(answers).contains("fuel1"));
}

void tst_RacewayWizardPath::aSignalWithoutAChaosButtonHasNoPage()
{
    Answers answers;
    answers.chaosPhaseOutput = true;
    QVERIFY(!wayOf(answers).contains("signal"));
    answers.chaosButton = true;
    QVERIFY(wayOf(answers).contains("signal"));
}

void tst_RacewayWizardPath::nothingComesBehindTheLastPage()
{
    QCOMPARE(stepAfter({Page::Finish}, Answers()).page, Page::Finish);
}

QTEST_APPLESS_MAIN(tst_RacewayWizardPath)
#include "tst_RacewayWizardPath.moc"
