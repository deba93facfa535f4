// Limits of the player's squadron. data/faults.txt has those of a single flight.
#include "massage/plan_check.h"

#include "run_test.h"
#include "state/failure.h"

namespace {

using PlanCheckTest = RunTest;

std::string Refusal(const RunState& run) {
  try {
    CheckPlan(run);
  } catch (const Failure& failure) {
    return failure.description;
  }
  return "";
}

TEST_F(PlanCheckTest, PlayersSquadronHas12OtherFlightsAnd13Pilots) {
  EXPECT_EQ(Refusal(run), "");  // no flights
  for (int flight = 0; flight < 13; ++flight) Add({.squad = Player, .pilots = {flight}});
  EXPECT_EQ(Refusal(run), "");
  run.Missions[0].Pilots[1] = 0;
  EXPECT_EQ(Refusal(run), "player's squadron: number of pilots 14 is outside 0 to 13");
  run.Missions[1].FlightID = 0;  // of two flights of the player only the last one's pilots count
  EXPECT_EQ(Refusal(run), "");
  for (int flight = 0; flight < 2; ++flight) Add({.squad = Player});
  EXPECT_EQ(Refusal(run), "player's squadron: number of flights beside the player's 13 is outside 0 to 12");
}

}  // namespace
