// Flight sizes, squadron strength and the player's squadron.
#include "massage/flight_size.h"

#include "massage/massage_stopped.h"
#include "massage/removal.h"
#include "massage/squadron_strength.h"
#include "run_test.h"

namespace {

class FlightSizeTest : public RunTest {
 protected:
  // The planes of a flight after AdjustFlightSize, and "!" when it is removed.
  std::string Sized(const Flight& built, std::initializer_list<float> draws) {
    if (run.LoadedCount == 0) Add({.squad = Player});  // row 0 is the player's flight
    Add(built);
    fakes::Script(draws);
    const Integer row = Narrow(run.LoadedCount - 1);
    AdjustFlightSize(run, row);
    const MissionRec& flight = run.Missions[row];
    EXPECT_EQ(flight.NumAircraft, static_cast<Long>(Used(flight.Planes).size()));
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
    return Join(Used(flight.Planes)) + (run.Removed[row] == InPlay ? "" : "!");
  }
  // How the massage stops when the work is done.
  template <class Work>
  std::string Stopped(MassageStopped::Reason reason, Integer row, Work work) {
    try {
      work();
    } catch (const MassageStopped& stopped) {
      EXPECT_TRUE(stopped.reason == reason && stopped.row == row) << stopped.message;
      return stopped.message;
    }
    return "not stopped";
  }
  // Size, planes and pilots of each row, "!" when it is removed.
  std::string Shown() const {
    std::string shown;
    for (Long row = 0; row < run.LoadedCount; ++row) {
      const MissionRec& flight = run.Missions[row];
      shown += std::to_string(flight.NumAircraft) + " [" + Join(Used(flight.Planes)) + "] [" +
               Join(Used(flight.Pilots)) + (run.Removed[row] == InPlay ? "] " : "]! ");
    }
    return shown;
  }
  std::string Balanced() {
    BalanceSquadrons(run);
    return Shown();
  }
  // The player's squadron after AdjustPlayerSquadron; the first flight is the player's.
  std::string Manned(std::vector<Flight> flights, std::initializer_list<float> draws) {
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
    return Shown();
  }
};

TEST_F(FlightSizeTest, DrawsScalesCapsAndFillsSlots) {
  EXPECT_EQ(Sized({.planes = {2, 5, 2, 2, 2, 2}}, {0.75F, 0.5F}), "2,5,2,2");  // 3.5: to the even 4
  EXPECT_EQ(Sized({.planes = {2, 5, -1}}, {0.25F, 0.5F}), "2,5");              // 2.5: to the even 2
  EXPECT_EQ(Sized({.planes = {2, -1, 5}}, {0.9F, 0.5F}), "2,2,5,2");
  EXPECT_EQ(Sized({.planes = {-1, 5}}, {0, 0.5F}), "0,5");  // no aircraft: row 0
  run.MissionDefs[TypeCAP] = {0, 0, 6, 6};
  run.Periods[0].SizeFactor = {1.75, 1.75, 1, 1, 0.1};
  EXPECT_EQ(Sized({.squad = British, .planes = {2}}, {0, 1}), "2,2,2,2,2,2,2,2,2,2");  // 10.5: to the even 10
  EXPECT_EQ(Sized({.squad = British, .planes = {3}}, {0, 1}), "3,3,3,3,3,3");          // not scaled
  EXPECT_EQ(Sized({.squad = Stranger, .planes = {2}}, {0, 1}), "2,2,2,2,2,2,2,2,2");   // nation 0, not the one before
  EXPECT_EQ(Sized({.squad = Foreign, .planes = {1}}, {0, 1}), "1,1");                  // no fewer than 2
  run.MissionDefs[TypeCAP] = {0, 0, 12, 12};
  EXPECT_EQ(Sized({.squad = German, .planes = {6}}, {0, 1}), "6,6,6,6,6,6,6,6,6");  // capped in every class
}

TEST_F(FlightSizeTest, RemovesBelowTheOddsButDrawsForEveryClass) {
  run.Periods[0].RemoveOdds = 0.5;
  EXPECT_EQ(Sized({.planes = {2}}, {0, 0.499F}), "2,2!");
  EXPECT_EQ(Sized({.planes = {0}}, {0, 0.5F}), "0,0");
  EXPECT_EQ(Sized({.planes = {3}}, {0, 0}), "3,3");
}

TEST_F(FlightSizeTest, SizeOutsideOneToTwelveStopsTheMassage) {
  const auto stopped = [this](Integer row, Long plane) {
    return Stopped(MassageStopped::Reason::InvalidSize, row,
                   [&] { Sized({.squad = British, .planes = {plane}}, {0}); });
  };
  run.MissionDefs[TypeCAP] = {0, 0, 0, 0};
  EXPECT_EQ(stopped(1, 3), "Invalid number of planes for flight1");
  run.MissionDefs[TypeCAP] = {0, 0, 13, 13};
  EXPECT_EQ(stopped(2, 3), "Invalid number of planes for flight2");
  run.Periods[0].SizeFactor[1] = 1e300;
  EXPECT_EQ(stopped(3, 0), "Invalid number of planes for flight3");
  EXPECT_EQ(fakes::form.messages, std::vector<std::string>{});  // the event shows it
}

TEST_F(FlightSizeTest, PlayersSquadronIsOnlyNotedWithThePlayerFirst) {
  for (const Long id : {0, 2, 1}) Add({.squad = Player, .planes = {3, 4}}).FlightID = id;
  run.PlayerFlight = 1;
  for (Integer row = 0; row < 3; ++row) AdjustFlightSize(run, row);
  EXPECT_EQ(Join(run.SquadFlights), "2,0,1,-1,-1,-1,-1,-1,-1,-1,-1,-1,0");
  EXPECT_EQ(Shown(), "2 [3,4] [] 2 [3,4] [] 2 [3,4] [] ");
}

TEST_F(FlightSizeTest, RemovalIsNotedForEscortsAndOnceForEachRendezvous) {
  run.PlayerFlight = 2;
  Add({.type = TypeEscort, .actions = {10}, .escorted = 5});
  Add({.actions = {10, 4, 10}});
  Add({.actions = {4}});
  for (const Long row : {0, 1, 2, 0}) RemoveFlight(run, Narrow(row));
  EXPECT_EQ((Longs{run.LostEscortCount, run.LostEscortFlights[1]}), (Longs{2, 5}));
  EXPECT_EQ((Longs{run.LostRendezvousCount, run.LostRendezvousFlights[1]}), (Longs{2, 1}));
  EXPECT_EQ(fakes::form.messages, std::vector{std::string(PlayerFlightLost)});

  run.LostEscortCount = run.LostRendezvousCount = 200;
  const auto stopped = [this](Integer row) {
    return Stopped(MassageStopped::Reason::ListOverflow, row, [&] { RemoveFlight(run, row); });
  };
  const std::string full = ": it holds 201 already; the mission file was not changed";
  EXPECT_EQ(stopped(1), "Error # 9 LostRendezvousFlights has no room for flight 1" + full);
  RemoveFlight(run, 0);
  EXPECT_EQ(stopped(0), "Error # 9 LostEscortFlights has no room for flight 5" + full);
  EXPECT_EQ(run.LostEscortCount + run.LostRendezvousCount, 402);
}

TEST_F(FlightSizeTest, SquadronsFillInTableOrderUpToTheirLimit) {
  Add({.squad = Player, .planes = Longs(12, 3)});
  Add({.squad = British, .planes = Longs(8, 3)});
  Add({.squad = German, .planes = Longs(9, 4)});   // exactly its limit
  Add({.squad = British, .planes = Longs(6, 5)});  // cut to the room of 4
  Add({.squad = British, .planes = {}});           // no planes fit any room
  Add({.squad = British, .planes = {6}});
  Add({.squad = German, .planes = {7}});
  EXPECT_EQ(Balanced(),
            "12 [3,3,3,3,3,3,3,3,3,3,3,3] [] 8 [3,3,3,3,3,3,3,3] [] 9 [4,4,4,4,4,4,4,4,4] [] 4 [5,5,5,5] [] 0 [] [] "
            "1 [6] []! 1 [7] []! ");
  EXPECT_EQ(run.SquadPlanes[Player], 0);
}

TEST_F(FlightSizeTest, RoomOfMinPlanesRemovesAndRemovedFlightsCountAgain) {
  Add({.squad = Player});
  Add({.squad = British, .planes = Longs(8, 3)});
  Add({.squad = British, .type = TypeEscort, .planes = Longs(6, 3), .escorted = 1});
  run.MissionDefs[TypeEscort].MinPlanes = 4;
  run.Removed[1] = run.Removed[2] = TakenOut;
  Balanced();
  EXPECT_EQ(run.SquadPlanes[British], 8);
  EXPECT_EQ(run.LostEscortCount, 1);  // noted again
}

TEST_F(FlightSizeTest, StrangersAreBalancedByTheNationOfTheFlightBefore) {
  Add({.squad = Player});
  Add({.squad = Stranger, .planes = Longs(12, 3)});  // nation 0 at first: room 9
  Add({.squad = British});
  Add({.squad = Stranger, .planes = Longs(12, 3)});  // nation 1 now: room 3
  Add({.squad = German});
  run.MissionDefs[TypeBomb].MinPlanes = -9;
  Add({.squad = Stranger, .type = TypeBomb});  // limit 9 again, with 12 granted: room -3
  EXPECT_EQ(Balanced(), "2 [0,0] [] 9 [3,3,3,3,3,3,3,3,3] [] 2 [0,0] [] 3 [3,3,3] [] 2 [0,0] [] -3 [] [] ");
}

TEST_F(FlightSizeTest, PoolIsHandedOutFromItsTop) {
  run.Periods[0].RemoveOdds = 0.5;
  // The player's flight grows, the last one falls short of the same pilots; a draw equal to the odds spares it.
  EXPECT_EQ(
      Manned({{.planes = {5, 5, 5}, .pilots = {11, 12, 13}}, {.planes = {5, 5, 7, 7}, .pilots = {21, 22, 23, 24}}},
             {1, 1, 0.5F}),
      "4 [5,5,5,7] [11,12,13,24] 3 [5,5,7] [21,22,23] ");
  EXPECT_EQ((Longs{run.Missions[0].SlotExtra[3], run.Missions[1].SlotExtra[3]}), (Longs{77, EmptySlot}));
  // The kept pilot moves to the last slot, and the pool of 6 goes down by 3. The next flight draws 4 and finds 3; the
  // pair on top still stands in a slot.
  EXPECT_EQ(
      Manned({{.planes = {5, 6, 7, 8}, .pilots = {1, 2, 3, 191}}, {.planes = {5, 5}, .pilots = {4, 5}}}, {0, 1, 0}),
      "2 [5,8] [1,191] 3 [5,5,5] [4,5,5] ");
  EXPECT_EQ(run.Missions[0].SlotExtra[1], 77);
}

TEST_F(FlightSizeTest, ShortPoolServesThePlayerAndRemovesTheRest) {
  run.Periods[0].RemoveOdds = 0.25;
  run.MissionDefs[TypeRecon] = {0, 0, 0, 0};
  run.MissionDefs[TypeBomb] = {0, 0, 1, 1};
  EXPECT_EQ(Manned({{.planes = {5}, .pilots = {1}},                             // 1, below MinPlanes
                    {.type = TypeRecon, .planes = {6, 6}, .pilots = {-1, -2}},  // size 0; its draw is above the odds
                    {.type = TypeBomb, .planes = {6, 6, 6}, .actions = {10}}},  // removed as it stands, with no draw
                   {1, 0, 0.26F, 1}),
            "1 [5] [1] 0 [] []! 2 [6,6,6] []! ");
  EXPECT_EQ(run.LostRendezvousCount, 1);
}

TEST_F(FlightSizeTest, SizesBeyondTheSlots) {
  run.Periods[0].RemoveOdds = 1;
  run.MissionDefs[TypeCAP] = {0, 0, 13, 13};
  run.MissionDefs[TypeRecon] = {0, 0, -5, -5};
  const Flight twelve{.planes = Longs(12, 4), .pilots = Longs(12, 8)};
  Manned({twelve, {.type = TypeRecon, .planes = {6}, .pilots = {191}}}, {0, 0, 1});
  EXPECT_EQ(run.Missions[0].NumAircraft, 13);
  EXPECT_EQ(Join(Used(run.Missions[1].Pilots)), "");  // size 0: the kept pilot is cut like any other
  run.MissionDefs[TypeBomb] = {0, 0, 2, 2};
  // Moving the kept pilot takes the pool below 0, and the next flight takes that for its size.
  EXPECT_EQ(
      Manned(
          {{.type = TypeBomb, .planes = {4, 4, 4}, .pilots = {1, -1, 191}}, {.type = TypeRecon}, {.type = TypeRecon}},
          {0, 0, 1, 0, 1}),
      "2 [4,4] [1,191] -1 [] [] 0 [] [] ");
  run.Squadrons[1].nation = 0;
  Manned({twelve}, {1});
  EXPECT_EQ(run.Missions[0].NumAircraft, 9);
  run.SquadFlights[0] = -1;  // no flight is the player's: no draw
  AdjustPlayerSquadron(run);
}

}  // namespace
