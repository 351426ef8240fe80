#ifndef TORNIK_DIALOGS_CSTARTCONDITIONGROUP_H
#define TORNIK_DIALOGS_CSTARTCONDITIONGROUP_H

#include <QGroupBox>

class CRaceSettings;
class QButtonGroup;
class QGridLayout;
class QSpinBox;
class QTimeEdit;

/** How a race starts. Part of the race settings dialog, which says when a rule applies. */
class CStartConditionGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CStartConditionGroup(QWidget* parent = nullptr);

    /** Values out of range are shown as the nearest that isn't. */
    void showRules(const CRaceSettings& rules);
    void storeRules(CRaceSettings& rules);

    bool isTimedStart() const;
    void enableTimedStart(bool on);
    /** Takes a minimum of the light delay back to the maximum. @param delay milliseconds */
    void holdMinDelay(int delay);
    /** Takes a maximum of the light delay back to the minimum. @param delay milliseconds */
    void holdMaxDelay(int delay);

Q_SIGNALS:
    void timedStartToggled(bool on);
    /** @param delay milliseconds */
    void minDelayChanged(int delay);
    /** @param delay milliseconds */
    void maxDelayChanged(int delay);

private:
    QSpinBox* createDelayRow(QGridLayout* grid, int row, const QString& caption, const char* name);

    QButtonGroup* m_types;
    QTimeEdit* m_delay;
    QSpinBox* m_minLightDelay = nullptr;
    QSpinBox* m_maxLightDelay = nullptr;
    QList<QWidget*> m_timedStartParts; ///< what a timed start needs
};

#endif
