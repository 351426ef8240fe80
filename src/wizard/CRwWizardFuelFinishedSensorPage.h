#ifndef TORNIK_WIZARD_CRWWIZARDFUELFINISHEDSENSORPAGE_H
#define TORNIK_WIZARD_CRWWIZARDFUELFINISHEDSENSORPAGE_H

#include "wizard/CTrackSensorPage.h"

/** Learns the sensor at the end of the fuel zone. */
class CRwWizardFuelFinishedSensorPage : public CTrackSensorPage
{
    Q_OBJECT

public:
    /** @param track from 0 */
    CRwWizardFuelFinishedSensorPage(CRacewayWizard* wizard, int track);
};

#endif
