#ifndef TORNIK_TESTS_IO_EVENTRECORDER_H
#define TORNIK_TESTS_IO_EVENTRECORDER_H

#include "io/CCarreraCuEvents.h"
#include "io/CDriveThroughEvent.h"
#include "io/CRacewayIoEvent.h"

#include <QObject>
#include <QStringList>
#include <QVector>

/** A receiver that keeps what is posted to it. */
class EventRecorder : public QObject
{
public:
    struct Pass
    {
        QBitArray sensors;
        int time;
    };

    const QVector<Pass>& passes() const { return m_passes; }
    const QVector<CCarreraCuStatusEvent>& states() const { return m_states; }
    const QStringList& frames() const { return m_frames; }
    int others() const { return m_others; }

    /** @return the set bits of a pass. */
    static QVector<int> bitsOf(const Pass& pass)
    {
        QVector<int> bits;
        for (int bit = 0; bit < pass.sensors.size(); ++bit) {
            if (pass.sensors.testBit(bit))
                bits.append(bit);
        }
        return bits;
    }

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() == CDriveThroughEvent::EventType) {
            const auto* pass = static_cast<CDriveThroughEvent*>(event);
            m_passes.append({pass->sensors(), pass->time()});
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
    QVector<Pass> m_passes;
    QVector<CCarreraCuStatusEvent> m_states;
    QStringList m_frames;
    int m_others = 0;
};

#endif
