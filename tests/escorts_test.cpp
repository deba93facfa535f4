// What removals mean for escorts and the flights that they escort, and the new numbers.
#include "massage/escorts.h"

#include "massage/removal.h"
#include "massage/renumbering.h"
#include "massage/sequence.h"
#include "run_test.h"

namespace {

using Messages = std::vector<std::string>;
const std::string Lost =
    "Velmoran failed: don't freak - happens sometimes.  Play without velmoran or make a new mission";
const std::string Mismatch = "Error: Number of escort missions does not match missions needing escort";

class EscortsTest : public RunTest {
 protected:
  MissionRec& AddEscortOf(Long flightID) { return Add({.type = TypeEscort, .escorted = flightID}); }
  MissionRec& AddMeeting(const std::vector<Byte>& actions = {ActionRendezvous}) { return Add({.actions = actions}); }

  // Removes the rows, then runs the three passes. Returns the messages of the passes.
  Messages AfterRemoving(std::initializer_list<Integer> rows) {
    for (const Integer row : rows) RemoveFlight(run, row);
    fakes::form.messages.clear();
    ResolveEscorts(run);
    RenumberFlights(run);
    VerifyEscorts(run);
    return fakes::form.messages;
  }
};

TEST_F(EscortsTest, LostFlightTakesItsEscortsWithIt) {
  AddMeeting({ActionRendezvous, ActionRendezvous});
  AddEscortOf(0).Waypoints[0].Action = ActionRendezvous;
  AddEscortOf(3);
  AddMeeting({ActionPatrol});  // no rendezvous, so its escort stays
  Add({});
  run.PlayerFlight = 1;
  EXPECT_EQ(AfterRemoving({0, 3}), (Messages{Lost, Lost, Mismatch}));
  EXPECT_EQ(RowsInPlay(), (Longs{2, 4}));
  EXPECT_EQ((Longs{run.Missions[1].EscortedFlight, run.Missions[2].EscortedFlight}), (Longs{-1, 0}));
  EXPECT_EQ(run.LostEscortCount, 0);  // no cascade
  EXPECT_EQ(run.PlayerFlight, 1);
}

TEST_F(EscortsTest, SearchTakesTheLastMatchOrElseTheRowFoundBefore) {
  AddMeeting();
  AddEscortOf(70);  // nobody: works on row 0 first, later on the last row found
  AddEscortOf(7);
  AddMeeting().FlightID = 7;
  AddMeeting({ActionRendezvous, ActionPatrol, ActionRendezvous}).FlightID = 7;
  AddEscortOf(-2147483648);
  AfterRemoving({1, 2});
  EXPECT_EQ((Longs{Actions(0)[0], Actions(3)[0]}), (Longs{ActionNavigate, ActionRendezvous}));
  EXPECT_EQ(Actions(4), (Longs{ActionNavigate, ActionPatrol, ActionNavigate}));
  EXPECT_EQ((Longs{run.Missions[1].EscortedFlight, run.Missions[2].EscortedFlight, run.Missions[5].EscortedFlight}),
            (Longs{68, 5, 2147483646}));
}

TEST_F(EscortsTest, PlayerFlightIsRenumberedByItsRow) {
  Add({}).FlightID = 8;
  Add({}).FlightID = 0;
  RemoveFlight(run, 0);
  for (const auto& [before, after] : {std::pair<Long, Long>{0, 0}, {8, 8}, {1, 0}}) {
    run.PlayerFlight = before;
    RenumberFlights(run);
    EXPECT_EQ(run.PlayerFlight, after) << before;
  }
}

TEST_F(EscortsTest, EachLinkToNoRendezvousIsReported) {
  for (const Long flightID : {5, 3, -6}) AddEscortOf(flightID);
  AddMeeting({ActionRendezvous, ActionRendezvous, ActionRendezvous});
  VerifyEscorts(run);
  EXPECT_EQ(fakes::form.messages,
            (Messages{"Error: Escort flight not found : 5", "Error: Escort flight not found : -6"}));
}

// An escort of nobody works on the flight found before, so the order of the losses shows the order of the passes.
TEST_F(EscortsTest, WholeSequence) {
  period.RemoveOdds = 0.5;
  run.MissionDefs[TypeBomb] = {0, 0, 12, 12};
  Add({.squad = Player, .actions = {ActionRendezvous}, .pilots = {1, 2}});
  Add({.squad = Player, .type = TypeEscort, .pilots = {3, 4}, .escorted = 99});
  Add({.squad = British, .type = TypeBomb, .planes = {9}});
  Add({.squad = British,
       .type = TypeEscort,
       .planes = {9},
       .actions = {ActionLand},
       .escorted = 4});  // no room beside 12 bombers
  Add({.squad = German, .actions = {ActionRendezvous}});
  fakes::Script({0, 0, 0, 0, 0, 0.9F, /* the player's squadron */ 0, 0, 0.9F});
  RunMassage(run);
  EXPECT_EQ(fakes::form.messages, Messages{Mismatch});
  EXPECT_EQ(RowsInPlay(), (Longs{0, 2, 4}));
  EXPECT_EQ(All(&MissionRec::FlightID), (Longs{0, 1, 1, 3, 2}));
  EXPECT_EQ((Longs{run.Missions[1].EscortedFlight, run.Missions[3].EscortedFlight}), (Longs{97, 2}));
  EXPECT_EQ((Longs{Actions(0)[0], Actions(4)[0]}), (Longs{ActionRendezvous, ActionNavigate}));
  EXPECT_EQ(run.Missions[0].Waypoints[0].Formation, FormationEchelonLeft);
  EXPECT_EQ(run.Missions[3].Waypoints[0].Formation, 0);  // kept: the flight is removed
}

}  // namespace
