// The simulation's numbers for mission types, waypoint actions and formations, and the other values that the massage
// distinguishes. report/names.cpp has the names that a report prints for them.
#pragma once

#include "state/types.h"

namespace velmoran {

inline constexpr Integer TypeBomb = 0;
inline constexpr Integer TypeRecon = 1;
inline constexpr Integer TypeAttack = 2;
inline constexpr Integer TypeSpotting = 3;
inline constexpr Integer TypeCAP = 4;
inline constexpr Integer TypeBarragePatrol = 5;
inline constexpr Integer TypeBalloonBust = 6;
inline constexpr Integer TypeEscort = 7;
inline constexpr Integer TypeBalloonDefense = 8;
inline constexpr Integer TypeInfantryDefense = 9;
inline constexpr Integer TypeAttackSupport = 10;
inline constexpr Integer TypeBarrageSupport = 11;
inline constexpr Integer TypeOffensivePatrol = 12;
inline constexpr Integer TypeLoneWolf = 13;

inline constexpr Byte ActionIngress = 0;
inline constexpr Byte ActionEgress = 1;
inline constexpr Byte ActionEscort = 2;
inline constexpr Byte ActionAttackTarget = 3;
inline constexpr Byte ActionPatrol = 4;
inline constexpr Byte ActionDefendBalloon = 5;
inline constexpr Byte ActionPatrolFront = 6;
inline constexpr Byte ActionDefendInfantry = 7;
inline constexpr Byte ActionSupportAttack = 8;
inline constexpr Byte ActionLoiter = 9;
inline constexpr Byte ActionRendezvous = 10;
inline constexpr Byte ActionTakeoff = 11;
inline constexpr Byte ActionLand = 12;
inline constexpr Byte ActionRecon = 13;
inline constexpr Byte ActionNavigate = 14;
inline constexpr Byte NoAction = 255;  // for a mission type without an action of its own; never stored in a file

inline constexpr Byte FormationEchelonRight = 0;
inline constexpr Byte FormationEchelonLeft = 1;
inline constexpr Byte FormationVee = 2;
inline constexpr Byte FormationDiamond = 3;
inline constexpr Byte FormationWedge = 4;
inline constexpr Byte FormationDelta = 5;
inline constexpr Byte FormationVic = 6;
inline constexpr Byte FormationJavelin = 7;
inline constexpr Byte FormationJavelin2 = 8;
inline constexpr Byte FormationInTrail = 9;
inline constexpr Byte FormationLowAlt = 11;
inline constexpr Byte FormationEscort = 14;
inline constexpr Byte FormationSmallEscort = 15;
inline constexpr Byte FormationLowAltVic = 16;

// Classes of aircraft.
inline constexpr Integer ClassLowFlyer = 1;
inline constexpr Integer ClassHighFlyer = 2;
inline constexpr Integer ClassFirstTwoSeater = 3;
inline constexpr Integer ClassLastTwoSeater = 6;
inline constexpr Integer ClassAttacker = 7;
inline constexpr Integer ClassArmoured = 8;

// Whether flights of the class are scaled by the war period and removed by chance: classes 0 to 2.
constexpr bool IsScaledClass(Integer aircraftClass) {
  return aircraftClass >= 0 && aircraftClass < ClassFirstTwoSeater;
}

constexpr bool IsTwoSeaterClass(Integer aircraftClass) {
  return aircraftClass >= ClassFirstTwoSeater && aircraftClass <= ClassLastTwoSeater;
}

inline constexpr Integer NationZero = 0;        // allowed fewer planes than the others; its flights are never moved
inline constexpr Long NationZeroMaxPlanes = 9;  // in a flight, and in all flights of a squadron together
inline constexpr Long SquadronMaxPlanes = 12;   // in all flights of a squadron of any other nation together

inline constexpr Integer OpenGate = 0;    // TypeOddsGate: missions may become offensive patrols
inline constexpr Long FlightTypeTwo = 2;  // the one FlightType that has formations of its own

inline constexpr Long EmptySlot = -1;     // in Planes, Pilots and SlotExtra
inline constexpr Long KeptPilotID = 191;  // the pilot who is never cut from his flight

inline constexpr Integer InPlay = 0;  // values of Removed
inline constexpr Integer TakenOut = -1;

}  // namespace velmoran
