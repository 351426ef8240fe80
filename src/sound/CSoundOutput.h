#ifndef TORNIK_SOUND_CSOUNDOUTPUT_H
#define TORNIK_SOUND_CSOUNDOUTPUT_H

#include <QObject>
#include <QString>

#include <memory>

class SoundOutLib;

/**
 * The voice of one track: a queue of three samples and of spoken texts. Each track panel owns one;
 * main thread only, and no call blocks it.
 *
 * Queue with playSampleN() and enqueueText(), then play(). A missing file is silent.
 */
class CSoundOutput : public QObject
{
    Q_OBJECT

public:
    explicit CSoundOutput(QObject* parent = nullptr);
    /** @param lib the player to use, so that a test can watch its calls. */
    explicit CSoundOutput(std::unique_ptr<SoundOutLib> lib, QObject* parent = nullptr);
    /** Stops the output. */
    ~CSoundOutput() override;

    /** Changing one file loads all three again. */
    void setSample1File(const QString& file);
    void setSample2File(const QString& file);
    void setSample3File(const QString& file);

    /** Adds the sample to the queue; play() starts it. */
    void playSample1();
    void playSample2();
    void playSample3();
    /** Adds a text to the queue: see SoundOutLib for what is spoken. */
    void enqueueText(const QString& text);

    /** Stops the output and empties the queue. */
    void stop();
    /** Starts the queue in the background. */
    void play();

private:
    void reload();

    std::unique_ptr<SoundOutLib> m_lib;
    QString m_sample1File;
    int m_sample1 = -1;
    QString m_sample2File;
    int m_sample2 = -1;
    QString m_sample3File;
    int m_sample3 = -1;
};

#endif
