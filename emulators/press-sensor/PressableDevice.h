#ifndef TORNIK_EMULATORS_PRESSABLEDEVICE_H
#define TORNIK_EMULATORS_PRESSABLEDEVICE_H

#include "VirtualIoWarrior.h"
#include "VirtualPort.h"

#include <QString>

/** A virtual device as a person sees it: inputs to press, outputs to look at. */
class PressableDevice
{
public:
    virtual ~PressableDevice() = default;

    virtual bool isOpen() const = 0;
    /** @return its state, for a person, one line each. */
    virtual QString description() const = 0;
    virtual void setInputs(quint32 bits) = 0;
    virtual void clearInputs(quint32 bits) = 0;
    virtual void invertInputs(quint32 bits) = 0;
    virtual quint32 outputs() const = 0;

    /** @return false where there is nothing to plug, or no such product. */
    virtual bool plug(unsigned /*productId*/) { return false; }
    virtual bool unplug() { return false; }
};

/** The status register of a parallel port are its inputs, the data register its outputs. */
class PressablePort : public PressableDevice
{
public:
    PressablePort(const std::string& name, unsigned short base) : m_port(name), m_base(base) {}

    bool isOpen() const override { return m_port.isOpen(); }
    QString description() const override;
    void setInputs(quint32 bits) override { m_port.setBits(status(), short(bits)); }
    void clearInputs(quint32 bits) override { m_port.clearBits(status(), short(bits)); }
    void invertInputs(quint32 bits) override { m_port.flipBits(status(), short(bits)); }
    quint32 outputs() const override { return readByte(0); }

private:
    unsigned short status() const { return static_cast<unsigned short>(m_base + 1); }
    quint32 readByte(int offset) const
    {
        return m_port.read(static_cast<unsigned short>(m_base + offset)) & 0xFF;
    }

    VirtualPort m_port;
    unsigned short m_base;
};

/** Every pin of an IO-Warrior is both: what the outside lets go of, and what the program writes. */
class PressableChip : public PressableDevice
{
public:
    explicit PressableChip(const std::string& name) : m_chip(name) {}

    bool isOpen() const override { return m_chip.isOpen(); }
    QString description() const override;
    void setInputs(quint32 bits) override { m_chip.letGo(bits); }
    void clearInputs(quint32 bits) override { m_chip.pullLow(bits); }
    void invertInputs(quint32 bits) override { m_chip.flip(bits); }
    quint32 outputs() const override { return m_chip.written(); }
    bool plug(unsigned productId) override { return m_chip.plug(productId); }
    bool unplug() override;

private:
    VirtualIoWarrior m_chip;
};

#endif
