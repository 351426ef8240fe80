#ifndef TORNIK_EMULATORS_VIRTUALCONTROLUNIT_H
#define TORNIK_EMULATORS_VIRTUALCONTROLUNIT_H

#include "CommandLine.h"
#include "ControlUnitModel.h"
#include "support/TerminalProgram.h"

/** The program: a ControlUnitModel on a pseudo-terminal. */
class VirtualControlUnit : public TerminalProgram
{
    Q_OBJECT

public:
    explicit VirtualControlUnit(const CommandLine& commandLine);

protected:
    bool begin() override;
    void unplugged() override { m_model.unplug(); }
    void receive(const QByteArray& bytes) override { m_model.receive(bytes); }
    void work() override;
    qint64 nextChange() const override { return m_model.nextChange(); }
    bool command(const QStringList& words) override;
    QString help() const override;

private:
    void noteCrossing(const Crossing& crossing);
    bool commandRace(const QString& word, int first, int second);
    bool commandFault(const QString& word, int milliseconds);
    void printStatus();

    bool m_startAtOnce;
    ControlUnitModel m_model;
    int m_crossings = 0;
    bool m_finishSaid = false;
};

#endif
