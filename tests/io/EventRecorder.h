#ifndef TORNIK_TESTS_IO_EVENTRECORDER_H
#define TORNIK_TESTS_IO_EVENTRECORDER_H

#include "io/CCarreraCuEvents.h"
#include "io/CRacewayIoEvent.h"
#include "io/EventSink.h"

#include <QStringList>

/** A receiver that keeps the frames of a device, too, and what a Control Unit tells. */
class EventRecorder : public EventSink
{
public:
    using Pass = EventSink::Entry;

    const QList<Pass>& passes() const { return events; }
    const QList<CCarreraCuStatusEvent>& states() const { return m_states; }
    const QStringList& frames() const { return m_frames; }
    int others() const { return m_others; }

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() == CDriveThroughEvent::EventType) {
            EventSink::customEvent(event);
        } else if (event->type() == CCarreraCuStatusEvent::EventType) {
            const auto* state = static_cast<CCarreraCuStatusEvent*>(event);
            m_states.append(CCarreraCuStatusEvent(state->fuel(), state->startLight()));
        } else if (event->type() == CCarreraCuEvent::EventType) {
            m_frames.append(static_cast<CCarreraCuEvent*>(event)->data());
        } else if (event->type() == CRacewayIoEvent::EventType) {
            m_frames.append(QString::fromLatin1(static_cast<CRacewayIoEvent*>(event)->text()));
        } else {
            ++m_others;
        }
    }

private:
    QList<CCarreraCuStatusEvent> m_states;
    QStringList m_frames;
    int m_others = 0;
};

#endif
