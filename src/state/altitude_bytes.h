// The altitude in a waypoint's AltBytes. Altitudes are numbers of the simulation and have no unit.
#pragma once

#include "state/types.h"

namespace velmoran {

// Stores the altitude (0 to 32767), rounded down to a multiple of 32, in the low 16 bits of AltBytes, in units of 32.
// Leaves the high 16 bits unchanged.
void SetWPAltitude(Long& AltBytes, Integer altitude);

// The altitude in AltBytes, for any AltBytes: 0 to 2097120 in steps of 32.
Long GetWPAltitude(Long AltBytes);

// Split a Long into its bytes, the least significant first, and join them again; any value.
void LongtoByte(Long LongVal, Table<Byte, 4>& TargetData);
void ByteToLong(Long& LongVal, const Table<Byte, 4>& SourceData);

}  // namespace velmoran
