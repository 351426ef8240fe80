#ifndef TORNIK_TESTS_WINDOWPROBE_H
#define TORNIK_TESTS_WINDOWPROBE_H

#include "NetworkWatch.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

/**
 * Sits in a program that a test has started, and is the eyes and the hands of the test there.
 *
 * Writes down again and again what the main window shows, in a file. On the local socket beside it,
 * "FILE.socket", it answers each line with one line; both are JSON. Between the answers it tells
 * the dashboard at each moment when bytes of the network have come or gone; see talk().
 */
class WindowProbe : public QObject
{
    Q_OBJECT

public:
    explicit WindowProbe(const QString& fileName);

private:
    void look();
    void noteMessage(const QWidget& window);
    void takeVisitor();
    void readCommands();
    /** @return the answer to a command; empty to one that can't be carried out */
    QStringList carryOut(const QString& command, const QString& argument);
    QStringList pressKeys(const QString& keys) const;
    QStringList workButton(const QString& name, bool down) const;
    QStringList choose(const QString& boxName, const QString& entry) const;
    QStringList callSlot(const QString& name) const;
    QStringList resize(int width, int height) const;
    QStringList paint(const QString& fileName) const;
    QStringList paintNext(const QString& fileName);
    /** @param about "answer", "accepted", "sent", "received" @param bytes of "sent" */
    void talk(const QString& about, const QStringList& lines, qint64 bytes = 0);
    void tellDashboard(const QString& about, qint64 bytes = 0);

    QString m_fileName;
    QString m_message; ///< that the info frame has now
    QStringList m_messages;
    QString m_nextPicture; ///< file of the picture of the next moment; empty for none
    QTimer m_timer;
    NetworkWatch m_network;
    QLocalServer m_door;
    QPointer<QLocalSocket> m_visitor;
};

#endif
