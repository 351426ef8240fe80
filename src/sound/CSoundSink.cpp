#include "sound/CSoundSink.h"

#include "sound/CSoundMixer.h"
#include "sound/SoundLog.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>

namespace {

/** Of the device's buffer: a sound that is stopped is still heard for so long. */
constexpr int BufferMs = 100;
constexpr int FeedMs = 20;
constexpr int BlockMs = 10;
constexpr int MostBlocksAtOnce = BufferMs / BlockMs;
/** A device that takes nothing for so long is as good as gone. */
constexpr int StuckMs = 2000;
/** Of silence, until the device is closed. */
constexpr int CloseMs = 10000;
/** Between two attempts to open a device, where there is none. */
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

CSoundSink::CSoundSink(std::shared_ptr<CSoundMixer> mixer) : m_mixer(std::move(mixer)), m_feed(this)
{
    m_feed.setTimerType(Qt::PreciseTimer);
    m_feed.setInterval(FeedMs);
    connect(&m_feed, &QTimer::timeout, this, &CSoundSink::feed);
}

CSoundSink::~CSoundSink()
{
    close();
}

void CSoundSink::wake()
{
    if (m_output || m_mixer->isIdle())
        return;
    const bool triedJustNow = m_sinceFailedOpen.isValid() && !m_sinceFailedOpen.hasExpired(RetryMs);
    if (triedJustNow) {
        m_mixer->clear();
    } else if (!open()) {
        m_sinceFailedOpen.start();
        fail("no audio device");
    }
}

bool CSoundSink::open()
{
    const QAudioDeviceInfo device = QAudioDeviceInfo::defaultOutputDevice();
    const QAudioFormat format = mixFormat();
    if (device.isNull() || !device.isFormatSupported(format))
        return false;
    m_output = std::make_unique<QAudioOutput>(device, format);
    m_output->setBufferSize(format.bytesForDuration(qint64(BufferMs) * 1000));
    connect(m_output.get(), &QAudioOutput::stateChanged, this, &CSoundSink::onStateChanged,
            Qt::QueuedConnection);
    m_stream = m_output->start();
    if (!m_stream || m_output->state() == QAudio::StoppedState)
        return false;
    m_sinceFailedOpen.invalidate();
    m_sinceWrite.start();
    m_sinceSound.start();
    m_feed.start();
    feed();
    return true;
}

void CSoundSink::close()
{
    m_feed.stop();
    m_block.clear();
    m_stream = nullptr;
    if (!m_output)
        return;
    m_output->disconnect(this);
    m_output->reset(); // unlike stop() it doesn't wait until the buffer is heard
    m_output.reset();
}

void CSoundSink::fail(const char* reason)
{
    qCDebug(soundLog) << "silent:" << reason;
    close();
    m_mixer->clear();
}

void CSoundSink::onStateChanged()
{
    if (m_output && m_output->state() == QAudio::StoppedState)
        fail("the audio device is lost");
}

void CSoundSink::feed()
{
    for (int i = 0; i < MostBlocksAtOnce && writeBlock(); ++i) {
    }
    if (m_sinceWrite.hasExpired(StuckMs))
        fail("the audio device takes nothing");
    else if (m_sinceSound.hasExpired(CloseMs))
        close();
}

/** @return whether there may be room for another one. */
bool CSoundSink::writeBlock()
{
    if (m_block.isEmpty())
        mixBlock();
    // Ask and write without anything between: when the stream dies there, Qt's PulseAudio backend
    // keeps its lock and is dead for the rest of the program.
    if (m_output->bytesFree() < m_block.size())
        return false;
    const qint64 written = m_stream->write(m_block);
    if (written <= 0)
        return false;
    m_block.remove(0, int(written));
    m_sinceWrite.start();
    return m_block.isEmpty();
}

void CSoundSink::mixBlock()
{
    constexpr int Frames = MixRate * BlockMs / 1000;
    if (!m_mixer->isIdle())
        m_sinceSound.start();
    m_block.resize(Frames * MixChannels * int(sizeof(qint16)));
    m_mixer->mix(reinterpret_cast<qint16*>(m_block.data()), Frames);
}
