#ifndef TORNIK_DIALOGS_CFUELFUNCTIONGROUP_H
#define TORNIK_DIALOGS_CFUELFUNCTIONGROUP_H

#include <QGroupBox>

class CFuelSettings;
class QButtonGroup;

/** Whether there is fuel, and whose tanks. Part of the race settings dialog. */
class CFuelFunctionGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CFuelFunctionGroup(QWidget* parent = nullptr);

    void showFuel(const CFuelSettings& fuel);
    void storeFuel(CFuelSettings& fuel) const;

    /** @return a CFuelSettings::FuelFunction. */
    int function() const;

Q_SIGNALS:
    void noFuelToggled(bool on);
    void carSpecificFuelToggled(bool on);
    void commonFuelToggled(bool on);

private:
    QButtonGroup* m_functions;
};

#endif
