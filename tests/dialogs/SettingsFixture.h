#ifndef TORNIK_TESTS_DIALOGS_SETTINGSFIXTURE_H
#define TORNIK_TESTS_DIALOGS_SETTINGSFIXTURE_H

#include "dialogs/CKelmoSettings.h"
#include "shell/MainDialogFixture.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"

#include <QFile>
#include <QSettings>

/** The main dialog and a user who opens the settings from its menu. */
class SettingsFixture
{
public:
    using Work = std::function<void(const DialogUser&)>;

    enum Cameras
    {
        Told,       ///< those that a test puts into `cameras`
        OfTheSystem ///< those that hang on the machine
    };

    explicit SettingsFixture(Cameras whichCameras = Told)
    {
        auto script = std::make_unique<CScriptedQuestions>();
        user = script.get();
        dialog()->setUserQuestions(std::move(script));
        if (whichCameras == Told)
            dialog()->setCameraNames([this] { return cameras; });
    }

    /** Leaves neither a file nor a setting of the test before. */
    static void startAnew()
    {
        QFile::remove("tornik.db");
        QSettings("Tornik", "Tornik").clear();
    }

    CKelmoSettings* dialog() const { return main.dialog.findChild<CKelmoSettings*>(); }

    /** Opens the settings, lets the user work and closes them by a button. */
    void open(const Work& work, const char* button = "okButton")
    {
        ModalAnswers modalAnswers;
        answers = &modalAnswers;
        modalAnswers.expect([work, button](QDialog* window) {
            QCOMPARE(window->objectName(), QString("settingsDialog"));
            const DialogUser worker(window);
            work(worker);
            worker.press(button);
            QVERIFY2(!window->isVisible(), "the button doesn't close the window");
        });
        main.action(CMainMenu::Settings)->trigger();
        answers = nullptr;
    }
    void openAndCancel(const Work& work) { open(work, "cancelButton"); }

    MainDialogFixture main;
    QStringList cameras;
    CScriptedQuestions* user;        ///< answers the boxes of the settings
    ModalAnswers* answers = nullptr; ///< of the windows that open over the settings, while these are open
};

#endif
