// velmoran-odds: opens a plan as the tool does, massages copies of it in memory many times, and prints what came out.
// Writes no file but the one that --csv names.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <set>
#include <span>

#include "events/captions.h"
#include "events/events.h"
#include "files/disk.h"
#include "files/path.h"
#include "odds/arguments.h"
#include "odds/process.h"
#include "odds/simulate.h"
#include "odds/summary.h"
#include "odds/warnings.h"
#include "platform/platform.h"
#include "state/failure.h"
#include "terminal/terminal.h"

namespace velmoran {

namespace {

// What the functions of platform.h work on: they take no RunState.
Arguments arguments;
bool massaging = false, refused = false;
std::vector<std::string> shown;  // the messages of the massage that is running

[[noreturn]] void Finish(int status) {
  if (AtTerminal() && OwnsWindow()) {
    WriteLine("", "Press Enter to close this window.");
    std::string line;
    ReadLine(line);
  }
  std::exit(status);
}

void Print(std::string_view label, std::string_view line) {
  if (WriteLine(label, line)) return;
  std::fputs("velmoran-odds: standard output can't be written\n", stderr);
  Finish(EXIT_FAILURE);
}

void PrintLines(std::string_view text) {
  for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    Print("", text.substr(0, end));
    text.remove_prefix(end + 1);
  }
}

// Throws WrongArgument if --csv names a file that was read.
// Whether the file exists and isn't a list that --csv has written. What can't be read is left to WriteFile.
bool IsAnotherFile(const std::string& csv) {
  try {
    const InputFile file(csv, "");
    if (file.Path() != csv) return false;  // a file whose name differs in case, which isn't replaced
    const std::vector<Byte> bytes = file.ReadAll();
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return !text.empty() && !text.starts_with(CsvStart);
  } catch (const Failure&) {
    return false;
  }
}

void RefuseToOverwrite(const RunState& run) {
  const std::string csv = PathForReport(arguments.csv);
  for (const std::string& path : {run.MissionFile, run.DatPath, std::string("Velmoran.ini"),
                                  run.DataPath + "\\Velmoran.txt", run.DataPath + "\\squadron.dat"}) {
    if (IsSameFile(csv, InputFile(path, "").Path())) {
      throw WrongArgument{"--csv names " + path + ", which is one of the files that are read"};
    }
  }
  if (IsAnotherFile(csv)) throw WrongArgument{"--csv names " + csv + ", which exists and isn't a list of massages"};
}

// The text of a message without a flight's number at its end, so that messages for different flights count as one.
std::string KindOf(const std::string& message) {
  const std::size_t end = message.find_last_not_of("-0123456789") + 1;
  return end == message.size() ? message : message.substr(0, end) + "...";
}

Massages MassageCopies(const RunState& opened) {
  using Clock = std::chrono::steady_clock;
  using Seconds = std::chrono::duration<double>;
  const auto work = std::make_unique<RunState>(opened);
  Massages massages;
  massages.outcomes.reserve(static_cast<std::size_t>(arguments.massages) + 1);
  const auto begin = Clock::now();
  auto nextProgress = begin + std::chrono::seconds(2);
  const bool showsProgress = ErrorsAtTerminal();
  massaging = true;
  for (Long seed = 0; seed <= arguments.massages; ++seed) {
    shown.clear();
    Outcome outcome = MassageCopy(opened, *work, seed);
    outcome.messages = static_cast<Long>(shown.size());
    massages.outcomes.push_back(outcome);
    if (seed > 0 && !shown.empty()) {
      std::set<std::string> kinds;
      for (const std::string& message : shown) kinds.insert(KindOf(message));
      for (const std::string& kind : kinds) ++massages.shown[kind];
    }
    if (!showsProgress || Clock::now() < nextProgress) continue;
    nextProgress += std::chrono::milliseconds(200);
    std::fprintf(stderr, "\r%d of %d massages", static_cast<int>(seed), static_cast<int>(arguments.massages));
  }
  massaging = false;
  std::fprintf(stderr, "%s%d massages in %.2f s\n", showsProgress ? "\r" : "", static_cast<int>(arguments.massages),
               Seconds(Clock::now() - begin).count());
  return massages;
}

void WriteCsv(const RunState& opened, const Massages& massages) {
  try {
    try {
      const std::string csv = Csv(opened, massages);
      WriteFile(PathForReport(arguments.csv), std::span(reinterpret_cast<const Byte*>(csv.data()), csv.size()),
                Flush::No);
      return;
    } catch (Failure& failure) {
      failure.advice = "Remove the cause, or choose another name or folder for the file.";
      ShowMessage(FailureText(failure));
    }
  } catch (const std::bad_alloc&) {
    ShowMessage(
        "Error # 7 Not enough memory. The file that --csv names may be missing or incomplete. Close other programs and "
        "try again.");
  }
  Finish(EXIT_FAILURE);
}

void Run(RunState& run) {
  if (arguments.help || arguments.version) {
    PrintLines(arguments.help ? Help : "velmoran-odds " VELMORAN_VERSION "\n");
    return;
  }
  Form_Load(run);
  OpenB_Click(run);
  if (run.MissionFile.empty()) Finish(refused ? EXIT_FAILURE : EXIT_SUCCESS);  // success after Cancel
  if (!AcceptPlan(run)) Finish(EXIT_FAILURE);
  if (!arguments.csv.empty()) RefuseToOverwrite(run);
  const Massages massages = MassageCopies(run);
  PrintLines(Summary(run, massages, Warnings(run, massages)));
  if (!arguments.csv.empty()) WriteCsv(run, massages);
}

}  // namespace

std::string ShowOpenDialog(std::string_view /*directory*/, std::string_view fileName) {
  if (!arguments.mission.empty()) return arguments.mission;
  Print("ask: ", std::string(captions::OpenB) + " [" + std::string(fileName) + "]");
  std::string line;
  if (ReadLine(line) == Input::Error) {
    std::fputs("velmoran-odds: standard input can't be read\n", stderr);
    Finish(EXIT_FAILURE);
  }
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::string ShowSaveDialog(std::string_view /*directory*/, std::string_view fileName) {
  return std::string(fileName);  // ReportB is never pressed
}

void EnableButton(Button /*button*/, bool /*enabled*/) {}

void SetHintText(std::string_view /*text*/) {}

void SetTargetCaption(std::string_view /*text*/) {}

void ShowMessage(std::string_view text) {
  if (massaging) {
    shown.emplace_back(text);
  } else {
    refused = true;
    Print("message: ", text);
  }
}

void EndProgram(bool failed) {
  Finish(failed ? EXIT_FAILURE : EXIT_SUCCESS);
}

}  // namespace velmoran

int main(int argc, char** argv) {
  using namespace velmoran;
  BeginTerminal();
  BeginOutput();
  try {
    arguments = ReadArguments(GivenArguments(argc, argv));
    Run(*std::make_unique<RunState>());
  } catch (const WrongArgument& wrong) {
    std::fprintf(stderr, "velmoran-odds: %s (see --help)\n", Printable(wrong.reason).c_str());
    constexpr int Status = 2;
    Finish(Status);
  } catch (const Failure& failure) {  // for a file that has disappeared since it was read
    ShowMessage(FailureText(failure));
    EndProgram(true);
  } catch (const std::bad_alloc&) {
    massaging = false;
    ShowMessage(
        "Error # 7 Not enough memory for the massages. No file was changed. Close other programs and try again.");
    EndProgram(true);
  }
  Finish(EXIT_SUCCESS);
}
