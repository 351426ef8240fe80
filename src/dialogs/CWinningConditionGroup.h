#ifndef TORNIK_DIALOGS_CWINNINGCONDITIONGROUP_H
#define TORNIK_DIALOGS_CWINNINGCONDITIONGROUP_H

#include <QGroupBox>

class CRaceSettings;
class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QSpinBox;
class QTimeEdit;

/** Who wins a race. Part of the race settings dialog, which says when a rule applies. */
class CWinningConditionGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CWinningConditionGroup(QWidget* parent = nullptr);

    /** A race without a winner is shown like one that the most laps win. */
    void showRules(const CRaceSettings& rules);
    void storeRules(CRaceSettings& rules) const;

    /** @return whether the winner depends on a target time. */
    bool needsTargetTime() const;
    bool isConsistentTimes() const;
    void enableTargetTime(bool on);
    void enableConsistentTimes(bool on);

Q_SIGNALS:
    /** Says that needsTargetTime() may have changed. */
    void targetTimeNeedToggled(bool on);
    void consistentTimesToggled(bool on);

private:
    /** Ids of the radio buttons. */
    enum Condition
    {
        MostLaps,
        FastestLap,
        BestAverage,
        LapAtTarget,
        AverageAtTarget,
        ConsistentTimes
    };

    void createConditions(QGridLayout* grid);
    void createConsistentTimesRow(QGridLayout* grid);
    void createTargetTimeRows(QGridLayout* grid);

    QButtonGroup* m_conditions;
    QSpinBox* m_lapsToIgnore = nullptr;
    QCheckBox* m_useTargetTime = nullptr;
    QTimeEdit* m_targetTime = nullptr;
    QList<QWidget*> m_consistentTimesParts;
    QList<QWidget*> m_targetTimeParts;
};

#endif
