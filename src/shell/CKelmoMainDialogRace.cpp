// The part of CKelmoMainDialog that shows what the race does.

#include "io/CKelmoPortSimulator.h"
#include "race/CLightAction.h"
#include "shell/CInfoFrame.h"
#include "shell/CKelmoMainDialog.h"
#include "shell/CLights.h"
#include "shell/CMainMenu.h"
#include "shell/CSettings.h"
#include "shell/CTrackDisplay.h"
#include "shell/CTrackPanels.h"
#include "sound/CSoundHandler.h"

#include <QAction>

void CKelmoMainDialog::HandleEventRace(const CRaceEvent& event)
{
    const bool playsEffects = !m_settings->soundEnhanced() && !isMutedClient();
    if (event.type == CRaceEvent::LapEnded && playsEffects)
        m_soundHandler->playDriveThrough();
    else if (event.type == CRaceEvent::NewBestLap && playsEffects)
        m_soundHandler->playNewBestLap();
    else if (event.type == CRaceEvent::MemberChanged)
        showMember(event);
}

bool CKelmoMainDialog::isMutedClient() const
{
    return m_clientMode && m_settings->clientsMuted();
}

void CKelmoMainDialog::showMember(const CRaceEvent& event)
{
    CTrackDisplay* panel = m_panels->trackPanel(event.track);
    if (!panel)
        return;
    panel->setLaps(event.laps);
    panel->setLastLap(event.lastLapTime);
    panel->setBestLap(event.bestLapTime);
    panel->setStatus(event.status);
    panel->setAverageLap(event.averageLapTime);
    showSectionTimes(panel, event);
    panel->setSpeed(event.speed);
    panel->setFuel(event.fuelPercent);
    panel->lockBoxes(event.raceRunning);
    if (!isMutedClient())
        panel->voiceOutput(event.subType);
}

void CKelmoMainDialog::showSectionTimes(CTrackDisplay* panel, const CRaceEvent& event) const
{
    const bool intermediate = m_settings->displayShowIntermediateTimes();
    panel->setSection1(intermediate ? event.split1Time : event.sector1Time);
    panel->setSection2(intermediate ? event.split2Time : event.sector2Time);
    panel->setSection3(intermediate ? event.split3Time : event.sector3Time);
}

void CKelmoMainDialog::updateLightsDisplay(int iAction)
{
    const bool redLightSeen = m_redLightSeen;
    m_redLightSeen = iAction == CLightAction::NextRed || (redLightSeen && iAction == CLightAction::AllOff);
    switch (iAction) {
    case CLightAction::NextRed:
        m_lights->nextRed();
        if (!isMutedClient())
            m_soundHandler->playRedLightSound();
        break;
    case CLightAction::Go:
        m_lights->allGreen();
        if (redLightSeen && !isMutedClient())
            m_soundHandler->playGreenLightSound();
        break;
    case CLightAction::AllRed:
        m_lights->allRed();
        break;
    default:
        m_lights->allOff();
    }
}

void CKelmoMainDialog::setRaceTime(const QTime& time)
{
    m_infoFrame->setRaceTime(time.toString("hh:mm:ss"));
}

void CKelmoMainDialog::setAdditionalInfo(const QString& text)
{
    m_infoFrame->setAdditionalInfo(text);
}

void CKelmoMainDialog::trackPowerNotification(int tracknum, bool powerState)
{
    m_menu->showTrackPowerState(tracknum, powerState);
}

void CKelmoMainDialog::vSetUiRaceStarted()
{
    m_menu->showRaceStarted();
    raceStarted();
}

void CKelmoMainDialog::vSetUiRecordedRaceStarted()
{
    m_menu->showRecordedRaceStarted();
    raceStarted();
}

void CKelmoMainDialog::raceStarted()
{
    m_raceRunning = true;
    m_racePaused = false;
    if (m_menu->action(CMainMenu::Simulator)->isChecked())
        m_portSimulator->show();
}

void CKelmoMainDialog::vSetUiRaceStopped()
{
    m_menu->showRaceStopped();
    m_raceRunning = false;
    m_racePaused = false;
    m_portSimulator->hide();
}

void CKelmoMainDialog::vSetUiRacePaused()
{
    m_menu->showRacePaused();
    m_racePaused = true;
}

void CKelmoMainDialog::vSetUiRaceResumed()
{
    m_menu->showRaceResumed();
    m_racePaused = false;
}

void CKelmoMainDialog::vSetUiRemoteClientConnected()
{
    m_menu->showRemoteClient(true);
}

void CKelmoMainDialog::vSetUiRemoteClientDisconnected()
{
    m_menu->showRemoteClient(false);
}
