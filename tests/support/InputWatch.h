#ifndef TORNIK_TESTS_SUPPORT_INPUTWATCH_H
#define TORNIK_TESTS_SUPPORT_INPUTWATCH_H

#include "support/MainThreadWatch.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QThread>
#include <QVector>

#include <algorithm>
#include <atomic>
#include <memory>

/**
 * How soon a window handles an input: events that another thread posts to it all the while, as the
 * desktop does, and whether they are handled in time.
 */
class InputWatch : public QObject
{
public:
    double processorShare = 0.0; ///< of one core, by all threads of this process
    QVector<qint64> delays;      ///< milliseconds from the posting to the handling, in ascending order

    qint64 median() const { return delays.at(delays.size() / 2); }
    qint64 longest() const { return delays.last(); }
    /** @return the share of the inputs that were handled in that time. */
    double shareWithin(qint64 milliseconds) const
    {
        const auto end = std::upper_bound(delays.begin(), delays.end(), milliseconds);
        return double(end - delays.begin()) / double(delays.size());
    }

    /** @param window the event passes its event loop, and then this filter */
    InputWatch(QObject* window, int milliseconds)
    {
        window->installEventFilter(this);
        m_clock.start();
        std::atomic<bool> isOver{false};
        const std::unique_ptr<QThread> desktop(QThread::create([&] {
            while (!isOver) {
                QCoreApplication::postEvent(window, new Input(m_clock.elapsed()), Qt::NormalEventPriority);
                QThread::msleep(Pause);
            }
        }));
        const qint64 before = MainThreadWatch::processorTime();
        desktop->start();
        QEventLoop loop;
        while (m_clock.elapsed() < milliseconds)
            loop.processEvents(QEventLoop::WaitForMoreEvents);
        processorShare =
            double(MainThreadWatch::processorTime() - before) / 1000.0 / double(m_clock.elapsed());
        isOver = true;
        desktop->wait();
        QCoreApplication::sendPostedEvents(window);
        window->removeEventFilter(this);
        std::sort(delays.begin(), delays.end());
    }

protected:
    bool eventFilter(QObject* /*window*/, QEvent* event) override
    {
        if (event->type() != Input::type())
            return false;
        delays.append(m_clock.elapsed() - static_cast<Input*>(event)->posted);
        return true;
    }

private:
    static constexpr unsigned long Pause = 10; // milliseconds

    struct Input : QEvent
    {
        explicit Input(qint64 time) : QEvent(type()), posted(time) {}
        static QEvent::Type type()
        {
            static const int number = QEvent::registerEventType();
            return QEvent::Type(number);
        }

        qint64 posted;
    };

    QElapsedTimer m_clock;
};

#endif
