// The mission file and, after a cut, the campaign file, with the sample's setup files and roster. Without a cut the
// campaign file is the sample's too.
#include <fstream>
#include <iterator>

#include "fakes.h"
#include "session.h"

using namespace velmoran;

namespace {

fuzz::Bytes SampleFile(const std::string& name) {
  std::ifstream file(VELMORAN_SAMPLE "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

const fuzz::Files& Sample() {
  static const fuzz::Files sample{{fuzz::IniName, SampleFile("velmoran/Velmoran.ini")},
                                  {fuzz::AircraftName, SampleFile("data/simpatch/Velmoran.txt")},
                                  {fuzz::RosterName, SampleFile("data/simpatch/squadron.dat")},
                                  {fuzz::CampaignName, SampleFile("campaign/campgn01.dat")}};
  return sample;
}

// The file after a whole run, and the messages shown.
std::pair<fuzz::Bytes, std::vector<std::string>> AfterAMassage() {
  fuzz::Session session;
  session.Open();
  session.Massage();
  const std::vector<std::string> messages = fakes::form.messages;
  session.Write();
  session.Report();
  return {fuzz::files[fuzz::MissionName], messages};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const Byte* data, std::size_t size) {
  std::vector<fuzz::Bytes> parts = fuzz::Parts(data, size);
  fuzz::files = Sample();
  fuzz::files[fuzz::MissionName] = parts[0];
  if (parts.size() > 1) fuzz::files[fuzz::CampaignName] = parts[1];

  const auto once = AfterAMassage();
  fuzz::files[fuzz::MissionName] = parts[0];
  fuzz::Expect(AfterAMassage() == once, "the same files give the same bytes and messages twice");
  return 0;
}
