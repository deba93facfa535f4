// What removals mean across escort links, and the new numbers.
#include "massage/escorts.h"

#include "massage/flight_size.h"
#include "massage/sequence.h"
#include "run_test.h"

namespace {

const std::string Lost{PlayerFlightLost};
const std::string Mismatch = "Error: Number of escort missions does not match missions needing escort";

class EscortsTest : public RunTest {
 protected:
  EscortsTest() { run.PlayerFlight = 100; }

  void RemoveAndSettle(std::initializer_list<Integer> rows) {
    for (const Integer row : rows) RemoveFlight(run, row);
    fakes::form.messages.clear();
    ResolveEscorts(run);
    RenumberFlights(run);
    VerifyEscorts(run);
  }
  Longs Ids() const {
    Longs ids;
    for (Long row = 0; row < run.LoadedCount; ++row) ids.push_back(run.Missions[row].FlightID);
    return ids;
  }
  using Messages = std::vector<std::string>;
};

TEST_F(EscortsTest, LinksAndPlayerFollowTheNewNumbers) {
  Add({});
  Add({.type = TypeEscort, .escorted = 3});
  Add({});
  Add({.actions = {10}});
  Add({});
  run.PlayerFlight = 4;
  RemoveAndSettle({0, 2});
  EXPECT_EQ(Ids(), (Longs{0, 0, 2, 1, 2}));  // removed rows keep theirs
  EXPECT_EQ(run.Missions[1].EscortedFlight, 1);
  EXPECT_EQ(run.PlayerFlight, 2);
  EXPECT_EQ(run.MissionCount, 3);
  EXPECT_EQ(run.LoadedCount, 5);
  EXPECT_EQ(fakes::form.messages, Messages{});
}

TEST_F(EscortsTest, LostEscortEndsEveryRendezvousOfItsFlight) {
  Add({.type = TypeEscort, .escorted = 2});
  Add({.type = TypeEscort, .escorted = 2});
  Add({.actions = {10, 4, 10}});
  RemoveAndSettle({0});
  EXPECT_EQ(Actions(2), (std::vector<int>{14, 4, 14}));
  EXPECT_EQ(run.Removed[2], InPlay);
  EXPECT_EQ(fakes::form.messages, Messages{Mismatch});  // the second escort is left over
}

TEST_F(EscortsTest, LostFlightTakesItsEscortsWithIt) {
  Add({.actions = {10, 10}});
  Add({.type = TypeEscort, .actions = {10}, .escorted = 0});  // the player's
  Add({.type = TypeEscort, .escorted = 3});
  Add({.actions = {4}});  // removed without a rendezvous: its escort stays
  Add({});
  run.PlayerFlight = 1;
  RemoveAndSettle({0, 3});
  EXPECT_EQ(Lost, "Velmoran failed: don't freak - happens sometimes.  Play without velmoran or make a new mission");
  EXPECT_EQ(run.Removed[1], TakenOut);
  EXPECT_EQ(run.Removed[2], InPlay);
  EXPECT_EQ(run.Missions[2].EscortedFlight, 0);  // less 3, the flight itself among them
  EXPECT_EQ(run.Missions[1].EscortedFlight, -1);
  EXPECT_EQ(run.LostEscortCount, 0);
  EXPECT_EQ(run.PlayerFlight, 1);
  EXPECT_EQ(Ids(), (Longs{0, 1, 0, 3, 1}));
  EXPECT_EQ(fakes::form.messages, (Messages{Lost, Lost, Mismatch}));
}

TEST_F(EscortsTest, SearchWithoutMatchStaysWithTheRowFoundBefore) {
  Add({.actions = {10}});
  Add({.type = TypeEscort, .escorted = 70});  // no such flight
  Add({.type = TypeEscort, .escorted = 3});
  Add({.actions = {10}});
  Add({.actions = {10}});
  RemoveAndSettle({1, 2});  // 70 works on row 0, then 3 on row 3, which phase three goes on from
  EXPECT_EQ(Actions(0), std::vector<int>{14});
  EXPECT_EQ(Actions(3), std::vector<int>{14});
  EXPECT_EQ(run.Missions[1].EscortedFlight, 68);
  EXPECT_EQ(run.Missions[2].EscortedFlight, 1);
}

TEST_F(EscortsTest, OfSeveralFlightsWithOneNumberTheLastIsFound) {
  Add({.type = TypeEscort, .escorted = 7});
  Add({.actions = {10}}).FlightID = 7;
  Add({.actions = {10}}).FlightID = 7;
  Add({.type = TypeEscort, .escorted = std::numeric_limits<Long>::min()});
  RemoveAndSettle({0});
  EXPECT_EQ(Actions(1), std::vector<int>{10});
  EXPECT_EQ(Actions(2), std::vector<int>{14});
  EXPECT_EQ(run.Missions[3].EscortedFlight, std::numeric_limits<Long>::max());
}

TEST_F(EscortsTest, RenumberingComparesTheRowAndNotTheFlightID) {
  Add({}).FlightID = 8;
  Add({}).FlightID = 0;
  run.Removed[0] = TakenOut;
  for (const Long player : {0, 8, 1}) {
    run.PlayerFlight = player;
    RenumberFlights(run);
    EXPECT_EQ(run.PlayerFlight, player == 1 ? 0 : player);
  }
}

TEST_F(EscortsTest, VerifyNamesEachLinkThatLeadsNowhere) {
  Add({.type = TypeEscort, .actions = {10}, .escorted = 5});
  Add({.type = TypeEscort, .escorted = 3});
  Add({.type = TypeEscort, .escorted = -6});
  Add({.actions = {10, 10}});
  VerifyEscorts(run);
  EXPECT_EQ(fakes::form.messages,
            (Messages{"Error: Escort flight not found : 5", "Error: Escort flight not found : -6"}));
}

// The order of the passes shows in the order of the losses: an escort of nobody works on the flight found before.
TEST_F(EscortsTest, WholeSequence) {
  run.PlayerFlight = 0;
  run.Periods[0].RemoveOdds = 0.5;
  run.MissionDefs[TypeBomb] = {0, 0, 12, 12};
  Add({.squad = Player, .actions = {10}, .pilots = {1, 2}});
  Add({.squad = Player, .type = TypeEscort, .pilots = {3, 4}, .escorted = 99});
  Add({.squad = British, .type = TypeBomb, .planes = {9}});
  Add({.squad = British, .type = TypeEscort, .planes = {9}, .escorted = 4});  // finds no room beside 12 bombers
  Add({.squad = German, .actions = {10}});
  fakes::Script({0, 0, 0, 0, 0, 0.9F, /* the player's squadron */ 0, 0, 0.9F});
  RunMassage(run);
  EXPECT_EQ(Actions(4), std::vector<int>{14});
  EXPECT_EQ(Actions(0), std::vector<int>{10});
  EXPECT_EQ(Ids(), (Longs{0, 1, 1, 3, 2}));
  EXPECT_EQ(run.Missions[0].Waypoints[0].Formation, FormationEchelonLeft);
  EXPECT_EQ(fakes::form.messages, Messages{Mismatch});
}

}  // namespace
