#ifndef TORNIK_EMULATORS_AT2560MODEL_H
#define TORNIK_EMULATORS_AT2560MODEL_H

#include "At2560Line.h"
#include "support/CarsOnTrack.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

#include <functional>
#include <map>

struct At2560Settings
{
    QVector<CarsOnTrack::Car> cars; ///< 0 to 8
    int sectors = 1;                ///< 1 to 3
    int laps = 0;                   ///< of each car; 0 for no end
    int firstLapInput = 1;          ///< of car 1; those of the other cars follow
    int firstSector2Input = 9;
    int firstSector3Input = 17;
    quint32 seed = 1;
    double speedUp = 1.0;      ///< milliseconds of the box's clock in one of the line
    quint32 firstStamp = 1000; ///< of the box's clock when it is switched on
    bool activeHigh = false;   ///< the digit 1 switches lamps, power and chaos signal on, not 0
    At2560FaultRates faults;
};

/**
 * An AT2560 timing box as a serial line sees it: bytes in, bytes out, a clock handed in.
 *
 * It reports the inputs that it was told to watch, each activation once and with its own time
 * stamp, and keeps the state of its outputs. Needs no event loop; knows neither port nor thread.
 */
class At2560Model
{
public:
    /** Microseconds; never runs backwards. */
    using Clock = std::function<qint64()>;
    using Journal = std::function<void(const Activation&)>;
    using Monitor = std::function<void(const QString&)>;

    At2560Model(const At2560Settings& settings, const Clock& clock);

    /** Called with each activation once, when its frame has gone out to its last byte. */
    void setJournal(const Journal& journal) { m_journal = journal; }
    /** Called with a line for each frame of the host: "IS 7.1.2", "A1 on", "P3 off". */
    void setMonitor(const Monitor& monitor) { m_monitor = monitor; }

    /** Takes what the host sends. */
    void receive(const QByteArray& bytes);
    /** @return the bytes of one write, nothing if none is due; to be called until then. */
    QByteArray transmit();
    /** @return when transmit() will have more, on the clock; -1 if only after another command. */
    qint64 nextChange() const;

    /** Activates an input now. */
    void press(int input) { pressAt(input, stamp()); }
    /** Activates an input when the box's clock shows the stamp; at once if that has been. */
    void pressAt(int input, quint32 stamp);
    /** Lets the cars leave the grid. */
    void startCars() { m_cars.start(stamp()); }
    void stopCars() { m_cars.stop(); }

    /** @return the box's clock, in milliseconds. */
    quint32 stamp() const;
    void setStamp(quint32 stamp);
    /** @return when the box's clock shows the stamp, on the clock that was handed in. */
    qint64 timeOf(quint32 stamp) const;

    At2560Line& line() { return m_line; }
    void sendRaw(const QByteArray& bytes) { m_line.sendRaw(bytes, m_clock()); }
    void plug() { m_plugged = true; }
    /** The cable was pulled: what was on the line and what happens until plug() is lost. */
    void unplug();
    /** Switches the box off and on: inputs and outputs are forgotten. */
    void reset();

    const QVector<int>& inputs() const { return m_inputs; }
    /** @param output "A1" to "A6", "P1" to "P6", "C" or "E" */
    bool isOn(const QByteArray& output) const { return m_outputs.value(output, false); }
    /** @return for example "lamps 12---- power 123456 chaos off e off". */
    QString outputs() const;
    int reported() const { return m_reported; }
    /** @return activations that are still to come; without those of cars. */
    int pending() const { return int(m_presses.size()); }
    bool isIdle() const { return m_presses.empty() && !m_cars.isDriving() && m_line.isEmpty(); }

private:
    void hearFrame(const QByteArray& frame);
    void hearInputs(const QByteArray& list);
    bool hearOutput(const QByteArray& text);
    void collectActivations();
    int inputOf(const Crossing& crossing) const;
    QString groupOf(char letter) const;
    void tell(const QString& text) const;

    At2560Settings m_settings;
    Clock m_clock;
    Journal m_journal;
    Monitor m_monitor;
    qint64 m_clockSet;
    quint32 m_firstStamp;
    CarsOnTrack m_cars;
    At2560Line m_line;
    std::multimap<quint32, int> m_presses; ///< inputs by stamp
    QByteArray m_heard;                    ///< of the host, not yet a frame
    QVector<int> m_inputs;
    QMap<QByteArray, bool> m_outputs;
    int m_reported = 0;
    bool m_plugged = true;
};

#endif
