#ifndef TORNIK_IO_CRACEWAYIO_H
#define TORNIK_IO_CRACEWAYIO_H

#include "io/PortIds.h"

#include <QBitArray>
#include <QObject>

#include <array>

class QDataStream;

/**
 * One hardware interface of a raceway: it turns what the hardware shows into CDriveThroughEvents
 * and switches outputs.
 *
 * Owned by the race (or by a wizard page). An interface is created stopped; start() and stop() may
 * follow each other any number of times. Every operation is called from the main thread; a reading
 * thread of a concrete interface talks to it by posted events alone.
 */
class CRacewayIo : public QObject
{
    Q_OBJECT

public:
    /** What hardware it is; the first value of every settings blob. */
    enum InterfaceType
    {
        ParallelPort = 1,
        IoWarrior24 = 2,
        IoWarrior40 = 3,
        RaceControl = 4,
        CarreraCu = 5,
        IoWarrior28 = 6,
        IoWarrior56 = 7,
        IoWarrior100 = 8,
        LtAt2560 = 9
    };

    ~CRacewayIo() override = default;

    /** @return the sensors as they are now, 65 bits numbered by port id. */
    virtual QBitArray sensorStates() = 0;
    /** Switches one output; @p on is the logical state, before inversion. */
    virtual void setOutput(int portId, bool on) = 0;
    /** Reads the port now, stores the value as the mask of @p portId and returns it. */
    virtual int capturePortState(int portId) = 0;
    /** Begins reading the hardware. */
    virtual void start() = 0;
    /** Asks the reading to end and returns at once; poll isRunning() to wait for it. */
    virtual void stop() = 0;
    virtual bool isRunning() const = 0;
    /** Loads the fields from a blob; what lies past its end becomes 0 or false. */
    virtual void readSettings(const QByteArray& blob) = 0;
    /** @return the blob of the present fields. */
    virtual QByteArray writeSettings() const = 0;
    /** Decodes an event of a hardware source and posts the result to the receiver. */
    virtual void processIoEvent(QEvent* event) = 0;

    int interfaceType() const { return m_interfaceType; }

    /** @param receiver gets the decoded events; not owned; must be set before start() */
    void setReceiver(QObject* receiver) { m_receiver = receiver; }

    /** @return the mask or number of a port id, 0 for an id outside 0 to 64. */
    int portState(int portId) const;
    /**
     * Stores the mask of a port id and, for an output, its invert flag. Port id 0 also becomes the
     * state to which the outputs return. An id outside 0 to 64 stores nothing.
     * @return @p value
     */
    int setPortState(int portId, int value, bool inverted);
    /** @return the invert flag of an output; false for every other id. */
    bool isInverted(int portId) const;
    /** @return the bits of an output; none if it isn't assigned. */
    int outputMask(int portId) const;

    /**
     * @return whether, among the bits in which @p value differs from the open state, there is one
     * in which @p mask differs from it too.
     */
    bool isSensorClosed(int value, int mask) const;
    /**
     * Tests the mask of each of the 49 inputs against a port value.
     * @return 65 bits, kept in `sensors` too
     */
    QBitArray decodePortValue(int value);

protected:
    explicit CRacewayIo(int interfaceType, QObject* parent = nullptr);

    void customEvent(QEvent* event) override;

    QObject* receiver() const { return m_receiver; }
    void setInterfaceType(int interfaceType) { m_interfaceType = interfaceType; }
    /** Sets the open state, with it the shadow, and all input and output masks; inverts nothing. */
    void setAllMasks(int portOpen, int inputs, int outputs);
    /** What processIoEvent() is for the interfaces whose sensors are masks of a port value. */
    void processPortEvent(QEvent* event);

    /**
     * Sets or clears the bits of an output in the value last written, by its level after inversion.
     * @return the value to write
     */
    int switchOutputShadow(int portId, bool on);
    int outputShadow() const { return m_outputShadow; }

    /**
     * The sections of the blob that all interfaces share: base masks, outputs, invert flags. As by
     * setPortState(), the open state that is read becomes the state to which the outputs return.
     */
    void readMasks(QDataStream& stream);
    void writeMasks(QDataStream& stream) const;
    /** The sections behind them: fuel, sector and end masks. */
    void readTimingMasks(QDataStream& stream);
    void writeTimingMasks(QDataStream& stream) const;
    /** The whole blob of an interface on a serial line. The type stays, whatever the blob says. */
    void readSerialSettings(const QByteArray& blob, QString* portName);
    QByteArray writeSerialSettings(const QString& portName) const;

    QBitArray sensors;

private:
    friend class CRacewayIoFactory;

    void readMask(QDataStream& stream, int portId);
    void decodeInputs(int first, int last, int changed);

    QObject* m_receiver = nullptr;
    int m_interfaceType;
    std::array<int, PortId::Count> m_masks{};
    std::array<bool, PortId::Count> m_inverted{};
    int m_outputShadow = -1;
};

#endif
