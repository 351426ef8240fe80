#include "io/CInpOutRegisters.h"

CInpOutRegisters::CInpOutRegisters(const QString& fileName)
    : m_library(fileName),
      m_inp32(resolve<Inp32>("Inp32")),
      m_out32(resolve<Out32>("Out32")),
      m_isInpOutDriverOpen(resolve<Query>("IsInpOutDriverOpen")),
      m_isXp64Bit(resolve<Query>("IsXP64Bit"))
{
}

CInpOutRegisters::~CInpOutRegisters()
{
    m_library.unload();
}
