#ifndef TORNIK_DIALOGS_CCAREDITORCONFIGDLG_H
#define TORNIK_DIALOGS_CCAREDITORCONFIGDLG_H

#include "dialogs/CCarEditorConfig.h"

#include <QDialog>

class QCheckBox;
class QGridLayout;
class QHBoxLayout;
class QLineEdit;

/** Lets the user choose the free fields of the car editor and their titles. Owned by the car editor. */
class CCarEditorConfigDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CCarEditorConfigDlg(QWidget* parent = nullptr);

    /**
     * Shows a configuration and waits for the user.
     * @param config changes when the user accepts, else never; may be null
     * @return 1 when the user accepted, else 0; 0 at once for null
     */
    int editConfig(CCarEditorConfig* config);

private Q_SLOTS:
    void updateFreeFields();

private:
    struct Row
    {
        QCheckBox* show = nullptr;
        QLineEdit* title = nullptr;
    };

    QGridLayout* createRows();
    QHBoxLayout* createButtons();
    void showConfig(const CCarEditorConfig& config);
    void storeConfig(CCarEditorConfig& config) const;

    std::array<Row, CCarEditorConfig::NumberOfFields> m_rows;
};

#endif
