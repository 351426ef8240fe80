#include "io/CInpOutLibrary.h"

#include "io/CPortRegisters.h"
#include "io/SharedDevice.h"

namespace {

/** The sum of an address and an offset wraps at 16 bits. */
short registerAddress(int base, int offset)
{
    return short(quint16(quint32(base) + quint32(offset)));
}

} // namespace

CInpOutLibrary* CInpOutLibrary::instance()
{
    return SharedDevice<CInpOutLibrary>::take();
}

void CInpOutLibrary::release()
{
    SharedDevice<CInpOutLibrary>::giveBack();
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
