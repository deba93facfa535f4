#include "odds/warnings.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <charconv>
#include <cmath>

#include "massage/flight_size.h"
#include "report/names.h"
#include "state/numbering.h"
#include "state/roster.h"

namespace velmoran {

namespace {

using std::to_string;
using TypeSet = std::bitset<TypeRows>;

constexpr Long OwnColumns = Nations - 1;  // nations that have a column in the setup file
constexpr double LargestScaled = 12.5;    // rounds to 12

// What the massage can make of a flight.
struct Prospect {
  const MissionRec* flight;
  Integer row;
  Integer nation;
  Integer aircraft;         // row of Aircraft that counts for its mission type and altitude
  bool scaled;              // its size, by SizeFactor; it can also be removed by RemoveOdds
  bool players, playersOwn; // in the player's squadron; the player's own flight
  bool climbs;              // has a waypoint that gets an altitude
  bool redrawn;             // by ClassOdds
  TypeSet drawn;            // mission types before some become offensive patrols
  TypeSet flown;            // those it is worked as: for altitudes
  TypeSet stored;           // those its row can have: for sizes
};
using Prospects = std::vector<Prospect>;

std::size_t Place(Long number) {
  return static_cast<std::size_t>(number);
}

// The row of ClassOdds that counts for the class, or -1.
Long ClassRow(Integer aircraftClass) {
  if (aircraftClass == ClassArmoured) return ClassOddsRows - 1;
  const bool twoSeater = aircraftClass >= ClassFirstTwoSeater && aircraftClass <= ClassLastTwoSeater;
  return twoSeater ? aircraftClass - ClassFirstTwoSeater : -1;
}

// Applies the rules of AlterMissionType to all that can be drawn.
void ForeseeTypes(const RunState& run, Prospect& prospect) {
  const Long type = prospect.flight->MissionType;
  const Integer aircraftClass = run.Aircraft[prospect.aircraft].AircraftClass;
  const Long classRow = ClassRow(aircraftClass);
  prospect.redrawn = aircraftClass == ClassArmoured ||
                     (classRow >= 0 && (type == TypeBomb || type == TypeRecon || type == TypeSpotting));
  if (prospect.redrawn) {
    const ClassOddsRec& odds = run.ClassOdds[classRow];
    const double both = odds.Recon + odds.Spotting;
    prospect.drawn[TypeRecon] = odds.Recon > 0;
    prospect.drawn[TypeSpotting] = std::max(odds.Recon, 0.0) < std::min(both, 1.0);
    prospect.drawn[aircraftClass == ClassArmoured ? TypeAttack : TypeBomb] = std::max(odds.Recon, both) < 1;
  } else if (aircraftClass == ClassAttacker) {
    prospect.drawn[TypeAttack] = prospect.drawn[TypeSpotting] = true;
  } else {
    prospect.drawn[Place(type)] = true;
  }
  for (Long drawn = 0; drawn < TypeRows; ++drawn) {
    if (!prospect.drawn[Place(drawn)]) continue;
    const double odds = run.TypeOddsGate == 0 ? run.TypeOdds[drawn].Odds[prospect.nation] : 0;
    if (odds > 0) prospect.flown[TypeOffensivePatrol] = prospect.stored[TypeOffensivePatrol] = true;
    if (odds >= 1) continue;
    prospect.flown[Place(drawn)] = true;
    prospect.stored[Place(aircraftClass == ClassAttacker ? type : drawn)] = true;
  }
}

Prospects Foresee(const RunState& run) {
  Prospects prospects;
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    const MissionRec& flight = run.Missions[row];
    Prospect prospect{.flight = &flight, .row = row};
    GetNation(run, Narrow(flight.SquadID), prospect.nation);
    prospect.aircraft = flight.NumAircraft >= 1 ? AircraftOf(flight) : Integer{0};
    const Integer aircraftClass = run.Aircraft[AircraftOf(flight)].AircraftClass;
    prospect.scaled = aircraftClass >= 0 && aircraftClass < ClassFirstTwoSeater;
    prospect.players = InPlayerSquadron(run, flight);
    prospect.playersOwn = prospect.players && flight.FlightID == run.PlayerFlight;
    for (Long k = 2; k < flight.WPCount - 1; ++k) {
      const Byte action = flight.Waypoints[k].Action;
      if (action != ActionEscort && action != ActionRendezvous) prospect.climbs = true;
    }
    ForeseeTypes(run, prospect);
    prospects.push_back(prospect);
  }
  return prospects;
}

// "1.6": the shortest decimal that reads as this number.
std::string Number(double value) {
  std::array<char, 32> digits;
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

std::string Item(const char* table, Long row, const char* field) {
  return std::string(table) + " row " + to_string(row) + " " + field;
}

std::string TypeName(Long type) {
  std::string_view name;
  GetMissionName(type, name);
  return std::string(name);
}

std::string Flights(std::int64_t count) {
  return to_string(count) + (count == 1 ? " flight" : " flights");
}

// Collects the warnings about one plan.
struct Warner {
  const RunState& run;
  const Massages& massages;
  const Prospects prospects;
  std::vector<std::string> warnings;

  template <class Met>
  Prospects Those(Met met) const {
    Prospects those;
    std::ranges::copy_if(prospects, std::back_inserter(those), met);
    return those;
  }

  void Warn(const std::string& text) { warnings.push_back(text); }

  // "365 of 1000 massages", counting those that meet the condition.
  template <class Condition>
  std::string Share(Condition condition) const {
    const auto seeds = massages.outcomes.begin() + 1;
    return to_string(std::count_if(seeds, massages.outcomes.end(), condition)) + " of " +
           to_string(massages.outcomes.size() - 1) + " massages";
  }
  std::string ShareEnded(const Prospects& flights) const {
    return Share([&](const Outcome& outcome) {
      return outcome.end == Outcome::End::InvalidSize &&
             std::ranges::find(flights, outcome.stoppedAt, &Prospect::row) != flights.end();
    });
  }

  Long Most(Long type) const { return std::max(run.MissionDefs[type].MinPlanes, run.MissionDefs[type].MaxPlanes); }
  double Factor(Long nation) const { return run.Periods[run.WarPeriod].SizeFactor[nation]; }
  const char* LargerLimit(Long type) const {
    return run.MissionDefs[type].MinPlanes > run.MissionDefs[type].MaxPlanes ? "MinPlanes" : "MaxPlanes";
  }

  // MaxPlanes above 12, and SizeFactors that lift a size above 12; both end a massage.
  void WarnOfLargeSizes() {
    for (Long type = 0; type < TypesFilled; ++type) {
      if (Most(type) <= Slots) continue;
      const Prospects those = Those([&](const Prospect& flight) {
        const double largest = flight.scaled ? Most(type) * Factor(flight.nation) : Most(type);
        return !flight.players && flight.nation != 0 && flight.stored[Place(type)] && largest > LargestScaled;
      });
      if (those.empty()) continue;
      Warn(Item("MissionDefs", type, LargerLimit(type)) + " is " + to_string(Most(type)) + " (" + TypeName(type) +
           "): a flight that gets more than 12 planes ends the massage, as in " + ShareEnded(those) +
           ". Lower it to 12 or less.");
    }
    for (Long nation = 1; nation < OwnColumns; ++nation) {
      Long worst = -1;
      const Prospects those = Those([&](const Prospect& flight) {
        if (flight.players || !flight.scaled || flight.nation != nation) return false;
        bool met = false;
        for (Long type = 0; type < TypesFilled; ++type) {
          const bool tooLarge = Most(type) <= Slots && Most(type) * Factor(nation) > LargestScaled;
          if (!tooLarge || !flight.stored[Place(type)]) continue;
          met = true;
          if (worst < 0 || Most(type) > Most(worst)) worst = type;
        }
        return met;
      });
      if (those.empty()) continue;
      const double limit = std::floor(LargestScaled / static_cast<double>(Most(worst)) * 100) / 100;
      Warn(Item("Periods", run.WarPeriod, "SizeFactor ") + to_string(nation) + " is " + Number(Factor(nation)) +
           ": times " + Item("MissionDefs", worst, LargerLimit(worst)) + ", " + to_string(Most(worst)) +
           ", that makes up to " + to_string(RoundEven(static_cast<double>(Most(worst)) * Factor(nation))) +
           " planes, and more than 12 end the massage, as in " + ShareEnded(those) + ". Lower it to " + Number(limit) +
           " or less.");
    }
  }

  // Whether a flight of the player's squadron can find that the flights before it have taken all pilots.
  bool PilotsCanRunOut(const Prospect& last) const {
    Long pilots = 0, taken = 0;
    for (const Prospect& flight : prospects) {
      if (!flight.players) continue;
      pilots += static_cast<Long>(std::ranges::count_if(flight.flight->Pilots, [](Long pilot) { return pilot >= 0; }));
      if (flight.row >= last.row && !flight.playersOwn) continue;
      Long largest = 0;
      for (Long type = 0; type < TypeRows; ++type) {
        if (flight.stored[Place(type)]) largest = std::max(largest, ScaleFlightSize(run, Most(type), flight.nation));
      }
      taken += CapFlightSize(largest, flight.nation);
    }
    return taken >= pilots;
  }

  void WarnOfNoPlanes() {
    for (Long type = 0; type < TypesFilled; ++type) {
      const MissionDefRec& def = run.MissionDefs[type];
      const bool minimum = def.MinPlanes <= def.MaxPlanes;
      const std::string item = Item("MissionDefs", type, minimum ? "MinPlanes" : "MaxPlanes") + " is " +
                               to_string(std::min(def.MinPlanes, def.MaxPlanes)) + " (" + TypeName(type) + ")";
      const Prospects ended = Those([&](const Prospect& flight) {
        return !flight.players && !flight.scaled && flight.stored[Place(type)];
      });
      const Prospects emptied = Those([&](const Prospect& flight) {
        return flight.players && !flight.playersOwn && flight.stored[Place(type)] && PilotsCanRunOut(flight);
      });
      if (std::min(def.MinPlanes, def.MaxPlanes) < 1 && !ended.empty()) {
        Warn(item + ": a flight that gets 0 planes ends the massage, as in " + ShareEnded(ended) +
             ". Raise it to 1 or more.");
      } else if (def.MinPlanes < 1 && !emptied.empty()) {
        Warn(item + ": a flight of your squadron that finds no pilots left stays in the plan, with 0 planes. Raise it "
                    "to 1 or more.");
      }
    }
  }

  void WarnOfEscortsLeaving() {
    for (Long nation = 0; nation < OwnColumns && run.TypeOddsGate == 0; ++nation) {
      const double odds = run.TypeOdds[TypeEscort].Odds[nation];
      const auto those = Those(
          [&](const Prospect& flight) { return flight.drawn[TypeEscort] && flight.nation == nation; });
      if (odds <= 0 || those.empty()) continue;
      Warn(Item("TypeOdds", TypeEscort, "Odds ") + to_string(nation) + " is " + Number(odds) +
           " (Escort): an escort that becomes an Offensive Patrol leaves the flight that waits for it. " +
           Flights(std::ssize(those)) + " can do so, and " +
           Share([](const Outcome& outcome) { return outcome.messages > 0; }) + " show a message. Set it to 0.");
    }
  }

  // Odds outside 0 to 1, which act on count flights. effects says what happens if they always or never come true.
  void WarnOutside(const std::string& item, double odds, std::int64_t count, const char* always, const char* never) {
    if ((odds >= 0 && odds <= 1) || count == 0) return;
    const bool percent = odds > 1 && odds <= 100;
    Warn(item + " is " + Number(odds) + ", but odds go from 0 to 1: it counts as " + (odds > 1 ? "1, and " : "0, and ") +
         (odds > 1 ? always : never) + " (" + Flights(count) + " of this plan). " +
         (percent ? "If " + Number(odds) + " % was meant, write " + Number(odds / 100) + "."
                  : "Write a number from 0 to 1."));
  }

  void WarnOfOddsOutside() {
    const std::string period = Item("Periods", run.WarPeriod, "RemoveOdds");
    const double removeOdds = run.Periods[run.WarPeriod].RemoveOdds;
    const auto removable = Those([](const Prospect& flight) {
      return flight.players ? !flight.playersOwn : flight.scaled;
    });
    WarnOutside(period, removeOdds, std::ssize(removable),
                "every flight of the classes 0 to 2 outside your squadron is taken out",
                "every flight of your squadron but your own is taken out, and no other flight");
    for (Long row = 0; row < ClassOddsRows; ++row) {
      const ClassOddsRec& odds = run.ClassOdds[row];
      const auto count = std::ssize(Those([&](const Prospect& flight) {
        return flight.redrawn && ClassRow(run.Aircraft[flight.aircraft].AircraftClass) == row;
      }));
      WarnOutside(Item("ClassOdds", row, "first value"), odds.Recon, count, "every mission that is redrawn becomes Recon",
                  "none that is redrawn becomes Recon, and fewer become Spotting");
      if (odds.Recon < 1) {
        WarnOutside(Item("ClassOdds", row, "second value"), odds.Spotting, count,
                    "every mission that doesn't become Recon becomes Spotting", "none that is redrawn becomes Spotting");
      }
      const bool inside = odds.Recon >= 0 && odds.Recon <= 1 && odds.Spotting >= 0 && odds.Spotting <= 1;
      if (!inside || odds.Recon + odds.Spotting <= 1 || count == 0) continue;
      Warn(Item("ClassOdds", row, "first value") + " " + Number(odds.Recon) + " and second value " +
           Number(odds.Spotting) + " are above 1 together: none of the " + Flights(count) +
           " of this plan that they redraw becomes " + (row == ClassOddsRows - 1 ? "Attack" : "Bomb") +
           ". Lower one of them.");
    }
    for (Long type = 0; type < TypesFilled && run.TypeOddsGate == 0; ++type) {
      for (Long nation = 0; nation < OwnColumns; ++nation) {
        const double odds = run.TypeOdds[type].Odds[nation];
        if (type == TypeEscort && odds > 0) continue;  // a warning of its own
        const bool patrol = type == TypeOffensivePatrol;
        const bool shifts = nation != 0 && run.ShiftAxis >= 0 && run.ShiftAxis <= 3;
        const auto those = Those([&](const Prospect& flight) {
          return flight.drawn[Place(type)] && flight.nation == nation &&
                 (!patrol || (shifts && flight.flight->WPCount > 3));
        });
        WarnOutside(Item("TypeOdds", type, "Odds ") + to_string(nation), odds, std::ssize(those),
                    patrol ? "every such patrol is moved further out" : "every such mission becomes an Offensive Patrol",
                    patrol ? "no such patrol is moved further out" : "no such mission becomes an Offensive Patrol");
      }
    }
  }
};

}  // namespace

std::vector<std::string> Warnings(const RunState& opened, const Massages& massages) {
  Warner warner{.run = opened, .massages = massages, .prospects = Foresee(opened), .warnings = {}};
  warner.WarnOfLargeSizes();
  warner.WarnOfNoPlanes();
  warner.WarnOfEscortsLeaving();
  warner.WarnOfOddsOutside();
  return warner.warnings;
}

}  // namespace velmoran
