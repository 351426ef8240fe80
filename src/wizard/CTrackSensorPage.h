#ifndef TORNIK_WIZARD_CTRACKSENSORPAGE_H
#define TORNIK_WIZARD_CTRACKSENSORPAGE_H

#include "wizard/CSensorPage.h"

/** Learns one sensor of one track; a raw event that reaches the page is taken for its state, too. */
class CTrackSensorPage : public CSensorPage
{
    Q_OBJECT

public:
    /** @param texts with "%1" for the number of the track */
    CTrackSensorPage(CRacewayWizard* wizard, const RacewayWizardPath::Step& step, int portId,
                     const SensorTexts& texts);

protected:
    void customEvent(QEvent* event) override;
    void prepareScan() override;
};

#endif
