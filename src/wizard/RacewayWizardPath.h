#ifndef TORNIK_WIZARD_RACEWAYWIZARDPATH_H
#define TORNIK_WIZARD_RACEWAYWIZARDPATH_H

/** The order of the pages that set up a raceway, as a matter of the answers given so far. */
namespace RacewayWizardPath {

enum class Page
{
    Start,
    IoInterface,
    AvailableFeatures,
    Open,
    ChaosButton,
    ChaosPhaseOutput,
    PowerOffFeature,
    Lights,
    Slot, ///< from here to EndSensor: once for each track
    FuelSensor,
    FuelFinishedSensor,
    Sector2Sensor,
    Sector3Sensor,
    EndSensor,
    DebounceTime,
    Finish
};

/** A page, and of which track, counted from 0, if it belongs to one. */
struct Step
{
    Page page = Page::Start;
    int track = 0;
};

inline bool operator==(const Step& left, const Step& right)
{
    return left.page == right.page && left.track == right.track;
}
inline bool operator!=(const Step& left, const Step& right)
{
    return !(left == right);
}

/** What decides the way: the hardware, the features and the number of tracks. */
struct Answers
{
    bool hasPortStates = true; ///< sensors are states of a port; false for an AT2560, which has inputs
    bool chaosButton = false;
    bool chaosPhaseOutput = false;
    bool powerOff = false;
    bool lights = false;
    bool separateEndSensors = false;
    int fuelIndex = 0;   ///< 0 to 4: the fuel sensors of each track
    int sectorIndex = 0; ///< 0 to 2: the sector sensors of each track
    int tracks = 1;
};

/** @return the step behind @p step; Page::Finish is followed by itself. */
Step stepAfter(const Step& step, const Answers& answers);

} // namespace RacewayWizardPath

#endif
