#include "shell/CKelmoMainDialog.h"

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "dialogs/CKelmoRaceSettings.h"
#include "dialogs/CKelmoSettings.h"
#include "dialogs/CRaceStartDlg.h"
#include "io/CKelmoPortSimulator.h"
#include "qr/CQrCodeReaderDialog.h"
#include "qr/QrTags.h"
#include "race/CRace.h"
#include "race/CRaceSettings.h"
#include "results/CKelmoRaceAnalyzer.h"
#include "results/CRaceStoreDlg.h"
#include "results/CRaceSummaryDialog.h"
#include "shell/AboutText.h"
#include "shell/CInfoFrame.h"
#include "shell/CLights.h"
#include "shell/CMainMenu.h"
#include "shell/CSettings.h"
#include "shell/CTrackDisplay.h"
#include "shell/CTrackPanels.h"
#include "shell/CUserQuestions.h"
#include "shell/RaceFileName.h"
#include "sound/CSoundHandler.h"

#include <QAction>
#include <QDateTime>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcut>

namespace {

constexpr int Lights = 5;

const char StyleSheet[] =
    "QWidget {color: #646464; background-color: black;  selection-background-color: transparent; "
    "alternate-background-color: transparent; } QMenuBar { background-color: transparent; } QMenuBar::item "
    "{background: transparent; } QMenu { border-style: outset; border-width: 1px; border-radius: 0px; "
    "border-color: darkgray;} QMenu::item:selected { background: rgba(100, 100, 100, 150); color: white;} "
    "QComboBox QAbstractItemView { border: 2px solid darkgray; selection-background-color: rgba(100, 100, "
    "100, "
    "150); } QPushButton { background-color: transparent; border-style: outset; border-width: 1px; "
    "border-radius: 0px; border-color: darkgray; padding: 5px; min-width: 5em;} QPushButton:pressed { "
    "background-color: transparent; border-style: inset;}";

} // namespace

CKelmoMainDialog::CKelmoMainDialog(CSettings* settings, CRaceSettings* raceSettings, QWidget* parent)
    : QDialog(parent, Qt::FramelessWindowHint),
      m_racewayList(std::make_unique<CRacewayList>()),
      m_carList(std::make_unique<CCarList>()),
      m_driverList(std::make_unique<CDriverList>()),
      m_portSimulator(new CKelmoPortSimulator(this)),
      m_settings(settings),
      m_raceSettings(raceSettings),
      m_settingsDialog(new CKelmoSettings(settings, this)),
      m_raceStartDialog(new CRaceStartDlg(this)),
      m_raceStoreDialog(new CRaceStoreDlg(this)),
      m_raceAnalyzer(new CKelmoRaceAnalyzer(this)),
      m_qrCodeReaderDialog(std::make_unique<CQrCodeReaderDialog>(settings)),
      m_questions(std::make_unique<CUserQuestions>())
{
    setObjectName("mainDialog");
    connect(m_settingsDialog, &CKelmoSettings::raceTrackChanged, this, &CKelmoMainDialog::newRacewaySelected);
    createWidgets();
    newRacewaySelected();
    setSoundHandler(std::make_unique<CSoundHandler>());
}

CKelmoMainDialog::~CKelmoMainDialog()
{
    delete m_panels; // before the lists whose models their boxes show
}

void CKelmoMainDialog::setRaceOfSimulator(CRace* race)
{
    m_portSimulator->setReceiver(race);
}

void CKelmoMainDialog::setSoundHandler(std::unique_ptr<CSoundHandler> soundHandler)
{
    m_soundHandler = std::move(soundHandler);
    loadSounds();
}

void CKelmoMainDialog::setQrCodeReaderDialog(std::unique_ptr<CQrCodeReaderDialog> dialog)
{
    m_qrCodeReaderDialog = std::move(dialog);
}

void CKelmoMainDialog::setUserQuestions(std::unique_ptr<CUserQuestions> questions)
{
    m_questions = std::move(questions);
}

void CKelmoMainDialog::loadStyleSheet()
{
    QFile file("styleSheet.css");
    if (file.open(QIODevice::ReadOnly | QIODevice::Text))
        setStyleSheet(QString::fromUtf8(file.readAll()));
}

void CKelmoMainDialog::createWidgets()
{
    setStyleSheet(StyleSheet);
    setAutoFillBackground(true);
    setWindowTitle(tr("Tornik"));
    createMenu();
    createQrShortcuts();

    m_lights = new CLights(Lights, this);
    m_lights->setObjectName("lights");
    m_panels = new CTrackPanels(this, m_settings);
    connect(m_panels, &CTrackPanels::triggerQrReader, this, &CKelmoMainDialog::showQrCodeDetectorDialog);
    m_infoFrame = new CInfoFrame(this);
    m_infoFrame->setObjectName("infoFrame");
    m_infoFrame->setRaceTime("00:00:00");
    connect(m_infoFrame, &CInfoFrame::infoClicked, this, &CKelmoMainDialog::raceSummaryDialogTrigger);

    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->addWidget(m_menu);
    m_mainLayout->addLayout(centred(m_lights));
    m_mainLayout->addLayout(m_panels->layout());
    m_mainLayout->addLayout(centred(m_infoFrame));
}

QHBoxLayout* CKelmoMainDialog::centred(QWidget* widget)
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(widget);
    row->addStretch();
    return row;
}

void CKelmoMainDialog::createMenu()
{
    using Slot = void (CKelmoMainDialog::*)();
    const std::pair<CMainMenu::Entry, Slot> entries[] = {
        {CMainMenu::QuickRace, &CKelmoMainDialog::quickRaceTrigger},
        {CMainMenu::RecordedRace, &CKelmoMainDialog::raceTrigger},
        {CMainMenu::PauseRace, &CKelmoMainDialog::racePauseTrigger},
        {CMainMenu::StoreRace, &CKelmoMainDialog::raceStoreTrigger},
        {CMainMenu::ShowSummary, &CKelmoMainDialog::raceSummaryDialogTrigger},
        {CMainMenu::RaceSettings, &CKelmoMainDialog::showRaceSettings},
        {CMainMenu::AllTracksOn, &CKelmoMainDialog::trackPowerTriggerAllOn},
        {CMainMenu::AllTracksOff, &CKelmoMainDialog::trackPowerTriggerAllOff},
        {CMainMenu::Settings, &CKelmoMainDialog::showSettings},
        {CMainMenu::ClientShutdown, &CKelmoMainDialog::remoteShutdownTriggered},
        {CMainMenu::RaceAnalyzer, &CKelmoMainDialog::showRaceAnalyzer},
        {CMainMenu::Quit, &CKelmoMainDialog::reject},
        {CMainMenu::About, &CKelmoMainDialog::showAboutDialog},
    };
    m_menu = new CMainMenu(this);
    for (const auto& entry : entries)
        connect(m_menu->action(entry.first), &QAction::triggered, this, entry.second);
    connectTrackPower();
    connect(m_menu->action(CMainMenu::Simulator), &QAction::toggled, this, [this](bool checked) {
        if (!checked)
            m_portSimulator->close();
    });
}

void CKelmoMainDialog::connectTrackPower()
{
    using Slot = void (CKelmoMainDialog::*)();
    const Slot slotsOfTracks[] = {
        &CKelmoMainDialog::trackPowerToggleTrack1, &CKelmoMainDialog::trackPowerToggleTrack2,
        &CKelmoMainDialog::trackPowerToggleTrack3, &CKelmoMainDialog::trackPowerToggleTrack4,
        &CKelmoMainDialog::trackPowerToggleTrack5, &CKelmoMainDialog::trackPowerToggleTrack6,
        &CKelmoMainDialog::trackPowerToggleTrack7, &CKelmoMainDialog::trackPowerToggleTrack8};
    const QList<QAction*>& actions = m_menu->trackPowerActions();
    for (int track = 0; track < actions.size(); ++track)
        connect(actions[track], &QAction::triggered, this, slotsOfTracks[track]);
}

void CKelmoMainDialog::createQrShortcuts()
{
    using Slot = void (CKelmoMainDialog::*)();
    const Slot slotsOfTracks[] = {
        &CKelmoMainDialog::qrCodeShortcutTrack1, &CKelmoMainDialog::qrCodeShortcutTrack2,
        &CKelmoMainDialog::qrCodeShortcutTrack3, &CKelmoMainDialog::qrCodeShortcutTrack4,
        &CKelmoMainDialog::qrCodeShortcutTrack5, &CKelmoMainDialog::qrCodeShortcutTrack6,
        &CKelmoMainDialog::qrCodeShortcutTrack7, &CKelmoMainDialog::qrCodeShortcutTrack8};
    int key = Qt::Key_1;
    for (const Slot slot : slotsOfTracks)
        connect(new QShortcut(QKeySequence(Qt::ALT + key++), this), &QShortcut::activated, this, slot);
}

// Commands of the user

void CKelmoMainDialog::keyPressEvent(QKeyEvent* e)
{
    const bool stays = e->key() == Qt::Key_Escape &&
                       !m_questions->ask(this, tr("Programm beenden?"),
                                         tr("Sind Sie sicher, dass Sie das Programm beenden möchten?"),
                                         tr("&Ja"), tr("&Nein"));
    if (!stays)
        QDialog::keyPressEvent(e);
}

void CKelmoMainDialog::quickRaceTrigger()
{
    if (m_raceRunning) {
        Q_EMIT raceStop();
        return;
    }
    collectDriversAndCars();
    Q_EMIT raceStartQuickRace();
}

void CKelmoMainDialog::raceTrigger()
{
    if (m_raceRunning) {
        Q_EMIT raceStop();
        return;
    }
    collectDriversAndCars();
    QString raceName;
    if (m_raceStartDialog->run(raceName) == QDialog::Accepted)
        Q_EMIT raceStartRecordedRace(raceName);
}

void CKelmoMainDialog::racePauseTrigger()
{
    if (m_raceRunning && !m_racePaused)
        Q_EMIT racePause();
    else
        Q_EMIT raceResume();
}

void CKelmoMainDialog::trackPowerTriggerAllOn()
{
    Q_EMIT raceTrackPowerSwitch(true);
}

void CKelmoMainDialog::trackPowerTriggerAllOff()
{
    Q_EMIT raceTrackPowerSwitch(false);
}

void CKelmoMainDialog::remoteShutdownTriggered()
{
    Q_EMIT remoteClientShutdownTrigger();
}

void CKelmoMainDialog::raceSummaryDialogTrigger()
{
    if (m_summaryDialog)
        m_summaryDialog->updateAndShow();
}

void CKelmoMainDialog::showRaceSettings()
{
    collectDriversAndCars();
    if (!m_raceSettingsDialog)
        m_raceSettingsDialog = new CKelmoRaceSettings(m_raceSettings, this);
    if (m_raceSettingsDialog->run() != QDialog::Accepted)
        return;
    onRaceSettingsChanged();
    Q_EMIT raceSettingsChanged();
}

void CKelmoMainDialog::showSettings()
{
    collectDriversAndCars();
    giveListsToSettingsDialog();
    if (m_settingsDialog->run() != QDialog::Accepted) {
        takeListsAsTheyAre();
        return;
    }
    onSettingsChanged();
    onRaceSettingsChanged();
    Q_EMIT settingsChanged();
    Q_EMIT raceSettingsChanged();
}

/** Lists of its own: those of this window show their models in the boxes of the panels. */
void CKelmoMainDialog::giveListsToSettingsDialog()
{
    m_settingsDialog->setLists(std::make_unique<CRacewayList>(), std::make_unique<CCarList>(),
                               std::make_unique<CDriverList>());
}

/** What was done to raceways, cars and drivers stays done where the settings are cancelled. */
void CKelmoMainDialog::takeListsAsTheyAre()
{
    m_driverList->nameModel();
    m_carList->nameModel();
    vPublishDriversAndCarsToTrackDisplays();
}

void CKelmoMainDialog::showRaceAnalyzer()
{
    m_raceAnalyzer->showAnalyzer(m_settings, m_qrCodeReaderDialog.get());
}

void CKelmoMainDialog::showAboutDialog()
{
    m_questions->showAbout(this, AboutText::title(), AboutText::html());
}

void CKelmoMainDialog::raceStoreTrigger()
{
    QStringList driverNames;
    for (const CTrackDisplay* panel : m_panels->trackPanels())
        driverNames.append(panel->driverName());
    const QString proposal = raceFileName(QDateTime::currentDateTime(), driverNames);

    const QString path = m_settings->storageApproach() == CSettings::UseDefaultPath
                             ? pathInFolder(m_settings->storageDefaultPath(), proposal)
                             : m_questions->askSaveFileName(this, tr("Rennen speichern als ..."), proposal,
                                                            tr("CSV-Datei (*.csv)"));
    if (!path.isEmpty())
        Q_EMIT raceStoreToCsv(path);
}

void CKelmoMainDialog::showQrCodeDetectorDialog(CTrackDisplay* panel)
{
    const QPointer<CTrackDisplay> asking(panel); // a new raceway may come in while the camera looks
    const QString text = m_qrCodeReaderDialog->readCode();
    if (asking)
        applyQrCode(asking, text);
}

void CKelmoMainDialog::qrCodeShortcutTrack(int i)
{
    if (!m_raceRunning && m_settings->qrCodeHandlingEnabled() && i < m_panels->panelCount())
        showQrCodeDetectorDialog(m_panels->panel(i));
}

void CKelmoMainDialog::applyQrCode(CTrackDisplay* panel, const QString& text)
{
    if (text.startsWith(qrTagCar)) {
        const int row = m_carList->rowOfName(text.mid(qrTagCar.size()));
        if (row >= 0 && row < m_carList->count())
            panel->setCarIndex(row);
    } else if (text.startsWith(qrTagDriver)) {
        const int row = m_driverList->rowOfName(text.mid(qrTagDriver.size()));
        if (row >= 0 && row < m_driverList->count())
            panel->setDriverIndex(row);
    }
}

// Settings, raceway, drivers and cars

void CKelmoMainDialog::enableClientMode()
{
    m_clientMode = true;
    m_menu->showClientMode();
    onSettingsChanged();
    onRaceSettingsChanged();
}

void CKelmoMainDialog::newRacewaySelected()
{
    m_raceSettings->setRaceway(m_racewayList->currentRaceway());
    onRaceSettingsChanged();
}

void CKelmoMainDialog::onSettingsChanged()
{
    loadSounds();
    m_panels->applySettings(m_driverList->nameModel(), m_carList->nameModel());
    vPublishDriversAndCarsToTrackDisplays();
    m_qrCodeReaderDialog->setSettings(m_settings);
}

void CKelmoMainDialog::onRaceSettingsChanged()
{
    const CRaceway& raceway = m_raceSettings->raceway();
    // A damaged record of the network can tell of thousands.
    const int tracks = qMin(int(raceway.tracks.size()), CRaceSettings::Slots);
    setUpdatesEnabled(false); // one layout and one repaint for all panels
    m_mainLayout->setEnabled(false);
    m_panels->rebuild(tracks, raceway.numberOfSectors, m_clientMode, m_driverList->nameModel(),
                      m_carList->nameModel());
    vPublishDriversAndCarsToTrackDisplays();
    m_mainLayout->setEnabled(true);
    m_mainLayout->activate();
    setUpdatesEnabled(true);
    m_portSimulator->setRaceway(raceway);
    m_menu->showTrackPower(raceway.pwrOffFeatureAvailable && !m_clientMode, tracks);
    Q_EMIT racewayChanged();
    m_infoFrame->setRacewayName(raceway.name);
    m_infoFrame->setRaceSettings(m_raceSettings);
}

void CKelmoMainDialog::loadSounds()
{
    m_soundHandler->setNewBestLapSound(m_settings->newBestLapSound());
    m_soundHandler->setDriveThroughSound(m_settings->driveThroughSound());
    m_soundHandler->setRedLightSound(m_settings->redLightSound());
    m_soundHandler->setGreenLightSound(m_settings->greenLightSound());
    m_soundHandler->setFuelOnReserveSound(m_settings->newBestLapSound()); // a spare that nothing plays
}

void CKelmoMainDialog::collectDriversAndCars()
{
    int track = 0;
    for (const CTrackDisplay* panel : m_panels->trackPanels()) {
        m_raceSettings->setDriver(track, m_driverList->driverAt(panel->driverIndex()));
        m_raceSettings->setCar(track, m_carList->carAt(panel->carIndex()));
        ++track;
    }
}

void CKelmoMainDialog::vPublishDriversAndCarsToTrackDisplays()
{
    int track = 0;
    for (CTrackDisplay* panel : m_panels->trackPanels()) {
        const CDriver driver = m_raceSettings->driver(track);
        const CCar car = m_raceSettings->car(track);
        if (m_clientMode) {
            panel->setDriverName(driver.name());
            panel->setCarName(car.name());
        } else {
            panel->setDriverIndex(m_driverList->rowOfDriver(driver));
            panel->setCarIndex(m_carList->rowOfCar(car));
        }
        ++track;
    }
    // The stored defaults know ids alone; a display client, which has other lists, shows names.
    if (!m_clientMode)
        collectDriversAndCars();
}
