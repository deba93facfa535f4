// The strength of whole squadrons, once their flights have been sized one by one.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Grants planes to every squadron but the player's, in table order, up to its limit of 12, or 9 for nation 0: first
// come, first served. A flight that finds too little room is cut to it or removed. Reads Planes and MissionType of
// all rows, the removed ones too; writes SquadPlanes, Planes, NumAircraft, and what RemoveFlight writes. Draws
// nothing.
void BalanceSquadrons(RunState& run);

// Gathers the pilots of the player's squadron, with their planes, into a pool of 13 at most, draws a new size for
// each flight of SquadFlights and hands the pool out, the player's own flight first. Flights that the pool can't
// serve, and others by chance, are removed. Writes NumAircraft, Planes, Pilots, SlotExtra, and what RemoveFlight
// writes. One draw a flight, and a second for each that isn't the player's and has been served.
void AdjustPlayerSquadron(RunState& run);

}  // namespace velmoran
