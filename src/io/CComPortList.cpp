#include "io/CComPortList.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <utility>

namespace {

/** @return the name without the number at its end, and that number. */
std::pair<QString, int> partsOf(const QString& name)
{
    int length = name.size();
    while (length > 0 && name.at(length - 1).isDigit())
        --length;
    return {name.left(length), name.mid(length).toInt()};
}

} // namespace

void CComPortList::probeComPorts()
{
    QStringList names;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts())
        names.append(port.portName());
    setNames(names);
}

void CComPortList::setNames(const QStringList& names)
{
    m_names = names;
    std::sort(m_names.begin(), m_names.end(),
              [](const QString& left, const QString& right) { return partsOf(left) < partsOf(right); });
}
