#include "sound/CSoundSink.h"

#include "sound/CSoundMixer.h"
#include "sound/SoundLog.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>

namespace {

constexpr int FrameBytes = MixChannels * int(sizeof(qint16));
/** Of the device's buffer: a sound that is stopped is still heard for so long. */
constexpr int BufferMs = 100;
constexpr int WatchMs = 1000;
constexpr int WatchesUntilClosed = 10;
constexpr int RetryMs = 3000;

QAudioFormat mixFormat()
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(MixRate);
    format.setChannelCount(MixChannels);
    format.setSampleSize(int(sizeof(qint16)) * 8);
    format.setSampleType(QAudioFormat::SignedInt);
    format.setByteOrder(QAudioFormat::Endian(QSysInfo::ByteOrder));
    return format;
}

} // namespace

CMixStream::CMixStream(std::shared_ptr<CSoundMixer> mixer) : m_mixer(std::move(mixer))
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 CMixStream::bytesAvailable() const
{
    return qint64(MixRate) * FrameBytes + QIODevice::bytesAvailable();
}

qint64 CMixStream::readData(char* data, qint64 maxSize)
{
    const int frames = int(qMin<qint64>(maxSize, bytesAvailable()) / FrameBytes);
    m_mixer->mix(reinterpret_cast<qint16*>(data), frames);
    ++m_reads;
    return qint64(frames) * FrameBytes;
}

qint64 CMixStream::writeData(const char*, qint64)
{
    return -1;
}

CSoundSink::CSoundSink(std::shared_ptr<CSoundMixer> mixer)
    : m_mixer(mixer), m_stream(std::move(mixer)), m_watch(this)
{
    m_stream.setParent(this);
    m_watch.setInterval(WatchMs);
    connect(&m_watch, &QTimer::timeout, this, &CSoundSink::watch);
}

CSoundSink::~CSoundSink()
{
    close();
}

void CSoundSink::wake()
{
    m_silentWatches = 0;
    if (m_output || m_mixer->isIdle())
        return;
    const bool soonAfterFailure = m_sinceFailure.isValid() && !m_sinceFailure.hasExpired(RetryMs);
    if (soonAfterFailure)
        m_mixer->clear();
    else if (!open())
        fail("no audio device");
}

bool CSoundSink::open()
{
    const QAudioDeviceInfo device = QAudioDeviceInfo::defaultOutputDevice();
    const QAudioFormat format = mixFormat();
    if (device.isNull() || !device.isFormatSupported(format))
        return false;
    m_output = std::make_unique<QAudioOutput>(device, format);
    m_output->setBufferSize(format.bytesForDuration(BufferMs * 1000));
    connect(m_output.get(), &QAudioOutput::stateChanged, this, &CSoundSink::onStateChanged,
            Qt::QueuedConnection);
    m_output->start(&m_stream);
    if (m_output->state() == QAudio::StoppedState)
        return false;
    m_readsSeen = m_stream.reads();
    m_watch.start();
    return true;
}

void CSoundSink::fail(const char* reason)
{
    if (!m_sinceFailure.isValid())
        qCDebug(soundLog) << "silent:" << reason;
    m_sinceFailure.start();
    close();
    m_mixer->clear();
}

void CSoundSink::close()
{
    m_watch.stop();
    if (!m_output)
        return;
    m_output->disconnect(this);
    m_output->reset(); // unlike stop() it doesn't wait until the buffer is heard
    m_output.reset();
}

void CSoundSink::onStateChanged()
{
    if (m_output && m_output->state() == QAudio::StoppedState)
        fail("the audio device is lost");
}

void CSoundSink::watch()
{
    const bool stuck = m_stream.reads() == m_readsSeen;
    m_readsSeen = m_stream.reads();
    if (stuck) {
        fail("the audio device doesn't move");
        return;
    }
    m_sinceFailure.invalidate();
    m_silentWatches = m_mixer->isIdle() ? m_silentWatches + 1 : 0;
    if (m_silentWatches >= WatchesUntilClosed)
        close();
}
