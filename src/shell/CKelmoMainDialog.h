#ifndef TORNIK_SHELL_CKELMOMAINDIALOG_H
#define TORNIK_SHELL_CKELMOMAINDIALOG_H

#include "race/CRaceEvent.h"

#include <QDialog>
#include <QTime>

#include <memory>

class CCarList;
class CDriverList;
class CInfoFrame;
class CKelmoPortSimulator;
class CKelmoRaceAnalyzer;
class CKelmoRaceSettings;
class CKelmoSettings;
class CLights;
class CMainMenu;
class CQrCodeReaderDialog;
class CRace;
class CRaceSettings;
class CRaceStartDlg;
class CRaceStoreDlg;
class CRaceSummaryDialog;
class CRacewayList;
class CSettings;
class CSoundHandler;
class CTrackDisplay;
class CTrackPanels;
class CUserQuestions;
class QHBoxLayout;
class QVBoxLayout;

/**
 * The one window of the program: menu, start lights, track panels, info frame.
 *
 * It runs no race. It turns menu entries and keys into signals for the race, and puts what comes
 * from the race, or from the network in client mode, on the panels and into sounds. Owned by the
 * start object; main thread only.
 */
class CKelmoMainDialog : public QDialog
{
    Q_OBJECT

public:
    /** @param settings, raceSettings the live objects; not owned */
    CKelmoMainDialog(CSettings* settings, CRaceSettings* raceSettings, QWidget* parent = nullptr);
    ~CKelmoMainDialog() override;

    /** @param dialog not owned */
    void setSummaryDialog(CRaceSummaryDialog* dialog) { m_summaryDialog = dialog; }
    /** @param race gets the events of the simulator; not owned */
    void setRaceOfSimulator(CRace* race);
    /** Replaces the sounds, so that a test can listen; the files are set again. */
    void setSoundHandler(std::unique_ptr<CSoundHandler> soundHandler);
    /** Replaces the window with the camera, so that a test can say what is read. */
    void setQrCodeReaderDialog(std::unique_ptr<CQrCodeReaderDialog> dialog);
    /** Replaces the boxes that wait for the user, so that a test can answer. */
    void setUserQuestions(std::unique_ptr<CUserQuestions> questions);

    /** Replaces the window's style by the file "styleSheet.css" of the working directory, if there is one. */
    void loadStyleSheet();

Q_SIGNALS:
    void raceStartRecordedRace(const QString& raceName);
    void raceStartQuickRace();
    void raceStop();
    void racePause();
    void raceResume();
    void raceStoreToDatabase(const QString& raceName);
    void raceStoreToCsv(const QString& pathAndFilename);
    /** @param track track number from 0 */
    void raceTrackPowerSwitch(int track, bool on);
    void raceTrackPowerSwitch(bool on);
    /** @param track track number from 0 */
    void raceTrackPowerToggle(int track);
    void racewayChanged();
    void settingsChanged();
    void raceSettingsChanged();
    void remoteClientShutdownTrigger();

public Q_SLOTS:
    /** @param iAction a CLightAction; any other value means all off */
    void updateLightsDisplay(int iAction);
    void HandleEventRace(const CRaceEvent& event);
    void vSetUiRaceStarted();
    void vSetUiRecordedRaceStarted();
    void vSetUiRaceStopped();
    void vSetUiRacePaused();
    void vSetUiRaceResumed();
    void vSetUiRemoteClientConnected();
    void vSetUiRemoteClientDisconnected();
    void setRaceTime(const QTime& time);
    void setAdditionalInfo(const QString& text);
    void raceStoreTrigger();
    void trackPowerNotification(int tracknum, bool powerState);
    void quickRaceTrigger();
    /** For good: the window shows a race of another machine. */
    void enableClientMode();
    void onSettingsChanged();
    void onRaceSettingsChanged();
    void vPublishDriversAndCarsToTrackDisplays();
    void keyPressEvent(QKeyEvent* e) override;

private Q_SLOTS:
    void raceTrigger();
    void racePauseTrigger();
    void showRaceSettings();
    void showSettings();
    void showRaceAnalyzer();
    void raceSummaryDialogTrigger();
    void showAboutDialog();
    void trackPowerTriggerAllOn();
    void trackPowerTriggerAllOff();
    void trackPowerToggleTrack1() { Q_EMIT raceTrackPowerToggle(0); }
    void trackPowerToggleTrack2() { Q_EMIT raceTrackPowerToggle(1); }
    void trackPowerToggleTrack3() { Q_EMIT raceTrackPowerToggle(2); }
    void trackPowerToggleTrack4() { Q_EMIT raceTrackPowerToggle(3); }
    void trackPowerToggleTrack5() { Q_EMIT raceTrackPowerToggle(4); }
    void trackPowerToggleTrack6() { Q_EMIT raceTrackPowerToggle(5); }
    void trackPowerToggleTrack7() { Q_EMIT raceTrackPowerToggle(6); }
    void trackPowerToggleTrack8() { Q_EMIT raceTrackPowerToggle(7); }
    void newRacewaySelected();
    void remoteShutdownTriggered();
    void showQrCodeDetectorDialog(CTrackDisplay* panel);
    /** @param i number of the panel, legends counted */
    void qrCodeShortcutTrack(int i);
    void qrCodeShortcutTrack1() { qrCodeShortcutTrack(0); }
    void qrCodeShortcutTrack2() { qrCodeShortcutTrack(2); }
    void qrCodeShortcutTrack3() { qrCodeShortcutTrack(4); }
    void qrCodeShortcutTrack4() { qrCodeShortcutTrack(6); }
    void qrCodeShortcutTrack5() { qrCodeShortcutTrack(8); }
    void qrCodeShortcutTrack6() { qrCodeShortcutTrack(10); }
    void qrCodeShortcutTrack7() { qrCodeShortcutTrack(12); }
    void qrCodeShortcutTrack8() { qrCodeShortcutTrack(14); }

private:
    void createMenu();
    void connectTrackPower();
    void createQrShortcuts();
    void createWidgets();
    static QHBoxLayout* centred(QWidget* widget);
    void loadSounds();
    bool isMutedClient() const;
    void showMember(const CRaceEvent& event);
    void showSectionTimes(CTrackDisplay* panel, const CRaceEvent& event) const;
    void raceStarted();
    void collectDriversAndCars();
    void giveListsToSettingsDialog();
    void takeListsAsTheyAre();
    void applyQrCode(CTrackDisplay* panel, const QString& text);

    std::unique_ptr<CRacewayList> m_racewayList;
    std::unique_ptr<CCarList> m_carList;
    std::unique_ptr<CDriverList> m_driverList;
    CKelmoPortSimulator* m_portSimulator;
    CSettings* m_settings;         ///< not owned
    CRaceSettings* m_raceSettings; ///< not owned
    CKelmoSettings* m_settingsDialog;
    CKelmoRaceSettings* m_raceSettingsDialog = nullptr; ///< made at its first use: it is slow to make
    CRaceStartDlg* m_raceStartDialog;
    CRaceStoreDlg* m_raceStoreDialog; ///< stands ready; no entry uses it
    CKelmoRaceAnalyzer* m_raceAnalyzer;
    std::unique_ptr<CQrCodeReaderDialog> m_qrCodeReaderDialog;
    CRaceSummaryDialog* m_summaryDialog = nullptr; ///< not owned
    std::unique_ptr<CUserQuestions> m_questions;
    CMainMenu* m_menu = nullptr;
    CLights* m_lights = nullptr;
    CTrackPanels* m_panels = nullptr;
    CInfoFrame* m_infoFrame = nullptr;
    QVBoxLayout* m_mainLayout = nullptr;
    std::unique_ptr<CSoundHandler> m_soundHandler;
    bool m_raceRunning = false;
    bool m_racePaused = false;
    bool m_clientMode = false;
    bool m_redLightSeen = false;
};

#endif
