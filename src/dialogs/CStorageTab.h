#ifndef TORNIK_DIALOGS_CSTORAGETAB_H
#define TORNIK_DIALOGS_CSTORAGETAB_H

#include <QWidget>

class CSettings;
class QButtonGroup;
class QGroupBox;
class QLineEdit;
class QPushButton;

/**
 * Where a race is stored and how its times are written. A tab of the settings dialog, which says when
 * a rule applies and asks for the folder.
 */
class CStorageTab : public QWidget
{
    Q_OBJECT

public:
    explicit CStorageTab(QWidget* parent = nullptr);

    void showSettings(const CSettings& settings);
    void storeSettings(CSettings& settings) const;

    QPushButton* browseButton() const { return m_browse; }
    void setFolder(const QString& path);

    /** @return whether the user is asked at each storing. */
    bool asksForFileName() const;
    void enableFolder(bool on);

Q_SIGNALS:
    void approachChanged();

private:
    QGroupBox* createApproach();
    QGroupBox* createTimeFormat();

    QButtonGroup* m_approach;
    QLineEdit* m_folder = nullptr;
    QPushButton* m_browse = nullptr;
    QButtonGroup* m_timeFormat;
};

#endif
