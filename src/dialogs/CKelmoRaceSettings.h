#ifndef TORNIK_DIALOGS_CKELMORACESETTINGS_H
#define TORNIK_DIALOGS_CKELMORACESETTINGS_H

#include <QDialog>

#include <memory>

class CDataCaptureGroup;
class CEmptyFuelReactionGroup;
class CEndConditionGroup;
class CFuelFunctionGroup;
class CFuelTankGroup;
class CRaceSettings;
class CSignalControlGroup;
class CStartConditionGroup;
class CUserQuestions;
class CWinningConditionGroup;
class QCheckBox;
class QHBoxLayout;

/**
 * Edits how the next race starts, ends, is won, burns fuel and what it records.
 *
 * Owned by the main dialog and kept between its openings. The live settings change on "Ok" alone;
 * their drivers, cars and raceway never.
 */
class CKelmoRaceSettings : public QDialog
{
    Q_OBJECT

public:
    /** @param raceSettings the live object; not owned */
    explicit CKelmoRaceSettings(CRaceSettings* raceSettings, QWidget* parent = nullptr);
    ~CKelmoRaceSettings() override;

    /** Shows the live settings and waits for the user. @return 1 when he accepted */
    int run();

    /** Replaces the boxes that wait for the user, so that a test can answer. */
    void setUserQuestions(std::unique_ptr<CUserQuestions> questions);

private Q_SLOTS:
    void storeSettings();
    void setDefaultSettings();
    void actOnToggleOfStartCondition(bool timed);
    void actOnToggleOfEndConditionTimelimit(bool on);
    void actOnToggleOfEndConditionLaplimit(bool on);
    void actOnToggleOfWinningCondition(bool on);
    void actOnToggleOfWinningConditionConsistentTimes(bool on);
    void actOnToggleNoFuelFunction(bool on);
    void actOnToggleCarSpecificFuelFunction(bool on);
    void actOnToggleCommonFuelFunction(bool on);
    void actOnToggleEmptyFuelPenaltyFunction(bool on);
    void actOnToggleStutterTrackPowerWhenFuelEmpty(bool checked);
    void actOnStutterFrequencySlider(int newFrequency);
    void exportSettings();
    void importSettings();
    void actOnStartLightsMinDelayBox(int delay);
    void actOnStartLightsMaxDelayBox(int delay);

private:
    QWidget* createStartAndEndTab();
    QWidget* createFuelTab();
    QWidget* createDataTab();
    QHBoxLayout* createButtons();
    void connectGroups();
    void connectFuelGroups();
    void showRules(const CRaceSettings& rules);
    void storeRules(CRaceSettings& rules);
    void applyEnableRules();
    void enableReactions(bool on);

    CRaceSettings* m_raceSettings; ///< not owned
    std::unique_ptr<CUserQuestions> m_questions;
    CStartConditionGroup* m_start;
    CEndConditionGroup* m_end;
    CWinningConditionGroup* m_winner;
    CSignalControlGroup* m_signals;
    CFuelFunctionGroup* m_fuelFunction;
    CFuelTankGroup* m_tank;
    CEmptyFuelReactionGroup* m_reaction;
    CDataCaptureGroup* m_dataCapture;
    QCheckBox* m_saveAsDefaults = nullptr;
};

#endif
