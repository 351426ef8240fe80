#ifndef TORNIK_EMULATORS_VIRTUALIOWARRIOR_H
#define TORNIK_EMULATORS_VIRTUALIOWARRIOR_H

#include "support/SharedMemory.h"

#include <cstddef>
#include <cstdint>
#include <string>

/**
 * A virtual chip of the IO-Warrior family, in shared memory: the stand-in library shows it to the
 * program as the hardware, and any other process can pull its pins low, or its plug.
 *
 * The pins are open-drain: one that the program writes low is low, one that it writes high is as
 * the outside has it. At rest an IO-Warrior40 is plugged in, with all pins high and nothing that
 * pulls them low.
 *
 * Every operation is safe to call from any thread and process. Of the pins, number 0 is the lowest
 * bit.
 */
class VirtualIoWarrior
{
public:
    /** What the members of the family differ in; sizes in bytes. */
    struct Kind
    {
        unsigned productId;
        std::size_t specialSize; ///< of a report on the special pipe; 0 for a chip without pins
        std::size_t pinSize;     ///< of a report that sets the pins
        std::uint32_t pins;      ///< those of the first 32 that the chip has
        int answerMilliseconds;  ///< from a question to its answer
    };

    /** @return the environment variable TORNIK_VIRTUAL_IOWARRIOR, or "/tornik-virtual-iowarrior". */
    static std::string defaultName();

    /** Opens the shared memory of that name, and makes it if there is none. */
    explicit VirtualIoWarrior(const std::string& name = defaultName());

    /** @return false where the shared memory can't be had: no chip is plugged in then. */
    bool isOpen() const { return m_memory != nullptr; }

    // --- The outside

    /** Plugs a chip in, fresh from the shop. @return false for a product id out of the family */
    bool plug(unsigned productId);
    void unplug();
    /** A chip that hears but doesn't answer; what it heard meanwhile is lost. */
    void setSilent(bool silent);
    /**
     * How long the answers to the questions from now on take, with the pins as they are at the
     * question. 0: as long as that of such a chip, with the pins as they are at the end.
     */
    void setAnswerTime(unsigned milliseconds);
    /** Holds each answer back, and with it the time-out, until it is let go. */
    void setHeld(bool held);

    void pullLow(std::uint32_t pins);
    void letGo(std::uint32_t pins);
    void flip(std::uint32_t pins); ///< pulls the free ones low and lets the others go

    // --- The chip

    bool isPlugged() const;
    bool isSilent() const;
    bool isHeld() const;
    bool isLate() const; ///< an answer time has been set
    /** @return milliseconds from a question to its answer. */
    unsigned answerTime() const;
    /** How often a chip has been plugged in; one that was unplugged doesn't come back. */
    unsigned plugging() const;
    Kind kind() const;
    /** The levels of the first 32 pins; low for those that the chip doesn't have. */
    std::uint32_t pins() const;
    /** What the program has written to them. */
    std::uint32_t written() const;
    /** What the program has written to the pins from 32 on. */
    std::uint64_t writtenAbove() const;

    /** Takes a report that sets the pins. @return false for one of a wrong size or number */
    bool takePins(const char* report, std::size_t size);
    /** @return whether it is a report that asks for the pins. */
    bool isQuestion(const char* report, std::size_t size) const;
    /** Writes the answer. @return its size; 0 where it doesn't fit */
    std::size_t answer(std::uint32_t levels, char* report, std::size_t size);

    // --- What happened so far, all chips together

    enum Happening
    {
        Opened,   ///< a handle was given
        Closed,   ///< a handle was given back
        Asked,    ///< a question was heard
        Held,     ///< its answer was awaited, and it was held back
        Answered, ///< its answer was taken
        Written,  ///< the pins were set
        Refused,  ///< a call without a chip, or with a wrong report
        HappeningCount
    };
    unsigned count(Happening happening) const;
    void add(Happening happening);

    /** @return milliseconds, as the program has set them last; 0 for a fresh chip. */
    unsigned writeTimeout() const;
    void setWriteTimeout(unsigned milliseconds);
    /** The same for reading; 0 waits for ever. */
    unsigned readTimeout() const;
    void setReadTimeout(unsigned milliseconds);

    /** Removes the name; processes that have it open keep their memory. */
    static bool remove(const std::string& name = defaultName());

private:
    struct Memory;

    SharedMemory m_sharedMemory;
    Memory* m_memory;
};

#endif
