// The strength of whole squadrons, once each flight has its size.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Limits every squadron but the player's to 12 planes (9 for nation 0), in table order: first come, first served. A
// flight that doesn't fit is cut to the planes that are left, or removed. Reads Planes and MissionType of all rows,
// removed ones too; writes SquadPlanes, Planes, NumAircraft, and what RemoveFlight writes. No draws. Throws
// MassageStopped as RemoveFlight does.
void BalanceSquadrons(RunState& run);

// Puts the pilots of the player's squadron, with their planes, into a pool (at most 13). Draws a new size for each
// flight of SquadFlights, the player's first, and fills its slots from the pool. Removes flights that the pool has too
// few pilots for, and others by chance. Writes NumAircraft, Planes, Pilots, SlotExtra, and what RemoveFlight writes.
// One draw for each flight, and a second unless it is the player's or the pool was too small. Throws MassageStopped as
// RemoveFlight does.
void AdjustPlayerSquadron(RunState& run);

}  // namespace velmoran
