#include "shell/CMainMenu.h"

#include <QAction>
#include <QTest>

namespace {

QMenu* menuNamed(const CMainMenu& menu, const QString& title)
{
    for (QMenu* found : menu.findChildren<QMenu*>()) {
        if (found->title() == title)
            return found;
    }
    return nullptr;
}

/** Texts of the entries, "-" for a separator. */
QStringList entries(const QWidget* menu)
{
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts.append(action->isSeparator() ? "-" : action->text());
    return texts;
}

QString shortcut(const QAction* action)
{
    return action->shortcut().toString(QKeySequence::PortableText);
}

const QList<CMainMenu::Entry> IdleEntries{CMainMenu::StoreRace,    CMainMenu::ShowSummary,
                                          CMainMenu::RaceSettings, CMainMenu::Settings,
                                          CMainMenu::RaceAnalyzer, CMainMenu::Simulator};

} // namespace

class tst_CMainMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menusHoldTheirEntriesInOrder();
    void entryHasItsTexts_data();
    void entryHasItsTexts();
    void trackEntriesHaveTheirTexts();
    void competitionEntryStandsOnNoWidget();
    void onlyTheSimulatorIsCheckable();
    void quickRaceChangesTheEntries();
    void competitionRaceChangesTheEntriesWithRolesSwapped();
    void stoppedRaceBringsEverythingBack();
    void pauseEntryTellsWhatItWillDo();
    void clientShutdownIsThereOnlyWithAClient();
    void stoppedRaceDoesNotBringTheClientShutdownWithoutAClient();
    void trackEntryTellsWhatAPressWillDo();
    void powerStateOfAnUnknownTrackIsIgnored();
    void powerMenuShowsTheTracksOfTheRaceway();
    void powerMenuIsGoneWithoutSwitching();
    void clientModeLeavesQuitAndHelp();
};

void tst_CMainMenu::menusHoldTheirEntriesInOrder()
{
    const CMainMenu menu;
    QCOMPARE(entries(&menu), QStringList({"&Rennen", "&Programm", "&?"}));
    QCOMPARE(entries(menuNamed(menu, "&Rennen")),
             QStringList({"&schnelles Rennen starten", "Rennen &pausieren", "Rennen sp&eichern",
                          "&Zusammenfassung anzeigen", "Spurstr&om", "&Einstellungen"}));
    QCOMPARE(entries(menuNamed(menu, "Spurstr&om")),
             QStringList({"Spur &1", "Spur &2", "Spur &3", "Spur &4", "Spur &5", "Spur &6", "Spur &7",
                          "Spur &8", "-", "Alle Spuren an", "Alle Spuren aus"}));
    QCOMPARE(entries(menuNamed(menu, "&Programm")),
             QStringList({"&Grundeinstellungen", "Simulator Modus", "Client &herunterfahren",
                          "&Anzeige schnellste Runden", "&Beenden"}));
    QCOMPARE(entries(menuNamed(menu, "&?")), QStringList{"&Über"});
}

void tst_CMainMenu::entryHasItsTexts_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("tip");
    const auto row = [](const char* text, CMainMenu::Entry entry, const char* keys, const char* tip) {
        QTest::newRow(text) << int(entry) << QString(keys) << QString(tip);
    };
    row("&schnelles Rennen starten", CMainMenu::QuickRace, "Ctrl+S", "Ein Rennen starten oder anhalten");
    row("&Wettkampf Rennen starten", CMainMenu::RecordedRace, "Ctrl+W",
        "Ein Wettkampf Rennen starten oder anhalten");
    row("Rennen &pausieren", CMainMenu::PauseRace, "Ctrl+P", "Ein laufendes Rennen pausieren");
    row("Rennen sp&eichern", CMainMenu::StoreRace, "Ctrl+E", "Das abgeschlossene Rennen abspeichern");
    row("&Zusammenfassung anzeigen", CMainMenu::ShowSummary, "Ctrl+Z",
        "Daten des abgeschlossenen Rennens anzeigen");
    row("&Einstellungen", CMainMenu::RaceSettings, "Ctrl+R", "Einstellungen für ein Rennen vornehmen");
    row("Alle Spuren an", CMainMenu::AllTracksOn, "F9", "Spannungsversorgung alle Spuren an");
    row("Alle Spuren aus", CMainMenu::AllTracksOff, "F10", "Spannungsversorgung alle Spuren aus");
    row("&Grundeinstellungen", CMainMenu::Settings, "Ctrl+G", "Grundeinstellungen vornehmen");
    row("Simulator Modus", CMainMenu::Simulator, "Ctrl+D", "Schaltet den Simulator Modus an/aus");
    row("Client &herunterfahren", CMainMenu::ClientShutdown, "Ctrl+H",
        "Über Netzwerk verbundenen Anzeige Client herunterfahren");
    row("&Anzeige schnellste Runden", CMainMenu::RaceAnalyzer, "Ctrl+A", "Anschauen von schnellsten Runden");
    row("&Beenden", CMainMenu::Quit, "Ctrl+X", "Tornik beenden");
    row("&Über", CMainMenu::About, "Ctrl+Ü", "Infos über diesen Tornik");
}

void tst_CMainMenu::entryHasItsTexts()
{
    QFETCH(int, entry);
    QFETCH(QString, keys);
    QFETCH(QString, tip);
    const CMainMenu menu;
    const QAction* action = menu.action(CMainMenu::Entry(entry));
    QCOMPARE(action->text(), QString(QTest::currentDataTag()));
    QCOMPARE(shortcut(action), keys);
    QCOMPARE(action->statusTip(), tip);
}

void tst_CMainMenu::trackEntriesHaveTheirTexts()
{
    const CMainMenu menu;
    QCOMPARE(menu.trackPowerActions().size(), 8);
    for (int number = 1; number <= 8; ++number) {
        const QAction* action = menu.trackPowerActions()[number - 1];
        QCOMPARE(action->text(), QStringLiteral("Spur &%1").arg(number));
        QCOMPARE(shortcut(action), QStringLiteral("F%1").arg(number));
        QCOMPARE(action->statusTip(), QStringLiteral("Spannungsversorgung Spur %1 schalten").arg(number));
    }
}

void tst_CMainMenu::competitionEntryStandsOnNoWidget()
{
    const CMainMenu menu;
    QVERIFY(menu.action(CMainMenu::RecordedRace)->associatedWidgets().isEmpty());
    QCOMPARE(menu.action(CMainMenu::QuickRace)->associatedWidgets().size(), 1);
}

void tst_CMainMenu::onlyTheSimulatorIsCheckable()
{
    const CMainMenu menu;
    for (int entry = 0; entry < CMainMenu::NumberOfEntries; ++entry)
        QCOMPARE(menu.action(CMainMenu::Entry(entry))->isCheckable(), entry == CMainMenu::Simulator);
}

void tst_CMainMenu::quickRaceChangesTheEntries()
{
    CMainMenu menu;
    menu.showRemoteClient(true);
    menu.showRaceStarted();
    QCOMPARE(menu.action(CMainMenu::QuickRace)->text(), QString("&schnelles Rennen beenden"));
    QVERIFY(menu.action(CMainMenu::QuickRace)->isEnabled());
    QVERIFY(!menu.action(CMainMenu::RecordedRace)->isEnabled());
    QVERIFY(menu.action(CMainMenu::PauseRace)->isEnabled());
    QVERIFY(!menu.action(CMainMenu::ClientShutdown)->isEnabled());
    for (const CMainMenu::Entry entry : IdleEntries)
        QVERIFY(!menu.action(entry)->isEnabled());
    QVERIFY(menu.action(CMainMenu::Quit)->isEnabled());
    QVERIFY(menu.action(CMainMenu::About)->isEnabled());
}

void tst_CMainMenu::competitionRaceChangesTheEntriesWithRolesSwapped()
{
    CMainMenu menu;
    menu.showRecordedRaceStarted();
    QCOMPARE(menu.action(CMainMenu::RecordedRace)->text(), QString("&Wettkampf Rennen beenden"));
    QVERIFY(menu.action(CMainMenu::RecordedRace)->isEnabled());
    QVERIFY(!menu.action(CMainMenu::QuickRace)->isEnabled());
    QVERIFY(menu.action(CMainMenu::PauseRace)->isEnabled());
    for (const CMainMenu::Entry entry : IdleEntries)
        QVERIFY(!menu.action(entry)->isEnabled());
}

void tst_CMainMenu::stoppedRaceBringsEverythingBack()
{
    CMainMenu menu;
    menu.showRemoteClient(true);
    for (const bool recorded : {false, true}) {
        if (recorded)
            menu.showRecordedRaceStarted();
        else
            menu.showRaceStarted();
        menu.showRacePaused();
        menu.showRaceStopped();
        QCOMPARE(menu.action(CMainMenu::QuickRace)->text(), QString("&schnelles Rennen starten"));
        QCOMPARE(menu.action(CMainMenu::RecordedRace)->text(), QString("&Wettkampf Rennen starten"));
        QCOMPARE(menu.action(CMainMenu::PauseRace)->text(), QString("Rennen &pausieren"));
        QVERIFY(menu.action(CMainMenu::QuickRace)->isEnabled());
        QVERIFY(menu.action(CMainMenu::RecordedRace)->isEnabled());
        QVERIFY(!menu.action(CMainMenu::PauseRace)->isEnabled());
        QVERIFY(menu.action(CMainMenu::ClientShutdown)->isEnabled());
        for (const CMainMenu::Entry entry : IdleEntries)
            QVERIFY(menu.action(entry)->isEnabled());
    }
}

void tst_CMainMenu::pauseEntryTellsWhatItWillDo()
{
    CMainMenu menu;
    menu.showRaceStarted();
    QCOMPARE(menu.action(CMainMenu::PauseRace)->text(), QString("Rennen &pausieren"));
    menu.showRacePaused();
    QCOMPARE(menu.action(CMainMenu::PauseRace)->text(), QString("&Pausiertes Rennen fortsetzen"));
    menu.showRaceResumed();
    QCOMPARE(menu.action(CMainMenu::PauseRace)->text(), QString("Rennen &pausieren"));
}

void tst_CMainMenu::clientShutdownIsThereOnlyWithAClient()
{
    CMainMenu menu;
    const QAction* action = menu.action(CMainMenu::ClientShutdown);
    QVERIFY(!action->isVisible());
    QVERIFY(!action->isEnabled());
    menu.showRemoteClient(true);
    QVERIFY(action->isVisible());
    QVERIFY(action->isEnabled());
    menu.showRemoteClient(false);
    QVERIFY(!action->isVisible());
    QVERIFY(!action->isEnabled());
}

void tst_CMainMenu::stoppedRaceDoesNotBringTheClientShutdownWithoutAClient()
{
    CMainMenu menu;
    menu.showRaceStarted();
    menu.showRaceStopped();
    QVERIFY(!menu.action(CMainMenu::ClientShutdown)->isVisible());
    QVERIFY(!menu.action(CMainMenu::ClientShutdown)->isEnabled());
}

void tst_CMainMenu::trackEntryTellsWhatAPressWillDo()
{
    CMainMenu menu;
    menu.showTrackPowerState(2, true);
    QCOMPARE(menu.trackPowerActions()[2]->text(), QString("Spur &3 ausschalten"));
    menu.showTrackPowerState(2, false);
    QCOMPARE(menu.trackPowerActions()[2]->text(), QString("Spur &3 einschalten"));
}

void tst_CMainMenu::powerStateOfAnUnknownTrackIsIgnored()
{
    CMainMenu menu;
    menu.showTrackPowerState(-1, true);
    menu.showTrackPowerState(8, true);
    for (const QAction* action : menu.trackPowerActions())
        QVERIFY(!action->text().contains("schalten"));
}

void tst_CMainMenu::powerMenuShowsTheTracksOfTheRaceway()
{
    CMainMenu menu;
    menu.showTrackPower(true, 3);
    QVERIFY(menuNamed(menu, "Spurstr&om")->menuAction()->isVisible());
    QVERIFY(menuNamed(menu, "Spurstr&om")->isEnabled());
    for (int track = 0; track < 8; ++track)
        QCOMPARE(menu.trackPowerActions()[track]->isVisible(), track < 3);
    QVERIFY(menu.action(CMainMenu::AllTracksOn)->isVisible());
    QVERIFY(menu.action(CMainMenu::AllTracksOff)->isVisible());
}

void tst_CMainMenu::powerMenuIsGoneWithoutSwitching()
{
    CMainMenu menu;
    menu.showTrackPower(false, 3);
    QVERIFY(!menuNamed(menu, "Spurstr&om")->menuAction()->isVisible());
    QVERIFY(!menuNamed(menu, "Spurstr&om")->isEnabled());
    for (const QAction* action : menu.trackPowerActions())
        QVERIFY(!action->isEnabled());
    menu.showTrackPower(true, 8);
    QVERIFY(menuNamed(menu, "Spurstr&om")->menuAction()->isVisible());
    for (const QAction* action : menu.trackPowerActions())
        QVERIFY(action->isEnabled());
}

void tst_CMainMenu::clientModeLeavesQuitAndHelp()
{
    CMainMenu menu;
    menu.showTrackPower(true, 8);
    menu.showClientMode();
    QVERIFY(!menuNamed(menu, "&Rennen")->menuAction()->isVisible());
    QVERIFY(!menuNamed(menu, "&Rennen")->isEnabled());
    QVERIFY(!menuNamed(menu, "Spurstr&om")->menuAction()->isVisible());
    QStringList left;
    for (const QAction* action : menuNamed(menu, "&Programm")->actions()) {
        if (action->isVisible())
            left.append(action->text());
    }
    QCOMPARE(left, QStringList{"&Beenden"});
    QVERIFY(menuNamed(menu, "&?")->menuAction()->isVisible());
    QVERIFY(menu.action(CMainMenu::About)->isEnabled());

    menu.showRaceStarted();
    menu.showRaceStopped();
    for (int entry = 0; entry < CMainMenu::NumberOfEntries; ++entry)
        QCOMPARE(menu.action(CMainMenu::Entry(entry))->isEnabled(),
                 entry == CMainMenu::Quit || entry == CMainMenu::About);
}

QTEST_MAIN(tst_CMainMenu)
#include "tst_CMainMenu.moc"
