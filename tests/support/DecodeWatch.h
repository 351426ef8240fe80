#ifndef TORNIK_TESTS_SUPPORT_DECODEWATCH_H
#define TORNIK_TESTS_SUPPORT_DECODEWATCH_H

#include "support/MainThreadWatch.h"

#include <QCamera>
#include <QCameraImageCaptureControl>
#include <QCoreApplication>
#include <QMediaService>
#include <QPointer>

/**
 * Tells from outside whether a reader looks into a picture of a camera of the tests. Between two
 * pictures it asks the camera again and again whether it is ready; as long as it keeps the processor
 * busy and doesn't ask, it decodes.
 */
class DecodeWatch
{
public:
    explicit DecodeWatch(QCamera* camera)
        : m_stills(camera->service()->requestControl(QCameraImageCaptureControl_iid))
    {
        m_tick.start(5);
    }

    /** Lets the main thread run until a decode is on. @return false if none comes */
    bool waitForOne()
    {
        QElapsedTimer clock;
        clock.start();
        do {
            m_seen = timesTurnedTo();
            const qint64 worked = MainThreadWatch::timeOfOtherThreads() + Work;
            while (MainThreadWatch::timeOfOtherThreads() < worked && clock.elapsed() < Limit)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        } while (!(m_seen > 0 && isOn()) && clock.elapsed() < Limit);
        return m_seen > 0 && isOn();
    }
    /** @return whether the decode that was waited for is still the same. */
    bool isOn() const { return timesTurnedTo() == m_seen; }
    /** Lets the main thread run until that decode has ended. @return how often a timer fired meanwhile */
    int eventsUntilItEnds()
    {
        int events = 0;
        const auto counting = QObject::connect(&m_tick, &QTimer::timeout, [&events] { ++events; });
        QElapsedTimer clock;
        clock.start();
        while (isOn() && clock.elapsed() < Limit)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QObject::disconnect(counting);
        return events;
    }

private:
    static constexpr int Limit = 120000; ///< milliseconds
    static constexpr int Work = 20000;   ///< microseconds of the processor in which a reader asks many times

    int timesTurnedTo() const { return m_stills ? m_stills->property("timesTurnedTo").toInt() : -1; }

    QPointer<QObject> m_stills; ///< goes with its camera
    QTimer m_tick;
    int m_seen = 0;
};

#endif
