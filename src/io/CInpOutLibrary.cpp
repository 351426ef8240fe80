#include "io/CInpOutLibrary.h"

#include "io/CPortRegisters.h"

namespace {

CInpOutLibrary* sharedLibrary = nullptr;
int references = 0;

/** The sum of an address and an offset wraps at 16 bits. */
short registerAddress(int base, int offset)
{
    return short(quint16(quint32(base) + quint32(offset)));
}

} // namespace

CInpOutLibrary* CInpOutLibrary::instance()
{
    if (references++ == 0)
        sharedLibrary = new CInpOutLibrary;
    return sharedLibrary;
}

void CInpOutLibrary::release()
{
    if (references == 0 || --references > 0)
        return;
    delete sharedLibrary;
    sharedLibrary = nullptr;
}

CInpOutLibrary::CInpOutLibrary() : m_registers(CPortRegisters::create()) {}

CInpOutLibrary::~CInpOutLibrary() = default;

int CInpOutLibrary::readPort()
{
    return m_registers->read(registerAddress(m_baseAddress, m_inputOffset));
}

void CInpOutLibrary::writePort(short value)
{
    m_registers->write(registerAddress(m_baseAddress, m_outputOffset), value);
}
