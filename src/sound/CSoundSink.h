#ifndef TORNIK_SOUND_CSOUNDSINK_H
#define TORNIK_SOUND_CSOUNDSINK_H

#include <QElapsedTimer>
#include <QIODevice>
#include <QTimer>

#include <memory>

class CSoundMixer;
class QAudioOutput;

/** The mix as an endless stream of PCM, for an audio output to pull from. */
class CMixStream : public QIODevice
{
    Q_OBJECT

public:
    explicit CMixStream(std::shared_ptr<CSoundMixer> mixer);

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;

    /** @return how often the device has fetched something. */
    int reads() const { return m_reads; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    std::shared_ptr<CSoundMixer> m_mixer;
    int m_reads = 0;
};

/** The open device of CSoundDevice; lives in its thread, where opening may take its time. */
class CSoundSink : public QObject
{
    Q_OBJECT

public:
    explicit CSoundSink(std::shared_ptr<CSoundMixer> mixer);
    ~CSoundSink() override;

    /** Opens the device if it isn't open, but not soon after it has failed. */
    void wake();

private:
    bool open();
    void fail(const char* reason);
    void close();
    void onStateChanged();
    void watch();

    std::shared_ptr<CSoundMixer> m_mixer;
    CMixStream m_stream;
    std::unique_ptr<QAudioOutput> m_output;
    QTimer m_watch;
    int m_silentWatches = 0;
    int m_readsSeen = 0;
    QElapsedTimer m_sinceFailure;
};

#endif
