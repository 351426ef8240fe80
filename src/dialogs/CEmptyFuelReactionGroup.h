#ifndef TORNIK_DIALOGS_CEMPTYFUELREACTIONGROUP_H
#define TORNIK_DIALOGS_CEMPTYFUELREACTIONGROUP_H

#include <QGroupBox>

class CFuelSettings;
class QButtonGroup;
class QGridLayout;
class QLabel;
class QSlider;
class QTimeEdit;

/** What an empty tank does to a car. Part of the race settings dialog, which says when a rule applies. */
class CEmptyFuelReactionGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CEmptyFuelReactionGroup(QWidget* parent = nullptr);

    void showFuel(const CFuelSettings& fuel);
    void storeFuel(CFuelSettings& fuel) const;

    /** @param powerSwitchable whether the raceway can switch power, which two reactions need */
    void enableReactions(bool on, bool powerSwitchable);
    void enablePenalty(bool on);
    void enableStutter(bool on);
    /** @param frequency changes of the power a second */
    void showStutterFrequency(int frequency);

Q_SIGNALS:
    void penaltyToggled(bool on);
    void stutterToggled(bool on);
    void stutterFrequencyChanged(int frequency);

private:
    /** Ids of the radio buttons, the values in the settings. */
    enum Reaction
    {
        BlockLaps,
        PowerOff,
        Penalty,
        Stutter
    };

    void createReactions(QGridLayout* grid);
    void createStutterFrequency();

    QButtonGroup* m_reactions;
    QTimeEdit* m_penaltyTime;
    QLabel* m_penaltyUnit;
    QSlider* m_frequency;
    QLabel* m_frequencyText;
};

#endif
