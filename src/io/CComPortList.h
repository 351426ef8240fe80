#ifndef TORNIK_IO_CCOMPORTLIST_H
#define TORNIK_IO_CCOMPORTLIST_H

#include <QStringList>

/** The serial ports of this machine, as a list to choose from. Main thread only. */
class CComPortList
{
public:
    /** Looks for the ports; one that another program holds open counts too. None is opened. */
    void probeComPorts();

    /** @return the names in ascending order, "ttyS2" before "ttyS10"; empty before the first probe. */
    QStringList names() const { return m_names; }
    void setNames(const QStringList& names);

private:
    QStringList m_names;
};

#endif
