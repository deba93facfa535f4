#include "plan.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

#include "state/altitude_bytes.h"
#include "state/numbering.h"

namespace sample {

using namespace velmoran;

namespace {

struct Place {
  Long lon, lat;
};

struct Squadron {
  Long id;
  Long plane;  // row of Aircraft in sample/Velmoran.txt
  Place home;
  std::initializer_list<Integer> types;  // one for each flight
};

// The front runs north to south, with German airfields to the east. Positions have no unit.
constexpr Long FrontLon = 2100000;

const std::array<Squadron, 25> OrdinaryDay{{
    {85, 21, {1750000, 2300000}, {TypeCAP, TypeBarragePatrol, TypeCAP}},  // the player's
    {2, 3, {2480000, 2500000}, {TypeEscort, TypeCAP, TypeCAP, TypeBarragePatrol}},
    {5, 5, {2450000, 2150000}, {TypeEscort, TypeCAP, TypeBalloonBust, TypeLoneWolf}},
    {9, 2, {2520000, 1800000}, {TypeEscort, TypeBarragePatrol, TypeBarragePatrol, TypeCAP}},
    {11, 4, {2390000, 2750000}, {TypeCAP, TypeOffensivePatrol, TypeBalloonDefense, TypeBalloonDefense}},
    {17, 6, {2600000, 1300000}, {TypeEscort, TypeCAP, TypeBalloonBust}},
    {31, 9, {2680000, 2450000}, {TypeRecon, TypeRecon, TypeSpotting, TypeSpotting}},
    {33, 11, {2640000, 2100000}, {TypeSpotting, TypeSpotting, TypeRecon}},
    {40, 12, {2330000, 2300000}, {TypeInfantryDefense, TypeAttackSupport, TypeInfantryDefense}},
    {41, 13, {2360000, 1900000}, {TypeAttack, TypeAttackSupport, TypeAttack}},
    {52, 14, {2800000, 1700000}, {TypeBomb, TypeBomb, TypeBomb}},
    {53, 15, {2900000, 1350000}, {TypeBomb}},
    {83, 18, {1700000, 2600000}, {TypeEscort, TypeCAP, TypeBarragePatrol, TypeBarragePatrol}},
    {90, 19, {1820000, 2450000}, {TypeEscort, TypeOffensivePatrol, TypeCAP, TypeCAP}},
    {94, 17, {1790000, 2050000}, {TypeEscort, TypeBarrageSupport, TypeBalloonBust, TypeCAP}},
    {98, 25, {1600000, 2400000}, {TypeSpotting, TypeRecon, TypeSpotting, TypeSpotting}},
    {101, 26, {1560000, 2100000}, {TypeRecon, TypeBomb, TypeRecon}},
    {107, 29, {1880000, 2250000}, {TypeAttackSupport, TypeInfantryDefense, TypeAttack, TypeAttackSupport}},
    {112, 30, {1350000, 2500000}, {TypeBomb, TypeBomb}},
    {121, 32, {1860000, 1650000}, {TypeEscort, TypeBarragePatrol, TypeCAP, TypeBalloonDefense, TypeCAP}},
    {124, 35, {1810000, 1400000}, {TypeEscort, TypeCAP, TypeOffensivePatrol, TypeLoneWolf}},
    {140, 38, {1620000, 1550000}, {TypeRecon, TypeSpotting, TypeSpotting, TypeRecon}},
    {146, 39, {1500000, 1250000}, {TypeBomb, TypeBomb, TypeBomb}},
    {163, 33, {1880000, 1050000}, {TypeEscort, TypeCAP, TypeBarragePatrol, TypeCAP}},
    {184, 37, {1740000, 3000000}, {TypeRecon, TypeSpotting, TypeSpotting}},
}};

// Squadrons: the first flight of escort escorts the first flight of escorted.
struct EscortPair {
  Long escort, escorted;
};
constexpr std::array<EscortPair, 10> EscortPairs{{
    {2, 31},
    {5, 33},
    {9, 52},
    {17, 53},
    {83, 98},
    {90, 101},
    {94, 112},
    {121, 140},
    {124, 146},
    {163, 184},
}};

bool IsEscorted(Long squadID) {
  return std::ranges::count(EscortPairs, squadID, &EscortPair::escorted) > 0;
}

Long Altitude(Long missionType, Dice& dice) {
  switch (missionType) {
    case TypeAttack:
    case TypeBalloonBust:
    case TypeInfantryDefense:
    case TypeAttackSupport:
      return dice.Between(1500, 3500);
    case TypeSpotting:
    case TypeBalloonDefense:
      return dice.Between(3500, 6500);
    default:
      return dice.Between(7000, 13000);
  }
}

Byte ActionOver(Long missionType) {
  switch (missionType) {
    case TypeBomb:
    case TypeAttack:
    case TypeBalloonBust:
      return ActionAttackTarget;
    case TypeRecon:
      return ActionRecon;
    case TypeBarragePatrol:
    case TypeBarrageSupport:
      return ActionPatrolFront;
    case TypeEscort:
      return ActionEscort;
    case TypeBalloonDefense:
      return ActionDefendBalloon;
    case TypeInfantryDefense:
      return ActionDefendInfantry;
    case TypeAttackSupport:
      return ActionSupportAttack;
    case TypeSpotting:
    case TypeOffensivePatrol:
    case TypeLoneWolf:
      return ActionLoiter;
    default:
      return ActionPatrol;
  }
}

template <std::size_t Count>
void Fill(Table<Byte, Count>& carried, Dice& dice) {
  for (Byte& byte : carried) byte = static_cast<Byte>(dice.Below(256));
}

class Planner {
 public:
  Planner(RunState& run, std::uint32_t seed) : run_(run), dice_(seed) {
    run.HeaderBytes = {0x4D, 0x49, 0x53, 0x00, 0x12, 0x07, 0x11, 0x00};
    run.HeaderFlag = 1;
  }

  // A flight with everything but its route.
  MissionRec& AddFlight(Long squadID, Integer missionType, Long plane, Long size) {
    MissionRec& flight = run_.Missions[run_.LoadedCount];
    flight.FlightID = run_.LoadedCount++;
    run_.MissionCount = run_.LoadedCount;
    flight.SquadID = squadID;
    flight.MissionType = missionType;
    flight.NumAircraft = size;
    flight.FlightType = missionType == TypeBomb ? 2 : dice_.Below(2);
    flight.HeadLong16 = dice_.Below(1000);
    flight.HeadLong24 = dice_.Below(1000);
    flight.Target = dice_.Below(9);
    flight.TailLong = dice_.Below(100000);
    Fill(flight.Carried8, dice_);
    Fill(flight.Carried32, dice_);
    Fill(flight.Carried184, dice_);
    Fill(flight.Carried196, dice_);
    Fill(flight.Carried208, dice_);
    for (Long slot = 0; slot < Slots; ++slot) {
      const bool used = slot < size;
      flight.Planes[slot] = used ? plane : EmptySlot;
      flight.Pilots[slot] = used ? nextPilot_++ : EmptySlot;
      flight.SlotExtra[slot] = used ? 0 : EmptySlot;
    }
    return flight;
  }

  void AddWaypoint(MissionRec& flight, Byte action, Place place, Long altitude) {
    WaypointRec& waypoint = flight.Waypoints[flight.WPCount++];
    waypoint.WPLong0 = flight.WPCount;
    waypoint.Lon = place.lon;
    waypoint.Lat = place.lat;
    waypoint.WPLong20 = dice_.Below(1000);
    waypoint.AltBytes = 0x00010000;  // the high half isn't part of the altitude
    SetWPAltitude(waypoint.AltBytes, Narrow(altitude));
    waypoint.WPByte33 = static_cast<Byte>(dice_.Below(4));
    waypoint.WPByte34 = static_cast<Byte>(dice_.Below(4));
    waypoint.WPByte35 = static_cast<Byte>(dice_.Below(4));
    waypoint.WPLong36 = dice_.Between(60, 110);
    waypoint.Formation = FormationInTrail;
    waypoint.Action = action;
    waypoint.ActionParam = action == ActionLoiter ? dice_.Between(5, 15) : 0;
    Fill(waypoint.Carried4, dice_);
    Fill(waypoint.WPBytes, dice_);
  }

  // Takeoff, a climb to the front (with a rendezvous, if there is one), the mission itself, the return and landing.
  void FlyRoute(MissionRec& flight, Place home, bool meetsEscort, Long workPoints) {
    const Long altitude = Altitude(flight.MissionType, dice_);
    const Long across = home.lon < FrontLon ? 1 : -1;
    const Place front{FrontLon - across * 90000, home.lat + dice_.Between(-120000, 120000)};
    const Byte action = ActionOver(flight.MissionType);
    AddWaypoint(flight, ActionTakeoff, home, 200);
    if (meetsEscort) AddWaypoint(flight, ActionRendezvous, Between(home, front), altitude);
    AddWaypoint(flight, ActionIngress, front, altitude);
    for (Long k = 0; k < workPoints; ++k) {
      const Place work{front.lon + across * (60000 + 45000 * (k % 4)), front.lat + 50000 * (k - workPoints / 2)};
      AddWaypoint(flight, action, work, altitude);
    }
    if (workPoints > 1) AddWaypoint(flight, ActionEgress, {front.lon, front.lat - 60000}, altitude);
    AddWaypoint(flight, ActionLand, home, 200);
  }

  // The escort joins the flight at its rendezvous and leaves it when it turns for home.
  void FlyEscort(MissionRec& escort, Place home, const MissionRec& escorted) {
    escort.EscortFlag = 1;
    escort.EscortedFlight = escorted.FlightID;
    AddWaypoint(escort, ActionTakeoff, home, 200);
    for (Long k = 1; k < escorted.WPCount - 1; ++k) {
      const WaypointRec& met = escorted.Waypoints[k];
      const Byte action = k == 1 ? ActionIngress : k == escorted.WPCount - 2 ? ActionEgress : ActionEscort;
      AddWaypoint(escort, action, {met.Lon + 3000, met.Lat + 3000},
                  std::min<Long>(GetWPAltitude(met.AltBytes) + 800, 14000));
    }
    AddWaypoint(escort, ActionLand, home, 200);
  }

  Dice& dice() { return dice_; }

 private:
  static Place Between(Place one, Place other) { return {(one.lon + other.lon) / 2, (one.lat + other.lat) / 2}; }

  RunState& run_;
  Dice dice_;
  Long nextPilot_ = 188;
};

const Squadron& SquadronOf(Long squadID) {
  return *std::ranges::find(OrdinaryDay, squadID, &Squadron::id);
}

// The first flight of the squadron.
MissionRec& FirstFlight(RunState& run, Long squadID) {
  return *std::ranges::find(run.Missions, squadID, &MissionRec::SquadID);
}

}  // namespace

Integer NationOf(Long squadID) {
  if (squadID <= 80) return 0;
  if (squadID <= 120) return 1;
  if (squadID <= 160) return 2;
  return squadID <= 180 ? 3 : 4;
}

void PlanOrdinaryDay(RunState& run) {
  Planner planner(run, 1917);
  for (const Squadron& squadron : OrdinaryDay) {
    const bool players = squadron.id == OrdinaryDay[0].id;
    bool first = true;
    for (const Integer type : squadron.types) {
      const Long size = players ? 4 : type == TypeLoneWolf ? 1 : planner.dice().Between(2, 5);
      MissionRec& flight = planner.AddFlight(squadron.id, type, squadron.plane, size);
      if (type != TypeEscort) {
        planner.FlyRoute(flight, squadron.home, first && IsEscorted(squadron.id), planner.dice().Between(1, 9));
      }
      first = false;
    }
  }
  for (const EscortPair& pair : EscortPairs) {
    planner.FlyEscort(FirstFlight(run, pair.escort), SquadronOf(pair.escort).home, FirstFlight(run, pair.escorted));
  }
  run.PlayerFlight = FirstFlight(run, OrdinaryDay[0].id).FlightID + 1;
}

void PlanLargestDay(RunState& run) {
  Planner planner(run, 1918);
  constexpr std::array<Integer, 6> types{TypeCAP,  TypeBarragePatrol, TypeRecon,
                                         TypeBomb, TypeSpotting,      TypeOffensivePatrol};
  const Long player = 85;
  while (run.LoadedCount < MissionRows) {
    const Long row = run.LoadedCount;
    const bool players = row % 67 == 0;
    const Long squadID = players ? player : 1 + row % 80 + (row % 2 == 0 ? 0 : 100);
    const Integer type = types[static_cast<std::size_t>(row % 6)];
    MissionRec& flight = planner.AddFlight(squadID, type, row % AircraftFilled, players ? 4 : 2 + row % 5);
    const Place home{NationOf(squadID) == 0 ? 2500000 : 1700000, 1000000 + 10000 * row};
    planner.FlyRoute(flight, home, false, WaypointRows - 4);
  }
  run.PlayerFlight = 67;
}

}  // namespace sample
