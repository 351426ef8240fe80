#ifndef TORNIK_EMULATORS_CONTROLUNITMODEL_H
#define TORNIK_EMULATORS_CONTROLUNITMODEL_H

#include "ControlUnitFrames.h"
#include "support/CarsOnTrack.h"

#include <QByteArray>
#include <QList>
#include <QVector>

#include <functional>
#include <random>

/** How often, in percent of the answers, something goes wrong by itself. */
struct ControlUnitFaultRates
{
    int noise = 0;
    int lostEnd = 0;
    int badChecksum = 0;
    int repeat = 0; ///< percent of the crossings
};

struct ControlUnitSettings
{
    struct Car
    {
        CarsOnTrack::Car pace;
        int fuel = 15; ///< tank level, 0 to 15
    };

    QVector<Car> cars = QVector<Car>(2); ///< 1 to 8
    int sectors = 1;                     ///< 1 to 3
    int laps = 0;                        ///< of each car; 0 for no end
    quint32 seed = 1;
    double speedUp = 1.0;      ///< milliseconds of the race in one of the line
    quint32 firstStamp = 1000; ///< of the unit's clock when it is switched on
    int baud = 19200;          ///< ten bits a byte; 0 for a line without delay
    int lightStep = 1000;      ///< milliseconds of the race between two lamps; 0 for a start without
    bool longStatus = false;   ///< 19 characters, as newer firmware sends
    ControlUnitFaultRates faults;
};

/**
 * A Control Unit as a serial line sees it: bytes in, bytes out, a clock handed in.
 *
 * Each poll is answered by one frame: the oldest crossing that wasn't read yet, or the status. A
 * crossing stays queued until it went out in a way that could be read, so that no fault of the
 * line loses a lap. Needs no event loop; knows neither port nor thread.
 */
class ControlUnitModel
{
public:
    /** Microseconds; never runs backwards. */
    using Clock = std::function<qint64()>;
    using Journal = std::function<void(const Crossing&)>;

    enum class Fault
    {
        None,
        Noise,   ///< junk before or within the frame
        LostEnd, ///< the "$" is missing, so that the next answer joins this one
        BadChecksum
    };

    ControlUnitModel(const ControlUnitSettings& settings, const Clock& clock);

    /** Called with each crossing once, when it has been sent readably. */
    void setJournal(const Journal& journal) { m_journal = journal; }

    /** Takes what the host sends. */
    void receive(const QByteArray& bytes);
    /** @return what has left the unit since the last call. */
    QByteArray transmit();
    /** @return when transmit() will have more, on the clock; -1 if only after another poll. */
    qint64 nextChange() const;

    /** The start button: five red lamps, then off and go. */
    void pressStart();
    /** Takes all cars off the track; crossings not yet read stay. */
    void stopCars();
    /** @param car 1 to 8 @param level 0 to 15 */
    void setFuel(int car, int level);
    void setLongStatus(bool on) { m_settings.longStatus = on; }

    /** Spoils the next answer. */
    void spoilNext(Fault fault) { m_nextFault = fault; }
    /** Repeats the next two crossings of different cars alternately, with unchanged stamps. */
    void repeatNext() { m_repeatNext = true; }
    /** Lets polls that come in the next milliseconds fall unheard. */
    void fallSilent(int milliseconds);
    /** Answers the polls of the next milliseconds at their end, all at once. */
    void answerLate(int milliseconds);
    /** The cable was pulled: what was on the line is gone, the crossings stay. */
    void unplug();

    /** @return the state of the start light: 1 before the lamps, 2 to 6, 7 for go, 0 at rest. */
    int startLight() const;
    /** @return whether all laps are driven and read. */
    bool isFinished() const { return m_started && !m_cars.isDriving() && m_queue.isEmpty(); }
    int polls() const { return m_pollCount; }
    /** @return commands other than the poll, in the order in which they came. */
    const QList<QByteArray>& commands() const { return m_commands; }

private:
    struct Event
    {
        Crossing crossing;
        bool repeated = false;
    };

    qint64 byteTime() const { return m_settings.baud > 0 ? 10000000 / m_settings.baud : 0; }
    qint64 raceTime(qint64 now) const;
    int startLightAt(qint64 now) const;
    void hear(char byte, qint64 now);
    void hearPoll(qint64 now);
    void collectCrossings(qint64 now);
    void beginAnswer(qint64 now);
    bool advanceAnswer(qint64 now);
    void finishAnswer();
    void crossingWasRead();
    void repeatAlternately(const Crossing& first, const Crossing& second);
    QByteArray nextFrame(qint64 now) const;
    Fault takeFault();
    QByteArray spoilt(const QByteArray& frame, Fault fault);
    QByteArray withNoise(const QByteArray& frame);
    int chance(int from, int to);
    bool happens(int percent) { return chance(0, 99) < percent; }

    ControlUnitSettings m_settings;
    Clock m_clock;
    Journal m_journal;
    qint64 m_switchedOn;
    CarsOnTrack m_cars;
    std::mt19937 m_random;
    QList<Event> m_queue;
    QList<Crossing> m_read; ///< the last two crossings
    bool m_started = false;
    qint64 m_startPressed = 0; ///< race time

    QByteArray m_command;
    QList<QByteArray> m_commands;
    int m_pollCount = 0;
    QList<qint64> m_polls; ///< when each unanswered poll was heard to its end
    qint64 m_inputFree = 0;
    qint64 m_silentUntil = 0;
    qint64 m_lateUntil = 0;

    QByteArray m_answer; ///< being sent
    int m_answerSent = 0;
    qint64 m_answerBegin = 0;
    bool m_answerReadable = false;
    bool m_answerIsCrossing = false;
    bool m_unfinishedOnLine = false; ///< the last answer had no end, so that the next one joins it
    qint64 m_outputFree = 0;
    QByteArray m_output;

    Fault m_nextFault = Fault::None;
    bool m_repeatNext = false;
};

#endif
