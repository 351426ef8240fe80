#ifndef TORNIK_TESTS_SUPPORT_RUNNINGPROGRAM_H
#define TORNIK_TESTS_SUPPORT_RUNNINGPROGRAM_H

#include "shell/CMainMenu.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QMap>
#include <QStringList>
#include <QVector>

#include <memory>
#include <vector>

class CKelmoMain;
class CKelmoMainDialog;
class CKelmoNetworkServer;
class CKelmoPortSimulator;
class CRace;
class CRecordingSounds;
class CScriptedQuestions;
class CTrackDisplay;
class QApplication;
class QPushButton;

/**
 * The whole program in the process of a test: the application with its arguments and the start
 * object, worked by keys and by the buttons of the simulator, and read off the screen. Only sounds
 * and the boxes that wait for the user are replaced. Track numbers are those of the user, from 1.
 */
class RunningProgram
{
public:
    explicit RunningProgram(const QStringList& arguments = {"--windowed"});
    ~RunningProgram();

    CKelmoMain& main() { return *m_main; }
    void destroyMain();
    CKelmoMainDialog& dialog() const;
    CRace& race() const;
    /** Not in a display client. */
    CKelmoNetworkServer& server() const;
    CKelmoPortSimulator& simulator() const;
    CMainMenu* menu() const;
    CTrackDisplay* track(int number) const;
    CScriptedQuestions& user() const { return *m_user; }
    CRecordingSounds& sounds() const { return *m_sounds; }

    // What the user sees
    QString trackText(int number, const char* label) const;
    QString laps(int number) const { return trackText(number, "lapCount"); }
    QString status(int number) const { return trackText(number, "status"); }
    /** @return the words of all tracks, in order. */
    QStringList statuses() const;
    /** @return a value of the info frame: "raceTime", "additionalInfo", ... */
    QString infoText(const char* label) const;
    /** @return the red line. */
    QString message() const { return infoText("additionalInfo"); }
    QString menuText(CMainMenu::Entry entry) const;
    /** @return what the menu says of the track's power. */
    QString powerText(int number) const;
    /** @return the five lamps as lampLetters() has them. */
    QString lights() const;
    /** @return the value of the fuel bar. */
    int fuel(int number) const;

    // What the user does
    /** Presses a key on the main window. */
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /** Sets off a quick race, with the simulator beside it. @return whether its buttons can be pressed */
    bool startRace();
    void stopRace() { pressKey(Qt::Key_S, Qt::ControlModifier); }
    QPushButton* button(const QString& name) const;
    /** Holds a button of the simulator down: the sensor is closed. */
    void hold(const QString& name);
    void release(const QString& name);
    /** Presses and releases a button, more than some milliseconds after its last press. */
    void tap(const QString& name, int atLeast = 15);
    /** Lets the car of a track cross the line. @param atLeast milliseconds from the last time */
    void cross(int number, int atLeast = 15);
    /** Presses the button of all tracks at once. */
    void crossAll(int atLeast = 15) { tap("all", atLeast); }

    /** @return the laps that the panel has shown since startRace(), in milliseconds. */
    QVector<int> shownLaps(int number) const { return m_shownLaps.value(number); }

    /** Lets a sensor event reach the race without the simulator; 0 for no sensor. */
    void sensorAt(int time, int portId);
    /**
     * Drives the laps of one track after the other, in milliseconds, on the stamps of an interface. The
     * first call since startRace() begins with the crossing that counts no lap.
     */
    void driveLaps(const QVector<QVector<int>>& lapsOfTracks);

    /** Lets the time limit of the race run out now. */
    void letTimeRunOut();
    /** Lets a second of the start by lights pass now. */
    void letStartSecondPass();

    /** @return a time as the panels write it. */
    static QString timeText(int milliseconds);
    static int milliseconds(const QString& timeText);

private:
    void noteLaps();

    std::vector<QByteArray> m_bytes;
    std::vector<char*> m_argv;
    int m_argc = 0;
    std::unique_ptr<QApplication> m_application;
    std::unique_ptr<CKelmoMain> m_main;
    CScriptedQuestions* m_user = nullptr;
    CRecordingSounds* m_sounds = nullptr;
    QMap<QString, QElapsedTimer> m_lastPress;
    QElapsedTimer m_anyPress;
    QMap<int, QString> m_lapCounts;
    QMap<int, QVector<int>> m_shownLaps;
    QMap<int, int> m_lastStamp; ///< of driveLaps(); by track
};

#endif
