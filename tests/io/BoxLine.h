#ifndef TORNIK_TESTS_IO_BOXLINE_H
#define TORNIK_TESTS_IO_BOXLINE_H

#include "support/PseudoTerminal.h"

#include <QByteArray>

/** The far end of a serial line: keeps what arrives there. */
class BoxLine
{
public:
    BoxLine()
    {
        m_terminal.open();
        QObject::connect(&m_terminal, &PseudoTerminal::received, &m_terminal,
                         [this](const QByteArray& bytes) { m_received += bytes; });
    }

    QString path() const { return m_terminal.path(); }
    void send(const QByteArray& bytes) { m_terminal.write(bytes); }
    void pull() { m_terminal.close(); }

    const QByteArray& received() const { return m_received; }
    void forget() { m_received.clear(); }

private:
    PseudoTerminal m_terminal;
    QByteArray m_received;
};

#endif
