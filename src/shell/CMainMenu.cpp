#include "shell/CMainMenu.h"

#include <QAction>

namespace {

constexpr int Tracks = 8;

/** The same keys in every language, so they aren't translated. */
QKeySequence shortcut(const QString& keys)
{
    return QKeySequence::fromString(keys, QKeySequence::PortableText);
}

void showMenu(QMenu* menu, bool shown)
{
    menu->setEnabled(shown);
    menu->menuAction()->setEnabled(shown);
    menu->menuAction()->setVisible(shown);
}

void showAction(QAction* action, bool shown)
{
    action->setVisible(shown);
    action->setEnabled(shown);
}

} // namespace

CMainMenu::CMainMenu(QWidget* parent) : QMenuBar(parent)
{
    setObjectName("menuBar");
    setNativeMenuBar(false);
    createActions();
    createTrackPowerActions();
    createMenus();
    action(Simulator)->setCheckable(true);
    action(PauseRace)->setEnabled(false);
    showRemoteClient(false);
}

void CMainMenu::createActions()
{
    createAction(QuickRace, "quickRace", tr("&schnelles Rennen starten"), "Ctrl+S",
                 tr("Ein Rennen starten oder anhalten"));
    createAction(RecordedRace, "recordedRace", tr("&Wettkampf Rennen starten"), "Ctrl+W",
                 tr("Ein Wettkampf Rennen starten oder anhalten"));
    createAction(PauseRace, "pauseRace", tr("Rennen &pausieren"), "Ctrl+P",
                 tr("Ein laufendes Rennen pausieren"));
    createAction(StoreRace, "storeRace", tr("Rennen sp&eichern"), "Ctrl+E",
                 tr("Das abgeschlossene Rennen abspeichern"));
    createAction(ShowSummary, "showSummary", tr("&Zusammenfassung anzeigen"), "Ctrl+Z",
                 tr("Daten des abgeschlossenen Rennens anzeigen"));
    createAction(RaceSettings, "raceSettings", tr("&Einstellungen"), "Ctrl+R",
                 tr("Einstellungen für ein Rennen vornehmen"));
    createAction(AllTracksOn, "allTracksOn", tr("Alle Spuren an"), "F9",
                 tr("Spannungsversorgung alle Spuren an"));
    createAction(AllTracksOff, "allTracksOff", tr("Alle Spuren aus"), "F10",
                 tr("Spannungsversorgung alle Spuren aus"));
    createAction(Settings, "settings", tr("&Grundeinstellungen"), "Ctrl+G",
                 tr("Grundeinstellungen vornehmen"));
    createAction(Simulator, "simulator", tr("Simulator Modus"), "Ctrl+D",
                 tr("Schaltet den Simulator Modus an/aus"));
    createAction(ClientShutdown, "clientShutdown", tr("Client &herunterfahren"), "Ctrl+H",
                 tr("Über Netzwerk verbundenen Anzeige Client herunterfahren"));
    createAction(RaceAnalyzer, "raceAnalyzer", tr("&Anzeige schnellste Runden"), "Ctrl+A",
                 tr("Anschauen von schnellsten Runden"));
    createAction(Quit, "quit", tr("&Beenden"), "Ctrl+X", tr("Tornik beenden"));
    createAction(About, "about", tr("&Über"), "Ctrl+Ü", tr("Infos über diesen Tornik"));
}

void CMainMenu::createAction(Entry entry, const char* name, const QString& text, const char* keys,
                             const QString& statusTip)
{
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(shortcut(QString::fromUtf8(keys)));
    action->setStatusTip(statusTip);
    m_actions[entry] = action;
}

void CMainMenu::createTrackPowerActions()
{
    for (int number = 1; number <= Tracks; ++number) {
        auto* action = new QAction(tr("Spur &%1").arg(number), this);
        action->setObjectName(QStringLiteral("trackPower%1").arg(number));
        action->setShortcut(shortcut(QStringLiteral("F%1").arg(number)));
        action->setStatusTip(tr("Spannungsversorgung Spur %1 schalten").arg(number));
        m_trackPowerActions.append(action);
    }
}

void CMainMenu::createMenus()
{
    m_raceMenu = addMenu(tr("&Rennen"));
    addEntries(m_raceMenu, {QuickRace, PauseRace, StoreRace, ShowSummary});
    m_trackPowerMenu = m_raceMenu->addMenu(tr("Spurstr&om"));
    addEntries(m_raceMenu, {RaceSettings});

    m_trackPowerMenu->addActions(m_trackPowerActions);
    m_trackPowerMenu->addSeparator();
    addEntries(m_trackPowerMenu, {AllTracksOn, AllTracksOff});

    m_programMenu = addMenu(tr("&Programm"));
    addEntries(m_programMenu, {Settings, Simulator, ClientShutdown, RaceAnalyzer, Quit});
    m_helpMenu = addMenu(tr("&?"));
    addEntries(m_helpMenu, {About});
}

void CMainMenu::addEntries(QMenu* menu, const QList<Entry>& entries)
{
    for (const Entry entry : entries)
        menu->addAction(action(entry));
}

void CMainMenu::showRaceStarted()
{
    action(QuickRace)->setText(tr("&schnelles Rennen beenden"));
    action(RecordedRace)->setEnabled(false);
    showRunning();
}

void CMainMenu::showRecordedRaceStarted()
{
    action(RecordedRace)->setText(tr("&Wettkampf Rennen beenden"));
    action(QuickRace)->setEnabled(false);
    showRunning();
}

void CMainMenu::showRunning()
{
    action(PauseRace)->setEnabled(true);
    showRaceResumed();
    setIdleEntriesEnabled(false);
}

void CMainMenu::showRaceStopped()
{
    action(RecordedRace)->setText(tr("&Wettkampf Rennen starten"));
    action(RecordedRace)->setEnabled(true);
    action(QuickRace)->setText(tr("&schnelles Rennen starten"));
    action(QuickRace)->setEnabled(true);
    action(PauseRace)->setEnabled(false);
    showRaceResumed();
    setIdleEntriesEnabled(true);
}

void CMainMenu::setIdleEntriesEnabled(bool enabled)
{
    for (const Entry entry :
         {StoreRace, ShowSummary, RaceSettings, Settings, RaceAnalyzer, Simulator, ClientShutdown})
        action(entry)->setEnabled(enabled);
}

void CMainMenu::showRacePaused()
{
    action(PauseRace)->setText(tr("&Pausiertes Rennen fortsetzen"));
}

void CMainMenu::showRaceResumed()
{
    action(PauseRace)->setText(tr("Rennen &pausieren"));
}

void CMainMenu::showRemoteClient(bool connected)
{
    showAction(action(ClientShutdown), connected);
}

void CMainMenu::showTrackPower(bool switchable, int tracks)
{
    showMenu(m_trackPowerMenu, switchable);
    for (int track = 0; track < m_trackPowerActions.size(); ++track)
        showAction(m_trackPowerActions[track], switchable && track < tracks);
    showAction(action(AllTracksOn), switchable);
    showAction(action(AllTracksOff), switchable);
}

void CMainMenu::showTrackPowerState(int track, bool on)
{
    if (track < 0 || track >= m_trackPowerActions.size())
        return;
    //: %1 is the number of the track, %2 what a press does: "ausschalten" or "einschalten"
    m_trackPowerActions[track]->setText(
        tr("Spur &%1 %2").arg(QString::number(track + 1), on ? tr("ausschalten") : tr("einschalten")));
}

void CMainMenu::showClientMode()
{
    showTrackPower(false, 0);
    showMenu(m_raceMenu, false);
    // A hidden menu alone leaves the shortcuts of its entries alive, and a hidden entry can't be
    // enabled by a change of state.
    for (int entry = 0; entry < NumberOfEntries; ++entry) {
        if (entry != Quit && entry != About)
            showAction(m_actions[std::size_t(entry)], false);
    }
}
