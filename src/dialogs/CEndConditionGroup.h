#ifndef TORNIK_DIALOGS_CENDCONDITIONGROUP_H
#define TORNIK_DIALOGS_CENDCONDITIONGROUP_H

#include <QGroupBox>

class CRaceSettings;
class QButtonGroup;
class QCheckBox;
class QSpinBox;
class QTimeEdit;

/** What ends a race. Part of the race settings dialog, which says when a rule applies. */
class CEndConditionGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CEndConditionGroup(QWidget* parent = nullptr);

    void showRules(const CRaceSettings& rules);
    void storeRules(CRaceSettings& rules) const;

    bool isTimeLimit() const;
    bool isLapLimit() const;
    void enableTimeLimit(bool on);
    void enableLapLimit(bool on);

Q_SIGNALS:
    void timeLimitToggled(bool on);
    void lapLimitToggled(bool on);

private:
    void createTypes();
    void createLayout();

    QButtonGroup* m_types;
    QTimeEdit* m_time;
    QWidget* m_timeUnit;
    QSpinBox* m_laps;
    QWidget* m_lapsUnit;
    QCheckBox* m_allTracks;
    QCheckBox* m_stopCounting;
    QCheckBox* m_countDown;
};

#endif
