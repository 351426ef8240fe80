#ifndef TORNIK_IO_CIOWARRIORIO_H
#define TORNIK_IO_CIOWARRIORIO_H

#include "io/CRacewayIo.h"

#include <memory>

class CIoWarriorDevice;
class CIoWarriorThread;

/**
 * A raceway on a USB chip of the IO-Warrior family: up to 32 pins, each a sensor or an output.
 *
 * One class serves the whole family; the type code says for which chip the raceway was set up,
 * whatever is attached. With no chip there are no events and outputs go nowhere. The chip is
 * shared by all objects of this class.
 */
class CIoWarriorIo : public CRacewayIo
{
    Q_OBJECT

public:
    /** The type code is that of the chip that is attached. */
    explicit CIoWarriorIo(QObject* parent = nullptr);
    ~CIoWarriorIo() override;

    /** @return whether a type code names a chip of the family. */
    static bool isIoWarrior(int interfaceType);

    /** Reads the chip; not to be used while the thread runs. */
    QBitArray sensorStates() override;
    void setOutput(int portId, bool on) override;
    /** Reads the chip, as sensorStates() does; clears the invert flag of an output. */
    int capturePortState(int portId) override;
    /** Does nothing without a chip. */
    void start() override;
    void stop() override;
    bool isRunning() const override;
    /** Takes the type code of the blob, if it names a chip of the family. */
    void readSettings(const QByteArray& blob) override;
    QByteArray writeSettings() const override;
    void processIoEvent(QEvent* event) override;

private:
    CIoWarriorDevice* m_device;
    std::unique_ptr<CIoWarriorThread> m_thread;
};

#endif
