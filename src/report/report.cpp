#include "report/report.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "report/names.h"
#include "state/altitude_bytes.h"
#include "state/numbering.h"
#include "state/roster.h"

namespace velmoran {

namespace {

constexpr std::size_t ZoneWidth = 14;
constexpr Long FlightLength = 1024, WaypointLength = 256;  // in characters, enough for most

struct Spaced {  // a number with a space or its minus sign before it and a space after it
  Long number;
};
struct Bare {  // a number without spaces
  Long number;
};
struct Zone {};  // spaces up to the next multiple of ZoneWidth

// Composes the report line by line from texts and numbers, without a string in between.
class ReportText {
 public:
  explicit ReportText(std::size_t expected) { text_.reserve(expected); }

  template <class... Items>
  void Line(const Items&... items) {
    MakeRoom((MaxLength(items) + ... + LineEnd.size()));
    end_ = text_.data() + length_;
    (Put(items), ...);
    Put(LineEnd);
    length_ = static_cast<std::size_t>(end_ - text_.data());
  }
  void BlankLine() { Line(" "); }  // Quirk 69: one space.

  std::string Take() {
    text_.resize(length_);
    return std::move(text_);
  }

 private:
  static constexpr std::string_view LineEnd = "\r\n";
  static constexpr std::size_t MostDigits = 11;  // of a Long, with its sign

  // Grows in large steps, since resize() fills what it adds with zeros.
  void MakeRoom(std::size_t line) {
    constexpr std::size_t Step = 65536;
    if (text_.size() - length_ < line) text_.resize(length_ + line + Step);
  }

  static std::size_t MaxLength(std::string_view text) { return text.size(); }
  static std::size_t MaxLength(Bare) { return MostDigits; }
  static std::size_t MaxLength(Spaced) { return MostDigits + 2; }
  static std::size_t MaxLength(Zone) { return ZoneWidth; }

  void Put(std::string_view text) { end_ = std::ranges::copy(text, end_).out; }
  void Put(Bare bare) { end_ = std::to_chars(end_, end_ + MostDigits, bare.number).ptr; }
  void Put(Spaced spaced) {
    if (spaced.number >= 0) *end_++ = ' ';
    Put(Bare{spaced.number});
    *end_++ = ' ';
  }
  void Put(Zone) {
    const auto column = static_cast<std::size_t>(end_ - text_.data()) - length_;
    end_ = std::fill_n(end_, ZoneWidth - column % ZoneWidth, ' ');
  }

  std::string text_;        // with room at its end
  std::size_t length_ = 0;  // of the lines composed
  char* end_ = nullptr;     // of the line being composed
};

void PutWaypoint(ReportText& text, const WaypointRec& waypoint, Long k) {
  std::string_view name;
  text.Line("    Altitude at Waypoint ", Spaced{k}, ": ", Spaced{GetWPAltitude(waypoint.AltBytes)});
  text.Line("    Lon at Waypoint ", Spaced{k}, ": ", Spaced{waypoint.Lon});
  text.Line("    Lat at Waypoint ", Spaced{k}, ": ", Spaced{waypoint.Lat});
  GetWPAction(waypoint.Action, name);
  text.Line("    Action at Waypoint    ", Spaced{k}, ": ", Spaced{waypoint.Action}, Zone{}, name);
  GetWPFormation(waypoint.Formation, name);
  text.Line("    Formation at Waypoint ", Spaced{k}, ": ", Spaced{waypoint.Formation}, Zone{}, name);
}

void PutFlight(ReportText& text, const RunState& run, const MissionRec& flight) {
  std::string_view name;
  text.Line("Mission:       ", Spaced{flight.FlightID});  // Quirk 70: the same label as the type's.
  GetSquadName(run, flight.SquadID, name);
  text.Line("Squadron:      ", name);
  GetMissionName(flight.MissionType, name);
  text.Line("Mission:       ", name);
  // Quirk 68: Spaced puts the space before the number.
  if (flight.EscortFlag > 0) text.Line("Escorting Flight Number", Spaced{flight.EscortedFlight});
  text.Line("Num Planes:    ", Spaced{flight.NumAircraft});
  text.BlankLine();
  for (Long slot = 0; slot < std::min(flight.NumAircraft, Slots); ++slot) {
    const Long plane = flight.Planes[slot];
    if (plane == EmptySlot) continue;
    const bool known = plane >= 0 && plane < AircraftRows;
    text.Line("    Plane: ", known ? std::string_view(run.Aircraft[plane].AircraftName) : "Unknown");
  }
  text.BlankLine();
  for (const Long pilot : flight.Pilots) {  // Quirk 72: all slots, not only NumAircraft.
    if (pilot != EmptySlot) text.Line("    Pilot: ", Spaced{pilot});
  }
  Long k = 0;
  for (const WaypointRec& waypoint : Route(flight)) PutWaypoint(text, waypoint, ++k);
}

// Calls visit with each flight in play, in table order.
template <class Visit>
void ForEachInPlay(const RunState& run, Visit visit) {
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] == InPlay) visit(run.Missions[row]);
  }
}

void PutSquadrons(ReportText& text, const RunState& run) {
  Table<Integer, SquadronRows> tally{};  // planes, by SquadID
  ForEachInPlay(run, [&](const MissionRec& flight) {
    if (flight.SquadID < 0 || flight.SquadID >= SquadronRows) return;
    Integer& planes = tally[flight.SquadID];
    planes = static_cast<Integer>(std::int64_t{planes} + flight.NumAircraft);
  });

  Integer nation = NationZero;  // if a squadron isn't in the roster, that of the line before
  for (Integer squadID = 0; squadID < SquadronRows - 1; ++squadID) {  // Quirk 74: 200 has no line.
    if (tally[squadID] == 0) continue;
    std::string_view name;
    GetSquadName(run, squadID, name);
    GetNation(run, squadID, nation);
    text.Line("Squadron: ", name, "   ID    : ", Bare{squadID}, "   Nation: ", Bare{nation},
              "   Planes: ", Bare{tally[squadID]});
  }
}

// An estimate, so that the text is seldom reallocated as it grows.
std::size_t ExpectedLength(const RunState& run) {
  Long length = FlightLength;
  ForEachInPlay(run, [&length](const MissionRec& flight) { length += FlightLength + flight.WPCount * WaypointLength; });
  return static_cast<std::size_t>(length);
}

}  // namespace

std::string ComposeReport(const RunState& run) {
  ReportText text(ExpectedLength(run));
  text.Line("Player Flight ID :       ", Spaced{run.PlayerFlight});
  text.Line("Mission Count    :       ", Spaced{run.MissionCount});
  text.BlankLine();
  ForEachInPlay(run, [&](const MissionRec& flight) { PutFlight(text, run, flight); });
  text.BlankLine();
  text.BlankLine();

  ForEachInPlay(run, [&](const MissionRec& flight) {
    if (flight.MissionType != TypeEscort) return;  // Quirk 71: by type, not by EscortFlag.
    text.Line("Mission ", Bare{flight.FlightID}, " Escort Mission for ", Bare{flight.EscortedFlight});
  });
  text.BlankLine();
  ForEachInPlay(run, [&](const MissionRec& flight) {
    for (const WaypointRec& waypoint : Route(flight)) {
      // Quirk 73: a line for each rendezvous.
      if (waypoint.Action == ActionRendezvous) text.Line("Escorted Mission ", Bare{flight.FlightID});
    }
  });
  text.BlankLine();
  text.BlankLine();

  PutSquadrons(text, run);
  text.BlankLine();
  text.BlankLine();

  for (Integer pair = 0; pair < run.GroupPairCount; ++pair) {  // Quirk 75: removed flights too.
    const GroupPairRec& grouped = run.GroupPairs[pair];
    text.Line("Grouped Missions ", Bare{run.Missions[grouped.sourceIndex].FlightID}, " and ",
              Bare{run.Missions[grouped.targetIndex].FlightID});
  }
  return text.Take();
}

}  // namespace velmoran
