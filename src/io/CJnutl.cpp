#include "io/CJnutl.h"

#include "io/IoLog.h"

namespace {

/** Looks an entry up by its decorated name, then by its plain one. @return whether it is there */
template <typename Entry>
bool resolve(const CJnutl::Resolver& resolver, Entry* entry, const QByteArray& plainName, int argumentBytes)
{
    const QByteArray decoratedName = '_' + plainName + '@' + QByteArray::number(argumentBytes);
    *entry = reinterpret_cast<Entry>(resolver(decoratedName.constData()));
    if (!*entry)
        *entry = reinterpret_cast<Entry>(resolver(plainName.constData()));
    return *entry != nullptr;
}

} // namespace

CJnutl::CJnutl(const QString& fileName) : m_library(fileName)
{
    load([this](const char* name) { return m_library.resolve(name); });
    if (m_loaded)
        return;
    qCDebug(ioLog) << "no usable library" << fileName;
    m_library.unload();
}

CJnutl::CJnutl(const Resolver& resolver)
{
    load(resolver);
}

CJnutl::~CJnutl()
{
    m_library.unload();
}

void CJnutl::load(const Resolver& resolver)
{
    m_loaded =
        resolve(resolver, &m_initBoxes, "InitBoxes", 0) && resolve(resolver, &m_openBox, "OpenBox", 8) &&
        resolve(resolver, &m_rxData, "RX_data", 8) && resolve(resolver, &m_getEvent, "Get_Event", 4) &&
        resolve(resolver, &m_getTStamp, "Get_TStamp", 4) && resolve(resolver, &m_getTxDat, "Get_TXDat", 4) &&
        resolve(resolver, &m_timeoutCheck, "Timeout_Check", 0) && m_initBoxes() == InitDone;
}

void CJnutl::openBox(quint16 box, quint16* record)
{
    if (m_loaded)
        m_openBox(box, record);
}
