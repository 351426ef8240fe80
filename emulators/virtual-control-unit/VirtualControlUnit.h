#ifndef TORNIK_EMULATORS_VIRTUALCONTROLUNIT_H
#define TORNIK_EMULATORS_VIRTUALCONTROLUNIT_H

#include "CommandLine.h"
#include "ControlUnitModel.h"
#include "support/PseudoTerminal.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QStringList>
#include <QTimer>

/** The program: a ControlUnitModel on a pseudo-terminal, led by lines of text. */
class VirtualControlUnit : public QObject
{
    Q_OBJECT

public:
    explicit VirtualControlUnit(const CommandLine& commandLine);
    ~VirtualControlUnit() override;

    /** Opens journal and terminal and prints the path. @return false with a message if one fails */
    bool begin();
    /** Carries out one line of the standard input. */
    void command(const QString& line);

Q_SIGNALS:
    void quit();

private:
    bool plug();
    void pull();
    void work();
    void note(const Crossing& crossing);
    bool commandLine(const QStringList& words);
    bool commandRace(const QString& word, int first, int second);
    bool commandFault(const QString& word, int milliseconds);
    void printStatus();

    CommandLine m_settings;
    QElapsedTimer m_clock;
    ControlUnitModel m_model;
    PseudoTerminal m_terminal;
    QTimer m_timer;
    QFile m_journal;
    int m_crossings = 0;
    bool m_finishSaid = false;
};

#endif
