// Mission types, altitudes, positions and actions: the passes over a single mission.
#include "massage/mission_pass.h"
#include "massage/altitude.h"
#include "massage/mission_type.h"
#include "massage/waypoint.h"
#include "run_test.h"

namespace {

class MissionTypeTest : public RunTest {
 protected:
  // Class and row of Aircraft are the same number here.
  void ExpectType(Integer aircraftClass, Integer type, std::initializer_list<float> draws, Integer working,
                  Long inRow) {
    SCOPED_TRACE(testing::Message() << "class " << aircraftClass << " type " << type);
    run.LoadedCount = 0;
    Add({.squad = British, .type = type});
    fakes::Script(draws);
    Integer flag = 5, changed = type;
    AlterMissionType(run, 0, aircraftClass, British, flag, changed);
    EXPECT_EQ(changed, working);
    EXPECT_EQ(run.Missions[0].MissionType, inRow);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
  }
  Integer Convert(Long squad, Integer type, float draw) {
    run.LoadedCount = 0;
    Add({.squad = squad, .type = type});
    fakes::Script({draw});
    Integer flag = 5, changed = type;
    AlterMissionType(run, 0, 0, Narrow(squad), flag, changed);
    EXPECT_EQ(run.Missions[0].MissionType, changed);
    return flag;
  }
};

TEST_F(MissionTypeTest, ClassRuleDrawsOnceWhereItApplies) {
  for (const Long row : {0, 1, 2, 3, 4}) run.ClassOdds[row] = {0.3 + row / 100.0, 0.2, 0.9};
  run.ClassOdds[0] = {0.25, 0.25, 0.9};
  ExpectType(3, TypeBomb, {0.249F}, TypeRecon, TypeRecon);
  ExpectType(3, TypeBomb, {0.25F}, TypeSpotting, TypeSpotting);
  ExpectType(3, TypeRecon, {0.5F}, TypeBomb, TypeBomb);  // equal to the sum
  ExpectType(4, TypeSpotting, {0.305F}, TypeRecon, TypeRecon);
  ExpectType(4, TypeBomb, {0.31F}, TypeSpotting, TypeSpotting);  // in single precision it lies above 0.31
  ExpectType(5, TypeBomb, {0.32F}, TypeRecon, TypeRecon);        // and this below 0.32
  ExpectType(5, TypeBomb, {0.315F}, TypeRecon, TypeRecon);
  ExpectType(6, TypeBomb, {0.325F}, TypeRecon, TypeRecon);
  ExpectType(3, TypeAttack, {}, TypeAttack, TypeAttack);
  ExpectType(8, TypeEscort, {0.335F}, TypeRecon, TypeRecon);
  ExpectType(8, TypeLoneWolf, {0.6F}, TypeAttack, TypeAttack);
  ExpectType(7, TypeEscort, {0.75F}, TypeAttack, TypeEscort);  // the row keeps its type
  ExpectType(7, TypeBomb, {0.8F}, TypeSpotting, TypeBomb);
  for (const Long idle : {0, 1, 2, 9, 10}) ExpectType(Narrow(idle), TypeBomb, {}, TypeBomb, TypeBomb);
}

TEST_F(MissionTypeTest, ConversionDrawsWhateverTheOddsAndShiftsAllButNationZero) {
  run.TypeOddsGate = 0;
  run.TypeOdds[TypeCAP].Odds = {0.5, 0.5, 0, 0, 0};
  run.TypeOdds[TypeOffensivePatrol].Odds = {0, 1, 0, 0, 0};
  EXPECT_EQ(Convert(British, TypeCAP, 0.4F), -1);
  EXPECT_EQ(Convert(British, TypeCAP, 0.5F), 0);
  EXPECT_EQ(Convert(German, TypeCAP, 0.4F), 0);
  EXPECT_EQ(run.Missions[0].MissionType, TypeOffensivePatrol);
  EXPECT_EQ(Convert(Stranger, TypeCAP, 0.4F), 0);  // outside the roster: nation 0
  EXPECT_EQ(run.Missions[0].MissionType, TypeOffensivePatrol);
  EXPECT_EQ(Convert(British, TypeOffensivePatrol, 0), -1);
  EXPECT_EQ(Convert(British, TypeBomb, 0), 0);  // odds of 0: drawn, and never won
  EXPECT_EQ(run.Missions[0].MissionType, TypeBomb);
  EXPECT_EQ(Convert(Foreign, TypeCAP, 0), 0);
  EXPECT_EQ(run.Missions[0].MissionType, TypeCAP);
  run.TypeOdds[TypeSpotting].Odds[1] = 1;  // the type that class 7 leaves, though not in the row
  fakes::Script({0.9F, 0.9F});
  Integer flag = 0, type = TypeBomb;
  AlterMissionType(run, 0, 7, British, flag, type);
  EXPECT_EQ(flag, -1);
}

using AltitudeTest = RunTest;

TEST_F(AltitudeTest, BandsAndBiases) {
  struct Case {
    Integer missionMin, missionMax, aircraftClass, aircraftMin, aircraftMax;
    std::initializer_list<float> draws;
    Integer altitude;
  };
  const Case cases[] = {
      {9000, 0, 2, 3000, 9000, {}, 0},             // no new altitude, no draw
      {3000, 9000, 0, 4000, 8000, {0.25F}, 5000},  // the shared band
      {0, 9000, 0, 0, 4000, {0}, 2000},            // never begins below 2000
      {0, 9000, 0, 0, 0, {0}, 1500},               // no band shared: 1500 to 2000
      {0, 9000, 0, 0, 0, {0.5F}, 1750},
      {6000, 9000, 0, 0, 5000, {0.5F}, 5500},      // 5000 to 6000
      {5000, 5000, 0, 0, 9000, {0}, 4000},         // max equal to min isn't a band
      {2300, 9000, 0, 0, 2000, {0}, 1500},         // the floor cuts the 1000 short
      {3000, 6001, 2, 0, 9000, {0.79F, 0}, 4500},  // middle 4500.5 goes to the even side
      {3000, 6003, 2, 0, 9000, {0.79F, 0}, 4502},
      {3000, 6001, 2, 0, 9000, {0.9F, 0}, 3000},
      {3000, 6001, 1, 0, 9000, {0.49F, 0.9999999F}, 4500},  // may reach the top
      {3000, 6001, 1, 0, 9000, {0.5F, 0.9999999F}, 6001},
      {3000, 3001, 3, 0, 9000, {0.5F}, 3000},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(&test - cases);
    run.MissionDefs[5] = {test.missionMin, test.missionMax, 0, 0};
    run.Aircraft[20] = {"", test.aircraftClass, test.aircraftMin, test.aircraftMax};
    fakes::Script(test.draws);
    Integer altitude = 1;
    GetBaseAlt(run, 5, 20, altitude);
    EXPECT_EQ(altitude, test.altitude);
    EXPECT_EQ(fakes::DrawsLeft(), 0U);
  }
}

TEST_F(AltitudeTest, BytesHoldItInUnitsOf32AndKeepTheirHighHalf) {
  const std::pair<Integer, Long> stored[] = {{0, 0},       {31, 0},       {32, 1},        {100, 3},      {512, 16},
                                             {8191, 0xFF}, {8192, 0x100}, {28671, 0x37F}, {32767, 0x3FF}};
  for (const auto& [altitude, low] : stored) {
    Long bytes = static_cast<Long>(0x9234FFFF);
    SetWPAltitude(bytes, altitude);
    EXPECT_EQ(bytes, static_cast<Long>(0x92340000) | low) << altitude;
    EXPECT_EQ(GetWPAltitude(bytes), altitude / 32 * 32);
  }
  EXPECT_EQ(GetWPAltitude(-1), 2097120);
  Table<Byte, 4> split;
  LongtoByte(65536, split);
  EXPECT_EQ(split, (Table<Byte, 4>{0, 0, 1, 0}));
  Long joined = 0;
  ByteToLong(joined, {0xFE, 0xFF, 0xFF, 0xFF});
  EXPECT_EQ(joined, -2);
}

using WaypointTest = RunTest;

TEST_F(WaypointTest, ShiftMovesTheCoordinateOfTheAxisAndStopsAtTheEdge) {
  const auto shifted = [this](Integer axis, std::initializer_list<float> draws, Long lon, Long lat) {
    run.ShiftAxis = axis;
    fakes::Script(draws);
    ShiftWPPosition(run, lon, lat);
    return std::pair(lon, lat);
  };
  using Place = std::pair<Long, Long>;
  EXPECT_EQ(shifted(0, {0}, 10, 20), Place(10, 200020));
  EXPECT_EQ(shifted(1, {0.5F}, 10, 20), Place(350010, 20));
  EXPECT_EQ(shifted(2, {0.5F}, 10, -20), Place(10, 349980));
  EXPECT_EQ(shifted(3, {0.9F}, 4000000, 20), Place(4190000, 20));
  EXPECT_EQ(shifted(1, {0}, 2147483647, 20), Place(4190000, 20));
  EXPECT_EQ(shifted(4, {}, 10, 20), Place(10, 20));
  EXPECT_EQ(shifted(-1, {}, 10, 20), Place(10, 20));
}

TEST_F(WaypointTest, ActionsOfferedAndTaken) {
  const int offers[] = {3, 13, 255, 9, 255, 255, 255, 255, 255, 255, 255, 255, 9, 255};
  for (Integer type = 0; type < 14; ++type) {
    Byte action = 1;
    GetActionByMission(type, action);
    EXPECT_EQ(action, offers[type]) << type;
  }
  for (int action = 0; action < 256; ++action) {
    Byte act = static_cast<Byte>(action), offered = 77;
    AlterWPAction(act, offered);
    const bool replaced = (action >= 3 && action <= 9) || action == 13;
    EXPECT_EQ(act, replaced ? 77 : action);
    EXPECT_EQ(offered, act);
  }
}

using MissionPassTest = RunTest;

TEST_F(MissionPassTest, WorksWaypointByWaypoint) {
  run.TypeOddsGate = 0;
  run.ShiftAxis = 1;
  run.TypeOdds[TypeCAP].Odds[1] = 1;
  run.MissionDefs[TypeOffensivePatrol] = {4096, 4096 + 64, 1, 1};
  run.Aircraft[3].MaxAlt = 9000;
  MissionRec& flight = Add({.squad = British,
                            .planes = {3},
                            .actions = {ActionTakeoff, ActionPatrol, ActionPatrol, ActionRendezvous, ActionEscort,
                                        ActionLoiter, ActionLand, ActionPatrol}});
  // Conversion and altitude; then an action parameter for each loiter and a shift ahead of it for each inner one.
  fakes::Script({0, 0.5F, 0.0625F, 0, 0.25F, 0, 0, 0, 0.75F, 0, 1});
  MassageMission(run, 0);
  EXPECT_EQ(Actions(0), (std::vector<int>{11, 9, 9, 10, 2, 9, 12, 9}));
  Longs altitudes, lons, params;
  for (Long k = 0; k < 8; ++k) {
    altitudes.push_back(GetWPAltitude(flight.Waypoints[k].AltBytes));
    lons.push_back(flight.Waypoints[k].Lon);
    params.push_back(flight.Waypoints[k].ActionParam);
  }
  EXPECT_EQ(altitudes, (Longs{0, 0, 4128, 0, 0, 4128, 4128, 0}));
  EXPECT_EQ(lons, (Longs{0, 0, 200000, 200000, 200000, 200000, 200000, 0}));
  EXPECT_EQ(params, (Longs{0, 9, 10, 0, 0, 16, 0, 18}));
}

TEST_F(MissionPassTest, SmallPlansAndEmptyFlights) {
  run.MissionDefs[TypeRecon] = {4000, 5000, 1, 1};
  run.MissionDefs[TypeCAP].MaxAlt = 0;
  run.Aircraft[0].AircraftClass = 2;  // row 0 tells by its second draw that it was asked
  Add({.type = TypeRecon, .planes = {9, 9}, .actions = {ActionPatrol, ActionPatrol, ActionLoiter}});
  Add({.type = TypeRecon, .planes = {9}}).NumAircraft = 0;
  Add({.type = TypeRecon, .planes = {-1, 9}});
  Add({.type = TypeCAP, .planes = {9}, .actions = {4, 4, 4, 4}});
  run.Missions[3].Waypoints[2].AltBytes = 5;
  fakes::Script({0, /*row 0*/ 0.9F, 0, /*row 0*/ 0.9F, 0});
  for (Integer row = 0; row < 4; ++row) MassageMission(run, row);
  EXPECT_EQ(Actions(0), (std::vector<int>{13, 13, 13}));
  EXPECT_EQ(run.Missions[0].Waypoints[2].AltBytes, 0);
  EXPECT_EQ(Actions(3), (std::vector<int>{4, 4, 4, 4}));
  EXPECT_EQ(run.Missions[3].Waypoints[2].AltBytes, 5);
}

}  // namespace
