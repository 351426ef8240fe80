#ifndef TORNIK_IO_CRACECONTROLIO_H
#define TORNIK_IO_CRACECONTROLIO_H

#include "io/CRacewayIo.h"

#include <QString>

#include <array>
#include <memory>

class CRaceControl;
class CRaceControlThread;

/**
 * A raceway with up to four RaceControl boxes on serial lines. The port value that the masks are
 * for is the event code of a box; time stamps are ticks of the box, 4800 a second. There are no
 * outputs. Without the library of the boxes the interface stays quiet.
 */
class CRaceControlIo : public CRacewayIo
{
    Q_OBJECT

public:
    explicit CRaceControlIo(QObject* parent = nullptr);
    /** Stops the thread and waits for it. */
    ~CRaceControlIo() override;

    /** @param box 0 to 3; the name is empty where there is no box, and for a box outside. */
    QString portName(int box) const;
    /** For the settings blob, and for a start() that has boxes to open. */
    void setPortName(int box, const QString& name);

    /** @return all bits clear: the boxes tell changes, not levels. */
    QBitArray sensorStates() override;
    /** Does nothing. */
    void setOutput(int portId, bool on) override;
    /** @return 0; stores nothing. */
    int capturePortState(int portId) override;
    /**
     * Tells the boxes their parameters, unless they are being read, and opens them, if none is open;
     * does nothing more if none could be opened.
     */
    void start() override;
    void stop() override;
    bool isRunning() const override;
    void readSettings(const QByteArray& blob) override;
    QByteArray writeSettings() const override;
    void processIoEvent(QEvent* event) override;

private:
    /** What the blob tells of one box: three words of its record, and its port. */
    struct Box
    {
        quint16 word2 = 0;
        quint16 word3 = 0;
        quint16 word4 = 0;
        QString portName;
    };

    void configureDevice();

    CRaceControl* m_device;
    std::unique_ptr<CRaceControlThread> m_thread;
    std::array<Box, 4> m_boxes;
};

#endif
