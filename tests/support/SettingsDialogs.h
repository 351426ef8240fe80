#ifndef TORNIK_TESTS_SUPPORT_SETTINGSDIALOGS_H
#define TORNIK_TESTS_SUPPORT_SETTINGSDIALOGS_H

#include "dialogs/CKelmoSettings.h"
#include "shell/CKelmoMainDialog.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"
#include "support/RunningProgram.h"
#include "support/ScriptedQuestions.h"

#include <functional>

/** Opens the race settings by their key, lets the user work there and closes them by a button. */
inline void inRaceSettings(RunningProgram& program, const std::function<void(const DialogUser&)>& work,
                           const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([work, button](QDialog* dialog) {
        QCOMPARE(dialog->objectName(), QString("raceSettingsDialog"));
        const DialogUser user(dialog);
        work(user);
        user.press(button);
    });
    program.pressKey(Qt::Key_R, Qt::ControlModifier);
}

/** Does the same in the basic settings; the answers are for the windows that open from there. */
inline void inSettings(RunningProgram& program,
                       const std::function<void(const DialogUser&, ModalAnswers&)>& work,
                       const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([&answers, work, button](QDialog* dialog) {
        QCOMPARE(dialog->objectName(), QString("settingsDialog"));
        const DialogUser user(dialog);
        work(user, answers);
        user.press(button);
    });
    program.pressKey(Qt::Key_G, Qt::ControlModifier);
}

/** @return who answers the file boxes and questions of the basic settings from now on. */
inline CScriptedQuestions* answerBoxes(RunningProgram& program)
{
    auto questions = std::make_unique<CScriptedQuestions>();
    CScriptedQuestions* user = questions.get();
    program.dialog().findChild<CKelmoSettings*>()->setUserQuestions(std::move(questions));
    return user;
}

/** Accepts the editor of a car or driver that opens next, with a name. */
inline void expectEditor(ModalAnswers& answers, const char* field, const QString& name)
{
    answers.expect([field, name](QDialog* window) {
        const DialogUser editor(window);
        editor.enter(field, name);
        editor.press("okButton");
    });
}

#endif
