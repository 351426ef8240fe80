#ifndef TORNIK_WIZARD_CRWWIZARDSECTOR2SENSORPAGE_H
#define TORNIK_WIZARD_CRWWIZARDSECTOR2SENSORPAGE_H

#include "wizard/CTrackSensorPage.h"

/** Learns the sensor at which the second sector begins. */
class CRwWizardSector2SensorPage : public CTrackSensorPage
{
    Q_OBJECT

public:
    /** @param track from 0 */
    CRwWizardSector2SensorPage(CRacewayWizard* wizard, int track);
};

#endif
