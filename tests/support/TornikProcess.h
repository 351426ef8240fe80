#ifndef TORNIK_TESTS_SUPPORT_TORNIKPROCESS_H
#define TORNIK_TESTS_SUPPORT_TORNIKPROCESS_H

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>

/** The program as a process of its own; it leaves with this object. */
class TornikProcess
{
public:
    explicit TornikProcess(const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_PLUGIN_PATH", TORNIK_TEST_PLUGINS);
        environment.insert("QT_QPA_GENERIC_PLUGINS",
                           "windowprobe:" + QDir::current().absoluteFilePath(WindowFile));
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(TORNIK_BIN_DIR "/tornik", arguments);
    }
    ~TornikProcess()
    {
        if (m_process.state() != QProcess::NotRunning)
            m_process.kill();
        m_process.waitForFinished();
    }

    /** Forgets what a program before this one has shown. */
    static void forgetWindow() { QFile::remove(WindowFile); }

    /** @return whether the window is there now. */
    bool hasWindow() const { return QFile::exists(WindowFile); }
    /** @return what the window shows now, one line each: see the plugin of the tests. */
    QStringList window() const
    {
        QFile file(WindowFile);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n') : QStringList();
    }
    bool shows(const QString& line) const { return window().contains(line); }
    bool runs() const { return m_process.state() == QProcess::Running; }

    /** Ends it as the system does at the end of a session. @return whether it left in peace */
    bool end()
    {
        m_process.terminate();
        return m_process.waitForFinished() && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == 0;
    }
    /** @return all that the program has written since it was started. */
    QByteArray output()
    {
        m_output += m_process.readAll();
        return m_output;
    }

private:
    static constexpr const char* WindowFile = "window.txt";

    QProcess m_process;
    QByteArray m_output;
};

#endif
