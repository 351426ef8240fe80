#ifndef TORNIK_TESTS_SHELL_MAINDIALOGFIXTURE_H
#define TORNIK_TESTS_SHELL_MAINDIALOGFIXTURE_H

#include "race/CRaceSettings.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CMainMenu.h"
#include "shell/CRichLabel.h"
#include "shell/CSettings.h"
#include "shell/CTrackDisplay.h"
#include "support/DatabaseFile.h"
#include "support/RecordingSounds.h"
#include "support/ScriptedQuestions.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QSettings>
#include <QTest>

/** @return a raceway of so many tracks, with no hardware. */
inline CRaceway racewayWithTracks(int tracks)
{
    CRaceway raceway(tracks);
    raceway.name = QStringLiteral("Bahn %1").arg(tracks);
    return raceway;
}

/** Removes what an earlier dialog has stored in files and in the settings. */
inline void forgetStored()
{
    QFile::remove("tornik.db");
    QFile::remove("styleSheet.css");
    QSettings("Tornik", "Tornik").clear();
}

/** The main dialog with its settings, with recorded sounds and scripted answers. */
class MainDialogFixture
{
    /** Closes the database behind the dialog, whose list of fastest laps keeps its reference. */
    struct DatabaseCloser
    {
        ~DatabaseCloser() { closeDatabase(); }
    } m_closer;

public:
    MainDialogFixture() : settings(readSettings()), dialog(&settings, &raceSettings)
    {
        auto recorder = std::make_unique<CRecordingSounds>();
        sounds = recorder.get();
        dialog.setSoundHandler(std::move(recorder));
        auto script = std::make_unique<CScriptedQuestions>();
        user = script.get();
        dialog.setUserQuestions(std::move(script));
    }

    void setRaceway(const CRaceway& raceway)
    {
        raceSettings.setRaceway(raceway);
        dialog.onRaceSettingsChanged();
    }

    CMainMenu* menu() const { return dialog.findChild<CMainMenu*>("menuBar"); }
    QAction* action(CMainMenu::Entry entry) const { return menu()->action(entry); }
    /** @param number from 1 */
    CTrackDisplay* track(int number) const
    {
        return dialog.findChild<CTrackDisplay*>(QStringLiteral("track%1").arg(number));
    }
    QString text(int trackNumber, const char* label) const
    {
        return track(trackNumber)->findChild<CRichLabel*>(label)->text();
    }
    /** @return a text of the info frame. */
    QString infoText(const char* label) const { return dialog.findChild<QLabel*>(label)->text(); }
    QComboBox* driverBox(int trackNumber) const
    {
        return track(trackNumber)->findChild<QComboBox*>("driverBox");
    }
    QComboBox* carBox(int trackNumber) const { return track(trackNumber)->findChild<QComboBox*>("carBox"); }

    /** Shows the window and waits until it takes keys. */
    bool activate()
    {
        dialog.show();
        dialog.activateWindow();
        return QTest::qWaitForWindowActive(&dialog);
    }
    void pressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&dialog, Qt::Key(key), modifiers);
    }
    /** Calls a private slot. */
    bool trigger(const char* slot) { return QMetaObject::invokeMethod(&dialog, slot, Qt::DirectConnection); }

    CSettings settings;
    CRaceSettings raceSettings;
    CKelmoMainDialog dialog;
    CRecordingSounds* sounds;
    CScriptedQuestions* user;

private:
    static CSettings readSettings()
    {
        CSettings settings;
        settings.read();
        return settings;
    }
};

#endif
