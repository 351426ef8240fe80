#ifndef TORNIK_IO_CJNUTL_H
#define TORNIK_IO_CJNUTL_H

#include <QLibrary>
#include <QString>

#include <functional>

/**
 * The library `jnutl`, which knows the protocol of the RaceControl boxes; loaded when the object is
 * made and unloaded with it. Owned by CRaceControl. Boxes count from 0 here. Where the library isn't
 * loaded nothing but openBox() may be called.
 */
class CJnutl
{
public:
    /** An event as the library writes it. */
    struct Event
    {
        quint32 code = 0;
        quint32 timeStamp = 0; ///< ticks of the box, 4800 a second
    };
    /** Gives the entry of a name, null if there is none. */
    using Resolver = std::function<QFunctionPointer(const char* name)>;

    static constexpr quint16 InitDone = 0x100;
    static constexpr quint16 NothingYet = 0;
    static constexpr quint16 EventComplete = 2;
    static constexpr quint16 Success = 0;
    static constexpr quint16 NoByte = 65535; ///< of txData(): nothing to send

    explicit CJnutl(const QString& fileName = QStringLiteral("jnutl"));
    /** The entries come from elsewhere than from a library. */
    explicit CJnutl(const Resolver& resolver);
    ~CJnutl();
    Q_DISABLE_COPY(CJnutl)

    /** @return whether all entries are there and the library was ready for work. */
    bool isLoaded() const { return m_loaded; }

    /** Hands over the parameters of a box, eight words; does nothing without the library. */
    void openBox(quint16 box, quint16* record);
    /** Hands over a received byte. @return NothingYet, EventComplete, or else an error */
    quint16 rxData(quint16 box, quint8 byte) { return m_rxData(box, byte); }
    /** @return Success, or else an error */
    quint16 getEvent(Event* event) { return m_getEvent(event); }
    quint32 timeStamp(quint16 box) { return m_getTStamp(box); }
    /** @return the next byte to send, or NoByte */
    quint16 txData(quint16 box) { return m_getTxDat(box); }

private:
    void load(const Resolver& resolver);

    QLibrary m_library;
    quint16 (*m_initBoxes)() = nullptr;
    void (*m_openBox)(quint16 box, quint16* record) = nullptr;
    quint16 (*m_rxData)(quint16 box, quint8 byte) = nullptr;
    quint16 (*m_getEvent)(Event* event) = nullptr;
    quint32 (*m_getTStamp)(quint16 box) = nullptr;
    quint16 (*m_getTxDat)(quint16 box) = nullptr;
    void (*m_timeoutCheck)() = nullptr; ///< must be there, never called
    bool m_loaded = false;
};

#endif
