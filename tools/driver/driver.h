// Drives the real window in the console's language: commands on standard input, and on standard output what
// velmoran-console would print, read off the window's own controls. Its own words are "space" and "enter", which
// press the key, "tab", which also prints where the focus is then, and "look", which prints the form's controls from
// top to bottom. The end of the input closes the window.
//
// driver.cpp reads the commands. The functions below Step have one source for each kind of window.
#pragma once

#include <string>
#include <vector>

namespace driver {

// Answers the open dialog or message box, or else does the next command. Is called again and again; ends the program if
// nothing has happened for too long.
void Step();

enum class Front { Nothing, Form, FileDialog, MessageBox };  // what takes the user's input at the moment

constexpr int Patience = 5000;  // in steps in which nothing happens

Front FrontNow();
bool FormIsShown();
void CloseForm();
[[noreturn]] void GiveUp();  // ends the window's program too

struct Control {
  std::string name;
  std::string text;
  std::string flaw;  // "", or what is wrong with it for a user, "cut" text for instance
};
std::vector<Control> Controls();  // the form itself, then its controls from top to bottom
std::string TextOf(const std::string& control);
bool IsEnabled(const std::string& control);
bool IsInSight(const std::string& control);  // all of it
std::string Focused();
void TurnWheel(bool down);  // over the middle of the form
void Press(const std::string& control);
void PressKey(const std::string& key);

std::string NameInDialog();
void AnswerDialog(const std::string& name);
void CancelDialog();
std::string MessageInBox();
bool BoxIsCentred();  // on the screen
void AnswerBox();

}  // namespace driver
