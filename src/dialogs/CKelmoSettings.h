#ifndef TORNIK_DIALOGS_CKELMOSETTINGS_H
#define TORNIK_DIALOGS_CKELMOSETTINGS_H

#include <QDialog>
#include <QStringList>

#include <functional>
#include <memory>

class CCarEditorDlg;
class CCarList;
class CDisplayTab;
class CDriverEditorDlg;
class CDriverList;
class CListTab;
class CNetworkTab;
class CQrCodeTab;
class CRacewayList;
class CSettings;
class CSoundTab;
class CStorageTab;
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
    /** Replaces the cameras to choose from, so that a test can have some. */
    void setCameraNames(std::function<QStringList()> names) { m_cameraNames = std::move(names); }

Q_SIGNALS:
    /** Nobody emits it: what becomes of new settings is told by the result of run(). */
    void settingsChanged();
    /** Another raceway is current, or one has changed. */
    void raceTrackChanged();

public Q_SLOTS:
    /** Takes what the controls show into the live settings and the store. Does nothing before the first
     * run(). */
    void storeSettings();

private Q_SLOTS:
    void vNewRaceway();
    void vEditRaceway();
    void vDelRaceway();
    void vSetCurrent();
    void vNewCar();
    void vEditCar();
    void vDelCar();
    void vImportCars();
    void vExportCars();
    void vGenerateQrCodesCars();
    void vGenerateQrCodesCar();
    void vNewDriver();
    void vEditDriver();
    void vDelDriver();
    void vImportDrivers();
    void vExportDrivers();
    void vGenerateQrCodesDrivers();
    void vGenerateQrCodesDriver();
    void vUpdateDisplayShowIntermediateTimes(int state);
    void vUpdateDisplaySpeedType(int state);
    /** @param track from 0 */
    void vSelectColorSlotX(int track);
    void vSelectColorSlot1() { vSelectColorSlotX(0); }
    void vSelectColorSlot2() { vSelectColorSlotX(1); }
    void vSelectColorSlot3() { vSelectColorSlotX(2); }
    void vSelectColorSlot4() { vSelectColorSlotX(3); }
    void vSelectColorSlot5() { vSelectColorSlotX(4); }
    void vSelectColorSlot6() { vSelectColorSlotX(5); }
    void vSelectColorSlot7() { vSelectColorSlotX(6); }
    void vSelectColorSlot8() { vSelectColorSlotX(7); }
    void vSelectColorBestLapAndStatus();
    void vSelectNewBestLapSound();
    void vSelectDriveThroughSound();
    void vSelectRedLightSound();
    void vSelectGreenLightSound();
    void vSoundUpdateStates(int state);
    void vSoundLapTimeUpdateStates(int state);
    void vSelectStorageDefaultPath();
    void vStorageUpdateStates();
    void vNetworkUpdateStates();
    void vQrCodeUpdateStates();

private:
    struct ListButton
    {
        const char* name;
        QString text;
        void (CKelmoSettings::*slot)();
    };

    void createControls();
    void createRacewayTab();
    void createCarTab();
    void createDriverTab();
    void addButtons(CListTab* tab, const QList<ListButton>& buttons);
    void connectDisplay();
    void connectSounds();
    void connectOthers();
    QHBoxLayout* createButtons();
    void showSettings();
    void applyEnableRules();
    void selectSound(int sound, const QString& title);
    void showLists();
    void showRaceways(int selectedRow = -1);
    void showCars(int selectedRow = -1);
    void showDrivers(int selectedRow = -1);
    bool isDeletionWanted(const QString& title, const QString& question);
    QString fileToImport(const QString& title);
    QString fileToExport(const QString& title, const QString& proposal);
    QString fileForCodes(const QString& title, const QString& proposal);

    CSettings* m_settings; ///< not owned
    std::unique_ptr<CRacewayList> m_racewayList;
    std::unique_ptr<CCarList> m_carList;
    std::unique_ptr<CDriverList> m_driverList;
    std::unique_ptr<CUserQuestions> m_questions;
    std::function<QStringList()> m_cameraNames;
    CListTab* m_raceways = nullptr;
    CListTab* m_cars = nullptr;
    CListTab* m_drivers = nullptr;
    CCarEditorDlg* m_carEditor = nullptr;
    CDriverEditorDlg* m_driverEditor = nullptr;
    CDisplayTab* m_display = nullptr;
    CSoundTab* m_sounds = nullptr;
    CStorageTab* m_storage = nullptr;
    CNetworkTab* m_network = nullptr;
    CQrCodeTab* m_qrCode = nullptr;
};

#endif
