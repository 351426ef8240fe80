#include "shell/CKelmoMainDialog.h"
#include "shell/CRichLabel.h"
#include "shell/CTrackDisplay.h"
#include "sound/CSoundOutput.h"
#include "sound/RecordingSoundOutLib.h"
#include "support/RecordingSounds.h"
#include "support/RunningProgram.h"
#include "support/StoredSetup.h"

#include <QProgressBar>
#include <QTest>

#include <algorithm>
#include <numeric>

namespace {

const char* const Sections[] = {"section1", "section2", "section3"};

StoredSetup setupWithSectors(bool intermediate)
{
    StoredSetup setup;
    setup.raceway.numberOfSectors = 3;
    setup.settings.setDisplayShowSectorTimes(true);
    setup.settings.setDisplayShowIntermediateTimes(intermediate);
    return setup;
}

QVector<int> sectionsOf(const RunningProgram& program, int track)
{
    QVector<int> times;
    for (const char* section : Sections)
        times.append(RunningProgram::milliseconds(program.trackText(track, section)));
    return times;
}

void driveSectors(RunningProgram& program, int track)
{
    const QString slot = QStringLiteral("slot%1").arg(track);
    for (const char* sensor : {"", "Sector2Begin", "Sector3Begin", ""})
        program.tap(slot + sensor);
}

/** Drives one slow lap, and then fast ones until one of them is a new best lap. */
void driveUntilABestLap(RunningProgram& program, int track)
{
    program.cross(track);
    program.cross(track, 120);
    for (int lap = 0; lap < 50; ++lap) {
        program.cross(track, 10);
        if (program.shownLaps(track).last() < program.shownLaps(track).first())
            return;
    }
    QFAIL("no lap was faster than the first one");
}

/** @return for each lap whether it was faster than all before; the first is not. */
QVector<bool> bestLaps(const QVector<int>& laps)
{
    QVector<bool> best;
    for (int lap = 0; lap < laps.size(); ++lap)
        best.append(lap > 0 && laps[lap] < *std::min_element(laps.begin(), laps.begin() + lap));
    return best;
}

QString lapCountText(int laps)
{
    return QString::number(laps).rightJustified(3, '0');
}

} // namespace

/** What the panels show and what is heard, in the running program. */
class tst_race_display : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void usualFieldsAreShownAndTheOthersAreNot();
    void everyFieldCanBeShown();
    void sectorTimesAddUpToTheLap();
    void intermediateTimesEndWithTheLap();
    void separateEndSensorLeavesTheWayBackToTheLineOut();
    void bestAndAverageAreThoseOfTheShownLaps();
    void speedIsThatOfTheLastLap_data();
    void speedIsThatOfTheLastLap();
    void minimumTimeOfTheRacewayFiltersTheLine();

    void effectsTellLapsAndBestLaps();
    void voiceTellsLapsAndTheirTimes();
    void voiceTellsBestTimesAloneIfAskedFor();
    void voiceWithNothingToTellPlaysItsSamples();
};

void tst_race_display::usualFieldsAreShownAndTheOthersAreNot()
{
    StoredSetup setup;
    setup.raceway.numberOfSectors = 3;
    setup.write();
    RunningProgram program;
    const CTrackDisplay* panel = program.track(1);
    for (const char* label : {"lapCount", "lastLap", "bestLap", "status"})
        QVERIFY2(panel->findChild<CRichLabel*>(label)->isVisible(), label);
    for (const char* label : {"section1", "section2", "section3", "averageLap", "speed"})
        QVERIFY2(!panel->findChild<CRichLabel*>(label)->isVisible(), label);
    QVERIFY(!panel->findChild<QProgressBar*>("fuelBar")->isVisible());
}

void tst_race_display::everyFieldCanBeShown()
{
    StoredSetup setup = setupWithSectors(false);
    setup.settings.setDisplayShowAverageLapTime(true);
    setup.settings.setDisplaySpeed(true);
    setup.settings.setDisplayFuel(true);
    setup.write();
    RunningProgram program;
    const CTrackDisplay* panel = program.track(2);
    for (const char* label : {"lapCount", "section1", "section2", "section3", "lastLap", "bestLap", "status",
                              "averageLap", "speed"})
        QVERIFY2(panel->findChild<CRichLabel*>(label)->isVisible(), label);
    QVERIFY(panel->findChild<QProgressBar*>("fuelBar")->isVisible());
}

void tst_race_display::sectorTimesAddUpToTheLap()
{
    setupWithSectors(false).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveSectors(program, 1);
    const QVector<int> sectors = sectionsOf(program, 1);
    QVERIFY(!sectors.contains(0));
    QCOMPARE(program.shownLaps(1), QVector<int>{std::accumulate(sectors.begin(), sectors.end(), 0)});
    QCOMPARE(sectionsOf(program, 2), QVector<int>({0, 0, 0}));
    program.tap("slot1Sector2Begin"); // the next lap replaces its sectors one by one
    QCOMPARE(sectionsOf(program, 1).mid(1), sectors.mid(1));
}

void tst_race_display::intermediateTimesEndWithTheLap()
{
    setupWithSectors(true).write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveSectors(program, 2);
    const QVector<int> splits = sectionsOf(program, 2);
    QVERIFY(splits[0] > 0 && splits[0] < splits[1] && splits[1] < splits[2]);
    QCOMPARE(program.shownLaps(2), QVector<int>{splits[2]});
}

void tst_race_display::separateEndSensorLeavesTheWayBackToTheLineOut()
{
    StoredSetup setup;
    setup.raceway.startAndEndSensorSeparate = true;
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    QElapsedTimer sinceFirstCrossing;
    sinceFirstCrossing.start();
    program.cross(1);
    program.cross(1, 60); // begins anew: nothing has ended
    QCOMPARE(program.laps(1), QString("000"));
    QElapsedTimer sinceSecondCrossing;
    sinceSecondCrossing.start();
    QTRY_VERIFY(sinceSecondCrossing.elapsed() > 15); // a lap takes its time
    program.tap("slot1EndSensor");
    QCOMPARE(program.laps(1), QString("001"));
    QVERIFY(program.shownLaps(1)[0] <= sinceFirstCrossing.elapsed() - 60);
    program.tap("slot1EndSensor", 60);
    QCOMPARE(program.laps(1), QString("001"));
}

void tst_race_display::bestAndAverageAreThoseOfTheShownLaps()
{
    StoredSetup setup;
    setup.settings.setDisplayShowAverageLapTime(true);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (const int atLeast : {15, 60, 20, 40, 15})
        program.cross(1, atLeast);
    const QVector<int> laps = program.shownLaps(1);
    QCOMPARE(laps.size(), 4);
    QCOMPARE(program.laps(1), QString("004"));
    const int total = std::accumulate(laps.begin(), laps.end(), 0);
    QCOMPARE(program.trackText(1, "lastLap"), RunningProgram::timeText(laps.last()));
    QCOMPARE(program.trackText(1, "bestLap"),
             RunningProgram::timeText(*std::min_element(laps.begin(), laps.end())));
    QCOMPARE(program.trackText(1, "averageLap"), RunningProgram::timeText(total / laps.size()));
}

void tst_race_display::speedIsThatOfTheLastLap_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("factor"); // of metres a second on the track
    QTest::addColumn<int>("digits");
    QTest::addColumn<QString>("unit");
    QTest::newRow("kilometres an hour at full size") << 0 << 3.6 * 24 << 1 << "km/h";
    QTest::newRow("metres a second on the model") << 1 << 1.0 << 2 << "m/s";
    QTest::newRow("miles an hour at full size") << 2 << 2.23693629 * 24 << 1 << "mph";
}

void tst_race_display::speedIsThatOfTheLastLap()
{
    QFETCH(int, type);
    QFETCH(double, factor);
    QFETCH(int, digits);
    QFETCH(QString, unit);
    StoredSetup setup;
    setup.raceway.tracks[0].length = 25;
    setup.settings.setDisplaySpeed(true);
    setup.settings.setSpeedDisplayType(type);
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    program.cross(1);
    program.cross(1, 40);
    const double metresPerSecond = 250.0 / program.shownLaps(1)[0];
    const QString number = QString::number(metresPerSecond * factor, 'f', digits).replace('.', ',');
    QCOMPARE(program.trackText(1, "speed"), number + ' ' + unit);
    program.cross(2);
    QVERIFY(program.trackText(2, "speed").startsWith(digits == 1 ? "0,0 " : "0,00 "));
}

void tst_race_display::minimumTimeOfTheRacewayFiltersTheLine()
{
    StoredSetup setup;
    setup.raceway.minTime = 60000;
    setup.write();
    RunningProgram program;
    QVERIFY(program.startRace());
    for (int crossing = 0; crossing < 4; ++crossing)
        program.cross(1);
    QCOMPARE(program.status(1), QString("läuft"));
    QCOMPARE(program.laps(1), QString("000"));
}

void tst_race_display::effectsTellLapsAndBestLaps()
{
    StoredSetup().write();
    RunningProgram program;
    QVERIFY(program.startRace());
    driveUntilABestLap(program, 1);
    QStringList expected;
    for (const bool best : bestLaps(program.shownLaps(1)))
        expected.append(best ? "best" : "drive");
    QCOMPARE(program.sounds().played, expected);
    QVERIFY(expected.contains("best"));
}

namespace {

/** A program whose voice on track 1 writes its calls down. */
class ListenedProgram : public RunningProgram
{
public:
    ListenedProgram()
    {
        track(1)->setSoundOutput(
            std::make_unique<CSoundOutput>(std::make_unique<CRecordingSoundOutLib>(&m_calls)));
        dialog().onSettingsChanged(); // lets it load its samples
        m_calls.clear();
    }

    ~ListenedProgram() { destroyMain(); } // before the list that it writes to

    /** @return what was queued when the queue was played, one line an entry. */
    QStringList heard() const
    {
        QStringList heard;
        QStringList queue;
        for (const QString& call : m_calls) {
            if (call == "stop") {
                queue.clear();
            } else if (call == "play") {
                heard += queue;
                queue.clear();
            } else {
                queue.append(call);
            }
        }
        return heard;
    }

private:
    QStringList m_calls;
};

StoredSetup setupWithVoice(bool laps, bool times, bool bestTimesAlone)
{
    StoredSetup setup;
    setup.settings.setSoundEnhanced(true);
    setup.settings.setSoundVoiceOutputLaps(laps);
    setup.settings.setSoundVoiceOutputLapTime(times);
    setup.settings.setSoundVoiceOutputBestLapTime(bestTimesAlone);
    return setup;
}

/** @return what is to be heard of laps whose count and time are spoken. */
QStringList announcements(const QVector<int>& laps, bool bestTimesAlone)
{
    const QVector<bool> best = bestLaps(laps);
    QStringList texts;
    for (int lap = 0; lap < laps.size(); ++lap) {
        texts.append("text " + lapCountText(lap + 1));
        if (best[lap])
            texts.append("text B" + RunningProgram::timeText(laps[lap]));
        else if (!bestTimesAlone)
            texts.append("text " + RunningProgram::timeText(laps[lap]));
    }
    return texts;
}

} // namespace

void tst_race_display::voiceTellsLapsAndTheirTimes()
{
    setupWithVoice(true, true, false).write();
    ListenedProgram program;
    QVERIFY(program.startRace());
    driveUntilABestLap(program, 1);
    QCOMPARE(program.heard(), announcements(program.shownLaps(1), false));
    QVERIFY2(program.sounds().played.isEmpty(), "the voice replaces the effects");
}

void tst_race_display::voiceTellsBestTimesAloneIfAskedFor()
{
    setupWithVoice(true, true, true).write();
    ListenedProgram program;
    QVERIFY(program.startRace());
    driveUntilABestLap(program, 1);
    QCOMPARE(program.heard(), announcements(program.shownLaps(1), true));
}

void tst_race_display::voiceWithNothingToTellPlaysItsSamples()
{
    setupWithVoice(false, false, false).write();
    ListenedProgram program;
    QVERIFY(program.startRace());
    driveUntilABestLap(program, 1);
    const QVector<bool> best = bestLaps(program.shownLaps(1));
    const QStringList heard = program.heard();
    QCOMPARE(heard.size(), best.size());
    const QString lapSample = heard.first();
    for (int lap = 0; lap < best.size(); ++lap) {
        QVERIFY(heard[lap].startsWith("id "));
        QCOMPARE(heard[lap] != lapSample, best[lap]);
    }
}

QTEST_APPLESS_MAIN(tst_race_display)
#include "tst_race_display.moc"
