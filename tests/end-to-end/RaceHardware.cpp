#include "RaceHardware.h"

#include "io/CCarreraCuIo.h"
#include "io/CLtAt2560Io.h"
#include "io/CParallelPortIo.h"
#include "io/CRaceControlIo.h"
#include "io/CRacewayIoFactory.h"
#include "io/TestPort.h"
#include "support/RaceBox.h"
#include "support/TestChip.h"
#include "support/VirtualBox.h"
#include "support/VirtualUnit.h"

#include <QElapsedTimer>
#include <QtTest>

namespace {

QString linkPath(const char* name)
{
    return QDir::current().filePath(QLatin1String(name));
}

/** @return the digits of what is on, '-' for what is off. */
QString digits(int count, const std::function<bool(int)>& isOn)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += isOn(i) ? QString::number(i + 1) : QStringLiteral("-");
    return text;
}

QString outputText(const QString& power, const QString& red, bool green, bool chaos)
{
    return QStringLiteral("power %1 red %2 green %3 chaos %4")
        .arg(power, red, green ? "g" : "-", chaos ? "c" : "-");
}

void waitFor(const RaceHardware::Condition& condition)
{
    QVERIFY(QTest::qWaitFor(condition, 20000));
}

/** Sensors that are wired to something which the program reads in the time of the computer. */
class WiredHardware : public RaceHardware
{
public:
    WiredHardware() { m_clock.start(); }

    /** The stamps begin at 0, and the first crossing is refused as any other that comes too early. */
    void begin() override { m_lastPress = m_clock.elapsed(); }

    Moment cross(int number, const Condition& isSeen) override
    {
        waitFor([this] { return m_clock.elapsed() - m_lastPress > MinimumTime; });
        return hold(lapSensor(number - 1), isSeen);
    }

    void pressChaosButton(const Condition& isSeen) override
    {
        waitFor([this] { return m_clock.elapsed() - m_lastPress > DeadTime; });
        hold(chaosButton(), isSeen);
    }

protected:
    virtual quint32 lapSensor(int track) const = 0;
    virtual quint32 chaosButton() const = 0;
    virtual void close(quint32 sensor) = 0;
    virtual void open(quint32 sensor) = 0;
    /** @return how often the sensors have been read. */
    virtual unsigned reads() = 0;

    /** Learns the sensors as a user does, by pressing each. */
    void learnSensors(CRacewayIo& io)
    {
        io.capturePortState(PortId::Open);
        learn(io, PortId::ChaosButton, chaosButton());
        for (int track = 0; track < Tracks; ++track)
            learn(io, PortId::lapSensor(track), lapSensor(track));
    }

private:
    void learn(CRacewayIo& io, int portId, quint32 sensor)
    {
        close(sensor);
        io.capturePortState(portId);
        open(sensor);
    }

    Moment hold(quint32 sensor, const Condition& isSeen)
    {
        Moment moment;
        moment.earliest = m_clock.elapsed();
        close(sensor);
        waitFor(isSeen);
        moment.latest = m_clock.elapsed();
        open(sensor);
        seeItGo();
        QCoreApplication::processEvents();
        m_lastPress = m_clock.elapsed();
        return moment;
    }

    /** Waits until the thread has seen the sensors as they are now, or reads them no longer. */
    void seeItGo()
    {
        const unsigned before = reads();
        const bool isSeen = QTest::qWaitFor([&] { return reads() - before >= 3; }, 500);
        Q_UNUSED(isSeen)
    }

    QElapsedTimer m_clock;
    qint64 m_lastPress = 0;
};

/** Every wire on a pin of its own. */
class IoWarriorHardware : public WiredHardware
{
public:
    bool switchOn() override { return m_chip.plug(TestChip::Warrior40); }

    CRaceway raceway() override
    {
        const auto io = CRacewayIoFactory::createIoWarrior40();
        learnSensors(*io);
        for (int track = 0; track < Tracks; ++track)
            io->setPortState(PortId::trackPower(track), int(bit(Power + track)), false);
        for (int lamp = 0; lamp < PortId::RedLamps; ++lamp)
            io->setPortState(PortId::redLamp(lamp), int(bit(RedLamp + lamp)), false);
        io->setPortState(PortId::GreenLamp, int(bit(GreenLamp)), false);
        io->setPortState(PortId::ChaosSignal, int(bit(ChaosSignal)), true); // wired the other way round
        return racewayWith(io->writeSettings());
    }

    QString outputs() override
    {
        const quint32 written = m_chip->written();
        const auto isHigh = [written](int pin) { return (written & bit(pin)) != 0; };
        return outputText(digits(Tracks, [&](int i) { return isHigh(Power + i); }),
                          digits(PortId::RedLamps, [&](int i) { return isHigh(RedLamp + i); }),
                          isHigh(GreenLamp), !isHigh(ChaosSignal));
    }

    void pull() override { m_chip->unplug(); }
    bool plug() override { return switchOn(); }

    bool fallSilent() override
    {
        m_chip->setSilent(true);
        return true;
    }

protected:
    quint32 lapSensor(int track) const override { return bit(Lap + track); }
    quint32 chaosButton() const override { return bit(ChaosButton); }
    void close(quint32 sensor) override { m_chip->pullLow(sensor); }
    void open(quint32 sensor) override { m_chip->letGo(sensor); }
    unsigned reads() override { return m_chip.count(VirtualIoWarrior::Answered); }

private:
    enum Pin
    {
        Lap = 3, ///< and the next one
        ChaosButton = 7,
        Power = 8,    ///< and the next one
        RedLamp = 16, ///< and the next four
        GreenLamp = 21,
        ChaosSignal = 31
    };

    static quint32 bit(int pin) { return 1U << pin; }

    TestChip m_chip;
};

/** Sensors on the status register. */
class ParallelPortHardware : public WiredHardware
{
public:
    bool switchOn() override
    {
        m_port.reset();
        return m_port->isOpen();
    }

    CRaceway raceway() override
    {
        CParallelPortIo io;
        for (int id = 0; id < PortId::Count; ++id)
            io.setPortState(id, PortId::isOutput(id) ? -1 : AtRest, false);
        learnSensors(io);
        return racewayWith(io.writeSettings());
    }

    /** Nothing answers there any more. */
    void pull() override { m_port->write(TestPort::Status, 255); }
    bool plug() override { return switchOn(); }

protected:
    quint32 lapSensor(int track) const override { return track == 0 ? 0x08 : 0x10; }
    quint32 chaosButton() const override { return 0x20; }
    void close(quint32 sensor) override { m_port.press(short(sensor)); }
    void open(quint32 sensor) override { m_port.release(short(sensor)); }
    unsigned reads() override { return m_port->reads(); }

private:
    static constexpr int AtRest = 127;

    TestPort m_port;
};

/** Hardware that is a program, with a clock of its own whose stamps the test chooses. */
template <typename Program>
class StampedHardware : public RaceHardware
{
public:
    void pull() override
    {
        m_program->command("pull");
        QVERIFY(!m_program->ask("help", "quit").isNull()); // the command before this one is carried out
    }
    bool plug() override { return m_program->plug(); }

protected:
    Moment stampAfter(int time)
    {
        m_stamp += time;
        return {m_stamp, m_stamp};
    }

    std::unique_ptr<Program> m_program = std::make_unique<Program>();

private:
    qint64 m_stamp = 10000;
};

class At2560Hardware : public StampedHardware<VirtualBox>
{
public:
    bool switchOn() override
    {
        return m_program->start({"--clock", "1000000000", "--link", linkPath("at2560")});
    }

    CRaceway raceway() override
    {
        CLtAt2560Io io;
        io.setPortName(linkPath("at2560"));
        io.setPortState(PortId::ChaosButton, ChaosInput, false);
        for (int track = 0; track < Tracks; ++track)
            io.setPortState(PortId::lapSensor(track), FirstLapInput + track, false);
        return racewayWith(io.writeSettings());
    }

    Moment cross(int number, const Condition& isSeen) override
    {
        return press(FirstLapInput + number - 1, 1234, isSeen);
    }
    void pressChaosButton(const Condition& isSeen) override { press(ChaosInput, DeadTime, isSeen); }

    /** "lamps 12345- power 12---- chaos off e off" in the words of a race. */
    QString outputs() override
    {
        const QStringList words = m_program->outputs().split(' ');
        const QString lamps = words.value(1);
        return outputText(words.value(3).left(Tracks), lamps.left(PortId::RedLamps), lamps.endsWith('6'),
                          words.value(5) == "on");
    }

private:
    static constexpr int FirstLapInput = 11;
    static constexpr int ChaosInput = 7;

    Moment press(int input, int time, const Condition& isSeen)
    {
        const Moment moment = stampAfter(time);
        m_program->command("press " + QByteArray::number(input) + ' ' + QByteArray::number(moment.earliest));
        waitFor(isSeen);
        return moment;
    }
};

class RaceControlHardware : public StampedHardware<RaceBox>
{
public:
    bool switchOn() override { return m_program->start({"--link", linkPath("race-box")}); }

    CRaceway raceway() override
    {
        CRaceControlIo io;
        io.setPortName(0, linkPath("race-box"));
        for (int id = 0; id < PortId::Count; ++id)
            io.setPortState(id, Rest, false);
        io.setPortState(PortId::lapSensor(0), Rest | RightBit, false);
        io.setPortState(PortId::lapSensor(1), Rest | StartBit, false);
        io.setPortState(PortId::ChaosButton, Rest | SensorBit, false);
        return racewayWith(io.writeSettings());
    }

    Moment cross(int number, const Condition& isSeen) override
    {
        return send(number == 1 ? RightBit : StartBit, 5678, isSeen);
    }
    void pressChaosButton(const Condition& isSeen) override { send(SensorBit, DeadTime, isSeen); }

private:
    enum Code
    {
        Activated = 0x0200,
        Rest = 0x0300, ///< deactivated
        RightBit = 1,
        StartBit = 2,
        SensorBit = 4
    };

    Moment send(int bit, int time, const Condition& isSeen)
    {
        const Moment moment = stampAfter(time);
        const auto event = [&](int code, qint64 stamp) {
            m_program->command(QStringLiteral("event %1 %2").arg(code).arg(stamp).toLatin1());
        };
        event(Activated | bit, moment.earliest);
        waitFor(isSeen);
        event(Rest, moment.earliest + 20);
        return moment;
    }
};

class ControlUnitHardware : public StampedHardware<VirtualUnit>
{
public:
    bool switchOn() override
    {
        return m_program->start(
            {"--cars", "2", "--speed-up", "20", "--light-step", "0", "--link", linkPath("control-unit")});
    }

    CRaceway raceway() override
    {
        CCarreraCuIo io;
        io.setPortName(linkPath("control-unit"));
        return racewayWith(io.writeSettings());
    }

    void begin() override { m_program->command("start"); }

    Moment cross(int /*number*/, const Condition& isSeen) override
    {
        waitFor(isSeen);
        return {};
    }
    void pressChaosButton(const Condition& /*isSeen*/) override { QFAIL("there is no such button"); }
};

} // namespace

std::unique_ptr<RaceHardware> RaceHardware::parallelPort()
{
    return std::make_unique<ParallelPortHardware>();
}

std::unique_ptr<RaceHardware> RaceHardware::ioWarrior()
{
    return std::make_unique<IoWarriorHardware>();
}

std::unique_ptr<RaceHardware> RaceHardware::at2560()
{
    return std::make_unique<At2560Hardware>();
}

std::unique_ptr<RaceHardware> RaceHardware::raceControl()
{
    return std::make_unique<RaceControlHardware>();
}

std::unique_ptr<RaceHardware> RaceHardware::controlUnit()
{
    return std::make_unique<ControlUnitHardware>();
}

CRaceway RaceHardware::racewayWith(const QByteArray& ioSettings)
{
    CRaceway raceway(Tracks);
    raceway.ioSettings = ioSettings;
    raceway.minTime = MinimumTime;
    raceway.chaosButtonAvailable = true;
    raceway.chaosPhaseOutputAvailable = true;
    raceway.pwrOffFeatureAvailable = true;
    raceway.externalLightsAvailable = true;
    return raceway;
}
