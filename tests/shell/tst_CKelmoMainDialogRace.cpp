#include "race/CLightAction.h"
#include "shell/CLights.h"
#include "shell/MainDialogFixture.h"
#include "sound/CSoundOutput.h"
#include "sound/RecordingSoundOutLib.h"

#include <QProgressBar>

namespace {

/** Listens to the voice of a panel, from the settings on that a voice needs. */
void listenToVoice(CTrackDisplay* panel, CSettings* settings, QStringList* calls)
{
    panel->setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingSoundOutLib>(calls)));
    panel->setSettings(settings);
    calls->clear();
}

CRaceEvent memberEvent(int track)
{
    CRaceEvent event;
    event.type = CRaceEvent::MemberChanged;
    event.subType = CRaceEvent::BestLap;
    event.track = track;
    event.laps = 12;
    event.lastLapTime = QTime(0, 0, 5, 734);
    event.sector1Time = QTime(0, 0, 1, 1);
    event.sector2Time = QTime(0, 0, 2, 2);
    event.sector3Time = QTime(0, 0, 3, 3);
    event.split1Time = QTime(0, 0, 1, 1);
    event.split2Time = QTime(0, 0, 3, 3);
    event.split3Time = QTime(0, 0, 6, 6);
    event.bestLapTime = QTime(0, 0, 5, 421);
    event.status = 4;
    event.averageLapTime = QTime(0, 0, 5, 800);
    event.speed = 123.44;
    event.fuelPercent = 42;
    event.raceRunning = true;
    return event;
}

CRaceEvent eventOfType(int type)
{
    return CRaceEvent(type);
}

QImage pictureOf(CLights* lights)
{
    return lights->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

/** What the dialog shows, plays and speaks of a race. */
class tst_CKelmoMainDialogRace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { forgetStored(); }

    void lapEndedPlaysTheDriveThroughSound();
    void bestLapPlaysItsSound();
    void voiceReplacesTheEffects();
    void mutedClientPlaysNothing();
    void bestLapSoundPlaysOnAnUnmutedClient();
    void otherEventsPlayNothing();
    void memberEventFillsThePanelOfItsTrack();
    void memberEventShowsIntermediateTimesIfAskedFor();
    void memberEventWithoutAPanelIsDropped();
    void memberEventSpeaksTheLap();
    void mutedClientDoesNotSpeak();
    void boxesAreLockedWhileTheRaceRuns();

    void lightsFollowTheStart();
    void greenLightWithoutRedBeforeItGivesNoGreenSound();
    void allOffKeepsTheRedSeenAndOthersForgetIt();
    void lightsAreSilentOnAMutedClient();

    void raceTimeIsShownInHours();
    void additionalInfoIsShownAndCleared();
};

void tst_CKelmoMainDialogRace::lapEndedPlaysTheDriveThroughSound()
{
    MainDialogFixture fixture;
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::LapEnded));
    QCOMPARE(fixture.sounds->played, QStringList{"drive"});
}

void tst_CKelmoMainDialogRace::bestLapPlaysItsSound()
{
    MainDialogFixture fixture;
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QCOMPARE(fixture.sounds->played, QStringList{"best"});
}

void tst_CKelmoMainDialogRace::voiceReplacesTheEffects()
{
    MainDialogFixture fixture;
    fixture.settings.setSoundEnhanced(true);
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::LapEnded));
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QVERIFY(fixture.sounds->played.isEmpty());
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    QCOMPARE(fixture.sounds->played, QStringList{"red"});
}

void tst_CKelmoMainDialogRace::mutedClientPlaysNothing()
{
    MainDialogFixture fixture;
    fixture.dialog.enableClientMode();
    fixture.settings.setClientsMuted(true);
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::LapEnded));
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QVERIFY(fixture.sounds->played.isEmpty());
}

void tst_CKelmoMainDialogRace::bestLapSoundPlaysOnAnUnmutedClient()
{
    MainDialogFixture fixture;
    fixture.dialog.enableClientMode();
    fixture.settings.setClientsMuted(false);
    fixture.dialog.HandleEventRace(eventOfType(CRaceEvent::NewBestLap));
    QCOMPARE(fixture.sounds->played, QStringList{"best"});
}

void tst_CKelmoMainDialogRace::otherEventsPlayNothing()
{
    MainDialogFixture fixture;
    for (const int type : {0, 3, 4, 5, 7, int(CRaceEvent::TankEmpty), int(CRaceEvent::TankOnReserve), -1})
        fixture.dialog.HandleEventRace(eventOfType(type));
    QVERIFY(fixture.sounds->played.isEmpty());
}

void tst_CKelmoMainDialogRace::memberEventFillsThePanelOfItsTrack()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(3));
    fixture.dialog.HandleEventRace(memberEvent(1));
    QCOMPARE(fixture.text(2, "lapCount"), QString("012"));
    QCOMPARE(fixture.text(2, "lastLap"), QString("00:05:734"));
    QCOMPARE(fixture.text(2, "bestLap"), QString("00:05:421"));
    QCOMPARE(fixture.text(2, "status"), QString("läuft"));
    QCOMPARE(fixture.text(2, "averageLap"), QString("00:05:800"));
    QCOMPARE(fixture.text(2, "section1"), QString("00:01:001"));
    QCOMPARE(fixture.text(2, "section2"), QString("00:02:002"));
    QCOMPARE(fixture.text(2, "section3"), QString("00:03:003"));
    QVERIFY(fixture.text(2, "speed").startsWith("123"));
    QCOMPARE(fixture.track(2)->findChild<QProgressBar*>("fuelBar")->value(), 42);
    QCOMPARE(fixture.text(1, "lapCount"), QString("000"));
    QCOMPARE(fixture.text(3, "lapCount"), QString("000"));
}

void tst_CKelmoMainDialogRace::memberEventShowsIntermediateTimesIfAskedFor()
{
    MainDialogFixture fixture;
    fixture.settings.setDisplayShowIntermediateTimes(true);
    fixture.setRaceway(racewayWithTracks(2));
    fixture.dialog.HandleEventRace(memberEvent(0));
    QCOMPARE(fixture.text(1, "section1"), QString("00:01:001"));
    QCOMPARE(fixture.text(1, "section2"), QString("00:03:003"));
    QCOMPARE(fixture.text(1, "section3"), QString("00:06:006"));
}

void tst_CKelmoMainDialogRace::memberEventWithoutAPanelIsDropped()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    for (const int track :
         {-1, 2, 8, 1 << 30, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        fixture.dialog.HandleEventRace(memberEvent(track));
    QCOMPARE(fixture.text(1, "lapCount"), QString("000"));
    QCOMPARE(fixture.text(2, "lapCount"), QString("000"));
}

void tst_CKelmoMainDialogRace::memberEventSpeaksTheLap()
{
    QStringList calls; // outlives the voice
    MainDialogFixture fixture;
    fixture.settings.setSoundEnhanced(true);
    fixture.settings.setSoundVoiceOutputLaps(true);
    fixture.setRaceway(racewayWithTracks(2));
    listenToVoice(fixture.track(1), &fixture.settings, &calls);
    fixture.dialog.HandleEventRace(memberEvent(0));
    QCOMPARE(calls, QStringList({"stop", "text 012", "play"}));
}

void tst_CKelmoMainDialogRace::mutedClientDoesNotSpeak()
{
    QStringList calls; // outlives the voice
    MainDialogFixture fixture;
    fixture.settings.setSoundEnhanced(true);
    fixture.settings.setSoundVoiceOutputLaps(true);
    fixture.raceSettings.setRaceway(racewayWithTracks(2));
    fixture.dialog.enableClientMode();
    listenToVoice(fixture.track(1), &fixture.settings, &calls);
    fixture.settings.setClientsMuted(true);
    fixture.dialog.HandleEventRace(memberEvent(0));
    QCOMPARE(calls, QStringList());
    QCOMPARE(fixture.text(1, "lapCount"), QString("012"));
    fixture.settings.setClientsMuted(false);
    fixture.dialog.HandleEventRace(memberEvent(0));
    QCOMPARE(calls, QStringList({"stop", "text 012", "play"}));
}

void tst_CKelmoMainDialogRace::boxesAreLockedWhileTheRaceRuns()
{
    MainDialogFixture fixture;
    fixture.setRaceway(racewayWithTracks(2));
    CRaceEvent event = memberEvent(0);
    fixture.dialog.HandleEventRace(event);
    QVERIFY(!fixture.driverBox(1)->isEnabled());
    QVERIFY(!fixture.carBox(1)->isEnabled());
    QVERIFY(fixture.driverBox(2)->isEnabled());
    event.raceRunning = false;
    fixture.dialog.HandleEventRace(event);
    QVERIFY(fixture.driverBox(1)->isEnabled());
    QVERIFY(fixture.carBox(1)->isEnabled());
}

void tst_CKelmoMainDialogRace::lightsFollowTheStart()
{
    MainDialogFixture fixture;
    auto* lights = fixture.dialog.findChild<CLights*>("lights");
    CLights expected(5);
    const auto apply = [&](int action) { fixture.dialog.updateLightsDisplay(action); };
    for (int light = 0; light < 5; ++light) {
        apply(CLightAction::NextRed);
        expected.nextRed();
        QCOMPARE(pictureOf(lights), pictureOf(&expected));
    }
    QCOMPARE(fixture.sounds->played, QStringList({"red", "red", "red", "red", "red"}));
    apply(CLightAction::Go);
    expected.allGreen();
    QCOMPARE(pictureOf(lights), pictureOf(&expected));
    QCOMPARE(fixture.sounds->played.last(), QString("green"));
    apply(CLightAction::AllRed);
    expected.allRed();
    QCOMPARE(pictureOf(lights), pictureOf(&expected));
    for (const int off : {int(CLightAction::AllOff), 0, 42, -1}) {
        apply(CLightAction::AllRed);
        apply(off);
        expected.allOff();
        QCOMPARE(pictureOf(lights), pictureOf(&expected));
    }
    QCOMPARE(fixture.sounds->played.size(), 6);
}

void tst_CKelmoMainDialogRace::greenLightWithoutRedBeforeItGivesNoGreenSound()
{
    MainDialogFixture fixture;
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QVERIFY(fixture.sounds->played.isEmpty());
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QCOMPARE(fixture.sounds->played, QStringList({"red", "green"}));
}

void tst_CKelmoMainDialogRace::allOffKeepsTheRedSeenAndOthersForgetIt()
{
    MainDialogFixture fixture;
    const auto greenSoundAfter = [&](int action) {
        fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
        fixture.dialog.updateLightsDisplay(action);
        fixture.sounds->played.clear();
        fixture.dialog.updateLightsDisplay(CLightAction::Go);
        return fixture.sounds->played.contains("green");
    };
    QVERIFY(greenSoundAfter(CLightAction::AllOff));
    QVERIFY(!greenSoundAfter(CLightAction::AllRed));
    QVERIFY(!greenSoundAfter(0));
    QVERIFY(!greenSoundAfter(99));
}

void tst_CKelmoMainDialogRace::lightsAreSilentOnAMutedClient()
{
    MainDialogFixture fixture;
    fixture.dialog.enableClientMode();
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QVERIFY(fixture.sounds->played.isEmpty());
    fixture.settings.setClientsMuted(false);
    fixture.dialog.updateLightsDisplay(CLightAction::NextRed);
    fixture.dialog.updateLightsDisplay(CLightAction::Go);
    QCOMPARE(fixture.sounds->played, QStringList({"red", "green"}));
}

void tst_CKelmoMainDialogRace::raceTimeIsShownInHours()
{
    MainDialogFixture fixture;
    fixture.dialog.setRaceTime(QTime(1, 2, 3, 999));
    QCOMPARE(fixture.infoText("raceTime"), QString("01:02:03"));
}

void tst_CKelmoMainDialogRace::additionalInfoIsShownAndCleared()
{
    MainDialogFixture fixture;
    fixture.dialog.setAdditionalInfo("Rennen wurde beendet");
    QCOMPARE(fixture.infoText("additionalInfo"), QString("Rennen wurde beendet"));
    fixture.dialog.setAdditionalInfo("");
    QCOMPARE(fixture.infoText("additionalInfo"), QString());
}

QTEST_MAIN(tst_CKelmoMainDialogRace)
#include "tst_CKelmoMainDialogRace.moc"
