#ifndef TORNIK_EMULATORS_PSEUDOTERMINAL_H
#define TORNIK_EMULATORS_PSEUDOTERMINAL_H

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

class QSocketNotifier;

/**
 * The device's end of a serial line: a raw pseudo-terminal, whose other end a program opens by its
 * path. That program may come and go; close() is a pulled cable.
 */
class PseudoTerminal : public QObject
{
    Q_OBJECT

public:
    explicit PseudoTerminal(QObject* parent = nullptr);
    ~PseudoTerminal() override;

    /** Makes a new pseudo-terminal. @return whether the system gave one */
    bool open();
    void close();
    bool isOpen() const { return m_master >= 0; }
    /** @return the path to open, empty while closed. */
    QString path() const { return m_path; }

    /** Sends bytes; what isn't taken, since nobody reads, is lost as on a real line. */
    void write(const QByteArray& bytes);

    /** Lets @p link point to the present path, in one step. @return whether that was possible */
    bool linkFrom(const QString& link) const;

Q_SIGNALS:
    void received(const QByteArray& bytes);

private:
    void read();
    bool openSlave();

    int m_master = -1;
    int m_slave = -1; ///< held open, so that a program that leaves doesn't hang up the line
    QString m_path;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

#endif
