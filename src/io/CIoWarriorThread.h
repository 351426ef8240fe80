#ifndef TORNIK_IO_CIOWARRIORTHREAD_H
#define TORNIK_IO_CIOWARRIORTHREAD_H

#include "io/CLevelThread.h"

#include <QElapsedTimer>
#include <QMutex>

class CIoWarriorDevice;

/**
 * Reads the pins of the IO-Warrior, and while it runs it alone writes them: outputs are queued for
 * it, so that it can tell the pins that the program switched from those that a sensor switched.
 * Owned by CIoWarriorIo.
 *
 * A chip that doesn't answer holds up neither the thread's maker nor a stop: a question stays open
 * over several passes, each of them short, until it is given up after a second.
 */
class CIoWarriorThread : public CLevelThread
{
    Q_OBJECT

public:
    /** Reads the pins once, so that the first event of a run is a true change. Main thread. */
    CIoWarriorThread();
    /** Stops the thread and waits for it. */
    ~CIoWarriorThread() override;

    /** @param target gets the events; not owned; must be set before start() */
    using CLevelThread::setTarget;

    /**
     * Has the pins written between two reads. What still waits then goes into the same write. Never
     * waits for the device. Any thread.
     * @param value the levels of all pins; 0 can't be queued, it reads as nothing waiting
     * @param mask the pins that are meant, of which no change is reported
     */
    void queueOutput(int value, int mask);
    /**
     * Writes the pins at once, while the thread doesn't run. The next run doesn't report the change
     * of those that are meant. Main thread.
     */
    void writeOutput(int value, int mask);

protected:
    void prepareRun() override;
    int readValue() override;
    void finishPass() override;

private:
    struct Output
    {
        int value = 0; ///< 0: nothing waits
        int mask = 0;
    };

    void writePending();
    Output takePending();
    bool isQuestionGivenUp() const;
    void forgetQuestion();

    CIoWarriorDevice* m_device;
    bool m_isQuestionOpen = false; ///< asked, and not yet answered
    QElapsedTimer m_sinceQuestion;
    Output m_pending;
    QMutex m_mutex; ///< guards m_pending
};

#endif
