#ifndef TORNIK_WIZARD_CRWWIZARDENDSENSORPAGE_H
#define TORNIK_WIZARD_CRWWIZARDENDSENSORPAGE_H

#include "wizard/CTrackSensorPage.h"

/** Learns the sensor at which a lap ends, on a raceway where that isn't its start. */
class CRwWizardEndSensorPage : public CTrackSensorPage
{
    Q_OBJECT

public:
    /** @param track from 0 */
    CRwWizardEndSensorPage(CRacewayWizard* wizard, int track);
};

#endif
