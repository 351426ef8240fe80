#ifndef TORNIK_IO_CBOXPORT_H
#define TORNIK_IO_CBOXPORT_H

#include <QString>
#include <QtGlobal>

/**
 * The serial line to one RaceControl box: 4800 baud, 8 data bits, no parity, 1 stop bit. Owned by
 * CRaceControl; opened in the main thread, then used by the reading thread alone. A line that hangs
 * up is closed and stays so.
 */
class CBoxPort
{
public:
    static constexpr quint32 BaudRate = 4800;
    /** Milliseconds for one byte: 50, and 10 for each byte of it. */
    static constexpr int ReadTimeout = 50 + 10;
    static constexpr int WriteTimeout = 50 + 10;

    CBoxPort() = default;
    virtual ~CBoxPort();
    Q_DISABLE_COPY(CBoxPort)

    /**
     * Opens the port for this process alone, sets the line and switches DTR on.
     * @param name a path, or the name of a file in /dev
     * @return whether all of that was possible; the port is closed otherwise
     */
    virtual bool open(const QString& name);
    virtual bool isOpen() const { return m_handle >= 0; }
    void close();

    /** Waits for one byte, not at all where the port is closed. @return whether one came */
    virtual bool read(quint8* byte);
    /** Waits until one byte has left. @return false if it hasn't; it won't leave later either */
    virtual bool write(quint8 byte);
    /** @return false for an error; a port without modem lines, a pseudo-terminal, has none. */
    virtual bool setDtr(bool on);

protected:
    /** The `ioctl` of the port. @return less than 0 for an error. */
    virtual int control(unsigned long request, void* argument);

private:
    bool claim();
    bool setLine();
    bool waitFor(short events, int milliseconds);
    bool isDone(qint64 transferred);
    bool drain(int milliseconds);
    void closeLost();

    QString m_name;
    int m_handle = -1;
};

#endif
