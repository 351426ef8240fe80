#ifndef TORNIK_SOUND_CSOUNDSINK_H
#define TORNIK_SOUND_CSOUNDSINK_H

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>

class CSoundMixer;
class QAudioOutput;
class QIODevice;

/** The open device of CSoundDevice; lives in its thread, where opening may take its time. */
class CSoundSink : public QObject
{
    Q_OBJECT

public:
    explicit CSoundSink(std::shared_ptr<CSoundMixer> mixer);
    ~CSoundSink() override;

    /** Opens the device if it isn't open, but not soon after that has failed. */
    void wake();

private:
    bool open();
    void close();
    void fail(const char* reason);
    void onStateChanged();
    void feed();
    bool writeBlock();
    void mixBlock();

    std::shared_ptr<CSoundMixer> m_mixer;
    std::unique_ptr<QAudioOutput> m_output;
    QIODevice* m_stream = nullptr; ///< belongs to the output
    QByteArray m_block;            ///< mixed, but not written yet
    QTimer m_feed;
    QElapsedTimer m_sinceFailedOpen;
    QElapsedTimer m_sinceWrite;
    QElapsedTimer m_sinceSound;
};

#endif
