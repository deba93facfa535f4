// Flight sizes, squadron strength and the player's squadron.
#include "massage/flight_size.h"

#include "massage/squadron_strength.h"
#include "run_test.h"

namespace {

class FlightSizeTest : public RunTest {
 protected:
  FlightSizeTest() {
    Add({.squad = Player});  // row 0 is the player's flight
  }
  // The planes of a flight of the given ones after AdjustFlightSize.
  Longs Sized(const Flight& built, std::initializer_list<float> draws) {
    Add(built);
    fakes::Script(draws);
    const Integer row = Narrow(run.LoadedCount - 1);
    AdjustFlightSize(run, row);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
    return Used(run.Missions[row].Planes);
  }
};

TEST_F(FlightSizeTest, DrawsScalesCapsAndFillsSlots) {
  EXPECT_EQ(Sized({.planes = {2, 5, 2, 2, 2, 2}}, {0.75F, 0.5F}), (Longs{2, 5, 2, 2}));  // 3.5: to the even 4
  EXPECT_EQ(Sized({.planes = {2, 5, -1}}, {0.25F, 0.5F}), (Longs{2, 5}));                // 2.5: to the even 2
  EXPECT_EQ(Sized({.planes = {2, -1, 5}}, {0.9F, 0.5F}), (Longs{2, 2, 5, 2}));
  EXPECT_EQ(run.Missions[run.LoadedCount - 1].NumAircraft, 4);
  EXPECT_EQ(Sized({.planes = {-1, 5}}, {0, 0.5F}), (Longs{0, 5}));  // no aircraft: row 0
  run.MissionDefs[TypeCAP] = {0, 0, 8, 8};
  EXPECT_EQ(Sized({.squad = British, .planes = {0}}, {0, 1}).size(), 8U);
  run.Periods[0].SizeFactor = {1.4, 1.4, 1, 1, 0.1};
  EXPECT_EQ(Sized({.squad = British, .planes = {2}}, {0, 1}).size(), 11U);
  EXPECT_EQ(Sized({.squad = British, .planes = {3}}, {0, 1}).size(), 8U);   // not scaled
  EXPECT_EQ(Sized({.squad = Stranger, .planes = {2}}, {0, 1}).size(), 9U);  // nation 0, not the one before
  EXPECT_EQ(Sized({.squad = German, .planes = {2}}, {0, 1}).size(), 9U);    // capped after the factor
  EXPECT_EQ(Sized({.squad = Foreign, .planes = {1}}, {0, 1}).size(), 2U);   // no fewer than 2
  run.MissionDefs[TypeCAP] = {0, 0, 12, 12};
  EXPECT_EQ(Sized({.squad = German, .planes = {6}}, {0, 1}).size(), 9U);
}

TEST_F(FlightSizeTest, RemovesBelowTheOddsButDrawsForEveryClass) {
  run.Periods[0].RemoveOdds = 0.5;
  for (const float draw : {0.499F, 0.5F}) Sized({.planes = {2}}, {0, draw});
  Sized({.planes = {3}}, {0, 0});
  EXPECT_EQ((Longs{run.Removed[1], run.Removed[2], run.Removed[3]}), (Longs{TakenOut, InPlay, InPlay}));
}

TEST_F(FlightSizeTest, SizeOutsideOneToTwelveEndsTheProgram) {
  run.MissionDefs[TypeCAP] = {0, 0, 0, 0};
  EXPECT_THROW(Sized({.planes = {3}}, {0}), fakes::ProgramEnded);
  run.MissionDefs[TypeCAP] = {0, 0, 13, 13};
  EXPECT_THROW(Sized({.squad = British, .planes = {3}}, {0}), fakes::ProgramEnded);
  run.Periods[0].SizeFactor[1] = 1e300;
  EXPECT_THROW(Sized({.squad = British, .planes = {0}}, {0}), fakes::ProgramEnded);
  const std::string text = "Invalid number of planes for flight";
  EXPECT_EQ(fakes::form.messages, (std::vector{text + "1", text + "2", text + "3"}));
}

TEST_F(FlightSizeTest, PlayersSquadronIsOnlyNoted) {
  Add({.squad = Player, .planes = {3, 4}});
  Add({.squad = Player});
  run.PlayerFlight = run.Missions[2].FlightID = 1;
  run.Missions[1].FlightID = 2;
  for (Integer row = 0; row < 3; ++row) AdjustFlightSize(run, row);
  EXPECT_EQ(std::vector(run.SquadFlights.begin(), run.SquadFlights.begin() + 4), (std::vector<Integer>{2, 0, 1, -1}));
  EXPECT_EQ(run.SquadFlightCount, 3);
  EXPECT_EQ(Used(run.Missions[1].Planes), (Longs{3, 4}));
}

TEST_F(FlightSizeTest, RemovalIsNotedForEscortsAndOnceForEachRendezvous) {
  Add({.type = TypeEscort, .actions = {10}, .escorted = 5});
  Add({.actions = {10, 4, 10}});
  Add({.actions = {4}});
  for (const Long row : {1, 2, 3, 1}) RemoveFlight(run, Narrow(row));
  EXPECT_EQ(run.LostEscortCount, 2);
  EXPECT_EQ(run.LostEscortFlights[1], 5);
  EXPECT_EQ(run.LostRendezvousCount, 2);
  EXPECT_EQ(run.LostRendezvousFlights[1], 2);
  EXPECT_TRUE(fakes::form.messages.empty());
  RemoveFlight(run, 0);
  EXPECT_EQ(fakes::form.messages, std::vector{std::string(PlayerFlightLost)});

  run.LostEscortCount = run.LostRendezvousCount = 200;
  EXPECT_THROW(RemoveFlight(run, 2), fakes::ProgramEnded);
  RemoveFlight(run, 1);
  EXPECT_THROW(RemoveFlight(run, 1), fakes::ProgramEnded);
  EXPECT_EQ(run.LostEscortCount + run.LostRendezvousCount, 402);
  EXPECT_EQ(fakes::form.messages.back(),
            "Error # 9 LostEscortFlights has no room for flight 5: it holds 201 already; "
            "the mission file was not changed");
}

class BalanceTest : public RunTest {
 protected:
  // NumAircraft of each row after BalanceSquadrons, -1 for a removed one.
  Longs Balanced() {
    BalanceSquadrons(run);
    Longs sizes;
    for (Long row = 0; row < run.LoadedCount; ++row) {
      sizes.push_back(run.Removed[row] == InPlay ? run.Missions[row].NumAircraft : -1);
    }
    return sizes;
  }
  Longs Planes(std::size_t count) { return Longs(count, 3); }
};

TEST_F(BalanceTest, FirstComeFirstServedUpToTheLimit) {
  Add({.squad = Player, .planes = Planes(12)});
  Add({.squad = Player, .planes = Planes(12)});
  Add({.squad = British, .planes = Planes(8)});
  Add({.squad = German, .planes = Planes(9)});   // exactly its limit
  Add({.squad = British, .planes = Planes(6)});  // cut to the room of 4
  Add({.squad = British, .planes = {}});         // no planes fit any room
  Add({.squad = British, .planes = Planes(1)});
  Add({.squad = German, .planes = Planes(1)});
  EXPECT_EQ(Balanced(), (Longs{12, 12, 8, 9, 4, 0, -1, -1}));
  EXPECT_EQ(Used(run.Missions[4].Planes), (Longs{3, 3, 3, 3}));
  EXPECT_EQ(run.SquadPlanes[British], 12);
  EXPECT_EQ(run.SquadPlanes[Player], 0);
}

TEST_F(BalanceTest, RoomOfMinPlanesRemovesAndRemovedFlightsCountAgain) {
  Add({.squad = Player});
  Add({.squad = British, .planes = Planes(8)});
  Add({.squad = British, .type = TypeEscort, .planes = Planes(6), .escorted = 1});
  run.MissionDefs[TypeEscort].MinPlanes = 4;
  run.Removed[1] = run.Removed[2] = TakenOut;
  EXPECT_EQ(Balanced(), (Longs{2, -1, -1}));
  EXPECT_EQ(run.SquadPlanes[British], 8);
  EXPECT_EQ(run.LostEscortCount, 1);  // noted again
}

TEST_F(BalanceTest, StrangersTakeTheNationOfTheFlightBefore) {
  Add({.squad = Player});
  Add({.squad = Stranger, .planes = Planes(12)});  // nation 0 at first: room 9
  Add({.squad = British});
  Add({.squad = Stranger, .planes = Planes(12)});  // nation 1 now: room 3
  Add({.squad = German});
  run.MissionDefs[TypeBomb].MinPlanes = -9;
  Add({.squad = Stranger, .type = TypeBomb});  // limit 9 again, with 12 granted: room -3
  EXPECT_EQ(Balanced(), (Longs{2, 9, 2, 3, 2, -3}));
  EXPECT_EQ(Used(run.Missions[5].Planes), Longs{});
  EXPECT_EQ(run.SquadPlanes[Stranger], 9);
}

class PlayerSquadronTest : public RunTest {
 protected:
  void Muster(std::vector<Flight> flights, std::initializer_list<float> draws) {
    run.SquadFlightCount = 0;
    for (Flight& flight : flights) {
      flight.squad = Player;
      run.SquadFlights[run.SquadFlightCount++] = Narrow(run.LoadedCount);
      Add(flight);
    }
    fakes::Script(draws);
    AdjustPlayerSquadron(run);
  }
  void ExpectFlight(Long row, Long size, const Longs& planes, const Longs& pilots) {
    SCOPED_TRACE(row);
    EXPECT_EQ(run.Missions[row].NumAircraft, size);
    EXPECT_EQ(Used(run.Missions[row].Planes), planes);
    EXPECT_EQ(Used(run.Missions[row].Pilots), pilots);
  }
};

TEST_F(PlayerSquadronTest, FirstFlightGrowsFromTheTopAndTheLastFallsShort) {
  run.Periods[0].RemoveOdds = 0.5;
  Muster({{.planes = {5, 5, 5}, .pilots = {11, 12, 13}}, {.planes = {5, 5, 7, 7}, .pilots = {21, 22, 23, 24}}},
         {1, 1, 0.5F});
  ExpectFlight(0, 4, {5, 5, 5, 7}, {11, 12, 13, 24});
  ExpectFlight(1, 3, {5, 5, 7}, {21, 22, 23});
  EXPECT_EQ(run.Missions[0].SlotExtra[3], 77);
  EXPECT_EQ(run.Missions[1].SlotExtra[3], EmptySlot);
  EXPECT_EQ(run.Removed[1], InPlay);  // a draw equal to the odds spares it
}

TEST_F(PlayerSquadronTest, KeptPilotMovesToTheLastSlotAndThePoolPaysForHim) {
  run.Periods[0].RemoveOdds = 1;
  Muster({{.planes = {5, 6, 7, 8}, .pilots = {1, 2, 3, 191}},  // cut to 2: the pool of 6 goes down by 3
          {.type = TypeRecon, .planes = {5, 5}, .pilots = {4, 5}}},
         {0, 1, 1});
  ExpectFlight(0, 2, {5, 8}, {1, 191});
  EXPECT_EQ(run.Missions[0].SlotExtra[1], 77);
  ExpectFlight(1, 3, {5, 5, 5}, {4, 5, 5});  // 4 drawn, 3 left; the pair on top still stands in a slot
}

TEST_F(PlayerSquadronTest, ShortPoolServesThePlayerAndRemovesTheRest) {
  run.Periods[0].RemoveOdds = 0.25;
  run.MissionDefs[TypeRecon] = {0, 0, 0, 0};
  run.MissionDefs[TypeBomb] = {0, 0, 1, 1};
  Muster({{.planes = {5}, .pilots = {1}},                                           // 1, below MinPlanes
          {.type = TypeRecon, .planes = {6, 6}, .pilots = {-1, -2}},                // pool empty, MinPlanes 0: size 0
          {.type = TypeBomb, .planes = {6, 6, 6}, .actions = {10}, .pilots = {}}},  // removed as it stands
         {1, 0, 0.26F, 1});
  ExpectFlight(0, 1, {5}, {1});
  ExpectFlight(1, 0, {}, {});
  ExpectFlight(2, 2, {6, 6, 6}, {});
  EXPECT_EQ(run.Removed[0], InPlay);
  EXPECT_EQ(run.Removed[1], TakenOut);  // its draw lay above the odds
  EXPECT_EQ(run.Removed[2], TakenOut);
  EXPECT_EQ(run.LostRendezvousCount, 1);
  EXPECT_TRUE(fakes::form.messages.empty());
}

TEST_F(PlayerSquadronTest, SizesAboveTwelveAndKeptPilotsWithoutARoom) {
  run.Periods[0].RemoveOdds = 1;
  run.MissionDefs[TypeCAP] = {0, 0, 13, 13};
  run.MissionDefs[TypeRecon] = {0, 0, -5, -5};
  Muster({{.planes = Longs(12, 4), .pilots = Longs(12, 8)}, {.type = TypeRecon, .planes = {6}, .pilots = {191}}},
         {0, 0, 1});
  EXPECT_EQ(run.Missions[0].NumAircraft, 13);
  ExpectFlight(1, 0, {}, {});  // size 0: the kept pilot is cut like any other
  // The pool ends below 0 when the kept pilot is moved: the next flight takes that for its size.
  run.PlayerFlight = 2;
  run.MissionDefs[TypeCAP] = {0, 0, 2, 2};
  Muster({{.planes = {4, 4, 4}, .pilots = {1, -1, 191}}, {.type = TypeRecon, .planes = {6}}, {.type = TypeRecon}},
         {0, 0, 1, 0, 1});
  EXPECT_EQ((Longs{run.Missions[2].NumAircraft, run.Missions[3].NumAircraft, run.Missions[4].NumAircraft}),
            (Longs{2, -1, 0}));
  run.MissionDefs[TypeCAP] = {0, 0, 13, 13};
  run.Squadrons[1].nation = 0;
  run.PlayerFlight = 5;
  Muster({{.planes = Longs(12, 4), .pilots = Longs(12, 8)}}, {1});
  EXPECT_EQ(run.Missions[5].NumAircraft, 9);
}

TEST_F(PlayerSquadronTest, WithoutThePlayersFlightSlotZeroIsPassedOver) {
  Add({.squad = Player, .planes = {1}, .pilots = {1}}).FlightID = 99;
  run.SquadFlights[1] = 0;
  run.SquadFlightCount = 2;
  run.MissionDefs[TypeCAP] = {0, 0, 1, 2};
  fakes::Script({1, 0});
  AdjustPlayerSquadron(run);
  ExpectFlight(0, 1, {1}, {1});
}

}  // namespace
