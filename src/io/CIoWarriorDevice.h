#ifndef TORNIK_IO_CIOWARRIORDEVICE_H
#define TORNIK_IO_CIOWARRIORDEVICE_H

#include "io/CIowKit.h"

#include <atomic>

template <typename Device>
class SharedDevice;

/**
 * The first IO-Warrior of this machine, seen as 32 pins that are input and output at once: a pin
 * written high can be pulled low from outside.
 *
 * One shared object, handed out with a reference count in the main thread; the device is opened
 * with the first reference and closed with the last, and one plugged in later is found only by a
 * new object. read() and write() are called by the reading thread while it runs, else by the main
 * thread.
 */
class CIoWarriorDevice
{
public:
    /** Takes a reference; the first one makes the object. Main thread only. */
    static CIoWarriorDevice* instance();
    /** Gives a reference back; the last one frees the object. Main thread only. */
    static void release();

    bool isOpen() const { return m_handle != nullptr; }
    /** ask() and takeAnswer(), with a second for the answer. */
    int read();
    /** Asks the chip for its pins. */
    void ask();
    /**
     * Waits for the answer to the oldest question; a device that has gone away gives none at once.
     * @param longestWait milliseconds, above 0; an answer that comes later is that of the next call
     * @return the levels, pin 0 in the lowest bit; those of the answer before if there is none; -1
     * without a device
     */
    int takeAnswer(int longestWait);
    /** @return whether the last takeAnswer() got one. */
    bool isAnswering() const { return m_answering; }
    /** Sets the pins, pin 0 in the lowest bit. A device that has gone away takes no notice. */
    void write(int value);
    /** @return how many pins the chip has, those out of reach included; 0 if it isn't known. */
    int pinCount();

private:
    friend class SharedDevice<CIoWarriorDevice>;

    CIoWarriorDevice();
    ~CIoWarriorDevice();
    Q_DISABLE_COPY(CIoWarriorDevice)

    CIowKit m_library;
    void* m_handle;
    quint32 m_productId;
    std::atomic<int> m_lastReport{-1}; ///< the pins as the chip told them last
    std::atomic<bool> m_answering{false};
};

#endif
