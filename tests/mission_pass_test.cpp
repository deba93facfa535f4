// Mission types, altitudes, positions and actions: the first pass, which goes flight by flight.
#include "massage/mission_pass.h"

#include "massage/altitude.h"
#include "massage/mission_type.h"
#include "massage/waypoint.h"
#include "run_test.h"

namespace {

class MissionTest : public RunTest {
 protected:
  // AlterMissionType of a flight: the working type, the row's type, ShiftFlag. Class and row of Aircraft are the same.
  Longs Altered(Integer aircraftClass, Long squad, Integer type, std::initializer_list<float> draws) {
    run.LoadedCount = 0;
    Add({.squad = squad, .type = type});
    fakes::Script(draws);
    Integer flag = 5, working = type;
    AlterMissionType(run, 0, aircraftClass, Narrow(squad), flag, working);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
    return {working, run.Missions[0].MissionType, flag};
  }
};

TEST_F(MissionTest, ClassRuleDrawsOnceWhereItApplies) {
  for (const Long row : {1, 2, 3, 4}) run.ClassOdds[row] = {0.3 + row / 100.0, 0.2, 0.9};
  run.ClassOdds[0] = {0.25, 0.25, 0.9};
  const struct {
    Integer aircraftClass, type;
    float draw;
    Long working, ofRow;
  } cases[] = {
      {3, TypeBomb, 0.249F, TypeRecon, TypeRecon},
      {3, TypeBomb, 0.25F, TypeSpotting, TypeSpotting},
      {3, TypeRecon, 0.5F, TypeBomb, TypeBomb},              // equal to the sum
      {4, TypeSpotting, 0.31F, TypeSpotting, TypeSpotting},  // in single precision it is above 0.31
      {5, TypeBomb, 0.32F, TypeRecon, TypeRecon},            // and this below 0.32
      {6, TypeBomb, 0.325F, TypeRecon, TypeRecon},
      {8, TypeEscort, 0.335F, TypeRecon, TypeRecon},
      {8, TypeLoneWolf, 0.6F, TypeAttack, TypeAttack},
      {7, TypeEscort, 0.75F, TypeAttack, TypeEscort},  // the row keeps its type
      {7, TypeBomb, 0.8F, TypeSpotting, TypeBomb},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Altered(c.aircraftClass, British, c.type, {c.draw}), (Longs{c.working, c.ofRow, NotShifted}))
        << "class " << c.aircraftClass << ", draw " << c.draw;
  }
  EXPECT_EQ(Altered(3, British, TypeAttack, {}), (Longs{TypeAttack, TypeAttack, NotShifted}));
  for (const Integer idle : std::vector<Integer>{0, 1, 2, 9, 10}) {
    EXPECT_EQ(Altered(idle, British, TypeBomb, {}), (Longs{TypeBomb, TypeBomb, NotShifted})) << idle;
  }
}

TEST_F(MissionTest, ConversionDrawsAtAnyOddsAndShiftsAllButNationZero) {
  run.TypeOddsGate = 0;
  run.TypeOdds[TypeCAP].Odds = {0.5, 0.5, 0, 0, 0};
  run.TypeOdds[TypeSpotting].Odds[1] = run.TypeOdds[TypeOffensivePatrol].Odds[1] = 1;
  const Longs converted{TypeOffensivePatrol, TypeOffensivePatrol, Shifted},
      convertedInPlace{TypeOffensivePatrol, TypeOffensivePatrol, NotShifted}, kept{TypeCAP, TypeCAP, NotShifted};
  EXPECT_EQ(Altered(0, British, TypeCAP, {0.4F}), converted);
  EXPECT_EQ(Altered(0, British, TypeCAP, {0.5F}), kept);
  EXPECT_EQ(Altered(0, German, TypeCAP, {0.4F}), convertedInPlace);
  EXPECT_EQ(Altered(0, Stranger, TypeCAP, {0.4F}), convertedInPlace);  // outside the roster: nation 0
  EXPECT_EQ(Altered(0, British, TypeOffensivePatrol, {0}), converted);
  EXPECT_EQ(Altered(0, Foreign, TypeCAP, {0}), kept);                 // odds of 0: drawn, and never won
  EXPECT_EQ(Altered(7, British, TypeBomb, {0.9F, 0.9F}), converted);  // by the type that class 7 leaves
  for (const Integer closed : std::vector<Integer>{1, -1}) {
    run.TypeOddsGate = closed;
    EXPECT_EQ(Altered(0, British, TypeCAP, {}), kept);
  }
}

TEST_F(MissionTest, AltitudeIsDrawnFromTheCommonBand) {
  const struct {
    const char* name;
    MissionDefRec def;
    Integer aircraftClass, minAlt, maxAlt;
    std::vector<float> draws;
    Integer altitude;
  } cases[] = {
      {"MaxAlt of 0 keeps altitudes, with no draw", {9000, 0}, 2, 3000, 9000, {}, 0},
      {"common band", {3000, 9000}, 0, 4000, 8000, {0.25F}, 5000},
      {"never starts below 2000", {0, 9000}, 0, 0, 4000, {0}, 2000},
      {"nothing in common: 1500 to 2000", {0, 9000}, 0, 0, 0, {0.5F}, 1750},
      {"negative MaxAlt is a limit", {0, -5}, 0, 0, 9000, {0.5F}, 1750},
      {"floor of 1500", {2300, 9000}, 0, 0, 2000, {0}, 1500},
      {"1000 below the higher minimum", {6000, 9000}, 0, 0, 5000, {0.5F}, 5500},
      {"max equal to min is no band", {5000, 5000}, 0, 0, 9000, {0}, 4000},
      {"class 2, upper half: 4501.5 to the even side", {3000, 6003}, 2, 0, 9000, {0.79F, 0}, 4502},
      {"class 2, whole band", {3000, 6001}, 2, 0, 9000, {0.9F, 0}, 3000},
      {"class 1, lower half", {3000, 6001}, 1, 0, 9000, {0.49F, 0.9999999F}, 4500},
      {"class 1, whole band", {3000, 6001}, 1, 0, 9000, {0.5F, 0.9999999F}, 6001},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    run.MissionDefs[5] = c.def;
    run.Aircraft[20] = {"", c.aircraftClass, c.minAlt, c.maxAlt};
    fakes::Script(c.draws);
    Integer altitude = 1;
    GetBaseAlt(run, 5, 20, altitude);
    EXPECT_EQ(altitude, c.altitude);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
  }
}

TEST_F(MissionTest, ShiftMovesTheCoordinateOfTheAxisAndStopsAtTheEdge) {
  const auto shifted = [this](Integer axis, std::initializer_list<float> draws, Long lon, Long lat) {
    run.ShiftAxis = axis;
    fakes::Script(draws);
    ShiftWPPosition(run, lon, lat);
    return Longs{lon, lat};
  };
  EXPECT_EQ(shifted(0, {0}, 10, 20), (Longs{10, 200020}));
  EXPECT_EQ(shifted(1, {0.5F}, 10, 20), (Longs{350010, 20}));
  EXPECT_EQ(shifted(2, {0.5F}, 10, -20), (Longs{10, 349980}));
  EXPECT_EQ(shifted(3, {0.9F}, 4000000, 20), (Longs{4190000, 20}));
  EXPECT_EQ(shifted(1, {0}, 2147483647, 20), (Longs{4190000, 20}));
  for (const Integer none : std::vector<Integer>{-1, 4}) EXPECT_EQ(shifted(none, {}, 10, 20), (Longs{10, 20}));
}

TEST_F(MissionTest, MissionReplacesOnlyActionsThatDoItsWork) {
  const std::vector<Byte> all{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 255};
  for (const Long type : {TypeBomb, TypeRecon, TypeAttack, TypeEscort}) Add({.type = type, .actions = all});
  for (Integer row = 0; row < 4; ++row) MassageMission(run, row);
  EXPECT_EQ(Actions(0), (Longs{0, 1, 2, 3, 3, 3, 3, 3, 3, 3, 10, 11, 12, 3, 14, 255}));
  EXPECT_EQ(Actions(1), (Longs{0, 1, 2, 13, 13, 13, 13, 13, 13, 13, 10, 11, 12, 13, 14, 255}));
  for (const Long row : {2, 3}) EXPECT_EQ(Actions(row), Longs(all.begin(), all.end()));
}

TEST_F(MissionTest, WaypointsAreWorkedInTurn) {
  run.TypeOddsGate = 0;
  run.ShiftAxis = 1;
  run.TypeOdds[TypeCAP].Odds[1] = 1;
  run.MissionDefs[TypeOffensivePatrol] = {4096, 4096 + 64, 1, 1};
  run.Aircraft[3].MaxAlt = 9000;
  MissionRec& flight = Add({.squad = British, .planes = {3}, .actions = {11, 4, 4, 10, 2, 9, 12, 4}});
  flight.Waypoints[2].AltBytes = 0x1234FFFF;  // whose high half stays
  // Conversion and altitude; then a shift for each inner waypoint, and a parameter for each loiter.
  fakes::Script({0, 0.5F, 0.0625F, 0, 0.25F, 0, 0, 0, 0.75F, 0, 1});
  MassageMission(run, 0);
  EXPECT_EQ(Actions(0), (Longs{11, 9, 9, 10, 2, 9, 12, 9}));
  EXPECT_EQ(Each(0, &WaypointRec::AltBytes), (Longs{0, 0, 0x12340081, 0, 0, 129, 129, 0}));  // 4128
  EXPECT_EQ(Each(0, &WaypointRec::Lon), (Longs{0, 0, 200000, 200000, 200000, 200000, 200000, 0}));
  EXPECT_EQ(Each(0, &WaypointRec::ActionParam), (Longs{0, 9, 10, 0, 0, 16, 0, 18}));
  EXPECT_EQ(flight.MissionType, TypeOffensivePatrol);
}

TEST_F(MissionTest, FlightWithoutPlanesFliesAircraftRow0) {
  run.MissionDefs[TypeRecon] = {4000, 5000, 1, 1};
  run.Aircraft[0].AircraftClass = 2;  // draws twice for an altitude, the others once
  Add({.type = TypeRecon, .planes = {9, 9}, .actions = {4, 4, 9}});
  Add({.type = TypeRecon, .planes = {9}}).NumAircraft = 0;
  Add({.type = TypeRecon, .planes = {9}}).NumAircraft = -1;
  Add({.type = TypeRecon, .planes = {-1, 9}});
  Add({.type = TypeCAP, .planes = {9}, .actions = {4, 4, 4, 4}}).Waypoints[2].AltBytes = 5;
  fakes::Script({0, /*row 0*/ 0.9F, 0, /*row 0*/ 0.9F, 0, /*row 0*/ 0.9F, 0});
  for (Integer row = 0; row < 5; ++row) MassageMission(run, row);
  EXPECT_EQ(Each(0, &WaypointRec::AltBytes), (Longs{0, 0, 0}));  // of three waypoints none is an inner one
  EXPECT_EQ(run.Missions[4].Waypoints[2].AltBytes, 5);           // a CAP has no new altitude here
}

}  // namespace
