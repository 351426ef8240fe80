#ifndef TORNIK_TESTS_SETUPHARDWARE_H
#define TORNIK_TESTS_SETUPHARDWARE_H

#include "io/PortIds.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

#include <memory>

class WizardDriver;

/**
 * Virtual hardware with two tracks of which the program knows nothing yet: where its sensors are wired, how a
 * user tells the program of them, and how a car or a hand closes them. Sensors and outputs are known by their
 * port ids.
 */
class SetupHardware
{
public:
    static constexpr int Tracks = 2;

    static std::unique_ptr<SetupHardware> parallelPort();
    static std::unique_ptr<SetupHardware> ioWarrior();
    static std::unique_ptr<SetupHardware> at2560();
    static std::unique_ptr<SetupHardware> raceControl();

    virtual ~SetupHardware() = default;

    /** @return whether the hardware is there now. */
    virtual bool switchOn() = 0;

    // What there is
    int fuelIndex() const { return m_fuelIndex; }
    int sectorIndex() const { return m_sectorIndex; }
    bool hasEndSensors() const { return m_hasEndSensors; }
    bool hasOutputs() const { return !m_outputs.isEmpty(); }
    /** @return the port ids of all sensors, those of a track together. */
    QVector<int> sensors() const;
    /** Puts a sensor to a contact that was free. */
    void rewire(int portId) { m_contacts[portId] = m_freeContact; }

    // What the user does in the wizard, on the page of each
    virtual void chooseInterface(WizardDriver& user) = 0;
    /** Chooses hardware of the same kind that is elsewhere, or another chip. */
    virtual void chooseAnother(WizardDriver& user) = 0;
    /** @return whether the page of the hardware shows what chooseInterface() has entered. */
    virtual bool showsInterface(const WizardDriver& user) const = 0;
    virtual void learnOpen(WizardDriver& user) = 0;
    virtual void learn(WizardDriver& user, int portId) = 0;
    /** @return what the page of a sensor, or of the open state, shows once it is learned. */
    virtual QString shownState(int portId) const = 0;
    virtual QString state(const WizardDriver& user) const;
    /** The start light has four red lamps, so that the first one stays without a pin. */
    virtual void chooseOutput(WizardDriver& user, int portId) const;
    /** @return what the page of an output shows then. */
    virtual QString shownOutput(int portId) const = 0;

    // What happens at the raceway
    /** Called when a race has begun, in which nothing counts at once. */
    virtual void raceBegins() {}
    /** Closes a sensor, a while after the last time. */
    virtual void close(int portId) = 0;
    virtual void open(int portId) = 0;
    /** @return whether the hardware tells of the opening, too. */
    virtual bool tellsOfOpening() const { return true; }

    /** @return the settings of the interface, byte for byte, written by hand. */
    virtual QByteArray blob() const = 0;

protected:
    struct Output
    {
        int pin = 0;
        bool inverted = false;
    };

    void wire(const QVector<int>& contacts, int freeContact);
    void wireOutputs(int firstPin);
    /**
     * @param open the state with every sensor open
     * @param other that of each sensor and output that isn't there
     * @param registers those of a parallel port, which stand in the middle
     * @return all masks and flags
     */
    QByteArray masks(int open, int other, const QByteArray& registers) const;
    /** @return what the interface holds for a sensor. */
    virtual int learnedState(int portId) const = 0;
    virtual int outputState(int portId) const { return 1 << m_outputs.value(portId).pin; }
    virtual bool isInverted(int portId) const { return m_outputs.value(portId).inverted; }
    /** @return whether the hardware has its outputs where it will, and all of them. */
    virtual bool isFixed() const { return false; }
    QString withPolarity(const QString& pin, int portId) const;

    int m_fuelIndex = 0;
    int m_sectorIndex = 0;
    bool m_hasEndSensors = false;
    QMap<int, int> m_contacts; ///< by port id
    QMap<int, Output> m_outputs;
    int m_freeContact = 0;

private:
    int stateOf(int portId, int open, int other) const;
};

#endif
