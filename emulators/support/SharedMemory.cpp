#include "support/SharedMemory.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

SharedMemory::SharedMemory(const std::string& name, std::size_t size) : m_size(size)
{
    const int descriptor = ::shm_open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return;
    if (::ftruncate(descriptor, off_t(size)) == 0) {
        void* data = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
        m_data = data == MAP_FAILED ? nullptr : data;
    }
    ::close(descriptor);
}

SharedMemory::~SharedMemory()
{
    if (m_data)
        ::munmap(m_data, m_size);
}

bool SharedMemory::remove(const std::string& name)
{
    return ::shm_unlink(name.c_str()) == 0;
}

std::string SharedMemory::nameFrom(const char* variable, const char* fallback)
{
    const char* name = std::getenv(variable);
    return name && *name ? name : fallback;
}
