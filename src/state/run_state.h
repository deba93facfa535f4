// The one record of all program state. A front end's main creates it; every operation works on it.
#pragma once

#include <random>
#include <string>
#include <string_view>

#include "state/records.h"
#include "state/setup_rows.h"
#include "state/types.h"

namespace velmoran {

// How many rows each table has, and how many of them a file fills.
inline constexpr Long PeriodRows = 8, PeriodsFilled = 7;
inline constexpr Long ClassOddsRows = 5;
inline constexpr Long TypeRows = 21, TypesFilled = 14;
inline constexpr Long GroupRows = 101;
inline constexpr Long AircraftRows = 51, AircraftFilled = 43;
inline constexpr Long SquadronRows = 201, SquadronsFilled = 190;
inline constexpr Long PlayerFlights = 13;  // the player's own flight and 12 others
inline constexpr Long PlayerPilots = 13;   // in all flights of the player's squadron together
inline constexpr Long PairRows = 101;

inline constexpr Long FirstCampaignDay = 2420496;  // Julian day number

struct RunState {
  // Paths and texts.
  std::string WorkDir;        // directory at start; where the file dialogs begin
  std::string DataPath;       // the simulation's data folder, no trailing separator
  std::string MisPath;        // the mission file, as entered in the open dialog
  std::string MissionFile;    // the file that Open found there: its whole path, in the system's own spelling
  std::string DatPath;        // the campaign file beside it
  bool WriteFailed = false;   // whether the last Write failed
  std::string_view HintText;  // always one of the fixed hints of events/events.cpp

  // Image of the mission file.
  Table<Byte, 8> HeaderBytes{};  // 0: carried
  Long PlayerFlight = 0;         // 8: FlightID of the player's flight, on load also its row in Missions
  Byte HeaderFlag = 0;           // 12: carried
  Long MissionCount = 0;         // 13: as loaded; after RenumberFlights, the flights in play
  Long LoadedCount = 0;          // rows of Missions read
  Table<MissionRec, MissionRows> Missions{};
  Table<Integer, MissionRows> Removed{};  // InPlay or TakenOut, by row of Missions

  // Setup files, read once at start.
  Table<PeriodRec, PeriodRows> Periods{};          // by war period
  Table<ClassOddsRec, ClassOddsRows> ClassOdds{};  // of the classes 3, 4, 5, 6 and 8
  Table<MissionDefRec, TypeRows> MissionDefs{};    // by mission type
  Table<TypeOddsRec, TypeRows> TypeOdds{};         // by mission type
  Integer GroupCount = 0;                          // rows of SquadGroups in use
  Table<SquadGroupRec, GroupRows> SquadGroups{};
  Table<AircraftRec, AircraftRows> Aircraft{};

  // Roster, read once at start.
  Table<SquadRec, SquadronRows> Squadrons{};

  // Campaign values.
  Long CampaignStart = 0;    // FirstCampaignDay
  Long CampaignDate = 0;     // the campaign's current day, a Julian day number too
  Integer WarPeriod = 0;     // 0 to 6: row of Periods
  Integer ShiftAxis = 0;     // 1 and 3 move Lon, 0 and 2 move Lat, other values nothing
  Integer TypeOddsGate = 0;  // 0 lets missions become offensive patrols

  // Working tables of the massage.
  Table<Integer, PlayerFlights> SquadFlights{};  // rows of Missions; slot 0 is the player's flight, -1 if there is none
  Integer SquadFlightCount = 0;                  // next free slot; 1 at start, since slot 0 is reserved
  Table<Integer, SquadronRows> SquadPlanes{};    // planes granted to a squadron, by SquadID
  Table<Integer, MissionRows> LostEscortFlights{};  // FlightIDs of flights that lost an escort
  Integer LostEscortCount = 0;
  Table<Integer, MissionRows> LostRendezvousFlights{};  // FlightIDs of removed flights with a rendezvous
  Integer LostRendezvousCount = 0;
  Table<GroupPairRec, PairRows> GroupPairs{};  // flights that grouping has joined
  Integer GroupPairCount = 0;

  std::mt19937 Random;  // state of Rnd
};

// Sets the initial values of a run in a RunState that is all zero: counts, CampaignStart, and the tables whose empty
// value is -1. Leaves paths, texts and Random unchanged.
void SetInitialValues(RunState& run);

}  // namespace velmoran
