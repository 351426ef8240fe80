#include "support/RunningProgram.h"

#include "io/CDriveThroughEvent.h"
#include "io/CKelmoPortSimulator.h"
#include "io/PortIds.h"
#include "race/CRace.h"
#include "shell/CCommandLineParameters.h"
#include "shell/CKelmoMain.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CRichLabel.h"
#include "shell/CTrackDisplay.h"
#include "support/DatabaseFile.h"
#include "support/LampLetters.h"
#include "support/RecordingSounds.h"
#include "support/ScriptedQuestions.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {

constexpr int StampStep = 2; ///< milliseconds that give two presses two stamps

/** Calls a private slot of something that the race only lends. */
void callSlot(const QObject* object, const char* slot)
{
    QVERIFY(QMetaObject::invokeMethod(const_cast<QObject*>(object), slot, Qt::DirectConnection));
}

} // namespace

RunningProgram::RunningProgram(const QStringList& arguments)
{
    m_bytes.emplace_back("tornik");
    for (const QString& argument : arguments)
        m_bytes.push_back(argument.toLocal8Bit());
    for (QByteArray& argument : m_bytes)
        m_argv.push_back(argument.data());
    m_argv.push_back(nullptr);
    m_argc = int(m_bytes.size());
    m_application = std::make_unique<QApplication>(m_argc, m_argv.data());
    m_main = std::make_unique<CKelmoMain>(m_application.get(), CCommandLineParameters());
    auto user = std::make_unique<CScriptedQuestions>();
    m_user = user.get();
    dialog().setUserQuestions(std::move(user));
    auto sounds = std::make_unique<CRecordingSounds>();
    m_sounds = sounds.get();
    dialog().setSoundHandler(std::move(sounds));
}

RunningProgram::~RunningProgram()
{
    m_main.reset();
    // The lists of fastest laps keep their references to the end of the process; the next program of
    // this process begins with a file of its own.
    closeDatabase();
}

void RunningProgram::destroyMain()
{
    m_main.reset();
}

CKelmoMainDialog& RunningProgram::dialog() const
{
    return *m_main->mainDialog();
}

CRace& RunningProgram::race() const
{
    return *m_main->race();
}

CKelmoNetworkServer& RunningProgram::server() const
{
    return *m_main->server();
}

CKelmoPortSimulator& RunningProgram::simulator() const
{
    return *dialog().findChild<CKelmoPortSimulator*>();
}

CMainMenu* RunningProgram::menu() const
{
    return dialog().findChild<CMainMenu*>("menuBar");
}

CTrackDisplay* RunningProgram::track(int number) const
{
    return dialog().findChild<CTrackDisplay*>(QStringLiteral("track%1").arg(number));
}

QString RunningProgram::trackText(int number, const char* label) const
{
    return track(number)->findChild<CRichLabel*>(label)->text();
}

QStringList RunningProgram::statuses() const
{
    QStringList words;
    for (int number = 1; track(number); ++number)
        words.append(status(number));
    return words;
}

QString RunningProgram::infoText(const char* label) const
{
    return dialog().findChild<QLabel*>(label)->text();
}

QString RunningProgram::menuText(CMainMenu::Entry entry) const
{
    return menu()->action(entry)->text();
}

QString RunningProgram::powerText(int number) const
{
    return menu()->trackPowerActions().at(number - 1)->text();
}

QString RunningProgram::lights() const
{
    return lampLetters(*dialog().findChild<CLights*>("lights"));
}

int RunningProgram::fuel(int number) const
{
    return track(number)->findChild<QProgressBar*>("fuelBar")->value();
}

void RunningProgram::pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    dialog().activateWindow();
    // Not qWaitForWindowActive(): that takes the simulator for a part of this window.
    QVERIFY(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog(); }));
    QTest::keyClick(&dialog(), key, modifiers);
    QApplication::processEvents();
    noteLaps();
}

bool RunningProgram::startRace()
{
    if (!menu()->action(CMainMenu::Simulator)->isChecked())
        pressKey(Qt::Key_D, Qt::ControlModifier);
    m_lastPress.clear();
    pressKey(Qt::Key_S, Qt::ControlModifier);
    QElapsedTimer sinceStart; // begins behind the clock of the simulator
    sinceStart.start();
    m_lapCounts.clear();
    m_shownLaps.clear();
    m_lastStamp.clear();
    m_lastPress["chaosButton"].start(); // its dead time begins with the clock of the simulator
    noteLaps();
    // A stamp of 0 ms would count as no stamp at all.
    return simulator().isVisible() && QTest::qWaitFor([&] { return sinceStart.elapsed() > 5; });
}

QPushButton* RunningProgram::button(const QString& name) const
{
    return simulator().findChild<QPushButton*>(name);
}

void RunningProgram::hold(const QString& name)
{
    QVERIFY2(button(name) && button(name)->isVisible(), qPrintable(name));
    QTest::mousePress(button(name), Qt::LeftButton);
    m_lastPress[name].start(); // behind the stamp, so that no time between two stamps is shorter
    m_anyPress.start();
    QApplication::processEvents();
    noteLaps();
}

void RunningProgram::release(const QString& name)
{
    QTest::mouseRelease(button(name), Qt::LeftButton);
    QApplication::processEvents();
}

void RunningProgram::tap(const QString& name, int atLeast)
{
    const QElapsedTimer lastPress = m_lastPress.value(name);
    const auto isTime = [this, lastPress, atLeast] {
        const bool another = !m_anyPress.isValid() || m_anyPress.elapsed() > StampStep;
        return another && (!lastPress.isValid() || lastPress.elapsed() > atLeast);
    };
    QVERIFY(QTest::qWaitFor(isTime, atLeast + 5000));
    hold(name);
    if (simulator().isVisible()) // not if this press ended the race
        release(name);
}

void RunningProgram::cross(int number, int atLeast)
{
    tap(QStringLiteral("slot%1").arg(number), atLeast);
}

/** A panel that shows another count has got a lap. */
void RunningProgram::noteLaps()
{
    for (int number = 1; track(number); ++number) {
        const QString before = m_lapCounts.value(number, laps(number));
        m_lapCounts[number] = laps(number);
        if (before != laps(number))
            m_shownLaps[number].append(milliseconds(trackText(number, "lastLap")));
    }
}

void RunningProgram::sensorAt(int time, int portId)
{
    QBitArray sensors(PortId::Count);
    if (portId)
        sensors.setBit(portId);
    CDriveThroughEvent event(sensors, time);
    QApplication::sendEvent(&race(), &event);
}

void RunningProgram::driveLaps(const QVector<QVector<int>>& lapsOfTracks)
{
    for (int track = 0; track < lapsOfTracks.size(); ++track) {
        int& time = m_lastStamp[track];
        if (time == 0)
            sensorAt(time = 1000, PortId::lapSensor(track));
        for (const int lap : lapsOfTracks[track])
            sensorAt(time += lap, PortId::lapSensor(track));
    }
}

void RunningProgram::letTimeRunOut()
{
    callSlot(race().endCondition(), "endTimerEventOccured");
}

void RunningProgram::letStartSecondPass()
{
    callSlot(race().raceStart(), "vStartTimerEventOccured");
}

QString RunningProgram::timeText(int milliseconds)
{
    return QTime::fromMSecsSinceStartOfDay(milliseconds).toString("mm:ss:zzz");
}

int RunningProgram::milliseconds(const QString& timeText)
{
    return QTime::fromString(timeText, "mm:ss:zzz").msecsSinceStartOfDay();
}
