#ifndef TORNIK_DIALOGS_CDRIVEREDITORDLG_H
#define TORNIK_DIALOGS_CDRIVEREDITORDLG_H

#include <QDialog>

class CDriver;
class QLineEdit;

/**
 * Edits the name of a driver. Owned by the settings dialog, which keeps it for every edit and stores
 * the result: the editor knows of no database.
 */
class CDriverEditorDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CDriverEditorDlg(QWidget* parent = nullptr);

    /**
     * Asks for the name of a new driver, which may be empty.
     * @param driver gets the name when the user accepts, else never changes; may be null
     * @return 1 when the user accepted, else 0; 0 at once for null
     */
    int newDriver(CDriver* driver);
    /** As newDriver(), with the driver's name to begin with. */
    int editDriver(CDriver* driver);

public Q_SLOTS:
    void storeDriver();

private:
    int edit(CDriver* driver, const QString& name);

    QLineEdit* m_nameEdit;
};

#endif
