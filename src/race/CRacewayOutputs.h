#ifndef TORNIK_RACE_CRACEWAYOUTPUTS_H
#define TORNIK_RACE_CRACEWAYOUTPUTS_H

class CRacewayIo;

/**
 * Turns light actions, track power and the chaos signal into outputs of the interface. Does nothing
 * without an interface, or where the raceway lacks the feature. A value inside CRace.
 */
class CRacewayOutputs
{
public:
    /** @param io not owned; null for none */
    void setIo(CRacewayIo* io) { m_io = io; }
    void setExternalLightsAvailable(bool available) { m_externalLightsAvailable = available; }
    void setPwrOffFeatureAvailable(bool available) { m_pwrOffFeatureAvailable = available; }
    void setChaosPhaseOutputAvailable(bool available) { m_chaosPhaseOutputAvailable = available; }

    /** @param action a CLightAction; any other value does nothing */
    void updateLights(int action);
    /** @param track track number from 0 */
    void setTrackPower(int track, bool on);
    void setChaosSignal(bool on);

private:
    void switchNextRedLamp();
    void switchRedLamps(bool on);

    CRacewayIo* m_io = nullptr;
    int m_redLights = 0;
    bool m_externalLightsAvailable = false;
    bool m_pwrOffFeatureAvailable = false;
    bool m_chaosPhaseOutputAvailable = false;
};

#endif
