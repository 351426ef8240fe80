#ifndef TORNIK_SHELL_CMAINMENU_H
#define TORNIK_SHELL_CMAINMENU_H

#include <QList>
#include <QMenuBar>

#include <array>

/**
 * The menu bar of the main dialog: all entries with their texts, shortcuts and tips, and which of
 * them can be chosen in which state. What an entry does is the dialog's: it connects the actions.
 * Owned by its Qt parent.
 */
class CMainMenu : public QMenuBar
{
    Q_OBJECT

public:
    enum Entry
    {
        QuickRace,
        RecordedRace, ///< stands in no menu and on no widget, so that nothing fires it
        PauseRace,
        StoreRace,
        ShowSummary,
        RaceSettings,
        AllTracksOn,
        AllTracksOff,
        Settings,
        Simulator,
        ClientShutdown,
        RaceAnalyzer,
        Quit,
        About,
        NumberOfEntries
    };

    explicit CMainMenu(QWidget* parent = nullptr);

    QAction* action(Entry entry) const { return m_actions[entry]; }
    /** The entries that switch one track, indexed by track number. */
    const QList<QAction*>& trackPowerActions() const { return m_trackPowerActions; }

    void showRaceStarted();
    void showRecordedRaceStarted();
    void showRaceStopped();
    void showRacePaused();
    void showRaceResumed();
    void showRemoteClient(bool connected);
    /** Shows the power entries of the raceway's tracks, or none at all. */
    void showTrackPower(bool switchable, int tracks);
    /** @param on the power of the track now; the entry tells what a press will do */
    void showTrackPowerState(int track, bool on);
    /** Leaves only what a display client can do. */
    void showClientMode();

private:
    void createActions();
    void createTrackPowerActions();
    void createMenus();
    void createAction(Entry entry, const char* name, const QString& text, const char* keys,
                      const QString& statusTip);
    void addEntries(QMenu* menu, const QList<Entry>& entries);
    void showRunning();
    void setIdleEntriesEnabled(bool enabled);

    QMenu* m_raceMenu = nullptr;
    QMenu* m_programMenu = nullptr;
    QMenu* m_trackPowerMenu = nullptr;
    QMenu* m_helpMenu = nullptr;
    std::array<QAction*, NumberOfEntries> m_actions{};
    QList<QAction*> m_trackPowerActions;
};

#endif
