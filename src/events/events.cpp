#include "events/events.h"

#include <new>
#include <span>
#include <string>
#include <utility>
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

constexpr std::string_view NotEnoughMemoryToMassage =
    "Error # 7 Not enough memory for the massage. No file was changed. Close other programs and try again.";

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

// Shows the failure, with the advice if it has none of its own. If there isn't enough memory for its text, shows the
// other one.
void ShowFailure(Failure& failure, std::string_view advice, std::string_view notEnoughMemory) {
  try {
    if (failure.advice.empty()) failure.advice = advice;
    ShowMessage(FailureText(failure));
  } catch (const std::bad_alloc&) {
    ShowMessage(notEnoughMemory);
  }
}

// Shows a failure after which no file has changed.
void ShowRefusal(Failure& failure, std::string_view advice, std::string_view notEnoughMemory) {
  try {
    failure.description += ". No file was changed";
    ShowFailure(failure, advice, notEnoughMemory);
  } catch (const std::bad_alloc&) {
    ShowMessage(notEnoughMemory);
  }
}

}  // namespace

void Form_Load(RunState& run) {
  try {
    SeedRnd(run);
    run.MisPath.clear();
    SetInitialValues(run);
    run.WorkDir = CurrentDirectory();
    // Quirk 10: right only if the folder's name has eight characters.
    run.DataPath = DropLastCharacters(run.WorkDir, FolderNameLength) + "data\\simpatch";
    ReadSetup(run);
    GetSquadInfo(run);
  } catch (Failure& failure) {
    ShowFailure(failure, "Replace it with an intact copy.", NotEnoughMemoryToStart);
    EndProgram(true);
  } catch (const std::bad_alloc&) {
    ShowMessage(NotEnoughMemoryToStart);
    EndProgram(true);
  }
  Enter(run, Started);
}

void OpenB_Click(RunState& run) {
  constexpr std::string_view NotEnoughMemory =
      "Error # 7 Not enough memory to open the file. No file was changed. Close other programs and try again.";
  try {
    run.MisPath = ShowOpenDialog(run.WorkDir, AnyMissionFile);
    if (run.MisPath == AnyMissionFile || run.MisPath.empty()) return;  // Quirk 13: this text means Cancel.
    const InputFile file(run.MisPath, "Choose the mission file of your campaign, campgn??.mis.");
    std::string path = file.Path();
    const std::string shownPath = Printable(path);
    // Quirk 14: even if they aren't "mis".
    run.DatPath = DropLastCharacters(run.MisPath, ExtensionLength) + "dat";
    ReadCampaignDate(run);
    ReadMissions(run, file.ReadAll(), shownPath);
    run.MissionFile = std::move(path);
  } catch (Failure& failure) {
    ShowRefusal(failure, "If it is the right file, it is damaged: restore your copy of the campaign folder.",
                NotEnoughMemory);
    return;
  } catch (const std::bad_alloc&) {
    ShowMessage(NotEnoughMemory);
    return;
  }
  SetTargetCaption(run.MisPath);  // Quirk 7: replaces "Target: " too.
  Enter(run, Opened);             // Quirk 15: no way back, so Open resets nothing.
}

bool AcceptPlan(const RunState& run) {
  try {
    try {
      CheckPlan(run);
      return true;
    } catch (Failure& failure) {
      failure.description.insert(0, Printable(run.MissionFile) + ", ");
      ShowRefusal(failure, "Velmoran can't massage this plan: press Exit, and fly it as it is.",
                  NotEnoughMemoryToMassage);
    }
  } catch (const std::bad_alloc&) {
    ShowMessage(NotEnoughMemoryToMassage);
  }
  return false;
}

void MassageB_Click(RunState& run) {
  if (!AcceptPlan(run)) return;
  try {
    RunMassage(run);
  } catch (const MassageStopped& stopped) {
    ShowMessage(stopped.message);
    EndProgram(true);
  } catch (const std::bad_alloc&) {  // while composing the message of MassageStopped
    ShowMessage(NotEnoughMemoryToMassage);
    EndProgram(true);
  }
  Enter(run, Massaged);
}

void ReportB_Click(RunState& run) {
  std::string_view notEnoughMemory =
      "Error # 7 Not enough memory for the report. No file was changed. Close other programs and try again.";
  try {
    // Quirk 16: Cancel gives the name that was offered.
    const std::string path = ShowSaveDialog(run.WorkDir, ReportName);
    const std::string report = ComposeReport(run);
    const std::string file = PathForReport(path);
    notEnoughMemory =
        "Error # 7 Not enough memory. The report may be missing or incomplete. Close other programs and try again.";
    WriteFile(file, std::span(reinterpret_cast<const Byte*>(report.data()), report.size()), Flush::No);
  } catch (Failure& failure) {
    ShowFailure(failure, "Remove the cause, or choose another name or folder for the report.", notEnoughMemory);
  } catch (const std::bad_alloc&) {
    ShowMessage(notEnoughMemory);
  }
}

void WriteB_Click(RunState& run) {
  run.WriteFailed = true;
  std::string_view notEnoughMemory =
      "Error # 7 Not enough memory. No file was changed. The massaged flights are kept: close other programs, and "
      "press Write again before you exit.";
  try {
    const std::vector<Byte> image = ComposeMissionImage(run);  // complete before the file is emptied
    notEnoughMemory =
        "Error # 7 Not enough memory. The mission file may be incomplete now. The massaged flights are kept: close "
        "other programs, and press Write again before you exit.";
    // Quirk 17: no question and no backup.
    WriteFile(run.MissionFile, image, Flush::ToDisk);
    run.WriteFailed = false;
  } catch (Failure& failure) {
    ShowFailure(failure, "The massaged flights are kept: remove the cause, and press Write again before you exit.",
                notEnoughMemory);
    return;
  } catch (const std::bad_alloc&) {
    ShowMessage(notEnoughMemory);
    return;
  }
  Enter(run, Written);
}

void ExitB_Click(const RunState& run) {
  EndProgram(run.WriteFailed);
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
      ExitB_Click(run);
  }
}

}  // namespace velmoran
