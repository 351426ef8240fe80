#ifndef TORNIK_IO_CINPOUTREGISTERS_H
#define TORNIK_IO_CINPOUTREGISTERS_H

#include "io/CPortRegisters.h"

#include <QLibrary>
#include <QString>

/** Register access by the library `inpout32`, which is loaded when the object is made. */
class CInpOutRegisters : public CPortRegisters
{
public:
    explicit CInpOutRegisters(const QString& fileName = QStringLiteral("inpout32"));
    ~CInpOutRegisters() override;

    /** @return whether the library is there with what reading and writing need; else don't read or write. */
    bool isLoaded() const { return m_inp32 && m_out32; }

    short read(short address) override { return m_inp32(address); }
    void write(short address, short value) override { m_out32(address, value); }

private:
    using Inp32 = short (*)(short address);
    using Out32 = void (*)(short address, short value);
    using Query = int (*)();

    template <typename Entry>
    Entry resolve(const char* name)
    {
        return reinterpret_cast<Entry>(m_library.resolve(name));
    }

    QLibrary m_library;
    Inp32 m_inp32;
    Out32 m_out32;
    Query m_isInpOutDriverOpen; ///< looked up, never called
    Query m_isXp64Bit;          ///< looked up, never called
};

#endif
