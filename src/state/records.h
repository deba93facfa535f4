// A flight and its waypoints, as the mission file stores them. Comments give a field's offset in its record in the
// file, in bytes from 0. Carried bytes, and the fields whose names say no more than their place (HeadLong16, WPByte33,
// TailLong), are not interpreted: they are written back as they were read, and grouping copies some of them.
// files/mission_file.cpp lists the fields in file order.
#pragma once

#include <algorithm>
#include <span>

#include "state/types.h"

namespace velmoran {

inline constexpr Long MissionRows = 201;
inline constexpr Long WaypointRows = 31;
inline constexpr Long Slots = 12;

struct WaypointRec {
  Long WPLong0 = 0;           // 0
  Table<Byte, 8> Carried4{};  // 4
  Long Lon = 0;               // 12: no unit
  Long Lat = 0;               // 16: no unit
  Long WPLong20 = 0;          // 20
  Table<Byte, 5> WPBytes{};   // 24
  Long AltBytes = 0;          // 29: the low 16 bits hold the altitude divided by 32, no unit
  Byte WPByte33 = 0;          // 33
  Byte WPByte34 = 0;          // 34
  Byte WPByte35 = 0;          // 35
  Long WPLong36 = 0;          // 36
  Byte Formation = 0;         // 40: state/numbering.h
  Byte Action = 0;            // 41: state/numbering.h
  Long ActionParam = 0;       // 42: set for Loiter, no unit
};

struct MissionRec {
  Long FlightID = 0;                             // 0: the row's number in Missions from load until RenumberFlights
  Long SquadID = 0;                              // 4: key of the roster
  Table<Byte, 4> Carried8{};                     // 8
  Long FlightType = 0;                           // 12: affects formations
  Long HeadLong16 = 0;                           // 16
  Long MissionType = 0;                          // 20: state/numbering.h
  Long HeadLong24 = 0;                           // 24
  Long NumAircraft = 0;                          // 28: planes of the flight
  Table<Byte, 148> Carried32{};                  // 32
  Long Target = 0;                               // 180
  Table<Byte, 8> Carried184{};                   // 184
  Long WPCount = 0;                              // 192: waypoints in use, 0 to 31
  Table<Byte, 8> Carried196{};                   // 196
  Long EscortFlag = 0;                           // 204: not 0 if the file has EscortedFlight
  Table<Byte, 8> Carried208{};                   // 208
  Long EscortedFlight = 0;                       // 216, if present: FlightID of the flight that this one escorts
  Table<WaypointRec, WaypointRows> Waypoints{};  // the file has WPCount of them
  Long TailLong = 0;                             // after the waypoints
  Table<Long, Slots> Planes{};                   // rows of Aircraft; EmptySlot in an empty slot
  Table<Long, Slots> Pilots{};                   // pilot ids; EmptySlot in an empty slot
  Table<Long, Slots> SlotExtra{};
};

// The waypoints in use, in order. Requires WPCount in 0 to 31.
inline std::span<WaypointRec> Route(MissionRec& flight) {
  return std::span(flight.Waypoints).first(static_cast<std::size_t>(flight.WPCount));
}
inline std::span<const WaypointRec> Route(const MissionRec& flight) {
  return std::span(flight.Waypoints).first(static_cast<std::size_t>(flight.WPCount));
}

// The row of Aircraft in slot 0 of Planes, or 0 if the slot is empty.
inline Integer AircraftOf(const MissionRec& flight) {
  return Narrow(std::max<Long>(flight.Planes[0], 0));
}

}  // namespace velmoran
