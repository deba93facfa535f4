#include "odds/prospects.h"

#include <algorithm>

#include "state/numbering.h"
#include "state/player.h"
#include "state/roster.h"

namespace velmoran {

namespace {

// The row of ClassOdds that counts for the class on a mission of this type, or -1.
Long ClassRow(Integer aircraftClass, Long type) {
  if (aircraftClass == ClassArmoured) return ClassOddsRows - 1;
  const bool redrawn = type == TypeBomb || type == TypeRecon || type == TypeSpotting;
  return IsTwoSeaterClass(aircraftClass) && redrawn ? aircraftClass - ClassFirstTwoSeater : -1;
}

// Adds all types that AlterMissionType can choose.
void ForeseeTypes(const RunState& run, Prospect& prospect) {
  const Long type = prospect.flight->MissionType;
  const Integer aircraftClass = run.Aircraft[prospect.aircraft].AircraftClass;
  prospect.classRow = ClassRow(aircraftClass, type);
  if (prospect.classRow >= 0) {
    const ClassOddsRec& odds = run.ClassOdds[prospect.classRow];
    const double both = odds.Recon + odds.Spotting;
    if (odds.Recon > 0) prospect.drawn.Add(TypeRecon);
    if (std::max(odds.Recon, 0.0) < std::min(both, 1.0)) prospect.drawn.Add(TypeSpotting);
    if (std::max(odds.Recon, both) < 1) prospect.drawn.Add(aircraftClass == ClassArmoured ? TypeAttack : TypeBomb);
  } else if (aircraftClass == ClassAttacker) {
    prospect.drawn.Add(TypeAttack);
    prospect.drawn.Add(TypeSpotting);
  } else {
    prospect.drawn.Add(type);
  }
  for (Long drawn = 0; drawn < TypeRows; ++drawn) {
    if (!prospect.drawn.Has(drawn)) continue;
    const double odds = run.TypeOddsGate == OpenGate ? run.TypeOdds[drawn].Odds[prospect.nation] : 0;
    if (odds > 0) {
      prospect.flown.Add(TypeOffensivePatrol);
      prospect.stored.Add(TypeOffensivePatrol);
    }
    if (odds < 1) {
      prospect.flown.Add(drawn);
      prospect.stored.Add(aircraftClass == ClassAttacker ? type : drawn);
    }
  }
}

bool KeepsAltitudes(const MissionRec& flight) {
  for (Long k = 2; k < flight.WPCount - 1; ++k) {
    const Byte action = flight.Waypoints[k].Action;
    if (action != ActionEscort && action != ActionRendezvous) return false;
  }
  return true;
}

}  // namespace

std::vector<Prospect> Foresee(const RunState& run) {
  std::vector<Prospect> prospects(static_cast<std::size_t>(run.LoadedCount));
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    const MissionRec& flight = run.Missions[row];
    Prospect& prospect = prospects[static_cast<std::size_t>(row)];
    prospect.flight = &flight;
    prospect.row = row;
    GetNation(run, Narrow(flight.SquadID), prospect.nation);
    prospect.aircraft = flight.NumAircraft >= 1 ? AircraftOf(flight) : Integer{0};
    prospect.inPlayerSquadron = InPlayerSquadron(run, flight);
    prospect.isPlayerFlight = prospect.inPlayerSquadron && IsPlayerFlight(run, flight);
    prospect.scaled = IsScaledClass(run.Aircraft[AircraftOf(flight)].AircraftClass);
    prospect.keepsAltitudes = KeepsAltitudes(flight);
    ForeseeTypes(run, prospect);
  }
  return prospects;
}

double LargestSize(const RunState& run, const Prospect& prospect, Long type) {
  if (prospect.inPlayerSquadron || prospect.nation == NationZero || !prospect.stored.Has(type)) return 0;
  const double most = std::max(run.MissionDefs[type].MinPlanes, run.MissionDefs[type].MaxPlanes);
  return prospect.scaled ? most * run.Periods[run.WarPeriod].SizeFactor[prospect.nation] : most;
}

bool GetsAltitude(const RunState& run, const Prospect& prospect, Long type) {
  if (prospect.keepsAltitudes) return false;
  for (Long flown = 0; flown < TypesFilled; ++flown) {
    if (type != AnyType && type != flown) continue;
    if (prospect.flown.Has(flown) && run.MissionDefs[flown].MaxAlt != 0) return true;
  }
  return false;
}

}  // namespace velmoran
