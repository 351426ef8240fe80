#ifndef TORNIK_TESTS_SUPPORT_EMULATORPROGRAM_H
#define TORNIK_TESTS_SUPPORT_EMULATORPROGRAM_H

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QVector>
#include <QtTest>

/** A program that plays a device, run by a test; it leaves with this object. */
class EmulatorProgram
{
public:
    explicit EmulatorProgram(const QString& name) : m_name(name) {}
    ~EmulatorProgram()
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
        m_process.start(QStringLiteral(TORNIK_BIN_DIR "/") + m_name, arguments);
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

    /** Puts the cable in again, after a "pull". */
    bool plug()
    {
        readLines();
        const int before = m_lines.size();
        command("plug");
        return waitForLine("/", before);
    }

    /** @return whether the program has said so; never waits. */
    bool hasSaid(const QString& line) { return said().contains(line); }

    /** @return all that the program has said since it was started; never waits. */
    QStringList said()
    {
        m_process.waitForReadyRead(0);
        readLines();
        return m_lines;
    }

    /** @return the lines of a journal, each cut into its words. */
    static QVector<QList<QByteArray>> journalWords(const QString& fileName)
    {
        QVector<QList<QByteArray>> lines;
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return lines;
        while (!file.atEnd())
            lines.append(file.readLine().trimmed().split(' '));
        return lines;
    }

private:
    Q_DISABLE_COPY(EmulatorProgram)

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

    QString m_name;
    QProcess m_process;
    QString m_path;
    QStringList m_lines;
};

#endif
