// Rows of the tables read at start from the two setup files and the roster, and of the pairs that grouping makes. Odds
// and factors are ratios; altitudes are numbers of the simulation and have no unit.
#pragma once

#include <string>

#include "state/types.h"

namespace velmoran {

inline constexpr Long Nations = 5;      // 0 to 4; the setup file has values for 0 to 3, and 4 stays 0
inline constexpr Long GroupSquads = 5;  // most squadrons of a group
inline constexpr Long GroupKinds = 5;   // 0 to 4; the setup file has odds for 0 to 3, and 4 stays 0

// A war period, from Velmoran.ini.
struct PeriodRec {
  Table<double, Nations> SizeFactor{};    // multiplier of a flight's size, by nation
  double RemoveOdds = 0;                  // compared with a flight's removal draw
  Table<double, GroupKinds> GroupOdds{};  // by Kind of the group; only those of row 0 are used
};

// The odds of the mission types that an aircraft class can get, from Velmoran.ini.
struct ClassOddsRec {
  double Recon = 0;
  double Spotting = 0;
  double Unused = 0;
};

// The limits of a mission type, from Velmoran.ini.
struct MissionDefRec {
  Integer MinAlt = 0;
  Integer MaxAlt = 0;  // 0: flights of this type keep their altitudes
  Integer MinPlanes = 0;
  Integer MaxPlanes = 0;
};

// The odds of a mission type, from Velmoran.ini.
struct TypeOddsRec {
  Table<double, Nations> Odds{};  // of becoming an offensive patrol, by nation
};

// Squadrons that may fly together, from Velmoran.ini.
struct SquadGroupRec {
  Integer Count = 0;  // entries of Squads in use, at most 5; none if negative
  Integer Kind = 0;   // index of GroupOdds; one outside it joins nothing
  Table<Integer, GroupSquads> Squads{};
};

// A type of aircraft, from Velmoran.txt.
struct AircraftRec {
  std::string AircraftName;  // single bytes, as in the file
  Integer AircraftClass = 0;
  Integer MinAlt = 0;
  Integer MaxAlt = 0;
};

// A squadron, from squadron.dat.
struct SquadRec {
  Integer squadID = 0;
  Integer nation = 0;
  std::string SquadName;  // at most 39 single bytes; may contain a zero byte
};

// Two flights that grouping has joined, as rows of Missions.
struct GroupPairRec {
  Integer sourceIndex = 0;
  Integer targetIndex = 0;
};

}  // namespace velmoran
