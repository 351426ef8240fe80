#include "dialogs/CKelmoSettings.h"

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "dialogs/CCarEditorDlg.h"
#include "dialogs/CDisplayTab.h"
#include "dialogs/CDriverEditorDlg.h"
#include "dialogs/CListTab.h"
#include "dialogs/CNetworkTab.h"
#include "dialogs/CQrCodeTab.h"
#include "dialogs/CSoundTab.h"
#include "dialogs/CStorageTab.h"
#include "dialogs/FormParts.h"
#include "shell/CSettings.h"
#include "shell/CUserQuestions.h"
#include "shell/DialogStyle.h"

#include <QCameraInfo>
#include <QColorDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>

namespace {

QStringList namesOfCameras()
{
    QStringList names;
    for (const QCameraInfo& camera : QCameraInfo::availableCameras())
        names.append(camera.description());
    return names;
}

} // namespace

CKelmoSettings::CKelmoSettings(CSettings* settings, QWidget* parent)
    : QDialog(parent),
      m_settings(settings),
      m_questions(std::make_unique<CUserQuestions>()),
      m_cameraNames(namesOfCameras)
{
    setObjectName(QStringLiteral("settingsDialog"));
}

CKelmoSettings::~CKelmoSettings() = default;

void CKelmoSettings::setLists(std::unique_ptr<CRacewayList> raceways, std::unique_ptr<CCarList> cars,
                              std::unique_ptr<CDriverList> drivers)
{
    m_racewayList = std::move(raceways);
    m_carList = std::move(cars);
    m_driverList = std::move(drivers);
}

void CKelmoSettings::setUserQuestions(std::unique_ptr<CUserQuestions> questions)
{
    m_questions = std::move(questions);
}

int CKelmoSettings::run()
{
    if (!layout())
        createControls();
    m_settings->read(); // what an earlier opening changed and didn't store is gone
    showLists();
    showSettings();
    return exec();
}

void CKelmoSettings::createControls()
{
    setWindowTitle(tr("Einstellungen"));
    setStyleSheet(dialogStyleSheet());
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("tabs"));
    tabs->setUsesScrollButtons(false); // the window is wide enough for all of them
    createRacewayTab();
    createCarTab();
    createDriverTab();
    m_carEditor = new CCarEditorDlg(this);
    m_driverEditor = new CDriverEditorDlg(this);
    m_display = new CDisplayTab(this);
    m_sounds = new CSoundTab(this);
    m_storage = new CStorageTab(this);
    m_network = new CNetworkTab(this);
    m_qrCode = new CQrCodeTab(this);
    connectDisplay();
    connectSounds();
    connectOthers();
    tabs->addTab(m_raceways, tr("Rennstrecken"));
    tabs->addTab(m_cars, tr("Fahrzeuge"));
    tabs->addTab(m_drivers, tr("Fahrer"));
    tabs->addTab(m_display, tr("Anzeige"));
    tabs->addTab(m_sounds, tr("Töne"));
    tabs->addTab(m_storage, tr("Speichern"));
    tabs->addTab(m_network, tr("Netzwerk"));
    tabs->addTab(m_qrCode, tr("QR Code"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(createButtons());
}

void CKelmoSettings::connectDisplay()
{
    using Slot = void (CKelmoSettings::*)();
    const Slot slotsOfTracks[] = {&CKelmoSettings::vSelectColorSlot1, &CKelmoSettings::vSelectColorSlot2,
                                  &CKelmoSettings::vSelectColorSlot3, &CKelmoSettings::vSelectColorSlot4,
                                  &CKelmoSettings::vSelectColorSlot5, &CKelmoSettings::vSelectColorSlot6,
                                  &CKelmoSettings::vSelectColorSlot7, &CKelmoSettings::vSelectColorSlot8};
    int track = 0;
    for (const Slot slot : slotsOfTracks)
        connect(m_display->trackColorButton(track++), &QPushButton::clicked, this, slot);
    connect(m_display->commonColorButton(), &QPushButton::clicked, this,
            &CKelmoSettings::vSelectColorBestLapAndStatus);
    connect(m_display, &CDisplayTab::sectorTimesChanged, this,
            &CKelmoSettings::vUpdateDisplayShowIntermediateTimes);
    connect(m_display, &CDisplayTab::speedChanged, this, &CKelmoSettings::vUpdateDisplaySpeedType);
}

void CKelmoSettings::connectSounds()
{
    connect(m_sounds->browseButton(CSoundTab::NewBestLap), &QPushButton::clicked, this,
            &CKelmoSettings::vSelectNewBestLapSound);
    connect(m_sounds->browseButton(CSoundTab::DriveThrough), &QPushButton::clicked, this,
            &CKelmoSettings::vSelectDriveThroughSound);
    connect(m_sounds->browseButton(CSoundTab::RedLight), &QPushButton::clicked, this,
            &CKelmoSettings::vSelectRedLightSound);
    connect(m_sounds->browseButton(CSoundTab::GreenLight), &QPushButton::clicked, this,
            &CKelmoSettings::vSelectGreenLightSound);
    connect(m_sounds, &CSoundTab::enhancedChanged, this, &CKelmoSettings::vSoundUpdateStates);
    connect(m_sounds, &CSoundTab::lapTimeChanged, this, &CKelmoSettings::vSoundLapTimeUpdateStates);
}

void CKelmoSettings::connectOthers()
{
    connect(m_storage->browseButton(), &QPushButton::clicked, this,
            &CKelmoSettings::vSelectStorageDefaultPath);
    connect(m_storage, &CStorageTab::approachChanged, this, &CKelmoSettings::vStorageUpdateStates);
    connect(m_network, &CNetworkTab::sendShutdownChanged, this, &CKelmoSettings::vNetworkUpdateStates);
    connect(m_qrCode, &CQrCodeTab::handlingChanged, this, &CKelmoSettings::vQrCodeUpdateStates);
}

QHBoxLayout* CKelmoSettings::createButtons()
{
    auto* ok = FormParts::button<QPushButton>("okButton", tr("&Ok"), this);
    auto* cancel = FormParts::button<QPushButton>("cancelButton", tr("&Abbrechen"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CKelmoSettings::storeSettings);
    connect(cancel, &QPushButton::clicked, this, &CKelmoSettings::close);

    auto* row = new QHBoxLayout;
    row->addWidget(ok);
    row->addWidget(cancel);
    row->addStretch();
    return row;
}

// Between the settings and the controls

void CKelmoSettings::showSettings()
{
    m_display->showSettings(*m_settings);
    m_sounds->showSettings(*m_settings);
    m_storage->showSettings(*m_settings);
    m_network->showSettings(*m_settings);
    m_qrCode->showSettings(*m_settings, m_cameraNames());
    applyEnableRules();
}

void CKelmoSettings::storeSettings()
{
    if (!layout())
        return; // never opened: there is nothing that a user could have entered
    m_display->storeSettings(*m_settings);
    m_sounds->storeSettings(*m_settings);
    m_storage->storeSettings(*m_settings);
    m_network->storeSettings(*m_settings);
    m_qrCode->storeSettings(*m_settings);
    m_settings->write();
    accept();
}

// Which controls can be used

void CKelmoSettings::applyEnableRules()
{
    vUpdateDisplayShowIntermediateTimes(m_display->sectorTimesState());
    vUpdateDisplaySpeedType(m_display->speedState());
    vSoundUpdateStates(m_sounds->enhancedState());
    vStorageUpdateStates();
    vNetworkUpdateStates();
    vQrCodeUpdateStates();
}

void CKelmoSettings::vUpdateDisplayShowIntermediateTimes(int state)
{
    m_display->enableIntermediateTimes(state != Qt::Unchecked);
}

void CKelmoSettings::vUpdateDisplaySpeedType(int state)
{
    m_display->enableUnits(state != Qt::Unchecked);
}

void CKelmoSettings::vSoundUpdateStates(int state)
{
    m_sounds->enableVoice(state != Qt::Unchecked);
    vSoundLapTimeUpdateStates(m_sounds->lapTimeState());
}

void CKelmoSettings::vSoundLapTimeUpdateStates(int state)
{
    m_sounds->enableBestLapTime(state != Qt::Unchecked && m_sounds->isLapTimeEnabled());
}

void CKelmoSettings::vStorageUpdateStates()
{
    m_storage->enableFolder(!m_storage->asksForFileName());
}

void CKelmoSettings::vNetworkUpdateStates()
{
    m_network->enableWaitTime(m_network->sendsShutdown());
}

void CKelmoSettings::vQrCodeUpdateStates()
{
    m_qrCode->enableCamera(m_qrCode->isHandlingEnabled());
}

// What the user chooses in boxes of their own

/** Required: a chosen colour is in the live settings at once, whatever ends the dialog. */
void CKelmoSettings::vSelectColorSlotX(int track)
{
    const QColor color = QColorDialog::getColor(QColor(m_settings->trackColor(track)), this);
    if (!color.isValid())
        return;
    m_settings->setTrackColor(track, color.name());
    m_display->showTrackColor(track, color.name());
}

void CKelmoSettings::vSelectColorBestLapAndStatus()
{
    const QColor color = QColorDialog::getColor(QColor(m_settings->colorBestLapAndStatus()), this);
    if (!color.isValid())
        return;
    m_settings->setColorBestLapAndStatus(color.name());
    m_display->showCommonColor(color.name());
}

void CKelmoSettings::vSelectNewBestLapSound()
{
    selectSound(CSoundTab::NewBestLap, tr("Sound für neue Beste Runde wählen"));
}

void CKelmoSettings::vSelectDriveThroughSound()
{
    selectSound(CSoundTab::DriveThrough, tr("Sound für Drive Through wählen"));
}

void CKelmoSettings::vSelectRedLightSound()
{
    selectSound(CSoundTab::RedLight, tr("Sound für rotes Ampellicht wählen"));
}

void CKelmoSettings::vSelectGreenLightSound()
{
    selectSound(CSoundTab::GreenLight, tr("Sound für grünes Ampellicht wählen"));
}

void CKelmoSettings::selectSound(int sound, const QString& title)
{
    const QString fileName = m_questions->askOpenFileName(this, title, tr("Sounds (*.wav)"));
    if (!fileName.isEmpty())
        m_sounds->setFile(CSoundTab::Sound(sound), fileName);
}

void CKelmoSettings::vSelectStorageDefaultPath()
{
    const QString path = m_questions->askDirectory(this, tr("Verzeichnis wählen"));
    if (!path.isEmpty())
        m_storage->setFolder(path);
}
