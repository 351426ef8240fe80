#include "SetupHardware.h"

#include "io/TestPort.h"
#include "support/RaceBox.h"
#include "support/StreamBytes.h"
#include "support/TestChip.h"
#include "support/VirtualBox.h"
#include "wizard/WizardDriver.h"

#include <QDir>
#include <QElapsedTimer>

namespace {

constexpr int NoPin = 0;        ///< what " ---" stores
constexpr int NotAssigned = -1; ///< what an output or a sensor has that no page has asked for
constexpr int DeadTime = 250;   ///< milliseconds of a sensor and of the chaos button, and some

QString hexadecimal(int state)
{
    return "0x" + QString::number(quint32(state), 16);
}

QString linkPath(const char* name)
{
    return QDir::current().filePath(QLatin1String(name));
}

/** Sensors are states of a port, in the time of the computer. */
class PortHardware : public SetupHardware
{
public:
    void learnOpen(WizardDriver& user) override { user.learn(); }

    void learn(WizardDriver& user, int portId) override
    {
        press(portId);
        user.learn();
        letGo(portId);
    }

    QString shownState(int portId) const override
    {
        return hexadecimal(portId == PortId::Open ? openState() : learnedState(portId));
    }

    void raceBegins() override { m_sinceOpening.start(); }

    void close(int portId) override
    {
        [this] { QVERIFY(QTest::qWaitFor([this] { return m_sinceOpening.elapsed() > DeadTime; })); }();
        press(portId);
    }

    void open(int portId) override
    {
        letGo(portId);
        m_sinceOpening.start();
    }

protected:
    PortHardware() { m_sinceOpening.start(); }

    virtual int openState() const = 0;
    virtual void press(int portId) = 0;
    virtual void letGo(int portId) = 0;

    quint32 bit(int portId) const { return 1U << m_contacts.value(portId); }
    int learnedState(int portId) const override { return int(quint32(openState()) ^ bit(portId)); }

private:
    QElapsedTimer m_sinceOpening;
};

/** Seven sensors at the status register, and one contact that is low at rest. */
class ParallelPortHardware : public PortHardware
{
public:
    ParallelPortHardware()
    {
        m_sectorIndex = 1;
        m_fuelIndex = 3;
        wire({0, 1, 2, 3, 4, 5, 6}, 7);
        wireOutputs(0);
    }

    bool switchOn() override
    {
        m_port.reset();
        return m_port->isOpen();
    }

    void chooseInterface(WizardDriver& user) override { user.choose("hardwareBox", "Parallel Port"); }
    void chooseAnother(WizardDriver& user) override
    {
        user.choose("hardwareBox", "Parallel Port");
        user.type("addressEdit", "0x278");
        user.choose("inputRegisterBox", "Data Register");
        user.choose("outputRegisterBox", "Control Register");
    }
    bool showsInterface(const WizardDriver& user) const override
    {
        return user.field<QComboBox>("hardwareBox")->currentText() == "Parallel Port" &&
               user.field<QLineEdit>("addressEdit")->text() == "0x378";
    }

    QString shownOutput(int portId) const override
    {
        const int pin = m_outputs.value(portId).pin;
        return portId == PortId::FirstRedLamp
                   ? QStringLiteral(" ---")
                   : withPolarity(QStringLiteral("Pin%1 (D%2)").arg(pin + 2).arg(pin), portId);
    }

    QByteArray blob() const override
    {
        return StreamBytes().int32(1).bytes() +
               masks(openState(), 0, StreamBytes().int32(888).int32(1).int32(0).bytes());
    }

protected:
    int openState() const override { return 127; }
    void press(int portId) override { m_port->flipBits(TestPort::Status, short(bit(portId))); }
    void letGo(int portId) override { press(portId); }

private:
    TestPort m_port;
};

/** Every kind of sensor a track can have; inputs and outputs are pins of one chip. */
class IoWarriorHardware : public PortHardware
{
public:
    IoWarriorHardware()
    {
        m_sectorIndex = 2;
        m_fuelIndex = 4;
        m_hasEndSensors = true;
        wire({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 13);
        wireOutputs(16);
    }

    bool switchOn() override { return m_chip.plug(TestChip::Warrior40); }

    void chooseInterface(WizardDriver& user) override { user.choose("hardwareBox", "IO-Warrior40"); }
    void chooseAnother(WizardDriver& user) override { user.choose("hardwareBox", "IO-Warrior28"); }
    bool showsInterface(const WizardDriver& user) const override
    {
        return user.field<QComboBox>("hardwareBox")->currentText() == "IO-Warrior40";
    }

    QString shownOutput(int portId) const override
    {
        const int pin = m_outputs.value(portId).pin;
        return portId == PortId::FirstRedLamp
                   ? QStringLiteral(" ---")
                   : withPolarity(QStringLiteral("P%1.%2").arg(pin / 8).arg(pin % 8), portId);
    }

    QByteArray blob() const override
    {
        return StreamBytes().int32(3).bytes() + masks(openState(), NotAssigned, {});
    }

protected:
    int openState() const override { return -1; }
    void press(int portId) override { m_chip->pullLow(bit(portId)); }
    void letGo(int portId) override { m_chip->letGo(bit(portId)); }

private:
    TestChip m_chip;
};

/** Hardware on a serial line that is a program, with a clock of its own whose stamps the test chooses. */
template <typename Program>
class SerialHardware : public SetupHardware
{
public:
    void chooseInterface(WizardDriver& user) override { chooseLine(user, line()); }
    void chooseAnother(WizardDriver& user) override { chooseLine(user, linkPath("elsewhere")); }
    bool showsInterface(const WizardDriver& user) const override
    {
        return user.field<QComboBox>("hardwareBox")->currentText() == m_name && user.port() == line();
    }

protected:
    /** @param name that of the hardware in the wizard */
    SerialHardware(const char* name, const char* link) : m_name(name), m_line(linkPath(link)) {}

    QString line() const { return m_line; }
    QByteArray nextStamp()
    {
        m_stamp += 1000;
        return QByteArray::number(m_stamp);
    }

    Program m_program;

private:
    void chooseLine(WizardDriver& user, const QString& path)
    {
        user.choose("hardwareBox", m_name);
        user.typePort(path);
    }

    QString m_name;
    QString m_line;
    int m_stamp = 10000;
};

/** Its sensors are inputs with numbers, its outputs are what they are. */
class At2560Hardware : public SerialHardware<VirtualBox>
{
public:
    At2560Hardware() : SerialHardware("L&T AT2560", "at2560")
    {
        m_sectorIndex = 2;
        m_fuelIndex = 4;
        m_hasEndSensors = true;
        wire({7, 40, 41, 42, 43, 44, 45, 30, 31, 32, 33, 34, 0}, 53);
        wireOutputs(0);
    }

    bool switchOn() override { return m_program.start({"--clock", "1000000000", "--link", line()}); }

    void learnOpen(WizardDriver& /*user*/) override { QFAIL("there is no such page"); }
    void learn(WizardDriver& user, int portId) override { user.chooseInput(m_contacts.value(portId)); }
    QString shownState(int portId) const override
    {
        return QStringLiteral("D%1").arg(m_contacts.value(portId));
    }
    QString state(const WizardDriver& user) const override { return user.input(); }

    void chooseOutput(WizardDriver& /*user*/, int /*portId*/) const override {}
    QString shownOutput(int portId) const override
    {
        return QStringLiteral("D%1 invers").arg(outputState(portId));
    }

    void close(int portId) override
    {
        m_program.command("press " + QByteArray::number(m_contacts.value(portId)) + ' ' + nextStamp());
    }
    void open(int /*portId*/) override {}
    bool tellsOfOpening() const override { return false; }

    QByteArray blob() const override
    {
        return StreamBytes().int32(9).text(line()).bytes() + masks(-1, NotAssigned, {});
    }

protected:
    int learnedState(int portId) const override { return m_contacts.value(portId); }
    int outputState(int portId) const override
    {
        static const QVector<int> numbers{8, 9, 10, 11, 12, 13, -1, -1, 5, 4, 3, 2, 1, 0, 6};
        return numbers.at(portId - PortId::FirstTrackPower);
    }
    bool isInverted(int /*portId*/) const override { return true; }
    bool isFixed() const override { return true; }
};

/** Its sensors are codes, which nobody can learn: they are typed. */
class RaceControlHardware : public SerialHardware<RaceBox>
{
public:
    RaceControlHardware() : SerialHardware("RaceControl", "race-box")
    {
        m_sectorIndex = 1;
        m_fuelIndex = 1;
        wire({0, 1, 2, 3, 4, 5, 6}, 7);
    }

    bool switchOn() override { return m_program.start({"--link", line()}); }

    bool showsInterface(const WizardDriver& user) const override
    {
        return SerialHardware::showsInterface(user) && user.port("serialPort2") == "nicht vorhanden";
    }

    void learnOpen(WizardDriver& user) override { user.type("stateEdit", hexadecimal(Rest)); }
    void learn(WizardDriver& user, int portId) override
    {
        user.type("stateEdit", hexadecimal(learnedState(portId)));
    }
    QString shownState(int portId) const override
    {
        return hexadecimal(portId == PortId::Open ? int(Rest) : learnedState(portId));
    }

    void close(int portId) override { send(Activated | 1 << m_contacts.value(portId)); }
    void open(int /*portId*/) override { send(Rest); }

    QByteArray blob() const override
    {
        StreamBytes bytes;
        bytes.int32(4);
        for (int box = 0; box < 4; ++box)
            bytes.int16(0).int16(0).int16(0).text(box == 0 ? line() : QString());
        return bytes.bytes() + masks(Rest, NotAssigned, {});
    }

    QString shownOutput(int /*portId*/) const override { return {}; }

protected:
    int learnedState(int portId) const override { return Rest | 1 << m_contacts.value(portId); }

private:
    enum Code
    {
        Activated = 0x0200,
        Rest = 0x0300 ///< deactivated
    };

    void send(int code) { m_program.command("event " + QByteArray::number(code) + ' ' + nextStamp()); }
};

} // namespace

std::unique_ptr<SetupHardware> SetupHardware::parallelPort()
{
    return std::make_unique<ParallelPortHardware>();
}

std::unique_ptr<SetupHardware> SetupHardware::ioWarrior()
{
    return std::make_unique<IoWarriorHardware>();
}

std::unique_ptr<SetupHardware> SetupHardware::at2560()
{
    return std::make_unique<At2560Hardware>();
}

std::unique_ptr<SetupHardware> SetupHardware::raceControl()
{
    return std::make_unique<RaceControlHardware>();
}

QVector<int> SetupHardware::sensors() const
{
    QVector<int> ids{PortId::ChaosButton};
    for (int track = 0; track < Tracks; ++track) {
        ids << PortId::lapSensor(track);
        if (m_fuelIndex == 1 || m_fuelIndex == 3 || m_fuelIndex == 4)
            ids << PortId::fuelSensor(track);
        if (m_fuelIndex == 2 || m_fuelIndex == 4)
            ids << PortId::fuelFinishedSensor(track);
        if (m_sectorIndex >= 1)
            ids << PortId::sector2Sensor(track);
        if (m_sectorIndex == 2)
            ids << PortId::sector3Sensor(track);
        if (m_hasEndSensors)
            ids << PortId::endSensor(track);
    }
    return ids;
}

/** @param contacts one for each of sensors() */
void SetupHardware::wire(const QVector<int>& contacts, int freeContact)
{
    const QVector<int> ids = sensors();
    QCOMPARE(contacts.size(), ids.size());
    for (int i = 0; i < ids.size(); ++i)
        m_contacts[ids.at(i)] = contacts.at(i);
    m_freeContact = freeContact;
}

/** Two relays, four red lamps, the green one and the chaos signal. */
void SetupHardware::wireOutputs(int firstPin)
{
    int pin = firstPin;
    for (const int id : {10, 11, 19, 20, 21, 22, 23, 24})
        m_outputs[id] = {pin++, id == 11 || id == 24};
}

QString SetupHardware::state(const WizardDriver& user) const
{
    return user.state();
}

void SetupHardware::chooseOutput(WizardDriver& user, int portId) const
{
    if (m_outputs.contains(portId))
        user.chooseOutput(portId, shownOutput(portId).remove(" invers"), isInverted(portId));
}

QString SetupHardware::withPolarity(const QString& pin, int portId) const
{
    return isInverted(portId) ? pin + " invers" : pin;
}

int SetupHardware::stateOf(int portId, int open, int other) const
{
    if (portId == PortId::Open)
        return open;
    if (m_contacts.contains(portId))
        return learnedState(portId);
    if (isFixed() && PortId::isOutput(portId))
        return outputState(portId);
    if (m_outputs.contains(portId))
        return outputState(portId);
    return hasOutputs() && portId == PortId::FirstRedLamp ? NoPin : other;
}

QByteArray SetupHardware::masks(int open, int other, const QByteArray& registers) const
{
    StreamBytes bytes;
    bytes.int32(open).int32(stateOf(9, open, other));
    for (int id = 1; id <= 8; ++id)
        bytes.int32(stateOf(id, open, other));
    for (int id = 10; id <= 24; ++id)
        bytes.int32(stateOf(id, open, other));
    for (int id = 10; id <= 24; ++id)
        bytes.boolean(isInverted(id));
    bytes.raw(registers);
    for (int id = 25; id <= 64; ++id)
        bytes.int32(stateOf(id, open, other));
    return bytes.bytes();
}
