#ifndef TORNIK_DIALOGS_CSIGNALCONTROLGROUP_H
#define TORNIK_DIALOGS_CSIGNALCONTROLGROUP_H

#include <QGroupBox>

class CRaceSettings;
class QCheckBox;

/** What lights and power do at the end of a race. Part of the race settings dialog. */
class CSignalControlGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CSignalControlGroup(QWidget* parent = nullptr);

    void showRules(const CRaceSettings& rules);
    void storeRules(CRaceSettings& rules) const;

private:
    QCheckBox* m_redLights;
    QCheckBox* m_leavePowerOn;
};

#endif
