#include "wizard/RacewayWizardPath.h"

namespace RacewayWizardPath {

namespace {

/** The step behind another one if each page applied. */
Step stepInFullOrder(const Step& step, int tracks)
{
    if (step.page == Page::Finish)
        return step;
    if (step.page == Page::EndSensor && step.track + 1 < tracks)
        return {Page::Slot, step.track + 1};
    const Page page = Page(int(step.page) + 1);
    const bool isOfTrack = page > Page::Slot && page <= Page::EndSensor;
    return {page, isOfTrack ? step.track : 0};
}

bool applies(Page page, const Answers& answers)
{
    switch (page) {
    case Page::Open:
        return answers.hasPortStates;
    case Page::ChaosButton:
        return answers.chaosButton;
    case Page::ChaosPhaseOutput:
        return answers.chaosButton && answers.chaosPhaseOutput;
    case Page::PowerOffFeature:
        return answers.powerOff;
    case Page::Lights:
        return answers.lights;
    case Page::FuelSensor:
        return answers.fuelIndex == 1 || answers.fuelIndex == 3 || answers.fuelIndex == 4;
    case Page::FuelFinishedSensor:
        return answers.fuelIndex == 2 || answers.fuelIndex == 4;
    case Page::Sector2Sensor:
        return answers.sectorIndex > 0;
    case Page::Sector3Sensor:
        return answers.sectorIndex == 2;
    case Page::EndSensor:
        return answers.separateEndSensors;
    default:
        return true;
    }
}

} // namespace

Step stepAfter(const Step& step, const Answers& answers)
{
    Step next = stepInFullOrder(step, answers.tracks);
    while (!applies(next.page, answers))
        next = stepInFullOrder(next, answers.tracks);
    return next;
}

} // namespace RacewayWizardPath
