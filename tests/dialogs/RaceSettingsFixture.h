#ifndef TORNIK_TESTS_DIALOGS_RACESETTINGSFIXTURE_H
#define TORNIK_TESTS_DIALOGS_RACESETTINGSFIXTURE_H

#include "dialogs/CKelmoRaceSettings.h"
#include "race/CRaceSettings.h"
#include "support/DialogUser.h"
#include "support/ModalAnswers.h"
#include "support/ScriptedQuestions.h"

#include <QDataStream>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QSettings>

/** Rules that come back from the dialog as they went in, on a raceway that can switch power. */
inline CRaceSettings ordinaryRules()
{
    CRaceSettings rules;
    rules.setWinningCondition(1);
    CRaceway raceway(2);
    raceway.name = QStringLiteral("Testbahn");
    raceway.pwrOffFeatureAvailable = true;
    rules.setRaceway(raceway);
    CDriver driver;
    driver.setName(QStringLiteral("Anna"));
    driver.setId(7);
    rules.setDriver(1, driver);
    CCar car;
    car.setName(QStringLiteral("917k"));
    car.setId(9);
    rules.setCar(1, car);
    return rules;
}

inline CRaceSettings withFuel(CRaceSettings rules, int function, int reaction = 0)
{
    CFuelSettings fuel = rules.fuelSettings();
    fuel.setFuelFunction(function);
    fuel.setEmptyFuelReaction(reaction);
    rules.setFuelSettings(fuel);
    return rules;
}

/** Every value of the rules, in bytes, so that two records can be compared. */
inline QByteArray bytesOf(const CRaceSettings& rules)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << rules;
    return bytes;
}

using Change = std::function<void(CRaceSettings&)>;

/** A change of one value of the fuel settings. */
template <typename Value>
Change fuel(void (CFuelSettings::*set)(Value), const std::decay_t<Value>& value)
{
    return [set, value](CRaceSettings& rules) {
        CFuelSettings settings = rules.fuelSettings();
        (settings.*set)(value);
        rules.setFuelSettings(settings);
    };
}

inline QGroupBox* group(const QWidget& dialog, const QString& title, int tab)
{
    for (auto* box : dialog.findChildren<QGroupBox*>()) {
        if (box->title() == title && dialog.findChild<QTabWidget*>("tabs")->widget(tab)->isAncestorOf(box))
            return box;
    }
    return nullptr;
}

/** What the user does in the open dialog. */
using Work = std::function<void(const DialogUser&)>;

/** Opens the dialog and lets the user work; @p button closes it. @return what run() gives */
inline int open(CKelmoRaceSettings& dialog, const Work& work, const char* button = "okButton")
{
    ModalAnswers answers;
    answers.expect([work, button](QDialog* window) {
        const DialogUser user(window);
        work(user);
        user.press(button);
        if (window->isVisible()) {
            QTest::qFail("the button doesn't close the window", __FILE__, __LINE__);
            window->reject();
        }
    });
    return dialog.run();
}

inline int open(CRaceSettings& rules, const Work& work, const char* button = "okButton")
{
    CKelmoRaceSettings dialog(&rules);
    return open(dialog, work, button);
}

/** Gives the dialog a user who answers each file box with @p fileName. */
inline CScriptedQuestions* answer(CKelmoRaceSettings& dialog, const QString& fileName)
{
    auto questions = std::make_unique<CScriptedQuestions>();
    questions->fileName = fileName;
    CScriptedQuestions* user = questions.get();
    dialog.setUserQuestions(std::move(questions));
    return user;
}

#endif
