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
  if (run.MisPath == AnyMissionFile || run.MisPath.empty()) return;
  try {
    const std::vector<Byte> image = ReadFile(run.MisPath);
    run.DatPath = DropLastCharacters(run.MisPath, ExtensionLength) + "dat";
    ReadCampaignDate(run);
    ReadMissions(run, image);
  } catch (const Failure& failure) {
    ShowRefusal(failure);
    return;
  }
  SetTargetCaption(run.MisPath);
  Enter(run, Opened);
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
    WriteFile(run.MisPath, ComposeMissionImage(run));  // all of it stands before the file is emptied
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
