#ifndef TORNIK_DIALOGS_CCAREDITORDLG_H
#define TORNIK_DIALOGS_CCAREDITORDLG_H

#include "dialogs/CCarEditorConfig.h"

#include <QDialog>

class CCarEditorConfigDlg;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/**
 * Edits a car. Owned by the settings dialog, which keeps it for every edit and stores the result: the
 * editor knows of no database.
 *
 * The name follows manufacturer, type and start number until the user types a name of his own.
 */
class CCarEditorDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CCarEditorDlg(QWidget* parent = nullptr);

    /**
     * Shows an empty form with the tank and the distance of @p car and waits for the user.
     * @param car changes when the user accepts, else never; may be null
     * @return 1 when the user accepted, else 0; 0 at once for null
     */
    int newCar(CCar* car);
    /** As newCar(), with all values of the car to begin with. */
    int editCar(CCar* car);

private Q_SLOTS:
    void compileCarName();
    void checkIfNameShallBeCompiledAutomatically();
    void showConfigDialog();

private:
    struct FreeField
    {
        QLabel* title = nullptr;
        QLineEdit* text = nullptr;
    };

    QGridLayout* createForm();
    void createEdits();
    void createDistanceEdit();
    void addFreeFields(QGridLayout* grid, int firstRow);
    QHBoxLayout* createButtons();
    void connectName();
    void showCar(const CCar& car);
    void showTank(const CFuelTank& tank);
    void showDistance(int centimetres);
    int run(CCar& car);
    void storeCar(CCar& car) const;
    CFuelTank storedTank(CFuelTank tank) const;
    void applyConfig();

    QLineEdit* m_name = nullptr;
    QLineEdit* m_originalManufacturer = nullptr;
    QLineEdit* m_originalType = nullptr;
    QLineEdit* m_startNumber = nullptr;
    QLineEdit* m_scale = nullptr;
    QComboBox* m_speedClass = nullptr;
    QLineEdit* m_modelManufacturer = nullptr;
    QLineEdit* m_chassis = nullptr;
    QLineEdit* m_comment = nullptr;
    QDoubleSpinBox* m_tankSize = nullptr;
    QDoubleSpinBox* m_reserveLevel = nullptr;
    QDoubleSpinBox* m_minUsage = nullptr;
    QDoubleSpinBox* m_maxUsage = nullptr;
    QLineEdit* m_distance = nullptr;
    QPushButton* m_changeDistance = nullptr;
    std::array<FreeField, CCarEditorConfig::NumberOfFields> m_freeFields;
    CCarEditorConfig m_config;
    CCarEditorConfigDlg* m_configDialog = nullptr;
    bool m_compileNameAutomatically = false;
};

#endif
