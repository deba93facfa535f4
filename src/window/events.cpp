#include "window/events.h"

#include <span>
#include <string>
#include <vector>

#include "files/campaign_date.h"
#include "files/disk.h"
#include "files/mission_file.h"
#include "files/path.h"
#include "files/roster.h"
#include "files/setup.h"
#include "massage/massage_stopped.h"
#include "massage/plan_check.h"
#include "massage/sequence.h"
#include "report/report.h"
#include "state/failure.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr std::string_view StartHint =
    "Press Open to open a mission (campgn??.mis) file.  "
    "When you have opened the mission file the filename will appear";
constexpr std::string_view OpenedHint =
    "File opened.  Press Massage to alter mission types and altitudes.  "
    "You can also press Generate Report to get a report of mission paramaters before massaging";
constexpr std::string_view MassagedHint =
    "Data massage complete.  Press Write to save the altered mission types and altitudes.  "
    // Quirk 1: spelling kept.
    "You can also press Generate Report to get a report of mission paramaters after massaging";
constexpr std::string_view WrittenHint =
    "Write complete.  Press Exit to exit the program.  "
    "You can also press Generate Report to get a report of mission paramaters after massaging";

constexpr std::string_view AnyMissionFile = "*.mis";
constexpr std::string_view ReportName = "MissionReport.txt";

constexpr int FolderNameLength = 8;  // of the folder that the tool runs in, beside the simulation's data folder
constexpr int ExtensionLength = 3;

// A state of the form: which buttons are enabled, and the hint. ExitB is always enabled.
struct FormState {
  bool openB, massageB, reportB, writeB;
  std::string_view hint;
};
constexpr FormState Started{true, false, false, false, StartHint};
constexpr FormState Opened{false, true, true, false, OpenedHint};
constexpr FormState Massaged{false, false, true, true, MassagedHint};
constexpr FormState Written{false, false, true, false, WrittenHint};

void Enter(RunState& run, const FormState& state) {
  EnableButton(Button::OpenB, state.openB);
  EnableButton(Button::MassageB, state.massageB);
  EnableButton(Button::ReportB, state.reportB);
  EnableButton(Button::WriteB, state.writeB);
  run.HintText = state.hint;
  SetHintText(run.HintText);
}

void ShowRefusal(const Failure& failure) {
  ShowMessage(FailureText(failure) + "; the mission file was not changed");
}

}  // namespace

void Form_Load(RunState& run) {
  SeedRnd(run);
  run.MisPath.clear();
  SetInitialValues(run);
  run.WorkDir = CurrentDirectory();
  // Quirk 10: with a folder name of any length.
  run.DataPath = DropLastCharacters(run.WorkDir, FolderNameLength) + "data\\simpatch";
  try {
    ReadSetup(run);
    GetSquadInfo(run);
  } catch (const Failure& failure) {
    ShowMessage(FailureText(failure));
    EndProgram(true);
  }
  Enter(run, Started);
}

void OpenB_Click(RunState& run) {
  run.MisPath = ShowOpenDialog(run.WorkDir, AnyMissionFile);
  if (run.MisPath == AnyMissionFile || run.MisPath.empty()) return;  // Quirk 13: this text means Cancel.
  try {
    const std::vector<Byte> image = ReadFile(run.MisPath);
    // Quirk 14: with any extension.
    run.DatPath = DropLastCharacters(run.MisPath, ExtensionLength) + "dat";
    ReadCampaignDate(run);
    ReadMissions(run, image);
  } catch (const Failure& failure) {
    ShowRefusal(failure);
    return;
  }
  SetTargetCaption(run.MisPath);  // Quirk 7: replaces "Target: " too.
  Enter(run, Opened);             // Quirk 15: no way back, so Open resets nothing.
}

void MassageB_Click(RunState& run) {
  try {
    CheckPlan(run);
  } catch (const Failure& failure) {
    ShowRefusal({failure.number, std::string(FileName(run.MisPath)) + ", " + failure.description});
    return;
  }
  try {
    RunMassage(run);
  } catch (const MassageStopped& stopped) {
    ShowMessage(stopped.message);
    EndProgram(true);
  }
  Enter(run, Massaged);
}

void ReportB_Click(RunState& run) {
  // Quirk 16: Cancel gives the name that was offered.
  const std::string path = ShowSaveDialog(run.WorkDir, ReportName);
  const std::string report = ComposeReport(run);
  try {
    WriteFile(path, std::span(reinterpret_cast<const Byte*>(report.data()), report.size()));
  } catch (const Failure& failure) {
    ShowMessage(FailureText(failure));
  }
}

void WriteB_Click(RunState& run) {
  try {
    // Quirk 17: no question and no backup. The image is complete before the file is emptied.
    WriteFile(run.MisPath, ComposeMissionImage(run));
  } catch (const Failure& failure) {
    ShowMessage(FailureText(failure) + "; the massaged flights are kept: mend the cause and press Write again");
    return;
  }
  Enter(run, Written);
}

void ExitB_Click() {
  EndProgram(false);
}

void Press(RunState& run, Button button) {
  switch (button) {
    case Button::OpenB:
      return OpenB_Click(run);
    case Button::MassageB:
      return MassageB_Click(run);
    case Button::ReportB:
      return ReportB_Click(run);
    case Button::WriteB:
      return WriteB_Click(run);
    case Button::ExitB:
      ExitB_Click();
  }
}

}  // namespace velmoran
