#ifndef TORNIK_IO_CRACECONTROL_H
#define TORNIK_IO_CRACECONTROL_H

#include "io/CJnutl.h"

#include <QObject>
#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class CBoxPort;

/**
 * The RaceControl boxes of this process, up to four: hands their bytes to the library `jnutl` and
 * tells the events that the library makes of them.
 *
 * One shared object, handed out with a reference count in the main thread. Everything is called in
 * the main thread before the reading thread starts, but poll() and sendToBox(), which the reading
 * thread calls. Without the library no box is opened. Boxes count from 0.
 */
class CRaceControl : public QObject
{
    Q_OBJECT

public:
    static constexpr int MostBoxes = 4;

    /** Makes a port, not yet open; never null. */
    using PortMaker = std::function<std::unique_ptr<CBoxPort>()>;

    /** Takes a reference; the first one makes the object. Main thread only. */
    static CRaceControl* instance();
    /** Gives a reference back; the last one closes the boxes and frees the object. Main thread only. */
    static void release();

    explicit CRaceControl(std::unique_ptr<CJnutl> library = std::make_unique<CJnutl>(),
                          QObject* parent = nullptr);
    ~CRaceControl() override;

    /** Replaces the serial ports by others, from the next openBox() on. */
    void setPortMaker(const PortMaker& maker) { m_portMaker = maker; }

    bool isLibraryLoaded() const { return m_library->isLoaded(); }
    /** Opens the next box. @return false for a fifth one, too, and without the library */
    bool openBox(const QString& name);
    /** Opens a box for each of the four port names that isn't empty. @return true if none failed */
    bool openAllBoxes();
    /** @return how many boxes were opened; one whose line has hung up still counts. */
    int boxCount() const { return int(m_boxes.size()); }
    bool anyBoxOpen() const { return boxCount() > 0; }
    /** @return whether a byte can still come from any of the boxes. */
    bool hasLine() const;

    /** The name for openAllBoxes(); a box above 3 is ignored, and its name is empty. */
    void setPortName(int box, const QString& name);
    QString portName(int box) const;

    /**
     * Parameters of a box, named by their place in the record of the library, which alone knows
     * what they mean. A box above 3 and a value out of range are ignored. A getter gives -1 or
     * false for a box above 3.
     */
    void setWord2(int value, int box); ///< 0 to 130
    void setWord3(int value, int box); ///< 0 to 50
    void setWord4(int value, int box); ///< 0 to 15
    void setFlag5(bool on, int box);
    void setFlag6(bool on, int box);
    int word2(int box) const;
    int word3(int box) const;
    int word4(int box) const;
    bool flag5(int box) const;
    bool flag6(int box) const;

    /**
     * Takes one byte, and with it one event at most, from each box; waits up to 60 ms for a silent
     * one. @return whether a sensor was activated or deactivated
     */
    bool poll();
    /** Sends what the library has for a box; DTR is off meanwhile. */
    void sendToBox(quint16 box);
    /** Tells the present time stamp of each box. */
    void logTimeStamps();

    /** The event last read: its code and its time stamp in ticks, 4800 a second. */
    quint32 lastEvent() const { return m_last.code; }
    quint32 lastTimeStamp() const { return m_last.timeStamp; }

Q_SIGNALS:
    /** What happens, as a line in English; emitted by the reading thread, too. */
    void debugMessage(const QString& message);

private:
    std::optional<CJnutl::Event> readEvent(int box);
    bool decodeEvent(const CJnutl::Event& event);
    void tellSensor(const CJnutl::Event& event, const QString& change);
    void tellError(quint16 code, int box);
    void setWord(std::size_t word, int most, int value, int box);
    int word(std::size_t word, int box) const;

    PortMaker m_portMaker;
    std::unique_ptr<CJnutl> m_library;
    std::vector<std::unique_ptr<CBoxPort>> m_boxes;
    std::array<std::array<quint16, 8>, MostBoxes> m_boxConfig{};
    std::array<QString, MostBoxes> m_portNames;
    CJnutl::Event m_last;
};

#endif
