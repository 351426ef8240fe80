#ifndef TORNIK_DIALOGS_CKELMOSETTINGS_H
#define TORNIK_DIALOGS_CKELMOSETTINGS_H

#include <QDialog>

#include <memory>

class CCarList;
class CDriverList;
class CListTab;
class CRacewayList;
class CSettings;
class CUserQuestions;
class QHBoxLayout;

/**
 * Manages the raceways, the cars and the drivers, and edits the settings of the program.
 *
 * Owned by the main dialog and kept between its openings; the controls are made at the first one, so
 * that the start of the program doesn't wait for them. What is done to a list is done at once;
 * everything else goes into the live settings and into the store on "Ok". Main thread only.
 */
class CKelmoSettings : public QDialog
{
    Q_OBJECT

public:
    /** @param settings the live object; not owned */
    explicit CKelmoSettings(CSettings* settings, QWidget* parent = nullptr);
    ~CKelmoSettings() override;

    /** Lists of the dialog's own, so that its views leave those of other windows alone. */
    void setLists(std::unique_ptr<CRacewayList> raceways, std::unique_ptr<CCarList> cars,
                  std::unique_ptr<CDriverList> drivers);
    /** Reads the settings from the store, shows them and waits for the user. @return 1 when he accepted */
    int run();

    /** Replaces the boxes that wait for the user, so that a test can answer. */
    void setUserQuestions(std::unique_ptr<CUserQuestions> questions);

Q_SIGNALS:
    /** Nobody emits it: what becomes of new settings is told by the result of run(). */
    void settingsChanged();
    /** Another raceway is current, or one has changed. */
    void raceTrackChanged();

public Q_SLOTS:
    void storeSettings();

private Q_SLOTS:
    void vNewRaceway();
    void vEditRaceway();
    void vDelRaceway();
    void vSetCurrent();

private:
    void createControls();
    void createRacewayTab();
    QHBoxLayout* createButtons();
    void showLists();
    bool isDeletionWanted(const QString& title, const QString& question);

    CSettings* m_settings; ///< not owned
    std::unique_ptr<CRacewayList> m_racewayList;
    std::unique_ptr<CCarList> m_carList;
    std::unique_ptr<CDriverList> m_driverList;
    std::unique_ptr<CUserQuestions> m_questions;
    CListTab* m_raceways = nullptr;
};

#endif
