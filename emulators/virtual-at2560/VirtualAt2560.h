#ifndef TORNIK_EMULATORS_VIRTUALAT2560_H
#define TORNIK_EMULATORS_VIRTUALAT2560_H

#include "At2560CommandLine.h"
#include "At2560Model.h"
#include "support/TerminalProgram.h"

#include <map>

/** The program: an At2560Model on a pseudo-terminal. */
class VirtualAt2560 : public TerminalProgram
{
    Q_OBJECT

public:
    explicit VirtualAt2560(const At2560CommandLine& commandLine);

protected:
    bool begin() override;
    void plugged() override { m_model.plug(); }
    void unplugged() override { m_model.unplug(); }
    void receive(const QByteArray& bytes) override { m_model.receive(bytes); }
    void work() override;
    qint64 nextChange() const override;
    bool command(const QStringList& words) override;
    QString help() const override;

private:
    bool commandInput(const QStringList& words);
    bool commandLine(const QStringList& words);
    bool runScript(const QString& fileName);
    void runPlanned();
    void printStatus();

    QString m_script;
    At2560Model m_model;
    std::multimap<quint32, QString> m_planned; ///< commands by stamp
    bool m_isBusy = false;
};

#endif
