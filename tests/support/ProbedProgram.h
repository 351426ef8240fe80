#ifndef TORNIK_TESTS_SUPPORT_PROBEDPROGRAM_H
#define TORNIK_TESTS_SUPPORT_PROBEDPROGRAM_H

#include "support/BoundProcess.h"

#include <QLocalSocket>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

/**
 * The program as a process of its own, offscreen, with eyes and hands of the test in it. Not for
 * processes that share a place: each has a temporary directory as its home, or the test's own.
 */
class ProbedProgram
{
public:
    /** The dashboard at a moment when something happened on the network of the program. */
    struct Moment
    {
        QString about;    ///< "accepted", "sent" or "received"
        qint64 bytes = 0; ///< of "sent"
        QStringList dashboard;
    };

    enum Home
    {
        OfTheTest, ///< files and settings that the test has written
        Fresh      ///< those of a new user
    };

    explicit ProbedProgram(Home home);
    ~ProbedProgram();

    /** @return whether its window is there, and answers. */
    bool start(const QStringList& arguments);
    /** Ends it as the system does at the end of a session. @return whether it left in peace */
    bool end();
    void kill();
    bool runs() const { return m_process.state() == QProcess::Running; }
    QByteArray output() { return m_process.readAll(); }
    qint64 processId() const { return m_process.processId(); }

    // What it shows now, a line each; empty if it doesn't answer
    QStringList dashboard() { return ask("dashboard"); }
    QStringList window() { return ask("window"); }
    QStringList places() { return ask("places"); }
    /** @return the lines that the info frame has had since the start, in order, without empty ones. */
    QStringList messages() { return ask("messages"); }
    QStringList boxes() { return ask("boxes"); }

    // @return whether it could be done
    bool press(const QString& keys) { return !ask("keys", keys).isEmpty(); }
    bool hold(const QString& button) { return !ask("hold", button).isEmpty(); }
    bool release(const QString& button) { return !ask("release", button).isEmpty(); }
    /** Chooses an entry of the first box of that name. */
    bool choose(const QString& box, const QString& entry)
    {
        return !ask("choose", box + ' ' + entry).isEmpty();
    }
    bool call(const QString& slot) { return !ask("call", slot).isEmpty(); }
    /** @param size for example "1920x1080" */
    bool resize(const QString& size) { return !ask("resize", size).isEmpty(); }
    bool paint(const QString& fileName) { return !ask("paint", fileName).isEmpty(); }
    /** Paints at the next of moments(), before that is told. */
    bool paintNext(const QString& fileName) { return !ask("paintNext", fileName).isEmpty(); }

    /** @return all moments since the start, in order. */
    const QVector<Moment>& moments()
    {
        readLines();
        return m_moments;
    }

private:
    bool connectProbe();
    QStringList ask(const QString& command, const QString& argument = QString());
    void readLines();

    QTemporaryDir m_directory;
    CBoundProcess m_process;
    QLocalSocket m_probe;
    QVector<Moment> m_moments;
    QVector<QStringList> m_answers;
};

#endif
