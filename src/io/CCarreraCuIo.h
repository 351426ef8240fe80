#ifndef TORNIK_IO_CCARRERACUIO_H
#define TORNIK_IO_CCARRERACUIO_H

#include "io/CRacewayIo.h"

#include <QString>

class CCarreraCuMessage;
class CCarreraCuThread;

/**
 * A digital raceway with a Control Unit on a serial line: the unit knows which car passed which
 * sensor, so there are no masks to learn, and lights and power are its own.
 *
 * Car c is track c. Beside the drive-through events the receiver gets a CCarreraCuStatusEvent with
 * the tanks and the start light. The reading thread is shared by all objects of this class; it reads
 * for the one that started it, on the port of that one's settings.
 */
class CCarreraCuIo : public CRacewayIo
{
    Q_OBJECT

public:
    explicit CCarreraCuIo(QObject* parent = nullptr);
    /** Stops the thread, if it reads for this object, and waits for it, some 100 ms. */
    ~CCarreraCuIo() override;

    QString portName() const { return m_portName; }
    /** For the settings blob alone: the thread takes its port from readSettings(). */
    void setPortName(const QString& name) { m_portName = name; }

    /** @return all bits clear: the unit tells passes, not levels. */
    QBitArray sensorStates() override;
    /** Does nothing: lights and power are the unit's own. */
    void setOutput(int portId, bool on) override;
    /** @return 0; stores nothing. */
    int capturePortState(int portId) override;
    void start() override;
    void stop() override;
    bool isRunning() const override;
    void readSettings(const QByteArray& blob) override;
    QByteArray writeSettings() const override;
    void processIoEvent(QEvent* event) override;

private:
    void postDriveThrough(const CCarreraCuMessage& frame);
    void postStatus(const CCarreraCuMessage& frame);

    CCarreraCuThread* m_thread;
    QString m_portName;
    QString m_portOfBlob; ///< that on which start() reads
};

#endif
