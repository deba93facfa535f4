#include "driver.h"

#include <array>
#include <iostream>

namespace driver {

namespace {

struct Command {
  const char* word;
  const char* button;
};
constexpr std::array<Command, 5> Commands{
    {{"open", "OpenB"}, {"massage", "MassageB"}, {"report", "ReportB"}, {"write", "WriteB"}, {"exit", "ExitB"}}};

constexpr int MostTurns = 50;  // of the wheel, over the whole form

std::string asking;  // the caption of the button pressed last

void Print(const std::string& what, const std::string& text) {
  std::cout << what << ": " << text << std::endl;
}

void PrintForm() {
  std::string enabled;
  for (const auto& [word, button] : Commands) {
    if (IsEnabled(button)) enabled += (enabled.empty() ? "" : " ") + std::string(word);
  }
  Print("target", TextOf("ltarget"));
  Print("hint", TextOf("HintT"));
  Print("commands", enabled);
}

void Look() {
  std::string all;
  for (const Control& control : Controls()) {
    all += (all.empty() ? "" : " | ") + control.name + " " + control.text;
    if (!control.flaw.empty()) all += " (" + control.flaw + ")";
  }
  Print("look", all);
}

// Brings the control into sight by the mouse's wheel, if it isn't. False: it can't be.
bool ScrollTo(const std::string& control) {
  for (int turn = 0; turn < 2 * MostTurns && !IsInSight(control); ++turn) TurnWheel(turn < MostTurns);
  return IsInSight(control);
}

void Obey(const std::string& word) {
  if (word == "look") return Look();
  if (word == "tab") {
    PressKey(word);
    return Print("focus", Focused() + (Focused().empty() || IsInSight(Focused()) ? "" : " (out of sight)"));
  }
  if (word == "space" || word == "enter") {
    const std::string focused = Focused();
    if (focused.empty()) return Print("focus", "");
    asking = TextOf(focused);
    return PressKey(word);
  }
  for (const auto& [known, button] : Commands) {
    if (word != known) continue;
    if (!IsEnabled(button)) return Print("unavailable", word);
    if (!ScrollTo(button)) return Print("out of sight", word);
    asking = TextOf(button);
    return Press(button);
  }
  Print("unknown", word);
}

}  // namespace

void Step() {
  static int idle = 0;
  static bool begun = false;  // the form has taken input
  const Front front = FrontNow();
  idle = front == Front::Nothing ? idle + 1 : 0;
  if (idle > Patience) {
    Print("stuck", "");
    GiveUp();
  }
  std::string line;
  switch (front) {
    case Front::Nothing:
      return;
    case Front::MessageBox:
      if (!begun && FormIsShown()) Print("shown", "before its time");
      if (!begun && !BoxIsCentred()) Print("shown", "off centre");
      Print("message", MessageInBox());
      return AnswerBox();
    case Front::FileDialog:
      Print("ask", asking + " [" + NameInDialog() + "]");
      std::getline(std::cin, line);
      return line.empty() ? CancelDialog() : AnswerDialog(line);
    case Front::Form:
      begun = true;
      PrintForm();
      return std::getline(std::cin, line) ? Obey(line) : CloseForm();
  }
}

}  // namespace driver
