#include "io/CCarreraCuThread.h"

#include "io/CCarreraCu.h"
#include "io/CCarreraCuEvents.h"
#include "io/SharedDevice.h"

#include <QCoreApplication>
#include <QMutexLocker>

namespace {

QString pollText()
{
    return QStringLiteral("\"?");
}

} // namespace

CCarreraCuThread* CCarreraCuThread::instance()
{
    return SharedDevice<CCarreraCuThread>::take();
}

void CCarreraCuThread::release()
{
    SharedDevice<CCarreraCuThread>::giveBack();
}

CCarreraCuThread::CCarreraCuThread() : m_cu(CCarreraCu::instance()) {}

CCarreraCuThread::~CCarreraCuThread()
{
    stop();
    wait();
    CCarreraCu::release();
}

void CCarreraCuThread::setTarget(QObject* target)
{
    const QMutexLocker lock(&m_mutex);
    m_target = target;
}

const QObject* CCarreraCuThread::target() const
{
    const QMutexLocker lock(&m_mutex);
    return m_target;
}

void CCarreraCuThread::setPortName(const QString& name)
{
    const QMutexLocker lock(&m_mutex);
    m_portName = name;
}

QString CCarreraCuThread::portName() const
{
    const QMutexLocker lock(&m_mutex);
    return m_portName;
}

void CCarreraCuThread::stop()
{
    // The request outlives the moment at which run() sets the flag: a stop that comes while the
    // port is being opened must not be lost.
    requestInterruption();
    m_running = false;
}

void CCarreraCuThread::queueSwitch(bool on)
{
    queueCommand(on ? QStringLiteral("\":3F9$") : QStringLiteral("\":000$"));
}

void CCarreraCuThread::queueEquals101()
{
    queueCommand(QStringLiteral("\"=101$"));
}

void CCarreraCuThread::queueT22()
{
    queueCommand(QStringLiteral("\"T22$"));
}

void CCarreraCuThread::queueT11()
{
    queueCommand(QStringLiteral("\"T11$"));
}

void CCarreraCuThread::queueZero()
{
    queueCommand(QStringLiteral("\"0"));
}

void CCarreraCuThread::queueCommand(const QString& text)
{
    const QMutexLocker lock(&m_mutex);
    m_commands.append(text);
}

bool CCarreraCuThread::hasCommands() const
{
    const QMutexLocker lock(&m_mutex);
    return !m_commands.isEmpty();
}

void CCarreraCuThread::run()
{
    const QString name = portName();
    if (name.isEmpty())
        return;
    m_running = m_cu->openPort(name);
    if (isInterruptionRequested())
        m_running = false;
    m_cu->queueText(pollText());
    Polling polling;
    while (m_running) {
        pass(&polling);
        usleep(1);
    }
    m_cu->closePort();
}

void CCarreraCuThread::pass(Polling* polling)
{
    const bool receivedBefore = polling->received;
    polling->received = m_cu->receiveFrame();
    if (polling->received)
        takeFrame(polling);
    else if (receivedBefore)
        polling->unanswered = 0; // the unit answers again, and what didn't come was never heard
    // An answer is followed by the next question at once: waiting for a silence first would cost
    // 100 ms a frame. But after a silence several answers may be due. Asking again at each of them
    // would keep as many questions under way for ever.
    if (polling->received && polling->unanswered > 0)
        return;
    sendNext();
    ++polling->unanswered;
}

void CCarreraCuThread::takeFrame(Polling* polling)
{
    const QString text = m_cu->lastFrameText();
    if (text != polling->previous)
        postFrame(text);
    polling->previous = text;
    polling->unanswered = qMax(0, polling->unanswered - 1);
}

void CCarreraCuThread::sendNext()
{
    if (m_cu->sendPending())
        return;
    m_cu->queueText(takeNextText());
    m_cu->sendPending();
}

void CCarreraCuThread::postFrame(const QString& text)
{
    // Under the lock: a target that takes itself out in the main thread gets nothing afterwards.
    const QMutexLocker lock(&m_mutex);
    if (m_target)
        QCoreApplication::postEvent(m_target, new CCarreraCuEvent(text));
}

QString CCarreraCuThread::takeNextText()
{
    const QMutexLocker lock(&m_mutex);
    return m_commands.isEmpty() ? pollText() : m_commands.takeFirst();
}
