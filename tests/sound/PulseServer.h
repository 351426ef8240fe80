#ifndef TORNIK_TESTS_SOUND_PULSESERVER_H
#define TORNIK_TESTS_SOUND_PULSESERVER_H

#include "support/BoundProcess.h"

#include <QByteArray>
#include <QTemporaryDir>

/**
 * A private PulseAudio daemon whose only device is a null sink, and a recorder of what the sink
 * would play. The clients find it by PULSE_SERVER, which useIt() sets for the process.
 */
class CPulseServer
{
public:
    CPulseServer();
    ~CPulseServer();

    /** Points the process to the daemon, whether it runs or not. Before the first sound. */
    void useIt() const;
    /** @return false with a reason in error() when there is no PulseAudio to start. */
    bool start();
    void stop();
    /** Sends a signal to the daemon, to freeze it and to let it go on. */
    void signal(int number);
    QString error() const { return m_error; }

    /** Starts to record the sink. */
    bool record();
    void stopRecord();
    /** @return how many frames were recorded so far, 44100 a second. */
    int frames();
    /** @return how many of them can be heard. */
    int loudFrames();
    /** @return how many streams play on the sink now. */
    int streams() const;
    bool loadSink();
    bool unloadSink();

private:
    QString socket() const { return m_directory.filePath(QStringLiteral("socket")); }
    void readRecord();
    QByteArray control(const QStringList& arguments) const;

    QTemporaryDir m_directory;
    CBoundProcess m_daemon;
    CBoundProcess m_recorder;
    QByteArray m_unread;
    int m_frames = 0;
    int m_loudFrames = 0;
    QString m_error;
};

#endif
