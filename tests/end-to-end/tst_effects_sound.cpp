#include "network/CKelmoNetworkClient.h"
#include "shell/CKelmoMain.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CTrackDisplay.h"
#include "sound/CSoundOutput.h"
#include "sound/RecordingSoundOutLib.h"
#include "support/BoundProcess.h"
#include "support/LoopbackNetwork.h"
#include "support/RecordingSounds.h"
#include "support/RunningProgram.h"
#include "support/SettingsDialogs.h"
#include "support/StoredSetup.h"

#include <QFileInfo>
#include <QTemporaryDir>

namespace {

bool isNetworkOurOwn = false;

/** A start by lights, whose green comes when the test asks for it. */
StoredSetup setupWithLights()
{
    StoredSetup setup;
    setup.rules.setStartType(CRaceSettings::TimedStart);
    setup.rules.setStartLightsMinDelay(60000);
    setup.rules.setStartLightsMaxDelay(0);
    return setup;
}

/** Five red lights, green, a lap and a faster one. */
void raceTwoLaps(RunningProgram& program)
{
    QVERIFY(program.startRace());
    for (int second = 0; second < 5; ++second)
        program.letStartSecondPass();
    QCOMPARE(program.lights(), QString("GGGGG"));
    program.driveLaps({{8531, 7000}});
    QCOMPARE(program.laps(1), QString("002"));
    program.stopRace();
}

/** Sets the check boxes of the voice, whichever of them can be used afterwards. */
void enterVoice(const DialogUser& user, bool on, bool laps, bool time, bool bestTimesAlone)
{
    user.enter("soundEnhanced", true);
    user.enter("soundVoiceOutputLaps", laps);
    user.enter("soundVoiceOutputLapTime", true);
    user.enter("soundVoiceOutputBestLapTime", bestTimesAlone);
    user.enter("soundVoiceOutputLapTime", time);
    user.enter("soundEnhanced", on);
}

/** Listens to the voice of a panel; the calls must live longer than the panel. */
void listen(CTrackDisplay* panel, QStringList* calls)
{
    panel->setSoundOutput(std::make_unique<CSoundOutput>(std::make_unique<CRecordingSoundOutLib>(calls)));
}

/** @return what a voice has told, text or file, one line an entry. */
QStringList told(const QStringList& calls)
{
    QStringList lines;
    QStringList queue;
    QMap<QString, QString> fileOfId;
    for (const QString& call : calls) {
        const QString what = call.section(' ', 1, 1);
        if (call.startsWith("load "))
            fileOfId[call.section(" -> ", 1)] = QFileInfo(call.section(" -> ", 0, 0).mid(5)).fileName();
        else if (call.startsWith("text "))
            queue.append(what);
        else if (call.startsWith("id "))
            queue.append(fileOfId.value(what));
        else if (call == "play")
            lines += queue;
        if (call == "play" || call == "stop")
            queue.clear();
    }
    return lines;
}

const QStringList Lights{"red", "red", "red", "red", "red", "green"};
const QStringList Effects = Lights + QStringList{"drive", "best"};
const QStringList Spoken{"001", "00:08:531", "002", "B00:07:000"};

} // namespace

/** What each control of the tab for sounds lets the user of the running program hear. */
class tst_effects_sound : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void effectPlaysItsFile_data();
    void effectPlaysItsFile();
    void voiceTellsWhatIsChecked_data();
    void voiceTellsWhatIsChecked();
    void samplesOfTheVoiceAreTheFilesOfTheEffects();
    void displaysAreMutedByTheRaceComputer();
};

void tst_effects_sound::effectPlaysItsFile_data()
{
    QTest::addColumn<QStringList>("heard"); // at the last red light, at green, behind a lap and a best lap
    QTest::newRow("newBestLapSound") << QStringList{"redLight.wav", "greenLight.wav", "driveThrough.wav",
                                                    "mine.wav"};
    QTest::newRow("driveThroughSound")
        << QStringList{"redLight.wav", "greenLight.wav", "mine.wav", "newBestLap.wav"};
    QTest::newRow("redLightSound") << QStringList{"mine.wav", "greenLight.wav", "driveThrough.wav",
                                                  "newBestLap.wav"};
    QTest::newRow("greenLightSound") << QStringList{"redLight.wav", "mine.wav", "driveThrough.wav",
                                                    "newBestLap.wav"};
}

void tst_effects_sound::effectPlaysItsFile()
{
    QFETCH(QStringList, heard);
    setupWithLights().write();
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter(QTest::currentDataTag(), "mine.wav");
    });
    raceTwoLaps(program);
    QCOMPARE(program.sounds().played, Effects);
    QCOMPARE(program.sounds().heard.mid(4), heard);
}

void tst_effects_sound::voiceTellsWhatIsChecked_data()
{
    QTest::addColumn<bool>("laps");
    QTest::addColumn<bool>("time");
    QTest::addColumn<bool>("bestTimesAlone");
    QTest::addColumn<QStringList>("lines");
    const QString drive = "driveThrough.wav";
    const QString best = "newBestLap.wav";
    const QString bestTime = "B00:07:000";
    QTest::newRow("nothing") << false << false << false << QStringList{drive, best};
    QTest::newRow("best times without times") << false << false << true << QStringList{drive, best};
    QTest::newRow("times") << false << true << false << QStringList{"00:08:531", bestTime};
    QTest::newRow("best times") << false << true << true << QStringList{drive, bestTime};
    QTest::newRow("laps") << true << false << false << QStringList{"001", "002"};
    QTest::newRow("laps, best times without times") << true << false << true << QStringList{"001", "002"};
    QTest::newRow("laps and times") << true << true << false << Spoken;
    QTest::newRow("laps and best times") << true << true << true << QStringList{"001", "002", bestTime};
}

void tst_effects_sound::voiceTellsWhatIsChecked()
{
    QFETCH(bool, laps);
    QFETCH(bool, time);
    QFETCH(bool, bestTimesAlone);
    QFETCH(QStringList, lines);
    setupWithLights().write();
    for (const bool voice : {true, false}) {
        QStringList calls;
        RunningProgram program;
        inSettings(program, [=](const DialogUser& user, ModalAnswers&) {
            enterVoice(user, voice, laps, time, bestTimesAlone);
        });
        listen(program.track(1), &calls);
        program.dialog().onSettingsChanged(); // lets it load its samples
        raceTwoLaps(program);
        QCOMPARE(told(calls), voice ? lines : QStringList());
        QCOMPARE(program.sounds().played, voice ? Lights : Effects);
    }
}

void tst_effects_sound::samplesOfTheVoiceAreTheFilesOfTheEffects()
{
    setupWithLights().write();
    QStringList calls;
    RunningProgram program;
    inSettings(program, [](const DialogUser& user, ModalAnswers&) {
        user.enter("newBestLapSound", "myBest.wav");
        user.enter("driveThroughSound", "myLap.wav");
        enterVoice(user, true, false, false, false);
    });
    listen(program.track(1), &calls);
    program.dialog().onSettingsChanged();
    raceTwoLaps(program);
    QCOMPARE(told(calls), QStringList({"myLap.wav", "myBest.wav"}));
}

namespace {

/** What the user of a race computer sets for its displays, race by race. */
struct Evening
{
    bool muted;
    bool voice;
    QStringList effects; ///< of the display
    QStringList lines;   ///< that the display speaks
};

const Evening Evenings[] = {
    {true, false, {}, {}}, {false, false, Effects, {}}, {false, true, Lights, Spoken}, {true, true, {}, {}}};

constexpr int Patience = 60000; // milliseconds
const char RaceComputer[] = "race-computer";

/** The process of the race computer: races as soon as there is a display. */
class RaceComputerOfTheTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void races()
    {
        setupWithLights().write();
        RunningProgram program;
        const QAction* entry = program.menu()->action(CMainMenu::ClientShutdown);
        QTRY_VERIFY_WITH_TIMEOUT(entry->isVisible(), Patience);
        for (const Evening& evening : Evenings) {
            inSettings(program, [evening](const DialogUser& user, ModalAnswers&) {
                user.enter("clientsMuted", evening.muted);
                enterVoice(user, evening.voice, true, true, false);
            });
            program.sounds().played.clear();
            raceTwoLaps(program);
            QCOMPARE(program.sounds().played, evening.voice ? Lights : Effects); // always
        }
        QTRY_VERIFY_WITH_TIMEOUT(!entry->isVisible(), Patience); // the display has heard all
    }
};

/** The ears of somebody in front of a display. */
class Listener : public QObject
{
public:
    /** The calls of the voice are written down in a list that lives longer than the panels. */
    Listener(RunningProgram& display, QStringList* calls) : m_display(display), m_calls(calls)
    {
        const CKelmoNetworkClient* client = display.main().client();
        // New race settings bring new panels.
        connect(client, &CKelmoNetworkClient::raceSettingsChanged, this,
                [this] { listen(m_display.track(1), m_calls); });
        connect(client, &CKelmoNetworkClient::RaceStopped, this, &Listener::noteRace);
    }

    /** @return the effects of each race. */
    const QList<QStringList>& effects() const { return m_effects; }
    /** @return what the voice has told in each race. */
    const QList<QStringList>& lines() const { return m_lines; }

private:
    void noteRace()
    {
        m_effects.append(m_display.sounds().played);
        m_lines.append(told(*m_calls));
        m_display.sounds().played.clear();
        m_calls->clear();
    }

    RunningProgram& m_display;
    QStringList* m_calls;
    QList<QStringList> m_effects;
    QList<QStringList> m_lines;
};

/** Starts the process of the race computer, with a home of its own. */
void startRaceComputer(QProcess& process, const QTemporaryDir& home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home.path());
    environment.insert("XDG_CONFIG_HOME", home.filePath("config"));
    environment.insert("XDG_DATA_HOME", home.filePath("data"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(home.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QFile::symLinkTarget("/proc/self/exe"), {RaceComputer});
}

} // namespace

void tst_effects_sound::displaysAreMutedByTheRaceComputer()
{
    if (!isNetworkOurOwn)
        QSKIP("this system allows no network of one's own");
    StoredSetup setup;
    setup.settings.setClientsMuted(false); // its own setting says nothing
    setup.write();
    const QTemporaryDir home;
    QStringList calls;
    RunningProgram display({"--windowed", "--connect", "127.0.0.1"});
    const Listener listener(display, &calls);
    CBoundProcess raceComputer;
    startRaceComputer(raceComputer, home);
    const int races = int(std::size(Evenings));
    const auto isOver = [&] {
        return listener.effects().size() == races || raceComputer.state() == QProcess::NotRunning;
    };
    QVERIFY(QTest::qWaitFor(isOver, 2 * Patience));
    for (int race = 0; race < listener.effects().size(); ++race) {
        QCOMPARE(listener.effects().at(race), Evenings[race].effects);
        QCOMPARE(listener.lines().at(race), Evenings[race].lines);
    }
    const int seen = listener.effects().size();
    display.destroyMain();
    QVERIFY(QTest::qWaitFor([&] { return raceComputer.state() == QProcess::NotRunning; }, Patience));
    QVERIFY2(raceComputer.exitCode() == 0 && seen == races, raceComputer.readAll().constData());
}

int main(int argc, char* argv[])
{
    if (argc > 1 && qstrcmp(argv[1], RaceComputer) == 0) {
        RaceComputerOfTheTest test;
        return QTest::qExec(&test);
    }
    isNetworkOurOwn = LoopbackNetwork::enter();
    tst_effects_sound test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_effects_sound.moc"
