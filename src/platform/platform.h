// What the logic asks of a front end. Each front end implements all of it and owns main; an executable links one.
// Texts and paths are UTF-8. Dialogs and message boxes are modal: they return when the user has closed them.
#pragma once

#include <string>
#include <string_view>

namespace velmoran {

enum class Button { OpenB, MassageB, ReportB, WriteB, ExitB };

// Shows the open or the save dialog in the directory, with fileName in its file name field. Returns the path that the
// user chose or typed, or fileName after Cancel. The open dialog lists the names that match the pattern fileName.
std::string ShowOpenDialog(std::string_view directory, std::string_view fileName);
std::string ShowSaveDialog(std::string_view directory, std::string_view fileName);

// Enables or disables a button. All are enabled at first.
void EnableButton(Button button, bool enabled);

// Sets the text of the hint box HintT.
void SetHintText(std::string_view text);

// Sets the caption of the label ltarget.
void SetTargetCaption(std::string_view text);

// Shows the text in a box with one OK button and the default title.
void ShowMessage(std::string_view text);

// Ends the program at once, without a question and without saving. The exit status reports failure if failed.
[[noreturn]] void EndProgram(bool failed);

}  // namespace velmoran
