#ifndef TORNIK_TESTS_RACEHARDWARE_H
#define TORNIK_TESTS_RACEHARDWARE_H

#include "data/CRaceway.h"

#include <QString>

#include <functional>
#include <memory>

/** When something happened, as close as it can be told, in the unit of the stamps. */
struct Moment
{
    qint64 earliest = 0;
    qint64 latest = 0;
};

/**
 * Virtual hardware on which two tracks run: what a test does at the raceway, and what it sees there.
 * Track numbers are those of the user, from 1.
 */
class RaceHardware
{
public:
    using Condition = std::function<bool()>;

    static constexpr int Tracks = 2;
    static constexpr int MinimumTime = 30; ///< of a lap, on raceway()
    static constexpr int DeadTime = 220;   ///< of the chaos button, and some

    /** Its one register has too few outputs for all; none is used. */
    static std::unique_ptr<RaceHardware> parallelPort();
    static std::unique_ptr<RaceHardware> ioWarrior();
    static std::unique_ptr<RaceHardware> at2560();
    static std::unique_ptr<RaceHardware> raceControl();
    /** Its cars drive by themselves: crossing the line is waiting for one of them. */
    static std::unique_ptr<RaceHardware> controlUnit();

    virtual ~RaceHardware() = default;

    /** @return whether the hardware is there now. */
    virtual bool switchOn() = 0;
    /** @return a raceway with all that the hardware, which is switched on, offers. */
    virtual CRaceway raceway() = 0;
    /** Called when a race has begun. */
    virtual void begin() {}

    /** Lets a car pass its sensor, longer after its last time than the shortest lap, and waits for @p isSeen.
     */
    virtual Moment cross(int number, const Condition& isSeen) = 0;
    virtual void pressChaosButton(const Condition& isSeen) = 0;
    /** @return for example "power 1- red 12--- green - chaos -"; empty where nothing can be switched. */
    virtual QString outputs() { return {}; }

    virtual void pull() = 0;
    /** @return whether the hardware is there again. */
    virtual bool plug() = 0;
    /** Stays there, but hears and says nothing. @return false where that can't be played */
    virtual bool fallSilent() { return false; }

protected:
    /** @return a raceway of two tracks with these settings of its interface. */
    static CRaceway racewayWith(const QByteArray& ioSettings);
};

#endif
