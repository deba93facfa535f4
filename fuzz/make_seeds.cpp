// Writes the first inputs of the fuzzers, cut from the sample campaign: small plans, so that an input is quick to try.
//
//   make_seeds SAMPLE TARGET
#include <array>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
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
  ReadMissions(*run, {image.begin(), image.end()});
  run->MissionCount = run->LoadedCount = flights;
  for (Long row = 0; row < flights; ++row) run->Missions[row].WPCount = std::min(run->Missions[row].WPCount, points);
  const std::vector<Byte> small = ComposeMissionImage(*run);
  return {small.begin(), small.end()};
}

// The campaign file on another day and with other control words.
std::string Campaign(std::string bytes, char day, char gate, char axis) {
  constexpr std::size_t DateAt = 3201, GateAt = 3216,
                        AxisAt = 3460;  // the middle bits of the date; axis behind the lists
  bytes[DateAt] = static_cast<char>(bytes[DateAt] + day);
  bytes[GateAt] = gate;
  bytes[AxisAt] = axis;
  return bytes;
}

void MakeSeeds(const fs::path& sample, const fs::path& target) {
  const std::string cut(fuzz::Cut), image = Read(sample / "campaign/campgn01.mis"),
                                    dat = Read(sample / "campaign/campgn01.dat");
  const std::string ini = Read(sample / "velmoran/Velmoran.ini"), txt = Read(sample / "data/simpatch/Velmoran.txt"),
                    roster = Read(sample / "data/simpatch/squadron.dat");
  Save(target / "setup/sample", ini + cut + txt);
  Save(target / "roster/sample", roster);
  // As many flights as fit, and one more behind them.
  const std::string most = SmallPlan(Read(sample / "campaign/campgn02.mis"), MissionRows, 0);
  Save(target / "mission/most_flights", most + most.substr(17, 368));
  const std::array<const char*, 5> events{"omW", "RoRmRWR", "coimwW", "nor", "oRmwRWm"};
  for (int i = 0; i < 5; ++i) {
    const std::string name = std::to_string(i);
    const std::string plan = SmallPlan(image, 1 << i, WaypointRows), brief = SmallPlan(image, 3 * i, i);
    const std::string campaign = Campaign(dat, static_cast<char>(i), static_cast<char>(i % 2), static_cast<char>(i));
    Save(target / "mission" / name, plan);
    Save(target / "mission" / ("dated" + name), brief + cut + campaign);
    Save(target / "run" / name,
         events[static_cast<std::size_t>(i)] + cut + brief + cut + campaign + cut + ini + cut + txt + cut + roster);
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
