// A run of the program, by its events, on files in memory; one at a time. After every event it checks what must hold
// for any files, and stops the process if it doesn't.
#pragma once

#include <string>

#include "memory_disk.h"
#include "state/run_state.h"

namespace fuzz {

inline constexpr const char *MissionName = "campgn01.mis", *CampaignName = "campgn01.dat", *IniName = "Velmoran.ini",
                            *AircraftName = "Velmoran.txt", *RosterName = "squadron.dat", *ReportName = "report.txt";

// The one RunState of the process, initialized again: allocating it each time would take longer than most runs.
velmoran::RunState& FreshState();

// If it doesn't hold, stops the process and prints what.
void Expect(bool holds, const char* what);

class Session {
 public:
  Session();  // starts the program

  // Each presses the button if it is enabled, and does nothing once the program has ended.
  void Open(const std::string& typed = MissionName);
  void Massage();
  void Report();
  void Write();

  bool Can(char button) const;  // one of "OMRWE"
  bool Written() const;
  const velmoran::RunState& run() const { return run_; }

 private:
  // Calls the event. Returns whether it was refused, and checks that the plan and the form haven't changed then.
  bool Refused(char button, void (*event)(velmoran::RunState&));
  void CheckMassaged(velmoran::Long playerSquad) const;

  velmoran::RunState& run_ = FreshState();
  bool ended_ = false;
};

}  // namespace fuzz
