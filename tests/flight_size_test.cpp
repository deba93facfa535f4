// Flight sizes, removals, squadron strength and the player's squadron.
#include "massage/flight_size.h"

#include "massage/massage_stopped.h"
#include "massage/removal.h"
#include "massage/squadron_strength.h"
#include "run_test.h"

namespace {

class FlightSizeTest : public RunTest {
 protected:
  // Adds the flight and gives it a size. Returns its planes.
  Longs Sized(const Flight& built, std::initializer_list<float> draws) {
    if (run.LoadedCount == 0) Add({.squad = Player});  // row 0 is the player's flight
    MissionRec& flight = Add(built);
    fakes::Script(draws);
    AdjustFlightSize(run, LastRow());
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
    EXPECT_EQ(flight.NumAircraft, static_cast<Long>(Planes(LastRow()).size()));
    return Planes(LastRow());
  }
  Integer LastRow() const { return Narrow(run.LoadedCount - 1); }

  // The message with which removing or sizing the row stops the massage.
  std::string Stopped(void (*pass)(RunState&, Integer), Integer row, MassageStopped::Reason reason) {
    try {
      pass(run, row);
    } catch (const MassageStopped& stopped) {
      EXPECT_TRUE(stopped.reason == reason && stopped.row == row);
      return stopped.message;
    }
    return "not stopped";
  }

  // Runs AdjustPlayerSquadron on these flights alone. The first is the player's.
  void Man(std::vector<Flight> flights, std::initializer_list<float> draws) {
    run.LoadedCount = run.SquadFlightCount = 0;
    run.Missions = {};
    for (Flight& flight : flights) {
      flight.squad = Player;
      run.SquadFlights[run.SquadFlightCount++] = Narrow(run.LoadedCount);
      Add(flight);
    }
    fakes::Script(draws);
    AdjustPlayerSquadron(run);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
  }
};

TEST_F(FlightSizeTest, SizeIsScaledForClasses0To2AndCappedForNation0) {
  EXPECT_EQ(Sized({.planes = {2, 5, 2, 2, 2, 2}}, {0.75F, 1}), (Longs{2, 5, 2, 2}));  // 3.5: to the even 4
  EXPECT_EQ(Sized({.planes = {-1, -1, 5}}, {0.25F, 1}), (Longs{0, 0}));               // 2.5: to the even 2, of row 0
  run.MissionDefs[TypeCAP] = {0, 0, 6, 6};
  period.SizeFactor = {1.75, 1.75, 1, 1, 0.1};
  run.Aircraft[20].AircraftClass = -1;
  EXPECT_EQ(Sized({.squad = British, .planes = {0}}, {0, 1}), Longs(10, 0));  // 10.5: to the even 10
  EXPECT_EQ(Sized({.squad = British, .planes = {2}}, {0, 1}), Longs(10, 2));
  EXPECT_EQ(Sized({.squad = British, .planes = {3}}, {0, 1}), Longs(6, 3));
  EXPECT_EQ(Sized({.squad = British, .planes = {20}}, {0, 1}), Longs(6, 20));
  EXPECT_EQ(Sized({.squad = Stranger, .planes = {2}}, {0, 1}), Longs(9, 2));  // nation 0, not the one before
  EXPECT_EQ(Sized({.squad = Foreign, .planes = {1}}, {0, 1}), Longs(2, 1));   // at least 2
  run.MissionDefs[TypeCAP] = {0, 0, 12, 12};
  EXPECT_EQ(Sized({.squad = German, .planes = {6}}, {0, 1}), Longs(9, 6));  // the cap is for every class
}

TEST_F(FlightSizeTest, DrawBelowTheOddsRemovesClasses0To2) {
  period.RemoveOdds = 0.5;
  run.Aircraft[20].AircraftClass = -1;
  for (const auto& [plane, draw, removed] :
       {std::tuple{0, 0.499F, true}, {2, 0.499F, true}, {2, 0.5F, false}, {3, 0.F, false}, {20, 0.F, false}}) {
    Sized({.planes = {plane}}, {0, draw});
    EXPECT_EQ(run.Removed[LastRow()] == TakenOut, removed) << "class of row " << plane << ", draw " << draw;
  }
}

TEST_F(FlightSizeTest, SizeOutside1To12StopsTheMassage) {
  for (const Long squad : {Player, British, British}) Add({.squad = squad, .planes = {3}}).FlightID += 10;
  run.PlayerFlight = 0;
  for (const auto& [row, size] : {std::pair<Integer, Integer>{1, 0}, {2, 13}}) {
    run.MissionDefs[TypeCAP] = {0, 0, size, size};
    fakes::Script({0});
    EXPECT_EQ(Stopped(AdjustFlightSize, row, MassageStopped::Reason::InvalidSize),
              "Invalid number of planes for flight" + std::to_string(row));
  }
}

TEST_F(FlightSizeTest, PlayersSquadronIsOnlyListedWithThePlayerFirst) {
  for (const Long id : {0, 2, 1}) Add({.squad = Player, .planes = {3, 4}}).FlightID = id;
  run.PlayerFlight = 1;
  for (Integer row = 0; row < 3; ++row) AdjustFlightSize(run, row);
  EXPECT_EQ(Join(run.SquadFlights), "2,0,1,-1,-1,-1,-1,-1,-1,-1,-1,-1,0");
  EXPECT_EQ(All(&MissionRec::NumAircraft), (Longs{2, 2, 2}));
}

TEST_F(FlightSizeTest, RemovalIsListedForEscortsAndOnceForEachRendezvous) {
  run.PlayerFlight = 2;
  Add({.type = TypeEscort, .actions = {ActionRendezvous}, .escorted = 5});
  Add({.actions = {ActionRendezvous, ActionPatrol, ActionRendezvous}});
  Add({.actions = {ActionPatrol}});
  for (const Long row : {0, 1, 2, 0}) RemoveFlight(run, Narrow(row));
  EXPECT_EQ((Longs{run.LostEscortCount, run.LostRendezvousCount}), (Longs{2, 2}));
  EXPECT_EQ((Longs{run.LostEscortFlights[1], run.LostRendezvousFlights[1]}), (Longs{5, 1}));
  EXPECT_EQ(fakes::form.messages, std::vector{std::string(PlayerFlightLost)});

  run.LostRendezvousCount = 200;  // room for one more
  EXPECT_EQ(Stopped(RemoveFlight, 1, MassageStopped::Reason::ListOverflow),
            "Error # 9 LostRendezvousFlights has no room for flight 1: it holds 201 already. The mission file was not "
            "changed. Lower the odds of removal in Velmoran.ini.");
  EXPECT_EQ(run.LostRendezvousCount, 201);
}

TEST_F(FlightSizeTest, RoomForMinPlanesIsTooLittleAndRemovedFlightsCount) {
  Add({.squad = Player});
  Add({.squad = British, .planes = Longs(8, 3)});
  Add({.squad = British, .type = TypeEscort, .planes = Longs(6, 3), .escorted = 1});
  run.MissionDefs[TypeEscort].MinPlanes = 4;
  run.Removed[1] = run.Removed[2] = TakenOut;
  BalanceSquadrons(run);
  EXPECT_EQ(run.SquadPlanes[British], 8);
  EXPECT_EQ(run.LostEscortCount, 1);  // listed again
}

TEST_F(FlightSizeTest, StrangersAreBalancedByTheNationOfTheFlightBefore) {
  Add({.squad = Player});
  Add({.squad = Stranger, .planes = Longs(12, 3)});  // nation 0 at first: 9
  Add({.squad = British});
  Add({.squad = Stranger, .planes = Longs(12, 3)});  // nation 1 now: 3 of 12 are left
  Add({.squad = German});
  run.MissionDefs[TypeBomb].MinPlanes = -9;
  Add({.squad = Stranger, .type = TypeBomb});  // nation 0 again, with 12 granted: 3 too many
  BalanceSquadrons(run);
  EXPECT_EQ(All(&MissionRec::NumAircraft), (Longs{2, 9, 2, 3, 2, -3}));
  EXPECT_EQ(Planes(5), Longs{});
}

TEST_F(FlightSizeTest, PoolIsHandedOutFromItsTop) {
  period.RemoveOdds = 0.5;
  // The player's flight grows, the last one falls short of the same pilots. A draw equal to the odds keeps it.
  Man({{.planes = {5, 5, 5}, .pilots = {11, 12, 13}}, {.planes = {5, 5, 7, 7}, .pilots = {21, 22, 23, 24}}},
      {1, 1, 0.5F});
  EXPECT_EQ(Planes(0), (Longs{5, 5, 5, 7}));
  EXPECT_EQ(Pilots(0), (Longs{11, 12, 13, 24}));
  EXPECT_EQ(Planes(1), (Longs{5, 5, 7}));
  EXPECT_EQ(Pilots(1), (Longs{21, 22, 23}));
  EXPECT_EQ(All(&MissionRec::NumAircraft), (Longs{4, 3}));
  EXPECT_EQ(RowsInPlay(), (Longs{0, 1}));
  EXPECT_EQ((Longs{run.Missions[0].SlotExtra[3], run.Missions[1].SlotExtra[3]}), (Longs{73, EmptySlot}));
}

TEST_F(FlightSizeTest, KeptPilotReplacesTheLastOneAndThePoolPaysAgain) {
  period.RemoveOdds = 0.5;
  Man({{.planes = {5, 6, 7, 8}, .pilots = {1, 2, 3, 191}}, {.planes = {5, 5}, .pilots = {4, 5}}}, {0, 1, 0});
  EXPECT_EQ(Planes(0), (Longs{5, 8}));
  EXPECT_EQ(Pilots(0), (Longs{1, 191}));
  EXPECT_EQ(run.Missions[0].SlotExtra[1], 71);
  // Of 6 pilots, 3 are left for a size of 4. The top one still is in his slot too.
  EXPECT_EQ(Planes(1), (Longs{5, 5, 5}));
  EXPECT_EQ(Pilots(1), (Longs{4, 5, 5}));
}

TEST_F(FlightSizeTest, SlotIsEmptyIfItHasNoPlane) {
  Man({{.planes = {5, -1, 5}, .pilots = {1, 2}}, {.planes = {9, 9}, .pilots = {7, 8}}}, {0.5F, 0});
  EXPECT_EQ(Planes(0), (Longs{5, 9, 5}));
  EXPECT_EQ(Pilots(0), (Longs{1, 8}));
}

TEST_F(FlightSizeTest, PoolOfExactlyTheSizeIsEnough) {
  run.MissionDefs[TypeCAP] = {0, 0, 4, 4};
  period.SizeFactor[1] = 0.5;
  Man({{.planes = {5, 5}, .pilots = {1, 2}}, {.planes = {6, 6}, .pilots = {3, 4}}}, {0, 0, 0});
  EXPECT_EQ(RowsInPlay(), (Longs{0, 1}));  // though 2 is below MinPlanes
}

TEST_F(FlightSizeTest, PlayersSquadronOutsideTheRosterIsOfNation0) {
  run.Squadrons[1].squadID = 999;
  run.MissionDefs[TypeCAP] = {0, 0, 12, 12};
  Man({{.planes = Longs(12, 5), .pilots = Longs(12, 1)}}, {0});
  EXPECT_EQ(run.Missions[0].NumAircraft, 9);
}

TEST_F(FlightSizeTest, ShortPoolServesThePlayerAndRemovesTheRest) {
  period.RemoveOdds = 0.25;
  run.MissionDefs[TypeRecon] = {0, 0, 0, 0};
  run.MissionDefs[TypeBomb] = {0, 0, 1, 1};
  Man({{.planes = {5}, .pilots = {1}},                                           // 1, below MinPlanes
       {.type = TypeRecon, .planes = {6, 6}, .pilots = {-1, -2}},                // 0; its draw is above the odds
       {.type = TypeBomb, .planes = {6, 6, 6}, .actions = {ActionRendezvous}}},  // removed without a draw, slots kept
      {1, 0, 0.26F, 1});
  EXPECT_EQ(RowsInPlay(), Longs{0});
  EXPECT_EQ(All(&MissionRec::NumAircraft), (Longs{1, 0, 2}));
  EXPECT_EQ((Longs{Pilots(0).at(0), run.LostRendezvousCount}), (Longs{1, 1}));
  EXPECT_EQ(Planes(1), Longs{});
  EXPECT_EQ(Planes(2), Longs(3, 6));
}

TEST_F(FlightSizeTest, PlayersSquadronHasNoLimitsOfSize) {
  period.RemoveOdds = 1;
  run.MissionDefs[TypeCAP] = {0, 0, 13, 13};
  run.MissionDefs[TypeRecon] = {0, 0, -5, -5};
  run.MissionDefs[TypeBomb] = {0, 0, 2, 2};
  Man({{.planes = Longs(12, 4), .pilots = Longs(12, 8)}, {.type = TypeRecon, .planes = {6}, .pilots = {191}}},
      {0, 0, 1});
  EXPECT_EQ(run.Missions[0].NumAircraft, 13);
  EXPECT_EQ(Pilots(1), Longs{});  // at size 0 the kept pilot is cut like any other
  // Moving the kept pilot takes the pool below 0, and the next flight takes that for its size.
  Man({{.type = TypeBomb, .planes = {4, 4, 4}, .pilots = {1, -1, 191}}, {.type = TypeRecon}, {.type = TypeRecon}},
      {0, 0, 1, 0, 1});
  EXPECT_EQ(All(&MissionRec::NumAircraft), (Longs{2, -1, 0}));
  EXPECT_EQ(Pilots(0), (Longs{1, 191}));
}

}  // namespace
