#ifndef TORNIK_EMULATORS_SHAREDMEMORY_H
#define TORNIK_EMULATORS_SHAREDMEMORY_H

#include <cstddef>
#include <string>

/**
 * A named piece of memory, through which processes work the same virtual device. New memory is all
 * zero bits: zero bits must be a device at rest, so that nobody has to be the first to fill it.
 */
class SharedMemory
{
public:
    /** Opens the memory of that name, and makes it if there is none. */
    SharedMemory(const std::string& name, std::size_t size);
    ~SharedMemory();
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    /** @return null where the memory can't be had. */
    void* data() const { return m_data; }

    /** Removes the name; processes that have it open keep their memory. @return whether there was one */
    static bool remove(const std::string& name);
    /** @return what the environment variable says, @p fallback where it says nothing. */
    static std::string nameFrom(const char* variable, const char* fallback);

private:
    void* m_data = nullptr;
    std::size_t m_size;
};

#endif
