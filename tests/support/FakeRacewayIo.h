#ifndef TORNIK_TESTS_SUPPORT_FAKERACEWAYIO_H
#define TORNIK_TESTS_SUPPORT_FAKERACEWAYIO_H

#include "io/CDriveThroughEvent.h"
#include "io/CRacewayIo.h"
#include "io/CRacewayIoEvent.h"

#include <QCoreApplication>
#include <QStringList>

namespace TestSupport {

/**
 * An interface without hardware: it writes down what is asked of it ("start", "stop", "18 on") and
 * decodes a raw value by its masks, as the interfaces with a port do.
 */
class FakeRacewayIo : public CRacewayIo
{
public:
    /** @param log takes the calls; not owned; may outlive the interface */
    explicit FakeRacewayIo(QStringList* log, int interfaceType = ParallelPort)
        : CRacewayIo(interfaceType), m_log(log)
    {
    }
    ~FakeRacewayIo() override { *m_log << QStringLiteral("delete"); }

    QBitArray sensorStates() override { return sensors; }
    void setOutput(int portId, bool on) override
    {
        *m_log << QStringLiteral("%1 %2").arg(portId).arg(on ? QStringLiteral("on") : QStringLiteral("off"));
    }
    int capturePortState(int) override { return 0; }
    void start() override
    {
        *m_log << QStringLiteral("start");
        m_running = true;
        m_pollsUntilStopped = 0;
    }
    /** The "thread" leaves its loop some polls later. */
    void stop() override
    {
        *m_log << QStringLiteral("stop");
        m_pollsUntilStopped = 3;
    }
    bool isRunning() const override
    {
        if (m_running && m_pollsUntilStopped > 0 && --m_pollsUntilStopped == 0) {
            m_running = false;
            *m_log << QStringLiteral("stopped");
        }
        return m_running;
    }
    void readSettings(const QByteArray& blob) override { m_blob = blob; }
    QByteArray writeSettings() const override { return m_blob; }
    void processIoEvent(QEvent* event) override
    {
        const auto* raw = static_cast<CRacewayIoEvent*>(event);
        QCoreApplication::postEvent(receiver(),
                                    new CDriveThroughEvent(decodePortValue(raw->value()), raw->time()));
    }

    QObject* raceReceiver() const { return receiver(); }

private:
    QStringList* m_log;
    QByteArray m_blob;
    mutable bool m_running = false;
    mutable int m_pollsUntilStopped = 0;
};

} // namespace TestSupport

#endif
