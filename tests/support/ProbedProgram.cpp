#include "support/ProbedProgram.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

constexpr int Patience = 60000; // milliseconds

QStringList linesOf(const QJsonObject& message)
{
    QStringList lines;
    for (const QJsonValue line : message["lines"].toArray())
        lines.append(line.toString());
    return lines;
}

} // namespace

ProbedProgram::ProbedProgram(Home home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_PLUGIN_PATH", TORNIK_TEST_PLUGINS);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "windowprobe:" + m_directory.filePath("window"));
    if (home == Fresh) {
        m_process.setWorkingDirectory(m_directory.path());
        environment.insert("HOME", m_directory.path());
        environment.insert("XDG_CONFIG_HOME", m_directory.filePath("config"));
        environment.insert("XDG_DATA_HOME", m_directory.filePath("data"));
    }
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
}

ProbedProgram::~ProbedProgram()
{
    kill();
}

bool ProbedProgram::start(const QStringList& arguments)
{
    m_moments.clear();
    m_process.start(TORNIK_BIN_DIR "/tornik", arguments);
    return connectProbe() && QTest::qWaitFor([this] { return !dashboard().isEmpty(); }, Patience);
}

bool ProbedProgram::connectProbe()
{
    const auto isOpen = [this] {
        if (m_probe.state() == QLocalSocket::UnconnectedState)
            m_probe.connectToServer(m_directory.filePath("window.socket"));
        return m_probe.state() == QLocalSocket::ConnectedState;
    };
    return QTest::qWaitFor(isOpen, Patience);
}

bool ProbedProgram::end()
{
    m_process.terminate();
    const bool inPeace = QTest::qWaitFor([this] { return !runs(); }, Patience) &&
                         m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    m_probe.abort();
    return inPeace;
}

void ProbedProgram::kill()
{
    m_probe.abort();
    m_process.kill();
    m_process.waitForFinished();
}

QStringList ProbedProgram::ask(const QString& command, const QString& argument)
{
    const QJsonObject question{{"command", command}, {"argument", argument}};
    m_answers.clear();
    m_probe.write(QJsonDocument(question).toJson(QJsonDocument::Compact) + '\n');
    const auto isAnswered = [this] {
        readLines();
        return !m_answers.isEmpty() || !runs();
    };
    return QTest::qWaitFor(isAnswered, Patience) ? m_answers.value(0) : QStringList();
}

void ProbedProgram::readLines()
{
    while (m_probe.canReadLine()) {
        const QJsonObject message = QJsonDocument::fromJson(m_probe.readLine()).object();
        const QString about = message["about"].toString();
        if (about == "answer")
            m_answers.append(linesOf(message));
        else
            m_moments.append({about, qint64(message["bytes"].toDouble()), linesOf(message)});
    }
}
