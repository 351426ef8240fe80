#ifndef TORNIK_EMULATORS_TERMINALPROGRAM_H
#define TORNIK_EMULATORS_TERMINALPROGRAM_H

#include "support/PseudoTerminal.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QStringList>
#include <QTimer>

/**
 * A program that plays a device on a pseudo-terminal, led by lines of its standard input. The first
 * line that it prints is the path to connect to; the device itself is that of a derived class.
 */
class TerminalProgram : public QObject
{
    Q_OBJECT

public:
    struct Files
    {
        QString journal; ///< what the device reported; empty for none
        QString link;    ///< symbolic link to the terminal, while it is plugged in; empty for none
    };

    explicit TerminalProgram(const Files& files);
    ~TerminalProgram() override;

    /** Runs the event loop to "quit", or to the end of the program that started this one. */
    int run();

protected:
    /** Called once before the first line is printed. @return false with a message if that fails */
    virtual bool begin() { return true; }
    /** Called when the terminal can be reached. */
    virtual void plugged() {}
    virtual void unplugged() = 0;
    virtual void receive(const QByteArray& bytes) = 0;
    /** Sends what is due; called after each command and whenever nextChange() has come. */
    virtual void work() = 0;
    /** @return when work() has more to do, in microseconds of now(); -1 for never by itself. */
    virtual qint64 nextChange() const = 0;
    /** @return whether the command is known to this device. */
    virtual bool command(const QStringList& words) = 0;
    /** @return one line a command of this device. */
    virtual QString help() const = 0;

    /** @return microseconds since the program began. */
    qint64 now() const { return m_clock.nsecsElapsed() / 1000; }
    void send(const QByteArray& bytes) { m_terminal.write(bytes); }
    /** Carries out one line, as if it came from the standard input. */
    void execute(const QString& line);
    static void say(const QString& text);
    /** Writes a line into the journal, if there is one. */
    void note(const QString& line);

private:
    bool prepare();
    bool plug();
    void pull();
    void removeLink();
    void workAndWait();
    bool commonCommand(const QString& word);
    void readInput();
    void endInput();

    Files m_files;
    QElapsedTimer m_clock;
    QTimer m_timer;
    PseudoTerminal m_terminal;
    QFile m_journal;
    QSocketNotifier m_input;
    QByteArray m_inputLine;
};

#endif
