#ifndef TORNIK_IO_CPARALLELPORTIO_H
#define TORNIK_IO_CPARALLELPORTIO_H

#include "io/CRacewayIo.h"

#include <memory>

class CInpOutLibrary;
class CPortThread;

/**
 * A raceway on a PC parallel port: one register carries up to eight sensors, one other the
 * outputs. The interface of a fresh raceway, and of a blob that names no other.
 */
class CParallelPortIo : public CRacewayIo
{
    Q_OBJECT

public:
    /** Address 0x378, sensors on the status register, outputs on the data register. */
    explicit CParallelPortIo(QObject* parent = nullptr);
    /** @param inputOffset, outputOffset registers, counted from the base address */
    CParallelPortIo(int baseAddress, int inputOffset, int outputOffset, QObject* parent = nullptr);
    explicit CParallelPortIo(const QByteArray& blob, QObject* parent = nullptr);
    ~CParallelPortIo() override;

    int baseAddress() const { return m_baseAddress; }
    int inputOffset() const { return m_inputOffset; }
    int outputOffset() const { return m_outputOffset; }
    /** The setters act on the port at once, that of every other parallel port interface too. */
    void setBaseAddress(int address);
    void setInputOffset(int offset);
    void setOutputOffset(int offset);

    QBitArray sensorStates() override;
    void setOutput(int portId, bool on) override;
    /** Clears the invert flag of an output. */
    int capturePortState(int portId) override;
    void start() override;
    void stop() override;
    bool isRunning() const override;
    void readSettings(const QByteArray& blob) override;
    QByteArray writeSettings() const override;
    void processIoEvent(QEvent* event) override;

private:
    void setRegisters(int baseAddress, int inputOffset, int outputOffset);

    CInpOutLibrary* m_library;
    int m_baseAddress = 0;
    int m_inputOffset = 0;
    int m_outputOffset = 0;
    std::unique_ptr<CPortThread> m_thread;
};

#endif
