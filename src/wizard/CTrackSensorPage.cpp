#include "wizard/CTrackSensorPage.h"

#include "io/CRacewayIo.h"
#include "io/CRacewayIoEvent.h"
#include "wizard/CPortStatusWidgetBase.h"

CTrackSensorPage::CTrackSensorPage(CRacewayWizard* wizard, const RacewayWizardPath::Step& step, int portId,
                                   const SensorTexts& texts)
    : CSensorPage(wizard, step, portId, texts.ofTrack(step.track + 1))
{
}

void CTrackSensorPage::prepareScan()
{
    io()->setReceiver(this);
}

void CTrackSensorPage::customEvent(QEvent* event)
{
    if (event->type() != CRacewayIoEvent::EventType) {
        CSensorPage::customEvent(event);
        return;
    }
    if (!io())
        return;
    const int value = static_cast<const CRacewayIoEvent*>(event)->value();
    stateWidget()->setValue(quint32(io()->setPortState(portId(), value, false)));
}
