// A RunState as Form_Load leaves it, with a few squadrons and aircraft, and a builder of flights. A test fails if it
// doesn't use up the draws that it scripts.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fakes.h"
#include "state/numbering.h"
#include "state/run_state.h"

using namespace velmoran;
using fakes::Join;
using Longs = std::vector<Long>;

struct Flight {
  Long squad = 11;
  Long type = TypeCAP;
  Longs planes = {0, 0};
  std::vector<Byte> actions = {};  // of its waypoints
  Longs pilots = {};
  Long escorted = 0;
};

class RunTest : public testing::Test {
 protected:
  static constexpr Long German = 11, British = 12, Player = 10, Foreign = 14, Stranger = 50;  // squadrons

  RunTest() {
    fakes::form = {};
    fakes::Script({});
    SetInitialValues(run);
    run.TypeOddsGate = 1;
    run.WarPeriod = 2;
    const auto enlist = [this](Long row, Integer id, Integer nation, const char* name) {
      run.Squadrons[row] = {.squadID = id, .nation = nation, .SquadName = name};
    };
    for (Integer row = 0; row < SquadronsFilled; ++row) enlist(row, static_cast<Integer>(1000 + row), 2, "");
    enlist(1, 10, 1, "Player's Own");
    enlist(2, 11, 0, "Eleventh");
    enlist(3, 12, 1, "Twelfth");
    enlist(4, 14, 4, "Fourteenth");
    for (Integer c = 0; c <= 10; ++c) run.Aircraft[c].AircraftClass = c;  // row and class are the same number
    for (Long row = 0; row < TypesFilled; ++row) run.MissionDefs[row] = {0, 0, 2, 4};
    period.SizeFactor.fill(1);
  }
  ~RunTest() override { EXPECT_EQ(fakes::DrawsLeft(), 0U) << "scripted draws were not made"; }

  MissionRec& Add(const Flight& built) {
    MissionRec& flight = run.Missions[run.LoadedCount];
    flight.FlightID = run.LoadedCount++;
    run.MissionCount = run.LoadedCount;
    flight.SquadID = built.squad;
    flight.MissionType = built.type;
    flight.EscortedFlight = built.escorted;
    flight.NumAircraft = static_cast<Long>(built.planes.size());
    flight.Planes.fill(EmptySlot);
    flight.Pilots.fill(EmptySlot);
    for (Long slot = 0; slot < Slots; ++slot) flight.SlotExtra[slot] = 70 + slot;
    std::copy(built.planes.begin(), built.planes.end(), flight.Planes.begin());
    std::copy(built.pilots.begin(), built.pilots.end(), flight.Pilots.begin());
    for (const Byte action : built.actions) flight.Waypoints[flight.WPCount++].Action = action;
    return flight;
  }
  // A field of all flights, removed ones too.
  Longs All(Long MissionRec::*field) const {
    Longs values;
    for (Long row = 0; row < run.LoadedCount; ++row) values.push_back(run.Missions[row].*field);
    return values;
  }
  Longs RowsInPlay() const {
    Longs rows;
    for (Long row = 0; row < run.LoadedCount; ++row) {
      if (run.Removed[row] == InPlay) rows.push_back(row);
    }
    return rows;
  }
  // A field of all waypoints in use.
  template <class Field>
  Longs Each(Long row, Field WaypointRec::*field) const {
    Longs values;
    for (const WaypointRec& waypoint : Route(run.Missions[row])) values.push_back(waypoint.*field);
    return values;
  }
  Longs Actions(Long row) const { return Each(row, &WaypointRec::Action); }
  Longs Planes(Long row) const { return Used(run.Missions[row].Planes); }
  Longs Pilots(Long row) const { return Used(run.Missions[row].Pilots); }

  std::unique_ptr<RunState> state = std::make_unique<RunState>();
  RunState& run = *state;
  PeriodRec& period = run.Periods[2];  // the current one

 private:
  static Longs Used(const Table<Long, Slots>& slots) {  // up to the last slot that isn't empty
    Longs used(slots.begin(), slots.end());
    while (!used.empty() && used.back() == EmptySlot) used.pop_back();
    return used;
  }
};
