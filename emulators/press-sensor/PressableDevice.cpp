#include "PressableDevice.h"

namespace {

QString hex(quint32 value)
{
    return QStringLiteral("0x") + QString::number(value, 16);
}

} // namespace

QString PressablePort::description() const
{
    return QStringLiteral("data    %1\nstatus  %2\ncontrol %3\n")
        .arg(hex(readByte(0)), hex(readByte(1)), hex(readByte(2)));
}

QString PressableChip::description() const
{
    if (!m_chip.isPlugged())
        return QStringLiteral("unplugged\n");
    return QStringLiteral("product %1\npins    %2\nwritten %3\n")
        .arg(hex(m_chip.kind().productId), hex(m_chip.pins()), hex(m_chip.written()));
}

bool PressableChip::unplug()
{
    m_chip.unplug();
    return true;
}
