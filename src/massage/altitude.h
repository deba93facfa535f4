// The altitude that a mission flies at, and the bytes that hold it in a waypoint. Altitudes are numbers of the
// simulation and have no unit.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Draws BaseAlt from the band that MissionDefs of MissionType (0 to 20) and Aircraft (row 0 to 50) allow; classes 1
// and 2 have a bias downwards and upwards and draw once more for it. 0, with no draw, for a mission type whose MaxAlt
// is 0: its altitudes stay as they are.
void GetBaseAlt(RunState& run, Integer MissionType, Integer Aircraft, Integer& BaseAlt);

// Stores the altitude (0 to 32767), rounded down to a multiple of 32, in the low 16 bits of AltBytes, in units of 32;
// the high 16 bits stay.
void SetWPAltitude(Long& AltBytes, Integer altitude);

// The altitude that AltBytes holds, whatever its bytes: 0 to 2097120 in steps of 32.
Long GetWPAltitude(Long AltBytes);

// Split a Long into its bytes, the least significant first, and join them again; any value.
void LongtoByte(Long LongVal, Table<Byte, 4>& TargetData);
void ByteToLong(Long& LongVal, const Table<Byte, 4>& SourceData);

}  // namespace velmoran
