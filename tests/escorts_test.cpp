// What removals mean across escort links, and the new numbers.
#include "massage/escorts.h"

#include <sstream>

#include "massage/removal.h"
#include "massage/renumbering.h"
#include "massage/sequence.h"
#include "run_test.h"

namespace {

using Messages = std::vector<std::string>;
const std::string Lost =
    "Velmoran failed: don't freak - happens sometimes.  Play without velmoran or make a new mission";
const std::string Mismatch = "Error: Number of escort missions does not match missions needing escort";

// Plans are written and shown row by row: a FlightID, for an escort ">" and what it escorts, ":" and the actions of its
// waypoints, "!" when it is out of play.
class EscortsTest : public RunTest {
 protected:
  void Plan(const std::string& rows) {
    std::istringstream words(rows);
    for (Long id = 0; words >> id;) {
      Flight flight;
      if (words.peek() == '>') {
        flight.type = TypeEscort;
        words.ignore() >> flight.escorted;
      }
      for (int action = 0; words.peek() == ':' || words.peek() == ',';) {
        words.ignore() >> action;
        flight.actions.push_back(static_cast<Byte>(action));
      }
      Add(flight).FlightID = id;
    }
  }
  std::string Shown() const {
    std::string shown;
    for (Long row = 0; row < run.LoadedCount; ++row) {
      const MissionRec& flight = run.Missions[row];
      shown += std::to_string(flight.FlightID);
      if (flight.MissionType == TypeEscort) shown += ">" + std::to_string(flight.EscortedFlight);
      if (flight.WPCount > 0) shown += ":" + Actions(row);
      shown += run.Removed[row] == InPlay ? " " : "! ";
    }
    return shown + "player " + std::to_string(run.PlayerFlight) + " of " + std::to_string(run.MissionCount);
  }
  // After the removals and the three passes.
  std::string Settled(Long player, std::initializer_list<Integer> removals) {
    run.PlayerFlight = player;
    for (const Integer row : removals) RemoveFlight(run, row);
    fakes::form.messages.clear();
    ResolveEscorts(run);
    RenumberFlights(run);
    VerifyEscorts(run);
    return Shown();
  }
};

TEST_F(EscortsTest, LinksAndPlayerFollowTheNewNumbers) {
  Plan("0 1>3 2 3:10 4");
  EXPECT_EQ(Settled(4, {0, 2}), "0! 0>1 2! 1:10 2 player 2 of 3");
  EXPECT_EQ(fakes::form.messages, Messages{});
}

TEST_F(EscortsTest, LostEscortEndsEveryRendezvousOfItsFlight) {
  Plan("0>2 1>2 2:10,4,10");
  EXPECT_EQ(Settled(50, {0}), "0>1! 0>1 1:14,4,14 player 50 of 2");
  EXPECT_EQ(fakes::form.messages, Messages{Mismatch});  // the second escort is left over
}

TEST_F(EscortsTest, LostFlightTakesItsEscortsWithIt) {
  Plan("0:10,10 1>0:10 2>3 3:4 4");  // 1 is the player's; 3 goes without a rendezvous, and its escort stays
  EXPECT_EQ(Settled(1, {0, 3}), "0:10,10! 1>-1:10! 0>0 3:4! 1 player 1 of 2");
  EXPECT_EQ(run.LostEscortCount, 0);
  EXPECT_EQ(fakes::form.messages, (Messages{Lost, Lost, Mismatch}));
}

TEST_F(EscortsTest, SearchesTakeTheLastMatchOrStayWithTheRowFoundBefore) {
  // 70 is nobody: its loss works on row 0, and its link later goes by the row that 7 has found.
  Plan("0:10 1>70 2>7 7:10 7:10 5>-2147483648");
  EXPECT_EQ(Settled(0, {1, 2}), "0:14 1>68! 2>5! 1:10 2:14 3>2147483646 player 0 of 4");
}

TEST_F(EscortsTest, RenumberingComparesTheRowAndNotTheFlightID) {
  Plan("8 0");
  EXPECT_EQ(Settled(0, {0}), "8! 0 player 0 of 1");
  EXPECT_EQ(Settled(8, {}), "8! 0 player 8 of 1");
  EXPECT_EQ(Settled(1, {}), "8! 0 player 0 of 1");
}

TEST_F(EscortsTest, VerifyNamesEachLinkThatLeadsNowhere) {
  Plan("0>5 1>3 2>-6 3:10,10,10");
  VerifyEscorts(run);
  EXPECT_EQ(fakes::form.messages,
            (Messages{"Error: Escort flight not found : 5", "Error: Escort flight not found : -6"}));
}

// The order of the passes shows in the order of the losses: an escort of nobody works on the flight found before.
TEST_F(EscortsTest, WholeSequence) {
  run.Periods[0].RemoveOdds = 0.5;
  run.MissionDefs[TypeBomb] = {0, 0, 12, 12};
  Add({.squad = Player, .actions = {10}, .pilots = {1, 2}});
  Add({.squad = Player, .type = TypeEscort, .pilots = {3, 4}, .escorted = 99});
  Add({.squad = British, .type = TypeBomb, .planes = {9}});
  Add({.squad = British, .type = TypeEscort, .planes = {9}, .escorted = 4});  // finds no room beside 12 bombers
  Add({.squad = German, .actions = {10}});
  fakes::Script({0, 0, 0, 0, 0, 0.9F, /* the player's squadron */ 0, 0, 0.9F});
  RunMassage(run);
  EXPECT_EQ(Shown(), "0:10 1>97! 1 3>2! 2:14 player 0 of 3");
  EXPECT_EQ(run.Missions[0].Waypoints[0].Formation, FormationEchelonLeft);
  EXPECT_EQ(fakes::form.messages, Messages{Mismatch});
}

}  // namespace
