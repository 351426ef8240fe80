#ifndef TORNIK_RACE_CRACEMEMBERS_H
#define TORNIK_RACE_CRACEMEMBERS_H

#include "race/CRaceMember.h"

#include <memory>
#include <vector>

/** The members of a race, index = track number from 0; owned by CRace. */
using CRaceMembers = std::vector<std::unique_ptr<CRaceMember>>;

#endif
