#ifndef TORNIK_IO_CIOWKIT_H
#define TORNIK_IO_CIOWKIT_H

#include <QLibrary>
#include <QString>

/**
 * The vendor's library `iowkit`, loaded when the object is made; it stays loaded for the life of
 * the process, since it may keep threads of its own. Where it isn't there, nothing happens: a call
 * gives null or 0. Owned by CIoWarriorDevice; read() and write() are called from any thread.
 *
 * A report is an array of bytes, never one of the vendor's structs, whose words have another size
 * on 64-bit Linux.
 */
class CIowKit
{
public:
    explicit CIowKit(const QString& fileName = QStringLiteral("iowkit"));

    bool isLoaded() const { return m_loaded; }

    /** @return the handle of the first device, null if there is none. */
    void* openDevice();
    void closeDevice(void* handle);
    /** Waits for one report, as long as the read time-out. @return its size in bytes; 0 for none */
    quint32 read(void* handle, int pipe, char* report, int size);
    void write(void* handle, int pipe, char* report, int size);
    /** @param timeout milliseconds after which write() leaves a device that takes no report */
    void setWriteTimeout(void* handle, int timeout);
    /** As setWriteTimeout(), for read(). A library without this entry waits as long as it likes. */
    void setReadTimeout(void* handle, int timeout);
    quint32 productId(void* handle);

private:
    using Number = unsigned long; ///< as wide as the vendor's ULONG

    template <typename Entry>
    bool resolve(Entry* entry, const char* name)
    {
        *entry = reinterpret_cast<Entry>(m_library.resolve(name));
        return *entry;
    }

    QLibrary m_library;
    void* (*m_openDevice)() = nullptr;
    void (*m_closeDevice)(void* handle) = nullptr;
    Number (*m_read)(void* handle, Number pipe, char* report, Number size) = nullptr;
    Number (*m_write)(void* handle, Number pipe, char* report, Number size) = nullptr;
    Number (*m_getProductId)(void* handle) = nullptr;
    int (*m_setWriteTimeout)(void* handle, Number timeout) = nullptr;
    int (*m_setReadTimeout)(void* handle, Number timeout) = nullptr; ///< null where there is none
    bool m_loaded;
};

#endif
