// Writes the sample campaign: a folder as the simulation would lay it out, always with the same bytes.
//
//   make_sample TEMPLATES TARGET
//
// TEMPLATES holds Velmoran.ini and Velmoran.txt. TARGET is emptied, then gets
//   velmoran/       the folder to run the tool in, with Velmoran.ini
//   data/simpatch/  Velmoran.txt and squadron.dat
//   campaign/       campgn01 (an ordinary day) and campgn02 (the largest that fits), .mis and .dat each

#include <array>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "files/bytes.h"
#include "files/disk.h"
#include "files/mission_file.h"
#include "plan.h"

namespace {

using namespace velmoran;
namespace fs = std::filesystem;

constexpr std::array<std::string_view, 19> Birds{
    "Heron", "Kestrel", "Swift",   "Plover", "Magpie", "Falcon", "Curlew", "Osprey",  "Raven", "Merlin",
    "Finch", "Buzzard", "Lapwing", "Jay",    "Gannet", "Shrike", "Martin", "Harrier", "Crane"};

std::string NameOf(Long squadID) {
  const std::string number = std::to_string(squadID);
  const std::string bird(Birds[static_cast<std::size_t>(squadID) % Birds.size()]);
  switch (sample::NationOf(squadID)) {
    case 0:
      return bird + " Staffel " + number;
    case 1:
      return "No. " + number + " " + bird + " Squadron";
    case 2:
      return "Escadrille " + number + " " + bird;
    case 3:
      return bird + " Aero Squadron " + number;
    default:
      return "Compagnie " + number + " " + bird;
  }
}

void Append(std::vector<Byte>& bytes, Long value) {
  bytes.resize(bytes.size() + 4);
  PutLong(&bytes[bytes.size() - 4], value);
}

std::vector<Byte> Roster() {
  std::vector<Byte> bytes;
  for (Long squadID = 1; squadID <= SquadronsFilled; ++squadID) {
    std::string name = NameOf(squadID);
    name.resize(40, '*');
    bytes.insert(bytes.end(), name.begin(), name.end());
    Append(bytes, squadID);
    Append(bytes, 1000 + squadID);
    Append(bytes, sample::NationOf(squadID));
    Append(bytes, 0);
    const Long pilots = squadID % 5, fields = squadID % 3;
    Append(bytes, pilots);
    bytes.insert(bytes.end(), 16 * static_cast<std::size_t>(pilots), Byte{0x11});
    Append(bytes, fields);
    bytes.insert(bytes.end(), 28 * static_cast<std::size_t>(fields), Byte{0x22});
  }
  return bytes;
}

// A campaign file: what the tool reads of it, and some bytes after that.
std::vector<Byte> Campaign(Long day, Byte gate, Byte axis) {
  constexpr Byte firstList = 2, secondList = 3;
  std::vector<Byte> bytes(3600, Byte{0x33});
  PutLong(&bytes[3200], FirstCampaignDay + day);
  PutLong(&bytes[3216], gate);
  PutLong(&bytes[3343], firstList);
  PutLong(&bytes[3347 + 16 * firstList], secondList);
  PutLong(&bytes[3380 + 16 * (firstList + secondList)], axis);
  return bytes;
}

void WriteDay(const fs::path& folder, const std::string& name, void (*plan)(RunState&), Long day) {
  const auto run = std::make_unique<RunState>();
  plan(*run);
  WriteFile((folder / (name + ".mis")).string(), ComposeMissionImage(*run), Flush::No);
  WriteFile((folder / (name + ".dat")).string(), Campaign(day, 0, 1), Flush::No);
}

void MakeSample(const fs::path& templates, const fs::path& target) {
  fs::remove_all(target);
  const fs::path data = target / "data" / "simpatch", campaign = target / "campaign";
  for (const fs::path& folder : {target / "velmoran", data, campaign}) fs::create_directories(folder);
  fs::copy_file(templates / "Velmoran.ini", target / "velmoran" / "Velmoran.ini");
  fs::copy_file(templates / "Velmoran.txt", data / "Velmoran.txt");
  WriteFile((data / "squadron.dat").string(), Roster(), Flush::No);
  WriteDay(campaign, "campgn01", sample::PlanOrdinaryDay, 800);
  WriteDay(campaign, "campgn02", sample::PlanLargestDay, 1300);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "make_sample TEMPLATES TARGET\n";
    return EXIT_FAILURE;
  }
  try {
    MakeSample(argv[1], argv[2]);
  } catch (const Failure& failure) {
    std::cerr << failure.description << '\n';
    return EXIT_FAILURE;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
