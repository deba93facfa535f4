#include "files/mission_file.h"

#include "files/bytes.h"
#include "state/numbering.h"

namespace velmoran {

namespace {

template <class Field, class Run>
constexpr void HeaderFields(Field& field, Run& run) {
  field(run.HeaderBytes);
  field(run.PlayerFlight);
  field(run.HeaderFlag);
}

template <class Field, class Mission>
constexpr void HeadFields(Field& field, Mission& flight) {
  field(flight.FlightID);
  field(flight.SquadID);
  field(flight.Carried8);
  field(flight.FlightType);
  field(flight.HeadLong16);
  field(flight.MissionType);
  field(flight.HeadLong24);
  field(flight.NumAircraft);
  field(flight.Carried32);
  field(flight.Target);
  field(flight.Carried184);
  field(flight.WPCount);
  field(flight.Carried196);
  field(flight.EscortFlag);
  field(flight.Carried208);
}

template <class Field, class Waypoint>
constexpr void WaypointFields(Field& field, Waypoint& waypoint) {
  field(waypoint.WPLong0);
  field(waypoint.Carried4);
  field(waypoint.Lon);
  field(waypoint.Lat);
  field(waypoint.WPLong20);
  field(waypoint.WPBytes);
  field(waypoint.AltBytes);
  field(waypoint.WPByte33);
  field(waypoint.WPByte34);
  field(waypoint.WPByte35);
  field(waypoint.WPLong36);
  field(waypoint.Formation);
  field(waypoint.Action);
  field(waypoint.ActionParam);
}

template <class Field, class Mission>
constexpr void TailFields(Field& field, Mission& flight) {
  field(flight.TailLong);
  field(flight.Planes);
  field(flight.Pilots);
  field(flight.SlotExtra);
}

constexpr std::size_t HeadWidth = [] {
  FieldWidths widths;
  MissionRec flight;
  HeadFields(widths, flight);
  return widths.total;
}();
constexpr std::size_t WaypointWidth = [] {
  FieldWidths widths;
  WaypointRec waypoint;
  WaypointFields(widths, waypoint);
  return widths.total;
}();
constexpr std::size_t TailWidth = [] {
  FieldWidths widths;
  MissionRec flight;
  TailFields(widths, flight);
  return widths.total;
}();
constexpr std::size_t HeaderWidth = 17;  // the header's fields and the count
constexpr std::size_t CountOffset = 13;
constexpr std::size_t LinkWidth = 4;  // EscortedFlight
static_assert(HeadWidth == 216 && WaypointWidth == 46 && TailWidth == 148);

// The reader expects EscortedFlight for any flag but 0; the writer stores it only for a positive flag.
bool LinkIsInFile(const MissionRec& flight) {
  return flight.EscortFlag != 0;
}
bool LinkIsWritten(const MissionRec& flight) {
  return flight.EscortFlag > 0;  // Quirk 18: a negative flag loses its link.
}

// The width of a record without its head, in bytes.
std::size_t BodyWidth(const MissionRec& flight, bool withLink) {
  return (withLink ? LinkWidth : 0) + WaypointWidth * static_cast<std::size_t>(flight.WPCount) + TailWidth;
}

// Checks all records before any is read, so that an invalid file changes nothing.
void CheckImage(const std::vector<Byte>& image, std::string_view file) {
  ByteCursor cursor(image, file);
  const ByteCursor header = cursor;
  const Long count = LongAt(cursor.Take(HeaderWidth, "header") + CountOffset);
  if (count < 0 || count > MissionRows) {
    throw Failure{FailureNumber::OutsideTable,
                  header.Place("header") + ": " + OutsideText("count " + std::to_string(count), 0, MissionRows)};
  }
  MissionRec flight;
  for (Integer row = 0; row < count; ++row) {
    const ByteCursor record = cursor;
    FieldReader head{cursor.Take(HeadWidth, "record", row)};
    HeadFields(head, flight);
    if (flight.WPCount < 0 || flight.WPCount > WaypointRows) {
      throw Failure{FailureNumber::OutsideTable,
                    record.Place("record", row) + ": " +
                        OutsideText("WPCount " + std::to_string(flight.WPCount), 0, WaypointRows)};
    }
    cursor.Take(static_cast<std::int64_t>(BodyWidth(flight, LinkIsInFile(flight))), "record", row);
  }
}

}  // namespace

void ReadMissions(RunState& run, const std::vector<Byte>& image, std::string_view file) {
  CheckImage(image, file);
  FieldReader field{image.data()};
  HeaderFields(field, run);
  field(run.LoadedCount);
  run.MissionCount = run.LoadedCount;
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    MissionRec& flight = run.Missions[row];
    HeadFields(field, flight);
    if (LinkIsInFile(flight)) field(flight.EscortedFlight);  // Quirk 19: else it is 0, even for an escort.
    for (auto& waypoint : Route(flight)) WaypointFields(field, waypoint);
    TailFields(field, flight);
  }
}

std::vector<Byte> ComposeMissionImage(const RunState& run) {
  std::size_t size = HeaderWidth;  // Quirk 20: bytes after the last record are lost.
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    const MissionRec& flight = run.Missions[row];
    size += HeadWidth + BodyWidth(flight, LinkIsWritten(flight));
  }

  std::vector<Byte> image(size);
  FieldWriter field{image.data()};
  HeaderFields(field, run);
  field(run.MissionCount);
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    const MissionRec& flight = run.Missions[row];
    HeadFields(field, flight);
    if (LinkIsWritten(flight)) field(flight.EscortedFlight);
    for (auto& waypoint : Route(flight)) WaypointFields(field, waypoint);
    TailFields(field, flight);
  }
  return image;
}

}  // namespace velmoran
