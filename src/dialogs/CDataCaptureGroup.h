#ifndef TORNIK_DIALOGS_CDATACAPTUREGROUP_H
#define TORNIK_DIALOGS_CDATACAPTUREGROUP_H

#include <QGroupBox>

class CRaceSettings;
class QCheckBox;

/** What the end of a race keeps of the cars. Part of the race settings dialog. */
class CDataCaptureGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CDataCaptureGroup(QWidget* parent = nullptr);

    void showRules(const CRaceSettings& rules);
    void storeRules(CRaceSettings& rules) const;

private:
    QCheckBox* m_distanceDriven;
    QCheckBox* m_fastestLap;
};

#endif
