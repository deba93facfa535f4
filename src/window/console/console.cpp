// The form as lines of text: commands on standard input, what the form shows on standard output, each line flushed,
// so that a person at a terminal and a program behind a pipe can drive it alike.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>

#include "files/path.h"
#include "platform/platform.h"
#include "window/captions.h"
#include "window/console/terminal.h"
#include "window/events.h"
#include "window/win32/dll_search.h"

namespace velmoran {

namespace {

struct Command {
  std::string_view word;
  Button button;
};
constexpr std::array<Command, 5> Commands{{{"open", Button::OpenB},
                                           {"massage", Button::MassageB},
                                           {"report", Button::ReportB},
                                           {"write", Button::WriteB},
                                           {"exit", Button::ExitB}}};

// What the form shows at the moment. The seam's functions know no RunState, so the form is the front end's own.
struct Form {
  std::array<bool, Commands.size()> enabled{true, true, true, true, true};  // by Button
  std::string target{captions::ltarget};
  std::string hint;
};
Form form;

bool& Enabled(Button button) {
  return form.enabled[static_cast<std::size_t>(button)];
}

void Print(std::string_view what, std::string_view text) {
  WriteLine(std::string(what) + std::string(text));
}

void PrintForm() {
  std::string enabled;
  for (const Command& command : Commands) {
    if (!Enabled(command.button)) continue;
    if (!enabled.empty()) enabled += ' ';
    enabled += command.word;
  }
  Print("target: ", form.target);
  Print("hint: ", form.hint);
  Print("commands: ", enabled);
}

// What is typed next; the end of the input closes the form.
std::string Typed() {
  std::string line;
  if (!ReadLine(line)) ExitB_Click();
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::string Ask(std::string_view caption, std::string_view fileName) {
  Print("ask: ", std::string(caption) + " [" + std::string(fileName) + "]");
  const std::string line = Typed();
  return line.empty() ? std::string(fileName) : line;
}

std::string Trimmed(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  return line.substr(first, line.find_last_not_of(" \t") - first + 1);
}

void Obey(RunState& run, const std::string& word) {
  const auto command = std::ranges::find_if(
      Commands, [&word](const Command& candidate) { return SameButForCase(word, candidate.word); });
  if (command == Commands.end()) {
    Print("unknown: ", word);
  } else if (!Enabled(command->button)) {
    Print("unavailable: ", command->word);
  } else {
    Press(run, command->button);
  }
}

}  // namespace

std::string ShowOpenDialog(std::string_view /*directory*/, std::string_view fileName) {
  return Ask(captions::OpenB, fileName);
}

std::string ShowSaveDialog(std::string_view /*directory*/, std::string_view fileName) {
  return Ask(captions::ReportB, fileName);
}

void EnableButton(Button button, bool enabled) {
  Enabled(button) = enabled;
}

void SetHintText(std::string_view text) {
  form.hint = text;
}

void SetTargetCaption(std::string_view text) {
  form.target = text;
}

void ShowMessage(std::string_view text) {
  Print("message: ", text);
}

void EndProgram(bool failed) {
  std::exit(failed ? EXIT_FAILURE : EXIT_SUCCESS);
}

}  // namespace velmoran

int main() {
  using namespace velmoran;
  LoadDllsFromSystemOnly();
  const auto run = std::make_unique<RunState>();
  if (AtTerminal()) Print(captions::Label1, std::string(" ") + std::string(captions::Label2));
  Form_Load(*run);
  PrintForm();
  while (true) {
    const std::string word = Trimmed(Typed());
    if (word.empty()) continue;
    Obey(*run, word);
    PrintForm();
  }
}
