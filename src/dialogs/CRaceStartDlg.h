#ifndef TORNIK_DIALOGS_CRACESTARTDLG_H
#define TORNIK_DIALOGS_CRACESTARTDLG_H

#include <QDialog>

class QLineEdit;

/** Asks for the name of a competition race. Owned by the main dialog, kept between races. */
class CRaceStartDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CRaceStartDlg(QWidget* parent = nullptr);

    /**
     * Asks modally.
     * @param raceName gets the name that the user accepted, which may be empty; else left alone
     * @return QDialog::Accepted or QDialog::Rejected
     */
    int run(QString& raceName);

private:
    QLineEdit* m_nameEdit;
};

#endif
