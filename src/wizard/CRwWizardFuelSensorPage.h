#ifndef TORNIK_WIZARD_CRWWIZARDFUELSENSORPAGE_H
#define TORNIK_WIZARD_CRWWIZARDFUELSENSORPAGE_H

#include "wizard/CTrackSensorPage.h"

/** Learns the sensor at which refuelling begins. */
class CRwWizardFuelSensorPage : public CTrackSensorPage
{
    Q_OBJECT

public:
    /** @param track from 0 */
    CRwWizardFuelSensorPage(CRacewayWizard* wizard, int track);
};

#endif
