#ifndef TORNIK_RESULTS_CRACESTOREDLG_H
#define TORNIK_RESULTS_CRACESTOREDLG_H

#include <QDialog>

class QCheckBox;
class QLayout;
class QLineEdit;
class QPushButton;

/** Asks for the name of a race and where it is to be stored. */
class CRaceStoreDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CRaceStoreDlg(QWidget* parent = nullptr);

    /** @return what was typed, or the translated "Default" for nothing. */
    QString raceName() const;
    bool storeAsCsv() const;
    bool storeInDatabase() const;

private:
    void nameParts();
    QLayout* fields();
    QLayout* buttons();

    QLineEdit* m_nameEdit;
    QCheckBox* m_csvBox;
    QCheckBox* m_databaseBox;
    QPushButton* m_storeButton;
    QPushButton* m_cancelButton;
};

#endif
