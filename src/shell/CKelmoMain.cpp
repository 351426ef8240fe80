#include "shell/CKelmoMain.h"

#include "network/CKelmoNetworkClient.h"
#include "network/CKelmoNetworkServer.h"
#include "race/CRace.h"
#include "race/CRaceSettings.h"
#include "results/CRaceSummaryDialog.h"
#include "shell/CCommandLineParameters.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CSettings.h"
#include "shell/SystemPower.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTextCodec>

namespace {

constexpr int ShutdownTick = 1000; // milliseconds

/**
 * Connects what is told of a race with one who is to hear it: the race itself or the client of another
 * machine tells, the dialog or the server hears.
 */
template <typename Teller, typename Listener>
void connectRace(const Teller* teller, Listener* listener)
{
    QObject::connect(teller, &Teller::RaceEventHappened, listener, &Listener::HandleEventRace);
    QObject::connect(teller, &Teller::RaceStarted, listener, &Listener::vSetUiRaceStarted);
    QObject::connect(teller, &Teller::RecordedRaceStarted, listener, &Listener::vSetUiRecordedRaceStarted);
    QObject::connect(teller, &Teller::RaceStopped, listener, &Listener::vSetUiRaceStopped);
    QObject::connect(teller, &Teller::RacePaused, listener, &Listener::vSetUiRacePaused);
    QObject::connect(teller, &Teller::RaceResumed, listener, &Listener::vSetUiRaceResumed);
    QObject::connect(teller, &Teller::UpdateLights, listener, &Listener::updateLightsDisplay);
    QObject::connect(teller, &Teller::UpdateRaceTime, listener, &Listener::setRaceTime);
    QObject::connect(teller, &Teller::raceInfoText, listener, &Listener::setAdditionalInfo);
}

} // namespace

CKelmoMain::CKelmoMain(QObject* parent, const CCommandLineParameters& parameters)
    : QObject(parent), m_shutdownTimer(new QTimer(this))
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    createParts();
    if (parameters.clientMode()) {
        m_mainDialog->enableClientMode();
        connectClient(parameters.serverAddress());
        connectShutdown();
    } else {
        createServer(parameters.port());
        connectRaceToDialog();
        connectRaceToServer();
        connectDialogToRace();
        connectSummaryToDialog();
        connectDialogAndServer();
    }
    showWindow(parameters.windowed());
    m_race->vStop(); // brings lights and power to their idle state
    if (parameters.quickRace())
        m_mainDialog->quickRaceTrigger();
}

/** The order matters: the later parts take pointers to the earlier ones. */
void CKelmoMain::createParts()
{
    m_settings = std::make_unique<CSettings>();
    m_settings->read();
    m_raceSettings = std::make_unique<CRaceSettings>();
    m_raceSettings->readDefaults();
    m_mainDialog = std::make_unique<CKelmoMainDialog>(m_settings.get(), m_raceSettings.get());
    m_race = std::make_unique<CRace>(m_settings.get(), m_raceSettings.get(), this);
    m_summaryDialog = new CRaceSummaryDialog(m_mainDialog.get());
    m_summaryDialog->setRace(m_race.get());
    m_summaryDialog->setModal(true);
    m_mainDialog->setRaceOfSimulator(m_race.get());
    m_mainDialog->setSummaryDialog(m_summaryDialog);
    createShutdownBox();
}

void CKelmoMain::createShutdownBox()
{
    m_shutdownBox = std::make_unique<QMessageBox>();
    m_shutdownBox->setObjectName("shutdownBox");
    m_shutdownBox->setAttribute(Qt::WA_QuitOnClose, false);
    m_shutdownBox->setWindowTitle(tr("System herunterfahren"));
    QPushButton* cancel = m_shutdownBox->addButton(tr("Abbrechen"), QMessageBox::RejectRole);
    m_shutdownBox->addButton(tr("Sofort herunterfahren"), QMessageBox::AcceptRole);
    m_shutdownBox->setInformativeText(tr("Vorgang fortsetzen?"));
    m_shutdownBox->setDefaultButton(cancel);
    m_shutdownBox->setModal(true);
    m_shutdownTimer->setObjectName("shutdownTimer");
}

/** In a display client only: no server counts down. */
void CKelmoMain::connectShutdown()
{
    connect(m_shutdownTimer, &QTimer::timeout, this, &CKelmoMain::shutDownTimerTick);
    connect(m_shutdownBox.get(), &QMessageBox::buttonClicked, this, &CKelmoMain::cancelShutdown);
    // Closing the box presses no button, and nobody is to be shut down behind a closed box.
    connect(m_shutdownBox.get(), &QMessageBox::rejected, this, &CKelmoMain::stopShutdown);
}

/** @param port 0 for that of the settings */
void CKelmoMain::createServer(quint16 port)
{
    m_server = std::make_unique<CKelmoNetworkServer>(m_settings.get(), m_raceSettings.get(), port);
}

/** What the race tells goes to the dialog first and to anybody else after it. */
void CKelmoMain::connectRaceToDialog()
{
    connectRace(m_race.get(), m_mainDialog.get());
    connect(m_race.get(), &CRace::trackPowerStateChanged, m_mainDialog.get(),
            &CKelmoMainDialog::trackPowerNotification);
}

void CKelmoMain::connectRaceToServer()
{
    connectRace(m_race.get(), m_server.get());
    connect(m_race.get(), &CRace::trackPowerStateChanged, m_server.get(),
            &CKelmoNetworkServer::trackPowerNotification);
}

/** To the dialog it is as if its own race told it all. */
void CKelmoMain::connectClientToDialog()
{
    const CKelmoNetworkClient* client = m_client.get();
    CKelmoMainDialog* dialog = m_mainDialog.get();
    connectRace(client, dialog);
    connect(client, &CKelmoNetworkClient::settingsChanged, dialog, &CKelmoMainDialog::onSettingsChanged);
    connect(client, &CKelmoNetworkClient::raceSettingsChanged, dialog,
            &CKelmoMainDialog::onRaceSettingsChanged);
    connect(client, &CKelmoNetworkClient::updateDriversAndCars, dialog,
            &CKelmoMainDialog::vPublishDriversAndCarsToTrackDisplays);
}

/** The client's track power goes nowhere on purpose: a display has no power menu. */
void CKelmoMain::connectClient(const QString& address)
{
    m_client = std::make_unique<CKelmoNetworkClient>(address, m_settings.get(), m_raceSettings.get());
    connectClientToDialog();
    connect(m_client.get(), &CKelmoNetworkClient::debugMessage, this, &CKelmoMain::debugMessage);
    connect(m_client.get(), &CKelmoNetworkClient::triggerShutdown, this,
            &CKelmoMain::shutDownTriggerReceived);
}

void CKelmoMain::connectDialogToRace()
{
    const CKelmoMainDialog* dialog = m_mainDialog.get();
    CRace* race = m_race.get();
    connect(dialog, &CKelmoMainDialog::raceStartRecordedRace, race, &CRace::vStartRecordedRace);
    connect(dialog, &CKelmoMainDialog::raceStartQuickRace, race, &CRace::vStartQuickRace);
    connect(dialog, &CKelmoMainDialog::raceStop, race, &CRace::vStop);
    connect(dialog, &CKelmoMainDialog::racePause, race, &CRace::vPause);
    connect(dialog, &CKelmoMainDialog::raceResume, race, &CRace::vResume);
    connect(dialog, &CKelmoMainDialog::raceStoreToDatabase, race, &CRace::saveToDatabase);
    connect(dialog, &CKelmoMainDialog::raceStoreToCsv, race, &CRace::saveToCsv);
    connect(dialog, qOverload<bool>(&CKelmoMainDialog::raceTrackPowerSwitch), race, &CRace::allTracksPower);
    connect(dialog, &CKelmoMainDialog::raceTrackPowerToggle, race, &CRace::trackPowerToggle);
    connect(dialog, &CKelmoMainDialog::racewayChanged, race, &CRace::adaptToRaceway);
}

void CKelmoMain::connectSummaryToDialog()
{
    connect(m_summaryDialog, &CRaceSummaryDialog::storeToCSVTriggered, m_mainDialog.get(),
            &CKelmoMainDialog::raceStoreTrigger);
}

void CKelmoMain::connectDialogAndServer()
{
    CKelmoMainDialog* dialog = m_mainDialog.get();
    CKelmoNetworkServer* server = m_server.get();
    connect(server, &CKelmoNetworkServer::debugMessage, this, &CKelmoMain::debugMessage);
    connect(dialog, &CKelmoMainDialog::settingsChanged, server, &CKelmoNetworkServer::onSettingsChanged);
    connect(dialog, &CKelmoMainDialog::raceSettingsChanged, server,
            &CKelmoNetworkServer::onRaceSettingsChanged);
    connect(server, &CKelmoNetworkServer::clientConnected, dialog,
            &CKelmoMainDialog::vSetUiRemoteClientConnected);
    connect(server, &CKelmoNetworkServer::clientDisconnected, dialog,
            &CKelmoMainDialog::vSetUiRemoteClientDisconnected);
    connect(dialog, &CKelmoMainDialog::remoteClientShutdownTrigger, server,
            &CKelmoNetworkServer::sendAppTerminationNotification);
}

void CKelmoMain::showWindow(bool windowed)
{
    if (windowed) {
        // There is no window yet that must be told: setWindowFlags() would style every widget anew.
        // Title and system menu it would add by itself.
        m_mainDialog->overrideWindowFlags(Qt::Window | Qt::WindowMinMaxButtonsHint |
                                          Qt::WindowCloseButtonHint | Qt::WindowTitleHint |
                                          Qt::WindowSystemMenuHint);
        m_mainDialog->setWindowState(Qt::WindowMaximized);
    } else {
        m_mainDialog->setWindowState(Qt::WindowFullScreen);
    }
    m_mainDialog->show();
}

CKelmoMain::~CKelmoMain()
{
    m_race->vStop();
    m_mainDialog->disconnect(m_race.get());
    m_race->disconnect(m_mainDialog.get());
    deleteServer();
    deleteClient();
    m_settings.reset();
    m_raceSettings.reset();
    m_mainDialog.reset();
    m_race.reset();
}

void CKelmoMain::deleteServer()
{
    if (!m_server)
        return;
    m_race->disconnect(m_server.get());
    m_mainDialog->disconnect(m_server.get());
    m_server->disconnect(m_mainDialog.get()); // no client is said to have left when its socket goes
    m_server.reset();
}

void CKelmoMain::deleteClient()
{
    if (!m_client)
        return;
    m_client->disconnect(m_mainDialog.get());
    m_client.reset();
}

void CKelmoMain::debugMessage(const QString& text)
{
    m_mainDialog->setAdditionalInfo(text);
}

void CKelmoMain::shutDownTriggerReceived(int seconds)
{
    showSecondsToShutdown(seconds);
    m_shutdownBox->open();
    m_shutdownSeconds = seconds;
    m_shutdownTimer->start(ShutdownTick);
}

void CKelmoMain::showSecondsToShutdown(int seconds)
{
    m_shutdownBox->setText(tr("Das System wird in %1 Sekunden heruntergefahren").arg(seconds));
}

void CKelmoMain::shutDownTimerTick()
{
    if (m_shutdownElapsed >= m_shutdownSeconds) {
        powerMachineOff();
        return;
    }
    ++m_shutdownElapsed;
    showSecondsToShutdown(m_shutdownSeconds - m_shutdownElapsed);
}

void CKelmoMain::cancelShutdown(QAbstractButton* button)
{
    const QMessageBox::ButtonRole role = m_shutdownBox->buttonRole(button);
    if (role == QMessageBox::RejectRole)
        stopShutdown();
    else if (role == QMessageBox::AcceptRole)
        powerMachineOff();
}

void CKelmoMain::stopShutdown()
{
    m_shutdownTimer->stop();
    m_shutdownElapsed = 0;
}
