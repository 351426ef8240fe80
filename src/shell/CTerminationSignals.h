#ifndef TORNIK_SHELL_CTERMINATIONSIGNALS_H
#define TORNIK_SHELL_CTERMINATIONSIGNALS_H

#include <QObject>

/**
 * Turns SIGTERM, SIGINT and SIGHUP into a signal of the event loop, so that the end of the session
 * or Ctrl+C in a terminal ends the program like closing its window: the race is stopped and the
 * tracks lose their power. One object a process, in the main thread.
 */
class CTerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit CTerminationSignals(QObject* parent = nullptr);
    /** Gives the signals back to the system. */
    ~CTerminationSignals() override;

Q_SIGNALS:
    void terminationRequested();

private:
    void readWakeUp();
};

#endif
