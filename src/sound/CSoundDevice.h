#ifndef TORNIK_SOUND_CSOUNDDEVICE_H
#define TORNIK_SOUND_CSOUNDDEVICE_H

#include <memory>
#include <mutex>

class CSoundMixer;
class CSoundSink;
class QThread;

/**
 * Plays the mix on the default audio device, in a thread of its own that starts with the first
 * sound. The device is opened when there is something to hear and closed after some seconds of
 * silence. Without a device, and when it is lost, the mix is dropped.
 */
class CSoundDevice
{
public:
    explicit CSoundDevice(std::shared_ptr<CSoundMixer> mixer);
    /** Ends the thread. One that hangs in a device for more than a second is left to itself. */
    ~CSoundDevice();

    CSoundDevice(const CSoundDevice&) = delete;
    CSoundDevice& operator=(const CSoundDevice&) = delete;

    /**
     * @return whether a thread was left behind. Qt's audio backend then waits or aborts when the
     *         process ends in the usual way.
     */
    static bool isOneLeftBehind();

    /** Tells that there is something to hear. Any thread; doesn't wait. */
    void wake();

private:
    std::shared_ptr<CSoundMixer> m_mixer;
    std::mutex m_mutex;
    std::unique_ptr<QThread> m_thread;
    CSoundSink* m_sink = nullptr; ///< lives in the thread and goes with it
};

#endif
