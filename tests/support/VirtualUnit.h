#ifndef TORNIK_TESTS_SUPPORT_VIRTUALUNIT_H
#define TORNIK_TESTS_SUPPORT_VIRTUALUNIT_H

#include "ControlUnitFrames.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QVector>
#include <QtTest>

/** The program virtual-control-unit, run by a test; it leaves with this object. */
class VirtualUnit
{
public:
    ~VirtualUnit()
    {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(5000))
            m_process.kill();
        m_process.waitForFinished();
    }

    /** @return whether the program is there and has told its path. */
    bool start(const QStringList& arguments)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(TORNIK_BIN_DIR "/virtual-control-unit"), arguments);
        return m_process.waitForStarted() && waitForLine("/", 0);
    }

    /** @return the terminal that was plugged in last. */
    QString path() const { return m_path; }

    void command(const QByteArray& line)
    {
        m_process.write(line + '\n');
        m_process.waitForBytesWritten();
    }

    /** @return the first line said from now on that begins with @p begin; empty if none comes. */
    QString ask(const QByteArray& line, const QString& begin)
    {
        readLines();
        const int before = m_lines.size();
        command(line);
        waitForLine(begin, before);
        return m_lines.mid(before).filter(QRegularExpression('^' + begin)).value(0);
    }

    /** @return how many polls the unit heard so far. */
    int polls() { return ask("status", "crossings").section(' ', 3, 3).toInt(); }

    /** Puts the cable in again, after a "pull". */
    bool plug()
    {
        readLines();
        const int before = m_lines.size();
        command("plug");
        return waitForLine("/", before);
    }

    /** @return whether the program has said so; never waits. */
    bool hasSaid(const QString& line)
    {
        m_process.waitForReadyRead(0);
        readLines();
        return m_lines.contains(line);
    }

    static QVector<Crossing> journal(const QString& fileName)
    {
        QVector<Crossing> crossings;
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return crossings;
        for (const QByteArray& line : file.readAll().split('\n')) {
            const QList<QByteArray> words = line.split(' ');
            if (words.size() == 3)
                crossings.append({words.at(0).toInt(), words.at(1).toUInt(), words.at(2).toInt()});
        }
        return crossings;
    }

private:
    void readLines()
    {
        while (m_process.canReadLine()) {
            const QString line = QString::fromLocal8Bit(m_process.readLine()).trimmed();
            m_lines.append(line);
            if (line.startsWith('/'))
                m_path = line;
        }
    }

    bool waitForLine(const QString& begin, int from)
    {
        const QDeadlineTimer deadline(10000);
        while (!deadline.hasExpired()) {
            readLines();
            for (const QString& line : m_lines.mid(from)) {
                if (line.startsWith(begin))
                    return true;
            }
            m_process.waitForReadyRead(100);
        }
        return false;
    }

    QProcess m_process;
    QString m_path;
    QStringList m_lines;
};

#endif
