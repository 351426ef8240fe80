#ifndef TORNIK_RESULTS_CRACETOCSVWRITER_H
#define TORNIK_RESULTS_CRACETOCSVWRITER_H

#include "results/CCsvWriter.h"

struct CLapTime;
class CRace;
class CRaceMember;
class QTime;

/**
 * The table of a race: raceway, rules and times, and a block of columns for each member with its
 * laps. Made for one call; the main thread only.
 */
class CRaceToCsvWriter : public CCsvWriter
{
    Q_OBJECT

public:
    CRaceToCsvWriter() = default;
    /** Only keeps the pointer; the table is filled by setRace(). @param race not owned */
    explicit CRaceToCsvWriter(CRace* race);

    /** Fills the table from the race as it stands. @param race not owned; null fills nothing */
    void setRace(CRace* race);

private:
    void fillRaceway();
    void fillRaceData();
    void fillMembers();
    void fillMember(const CRaceMember& member, int column, int sectors);
    void fillLapHeader(int column, int sectors);
    void fillLap(const CLapTime& lap, int index, int column, int sectors);

    QString timeText(const QTime& time) const;
    QString timeText(int milliseconds) const;

    CRace* m_race = nullptr;
};

#endif
