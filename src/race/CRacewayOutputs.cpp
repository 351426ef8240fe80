#include "race/CRacewayOutputs.h"

#include "io/CRacewayIo.h"
#include "race/CLightAction.h"

void CRacewayOutputs::updateLights(int action)
{
    if (!m_externalLightsAvailable || !m_io)
        return;
    switch (action) {
    case CLightAction::AllOff:
        switchRedLamps(false);
        m_io->setOutput(PortId::GreenLamp, false);
        break;
    case CLightAction::NextRed:
        switchNextRedLamp();
        break;
    case CLightAction::Go:
        switchRedLamps(false);
        m_io->setOutput(PortId::GreenLamp, true);
        break;
    case CLightAction::AllRed:
        switchRedLamps(true);
        m_io->setOutput(PortId::GreenLamp, false);
        break;
    default:
        break;
    }
}

void CRacewayOutputs::switchNextRedLamp()
{
    // Required: a sixth red lamp finds no lamp and switches the port id 0.
    m_io->setOutput(PortId::redLamp(m_redLights), true);
    m_redLights = qMin(m_redLights + 1, PortId::RedLamps);
}

void CRacewayOutputs::switchRedLamps(bool on)
{
    for (int lamp = 0; lamp < PortId::RedLamps; ++lamp)
        m_io->setOutput(PortId::redLamp(lamp), on);
    m_redLights = on ? PortId::RedLamps : 0;
}

void CRacewayOutputs::setTrackPower(int track, bool on)
{
    if (m_pwrOffFeatureAvailable && m_io && track >= 0 && track < PortId::Tracks)
        m_io->setOutput(PortId::trackPower(track), on);
}

void CRacewayOutputs::setChaosSignal(bool on)
{
    if (m_chaosPhaseOutputAvailable && m_io)
        m_io->setOutput(PortId::ChaosSignal, on);
}
