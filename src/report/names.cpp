#include "report/names.h"

#include <array>
#include <cstddef>

namespace velmoran {

namespace {

constexpr std::array<std::string_view, 14> MissionNames{
    "Bomb",           "Recon",           "Attack",           "Spotting",        "CAP",
    "Barrage Patrol", "Balloon Bust",    "Escort",           "Balloon Defense", "Infantry Defense",
    "Attack Support", "Barrage Support", "Offensive Patrol", "Lone Wolf"};

constexpr std::array<std::string_view, 15> ActionNames{
    "Ingress", "Egress", "Escort", "Attack Target", "Patrol", "Defend Balloon",
    // Quirk 8: spelling kept.
    "Patrol Front", "Defend Infantry", "Support Attack", "Loiter", "rendevous", "Takeoff", "Land", "Recon", "Navigate"};

constexpr std::array<std::string_view, 17> FormationNames{
    "Echelon Right", "Echelon Left", "Vee",     "Diamond", "Wedge", "Delta",  "Vic",    "Javelin",    "Javelin 2",
    "In Trail",      "Wall",         "Low Alt", "Stinger", "Fluid", "Escort", "Escort", "Low alt Vic"};

template <std::size_t Count>
std::string_view NameOf(const std::array<std::string_view, Count>& names, Long number) {
  const auto row = static_cast<std::size_t>(number);
  if (number < 0 || row >= Count) return "Unknown";
  return names[row];
}

}  // namespace

void GetMissionName(Long MissionType, std::string_view& MissionName) {
  MissionName = NameOf(MissionNames, MissionType);
}

void GetWPAction(Byte Action, std::string_view& ActionName) {
  ActionName = NameOf(ActionNames, Action);
}

void GetWPFormation(Byte Formation, std::string_view& FormationName) {
  FormationName = NameOf(FormationNames, Formation);
}

}  // namespace velmoran
