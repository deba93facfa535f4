// A whole run: the order of the events, the mission file, the campaign file, the two setup files and the roster,
// separated by cuts. A part that isn't there is a file that is missing.
#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

#include "session.h"

using namespace velmoran;

namespace {

bool LosesALink(const RunState& run) {
  return std::any_of(run.Missions.begin(), run.Missions.begin() + run.LoadedCount,
                     [](const MissionRec& flight) { return flight.EscortFlag < 0; });
}

void Do(fuzz::Session& session, Byte event) {
  fuzz::diskIsFull = event == 'w' || event == 'r';
  switch (event) {
    case 'o':
      return session.Open();
    case 'c':
      return session.Open("");
    case 'n':
      return session.Open("nothing.mis");
    case 'i':
      return session.Open(fuzz::IniName);
    case 'm':
      return session.Massage();
    case 'R':
    case 'r':
      return session.Report();
    case 'W':
    case 'w':
      return session.Write();
    default:
      return;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const Byte* data, std::size_t size) {
  const std::vector<fuzz::Bytes> parts = fuzz::Parts(data, size);
  constexpr std::array Names{fuzz::MissionName, fuzz::CampaignName, fuzz::IniName, fuzz::AircraftName,
                             fuzz::RosterName};
  fuzz::files.clear();
  for (std::size_t i = 0; i < Names.size() && i + 1 < parts.size(); ++i) fuzz::files[Names[i]] = parts[i + 1];

  constexpr std::size_t MostEvents = 12;
  {
    fuzz::Session session;
    for (const Byte event : std::span(parts[0]).first(std::min(parts[0].size(), MostEvents))) Do(session, event);
    fuzz::diskIsFull = false;
    // Written, unless something has refused. A link lost by a negative flag makes another file of it.
    if (!session.Written() || LosesALink(session.run())) return 0;
    session.Report();
  }
  const fuzz::Bytes after = fuzz::files[fuzz::ReportName];
  fuzz::Session again;
  again.Open();
  fuzz::Expect(again.Can('M'), "what is written opens again");
  again.Report();
  fuzz::Expect(fuzz::files[fuzz::ReportName] == after, "the report of the file written is that of the flights written");
  return 0;
}
