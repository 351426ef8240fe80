#include "sound/PulseServer.h"

#include <QFile>
#include <QTest>
#include <QtEndian>

#include <csignal>

namespace {

const char* const sinkModule[] = {"module-null-sink", "sink_name=track"};

} // namespace

CPulseServer::CPulseServer()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"})
        environment.insert(QString::fromLatin1(name), m_directory.path());
    environment.remove(QStringLiteral("PULSE_SERVER"));
    environment.remove(QStringLiteral("DISPLAY"));
    m_daemon.setProcessEnvironment(environment);
    m_daemon.setProcessChannelMode(QProcess::MergedChannels);
    m_recorder.setProcessEnvironment(environment);
}

CPulseServer::~CPulseServer()
{
    stop();
}

void CPulseServer::useIt() const
{
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socket()));
}

bool CPulseServer::start()
{
    const QString sink =
        QStringLiteral("%1 %2").arg(QString::fromLatin1(sinkModule[0]), QString::fromLatin1(sinkModule[1]));
    m_daemon.start(QStringLiteral("pulseaudio"),
                   {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                    QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
                    QStringLiteral("-L"), sink, QStringLiteral("-L"),
                    QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket()});
    const bool up =
        m_daemon.waitForStarted() && QTest::qWaitFor(
                                         [this] {
                                             return m_daemon.state() != QProcess::Running ||
                                                    control({QStringLiteral("info")}).contains("track");
                                         },
                                         20000);
    if (up && m_daemon.state() == QProcess::Running)
        return true;
    m_error = m_daemon.errorString() + QLatin1Char(' ') + QString::fromUtf8(m_daemon.readAll());
    return false;
}

void CPulseServer::stop()
{
    stopRecord();
    m_daemon.kill();
    m_daemon.waitForFinished();
    QFile::remove(socket());
}

void CPulseServer::signal(int number)
{
    ::kill(pid_t(m_daemon.processId()), number);
}

bool CPulseServer::record()
{
    m_unread.clear();
    m_frames = 0;
    m_loudFrames = 0;
    m_recorder.start(QStringLiteral("parec"),
                     {QStringLiteral("--server=unix:") + socket(), QStringLiteral("--device=track.monitor"),
                      QStringLiteral("--raw"), QStringLiteral("--format=s16le"),
                      QStringLiteral("--rate=44100"), QStringLiteral("--channels=2"),
                      QStringLiteral("--latency-msec=20")});
    return QTest::qWaitFor([this] { return frames() > 0; }, 20000);
}

void CPulseServer::stopRecord()
{
    m_recorder.kill();
    m_recorder.waitForFinished();
    m_recorder.readAllStandardOutput();
}

int CPulseServer::frames()
{
    readRecord();
    return m_frames;
}

int CPulseServer::loudFrames()
{
    readRecord();
    return m_loudFrames;
}

void CPulseServer::readRecord()
{
    constexpr int FrameBytes = 4;
    constexpr int Loud = 1000;
    m_unread += m_recorder.readAllStandardOutput();
    const int frames = m_unread.size() / FrameBytes;
    for (int i = 0; i < frames; ++i) {
        const qint16 left = qFromLittleEndian<qint16>(m_unread.constData() + i * FrameBytes);
        m_loudFrames += qAbs(int(left)) > Loud ? 1 : 0;
    }
    m_frames += frames;
    m_unread.remove(0, frames * FrameBytes);
}

int CPulseServer::streams() const
{
    return control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sink-inputs")})
        .count('\n');
}

bool CPulseServer::loadSink()
{
    control({QStringLiteral("load-module"), QString::fromLatin1(sinkModule[0]),
             QString::fromLatin1(sinkModule[1])});
    return control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sinks")})
        .contains("track");
}

bool CPulseServer::unloadSink()
{
    control({QStringLiteral("unload-module"), QString::fromLatin1(sinkModule[0])});
    return !control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sinks")})
                .contains("track");
}

QByteArray CPulseServer::control(const QStringList& arguments) const
{
    QProcess pactl;
    pactl.start(QStringLiteral("pactl"),
                QStringList{QStringLiteral("--server=unix:") + socket()} + arguments);
    pactl.waitForFinished(5000);
    return pactl.exitCode() == 0 ? pactl.readAllStandardOutput() : QByteArray();
}
