// Writes the first inputs of the fuzzers, cut from the sample campaign: small plans, so that an input is quick to try.
//
//   make_seeds SAMPLE TARGET
#include <array>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <string>

#include "files/campaign_date.h"
#include "files/mission_file.h"
#include "memory_disk.h"
#include "state/numbering.h"

namespace {

using namespace velmoran;
namespace fs = std::filesystem;

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  file.exceptions(std::ios::badbit | std::ios::failbit);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Save(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file.exceptions(std::ios::badbit | std::ios::failbit);
  file << bytes;
}

// The first flights of a plan, of the given number of waypoints at most.
std::string SmallPlan(const std::string& image, Long flights, Long points) {
  const auto run = std::make_unique<RunState>();
  ReadMissions(*run, {image.begin(), image.end()}, "");
  run->MissionCount = run->LoadedCount = flights;
  for (Long row = 0; row < flights; ++row) run->Missions[row].WPCount = std::min(run->Missions[row].WPCount, points);
  const std::vector<Byte> small = ComposeMissionImage(*run);
  return {small.begin(), small.end()};
}

// The first flights of a plan up to the player's, its escorts and the flights that they escort, but at most most
// flights.
std::string EscortPlan(const std::string& image, Long most) {
  const auto whole = std::make_unique<RunState>(), part = std::make_unique<RunState>();
  ReadMissions(*whole, {image.begin(), image.end()}, "");
  ReadMissions(*part, {image.begin(), image.end()}, "");
  std::map<Long, Long> rows;  // of the whole plan, and of the part
  const auto take = [&](Long row) {
    if (rows.size() < static_cast<std::size_t>(most)) rows.try_emplace(row, static_cast<Long>(rows.size()));
  };
  for (Long row = 0; row <= whole->PlayerFlight; ++row) take(row);
  for (Long row = 0; row < whole->LoadedCount; ++row) {
    if (whole->Missions[row].MissionType != TypeEscort) continue;
    take(row);
    take(whole->Missions[row].EscortedFlight);
  }
  for (const auto& [from, to] : rows) {
    MissionRec& flight = part->Missions[to] = whole->Missions[from];
    flight.FlightID = to;
    if (const auto met = rows.find(flight.EscortedFlight); met != rows.end()) flight.EscortedFlight = met->second;
  }
  part->MissionCount = part->LoadedCount = static_cast<Long>(rows.size());
  const std::vector<Byte> small = ComposeMissionImage(*part);
  return {small.begin(), small.end()};
}

// The campaign file on another day and with other control words.
std::string Campaign(std::string bytes, char day, char gate, char axis) {
  constexpr std::size_t DateAt = 3201, GateAt = 3216,
                        AxisAt = 3460;  // the middle bits of the date; the axis follows the lists
  bytes[DateAt] = static_cast<char>(bytes[DateAt] + day);
  bytes[GateAt] = gate;
  bytes[AxisAt] = axis;
  return bytes;
}

// Gives flights of some types no planes, which ends a massage.
std::string WithoutPlanes(std::string ini) {
  constexpr std::string_view Sizes = " 1, 3\n";
  return ini.replace(ini.find(Sizes), Sizes.size(), " 0, 0\n");
}

void MakeSeeds(const fs::path& sample, const fs::path& target) {
  const std::string cut(fuzz::Cut), image = Read(sample / "campaign/campgn01.mis"),
                                    dat = Read(sample / "campaign/campgn01.dat");
  const std::string ini = Read(sample / "velmoran/Velmoran.ini"), txt = Read(sample / "data/simpatch/Velmoran.txt"),
                    roster = Read(sample / "data/simpatch/squadron.dat");
  Save(target / "setup/sample", ini + cut + txt);
  Save(target / "roster/sample", roster);
  // As many flights as fit, and one more after them.
  const std::string most = SmallPlan(Read(sample / "campaign/campgn02.mis"), MissionRows, 0);
  Save(target / "mission/most_flights", most + most.substr(17, 368));
  const auto asRun = [&](const std::string& events, const std::string& plan, const std::string& campaign,
                         const std::string& odds) {
    std::string input = events;
    for (const std::string* file : {&plan, &campaign, &odds, &txt, &roster}) (input += cut) += *file;
    return input;
  };
  Save(target / "run/no_planes", asRun("om", SmallPlan(image, 24, 0), dat, WithoutPlanes(ini)));
  const std::array<const char*, 5> events{"omW", "RoRmRWR", "coimwW", "nor", "oRmwRWm"};
  for (int i = 0; i < 5; ++i) {
    const std::string name = std::to_string(i), brief = SmallPlan(image, 3 * i, i);
    const std::string campaign = Campaign(dat, static_cast<char>(i), static_cast<char>(i % 2), static_cast<char>(i));
    Save(target / "mission" / name, SmallPlan(image, 1 << i, WaypointRows));
    Save(target / "mission" / ("escorts" + name), EscortPlan(image, 2 + 2 * i));
    std::string dated = brief;
    (dated += cut) += campaign;
    Save(target / "mission" / ("dated" + name), dated);
    Save(target / "run" / name, asRun(events[static_cast<std::size_t>(i)], brief, campaign, ini));
    Save(target / "run" / ("escorts" + name), asRun("oRmRW", EscortPlan(image, 3 + 2 * i), campaign, ini));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: make_seeds SAMPLE TARGET\n";
    return 2;
  }
  try {
    MakeSeeds(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::cerr << "make_seeds: " << error.what() << "\n";
    return 1;
  }
}
