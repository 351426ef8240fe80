#ifndef TORNIK_DIALOGS_CFUELTANKGROUP_H
#define TORNIK_DIALOGS_CFUELTANKGROUP_H

#include <QGroupBox>
#include <QList>

class CFuelSettings;
class QDoubleSpinBox;
class QGridLayout;
class QTimeEdit;

/** The figures of refuelling, consumption and tank. Part of the race settings dialog. */
class CFuelTankGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit CFuelTankGroup(QWidget* parent = nullptr);

    void showFuel(const CFuelSettings& fuel);
    void storeFuel(CFuelSettings& fuel) const;

    /** Refuelling and the lap times of consumption: what the rules say whosever tank it is. */
    void enableRaceRows(bool on);
    /** Amounts, size and reserve: what a car's own tank has instead. */
    void enableTankRows(bool on);

private:
    void createEdits();
    /** Adds captions and edits below each other. @param column where the captions go */
    QList<QWidget*> createRows(QGridLayout* grid, int column,
                               const QList<std::pair<QString, QWidget*>>& rows);

    QTimeEdit* m_refuelInterval = nullptr;
    QDoubleSpinBox* m_refuelAmount = nullptr;
    QTimeEdit* m_minUsageTime = nullptr;
    QTimeEdit* m_maxUsageTime = nullptr;
    QDoubleSpinBox* m_minUsageAmount = nullptr;
    QDoubleSpinBox* m_maxUsageAmount = nullptr;
    QDoubleSpinBox* m_tankSize = nullptr;
    QDoubleSpinBox* m_reserveLevel = nullptr;
    QList<QWidget*> m_raceRows;
    QList<QWidget*> m_tankRows;
};

#endif
