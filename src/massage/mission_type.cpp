#include "massage/mission_type.h"

#include "state/numbering.h"
#include "state/rnd.h"
#include "state/roster.h"

namespace velmoran {

namespace {

constexpr double AttackerOdds = 0.8;  // of an attack mission for ClassAttacker

// Recon, spotting or the third type. One draw.
Integer DrawType(RunState& run, const ClassOddsRec& odds, Integer third) {
  const double draw = Rnd(run);
  if (draw < odds.Recon) return TypeRecon;
  if (draw < odds.Recon + odds.Spotting) return TypeSpotting;
  return third;
}

void AlterTypeByClass(RunState& run, MissionRec& flight, Integer aircraftClass, Integer& MissionType) {
  if (IsTwoSeaterClass(aircraftClass)) {
    if (MissionType != TypeBomb && MissionType != TypeRecon && MissionType != TypeSpotting) return;
    MissionType = DrawType(run, run.ClassOdds[aircraftClass - ClassFirstTwoSeater], TypeBomb);
    flight.MissionType = MissionType;
  } else if (aircraftClass == ClassArmoured) {  // Quirk 30: any type, even an escort.
    MissionType = DrawType(run, run.ClassOdds[ClassOddsRows - 1], TypeAttack);
    flight.MissionType = MissionType;
  } else if (aircraftClass == ClassAttacker) {
    // Quirk 29: the row keeps its type. Only the waypoints follow the new one.
    MissionType = Rnd(run) < AttackerOdds ? TypeAttack : TypeSpotting;
  }
}

}  // namespace

void AlterMissionType(RunState& run, Integer index, Integer Aircraft, Integer SquadID, Integer& ShiftFlag,
                      Integer& MissionType) {
  MissionRec& flight = run.Missions[index];
  ShiftFlag = NotShifted;
  AlterTypeByClass(run, flight, run.Aircraft[Aircraft].AircraftClass, MissionType);

  if (run.TypeOddsGate != OpenGate) return;  // Quirk 33: 0 opens the gate.
  Integer nation = NationZero;
  GetNation(run, SquadID, nation);
  const double odds = run.TypeOdds[MissionType].Odds[nation];
  const double draw = Rnd(run);  // Quirk 31: drawn even if the odds are 0.
  if (odds > 0 && draw < odds) {
    MissionType = TypeOffensivePatrol;
    flight.MissionType = TypeOffensivePatrol;
    if (nation != NationZero) ShiftFlag = Shifted;  // Quirk 32: even if it was an offensive patrol before.
  }
}

}  // namespace velmoran
