#include "sound/CSoundDevice.h"

#include "sound/CSoundMixer.h"
#include "sound/CSoundSink.h"
#include "sound/SoundLog.h"

#include <QThread>

#include <atomic>

namespace {

std::atomic<bool> oneIsLeftBehind{false};

} // namespace

CSoundDevice::CSoundDevice(std::shared_ptr<CSoundMixer> mixer) : m_mixer(std::move(mixer)) {}

CSoundDevice::~CSoundDevice()
{
    constexpr unsigned long PatienceMs = 1000;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_thread)
        return;
    m_thread->quit();
    if (m_thread->wait(PatienceMs))
        return;
    qCWarning(soundLog) << "the audio device hangs and is left behind";
    static_cast<void>(m_thread.release());
    oneIsLeftBehind = true;
}

bool CSoundDevice::isOneLeftBehind()
{
    return oneIsLeftBehind;
}

void CSoundDevice::wake()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_thread) {
        m_thread = std::make_unique<QThread>();
        m_thread->setObjectName(QStringLiteral("sound device"));
        m_sink = new CSoundSink(m_mixer); // owned by the thread: it ends with it
        m_sink->moveToThread(m_thread.get());
        QObject::connect(m_thread.get(), &QThread::finished, m_sink, &QObject::deleteLater);
        m_thread->start();
    }
    QMetaObject::invokeMethod(m_sink, &CSoundSink::wake, Qt::QueuedConnection);
}
