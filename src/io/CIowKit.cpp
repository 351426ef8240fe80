#include "io/CIowKit.h"

#include "io/IoLog.h"

CIowKit::CIowKit(const QString& fileName)
    : m_library(fileName),
      m_loaded(resolve(&m_openDevice, "IowKitOpenDevice") && resolve(&m_closeDevice, "IowKitCloseDevice") &&
               resolve(&m_read, "IowKitRead") && resolve(&m_write, "IowKitWrite") &&
               resolve(&m_getProductId, "IowKitGetProductId") &&
               resolve(&m_setWriteTimeout, "IowKitSetWriteTimeout"))
{
    resolve(&m_setReadTimeout, "IowKitSetTimeout");
    if (!m_loaded)
        qCDebug(ioLog) << "no usable library" << fileName;
}

void* CIowKit::openDevice()
{
    return m_loaded ? m_openDevice() : nullptr;
}

void CIowKit::closeDevice(void* handle)
{
    if (m_loaded)
        m_closeDevice(handle);
}

quint32 CIowKit::read(void* handle, int pipe, char* report, int size)
{
    return m_loaded ? quint32(m_read(handle, Number(pipe), report, Number(size))) : 0;
}

void CIowKit::write(void* handle, int pipe, char* report, int size)
{
    if (m_loaded)
        m_write(handle, Number(pipe), report, Number(size));
}

void CIowKit::setWriteTimeout(void* handle, int timeout)
{
    if (m_loaded)
        m_setWriteTimeout(handle, Number(timeout));
}

void CIowKit::setReadTimeout(void* handle, int timeout)
{
    if (m_loaded && m_setReadTimeout)
        m_setReadTimeout(handle, Number(timeout));
}

quint32 CIowKit::productId(void* handle)
{
    return m_loaded ? quint32(m_getProductId(handle)) : 0;
}
