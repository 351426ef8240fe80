#ifndef TORNIK_IO_CCARRERACUTHREAD_H
#define TORNIK_IO_CCARRERACUTHREAD_H

#include <QList>
#include <QMutex>
#include <QString>
#include <QThread>

#include <atomic>

class CCarreraCu;

/**
 * Polls the Control Unit as fast as it answers and posts each new frame as a CCarreraCuEvent.
 *
 * One shared object, handed out with a reference count in the main thread. start() and stop()
 * follow each other any number of times; the port is open while the thread runs. A line that is
 * lost leaves the thread waiting, 100 ms a pass, until it is stopped.
 */
class CCarreraCuThread : public QThread
{
    Q_OBJECT

public:
    /** Takes a reference; the first one makes the object. Main thread only. */
    static CCarreraCuThread* instance();
    /** Gives a reference back; the last one stops and frees the object. Main thread only. */
    static void release();

    CCarreraCuThread();
    /** Stops the thread and waits for it. */
    ~CCarreraCuThread() override;

    /** @param target gets the frames; not owned; null for none */
    void setTarget(QObject* target);
    const QObject* target() const;
    /** Acts from the next start on; an empty name lets the thread end at once. */
    void setPortName(const QString& name);
    QString portName() const;

    /** Asks the loop to end and returns at once. */
    void stop();
    /** @return whether the loop was asked to end and hasn't ended yet. */
    bool isStopping() const { return isRunning() && isInterruptionRequested(); }

    /** Commands of the unit, sent between two polls. They may be queued from any thread. */
    void queueSwitch(bool on); ///< ":3F9" or ":000"
    void queueEquals101();
    void queueT22();
    void queueT11();
    void queueZero();
    /** @return whether a command still waits to be sent. */
    bool hasCommands() const;

protected:
    void run() override;

private:
    /** What the loop remembers from pass to pass. */
    struct Polling
    {
        QString previous;      ///< the frame received last
        int unanswered = 0;    ///< questions sent whose answer may still come
        bool received = false; ///< the pass before brought a frame
    };

    void pass(Polling* polling);
    void takeFrame(Polling* polling);
    void sendNext();
    void postFrame(const QString& text);
    void queueCommand(const QString& text);
    QString takeNextText();

    QObject* m_target = nullptr;
    std::atomic<bool> m_running{false};
    CCarreraCu* m_cu;
    QString m_portName;
    QList<QString> m_commands;
    mutable QMutex m_mutex; ///< guards m_commands, m_target and m_portName
};

#endif
