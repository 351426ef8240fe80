#ifndef TORNIK_TESTS_IO_EVENTSINK_H
#define TORNIK_TESTS_IO_EVENTSINK_H

#include "io/CDriveThroughEvent.h"

#include <QBitArray>
#include <QList>
#include <QObject>

/** A receiver that keeps the decoded events it gets. */
class EventSink : public QObject
{
public:
    struct Entry
    {
        QBitArray sensors;
        int time;
    };

    QList<Entry> events;

    /** @return the port ids of the closed sensors of an event. */
    QList<int> closed(int index) const { return closed(events.at(index)); }
    static QList<int> closed(const Entry& event)
    {
        QList<int> ids;
        for (int id = 0; id < event.sensors.size(); ++id) {
            if (event.sensors.testBit(id))
                ids.append(id);
        }
        return ids;
    }

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() != CDriveThroughEvent::EventType)
            return;
        const auto* decoded = static_cast<const CDriveThroughEvent*>(event);
        events.append({decoded->sensors(), decoded->time()});
    }
};

#endif
