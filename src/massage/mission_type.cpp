#include "massage/mission_type.h"

#include "state/numbering.h"
#include "state/rnd.h"
#include "state/roster.h"

namespace velmoran {

namespace {

constexpr double AttackerOdds = 0.8;  // of an attack mission for ClassAttacker

// One draw: recon, spotting, or else the third type.
Integer DrawType(RunState& run, const ClassOddsRec& odds, Integer otherwise) {
  const double draw = Rnd(run);
  if (draw < odds.Recon) return TypeRecon;
  if (draw < odds.Recon + odds.Spotting) return TypeSpotting;
  return otherwise;
}

void AlterTypeByClass(RunState& run, MissionRec& flight, Integer aircraftClass, Integer& MissionType) {
  if (aircraftClass >= ClassFirstTwoSeater && aircraftClass <= ClassLastTwoSeater) {
    if (MissionType != TypeBomb && MissionType != TypeRecon && MissionType != TypeSpotting) return;
    MissionType = DrawType(run, run.ClassOdds[aircraftClass - ClassFirstTwoSeater], TypeBomb);
    flight.MissionType = MissionType;
  } else if (aircraftClass == ClassArmoured) {
    MissionType = DrawType(run, run.ClassOdds[ClassOddsRows - 1], TypeAttack);
    flight.MissionType = MissionType;
  } else if (aircraftClass == ClassAttacker) {
    // The row keeps its type: only the waypoints are worked as the new one.
    MissionType = Rnd(run) < AttackerOdds ? TypeAttack : TypeSpotting;
  }
}

}  // namespace

void AlterMissionType(RunState& run, Integer index, Integer Aircraft, Integer SquadID, Integer& ShiftFlag,
                      Integer& MissionType) {
  MissionRec& flight = run.Missions[index];
  ShiftFlag = 0;
  AlterTypeByClass(run, flight, run.Aircraft[Aircraft].AircraftClass, MissionType);

  if (run.TypeOddsGate != 0) return;
  Integer nation = 0;
  GetNation(run, SquadID, nation);
  const double odds = run.TypeOdds[MissionType].Odds[nation];
  const double draw = Rnd(run);  // made even where the odds are 0
  if (odds > 0 && draw < odds) {
    MissionType = TypeOffensivePatrol;
    flight.MissionType = TypeOffensivePatrol;
    if (nation != 0) ShiftFlag = -1;
  }
}

}  // namespace velmoran
