#ifndef TORNIK_WIZARD_CRWWIZARDSECTOR3SENSORPAGE_H
#define TORNIK_WIZARD_CRWWIZARDSECTOR3SENSORPAGE_H

#include "wizard/CTrackSensorPage.h"

/** Learns the sensor at which the third sector begins. */
class CRwWizardSector3SensorPage : public CTrackSensorPage
{
    Q_OBJECT

public:
    /** @param track from 0 */
    CRwWizardSector3SensorPage(CRacewayWizard* wizard, int track);
};

#endif
