#ifndef TORNIK_IO_CLTAT2560IO_H
#define TORNIK_IO_CLTAT2560IO_H

#include "io/CRacewayIo.h"

#include <QString>

class CLtAt2560;

/**
 * A raceway on an AT2560 timing box. The masks are input and output numbers of the box; the box
 * reports each activation of an input with a time stamp of its own, never a release.
 *
 * It has no thread, and the line stays open between races. The line is shared by all objects of
 * this class; the frames go to the one that was started last.
 */
class CLtAt2560Io : public CRacewayIo
{
    Q_OBJECT

public:
    explicit CLtAt2560Io(QObject* parent = nullptr);
    ~CLtAt2560Io() override;

    QString portName() const { return m_portName; }
    /** Acts from the next start() on. */
    void setPortName(const QString& name) { m_portName = name; }

    /** @return all bits clear: the box tells activations, not levels. */
    QBitArray sensorStates() override;
    /** Sends the frame of a lamp, of the power of track 1 to 6 or of the chaos signal. */
    void setOutput(int portId, bool on) override;
    /** @return 0; stores nothing. */
    int capturePortState(int portId) override;
    /** Opens the line, tells the box its inputs and is running then, even without a box. */
    void start() override;
    /** The line stays open, and what the box reports still reaches the receiver. */
    void stop() override;
    bool isRunning() const override { return m_running; }
    void readSettings(const QByteArray& blob) override;
    QByteArray writeSettings() const override;
    void processIoEvent(QEvent* event) override;

private:
    void sendInputSetup();
    void decodeInput(int number);

    CLtAt2560* m_device;
    QString m_portName;
    bool m_running = false;
};

#endif
