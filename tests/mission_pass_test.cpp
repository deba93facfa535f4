// Mission types, altitudes, positions and actions: the passes over a single mission.
#include "massage/mission_pass.h"

#include "massage/altitude.h"
#include "massage/mission_type.h"
#include "massage/waypoint.h"
#include "run_test.h"
#include "state/altitude_bytes.h"

namespace {

class MissionTest : public RunTest {
 protected:
  // AlterMissionType of a flight: the working type, the row's type, ShiftFlag. Class and row of Aircraft are the same.
  std::string Altered(Integer aircraftClass, Long squad, Integer type, std::initializer_list<float> draws) {
    run.LoadedCount = 0;
    Add({.squad = squad, .type = type});
    fakes::Script(draws);
    Integer flag = 5, working = type;
    AlterMissionType(run, 0, aircraftClass, Narrow(squad), flag, working);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
    return Join(Longs{working, run.Missions[0].MissionType, flag});
  }
};

TEST_F(MissionTest, ClassRuleDrawsOnceWhereItApplies) {
  for (const Long row : {0, 1, 2, 3, 4}) run.ClassOdds[row] = {0.3 + row / 100.0, 0.2, 0.9};
  run.ClassOdds[0] = {0.25, 0.25, 0.9};
  EXPECT_EQ(Altered(3, British, TypeBomb, {0.249F}), "1,1,0");
  EXPECT_EQ(Altered(3, British, TypeBomb, {0.25F}), "3,3,0");
  EXPECT_EQ(Altered(3, British, TypeRecon, {0.5F}), "0,0,0");      // equal to the sum
  EXPECT_EQ(Altered(4, British, TypeSpotting, {0.31F}), "3,3,0");  // in single precision it lies above 0.31
  EXPECT_EQ(Altered(5, British, TypeBomb, {0.32F}), "1,1,0");      // and this below 0.32
  EXPECT_EQ(Altered(6, British, TypeBomb, {0.325F}), "1,1,0");
  EXPECT_EQ(Altered(3, British, TypeAttack, {}), "2,2,0");
  EXPECT_EQ(Altered(8, British, TypeEscort, {0.335F}), "1,1,0");
  EXPECT_EQ(Altered(8, British, TypeLoneWolf, {0.6F}), "2,2,0");
  EXPECT_EQ(Altered(7, British, TypeEscort, {0.75F}), "2,7,0");  // the row keeps its type
  EXPECT_EQ(Altered(7, British, TypeBomb, {0.8F}), "3,0,0");
  for (const Long idle : {0, 1, 2, 9, 10}) EXPECT_EQ(Altered(Narrow(idle), British, TypeBomb, {}), "0,0,0");
}

TEST_F(MissionTest, ConversionDrawsWhateverTheOddsAndShiftsAllButNationZero) {
  run.TypeOddsGate = 0;
  run.TypeOdds[TypeCAP].Odds = {0.5, 0.5, 0, 0, 0};
  run.TypeOdds[TypeSpotting].Odds[1] = run.TypeOdds[TypeOffensivePatrol].Odds[1] = 1;
  EXPECT_EQ(Altered(0, British, TypeCAP, {0.4F}), "12,12,-1");
  EXPECT_EQ(Altered(0, British, TypeCAP, {0.5F}), "4,4,0");
  EXPECT_EQ(Altered(0, German, TypeCAP, {0.4F}), "12,12,0");
  EXPECT_EQ(Altered(0, Stranger, TypeCAP, {0.4F}), "12,12,0");  // outside the roster: nation 0
  EXPECT_EQ(Altered(0, British, TypeOffensivePatrol, {0}), "12,12,-1");
  EXPECT_EQ(Altered(0, British, TypeBomb, {0}), "0,0,0");  // odds of 0: drawn, and never won
  EXPECT_EQ(Altered(0, Foreign, TypeCAP, {0}), "4,4,0");
  EXPECT_EQ(Altered(7, British, TypeBomb, {0.9F, 0.9F}), "12,12,-1");  // by the type that class 7 leaves
}

TEST_F(MissionTest, AltitudeBandsAndBiases) {
  const auto drawn = [this](MissionDefRec def, AircraftRec aircraft, std::initializer_list<float> draws) {
    run.MissionDefs[5] = def;
    run.Aircraft[20] = aircraft;
    fakes::Script(draws);
    Integer altitude = 1;
    GetBaseAlt(run, 5, 20, altitude);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
    return altitude;
  };
  EXPECT_EQ(drawn({9000, 0}, {"", 2, 3000, 9000}, {}), 0);             // no new altitude, no draw
  EXPECT_EQ(drawn({3000, 9000}, {"", 0, 4000, 8000}, {0.25F}), 5000);  // the shared band
  EXPECT_EQ(drawn({0, 9000}, {"", 0, 0, 4000}, {0}), 2000);            // never begins below 2000
  EXPECT_EQ(drawn({0, 9000}, {"", 0, 0, 0}, {0.5F}), 1750);            // no band shared: 1500 to 2000
  EXPECT_EQ(drawn({2300, 9000}, {"", 0, 0, 2000}, {0}), 1500);         // the floor cuts the 1000 short
  EXPECT_EQ(drawn({6000, 9000}, {"", 0, 0, 5000}, {0.5F}), 5500);
  EXPECT_EQ(drawn({5000, 5000}, {"", 0, 0, 9000}, {0}), 4000);         // max equal to min isn't a band
  EXPECT_EQ(drawn({3000, 6003}, {"", 2, 0, 9000}, {0.79F, 0}), 4502);  // the middle of 4501.5 goes to the even side
  EXPECT_EQ(drawn({3000, 6001}, {"", 2, 0, 9000}, {0.9F, 0}), 3000);
  EXPECT_EQ(drawn({3000, 6001}, {"", 1, 0, 9000}, {0.49F, 0.9999999F}), 4500);  // may reach the top
  EXPECT_EQ(drawn({3000, 6001}, {"", 1, 0, 9000}, {0.5F, 0.9999999F}), 6001);
}

TEST_F(MissionTest, AltitudeBytesCountIn32sAndKeepTheirHighHalf) {
  const std::pair<Integer, Long> stored[] = {{0, 0},       {31, 0},       {32, 1},        {100, 3},      {512, 16},
                                             {8191, 0xFF}, {8192, 0x100}, {28671, 0x37F}, {32767, 0x3FF}};
  for (const auto& [altitude, low] : stored) {
    Long bytes = static_cast<Long>(0x9234FFFF);
    SetWPAltitude(bytes, altitude);
    EXPECT_EQ(bytes, static_cast<Long>(0x92340000) | low) << altitude;
    EXPECT_EQ(GetWPAltitude(bytes), altitude / 32 * 32);
  }
  EXPECT_EQ(GetWPAltitude(-1), 2097120);
}

TEST_F(MissionTest, ShiftMovesTheCoordinateOfTheAxisAndStopsAtTheEdge) {
  const auto shifted = [this](Integer axis, std::initializer_list<float> draws, Long lon, Long lat) {
    run.ShiftAxis = axis;
    fakes::Script(draws);
    ShiftWPPosition(run, lon, lat);
    return Join(Longs{lon, lat});
  };
  EXPECT_EQ(shifted(0, {0}, 10, 20), "10,200020");
  EXPECT_EQ(shifted(1, {0.5F}, 10, 20), "350010,20");
  EXPECT_EQ(shifted(2, {0.5F}, 10, -20), "10,349980");
  EXPECT_EQ(shifted(3, {0.9F}, 4000000, 20), "4190000,20");
  EXPECT_EQ(shifted(1, {0}, 2147483647, 20), "4190000,20");
  for (const Long none : {-1, 4}) EXPECT_EQ(shifted(Narrow(none), {}, 10, 20), "10,20");
}

TEST_F(MissionTest, ActionsOfferedAndTaken) {
  Longs offers;
  for (Integer type = 0; type < 14; ++type) {
    Byte action = 1;
    GetActionByMission(type, action);
    offers.push_back(action);
  }
  EXPECT_EQ(Join(offers), "3,13,255,9,255,255,255,255,255,255,255,255,9,255");
  for (int action = 0; action < 256; ++action) {
    Byte act = static_cast<Byte>(action), offered = 77;
    AlterWPAction(act, offered);
    EXPECT_EQ(act, (action >= 3 && action <= 9) || action == 13 ? 77 : action);
    EXPECT_EQ(offered, act);
  }
}

TEST_F(MissionTest, WorksWaypointByWaypoint) {
  run.TypeOddsGate = 0;
  run.ShiftAxis = 1;
  run.TypeOdds[TypeCAP].Odds[1] = 1;
  run.MissionDefs[TypeOffensivePatrol] = {4096, 4096 + 64, 1, 1};
  run.Aircraft[3].MaxAlt = 9000;
  Add({.squad = British, .planes = {3}, .actions = {11, 4, 4, 10, 2, 9, 12, 4}});
  // Conversion and altitude; then a parameter for each loiter, with a shift ahead of it at each inner waypoint.
  fakes::Script({0, 0.5F, 0.0625F, 0, 0.25F, 0, 0, 0, 0.75F, 0, 1});
  MassageMission(run, 0);
  EXPECT_EQ(Actions(0), "11,9,9,10,2,9,12,9");
  EXPECT_EQ(Each(0, [](const WaypointRec& waypoint) { return GetWPAltitude(waypoint.AltBytes); }),
            "0,0,4128,0,0,4128,4128,0");
  EXPECT_EQ(Each(0, [](const WaypointRec& waypoint) { return waypoint.Lon; }),
            "0,0,200000,200000,200000,200000,200000,0");
  EXPECT_EQ(Each(0, [](const WaypointRec& waypoint) { return waypoint.ActionParam; }), "0,9,10,0,0,16,0,18");
}

TEST_F(MissionTest, SmallPlansAndEmptyFlights) {
  run.MissionDefs[TypeRecon] = {4000, 5000, 1, 1};
  run.Aircraft[0].AircraftClass = 2;  // row 0 tells by its second draw that it was asked
  Add({.type = TypeRecon, .planes = {9, 9}, .actions = {4, 4, 9}});
  Add({.type = TypeRecon, .planes = {9}}).NumAircraft = 0;
  Add({.type = TypeRecon, .planes = {-1, 9}});
  Add({.type = TypeCAP, .planes = {9}, .actions = {4, 4, 4, 4}}).Waypoints[2].AltBytes = 5;
  fakes::Script({0, /*row 0*/ 0.9F, 0, /*row 0*/ 0.9F, 0});
  for (Integer row = 0; row < 4; ++row) MassageMission(run, row);
  EXPECT_EQ(Actions(0) + " " + Actions(3), "13,13,13 4,4,4,4");
  EXPECT_EQ((Longs{run.Missions[0].Waypoints[2].AltBytes, run.Missions[3].Waypoints[2].AltBytes}), (Longs{0, 5}));
}

}  // namespace
