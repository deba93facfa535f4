#include "odds/warnings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

#include "massage/altitude.h"
#include "odds/prospects.h"
#include "report/names.h"
#include "state/numbering.h"

namespace velmoran {

namespace {

using std::to_string;
using Prospects = std::vector<Prospect>;

constexpr Long NationColumns = Nations - 1;  // of the setup file
constexpr double LargestScaled = 12.5;       // rounds to 12, the most planes that a flight can have

// "1.6": the shortest decimal that reads as this number.
std::string Number(double value) {
  std::array<char, 32> digits;
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

std::string Item(const char* table, Long row, const char* field) {
  return std::string(table) + " row " + to_string(row) + " " + field;
}

std::string Item(const char* table, Long row, const char* field, Long number) {
  return Item(table, row, field) + " " + to_string(number);
}

// " (CAP)"
std::string Named(Long type) {
  std::string_view name;
  GetMissionName(type, name);
  return " (" + std::string(name) + ")";
}

std::string Flights(const Prospects& flights) {
  return to_string(flights.size()) + (flights.size() == 1 ? " flight" : " flights");
}

struct Warner {
  const RunState& run;
  const Massages& massages;
  const Prospects prospects = Foresee(run);
  std::vector<std::string> warnings = {};

  void Warn(const std::string& text) { warnings.push_back(text); }

  template <class Condition>
  Prospects Select(Condition condition) const {
    Prospects affected;
    std::ranges::copy_if(prospects, std::back_inserter(affected), condition);
    return affected;
  }

  // "365 of 1000 massages"
  template <class Condition>
  std::string Share(Condition condition) const {
    const auto count = std::count_if(massages.outcomes.begin() + 1, massages.outcomes.end(), condition);
    return to_string(count) + " of " + to_string(massages.outcomes.size() - 1) + " massages";
  }
  std::string EndedBy(const Prospects& flights) const {
    return " ends the massage, as in " + Share([&](const Outcome& outcome) {
             return outcome.end == Outcome::End::InvalidSize &&
                    std::ranges::find(flights, outcome.stoppedAt, &Prospect::row) != flights.end();
           });
  }

  // Warns of limits above 12 planes, and of size factors that raise a size above 12.
  void WarnOfTooManyPlanes() {
    for (Long type = 0; type < TypesFilled; ++type) {
      const Prospects affected =
          Select([&](const Prospect& flight) { return LargestSize(run, flight, type) > LargestScaled; });
      if (MostPlanes(type) <= Slots || affected.empty()) continue;
      Warn(PlaneLimit(type, MostPlanes(type)) + ": a flight that gets more than 12 planes" + EndedBy(affected) +
           ". Lower it to 12 or less.");
    }
    for (Long nation = 1; nation < NationColumns; ++nation) {
      Long worst = AnyType;
      const Prospects affected = Select([&](const Prospect& flight) {
        bool tooMany = false;
        for (Long type = 0; type < TypesFilled; ++type) {
          if (flight.nation != nation || MostPlanes(type) > Slots || LargestSize(run, flight, type) <= LargestScaled)
            continue;
          tooMany = true;
          if (worst == AnyType || MostPlanes(type) > MostPlanes(worst)) worst = type;
        }
        return tooMany;
      });
      if (affected.empty()) continue;
      const Long most = MostPlanes(worst);
      Warn(Item("Periods", run.WarPeriod, "SizeFactor", nation) + " is " + Number(SizeFactor(nation)) + ": with " +
           PlaneLimit(worst, most) + ", a flight can get " + to_string(RoundEven(most * SizeFactor(nation))) +
           " planes. More than 12" + EndedBy(affected) + ". Lower the factor to " +
           Number(std::floor(LargestScaled / most * 100) / 100) + " or less.");
    }
  }

  void WarnOfNoPlanes() {
    for (Long type = 0; type < TypesFilled; ++type) {
      const MissionDefRec& def = run.MissionDefs[type];
      const Prospects ending = Select([&](const Prospect& flight) {
        return !flight.inPlayerSquadron && !flight.scaled && flight.stored.Has(type);
      });
      const Prospects mates = Select([&](const Prospect& flight) {
        return flight.inPlayerSquadron && !flight.isPlayerFlight && flight.stored.Has(type);
      });
      const auto isEmptied = [](const Outcome& outcome) { return outcome.hasEmptyFlight; };
      const Long least = std::min(def.MinPlanes, def.MaxPlanes);
      if (least < 1 && !ending.empty()) {
        Warn(PlaneLimit(type, least) + ": a flight that gets 0 planes" + EndedBy(ending) + ". Raise it to 1 or more.");
      } else if (def.MinPlanes < 1 && !mates.empty() && std::ranges::any_of(massages.outcomes, isEmptied)) {
        Warn(PlaneLimit(type, def.MinPlanes) +
             ": a flight of your squadron that finds no pilots left stays in the plan, with "
             "0 planes, as in " +
             Share(isEmptied) + ". Raise it to 1 or more.");
      }
    }
  }

  void WarnOfEscortsLeaving() {
    std::string items;
    Prospects leaving;
    for (Long nation = 0; nation < NationColumns && run.TypeOddsGate == OpenGate; ++nation) {
      const double odds = run.TypeOdds[TypeEscort].Odds[nation];
      const Prospects affected =
          Select([&](const Prospect& flight) { return flight.drawn.Has(TypeEscort) && flight.nation == nation; });
      if (odds <= 0 || affected.empty()) continue;
      items += (items.empty() ? Item("TypeOdds", TypeEscort, "Odds", nation) : ", Odds " + to_string(nation)) + " is " +
               Number(odds);
      leaving.insert(leaving.end(), affected.begin(), affected.end());
    }
    if (items.empty()) return;
    Warn(items + Named(TypeEscort) +
         ": an escort that becomes an Offensive Patrol leaves the flight that waits for it. " + Flights(leaving) +
         " of this plan can do so, and " + Share([](const Outcome& outcome) { return outcome.messages > 0; }) +
         " showed a message. Keep this row at 0.");
  }

  // Warns of odds outside 0 to 1 that affect flights. always and never say what odds above 1 and below 0 do.
  void WarnIfOutside(const std::string& item, double odds, const Prospects& affected, const char* always,
                     const char* never) {
    if ((odds >= 0 && odds <= 1) || affected.empty()) return;
    const bool percent = odds > 1 && odds <= 100;
    Warn(item + " is " + Number(odds) + ", but odds go from 0 to 1: it counts as " + (odds > 1 ? "1: " : "0: ") +
         (odds > 1 ? always : never) + ". It acts on " + Flights(affected) + " of this plan. " +
         (percent ? "For " + Number(odds) + "%, write " + Number(odds / 100) + "." : "Write a number from 0 to 1."));
  }

  void WarnOfRemoveOdds() {
    WarnIfOutside(
        Item("Periods", run.WarPeriod, "RemoveOdds"), run.Periods[run.WarPeriod].RemoveOdds,
        Select([](const Prospect& flight) { return flight.inPlayerSquadron ? !flight.isPlayerFlight : flight.scaled; }),
        "all fighters outside your squadron are taken out, and none in it",
        "all flights of your squadron but your own are taken out, and no others");
  }

  void WarnOfClassOdds() {
    for (Long row = 0; row < ClassOddsRows; ++row) {
      const ClassOddsRec& odds = run.ClassOdds[row];
      const Prospects affected = Select([&](const Prospect& flight) { return flight.classRow == row; });
      WarnIfOutside(Item("ClassOdds", row, "first value"), odds.Recon, affected, "all of these missions become Recon",
                    "none of these missions becomes Recon");
      if (odds.Recon < 1) {
        WarnIfOutside(Item("ClassOdds", row, "second value"), odds.Spotting, affected,
                      "all of these missions that don't become Recon become Spotting",
                      "none of these missions becomes Spotting");
      }
      const bool inside = odds.Recon >= 0 && odds.Recon <= 1 && odds.Spotting >= 0 && odds.Spotting <= 1;
      if (!inside || odds.Recon + odds.Spotting <= 1 || affected.empty()) continue;
      Warn(Item("ClassOdds", row, "first value") + " " + Number(odds.Recon) + " and second value " +
           Number(odds.Spotting) + " are above 1 together: no mission of the " + Flights(affected) +
           " that they act on becomes " + (row == ClassOddsRows - 1 ? "Attack" : "Bomb") + ". Lower one of them.");
    }
  }

  void WarnOfTypeOdds() {
    for (Long type = 0; type < TypesFilled && run.TypeOddsGate == OpenGate; ++type) {
      const bool patrol = type == TypeOffensivePatrol;
      for (Long nation = 0; nation < NationColumns; ++nation) {
        const double odds = run.TypeOdds[type].Odds[nation];
        if (type == TypeEscort && odds > 0) continue;  // has a warning of its own
        const bool moves = nation != NationZero && run.ShiftAxis >= 0 && run.ShiftAxis <= 3;
        const Prospects affected = Select([&](const Prospect& flight) {
          return flight.drawn.Has(type) && flight.nation == nation &&
                 (!patrol || (moves && flight.flight->WPCount > 3));
        });
        WarnIfOutside(
            Item("TypeOdds", type, "Odds", nation) + Named(type), odds, affected,
            patrol ? "all of these patrols move further out" : "all of these missions become Offensive Patrol",
            patrol ? "none of these patrols moves further out" : "none of these missions becomes Offensive Patrol");
      }
    }
  }

  void WarnOfSwappedSizes() {
    for (Long type = 0; type < TypesFilled; ++type) {
      const MissionDefRec& def = run.MissionDefs[type];
      const Prospects affected = Select([&](const Prospect& flight) { return flight.stored.Has(type); });
      if (def.MinPlanes <= def.MaxPlanes || affected.empty()) continue;
      Warn(Item("MissionDefs", type, "MinPlanes") + " " + to_string(def.MinPlanes) + " is above MaxPlanes " +
           to_string(def.MaxPlanes) + Named(type) + ": sizes are drawn between the two all the same, but of the " +
           Flights(affected) +
           " that can fly this mission, more are taken out where their squadron is short. Swap the two.");
    }
  }

  static bool IsSwapped(const auto& row) { return row.MinAlt > row.MaxAlt; }

  // Warns of a row of MissionDefs or Aircraft whose limits are swapped, if it counts for any flight.
  void WarnIfSwapped(const std::string& item, const auto& row, const std::string& label, const Prospects& affected) {
    if (!IsSwapped(row) || affected.empty()) return;
    Warn(item + " " + to_string(row.MinAlt) + " is above MaxAlt " + to_string(row.MaxAlt) + label + ": " +
         Flights(affected) +
         " of this plan can get altitudes up to 1000 below the higher minimum of mission and aircraft. Swap the two.");
  }

  // Warns if all altitudes drawn are above the range of the aircraft (missionAbove) or of the mission.
  void WarnIfApart(Long type, bool missionAbove) {
    const MissionDefRec& def = run.MissionDefs[type];
    Long row = 0, from = 0, to = 0, gap = 0;  // where they are furthest apart
    const Prospects affected = Select([&](const Prospect& flight) {
      const AircraftRec& aircraft = run.Aircraft[flight.aircraft];
      if (!GetsAltitude(run, flight, type) || flight.aircraft >= AircraftFilled || IsSwapped(def) ||
          IsSwapped(aircraft)) {
        return false;
      }
      const Long upper = missionAbove ? def.MinAlt : aircraft.MinAlt;
      const Long lower = missionAbove ? aircraft.MaxAlt : def.MaxAlt;
      const Long top = std::max(upper, Long{RangeFloor}),
                 bottom = std::max(top - SubstituteDepth, Long{SubstituteFloor});
      if (upper <= lower || bottom <= lower) return false;
      if (upper - lower > gap) {
        gap = upper - lower;
        row = flight.aircraft;
        from = bottom;
        to = top;
      }
      return true;
    });
    if (affected.empty()) return;
    const std::string mission =
        Item("MissionDefs", type, missionAbove ? "MinAlt" : "MaxAlt", missionAbove ? def.MinAlt : def.MaxAlt) +
        Named(type);
    const std::string plane = Item("Aircraft", row, missionAbove ? "MaxAlt" : "MinAlt",
                                   missionAbove ? run.Aircraft[row].MaxAlt : run.Aircraft[row].MinAlt);
    Warn((missionAbove ? mission + " is above " + plane : plane + " is above " + mission) +
         ": this aircraft gets altitudes from " + to_string(from) + " to " + to_string(to) +
         ", above the range of the " + (missionAbove ? "aircraft. " : "mission. ") + Flights(affected) +
         " of this plan can have such altitudes. Let the ranges overlap.");
  }

  void WarnOfAltitudes() {
    for (Long type = 0; type < TypesFilled; ++type) {
      WarnIfSwapped(Item("MissionDefs", type, "MinAlt"), run.MissionDefs[type], Named(type),
                    Select([&](const Prospect& flight) { return GetsAltitude(run, flight, type); }));
    }
    for (Long row = 0; row < AircraftFilled; ++row) {
      WarnIfSwapped(Item("Aircraft", row, "MinAlt"), run.Aircraft[row], "", Select([&](const Prospect& flight) {
                      return flight.aircraft == row && GetsAltitude(run, flight, AnyType);
                    }));
    }
    for (Long type = 0; type < TypesFilled; ++type) {
      for (const bool missionAbove : {true, false}) WarnIfApart(type, missionAbove);
    }
  }

 private:
  double SizeFactor(Long nation) const { return run.Periods[run.WarPeriod].SizeFactor[nation]; }

  Long MostPlanes(Long type) const {
    return std::max(run.MissionDefs[type].MinPlanes, run.MissionDefs[type].MaxPlanes);
  }

  // "MissionDefs row 4 MaxPlanes 6 (CAP)": the limit of the mission type that has this value.
  std::string PlaneLimit(Long type, Long value) const {
    return Item("MissionDefs", type, run.MissionDefs[type].MaxPlanes == value ? "MaxPlanes" : "MinPlanes", value) +
           Named(type);
  }
};

}  // namespace

std::vector<std::string> Warnings(const RunState& opened, const Massages& massages) {
  Warner warner{opened, massages};
  warner.WarnOfTooManyPlanes();
  warner.WarnOfNoPlanes();
  warner.WarnOfEscortsLeaving();
  warner.WarnOfRemoveOdds();
  warner.WarnOfClassOdds();
  warner.WarnOfTypeOdds();
  warner.WarnOfSwappedSizes();
  warner.WarnOfAltitudes();
  return warner.warnings;
}

}  // namespace velmoran
