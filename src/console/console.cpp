// The form as lines of text: commands on standard input, what the form shows on standard output, each line flushed,
// so that a person can drive it from a terminal and a program through a pipe.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "events/captions.h"
#include "events/events.h"
#include "files/path.h"
#include "platform/platform.h"
#include "state/failure.h"
#include "terminal/terminal.h"

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

// What the form shows. The functions of platform.h take no RunState, so the front end keeps it here.
struct Form {
  const RunState* run;
  std::array<bool, Commands.size()> enabled{true, true, true, true, true};  // by Button
  std::string target{captions::ltarget};
  std::string hint;
  std::string commands;  // the words of the buttons that are enabled
};
Form form;

constexpr std::size_t HintCapacity = 256, CommandsCapacity = 64;  // in bytes, enough for any of them

bool& Enabled(Button button) {
  return form.enabled[static_cast<std::size_t>(button)];
}

// Ends the program if standard output fails: nobody would see what follows, not even that a Write failed.
void Print(std::string_view label, std::string_view text) {
  if (WriteLine(label, text)) return;
  std::fputs("velmoran-console: standard output can't be written; no further command was done\n", stderr);
  EndProgram(true);
}

void PrintForm() {
  form.commands.clear();
  for (const Command& command : Commands) {
    if (!Enabled(command.button)) continue;
    if (!form.commands.empty()) form.commands += ' ';
    form.commands += command.word;
  }
  Print("target: ", form.target);
  Print("hint: ", form.hint);
  Print("commands: ", form.commands);
}

// Reads the next line. The end of the input closes the form. Throws Failure if the line is too long.
std::string NextLine() {
  std::string line;
  const Input input = ReadLine(line);
  if (input == Input::End) ExitB_Click(*form.run);
  if (input == Input::Error) {
    std::fputs("velmoran-console: standard input can't be read; nothing more was done\n", stderr);
    EndProgram(true);
  }
  if (input == Input::TooLong) {
    throw Failure{FailureNumber::FileAccess,
                  "The line is longer than " + std::to_string(LongestLine) + " bytes and was ignored",
                  "Type a shorter one."};
  }
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::string Ask(std::string_view caption, std::string_view fileName) {
  Print("ask: ", std::string(caption) + " [" + std::string(fileName) + "]");
  const std::string line = NextLine();
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
    Print("unknown: ", Printable(word));
  } else if (!Enabled(command->button)) {
    Print("unavailable: ", command->word);
  } else {
    Press(run, command->button);
  }
}

}  // namespace

std::string ShowOpenDialog(std::string_view /*directory*/, std::string_view fileName) {
  std::string answer = Ask(captions::OpenB, fileName);
  form.target.reserve(answer.size());  // SetTargetCaption then needs no memory
  return answer;
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
  MaskControls(form.target);
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
  BeginTerminal();
  static RunState run;
  form.run = &run;
  try {
    form.hint.reserve(HintCapacity);
    form.commands.reserve(CommandsCapacity);
    if (AtTerminal()) Print(captions::Label1, std::string(" ") + std::string(captions::Label2));
  } catch (const std::bad_alloc&) {
    ShowMessage(NotEnoughMemoryToStart);
    EndProgram(true);
  }
  Form_Load(run);
  PrintForm();
  while (true) {
    try {
      const std::string word = Trimmed(NextLine());
      if (word.empty()) continue;
      Obey(run, word);
    } catch (const Failure& failure) {
      ShowMessage(FailureText(failure));
    } catch (const std::bad_alloc&) {
      ShowMessage("Error # 7 Not enough memory for this line. Nothing was done.");
    }
    PrintForm();
  }
}
